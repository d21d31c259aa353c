#!/usr/bin/env python3
"""The tests under checks that end or fail them where a host's process would be harmed without a word.

Usage: run_checks.py BUILD_FOLDER TABLE    (./sav checks; BUILD_FOLDER is that of the preset `checks`)

The library and the tests are compiled so that undefined behaviour, or an assertion of the standard library that does
not hold, ends the process. All tests run so; then some of them with the platform's heap checks on, and some on guard
pages. Faults made on purpose show first that each check finds what it is for; a test program names the test it was in
when it ended, the place and the line of source. Writes the figures to TABLE (JSON). Ends with 1 after any failure.
"""

import os
import pathlib
import re
import subprocess
import sys
import time

from reliability import write_piece
from run_tests import TIME_LIMIT, expected_programs, failures_of, run_examples, run_program, with_places

HEAP_CHECKS = {"SAV_HEAP": "1", "WINEDEBUG": "-all,err+heap,warn+heap"}
# Without those that compare times: what the heap's checks cost grows with the number of blocks.
WITH_HEAP_CHECKS = ("amounts", "contract", "controls", "dates", "documents", "environment", "frame", "help", "internal",
                    "invoicing", "menus", "reference", "services", "tools")
# Without those that place blocks there themselves or make too many of them, and those that the guard makes slow.
ON_GUARD_PAGES = ("controls", "documents", "frame", "menus", "services", "tools")
PROOFS = {"overflow": "undefined behaviour", "index": "abort"}


def prove(program):
    """What does not end the process although it should."""
    for fault, says in PROOFS.items():
        done = subprocess.run(["wine", str(program), "--commit-fault", fault], capture_output=True, check=False,
                              timeout=TIME_LIMIT)
        output = with_places(done.stdout.decode("utf-8", "replace"))
        if done.returncode == 0 or f"CRASH in no test.: {says} at" not in output:
            yield f"a fault on purpose ({fault}) was not found: code {done.returncode}\n{output}"
        elif fault == "overflow" and "crashes.cpp" not in output:
            yield f"the line of a fault on purpose was not found\n{output}"


def checked_places(dll):
    """How many places of the DLL end the process when something is wrong there."""
    code = subprocess.run(["i686-w64-mingw32-objdump", "-d", "--no-show-raw-insn", str(dll)], capture_output=True,
                          text=True, check=True).stdout
    return len(re.findall(r"\tud2", code))


def run(title, jobs):
    """(tests, failures) of jobs (name, work); one line each."""
    print(title, flush=True)
    tests = failures = 0
    for name, work in jobs:
        start = time.monotonic()
        passed, failed, skipped, output = work()
        tests += passed + failed
        failures += failed + skipped
        print(f"  {name:24} {passed:5} passed {failed + skipped:3} failed {time.monotonic() - start:6.1f} s",
              flush=True)
        if failed or skipped:
            print(failures_of(output) if "[ RUN" in output else output, flush=True)
    return tests, failures


def main(build, table):
    reports = build / "tests" / "reports"
    reports.mkdir(parents=True, exist_ok=True)
    reliability = build / "reliability"  # figures of this flavour are nobody's
    reliability.mkdir(exist_ok=True)
    os.environ["SAV_RELIABILITY"] = str(reliability)
    programs = expected_programs(build)

    def jobs(names, **environment):
        return [(p.stem, lambda p=p: run_program(p, reports / f"{p.stem}.json", **environment))
                for p in programs if p.stem.removeprefix("test_") in names]

    unproven = list(prove(build / "tests" / "test_internal.exe"))
    for text in unproven:
        print(text)
    runs = {
        "all tests": run("undefined behaviour and assertions",
                         [*jobs([p.stem.removeprefix("test_") for p in programs]),
                          ("test_examples", lambda: run_examples(build))]),
        "with heap checks too": run("the same with heap checks", jobs(WITH_HEAP_CHECKS, **HEAP_CHECKS)),
        "on guard pages too": run("the same on guard pages", jobs(ON_GUARD_PAGES, SAV_GUARD="1")),
    }
    finds = {
        "all tests": "undefined behaviour: overflow, bounds, shifts, null and invalid values, conversions that do not "
                     "fit; assertions of the standard library",
        "with heap checks too": "bytes written behind a block or into a freed one, found after each test: "
                                + ", ".join(WITH_HEAP_CHECKS),
        "on guard pages too": "bytes read or written behind a block or in a freed one, at once: "
                              + ", ".join(ON_GUARD_PAGES),
    }
    places = checked_places(build / "bin" / "VelmoSAV_DLL14.dll")
    piece = {
        "title": "Undefined behaviour and memory checks",
        "text": "The library and its tests are compiled with checks that end the process where the language defines no "
                f"behaviour ({places:,} places of the DLL) and where an assertion of the standard library does not "
                "hold. Each run begins with faults made on purpose: each check finds its own.",
        "columns": ["run", "what it finds", "tests", "failures"],
        "rows": [[name, finds[name], f"{tests:,}", str(failures)] for name, (tests, failures) in runs.items()],
    }
    write_piece(table, piece)
    failures = len(unproven) + sum(failures for _, failures in runs.values())
    print(f"{sum(tests for tests, _ in runs.values())} tests, {failures} failures; {places} checked places in the DLL")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2])))
