"""What the tests of this folder share. They are called with the path of the tool, that of the
source tree and arguments of their own, run in a directory of their own, and end at the first check
that fails. Paths may contain spaces and any letters: shell commands use the quoted TOOL."""

import os
import shlex
import shutil
import subprocess
import sys
import tempfile

tool, source = (os.path.abspath(arg) for arg in sys.argv[1:3])
arguments = sys.argv[3:]
TOOL = shlex.quote(tool)
_directory = tempfile.TemporaryDirectory()
home = _directory.name
os.chdir(home)


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def write(path, text):
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)
    os.chmod(path, 0o755)


def run(command):
    """Exit status and output of a shell command."""
    result = subprocess.run(command, shell=True, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                            stderr=subprocess.STDOUT, text=True, check=False)
    return result.returncode, result.stdout


def need(*programs):
    """Ends the test as skipped where one of the programs, or of the files, is not installed."""
    for program in programs:
        if not (os.path.exists(program) if "/" in program else shutil.which(program)):
            print(f"skipped: {program} is not installed")
            sys.exit(77)


def check(what, found, expected):
    if found != expected:
        sys.exit(f"{what}: {found}\nexpected {expected}")
