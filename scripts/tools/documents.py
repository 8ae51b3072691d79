"""Checks of the documents: their code compiles, the names in them exist, and the reference covers every public name."""

import functools
import json
import os
import re
import tempfile

from tools import contracts, tree

# Hosts are Windows programs: macros of its headers must not break ours.
INSTEAD_OF_HEADERS = '#include <windows.h>\n#include "QelDisplay64t.h"\n'
# Paths that a build or a run creates, or that are in a package.
MADE = re.compile(r"^(build|out|bin|lib|include/QelDisplay64t|include/QtCore|share|licences)(/|$)")
PATH = re.compile(r"^[\w.-]+(?:/[\w.*-]+)+/?$|^[\w-]+\.(?:h|cpp|md|png|svg|txt|json|cmake)$|^\./\w+$")
NAME = re.compile(r"^(?:qel::)?([A-Za-z_]\w*)(?:\(.*\))?$")
FILTER = re.compile(r"(\S+qel_tests\S*) .*?--gtest_filter=(?:'([^']*)'|(\S+))")


def documents():
    folders = [tree.ROOT.glob("*.md"), (tree.ROOT / "docs").rglob("*.md"), (tree.ROOT / "examples").rglob("*.md")]
    return sorted(path for found in folders for path in found)


def blocks(text, language):
    """Pairs of line number and content of the fenced blocks."""
    for found in re.finditer(rf"^```{language}\n(.*?)^```$", text, re.MULTILINE | re.DOTALL):
        yield text.count("\n", 0, found.start()) + 2, found.group(1)


def prose(text):
    return re.sub(r"^```.*?^```$", lambda block: "\n" * block.group(0).count("\n"), text, flags=re.MULTILINE | re.DOTALL)


@functools.lru_cache(maxsize=None)
def host_command():
    """The compiler and the options of a host, with the public headers and Qt's; empty before the build is configured."""
    hosts = [words for path, words in tree.compile_commands("windows").items() if "examples/minimal" in path.as_posix()]
    key = re.search(r"^QEL_QT_KEY=(.*)$", (tree.ROOT / "scripts/cache-keys").read_text(), re.MULTILINE).group(1)
    qt = tree.cache_folder() / key / "include"
    # With -fpch-preprocess ccache keeps nothing.
    words = [word for word in hosts[0][: hosts[0].index("-o")] if word != "-fpch-preprocess"] if hosts else []
    return (*words, "-isystem", qt, "-isystem", qt / "QtCore", "-Wno-unused-function") if words else ()


def compile_problems(place, code):
    source = tree.ROOT / "build/documents" / (re.sub(r"\W", "-", place) + ".cpp")
    source.parent.mkdir(parents=True, exist_ok=True)
    source.write_text(("" if "#include" in code else INSTEAD_OF_HEADERS) + f'#line 1 "{place}"\n' + code)
    cache = {"CCACHE_DIR": str(tree.cache_folder() / "ccache"), "CCACHE_BASEDIR": str(tree.ROOT), "CCACHE_NOHASHDIR": "1"}
    command = ("ccache", *host_command(), "-o", source.with_suffix(".o"), "-c", source)
    result = tree.run(*command, env={**os.environ, **cache})
    return [line for line in result.output.splitlines() if "error" in line][:5] or result.problems(place)


def uncompiled():
    if not host_command():
        return ["the windows build is not configured"]
    snippets = [(f"{tree.name(path)}:{line}", code) for path in documents() for line, code in blocks(path.read_text(), "cpp")]
    found = tree.in_parallel(lambda snippet: compile_problems(*snippet), snippets)
    return [problem for problems in found for problem in problems] if snippets else ["no code was found"]


def anchors(path):
    titles = re.findall(r"^#+ (.*)$", prose(path.read_text()), re.MULTILINE)
    return {re.sub(r"[^\w\- ]", "", title.lower()).replace(" ", "-") for title in titles}


def dead_links(path, text):
    for target in re.findall(r"\]\(([^)\s]+)\)", prose(text)):
        file, _, anchor = target.partition("#")
        place = (path.parent / file) if file else path
        if re.match(r"[a-z]+:", target):
            continue
        if not place.exists():
            yield f"link to {target}"
        elif anchor and anchor not in anchors(place):
            yield f"link to {target}: no such heading"


