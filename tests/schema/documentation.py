#!/usr/bin/env python3
"""Every element and attribute in the schemas has documentation, which editors show while an author
types: a text that begins like a sentence and ends like one."""

import pathlib
import re
import sys
from xml.etree import ElementTree

SCHEMA = pathlib.Path(__file__).resolve().parents[2] / "schema"
RELAX_NG = "{http://relaxng.org/ns/structure/1.0}"
DOCUMENTATION = "{http://relaxng.org/ns/compatibility/annotations/1.0}documentation"

names, wrong = set(), []
for schema in "board_spec", "device_model", "target_model":
    for node in ElementTree.parse(SCHEMA / f"{schema}.rng").iter():
        kind = node.tag.replace(RELAX_NG, "")
        if kind in ("element", "attribute"):
            names.add((schema, kind, node.get("name")))
            text = node.findtext(DOCUMENTATION, "")
            if not re.fullmatch(r"(?s)[A-Z0-9].+\.", text):
                wrong.append(f"{schema}: documentation of {kind} {node.get('name')}: {text!r}")
if len(names) != 113:
    wrong.append(f"{len(names)} names, not 113")
sys.exit("\n".join(wrong) or 0)
