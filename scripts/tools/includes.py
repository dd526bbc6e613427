"""includes.py PROJECT: checks the directions of includes between the components of src/."""

import pathlib
import re
import sys

# What each component may include, besides itself. A component is a folder of src/, or the files of
# one name.
ALLOWED = {
    # Models: no XML.
    "Base": "",
    "DeviceModel": "Base",
    "TargetModel": "Base",
    "BoardSpec": "Base DeviceModel",
    # Visitors: models, never loaders.
    "BaseVisitor": "Base",
    "DeviceResourcesXml": "Base BaseVisitor DeviceModel",
    "BoardSpecXml": "Base BaseVisitor BoardSpec DeviceResourcesXml",
    "DeviceModelXml": "Base BaseVisitor DeviceModel DeviceResourcesXml",
    "TargetModelXml": "Base BaseVisitor TargetModel",
    # Loaders: visitors and models.
    "BaseXmlLoader": "Base BaseVisitor",
    "BoardSpecXml/BoardSpecXmlLoader": "Base BaseXmlLoader BoardSpec BoardSpecXml",
    "DeviceModelXmlLoader": "Base BaseXmlLoader DeviceModel DeviceModelXml",
    "TargetModelXmlLoader": "Base BaseXmlLoader TargetModel TargetModelXml",
    # Packages, and the programs: loaders, models and what presents them, never visitors. The linter
    # alone walks documents itself.
    "BoardPackage": "Base BaseXmlLoader BoardSpec BoardSpecXml/BoardSpecXmlLoader DeviceModel"
                    " DeviceModelXmlLoader TargetModel TargetModelXmlLoader",
    "BoardDump": "Base BoardPackage BoardSpec DeviceModel TargetModel vemo-boardspec-version",
    "BoardLint": "Base BaseVisitor BaseXmlLoader BoardPackage BoardSpec BoardSpecXml"
                 " BoardSpecXml/BoardSpecXmlLoader DeviceModel DeviceModelXml DeviceModelXmlLoader"
                 " TargetModel TargetModelXml TargetModelXmlLoader vemo-boardspec-version",
    "boardspec": "Base BaseXmlLoader BoardPackage BoardSpec BoardSpecXml/BoardSpecXmlLoader"
                 " DeviceModel DeviceModelXmlLoader TargetModel TargetModelXmlLoader",
    "boardspec_dump": "Base BoardDump BoardPackage BoardSpec vemo-boardspec-version",
    "boardspec_lint": "Base BoardLint vemo-boardspec-version",
}


def component(path):
    """The component of a path below src/."""
    stem = path.partition(".")[0]
    return stem if stem in ALLOWED else stem.partition("/")[0]


src = pathlib.Path(sys.argv[1]) / "src"
wrong = 0
for path in sorted(path for path in src.rglob("*") if path.suffix in (".h", ".cpp")):
    name = path.relative_to(src).as_posix()
    user = component(name)
    if user not in ALLOWED:
        wrong += 1
        print(f"src/{name}: {user} has no place among the components of {sys.argv[0]}")
        continue
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        included = re.match(r'\s*#\s*include\s*"(.*)"', line)
        if included and component(included[1]) not in [user, *ALLOWED[user].split()]:
            wrong += 1
            print(f"src/{name}:{number}: {user} must not include {included[1]}")
sys.exit(wrong > 0)
