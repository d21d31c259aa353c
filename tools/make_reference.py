#!/usr/bin/env python3
"""Write docs/reference from interface/: the IDL, its lists and the help entries.

Usage: make_reference.py ROOT
"""

import pathlib
import sys

from reference.contract import read_contract
from reference.help_entries import help_faults, read_helps
from reference.pages import all_pages


def main(root):
    contract, helps = read_contract(root), read_helps(root)
    faults = help_faults(contract, helps)
    if faults:
        sys.exit("\n".join(faults))
    folder = root / "docs" / "reference"
    folder.mkdir(parents=True, exist_ok=True)
    pages = all_pages(contract, helps)
    for stale in set(folder.glob("*.md")) - {folder / name for name in pages}:
        stale.unlink()
    for name, text in pages.items():
        (folder / name).write_text(text, encoding="utf-8")
    print(f"docs/reference: {len(pages)} pages")


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]).resolve())
