"""A Wine prefix with nothing installed, whose registry and disk can be compared with what they were."""

import os
import pathlib
import re
import tempfile

from outcome import require
from private_registry import PrivateRegistry

MACHINE, USER = "registry, machine", "registry, user"
# What the system writes anew at its starts: the numbers of network cards, the colours of the display.
STARTS_WRITE = r"\\NetworkCards|\\Wine\\Temporary System Parameters"
HIVES = {MACHINE: "HKEY_LOCAL_MACHINE\\Software", USER: "HKEY_CURRENT_USER\\Software"}


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def disk_path(path):
    """Of a file on the prefix's own disk."""
    return "C:" + str(path).split("drive_c")[1].replace("/", "\\")


def systems_own(name, after):
    """The folder of a user's programs, and the emptied containers in which Windows Installer keeps its books: made by
    the system at the first installation, and kept."""
    if isinstance(after, dict):
        return "\\Installer" in name and not after[name]
    return re.fullmatch(r"users/[^/]+/AppData/Local/Programs|windows/Installer", name) is not None


class FreshPrefix(PrivateRegistry):
    def __init__(self):
        self.folder = tempfile.TemporaryDirectory(prefix="velmosav-")
        self.path = pathlib.Path(self.folder.name)
        self.machine_folder = self.path / "drive_c/Program Files/VelmoSAV"
        self.environment = {**os.environ, "WINEPREFIX": self.folder.name, "WINEARCH": "win32", "WINEDEBUG": "-all",
                            "WINEDLLOVERRIDES": "winedbg.exe=d;mscoree,mshtml=", "LC_ALL": "fr_FR.UTF-8"}
        self.must("wineboot", "-i")
        # The script host registers its own objects when it first runs.
        script = self.path / "vide.vbs"
        script.write_text("WScript.Echo 1\r\n")
        self.must("cscript", "//nologo", windows_path(script))
        self.note_state()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def note_state(self):
        """What the prefix holds now is what later states are compared with."""
        self.before = self.state()

    def export(self, key):
        target = self.path / "export.reg"
        self.must("regedit", "/E", windows_path(target), key)
        text = target.read_text("utf-16")
        target.unlink()
        keys = {}
        for block in text.replace("\r\n", "\n").split("\n\n"):
            lines = block.strip().splitlines()
            if lines and lines[0].startswith("[") and not re.search(STARTS_WRITE, lines[0]):
                keys[lines[0]] = lines[1:]
        return keys

    def files(self):
        disk = self.path / "drive_c"
        return {path.relative_to(disk).as_posix() for path in disk.rglob("*")
                if not re.search(r"/(Temp|temp|Cache|Crypto)(/|$)", path.relative_to(disk).as_posix())}

    def state(self):
        return {**{part: self.export(hive) for part, hive in HIVES.items()}, "disk": self.files()}

    def require_as_before(self, what):
        for part, after in self.state().items():
            before = self.before[part]
            left = sorted(name for name in set(after) - set(before) if not systems_own(name, after))
            gone = sorted(set(before) - set(after))
            require(not left and not gone, f"{what}: {part}: left behind {left[:8]}, gone {gone[:8]}")
            if isinstance(after, dict):
                changed = [key for key in before if after[key] != before[key]]
                require(not changed, f"{what}: {part}: changed {changed[:8]}")

    def new_keys(self, part):
        """The keys below the classes that were not there before: path in small letters -> values."""
        classes = f"[{HIVES[part]}\\Classes\\"
        return {key.removeprefix(classes).removesuffix("]").lower(): values
                for key, values in self.export(HIVES[part]).items()
                if key.startswith(classes) and key not in self.before[part]}

    def diagnose(self, folder, version):
        """The diagnosis of the library installed in `folder` finds all well, and that version."""
        code, output = self.run(windows_path(folder / "sav-diagnostic.exe"))
        require(code == 0 and "Tout va bien." in output, f"sav-diagnostic, code {code}:\n{output}")
        require(f"version {version}.0" in output, f"not version {version}:\n{output}")

    def run_script(self, folder):
        """The script host of the examples, against what is registered."""
        script = folder / "exemples" / "scripts" / "demo.vbs"
        code, output = self.run("cscript", "//nologo", windows_path(script))
        require(code == 0 and "VERDICT : tout est juste" in output, f"{script.name}, code {code}:\n{output}")
