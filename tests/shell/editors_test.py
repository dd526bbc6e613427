"""editors_test.py TOOL SOURCE_DIR: Vim and Visual Studio Code find in what the tool prints the faults
that are there, with file and line."""

import json
import os
import re
import shutil
import subprocess
import sys
import tempfile

tool, source = (os.path.abspath(arg) for arg in sys.argv[1:3])

# A piece of the board file, what takes its place, and the faults: file, line (0: none), message.
CASES = [
    ("<host>", "<host>\n<b/>", [["b c.xml", 59, "Unexpected element 'b'."]]),
    ("<host>", '<host a="1"\nb="2">', [["b c.xml", 58, "Unexpected attribute 'a'."],
                                       ["b c.xml", 59, "Unexpected attribute 'b'."]]),
    ("<interfaces>.*?</interfaces>", "", [
        ["b c.xml", 0, "Missing interface configuration (<interfaces>) in board specification."]]),
    ("<host>", "<hots>", [["b c.xml", 58, "XML_ERROR_MISMATCHED_ELEMENT"]]),
    (".*", "", [["b c.xml", 0, "XML_ERROR_EMPTY_DOCUMENT"]]),
    ("pb3180.xml", "nosuch.xml", [["nosuch.xml", 0, "XML_ERROR_FILE_NOT_FOUND"]]),
    ("pb3180.xml", "./peltrab.xml", [["./peltrab.xml", 2, "Unexpected element 'target_model'."]]),
    ("$", "", [["", 0, "Could not find the BSP nosuch in board_spec.xml!"]]),
]


def vim(output):
    with open("output", "w", encoding="utf-8") as file:
        file.write(output)
    entry = "json_encode([bufname(v:val.bufnr), v:val.lnum, trim(v:val.text)])"
    script = ["compiler vemo-boardspec", "cgetfile output",
              f'call writefile(map(filter(getqflist(), "v:val.valid"), "{entry}"), "entries")', "qa!"]
    subprocess.run(["vim", "-es", "-u", "NONE", "-i", "NONE", "--cmd",
                    f"set nocompatible runtimepath^={source}/editors/vim"]
                   + [word for line in script for word in ("-c", line)],
                   stdin=subprocess.DEVNULL, check=True)
    with open("entries", encoding="utf-8") as file:
        return [json.loads(line) for line in file]


def vscode(output):
    """Applies matchers of two patterns to pairs of lines. A line belongs to one match."""
    with open(source + "/editors/vscode/tasks.json", encoding="utf-8") as file:
        matchers = json.load(file)["tasks"][0]["problemMatcher"]
    problems, first = [], ""
    for second in output.splitlines():
        for patterns in (matcher["pattern"] for matcher in matchers):
            matches = [re.search(patterns[i]["regexp"], line) for i, line in enumerate([first, second])]
            if all(matches):
                found = {key: match[pattern[key]] for pattern, match in zip(patterns, matches)
                         for key in ("file", "line", "message") if key in pattern}
                problems.append([found["file"], int(found.get("line", 0)), found["message"]])
                second = ""
                break
        first = second
    return problems


failures = 0
with tempfile.TemporaryDirectory() as directory:
    os.chdir(directory)
    shutil.copytree(source + "/examples/teasel", ".", dirs_exist_ok=True)
    with open("board_spec.xml", encoding="utf-8") as file:
        board = file.read()
    for piece, replacement, faults in CASES:
        with open("b c.xml", "w", encoding="utf-8") as file:
            file.write(re.sub(piece, replacement, board, count=1, flags=re.S))
        printed = subprocess.run([tool, "b c.xml", "name:nosuch"], stdout=subprocess.PIPE, text=True,
                                 check=False).stdout
        # What has no file is an entry in Vim alone.
        for found, expected in [(vim(printed), faults),
                                (vscode(printed), [fault for fault in faults if fault[0]])]:
            if found != expected:
                print(f"{found}, expected {expected} of\n{printed}")
                failures += 1
sys.exit(failures > 0)
