#!/usr/bin/env python3
"""Keeps the house in order: reads the includes of every source and fails on an arrow that goes up a floor.

  - A file includes only what lies in its own folder or in one that cmake/floors.txt lists before it. The list is a
    total order, so folders cannot stand in a circle either.
  - Every source of the library lies in a listed folder.
  - A prefix of class names lives in one folder; yld_ alone has its public headers in one and the rest in the rooms of
    yld/impl.
  - A header holds what it is named after.
  - A source belongs to the header of its name, and defines no member of a class that has another header.
  - Clients see the public headers alone, and each third-party library has one door.
"""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
# A member that is defined outside its class, with its result on the same line; a specialisation belongs to what it is
# made for.
MEMBER = re.compile(r'^(?!template<>)(?:[\w:<>,&*]+ )*?[&*]*(\w+)(?:<[^<>()]*>)?::~?\w+\(', re.MULTILINE)
INCLUDE = re.compile(r'^\s*#\s*include\s+(["<])([^">]+)[">]', re.MULTILINE)

# Who may include which third-party header, by the start of its name.
DOORS = {
    "sqlite3.h": ("platform/store/", "bench/", "fuzz/", "tests/"),
    "exodusII.h": ("tools/exodus_reader.cpp",),
    "CLI/": ("tools/",),
}
# Programs that use the library like anybody else.
CLIENTS = ("tools", "examples")
# Headers that have no class of exactly their name.
WITHOUT_CLASS = {
    # free functions and macros
    "bas_Export.h", "fio_Error.h", "fio_SharingVfs.h", "mmo_Memory.h", "msg_NaturalOrder.h",
    "shr_BtreeCompare.h", "sto_ModelOf.h", "yld.h", "yld_API.h", "yld_EnumMap.h",
    "yld_PrimEnum.h",
    # the enumerations of a prefix
    "axs_Enum.h", "fld_Enum.h", "kvp_Enum.h", "ntsC_Enum.h", "prtC_Enum.h",
    # Families whose members are read side by side: a name would say less than the list does. All steps with settings
    # of an analysis, all kinds of attributes, all libraries that start, all families that declare themselves to class
    # evolution.
    "clvS_Families.h", "mshK_AttributeKinds.h", "stpC_Steps.h", "yld_Libraries.h",
}
# A source whose members are of another class than it is named after. The class is too large for one source and this
# is a part of it, or it is what the one class of the source keeps its data in.
PARTS = {
    "shc_ShapeFunctions.cpp": "shc_Cell",
    "yld_FieldOutputAddData.cpp": "yld_FieldOutput",
    "yld_FieldOutputSubset.cpp": "yld_FieldOutput",
    "yld_OpenClose.cpp": "yld_Yld",
    "yld_SequenceFieldSubset.cpp": "yld_SequenceFieldValue",
    "yld_StepHistory.cpp": "yld_Step",
    "yld_SubField.cpp": "yld_SubFieldBody",
}


def floors(root=ROOT):
    lines = (root / "cmake/floors.txt").read_text().splitlines()
    return [line.strip() for line in lines if line.strip() and not line.startswith("#")]


def sources(root, folder):
    return sorted(path for path in (root / folder).rglob("*") if path.suffix in (".h", ".cpp"))


def library(root, suffix):
    """The headers or the sources of the library: those in listed folders."""
    return [path for folder in floors(root) if (root / folder).is_dir() for path in sorted((root / folder).iterdir())
            if path.suffix == suffix]


def includes(path):
    return [(mark, name) for mark, name in INCLUDE.findall(path.read_text())]


def home_of(name, including, root):
    """The file that an include names, relative to the root; None for one that is not of this tree."""
    for candidate in (root / name, root / "include" / name, including.parent / name):
        if candidate.is_file():
            return candidate.resolve().relative_to(root)
    return None


