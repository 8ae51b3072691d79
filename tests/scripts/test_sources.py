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

    def test_the_headers_of_opengl_and_windows_are_found_where_they_may_not_be(self):
        includes = {"view/A.cpp": ["GL/gl.h", "Windows.h"], "base/QelGl.h": ["GL/glu.h"], "tests/gdi/AWindowsTest.cpp": ["windows.h"]}
        found = [list(sources.strays(includes, headers, allowed)) for _, headers, allowed in sources.ONLY_IN]
        self.assertEqual(found, [["view/A.cpp includes GL/gl.h"], ["view/A.cpp includes Windows.h"]])


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
