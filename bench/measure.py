"""Runs programs and measures their cost."""

import os
import re
import shutil
import subprocess
import time
from pathlib import Path
from typing import NamedTuple

BENCH = Path(__file__).resolve().parent
CALLGRIND = ("valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null")
# The same counts except for the program's start-up, at three times the speed.
CACHEGRIND = ("valgrind", "--tool=cachegrind", "--cache-sim=no", "--cachegrind-out-file=/dev/null")


class Failure(Exception):
    """A program crashed, failed or timed out; the text names the reason."""


class Cost(NamedTuple):
    milliseconds: float  # elapsed time from the start of the process to its end
    peak_bytes: int      # of resident memory; at least that of this script, the parent process
    processor: float     # milliseconds of processor time, which other work on the machine affects less


def check_status(status):
    if status != 0:
        raise Failure(f"crashes with signal {-status}" if status < 0 else f"fails with status {status}")


def run(command):
    """Runs the command, discards its standard output, and returns its Cost."""
    null = [(os.POSIX_SPAWN_OPEN, 1, os.devnull, os.O_WRONLY, 0)]
    arguments = [str(word) for word in command]
    begin = time.perf_counter_ns()
    process = os.posix_spawn(arguments[0], arguments, os.environ, file_actions=null)
    _, status, usage = os.wait4(process, 0)
    end = time.perf_counter_ns()
    check_status(os.waitstatus_to_exitcode(status))
    return Cost((end - begin) / 1e6, usage.ru_maxrss * 1024, 1e3 * (usage.ru_utime + usage.ru_stime))


def peak_bytes(command):
    """The peak resident memory of the command, even if it is less than that of this script."""
    # The peak of a process starts at its parent's, so a small program must start the measured one.
    done = subprocess.run(["/usr/bin/time", "-f", "%M", *map(str, command)], text=True, errors="replace",
                          stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, check=True)
    return int(done.stderr.split()[-1]) * 1024


def instructions(command, tool=CALLGRIND, directory=None, timeout=None):
    """The number of user-mode instructions of the command, which runs in the directory.

    Raises Failure if the command does not end within the timeout, in seconds.
    """
    words = [*tool, *map(str, command)]
    try:
        done = subprocess.run(words, cwd=directory, timeout=timeout, text=True, errors="replace",
                              stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, check=False)
    except subprocess.TimeoutExpired:
        raise Failure(f"does not end in {timeout} s") from None
    check_status(done.returncode)
    return int(re.search(r"I +refs: +([0-9,]+)", done.stderr)[1].replace(",", ""))


def emptied(directory):
    """Recreates the directory and returns it."""
    shutil.rmtree(directory, ignore_errors=True)
    directory.mkdir(parents=True)
    return directory
