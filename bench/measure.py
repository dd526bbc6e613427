"""Measures whole processes."""

import math
import os
import re
import resource
import subprocess


class Cost:
    """What one run took: `cpu` seconds (user and system), `peak` kilobytes of memory."""

    def __init__(self, command):
        process = subprocess.Popen(command, stdout=subprocess.DEVNULL)
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
        if process.returncode != 0:
            raise subprocess.CalledProcessError(process.returncode, command)
        self.cpu = usage.ru_utime + usage.ru_stime
        self.peak = usage.ru_maxrss
        if self.peak <= resource.getrusage(resource.RUSAGE_SELF).ru_maxrss:
            self.peak = math.nan  # that of this program, of which the process was a copy at first


def instructions(command):
    """Instructions of one run, dynamic linking included."""
    result = subprocess.run(
        ["valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null", *command],
        stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True, check=True)
    return int(re.search(r"Collected : (\d+)", result.stderr).group(1))
