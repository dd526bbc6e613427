#!/usr/bin/env python3
"""Checks that the schemas and vemo-boardspec agree on what loads.

usage: agreement.py TOOL

Runs over the packages of examples/ and over the cases below. A case is a small document with one
text replaced, and a verdict. Each document is held against its schema with xmllint, and with jing
where it is installed, and is given to TOOL as part of a board package. Where schema and tool
differ on purpose, the case says why. The .rng files must be what trang makes of the .rnc files.
"""

import concurrent.futures
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
SCHEMA = ROOT / "schema"

# ---- Documents that the cases change -------------------------------------------------------------

BOARD = """<?xml version="1.0"?>
<board version="17.1" name="b">
<device device_model="device_model.xml"><used_resources>
<alms num="1"/><ffs num="2"/><dsps num="3"/><rams num="4"/>
</used_resources></device>
<compile name="f" project="p" revision="r" lomb_file="l" generic_kernel="0">
<generate cmd="g" additional_args="1"/><synthesize cmd="s"/>
<auto_migrate platform_type="none"><include fixes="i"/><exclude fixes="e"/></auto_migrate>
</compile>
<global_mem name="m" max_bandwidth="10">
<interface name="i" type="slave" width="512" address="0" size="4096">
<port name="p" direction="rw"/></interface></global_mem>
<host><kernel_config start="0" size="16"/></host>
<interfaces>
<interface name="k" port="kp" type="irq"/><kernel_clk_reset clk="c" reset="r"/></interfaces>
<channels><interface name="c" port="cp" type="streamsink" width="32" chan_id="c0"/></channels>
</board>
"""
FLOW = re.search("(?s)<compile.*</compile>", BOARD).group()
MEMORY = re.search("(?s)<global_mem.*</global_mem>", BOARD).group()
BANK = re.search("(?s)<interface name=.i.*?</interface>", BOARD).group()
PORT = '<port name="p" direction="rw"/>'
KERNEL, CHANNEL = re.findall('<interface name="[kc]".*?/>', BOARD)

BOARD_14 = BOARD.replace("17.1", "14.1")
BOARD_09 = BOARD.replace("17.1", "0.9").replace(FLOW, "<!-- built in -->")
CODE = '<attribute name="a" encoding="3"/>'
CODED = BOARD.replace(PORT, '<port name="p" direction="w" hazard_free_attributes="0"'
                            f' attribute_width="2">{CODE}</port>')

# The model files are those of the other tests.
OTHERS = (ROOT / "tests/Xml.cpp").read_text(encoding="utf-8")
DEVICE, TARGET = (re.search(rf'(?s){name} = R"\((.*?)\)"', OTHERS).group(1)
                  for name in ("DEVICE_MODEL", "TARGET_MODEL"))
DEVICE = re.sub('num="2', 'num="', DEVICE.replace("tm.xml", "target_model.xml"))
TARGET = TARGET.replace('<style_model file="style_b.xml"/>', "")

# ---- Verdicts ------------------------------------------------------------------------------------

OK = "loads, valid"
BAD = "reported, invalid"
ABORT = "aborts, invalid"
STRICT = "loads, invalid"  # refused on purpose: needs a reason
LAX = "fails, valid"       # beyond a grammar: needs a reason

CASES = []  # verdict, document, what was changed


def case(verdict, document, old, new, reason=None):
    assert document.count(old) == 1, f"{old!r} stands {document.count(old)} times in the document"
    assert bool(reason) == (verdict in (STRICT, LAX)), f"{old} => {new}: a reason where they differ"
    CASES.append((verdict, document.replace(old, new), f"{old} => {new}"))


def cases(document, old, new="%s", ok=(), bad=(), abort=(), strict={}, lax={}):
    """A case for each of the values: it takes the place of %s in `new`, which replaces `old`."""
    for verdict, listed in ((OK, {None: ok}), (BAD, {None: bad}), (ABORT, {None: abort}),
                            (STRICT, strict), (LAX, lax)):
        for reason, values in listed.items():
            for value in values:
                case(verdict, document, old, new % value, reason)