def exists(name, path):
    bare = name.removeprefix("./").rstrip("/")
    if MADE.match(bare) or (tree.ROOT / bare).exists() or (path.parent / bare).exists():
        return True
    return any(tree.ROOT.glob(bare)) if "*" in bare else "/" not in bare and bare in file_names()


@functools.lru_cache(maxsize=None)
def file_names():
    return {path.name for path in tree.texts()} | {path.name for path in (tree.ROOT / "docs").rglob("*")}


@functools.lru_cache(maxsize=None)
def known_names():
    files = tree.code() + [path for path in tree.texts() if path.suffix in ("", ".cmake", ".in", ".txt", ".json", ".sh")]
    return {word for path in files for word in re.findall(r"\w+", path.read_text(errors="replace"))}


def unknown_quotes(path, text):
    """Backquoted words that look like a path or a name in the code and do not exist."""
    for quoted in map(str.strip, re.findall(r"`([^`\n]+)`", prose(text))):
        name = NAME.match(quoted)
        if PATH.match(quoted) and not quoted.startswith("/"):
            if not exists(quoted, path):
                yield f"`{quoted}`: no such file"
        elif name and re.search(r"[a-z][A-Z]|\(", quoted) and quoted not in ("CamelCase", "lowerCamel", "kCamel"):
            if not name.group(1).startswith("gl") and name.group(1) not in known_names():
                yield f"`{quoted}`: no such name"


def wrong_commands(path, text):
    """Programs, presets and checks in code blocks that do not exist."""
    presets = {preset["name"] for preset in json.loads((tree.ROOT / "CMakePresets.json").read_text())["configurePresets"]}
    code = "\n".join(re.findall(r"^(?: {4}|\t)(.*)$", text, re.MULTILINE) + [block for _, block in blocks(text, "(?:sh|text)?")])
    for command in re.findall(r"^\s*(?:\$ )?((?:\./|scripts/)[\w/.-]+)", code, re.MULTILINE):
        if not exists(command, path):
            yield f"{command}: no such command"
    folders = set(re.findall(r"-B build/(\w+)", text))
    for preset, folder in re.findall(r"--preset[ =](\w+)|--build build/(\w+)", text):
        if {preset, folder}.isdisjoint(presets | folders):
            yield f"no preset {preset or folder}"
    checks = set(tree.run("scripts/check", "--list").output.split())
    for names in re.findall(r"scripts/check ([a-z][a-z -]*)", text):
        yield from (f"no check {name}" for name in sorted(set(names.split()) - checks))


def empty_filters(_, text):
    """Filters of test programs that match no test; runs each."""
    for program, quoted, bare in FILTER.findall(text):
        words = [tree.ROOT / program, f"--gtest_filter={quoted or bare}", "--gtest_list_tests"]
        if not words[0].exists():
            yield f"{program} was not built"
            continue
        result = tree.on_screen("wine", *words) if program.endswith(".exe") else tree.run(*words)
        if not re.search(r"^  \w", result.output, re.MULTILINE):
            yield f"{program} has no test '{quoted or bare}'"


def untrue():
    for path in documents():
        for check in (dead_links, unknown_quotes, wrong_commands, empty_filters):
            yield from (f"{tree.name(path)}: {problem}" for problem in check(path, path.read_text()))


def reference(extra=""):
    """Doxygen's warnings about the headers, with additional settings."""
    with tempfile.TemporaryDirectory() as folder:
        settings = (tree.ROOT / "docs/Doxyfile").read_text() + f"\nOUTPUT_DIRECTORY = {folder}\n{extra}"
        result = tree.run("doxygen", "-", input=settings)
    problems = [line for line in result.output.splitlines() if line.strip()] or result.problems("doxygen")
    undocumented = sum("not documented" in line for line in problems)
    return [f"{undocumented} names are not documented", *problems] if undocumented else problems


def check_docs():
    tree.report("the code in the documents compiles", uncompiled())
    tree.report("files, links, commands, tests and names in the documents exist", untrue())
    tree.report("every public name is documented, and the reference is built without a warning", reference())
    tree.report("every public operation says what it returns and what it leaves in OpenGL", contracts.incomplete())