def arrows_up(root=ROOT):
    order = {folder: height for height, folder in enumerate(floors(root))}
    found = []
    for folder in order:
        if not (root / folder).is_dir():
            found.append(f"cmake/floors.txt lists {folder}, which is not there")
            continue
        for path in sorted((root / folder).iterdir()):
            if path.suffix not in (".h", ".cpp"):
                continue
            for mark, name in includes(path):
                target = home_of(name, path, root)
                if target is None:
                    if mark == '"':
                        found.append(f"{path.relative_to(root)} includes {name}, which is not in the tree")
                    continue
                height = order.get(str(target.parent))
                if height is None:
                    found.append(f"{path.relative_to(root)} includes {target}, which is on no floor")
                elif height > order[folder]:
                    found.append(f"{path.relative_to(root)} includes {target}, which lies above it")
    return found


def unlisted(root=ROOT):
    listed = set(floors(root))
    top = ("containers", "platform", "include", "module", "schema", "yld")
    return [f"{path.relative_to(root)} lies in a folder that cmake/floors.txt does not list"
            for folder in top for path in sources(root, folder)
            if str(path.parent.relative_to(root)) not in listed]


def scattered_prefixes(root=ROOT):
    homes = {}
    for folder in floors(root):
        for path in sources(root, folder):
            if "_" in path.name:
                homes.setdefault(path.name.split("_")[0], set()).add(str(path.parent.relative_to(root)))
    return [f"the prefix {prefix}_ lives in {', '.join(sorted(folders))}"
            for prefix, folders in sorted(homes.items()) if prefix != "yld" and len(folders) > 1]


def holds_its_name(header):
    kinds = rf"\b(class|struct|enum|union|namespace|using)\s+(class\s+)?(YLD_API\s+)?{header.stem}\w*(?!\s*;)\b"
    functions = rf"[\w>&*]\s+{header.stem}\("
    text = header.read_text()
    return bool(re.search(kinds, text) or re.search(functions, text))


def nameless_headers(root=ROOT):
    return [f"{path.relative_to(root)} holds nothing named {path.stem}"
            for path in library(root, ".h") if path.name not in WITHOUT_CLASS and not holds_its_name(path)]


def strangers(root=ROOT):
    headers = {path.stem for path in library(root, ".h")}
    found = []
    for path in library(root, ".cpp"):
        own = {path.stem, PARTS.get(path.name, path.stem)}
        if not own & headers:
            found.append(f"{path.relative_to(root)} has no header of its name")
        for name in sorted(set(MEMBER.findall(path.read_text()))):
            if name in headers and name not in own:
                found.append(f"{path.relative_to(root)} defines members of {name}, which has a header of its own")
    return found


def stale_exceptions(root=ROOT):
    present = {path.name: path for suffix in (".h", ".cpp") for path in library(root, suffix)}
    found = [f"the exception for {name} is for a file that is not there"
             for name in sorted(WITHOUT_CLASS | set(PARTS)) if name not in present]
    found += [f"the exception for {name} is not needed: it holds what it is named after"
              for name in sorted(WITHOUT_CLASS) if name in present and holds_its_name(present[name])]
    return found


def clients_that_look_inside(root=ROOT):
    found = []
    for folder in CLIENTS:
        for path in sources(root, folder):
            for _, name in includes(path):
                if name.startswith(("platform/", "containers/", "yld/", "schema/", "module/")):
                    found.append(f"{path.relative_to(root)} includes {name}, which is not a public header")
    return found


def side_doors(root=ROOT):
    found = []
    for path in sources(root, "."):
        place = str(path.relative_to(root))
        if place.startswith("build"):
            continue
        for _, name in includes(path):
            for library, rooms in DOORS.items():
                if name.startswith(library) and not place.startswith(rooms):
                    found.append(f"{place} includes {name}")
    return found


CHECKS = (arrows_up, unlisted, scattered_prefixes, nameless_headers, strangers, stale_exceptions,
          clients_that_look_inside, side_doors)


def complaints(root=ROOT):
    return [complaint for check in CHECKS for complaint in check(root)]


def main():
    found = complaints()
    for complaint in found:
        print(complaint)
    print(f"{len(floors())} folders looked through, {len(found)} complaints")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
