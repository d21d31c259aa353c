#!/usr/bin/env python3
"""The project's checks beside the compiler's: formatting, static analysis, and rules that no tool knows.

Usage: lint.py ROOT BUILD_FOLDER
"""

import concurrent.futures
import json
import pathlib
import re
import subprocess
import sys

SOURCE_FOLDERS = ("src", "companions", "diagnostic", "examples", "bench", "tests")
SCRIPT_FOLDERS = ("tools", "tests")
MOST_LINES = 600
MOST_COLUMNS = 120
# An exception is caught at the boundary, and where a statement of the host may fail; nowhere else in the library.
CATCHERS = {"src/object/boundary.h", "src/object/boundary.cpp", "src/automation/attempt.h"}
# A folder may include its own headers and those of the folders named here.
LAYERS = {
    "automation": set(),
    "companion": {"automation"},
    "constants": {"automation"},
    "records": {"automation"},
    "object": {"automation", "constants", "records"},
    "frame": {"automation", "object"},
}
SUBJECTS = ("dates", "documents", "contracts", "amounts", "tools", "invoicing", "environment")


def sources(root):
    for folder in SOURCE_FOLDERS:
        yield from sorted(p for p in (root / folder).rglob("*") if p.suffix in (".h", ".cpp"))


def scripts(root):
    for folder in SCRIPT_FOLDERS:
        yield from sorted((root / folder).rglob("*.py"))


def text_faults(root, path):
    name = path.relative_to(root).as_posix()
    try:
        lines = path.read_text(encoding="utf-8").split("\n")
    except UnicodeDecodeError:
        yield f"{name}: not UTF-8"
        return
    if len(lines) > MOST_LINES:
        yield f"{name}: {len(lines)} lines, at most {MOST_LINES}"
    for number, line in enumerate(lines, 1):
        if "\t" in line or line != line.rstrip():
            yield f"{name}:{number}: tab or blank at the end"
        if len(line) > MOST_COLUMNS and "R\"" not in line:
            yield f"{name}:{number}: {len(line)} columns, at most {MOST_COLUMNS}"


def catch_faults(root, path):
    name = path.relative_to(root).as_posix()
    if name.startswith("src/") and name not in CATCHERS and re.search(r"\bcatch \(", path.read_text(encoding="utf-8")):
        yield f"{name}: an exception is caught outside the boundary"


def layer_faults(root, path):
    name = path.relative_to(root).as_posix()
    parts = name.split("/")
    if parts[0] != "src" or len(parts) != 3:
        return
    folder = parts[1]
    allowed = LAYERS.get(folder, set(LAYERS) - {"frame"} | set(SUBJECTS)) | {folder}
    for target in re.findall(r'^#include "(\w+)/[\w.]+"', path.read_text(encoding="utf-8"), re.M):
        if target in (*LAYERS, *SUBJECTS) and target not in allowed:
            yield f"{name}: {folder} must not depend on {target}"


def list_faults(root):
    """Dispatch identifiers of a list count from 1, and no name stands twice."""
    for path in sorted((root / "interface" / "constants").glob("*.def")):
        entries = re.findall(r"^CONSTANT\((\d+), \w+, (\w+), .*, \"(.*)\"\)$", path.read_text(encoding="utf-8"), re.M)
        if [int(number) for number, _, _ in entries] != list(range(1, len(entries) + 1)):
            yield f"{path.name}: dispatch identifiers are not 1 to {len(entries)}"
        if len({name.lower() for _, name, _ in entries}) != len(entries):
            yield f"{path.name}: a name stands twice"
        yield from (f"{path.name}: {name} has no help text" for _, name, help_text in entries if not help_text)


def formatting_faults(root):
    files = [str(p) for p in sources(root)]
    done = subprocess.run(["clang-format", "--dry-run", "-Werror", *files], capture_output=True, text=True, check=False)
    if done.returncode:
        named = sorted(set(re.findall(r"^(\S+?):\d+:\d+: error", done.stderr, re.M)))
        yield from (f"{pathlib.Path(p).relative_to(root)}: run clang-format -i on it" for p in named)


def tidy(root, database, path):
    command = ["clang-tidy", "--quiet", "-p", str(database), str(path)]
    done = subprocess.run(command, cwd=root, capture_output=True, text=True, check=False)
    return [line for line in done.stdout.splitlines() if re.search(r"(warning|error): ", line)]


def cross_database(build):
    """The build's compile commands for clang: the compiler's target and its C++ headers made explicit."""
    commands = json.loads((build / "compile_commands.json").read_text(encoding="utf-8"))
    probe = subprocess.run(["i686-w64-mingw32-g++-posix", "-E", "-x", "c++", "-v", "/dev/null"],
                           capture_output=True, text=True, check=True)
    listed = probe.stderr.split("#include <...> search starts here:")[1].split("End of search list.")[0].split()
    # The compiler's own intrinsics are clang's.
    headers = " ".join(f"-isystem {path}" for path in listed if not re.search(r"/12-posix/include(-fixed)?$", path))
    kept = []
    for entry in commands:
        if "/src/" not in entry["file"] or not entry["file"].endswith(".cpp"):
            continue
        entry["command"] = re.sub(r"^\S+", f"clang++ --target=i686-w64-windows-gnu {headers}", entry["command"])
        entry["command"] = entry["command"].replace("-mstackrealign", "").replace("-Wno-restrict", "")
        kept.append(entry)
    folder = build / "tidy"
    folder.mkdir(exist_ok=True)
    (folder / "compile_commands.json").write_text(json.dumps(kept), encoding="utf-8")
    return folder, [pathlib.Path(entry["file"]) for entry in kept]


def tidy_faults(root, build):
    database, files = cross_database(build)
    with concurrent.futures.ThreadPoolExecutor() as pool:
        for found in pool.map(lambda path: tidy(root, database, path), files):
            yield from found


def main(root, build):
    faults = list(list_faults(root)) + list(formatting_faults(root))
    for path in sources(root):
        faults += [*text_faults(root, path), *catch_faults(root, path), *layer_faults(root, path)]
    for path in scripts(root):
        faults += text_faults(root, path)
    faults += sorted(set(tidy_faults(root, build)))
    print("\n".join(faults) if faults else "lint: nothing to report")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*(pathlib.Path(p).resolve() for p in sys.argv[1:])))
