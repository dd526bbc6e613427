"""An editor, which is the argument, finds in what the tool prints the faults that are there, with
file and line."""

import json
import re
import shutil

from support import TOOL, arguments, check, need, read, run, source, write

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
MATCHERS = json.loads(read(source + "/editors/vscode/tasks.json"))["tasks"][0]["problemMatcher"]
VIM = "vim -es -u NONE -i NONE --cmd 'set nocp rtp^=./vim' -S script"
write("script", """compiler vemo-boardspec
cgetfile output
let valid = filter(getqflist(), 'v:val.valid')
let entries = map(valid, '[bufname(v:val.bufnr), v:val.lnum, trim(v:val.text)]')
call writefile([json_encode(entries)], 'entries')
quitall!
""")


def vim(output):
    write("output", output)
    check(VIM, run(VIM), (0, ""))
    return json.loads(read("entries"))


def vscode(output):
    """Applies matchers of two patterns to pairs of lines. A line belongs to one match."""
    problems, first = [], ""
    for second in output.splitlines():
        for patterns in (matcher["pattern"] for matcher in MATCHERS):
            matches = [re.search(pattern["regexp"], line)
                       for pattern, line in zip(patterns, [first, second])]
            if all(matches):
                found = {key: match[pattern[key]] for pattern, match in zip(patterns, matches)
                         for key in ("file", "line", "message") if key in pattern}
                problems.append([found["file"], int(found.get("line", 0)), found["message"]])
                second = ""
                break
        first = second
    return problems


shutil.copytree(source + "/examples/teasel", ".", dirs_exist_ok=True)
shutil.copytree(source + "/editors/vim", "vim")
editor, = arguments
if editor == "vim":
    need("vim")
for piece, replacement, faults in CASES:
    write("b c.xml", re.sub(piece, replacement, read("board_spec.xml"), count=1, flags=re.S))
    printed = run(f"{TOOL} 'b c.xml' name:nosuch")[1]
    if editor == "vim":
        check(printed, vim(printed), faults)
    else:  # to which a fault without a file is no problem
        check(printed, vscode(printed), [fault for fault in faults if fault[0]])
