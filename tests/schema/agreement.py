#!/usr/bin/env python3
"""Checks the readers, and the schemas against them, for every element and attribute there is.

usage: agreement.py TOOL xmllint|jing|trang

Changes each document of tests/data in one place at a time, and loads the result with TOOL, which
must report a mistake of that kind at that line, if any. The schemas must agree: to xmllint or jing,
a document is valid exactly if it loads. DIFFERENCES says where they do not, and why. Before that,
the unchanged documents and the examples must be valid and load. With trang, checks instead that the
.rng files are what it makes of the .rnc files. Exits with status 77 where the program is not
installed."""

import collections
import concurrent.futures
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import xml.parsers.expat

ROOT = pathlib.Path(__file__).resolve().parents[2]
DATA = ROOT / "tests/data"
SCHEMA = pathlib.Path("schema")  # a copy: not every validator can read every path
BOARD, BOARD_14, BOARD_09, DEVICE, TARGET = (
    (DATA / name).read_text(encoding="utf-8")
    for name in ("board_spec.xml", "board_14.1.xml", "board_0.9.xml", "dev.xml", "tm.xml"))
SCHEMAS = {"board_spec.xml": "board_spec", "dev.xml": "device_model", "tm.xml": "target_model"}

# Why a schema and the tool may differ about a document: a pattern of what is changed, and of what
# the tool reports. Each reason must be needed.
DIFFERENCES = {
    "text is never read, so it is a mistake": "^text: ",
    "only plain decimal spellings of such a number are foreseen":
        '="(inf|0x1p3|-0)"$|generic_kernel=" 1"$|version="([ +].*|.* |nan|0x11|1.71e1)"$'
        '|"(0x10|nan|14.09999.*|0.[89]\\d{8,})"$',
    "what follows a number is not read, so it is a mistake": '"(3 GB|1,5|14.1x|17.1.2|1abc|0.5)"$',
    "the last one silently replaces the others":
        "^twice: .*/(generate|synthesize)$|<generate cmd=.gen0",
    "passed over by the tool, so it has no effect":
        "@attribute_width$|<port><x/>|<attribute/>|^<interface name=.d1.* => .*<port",
    "a grammar does not compare": "regions overlap|must have the same|share the same channel ID",
    "too small for single precision, so 0 to the tool": "1e-99",
    "it is 17.0 in single precision": '"16.9999990',
    "a namespace declaration is no attribute to a schema": "xmlns:",
    "a schema sees no processing instruction": "<!-- --><[?]xml-model",
    "a decimal multiple of 4 GiB that is not listed": '"21474836480"$',
    "beyond 64 bits": '"0x1000000000000000000000000"$',
    "only codes of up to 8 bits are checked": 'width="9".*"512"|width="0?31".*"2147483648"',
}

# Values to try, for attributes that hold an integer, a float or a word, and for some by their name.
INTEGERS = ["", " 7", "7 ", "+7", "-7", "0x7", "7.0", "7k", "seven", "007", "08", "017", "0", "00",
            "1", "2", "99999999999", "0x", "0X1f ", " 0X1fffffffF", "1 2", "0b1"]
FLOATS = ["", ".", "e5", "-1", "-.5", "nan", "NAN(1)", "inf", "0x1p3", "0x", "-0", "0", ".0", "0e5",
          "1,5", "3 GB", "+2.5", ".55", "12.", "001", "1e10", "2.5E-1", " 3 ", "1e-99"]
WORDS = ["", "zz", "True", "tRUE", "TRUE", "2", "+1", "0x1F", "1abc", "0.5", " 1"]
VALUES = {
    "version": ["", "0", "0.8", ".9", "0.90", "00.900", "0.91", "1.0", "13.1", "14", "14.0",
                "14.09", "14.1", "14.10", "15", "16.999", "17", "17.", "017.1", "20.3", "nan",
                "-17.1", "v17", " 17.1", "+17.1", "17.1 ", "1.71e1", "0x11", "17.1.2"],
    "type": "slave Slave master irq streamsource streamsink stream-source".split()
            + ["device private", "device  private", "shared virtual", "shared physical", "irq "],
    "direction": ["rw", "r", "w", "RW", "read", "r "],
    "hazard_free_attributes": ["true", "false", "1", "0", "True", " 1"],
    "latency_type": ["average", "fixed", "Fixed", "fixed "],
    "additional_args": ["", "0", "1", "true", "false", "True", "2", " 1"],
    "platform_type": "none auto pb_net dbsoc obsoc rcfx_7.x rcfx_7_x oc_ref tsk_jtag tsk_pcie ocsoc"
                     " pc_ref AUTO".split() + ["", "auto "],
    "family": "peltraa peltrab peltrac peltrad osminb osminc duvelb duvelclx Peltraa".split()
              + ["", "Peltra A", "peltraa "],
    "target_model": [""], "device_model": [""],  # any other names a file, which there is not
}
IS_FLOAT = re.compile("@(max_bandwidth|sampling_rate|expected|min|high)$"
                      "|(fmax_degradation|global_interconnect)/[^/]*$")

