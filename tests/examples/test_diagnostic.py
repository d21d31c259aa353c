"""sav-diagnostic.exe in each state of a machine: all well, not registered, stale, spoilt."""

import os
import pathlib
import re
import shutil
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(pathlib.Path(__file__).parent))
from private_registry import PrivateRegistry  # noqa: E402

BIN = pathlib.Path(os.environ.get("SAV_BUILD", "build/release")) / "bin"
CLASSES = re.findall(r"^AUTOMATION_CLASS\((\w+)\)$", (ROOT / "interface" / "classes.def").read_text("utf-8"), re.M)
LIBRARY = re.search(r"uuid\(([0-9A-F-]+)\)", (ROOT / "interface" / "VelmoSAV_DLL14.idl").read_text("utf-8"))[1]
MENU = r"HKCR\Lumbra30.ApiPopupMenu\CLSID"
# A class that every prefix has and that knows no member of a menu.
DICTIONARY = "{EE09B103-97E0-11CF-978F-00A02463E06F}"


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def class_identifier(name):
    text = (ROOT / "interface" / "classes" / f"{name}.idl").read_text("utf-8")
    return "{" + re.findall(r"uuid\(([0-9A-F-]+)\)", text)[1] + "}"


def server_key(name):
    return rf"HKCR\CLSID\{class_identifier(name)}\InprocServer32"


class Findings:
    def __init__(self, code, output):
        self.code, self.output = code, output
        self.lines = {}
        self.advice = {}
        check = None
        for line in output.splitlines():
            if found := re.match(r"(OK|ÉCHEC|info|--) +(.+?)  +(.*)$", line):
                mark, check, finding = found.groups()
                self.lines[check] = (mark, finding)
            elif found := re.match(r" {7}-> (.*)$", line):
                self.advice[check] = found[1]

    def failing(self):
        return {check for check, (mark, _) in self.lines.items() if mark == "ÉCHEC"}


