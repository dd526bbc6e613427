"""mutate.py --check: tells which faults of mutants.txt do not apply to the sources, if any.
mutate.py WORK MUTANTS TEXT: puts the faults of MUTANTS whose file has TEXT in its name into the
sources in WORK/sources, one at a time, builds, and tells which the tests catch, and what does."""

import os
import pathlib
import re
import resource
import signal
import subprocess
import sys
import time

REQUIRED_RATE = 0.95
TIMEOUT = 300  # in seconds, of a test program; the whole suite takes a tenth of it
MEMORY = 4 << 30  # of a test program
# Cheapest first. Not the test that installs everything.
TESTS = [["tests/vemo-boardspec-tests", "--gtest_fail_fast"],
         ["tests/vemo-boardspec-package-tests", "--gtest_fail_fast"],
         ["ctest", "--stop-on-failure", "-R",
          "^(completion|depfile|editors|faults|json-schema|manual|pictures|readers|reports|replay)"],
         ["ctest", "-R", "^schemas-xmllint$"]]
DEFAULT_TABLE = pathlib.Path(__file__).with_name("mutants.txt")


def read_mutants(table, source_dir):
    """The faults (file, place, new text, line of the table), and what is wrong with the table."""
    mutants, mistakes, name, text = [], [], None, ""
    for number, line in enumerate(table.read_text().splitlines(), 1):
        if heading := re.fullmatch(r"\[(.*)\]", line):
            name = heading[1]
            path = source_dir / name
            text = path.read_text() if path.is_file() else ""
        elif fault := re.fullmatch("([^#].*) => (.*)", line):
            old, new = fault.groups()
            places = list(re.finditer(r"\s+".join(map(re.escape, old.split())), text))
            if len(places) == 1 and old != new:
                mutants.append((name, places[0].span(), new.replace("(nothing)", ""), number))
            else:
                mistakes.append(f"{table}:{number}: stands {len(places)} times in {name}: {old}")
        elif line and not line.startswith("#"):
            mistakes.append(f"{table}:{number}: neither a file nor a fault: {line}")
    return mutants, mistakes


def limit_memory():
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def run(build, *command, limited=False):
    """Exit status and output of a command; status None when it has taken too long."""
    with subprocess.Popen(command, cwd=build, text=True, errors="replace", start_new_session=True,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          preexec_fn=limit_memory if limited else None) as process:
        try:
            output, _ = process.communicate(timeout=TIMEOUT if limited else None)
            return process.returncode, output
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)
            return None, process.communicate()[0]


def catch(build):
    """What the tests catch the present sources with: a test's name, or None."""
    for command in TESTS:
        status, output = run(build, *command, limited=True)
        if status != 0:
            failed = re.findall(r"(?:\[ +FAILED +\] |\d+ - )([\w./-]+)(?! +Passed)", output)
            started = re.findall(r"\[ RUN +\] ([\w./]+)", output)
            return (failed[:1] or started[-1:] or command[:1])[0]
    return None


def main():
    work, table, wanted = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]), sys.argv[3]
    sources, build = work / "sources", work / "build"
    mutants, mistakes = read_mutants(table, sources / "src")
    if mistakes:
        sys.exit("\n".join(mistakes))
    build.mkdir()
    for command in (["cmake", "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug",
                     "-DCMAKE_CXX_FLAGS_DEBUG=-O0", str(sources)], ["cmake", "--build", "."]):
        status, output = run(build, *command)
        if status != 0:
            sys.exit(output)
    if catcher := catch(build):
        sys.exit(f"{catcher} fails without any fault")

    survivors, misfits = [], []
    mutants = [mutant for mutant in mutants if wanted in mutant[0]]
    for name, (begin, end), new, number in mutants:
        start = time.monotonic()
        path = sources / "src" / name
        whole = path.read_text()
        path.write_text(whole[:begin] + new + whole[end:])
        status, output = run(build, "cmake", "--build", ".")
        if status != 0:
            print(output, file=sys.stderr)
            verdict = "DOES NOT BUILD"
            misfits.append(number)
        elif catcher := catch(build):
            verdict = f"caught by {catcher}"
        else:
            verdict = f"SURVIVED: {whole[begin:end]} => {new}"
            survivors.append(number)
        path.write_text(whole)
        print(f"{table.name}:{number}: {name}: {verdict} ({time.monotonic() - start:.0f} s)",
              flush=True)

    num_caught = len(mutants) - len(survivors) - len(misfits)
    rate = num_caught / max(len(mutants), 1)
    print(f"{num_caught} of {len(mutants)} faults caught: {rate:.1%}")
    sys.exit(0 if rate >= REQUIRED_RATE and not misfits else 1)


if sys.argv[1:] == ["--check"]:
    sys.exit("\n".join(read_mutants(DEFAULT_TABLE, DEFAULT_TABLE.parents[2] / "src")[1]) or 0)
main()
