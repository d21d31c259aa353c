#!/usr/bin/env python3
"""Run the test programs under Wine, then the tests of the examples; one line each, the details of what failed.

Usage: run_tests.py BUILD_FOLDER [NAME...]    (NAME: test_contracts, test_examples, ...; default all)
"""

import json
import os
import pathlib
import re
import subprocess
import sys
import time
import unittest

TIME_LIMIT = 900  # seconds; for a hang, not for a slow machine
ROOT = pathlib.Path(__file__).resolve().parent.parent


def expected_programs(build):
    """A program for each folder of tests: one that was not built is a failure, not a shorter list."""
    folders = sorted(p.name for p in (ROOT / "tests").iterdir() if p.is_dir() and any(p.glob("*.cpp")))
    return [build / "tests" / f"test_{name}.exe" for name in folders if name not in ("support", "package")]


def run_program(program, report, **environment):
    """(passed, failed, skipped, output) of one GoogleTest program; a crash or a hang counts as a failure."""
    if not program.exists():
        return 0, 1, 0, f"{program.name} was not built"
    report.unlink(missing_ok=True)
    command = ["wine", str(program), f"--gtest_output=json:{report.name}", "--gtest_color=no"]
    try:
        done = subprocess.run(command, cwd=report.parent, capture_output=True, timeout=TIME_LIMIT, check=False,
                              env={**os.environ, **environment})
        output = (done.stdout + done.stderr).decode("utf-8", "replace")
    except subprocess.TimeoutExpired as late:
        return 0, 1, 0, f"{(late.stdout or b'').decode('utf-8', 'replace')}\nno end after {TIME_LIMIT} s"
    if not report.exists():
        return 0, 1, 0, f"{with_places(output)}\nended with code {done.returncode} and no report"
    result = json.loads(report.read_text(encoding="utf-8"))
    tests = [test for suite in result["testsuites"] for test in suite["testsuite"]]
    failed = sum(1 for test in tests if test.get("failures"))
    skipped = sum(1 for test in tests if test["status"] != "RUN" or test["result"] == "SKIPPED")
    if not tests or (done.returncode != 0 and not failed):
        failed += 1
    return len(tests) - failed - skipped, failed, skipped, output


def with_places(output):
    """The output; where it names a place inside a program or DLL, the line of source behind it."""
    def add_line(found):
        program = pathlib.Path(found[1].removeprefix("Z:").replace("\\", "/"))
        place = image_base(program) + int(found[2], 16)
        named = subprocess.run(["i686-w64-mingw32-addr2line", "-Cfe", program, hex(place)], capture_output=True,
                               text=True, check=False).stdout.split("\n")
        return f"{found[0]}: {', '.join(filter(None, reversed(named)))}"
    return re.sub(r"(Z:[^\n+]+\.(?:exe|dll)) ?\+ ?([0-9a-f]+)", add_line, output)


def image_base(program):
    """The address that the linker meant the program to be loaded at."""
    content = program.read_bytes()
    header = int.from_bytes(content[0x3C:0x40], "little")
    return int.from_bytes(content[header + 0x34:header + 0x38], "little")


def failures_of(output):
    """What a program said between the start and the end of each failing test."""
    kept, current, running = [], [], False
    for line in output.splitlines():
        if line.startswith("[ RUN"):
            current, running = [], True
        current.append(line)
        if line.startswith("[  FAILED  ]") and "(" in line:
            kept += current
        running = running and not line.startswith(("[  FAILED  ]", "[       OK ]"))
    if running:  # the program ended in it
        kept += current
    return "\n".join(kept[-200:]) or "\n".join(output.splitlines()[-40:])


def run_examples(build):
    os.environ["SAV_BUILD"] = str(build)
    suite = unittest.defaultTestLoader.discover(str(ROOT / "tests" / "examples"), pattern="test_*.py")
    with open(build / "tests" / "test_examples.log", "w", encoding="utf-8") as log:
        result = unittest.TextTestRunner(stream=log, verbosity=2).run(suite)
    bad = result.failures + result.errors
    output = "\n".join(f"{test}\n{text}" for test, text in bad)
    skipped = len(result.skipped)
    failed = len(bad) + (result.testsRun == 0)
    return result.testsRun - len(bad) - skipped, failed, skipped, output


def main(build, names):
    reports = build / "tests" / "reports"
    reports.mkdir(parents=True, exist_ok=True)
    # Where a program leaves its figures for docs/reliability.md: they are those of what is shipped.
    reliability = (build.parent if build.name == "release" else build) / "reliability"
    reliability.mkdir(exist_ok=True)
    os.environ["SAV_RELIABILITY"] = str(reliability)
    jobs = [(p.stem, lambda p=p: run_program(p, reports / f"{p.stem}.json")) for p in expected_programs(build)]
    jobs.append(("test_examples", lambda: run_examples(build)))
    unknown = set(names) - {name for name, _ in jobs}
    if unknown:
        sys.exit(f"no such test: {', '.join(sorted(unknown))}")

    totals = [0, 0, 0]
    for name, run in jobs:
        if names and name not in names:
            continue
        start = time.monotonic()
        *counts, output = run()
        totals = [total + count for total, count in zip(totals, counts)]
        print(f"{name:24} {counts[0]:5} passed {counts[1]:3} failed {counts[2]:3} skipped "
              f"{time.monotonic() - start:6.1f} s", flush=True)
        if counts[1]:
            print(failures_of(output) if "[ RUN" in output else output, flush=True)
    print(f"{totals[0]} passed, {totals[1]} failed" + (f", {totals[2]} skipped" if totals[2] else ""))
    return 1 if totals[1] or totals[2] or not totals[0] else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]).resolve(), sys.argv[2:]))
