#!/usr/bin/env python3
"""Compares whole processes that tell the name of a board: tool, floor, and others if installed.

Timed runs are made in pairs with the floor: what else happens on the machine hits both alike.
"""

import argparse
import pathlib
import shutil
import statistics
import subprocess
import sys

import measure

PACKAGE = pathlib.Path(__file__).parents[1] / "examples" / "teasel"
BOARD, DEVICE, TARGET = (
    str(PACKAGE / name) for name in ("board_spec.xml", "pb3180.xml", "peltrab.xml"))
ANSWER = "teasel_n4"

# Others, which read the board file only.
OTHERS = {
    "xmllint": ["xmllint", "--xpath", "string(/board/@name)", BOARD],
    "xmlstarlet": ["xmlstarlet", "sel", "-t", "-v", "/board/@name", BOARD],
    "python3": ["python3", "-c", "import sys, xml.etree.ElementTree as tree;"
                "print(tree.parse(sys.argv[1]).getroot().get('name'))", BOARD],
}

# At most this many times the instructions of the other.
BARS = [("tool", "floor", 1.12), ("tool", "xmllint", 0.70), ("static", "tool", 0.22),
        ("dump sh", "tool", 2.0), ("dump json", "tool", 2.0)]


def parse_arguments():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("tool")
    parser.add_argument("floor")
    parser.add_argument("--static", metavar="TOOL", help="a self-contained build of the tool")
    parser.add_argument("--dump", help="the program that prints everything about a board")
    parser.add_argument("--repeat", type=int, default=200,
                        help="timed runs of each; 0 for none (default: %(default)s)")
    parser.add_argument("--check", action="store_true",
                        help="fail when the instructions of what is named, but only of the static "
                        "tool if that is, are too many: " + ", ".join(
                            f"{name} above {bar:.2f} x {other}" for name, other, bar in BARS))
    return parser.parse_args()


def compare_times(floor, command, repetitions):
    """The median time of `command` in seconds, and that of its ratios to the floor's."""
    times, ratios = [], []
    for repetition in range(repetitions):
        if repetition % 2 == 0:  # neither comes first always
            floor_time, time = measure.Cost(floor).cpu, measure.Cost(command).cpu
        else:
            time, floor_time = measure.Cost(command).cpu, measure.Cost(floor).cpu
        times.append(time)
        ratios.append(time / floor_time)
    return statistics.median(times), statistics.median(ratios)


def check(counts, subjects):
    if "xmllint" not in counts:
        sys.exit("xmllint is missing")
    for name, other, bar in BARS:
        if name in subjects and counts[name] > bar * counts[other]:
            sys.exit(f"{name} takes more than {bar:.2f} times the instructions of {other}")


def main():
    arguments = parse_arguments()
    commands = {"floor": [arguments.floor, BOARD, DEVICE, TARGET],
                "tool": [arguments.tool, BOARD, "name"]}
    if arguments.static:
        commands["static"] = [arguments.static, BOARD, "name"]
    if arguments.dump:
        commands |= {f"dump {format}": [arguments.dump, f"--format={format}", BOARD]
                     for format in ("sh", "json")}
    commands |= {name: command for name, command in OTHERS.items() if shutil.which(name)}
    for name, command in commands.items():
        answer = subprocess.run(command, capture_output=True, text=True, check=True).stdout.strip()
        if answer != ANSWER and not (name.startswith("dump") and ANSWER in answer):
            sys.exit(f"{name} answers '{answer}', not '{ANSWER}'")

    timed = arguments.repeat > 0
    counts = {name: measure.instructions(command) for name, command in commands.items()}
    print(f"{'':10}  instructions  to floor  to tool" + timed * "      time  to floor")
    for name, count in counts.items():
        line = f"{name:10} {count / 1e6:11.3f} M"
        line += f" {count / counts['floor']:9.3f} {count / counts['tool']:8.3f}"
        if timed:
            time, ratio = compare_times(commands["floor"], commands[name], arguments.repeat)
            line += f" {time * 1e6:6.0f} us {ratio:9.2f}"
        print(line, flush=True)

    if arguments.check:
        check(counts, ["static"] if arguments.static else counts)


if __name__ == "__main__":
    main()