def without(text, *attributes):
    """The text with one attribute left out, for each of them; the first of that name."""
    return [re.sub(f' {attribute}="[^"]*"', "", text, count=1) for attribute in attributes]


def inside(element, content):
    """An empty element with that content."""
    return element.replace("/>", f">{content}</{re.match('<(.*?)[ />]', element).group(1)}>")


# ---- Cases: numbers and words --------------------------------------------------------------------

SPELLING = "only plain decimal spellings of such a number are foreseen"
UNREAD = "what follows a number is not read, so it is a mistake"

DECIMAL = dict(ok=["0", "7", "007", "99999999999"],
               bad=["", " 7", "7 ", "+7", "-7", "0x7", "7.0", "7k", "seven"])
POSITIVE = dict(ok=["1", "008", "99999999999"],
                bad=["0", "00", "", " 1", "1 ", "+1", "-1", "0x1", "1.5", "one"])
FLAG = dict(ok=["0", "1", "01"], bad=["2", "10", "", "-1", " 1", "true"])
PREFIXED = dict(ok=["0", "00", "4096", "0x0", "0X1f", "0x1FFFFFFFF", "017", " 0x10"],
                bad=["", " ", "0x", "08", "x10", "-1", "+1", "16 ", "0x10 ", "1 2", "10h", "0b1"])
NO_FLOAT = ["", ".", "e5", "fast", "0x", "-1", "-.5"]
NON_NEGATIVE = dict(ok=["0", "0.0", "1", "+2.5", ".55", "12.", "1e10", "2.5E-1", " 3 "],
                    bad=NO_FLOAT, abort=["nan", "NAN(1)"],
                    strict={SPELLING: ["-0", "inf", "0x1p3"], UNREAD: ["1,5", "3 GB"]})
ABOVE_ZERO = dict(ok=["1", "240.25", "0.5", "+.05", "5.", "001", "1e10", "0.1E-2", " 3 "],
                  bad=NO_FLOAT + ["0", "0.0", ".0", "0e5", "-0"],
                  strict={SPELLING: ["inf", "0x1p3"], UNREAD: ["240MHz"]},
                  lax={"too small for single precision, so 0 to the tool": ["1e-99"]})
TEXT = dict(ok=["", " a b "])

cases(BOARD, '"17.1"', '"%s"',
      ok=["14.1", "14.10", "14.9", "15", "16.999", "17", "17.", "17.0", "017.1", "20.3", "100"],
      bad=["", "0", "0.9", "1.0", "2", "13.1", "14", "14.0", "14.09", "-17.1", "v17"],
      strict={SPELLING: [" 17.1", "+17.1", "1.71e1", "0x11", "inf", "nan", "14.09999999"],
              UNREAD: ["17.1.2"]})
cases(BOARD_09, '"0.9"', '"%s"', ok=["0.9", ".9", "0.90", "00.900"],
      bad=["0.8", "0.91", "0.", "14.1", "17.1"], strict={SPELLING: ["9e-1", "0.9000000001"]})

cases(BOARD, 'width="512"', 'width="%s"', **POSITIVE)
cases(BOARD, 'width="512"', 'width="512" maxburst="%s"', **POSITIVE)
for attribute in ("misc", "latency", "waitrequest", "waitrequest_allowance", "bsp_vnmm_write_ack",
                  "addpipe"):
    cases(BOARD, 'width="512"', f'width="512" {attribute}="%s"', **DECIMAL)
for attribute in "enable", "clock", "chan_id":
    cases(BOARD, 'width="512"', f'width="512" {attribute}="%s"', **TEXT)
cases(BOARD, 'width="512"', 'width="512" latency_type="%s"',
      ok=["average", "fixed"], bad=["", "Fixed", " fixed", "fixed "])