# What may stand more than once, and what adds reports to the first.
REPEATED = ("style_model global_mem interface port attribute compile generate synthesize"
            " auto_migrate include exclude").split()
REPORTS_MORE = "auto_migrate interface port attribute global_mem fmax".split()

# Changes of one text in several ways; the tests of the readers have more.
PORT = '<port name="d0_r" direction="r"/>'
CODED = re.search('<port name="d0_w".*?</port>', BOARD).group()
CODES = [(width, f'<attribute name="a" encoding="{code}"/>') for width in (*range(9), 31, "031")
         for code in (0, f"00{2**int(width) - 1}", 2**int(width), 1, 9, 10, 59, 99, 119, 200, 249)]
CODES += [(width, code) for width in (9, 32, 49, 64, 100, 1000, "049")
          for code in ("", '<attribute name="a" encoding="512"/>')]
CHANGES = [
    (BOARD, '<alms num="11"/>', ['<les num="1"/>', '<les num="1"/><alms num="1"/>',
                                 '<alms num="1"/><les num="1"/>', '<les num="1"/><les num="1"/>']),
    (BOARD, 'size="0x100002000"', [f'size="{size}"' for size in (
        "0x00000001", "010000000000", "040000000001", "4294967297", "0x100000000", "0xA00000000",
        " 0x300000000", "040000000000", "0100000000000", "0x1000000000000000000000000",
        "21474836480", *(2**32 * banks for banks in (1, 2, 3, 4, 6, 8, 12, 16, 24, 32, 64, 128)))]),
    (BOARD, "</host>", ['</host><global_mem name="T" max_bandwidth="1"><interface name="t" port=""'
                        ' type="slave" width="8" address="0x3000" size="1"/></global_mem>']),
    (BOARD, PORT, ["", PORT * 2, PORT + "<other/>", PORT + "<interface/>"]),
    (BOARD, '<interface name="d1"', [PORT + '<interface name="d1"']),
    (BOARD, CODED, [f'<port name="p" direction="w" hazard_free_attributes="0"'
                    f' attribute_width="{width}">{code}</port>' for width, code in CODES]),
    (BOARD, ' name="acme"', [' name="acme" xmlns="urn:x"', ' name="acme" xml:lang="en"',
                             ' name="acme" xmlns:x="urn:x"']),
    (BOARD, "<board", ['<?xml-model href="board_spec.rng"?><!-- --><board',
                       '<!-- --><?xml-model href="board_spec.rng"?><board']),
    (TARGET, '<style_model file="style_a.xml"/>', [""]),
]

# A changed document, for a file of a package; what was changed; the report if it does not load, or
# None if any will do; and whether others may follow that.
Case = collections.namedtuple("Case", "file text change report more")


class Element:
    """Where an element stands in a text: from start to end, its start tag to tag_end."""

    def __init__(self, text, name, start, parent):
        self.text, self.name, self.start, self.parent = text, name, start, parent
        self.tag_end = self.end = text.index(">", start) + 1
        self.path = f"{parent.path}/{name}" if parent else name
        self.line = text.count("\n", 0, start) + 1
        self.tag = text[start:self.tag_end]

    def case(self, what, new, message=None, begin=0, end=None, line=None, more=False):
        """The document with text of the element, all of it unless said, replaced by `new`."""
        begin, end = self.start + begin, self.end if end is None else self.start + end
        file = {"b": "board_spec.xml", "d": "dev.xml", "t": "tm.xml"}[self.path[0]]
        report = message and f"Error in '{file}', line {line or self.line}\n{message}\n"
        return Case(file, self.text[:begin] + new + self.text[end:], what, report,
                    more or self.name in REPORTS_MORE)


def elements_of(text):
    found, path = [], []
    parser = xml.parsers.expat.ParserCreate()

    def enter(name, _):
        path.append(Element(text, name, parser.CurrentByteIndex, path[-1] if path else None))
        found.append(path[-1])

    def leave(_):
        elem = path.pop()
        if not elem.tag.endswith("/>"):
            elem.end = text.index(">", parser.CurrentByteIndex) + 1

    parser.StartElementHandler, parser.EndElementHandler = enter, leave
    parser.Parse(text, True)
    return found


def is_well_formed(text):
    try:
        return bool(elements_of(text))
    except xml.parsers.expat.ExpatError:
        return False


