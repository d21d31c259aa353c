"""The demonstration host, run as a user runs it: sample data, faulty data, wrong command lines."""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree
from decimal import Decimal

ROOT = pathlib.Path(__file__).resolve().parents[2]
SAMPLES = ROOT / "examples" / "facturation" / "donnees"
FAULTY = ROOT / "examples" / "facturation" / "donnees-fautives"
sys.path.insert(0, str(pathlib.Path(__file__).parent))
from expected_invoices import expected_totals  # noqa: E402
from private_registry import PrivateRegistry  # noqa: E402

HEADER = ["CODE", "DATEFACT", "CODETIERS", "CODEREPR", "CODEMODREGL", "DESIGNATION", "ORIGINE", "ADRCHANTIER",
          "ADRFACTURATION"]
NO_BREAK_SPACES = dict.fromkeys(map(ord, "\u00a0\u202f"))


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def number(text):
    return Decimal(text.translate(NO_BREAK_SPACES).replace(",", "."))


class Run:
    """One run of the host into a folder of its own."""

    def __init__(self, *arguments, environment=None):
        self.folder = tempfile.TemporaryDirectory()
        program = pathlib.Path(os.environ["SAV_BUILD"]) / "bin" / "facturation.exe"
        done = subprocess.run(["wine", str(program), "--sortie", windows_path(self.folder.name), *arguments],
                              capture_output=True, timeout=120, check=False, env=environment)
        self.code = done.returncode
        self.output = done.stdout.decode("utf-8")
        self.errors = done.stderr.decode("utf-8").splitlines()

    def table(self):
        """(customer, HT, VAT, TTC) of each line of the summary."""
        lines = [line.translate(NO_BREAK_SPACES) for line in self.output.splitlines()]
        found = (re.match(r"FA\S+\s+(.*?)\s{2,}\d+\s+(\S+)\s+(\S+)\s+(\S+)$", line) for line in lines)
        return sorted((m[1], number(m[2]), number(m[3]), number(m[4])) for m in found if m)

    def invoices(self):
        return [ElementTree.parse(path).getroot() for path in sorted(pathlib.Path(self.folder.name).glob("*.xml"))]


