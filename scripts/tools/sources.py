"""Checks of the sources as texts: layout, layers, and rules for every text."""

import re

from tools import tree

LONGEST_FILE = 350

# The folders that a folder may use besides itself. The longest matching prefix of a file's path counts.
MAY_USE = {
    "base": (),
    "include": ("base",),
    "view": ("base", "include"),
    "symbol": ("base", "include"),
    "transform": ("base", "include"),
    "system": ("base",),
    "display": ("base", "include", "view", "symbol", "system"),
    "gdi": ("base", "include", "system"),
    "module": ("base", "include", "view", "symbol", "transform", "system", "display", "gdi"),
    "examples": ("base", "include"),
    "examples/gallery": ("base", "include", "examples/viewer/host", "examples/viewer/ui"),
    # A host with the test kit, the viewer's scenes, and the matrices, which public headers do not show.
    "bench": ("base", "include", "view", "examples/viewer/model", "examples/viewer/host", "tests"),
}
# The layers of the viewer, from the ground up; each also uses the public headers.
VIEWER = {
    "model": "",
    "text": "",
    "readers": "model text",
    "sample": "model",
    "input": "text",
    "host": "model",
    "ui": "model readers input",
    "stage": "model text input host ui",
    "map": "model text host ui stage",
    "app": "model text readers sample input host ui stage map",
}
for floor, below in VIEWER.items():
    MAY_USE[f"examples/viewer/{floor}"] = ("base", "include", *(f"examples/viewer/{each}" for each in below.split()))
# Sentence, headers, and the only files that may include them.
ONLY_IN = (
    ("only base/QelGl.h includes OpenGL and GLU", r"GL/glu?\.h", r"base/QelGl\.h"),
    (
        "Windows headers stay in system/QelSystem.h and outside the module",
        r"(?i:(windowsx?|windef|winbase|wingdi|winuser|process|commctrl|commdlg|shellapi|psapi|dbghelp|io|direct)\.h|GL/wgl\w*\.h)",
        r"system/QelSystem\.h|(examples|bench|tests/kit|tests/package)/.*|tests/.*Windows(Test)?\.(cpp|h)|module/ModuleEntry\.cpp",
    ),
    (
        "installed headers and hosts do not include base/detail/",
        r"detail/\w+\.h",
        r"base/detail/.*|base/\w+\.cpp|(view|symbol|transform|display|gdi|tests)/.*",
    ),
)
# Sentence, pattern, and whether only code is searched. Written so that this file does not match itself.
NOWHERE = (
    ("nothing is marked as unfinished", r"\b(T[O]DO|F[I]XME|X[X]X|H[A]CK)\b", False),
    (
        "no text refers to something outside the project",
        r"(?<![\w.])/(?:wo[r]k|ro[o]t|ho[m]e)/|/t[m]p/w\b|\bPar[t]s? \d\.\d|\bissu[e] #?\d|\b[Ss]pe[c]\b|[Ss]pecificatio[n]"
        r"|\b[Aa]s specifie[d]\b",
        False,
    ),
    ("no line ends in white space", r"[ \t]+$", True),
)
INCLUDE = re.compile(r'^\s*#\s*include\s+(?:"([^"]+)"|<([^>]+)>)', re.MULTILINE)


def floor_of(name, rules):
    """The entry of the rules for a file, or None."""
    return max((floor for floor in rules if name.startswith(f"{floor}/")), key=len, default=None)


def arrows_up(includes, rules):
    """Includes that the rules do not allow. `includes` maps a file to names, ours as paths from the root."""
    for name, included in includes.items():
        floor = floor_of(name, rules)
        for header in included if floor else ():
            other = floor_of(header, rules) or header.split("/")[0]
            if other != floor and other not in rules[floor]:
                yield f"{name} includes {header}"


def strays(includes, headers, allowed):
    for name, included in includes.items():
        for header in included:
            if re.fullmatch(headers, header) and not re.fullmatch(allowed, name):
                yield f"{name} includes {header}"


def read_includes():
    """(file -> headers of ours as paths from the root, file -> all headers as written)"""
    homes = {path.name: tree.name(path) for path in tree.code(".h")}
    ours, written = {}, {}
    for path in tree.code():
        found = INCLUDE.findall(path.read_text())
        ours[tree.name(path)] = [homes[quoted.rsplit("/", 1)[-1]] for quoted, _ in found if quoted.rsplit("/", 1)[-1] in homes]
        written[tree.name(path)] = [quoted or angled for quoted, angled in found]
    return ours, written


