"""coverage: counts which lines and branches of the portable folders the native tests reach, and prints "ok SENTENCE" or "not ok SENTENCE"
for each check. out/coverage/index.html shows each line.

A line that no test can reach needs a reason in scripts/coverage-reasons.txt: a line "== REASON", then a line "FILE: TEXT" for each such
line of code, where TEXT is the code itself, so that it stays valid when lines move. A REASON that begins with "By chance" is for lines that
some runs reach and others do not."""

import json
import os
import re
import sys

from tools import tree

LEAST_PERCENT_OF_LINES = "99"
FOLDERS = ("base", "include", "view", "symbol", "transform", "module")
BUILD = tree.ROOT / "build/coverage"
COUNTS = BUILD / "counts.json"
REASONS = tree.ROOT / "scripts/coverage-reasons.txt"
SHOWN = tree.ROOT / "out/coverage"


def judged(folder):
    """Prints what gcovr counted in a folder; returns problems if that is too little."""
    which = ("--root", tree.ROOT, "--filter", f"{tree.ROOT}/{folder}/", "--add-tracefile", COUNTS)
    options = ("--exclude-throw-branches", "--fail-under-line", LEAST_PERCENT_OF_LINES, "--print-summary")
    result = tree.run("gcovr", *which, *options, "--txt", COUNTS.with_suffix(".txt"))
    figures = ", ".join(re.findall(r"^((?:lines|branches): .*)$", result.output, re.MULTILINE))
    print(f"   {folder}: {figures}")
    return [f"{folder}: {figures or result.output}"] if result.code else []


def not_reached(files):
    """(file, number, text) of each line of code that no test reaches."""
    for file in sorted(files, key=lambda each: each["file"]):
        texts = (tree.ROOT / file["file"]).read_text().splitlines()
        for line in file["lines"]:
            if line["count"] == 0 and not line["gcovr/noncode"]:
                yield file["file"], line["line_number"], texts[line["line_number"] - 1].strip()


def read_reasons(text):
    """(file, text) -> reason."""
    reasons, reason = {}, None
    for line in text.splitlines():
        if line.startswith("== "):
            reason = line[3:].strip()
        elif line.strip() and not line.startswith("#"):
            file, _, code = line.partition(": ")
            reasons[(file.strip(), code.strip())] = reason
    return reasons


def unexplained(missing, reasons, is_there):
    """Lines without a reason, and reasons without a line. `is_there(file, text)`: whether such a line exists."""
    keys = {(file, text) for file, _, text in missing}
    for file, number, text in missing:
        if not reasons.get((file, text)):
            yield f"{file}:{number}: not reached, and no reason is given: {text}"
    for (file, text), reason in reasons.items():
        if (file, text) not in keys and not (reason and reason.startswith("By chance") and is_there(file, text)):
            yield f"{REASONS.name}: '{file}: {text}' is reached or does not exist"


def is_there(file, text):
    path = tree.ROOT / file
    return path.exists() and text in map(str.strip, path.read_text().splitlines())


def not_counted(files):
    """Compiled sources of the folders that gcovr has not counted."""
    seen = {file["file"] for file in files}
    for path in tree.compile_commands("coverage"):
        if tree.name(path).split("/")[0] in FOLDERS and tree.name(path) not in seen:
            if "{" in re.sub(r"^namespace.*$", "", path.read_text(), flags=re.MULTILINE):
                yield f"{tree.name(path)} was not counted"


def judge(files):
    low = [problem for folder in FOLDERS for problem in judged(folder)]
    sentence = f"the tests reach at least {LEAST_PERCENT_OF_LINES} % of the lines of every portable folder"
    tree.report(sentence, [*low, *not_counted(files)])
    reasons = read_reasons(REASONS.read_text())
    tree.report("every line that no test reaches has a reason", unexplained(list(not_reached(files)), reasons, is_there))


def main():
    if len(sys.argv) > 1:
        sys.exit(__doc__)
    tree.build("coverage", "qel_tests")
    # Earlier runs must not count.
    for path in BUILD.rglob("*.gcda"):
        path.unlink()
    environment = {name: value for name, value in os.environ.items() if name != "QEL_LONG_TESTS"}
    tests = tree.run(BUILD / "bin/qel_tests", "--gtest_brief=1", cwd=BUILD, env=environment, seconds=1800)
    tree.report("the native tests pass while they are counted", tests.problems("qel_tests"))
    SHOWN.mkdir(parents=True, exist_ok=True)
    # One process, since two overwrite each other's files; in the build tree, where an interruption leaves them.
    added = tree.run(
        "gcovr", "-j", "1", "--root", tree.ROOT, "--filter", f"{tree.ROOT}/({'|'.join(FOLDERS)})/",
        # The reserved slots in interface headers are for hosts.
        "--exclude", f"{tree.ROOT}/include/.*[.]h", "--json", COUNTS,
        "--html-details", SHOWN / "index.html", BUILD, cwd=BUILD, seconds=900
    )
    if added.code != 0:
        tree.report("gcovr adds up the counts", added.problems("gcovr"))
    else:
        judge(json.loads(COUNTS.read_text())["files"])
    return 1 if tree.report.failed else 0
