"""bench_compare.py OLD NEW: prints what became slower, or faster, from one measurement to the next by more than both of them scatter."""

import json
import pathlib
import sys

# Own costs come without an interval: they are held to differ from this share on.
OWN_COST_SHARE = 0.1


def operations(path):
    return {operation["name"]: operation for operation in json.loads(pathlib.Path(path).read_text())["operations"]}


def ratio_changes(old, new):
    """A sentence if the intervals do not meet, and whether it is bad news."""
    if "ratio" not in old or "ratio" not in new:
        return
    before, after = old["ratio"], new["ratio"]
    if after["low"] > before["high"] or after["high"] < before["low"]:
        word = "slower" if after["low"] > before["high"] else "faster"
        yield word, f"{word}: {new['name']}: ratio {before['median']:.3f} -> {after['median']:.3f}"


def own_cost_changes(old, new):
    if "own_ns" not in old or "own_ns" not in new:
        return
    before, after = old["own_ns"], new["own_ns"]
    if abs(after - before) > OWN_COST_SHARE * max(before, after):
        word = "slower" if after > before else "faster"
        yield word, f"{word}: {new['name']}: own cost {before:.1f} ns -> {after:.1f} ns"


def main():
    old, new = operations(sys.argv[1]), operations(sys.argv[2])
    common = [name for name in new if name in old]
    changes = [change for name in common for find in (ratio_changes, own_cost_changes) for change in find(old[name], new[name])]
    for _, sentence in sorted(changes, reverse=True):
        print(sentence)
    slower = sum(word == "slower" for word, _ in changes)
    print(f"{slower} slower, {len(changes) - slower} faster, of {len(common)} operations in both")


main()