cases(BOARD, 'width="512"', 'width="512" sampling_rate="%s"', **ABOVE_ZERO, abort=["nan"])
cases(BOARD, 'address="0"', 'address="%s"', **PREFIXED)
cases(BOARD, '"4096"', '"%s"',
      ok=["1", "0x00000001", "0x100000001", " 0x10", "010", "010000000000", "040000000001",
          "4294967297"],
      bad=["0", "00", "0x0", "", "0x", "09", "1 ", "-1", "4k"],
      abort=["0x100000000", "0xA00000000", " 0x300000000", "040000000000", "0100000000000",
             *(2**32 * banks for banks in (1, 2, 3, 4, 6, 8, 12, 16, 24, 32, 64, 128))],
      strict={"beyond 64 bits": ["0x1000000000000000000000000"]},
      lax={"a decimal multiple of 4 GiB that is not listed": ["21474836480"]})

cases(BOARD, '"10"', '"%s"', **NON_NEGATIVE)
cases(BOARD, '"10"', '"10" type="%s"', ok=["device private", "shared virtual", "shared physical"],
      bad=["", "Device private", "device  private", "device private ", "shared"])
cases(BOARD, '"10"', '"10" interleaved_bytes="%s"', **PREFIXED)
cases(BOARD, '"10"', '"10" config_addr="%s"', **PREFIXED)
cases(BOARD, 'start="0"', 'start="%s"', **PREFIXED)
cases(BOARD, '"16"', '"%s"', ok=["0x1f", " 00200", "0x100000000", "4294967296"],
      bad=["0", "0x00", "000", "", "08", "1 ", "-1"])

cases(BOARD, '"irq"', '"%s"', ok=["slave", "master", "streamsource", "streamsink"],
      bad=["", "Slave", " irq", "irq ", "stream-source"])
cases(BOARD, '"slave"', '"%s"', bad=["master", "irq", "streamsource", "streamsink", "x"])
cases(BOARD, '"streamsink"', '"%s"', ok=["streamsource"], bad=["slave", "master", "irq", "x"])
cases(BOARD, '"rw"', '"%s"', ok=["r", "w"], bad=["", "read", "RW", "r "])
cases(BOARD, '"rw"', '"rw" hazard_free_attributes="%s"',
      ok=["true", "false", "1", "0"], bad=["", "True", "2", " 1", "no"])
cases(BOARD, 'generic_kernel="0"', 'generic_kernel="%s"',
      ok=["1", "true", "True", "TRUE", "false", "False", "FALSE", "2", "-10", "+1", "0x1F"],
      bad=["", "yes", "tRUE", "true "], strict={UNREAD: ["1abc", "0.5"]})
cases(BOARD, 'additional_args="1"', 'additional_args="%s"',
      ok=["", "0", "true", "false"], bad=["True", "2", "yes", " 1"])
cases(BOARD, '"none"', '"%s"',
      ok=["auto", "pb_net", "dbsoc", "obsoc", "rcfx_7.x", "oc_ref", "tsk_jtag", "tsk_pcie",
          "ocsoc", "pc_ref"], bad=["", "AUTO", "auto ", "rcfx_7_x"])
for count in 'alms num="1"', 'ffs num="2"', 'dsps num="3"', 'rams num="4"':
    for document in BOARD, DEVICE:
        cases(document, count, re.sub('".*"', '"%s"', count), **DECIMAL)

for document in DEVICE, TARGET:
    cases(document, '"0.9"', '"%s"', bad=["", "0.90", " 0.9", "0.9 ", "1.0"])
for document, version in ((BOARD, "17.1"), (BOARD_14, "14.1"), (BOARD_09, "0.9"), (DEVICE, "0.9"),
                          (TARGET, "0.9")):
    case(BAD, document, f' version="{version}"', "")
for attribute in 'expected="240.5"', 'min="150"', 'high="180"':
    cases(DEVICE, attribute, re.sub('".*"', '"%s"', attribute), **ABOVE_ZERO)
cases(DEVICE, '"240.5"', '"%s"', bad=["nan"])  # reported, unlike the others
cases(TARGET, '"peltrab"', '"%s"',
      ok=["peltraa", "peltrac", "osminb", "osminc", "duvelb", "duvelclx"],
      bad=["", "Peltraa", "peltraa ", "peltrad"])
