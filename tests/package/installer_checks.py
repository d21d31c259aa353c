"""The installer: machine and user, update, refusals, removal."""

import contextlib
import pathlib
import subprocess
import tempfile
import time

from fresh_prefix import MACHINE, USER, FreshPrefix, disk_path, windows_path
from identities import published_keys, registered_identities
from outcome import passed, require, require_same
from package.registration import MENU
from packages import DROPPED, OLDER

REMOVAL_LIMIT = 120
IN_THE_WAY, IN_USE = 2, 3
DLLS = ("VelmoSAV_DLL14.dll", "ApiPopupMenu.dll")
HOLDER = pathlib.Path(__file__).with_name("hold_library.cpp")
COMPILER = "i686-w64-mingw32-g++-posix"


def install(prefix, packages, *options):
    prefix.must(windows_path(packages.installer), "/S", *options)


def require_refused(prefix, packages, option, code, why):
    before = prefix.state()
    found, _ = prefix.run(windows_path(packages.installer), "/S", option)
    require(found == code, f"{why}: code {found} instead of {code}")
    require(prefix.state() == before, f"{why}: refused, yet registry or disk changed")


def remove(prefix, folder):
    """An uninstaller runs on from a copy of itself: its folder goes last."""
    prefix.must(disk_path(folder / "desinstaller.exe"), "/S")
    limit = time.monotonic() + REMOVAL_LIMIT
    while folder.exists() and time.monotonic() < limit:
        time.sleep(0.5)


def require_published(root, keys, when):
    expected, found = published_keys(root), registered_identities(keys)
    require(found == expected, f"{when}: not the published identifiers: missing {sorted(expected - found)[:4]}, "
            f"others {sorted(found - expected)[:4]}")


@contextlib.contextmanager
def library_in_use(prefix, folder):
    """A program that holds the library installed in `folder`."""
    with tempfile.TemporaryDirectory(prefix="velmosav-") as work:
        program = pathlib.Path(work) / "hold_library.exe"
        subprocess.run([COMPILER, "-municode", "-static", "-o", program, HOLDER], check=True)
        with subprocess.Popen(["wine", windows_path(program), disk_path(folder / DLLS[0])], env=prefix.environment,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL) as holder:
            try:
                require(holder.stdout.readline().strip() == b"held", "the program that holds the library did not start")
                yield
            finally:
                holder.kill()


def check_machine(root, packages, older):
    """Returns the keys that an installation for the machine writes."""
    with FreshPrefix() as prefix:
        folder = prefix.machine_folder
        install(prefix, older, "/AllUsers")
        prefix.diagnose(folder, OLDER)
        registered = prefix.new_keys(MACHINE)
        require_published(root, registered, "older version")
        require(not prefix.new_keys(USER), "classes registered for the user too")
        require((folder / DROPPED).is_file(), "the older version's own file is missing")
        passed("installer, machine: silent; diagnosis finds all well; the published identifiers, for the machine alone")

        with library_in_use(prefix, folder):
            require_refused(prefix, packages, "/AllUsers", IN_USE, "update while a program holds the library")
        prefix.diagnose(folder, OLDER)
        passed("installer, machine: no update while a program holds the library; the older version stays whole")

        install(prefix, packages, "/AllUsers")
        prefix.diagnose(folder, packages.version)
        updated = prefix.new_keys(MACHINE)
        require_published(root, updated, "update")
        require_same(updated, registered, "the registration changed by the update")
        require(not (folder / DROPPED).exists(), "the update left a file of the older version alone")
        prefix.run_script(folder)
        passed("installer, machine: update keeps CLSIDs, LIBID, IIDs, ProgIDs, drops old files; script host runs")

        require_refused(prefix, packages, "/CurrentUser", IN_THE_WAY, "for the user beside the machine's")
        passed("installer, user beside machine: refused, nothing changed")

        # What the installer writes is what the library itself registers, no more and no less.
        for name in DLLS:
            prefix.must("regsvr32", "/s", disk_path(folder / name))
        require_same(prefix.new_keys(MACHINE), registered, "regsvr32 registers something else")
        for name in DLLS:
            prefix.must("regsvr32", "/s", "/u", disk_path(folder / name))
        left = prefix.new_keys(MACHINE)
        require(not left, f"the installer registers more than regsvr32: {sorted(left)[:8]}")
        passed(f"installer, machine: its {len(registered)} keys are those of regsvr32, value by value")

        install(prefix, packages, "/AllUsers")
        remove(prefix, folder)
        prefix.require_as_before("installer, machine")
        passed("installer, machine: removed; registry and disk as before")
        return registered


