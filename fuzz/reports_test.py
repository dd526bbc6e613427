"""reports_test.py REPLAY SEEDS SOURCES: checks that the seeds reach every report of the readers.

REPLAY prints what is reported about the files in SEEDS. The texts that it must print are the string
literals of the readers that read like a report or a part of one.
"""

import pathlib
import re
import subprocess
import sys

# What no file can reach, and why.
UNREACHABLE = {
    "Warning in '": "no reader warns",
    "Unexpected compile configuration (<compile>) found in 0.9 board specification.":
        "a flow of a 0.9 board is reported when it ends",
    "Global memmory attribute 'default' must equal to  0 or 1.":
        "the attribute is not allowed in the first place",
}


def literals(path):
    code = re.sub("//.*", "", path.read_text())
    code = re.sub(r'"\s*\n\s*"', "", code)  # a literal in several pieces
    return re.findall(r'"((?:[^"\\\n]|\\.)*)"', code)


replay, seeds, sources = sys.argv[1:]
reports = subprocess.run([replay, seeds], check=True, stdout=subprocess.PIPE, text=True,
                         stderr=subprocess.DEVNULL).stdout
readers = [path for path in pathlib.Path(sources).rglob("*.cpp")
           if re.search("Visitor|ModelXml[.]", path.name)]
texts = {text for path in readers for text in literals(path)
         if re.match(r"[A-Z].* |> \w.* |\w.* .*[.]$", text)}
wrong = [f"no seed reaches this report: {text}" for text in sorted(texts)
         if text not in reports and text not in UNREACHABLE]
wrong += [f"is reached, or no report: {text}" for text in UNREACHABLE
          if text in reports or text not in texts]
print(*wrong, f"{len(texts)} texts", sep="\n")
sys.exit(bool(wrong) or len(texts) < 50)
