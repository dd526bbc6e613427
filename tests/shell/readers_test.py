"""Reads a dump with the program that it is for, which is the argument, and compares all values with
those of the format sh. The texts of the board have every byte, and what a reader could take for
something else."""

import json
import os
import re
import shlex
import subprocess

from support import arguments, check, need, source, tool

DUMP = os.path.join(os.path.dirname(tool), "vemo-boardspec-dump")
TEXTS = [b"\xe2\x82", bytes(range(1, 256)), b"", b" ", b"\t a ", b"\\", b"a\\\\", b"\r", b"a\r\nb\n",
         b"\n\nc", b"\\\n", b"# b", b"a\\#b", b"\\\\#", b"$(shell :>hit)", b"$(error)", b"`:>hit`",
         b"'", b'"$x"', b"${x}", b"@x@", b"$$", b"';:>hit;'", b"\xff'", b"a\n:= b", b"endef",
         b"endef\n", b"-n", b"define x", b"a;b", b"\\;", b"]==]", b"[[", b"]=", b"[exec touch hit]",
         b"{", b"}", b"??/", b"%s", b"*/", "\u00e9\U0001f600\ufeff".encode(), b"\xed\xa0\x80",
         b"\\u0041", b"0\\\x01" + b"1", b"x" * 4095, b"y" * 4096, b"\xe4" * 9999]
SHELL = """text=$(cat dump) && eval "$text" || exit
while read -r name; do eval "printf '%s\\\\0' \\"\\$$name\\""; done <names"""
MAKE = """include dump
$(foreach name,$(shell cat names),$(file >values/$(name),$($(name)).))
all:;@while read -r name; do head -c -2 values/$$name; printf '\\0'; done <names"""
CMAKE = """include(dump)
file(STRINGS names names)
foreach(name IN LISTS names)
    file(WRITE values/${name} "${${name}}")
endforeach()
execute_process(COMMAND sh -c "while read -r n; do cat values/$n; printf '\\\\0'; done <names")"""
TCL = """source dump
fconfigure stdout -encoding utf-8 -translation lf
foreach name [split [read -nonewline [open names]] \\n] {puts -nonewline [set $name]\\0}"""
# Includes the header twice, and prints what it says about each thing in turn.
C = """#include <stdio.h>
#include "dump"
#include "dump"
#define TEXT(macro) fwrite(macro, 1, sizeof macro, stdout);
#define NUMBER(macro) printf("%llu", (unsigned long long)(macro)); putchar(0);
#define MEMORY(m) NUMBER(VEMO_MEMORY_##m##_INDEX) TEXT(VEMO_MEMORY_##m##_NAME) \\
    NUMBER(VEMO_MEMORY_##m##_BASE) NUMBER(VEMO_MEMORY_##m##_SIZE) NUMBER(VEMO_MEMORY_##m##_WIDTH)
#define CHANNEL(c) NUMBER(VEMO_CHANNEL_##c##_INDEX) TEXT(VEMO_CHANNEL_##c##_NAME) \\
    TEXT(VEMO_CHANNEL_##c##_TYPE) NUMBER(VEMO_CHANNEL_##c##_WIDTH)
#define FLOW(f) NUMBER(VEMO_FLOW_##f##_INDEX) TEXT(VEMO_FLOW_##f##_NAME) \\
    TEXT(VEMO_FLOW_##f##_LOMB_FILE) NUMBER(VEMO_FLOW_##f##_GENERIC_KERNEL)
int main(void) {
    TEXT(VEMO_BOARD_NAME) NUMBER(VEMO_KERNEL_CONFIG_START) NUMBER(VEMO_KERNEL_CONFIG_SIZE)
    VEMO_FOR_EACH_MEMORY(MEMORY) VEMO_FOR_EACH_CHANNEL(CHANNEL) VEMO_FOR_EACH_FLOW(FLOW)
    NUMBER(VEMO_NUM_MEMORIES) NUMBER(VEMO_NUM_CHANNELS) NUMBER(VEMO_NUM_FLOWS)
}"""
READERS = {  # format, script and command
    "dash": ("sh", SHELL, "dash script"),
    "bash": ("sh", SHELL, "LC_ALL=C.UTF-8 bash script"),
    "busybox": ("sh", SHELL, "busybox sh script"),
    "zsh": ("sh", SHELL, "LC_ALL=C.UTF-8 zsh -f script"),
    "make": ("make", MAKE, "make -s -f script"),
    "cmake": ("cmake", CMAKE, "cmake -P script"),
    "tclsh": ("tcl", TCL, "LC_ALL=C tclsh script"),
    "gcc": ("c", C, "gcc -std=c11 -Wall -Wextra -Wpedantic -Werror -x c script && ./a.out"),
    "g++": ("c", C, "g++ -std=c++17 -Wall -Wextra -Wpedantic -Werror -x c++ script && ./a.out"),
    "python3": ("json", None, None),
}


