"""Builds with make or ninja, which is the argument: a file is made again exactly when one of the
files that were read has changed, or is found elsewhere."""

import os
import re
import shutil
import time

from support import arguments, check, need, read, run, source, tool, write

DUMP = os.path.join(os.path.dirname(tool), "vemo-boardspec-dump")
COMMAND = ('../dump --format=sh --output=out --depfile=out.d "$$name/board_spec.xml"'
           " && touch out && echo >>runs")
RULES = {
    "make": ("Makefile", f"all: out\nout:; {COMMAND}\n-include out.d\n"),
    "ninja": ("build.ninja", f"rule r\n  command = {COMMAND}\n  depfile = out.d\nbuild out: r\n"),
}
FUTURE = time.time() + 9999
NAMES = [".", "a b#c", "$(x)$$", "%:", "x=y", "x=\\ y", "a\\b", "[a]", "a~", "\u00e9"]
NAMES_OF_ONE = {"make": ["a'b\"&|<>*", "\t#\\#", "\\"], "ninja": ["~"]}

builder, = arguments
need(DUMP, builder)
os.symlink(DUMP, "dump")
for number, name in enumerate(NAMES + NAMES_OF_ONE[builder]):
    os.chdir(shutil.copytree(source + "/examples/teasel", f"../{number}" if number else "0"))
    os.environ["name"] = name
    os.makedirs(name, exist_ok=True)
    files = [shutil.move(file, f"{name}/{file}") if name != "." else file
             for file in ["board_spec.xml", "pb3180.xml", "peltrab.xml"]]
    write(*RULES[builder])
    write("runs", "")

    def expect_run(what):
        """Expects the next build to run the dump, and none after that."""
        before = len(read("runs"))
        outputs = [run(builder) for _ in range(3)]
        check(f"{name!r}, {what}: {outputs}", len(read("runs")) - before, 1)

    for file in files:
        os.utime(file, (1, 1))
    expect_run("at first")
    for file in files:
        os.utime(file, (FUTURE, FUTURE))
        check(f"{name!r}, change of {file}", run(builder)[0], 0)
        os.utime(file, (1, 1))
        runs = len(read("runs"))
        check(f"{name!r}, no change of {file}", (run(builder)[0], len(read("runs"))), (0, runs))
    check(f"{name!r}, runs", len(read("runs")), 1 + len(files))
    if not re.search("^\\.$|[%=\t]", name):
        shutil.move(files[2], "peltrab.xml")
        expect_run("a model is found elsewhere")
