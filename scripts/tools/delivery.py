"""Check of the package that hosts get: it is complete, its README's commands work, separate projects find it, build against it and run,
and the viewer of the zip starts from the unpacked folder alone."""

import pathlib
import re
import shutil
import tempfile
import zipfile

from tools import tree

BUILD = tree.ROOT / "build/windows"
DOCUMENTS = "share/doc/QelDisplay64t"
EXAMPLES = "share/QelDisplay64t/examples"
LIBRARIES = ("QelBase64t", "QelGeometry64t", "QelDisplay64t")
WANTED = f"""README.md include/QtCore/QString lib/pkgconfig/QelDisplay64t.pc bin/qelview.exe bin/qelhostcontext.exe bin/Qt5Core.dll
{DOCUMENTS}/LICENSE {DOCUMENTS}/README.md {DOCUMENTS}/CHANGELOG.md {DOCUMENTS}/docs/licences.md {DOCUMENTS}/docs/host-guide.md
{DOCUMENTS}/licences/qt5core/LICENSE.LGPL3 {EXAMPLES}/minimal/main.cpp {EXAMPLES}/hostcontext/main.cpp
share/QelDisplay64t/cmake/mingw-w64-posix.cmake""".split()
# What every Windows has in its system folder.
OF_WINDOWS = set(
    "advapi32 comctl32 comdlg32 dwmapi gdi32 glu32 kernel32 mpr msvcrt netapi32 ole32 opengl32 shell32 shlwapi user32 userenv uxtheme "
    "version winmm ws2_32".split()
)
CAPTURING_PROJECT = """cmake_minimum_required(VERSION 3.22)
project(Capturing LANGUAGES CXX)
find_package(QelDisplay64t 0.1 REQUIRED)
add_executable(capturing main.cpp)
target_link_libraries(capturing PRIVATE QelDisplay64t::QelDisplay64t QelDisplay64t::Qt5Core)
"""
CAPTURING_HOST = """#include <windows.h>
#include <QString>
#include <QelDisplay64t.h>
#include <QelGl.h>
int main() {
    const auto display = qel::adopt(newScreenDisplay());
    const auto answer = display->beginCapture(4, 4, nullptr, QString("picture.bmp"));
    const bool isClean = wglGetCurrentContext() == nullptr && gluErrorString(GL_NO_ERROR) != nullptr;
    return answer == qel::kRefused && isClean ? 0 : 1;
}
"""


def version():
    return re.search(r"project\(QelDisplay64t VERSION ([\d.]+)", (tree.ROOT / "CMakeLists.txt").read_text()).group(1)


def lacking(prefix):
    """Files that a host needs and the package lacks."""
    wanted = [*WANTED, *(f"bin/{name}.dll" for name in LIBRARIES), *(f"lib/lib{name}.dll.a" for name in LIBRARIES)]
    wanted += [f"lib/cmake/QelDisplay64t/QelDisplay64t{part}.cmake" for part in ("Config", "ConfigVersion", "Targets")]
    wanted += [f"include/QelDisplay64t/{path.name}" for folder in tree.PUBLIC_FOLDERS for path in (tree.ROOT / folder).glob("*.h")]
    return [f"{name} is not in the package" for name in wanted if not (prefix / name).is_file()]


def misnamed(prefix):
    """Paths that the package's own README names and that are not in it."""
    quoted = re.findall(r"`([\w./-]+/[\w./-]*|\w+\.exe)`", (prefix / "README.md").read_text())
    return [f"README.md names {name}" for name in quoted if not (prefix / name).exists() and not (prefix / "bin" / name).exists()]


def strangers(loaded):
    """What the package's binaries load and nobody brings along; `loaded` has binary -> names of the DLLs it loads."""
    present = {pathlib.Path(name).stem.lower() for name in loaded} | OF_WINDOWS
    pairs = [(binary, name) for binary, names in loaded.items() for name in names]
    return [f"{binary} loads {name}" for binary, name in pairs if pathlib.Path(name).stem.lower() not in present]


def version_in(strings):
    """The version in the wide strings of a binary's version resource."""
    return re.search(r"^\s*FileVersion\n\s*(\S+)$", strings, re.MULTILINE)


def check_files(prefix):
    tree.report("the package has what a host needs, and what its README names", lacking(prefix) + misnamed(prefix))
    binaries = sorted(path for path in (prefix / "bin").iterdir() if path.suffix in (".dll", ".exe"))
    told = {path.name: tree.run("x86_64-w64-mingw32-objdump", "-p", path).output for path in binaries}
    loaded = {name: re.findall(r"DLL Name: (\S+)", text) for name, text in told.items()}
    tree.report("what the package's binaries load is in it or in Windows", strangers(loaded))
    unversioned = []
    for path in binaries:
        found = version_in(tree.run("x86_64-w64-mingw32-strings", "-el", path).output)
        if (path.stem in LIBRARIES or path.suffix == ".exe") and (found is None or found.group(1) != version()):
            unversioned.append(f"{path.name} tells version {found and found.group(1)} and not {version()}")
    tree.report("libraries and programs tell the project's version", unversioned)


def beside_libraries(program, prefix):
    for library in (prefix / "bin").glob("*.dll"):
        shutil.copy(library, program.parent)
    return program


