import unittest

from tools import microsoft

NATVIS = """<AutoVisualizer xmlns="http://schemas.microsoft.com/vstudio/debugger/natvis/2010">
  <Type Name="qel::Box&lt;*&gt;">
    <DisplayString Condition="low &gt; high">nothing</DisplayString>
    <DisplayString>{low} to {high}</DisplayString>
    <Expand><Item Name="[all]">values</Item></Expand>
  </Type>
</AutoVisualizer>"""


class Names(unittest.TestCase):
    def test_both_compilers_name_a_function_alike(self):
        cases = {
            "qel::XPnt3d::normalize()": "qel::XPnt3d::normalize",
            "public: class qel::XPnt3d & __cdecl qel::XPnt3d::normalize(void)": "qel::XPnt3d::normalize",
            "qel::Enve3d::~Enve3d()": "qel::Enve3d::~Enve3d",
            "ITask::operator=(ITask const&)": "ITask::operator=",
            "public: class ITask & __cdecl ITask::operator=(class ITask const &)": "ITask::operator=",
            "getPubSymbol": "getPubSymbol",
        }
        for readable, name in cases.items():
            with self.subTest(readable):
                self.assertEqual(microsoft.bare(readable), name)


class Views(unittest.TestCase):
    def found(self, header):
        return list(microsoft.unknown_fields(NATVIS, {"Box": header}.get))

    def test_fields_of_the_header_pass(self):
        self.assertEqual(self.found("struct Box { double low, high, values[4]; };"), [])

    def test_a_field_that_is_gone_is_found(self):
        self.assertEqual(self.found("struct Box { double low, values[4]; };"), ["Box has no high"])

    def test_a_class_that_is_gone_is_found(self):
        self.assertEqual(self.found(None), ["Box is in no header"])

    def test_the_views_of_the_project_name_what_its_headers_have(self):
        self.assertEqual(list(microsoft.unknown_fields(microsoft.NATVIS.read_text(), microsoft.header_of)), [])
