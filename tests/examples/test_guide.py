"""The guide: its links lead somewhere, its code runs, and it names every element of the invoice."""

import os
import pathlib
import re
import subprocess
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
GUIDE = ROOT / "docs" / "guide"
sys.path.insert(0, str(ROOT / "tools"))
sys.path.insert(0, str(pathlib.Path(__file__).parent))
from reference.contract import read_contract  # noqa: E402
from reference.help_entries import Example  # noqa: E402
from test_reference import BOOLEANS, run_script, script_of  # noqa: E402


def documents():
    return [ROOT / "README.md", *sorted((ROOT / "docs").rglob("*.md"))]


def anchors(path):
    """The anchors of a page's headings, as the usual viewers make them."""
    headings = re.findall(r"^#+ (.*)$", path.read_text(encoding="utf-8"), re.M)
    return {re.sub(r"[^\w -]", "", heading.lower()).replace(" ", "-") for heading in headings}


def blocks(path, language):
    found = re.findall(r"^```(\w*)\n(.*?)^```$", path.read_text(encoding="utf-8"), re.M | re.S)
    return [text for name, text in found if name == language]


def plain(text):
    return [line.strip() for line in text.split("\n") if line.strip()]


class Links(unittest.TestCase):
    def test_every_link_of_a_document_leads_to_a_file_and_its_heading(self):
        lost = []
        for page in documents():
            for target in re.findall(r"\]\(([^)\s]+)\)", page.read_text(encoding="utf-8")):
                if "://" in target:
                    continue
                name, _, anchor = target.partition("#")
                path = (page.parent / name).resolve() if name else page
                if not path.exists() or (anchor and anchor not in anchors(path)):
                    lost.append(f"{page.relative_to(ROOT)}: {target}")
        self.assertEqual([], lost)


class Code(unittest.TestCase):
    def test_scripts_print_what_they_show(self):
        found = [(page.name, Example("vbs", text.rstrip("\n").split("\n")))
                 for page in sorted(GUIDE.glob("*.md")) for text in blocks(page, "vbs")]
        self.assertGreaterEqual(len(found), 3)
        printed = run_script(script_of([("General", example) for _, example in found]))
        for number, (name, example) in enumerate(found):
            shown = example.expected()
            self.assertTrue(shown, name)
            self.assertIn(printed.get(number), (shown, [BOOLEANS.get(text, text) for text in shown]), name)

    def test_cpp_stands_in_the_example_as_it_is_shown(self):
        example = ROOT / "examples" / "premier_appel"
        files = [(example / name).read_text(encoding="utf-8") for name in ("main.cpp", "sav.h")]
        source = "\n".join("\n".join(plain(text)) for text in files)
        for page in sorted(GUIDE.glob("*.md")):
            for text in blocks(page, "cpp"):
                self.assertIn("\n".join(plain(text)), source, page.name)

    def test_first_host_prints_what_the_guide_shows(self):
        program = pathlib.Path(os.environ["SAV_BUILD"]) / "bin" / "premier_appel.exe"
        done = subprocess.run(["wine", str(program)], capture_output=True, timeout=60, check=False)
        self.assertEqual(0, done.returncode)
        self.assertIn(done.stdout.decode("utf-8").replace("\r\n", "\n"), blocks(GUIDE / "first-call.md", ""))


class Invoice(unittest.TestCase):
    page = GUIDE / "invoice.md"

    def test_every_element_and_attribute_is_explained(self):
        library = next(c for c in read_contract(ROOT).classes if c.name == "InvoiceXMLLib")
        explained = set(re.findall(r"`(\w+)`", "\n".join(
            line for line in self.page.read_text(encoding="utf-8").split("\n") if line.startswith("|"))))
        for constant in library.constants:
            self.assertIn(constant.initial.strip('"'), explained, constant.name)


if __name__ == "__main__":
    unittest.main()
