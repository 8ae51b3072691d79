"""Checks of the binary interface: the slots of the interfaces, and the finished binaries."""

import re

from tools import tree

ABI = tree.ROOT / "tests/abi"
DUMP_SLOTS = (
    "clang++ -target x86_64-pc-windows-msvc -std=c++20 -ffreestanding -nostdinc++ -isystem tests/abi/freestanding -I base -I include"
    " -S -emit-llvm -o /dev/null -Xclang -fdump-vtable-layouts tests/abi/Probes.cpp"
)
# The libraries with their export macros, and the shipped programs.
LIBRARIES = {"QelBase64t.dll": "QEL_BASE_API", "QelGeometry64t.dll": "QEL_GEOMETRY_API", "QelDisplay64t.dll": "QEL_DISPLAY_API"}
PROGRAMS = ("qelview.exe", "qelminimal.exe", "qelhostcontext.exe")
# High-entropy addresses, a dynamic base, no executable data.
PROTECTIONS = ("HIGH_ENTROPY_VA", "DYNAMIC_BASE", "NX_COMPAT")


def expected_slots(text):
    """Interface name -> names in slot order, from lines "interface slot name"."""
    tables = {}
    for interface, slot, name in (line.split() for line in text.splitlines() if line and not line.startswith("#")):
        names = tables.setdefault(interface, [])
        if int(slot) != len(names):
            raise ValueError(f"slot {slot} of {interface} is out of order")
        names.append(name)
    return tables


def compiled_slots(dump):
    """Interface name -> names in slot order, from the compiler's dump. The entry before slot 0 is the type information."""
    tables, interface = {}, None
    for line in dump.splitlines():
        if line.startswith("VFTable"):
            heading = re.match(r"VFTable for .*'(?:qel::)?(\w+)'(?: in 'Probe_\w+')? \(\d+ entries\)\.$", line)
            interface = heading.group(1) if heading and "Probe_" not in line else None
        entry = re.match(r"\s*\d+ \| (.*)$", line)
        if interface and entry and not entry.group(1).endswith(" RTTI"):
            method = re.search(r"::(~?\w+)\(", entry.group(1))
            name = method.group(1) if method else entry.group(1)
            tables.setdefault(interface, []).append("destructor" if name.startswith("~") else name)
    return tables


def slot_differences(wanted, found):
    for interface, names in wanted.items():
        there = found.get(interface, [])
        for slot in range(max(len(names), len(there))):
            want, have = (row[slot] if slot < len(row) else "nothing" for row in (names, there))
            if want != have:
                yield f"{interface} slot {slot}: {want} expected, {have} found"


def check_slots():
    dump = tree.run(*DUMP_SLOTS.split()).output
    errors = [line for line in dump.splitlines() if "error" in line]
    tree.report("the interface headers compile with the freestanding headers alone", errors)
    wanted = expected_slots((ABI / "slots.txt").read_text())
    count = sum(map(len, wanted.values()))
    tree.report(f"all {count} slots of {len(wanted)} interfaces are in their places", slot_differences(wanted, compiled_slots(dump)))
    undescribed = [f"{path.name} has no table" for path in sorted((tree.ROOT / "include").glob("I*.h")) if path.stem not in wanted]
    tree.report("every interface has a table of slots", undescribed)


def protection_problems(headers):
    """Problems in the output of `objdump -p -h`."""
    missing = [f"lacks {name}" for name in PROTECTIONS if not re.search(rf"^\s+{name}$", headers, re.MULTILINE)]
    sections = re.findall(r"^ *\d+ (\S+) .*\n\s+(.*)$", headers, re.MULTILINE)
    open_sections = [name for name, flags in sections if "CODE" in flags and "READONLY" not in flags]
    return missing + [f"section {name} is writable and executable" for name in open_sections]


def exported(headers):
    """The names in the table of exports."""
    table = headers.partition("[Ordinal/Name Pointer] Table")[2].partition("\n\n")[0]
    return re.findall(r"^\s*\[ *\d+\](?: \+base\[ *\d+\] +\w+)? (\S+)$", table, re.MULTILINE)


def declared(macro, headers):
    """Names of the classes and functions that the texts of headers mark for export."""
    names = set()
    for text in headers:
        names |= set(re.findall(rf"(?:class|struct) {macro} (\w+)", text))
        names |= set(re.findall(rf"{macro} [^;{{=]*?(\w+|operator\S)\(", text))
    return names


def undeclared(readable, allowed):
    for name in readable:
        bare = re.sub(r"^(?:(?:typeinfo(?: name)?|vtable) for )?(?:qel::)?", "", name).split("(")[0].split("::")[0]
        if bare not in allowed:
            yield f"exports {name}"


def check_binaries():
    headers = [path.read_text() for path in tree.public_headers()]
    unprotected, exports, dated = [], [], []
    for name in (*LIBRARIES, *PROGRAMS):
        result = tree.run("x86_64-w64-mingw32-objdump", "-p", "-h", tree.BINARIES / name)
        unprotected += result.problems(name) or [f"{name} {problem}" for problem in protection_problems(result.output)]
        dated += [] if re.search(r"^Time/Date\s.* 1970", result.output, re.MULTILINE) else [name]
        names = exported(result.output)
        if name in LIBRARIES:
            readable = tree.run("x86_64-w64-mingw32-c++filt", "-n", *names).output.splitlines() if names else []
            problems = list(undeclared(readable, declared(LIBRARIES[name], headers))) if readable else ["exports nothing"]
            exports += [f"{name} {problem}" for problem in problems]
        elif names:
            exports.append(f"{name} is a program and exports {len(names)} names")
    tree.report("the binaries load anywhere and no section is both writable and executable", unprotected)
    tree.report("the binaries hold no time of linking: the same sources give the same bytes", dated)
    tree.report("the libraries export what their headers declare and nothing else", exports)
