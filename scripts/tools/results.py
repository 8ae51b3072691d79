"""Adds up ctest's results, from its report (ctest.xml) and those of the groups of test cases (NAME.json): prints what failed and ends with
the line "N passed, N failed, N skipped", counting test cases and the lines of checks."""

import json
import re
import xml.etree.ElementTree


class Sum:
    def __init__(self):
        self.passed = 0
        self.failed = 0
        self.skipped = 0

    def fail(self, text):
        self.failed += 1
        print(f"FAILED  {text}")


def add_group(total, name, passed, report, log):
    """A group of test cases: from its report, or from its output if it crashed before writing one."""
    if not report.exists():
        add_crashed(total, name, log)
        return
    failed_before = total.failed
    for suite in json.loads(report.read_text())["testsuites"]:
        for case in suite["testsuite"]:
            add_case(total, f"{name}: {suite['name']}.{case['name']}", case)
    if not passed and total.failed == failed_before:
        print(log[-4000:])
        total.fail(f"{name}: no case failed, but the program ended with an error")


def add_case(total, title, case):
    if case.get("result") == "SKIPPED" or case.get("status") == "NOTRUN":
        total.skipped += 1
    elif case.get("failures"):
        for failure in case["failures"]:
            print(failure["failure"])
        total.fail(title)
    else:
        total.passed += 1


def add_crashed(total, name, log):
    total.passed += len(re.findall(r"^\[ +OK \] ", log, re.MULTILINE))
    total.skipped += len(re.findall(r"^\[ +SKIPPED \] .*\(\d+ ms\)", log, re.MULTILINE))
    for title in re.findall(r"^\[ +FAILED +\] (\S+) \(\d+ ms\)", log, re.MULTILINE):
        total.fail(f"{name}: {title}")
    print(log[-4000:])
    begun = re.findall(r"^\[ RUN +\] (\S+)", log, re.MULTILINE)
    total.fail(f"{name}: crashed or timed out, last in {begun[-1] if begun else 'its start'}")


def add_check(total, name, passed, log):
    """A check prints "ok SENTENCE", "skipped SENTENCE" or "not ok SENTENCE" for each thing it checked."""
    judgements = re.findall(r"^(ok|skipped|not ok) (.*)", log, re.MULTILINE)
    problems = [sentence for judgement, sentence in judgements if judgement == "not ok"]
    total.passed += sum(judgement == "ok" for judgement, _ in judgements)
    total.skipped += sum(judgement == "skipped" for judgement, _ in judgements)
    if problems or not passed or not judgements:
        print(log[-4000:])
    for sentence in problems:
        total.fail(sentence)
    if not problems and not passed:
        total.fail(f"{name} ended with an error")
    elif not judgements:
        total.fail(f"{name}: nothing was checked")


def add_up(folder):
    """The exit code: 1 when anything failed, crashed, hung or did not run at all."""
    total = Sum()
    report = folder / "ctest.xml"
    entries = xml.etree.ElementTree.parse(report).getroot().iter("testcase") if report.exists() else ()
    for entry in entries:
        name, log, passed = entry.get("name"), entry.findtext("system-out") or "", entry.get("status") == "run"
        if name.startswith("check."):
            add_check(total, name, passed, log)
        else:
            add_group(total, name, passed, folder / f"{name.removeprefix('long.')}.json", log)
    if total.passed + total.failed == 0:
        total.fail("no test ran")
    print(f"{total.passed} passed, {total.failed} failed, {total.skipped} skipped")
    return 1 if total.failed else 0
