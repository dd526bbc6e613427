"""Pages lead nowhere in vain, neither in the source tree nor in what a build, whose folder is the
argument, installs: links of Markdown pages and their anchors, the files and folders that pages and
manuals name, and the manual pages that they refer to."""

import pathlib
import re
import shlex

from support import arguments, check, home, run, source

SOURCE = pathlib.Path(source)
FOLDERS = "|".join(path.name for path in SOURCE.iterdir() if path.is_dir() and path.name != "build")
LINK = re.compile(r"\]\((?![a-z]+:)([^)#]*)#?([^)]*)\)")
NAMED = re.compile(rf"(?<![\w/.$~-])(?:{FOLDERS})/[\w./-]*\w/?")
MANUAL = re.compile(r"(vemo-[\w-]+)(?: |\()([15])\b")


def anchors(page):
    """The anchors of the headings of a Markdown page."""
    headings = re.findall(r"^#+ (.*)$", page.read_text(encoding="utf-8"), re.M)
    return [re.sub(r"[^\w -]", "", heading).lower().replace(" ", "-") for heading in headings]


def dead_references(pages, manuals, root):
    """What the pages and manuals refer to in vain; the paths that they name begin at the root."""
    dead, seen = [], 0
    manual_names = {manual.name for manual in manuals}
    for page in [*pages, *manuals]:
        text = page.read_text(encoding="utf-8").replace(r"\-", "-")
        for path, anchor in LINK.findall(text) if page in pages else []:
            target = page.parent / path if path else page
            seen += 1
            if not target.exists() or (anchor and anchor not in anchors(target)):
                dead.append(f"{page}: link to {path}#{anchor}")
        for path in NAMED.findall(LINK.sub("", text)):
            seen += 1
            if not ((root / path).exists() or (page.parent / path).exists()):
                dead.append(f"{page}: {path}")
        for name, section in MANUAL.findall(text):
            seen += 1
            if f"{name}.{section}" not in manual_names:
                dead.append(f"{page}: {name}({section})")
    return dead, seen


build, = arguments
pages = [page for folder in [".", "docs", "editors", "examples", "fuzz"]
         for page in (SOURCE / folder).glob("*.md")]
dead, seen = dead_references(pages, list(SOURCE.glob("man/*.[15]")), SOURCE)
check(f"dead references among {seen} in the source tree", (dead, seen > 100), ([], True))

status, output = run(f"cmake --install {shlex.quote(build)} --prefix {shlex.quote(home)}/installed")
check(output, status, 0)
installed = pathlib.Path("installed")
readme, = installed.glob("share/doc/*/README.md")
dead, seen = dead_references(list(installed.rglob("*.md")), list(installed.rglob("man/*/*.[15]")),
                             readme.parent)
check(f"dead references among {seen} in the installed files", (dead, seen > 50), ([], True))
