#!/usr/bin/env python3
"""Copy the IDL and list files of a folder, recoded from UTF-8 to Windows-1252.

Usage: recode_contract.py SOURCE_FOLDER TARGET_FOLDER
"""

import pathlib
import sys

source, target = map(pathlib.Path, sys.argv[1:])
for path in sorted(source.rglob("*")):
    if path.suffix not in (".idl", ".def"):
        continue
    copy = target / path.relative_to(source)
    copy.parent.mkdir(parents=True, exist_ok=True)
    try:
        content = path.read_text(encoding="utf-8").encode("cp1252")
    except UnicodeError as error:
        sys.exit(f"{path}: {error}")
    copy.write_bytes(content)
