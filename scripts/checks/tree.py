"""What the checks share: the project's files, and how a check reports."""

import concurrent.futures
import functools
import hashlib
import json
import os
import pathlib
import re
import shlex
import subprocess

ROOT = pathlib.Path(__file__).resolve().parents[2]
CODE_FOLDERS = ("base", "include", "view", "symbol", "transform", "display", "gdi", "module", "tests", "examples", "bench")
TEXT_FOLDERS = CODE_FOLDERS + ("cmake", "scripts", "docs", ".ci")


def cache_folder():
    default = pathlib.Path(os.environ.get("XDG_CACHE_HOME") or pathlib.Path.home() / ".cache") / "QelDisplay64t"
    return pathlib.Path(os.environ.get("QEL_CACHE_DIR") or default)


def code(*suffixes):
    """All our C++ files, headers and sources, or those with the given suffixes."""
    wanted = suffixes or (".h", ".cpp")
    found = []
    for folder in CODE_FOLDERS:
        found += [path for path in (ROOT / folder).rglob("*") if path.suffix in wanted and path.is_file()]
    return sorted(found)


def texts():
    """Every text file of ours: code, build files, scripts, documents."""
    found = [path for path in ROOT.iterdir() if path.is_file() and path.name != ".git"]
    for folder in TEXT_FOLDERS:
        found += [path for path in (ROOT / folder).rglob("*") if path.is_file()]
    binary = (".png", ".bmp", ".pyc", ".ply", ".stl", ".glb", ".ico", ".gz")
    return sorted(path for path in found if path.suffix not in binary)


def name(path):
    return path.relative_to(ROOT).as_posix()


def report(sentence, problems):
    """One line for a check, then what is wrong."""
    print(f"{'not ok' if problems else 'ok'} {sentence}", flush=True)
    for problem in problems:
        print(f"    {problem}", flush=True)


def digest(*parts):
    whole = hashlib.sha256()
    for part in parts:
        whole.update(part if isinstance(part, bytes) else str(part).encode())
        whole.update(b"\0")
    return whole.hexdigest()


def windows_path(path):
    """The name under which a Windows program finds the file; Wine shows the whole file system as drive Z."""
    return "Z:" + str(path).replace("/", "\\")


def run(command, **options):
    return subprocess.run(command, capture_output=True, text=True, errors="replace", check=False, **options)


@functools.lru_cache(maxsize=None)
def headers_by_name():
    found = {}
    for path in code(".h", ".def"):
        found.setdefault(path.name, []).append(path)
    return found


@functools.lru_cache(maxsize=None)
def includes_of(path):
    names = re.findall(r'^\s*#\s*include\s+"([^"]+)"', path.read_text(errors="replace"), re.MULTILINE)
    return [header for name in names for header in headers_by_name().get(name.rsplit("/", 1)[-1], [])]


def closure(path):
    """The file and all headers of ours that it reaches, so that a verdict on it holds until one of them changes."""
    reached, waiting = {path}, [path]
    while waiting:
        for header in includes_of(waiting.pop()):
            if header not in reached:
                reached.add(header)
                waiting.append(header)
    return sorted(reached)


def closure_digest(path, *others):
    contents = [part for file in closure(path) for part in (name(file), file.read_bytes())]
    return digest(*contents, *others)


def compile_commands(preset):
    """Source file -> its compiler command as a list, without output and launcher, of a build of ours."""
    database = ROOT / "build" / preset / "compile_commands.json"
    commands = {}
    for entry in json.loads(database.read_text()) if database.exists() else []:
        path = pathlib.Path(entry["file"])
        if path.suffix == ".cpp" and path.is_relative_to(ROOT) and not path.is_relative_to(ROOT / "build"):
            commands[path] = bare(shlex.split(entry["command"]), str(path))
    return commands


def bare(command, source):
    """The compiler and its options alone."""
    start = next(i for i, word in enumerate(command) if re.search(r"(g\+\+|gcc)(-posix)?$", word))
    options, skip = [], False
    for word in command[start:]:
        if skip or word in ("-c", source):
            skip = False
        elif word == "-o":
            skip = True
        else:
            options.append(word)
    return options


def verdicts(kind, jobs):
    """Runs jobs (title, key, function giving a list of problems) two at a time; one that found nothing is not repeated until its
    key changes. Gives all problems."""
    kept = cache_folder() / "verdicts" / kind
    kept.mkdir(parents=True, exist_ok=True)
    waiting = [job for job in jobs if not (kept / job[1]).exists()]

    def judge(job):
        problems = job[2]()
        if not problems:
            (kept / job[1]).touch()
        return problems

    found = []
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for number, problems in enumerate(pool.map(judge, waiting), 1):
            found += problems
            if number % 20 == 0:
                print(f"   {kind}: {number} of {len(waiting)}", flush=True)
    return found
