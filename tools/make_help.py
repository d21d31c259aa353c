#!/usr/bin/env python3
"""Make the compiled help file VelmoSAV_DLL14.chm from the reference and the guide.

Usage: make_help.py ROOT OUTPUT.chm
"""

import pathlib
import sys

from reference.chm_file import help_file
from reference.contract import LIBRARY, read_contract
from reference.help_entries import help_faults, read_helps
from reference.help_project import contexts, pages


def main(root, output):
    contract, helps = read_contract(root), read_helps(root)
    faults = help_faults(contract, helps)
    if faults:
        sys.exit("\n".join(faults))
    output.parent.mkdir(parents=True, exist_ok=True)
    output.write_bytes(help_file(LIBRARY, "index.html", pages(root, contract, helps), contexts(contract)))


if __name__ == "__main__":
    main(*(pathlib.Path(argument).resolve() for argument in sys.argv[1:]))
