"""bench [--compare OLD.json | --page | --verify | --load] [OPTION...] [FILTER...]: measures the cost of each call of the module, alone and
compared with raw calls of OpenGL, GLU, WGL and GDI, for the operations whose names contain a FILTER or for all. Prints a table and writes
out/bench/bench.json with charts. Exit code 1 if something exceeds its bound.
  --quick             at most a few seconds for each operation
  --own, --pairs      only the module's own cost, or only the comparison
  --seconds N         at most N seconds for each comparison
  --compare OLD.json  also prints what changed since those results; the previous ones are kept in out/bench/before.json
  --page              writes docs/performance.md and its charts from out/bench/bench.json instead of measuring
  --verify, --list, --trace   compares the calls of both forms, or prints the names or the module's calls
  --load [--page]     measures instead how long the viewer takes to show large files, with f3d for comparison if it is installed"""

import datetime
import json
import os
import pathlib
import platform
import re
import subprocess
import sys

from tools import load, tree

FOLDER = tree.ROOT / "out/bench"
PAGE = tree.ROOT / "docs/performance.md"
BEGIN, END = "<!-- measured: begin -->", "<!-- measured: end -->"
# Own costs have no interval: they count as different from this fraction on.
OWN_COST_SHARE = 0.1
# Longer bars would hide the others in a chart; they are in the table.
LONGEST_BAR_NS = 1000
# Rows that tell a user nothing new (internals, and variants with the same calls), by the key of their table; bench.json has them all.
OFF_THE_PAGE = {
    "ratio": r"growth:|viewer:|.*mean depth",
    "own_ns": r"matrix |transformPoint|frame: |GDI redraw|beginDraw and|restoreCache|\w+F\b|.*(mean depth|neighbourhood|curves|polygons)"
    r"|drawEnvelopeOutline|drawStippledLoop|drawDiagonalCross|drawSquare|worldToScreen",
}


def changes(old, new):
    """Sentences about operations that changed by more than the scatter of both measurements, slower ones first."""
    before = {operation["name"]: operation for operation in old["operations"]}
    pairs = [(before[operation["name"]], operation) for operation in new["operations"] if operation["name"] in before]
    found = []
    for one, other in pairs:
        if "ratio" in one and "ratio" in other:
            (was, now), name = (one["ratio"], other["ratio"]), other["name"]
            if now["low"] > was["high"] or now["high"] < was["low"]:
                word = "slower" if now["low"] > was["high"] else "faster"
                found.append(f"{word}: {name}: ratio {was['median']:.3f} -> {now['median']:.3f}")
        if "own_ns" in one and "own_ns" in other:
            was, now = one["own_ns"], other["own_ns"]
            if abs(now - was) > OWN_COST_SHARE * max(was, now):
                found.append(f"{'slower' if now > was else 'faster'}: {other['name']}: own cost {was:.1f} ns -> {now:.1f} ns")
    slower = sum(sentence.startswith("slower") for sentence in found)
    return [*sorted(found, reverse=True), f"{slower} slower, {len(found) - slower} faster, of {len(pairs)} operations in both"]


def machine():
    """The machine and the tools of a measurement."""
    def first(pattern, text, otherwise):
        found = re.search(pattern, text, re.MULTILINE)
        return found.group(1) if found else otherwise

    def line_of(*command, pattern=r"^(.+)$"):
        return first(pattern, tree.run(*command).output, "unknown").strip()

    return {
        "processor": first(r"^model name\s*:\s*(.*)$", pathlib.Path("/proc/cpuinfo").read_text(), platform.machine()),
        "cores": os.cpu_count(),
        "load": round(os.getloadavg()[1], 1),
        "system": first(r'^PRETTY_NAME="?(.*?)"?$', pathlib.Path("/etc/os-release").read_text(), platform.system()),
        "wine": line_of("wine", "--version", pattern=r"^(wine-.*)$"),
        "compiler": line_of("x86_64-w64-mingw32-g++-posix", "--version"),
        "revision": line_of("git", "describe", "--always", "--dirty"),
        "date": datetime.date.today().isoformat(),
    }


def time_text(nanoseconds):
    unit, scale = next((each for each in (("ns", 1), ("us", 1e3)) if nanoseconds < 1000 * each[1]), ("ms", 1e6))
    value = nanoseconds / scale
    return f"{value:.{2 if value < 10 else 1 if value < 100 else 0}f} {unit}"


def table(head, rows):
    lines = [head, ("---", *["--:"] * (len(head) - 1)), *rows]
    return "\n".join(f"| {' | '.join(row)} |" for row in lines) + "\n"


def ratio_row(operation):
    ratio = operation["ratio"]
    interval = f"{ratio['low']:.3f} .. {ratio['high']:.3f}{' (wide)' if operation['capped_by_time'] else ''}"
    times = (time_text(operation[form]["median"]) for form in ("module_ns", "bare_ns"))
    bound = f"{operation['ratio_bound']:.2f}" if "ratio_bound" in operation else "-"
    return operation["name"], *times, f"{ratio['median']:.3f}", interval, bound


def cost_row(operation):
    bound = f"{operation['own_ns_bound']:.0f} ns" if "own_ns_bound" in operation else "-"
    return operation["name"], f"{operation['own_ns']:.1f} ns", f"{operation['calls']:.0f}", f"{operation['empty_calls_ns']:.1f} ns", bound


