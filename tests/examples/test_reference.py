"""docs/reference: what interface/ says now, every member described, and examples that show what is true."""

import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tools"))
from reference.contract import LIBRARY, read_contract  # noqa: E402
from reference.help_entries import help_faults, read_helps, variable_of  # noqa: E402
from reference.pages import all_pages  # noqa: E402

TIME_LIMIT = 120
# Wine's script host writes a Boolean as a number, Windows' in words.
BOOLEANS = {"Vrai": "-1", "Faux": "0"}


def faults_that_happen():
    """(class, method, number) of the cases of tests/atomicity, each of which makes a fault happen."""
    found = set()
    for path in (ROOT / "tests" / "atomicity").glob("*_faults.cpp"):
        text = path.read_text(encoding="utf-8")
        names = dict(re.findall(r'constexpr wchar_t (\w+)\[\] = L"(\w+)";', text))
        cases = re.findall(r'\{\s*(\w+|L"\w+"),\s*L"(\w+)",\s*"[^"]*"(?:\s*"[^"]*")*,\s*(-?\w+)', text)
        found |= {(names.get(name, name.removeprefix('L').strip('"')), method, code) for name, method, code in cases}
    return found


def hoisted(lines):
    """(class definitions, the other lines) of a script: a procedure cannot hold a class."""
    classes, others, inside = [], [], False
    for line in lines:
        inside = inside or line.startswith("Class ")
        (classes if inside else others).append(line)
        inside = inside and line != "End Class"
    return classes, others


def script_of(examples):
    """One script that runs each example in a procedure of its own; a line `=== n` announces the n-th."""
    head, body = [], []
    for number, (class_name, example) in enumerate(examples):
        classes, lines = hoisted(example.lines)
        variable = variable_of(class_name)
        head += classes
        head += [f"Sub Example{number}", f'Dim {variable}: Set {variable} = CreateObject("{LIBRARY}.{class_name}")',
                 *lines, "On Error GoTo 0", "End Sub"]
        body += [f'WScript.Echo "=== {number}"', "On Error Resume Next", f"Example{number}",
                 'If Err.Number <> 0 Then WScript.Echo "error " & Err.Number & " " & Err.Description', "Err.Clear",
                 "On Error GoTo 0"]
    return "\r\n".join([*head, *body, ""])


def run_script(text):
    """Lines that each example printed."""
    with tempfile.TemporaryDirectory() as folder, tempfile.TemporaryFile() as output:
        script = pathlib.Path(folder) / "examples.vbs"
        script.write_bytes(text.encode("cp1252"))
        subprocess.run(["wine", "cscript", "//nologo", "Z:" + str(script).replace("/", "\\")], stdin=subprocess.DEVNULL,
                       stdout=output, stderr=subprocess.STDOUT, timeout=TIME_LIMIT, check=False)
        output.seek(0)
        printed = {}
        for line in output.read().decode("cp850").replace("\r", "").split("\n"):
            if line.startswith("=== "):
                current = printed.setdefault(int(line[4:]), [])
            elif printed and line:
                current.append(line)
        return printed


def compared_constants(contract):
    """A script that compares each constant of a new instance with what its page shows, and prints those that differ."""
    lines, count = ["Option Explicit", 'WScript.Echo "=== 0"', "Dim instance"], 0
    for class_ in contract.classes:
        lines.append(f'Set instance = CreateObject("{LIBRARY}.{class_.name}")')
        for constant in class_.constants:
            shown = re.sub(r"^0x(.*)$", r"&H\1&", constant.initial)
            lines.append(f"If instance.{constant.name} <> {shown} Then "
                         f'WScript.Echo "{class_.name}.{constant.name} = " & instance.{constant.name}')
            count += 1
    return "\r\n".join([*lines, f'WScript.Echo "{count} compared"', ""])


class Reference(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.contract, cls.helps = read_contract(ROOT), read_helps(ROOT)

    def test_every_member_has_its_true_entry(self):
        self.assertEqual([], help_faults(self.contract, self.helps))

    def test_every_fault_that_a_test_makes_happen_is_described(self):
        happening = faults_that_happen()
        self.assertGreater(len(happening), 80)
        missing = []
        for class_name, method, code in sorted(happening):
            described = [number for number, _ in self.helps[class_name].entries[method].faults]
            if (code if code.isdigit() else "passed on") not in described:
                missing.append(f"{class_name}.{method}: {code}")
        self.assertEqual([], missing)

    def test_pages_are_those_that_sav_reference_writes(self):
        folder = ROOT / "docs" / "reference"
        pages = all_pages(self.contract, self.helps)
        self.assertEqual(sorted(pages), sorted(path.name for path in folder.iterdir()), "run ./sav reference")
        for name, text in pages.items():
            self.assertEqual(text, (folder / name).read_text(encoding="utf-8"), f"{name}: run ./sav reference")

    def test_constants_have_the_values_that_their_pages_show(self):
        count = sum(len(class_.constants) for class_ in self.contract.classes)
        self.assertGreater(count, 600)
        self.assertEqual({0: [f"{count} compared"]}, run_script(compared_constants(self.contract)))

    def test_vbscript_examples_print_what_they_show(self):
        found = [(class_name, entry, example) for class_name, help_ in self.helps.items()
                 for entry in help_.entries.values() for example in entry.examples if example.language == "vbs"]
        self.assertGreater(len(found), 40)
        printed = run_script(script_of([(class_name, example) for class_name, _, example in found]))
        wrong = []
        for number, (class_name, entry, example) in enumerate(found):
            shown = example.expected()
            if printed.get(number) not in (shown, [BOOLEANS.get(text, text) for text in shown]):
                wrong.append(f"{class_name}.{entry.name}: {printed.get(number)} instead of {shown}")
        self.assertEqual([], wrong)


class ChecksOfTheEntries(unittest.TestCase):
    """The checks find what they are there for."""

    def setUp(self):
        self.contract, self.helps = read_contract(ROOT), read_helps(ROOT)
        self.entry = self.helps["ContratDoc"].entries["NbrCadFact"]

    def faults(self):
        return help_faults(self.contract, self.helps)

    def test_a_member_without_entry(self):
        del self.helps["ContratDoc"].entries["NbrCadFact"]
        self.assertEqual(["ContratDoc.md: NbrCadFact has no entry"], self.faults())

    def test_an_entry_without_member(self):
        self.helps["ContratDoc"].entries["NbrRien"] = self.entry
        self.assertEqual(["ContratDoc.md: there is no method NbrRien"], self.faults())

    def test_a_parameter_that_does_not_exist(self):
        self.entry.parameters["Contra"] = self.entry.parameters.pop("Contrat")
        self.assertEqual(["ContratDoc.md: NbrCadFact: parameter Contrat is not described",
                          "ContratDoc.md: NbrCadFact: there is no parameter Contra"], self.faults())

    def test_a_fault_that_the_library_does_not_know(self):
        self.entry.faults.append(("7", "never"))
        self.assertEqual(["ContratDoc.md: NbrCadFact: fault 7 is not one of faults.def"], self.faults())

    def test_an_example_without_outcome(self):
        self.entry.examples[0].lines = ["short lignes = 0;"]
        self.assertEqual(["ContratDoc.md: NbrCadFact: an example that shows no outcome"], self.faults())

    def test_a_class_without_text(self):
        del self.helps["Planning"]
        self.assertEqual(["Planning.md is missing"], self.faults())


if __name__ == "__main__":
    unittest.main()
