import tempfile
import unittest

from tools import documents, tree

README = tree.ROOT / "README.md"


class Documents(unittest.TestCase):
    def test_a_dead_link_and_a_missing_heading_are_found(self):
        text = "[a](docs/no-such-file.md) [b](docs/host-guide.md#no-such-heading) [c](LICENSE) [d](https://example.org)"
        expected = ["link to docs/no-such-file.md", "link to docs/host-guide.md#no-such-heading: no such heading"]
        self.assertEqual(list(documents.dead_links(README, text)), expected)

    def test_quoted_files_and_names_that_do_not_exist_are_found(self):
        text = "`include/NoSuchHeader.h`, `getNoSuch" + "Thing()`, `include/QelDisplay64t.h`, `newScreenDisplay`, `two words`"
        expected = ["`include/NoSuchHeader.h`: no such file", "`getNoSuch" + "Thing()`: no such name"]
        self.assertEqual(list(documents.unknown_quotes(README, text)), expected)

    def test_commands_presets_and_checks_that_do_not_exist_are_found(self):
        text = "    ./no-such-command\n    ./run\n    cmake --preset nowhere\n    cmake --preset native\n"
        text += "    scripts/check nothing texts  # scripts/check --list\n"
        expected = ["./no-such-command: no such command", "no preset nowhere", "no check nothing"]
        self.assertEqual(list(documents.wrong_commands(README, text)), expected)

    def test_a_filter_of_a_program_that_is_not_there_is_found(self):
        text = "    build/none/bin/qel_tests --gtest_filter='Some.*'\n"
        self.assertEqual(list(documents.empty_filters(README, text)), ["build/none/bin/qel_tests was not built"])

    def test_a_filter_that_names_no_test_is_found(self):
        with tempfile.TemporaryDirectory(dir=tree.ROOT / "build") as folder:
            program = f"{tree.name(tree.ROOT / folder)}/qel_tests"
            lists = tree.ROOT / program
            lists.write_text('#!/bin/sh\ncase $1 in *Known*) printf "Known.\\n  Test\\n" ;; esac\n')
            lists.chmod(0o755)
            text = f"    {program} --gtest_filter='Known.*'\n    {program} --gtest_filter=Unknown.*\n"
            self.assertEqual(list(documents.empty_filters(README, text)), [f"{program} has no test 'Unknown.*'"])

    def test_code_that_does_not_compile_is_found(self):
        self.assertIn("noSuchThing", "".join(documents.compile_problems("made on purpose", "int f() { return noSuchThing(); }\n")))

    def test_a_name_that_is_not_documented_is_found(self):
        with tempfile.NamedTemporaryFile("w", suffix=".h") as header:
            header.write("#pragma once\n/// Documented.\nstruct Documented {\n    int undocumented;\n};\n")
            header.flush()
            problems = documents.reference(f"INPUT = {header.name}\nGENERATE_HTML = NO\n")
        self.assertEqual(problems[0], "1 names are not documented")
