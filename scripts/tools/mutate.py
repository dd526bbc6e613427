"""mutate.py WORK MUTANTS TEXT: puts the faults of MUTANTS whose file has TEXT in its name into the
sources in WORK, one at a time, builds, and tells which of them the tests catch, and what does."""

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
LINE_KINDS = "-+"

work, table, wanted = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]), sys.argv[3]
sources, build = work / "sources", work / "build"


def read_mutants():
    """The faults: file, old text, new text, line of the table."""
    mutants = []
    blocks = re.finditer(r"^[^\n#]+(\n[^\n]+)*", table.read_text(), re.MULTILINE)
    for block in blocks:
        name, *lines = block.group().splitlines()
        number = table.read_text().count("\n", 0, block.start()) + 1
        texts = {kind: [line[2:] for line in lines if line[:1] == kind] for kind in LINE_KINDS}
        kinds = "".join(line[:1] for line in lines)
        if not re.fullmatch(r"-+\++", kinds):
            sys.exit(f"{table.name}:{number}: neither a file nor its old and new text")
        old, new = ("\n".join(texts[kind]).strip() for kind in LINE_KINDS)
        count = (sources / "src" / name).read_text().count(old)
        if count != 1:
            sys.exit(f"{table.name}:{number}: stands {count} times in {name}: {old}")
        if old == new:
            sys.exit(f"{table.name}:{number}: changes nothing")
        mutants.append((name, old, new, number))
    return mutants


def limit_memory():
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def run(*command, limited=False):
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


def build_all():
    """Whether it builds; what is wrong is printed."""
    status, output = run("cmake", "--build", ".")
    if status != 0:
        print(output, file=sys.stderr)
    return status == 0


def catch():
    """What the tests catch the present sources with: a test's name, or None."""
    status, output = run("tests/vemo-boardspec-tests", "--gtest_fail_fast", limited=True)
    if status != 0:
        failed = re.findall(r"\[ +FAILED +\] ([\w.]+)", output)
        started = re.findall(r"\[ RUN +\] ([\w.]+)", output)
        how = {None: " (too long)", 1: ""}.get(status, " (crash)")
        return (failed or ["start of the tests", *started][-1:])[0] + how
    status, output = run("ctest", "--stop-on-failure", "-R", SCRIPT_TESTS, limited=True)
    if status != 0:
        failed = re.findall(r"(\w+) \.+\**(?!.*Passed)", output)
        return failed[-1] if failed else "ctest"
    return None


# The tests that are no part of the test program, without the one that installs everything.
SCRIPT_TESTS = "^(schemas|lint|completion|editors|manual)$"

all_mutants = read_mutants()
build.mkdir()
status, output = run("cmake", "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-O0",
                     str(sources))
if status != 0 or not build_all():
    sys.exit(output)
if catcher := catch():
    sys.exit(f"{catcher} fails without any fault")

survivors, misfits = [], []
mutants = [mutant for mutant in all_mutants if wanted in mutant[0]]
for name, old, new, number in mutants:
    start = time.monotonic()
    path = sources / "src" / name
    whole = path.read_text()
    path.write_text(whole.replace(old, new))
    if not build_all():
        verdict = "DOES NOT BUILD"
        misfits.append(number)
    elif catcher := catch():
        verdict = f"caught by {catcher}"
    else:
        verdict = f"SURVIVED: {old} -> {new}"
        survivors.append(number)
    path.write_text(whole)
    print(f"{table.name}:{number}: {name}: {verdict} ({time.monotonic() - start:.0f} s)", flush=True)

num_caught = len(mutants) - len(survivors) - len(misfits)
rate = num_caught / max(len(mutants), 1)
print(f"{num_caught} of {len(mutants)} faults caught: {rate:.1%}")
sys.exit(0 if rate >= REQUIRED_RATE and not misfits else 1)
