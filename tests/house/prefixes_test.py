#!/usr/bin/env python3
"""Keeps docs/prefixes.md true: its table names each prefix of the library with the folder in which it lives."""

import re
import sys
from pathlib import Path

from floors_test import ROOT, floors, sources

PAGE = "docs/prefixes.md"
ROW = re.compile(r"^\| `(\w+)_` \| (.+?) \| (.+?) \|$")
# Types that are defined, not declared ahead of their use.
TYPE = re.compile(r"^(?:class|struct|enum class|enum|union)\s+(?:YLD_API\s+)?(([a-z]+[A-Z]?)_\w+)\s*(?:final\s*)?"
                  r"(?::[^;{]*)?\{", re.MULTILINE)
# Types that live with what they are made of, apart from the rest of their prefix.
STRAYS = {"mshK_SurfStruct": "platform/sto"}


def told(root=ROOT):
    """From prefix to the folders that the page names; and what is wrong with the page by itself."""
    homes, complaints = {}, []
    for line in (root / PAGE).read_text().splitlines():
        row = ROW.match(line)
        if not row:
            continue
        prefix, places, purpose = row.groups()
        if prefix in homes:
            complaints.append(f"{PAGE} has two rows for {prefix}_")
        if not purpose.strip():
            complaints.append(f"{PAGE} does not say what {prefix}_ is for")
        homes[prefix] = re.findall(r"`([^`]+)`", places)
    return homes, complaints


def used(root=ROOT):
    """From prefix to the folders whose files or types begin with it."""
    homes = {}
    for folder in floors(root):
        for path in sources(root, folder):
            if "_" in path.name:
                homes.setdefault(path.name.split("_")[0], set()).add(folder)
            for name, prefix in TYPE.findall(path.read_text()):
                if STRAYS.get(name) == folder:
                    continue
                homes.setdefault(prefix, set()).add(folder)
    return homes


def differences(root=ROOT):
    page, found = told(root)
    inUse = used(root)
    for prefix, folders in sorted(inUse.items()):
        if prefix not in page:
            found.append(f"{PAGE} lacks the prefix {prefix}_ of {', '.join(sorted(folders))}")
            continue
        for folder in sorted(folders):
            if not any(folder == home or folder.startswith(home + "/") for home in page[prefix]):
                found.append(f"{PAGE} does not say that {prefix}_ lives in {folder}")
        for home in page[prefix]:
            if not any(folder == home or folder.startswith(home + "/") for folder in folders):
                found.append(f"{PAGE} says that {prefix}_ lives in {home}, where nothing begins with it")
    for prefix in sorted(set(page) - set(inUse)):
        found.append(f"{PAGE} names the prefix {prefix}_, which nothing begins with")
    return found


def main():
    complaints = differences()
    for complaint in complaints:
        print(complaint)
    print(f"{len(used())} prefixes looked up, {len(complaints)} complaints")
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