for rule, *names in (
        (POSITIVE, "single_port_mem_block_width", "single_port_mem_block_depth",
         "dual_port_mem_block_width", "dual_port_mem_block_depth", "bursting_lsu_cache_size_n"),
        (FLAG, "single_port_mem_block_supports_rdw_mode_old_data",
         "dual_port_mem_block_supports_rdw_mode_old_data"),
        (NON_NEGATIVE, "group_per_all_rams", "total_per_all_rams", "per_coalescing_width",
         "per_log2_num_banks", "per_port_fanin", "arb2_data_pipe_spacing",
         "arb2_data_pipe_min_depth", "arb2_stall_pipe_spacing", "arb2_stall_pipe_min_depth",
         "arb2_pipe_at_output", "arb2_test_add_latency"),
        (DECIMAL, "alm_delay_ps", "routing_delay_ps", "bits_per_alm", "lut_inputs", "mux_inputs",
         "preferred_dsp_dot_size"),
        (TEXT, "block_ram_name", "alm_rom_name")):
    for name in names:
        constant = re.search(f"<{name} .*?/>", TARGET).group()
        cases(TARGET, constant, f'<{name} value="%s"/>', **rule)
        cases(TARGET, constant, bad=["", constant * 2, f"<{name}/>", inside(constant, constant),
                                     constant.replace("value", "x")])

# ---- Cases: elements and attributes --------------------------------------------------------------

MISPLACED = "passed over by the tool, so it has no effect"
OVERWRITTEN = "the last one silently replaces the others"

# What stands once under its parent, at any place; a "?" marks what may be missing.
for document, names in (
        (BOARD, "device host interfaces used_resources kernel_config ffs dsps rams kernel_clk_reset"
                " ?channels"),
        (BOARD_14, "?auto_migrate include exclude ?generate ?synthesize"),
        (DEVICE, "fmax resources alms ffs dsps rams"),
        (TARGET, "local_mem fmax_degradation ?global_interconnect delay_model family_info")):
    for name in names.split():
        optional, name = name.startswith("?"), name.strip("?")
        element = re.search(f"(?s)<{name} [^>]*/>|<{name}[ >].*?</{name}>", document).group()
        case(OK if optional else BAD, document, element, "")
        if name in ("generate", "synthesize"):
            case(STRICT, document, element, element * 2, OVERWRITTEN)
        else:
            case(BAD, document, element, element * 2)
        case(BAD, document, element, element.replace(name, f'{name} x=""', 1))
        case(STRICT, document, element, element + "text", "text is never read, so it is a mistake")

# The board, and its flows in each generation.
cases(BOARD, ' name="b"', bad=["", ' name="b" x=""', ' name="b" xmlns="urn:x"',
                               ' name="b" xml:lang="en"'],
      lax={"a namespace declaration is no attribute to a schema": [' name="b" xmlns:x="urn:x"']})
cases(BOARD, ' device_model="device_model.xml"', bad=["", ' device_model=""'])
case(BAD, BOARD_09, "<!-- built in -->", FLOW)
for document in BOARD, BOARD_14:
    cases(document, FLOW, ok=[FLOW * 2],
          bad=["", FLOW.replace(" project", ' x="" project'),
               *without(FLOW, "project", "revision", "lomb_file", "generic_kernel", "cmd",
                        "platform_type", "fixes")])
    cases(document, '<include fixes="i"/><exclude fixes="e"/>',
          ok=['<exclude fixes=""/><include fixes=""/>'],
          bad=['<include fixes="i" x=""/><exclude fixes="e"/>', '<include fixes="i"/><exclude/>',
               '<include fixes="i"/><exclude fixes="e"/><other fixes=""/>',
               '<include fixes="i"><exclude fixes=""/></include><exclude fixes="e"/>'])
    cases(document, '<synthesize cmd="s"/>',
          bad=['<synthesize cmd="s" x=""/>', '<synthesize cmd="s"><other/></synthesize>',
               '<synthesize cmd="s"/><include fixes=""/>'])
