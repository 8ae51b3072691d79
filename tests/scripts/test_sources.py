import unittest

from tools import sources

RULES = {"low": (), "high": ("low",), "high/wing": ("low", "high")}


class Layers(unittest.TestCase):
    def test_an_arrow_down_passes(self):
        self.assertEqual(list(sources.arrows_up({"high/A.cpp": ["low/B.h", "high/C.h"]}, RULES)), [])

    def test_an_arrow_up_is_found(self):
        self.assertEqual(list(sources.arrows_up({"low/B.cpp": ["high/A.h"]}, RULES)), ["low/B.cpp includes high/A.h"])

    def test_a_wing_has_rules_of_its_own(self):
        includes = {"high/wing/A.cpp": ["high/B.h"], "high/B.cpp": ["high/wing/A.h"]}
        self.assertEqual(list(sources.arrows_up(includes, RULES)), ["high/B.cpp includes high/wing/A.h"])

    def test_a_folder_without_rules_may_use_everything_and_is_used_by_none_unasked(self):
        includes = {"tests/A.cpp": ["high/B.h"], "high/B.cpp": ["tests/A.h"]}
        self.assertEqual(list(sources.arrows_up(includes, RULES)), ["high/B.cpp includes tests/A.h"])

    def test_headers_are_found_where_they_may_not_be(self):
        includes = {
            "view/A.cpp": ["GL/gl.h", "Windows.h", "detail/B.h"],
            "base/QelGl.h": ["GL/glu.h", "detail/B.h"],
            "gdi/A.h": ["windows.h"],
            "system/QelSystem.h": ["windows.h"],
            "tests/gdi/AWindowsTest.cpp": ["windows.h"],
        }
        found = [list(sources.strays(includes, headers, allowed)) for _, headers, allowed in sources.ONLY_IN]
        windows = ["view/A.cpp includes Windows.h", "gdi/A.h includes windows.h"]
        self.assertEqual(found, [["view/A.cpp includes GL/gl.h"], windows, ["base/QelGl.h includes detail/B.h"]])


class Suites(unittest.TestCase):
    def test_names_of_the_file_and_of_its_headers_pass(self):
        text = "TEST(Motion, Moves) {\nTEST_F(MotionOfADevice, Stops) {\nTEST(Ball, Turns) {\n"
        self.assertEqual(sources.misnamed_suites("tests/view/MotionWindowsTest.cpp", text, ["view/Ball.h"]), [])

    def test_another_name_is_found(self):
        text = "TYPED_TEST(Rings, AreRound) {\n"
        self.assertEqual(sources.misnamed_suites("tests/view/MotionTest.cpp", text, []), ["tests/view/MotionTest.cpp: Rings"])


class Links(unittest.TestCase):
    def found(self, *lines):
        return list(sources.links_up(*sources.read_symbols("\n".join(lines)), RULES))

    def test_a_symbol_of_a_floor_below_passes(self):
        self.assertEqual(self.found("low/B.cpp: f T 0 0", "high/A.cpp: f U         "), [])

    def test_a_symbol_of_a_floor_above_is_found(self):
        self.assertEqual(self.found("high/A.cpp: f T 0 0", "low/B.cpp: f U         "), ["low/B.cpp needs f of high/"])

    def test_a_host_takes_what_the_module_exports_but_keeps_to_its_own_floors(self):
        rules = {"module": (), "examples/low": (), "examples/high": ("examples/low",)}
        lines = ("module/M.cpp: m T 0 0", "examples/high/A.cpp: f T 0 0", "examples/low/B.cpp: m U 0 0", "examples/low/B.cpp: f U 0 0")
        found = list(sources.links_up(*sources.read_symbols("\n".join(lines)), rules))
        self.assertEqual(found, ["examples/low/B.cpp needs f of examples/high/"])

    def test_an_imported_symbol_counts_like_any(self):
        self.assertEqual(self.found("high/A.cpp: f T 0 0", "low/B.cpp: __imp_f U         "), ["low/B.cpp needs f of high/"])

    def test_what_also_the_floor_itself_or_nobody_defines_passes(self):
        lines = ("high/A.cpp: f T 0 0", "low/B.cpp: f U         ", "low/C.cpp: f T 0 0", "low/B.cpp: malloc U         ")
        self.assertEqual(self.found(*lines), [])

    def test_local_symbols_are_nobody_elses(self):
        self.assertEqual(self.found("high/A.cpp: f t 0 0", "low/B.cpp: f U         "), [])


class Texts(unittest.TestCase):
    def found(self, text):
        return [problem for _, pattern, _ in sources.NOWHERE for problem in sources.matches(pattern, "file", text)]

    def test_clean_text_passes(self):
        self.assertEqual(self.found("A part of it, specific and inspected.\n"), [])

    def test_what_no_text_may_hold_is_found_with_its_line(self):
        for text in ("TO" + "DO later", "see iss" + "ue #4", "the speci" + "fication", "/wo" + "rk/x", "int a; "):
            with self.subTest(text):
                self.assertEqual(len(self.found(f"first\n{text}\n")), 1)
                self.assertTrue(self.found(f"first\n{text}\n")[0].startswith("file:2: "))
