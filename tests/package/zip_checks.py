"""The zip: its sums, a host that runs with nothing registered, and examples that build from it."""

import shutil
import subprocess
import zipfile

from fresh_prefix import FreshPrefix, windows_path
from outcome import passed, require

LIBRARY = "VelmoSAV_DLL14.dll"


def require_runs_unregistered(prefix, program):
    code, output = prefix.run(windows_path(program))
    require(code == 0 and "finit le 31/12/26" in output, f"without registration, code {code}: {output}")
    require(windows_path(program.with_name(LIBRARY)).lower() in output.lower(), f"another library served: {output}")


def build_examples(root, folder, output):
    """The smaller C++ examples, with the build file that comes with them."""
    for command in (["cmake", "-S", folder / "exemples", "-B", output, "-G", "Ninja",
                     f"-DCMAKE_TOOLCHAIN_FILE={root / 'cmake' / 'mingw-i686.cmake'}"],
                    ["cmake", "--build", output, "--target", "premier_appel", "sans_enregistrement"]):
        done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)
        require(done.returncode == 0, f"the examples do not build from the package:\n{done.stdout}")


def check_zip(root, packages):
    with FreshPrefix() as prefix:
        target = prefix.path / "application"
        with zipfile.ZipFile(packages.zip) as archive:
            archive.extractall(target)
        folder = next(target.iterdir())
        done = subprocess.run(["sha256sum", "--check", "--quiet", "SHA256SUMS.txt"], cwd=folder, check=False)
        require(done.returncode == 0, "the sums of the zip's files are wrong")
        program = folder / "exemples" / "bin" / "sans_enregistrement.exe"
        require_runs_unregistered(prefix, program)
        passed("zip: sums; a host runs with nothing registered, served by the DLL beside it")

        built = prefix.path / "examples"
        build_examples(root, folder, built)
        shutil.copy(folder / LIBRARY, built / "bin")
        require_runs_unregistered(prefix, built / "bin" / program.name)
        passed("zip: its C++ examples build from what it holds, and run")

        program.with_name(LIBRARY).unlink()
        code, _ = prefix.run(windows_path(program))
        require(code != 0, "runs without the library beside it")
        prefix.require_as_before("zip")
        passed("zip: that host fails without the DLL; registry and disk as before")
