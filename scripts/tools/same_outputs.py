"""same_outputs.py TOOL OTHER EXAMPLES: checks that two builds of the tool do the same with every
command on the examples, and with the examples when any one line of their files is missing."""

import collections
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

BOARDS = "teasel/board_spec.xml", "marl/board_spec.xml", "sedge/board_spec.xml"

tools = [os.path.abspath(tool) for tool in sys.argv[1:3]]
statuses = collections.Counter()


def run(tool, arguments, stdout):
    result = subprocess.run([tool, *arguments], stdout=stdout, stderr=subprocess.PIPE, check=False,
                            env=os.environ | {"VEMOSDKROOT": "sdk"})
    return result.returncode, result.stdout, result.stderr


def compare(*arguments, stdout=subprocess.PIPE, about=""):
    result, other = (run(tool, arguments, stdout) for tool in tools)
    if result != other:
        sys.exit(f"{' '.join(arguments)} {about}: {result}\nbut the other: {other}")
    statuses[result[0]] += 1
    return result[1]


def compare_commands(board):
    listing = compare(board, "?").decode().splitlines()[1:]
    for command in filter(None, listing):
        compare(board, command.replace("<compile-flow-name>", "nosuch"))
    for flow in compare(board, "compileflownames").decode().split(", "):
        compare(board, f"synthesize_cmd:{flow}")


def compare_without_a_line(path):
    whole = path.read_bytes()
    lines = whole.splitlines(keepends=True)
    for number in range(len(lines)):
        path.write_bytes(b"".join(lines[:number] + lines[number + 1:]))
        for board in BOARDS:
            compare(board, "name", about=f"without line {number + 1} of {path}")
    path.write_bytes(whole)


with tempfile.TemporaryDirectory() as folder:
    examples = shutil.copytree(sys.argv[3], f"{folder}/examples")
    os.chdir(examples)
    compare()
    compare("missing.xml", "name")
    with open("/dev/full", "wb") as full:
        compare(BOARDS[0], "name", stdout=full)
    for name in BOARDS:
        compare_commands(name)
    for file in sorted(pathlib.Path().rglob("*.xml")):
        compare_without_a_line(file)
    os.chdir("/")

if not all(statuses[status] for status in (0, 1, -6)):
    sys.exit(f"too little seen: {statuses}")
