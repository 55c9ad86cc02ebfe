"""Runs programs and says what they cost."""

import os
import re
import shutil
import subprocess
import sys
import time
from pathlib import Path
from typing import NamedTuple

BENCH = Path(__file__).resolve().parent
CALLGRIND = ["valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null"]


class Cost(NamedTuple):
    milliseconds: float  # from the start of the process to its end, by the clock on the wall
    peak_bytes: int      # of resident memory; at least that of this script, which starts the program


def run(command):
    """Runs the command, whose output goes nowhere, and gives its Cost. Ends the script when it fails."""
    null = [(os.POSIX_SPAWN_OPEN, 1, os.devnull, os.O_WRONLY, 0)]
    arguments = [str(word) for word in command]
    begin = time.perf_counter_ns()
    process = os.posix_spawn(arguments[0], arguments, os.environ, file_actions=null)
    _, status, usage = os.wait4(process, 0)
    end = time.perf_counter_ns()
    if status != 0:
        sys.exit(f"failed with status {os.waitstatus_to_exitcode(status)}: {' '.join(arguments)}")
    return Cost((end - begin) / 1e6, usage.ru_maxrss * 1024)


def instructions(command, directory=None, timeout=None):
    """The instructions that the command executes, counted by callgrind (the kernel's are not).

    Runs in the given directory. Gives None when the command does not end within the timeout
    (seconds) and the number of the signal, negated, when it crashes.
    """
    words = CALLGRIND + [str(word) for word in command]
    try:
        done = subprocess.run(words, cwd=directory, timeout=timeout, text=True, errors="replace",
                              stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, check=False)
    except subprocess.TimeoutExpired:
        return None
    if done.returncode < 0:
        return done.returncode
    counted = re.search(r"Collected : (\d+)", done.stderr)
    if not counted:
        sys.exit(f"callgrind counted nothing: {done.stderr[-500:]}")
    return int(counted[1])


def emptied(directory):
    """The directory, made anew."""
    shutil.rmtree(directory, ignore_errors=True)
    directory.mkdir(parents=True)
    return directory