def draws(program, prefix, looks_right=None):
    """Problems of a program that opens a window. `looks_right` judges the colour in the middle of it, given as red, green and blue."""
    names = [tree.windows_path(path) for path in (tree.BINARIES / "qel_watch.exe", beside_libraries(program, prefix))]
    code, told = tree.on_screen("wine", *names)
    middle = re.search(r"middle (\w\w)(\w\w)(\w\w)", told)
    if code != 0 or middle is None:
        return [f"{program.name}: {told.strip()}"]
    color = [int(part, 16) for part in reversed(middle.groups())]
    return [f"{program.name} shows {color}"] if looks_right and not looks_right(*color) else []


def built(source, folder, prefix, toolchain="share/QelDisplay64t/cmake/mingw-w64-posix.cmake"):
    """Problems of a CMake project that is built against the package."""
    options = (f"-DCMAKE_TOOLCHAIN_FILE={prefix / toolchain}", f"-DCMAKE_PREFIX_PATH={prefix}")
    configured = tree.run("cmake", "-G", "Ninja", "-S", source, "-B", folder, *options)
    return configured.problems("configuring") or tree.run("cmake", "--build", folder).problems("building")


def example(name, *programs, looks_right=None):
    def judge(prefix, work):
        problems = built(prefix / EXAMPLES / name, work, prefix)
        return problems or [problem for each in programs for problem in draws(work / f"{each}.exe", prefix, looks_right)]

    return judge


def capturing_host_runs(prefix, work, *toolchain):
    (work / "CMakeLists.txt").write_text(CAPTURING_PROJECT)
    (work / "main.cpp").write_text(CAPTURING_HOST)
    problems = built(work, work / "build", prefix, *toolchain)
    return problems or tree.on_screen("wine", beside_libraries(work / "build/capturing.exe", prefix)).problems("the host")


def built_with_pkg_config(prefix, work):
    search = {"PKG_CONFIG_LIBDIR": str(prefix / "lib/pkgconfig"), "PATH": "/usr/bin:/bin"}
    told = tree.run("pkg-config", "--define-prefix", "--cflags", "--libs", "QelDisplay64t", env=search)
    (work / "main.cpp").write_text(CAPTURING_HOST)
    compiled = tree.run("x86_64-w64-mingw32-g++-posix", work / "main.cpp", "-std=c++20", *told.output.split(), "-o", work / "host.exe")
    problems = told.problems("pkg-config") + compiled.problems("compiling")
    return problems or tree.on_screen("wine", beside_libraries(work / "host.exe", prefix)).problems("the host")


def commands_of_readme(prefix, work):
    """Runs the commands of the package's README, all but the start of the program, which `draws` does."""
    folder = work / "unpacked"
    shutil.copytree(prefix, folder)
    commands = re.findall(r"^ {4}(?!wine)(.*)$", (folder / "README.md").read_text(), re.MULTILINE)
    ran = tree.run("bash", "-e", "-c", "\n".join(commands), cwd=folder)
    program = folder / "build/minimal/qelminimal.exe"
    return ran.problems("the commands") or draws(program, folder)


def viewer_of_the_zip(_, work):
    problems = tree.run("cpack", "-G", "ZIP", "-B", work, cwd=BUILD).problems("packing")
    for archive in work.glob("*.zip"):
        zipfile.ZipFile(archive).extractall(work / "unpacked")
    viewers = list(work.glob("unpacked/*/bin/qelview.exe"))
    if problems or len(viewers) != 1:
        return problems or ["the zip holds no viewer"]
    picture = work / "view.png"
    told = tree.on_screen("wine", tree.windows_path(viewers[0]), "--size", "320x240", "--out", tree.windows_path(picture))
    drawn = picture.exists() and picture.read_bytes().startswith(b"\x89PNG") and picture.stat().st_size > 5000
    return told.problems("the viewer") or ([] if drawn else [f"the viewer left no picture: {told.output.strip()}"])


RUNS = (
    (
        "a project of its own finds the package, and its host draws, linked or loading the module",
        example("minimal", "qelminimal", "qelminimal_loading"),
    ),
    (
        "the module draws into a context that a host has made itself",
        # The host's backdrop is blue; the surface of the module's drawing is green in this light.
        example("hostcontext", "qelhostcontext", looks_right=lambda red, green, blue: green > blue),
    ),
    ("a host of the package can name a file with QString", capturing_host_runs),
    ("pkg-config gives the options that build a host with QString and OpenGL", built_with_pkg_config),
    ("the commands of the package's README build a host that draws", commands_of_readme),
    ("the viewer of the zip draws with the unpacked folder alone", viewer_of_the_zip),
)


def check_package():
    with tempfile.TemporaryDirectory() as folder:
        prefix = pathlib.Path(folder, "installed")
        installed = tree.run("cmake", "--install", BUILD, "--prefix", prefix)
        if installed.code != 0:
            tree.report("the package is installed", installed.problems("cmake --install"))
            return
        check_files(prefix)
        kept = [path for path in sorted(prefix.rglob("*")) if path.is_file() and DOCUMENTS not in path.as_posix()]
        parts = [part for path in kept for part in (str(path.relative_to(prefix)), path)]
        for number, (sentence, judge) in enumerate(RUNS):
            work = pathlib.Path(folder, str(number))
            work.mkdir()
            key = tree.digest(sentence, *parts, pathlib.Path(__file__), tree.ROOT / "cmake/QelInstall.cmake")
            tree.report(sentence, tree.once("package", key, lambda judge=judge, work=work: judge(prefix, work)))
