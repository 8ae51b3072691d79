"""bench_machine.py RESULTS REVISION: adds to the results of a measurement what they were measured with."""

import datetime
import json
import os
import pathlib
import platform
import re
import subprocess
import sys


def first_line(*command):
    try:
        result = subprocess.run(command, capture_output=True, text=True, check=False, stdin=subprocess.DEVNULL)
    except OSError:
        return "unknown"
    return (result.stdout.splitlines() or ["unknown"])[0].strip()


def processor():
    found = re.search(r"^model name\s*:\s*(.*)$", pathlib.Path("/proc/cpuinfo").read_text(), re.MULTILINE)
    return found.group(1) if found else platform.machine()


def system():
    found = re.search(r'^PRETTY_NAME="?(.*?)"?$', pathlib.Path("/etc/os-release").read_text(), re.MULTILINE)
    return found.group(1) if found else platform.system()


def main():
    path, revision = pathlib.Path(sys.argv[1]), sys.argv[2]
    results = json.loads(path.read_text())
    results["machine"] = {
        "processor": processor(),
        "cores": os.cpu_count(),
        "load": round(os.getloadavg()[1], 1),
        "system": system(),
        "wine": first_line("wine", "--version"),
        "compiler": first_line("x86_64-w64-mingw32-g++-posix", "--version"),
        "revision": revision,
        "date": datetime.date.today().isoformat(),
    }
    path.write_text(json.dumps(results, indent=2) + "\n")


main()
