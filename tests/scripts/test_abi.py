import pathlib
import tempfile
import unittest

from tools import abi, tree

SLOTS = "# comment\nIA 0 destructor\nIA 1 first\nIA 2 second\n"
DUMP = """VFTable for 'IA' (4 entries).
   0 | IA RTTI
   1 | IA::~IA() [scalar deleting]
   2 | void IA::first()
   3 | void IA::second()
VFTable for 'IA' in 'Probe_IA' (2 entries).
   0 | Probe_IA RTTI
   1 | void Probe_IA::other()
"""


class Slots(unittest.TestCase):
    def differences(self, dump):
        return list(abi.slot_differences(abi.expected_slots(SLOTS), abi.compiled_slots(dump)))

    def test_the_table_that_is_wanted_passes(self):
        self.assertEqual(self.differences(DUMP), [])

    def test_two_swapped_operations_are_found(self):
        swapped = DUMP.replace("first", "x").replace("second", "first").replace("x", "second")
        self.assertEqual(self.differences(swapped), ["IA slot 1: first expected, second found", "IA slot 2: second expected, first found"])

    def test_an_operation_too_few_or_too_many_is_found(self):
        self.assertEqual(self.differences(DUMP.replace("   3 | void IA::second()\n", "")), ["IA slot 2: second expected, nothing found"])
        longer = DUMP.replace("second()\n", "second()\n   4 | void IA::third()\n", 1)
        self.assertEqual(self.differences(longer), ["IA slot 3: nothing expected, third found"])

    def test_a_table_out_of_order_is_refused(self):
        with self.assertRaises(ValueError):
            abi.expected_slots("IA 1 first\n")


class Binaries(unittest.TestCase):
    """A small DLL, made by the real compiler and looked at by the real objdump."""

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name)
        source = "namespace qel { struct __declspec(dllexport) Shown { Shown(); }; Shown::Shown() {} }"
        compiler = ("x86_64-w64-mingw32-g++-posix", "-shared", "-nostdlib", "-Wl,-e,0", "-x", "c++", "-")
        for name, option in (("open.dll", "-Wl,--disable-dynamicbase"), ("sound.dll", "-Wl,--dynamicbase")):
            tree.run(*compiler, option, "-o", cls.folder / name, input=source)
        with_writable_text = ("x86_64-w64-mingw32-objcopy", "--set-section-flags", ".text=alloc,code,data")
        tree.run(*with_writable_text, cls.folder / "sound.dll", cls.folder / "w.dll")

    def headers(self, name):
        return tree.run("x86_64-w64-mingw32-objdump", "-p", "-h", self.folder / name).output

    def test_protections_are_seen(self):
        self.assertEqual(abi.protection_problems(self.headers("sound.dll")), [])

    def test_a_fixed_base_address_is_found(self):
        self.assertIn("lacks DYNAMIC_BASE", abi.protection_problems(self.headers("open.dll")))

    def test_a_section_that_is_writable_and_executable_is_found(self):
        self.assertEqual(abi.protection_problems(self.headers("w.dll")), ["section .text is writable and executable"])

    def test_exports_are_read(self):
        self.assertIn("_ZN3qel5ShownC1Ev", abi.exported(self.headers("sound.dll")))

    def test_exports_that_no_header_declares_are_found(self):
        allowed = abi.declared("QEL_API", ["class QEL_API Shown {};\nQEL_API bool isShown(int);\n"])
        self.assertEqual(allowed, {"Shown", "isShown"})
        names = ["qel::Shown::Shown()", "vtable for qel::Shown", "qel::isShown(int)", "qel::hidden(int)"]
        self.assertEqual(list(abi.undeclared(names, allowed)), ["exports qel::hidden(int)"])
