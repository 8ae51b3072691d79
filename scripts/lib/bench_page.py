"""bench_page.py RESULTS DOCS: puts the tables of a measurement into DOCS/performance.md, between the marks that stand there. What stands
outside the marks is written by hand and stays."""

import json
import pathlib
import re
import sys

BEGIN, END = "<!-- measured: begin -->", "<!-- measured: end -->"


def time_text(nanoseconds):
    for unit in ("ns", "us", "ms"):
        if nanoseconds < 1000 or unit == "ms":
            return f"{nanoseconds:.{2 if nanoseconds < 10 else 1 if nanoseconds < 100 else 0}f} {unit}"
        nanoseconds /= 1000
    return ""


def table(head, rows):
    lines = ["| " + " | ".join(head) + " |", "|" + "|".join(["---"] + ["--:"] * (len(head) - 1)) + "|"]
    return "\n".join(lines + ["| " + " | ".join(row) + " |" for row in rows]) + "\n"


def machine_text(results):
    machine = results["machine"]
    return (
        f"Measured on {machine['date']}, revision {machine['revision']}: {machine['processor']}, {machine['cores']} cores, load"
        f" {machine['load']}; {machine['system']}, {machine['wine']}, {results['renderer']}; {machine['compiler']}. An empty call took"
        f" {results['empty_call_ns']:.2f} ns.\n"
    )


def ratio_row(operation):
    ratio = operation["ratio"]
    wide = " (wide)" if operation["capped_by_time"] else ""
    return (
        operation["name"], time_text(operation["module_ns"]["median"]), time_text(operation["bare_ns"]["median"]),
        f"{ratio['median']:.3f}", f"{ratio['low']:.3f} .. {ratio['high']:.3f}{wide}",
        *((f"{operation['ratio_bound']:.2f}", operation["verdict"]) if "ratio_bound" in operation else ("-", "-")),
    )


def cost_row(operation):
    return (
        operation["name"], f"{operation['own_ns']:.1f} ns", f"{operation['calls']:.0f}", f"{operation['empty_calls_ns']:.1f} ns",
        f"{operation['own_ns_bound']:.0f} ns" if "own_ns_bound" in operation else "-",
    )


def quantity_row(quantity):
    bound = f"{quantity['bound']:g}" if "bound" in quantity else "-"
    return quantity["name"], f"{quantity['value']:.4g} {quantity['unit']}", bound


def measured(results):
    pairs = [operation for operation in results["operations"] if "ratio" in operation]
    own = [operation for operation in results["operations"] if "own_ns" in operation]
    parts = [
        machine_text(results),
        "### Against the same calls by hand\n",
        "Times of one unit: a call, a polyline, a ball, a frame. The interval holds the true median of the ratio with a probability of"
        " 95 %; \"wide\" marks one that stayed wider than wanted in the time allowed. The"
        " bare forms of drag steps and fits make the calls without the arithmetic between them, those of matrices have no calls to make:"
        " their ratios are for orientation.\n",
        table(("operation", "module", "bare", "ratio", "95 % interval", "bound", ""), map(ratio_row, pairs)),
        "![Ratios of the module's calls to the bare calls](performance/ratios.svg)\n",
        "### Own cost\n",
        "With OpenGL, GLU and GDI replaced by empty functions; the calls of them are counted in.\n",
        table(("operation", "own cost", "calls", "of that, empty calls", "bound"), map(cost_row, own)),
        "![Own cost of the module's calls](performance/own-cost.svg)\n",
        "### Single numbers\n",
        table(("what", "value", "bound"), map(quantity_row, results["quantities"])),
    ]
    return "\n".join(parts)


def main():
    results = json.loads(pathlib.Path(sys.argv[1]).read_text())
    page = pathlib.Path(sys.argv[2]) / "performance.md"
    text = page.read_text()
    marks = re.compile(rf"{re.escape(BEGIN)}.*{re.escape(END)}", re.DOTALL)
    if not marks.search(text):
        sys.exit(f"{page} has no marks {BEGIN} and {END}")
    page.write_text(marks.sub(lambda _: f"{BEGIN}\n\n{measured(results)}\n{END}", text))
    print(page)


main()
