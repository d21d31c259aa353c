#!/usr/bin/env python3
"""Prove the packages: two builds give the same bytes; each package installs in a fresh Wine prefix, serves a script
host, updates, and leaves nothing behind.

Usage: check_package.py ROOT
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import time
import zipfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "examples"))
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tools"))
from package.archive import commit_date  # noqa: E402
from package.registration import MENU  # noqa: E402
from private_registry import PrivateRegistry  # noqa: E402

OLDER = "13.9.0"
UNINSTALL_LIMIT = 120
MACHINE, USER = "HKEY_LOCAL_MACHINE\\Software", "HKEY_CURRENT_USER\\Software"
MACHINE_FOLDER = "drive_c/Program Files/VelmoSAV"


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def disk_path(path):
    """Of a file on the prefix's own disk."""
    return "C:" + str(path).split("drive_c")[1].replace("/", "\\")


class Failed(Exception):
    pass


def require(condition, text):
    if not condition:
        raise Failed(text)


def require_same(found, expected, text):
    wrong = [(key, found.get(key), expected.get(key)) for key in sorted(found.keys() | expected.keys())
             if found.get(key) != expected.get(key)]
    require(not wrong, f"{text}; key, found, expected: {wrong[:4]} ({len(wrong)} in all)")


def systems_own(name, after):
    """The folder of a user's programs, and the emptied containers in which Windows Installer keeps its books: made by the
    system at the first installation, and kept."""
    if isinstance(after, dict):
        return "\\Installer" in name and not after[name]
    return re.fullmatch(r"users/[^/]+/AppData/Local/Programs|windows/Installer", name) is not None


class FreshPrefix(PrivateRegistry):
    """A prefix of its own, with nothing installed; what it holds can be compared with what it held."""

    def __init__(self):
        self.folder = tempfile.TemporaryDirectory(prefix="velmosav-")
        self.path = pathlib.Path(self.folder.name)
        self.environment = {**os.environ, "WINEPREFIX": self.folder.name, "WINEARCH": "win32", "WINEDEBUG": "-all",
                            "WINEDLLOVERRIDES": "winedbg.exe=d;mscoree,mshtml=", "LC_ALL": "fr_FR.UTF-8"}
        self.must("wineboot", "-i")
        # The script host registers its own objects when it first runs.
        script = self.path / "vide.vbs"
        script.write_text("WScript.Echo 1\r\n")
        self.must("cscript", "//nologo", windows_path(script))
        self.before = self.state()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def export(self, key):
        target = self.path / "export.reg"
        self.must("regedit", "/E", windows_path(target), key)
        text = target.read_text("utf-16")
        target.unlink()
        keys = {}
        for block in text.replace("\r\n", "\n").split("\n\n"):
            lines = block.strip().splitlines()
            # The system numbers the machine's network cards anew at each start.
            if lines and lines[0].startswith("[") and "\\NetworkCards" not in lines[0]:
                keys[lines[0]] = lines[1:]
        return keys

    def files(self):
        disk = self.path / "drive_c"
        return {path.relative_to(disk).as_posix() for path in disk.rglob("*")
                if not re.search(r"/(Temp|temp|Cache|Crypto)(/|$)", path.relative_to(disk).as_posix())}

    def state(self):
        return {"registry, machine": self.export(MACHINE), "registry, user": self.export(USER), "disk": self.files()}

    def require_as_before(self, what):
        for part, after in self.state().items():
            before = self.before[part]
            left = sorted(name for name in set(after) - set(before) if not systems_own(name, after))
            gone = sorted(set(before) - set(after))
            require(not left and not gone, f"{what}: {part}: left behind {left[:8]}, gone {gone[:8]}")
            if isinstance(after, dict):
                changed = [key for key in before if after[key] != before[key]]
                require(not changed, f"{what}: {part}: changed {changed[:8]}")

    def diagnose(self, program, version):
        code, output = self.run(windows_path(program))
        require(code == 0 and "Tout va bien." in output, f"sav-diagnostic, code {code}:\n{output}")
        require(f"version {version}.0" in output, f"not version {version}:\n{output}")

    def run_script(self, script):
        code, output = self.run("cscript", "//nologo", windows_path(script))
        require(code == 0 and "VERDICT : tout est juste" in output, f"{script.name}, code {code}:\n{output}")


def new_keys(prefix, hive, part):
    return {key.removeprefix(f"[{hive}\\Classes\\").lower(): values for key, values in prefix.export(hive).items()
            if key.startswith(f"[{hive}\\Classes\\") and key not in prefix.before[part]}