def measured(results):
    """The tables of the page."""
    def shown(key):
        return [each for each in results["operations"] if key in each and not re.match(OFF_THE_PAGE[key], each["name"])]

    quantities = [(q["name"], f"{q['value']:.4g} {q['unit']}", str(q.get("bound", "-"))) for q in results["quantities"]]
    by = results["machine"]
    return f"""Measured on {by['date']}, revision {by['revision']}: {by['processor']}, {by['cores']} cores, load {by['load']};
{by['system']}, {by['wine']}, {results['renderer']}; {by['compiler']}. An empty call took {results['empty_call_ns']:.2f} ns.

### Compared with raw calls

Times are per unit: a call, a polyline, a ball, a frame. The interval contains the true median of the ratio with a probability of 95 %;
"wide" marks an interval that was still too wide when the time was over.

{table(("operation", "module", "raw calls", "ratio", "95 % interval", "bound"), map(ratio_row, shown("ratio")))}
![Ratios of the module's calls to raw calls](performance/ratios.svg)

### Own cost

With OpenGL, GLU and GDI replaced by empty functions; the cost includes calling those.

{table(("operation", "own cost", "calls", "of which empty calls", "bound"), map(cost_row, shown("own_ns")))}
![Own cost of the module's calls](performance/own-cost.svg)

### Single numbers

{table(("what", "value", "bound"), quantities)}"""


def with_measured(text, results):
    """The page with new tables between its marks; the text outside them is written by hand and stays."""
    parts = re.fullmatch(rf"(.*{BEGIN}\n).*(\n{END}.*)", text, re.DOTALL)
    if not parts:
        raise ValueError(f"the page has no marks {BEGIN} and {END}")
    return f"{parts.group(1)}\n{measured(results)}{parts.group(2)}"


def install_charts():
    """Installs matplotlib, which only the charts need."""
    script = ". scripts/lib/cache.sh; . scripts/lib/say.sh; . scripts/setup.d/packages.sh; updatePackageLists;" \
        " asRoot apt-get -y --no-install-recommends install python3-matplotlib"
    if tree.run("dpkg", "-s", "python3-matplotlib").code != 0:
        subprocess.run(["bash", "-c", script], cwd=tree.ROOT, check=True)


def draw_charts(operations, folder):
    from matplotlib import pyplot

    pyplot.rcParams.update({"svg.fonttype": "none", "svg.hashsalt": "the same each time"})

    def chart(name, title, chosen, draw):
        figure, axes = pyplot.subplots(figsize=(9.6, 1.2 + 0.2 * len(chosen)))
        draw(axes, chosen, [operation["name"] for operation in chosen])
        axes.invert_yaxis()
        axes.grid(axis="x")
        axes.set_title(title)
        figure.savefig(folder / name, bbox_inches="tight")

    def ratios(axes, chosen, names):
        values = [operation["ratio"] for operation in chosen]
        reach = [[each["median"] - each["low"] for each in values], [each["high"] - each["median"] for each in values]]
        axes.errorbar([each["median"] for each in values], names, xerr=reach, fmt="o", label="measured, with 95 % interval")
        axes.plot([operation["ratio_bound"] for operation in chosen], names, "r|", label="bound")
        axes.legend()

    def costs(axes, chosen, names):
        axes.barh(names, [operation["own_ns"] for operation in chosen], label="own cost, ns")
        axes.barh(names, [operation["empty_calls_ns"] for operation in chosen], label="of which empty calls")
        axes.legend()

    folder.mkdir(parents=True, exist_ok=True)
    bounded = [operation for operation in operations if "ratio" in operation and "ratio_bound" in operation]
    short = [operation for operation in operations if operation.get("own_ns", LONGEST_BAR_NS) < LONGEST_BAR_NS and operation["calls"]]
    chart("ratios.svg", "Time of the module's calls relative to raw calls", bounded, ratios)
    chart("own-cost.svg", "The module's own time, with OpenGL replaced by empty functions", short, costs)


def check_bench():
    result = tree.on_screen("wine", tree.BINARIES / "qel_bench.exe", "--verify")
    tree.report("the raw forms of the benchmark make the same calls as the module", result.problems("qel_bench"))


def start(*arguments):
    script = '. scripts/lib/cache.sh; . scripts/lib/wine.sh; exec scripts/with-screen wine "$@" 2>/dev/null </dev/null | tr -d "\\r"'
    program = tree.BINARIES / "qel_bench.exe"
    return subprocess.run(["bash", "-o", "pipefail", "-c", script, "bash", program, *arguments], cwd=tree.ROOT, check=False).returncode


def main():
    arguments, results = sys.argv[1:], FOLDER / "bench.json"
    if {"-h", "--help"} & set(arguments):
        print(__doc__)
        return 0
    if "--load" in arguments:
        return load.main(arguments)
    if "--page" in arguments:
        install_charts()
        found = json.loads(results.read_text())
        draw_charts(found["operations"], PAGE.parent / "performance")
        PAGE.write_text(with_measured(PAGE.read_text(), found))
        return 0
    tree.build("windows", "qel_bench")
    if {"--verify", "--list", "--trace"} & set(arguments):
        return start(*arguments)
    old = None
    if "--compare" in arguments:
        place = arguments.index("--compare")
        old = json.loads(pathlib.Path(arguments[place + 1]).read_text())
        del arguments[place : place + 2]
    install_charts()
    FOLDER.mkdir(parents=True, exist_ok=True)
    if results.exists():
        results.replace(FOLDER / "before.json")
    code = start("--json", tree.windows_path(results), *arguments)
    found = {**json.loads(results.read_text()), "machine": machine()}
    results.write_text(json.dumps(found, indent=2) + "\n")
    draw_charts(found["operations"], FOLDER)
    print(f"Results and charts are in {FOLDER}")
    if old:
        print("\n".join(changes(old, found)))
    return code
