"""Shared by the tools: the project's files, running commands, and the reports of checks."""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import shlex
import subprocess
import tempfile
import typing

ROOT = pathlib.Path(__file__).resolve().parents[2]
BINARIES = ROOT / "build/windows/bin"
PUBLIC_FOLDERS = ("base/", "include/")
CODE_FOLDERS = ("base", "include", "view", "symbol", "transform", "system", "display", "gdi", "module", "tests", "examples", "bench")
TEXT_FOLDERS = CODE_FOLDERS + ("cmake", "scripts", "docs", ".ci")


class Result(typing.NamedTuple):
    code: int
    output: str

    def problems(self, title):
        return [f"{title}: {line}" for line in self.output.splitlines()[-8:] or [f"exit code {self.code}"]] if self.code else []


def run(*command, seconds=600, **options):
    """Runs a command in the project's folder. Its output goes through a file: programs started by Wine would keep a pipe open."""
    with tempfile.TemporaryFile("w+", errors="replace") as output:
        options = {"cwd": ROOT, "text": True, **({} if "input" in options else {"stdin": subprocess.DEVNULL}), **options}
        code = subprocess.run(command, stdout=output, stderr=output, timeout=seconds, check=False, **options).returncode
        output.seek(0)
        return Result(code, output.read())


def on_screen(*command, seconds=300, **environment):
    """Runs a command on its own screen, with Wine."""
    script = '. scripts/lib/cache.sh; . scripts/lib/wine.sh; exec timeout -k 10 "$0" scripts/with-screen "$@"'
    return run("bash", "-c", script, str(seconds), *command, seconds=seconds + 60, env={**os.environ, **environment})


def windows_path(path):
    """The Windows name of a file; Wine shows the whole file system as drive Z."""
    return "Z:" + str(path).replace("/", "\\")


def build(preset, *targets):
    """Sets up what is missing and builds; raises if that fails."""
    script = 'scripts/setup; . scripts/lib/cache.sh; . scripts/lib/say.sh; . scripts/lib/build.sh; buildPreset "$@"'
    subprocess.run(["bash", "-euo", "pipefail", "-c", script, "bash", preset, *targets], cwd=ROOT, check=True)


def cache_folder():
    default = pathlib.Path(os.environ.get("XDG_CACHE_HOME") or pathlib.Path.home() / ".cache") / "QelDisplay64t"
    return pathlib.Path(os.environ.get("QEL_CACHE_DIR") or default)


def code(*suffixes):
    """All our C++ files, headers and sources, or those with the given suffixes."""
    return sorted(path for folder in CODE_FOLDERS for suffix in suffixes or (".h", ".cpp") for path in (ROOT / folder).rglob(f"*{suffix}"))


def public_headers():
    return [path for path in code(".h") if name(path).startswith(PUBLIC_FOLDERS) and not name(path).startswith("base/detail/")]


def texts():
    """Every text file of ours: code, build files, scripts, documents."""
    found = [path for path in ROOT.iterdir() if path.name != ".git"]
    found += [path for folder in TEXT_FOLDERS for path in (ROOT / folder).rglob("*")]
    binary = (".png", ".bmp", ".pyc", ".ply", ".stl", ".glb", ".ico", ".gz")
    return sorted(path for path in found if path.is_file() and path.suffix not in binary)


def name(path):
    return path.relative_to(ROOT).as_posix()


def digest(*parts):
    whole = hashlib.sha256()
    for part in parts:
        content = part.read_bytes() if isinstance(part, pathlib.Path) else part if isinstance(part, bytes) else str(part).encode()
        whole.update(hashlib.sha256(content).digest())
    return whole.hexdigest()


def compile_commands(preset):
    """Source file -> its compiler command as a list of words, in a build of ours. Sources that are compiled together have one command."""
    database = ROOT / "build" / preset / "compile_commands.json"
    entries = json.loads(database.read_text()) if database.exists() else []
    commands = {pathlib.Path(entry["file"]): shlex.split(entry["command"]) for entry in entries if entry["file"].endswith(".cpp")}
    build = ROOT / "build" / preset
    for joined, command in list(commands.items()):
        if joined.is_relative_to(build):
            for member in re.findall(r'^#include "(.*\.cpp)"$', joined.read_text(), re.MULTILINE):
                # FOLDER/TARGET/MEMBER'S FOLDER/JOINED of the build is made of FOLDER/MEMBER of the project.
                source = ROOT / joined.parents[member.count("/") + 1].relative_to(build) / member
                commands[source] = [str(source) if word == str(joined) else word for word in command]
    return {path: command for path, command in commands.items() if path.is_relative_to(ROOT) and not path.is_relative_to(ROOT / "build")}


def closure(path, headers):
    """The file and all headers of ours that it includes; `headers` has the headers by name."""
    reached, waiting = {path}, [path]
    while waiting:
        for included in re.findall(r'^\s*#\s*include\s+"([^"]+)"', waiting.pop().read_text(errors="replace"), re.MULTILINE):
            for header in headers.get(included.rsplit("/", 1)[-1], []):
                if header not in reached:
                    reached.add(header)
                    waiting.append(header)
    return sorted(reached)


def report(sentence, problems):
    """Prints one line for a check, then its problems."""
    problems = list(problems)
    report.failed = report.failed or bool(problems)
    print("\n    ".join([f"{'not ok' if problems else 'ok'} {sentence}", *problems]), flush=True)


report.failed = False


def verdict(kind, key):
    """The file that marks that the check of this kind has passed with these inputs."""
    path = cache_folder() / "verdicts" / kind / key
    path.parent.mkdir(parents=True, exist_ok=True)
    return path


def once(kind, key, judge):
    """The problems that `judge` finds; once it finds none, it does not run again until the key changes."""
    passed = verdict(kind, key)
    problems = [] if passed.exists() else list(judge())
    if not problems:
        passed.touch()
    return problems


def in_parallel(function, items):
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        return list(pool.map(function, items))
