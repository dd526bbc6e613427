"""The functions of an installed CMake package, with make or ninja, which is the argument after the
folder of the build: they run one process per board, and builds do what a change of files needs and
no more, whatever the names of folders."""

import os
import shlex
import shutil
import time

from support import TOOL, arguments, check, home, need, read, run, source, write

build, builder = arguments
ninja = builder == "ninja"
need(builder, build + "/vemo-boardspec-dump")
NAMES = ["boards", "a b", "[a]", "a$b#c", "#", "~", "~x", "a@b@c", "a*?b", "'&(a)`", "\u00e9"]
NAMES += ["a;b", "a:b\tc"] if ninja else []
REFUSED = ["a[b", "a]b", 'a"b', "a${b}", "a\\b", "a$(b)", "a$<b>", "a|b" if ninja else "a;b"]
HOSTILE = "&#10;&quot;; $x ${x} $ENV{HOME} @x@ \\; [[ ]==] #&quot;)&#10;set(vemo_name 1)&#13;"
GENERATOR = "Ninja" if ninja else "Unix Makefiles"
SETTINGS = f"-G '{GENERATOR}' -D CMAKE_PREFIX_PATH={shlex.quote(home)}/prefix"
SDK = home + "/sdk/share/models/dm"
RUNS = home + "/runs"
HEAD = f"""cmake_minimum_required(VERSION 3.23)
project(test LANGUAGES CXX)
find_package(vemo-boardspec REQUIRED)
file(APPEND "{RUNS}" "configure\\n")
"""


def enter_project(folder, text):
    os.makedirs(f"{home}/{folder}", exist_ok=True)
    os.chdir(f"{home}/{folder}")
    write("CMakeLists.txt", HEAD + text)


def runs(command):
    """How often a command configures, reads a board, generates a file, and uses one."""
    write(RUNS, "")
    status, output = run(command)
    lines = read(RUNS).split("\n")
    return output if status != 0 else tuple(
        map(lines.count, ["configure", "--format=cmake", "--format=sh", "use"]))


def change(path, old, new):
    text = read(path)
    check(f"{path} has {old}", old in text, True)
    write(path, text.replace(old, new))


check("install", run(f"cmake --install {shlex.quote(build)} --prefix prefix")[0], 0)
os.rename("prefix/bin/vemo-boardspec-dump", "dump")
write("prefix/bin/vemo-boardspec-dump",
      f'#!/bin/sh\necho "$1" >>"{RUNS}"\nexec "{home}/dump" "$@"\n')

os.makedirs(SDK)
shutil.copy(source + "/examples/teasel/peltrab.xml", SDK)
os.environ["VEMOSDKROOT"] = home + "/sdk"
# Many boards, each in a folder of its own, are read in two directories of a project.
rules = sub = ""
for i, name in enumerate(NAMES):
    shutil.copytree(source + "/examples/teasel", f"many/{name}")
    rules += f"""set(board [==[{name}/board_spec.xml]==])
vemo_boardspec_load(b{i} "${{board}}")
vemo_boardspec_query(revision "${{board}}" revision:full)
vemo_boardspec_query(name "${{board}}" name:full)
set(answers "${{b{i}_flow_1_revision}} ${{revision}} ${{name}}")
if(NOT answers STREQUAL "teasel_all teasel_all teasel_n4")
    message(FATAL_ERROR "wrong answer")
endif()
vemo_boardspec_generate(OUTPUT sh/{i} FORMAT sh BOARD "${{board}}")
add_custom_command(OUTPUT used{i} DEPENDS sh/{i} VERBATIM
    COMMAND sh -c "echo use >>'{RUNS}'; cp sh/{i} used{i}")
add_custom_target(use{i} ALL DEPENDS used{i})
"""
    sub += f"vemo_boardspec_query(name [==[{home}/many/{name}/board_spec.xml]==] name)\n"
enter_project("many", rules + "add_subdirectory(sub)\n")
os.mkdir("sub")
write("sub/CMakeLists.txt", sub)
N = len(NAMES)
check("configuration", runs(f"cmake -B build {SETTINGS}"), (1, N, 0, 0))
again = 0 if ninja else N  # make runs a rule as long as its output is older than what it reads


def for_all(edit):
    for name in NAMES:
        edit(name)


def change_all(file, old, new):
    for_all(lambda name: change(f"{name}/{file}", old, new))


for what, expected, edit in [
        ("first build", (0, 0, N, N), None),
        ("no change", (0, 0, 0, 0), None),
        ("board", (1, N, N, N), lambda: change_all("board_spec.xml", "teasel_kernel", "core")),
        ("no change", (0, 0, 0, 0), None),
        ("comment", (1, N, N, 0), lambda: change_all("peltrab.xml", "</target", "<!----></target")),
        ("no change", (0, 0, again, 0), None),
        ("device model", (1, N, N, 0), lambda: change_all("pb3180.xml", "</dev", "<!----></dev")),
        # Files in the working directory are found first, but not from the other directory.
        ("early file", (1, 2 * N, N, N), lambda: shutil.copy2("boards/peltrab.xml", ".")),
        ("no change", (0, 0, 0, 0), None),
        ("no early file", (1, N, N, N), lambda: os.remove("peltrab.xml")),
        ("another name", (1, N, N, N), lambda: for_all(
            lambda name: shutil.copy2(f"{name}/pb3180.xml", f"{name}/new.xml"))
         or change_all("board_spec.xml", "pb3180.xml", "new.xml")),
        ("moved files", (1, N, N, N), lambda: for_all(
            lambda name: os.replace(f"{name}/new.xml", f"{SDK}/new.xml"))),
        ("no change", (0, 0, 0, 0), None)]:
    time.sleep(0.02)
    if edit:
        edit()
    check(f"build with {builder}, {what}", runs("cmake --build build"), expected)

# Values that CMake could take for something else.
enter_project("hostile", """vemo_boardspec_load(b board_spec.xml)
vemo_boardspec_query(answer board_spec.xml synthesize_cmd)
file(WRITE answers "${b_synthesize_cmd}${b_flow_0_synthesize_cmd}${answer}${b_name}")
""")
for file in os.listdir(source + "/examples/teasel"):
    shutil.copy(f"{source}/examples/teasel/{file}", file)
change("board_spec.xml", 'synthesize cmd="', f'synthesize cmd="{HOSTILE}')
answer = run(f"{TOOL} board_spec.xml synthesize_cmd")[1]
check("hostile answer", len(answer) > 60, True)
check("hostile", run(f"cmake -B build {SETTINGS}")[0], 0)
check("hostile values", read("answers"), answer * 3 + "teasel_n4")

# Paths that CMake would mistake, and failures.
generate = "vemo_boardspec_generate(OUTPUT out FORMAT sh BOARD [==[{}/board_spec.xml]==])"
for name, *texts in [
        *((name, "CMake cannot handle") for name in REFUSED),
        ("nosuch", "dump failed (1)", "xml file: {}/nosuch/board", "vemo-boardspec-lint '")]:
    enter_project("refused", generate.format(name))
    os.path.exists(name) or name == "nosuch" or shutil.copytree(f"{source}/examples/teasel", name)
    status, output = run(f"cmake -B build {SETTINGS}")
    for text in texts:
        check(f"{name!r}: {output}", (status, text.format(os.getcwd()) in output), (1, True))
