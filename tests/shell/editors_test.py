"""An editor, which is the argument, finds in what the checker prints the faults that are there,
with file, line, column and severity."""

import json
import os
import re
import shlex
import shutil

from support import arguments, check, need, read, run, source, tool, write

LINT = os.path.join(os.path.dirname(tool), "vemo-boardspec-lint")
# A piece of the board file, what takes its place, and the faults: file, line and column (0: none),
# severity, message and id.
CASES = [
    ("<host>", '<host a="1"\nb="2">', [
        ["b c.xml", 58, 9, "error", "Unexpected attribute 'a'.", "unknown-attribute"],
        ["b c.xml", 59, 1, "error", "Unexpected attribute 'b'.", "unknown-attribute"]]),
    ("34128", "34128 MB/s", [
        ["b c.xml", 35, 48, "warning",
         "Attribute 'max_bandwidth' is read as 34128: ' MB/s' is ignored.", "partly-read-number"]]),
    ("</board>", "", [["b c.xml", 3, 0, "error", "XML error: .*", "malformed-xml"]]),
    (".*", "", [["b c.xml", 0, 0, "error", "XML error: .*", "malformed-xml"]]),
    ("pb3180.xml", "nosuch.xml", [
        ["b c.xml", 6, 11, "error", "Cannot find the device model 'nosuch.xml'.",
         "model-not-found"]]),
    ("$", "", []),
]
MATCHERS = json.loads(read(source + "/editors/vscode/tasks.json"))["tasks"][0]["problemMatcher"]
VIM = "vim -es -u NONE -i NONE --cmd 'set nocp rtp^=./vim' -S script"
write("script", """compiler vemo-boardspec
cgetfile output
let valid = filter(getqflist(), 'v:val.valid')
let entries = map(valid, '[bufname(v:val.bufnr), v:val.lnum, v:val.col, v:val.type, v:val.text]')
call writefile([json_encode(entries)], 'entries')
quitall!
""")


def vim(output):
    write("output", output)
    check(VIM, run(VIM), (0, ""))
    severities = {"e": "error", "w": "warning", "n": "note"}
    return [[file, line, column, severities[letter],
             *re.fullmatch(r"(.*?)(?: \[(.*)\])?", text).groups()]
            for file, line, column, letter, text in json.loads(read("entries"))]


def vscode(output):
    problems = []
    for line in output.splitlines():
        for pattern in (matcher["pattern"] for matcher in MATCHERS):
            match = re.search(pattern["regexp"], line)
            if match:
                found = {key: match[group] for key, group in pattern.items()
                         if isinstance(group, int)}
                problems.append([found["file"], int(found.get("line", 0)),
                                 int(found.get("column") or 0), found["severity"],
                                 found["message"], found["code"]])
                break
    return problems


def matches(found, fault):
    return found[:4] + found[5:] == fault[:4] + fault[5:] and re.fullmatch(
        fault[4] if ".*" in fault[4] else re.escape(fault[4]), found[4])


shutil.copytree(source + "/examples/teasel", ".", dirs_exist_ok=True)
shutil.copytree(source + "/editors/vim", "vim")
need(LINT, *["vim"] * (arguments == ["vim"]))
editor = {"vim": vim, "vscode": vscode}[arguments[0]]
for piece, replacement, faults in CASES:
    write("b c.xml", re.sub(piece, replacement, read("board_spec.xml"), count=1, flags=re.S))
    status, printed = run(f"{shlex.quote(LINT)} 'b c.xml'")
    check(f"status {status}", status, 1 if any("error" in fault for fault in faults) else 0)
    problems = [problem for problem in editor(printed) if problem[3] != "note"]
    right = len(problems) == len(faults) and all(map(matches, problems, faults))
    check(f"{printed}{problems}", right, True)
