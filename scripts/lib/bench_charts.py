"""bench_charts.py RESULTS FOLDER: draws the charts of a measurement as SVG, by gnuplot."""

import json
import pathlib
import subprocess
import sys

STYLE = """set terminal svg size {width},{height} dynamic font "sans-serif,11" background rgb "white"
set output "{file}"
set title "{title}"
set xlabel "{label}"
set border 3 lc rgb "#666666"
set grid xtics lc rgb "#dddddd" lt 1
set tics nomirror
set ytics ({names})
set yrange [{last}:-0.7]
set key below
set xrange [{range}]
"""
RATIOS = """set arrow from 1, graph 0 to 1, graph 1 nohead lc rgb "#888888"
plot "-" using 2:1:3:4 with xerrorbars pt 7 ps 0.6 lc rgb "#1f5f99" title "measured, with 95 % interval", \\
     "-" using 2:1 with points pt 8 ps 0.8 lc rgb "#b03030" title "bound"
"""
# Longer ones would leave nothing to see of the others; they are in the table. So are bounds beyond the longest bar.
LONGEST_BAR = 1000
COSTS = """set style fill solid 0.8
set boxwidth 0.7
plot "-" using (0.5*$2):1:(0.5*$2):(0.35) with boxxyerror lc rgb "#1f5f99" title "own cost", \\
     "-" using (0.5*$2):1:(0.5*$2):(0.35) with boxxyerror lc rgb "#a8c4e0" title "of that, empty calls", \\
     "-" using 2:1 with points pt 8 ps 0.8 lc rgb "#b03030" title "bound"
"""


def block(rows):
    return "\n".join(" ".join(f"{value:.6g}" for value in row) for row in rows) + "\ne\n"


def quoted(name):
    return name.replace('"', "'")


def plot(file, title, label, operations, command, data, limits=""):
    names = ", ".join(f'"{quoted(operation["name"])}" {index}' for index, operation in enumerate(operations))
    settings = STYLE.format(
        width=960, height=150 + 18 * len(operations), file=file, title=title, label=label, names=names,
        last=len(operations) - 0.3, range=limits
    )
    script = settings + command + "".join(block(rows) for rows in data)
    subprocess.run(["gnuplot"], input=script, text=True, check=True)


def chart_ratios(operations, folder):
    chosen = [operation for operation in operations if "ratio" in operation and "ratio_bound" in operation]
    if not chosen:
        return
    rows = [(i, o["ratio"]["median"], o["ratio"]["low"], o["ratio"]["high"]) for i, o in enumerate(chosen)]
    bounds = [(i, o["ratio_bound"]) for i, o in enumerate(chosen)]
    plot(folder / "ratios.svg", "Time of the module's calls over that of the bare calls", "ratio", chosen, RATIOS, (rows, bounds))


def chart_costs(operations, folder):
    chosen = [operation for operation in operations if "own_ns" in operation and operation["own_ns"] < LONGEST_BAR and operation["calls"]]
    if not chosen:
        return
    rows = [(i, o["own_ns"]) for i, o in enumerate(chosen)]
    empty = [(i, o["empty_calls_ns"]) for i, o in enumerate(chosen)]
    bounds = [(i, o["own_ns_bound"]) for i, o in enumerate(chosen) if "own_ns_bound" in o] or [(0, -1)]
    plot(folder / "own-cost.svg", "The module's own time, with OpenGL replaced by empty functions", "nanoseconds", chosen, COSTS,
         (rows, empty, bounds), f"0:{1.1 * max(o['own_ns'] for o in chosen):g}")


def main():
    operations = json.loads(pathlib.Path(sys.argv[1]).read_text())["operations"]
    folder = pathlib.Path(sys.argv[2])
    folder.mkdir(parents=True, exist_ok=True)
    chart_ratios(operations, folder)
    chart_costs(operations, folder)


main()
