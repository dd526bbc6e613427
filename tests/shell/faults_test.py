"""Faults around the programs: each ends in an answer, or in an error that is told and status 1."""

import ctypes
import os
import re
import shutil
import socket
import subprocess
from xml.sax.saxutils import quoteattr

from support import check, read, source, tool, write

PR_CAPBSET_DROP, OVERRIDES = 24, (1, 2)  # capabilities of root to read what nobody may
SANITIZED = b"__asan_init" in open(tool, "rb").read()
DUMP = os.path.join(os.path.dirname(tool), "vemo-boardspec-dump")


def result(command, shell='"$@"', **settings):
    """Status, output and errors of a command, which is "$@" in a shell command."""
    settings = {"stdin": subprocess.DEVNULL, "stdout": subprocess.PIPE, **settings}
    done = subprocess.run(["sh", "-c", shell, "sh", *command], stderr=subprocess.PIPE, timeout=20,
                          check=False, **settings)
    return done.returncode, done.stdout, done.stderr


def programs(board):
    """Commands, and where in their results errors are."""
    return [([tool, board, "name"], 1), ([DUMP, "--", board], 2)][:1 + os.path.exists(DUMP)]


def write_naming(path, text, old, name):
    with open(path, "w", errors="surrogateescape") as file:
        file.write(text.replace(old, quoteattr(name).replace("\n", "&#10;")))


shutil.copytree(source + "/examples/teasel", ".", dirs_exist_ok=True)
BOARD, DEVICE = read("board_spec.xml"), read("pb3180.xml")

# Paths that nothing can be read from: each as that of the board, device model and target model.
for capability in OVERRIDES:
    ctypes.CDLL(None).prctl(PR_CAPBSET_DROP, capability)
os.mkfifo("pipe")
os.mkfifo("written")
os.write(os.open("written", os.O_RDWR), BOARD.encode())
socket.socket(socket.AF_UNIX).bind("socket")
os.symlink("loop", "loop")
write("empty", "")
write("unreadable", BOARD)
os.chmod("unreadable", 0)
unwritten, _writer = os.pipe()
for path in [".", "/", "/dev/null", "/dev/zero", "/dev/full", "/dev/tty", "/dev/stdin", "pipe",
             "written", "socket", "loop", "empty", "unreadable", "pb3180.xml/", "pb3180.xml/x",
             "x" * 300, "x/" * 5000, "new\nline", os.fsdecode(b"\xff")]:
    write_naming("device.xml", DEVICE, '"peltrab.xml"', path)
    write_naming("device_board.xml", BOARD, '"pb3180.xml"', path)
    write_naming("target_board.xml", BOARD, '"pb3180.xml"', "device.xml")
    for board in [path, "device_board.xml", "target_board.xml"]:
        for command, errors in programs(board):
            found = result(command, stdin=unwritten)
            error = b"Error: Failed to load xml file: " + os.fsencode(path) + b"\nMake sure"
            check(f"{command}, {path[:99]!r}: {found}", (found[0], error in found[errors]), (1, True))
check("empty path", [result(command)[0] for command, _ in programs("")], [1] * len(programs("")))

# Others are as good as any.
for path in ["new\nline", os.fsdecode(b"\xff"), "x" * 255, "./" * 2000 + "x", "/dev/stdin"]:
    path.startswith("/dev") or shutil.copy("board_spec.xml", path)
    with open("board_spec.xml", "rb") as stdin:
        check(path, result([tool, path, "name"], stdin=stdin), (0, b"teasel_n4", b""))

# Output that cannot be written, all of it or in part.
write("long.xml", BOARD.replace("teasel_n4", "x" * 100000))
unread, broken_pipe = os.pipe()
os.close(unread)
_reader, full_pipe = os.pipe()
os.set_blocking(full_pipe, False)
os.write(full_pipe, bytes(1 << 20))
for command, _ in programs("long.xml") + programs("x" * 5000)[:1]:
    for output in ['"$@" >/dev/full', '"$@" 1</dev/null', '"$@" >&-', broken_pipe, full_pipe,
                   'ulimit -f 0; "$@" >out', 'ulimit -f 1; "$@" >out']:
        found = (result(command, output) if isinstance(output, str) else
                 result(command, stdout=output))
        told = re.fullmatch(rb"[a-z-]+: cannot write to standard output: [^\n]+\n", found[2])
        check(f"{command}, {output}: {found}"[-999:], (found[0], bool(told)), (1, True))

# The locale changes nothing.
for command, _ in programs("board_spec.xml"):
    for locale in ["C.UTF-8", "de_DE.UTF-8", "nosuch"]:
        found = result(command, f'LC_ALL={locale} LANG={locale} "$@"')
        check(f"{command} in {locale}", found, result(command, 'LC_ALL=C "$@"'))
    loaded = open(command[0], "rb").read().partition(b"GCC: (")[0]  # debug information is behind it
    check(f"{command} may set a locale", b"setlocale" in loaded and not SANITIZED, False)

# Memory that runs out, from what it takes to start to what it takes to answer. (A sanitizer
# takes more than any limit.)
for command, errors in programs("long.xml") * (not SANITIZED):
    answer, answers, starved, size = result(command), 0, 0, 2048
    while answers < 20:
        size += 8
        if result(command[:1], f'ulimit -v {size}; exec "$@"')[0] == 1:
            found = result(command, f'ulimit -v {size}; exec "$@"')
            answers = answers + 1 if found == answer else 0
            starved += found != answer
            told = found[errors].endswith(b"Error: out of memory\n")
            right = found == answer or (found[0] == 1 and told)
            check(f"{command} in {size} KiB: {found}"[:999], right, True)
    check(f"{command} ran out of memory", starved > 0, True)