def check_installer_for_the_machine(packages, older):
    with FreshPrefix() as prefix:
        folder = prefix.path / MACHINE_FOLDER
        uninstaller = folder / "desinstaller.exe"
        prefix.must(windows_path(older["installer"]), "/S", "/AllUsers")
        prefix.diagnose(folder / "sav-diagnostic.exe", OLDER)
        registered = new_keys(prefix, MACHINE, "registry, machine")
        require(len(registered) > 31 * 8, f"only {len(registered)} keys registered")
        require(not new_keys(prefix, USER, "registry, user"), "classes registered for the user too")

        prefix.must(windows_path(packages["installer"]), "/S", "/AllUsers")
        prefix.diagnose(folder / "sav-diagnostic.exe", packages["version"])
        require_same(new_keys(prefix, MACHINE, "registry, machine"), registered, "an identifier changed by the update")
        prefix.run_script(folder / "exemples" / "scripts" / "demo.vbs")

        code, _ = prefix.run(windows_path(packages["installer"]), "/S", "/CurrentUser")
        require(code == 2, f"installed for the user beside the machine's, code {code}")
        require(not new_keys(prefix, USER, "registry, user"), "refused, yet classes registered for the user")

        # What the installer writes is what the library itself registers, no more and no less.
        for name in ("VelmoSAV_DLL14.dll", "ApiPopupMenu.dll"):
            prefix.must("regsvr32", "/s", disk_path(folder / name))
        require_same(new_keys(prefix, MACHINE, "registry, machine"), registered, "regsvr32 registers something else")
        for name in ("VelmoSAV_DLL14.dll", "ApiPopupMenu.dll"):
            prefix.must("regsvr32", "/s", "/u", disk_path(folder / name))
        left = new_keys(prefix, MACHINE, "registry, machine")
        require(not left, f"the installer registers more than regsvr32: {sorted(left)[:8]}")

        prefix.must(windows_path(packages["installer"]), "/S", "/AllUsers")
        uninstall(prefix, uninstaller)
        prefix.require_as_before("installer, machine")
        return registered


def uninstall(prefix, uninstaller):
    """An uninstaller runs on from a copy of itself: its folder goes last."""
    prefix.must(disk_path(uninstaller), "/S")
    limit = time.monotonic() + UNINSTALL_LIMIT
    while uninstaller.parent.exists() and time.monotonic() < limit:
        time.sleep(0.5)


def check_installer_for_the_user(packages, machine_keys):
    with FreshPrefix() as prefix:
        prefix.must(windows_path(packages["installer"]), "/S", "/CurrentUser")
        require(not new_keys(prefix, MACHINE, "registry, machine"), "classes registered for the machine too")
        keys = new_keys(prefix, USER, "registry, user")
        require(keys.keys() >= machine_keys.keys(), f"missing: {sorted(machine_keys.keys() - keys.keys())[:8]}")
        uninstaller = next((prefix.path / "drive_c" / "users").rglob("desinstaller.exe"))
        place = str(uninstaller.parent).split("drive_c")[1].replace("/", "\\\\")
        for key, values in machine_keys.items():
            expected = [line.replace("\\\\Program Files\\\\VelmoSAV", place) for line in values]
            require(keys[key] == expected, f"{key}: {keys[key]} instead of {expected}")
        code, _ = prefix.run(windows_path(packages["installer"]), "/S", "/AllUsers")
        require(code == 2, f"installed for the machine beside the user's, code {code}")
        uninstall(prefix, uninstaller)
        prefix.require_as_before("installer, user")


def check_msi(packages, older, machine_keys):
    with FreshPrefix() as prefix:
        folder = prefix.path / MACHINE_FOLDER
        prefix.must("msiexec", "/i", windows_path(older["msi"]), "/qn")
        prefix.diagnose(folder / "sav-diagnostic.exe", OLDER)
        prefix.must("msiexec", "/i", windows_path(packages["msi"]), "/qn")
        prefix.diagnose(folder / "sav-diagnostic.exe", packages["version"])
        keys = new_keys(prefix, MACHINE, "registry, machine")
        for key, values in machine_keys.items():
            # Windows Installer ends a folder's path with a backslash.
            if key.endswith("\\helpdir]"):
                values = [line.replace('VelmoSAV"', 'VelmoSAV\\\\"') for line in values]
            require(keys.get(key) == values, f"MSI: {key}: {keys.get(key)} instead of {values}")
        prefix.run_script(folder / "exemples" / "scripts" / "demo.vbs")
        prefix.must("msiexec", "/x", windows_path(packages["msi"]), "/qn")
        prefix.require_as_before("MSI")


