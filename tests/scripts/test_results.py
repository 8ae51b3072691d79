import contextlib
import io
import json
import pathlib
import tempfile
import unittest
import xml.sax.saxutils

from tools import results

GOOD = {"name": "Works", "status": "RUN", "result": "COMPLETED"}
BAD = {**GOOD, "name": "Fails", "failures": [{"failure": "1 is not 2"}]}
SKIPPED = {**GOOD, "name": "Lacks", "result": "SKIPPED"}
DISABLED = {**GOOD, "name": "DISABLED_Other", "status": "NOTRUN", "result": "SUPPRESSED"}


def summed(entries, groups=None):
    """(exit code, printed lines) for entries (name, status, output) and the reports of groups."""
    with tempfile.TemporaryDirectory() as folder:
        for name, cases in (groups or {}).items():
            report = {"testsuites": [{"name": "Suite", "testsuite": cases}]}
            pathlib.Path(folder, f"{name}.json").write_text(json.dumps(report))
        if entries is not None:
            cases = (
                f'<testcase name="{name}" status="{status}"><system-out>{xml.sax.saxutils.escape(output)}</system-out></testcase>'
                for name, status, output in entries
            )
            pathlib.Path(folder, "ctest.xml").write_text(f"<testsuite>{''.join(cases)}</testsuite>")
        output = io.StringIO()
        with contextlib.redirect_stdout(output):
            code = results.add_up(pathlib.Path(folder))
    return code, output.getvalue().splitlines()


class Results(unittest.TestCase):
    def test_cases_and_judgements_are_added_up(self):
        entries = [("native", "run", ""), ("long.windows", "run", ""), ("check.texts", "run", "ok one\nskipped two\n")]
        groups = {"native": [GOOD, SKIPPED, DISABLED], "windows": [GOOD]}
        self.assertEqual(summed(entries, groups), (0, ["3 passed, 0 failed, 3 skipped"]))

    def test_what_failed_is_named(self):
        entries = [("native", "fail", ""), ("check.texts", "fail", "not ok a line is long\n    there\n")]
        code, lines = summed(entries, {"native": [GOOD, BAD]})
        self.assertEqual((code, lines[-1]), (1, "1 passed, 2 failed, 0 skipped"))
        for line in ("1 is not 2", "FAILED  native: Suite.Fails", "    there", "FAILED  a line is long"):
            self.assertIn(line, lines)

    def test_a_group_that_crashed_or_hung_has_failed(self):
        log = "[ RUN      ] A.One\n[       OK ] A.One (1 ms)\n[ RUN      ] A.Two\n"
        code, lines = summed([("windows.1", "fail", log)])
        self.assertEqual(code, 1)
        self.assertEqual(lines[-2:], ["FAILED  windows.1: crashed or timed out, last in A.Two", "1 passed, 1 failed, 0 skipped"])

    def test_a_group_that_ends_with_an_error_has_failed_though_all_its_cases_passed(self):
        code, lines = summed([("native", "fail", "LeakSanitizer")], {"native": [GOOD]})
        self.assertEqual((code, lines[-1]), (1, "1 passed, 1 failed, 0 skipped"))

    def test_a_check_that_looks_at_nothing_or_ends_with_an_error_has_failed(self):
        for status, output in (("run", "hello\n"), ("fail", "ok one\n")):
            self.assertEqual(summed([("check.texts", status, output)])[0], 1)

    def test_nothing_at_all_has_failed(self):
        for entries, skipped in ((None, 0), ([], 0), ([("native", "run", "")], 1)):
            code, lines = summed(entries, {"native": [DISABLED]})
            self.assertEqual((code, lines[-1]), (1, f"0 passed, 1 failed, {skipped} skipped"))
