"""fuzz [SECONDS [FORMAT...]]: runs libFuzzer on each of the viewer's readers, or on those of the given formats, for SECONDS (60) each, one
per core at a time. Prints "ok SENTENCE" or "not ok SENTENCE" for each. It starts from tests/viewer/corpus and keeps new inputs in
build/fuzz/learnt. Inputs that break a reader are written to build/fuzz/found, and the exit code is 1."""

import argparse
import os
import re
import shutil

from tools import tree

FORMATS = ("obj", "ply", "stl", "off", "gltf", "glb", "mtl", "image", "xyz", "csv", "geojson", "script", "motion")
# Of the corpus, where a reader takes others than its own.
EXTENSIONS = {"image": ("png", "jpg", "tga", "bmp")}
BUILD = tree.ROOT / "build/fuzz"
CORPUS = tree.ROOT / "tests/viewer/corpus"
# The viewer's limits for one input: 10 seconds and 1 GiB.
OPTIONS = "-timeout=10 -rss_limit_mb=1024 -max_len=4096 -detect_leaks=1 -print_final_stats=1".split()


def fuzz(reader, seconds):
    """(problems, number of inputs tried)"""
    learnt = BUILD / "learnt" / reader
    learnt.mkdir(parents=True, exist_ok=True)
    seeds = sorted(seed for extension in EXTENSIONS.get(reader, (reader,)) for seed in CORPUS.glob(f"*.{extension}"))
    for seed in seeds:
        shutil.copy(seed, learnt)
    command = (BUILD / f"bin/fuzz_{reader}", *OPTIONS, f"-max_total_time={seconds}", f"-artifact_prefix={BUILD}/found/{reader}-", learnt)
    result = tree.run(*command, seconds=seconds + 300, env={**os.environ, "ASAN_OPTIONS": "detect_leaks=1"})
    (BUILD / f"found/{reader}.log").write_text(result.output)
    tried = re.search(r"^stat::number_of_executed_units: *(\d+)", result.output, re.MULTILINE)
    if result.code == 0 and tried and seeds:
        return [], int(tried.group(1))
    lines = [line for line in result.output.splitlines() if re.search(r"SUMMARY|ERROR|Test unit written|the program ends", line)]
    return lines[-6:] or [f"ended with {result.code} after {len(seeds)} files of the corpus"], 0


def main():
    parser = argparse.ArgumentParser(prog="fuzz", description=__doc__)
    parser.add_argument("seconds", metavar="SECONDS", nargs="?", type=int, default=60)
    parser.add_argument("readers", metavar="FORMAT", nargs="*", help=f"one of {', '.join(FORMATS)}")
    options = parser.parse_args()
    readers = options.readers or FORMATS
    unknown = set(readers) - set(FORMATS)
    if unknown:
        parser.error(f"there is no reader of {', '.join(sorted(unknown))}, only of {', '.join(FORMATS)}")
    tree.build("fuzz", "qel_fuzz")
    (BUILD / "found").mkdir(exist_ok=True)
    for reader, (problems, tried) in zip(readers, tree.in_parallel(lambda each: fuzz(each, options.seconds), readers)):
        tree.report(f"the reader of {reader} survives {options.seconds} seconds of fuzzing, {tried} inputs", problems)
    return 1 if tree.report.failed else 0
