#!/usr/bin/env python3
"""What the tests execute of src/, by lines and branches, from the counters that the DLL of the coverage build left.

Usage: coverage.py ROOT BUILD_FOLDER [TABLES]    (./sav coverage)

Counted is what the registered DLL itself executed, in all processes of the run. What a test program links of src/ is
another copy of the code and does not count. A line that stands in several functions (a template, an inline function)
is executed when one of them was. A branch is a way out of a decision as the compiler sees it without optimisation; the
way that an exception takes out of a call, and the call's ordinary return beside it, are no decision and left out.
An inline function that the DLL has no code of has no lines.

Each line that was not executed must stand in tests/coverage_reasons.txt, and each entry there must be such a line.
Ends with 1 otherwise. Writes the pieces 40-coverage.json and 41-uncovered.json to the folder TABLES.
"""

import collections
import concurrent.futures
import json
import os
import pathlib
import subprocess
import sys

from reliability import write_piece

GCOV = "i686-w64-mingw32-gcov-posix"
REASONS = "tests/coverage_reasons.txt"


def counters_of(notes, root):
    """(file, line, function, count, branches) of one object file, for files of src/."""
    done = subprocess.run([GCOV, "--branch-probabilities", "--json-format", "--stdout", notes.name],
                          cwd=notes.parent, capture_output=True, check=True)
    result = json.loads(done.stdout)
    base = pathlib.Path(result["current_working_directory"])
    for file in result["files"]:
        path = os.path.relpath(os.path.normpath(base / file["file"]), root)
        if not path.startswith("src/"):
            continue
        for line in file["lines"]:
            yield path, line["line_number"], line.get("function_name"), line["count"], decisions(line["branches"])


def decisions(branches):
    """The counts of a line's branches without the exception edges: gcov names each after the return beside it."""
    kept = []
    for branch in branches:
        if not branch["throw"]:
            kept.append(branch)
            continue
        if not kept or not kept[-1]["fallthrough"]:
            sys.exit("coverage: an exception edge without the return of its call")
        kept.pop()
    return [branch["count"] for branch in kept]


class Line:
    """What is known of a line. A negative count is none: some counts are differences of counters, and a process that
    ends amid a call leaves them a little apart."""

    def __init__(self):
        self.count = 0
        self.functions = collections.defaultdict(list)  # the branches of each function that the line stands in

    def add(self, function, count, branches):
        self.count += max(count, 0)
        known = self.functions[function]
        if len(known) < len(branches):
            known += [0] * (len(branches) - len(known))
        for i, taken in enumerate(branches):
            known[i] += max(taken, 0)

    def branches(self):
        """(number, taken): instances of a template, which have the same branches, count as one."""
        by_shape = collections.defaultdict(list)
        for counts in self.functions.values():
            by_shape[len(counts)].append(counts)
        merged = [[any(taken) for taken in zip(*group)] for group in by_shape.values()]
        return sum(map(len, merged)), sum(map(sum, merged))


def read_counters(root, build):
    """{file: {line number: Line}}."""
    notes = sorted((build / "src").rglob("*.gcno"))
    if not notes:
        sys.exit(f"coverage: {build} was not built for coverage")
    if not any(path.with_suffix(".gcda").exists() for path in notes):
        sys.exit("coverage: no process has left any counters")
    files = collections.defaultdict(lambda: collections.defaultdict(Line))
    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        for entries in pool.map(lambda path: list(counters_of(path, root)), notes):
            for path, number, function, count, branches in entries:
                files[path][number].add(function, count, branches)
    return files


def read_reasons(path):
    """[(file, text of the line, reason)]: see the head of the list."""
    reasons, file, texts = [], None, []
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        if not line.strip() or line.startswith("#"):
            continue
        text = line.strip()
        if line == text:
            file = text
        elif text.startswith("= ") and texts:
            reasons += [(file, one, text[2:]) for one in texts]
            texts = []
            continue
        elif file and not text.startswith("="):
            texts.append(text)
            continue
        else:
            sys.exit(f"{path.name}:{number}: neither a file nor a line of it nor its reason")
        if texts:
            sys.exit(f"{path.name}:{number}: lines before it have no reason")
    if texts:
        sys.exit(f"{path.name}: the last lines have no reason")
    return reasons


def judge(root, files, reasons):
    """(rows of the uncovered lines that have a reason, faults)."""
    left = collections.defaultdict(list)
    for file, text, reason in reasons:
        left[file, text].append(reason)
    rows, faults = [], []
    for path, lines in sorted(files.items()):
        source = (root / path).read_text(encoding="utf-8").splitlines()
        for number, line in sorted(lines.items()):
            if line.count:
                continue
            text = source[number - 1].strip()
            if left[path, text]:
                rows.append([path, text, left[path, text].pop(0)])
            else:
                faults.append(f"{path}:{number}: executed by no test, and without a reason in {REASONS}: {text}")
    faults += [f"{REASONS}: {file}: executed, or no longer there: {text}"
               for (file, text), more in left.items() for _ in more]
    return rows, faults


def share(part, whole):
    return f"{100 * part / whole:.1f} %" if whole else ""


def table_of(files):
    folders = collections.defaultdict(lambda: [0, 0, 0, 0])
    for path, lines in files.items():
        sums = folders[path.split("/")[1]]
        for line in lines.values():
            number, taken = line.branches()
            for i, count in enumerate((1, line.count > 0, number, taken)):
                sums[i] += count
    total = [sum(column) for column in zip(*folders.values())]
    rows = [[name, f"{sums[0]:,}", f"{sums[1]:,}", share(sums[1], sums[0]), f"{sums[2]:,}", f"{sums[3]:,}",
             share(sums[3], sums[2])] for name, sums in [*sorted(folders.items()), ("all", total)]]
    return {"title": "Coverage",
            "text": "What all tests together execute of each folder of `src/`, in the registered DLL: what a test "
                    "program links of the code itself is not counted. A branch is a way out of a decision as the "
                    "compiler sees it without optimisation; the way that an exception takes out of a call is none.",
            "columns": ["folder", "lines", "executed", "share", "branches", "taken", "share"], "rows": rows}


def reasons_table(rows):
    return {"title": "Lines that no test executes",
            "text": "Each line of `src/` that the tests do not execute, with its reason. A line without a reason, and "
                    "a reason without its line, fail the command.",
            "columns": ["file", "line", "reason"],
            "rows": [[path, f"`{text}`", reason] for path, text, reason in rows]}


def main(root, build, tables):
    files = read_counters(root, build)
    rows, faults = judge(root, files, read_reasons(root / REASONS))
    table = table_of(files)
    for row in [table["columns"], *table["rows"]]:
        print(f"{row[0]:12}" + "".join(f"{cell:>10}" for cell in row[1:]))
    print("\n".join(faults) or f"{len(rows)} lines are executed by no test, each for a reason")
    if tables and not faults:
        for name, piece in (("40-coverage", table), ("41-uncovered", reasons_table(rows))):
            write_piece(tables / f"{name}.json", piece)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve(),
                  pathlib.Path(sys.argv[3]) if len(sys.argv) > 3 else None))
