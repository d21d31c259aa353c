#!/usr/bin/env python3
"""docs/reliability.md: what is proven of the library's behaviour in its host's process, with figures.

Usage: reliability.py ROOT [PIECE...]    (./sav reliability)

Each section is a piece, a file of its own: docs/reliability/<piece>.json with {"title", "text", "columns", "rows"}.
A command that makes new figures leaves its piece in build/reliability. This program moves those pieces (or the named
ones only) to docs/reliability and writes the page from all pieces there: a run of one command replaces its own section
and no other, and the page is always a function of the pieces, which tests/examples/test_reliability.py checks.
A piece of the list below that is in neither place ends the program with the command that makes it.
"""

import json
import pathlib
import re
import sys
import textwrap

# In the order of the page: the piece, the command that makes it, and what it shows.
PIECES = {
    "10-misuse": ("./sav soak", "no call harms the host, whatever it is given"),
    "20-memory": ("./sav test test_memory", "no call leaves memory behind, or harms when it is refused memory"),
    "30-atomicity": ("./sav test test_atomicity", "what each fault leaves of the host's data"),
    "40-coverage": ("./sav coverage", "how much of the library the tests execute"),
    "41-uncovered": ("./sav coverage", "which lines they do not, and why"),
    "50-checks": ("./sav checks", "no test meets undefined behaviour, a damaged heap or an overrun"),
    "60-life": ("./sav soak", "what loading and unloading leaves in the process"),
    "70-xml": ("./sav test test_hostile", "no text takes down the methods that read XML, or leads them outside"),
}
WIDTH = 118
NUMBER = re.compile(r"-?[\d,. ]+( ?(%|ms|s|MB))?")

HEAD = """\
# Reliability

The library runs in its host's process: a crash or a leak here is the host's. This page says what is proven of that, by
which command, with the figures of its last run. The calls go through the registered DLL, as a host's do.

| section | what it shows | made by |
| --- | --- | --- |
{contents}

Each command leaves new figures in `build/reliability`; `./sav reliability` takes them over into `docs/reliability` and
writes this page. Most of it is repeated by every `./sav test`, with fewer calls where a long run stands here; a failure
there is a failure of this page. Times are those of one machine, and mean little elsewhere.
"""


def fail(text):
    sys.exit(f"reliability: {text}")


def take_over(root, names):
    """Moves new pieces to where they are kept; answers their names."""
    made, kept = root / "build" / "reliability", root / "docs" / "reliability"
    found = {path.stem: path for path in sorted(made.glob("*.json"))}
    for name in names:
        if name not in found:
            fail(f"no new figures of {name} in build/reliability" + (f": {PIECES[name][0]}" if name in PIECES else ""))
    taken = [name for name in found if not names or name in names]
    for name in taken:
        if name not in PIECES:
            fail(f"{name}: say in tools/reliability.py which command makes it")
        piece = json.loads(found[name].read_text(encoding="utf-8"))
        write_piece(kept / f"{name}.json", piece)
        found[name].unlink()
    return taken


def write_piece(path, piece):
    """Writes a piece as it is kept: a row is a line, so that a change of figures reads well."""
    rows = ",\n".join("  " + json.dumps(row, ensure_ascii=False) for row in piece["rows"])
    head = "".join(f' "{key}": {json.dumps(piece[key], ensure_ascii=False)},\n' for key in ("title", "text", "columns"))
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text("{\n" + head + f' "rows": [\n{rows}\n ]\n}}\n', encoding="utf-8")


def read_pieces(root):
    """Every piece of the list, in its order."""
    kept = root / "docs" / "reliability"
    missing = [f"no figures of {name}: {PIECES[name][0]} makes them" for name in PIECES
               if not (kept / f"{name}.json").exists()]
    if missing:
        fail("\n".join(missing))
    unknown = {path.stem for path in kept.glob("*.json")} - set(PIECES)
    if unknown:
        fail(f"{', '.join(sorted(unknown))}: say in tools/reliability.py which command makes it")
    return {name: json.loads((kept / f"{name}.json").read_text(encoding="utf-8")) for name in PIECES}


def anchor(title):
    return re.sub(r"[^\w -]", "", title).lower().replace(" ", "-")


def cell(text):
    return str(text).replace("|", "\\|").replace("\n", " ")


def table(columns, rows):
    def line(cells):
        return "| " + " | ".join(map(cell, cells)) + " |"
    right = [bool(rows) and all(NUMBER.fullmatch(str(row[i])) for row in rows) for i in range(len(columns))]
    rule = "| " + " | ".join("---:" if numeric else "---" for numeric in right) + " |"
    return "\n".join([line(columns), rule, *map(line, rows)])


def section(name, piece):
    for row in piece["rows"]:
        if len(row) != len(piece["columns"]):
            fail(f"{name}: a row of {len(row)} cells under {len(piece['columns'])} columns: {row}")
    parts = [f"## {piece['title']}"]
    parts += [textwrap.fill(text, WIDTH, break_long_words=False, break_on_hyphens=False)
              for text in piece["text"].split("\n") if text]
    parts.append(f"Made by `{PIECES[name][0]}`.")
    if piece["rows"]:
        parts.append(table(piece["columns"], piece["rows"]))
    return "\n\n".join(parts) + "\n"


def page(root):
    pieces = read_pieces(root)
    contents = "\n".join(f"| [{piece['title']}](#{anchor(piece['title'])}) | {PIECES[name][1]} | `{PIECES[name][0]}` |"
                         for name, piece in pieces.items())
    return "\n".join([HEAD.format(contents=contents), *(section(name, piece) for name, piece in pieces.items())])


def main(root, names):
    for name in take_over(root, names):
        print(f"new figures: {name}")
    document = root / "docs" / "reliability.md"
    document.write_text(page(root), encoding="utf-8")
    print(document)


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]).resolve(), sys.argv[2:])
