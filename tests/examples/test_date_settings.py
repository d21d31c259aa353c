"""The user's regional settings decide how a date is read and written: the comparison of the library with the platform,
run again for users of other countries."""

import json
import os
import pathlib
import subprocess
import tempfile
import unittest

PROGRAM = pathlib.Path(os.environ.get("SAV_BUILD", "build/release")) / "tests" / "test_internal.exe"
TIME_LIMIT = 120


class DateSettings(unittest.TestCase):
    def run_for(self, locale):
        """What a user of that language and country reads in "01/02/2026", once all comparisons passed."""
        with tempfile.TemporaryDirectory() as folder:
            # The output goes through a file: the platform's services keep a pipe open.
            with open(pathlib.Path(folder) / "output", "wb") as output:
                done = subprocess.run(
                    ["wine", str(PROGRAM), "--gtest_filter=DateText.*", "--gtest_output=json:report.json"], cwd=folder,
                    stdin=subprocess.DEVNULL, stdout=output, stderr=subprocess.DEVNULL, timeout=TIME_LIMIT, check=False,
                    env={**os.environ, "LC_ALL": f"{locale}.UTF-8"})
            output = (pathlib.Path(folder) / "output").read_text(encoding="utf-8", errors="replace")
            self.assertEqual(0, done.returncode, output[-4000:])
            report = json.loads((pathlib.Path(folder) / "report.json").read_text(encoding="utf-8"))
        tests = [test for suite in report["testsuites"] for test in suite["testsuite"]]
        self.assertGreater(len(tests), 5)
        return next(test["reading"] for test in tests if "reading" in test)

    def test_day_before_month(self):
        self.assertEqual("2026-02-01", self.run_for("fr_FR"))

    def test_month_before_day(self):
        self.assertEqual("2026-01-02", self.run_for("en_US"))

    def test_points_between_the_numbers(self):
        self.assertEqual("2026-02-01", self.run_for("de_DE"))

    def test_year_first(self):
        self.assertEqual("2026-01-02", self.run_for("sv_SE"))


if __name__ == "__main__":
    unittest.main()
