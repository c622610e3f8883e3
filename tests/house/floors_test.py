#!/usr/bin/env python3
"""Keeps the house in order: reads the includes of every source and fails on an arrow that goes up a floor.

  - A file includes only what lies in its own folder or in one that cmake/floors.txt lists before it. The list is a
    total order, so folders cannot stand in a circle either.
  - Every source of the library lies in a listed folder.
  - A prefix of class names lives in one folder; yld_ alone has its public headers in one and the rest in the rooms of
    yld/impl.
  - A header holds what it is named after.
  - Clients see the public headers alone, and each third-party library has one door.
"""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
INCLUDE = re.compile(r'^\s*#\s*include\s+(["<])([^">]+)[">]', re.MULTILINE)

# Who may include which third-party header, by the start of its name.
DOORS = {
    "sqlite3.h": ("platform/store/", "bench/", "fuzz/", "tests/"),
    "exodusII.h": ("tools/exodus_reader.cpp",),
    "CLI/": ("tools/",),
}
# Programs that use the library like anybody else.
CLIENTS = ("tools", "examples")
# Headers of free functions, of macros and of families, which have no class of exactly their name.
WITHOUT_CLASS = {
    "bas_Export.h", "fio_Error.h", "fio_SharingVfs.h", "msg_Format.h", "msg_NaturalOrder.h", "mmo_Memory.h",
    "shr_BtreeCompare.h", "sto_ModelOf.h", "sys_complex.h", "yld.h", "yld_API.h", "yld_EnumMap.h", "yld_Libraries.h", "yld_Lists.h",
    "yld_PrimEnum.h", "yld_Raise.h",
    # the enumerations of a prefix
    "axs_Enum.h", "fld_Enum.h", "kvp_Enum.h", "ntsC_Enum.h", "prtC_Enum.h",
    # to be named better
    "clvS_Families.h", "fld_Growing.h", "lok_Lock.h", "pcl_Visitor.h", "prtC_Orientation.h", "sto_Attributes.h",
    "stpC_Arguments.h", "stpC_Steps.h", "yld_TensorView.h",
}


def floors(root=ROOT):
    lines = (root / "cmake/floors.txt").read_text().splitlines()
    return [line.strip() for line in lines if line.strip() and not line.startswith("#")]


def sources(root, folder):
    return sorted(path for path in (root / folder).rglob("*") if path.suffix in (".h", ".cpp"))


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


def nameless_headers(root=ROOT):
    found = []
    for folder in floors(root):
        for path in sources(root, folder):
            if path.suffix != ".h" or path.name in WITHOUT_CLASS:
                continue
            kinds = rf"\b(class|struct|enum|union|namespace|using)\s+(class\s+)?(YLD_API\s+)?{path.stem}\w*(?!\s*;)\b"
            functions = rf"[\w>&*]\s+{path.stem}\("
            text = path.read_text()
            if not re.search(kinds, text) and not re.search(functions, text):
                found.append(f"{path.relative_to(root)} holds nothing named {path.stem}")
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


def main():
    complaints = (arrows_up() + unlisted() + scattered_prefixes() + nameless_headers() + clients_that_look_inside()
                  + side_doors())
    for complaint in complaints:
        print(complaint)
    print(f"{len(floors())} folders looked through, {len(complaints)} complaints")
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
