#!/usr/bin/env python3
"""list_flows.py BOARD: prints the synthesis command of each compile flow."""

import json
import subprocess
import sys


def load_board(path):
    """Everything about a board, read by one process. If it fails, it says why."""
    dump = subprocess.run(["vemo-boardspec-dump", "--format=json", path],
                          stdout=subprocess.PIPE, check=False)
    if dump.returncode != 0:
        sys.exit(1)
    return json.loads(dump.stdout)


if len(sys.argv) != 2:
    sys.exit("usage: list_flows.py BOARD")
for flow in load_board(sys.argv[1])["flows"]:
    print(f"{flow['name']}: {flow['synthesize_cmd']}")
