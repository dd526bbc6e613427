#!/usr/bin/env python3
"""Compares the tool with the floor, the bare load of the same files, on large packages.

The runs are made in turns, so that what else happens on the machine hits all alike. A ratio is
given twice: of the best runs, and the median of the pairs of neighbouring runs.
"""

import argparse
import concurrent.futures
import statistics
import tempfile

import measure
import packages


def ratios(runs, others):
    pairs = [run / other for run, other in zip(runs, others)]
    return f"{min(runs) / min(others):5.2f} {statistics.median(pairs):6.2f}"


def compare_costs(floor, tool, tool_twice, repetitions):
    costs = [[measure.Cost(command) for command in (floor, tool, tool_twice)]
             for _ in range(repetitions)]
    cpu = [[cost.cpu for cost in runs] for runs in zip(*costs)]
    peak = [[cost.peak for cost in runs] for runs in zip(*costs)]
    return (f"{min(cpu[0]) * 1000:8.0f} ms {ratios(cpu[1], cpu[0])}     {ratios(cpu[2], cpu[1])} "
            f"{min(peak[0]) / 1024:8.0f} MB {min(peak[1]) / min(peak[0]):5.2f}")


def compare_instructions(floor, tool, tool_twice):
    counts = [measure.instructions(command) for command in (floor, tool, tool_twice)]
    return f"{counts[0] / 1e6:9.1f} M {counts[1] / counts[0]:7.3f} {counts[2] / counts[1]:9.3f}"


def write_package(*arguments):
    """Writes a package in a process of its own: what this one takes, the measured seem to take."""
    with concurrent.futures.ProcessPoolExecutor(max_workers=1) as writer:
        return writer.submit(packages.write, *arguments).result()


def parse_arguments():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("tool")
    parser.add_argument("floor")
    parser.add_argument("families", nargs="*", metavar="family",
                        help=f"what to measure (default: all of {', '.join(packages.FAMILIES)})")
    parser.add_argument("--count", type=int, default=100000, help="how many (default: %(default)s)")
    parser.add_argument("--repeat", type=int, default=5, help="runs of each (default: %(default)s)")
    parser.add_argument("--instructions", action="store_true",
                        help="count instructions with callgrind, instead of time and memory")
    arguments = parser.parse_args()
    for family in arguments.families:
        if family not in packages.FAMILIES:
            parser.error(f"no such family: {family}")
    return arguments


def main():
    arguments = parse_arguments()
    if arguments.instructions:
        print(f"{'':11}       floor    tool   twice/once")
    else:
        print(f"{'':11}      floor    tool: best, median    twice/once      floor memory, tool")
    for family in arguments.families or packages.FAMILIES:
        with tempfile.TemporaryDirectory() as folder:
            files, question = write_package(folder, family, arguments.count)
            twice, question_twice = write_package(folder, family, 2 * arguments.count)
            commands = ([arguments.floor, *files], [arguments.tool, files[0], question],
                        [arguments.tool, twice[0], question_twice])
            if arguments.instructions:
                line = compare_instructions(*commands)
            else:
                line = compare_costs(*commands, arguments.repeat)
        print(f"{family:11} {line}", flush=True)


if __name__ == "__main__":
    main()