BOARD = b"""<board version="17.1" name="b"><device device_model="dev.xml"><used_resources>
<alms num="1"/><ffs num="1"/><dsps num="1"/><rams num="1"/></used_resources></device>%s
<host><kernel_config start="0x100" size="0x20"/></host><channels>%s</channels>
<interfaces>%s<kernel_clk_reset clk="1" clk2x="2" reset="3"/></interfaces>%s</board>"""
PARTS = [  # what is in it for each text
    b'<global_mem name="mTEXT" max_bandwidth="NUMBER.5"><interface name="TEXT" type="slave"'
    b' width="8" address="NUMBER" size="16"><port name="TEXT" direction="r"/></interface>'
    b'</global_mem>',
    b'<interface name="n" port="p" type="streamsink" width="8" chan_id="cTEXT" clock="TEXT"/>',
    b'<interface name="n" port="p" type="irq" enable="TEXT"/>',
    b'<compile name="fTEXT" project="" revision="" lomb_file="TEXT" generic_kernel="1">'
    b'<generate cmd=""/><synthesize cmd="TEXT"/><auto_migrate platform_type="auto"/></compile>',
]


def filled(part):
    """A part of the board, for all texts."""
    return b"".join(
        part.replace(b"NUMBER", b"%d" % (16 * number)).replace(
            b"TEXT", re.sub(rb'[&<>"\t\n\r]', lambda c: b"&#%d;" % c[0][0], text))
        for number, text in enumerate(TEXTS))


def variables_of_json(value, name):
    """The variables that say what a part of a JSON document says."""
    if isinstance(value, dict):
        for member, part in value.items():
            if member not in ("attribute", "attribute_width", "hazard_free_attributes"):
                yield from variables_of_json(part, f"{name}_{member}")
    elif isinstance(value, list):
        plural = {"memory": "memories"}.get(name.rpartition("_")[2], name.rpartition("_")[2] + "s")
        yield f"{name.rpartition('_')[0]}_num_{plural}", str(len(value))
        for number, part in enumerate(value):
            yield from variables_of_json(part, f"{name}_{number}")
    elif isinstance(value, bool) or value is None:
        yield name, str(int(value)) if value is not None else ""
    else:
        yield name, value if isinstance(value, str) else f"{value:g}" \
            if isinstance(value, float) else str(value)


def read_json(text):
    whole = json.loads(text)
    board = whole["board"]
    parts = [(whole["answers"], "vemo"), (whole["flows"], "vemo_flow"),
             (board["global_mem"], "vemo_memory"), (board["channels"]["interface"], "vemo_channel"),
             (board["interfaces"]["interface"], "vemo_interface"),
             (whole["files"].pop("candidates"), "vemo_candidate"), (whole["files"], "vemo_file"),
             (board["host"]["kernel_config"], "vemo_kernel_config")]
    return {name: value.encode() for part, prefix in parts
            for name, value in variables_of_json(part, prefix)}


def names_in_c():
    """The variables whose values the program in C prints."""
    yield from ["vemo_name", "vemo_kernel_config_start", "vemo_kernel_config_size"]
    for kind, attributes in [
            ("memory", ["name", "min_address", "interface_0_size", "interface_0_width"]),
            ("channel", ["chan_id", "type", "width"]),
            ("flow", ["name", "lomb_file", "generic_kernel"])]:
        for number in range(len(TEXTS)):
            yield str(number)  # stands for itself
            yield from (f"vemo_{kind}_{number}_{attribute}" for attribute in attributes)
    yield from ["vemo_num_memories", "vemo_num_channels", "vemo_num_flows"]


def dump(format_name):
    return subprocess.run([DUMP, "--format=" + format_name, "board_spec.xml"],
                          stdout=subprocess.PIPE, check=True).stdout


reader, = arguments
need(DUMP, reader)
for model in ["dev.xml", "tm.xml"]:
    os.symlink(f"{source}/tests/data/{model}", model)
open("board_spec.xml", "wb").write(BOARD % tuple(map(filled, PARTS)))
expected = {}
for word in shlex.split(dump("sh").decode("latin-1")):
    variable, _, text = word.partition("=")
    expected[variable] = text.encode("latin-1")
for number, text in enumerate(TEXTS):
    for variable, prefix in [("flow_%d_name", b"f"), ("flow_%d_synthesize_cmd", b""),
                             ("memory_%d_name", b"m"), ("memory_%d_interface_0_name", b""),
                             ("memory_%d_interface_0_port_0_name", b""),
                             ("channel_%d_chan_id", b"c"), ("interface_%d_enable", b"")]:
        check(variable, expected["vemo_" + variable % number], prefix + text)

format_name, script, command = READERS[reader]
open("dump", "wb").write(dump(format_name))
open("names", "w").writelines(f"{name}\n" for name in expected)
if script is None:
    found = read_json(open("dump", "rb").read())
    check("names", set(found) ^ set(expected), set())
    values = [found[name] for name in expected]
else:
    os.mkdir("values")
    open("script", "w").write(script)
    result = subprocess.run(command, shell=True, stdout=subprocess.PIPE, check=True).stdout
    values = result.removesuffix(b"\0").split(b"\0")
names = list(names_in_c() if format_name == "c" else expected)
check("number of values", len(values), len(names))
for name, value in zip(names, values):
    text = expected.get(name, name.encode())
    if format_name in ("json", "tcl"):
        text = text.decode(errors="replace").encode()
    check(name, value, text)
check("a text was executed", os.path.exists("hit"), False)