case(OK, BOARD_14, ' name="f"', "")
cases(BOARD, ' name="f"', ok=[' name=""'], bad=[""])
for step in re.findall("<generate.*?/>|<synthesize.*?/>|<auto_migrate.*?</auto_migrate>", FLOW):
    cases(BOARD, step, abort=["", step * 2])
for fixes in '<include fixes="i"/>', '<exclude fixes="e"/>':
    cases(BOARD, fixes, ok=["", fixes * 2])

# Used resources.
cases(BOARD, '<alms num="1"/>',
      ok=['<les num="1"/>', '<les num="1"/><alms num="1"/>', '<alms num="1"/><les num="1"/>'],
      bad=["", "<alms/>", '<alms num="1" x=""/>', '<mlabs num="1"/>', '<les num="1"/>' * 2])
cases(DEVICE, '<alms num="1"/>', bad=['<les num="1"/>', "<alms/>"])
cases(BOARD, ' start="0"', bad=["", ' start="0" x=""'])
cases(BOARD, ' size="16"', bad=[""])

# Memories.
UNNAMED, = without(MEMORY, "name")
SECOND = MEMORY.replace('address="0"', 'address="0x10000"').replace('"m"', '"n"')
cases(BOARD, MEMORY, ok=[UNNAMED, MEMORY.replace('"m"', '""'), MEMORY + SECOND,
                         MEMORY + SECOND + SECOND.replace("0x1", "0x2")],
      bad=["", UNNAMED + SECOND, SECOND + UNNAMED, SECOND + MEMORY.replace('"m"', '""'),
           MEMORY.replace('"m"', '""') + SECOND,
           *without(MEMORY, "max_bandwidth"), MEMORY.replace(" name=", ' default="1" name=', 1)],
      lax={"memories that overlap: a grammar does not add": [MEMORY * 2]})
NEXT = BANK.replace('address="0"', 'address="4096"')
cases(BOARD, BANK,
      ok=[BANK + NEXT, BANK.replace("</interface>", PORT + "</interface>"),
          BANK.replace(PORT, "").replace(" name", ' port="" name', 1),
          BANK.replace(PORT, PORT * 2).replace(" name", ' port="" name', 1)],
      bad=["", BANK + "<other/>", BANK.replace(" name", ' default="0" name', 1),
           *without(BANK, "name", "type", "width", "address", "size"),
           BANK.replace(PORT, ""), BANK.replace(PORT, "<other/>" + PORT),
           BANK.replace(PORT, BANK + PORT)],
      strict={MISPLACED: [BANK + PORT, BANK + SECOND]},
      lax={"interfaces of one memory that differ: a grammar does not compare":
           [BANK + NEXT.replace("512", "256"), BANK + NEXT.replace(" size", ' maxburst="2" size')]})
cases(BOARD, PORT,
      bad=[*without(PORT, "name", "direction"), PORT.replace("/>", ' x=""/>'), inside(PORT, PORT),
           inside(PORT, "<other/>"), PORT.replace("/>", ' attribute_width="0"/>')],
      strict={MISPLACED: [inside(PORT, CODE), inside(PORT, "<interface/>")]})

# The codes of a port, which must fit its attribute_width.
case(STRICT, CODED, ' attribute_width="2"', "", MISPLACED)
cases(CODED, ' hazard_free_attributes="0"', ok=[' hazard_free_attributes="false"'],
      bad=["", ' hazard_free_attributes="1"', ' hazard_free_attributes="true"'])
cases(CODED, CODE,
      bad=[CODE.replace("/>", ' x=""/>'), inside(CODE, CODE),
           "<other/>", PORT, *(CODE.replace("3", code) for code in ("-1", " 1", "1 ", "0x1", ""))])
