"""docs/reliability.md: the page of its pieces, a command for each, and no piece lost on the way."""

import json
import pathlib
import re
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tools"))
import reliability  # noqa: E402

PIECE = {"title": "Title", "text": "Text.", "columns": ["what", "number"], "rows": [["a | b", "1,000"]]}


class Page(unittest.TestCase):
    def test_the_page_is_that_of_its_pieces(self):
        self.assertEqual(reliability.page(ROOT), (ROOT / "docs" / "reliability.md").read_text(encoding="utf-8"),
                         "stale: run ./sav reliability")

    def test_every_command_exists(self):
        usage = (ROOT / "sav").read_text(encoding="utf-8").partition("USAGE")[2].partition("\nUSAGE")[0]
        for name, (command, _) in reliability.PIECES.items():
            words = command.split()
            self.assertEqual("./sav", words[0], name)
            self.assertRegex(usage, rf"(?m)^  {words[1]}\b", name)
            for test in words[2:]:
                self.assertTrue((ROOT / "tests" / test.removeprefix("test_")).is_dir(), f"{name}: {test}")

    def test_the_table_of_faults_has_every_method_and_what_it_leaves(self):
        entries = re.findall(r'^(?:UNCHANGED\((\w+), (\w+)\)|STEPS\((\w+), (\w+),\s*"([^"]*)"\))',
                             (ROOT / "tests" / "atomicity" / "methods.def").read_text(encoding="utf-8"), re.MULTILINE)
        self.assertGreater(len(entries), 90)
        piece = json.loads((ROOT / "docs" / "reliability" / "30-atomicity.json").read_text(encoding="utf-8"))
        shown = {}
        for class_name, method, _, _, leaves in piece["rows"]:
            shown.setdefault((class_name, method), set()).add(leaves)
        expected = {(a or c, b or d): remains for a, b, c, d, remains in entries}
        self.assertEqual(sorted(expected), sorted(shown))
        for method, remains in expected.items():
            self.assertEqual(bool(remains), remains in shown[method], f"{method}: {remains}")
            self.assertLessEqual(shown[method], {remains, "everything unchanged"})


class Pieces(unittest.TestCase):
    """On a tree of its own."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        self.made, self.kept = self.root / "build" / "reliability", self.root / "docs" / "reliability"
        self.made.mkdir(parents=True)
        self.kept.mkdir(parents=True)
        for name in reliability.PIECES:
            self.put(self.kept, name, PIECE)

    def put(self, folder, name, piece):
        (folder / f"{name}.json").write_text(json.dumps(piece), encoding="utf-8")

    def fails(self, says, work):
        with self.assertRaises(SystemExit) as ended:
            work()
        self.assertIn(says, str(ended.exception))

    def test_a_missing_piece_is_a_failure_that_names_the_command(self):
        (self.kept / "10-misuse.json").unlink()
        self.fails("10-misuse: ./sav soak", lambda: reliability.page(self.root))

    def test_an_unknown_piece_is_a_failure(self):
        self.put(self.kept, "99-other", PIECE)
        self.fails("99-other", lambda: reliability.page(self.root))
        self.put(self.made, "98-other", PIECE)
        self.fails("98-other", lambda: reliability.take_over(self.root, []))

    def test_new_figures_replace_their_own_section_only(self):
        self.put(self.made, "20-memory", PIECE | {"title": "Other"})
        self.assertEqual(["20-memory"], reliability.take_over(self.root, []))
        self.assertEqual(["Other"], [piece["title"] for name, piece in reliability.read_pieces(self.root).items()
                                     if piece != PIECE])
        self.assertEqual([], reliability.take_over(self.root, []), "they are moved")

    def test_named_pieces_alone_are_taken(self):
        self.put(self.made, "10-misuse", PIECE)
        self.put(self.made, "20-memory", PIECE)
        self.assertEqual(["20-memory"], reliability.take_over(self.root, ["20-memory"]))
        self.assertTrue((self.made / "10-misuse.json").exists())
        self.fails("20-memory", lambda: reliability.take_over(self.root, ["20-memory"]))

    def test_a_written_piece_is_read_as_it_was_and_has_a_line_for_each_row(self):
        piece = PIECE | {"text": "É \"a\"\nb", "rows": [["é", "1"], ["b\\", "2"]]}
        reliability.write_piece(self.root / "new" / "20-memory.json", piece)
        text = (self.root / "new" / "20-memory.json").read_text(encoding="utf-8")
        self.assertEqual(piece, json.loads(text))
        self.assertIn('\n  ["é", "1"],\n', text)

    def test_a_section_has_a_table_with_every_row(self):
        text = reliability.section("10-misuse", PIECE)
        self.assertIn("| what | number |\n| --- | ---: |\n| a \\| b | 1,000 |\n", text)
        self.fails("a row of 1 cells", lambda: reliability.section("10-misuse", PIECE | {"rows": [["a"]]}))


if __name__ == "__main__":
    unittest.main()
