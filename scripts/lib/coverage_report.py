"""coverage_report.py COUNTS SUMMARY: judges what gcovr counted (its JSON): prints tables and one line "ok ..." or "not ok ..." for each
judgement, and writes the figures and the lines that are not reached, with their reasons, to SUMMARY.

The reasons stand in scripts/coverage-reasons.txt: a line "== REASON", then a line "FILE: TEXT" for each line of code that it is for,
where TEXT is the code itself, so that a reason stays with its line when others move. A REASON that begins with "By chance" is for lines
that may be reached or not from run to run."""

import json
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "scripts" / "checks"))
import tree  # noqa: E402

LEAST_PERCENT_OF_LINES = 97.0
FOLDERS = ("base", "view", "symbol", "transform", "module")
BY_CHANCE = "By chance"
REASONS = ROOT / "scripts" / "coverage-reasons.txt"


def folders_of(counts):
    """Folder -> [lines, reached lines, branches, taken branches]."""
    table = {folder: [0, 0, 0, 0] for folder in FOLDERS}
    for file in counts["files"]:
        row = table[file["file"].split("/")[0]]
        for line in code_lines(file):
            row[0] += 1
            row[1] += line["count"] > 0
            row[2] += len(branches_of(line))
            row[3] += sum(branch["count"] > 0 for branch in branches_of(line))
    return table


def code_lines(file):
    return [line for line in file["lines"] if not line["gcovr/noncode"]]


def branches_of(line):
    """Without those of exceptions, which the compiler adds to every call."""
    return [branch for branch in line["branches"] if not branch["throw"]]


def not_reached(counts, wanted):
    """(file, number, text) of each line that `wanted` holds for."""
    for file in sorted(counts["files"], key=lambda each: each["file"]):
        texts = (ROOT / file["file"]).read_text().splitlines()
        for line in code_lines(file):
            if wanted(line):
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


def unexplained(missing, reasons):
    """What is wrong between the lines that are not reached and the reasons."""
    keys = {(file, text) for file, _, text in missing}
    problems = [f"{file}:{number}: not reached, and no reason is given: {text}" for file, number, text in missing if (file, text) not in reasons]
    left = [key for key, reason in reasons.items() if key not in keys and not (reason and reason.startswith(BY_CHANCE) and is_there(*key))]
    problems += [f"{REASONS.name}: '{file}: {text}' is reached, or is not there" for file, text in left]
    return problems + [f"{REASONS.name}: no reason stands before '{key[1]}'" for key, reason in reasons.items() if not reason]


def is_there(file, text):
    path = ROOT / file
    return path.exists() and text in [line.strip() for line in path.read_text().splitlines()]


def percent(part, whole):
    return 100.0 * part / whole if whole else 100.0


def too_few(table):
    total = [sum(column) for column in zip(*table.values())]
    rows = {**table, "together": total}
    low = [f"{name}: {percent(row[1], row[0]):.1f} % of {row[0]} lines" for name, row in rows.items() if percent(row[1], row[0]) < LEAST_PERCENT_OF_LINES]
    return low + [f"{name}: nothing was counted" for name, row in rows.items() if row[0] == 0]


def not_counted(counts):
    """Sources of the folders that the build compiles and gcovr has not seen."""
    seen = {file["file"] for file in counts["files"]}
    sources = {tree.name(path) for path in tree.compile_commands("coverage")}
    return [f"{name} was not counted" for name in sorted(sources - seen) if name.split("/")[0] in FOLDERS and holds_code(name)]


def holds_code(name):
    return "{" in "".join(line for line in (ROOT / name).read_text().splitlines() if not line.startswith("namespace"))


def notices_damage(counts, missing, reasons):
    file = counts["files"][0]["file"]
    without = unexplained([*missing, (file, 1, "made on purpose")], reasons)
    left_over = unexplained(missing, {**reasons, (file, "made on purpose"): "a reason"})
    low = too_few({folder: [100, 96, 0, 0] for folder in FOLDERS})
    return [] if without and left_over and len(low) == len(FOLDERS) + 1 else ["damage made on purpose was not noticed"]


def show(table, missing, half_taken):
    print(f"   {'folder':10} {'lines':>6} {'reached':>8} {'branches':>9} {'taken':>7}")
    for name, row in {**table, "together": [sum(column) for column in zip(*table.values())]}.items():
        print(f"   {name:10} {row[0]:6} {percent(row[1], row[0]):6.1f} % {row[2]:9} {percent(row[3], row[2]):5.1f} %")
    for title, lines in (("not reached", missing), ("not every branch is taken", half_taken)):
        for file, number, text in lines:
            print(f"   {title}: {file}:{number}: {text}")


def main():
    counts = json.loads(pathlib.Path(sys.argv[1]).read_text())
    table = folders_of(counts)
    missing = list(not_reached(counts, lambda line: line["count"] == 0))
    half_taken = list(not_reached(counts, lambda line: line["count"] and any(branch["count"] == 0 for branch in branches_of(line))))
    reasons = read_reasons(REASONS.read_text())
    show(table, missing, half_taken)
    tree.report(f"the tests reach at least {LEAST_PERCENT_OF_LINES:.0f} % of the lines of every portable folder", too_few(table) + not_counted(counts))
    tree.report("every line that no test reaches has its reason", unexplained(missing, reasons))
    tree.report("the judgement of the coverage notices damage", notices_damage(counts, missing, reasons))
    lines = [{"file": file, "text": text, "reason": reasons.get((file, text), "")} for file, _, text in missing]
    pathlib.Path(sys.argv[2]).write_text(json.dumps({"folders": table, "missing": lines}, indent=1))


main()
