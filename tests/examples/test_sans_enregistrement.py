"""The host without registration: it runs in a registry that knows no class of the library, and from its own folder."""

import os
import pathlib
import re
import shutil
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(pathlib.Path(__file__).parent))
from private_registry import PrivateRegistry  # noqa: E402
from test_diagnostic import windows_path  # noqa: E402

BUILD = pathlib.Path(os.environ.get("SAV_BUILD", "build/release"))
NAMES = {"asm": "urn:schemas-microsoft-com:asm.v1"}


class OwnRegistry(unittest.TestCase):
    """A registry for the tests of a class, in which the library is registered."""

    @classmethod
    def setUpClass(cls):
        cls.registry = PrivateRegistry()
        cls.addClassCleanup(cls.registry.close)
        cls.registry.must("regsvr32", "/s", windows_path(BUILD / "bin" / "VelmoSAV_DLL14.dll"))


class WithoutRegistration(OwnRegistry):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.registry.must("regsvr32", "/s", "/u", windows_path(BUILD / "bin" / "VelmoSAV_DLL14.dll"))

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        shutil.copy(BUILD / "bin" / "sans_enregistrement.exe", self.folder)

    def run_host(self):
        return self.registry.run(windows_path(self.folder / "sans_enregistrement.exe"))

    def test_the_library_beside_the_program_serves(self):
        shutil.copy(BUILD / "bin" / "VelmoSAV_DLL14.dll", self.folder)
        code, output = self.run_host()
        self.assertEqual(0, code, output)
        self.assertIn("finit le 31/12/26", output)
        self.assertIn(windows_path(self.folder / "VelmoSAV_DLL14.dll").lower(), output.lower())

    def test_no_class_is_known_otherwise(self):
        code, _ = self.registry.run("reg", "query", r"HKCR\VelmoSAV_DLL14.ContratDoc")
        self.assertNotEqual(0, code)
        code, output = self.run_host()
        self.assertNotEqual(0, code, output)

    def test_the_program_names_the_library_s_own_assembly(self):
        own = ElementTree.parse(BUILD / "interface" / "VelmoSAV_DLL14.manifest").find("asm:assemblyIdentity", NAMES)
        named = ElementTree.parse(ROOT / "examples" / "sans_enregistrement" / "sans_enregistrement.manifest").find(
            "asm:dependency/asm:dependentAssembly/asm:assemblyIdentity", NAMES)
        self.assertEqual(own.attrib, named.attrib)


class Manifest(OwnRegistry):
    """The manifest against what the type library's registration writes."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.root = ElementTree.parse(BUILD / "interface" / "VelmoSAV_DLL14.manifest")

    def registered(self, key):
        """(last part of the key, default value) of each key below `key` whose lines name the library."""
        _, output = self.registry.run("reg", "query", key, "/s", "/ve")
        return dict(re.findall(r"\\(\{[0-9A-F-]+\})\n +\S.*?REG_SZ +(\S+)", output))

    def test_interfaces_are_those_that_the_type_library_registers(self):
        named = {entry.get("iid"): entry.get("name")
                 for entry in self.root.iterfind("asm:comInterfaceExternalProxyStub", NAMES)}
        self.assertEqual(31, len(named))
        registered = self.registered(r"HKCR\Interface")
        self.assertEqual(named, {iid: registered.get(iid) for iid in named})

    def test_classes_are_those_that_are_registered(self):
        named = {entry.get("clsid"): entry.get("progid")
                 for entry in self.root.iterfind("asm:file/asm:comClass", NAMES)}
        self.assertEqual(31, len(named))
        registered = self.registered(r"HKCR\CLSID")
        self.assertEqual(named, {clsid: registered.get(clsid) for clsid in named})


if __name__ == "__main__":
    unittest.main()
