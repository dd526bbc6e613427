"""Types into a real shell, which is the argument, and looks at the words it makes of it."""

import os
import pty
import re
import select
import shutil
import sys
from xml.sax.saxutils import quoteattr

from support import TOOL, arguments, check, home, need, read, source, write

BASH_COMPLETION = "/usr/share/bash-completion/bash_completion"
BASH = (f". '{home}/lib/vemo-boardspec.bash'; complete -F _vemo_boardspec args;"
        "complete -F _vemo_boardspec_dump dump; complete -F _vemo_boardspec_lint lint")
SHELLS = {
    "bash": ("bash --norc", BASH),
    "bash-completion": ("bash --norc", f". {BASH_COMPLETION}; " + BASH),
    "zsh": ("zsh -f", f"fpath=('{home}/lib' $fpath); autoload -U compinit;"
            "compinit -u -D; zstyle ':completion:*' insert-tab false;"
            "compdef _vemo-boardspec args=vemo-boardspec dump=vemo-boardspec-dump"
            " lint=vemo-boardspec-lint"),
    "fish": ("fish -N", f"source '{home}/lib/vemo-boardspec.fish';"
             "complete -c args -w vemo-boardspec; complete -c dump -w vemo-boardspec-dump;"
             "complete -c lint -w vemo-boardspec-lint;"
             "function fish_prompt; echo -n 'READY '; end"),
}
# Each begins with a character of its own, so that one key and a tab are enough.
FLOWS = ["1$(touch x)", "2`touch x`", "3 two  blanks", "4'single'", '5"double"', "6\\n\\",
         "7*[a]?{b,c}", "8!!&;|<>#", "9~=@$HOME", "full"]
CASES = [  # what is typed behind args, or with one of the companion programs, and the words
    ("dump --format=j\tbo\t", ["--format=json", "board_spec.xml"]),
    ("dump --output=bo\t", ["--output=board_spec.xml"]),
    ("lint --format=s\tbo\t", ["--format=sarif", "board_spec.xml"]),
    ("lint --explain=a-e\t", ["--explain=a-error"]),
    ("lint --no-warn=a-\tbo\t", ["--no-warn=a-warning", "board_spec.xml"]),
    ("bo\tnumglo\t", ["board_spec.xml", "numglobalmems"]),
    ("su\tbo\tname", ["sub/board_spec.xml", "name"]),
    ("~/su\tbo\tname", [home + "/sub/board_spec.xml", "name"]),
    ("co\tdef\t", ["co:lon.xml", "defaultname"]),
    ("\\$\t", ["$(touch x).xml"]),
    ("~/co:lon.xml revision:f\t", [home + "/co:lon.xml", "revision:full"]),
    ("slow.xml revision:f\t", ["slow.xml", "revision:f"]),
] + [(f"board_spec.xml {quote}revision:{flow[0]}\t", ["board_spec.xml", "revision:" + flow])
     for quote in ["", "'", '"'] for flow in FLOWS]


def words_of(typed, terminal):
    """What the program got from the line, once the shell is ready for the next."""
    write("record", "")
    os.write(terminal, typed.encode() + b"\r")
    seen = b""
    while not (os.path.getsize("record") and re.search(rb"\n[^\n]*READY [^\n]*$", seen)):
        if not select.select([terminal], [], [], 20)[0]:
            raise TimeoutError(f"{typed!r}: {seen}")
        seen += os.read(terminal, 4096)
    return read("record").split("\0")[:-1]


shell, = arguments
command, setup = SHELLS[shell]
need(command.split()[0], *[BASH_COMPLETION] * (shell == "bash-completion"))

shutil.copytree(source + "/completions", "lib")
shutil.copytree(source + "/examples/teasel", ".", dirs_exist_ok=True)
board = read("board_spec.xml")
flow_elem = re.search(r'<compile name="full".*?</compile>', board, re.S)[0]
flow_elems = "".join(flow_elem.replace('"full"', quoteattr(name), 1) for name in FLOWS)
os.mkdir("sub")
os.mkdir("bin")
for path in ["board_spec.xml", "co:lon.xml", "$(touch x).xml", "sub/board_spec.xml"]:
    write(path, board.replace(flow_elem, flow_elems))
for program in ["bin/args", "bin/dump", "bin/lint"]:
    write(program, '#!/bin/sh\nprintf "%s\\0" "$@" >record\n')
write("bin/vemo-boardspec", f'#!/bin/sh\n[ "$1" != slow.xml ] || exec sleep 60\nexec {TOOL} "$@"\n')
write("bin/vemo-boardspec-lint", "#!/bin/sh\nprintf 'a-%s\\t%s\\tAn %s\\n' error error error "
                                 "warning warning warning\n")

os.environ.update(HOME=home, PATH=f"{home}/bin:{os.environ['PATH']}", PS1="READY ", TERM="xterm")
try:
    pid, terminal = pty.fork()
except OSError as error:  # as in a chroot without /dev/pts
    print(f"skipped: no terminal: {error}")
    sys.exit(77)
if pid == 0:
    os.execvp(command.split()[0], command.split() + ["-i"])
words_of(setup + "; args", terminal)
for typed, expected in CASES:
    line = typed if typed.startswith(("dump ", "lint ")) else "args " + typed
    check(repr(typed), words_of(line, terminal), expected)
check("something was executed", os.path.exists("x"), False)
