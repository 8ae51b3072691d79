import contextlib
import io
import json
import pathlib
import tempfile
import unittest
import unittest.mock

from tools import analysis, bench, coverage, delivery, tree


class Tree(unittest.TestCase):
    def test_a_command_that_fails_tells_its_last_lines(self):
        self.assertEqual(tree.run("sh", "-c", "echo one; echo two >&2; exit 3").problems("it"), ["it: one", "it: two"])
        self.assertEqual(tree.run("true").problems("it"), [])

    def test_a_verdict_stands_until_its_key_changes(self):
        asked = []
        with tempfile.TemporaryDirectory() as folder, unittest.mock.patch.dict("os.environ", QEL_CACHE_DIR=folder):
            for key, problems in (("a", ["wrong"]), ("a", []), ("a", ["not asked"]), ("b", ["wrong"])):
                asked.append(tree.once("kind", key, lambda problems=problems: problems))
        self.assertEqual(asked, [["wrong"], [], [], ["wrong"]])

    def test_a_digest_tells_files_apart_and_where_one_ends(self):
        self.assertNotEqual(tree.digest("ab", "c"), tree.digest("a", "bc"))
        with tempfile.NamedTemporaryFile() as file:
            self.assertEqual(tree.digest(pathlib.Path(file.name)), tree.digest(b""))

    def test_the_closure_has_all_headers_that_are_reached(self):
        with tempfile.TemporaryDirectory() as folder:
            files = {name: pathlib.Path(folder, name) for name in ("a.cpp", "b.h", "c.h", "d.h")}
            for name, text in (("a.cpp", '#include "b.h"\n'), ("b.h", '#include "x/c.h"\n'), ("c.h", '#include "b.h"\n'), ("d.h", "")):
                files[name].write_text(text)
            headers = {name: [path] for name, path in files.items()}
            self.assertEqual(tree.closure(files["a.cpp"], headers), [files["a.cpp"], files["b.h"], files["c.h"]])


class Analysis(unittest.TestCase):
    def test_options_for_clang_lack_launcher_output_and_precompiled_header(self):
        command = "env A=b /usr/bin/ccache /usr/bin/g++ -DX -Winvalid-pch -include /b/cmake_pch.hxx -O1 -o a.o -c /s/a.cpp".split()
        self.assertEqual(analysis.for_clang(command), ["-DX", "-O1"])

    def test_findings_belong_to_their_source(self):
        output = (
            "/usr/bin/clang-tidy -p=x --quiet /s/good.cpp\nclang-tidy -p=x --quiet /s/bad.cpp\n"
            "\x1b[1m/s/bad.h:1:2: \x1b[0;31merror: no [x]\n"
            "clang-tidy -quiet /s/fine.cpp\n"
        )
        self.assertEqual(analysis.failures(output), {"/s/bad.cpp": ["/s/bad.h:1:2: error: no [x]"]})


class Delivery(unittest.TestCase):
    def test_a_dll_that_nobody_brings_along_is_found(self):
        loaded = {"host.exe": ["QelBase64t.dll", "KERNEL32.dll", "libstdc++-6.dll"], "QelBase64t.dll": ["msvcrt.dll"]}
        self.assertEqual(delivery.strangers(loaded), ["host.exe loads libstdc++-6.dll"])

    def test_a_missing_file_and_a_name_in_the_readme_that_is_not_there_are_found(self):
        with tempfile.TemporaryDirectory() as folder:
            prefix = pathlib.Path(folder)
            (prefix / "bin").mkdir()
            (prefix / "bin/there.exe").touch()
            (prefix / "README.md").write_text("`there.exe` and `gone.exe`, `bin/` and `lib/`")
            self.assertEqual(delivery.misnamed(prefix), ["README.md names gone.exe", "README.md names lib/"])
            self.assertIn("bin/QelBase64t.dll is not in the package", delivery.lacking(prefix))
            self.assertNotIn("README.md is not in the package", delivery.lacking(prefix))

    def test_the_version_is_read_from_the_resource(self):
        self.assertEqual(delivery.version_in("FileDescription\n0.0\nFileVersion\n1.2.3\n").group(1), "1.2.3")
        self.assertIsNone(delivery.version_in("nothing\n"))


