#!/usr/bin/env python3
"""Make the packages: NSIS installer, MSI, zip for use without registration, symbols, SHA-256 sums.

Usage: make_package.py ROOT BUILD_FOLDER OUTPUT_FOLDER
"""

import os
import pathlib
import re
import shutil
import sys

from package.archive import commit_date, write_zip
from package.contents import fill, write_sums
from package.installer import make_installer
from package.managed import make_msi
from package.registration import library_registration, menu_registration
from package.signing import sign, signed


def empty(folder):
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    return folder


def main(root, build, output):
    version = re.search(r"^VELMOSAV_VERSION:STRING=(.*)$", (build / "CMakeCache.txt").read_text("utf-8"), re.M)[1]
    date = commit_date(root)
    work, output = empty(build / "package"), empty(output)
    contents, symbols, made = work / "contents", work / "symbols", empty(work / "made")
    fill(root, build, contents, symbols)
    for path in (contents, *contents.rglob("*")):
        os.utime(path, (date, date))

    name = f"VelmoSAV-{version}"
    library, menu = library_registration(root), menu_registration(root)
    write_zip(made / f"{name}.zip", contents, name, date)
    write_zip(made / f"{name}-symboles.zip", symbols, f"{name}-symboles", date)
    installer, msi = made / f"{name}-installation.exe", made / f"{name}.msi"
    make_installer(root / "packaging" / "installation.nsi", work, contents, version, library, menu, installer, signed())
    make_msi(work, contents, version, library, menu, msi)
    sign(installer, msi)
    write_sums(made, made / "SHA256SUMS.txt")
    # All of them or none.
    for path in sorted(made.iterdir()):
        place = shutil.move(path, output / path.name)
        print(f"{place.stat().st_size:10}  {place}")


if __name__ == "__main__":
    main(*(pathlib.Path(argument).resolve() for argument in sys.argv[1:]))