def check_menu_of_the_application(packages):
    """The application's own menu component keeps its name through installation and removal."""
    with FreshPrefix() as prefix:
        own = "{EE09B103-97E0-11CF-978F-00A02463E06F}"
        prefix.must("reg", "add", rf"HKLM\Software\Classes\{MENU}\CLSID", "/ve", "/d", own, "/f")
        prefix.before = prefix.state()
        folder = prefix.path / MACHINE_FOLDER
        prefix.must(windows_path(packages["installer"]), "/S", "/AllUsers")
        require(len(new_keys(prefix, MACHINE, "registry, machine")) > 31 * 8, "installer: classes not registered")
        require_owner(prefix, own)
        uninstall(prefix, folder / "desinstaller.exe")
        prefix.require_as_before("installer beside the application's menu component")
        prefix.must("msiexec", "/i", windows_path(packages["msi"]), "/qn")
        require(len(new_keys(prefix, MACHINE, "registry, machine")) > 31 * 8, "MSI: classes not registered")
        require_owner(prefix, own)
        prefix.must("msiexec", "/x", windows_path(packages["msi"]), "/qn")
        prefix.require_as_before("MSI beside the application's menu component")


def require_owner(prefix, own):
    values = prefix.export(MACHINE + "\\Classes")[f"[{MACHINE}\\Classes\\{MENU}\\CLSID]"]
    require(values == [f'@="{own}"'], f"the menu's name was taken from the application: {values}")


def check_zip(packages):
    with FreshPrefix() as prefix:
        target = prefix.path / "application"
        with zipfile.ZipFile(packages["zip"]) as archive:
            archive.extractall(target)
        folder = next(target.iterdir())
        subprocess.run(["sha256sum", "--check", "--quiet", "SHA256SUMS.txt"], cwd=folder, check=True)
        program = folder / "exemples" / "bin" / "sans_enregistrement.exe"
        code, output = prefix.run(windows_path(program))
        require(code == 0 and "finit le 31/12/26" in output, f"without registration, code {code}: {output}")
        require(windows_path(program.parent / "VelmoSAV_DLL14.dll").lower() in output.lower(),
                f"another library served: {output}")
        program.with_name("VelmoSAV_DLL14.dll").unlink()
        code, _ = prefix.run(windows_path(program))
        require(code != 0, "runs without the library beside it")
        prefix.require_as_before("zip")


def packages_in(root):
    folder = root / "build" / "package"
    found = {"installer": next(folder.glob("*-installation.exe")), "msi": next(folder.glob("*.msi")),
             "zip": next(path for path in folder.glob("*.zip") if "symboles" not in path.name),
             "symbols": next(folder.glob("*-symboles.zip"))}
    return {**found, "version": found["msi"].stem.split("-")[1]}


def make(root, environment):
    done = subprocess.run([str(root / "sav"), "package"], env={**os.environ, **environment}, capture_output=True,
                          text=True, check=False)
    require(done.returncode == 0, f"sav package in {root}:\n{done.stdout}{done.stderr}")
    return packages_in(root)


def check_same_bytes(root, copy, packages, others):
    for path in ("build/release/interface/VelmoSAV_DLL14.tlb", "build/release/package/contents/VelmoSAV_DLL14.dll"):
        require((root / path).read_bytes() == (copy / path).read_bytes(), f"{path}: two builds differ")
    for kind in ("zip", "symbols"):
        with zipfile.ZipFile(packages[kind]) as one, zipfile.ZipFile(others[kind]) as other:
            require(one.namelist() == other.namelist(), f"{packages[kind].name}: two builds hold other files")
            differing = [name for name in one.namelist() if one.read(name) != other.read(name)]
            require(not differing, f"{packages[kind].name}: two builds differ in {differing}")
        require(packages[kind].read_bytes() == others[kind].read_bytes(), f"{packages[kind].name}: two builds differ")


def main(root):
    steps = 0

    def passed(text):
        nonlocal steps
        steps += 1
        print(f"passed  {text}", flush=True)

    epoch = {"SOURCE_DATE_EPOCH": str(commit_date(root))}
    with tempfile.TemporaryDirectory(prefix="velmosav-") as folder:
        copy = pathlib.Path(folder) / "ailleurs" / "arbre"
        listed = subprocess.run(["git", "-C", str(root), "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
                                capture_output=True, text=True, check=True).stdout.split("\0")
        for name in filter(None, listed):
            (copy / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(root / name, copy / name)
        packages = packages_in(root)
        check_same_bytes(root, copy, packages, make(copy, epoch))
        passed("two builds in two folders: same DLL, type library, zip and symbols")
        older = make(copy, {**epoch, "SAV_VERSION": OLDER})
        keys = check_installer_for_the_machine(packages, older)
        passed("installer for the machine: update, script host, same keys as regsvr32, never both, removed whole")
        check_installer_for_the_user(packages, keys)
        passed("installer for the user: keys, never both, removed whole (the platform here cannot create from them)")
        check_msi(packages, older, keys)
        passed("MSI: update, script host, removed whole")
        check_menu_of_the_application(packages)
        passed("the application's own menu component keeps its name")
        check_zip(packages)
        passed("zip: sums, host without registration")
    print(f"{steps} passed, 0 failed")


if __name__ == "__main__":
    try:
        main(pathlib.Path(sys.argv[1]).resolve())
    except Failed as failure:
        sys.exit(f"FAILED  {failure}")
