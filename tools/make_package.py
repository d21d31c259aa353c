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
from package.contents import fill, sign, write_sums
from package.installer import make_installer, script
from package.managed import make_msi, source
from package.registration import MENU, library_registration, menu_class, menu_registration


def main(root, build, output):
    version = re.search(r"^VELMOSAV_VERSION:STRING=(.*)$", (build / "CMakeCache.txt").read_text("utf-8"), re.M)[1]
    date = commit_date(root)
    work = build / "package"
    for folder in (work, output):
        shutil.rmtree(folder, ignore_errors=True)
        folder.mkdir(parents=True)
    contents, symbols = work / "contents", work / "symbols"
    fill(root, build, contents, symbols)
    every = sorted(contents.rglob("*"))
    for path in (contents, *every):
        os.utime(path, (date, date))
    files = [path.relative_to(contents) for path in every if path.is_file()]

    name = f"VelmoSAV-{version}"
    library, menu = library_registration(root), menu_registration(root)
    write_zip(output / f"{name}.zip", contents, name, date)
    write_zip(output / f"{name}-symboles.zip", symbols, f"{name}-symboles", date)
    installer, msi = output / f"{name}-installation.exe", output / f"{name}.msi"
    make_installer(work / "installation.nsi", script(version, files, contents, library, menu, MENU, installer))
    make_msi(work / "installation.wxs", source(version, files, library, menu, MENU), menu_class(root), contents, msi)
    sign(installer, msi)
    write_sums(output, output / "SHA256SUMS.txt")
    for path in sorted(output.iterdir()):
        print(f"{path.stat().st_size:10}  {path}")


if __name__ == "__main__":
    main(*(pathlib.Path(argument).resolve() for argument in sys.argv[1:]))
