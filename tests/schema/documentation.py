#!/usr/bin/env python3
"""Every element and attribute in the schemas has documentation, which editors show while an author
types: a text that begins like a sentence and ends like one. It is also on the manual page of the
file format, which has entries for nothing else."""

import pathlib
import re
import sys
from xml.etree import ElementTree

ROOT = pathlib.Path(__file__).resolve().parents[2]
RELAX_NG = "{http://relaxng.org/ns/structure/1.0}"
DOCUMENTATION = "{http://relaxng.org/ns/compatibility/annotations/1.0}documentation"

wrong = []
for schema in "board_spec", "device_model", "target_model":
    page = f"man/vemo-{schema.replace('_', '-')}.5"
    lines = (ROOT / page).read_text(encoding="utf-8").replace("\\\n", "").splitlines()
    names = set()
    for node in ElementTree.parse(ROOT / f"schema/{schema}.rng").iter():
        kind = node.tag.replace(RELAX_NG, "")
        if kind in ("element", "attribute"):
            names.add((kind, node.get("name")))
            text = node.findtext(DOCUMENTATION, "")
            if not re.fullmatch(r"(?s)[A-Z0-9].+\.", text):
                wrong.append(f"{schema}: documentation of {kind} {node.get('name')}: {text!r}")
    for kind, name in sorted(names):
        macro = r"\.(It )?Va" if kind == "attribute" else r"\.(It Ic|Ic|Ss)"
        if not any(re.match(rf"{macro} (.* )?{name}( |$)", line) for line in lines):
            wrong.append(f"{page} lacks the {kind} {name}")
    for line in lines:
        if entry := re.match(r"\.It (Va|Ic) (.+?)(?: No .*)?$", line):
            kind = "attribute" if entry[1] == "Va" else "element"
            wrong += [f"{page}: there is no {kind} {name}"
                      for name in re.findall(r"\w+", re.sub("Ic", "", entry[2]))
                      if (kind, name) not in names]
sys.exit("\n".join(wrong) or 0)
