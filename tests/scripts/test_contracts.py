import pathlib
import tempfile
import unittest

from tools import contracts

HEADER = """#pragma once
/// {interface}
class Tool {{
  public:
    /// {operation}
    {declaration};
}};
"""


class Contracts(unittest.TestCase):
    def gaps(self, operation, declaration, interface="A tool.", setters=()):
        with tempfile.TemporaryDirectory() as folder:
            header = pathlib.Path(folder) / "Tool.h"
            header.write_text(HEADER.format(operation=operation, declaration=declaration, interface=interface))
            return list(contracts.gaps(contracts.read_operations(f"INPUT = {header}\n"), setters))

    def test_a_status_needs_a_word_on_its_values(self):
        missing = ["f returns int and does not say what"]
        self.assertEqual(self.gaps("Opens a draw bracket.", "virtual int f() = 0"), missing)
        self.assertEqual(self.gaps("Opens a draw bracket. Returns 1.", "virtual int f() = 0"), [])
        self.assertEqual(self.gaps("Opens a bracket.\n    /// @return 1; -1 for null.", "virtual int f(int* x) = 0"), [])

    def test_a_setter_is_described_by_its_result_too(self):
        missing = ["setSize returns std::int32_t and does not say what"]
        declaration = "virtual std::int32_t setSize(float size) = 0"
        self.assertEqual(self.gaps("The size in pixels.", declaration), missing)
        self.assertEqual(self.gaps("The size in pixels. The setter returns 0.", declaration), [])

    def test_an_interface_may_say_it_once_for_all_its_operations(self):
        top = "A tool.\n///\n/// - Results: every operation returns 0.\n/// - State: every operation restores it."
        self.assertEqual(self.gaps("Draws a line.", "virtual bool draw(int x) = 0", top, {"draw"}), [])

    def test_a_value_is_its_own_result(self):
        for described in ("The radius in model units.", "Number of rings.", "True if it is empty.", "Pixels per unit."):
            self.assertEqual(self.gaps(described, "virtual int f() = 0"), [], described)
        self.assertEqual(self.gaps("Creates a thing.", "Tool* f()"), ["f returns Tool * and does not say what"])

    def test_no_result_needs_no_word(self):
        self.assertEqual(self.gaps("Shows the rings.", "void f(bool show)"), [])

    def test_what_sets_opengl_state_needs_a_word_on_what_it_leaves(self):
        declaration = "virtual void draw() = 0"
        missing = ["draw sets OpenGL state and does not say what it leaves"]
        self.assertEqual(self.gaps("Draws a line.", declaration, setters={"draw"}), missing)
        self.assertEqual(self.gaps("Draws a line. Leaves the colour red.", declaration, setters={"draw"}), [])

    def test_state_setters_are_found_in_sources(self):
        source = "void Tool::reads() {\n    glGetIntegerv(GL_VIEWPORT, v);\n}\n\nint Tool::sets(int x) {\n    glLineWidth(2.0F);\n}\n"
        self.assertEqual(contracts.state_setters([source]), {"sets"})

    def test_the_headers_have_operations(self):
        names = {operation.name for operation in contracts.read_operations()}
        self.assertLessEqual({"newScreenDisplay", "drawMesh", "isPntInFront", "SetBox", "pickModelPnt"}, names)