def changes_of_element(elem):
    name, tag, whole = elem.name, elem.tag, elem.text[elem.start:elem.end]
    odd = f'<{name} zz=""{whole[len(name) + 1:]}'  # of two mistakes, place and number come first
    inside = elem.line + tag.count("\n") + 1
    after = elem.line + whole.count("\n") + 1
    unexpected = f"Unexpected element '{name}'."
    once = f"Expected element <{name}> to appear exactly once."
    odd_report = "Unexpected attribute 'zz'."
    inside_reports = {"global_mem": odd_report, "interface": None}  # the former may stand in itself

    def change(what, new, message=None, line=None):
        return elem.case(f"{what}: {elem.path}", new, message, line=line)

    def with_child(child):
        return tag.replace("/>", ">") + f"\n{child}" + (whole[len(tag):] or f"</{name}>")

    # An attribute too many is reported before one that is missing, except for interfaces.
    attributes = tag[len(name) + 1:]
    if name != "interface":
        attributes = re.sub(r' \w+="[^"]*"', "", attributes)
    yield change("attribute", f'<{name}\nzz=""{attributes}{whole[len(tag):]}', odd_report,
                 elem.line + 1)
    expected = {"used_resources": "num", "resources": "num", "auto_migrate": "fixes"}.get(name)
    yield change("child", with_child("<zz/>"), "Unexpected element 'zz'." if expected is None else
                 f"Expected attribute '{expected}' on element 'zz'.", inside)
    if elem.parent is None:
        return
    yield change("text", whole + "text")
    yield change("twice", f"{whole}\n{whole}", None if name in REPEATED else once, after)
    yield change("twice, odd", f"{whole}\n{odd}", odd_report if name in REPEATED else once, after)
    yield change("in itself", with_child(odd), inside_reports.get(name, unexpected), inside)
    root = elem
    while root.parent:
        root = root.parent
    if elem.parent is not root:
        yield root.case(f"in the root: {elem.path}", f"\n{odd}", unexpected, len(root.tag),
                        len(root.tag), root.line + 1, name in REPORTS_MORE)
    counter = elem.parent.parent if elem.parent.name == "resources" else elem.parent
    is_figure = re.search(" (num|value)=", tag)
    yield change("removed", "", is_figure and once.replace(name, counter.name), counter.line)


def changes_of_attributes(elem, seen):
    """Skips attributes that have been `seen` in another element."""
    for attribute in re.finditer(r'(\w+)="([^"]*)"', elem.tag):
        name, value = attribute.groups()
        path = f"{elem.path}@{name}"

        def change(new, message=None, line=None, attribute=attribute, path=path, name=name):
            return elem.case(path + new[len(name):], new, message, *attribute.span(), line)

        if path in seen and name != "version":
            continue
        seen.add(path)
        where = f"attribute '{name}' on element '{elem.name}'."
        is_special = name in ("port", "hazard_free_attributes") or path == "board/global_mem@name"
        yield change("", None if is_special else f"Expected {where}")
        values = VALUES.get(name, WORDS)
        if value[:1].isdigit() and name not in VALUES:
            line = elem.line + elem.tag.count("\n", 0, attribute.start()) + 1
            yield change(f'\n{name}="zz"', f"Incorrect type for {where}", line)
            values = FLOATS if IS_FLOAT.search(path.replace("@value", "")) else INTEGERS
        for value in values:
            yield change(f'{name}="{value}"')


def listed_changes():
    for text, old, news in CHANGES:
        assert text.count(old) == 1, old
        for new in news:
            yield elements_of(text)[0].case(f"{old} => {new}", text.replace(old, new).strip())
    groups = (DATA / "board.cases").read_text().split("\n[")[1:]
    for file, lines in (re.match(r"(?s)\w+: (\S+)\](.*)", group).groups() for group in groups):
        text = (DATA / file).read_text()
        for old, new, _ in re.findall("(?m)^([^#\n].*) => (.*) => (.*)$", lines):
            for old in old.split(" || "):
                for new in new.split(" || "):
                    pattern = "(?s)" + ".*?".join(map(re.escape, old.split("...")))
                    put = new.replace("(nothing)", "").replace("\\n", "\n")
                    yield elements_of(text)[0].case(f"{old} => {new}", put, None,
                                                    *re.search(pattern, text).span())


def run(*command, **options):
    return subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.PIPE, text=True, **options)


def load(tool, folder, **options):
    """Whether a board loads, and what is reported if not."""
    done = run(tool, "board_spec.xml", "name", cwd=folder, **options)
    outcomes = {0: "loads", 1: "reported", -6: "aborts"}
    return outcomes.get(done.returncode, f"status {done.returncode}"), done.stdout


def xmllint(schema, paths):
    """The text that xmllint has on each of the paths that are not valid."""
    done = run("xmllint", "--noout", "--relaxng", f"{schema}.rng", *paths)
    valid = set(re.findall(r"^(.*) validates$", done.stderr, re.M))
    assert done.returncode in (0, 1, 3, 4) and (valid or done.returncode), done.stderr
    return {path: "\n".join(line for line in done.stderr.splitlines() if line.startswith(path))
            for path in paths if path not in valid}


