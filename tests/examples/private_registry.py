"""A Wine prefix with a registry of its own over the disk of the present one: a test may spoil the registration."""

import os
import pathlib
import shutil
import subprocess
import tempfile

TIME_LIMIT = 120


class PrivateRegistry:
    def __init__(self):
        present = pathlib.Path(os.environ["WINEPREFIX"])
        self.folder = tempfile.TemporaryDirectory()
        prefix = pathlib.Path(self.folder.name)
        for name in ("system.reg", "user.reg", "userdef.reg", ".update-timestamp"):
            shutil.copy(present / name, prefix / name)
        shutil.copytree(present / "dosdevices", prefix / "dosdevices", symlinks=True)
        (prefix / "drive_c").symlink_to(present / "drive_c")
        self.environment = {**os.environ, "WINEPREFIX": str(prefix)}

    def run(self, *command):
        """(exit code, output) of a Windows program; the output goes through a file, since services keep pipes open."""
        with tempfile.TemporaryFile() as output:
            done = subprocess.run(["wine", *map(str, command)], stdin=subprocess.DEVNULL, stdout=output,
                                  stderr=subprocess.DEVNULL, timeout=TIME_LIMIT, check=False, env=self.environment)
            output.seek(0)
            return done.returncode, output.read().decode("utf-8", "replace").replace("\r\n", "\n")

    def must(self, *command):
        code, output = self.run(*command)
        if code:
            raise RuntimeError(f"{' '.join(map(str, command))}: code {code}\n{output}")

    def close(self):
        server = shutil.which("wineserver") or "/usr/lib/wine/wineserver"
        subprocess.run([server, "-k", "-w"], env=self.environment, check=False, timeout=TIME_LIMIT)
        self.folder.cleanup()
