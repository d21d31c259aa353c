#!/usr/bin/env python3
"""Write the C++ examples of the reference as a test program: each compiles, runs, and shows what its page says.

Usage: write_reference_examples.py ROOT OUTPUT.cpp
"""

import pathlib
import sys

from reference.contract import read_contract
from reference.help_entries import VALUE, read_helps, variable_of

HEAD = """// Written from interface/help by tools/write_reference_examples.py.
#include "reference/shown.h"

using namespace sav;
using reference::shown;
"""


def literal(text):
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'


def test_lines(class_name, method, number, example):
    name = f"{class_name}_{method}" + (f"_{number}" if number else "")
    yield f"TEST(ReferenceExamples, {name}) {{"
    yield f'  const auto {variable_of(class_name)} = create<_{class_name}>(L"{class_name}");'
    for line in example.lines:
        match = VALUE.match(line)
        if not match:
            yield "  " + line
            continue
        statement, value, expected = match.groups()
        yield "  " + statement
        yield f"  EXPECT_EQ({literal(expected or '')}, shown({value}));"
    yield "}"
    yield ""


def main(root, output):
    lines = [HEAD]
    helps = read_helps(root)
    for class_ in read_contract(root).classes:
        for entry in helps[class_.name].entries.values():
            examples = [example for example in entry.examples if example.language == "cpp"]
            for number, example in enumerate(examples):
                lines += test_lines(class_.name, entry.name, number, example)
    output.write_text("\n".join(lines), encoding="utf-8")


if __name__ == "__main__":
    main(*map(pathlib.Path, sys.argv[1:]))