class Bench(unittest.TestCase):
    @staticmethod
    def operation(name, low, high, own):
        return {"name": name, "ratio": {"median": (low + high) / 2, "low": low, "high": high}, "own_ns": own}

    def test_what_changed_by_more_than_it_scatters_is_told_and_the_slower_first(self):
        old = [self.operation(*row) for row in (("a", 1, 1.02, 50), ("b", 1, 1.02, 50), ("c", 1.05, 1.07, 50), ("gone", 1, 2, 3))]
        new = [self.operation(*row) for row in (("a", 1.03, 1.05, 50), ("b", 1.01, 1.03, 80), ("c", 1.01, 1.03, 51), ("new", 1, 2, 3))]
        expected = [
            "slower: b: own cost 50.0 ns -> 80.0 ns",
            "slower: a: ratio 1.010 -> 1.040",
            "faster: c: ratio 1.060 -> 1.020",
            "2 slower, 1 faster, of 3 operations in both",
        ]
        self.assertEqual(bench.changes({"operations": old}, {"operations": new}), expected)

    def test_times_have_three_digits_and_a_unit(self):
        texts = [bench.time_text(value) for value in (1.234, 45.67, 999, 1234, 5.6e7)]
        self.assertEqual(texts, ["1.23 ns", "45.7 ns", "999 ns", "1.23 us", "56.0 ms"])

    def test_a_page_without_marks_is_refused(self):
        with self.assertRaises(ValueError):
            bench.with_measured("no marks", {})


class Coverage(unittest.TestCase):
    def test_a_line_without_a_reason_and_a_reason_without_a_line_are_found(self):
        reasons = coverage.read_reasons("# comment\n== A reason\nf.cpp: a();\n\n== By chance, now and then\nf.cpp: b();\n")
        self.assertEqual(list(coverage.unexplained([("f.cpp", 1, "a();")], reasons, lambda *_: True)), [])
        self.assertEqual(len(list(coverage.unexplained([("f.cpp", 1, "a();"), ("f.cpp", 2, "c();")], reasons, lambda *_: True))), 1)
        self.assertEqual(len(list(coverage.unexplained([], reasons, lambda *_: True))), 1)
        self.assertEqual(len(list(coverage.unexplained([("f.cpp", 1, "a();")], reasons, lambda *_: False))), 1)

    def test_lines_that_are_not_reached_are_named_without_what_is_no_code(self):
        lines = [{"line_number": n, "count": n - 1, "gcovr/noncode": False} for n in (1, 2)] + [
            {"line_number": 3, "count": 0, "gcovr/noncode": True}
        ]
        first = (tree.ROOT / "README.md").read_text().splitlines()[0]
        self.assertEqual(list(coverage.not_reached([{"file": "README.md", "lines": lines}])), [("README.md", 1, first)])

    def test_a_folder_below_the_bound_or_without_a_line_is_found(self):
        for reached, wrong in ((99, False), (98, True), (0, True)):
            with self.subTest(reached), tempfile.TemporaryDirectory() as folder:
                counts = pathlib.Path(folder, "counts.json")
                plain = {"branches": [], "gcovr/noncode": False, "gcovr/excluded": False}
                lines = [{"line_number": n, "count": int(n <= reached), **plain} for n in range(1, 101)]
                files = [{"file": "base/Enve3d.cpp", "lines": lines, "functions": []}] if reached else []
                counts.write_text(json.dumps({"gcovr/format_version": "0.3", "files": files}))
                with unittest.mock.patch.object(coverage, "COUNTS", counts), contextlib.redirect_stdout(io.StringIO()):
                    self.assertEqual(bool(coverage.judged("base")), wrong)
