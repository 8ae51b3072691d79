"""bench --load [--page]: measures the time from the command to the finished picture of generated files, and peak memory, for the viewer and
for f3d if it is installed, and frames of large scenes. Prints tables and saves them as out/bench/load.json; --page writes the saved tables
to docs/performance.md."""

import datetime
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from tools import load_files, tree  # noqa: E402

FOLDER = tree.ROOT / "out/bench/load"
RESULTS = tree.ROOT / "out/bench/load.json"
BEGIN, END = "<!-- load: begin -->", "<!-- load: end -->"
RUNS = 3
PARTS = ("read", "normals", "middle", "parts", "prepared", "picture")


def run(command):
    """(seconds, peak in MB, stderr) of a program, or None if it fails."""
    # A file, because the background services of Wine inherit stderr and would keep a pipe open.
    with tempfile.TemporaryFile() as errors:
        begin = time.monotonic()
        process = subprocess.Popen([str(word) for word in command], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=errors)
        _, status, usage = os.wait4(process.pid, 0)
        seconds = time.monotonic() - begin
        errors.seek(0)
        return None if status else (seconds, usage.ru_maxrss / 1024, errors.read().decode(errors="replace"))


def best(command, picture):
    """The fastest of several runs; None if the program fails or writes no picture."""
    runs = []
    for _ in range(RUNS):
        picture.unlink(missing_ok=True)
        found = run(command)
        if found is None or not picture.exists():
            return None
        runs.append(found)
    return min(runs)


def viewer(file, picture):
    command = ["wine", tree.BINARIES / "qelview.exe", "--times", "--out", tree.windows_path(picture)]
    return best(command + ([tree.windows_path(file)] if file else []), picture)


def measure():
    """Needs a screen. An idle program keeps Wine running, so that its startup is not measured."""
    with subprocess.Popen(["wine", "cmd.exe"], stdin=subprocess.PIPE, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL) as keeper:
        try:
            measure_files()
        finally:
            keeper.stdin.close()


def measure_files():
    picture = FOLDER / "picture.png"
    viewer(None, picture)
    empty = viewer(None, picture)
    rows = []
    for name, (title, _) in load_files.FILES.items():
        file = FOLDER / name
        seconds, megabytes, printed = viewer(file, picture)
        parts = {part: float(value) for part, value in re.findall(r"qelview: (\w+) +([\d.]+) s", printed)}
        other = best(["f3d", file, "--output", picture, "--resolution", "1280,800"], picture) if shutil.which("f3d") else None
        row = {"title": title, "size": file.stat().st_size, "seconds": seconds, "peak": megabytes, "parts": parts}
        rows.append({**row, "f3d": other and other[:2]})
    frames = FOLDER / "frames.json"
    bench = ["wine", tree.BINARIES / "qel_bench.exe", "--pairs", "--json", tree.windows_path(frames), "viewer:"]
    subprocess.run(bench, stdin=subprocess.DEVNULL, check=False)
    by = {"date": datetime.date.today().isoformat(), "cores": os.cpu_count(), "load": round(os.getloadavg()[0], 1)}
    found = {"empty": empty[0], "files": rows, "frames": json.loads(frames.read_text())["operations"]}
    RESULTS.write_text(json.dumps({**by, **found}, indent=2) + "\n")


def table(results):
    def row(each):
        other = [f"{each['f3d'][0]:.2f}", f"{each['f3d'][1]:.0f}"] if each["f3d"] else ["-", "-"]
        size = f"{each['title']} ({each['size'] / 1e6:.0f} MB)"
        parts = (f"{each['parts'][part]:.2f}" for part in PARTS)
        return [size, f"{each['seconds']:.2f}", f"{each['peak']:.0f}", *other, *parts]

    def frame_row(each):
        times = (f"{each[form]['median'] / 1e6:.1f}" for form in ("module_ns", "bare_ns"))
        return [each["name"].removeprefix("viewer: "), *times, f"{each['ratio']['median']:.3f}", f"{each['ratio_bound']:.2f}"]

    def rows_of(lines):
        lines.insert(1, ["---", *["--:"] * (len(lines[0]) - 1)])
        return "\n".join(f"| {' | '.join(line)} |" for line in lines)

    head = ["file", "qelview, s", "peak, MB", "f3d, s", "peak, MB", *PARTS]
    files = rows_of([head, *map(row, results["files"])])
    frames = rows_of([["frame / frame", "ms", "ms", "ratio", "bound"], *map(frame_row, results["frames"])])
    by = f"Measured on {results['date']}, {results['cores']} cores, load {results['load']}."
    return f"{files}\n\n{frames}\n\nThe sample scene, which reads no file, takes {results['empty']:.2f} s. {by}\n"


def main(arguments):
    if "--measure" in arguments:
        measure()
        return 0
    if "--page" not in arguments:
        tree.build("windows", "qelview", "qel_bench")
        load_files.make(FOLDER)
        subprocess.run(["scripts/with-screen", sys.executable, __file__, "--measure"], cwd=tree.ROOT, check=True)
    text = table(json.loads(RESULTS.read_text()))
    if "--page" in arguments:
        page = tree.ROOT / "docs/performance.md"
        before, rest = page.read_text().split(BEGIN)
        page.write_text(f"{before}{BEGIN}\n\n{text}\n{END}{rest.split(END)[1]}")
    print(text)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
