"""Checks that run an analyser: clang-tidy for C++, shellcheck and flake8 for the scripts, and the scripts' own tests."""

import json
import re
import unittest

from tools import tree

# The tests are half of all files and take half an hour.
FOLDERS = tuple(f"{folder}/" for folder in tree.CODE_FOLDERS if folder != "tests")
# clang makes "noreturn" of the C runtime's functions a part of their types, which the table of traced functions does not have.
EXCEPT = ("tests/kit/CallHooksWindows.cpp",)
# The build's compiler has warnings that clang does not know.
COMMON = ("-Wno-unknown-warning-option", "-Wno-ignored-optimization-argument", "-Wno-format-nonliteral")
DATABASE = tree.ROOT / "build/tidy/compile_commands.json"


def mingw_includes():
    """clang options with the cross compiler's C++ and system headers, and clang's own compiler headers."""
    asked = tree.run("x86_64-w64-mingw32-g++-posix", "-E", "-x", "c++", "-v", "-", input="").output
    listed = re.search(r"<\.\.\.> search starts here:\n(.*?)End of search", asked, re.DOTALL).group(1)
    folders = [line.strip() for line in listed.splitlines() if not re.search(r"/lib/gcc/[^/]+/[^/]+/include(-fixed)?$", line)]
    folders.append(tree.run("clang++", "-print-resource-dir").output.strip() + "/include")
    return ("--target=x86_64-w64-windows-gnu", "-nostdinc", "-nostdinc++", *(word for folder in folders for word in ("-isystem", folder)))


def for_clang(command):
    """The options of a compiler's command, without its launcher, output and precompiled header, which clang cannot read."""
    text = "\0".join(command)
    text = re.sub(r"^.*?\0?[^\0]*(g\+\+|gcc)(-posix)?\0", "", text)
    text = re.sub(r"(^|\0)-(o\0[^\0]*|Winvalid-pch|include\0[^\0]*/cmake_pch[^\0]*|c\0[^\0]*)(?=\0|$)", "", text)
    return [word for word in text.split("\0") if word]


def jobs(wanted):
    """Source -> (clang's options, key of a verdict) of all sources whose names begin with one of those wanted: portable sources as the
    native build compiles them, the others as the Windows build does."""
    native = tree.compile_commands("native")
    windows = {path: command for path, command in tree.compile_commands("windows").items() if path not in native}
    headers = {}
    for path in tree.code(".h", ".def"):
        headers.setdefault(path.name, []).append(path)
    version = tree.run("clang-tidy", "--version").output
    configurations = [path.read_bytes() for path in (tree.ROOT / ".clang-tidy", tree.ROOT / "tests/.clang-tidy")]
    found = {}
    for commands, further in ((native, ()), (windows, mingw_includes())):
        for source, command in commands.items():
            if tree.name(source).startswith(wanted) and tree.name(source) not in EXCEPT:
                options = [*for_clang(command), *COMMON, *further]
                names = [word.replace(str(tree.ROOT), "") for word in options]
                reached = [part for path in tree.closure(source, headers) for part in (tree.name(path), path)]
                found[source] = options, tree.digest(version, *configurations, *names, *reached)
    return found


def failures(output):
    """Source -> problem lines in the output of run-clang-tidy, which starts each source with its command."""
    plain = re.sub(r"\x1b\[[\d;]*m", "", output)
    parts = re.split(r"^\S*clang-tidy\S* .*?(\S+)$", plain, flags=re.MULTILINE)
    found = {source: re.findall(r"^.*(?:warning|error): .*$", output, re.MULTILINE) for source, output in zip(parts[1::2], parts[2::2])}
    return {source: lines for source, lines in found.items() if lines}


def analyse(sources):
    """The problems of sources (as from `jobs`); sources without problems are skipped until something they include changes."""
    DATABASE.parent.mkdir(parents=True, exist_ok=True)
    entries = [(str(path), ["clang++", *options, "-c", str(path)]) for path, (options, _) in sources.items()]
    DATABASE.write_text(json.dumps([{"directory": str(tree.ROOT), "file": path, "arguments": words} for path, words in entries]))
    result = tree.run("run-clang-tidy", "-quiet", "-p", DATABASE.parent, seconds=5400)
    wrong = failures(result.output)
    if result.code != 0 and not wrong:
        return result.problems("run-clang-tidy")
    for path, (_, key) in sources.items():
        if str(path) not in wrong:
            tree.verdict("tidy", key).touch()
    return sorted({line.replace(f"{tree.ROOT}/", "") for lines in wrong.values() for line in lines})


def check_tidy(wanted=FOLDERS, whole=False):
    """Checks the sources that changed since they last passed; skipped if the whole has never passed."""
    found = jobs(wanted)
    passed = tree.verdict("tidy", "whole")
    changed = {source: job for source, job in found.items() if not tree.verdict("tidy", job[1]).exists()}
    if not found:
        tree.report("clang-tidy finds no problem", ["there is no build to read the commands from"])
    elif not whole and not passed.exists():
        print("skipped clang-tidy: run scripts/check tidy-whole once")
    else:
        problems = analyse(changed) if changed else []
        tree.report(f"clang-tidy finds no problem in {len(changed)} sources that changed since they last passed", problems)
        if whole and not problems:
            passed.touch()


def check_tidy_whole():
    check_tidy(whole=True)


def check_tidy_tests():
    check_tidy(wanted=("tests/",), whole=True)


def check_headers():
    """Each header compiles alone: portable ones natively, the others for Windows."""
    problems = []
    for preset in ("native", "windows"):
        result = tree.run("cmake", "--build", tree.ROOT / "build" / preset, "--target", "all_verify_interface_header_sets", seconds=1800)
        problems += [line for line in result.output.splitlines() if "error" in line][:20] or result.problems(preset)
    tree.report("every header compiles alone", problems)


def scripts():
    """(shell scripts, Python files)"""
    places = [tree.ROOT / "run", tree.ROOT / "test", tree.ROOT / ".ci/run"]
    files = [path for path in places + sorted((tree.ROOT / "scripts").rglob("*")) if path.is_file() and path.suffix in ("", ".sh", ".py")]
    first = {path: path.read_text(errors="replace").partition("\n")[0] for path in files}
    shell = [path for path in files if path.suffix == ".sh" or "bash" in first[path]]
    python = [path for path in files if path.suffix == ".py" or "python3" in first[path]]
    return shell, python + sorted((tree.ROOT / "tests/scripts").glob("*.py"))


class Told(unittest.TestResult):
    """Reports each test like a check."""

    def addSuccess(self, test):
        tree.report(self.sentence(test), [])

    def addError(self, test, err):
        tree.report(self.sentence(test), self._exc_info_to_string(err, test).splitlines())

    addFailure = addError

    def addSubTest(self, test, subtest, err):
        if err:
            self.addError(subtest, err)

    @staticmethod
    def sentence(test):
        return "the scripts: " + re.sub(r"^.*\.test_", "", test.id()).replace("_", " ")


def check_scripts():
    shell, python = scripts()
    tree.report("shellcheck finds no problem", tree.run("shellcheck", "-f", "gcc", *shell).output.splitlines())
    tree.report("flake8 finds no problem", tree.run("flake8", *python).output.splitlines())
    unittest.TestLoader().discover(str(tree.ROOT / "tests/scripts")).run(Told())
