"""A package of the project in a temporary folder, and what can be asked of its files."""

import re
import struct

import tree

BUILD = tree.ROOT / "build" / "windows"
DOCUMENTS = "share/doc/QelDisplay64t"
LIBRARIES = ("QelBase64t", "QelGeometry64t", "QelDisplay64t")
# What every Windows has in its system folder.
OF_WINDOWS = set(
    "advapi32 comctl32 comdlg32 dwmapi gdi32 glu32 kernel32 mpr msvcrt netapi32 ole32 opengl32 shell32 shlwapi user32 userenv uxtheme "
    "version winmm ws2_32".split()
)


def version():
    return re.search(r"project\(QelDisplay64t VERSION ([\d.]+)", (tree.ROOT / "CMakeLists.txt").read_text()).group(1)


def install(prefix):
    result = tree.run(["cmake", "--install", BUILD, "--prefix", prefix])
    if result.returncode != 0:
        raise RuntimeError(result.stderr)


def digest(prefix, *others):
    files = sorted(path for path in prefix.rglob("*") if path.is_file() and path.suffix in (".h", ".dll", ".exe", ".a", ".cmake", ".pc"))
    return tree.digest(*(part for path in files for part in (path.relative_to(prefix), path.read_bytes())), *others)


def lacking(prefix):
    """Files that a host needs and the package lacks."""
    wanted = [f"bin/{name}.dll" for name in LIBRARIES] + [f"lib/lib{name}.dll.a" for name in LIBRARIES]
    wanted += [f"lib/cmake/QelDisplay64t/QelDisplay64t{part}.cmake" for part in ("Config", "ConfigVersion", "Targets")]
    wanted += [f"share/QelDisplay64t/examples/{name}/main.cpp" for name in ("minimal", "hostcontext")]
    wanted += ["lib/pkgconfig/QelDisplay64t.pc", "bin/qelview.exe", "bin/Qt5Core.dll", "include/QtCore/QString"]
    wanted += ["README.md", "bin/qelhostcontext.exe"]
    wanted += [f"{DOCUMENTS}/{name}" for name in ("LICENSE", "README.md", "CHANGELOG.md", "docs/licences.md", "docs/host-guide.md", "licences/qt5core/LICENSE.LGPL3")]
    wanted += [f"include/QelDisplay64t/{path.name}" for path in (tree.ROOT / "include").glob("*.h")]
    return [f"{name} is not in the package" for name in wanted if not (prefix / name).is_file()]


def misnamed(prefix):
    """Paths that the package's own README names and that are not in it."""
    quoted = re.findall(r"`([\w./-]+/[\w./-]*|\w+\.exe)`", (prefix / "README.md").read_text())
    return [f"README.md names {name}" for name in quoted if not (prefix / name).exists() and not (prefix / "bin" / name).exists()]


def binaries(prefix):
    return sorted(path for path in (prefix / "bin").iterdir() if path.suffix in (".dll", ".exe"))


def strangers(prefix):
    """What the package's binaries load and nobody brings along."""
    present = {path.stem.lower() for path in binaries(prefix)}
    for path in binaries(prefix):
        told = tree.run(["x86_64-w64-mingw32-objdump", "-p", path]).stdout
        for name in re.findall(r"DLL Name: (\S+)\.[dD][lL][lL]", told):
            if name.lower() not in present | OF_WINDOWS:
                yield f"{path.name} loads {name}.dll"


def told_version(path):
    """The version in a binary's version resource, or None."""
    data = path.read_bytes()
    at = data.find(struct.pack("<II", 0xFEEF04BD, 0x00010000))
    if at < 0:
        return None
    upper, lower = struct.unpack_from("<II", data, at + 8)
    return f"{upper >> 16}.{upper & 0xFFFF}.{lower >> 16}"


def unversioned(prefix):
    for path in binaries(prefix):
        if path.stem in LIBRARIES or path.suffix == ".exe":
            if told_version(path) != version():
                yield f"{path.name} tells version {told_version(path)} and not {version()}"
