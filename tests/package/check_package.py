#!/usr/bin/env python3
"""Prove the packages: two builds give the same bytes; each package installs in a fresh Wine prefix, serves a script
host, updates, and leaves nothing behind. A line for each thing seen.

Usage: check_package.py ROOT
"""

import pathlib
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "examples"))
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tools"))
from installer_checks import check_machine, check_menu_of_the_application, check_other_folder, check_user  # noqa: E402
from msi_checks import check_msi, check_msi_beside_the_installer  # noqa: E402
from outcome import Failed, Tally, passed  # noqa: E402
from package.archive import commit_date  # noqa: E402
from packages import Packages, check_same_bytes, copy_of_tree, make, make_older  # noqa: E402
from signing_checks import check_signing  # noqa: E402
from zip_checks import check_zip  # noqa: E402


def main(root):
    date = {"SOURCE_DATE_EPOCH": str(commit_date(root))}
    with tempfile.TemporaryDirectory(prefix="velmosav-") as name:
        folder = pathlib.Path(name)
        copy = folder / "ailleurs" / "arbre"
        copy_of_tree(root, copy)
        packages = Packages(root)
        check_same_bytes(root, copy, packages, make(copy, date))
        passed("two builds in two folders: same DLL, type library, zip and symbols, byte for byte")
        check_signing(copy, date)
        older = make_older(copy, date, folder / "older")
        keys = check_machine(root, packages, older)
        check_user(packages, older, keys)
        check_other_folder(packages, older)
        check_msi(root, packages, older, keys)
        check_msi_beside_the_installer(packages)
        check_menu_of_the_application(root, packages)
        check_zip(root, packages)
    print(f"{Tally.count} passed, 0 failed")


if __name__ == "__main__":
    try:
        main(pathlib.Path(sys.argv[1]).resolve())
    except Failed as failure:
        sys.exit(f"FAILED  {failure}")