class Diagnostic(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.registry = PrivateRegistry()
        cls.addClassCleanup(cls.registry.close)
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name)

    def setUp(self):
        for name in ("VelmoSAV_DLL14.dll", "ApiPopupMenu.dll"):
            self.register(BIN / name)

    def register(self, path):
        self.registry.must("regsvr32", "/s", windows_path(path))

    def unregister(self, name):
        self.registry.must("regsvr32", "/s", "/u", windows_path(BIN / name))

    def put(self, key, value, name=None):
        which = ["/v", name] if name else ["/ve"]
        self.registry.must("reg", "add", key, *which, "/t", "REG_SZ", "/d", value, "/f")

    def diagnose(self):
        findings = Findings(*self.registry.run(windows_path(BIN / "sav-diagnostic.exe")))
        self.assertEqual(set(CLASSES), set(CLASSES) & findings.lines.keys(), findings.output)
        return findings

    def assert_only(self, failing, findings):
        self.assertEqual((failing, 1), (findings.failing(), findings.code), findings.output)

    def test_all_is_well(self):
        findings = self.diagnose()
        self.assertEqual((set(), 0), (findings.failing(), findings.code), findings.output)
        self.assertEqual(("OK", "31 classes sur 31"), findings.lines["Inscription"])
        self.assertEqual(("OK", windows_path(BIN / "VelmoSAV_DLL14.dll")), findings.lines["Chemin"])
        self.assertEqual(("OK", "MSXML2.DOMDocument.4.0"), findings.lines["DOM XML"])
        self.assertEqual(("info", "jour, mois, année"), findings.lines["Ordre des dates"])
        self.assertTrue(findings.output.endswith("Tout va bien.\n"))

    def test_the_version_is_that_of_the_build(self):
        version = re.search(r"^VELMOSAV_VERSION:STRING=(.*)$", (BIN.parent / "CMakeCache.txt").read_text("utf-8"), re.M)
        self.assertEqual(("OK", f"version {version[1]}.0"), self.diagnose().lines["Fichier"])

    def test_not_registered(self):
        self.unregister("VelmoSAV_DLL14.dll")
        findings = self.diagnose()
        self.assert_only({"Inscription", "Bibliothèque de types", *CLASSES}, findings)
        self.assertIn(f'regsvr32 "{windows_path(BIN / "VelmoSAV_DLL14.dll")}"', findings.advice["Inscription"])

    def test_one_class_is_missing(self):
        self.registry.must("reg", "delete", r"HKCR\VelmoSAV_DLL14.Bon", "/f")
        findings = self.diagnose()
        self.assert_only({"Inscription", "Bon"}, findings)
        self.assertEqual("classes non inscrites : Bon", findings.lines["Inscription"][1])

    def test_stale_path(self):
        copy = self.folder / "VelmoSAV_DLL14.dll"
        shutil.copy(BIN / copy.name, copy)
        self.register(copy)
        copy.unlink()
        findings = self.diagnose()
        self.assert_only({"Fichier", "Bibliothèque de types", *CLASSES}, findings)
        self.assertEqual("absent : l'inscription est périmée", findings.lines["Fichier"][1])

    def test_two_copies(self):
        copy = self.folder / "deux" / "VelmoSAV_DLL14.dll"
        copy.parent.mkdir()
        shutil.copy(BIN / copy.name, copy)
        self.put(server_key("Bon"), windows_path(copy))
        findings = self.diagnose()
        self.assert_only({"Chemin"}, findings)
        self.assertIn(windows_path(copy), findings.lines["Chemin"][1])

    def test_file_of_another_architecture(self):
        copy = self.folder / "x64" / "VelmoSAV_DLL14.dll"
        copy.parent.mkdir()
        image = bytearray((BIN / copy.name).read_bytes())
        header = int.from_bytes(image[0x3C:0x40], "little")
        image[header + 4 : header + 6] = (0x8664).to_bytes(2, "little")
        for name in CLASSES:
            self.put(server_key(name), windows_path(copy))
        copy.write_bytes(image)
        findings = self.diagnose()
        self.assertEqual(("ÉCHEC", "ce fichier n'est pas en 32 bits"), findings.lines["Architecture"], findings.output)
        self.assertEqual(1, findings.code)

    def test_registered_for_machine_and_user(self):
        self.put(rf"HKCU\Software\Classes\CLSID\{class_identifier('Adresses')}\InprocServer32", "x.dll")
        self.addCleanup(self.registry.must, "reg", "delete",
                        rf"HKCU\Software\Classes\CLSID\{class_identifier('Adresses')}", "/f")
        self.assertIn("Portée", self.diagnose().failing())

    def test_another_threading_model(self):
        self.put(server_key("Bon"), "Free", "ThreadingModel")
        self.assertIn("Modèle d'exécution", self.diagnose().failing())

    def test_type_library_is_missing(self):
        self.registry.must("reg", "delete", rf"HKCR\TypeLib\{{{LIBRARY}}}", "/f")
        self.assert_only({"Bibliothèque de types"}, self.diagnose())

    def test_no_menu_component(self):
        self.unregister("ApiPopupMenu.dll")
        findings = self.diagnose()
        self.assert_only({"Composant de menu"}, findings)
        self.assertIn("ApiPopupMenu.dll", findings.advice["Composant de menu"])

    def test_another_component_took_the_menu_s_name(self):
        _, output = self.registry.run("reg", "query", MENU, "/ve")
        own = re.search(r"\{[0-9A-F-]+\}", output)[0]
        self.put(MENU, DICTIONARY)
        self.addCleanup(self.put, MENU, own)
        findings = self.diagnose()
        self.assert_only({"Composant de menu"}, findings)
        self.assertIn("ne connaît pas AddItem", findings.lines["Composant de menu"][1])

    def test_later_document_classes_stand_in(self):
        self.registry.must("reg", "delete", r"HKCR\MSXML2.DOMDocument.4.0", "/f")
        self.addCleanup(self.registry.must, "regsvr32", "/s", "msxml4.dll")
        findings = self.diagnose()
        self.assertEqual((0, ("OK", "MSXML2.DOMDocument.6.0")), (findings.code, findings.lines["DOM XML"]))

    def test_no_document_class(self):
        for version in ("4.0", "6.0", "3.0"):
            self.registry.run("reg", "delete", rf"HKCR\MSXML2.DOMDocument.{version}", "/f")
        self.addCleanup(self.registry.must, "regsvr32", "/s", "msxml3.dll", "msxml4.dll", "msxml6.dll")
        self.assert_only({"DOM XML"}, self.diagnose())


if __name__ == "__main__":
    unittest.main()
