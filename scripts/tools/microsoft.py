"""Checks of the build for the Microsoft C++ ABI: exports and imports of the libraries, what a debugger finds, and a host of the package."""

import pathlib
import re
import tempfile
import xml.etree.ElementTree

from tools import abi, delivery, tree

BUILD = tree.ROOT / "build/microsoft"
TOOLCHAIN = tree.ROOT / "cmake/clang-microsoft.cmake"
NATVIS = tree.ROOT / "base/QelDisplay64t.natvis"
# Functions whose addresses lead to their lines.
PLACES = {"newScreenDisplay": "module/Factories.cpp", "newQelSymbol": "module/Factories.cpp", "getPubSymbol": "symbol/PublicSymbol.cpp"}


def tools():
    key = re.search(r"^QEL_MICROSOFT_KEY=(.*)$", (tree.ROOT / "scripts/cache-keys").read_text(), re.MULTILINE).group(1)
    return tree.cache_folder() / key / "llvm/bin"


def exports(library):
    """Name -> address in the file's own terms."""
    told = tree.run(tools() / "llvm-readobj", "--coff-exports", "--file-headers", BUILD / "bin" / library).output
    base = int(re.search(r"ImageBase: (0x[0-9A-F]+)", told).group(1), 16)
    return {name: base + int(place, 16) for name, place in re.findall(r"^  Name: (\S+)\n  RVA: (0x[0-9A-F]+)$", told, re.MULTILINE)}


def bare(readable):
    """The qualified name in a readable declaration, of either compiler: "class Enve qel::f(int)" gives "qel::f"."""
    text = re.sub(r"\[abi:\w+\]", "", readable)
    found = re.search(r"([\w:~]*operator\W+?|[\w:~]+)\(", text)
    return (found.group(1) if found else text).strip()


def readable_exports(library):
    """(names of the functions that the MinGW build exports, those that this build exports)"""
    mingw = abi.exported(tree.run("x86_64-w64-mingw32-objdump", "-p", tree.BINARIES / library).output)
    mingw = tree.run("x86_64-w64-mingw32-c++filt", "-n", *mingw).output.splitlines()
    names = [name for name in exports(library)]
    told = tree.run(tools() / "llvm-undname", *(name for name in names if name.startswith("?"))).output
    plain = [name for name in names if not name.startswith("?")]
    own = [line for line in told.splitlines() if line and not line.startswith("?")]
    data = re.compile(r"^(vtable|typeinfo|VTT|non-virtual thunk|virtual thunk)")
    return {bare(name) for name in mingw if not data.match(name)}, {bare(name) for name in own} | set(plain)


def unexported():
    """What hosts of the one build can link and hosts of this one cannot."""
    for library in abi.LIBRARIES:
        if not (tree.BINARIES / library).exists():
            yield f"{library} of the MinGW build is not there"
            continue
        there, here = readable_exports(library)
        yield from (f"{library} does not export {name}" for name in sorted(there - here))


def borrowed_library_types():
    """Imported functions of Qt with types of the C++ library in their signatures: only a Qt built with the same library has them."""
    for library in abi.LIBRARIES:
        told = tree.run(tools() / "llvm-readobj", "--coff-imports", BUILD / "bin" / library).output
        names = re.findall(r"^  Symbol: (\S+)", told, re.MULTILINE)
        yield from (f"{library} imports {name}" for name in names if "@std@" in name)
        if not names:
            yield f"{library} imports nothing"


def misplaced():
    """Functions whose lines the debugging information does not know."""
    addresses = exports("QelDisplay64t.dll")
    for name, file in PLACES.items():
        told = tree.run(tools() / "llvm-symbolizer", "--obj=" + str(BUILD / "bin/QelDisplay64t.dll"), hex(addresses[name])).output
        place = re.search(r"([\w/.-]+):(\d+):\d+", told.replace("\\", "/"))
        lines = (tree.ROOT / file).read_text().splitlines()
        line = lines[int(place.group(2)) - 1] if place and place.group(1).endswith(file) else ""
        if name not in line:
            yield f"{name} is at {told.strip()}"


def unknown_fields(text, header_of):
    """Names in a natvis file that the headers do not have."""
    for shown in xml.etree.ElementTree.fromstring(text):
        name = re.sub(r"<.*", "", shown.get("Name")).split("::")[-1]
        header = header_of(name)
        if header is None:
            yield f"{name} is in no header"
            continue
        parts = [part for node in shown.iter() for part in (node.get("Condition") or "", *re.findall(r"{(.*?)}", node.text or ""))]
        parts += [node.text for node in shown.iter() if node.tag.rsplit("}", 1)[-1] in ("Item", "ExpandedItem")]
        for field in sorted(set(re.findall(r"[A-Za-z_]\w*", " ".join(parts))) - {"nullptr"}):
            if not re.search(rf"\b{field}\b", header):
                yield f"{name} has no {field}"


def header_of(name):
    """The texts of the header that defines a class and of the one whose objects smart pointers point to."""
    for path in tree.public_headers():
        text = path.read_text()
        if re.search(rf"(?:struct|class) (?:QEL_\w+ )?{name}(?: final)?(?: :[^{{]*)? {{", text):
            return text + (tree.ROOT / "base/QelReferenced.h").read_text()
    return None


def natvis_problems():
    yield from unknown_fields(NATVIS.read_text(), header_of)
    for library in abi.LIBRARIES:
        if NATVIS.name.encode() not in (BUILD / "bin" / library).with_suffix(".pdb").read_bytes():
            yield f"the PDB of {library} does not hold {NATVIS.name}"


def check_microsoft():
    tree.report("the libraries export what those of the MinGW build export", unexported())
    tree.report("no type of a C++ library is passed to Qt", borrowed_library_types())
    tree.report("the PDB leads addresses to their lines", misplaced())
    tree.report("the debugger's views name fields that exist, and are in the PDBs", natvis_problems())
    with tempfile.TemporaryDirectory() as folder:
        prefix = pathlib.Path(folder, "installed")
        installed = tree.run("cmake", "--install", BUILD, "--prefix", prefix)
        problems = installed.problems("cmake --install") or delivery.capturing_host_runs(prefix, pathlib.Path(folder), TOOLCHAIN)
        tree.report("a host that clang-cl builds finds the installed package and runs", problems)
