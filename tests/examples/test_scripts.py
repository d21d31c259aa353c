"""The script hosts of examples/scripts, run by the platform's own script engines."""

import pathlib
import subprocess
import tempfile
import unittest

SCRIPTS = pathlib.Path(__file__).resolve().parents[2] / "examples" / "scripts"
TIME_LIMIT = 60
LINK_ABSENT = "  objet de liaison absent : enregistrer DemoHote.wsc (Le composant ne peut pas créer l'objet)"


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def in_wine(*command):
    """(exit code, output) of a program. The output goes through a file: the platform's own services, which the first
    program starts, keep a pipe open long after it."""
    with tempfile.TemporaryFile() as output:
        done = subprocess.run(["wine", *command], stdin=subprocess.DEVNULL, stdout=output, stderr=subprocess.DEVNULL,
                              timeout=TIME_LIMIT, check=False)
        output.seek(0)
        return done.returncode, output.read()


def run(script):
    """(exit code, printed lines) of a script. A script that ends early still exits with 0: look at its lines."""
    code, output = in_wine("cscript", "//nologo", windows_path(SCRIPTS / script))
    return code, output.decode("cp850").replace("\r\n", "\n").split("\n")


def register_link(*options):
    """Registers the scripted link object; with "/u", takes it away again."""
    link = windows_path(SCRIPTS / "DemoHote.wsc")
    code, _ = in_wine("regsvr32", "/s", *options, "/n", f"/i:{link}", "scrobj.dll")
    if code:
        raise RuntimeError(f"regsvr32 {' '.join(options)} DemoHote.wsc: code {code}")


class Script:
    """What every run of a script must print; the classes below name the script and whether the link is there."""

    name = ""
    link_registered = True

    @classmethod
    def setUpClass(cls):
        register_link("/u")  # whatever an interrupted run may have left
        if cls.link_registered:
            register_link()
            cls.addClassCleanup(register_link, "/u")
        cls.code, cls.lines = run(cls.name)

    def test_ends_with_a_good_verdict(self):
        self.assertEqual("VERDICT : tout est juste", self.lines[-2], "\n".join(self.lines))
        self.assertEqual(0, self.code)

    def test_no_line_is_wrong(self):
        self.assertEqual([], [line for line in self.lines if "FAUX" in line])

    def test_creates_all_classes(self):
        self.assertIn("  classes créées : 31", self.lines)


class ScriptWithLink(Script):
    """A script's own lines, and the errors that both show; `null_year` is the language's word for Null."""

    expected = ()
    null_year = ""

    def test_shows_errors_with_number_and_french_text(self):
        self.assertIn("  année " + self.null_year + " : erreur 94, Utilisation de Null incorrecte", self.lines)
        self.assertIn("  hôte absent : erreur 429, Le composant ne peut pas créer l'objet", self.lines)

    def test_prints_what_it_did(self):
        for line in self.expected:
            with self.subTest(line=line):
                self.assertIn("  " + line, self.lines)


class VBScriptHost(ScriptWithLink, unittest.TestCase):
    name = "demo.vbs"
    null_year = "Null"
    expected = (
        "la même, modifiée : X",
        "la même, dans une autre instance : F",
        "mensuelle : Le 15, les mois de Janvier, Août, Décembre",
        "dernier jour de février 2024 : 29/02/24",
        "l'année, devenue un nombre : Double 2024",
        "lignes regroupées : Mairie, chaudière, Mairie, école, Clinique, Mairie, autre vendeur",
        "colonnes : 14",
        "aucune ligne cochée : erreur 9, Indice hors limites",
        "la grille, inchangée : non cochée, non cochée",
        "mêmes montants : non",
        "TVA modifiée : oui",
        "situation demandée : Demandée",
        "texte au-delà de 32767 : Texte 112219",
        "motif de résiliation : &Indéterminé",
        "traduction sans objet de liaison : erreur 91, Référence d'objet non définie",
    )

    def test_file_is_in_the_code_page_that_the_engine_reads(self):
        content = (SCRIPTS / self.name).read_bytes()
        self.assertIn("Périodicités", content.decode("cp1252"))


class JScriptHost(ScriptWithLink, unittest.TestCase):
    name = "demo.js"
    null_year = "null"
    expected = (
        "genre mensuel, modifié : X",
        "le même, dans une autre instance : M",
        "hebdomadaire : Lundi, Jeudi, toutes les semaines",
        "29/02/2025 corrigé : 28/02/25",
        "HT de 120 TTC à 20 % : 100",
        "regroupement d'un tableau JScript : erreur 13, Type incompatible",
        "situation : Réalisée",
        "texte au-delà de 32767 : Texte 102478",
    )

    def test_file_reads_the_same_in_every_code_page(self):
        self.assertTrue((SCRIPTS / self.name).read_bytes().isascii())


class ScriptWithoutLink(Script):
    """The translation needs an object of the host: a script says so and goes on."""

    link_registered = False

    def test_says_that_the_link_is_absent(self):
        self.assertIn(LINK_ABSENT, self.lines)


class VBScriptHostWithoutLink(ScriptWithoutLink, unittest.TestCase):
    name = "demo.vbs"


class JScriptHostWithoutLink(ScriptWithoutLink, unittest.TestCase):
    name = "demo.js"


if __name__ == "__main__":
    unittest.main()
