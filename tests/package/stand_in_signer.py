#!/usr/bin/env python3
"""Stands in for a signing tool: marks the end of a file as one that signs would, and notes what it was given.

Usage: stand_in_signer.py LOG REFUSED_SUFFIX FILE
"""

import pathlib
import sys

MARK = b"signed by the stand-in"

if __name__ == "__main__":
    log, refused, name = sys.argv[1:]
    if refused and name.endswith(refused):
        sys.exit(7)
    path = pathlib.Path(name)
    before = path.read_bytes()
    if before.endswith(MARK):
        sys.exit(f"{name} is signed already")
    path.write_bytes(before + MARK)
    with open(log, "a", encoding="utf-8") as file:
        file.write(f"{path.name}\n")
