"""What the type library cannot say of a class and its methods: interface/help/<Class>.md, read and checked.

A file starts with "# Class" and a text. A long one goes on in <Class>.<subject>.md, which has no text of its own. Each
method has a part:

    ## Method
    What it does.

    - `Parameter`: units, form of a date, what is changed.
    - Result: what comes back.
    - Fault 13: when; "Fault passed on" for the failure of a called object.

    ```vbs
    WScript.Echo outil.DLL_GetAmountHTByTTC(20, 120)  ' 100
    ```

A VBScript example uses an object named after its class (outil, contratDoc) that the page creates for it; each
WScript.Echo carries what it prints. A C++ example (cpp) finds `outil` and the like, and the helpers of
examples/premier_appel/sav.h; each "// name = value" is compared after its statement. Both are run by the tests; an
example that waits for the user is marked "by hand", and stands beside one that is run.
"""

import dataclasses
import re

ECHO = re.compile(r"^\s*WScript\.Echo (.*?)\s{2,}' (.*)$")
VALUE = re.compile(r"^(.*?)\s*// ([\w.\[\]()<>,: -]+?) =(?: (.*))?$")
LANGUAGES = ("vbs", "cpp")
BY_HAND = " by hand"


@dataclasses.dataclass
class Example:
    language: str
    lines: list

    def expected(self):
        """What the example says that it shows, in order."""
        pattern = ECHO if self.language == "vbs" else VALUE
        return [match.groups()[-1] or "" for match in map(pattern.match, self.lines) if match]


@dataclasses.dataclass
class Entry:
    name: str
    text: list = dataclasses.field(default_factory=list)
    parameters: dict = dataclasses.field(default_factory=dict)
    result: str | None = None
    faults: list = dataclasses.field(default_factory=list)  # (number or "passed on", when)
    examples: list = dataclasses.field(default_factory=list)


@dataclasses.dataclass
class ClassHelp:
    name: str
    text: list
    entries: dict


BULLET = re.compile(r"- (?:`(\w+)`|(Result)|Fault (\d+|passed on)): (.*)")


def add_bullet(entry, match, source):
    parameter, result, fault, text = match.groups()
    if parameter:
        if parameter in entry.parameters:
            raise ValueError(f"{source}: {entry.name}: parameter {parameter} stands twice")
        entry.parameters[parameter] = text
    elif result:
        entry.result = text
    else:
        entry.faults.append((fault, text))


def unfolded(lines):
    """Bullets of several lines as one; code stays as it is."""
    in_code, folded = False, []
    for line in lines:
        if line.startswith("```"):
            in_code = not in_code
        if not in_code and line.startswith("  ") and folded and folded[-1].startswith("- "):
            folded[-1] += " " + line.strip()
        else:
            folded.append(line)
    return folded


def read_class_help(path, help_):
    """Adds what a file says of the class."""
    lines = unfolded(path.read_text(encoding="utf-8").split("\n"))
    if lines[0] != f"# {help_.name}":
        raise ValueError(f"{path.name}: does not start with # {help_.name}")
    entry, example = None, None
    for line in lines[1:]:
        if example is not None:
            if line == "```":
                example = None
            else:
                example.lines.append(line)
        elif line.startswith("## "):
            entry = Entry(line[3:])
            if entry.name in help_.entries:
                raise ValueError(f"{path.name}: {entry.name} stands twice")
            help_.entries[entry.name] = entry
        elif entry is None:
            help_.text.append(line)
        elif line.startswith("```"):
            example = Example(line[3:], [])
            entry.examples.append(example)
        elif match := BULLET.fullmatch(line):
            add_bullet(entry, match, path.name)
        else:
            entry.text.append(line)


def entry_faults(method, entry, known_faults, place):
    if not any(entry.text):
        yield f"{place}: no description"
    if method.remains is None:
        yield f"{place}: tests/atomicity/methods.def does not say what a fault leaves"
    names = [parameter.name for parameter in method.parameters]
    for name in names:
        if name not in entry.parameters:
            yield f"{place}: parameter {name} is not described"
    for name in entry.parameters:
        if name not in names:
            yield f"{place}: there is no parameter {name}"
    if bool(method.result) != bool(entry.result):
        yield f"{place}: " + ("the result is not described" if method.result else "there is no result")
    for number, _ in entry.faults:
        if number != "passed on" and int(number) not in known_faults:
            yield f"{place}: fault {number} is not one of faults.def"
    run = [example for example in entry.examples if not example.language.endswith(BY_HAND)]
    if not run:
        yield f"{place}: no example that is run"
    for example in run:
        if example.language not in LANGUAGES:
            yield f"{place}: an example in {example.language or 'no language'}"
        elif not example.expected():
            yield f"{place}: an example that shows no outcome"


def help_faults(contract, helps):
    """What is wrong with the texts: a list of sentences, empty when every member has its true entry."""
    known_faults = {fault.number for fault in contract.faults}
    found = []
    for name in helps.keys() - {class_.name for class_ in contract.classes}:
        found.append(f"{name}.md: there is no such class")
    for class_ in contract.classes:
        if class_.name not in helps:
            found.append(f"{class_.name}.md is missing")
            continue
        help_ = helps[class_.name]
        if not any(help_.text):
            found.append(f"{class_.name}.md: no text on the class")
        names = [method.name for method in class_.methods]
        found += [f"{class_.name}.md: there is no method {name}" for name in help_.entries if name not in names]
        for method in class_.methods:
            if method.name in help_.entries:
                found += entry_faults(method, help_.entries[method.name], known_faults,
                                      f"{class_.name}.md: {method.name}")
            else:
                found.append(f"{class_.name}.md: {method.name} has no entry")
    return found


def read_helps(root):
    helps = {}
    for path in sorted((root / "interface" / "help").glob("*.md"), key=lambda path: (path.name.count("."), path)):
        name = path.name.split(".")[0]
        read_class_help(path, helps.setdefault(name, ClassHelp(name, [], {})))
    return helps


def variable_of(class_name):
    """The name under which examples know an object of a class: outil, contratDoc, generalDates..."""
    return class_name[0].lower() + class_name[1:]
