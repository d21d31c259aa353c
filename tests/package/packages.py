"""The packages of this tree and of copies of it, as `./sav package` makes them."""

import os
import pathlib
import shutil
import subprocess
import zipfile

from outcome import require

OLDER = "13.9.0"
# A file of the older version alone.
DROPPED = "exemples/scripts/ancien.vbs"
# Not handed on. A copy is compiled anew: objects out of a compiler's cache would be compared with themselves.
OWN_SETTINGS = ("CMAKE_CXX_COMPILER_LAUNCHER", "CMAKE_C_COMPILER_LAUNCHER", "SAV_SIGN", "SAV_VERSION", "SAV_PRESET")


class Packages:
    """The files that one run made, by kind."""

    def __init__(self, root):
        folder = root / "build" / "package"
        self.folder = folder
        self.installer = next(folder.glob("*-installation.exe"))
        self.msi = next(folder.glob("*.msi"))
        self.zip = next(path for path in folder.glob("*.zip") if "symboles" not in path.name)
        self.symbols = next(folder.glob("*-symboles.zip"))
        self.version = self.msi.stem.split("-")[1]

    def kept_in(self, folder):
        """A copy that the next run does not replace."""
        shutil.copytree(self.folder, folder / "build" / "package")
        return Packages(folder)


def copy_of_tree(root, copy):
    listed = subprocess.run(["git", "-C", str(root), "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
                            capture_output=True, text=True, check=True).stdout.split("\0")
    for name in filter(None, listed):
        (copy / name).parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(root / name, copy / name)


def run_package(root, environment):
    """(exit code, output) of `./sav package`."""
    inherited = {name: text for name, text in os.environ.items() if name not in OWN_SETTINGS}
    done = subprocess.run([str(root / "sav"), "package"], env={**inherited, **environment}, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True, check=False)
    return done.returncode, done.stdout


def make(root, environment):
    code, output = run_package(root, environment)
    require(code == 0, f"sav package in {root}, code {code}:\n{output}")
    return Packages(root)


def make_older(copy, environment, folder):
    """An older version, with a file more."""
    extra = copy / "examples" / "scripts" / pathlib.PurePosixPath(DROPPED).name
    extra.write_text("WScript.Echo 13\r\n")
    older = make(copy, {**environment, "SAV_VERSION": OLDER}).kept_in(folder)
    extra.unlink()
    return older


def check_same_bytes(root, copy, packages, others):
    for path in ("build/release/interface/VelmoSAV_DLL14.tlb", "build/release/package/contents/VelmoSAV_DLL14.dll"):
        require((root / path).read_bytes() == (copy / path).read_bytes(), f"{path}: two builds differ")
    for one, other in ((packages.zip, others.zip), (packages.symbols, others.symbols)):
        with zipfile.ZipFile(one) as left, zipfile.ZipFile(other) as right:
            require(left.namelist() == right.namelist(), f"{one.name}: two builds hold other files")
            differing = [name for name in left.namelist() if left.read(name) != right.read(name)]
            require(not differing, f"{one.name}: two builds differ in {differing}")
        require(one.read_bytes() == other.read_bytes(), f"{one.name}: two builds differ")
