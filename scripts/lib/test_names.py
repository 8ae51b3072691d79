"""The tests as their sources name them, and their names as sentences."""

import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parents[2]
TEST = re.compile(r"^(?:TYPED_)?TEST(?:_[FP])?\(\s*(\w+),\s*(\w+)\)", re.MULTILINE)


def tests():
    """(suite, name) -> source below tests/."""
    found = {}
    for path in sorted((ROOT / "tests").rglob("*Test.cpp")):
        for suite, name in TEST.findall(path.read_text()):
            found[(suite, name)] = path.relative_to(ROOT / "tests").as_posix()
    return found


def without_parameters(suite, name):
    """The names as the source has them: results carry "Prefix/Suite/0" and "Name/Parameter"."""
    parts = suite.split("/")
    suite = parts[1] if len(parts) > 1 and not parts[1].isdigit() else parts[0]
    return suite, name.split("/")[0]


def sentence(suite, name):
    words = [word for each in (suite, name) for word in re.findall(r"[A-Z]?[a-z0-9]+|[A-Z]+(?![a-z])|[A-Z]", each)]
    text = " ".join(words).lower()
    return text[:1].upper() + text[1:]


def sentences():
    return {sentence(suite, name) for suite, name in tests()}