for bits in range(9):
    at_width = CODED.replace('_width="2"', f'_width="{bits}"')
    fitting = [code for code in (1, 9, 10, 59, 99, 100, 119, 199, 200, 249) if code < 2**bits]
    cases(at_width, 'encoding="3"', 'encoding="%s"', ok=["0", *fitting, "00%d" % (2**bits - 1)],
          bad=[2**bits, 2**bits + 10, "99999999999"])
    zero = CODE.replace("3", "0")
    cases(at_width, CODE, ok=["", zero * 2], bad=without(zero, "name", "encoding"))
cases(CODED, f'_width="2">{CODE}', '_width="%s>' + CODE, ok=['9"', '31"'],
      bad=['32"', '49"', '64"', '100"', '1000"', '"'])
cases(CODED, f'_width="2">{CODE}', '_width="%s">', ok=["031", "32", "049", "1000"])
cases(CODED, f'_width="2">{CODE}', '_width="16">%s', ok=["", CODE * 2],
      bad=[*without(CODE, "name", "encoding"), CODE.replace("3", "0x3")])
case(LAX, CODED, f'_width="2">{CODE}', '_width="9">' + CODE.replace("3", "512"),
     "only codes of up to 8 bits are checked")

# Kernel interfaces and channels.
cases(BOARD, KERNEL,
      ok=["", KERNEL * 2, KERNEL.replace("/>", ' width="1" address="0" size="1" chan_id=""/>')],
      bad=[*without(KERNEL, "name", "type", "port"), KERNEL.replace("/>", ' x=""/>'),
           inside(KERNEL, PORT), PORT, "<other/>"],
      abort=[KERNEL.replace("/>", ' size="0x100000000"/>')])
cases(BOARD, '<kernel_clk_reset clk="c" reset="r"/>',
      ok=['<kernel_clk_reset reset="" clk2x="" clk=""/>'],
      bad=['<kernel_clk_reset clk="c"/>', '<kernel_clk_reset reset="r"/>'])
cases(BOARD, CHANNEL, ok=["", CHANNEL + CHANNEL.replace("c0", "C0")],
      bad=[*without(CHANNEL, "name", "port", "type", "width", "chan_id"), inside(CHANNEL, PORT),
           CHANNEL.replace("c0", ""), CHANNEL.replace("32", "0"), PORT, "<other/>"],
      lax={"channel ids must differ: a grammar does not compare texts": [CHANNEL * 2]})

# Model files.
cases(DEVICE, ' target_model="target_model.xml"', bad=["", ' target_model=""'])
cases(DEVICE, ' high="180"', ok=[""], bad=[' high="180" x=""'])
cases(DEVICE, '<fmax expected="240.5" min="150"', bad=["<fmax expected='1'", "<fmax min='1'"])
cases(TARGET, ' family="peltrab"', bad=["", ' family="peltrab" x=""'])
STYLE = '<style_model file="style_a.xml"/>'
cases(TARGET, STYLE, ok=[STYLE * 2],
      bad=["", "<style_model/>", '<style_model file=""/>', '<style_model file="s" x=""/>'])

# Where <?xml-model?> may stand.
MODEL = '<?xml-model href="board_spec.rng"?>'
case(OK, BOARD, "?>", f"?>\n{MODEL}\n<!-- comment -->")
case(LAX, BOARD, "?>", f"?>\n<!-- comment -->\n{MODEL}", "a schema sees no processing instruction")
case(BAD, BOARD, ' name="b"', ' name="b" xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance"'
                              ' xsi:noNamespaceSchemaLocation="board_spec.xsd"')

# ---- Judges --------------------------------------------------------------------------------------


def run(*command, **options):
    return subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.PIPE, text=True, **options)


def tool_outcome(tool, board, **options):
    status = run(tool, board, "name", **options).returncode
    return {0: "loads", 1: "reported", -6: "aborts"}.get(status, f"status {status}")


def xmllint(schema, paths):
    """The text that xmllint has on each of the paths that are not valid."""
    done = run("xmllint", "--noout", "--relaxng", f"{schema}.rng", *paths)
    valid = set(re.findall(r"^(.*) validates$", done.stderr, re.M))
    assert done.returncode in (0, 3, 4) and (valid or done.returncode), done.stderr
    return {path: "\n".join(line for line in done.stderr.splitlines() if line.startswith(path))
            for path in paths if path not in valid}


