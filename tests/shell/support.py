"""What the tests of this folder share. They are called with the path of the tool and that of the
source tree, run in a directory of their own, and end at the first check that fails."""

import os
import subprocess
import sys
import tempfile

tool, source = (os.path.abspath(arg) for arg in sys.argv[1:3])
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


def check(what, found, expected):
    if found != expected:
        sys.exit(f"{what}: {found}\nexpected {expected}")
