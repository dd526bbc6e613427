"""The pictures and pages of boards, those that are hard to draw included, as other programs see
them: well-formed with the argument xmllint, drawn with rsvg-convert. Without an argument: the
README shows the picture that the program draws."""

import os
import shlex
import sys

from support import arguments, check, home, need, read, run, source, tool, write

sys.path.insert(0, source + "/scripts/tools")

import pictures  # noqa: E402

program = os.path.join(os.path.dirname(tool), "vemo-boardspec-dump")
need(program, *arguments)
DUMP = "VEMOSDKROOT={} {} --allow-overlap".format(*map(shlex.quote, (pictures.SDK, program)))
packages = pictures.write_packages(home)


def draw(name):
    """Draws the picture in a file, and tells whether it is empty."""
    check(f"rsvg-convert {name}", run(f"rsvg-convert {name} -o drawn.png"), (0, ""))
    with open("drawn.png", "rb") as file:
        return pictures.is_empty(file.read())


if not arguments:
    board = shlex.quote(packages["teasel"])
    check("docs/teasel.svg", run(f"{DUMP} --format=svg {board}"),
          (0, read(source + "/docs/teasel.svg")))
    check("README.md shows it", "](docs/teasel.svg)" in read(source + "/README.md"), True)
else:
    write("blank.svg", '<svg xmlns="http://www.w3.org/2000/svg" width="400" height="300">'
                       '<rect width="400" height="300" fill="#fff"/></svg>')
    check("a blank picture is empty", arguments == ["xmllint"] or draw("blank.svg"), True)
    for board, path in packages.items():
        for form in ("svg", "html"):
            command = f"{DUMP} --format={form} {shlex.quote(path)} >{board}.{form}"
            check(command, run(command), (0, ""))
        if arguments == ["xmllint"]:
            command = f"xmllint --noout --nonet {board}.svg {board}.html"
            check(command, run(command), (0, ""))
        else:
            check(f"the picture of {board} is empty", draw(f"{board}.svg"), False)
