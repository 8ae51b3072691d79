"""Check of scripts/with-screen: a screen ends with its command and leaves nothing behind, and other programs of its Wine prefix do not
affect it."""

import pathlib
import tempfile
import time

from tools import tree

VIEWER = tree.BINARIES / "qelview.exe"
NO_OPENGL = 3
# A desktop that started without a screen stays open while one viewer starts on it and another on its own screen. The first cannot get
# OpenGL, which shows that the desktop exists.
WITH_A_DESKTOP_WITHOUT_SCREEN = f"""
env -u DISPLAY wine explorer &
for attempt in 1 2 3; do # the desktop takes a moment to start
    env -u DISPLAY timeout 20 wine "$1" --size 64x64 --capture "$2.none.bmp"
    code=$?
    [ $code -ne {NO_OPENGL} ] || break
done
[ $code -eq {NO_OPENGL} ] || echo "a viewer without a screen ended with $code"
timeout 100 scripts/with-screen wine "$1" --size 64x64 --capture "$2" || echo "a viewer on a screen ended with $?"
"""


def processes_of(prefix):
    for process in pathlib.Path("/proc").glob("[0-9]*/environ"):
        try:
            if f"WINEPREFIX={prefix}\0".encode() in process.read_bytes():
                yield process.parent.name
        except OSError:
            pass  # It has ended, or belongs to someone else.


def ends_with_its_command(folder):
    code, output = tree.on_screen("sh", "-c", 'echo "$WINEPREFIX"; wine start explorer; wine cmd /c exit 7', TMPDIR=str(folder))
    prefix = output.split("\n")[0]
    if not prefix.startswith(f"{folder}/"):
        return [f"the prefix is not the screen's own: {output}"]
    problems = [f"exit code {code} instead of 7"] if code != 7 else []
    problems += [f"{path.name} is left behind" for path in folder.iterdir()]
    # Killed processes disappear when the system gets to them.
    until = time.monotonic() + 10
    while (left := sorted(processes_of(prefix))) and time.monotonic() < until:
        time.sleep(0.1)
    return problems + [f"process {number} is left behind" for number in left]


def draws_beside_others(folder):
    picture = folder / "picture.bmp"
    words = ("bash", "-c", WITH_A_DESKTOP_WITHOUT_SCREEN, "bash", str(VIEWER), tree.windows_path(picture))
    output = tree.on_screen(*words, TMPDIR=str(folder)).output
    problems = [line for line in output.splitlines() if line.startswith("a viewer")]
    return problems if picture.exists() else [*problems, "there is no picture", *output.splitlines()[-5:]]


def check_screens():
    for sentence, judge in (
        ("a screen ends with its command and leaves nothing behind", ends_with_its_command),
        ("a program on its own screen draws, whatever desktop its prefix has elsewhere", draws_beside_others),
    ):
        with tempfile.TemporaryDirectory() as folder:
            tree.report(sentence, judge(pathlib.Path(folder)))
