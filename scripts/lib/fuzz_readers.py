"""fuzz_readers.py [--unless-done] [SECONDS [FORMAT...]]: runs the fuzz programs that scripts/fuzz built; see there. How many inputs each
program tried is kept in build/results/fuzz-summary.json."""

import argparse
import concurrent.futures
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "scripts" / "checks"))
import tree  # noqa: E402

FORMATS = ("obj", "ply", "stl", "off", "gltf", "glb", "mtl", "xyz", "csv", "geojson", "script", "motion")
BUILD = ROOT / "build" / "fuzz"
AT_ONCE = max(2, os.cpu_count() or 2)
# What one input may cost is what the viewer promises.
SECONDS_OF_AN_INPUT = 10
MEGABYTES_OF_AN_INPUT = 1024


def seeds_of(reader):
    return sorted((ROOT / "tests" / "examples" / "corpus").glob(f"*.{reader}"))


def program_of(reader):
    return BUILD / "bin" / f"fuzz_{reader}"


def command_of(reader, seconds, learnt, repeatable):
    options = {
        "max_total_time": seconds,
        "timeout": SECONDS_OF_AN_INPUT,
        "rss_limit_mb": MEGABYTES_OF_AN_INPUT,
        "max_len": 4096,
        "detect_leaks": 1,
        "print_final_stats": 1,
        "artifact_prefix": f"{BUILD}/found/{reader}-",
    }
    if repeatable:
        options["seed"] = 1
    return [program_of(reader), *(f"-{name}={value}" for name, value in options.items()), learnt]


def fuzz(reader, seconds, repeatable):
    """(problems, number of inputs tried)"""
    learnt = BUILD / ("repeated" if repeatable else "learnt") / reader
    if repeatable:
        shutil.rmtree(learnt, ignore_errors=True)
    learnt.mkdir(parents=True, exist_ok=True)
    for seed in seeds_of(reader):
        shutil.copy(seed, learnt)
    command = command_of(reader, seconds, learnt, repeatable)
    environment = {**os.environ, "ASAN_OPTIONS": "detect_leaks=1"}
    log = BUILD / "found" / f"{reader}.log"
    with log.open("w") as output:
        code = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=output, stderr=output, env=environment, check=False).returncode
    text = log.read_text(errors="replace")
    tried = re.search(r"^stat::number_of_executed_units: *(\d+)", text, re.MULTILINE)
    if code == 0 and tried:
        return [], int(tried.group(1))
    told = [line for line in text.splitlines() if re.search(r"SUMMARY|ERROR|Test unit written|the program ends", line)]
    return told[-6:] or [f"ended with {code}; see {log}"], 0


def key_of(reader, seconds):
    seeds = [part for seed in seeds_of(reader) for part in (seed.name, seed.read_bytes())]
    return tree.digest(program_of(reader).read_bytes(), *seeds, seconds, pathlib.Path(__file__).read_bytes())


def judged(reader, seconds, unless_done):
    """(problems, number of inputs tried, or None if the verdict stood)"""
    if not program_of(reader).exists():
        return [f"{program_of(reader)} was not built"], 0
    if not seeds_of(reader):
        return [f"nothing in the corpus is named .{reader}"], 0
    verdict = tree.cache_folder() / "verdicts" / "fuzz" / key_of(reader, seconds)
    if unless_done and verdict.exists():
        return [], None
    problems, tried = fuzz(reader, seconds, unless_done)
    if not problems:
        verdict.parent.mkdir(parents=True, exist_ok=True)
        verdict.touch()
    return problems, tried


def wanted():
    parser = argparse.ArgumentParser(prog="fuzz", add_help=False)
    parser.add_argument("--unless-done", action="store_true")
    parser.add_argument("seconds", metavar="SECONDS", nargs="?", type=int, default=60)
    parser.add_argument("readers", metavar="FORMAT", nargs="*")
    options = parser.parse_args()
    for reader in options.readers:
        if reader not in FORMATS:
            parser.error(f"there is no reader of {reader}, only of {', '.join(FORMATS)}")
    return options.unless_done, options.seconds, options.readers or FORMATS


def main():
    unless_done, seconds, readers = wanted()
    (BUILD / "found").mkdir(parents=True, exist_ok=True)
    tried, broken = {}, False
    with concurrent.futures.ThreadPoolExecutor(AT_ONCE) as pool:
        results = pool.map(lambda reader: judged(reader, seconds, unless_done), readers)
        for reader, (problems, count) in zip(readers, results):
            after = "" if problems else ", as found before" if count is None else f", {count} inputs"
            tree.report(f"the reader of {reader} stands {seconds} seconds of fuzzing{after}", problems)
            broken = broken or bool(problems)
            tried[reader] = {"seconds": seconds, "inputs": count, "seeds": len(seeds_of(reader))}
    results_folder = ROOT / "build" / "results"
    results_folder.mkdir(parents=True, exist_ok=True)
    (results_folder / "fuzz-summary.json").write_text(json.dumps(tried, indent=1))
    return 1 if broken else 0


sys.exit(main())
