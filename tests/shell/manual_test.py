"""manual_test.py TOOL SOURCE_DIR: the manual pages are well formed and true. What they show as files
makes a package, what they show as sessions happens, and the commands that they and the completions
list are those of the tool."""

import glob
import os
import re
import subprocess
import sys
import tempfile

tool, source = (os.path.abspath(arg) for arg in sys.argv[1:3])
pages = sorted(glob.glob(source + "/man/*.[15]"))
failures = 0


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def expect(condition, message):
    global failures
    if not condition:
        print(message)
        failures += 1


def run(*command, **environment):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          env=dict(os.environ, **environment), check=False)


def displays(kind):
    """Name and text of all displays of that kind: those behind a comment with this word."""
    for page in pages:
        pattern = r'^\.\\" %s ?(.*)\n\.Bd .*\n([^\0]*?)^\.Ed' % kind
        for name, text in re.findall(pattern, read(page), re.M):
            yield name, text.replace(r"\-", "-").replace(r"\e", "\\")


lint = run("mandoc", "-Tlint", "-Wwarning", *pages)
expect(lint.returncode == 0 and not lint.stdout, lint.stdout)

os.environ["PATH"] = os.path.dirname(tool) + ":" + os.environ["PATH"]
with tempfile.TemporaryDirectory() as directory:
    os.chdir(directory)
    for name, text in displays("FILE"):
        with open(name, "w", encoding="utf-8") as file:
            file.write(text)

    sessions = [line for _, text in displays("SESSION")
                for line in re.findall(r"^\$ (.*)\n((?:[^$].*\n)*)", text, re.M)]
    expect(sessions, "no sessions")
    for command, output in sessions:
        happened = run("sh", "-c", command).stdout
        expect(happened == output, f"{command}: {happened!r}, the page says {output!r}")

    answer = "burdock: fendra_sh --flow compile burdock --revision=burdock_debug"
    for query in (["sh", "-eu", "query.sh"], ["make", "-f", "query.mk"],
                  ["cmake", "-D", "BOARD=board_spec.xml", "-P", "query.cmake"]):
        result = run(*query, BOARD="board_spec.xml")
        expect(result.returncode == 0 and answer in result.stdout, f"{query}: {result}")
        result = run(*[arg.replace("board_spec", "nosuch") for arg in query], BOARD="nosuch.xml")
        expect(result.returncode != 0 and "load xml file: nosuch.xml" in result.stdout,
               f"{query} without a board: {result}")

    commands = re.findall(r"^([a-z_]+)$", run(tool, "board_spec.xml", "?").stdout, re.M)
    lists = {path: re.findall(pattern, read(f"{source}/{path}"), re.M) for path, pattern in {
        "man/vemo-boardspec.1": r"^\.It Ic (\w+)$",
        "completions/_vemo-boardspec": r"^    '(\w+):",
        "completions/vemo-boardspec.fish": r"^    (\w+)\\t",
    }.items()}
    lists["bash"] = run("bash", "-c", f". '{source}/completions/vemo-boardspec.bash';"
                        " echo ${_vemo_boardspec_commands[@]}").stdout.split()
    for path, listed in lists.items():
        expect(sorted(listed) == commands, f"{path} lists {listed}, the tool {commands}")

sys.exit(failures > 0)
