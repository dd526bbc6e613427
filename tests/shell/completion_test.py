"""completion_test.py TOOL SOURCE_DIR: types into real shells and looks at the words they make of it."""

import os
import pty
import re
import select
import shutil
import sys
import tempfile
import time
from xml.sax.saxutils import quoteattr

tool, source = (os.path.abspath(arg) for arg in sys.argv[1:3])
completions = source + "/completions/"

# Each begins with a character of its own, so that one key and a tab are enough.
FLOWS = ["1$(touch x)", "2`touch x`", "3 two  blanks", "4'single'", '5"double"', "6\\n\\", "7*[a]?{b,c}",
         "8!!&;|<>#", "9~=@$HOME", "full"]

READ_BASH = ". '%svemo-boardspec.bash'; complete -F _vemo_boardspec args;" % completions
SHELLS = {
    "bash": ["bash", "--norc", "-i"],
    "bash with bash-completion": ["bash", "--norc", "-i"],
    "zsh": ["zsh", "-f", "-i"],
    "fish": ["fish", "-N", "-i"],
}
SETUP = {
    "bash": READ_BASH + "PS1='READ''Y '",
    "bash with bash-completion": ". /usr/share/bash-completion/bash_completion;" + READ_BASH
                                 + "PS1='READ''Y '",
    "zsh": "fpath=('%s' $fpath); autoload -U compinit; compinit -u -D; PS1='READ''Y ';" % completions
           + "compdef _vemo-boardspec args=vemo-boardspec; zstyle ':completion:*' insert-tab false",
    "fish": "source '%svemo-boardspec.fish'; complete -c args -w vemo-boardspec;" % completions
            + "function fish_prompt; echo -n 'READ''Y '; end",
}

CASES = [
    ("bo\tnumglo\t", ["board_spec.xml", "numglobalmems"]),
    ("su\tbo\tname", ["sub/board_spec.xml", "name"]),
    ("~/su\tbo\tname", ["HOME/sub/board_spec.xml", "name"]),
    ("co\tdef\t", ["co:lon.xml", "defaultname"]),
    ("\\$\t", ["$(touch x).xml"]),
    ("board_spec.xml revision:f\t", ["board_spec.xml", "revision:full"]),
    ("~/co:lon.xml revision:f\t", ["HOME/co:lon.xml", "revision:full"]),
    ("slow.xml revision:f\t", ["slow.xml", "revision:f"]),
] + [("board_spec.xml revision:%c\t" % flow[0], ["board_spec.xml", "revision:" + flow])
     for flow in FLOWS]
# Inside quotes that the user has opened.
CASES += [("board_spec.xml %crevision:%c\t" % (quote, flow[0]), ["board_spec.xml", "revision:" + flow])
          for quote in "'\"" for flow in FLOWS]


def make_files():
    with open(source + "/examples/teasel/board_spec.xml", encoding="utf-8") as file:
        board = file.read()
    flow = re.search(r'<compile name="full".*?</compile>', board, re.S)[0]
    flows = [flow.replace('"full"', quoteattr(name), 1) for name in FLOWS]
    for path in ["board_spec.xml", "co:lon.xml", "$(touch x).xml", "sub/board_spec.xml"]:
        os.makedirs(os.path.dirname(path) or ".", exist_ok=True)
        with open(path, "w", encoding="utf-8") as file:
            file.write(board.replace(flow, "".join(flows)))
    for model in ["pb3180.xml", "peltrab.xml"]:
        shutil.copy(source + "/examples/teasel/" + model, ".")
    os.mkdir("bin")
    for name, script in {
        "args": 'printf "%s\\0" "$@" >>record; echo >>record',
        "vemo-boardspec": '[ "$1" != slow.xml ] || exec sleep 60; exec "' + tool + '" "$@"',
    }.items():
        with open("bin/" + name, "w", encoding="utf-8") as file:
            file.write("#!/bin/sh\n" + script + "\n")
        os.chmod("bin/" + name, 0o755)


class Session:
    """An interactive shell."""

    def __init__(self, shell):
        pid, self.terminal = pty.fork()
        if pid == 0:
            os.execvp(SHELLS[shell][0], SHELLS[shell])
        self.send(SETUP[shell])

    def send(self, line):
        """Types the line and waits for the next prompt."""
        os.write(self.terminal, line.encode() + b"\r")
        seen, deadline = b"", time.monotonic() + 20
        while not re.search(rb"READY (?!.*\r?\n)", seen.rpartition(b"\n")[2]) or b"\n" not in seen:
            if not select.select([self.terminal], [], [], deadline - time.monotonic())[0]:
                raise TimeoutError("no prompt: %r" % seen)
            seen += os.read(self.terminal, 4096)

    def words_of(self, typed):
        open("record", "w", encoding="utf-8").close()
        self.send("args " + typed)
        with open("record", encoding="utf-8") as file:
            return file.read().split("\0")[:-1]


def main():
    failures = 0
    for shell in SHELLS:
        session = Session(shell)
        for typed, expected in CASES:
            expected = [word.replace("HOME/", os.environ["HOME"] + "/") for word in expected]
            words = session.words_of(typed)
            if words != expected:
                print(f"{shell}: {typed!r} gives {words}, expected {expected}")
                failures += 1
    if os.path.exists("x"):
        print("something was executed")
        failures += 1
    sys.exit(failures > 0)


with tempfile.TemporaryDirectory() as directory:
    os.chdir(directory)
    make_files()
    os.environ.update(HOME=directory, PATH=directory + "/bin:" + os.environ["PATH"], TERM="xterm")
    main()
