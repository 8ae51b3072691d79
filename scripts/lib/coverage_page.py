"""coverage_page.py RESULTS PAGE: writes the page of what the native tests reach of the portable core, from what scripts/coverage counted."""

import json
import pathlib
import sys

from reliability_page import table

HEAD = """# Coverage

What the native tests reach of the portable core, as `./test --coverage` counted it when it last passed. It writes this page itself, and
fails below 97 % of the lines of a folder, or where a line that is not reached has no reason in `scripts/coverage-reasons.txt`.
"""


def coverage(folder):
    summary = json.loads((folder / "coverage-summary.json").read_text())
    folders = {**summary["folders"], "together": [sum(column) for column in zip(*summary["folders"].values())]}
    rows = [(name, row[0], f"{100 * row[1] / row[0]:.1f} %", row[2], f"{100 * row[3] / row[2]:.1f} %") for name, row in folders.items()]
    lines = [HEAD, *table(("folder", "lines", "reached", "branches", "taken"), rows)]
    missing = [(f"`{each['file']}`", f"`{each['text']}`", each["reason"]) for each in summary["missing"]]
    return lines + (["What no test reaches:", "", *table(("file", "line", "reason"), missing)] if missing else [])


def main():
    lines = coverage(pathlib.Path(sys.argv[1]))
    pathlib.Path(sys.argv[2]).write_text("\n".join(lines).rstrip() + "\n")


main()
