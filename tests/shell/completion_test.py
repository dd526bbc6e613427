"""completion_test.py TOOL SOURCE_DIR: types into real shells, and looks at the words they make of it."""

import os
import pty
import re
import select
import shutil
import sys
import tempfile
from xml.sax.saxutils import quoteattr

tool, source = (os.path.abspath(arg) for arg in sys.argv[1:3])

BASH = f". '{source}/completions/vemo-boardspec.bash'; complete -F _vemo_boardspec args"
SHELLS = {
    "bash": ("bash --norc", BASH),
    "bash-completion": ("bash --norc", ". /usr/share/bash-completion/bash_completion; " + BASH),
    "zsh": ("zsh -f", f"fpath=('{source}/completions' $fpath); autoload -U compinit; compinit -u -D;"
            "compdef _vemo-boardspec args=vemo-boardspec; zstyle ':completion:*' insert-tab false"),
    "fish": ("fish -N", f"source '{source}/completions/vemo-boardspec.fish';"
             "complete -c args -w vemo-boardspec; function fish_prompt; echo -n 'READY '; end"),
}
# Each begins with a character of its own, so that one key and a tab are enough.
FLOWS = ["1$(touch x)", "2`touch x`", "3 two  blanks", "4'single'", '5"double"', "6\\n\\",
         "7*[a]?{b,c}", "8!!&;|<>#", "9~=@$HOME", "full"]
CASES = [
    ("bo\tnumglo\t", ["board_spec.xml", "numglobalmems"]),
    ("su\tbo\tname", ["sub/board_spec.xml", "name"]),
    ("~/su\tbo\tname", ["HOME/sub/board_spec.xml", "name"]),
    ("co\tdef\t", ["co:lon.xml", "defaultname"]),
    ("\\$\t", ["$(touch x).xml"]),
    ("~/co:lon.xml revision:f\t", ["HOME/co:lon.xml", "revision:full"]),
    ("slow.xml revision:f\t", ["slow.xml", "revision:f"]),
] + [(f"board_spec.xml {quote}revision:{flow[0]}\t", ["board_spec.xml", "revision:" + flow])
     for quote in ["", "'", '"'] for flow in FLOWS]


def write(path, text):
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)
    os.chmod(path, 0o755)


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def make_files():
    shutil.copytree(source + "/examples/teasel", ".", dirs_exist_ok=True)
    board = read("board_spec.xml")
    flow = re.search(r'<compile name="full".*?</compile>', board, re.S)[0]
    flows = "".join(flow.replace('"full"', quoteattr(name), 1) for name in FLOWS)
    os.mkdir("sub")
    os.mkdir("bin")
    for path in ["board_spec.xml", "co:lon.xml", "$(touch x).xml", "sub/board_spec.xml"]:
        write(path, board.replace(flow, flows))
    write("bin/args", '#!/bin/sh\nprintf "%s\\0" "$@" >record\n')
    write("bin/vemo-boardspec", f'#!/bin/sh\n[ "$1" != slow.xml ] || exec sleep 60\nexec {tool} "$@"\n')


def words_of(typed, terminal):
    """What the program args got from the line, once the shell is ready for the next."""
    write("record", "")
    os.write(terminal, typed.encode() + b"\r")
    seen = b""
    while not (os.path.getsize("record") and re.search(rb"\n[^\n]*READY [^\n]*$", seen)):
        if not select.select([terminal], [], [], 20)[0]:
            raise TimeoutError(f"{typed!r}: {seen}")
        seen += os.read(terminal, 4096)
    return read("record").split("\0")[:-1]


failures = 0
with tempfile.TemporaryDirectory() as home:
    os.chdir(home)
    make_files()
    os.environ.update(HOME=home, PATH=f"{home}/bin:{os.environ['PATH']}", PS1="READY ", TERM="xterm")
    for shell, (command, setup) in SHELLS.items():
        pid, terminal = pty.fork()
        if pid == 0:
            os.execvp(command.split()[0], command.split() + ["-i"])
        words_of(setup + "; args", terminal)
        for typed, expected in CASES:
            words = words_of("args " + typed, terminal)
            if words != [word.replace("HOME/", home + "/") for word in expected]:
                print(f"{shell}: {typed!r} gives {words}, expected {expected}")
                failures += 1
    if os.path.exists("x"):
        sys.exit("something was executed")
sys.exit(failures > 0)
