"""reliability_page.py RESULTS PAGE: writes the page of what a run of the full length has shown, from the results of its test programs
(the figures that tests record), of its checks and of the fuzzing."""

import json
import pathlib
import re
import subprocess
import sys

import test_names

HEAD = """# Reliability

What `./test --long` did and counted when it last passed. It writes this page itself: a row is a test, named by what it shows, with the
figures that it recorded. An arrow stands between what was there before and after.
"""
# What a test's entry in the results holds besides its figures.
NO_FIGURES = {"name", "file", "line", "status", "result", "timestamp", "time", "classname", "value_param", "type_param", "failures"}
# Added up over the parameters of a test; of anything else each value is told once.
COUNTS = {"cycles", "calls", "faults", "frames", "files", "allocations", "loads", "reloads", "threads", "seconds"}
# Topic, and the sources whose tests belong there, figures or none.
TOPICS = (
    ("Memory", r"AllocationFaults|ExtremeSizes|kit/Census"),
    ("Faults", r"^faults/(?!.*Monkey)|Faults(Windows)?Test\.cpp$"),
    ("Hostile input", r"^faults/.*Monkey|Hostile|PlainModel|ReadGltf|ObjMaterials"),
    ("Time", r"^endurance/"),
)
# Which judgements of the checks are told under which heading.
CHECKS = (("Pictures", r"picture|gallery|scene"), ("Binaries", r"binar|export"))


def results_of(folder, program):
    """(suite, name) -> list of entries, one for each parameter, of the tests that ran."""
    found = {}
    for suite in json.loads((folder / f"{program}.json").read_text())["testsuites"]:
        for case in suite["testsuite"]:
            if case.get("result") == "COMPLETED":
                found.setdefault(test_names.without_parameters(suite["name"], case["name"]), []).append(case)
    return found


def figures_of(cases):
    """Name of a figure -> value as text, over all parameters of a test."""
    values = {}
    for case in cases:
        for key, value in case.items():
            if key not in NO_FIGURES:
                values.setdefault(key, []).append(value)
    return {key: merged(key, each) for key, each in values.items()}


def merged(key, values):
    if key in COUNTS and all(str(value).isdigit() for value in values):
        return readable(sum(int(value) for value in values))
    return ", ".join(dict.fromkeys(readable(value) for value in values))


def readable(value):
    return f"{int(value):,}" if re.fullmatch(r"-?\d+", str(value)) else str(value)


def told(figures):
    """The figures in a line: "cycles 10,000; handles 12 → 12"."""
    parts = []
    for key, value in figures.items():
        name = key.replace("_", " ")
        if key.endswith("_before"):
            parts.append(f"{name.removesuffix(' before')} {value} → {figures.get(key.removesuffix('_before') + '_after', '?')}")
        elif not (key.endswith("_after") and key.removesuffix("_after") + "_before" in figures):
            parts.append(f"{name} {value}")
    return "; ".join(parts)


def table(head, rows):
    cells = [[str(cell).replace("|", "\\|") for cell in row] for row in rows]
    return [f"| {' | '.join(head)} |", "|" + "---|" * len(head), *(f"| {' | '.join(row)} |" for row in cells), ""]


def topic_of(source):
    return next((topic for topic, pattern in TOPICS if re.search(pattern, source)), None)


def rows_of(programs, sources, topic):
    """(sentence, where it ran, figures) of each test of the topic; of none, those with figures that belong to no topic."""
    ran = {}
    for program, results in programs.items():
        for names, cases in results.items():
            figures = told(figures_of(cases))
            source = sources.get(names)
            if source and topic_of(source) == topic and (topic or figures):
                ran.setdefault((test_names.sentence(*names), figures), []).append(program)
    return sorted((sentence, ", ".join(where), figures) for (sentence, figures), where in ran.items())


def counted(folder, program):
    report = json.loads((folder / f"{program}.json").read_text())
    skipped = sum(case.get("result") == "SKIPPED" for suite in report["testsuites"] for case in suite["testsuite"])
    return report["tests"] - skipped, skipped, {key: readable(value) for key, value in report.items() if key.startswith("blocks")}


def first_version(*command):
    text = subprocess.run(command, capture_output=True, text=True, check=False).stdout
    found = re.search(r"\d+(\.\d+)*", text)
    return found.group(0) if found else "not installed"


def machine():
    cores = subprocess.run(["nproc"], capture_output=True, text=True, check=True).stdout.strip()
    rows = (
        ("GCC, native", first_version("g++", "-dumpfullversion")),
        ("GCC, MinGW-w64", first_version("x86_64-w64-mingw32-g++-posix", "-dumpversion")),
        ("clang, for the fuzzing", first_version("clang", "--version")),
        ("Wine", first_version("wine", "--version")),
        ("Mesa", first_version("dpkg-query", "-W", "-f", "${Version}", "libgl1-mesa-dri")),
        ("cores", cores),
    )
    return ["## What ran, and on what", "", *table(("", ""), rows)]


def programs_table(folder):
    rows = []
    texts = (
        ("native", "the portable core under the address and undefined-behaviour sanitizers, with a search for leaks"),
        ("windows", "everything, under Wine"),
        ("guarded", "everything under Wine, each block of memory before a page without access"),
    )
    for program, text in texts:
        passed, skipped, figures = counted(folder, program)
        rows.append((program, text, f"{passed:,}", skipped, told(figures)))
    return table(("program", "what it is", "tests", "skipped", "figures"), rows)


def checks_of(folder, pattern):
    lines = (folder / "checks.txt").read_text().splitlines()
    return [line[3:] for line in lines if line.startswith("ok ") and re.search(pattern, line)]


def fuzzing(folder):
    summary = json.loads((folder / "fuzz-summary.json").read_text())
    rows = [(reader, f"{each['inputs']:,}", each["seconds"], each["seeds"]) for reader, each in summary.items()]
    return ["Random changes of good files, guided by what the reader reaches, under the sanitizers; one input may cost 10 seconds and 1 GiB.", "",
            *table(("reader", "inputs", "seconds", "files to begin with"), rows)]


def page(folder):
    programs = {program: results_of(folder, program) for program in ("native", "windows")}
    sources = test_names.tests()
    lines = [HEAD, *machine(), *programs_table(folder)]
    for topic, _ in (*TOPICS, (None, "")):
        rows = rows_of(programs, sources, topic)
        lines += [f"## {topic or 'Other figures'}", "", *table(("test", "program", "figures"), rows)] if rows else []
        if topic == "Hostile input":
            lines += fuzzing(folder)
    for title, pattern in CHECKS:
        lines += [f"## {title}", "", *(f"- {sentence}" for sentence in checks_of(folder, pattern)), ""]
    return "\n".join(lines).rstrip() + "\n"


if __name__ == "__main__":
    pathlib.Path(sys.argv[2]).write_text(page(pathlib.Path(sys.argv[1])))
