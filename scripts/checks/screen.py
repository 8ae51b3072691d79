"""Runs a command on a screen of its own."""

import os
import subprocess
import tempfile

import tree

WITH_SCREEN = tree.ROOT / "scripts" / "with-screen"


def on_screen(*command, seconds=120, **environment):
    """Gives the command's exit code and all it printed. Its output goes through a file, since what Wine starts would keep a pipe open."""
    script = f'. scripts/lib/cache.sh; . scripts/lib/wine.sh; exec timeout {seconds} "$@"'
    words = ["bash", "-c", script, "bash", WITH_SCREEN, *command]
    with tempfile.TemporaryFile("w+") as output:
        places = {"stdin": subprocess.DEVNULL, "stdout": output, "stderr": output}
        code = subprocess.run(words, cwd=tree.ROOT, env={**os.environ, **environment}, check=False, **places).returncode
        output.seek(0)
        return code, output.read()