def misnamed_suites(name, text, headers):
    """Suites of a test file that carry neither its name nor that of a header that it includes."""
    subjects = tuple(re.sub(r"(Windows|Native)?Test$|Windows$", "", header.rsplit("/", 1)[-1].split(".")[0]) for header in (name, *headers))
    suites = set(re.findall(r"^(?:TEST|TEST_F|TEST_P|TYPED_TEST)\((\w+)", text, re.MULTILINE))
    return [f"{name}: {suite}" for suite in sorted(suites) if not suite.startswith(subjects)]


def check_layers():
    ours, written = read_includes()
    tree.report("no folder includes from one above it", arrows_up(ours, MAY_USE))
    for sentence, headers, allowed in ONLY_IN:
        tree.report(sentence, strays(written, headers, allowed))
    unguarded = [tree.name(path) for path in tree.code(".h") if not path.read_text().startswith("#pragma once\n")]
    tree.report("every header begins with #pragma once", unguarded)
    tests = [path for path in tree.code(".cpp") if path.stem.endswith("Test")]
    suites = [suite for path in tests for suite in misnamed_suites(tree.name(path), path.read_text(), ours[tree.name(path)])]
    tree.report("every suite is named after its file or a header that the file includes", suites)


def read_symbols(listing):
    """(object -> symbols it defines, object -> symbols it needs) from what `nm -A -P` prints; imported ones by their plain names."""
    defined, needed = {}, {}
    for line in listing.splitlines():
        found = re.match(r"(.+): (\S+) ([A-Zvw])\b", line)
        if found:
            name, symbol, kind = found.groups()
            (needed if kind in "Uvw" else defined).setdefault(name, set()).add(symbol.removeprefix("__imp_"))
    return defined, needed


def links_up(defined, needed, rules):
    """Symbols that an object needs and only objects of folders define that the rules do not allow."""
    floors_of = {}
    for name, symbols in defined.items():
        for symbol in symbols:
            floors_of.setdefault(symbol, set()).add(floor_of(name, rules))
    for name, symbols in needed.items():
        floor = floor_of(name, rules)
        for symbol in sorted(symbols):
            # A host uses the exports of the module's DLLs; the linker enforces that.
            owners = {each for each in floors_of.get(symbol, set()) if not floor.startswith("examples/") or each.startswith("examples/")}
            if owners and not owners & {floor, *rules[floor]}:
                yield f"{name} needs {symbol} of {'/, '.join(sorted(owners))}/"


def check_links():
    objects = {}
    for source, command in tree.compile_commands("windows").items():
        if floor_of(tree.name(source), MAY_USE) not in (None, "examples", "bench"):
            objects[tree.ROOT / "build/windows" / command[command.index("-o") + 1]] = tree.name(source)
    result = tree.run("x86_64-w64-mingw32-nm", "-A", "-P", *objects)
    problems = result.problems("nm") if objects else ["nothing is built for Windows"]
    if not problems:
        listed = result.output
        for path, source in objects.items():
            listed = listed.replace(f"{path}: ", f"{source}: ")
        problems = links_up(*read_symbols(listed), MAY_USE)
    tree.report("no folder needs a symbol from one above it", problems)


def matches(pattern, name, text):
    for number, line in enumerate(text.splitlines(), 1):
        found = re.search(pattern, line)
        if found:
            yield f"{name}:{number}: {found.group(0).strip() or 'white space at the end'}"


def check_texts():
    texts = {tree.name(path): path.read_text(errors="replace") for path in tree.texts()}
    code = {tree.name(path) for path in tree.code()}
    for sentence, pattern, code_alone in NOWHERE:
        files = code if code_alone else texts
        tree.report(sentence, [problem for name in sorted(files) for problem in matches(pattern, name, texts[name])])
    rooms = sorted(name for name in texts if name in code or name.startswith("scripts/"))
    long = [f"{name} has {count} lines" for name in rooms if (count := len(texts[name].splitlines())) > LONGEST_FILE]
    tree.report(f"no file is longer than {LONGEST_FILE} lines", long)


def check_format():
    result = tree.run("clang-format", "--dry-run", "-Werror", *map(tree.name, tree.code()))
    places = [line for line in result.output.splitlines() if "error:" in line]
    tree.report("every C++ file has the layout of .clang-format", places or result.problems("clang-format"))
