"""The MSI: update, removal, and the refusals between it and the installer."""

from fresh_prefix import MACHINE, USER, FreshPrefix, windows_path
from installer_checks import IN_THE_WAY, install, remove, require_published, require_refused
from outcome import passed, require
from packages import DROPPED, OLDER

# ERROR_INSTALL_FAILURE, of which the exit code's last byte arrives.
REFUSED = 1603 % 256


def msi(prefix, action, packages):
    prefix.must("msiexec", action, windows_path(packages.msi), "/qn")


def check_msi(root, packages, older, machine_keys):
    with FreshPrefix() as prefix:
        folder = prefix.machine_folder
        msi(prefix, "/i", older)
        prefix.diagnose(folder, OLDER)
        require_published(root, prefix.new_keys(MACHINE), "older version")
        require((folder / DROPPED).is_file(), "the older version's own file is missing")
        msi(prefix, "/i", packages)
        prefix.diagnose(folder, packages.version)
        keys = prefix.new_keys(MACHINE)
        require_published(root, keys, "update")
        for key, values in machine_keys.items():
            # Windows Installer ends a folder's path with a backslash.
            if key.endswith("\\helpdir"):
                values = [line.replace('VelmoSAV"', 'VelmoSAV\\\\"') for line in values]
            require(keys.get(key) == values, f"MSI: {key}: {keys.get(key)} instead of {values}")
        require(not (folder / DROPPED).exists(), "the update left a file of the older version alone")
        prefix.run_script(folder)
        passed("MSI: silent; update keeps CLSIDs, LIBID, IIDs, ProgIDs, drops old files; script host runs")

        require_refused(prefix, packages, "/AllUsers", IN_THE_WAY, "installer, machine, beside the MSI")
        require_refused(prefix, packages, "/CurrentUser", IN_THE_WAY, "installer, user, beside the MSI")
        passed("installer beside the MSI: refused for machine and user, nothing changed")
        msi(prefix, "/x", packages)
        prefix.require_as_before("MSI")
        passed("MSI: removed; registry and disk as before")


def check_msi_beside_the_installer(packages):
    with FreshPrefix() as prefix:
        for option, part, what in (("/AllUsers", MACHINE, "machine"), ("/CurrentUser", USER, "user")):
            install(prefix, packages, option)
            keys = prefix.new_keys(part)
            code, _ = prefix.run("msiexec", "/i", windows_path(packages.msi), "/qn")
            require(code == REFUSED, f"MSI beside the installation for the {what}: code {code}")
            require(prefix.new_keys(part) == keys, f"MSI refused, yet the {what}'s registration changed")
            folder = next((prefix.path / "drive_c").rglob("desinstaller.exe")).parent
            remove(prefix, folder)
            prefix.require_as_before(f"MSI refused beside the installation for the {what}")
            passed(f"MSI beside the installation for the {what}: refused; nothing of it stays")
        msi(prefix, "/i", packages)
        prefix.diagnose(prefix.machine_folder, packages.version)
        passed("MSI: installs once the other installation is removed")
