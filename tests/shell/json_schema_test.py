"""The JSON Schema describes all that the JSON format writes, and nothing else: of the examples, the
test documents, the packages of the fuzzers, in the folder that is the argument, and random ones."""

import glob
import json
import os
import random
import re
import shutil
import subprocess
import sys

from support import arguments, check, need, read, source, tool, write

DUMP = os.path.join(os.path.dirname(tool), "vemo-boardspec-dump")
need(DUMP)
try:
    import jsonschema
except ImportError:
    print("skipped: the Python package jsonschema is not installed")
    sys.exit(77)


def dump(board):
    """The text about a board, or nothing for one that does not load."""
    result = subprocess.run([DUMP, "--format=json", "--allow-overlap", board], check=False,
                            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    return json.loads(result.stdout) if result.returncode == 0 else None


def closed(part):
    """A schema that allows no members but those that it describes."""
    if isinstance(part, list):
        return [closed(item) for item in part]
    if not isinstance(part, dict):
        return part
    part = {name: closed(value) for name, value in part.items()}
    return part | {"additionalProperties": False} if part.get("type") == "object" else part


def expect_valid(what, document):
    error = next(validator.iter_errors(document), None)
    check(f"schema/board.schema.json, {what}",
          error and (list(error.absolute_path), error.message), None)


def expect_needed(document, place, name):
    """Expects that a member of an object in the document can neither be missing nor be anything."""
    value = place.pop(name)
    check(f"without {name}", validator.is_valid(document), False)
    for wrong in [{"?": 0}] + [-1, 2**32, 0.5] * (type(value) is int):
        place[name] = wrong
        check(f"{name} = {wrong}", validator.is_valid(document), False)
    place[name] = value


def members(part):
    """The members of all objects in a document."""
    if isinstance(part, dict):
        yield from ((part, name) for name in part)
        part = part.values()
    elif not isinstance(part, list):
        return
    for value in part:
        yield from members(value)


def write_package(text):
    """Writes a package of the fuzzers, whose models get the names that the files before say."""
    name = b"board_spec.xml"
    for document in text.split(b"%%")[:3]:
        if b"/" in name or name in (b"", b".", b".."):
            return
        with open(name, "wb") as file:
            file.write(document)
        name = re.search(rb'(?:device|target)_model="([^"&]*)"|$', document)[1] or b""


schema = json.loads(read(source + "/schema/board.schema.json"))
validator_class = jsonschema.validators.validator_for(schema)
validator_class.check_schema(schema)
validator = validator_class(closed(schema))

shutil.copytree(source + "/tests/data", ".", dirs_exist_ok=True)
os.environ["VEMOSDKROOT"] = source + "/examples/sdk"
for board in glob.glob("board_*.xml") + glob.glob(source + "/examples/*/board_spec.xml"):
    expect_valid(board, dump(board))

whole = dump("board_spec.xml")
for place, name in list(members(whole)):
    expect_needed(whole, place, name)

loaded = 0
for path in glob.glob(arguments[0] + "/*"):
    os.makedirs("seed")
    os.chdir("seed")
    write_package(open(path, "rb").read())
    document = dump("board_spec.xml")
    if document is not None:
        expect_valid(path, document)
        loaded += 1
    os.chdir("..")
    shutil.rmtree("seed")
check("some packages of the fuzzers load", loaded > 4, True)

# Packages with a random fault or two in their attributes.
VALUES = ["", "0", "1e39", "-inf", "nan", "4294967295", "1.5", "1e-45", "\x01"]
texts = {name: read(name) for name in ("board_spec.xml", "dev.xml", "tm.xml")}
chance = random.Random(1)
loaded = 0
for number in range(300):
    for name, text in texts.items():
        for _ in range(chance.randrange(2)):
            attribute = chance.choice(list(re.finditer(r' \w+="([^"]*)"', text)))
            value = chance.choice(VALUES)
            text = (text[:attribute.start(1)] + value + text[attribute.end(1):]
                    if chance.random() < 0.8 else text[:attribute.start()] + text[attribute.end():])
        write(name, text)
    document = dump("board_spec.xml")
    if document is not None:
        expect_valid(f"package {number} of {os.getcwd()}", document)
        loaded += 1
check("some faulty packages load", loaded > 50, True)
