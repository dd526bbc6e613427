"""manual_test.py TOOL SOURCE_DIR: the manual pages are well formed and true. What they show as files
makes a package, what they show as sessions happens. Their programs and the recipes get answers, and
fail when the tool does. All lists of commands are complete."""

import glob
import os
import re
import subprocess
import sys
import tempfile

tool, source = (os.path.abspath(arg) for arg in sys.argv[1:3])
pages = sorted(glob.glob(source + "/man/*.[15]"))
recipes = source + "/examples/recipes"

# The flow of each, and the program.
QUERIES = [
    ("debug", "sh -eu query.sh"),
    ("debug", "make -f query.mk"),
    ("debug", "cmake -D BOARD=$BOARD -P query.cmake"),
    ("debug", f"{recipes}/shell/list-flows $BOARD"),
    ("debug", f"make -C {recipes}/make BOARD=$BOARD FLOW=debug"),
    ("release", f"make -C {recipes}/make BOARD=$BOARD"),
    ("debug", f"cmake -S {recipes}/cmake -B 1 -D BOARD=$BOARD -D FLOW=debug && cmake --build 1"),
    ("release", f"cmake -S {recipes}/cmake -B 2 -D BOARD=$BOARD && cmake --build 2"),
]
ANSWERS = {"debug": "fendra_sh --flow compile burdock --revision=burdock_debug",
           "release": "fendra_sh --flow compile burdock"}
LISTS = {  # the pattern of a command in each
    "man/vemo-boardspec.1": r"^\.It Ic (\w+)$",
    "completions/vemo-boardspec.bash": r"^    ([a-z]+|[a-z]+_[a-z]+)$(?=[^)]*\n\)\n\n# Splits)",
    "completions/_vemo-boardspec": r"^    '(\w+):",
    "completions/vemo-boardspec.fish": r"^    (\w+)\\t",
}
failures = 0


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def expect(condition, *message):
    global failures
    if not condition:
        print(*message)
        failures += 1


def run(command, **environment):
    """Exit status and output."""
    result = subprocess.run(command, shell=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                            text=True, env={**os.environ, **environment}, check=False)
    return result.returncode, result.stdout


def displays(kind):
    """Name and text of the displays that a comment with this word announces."""
    pattern = rf'^\.\\" {kind} ?(.*)\n\.Bd .*\n([^\0]*?)^\.Ed'
    for name, text in re.findall(pattern, "".join(map(read, pages)), re.M):
        yield name, text.replace(r"\-", "-").replace(r"\e", "\\")


lint = run(f"mandoc -Tlint -Wwarning '{source}'/man/*.[15]")
expect(lint == (0, ""), lint)

with tempfile.TemporaryDirectory() as directory:
    os.chdir(directory)
    os.environ["PATH"] = f"{directory}:{os.path.dirname(tool)}:{os.environ['PATH']}"
    for name, text in [*displays("FILE"), ("kitforge", ":"), ("fendra_sh", 'echo "fendra_sh $*"')]:
        with open(name, "w", encoding="utf-8") as file:
            file.write(text)
        os.chmod(name, 0o755)

    for _, text in displays("SESSION"):
        for command, output in re.findall(r"^\$ (.*)\n((?:[^$].*\n)*)", text, re.M):
            expect(run(command)[1] == output, command, "prints", run(command), "not", output)

    for flow, query in QUERIES:
        status, output = run(query, BOARD=directory + "/board_spec.xml")
        expect(status == 0 and re.search(ANSWERS[flow] + "$", output, re.M), query, status, output)
        status, output = run(query, BOARD=directory + "/nosuch.xml")
        expect(status != 0 and f"xml file: {directory}/nosuch.xml" in output, query, status, output)

    commands = re.findall(r"^(\w+)$", run(f"{tool} board_spec.xml '?'")[1], re.M)
    for path, pattern in LISTS.items():
        listed = sorted(re.findall(pattern, read(f"{source}/{path}"), re.M))
        expect(listed == commands, path, "lists", listed, "the tool", commands)

sys.exit(failures > 0)
