"""The manual pages are true: what they show as files makes a package, what they show as sessions
happens. Their programs and the recipes get answers, and fail when the tool does. All lists of
commands are complete. With the argument mandoc, checks instead that the pages are well formed."""

import collections
import glob
import os
import re
import shlex
import shutil
import sys

from support import TOOL, arguments, check, home, need, read, run, source, tool, write

PAGES = "".join(map(read, glob.glob(source + "/man/*.[15]")))
RECIPES = shlex.quote(source + "/examples/recipes")
DEBUG = " --revision=burdock_debug"
QUERIES = [  # how the command ends that each tells, and the program
    (DEBUG, "sh -eu query.sh"),
    (DEBUG, "make -f query.mk"),
    (DEBUG, "cmake -D BOARD=$BOARD -P query.cmake"),
    (DEBUG, f"{RECIPES}/shell/list-flows $BOARD"),
    (DEBUG, f"{RECIPES}/tcl/list-flows.tcl $BOARD"),
    (DEBUG, f"{RECIPES}/python/list_flows.py $BOARD"),
    (DEBUG, f"make -f {RECIPES}/make/Makefile BOARD=$BOARD FLOW=debug"),
    ("", f"make -f {RECIPES}/make/Makefile BOARD=$BOARD"),
    ("", f"ninja -f {RECIPES}/ninja/build.ninja"),
    (DEBUG, f"cmake -S {RECIPES}/cmake -B 1 -D BOARD=$BOARD -D FLOW=debug && cmake --build 1"),
    ("", f"cmake -S {RECIPES}/cmake -B 2 -D BOARD=$BOARD && cmake --build 2 -t system header"),
    ("", "sh -eu dump.sh"),
    ("", "tclsh dump.tcl"),
    ("", "python3 dump.py"),
    ("", "cmake -B 3 . && cmake --build 3"),
    ("", "ninja -f dump.ninja"),
]
LISTS = {  # the pattern of a command in each
    "man/vemo-boardspec.1": r"^\.It Ic (\w+)$",
    "completions/vemo-boardspec.bash": r"^    (\w+)$(?=[^)]*\n\)\n\n# Splits)",
    "completions/_vemo-boardspec": r"^    '(\w+):",
    "completions/vemo-boardspec.fish": r"^    (\w+)\\t",
    "README.md": r"`(\w+)`(?=[^|\n]*\|[^|\n]*\|\n[^\0]*\n## See a board)",
}


def displays(kind):
    """Name and text of the displays that a comment with this word announces."""
    for name, text in re.findall(rf'^\.\\" {kind} ?(.*)\n\.Bd .*\n([^\0]*?)^\.Ed', PAGES, re.M):
        yield name, text.replace(r"\-", "-").replace(r"\e", "\\")


if arguments == ["mandoc"]:
    need("mandoc")
    check("mandoc", run(f"mandoc -Tlint -Wwarning {shlex.quote(source)}/man/*.[15]"), (0, ""))
    sys.exit()

need("cmake", "make", "ninja", "tclsh", os.path.dirname(tool) + "/vemo-boardspec-dump")
check("install", run(f"cmake --install {shlex.quote(os.path.dirname(tool))} --prefix prefix")[0], 0)
os.environ["CMAKE_PREFIX_PATH"] = home + "/prefix"
os.environ["PATH"] = f"{home}:{os.path.dirname(tool)}:{os.environ['PATH']}"
for name, text in [*displays("FILE"), ("kitforge", ":"), ("fendra_sh", 'echo "fendra_sh $*"')]:
    write(name, text)

for _, text in displays("SESSION"):
    for command, output in re.findall(r"^\$ (.*)\n((?:[^$].*\n)*)", text, re.M):
        check(command, run(command)[1], output)

for end, query in QUERIES:
    for board, expected, line in [
            ("board_spec.xml", 0, f"fendra_sh --flow compile burdock{end}$"),
            ("nosuch.xml", 1, f"xml file: {home}/nosuch.xml")]:
        os.environ["BOARD"] = f"{home}/{board}"
        status, output = run(query)
        right = min(status, 1) == expected and bool(re.search(line, output, re.M))
        check(f"{query}, status {status}: {output}", right, True)

# The makefile notices a change of a model file and an error in it; its own file changes only then.
write("user.mk", "all:; echo $(vemo_targetmodel)\ninclude dump.mk\n")
device_file, = re.findall(r' device_model="(.*?)"', read("board_spec.xml"))
device = read(device_file)
target_file, = re.findall(r' target_model="(.*?)"', device)
write("other.xml", read(target_file))
other = device.replace(target_file, "other.xml")
inodes = []
for text, expected in [(device, (0, target_file + "\n")), (other, (0, "other.xml\n")),
                       (other, (0, "other.xml\n")), (other.replace("<fmax", "<x"), (2, ""))]:
    write(device_file, text)
    check("makefile", run("make -s -f user.mk 2>errors"), expected)
    inodes.append(os.stat("board.mk").st_ino)
check("board.mk is replaced", [a != b for a, b in zip(inodes, inodes[1:])], [True, False, False])
write(device_file, device)

# The recipes also notice a model that appears in a place that is searched earlier.
os.mkdir("work")
os.chdir("work")
os.environ["BOARD"] = home + "/board_spec.xml"
early = [None, lambda: shutil.copy2(f"../{target_file}", "."), lambda: os.remove(target_file)]
for recipe, done in [(f"make -f {RECIPES}/make/Makefile BOARD=$BOARD", "--output"),
                     (f"ninja -f {RECIPES}/ninja/build.ninja", "fendra_sh")]:
    for edit in early:
        _ = edit and edit()
        check(f"{recipe}, twice", [done in run(recipe)[1] for _ in range(2)], [True, False])
os.chdir("..")

commands = re.findall(r"^(\w+)$", run(f"{TOOL} board_spec.xml '?'")[1], re.M)
wrong = []
for path, pattern in LISTS.items():
    listed = re.findall(pattern, read(f"{source}/{path}"), re.M)
    known, found = map(collections.Counter, (commands, listed))
    wrong += [f"{path} lacks {name}" for name in known - found]
    wrong += [f"{path} lists {name}, once too often" for name in found - known]
check("lists of commands", wrong, [])
