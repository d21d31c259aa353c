"""The hook for a signing certificate: what is handed over, when, and what a failure does."""

import pathlib
import subprocess
import sys
import tempfile
import zipfile

from fresh_prefix import FreshPrefix
from installer_checks import install, remove
from outcome import passed, require
from packages import make, run_package
from stand_in_signer import MARK

SIGNER = pathlib.Path(__file__).with_name("stand_in_signer.py")


def programs_in(archive):
    """name -> bytes of the files that Windows runs or loads, whatever they are called."""
    found = {name: archive.read(name) for name in archive.namelist()}
    return {name: data for name, data in found.items() if data.startswith(b"MZ")}


def command(log, refused=""):
    return {"SAV_SIGN": f'"{sys.executable}" "{SIGNER}" "{log}" "{refused}"'}


def check_signing(copy, environment):
    with tempfile.TemporaryDirectory(prefix="velmosav-") as folder:
        log = pathlib.Path(folder) / "signed.txt"
        log.touch()
        for refused, what in ((".dll", "a DLL"), (".msi", "the MSI")):
            code, output = run_package(copy, {**environment, **command(log, refused)})
            require(code != 0, f"a signer that fails on {what} does not fail the package:\n{output}")
            require("SAV_SIGN failed" in output, f"the failure of the signer is not told:\n{output}")
            left = [path.name for path in (copy / "build" / "package").iterdir()]
            require(not left, f"a signer that failed on {what} left {left}")
        passed("signing: a signer that fails, on a DLL or on the MSI, fails the package; no package is left")

        log.write_text("")
        packages = make(copy, {**environment, **command(log)})
        given = log.read_text().splitlines()
        with zipfile.ZipFile(packages.zip) as archive:
            programs = programs_in(archive)
        unsigned = [name for name, data in programs.items() if not data.endswith(MARK)]
        require(len(programs) >= 8 and not unsigned, f"of {len(programs)} programs not signed: {unsigned}")
        for path in (packages.installer, packages.msi):
            require(path.name in given and path.read_bytes().endswith(MARK), f"{path.name} is not signed")
        passed(f"signing: {len(given)} files handed over once each: every program of the zip, installer, MSI")

        done = subprocess.run(["sha256sum", "--check", "--quiet", "SHA256SUMS.txt"], cwd=packages.folder, check=False)
        require(done.returncode == 0, "the sums of the packages are not those of the signed files")
        with zipfile.ZipFile(packages.zip) as archive:
            archive.extractall(folder)
        inside = next(path for path in pathlib.Path(folder).iterdir() if path.is_dir())
        done = subprocess.run(["sha256sum", "--check", "--quiet", "SHA256SUMS.txt"], cwd=inside, check=False)
        require(done.returncode == 0, "the sums in the zip are not those of the signed files")
        passed("signing: sums are those of the signed files")

        with FreshPrefix() as prefix:
            install(prefix, packages, "/AllUsers")
            installed = [path for path in prefix.machine_folder.rglob("*") if path.suffix in (".dll", ".exe")]
            unsigned = [path.name for path in installed if not path.read_bytes().endswith(MARK)]
            require(len(installed) > len(programs) and not unsigned, f"installed, not signed: {unsigned}")
            prefix.diagnose(prefix.machine_folder, packages.version)
            remove(prefix, prefix.machine_folder)
            prefix.require_as_before("signed installer")
        passed("signing: the signed installer installs; every installed program is signed, the uninstaller too")