def check_user(packages, older, machine_keys):
    with FreshPrefix() as prefix:
        install(prefix, older, "/CurrentUser")
        require(not prefix.new_keys(MACHINE), "classes registered for the machine too")
        registered = prefix.new_keys(USER)
        install(prefix, packages)
        keys = prefix.new_keys(USER)
        require_same(keys, registered, "the registration changed by the update")
        require(keys.keys() >= machine_keys.keys(), f"missing: {sorted(machine_keys.keys() - keys.keys())[:8]}")
        folder = next((prefix.path / "drive_c" / "users").rglob("desinstaller.exe")).parent
        require(not (folder / DROPPED).exists(), "the update left a file of the older version alone")
        place = str(folder).split("drive_c")[1].replace("/", "\\\\")
        for key, values in machine_keys.items():
            expected = [line.replace("\\\\Program Files\\\\VelmoSAV", place) for line in values]
            require(keys[key] == expected, f"{key}: {keys[key]} instead of {expected}")
        passed("installer, user: the machine's keys, value by value, for the user alone; an update needs no option and "
               "keeps them (a class created from them is not shown: this platform does not)")

        require_refused(prefix, packages, "/AllUsers", IN_THE_WAY, "for the machine beside the user's")
        passed("installer, machine beside user: refused, nothing changed")
        remove(prefix, folder)
        prefix.require_as_before("installer, user")
        passed("installer, user: removed; registry and disk as before")


def check_other_folder(packages, older):
    """A folder of the administrator's choice; `older` is an older version."""
    with FreshPrefix() as prefix:
        folder = prefix.path / "drive_c" / "Ailleurs"
        install(prefix, older, "/AllUsers", "/D=C:\\Ailleurs")
        prefix.diagnose(folder, older.version)
        require(not prefix.machine_folder.exists(), "/D: installed in the usual folder")
        install(prefix, packages, "/AllUsers")
        prefix.diagnose(folder, packages.version)
        require(not prefix.machine_folder.exists(), "the update left the folder that was chosen")
        remove(prefix, folder)
        prefix.require_as_before("installer, other folder")
        passed("installer, folder given with /D: used, kept by the update, removed; registry and disk as before")


def require_owner(prefix, own):
    key = "HKEY_LOCAL_MACHINE\\Software\\Classes"
    values = prefix.export(key)[f"[{key}\\{MENU}\\CLSID]"]
    require(values == [f'@="{own}"'], f"the menu's name was taken from the application: {values}")


def check_menu_of_the_application(root, packages):
    """The application's own menu component keeps its name through installation and removal."""
    with FreshPrefix() as prefix:
        own = "{EE09B103-97E0-11CF-978F-00A02463E06F}"
        prefix.must("reg", "add", rf"HKLM\Software\Classes\{MENU}\CLSID", "/ve", "/d", own, "/f")
        prefix.note_state()
        install(prefix, packages, "/AllUsers")
        require_published(root, prefix.new_keys(MACHINE), "installer")
        require_owner(prefix, own)
        remove(prefix, prefix.machine_folder)
        prefix.require_as_before("installer beside the application's menu component")
        passed("installer beside the application's own menu component: gives way to it; removed; all as before")
        prefix.must("msiexec", "/i", windows_path(packages.msi), "/qn")
        require_published(root, prefix.new_keys(MACHINE), "MSI")
        require_owner(prefix, own)
        prefix.must("msiexec", "/x", windows_path(packages.msi), "/qn")
        prefix.require_as_before("MSI beside the application's menu component")
        passed("MSI beside the application's own menu component: gives way to it; removed; all as before")