def jing(schema, paths):
    done = run("jing", "-c", f"{schema}.rnc", *paths)
    assert done.returncode in (0, 1) and not done.stderr, done.stderr
    assert ": fatal" not in done.stdout, done.stdout  # jing would not look at any further file
    wrong = re.findall(r"^(.*?):(\d+:\d+: error.*)", done.stdout, re.M)
    assert bool(wrong) == bool(done.returncode), done.stdout
    return {os.path.relpath(path): text for path, text in wrong}


def compare_cases(tool, judge, cases):
    def write_and_load(item):
        number, case = item
        os.mkdir(str(number))
        for file, text in zip(SCHEMAS, (BOARD, DEVICE, TARGET)):
            pathlib.Path(str(number), file).write_text(case.text if file == case.file else text,
                                                       encoding="utf-8")
        return load(tool, str(number))

    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        outcomes = list(pool.map(write_and_load, enumerate(cases)))
    paths = [f"{number}/{case.file}" for number, case in enumerate(cases)]
    found = {}
    for file, schema in SCHEMAS.items():
        found.update(judge(SCHEMA / schema, [p for p in paths if p.endswith(file)]))
    needed = set()
    for path, (status, output), case in zip(paths, outcomes, cases):
        if status.startswith("status"):
            yield f"{status}: {case.change}"
        reports = output.partition("Error: Failed to load xml file: ")[0]
        first = reports[:len(case.report)] if case.report and case.more else reports
        if status == "reported" and case.report and first != case.report:
            yield f"{case.change}: reports {reports!r}, not {case.report!r}"
        if (path in found) == (status == "loads"):
            reasons = [reason for reason, pattern in DIFFERENCES.items()
                       if re.search(pattern, f"{case.change}\n{reports}", re.M)]
            needed.update(reasons)
            if not reasons:
                verdict = "invalid" if path in found else "valid"
                yield f"tool: {status}, schema: {verdict}: {case.change}"
        # The tool has no word on these, so the schema must point at them: not just at the root.
        located = re.search(r":([3-9]|\d\d+): |^$", found.get(path, ""))
        if status == "aborts" and judge == xmllint and not located:
            yield f"xmllint names no line: {case.change}"
    for reason in set(DIFFERENCES) - needed:
        yield f"they never differ because {reason}"


def compare_examples(tool, judge):
    shutil.copytree(ROOT / "examples", "examples")
    shutil.copytree(DATA, "tests/data")
    sdk = dict(os.environ, VEMOSDKROOT=os.path.abspath("examples/sdk"))
    schemas = dict(zip(("board", "device_model", "target_model"), SCHEMAS.values()))
    for path in sorted(pathlib.Path().glob("[et]*/**/*.xml")):
        root = re.search(r"<(\w+)", path.read_text(encoding="utf-8")).group(1)
        for text in judge(SCHEMA / schemas[root], [str(path)]).values() if root in schemas else ():
            yield f"schema: {path} is invalid: {text}"
        if path.name == "board_spec.xml" and load(tool, path.parent, env=sdk)[0] != "loads":
            yield f"tool: {path} does not load"


def compare_generated():
    for source in SCHEMA.glob("*.rnc"):
        made = pathlib.Path(source.stem + ".rng")
        done = run("trang", source, made)  # writes the schemas that it includes, too
        if done.returncode or made.read_bytes() != source.with_suffix(".rng").read_bytes():
            yield f"{made} is not what trang makes of {source.name}: {done.stderr}"


def main():
    tool, program = os.path.abspath(sys.argv[1]), sys.argv[2]
    if not shutil.which(program):
        print(f"skipped: {program} is not installed")
        sys.exit(77)
    os.environ.pop("VEMOSDKROOT", None)
    cases, seen = [case for case in listed_changes() if is_well_formed(case.text)], set()
    for text in BOARD, BOARD_14, BOARD_09, DEVICE, TARGET:
        for elem in elements_of(text):
            cases += changes_of_element(elem)
            cases += changes_of_attributes(elem, seen)
    with tempfile.TemporaryDirectory() as directory:
        os.chdir(directory)
        shutil.copytree(ROOT / "schema", SCHEMA)
        if program == "trang":
            wrong = [*compare_generated()]
        else:
            judge = {"xmllint": xmllint, "jing": jing}[program]
            wrong = [*compare_examples(tool, judge)] or [*compare_cases(tool, judge, cases)]
            if wrong:
                wrong.append("Correct the schema, or explain it in DIFFERENCES and docs/schemas.md")
        os.chdir("/")
    print(*wrong, f"{program}: {len(cases)} cases", sep="\n")
    sys.exit(bool(wrong))


main()