def jing(schema, paths):
    done = run("jing", "-c", f"{schema}.rnc", *paths)
    assert done.returncode in (0, 1) and not done.stderr, done.stderr
    assert ": fatal" not in done.stdout, done.stdout  # jing would not look at any further file
    wrong = re.findall(r"^(.*?):\d+:\d+: error", done.stdout, re.M)
    assert bool(wrong) == bool(done.returncode), done.stdout
    return {os.path.relpath(path): path for path in wrong}


def kind(text):
    """The schema that the root element calls for, if it is one of ours."""
    root = re.search(r"<(\w+)", text)
    return {"board": "board_spec", "device_model": "device_model",
            "target_model": "target_model"}.get(root and root.group(1))


def compare_cases(tool, judges):
    def write_and_load(item):
        number, (_, document, _) = item
        os.mkdir(str(number))
        for text in BOARD, DEVICE, TARGET, document:
            with open(f"{number}/{kind(text)}.xml", "w", encoding="utf-8") as file:
                file.write(text)
        return tool_outcome(tool, f"{number}/board_spec.xml")

    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        outcomes = list(pool.map(write_and_load, enumerate(CASES)))
    paths = [f"{number}/{kind(document)}.xml" for number, (_, document, _) in enumerate(CASES)]
    found = {judge: {} for judge in judges}
    for judge in judges:
        for schema in "board_spec", "device_model", "target_model":
            found[judge].update(judge(SCHEMA / schema, [p for p in paths if schema in p]))
    for path, outcome, (verdict, _, change) in zip(paths, outcomes, CASES):
        loads, valid = verdict.split(", ")
        if outcome != loads and not (loads == "fails" and outcome in ("reported", "aborts")):
            yield f"{outcome}, not {loads}: {change}"
        for judge in judges:
            answer = "invalid" if path in found[judge] else "valid"
            if answer != valid:
                yield f"{answer} to {judge.__name__}, not {valid}: {change}"
        # The tool has no word on these, so the schema must point at them: not just at the root.
        if verdict == ABORT and not re.search(r":([3-9]|\d\d+): ", found[xmllint].get(path, "")):
            yield f"xmllint names no line: {change}"


def compare_examples(tool, judges):
    for path in sorted((ROOT / "examples").rglob("*.xml")):
        schema = kind(path.read_text(encoding="utf-8"))
        for judge in judges:
            if schema and judge(SCHEMA / schema, [str(path)]):
                yield f"invalid to {judge.__name__}: {path}"
        sdk = dict(os.environ, VEMOSDKROOT=str(ROOT / "examples/sdk"))
        if schema == "board_spec" and tool_outcome(tool, path, env=sdk) != "loads":
            yield f"does not load: {path}"


def compare_generated():
    for source in SCHEMA.glob("*.rnc"):
        made = pathlib.Path(source.stem + ".rng")
        done = run("trang", source, made)  # writes the schemas that it includes, too
        if done.returncode or made.read_bytes() != source.with_suffix(".rng").read_bytes():
            yield f"{made} is not what trang makes of {source.name}: {done.stderr}"


def main():
    tool = os.path.abspath(sys.argv[1])
    os.environ.pop("VEMOSDKROOT", None)
    judges = [xmllint] + [jing] * bool(shutil.which("jing"))
    with tempfile.TemporaryDirectory() as directory:
        os.chdir(directory)
        wrong = [*compare_examples(tool, judges), *compare_cases(tool, judges)]
        if shutil.which("trang"):
            wrong += compare_generated()
        os.chdir("/")
    skipped = [name for name in ("jing", "trang") if not shutil.which(name)]
    print(*wrong, f"{len(CASES)} cases, {len(wrong)} disagreements, without {skipped}", sep="\n")
    sys.exit(bool(wrong))


main()
