"""The count of the tests counts every case once, and misses no program that crashed or did not run."""

import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools"))

from test_results import ctest_results  # noqa: E402

CASES = {
    "good": '<testcase name="a" classname="S" status="run" result="completed"/>',
    "bad": '<testcase name="b" classname="S" status="run" result="completed"><failure message="x.cpp:3"/></testcase>',
    "skipped": '<testcase name="c" classname="S" status="run" result="skipped"><skipped message=""/></testcase>',
    "off": '<testcase name="d" classname="S" status="notrun" result="suppressed"/>',
}


class Count(unittest.TestCase):
    def count(self, cases, status="run", report="p.xml"):
        """One program whose report has these cases (None: it left no report)."""
        with tempfile.TemporaryDirectory() as name:
            folder = Path(name)
            entry = f'<testcase name="p" time="1" status="{status}"><system-out>last words</system-out></testcase>'
            (folder / "ctest.xml").write_text(f"<testsuite>{entry if status else ''}</testsuite>")
            if cases is not None:
                body = "".join(CASES[case] for case in cases)
                (folder / "p.xml").write_text(f"<testsuites><testsuite>{body}</testsuite></testsuites>")
            return ctest_results({"p": report}, folder / "ctest.xml", folder)[0]

    def test_cases(self):
        result = self.count(["good", "good", "bad", "skipped", "off"], "fail")
        self.assertEqual((2, 1, [("S.b", "x.cpp:3")]), (result.passed, result.skipped, result.failures))

    def test_what_did_not_end_well_is_a_failure(self):
        for cases, status, report, passed in ((None, "run", "p.xml", 0), (None, "fail", "p.xml", 0),
                                              (["good"], "fail", "p.xml", 1), (["good"], "", "p.xml", 0),
                                              (None, "fail", None, 0), (None, "", None, 0)):
            with self.subTest(cases=cases, status=status, report=report):
                result = self.count(cases, status, report)
                self.assertEqual((passed, 1), (result.passed, len(result.failures)))
        other = self.count(None, "run", None)   # not of GoogleTest: one case
        self.assertEqual((1, []), (other.passed, other.failures))

    def test_a_report_that_is_half_or_missing_fails_its_programs(self):
        with tempfile.TemporaryDirectory() as name:
            folder = Path(name)
            (folder / "ctest.xml").write_text('<testsuite><testcase name="p" status="run"/></testsuite>')
            (folder / "p.xml").write_text("<testsuites><testsuite>" + CASES["good"])
            for report in (folder / "ctest.xml", Path("missing.xml")):
                results = ctest_results({"p": "p.xml", "q": None}, report, folder)
                self.assertEqual([(0, 1), (0, 1)], [(r.passed, len(r.failures)) for r in results])


if __name__ == "__main__":
    unittest.main()
