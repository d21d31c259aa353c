#!/usr/bin/env python3
"""Long runs of generated calls, two processes at once, each with a seed of its own.

Usage: soak_misuse.py BUILD_FOLDER CALLS TABLE [SEED]

A process that ends before its time is a finding like any other: the run goes on behind the call that ended it.
Writes the figures per class to TABLE (JSON). Ends with 1 when there were findings.
"""

import concurrent.futures
import json
import pathlib
import random
import re
import subprocess
import sys
import threading

from reliability import write_piece

JOBS = 2
CHUNK = 1_000_000  # calls of one process
COUNTS = ("calls", "successes", "faults", "findings")
TIME_LIMIT = 1800  # seconds for one process
ENDED = re.compile(r"MISUSE ([^\n]*): (\w+)\.(\w*) seed (\d+) number (\d+)")
FINDING = re.compile(r"MISUSE finding: (.*)")


class Tally:
    """What all processes have shown so far."""

    def __init__(self, wanted):
        self.lock = threading.Lock()
        self.wanted = wanted
        self.calls = 0
        self.figures = {}
        self.findings = []
        self.slowest = (0, "none")  # milliseconds, call

    def add(self, report):
        with self.lock:
            for entry in report["classes"]:
                sums = self.figures.setdefault(entry["name"], dict.fromkeys((*COUNTS, "slowest"), 0))
                for key in COUNTS:
                    sums[key] += entry[key]
                sums["slowest"] = max(sums["slowest"], entry["slowest"])
                self.slowest = max(self.slowest, (entry["slowest"], f"{entry['name']}.{entry['slowest_member']}, seed "
                                                  f"{report['seed']}, number {entry['slowest_number']}"))
                self.calls += entry["calls"]
            print(f"{self.calls:>12,} of {self.wanted:,} calls, {len(self.findings)} findings", flush=True)

    def find(self, text, class_name=None):
        with self.lock:
            self.findings.append(text)
            if class_name in self.figures:
                self.figures[class_name]["findings"] += 1
            print(f"finding: {text}", flush=True)


def run_process(program, report, seed, first, calls):
    """(exit code, output) of one process."""
    command = ["wine", str(program), "--calls", str(calls), "--seed", str(seed), "--first", str(first),
               "--report", report.name]
    try:
        done = subprocess.run(command, cwd=report.parent, capture_output=True, timeout=TIME_LIMIT, check=False)
        return done.returncode, (done.stdout + done.stderr).decode("utf-8", "replace")
    except subprocess.TimeoutExpired as late:
        return -1, (late.stdout or b"").decode("utf-8", "replace")


def soak(program, seed, calls, tally):
    """One seed: chunk after chunk until its share of the calls is made."""
    report = program.parent / "reports" / f"soak-{seed}.json"
    report.parent.mkdir(exist_ok=True)
    first = 0
    while calls > 0:
        report.unlink(missing_ok=True)
        code, output = run_process(program, report, seed, first, min(calls, CHUNK))
        for line in FINDING.findall(output):
            tally.find(line)
        if report.exists():
            result = json.loads(report.read_text(encoding="utf-8"))
            tally.add(result)
            first = result["next"]
            calls -= sum(entry["calls"] for entry in result["classes"])
            continue
        ended = ENDED.search(output)
        if not ended:
            tally.find(f"seed {seed} from number {first}: ended with code {code} and no report\n{output[-2000:]}")
            return
        detail = re.search(r"MISUSE exception at (.*)", output)
        tally.find(f"{ended[2]}.{ended[3]}: {ended[1]} (seed {seed} number {ended[5]})"
                   + (f" {detail[1].strip()}" if detail else ""), ended[2])
        calls -= int(ended[5]) - first
        first = int(ended[5]) + 1


def table_of(tally, seeds):
    """The figures as the document shows them."""
    totals = dict.fromkeys((*COUNTS, "slowest"), 0)
    rows = []
    for name, sums in sorted(tally.figures.items()):
        if not sums["calls"]:
            continue
        rows.append([name, *(f"{sums[key]:,}" for key in COUNTS),
                     f"{sums['slowest']:.1f} ms"])
        for key in COUNTS:
            totals[key] += sums[key]
        totals["slowest"] = max(totals["slowest"], sums["slowest"])
    rows.append(["all", *(f"{totals[key]:,}" for key in COUNTS),
                 f"{totals['slowest']:.1f} ms"])
    text = (f"{totals['calls']:,} generated calls of every member of every class, early- and late-bound "
            f"(seeds {', '.join(map(str, seeds))}): {len(tally.findings)} findings. A finding is a crash, an exception "
            "that leaves the library, a call over one second (of processor time, or of the clock each time of three), "
            "a failure without error text or with a result, a text or array left damaged, a variable changed by a "
            "fault that changes none, memory or an object of the host that is still held. The slowest calls are by the "
            f"clock of a machine that does other things; the slowest of all: {tally.slowest[1]}.")
    return {"title": "Generated misuse", "text": text,
            "columns": ["class", "calls", "successes", "faults", "findings", "slowest call"], "rows": rows}


def main(build, calls, table, seed):
    program = build / "tests" / "test_misuse.exe"
    seeds = [seed + i for i in range(JOBS)]
    tally = Tally(calls)
    with concurrent.futures.ThreadPoolExecutor(JOBS) as pool:
        list(pool.map(lambda one: soak(program, one, calls // JOBS, tally), seeds))
    write_piece(table, table_of(tally, seeds))
    print(f"{tally.calls:,} calls, {len(tally.findings)} findings; seeds {', '.join(map(str, seeds))}")
    return 1 if tally.findings else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]).resolve(), int(sys.argv[2]), pathlib.Path(sys.argv[3]),
                  int(sys.argv[4]) if len(sys.argv) > 4 else random.randrange(1, 1_000_000_000)))