class SampleData(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.run_ = Run(windows_path(SAMPLES))

    def test_all_goes_well(self):
        self.assertEqual((0, []), (self.run_.code, self.run_.errors))

    def test_totals_are_those_computed_from_the_data_alone(self):
        self.assertEqual(expected_totals(SAMPLES), self.run_.table())

    def test_one_xml_file_per_invoice(self):
        self.assertEqual(len(expected_totals(SAMPLES)), len(self.run_.invoices()))

    def test_each_file_is_a_header_followed_by_rows(self):
        for invoice in self.run_.invoices():
            names = [child.tag for child in invoice]
            self.assertEqual("INVOICE", invoice.tag)
            self.assertEqual(HEADER, names[: len(HEADER)])
            self.assertEqual({"ROW"}, set(names[len(HEADER):]))

    def test_ranks_grow_across_the_documents_of_an_invoice(self):
        for invoice in self.run_.invoices():
            ranks = [int(row.get("RANK")) for row in invoice.iter("ROW")]
            self.assertEqual(sorted(set(ranks)), ranks)

    def test_prices_of_contract_rows_add_up_to_the_shares(self):
        """An invoice of contracts alone: its share rows add up to the side that it is priced on."""
        summed = set()
        for invoice in self.run_.invoices():
            rows = [row for row in invoice.iter("ROW") if row.get("TYPE") == "F"]
            if rows and not any(row.find("CODEELEM") is not None for row in invoice.iter("ROW")):
                summed.add(sum(number(row.findtext("UNITPRICE")) for row in rows))
        sides = {amount for _, ht, _, ttc in self.run_.table() for amount in (ht, ttc)}
        self.assertTrue(summed)
        self.assertLessEqual(summed, sides)


class WithoutDom(unittest.TestCase):
    """On a machine none of whose documents' classes is registered no invoice can be written, and each says why."""

    def test_every_invoice_is_refused_with_fault_429(self):
        registry = PrivateRegistry()
        self.addCleanup(registry.close)
        for version in ("4.0", "6.0", "3.0"):
            registry.run("reg", "delete", rf"HKCR\MSXML2.DOMDocument.{version}", "/f")
        run = Run(windows_path(SAMPLES), environment=registry.environment)
        self.assertNotEqual(0, run.code)
        self.assertEqual([], run.invoices())
        self.assertTrue(run.errors)
        for line in run.errors:
            self.assertIn("Le composant ne peut pas créer l'objet", line)


class Pages(unittest.TestCase):
    """--apercu: each invoice as a page for the customer, laid out by facture.xsl."""

    XHTML = "{http://www.w3.org/1999/xhtml}"

    @classmethod
    def setUpClass(cls):
        cls.run_ = Run("--apercu", windows_path(SAMPLES))
        cls.pages = {path.stem: ElementTree.parse(path).getroot()
                     for path in pathlib.Path(cls.run_.folder.name).glob("*.html")}

    @classmethod
    def amounts(cls, page, *identifiers):
        """The amounts in cells of the page, in its order."""
        cells = page.iter(f"{cls.XHTML}td")
        return [number(cell.text.removesuffix("\u00a0€")) for cell in cells if cell.get("id") in identifiers]

    def test_all_goes_well(self):
        self.assertEqual((0, []), (self.run_.code, self.run_.errors))

    def test_one_page_beside_each_xml_file(self):
        files = pathlib.Path(self.run_.folder.name).glob("*.xml")
        self.assertEqual(sorted(path.stem for path in files), sorted(self.pages))
        self.assertEqual(len(expected_totals(SAMPLES)), len(self.pages))

    def test_totals_of_the_pages_are_those_computed_from_the_data_alone(self):
        shown = sorted(tuple(self.amounts(page, "total-ht", "total-tva", "total-ttc")) for page in self.pages.values())
        self.assertEqual(sorted(total[1:] for total in expected_totals(SAMPLES)), shown)

    def test_distribution_of_the_vat_adds_up_to_the_totals(self):
        for code, page in self.pages.items():
            table = next(t for t in page.iter(f"{self.XHTML}table") if t.get("class") == "tva")
            rows = [row.findall(f"{self.XHTML}td") for row in table.iter(f"{self.XHTML}tr")]
            sums = [sum(number(row[i].text.removesuffix("\u00a0€")) for row in rows if row) for i in (1, 2)]
            self.assertEqual(self.amounts(page, "total-ht", "total-tva"), sums, code)

    def test_every_row_of_the_invoice_is_shown(self):
        for code, page in self.pages.items():
            invoice = ElementTree.parse(pathlib.Path(self.run_.folder.name) / f"{code}.xml").getroot()
            shown = "\n".join(page.itertext())
            for row in invoice.iter("ROW"):
                self.assertIn(row.findtext("DESIGNATION").strip(), shown, code)

    def test_addresses_and_customer_are_shown(self):
        for code, page in self.pages.items():
            invoice = ElementTree.parse(pathlib.Path(self.run_.folder.name) / f"{code}.xml").getroot()
            shown = "\n".join(page.itertext())
            customer = invoice.findtext("DESIGNATION").split("\n", 1)[1]
            for text in (code, customer, invoice.find("ADRFACTURATION").get("CITY"),
                         invoice.find("ADRCHANTIER").get("ADR")):
                self.assertIn(text, shown, code)

    def test_no_amount_is_missing(self):
        for code, page in self.pages.items():
            self.assertNotIn("NaN", "".join(page.itertext()), code)
            self.assertNotIn("—", "".join(page.itertext()), code)


class FaultyData(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.run_ = Run(windows_path(FAULTY))

    def test_the_exit_code_says_that_input_was_refused(self):
        self.assertEqual(1, self.run_.code)

    def test_each_fault_has_one_line_with_file_and_field(self):
        for line in self.run_.errors:
            self.assertRegex(line, r"^(contrats|interventions|tva)\.json: ")
        for fault in ("contrats.json: contrat CT102, champ dateDebut : date manquante",
                      "contrats.json: contrat CT101, champ codeTva : code de TVA 7 absent de tva.json",
                      "interventions.json: JSON mal formé, ligne 3, colonne 56"):
            self.assertEqual(1, self.run_.errors.count(fault), fault)

    def test_the_other_contracts_go_through(self):
        self.assertEqual(2, len(self.run_.invoices()))


class CommandLine(unittest.TestCase):
    def test_missing_folder_makes_nothing(self):
        run = Run(windows_path(ROOT / "nulle-part"))
        self.assertEqual(2, run.code)
        self.assertEqual(1, len(run.errors))

    def test_unknown_option_is_refused(self):
        self.assertEqual(2, Run("--inconnue").code)

    def test_help_is_given(self):
        run = Run("--aide")
        self.assertEqual(0, run.code)
        self.assertIn("--sortie", run.output)

    def test_repeated_contracts_make_as_many_times_the_invoices(self):
        self.assertEqual(3 * len(expected_totals(SAMPLES)), len(Run("--repeter", "3", windows_path(SAMPLES)).table()))


if __name__ == "__main__":
    unittest.main()
