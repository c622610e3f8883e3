#!/usr/bin/env python3
"""Keeps the pages in step with the tree: what they link to, the files and the names that they mention are there."""

import re
import sys

from floors_test import ROOT, floors
from prefixes_test import used

PAGES = ("README.md", "docs/*.md")
TOP = ("bench", "cmake", "containers", "docs", "examples", "fuzz", "include", "platform", "schema", "scripts", "tests",
       "tools", "yld")
LINK = re.compile(r"\]\(([^)#]+)(?:#[^)]*)?\)")
MENTION = re.compile(r"`([^`\n]+)`")
NAME = re.compile(r"\b([a-z]+[A-Z]?)_(\w+)")
# What pages tell of shortly before it comes; goes from here when it is there.
AWAITED = ()
# A file that is meant by its name alone.
FILE_NAME = re.compile(r"[a-z]+[A-Z]?_\w+\.(?:h|cpp|py)")


def pages(root=ROOT):
    return sorted(page for pattern in PAGES for page in root.glob(pattern))


def programs(root=ROOT):
    """The programs that the build makes of one source each, which pages name by their place in bin/."""
    return {path.stem for top in ("bench", "fuzz", "tests/store/programs", "examples/cantilever")
            for path in (root / top).glob("*.cpp")}


def isThere(place, root, made):
    if any(mark in place for mark in "<>*…"):
        return True
    path = root / place
    if path.exists() or place.split("/")[-1] in made:
        return True
    # A class family or a test may be named without its ending.
    return bool(list(path.parent.glob(path.name + ".*"))) if path.parent.is_dir() else False


def dangling(root=ROOT):
    made = programs(root)
    words = set()
    names = set()
    for top in TOP:
        for path in (root / top).rglob("*"):
            if path.suffix in (".h", ".cpp", ".py", ".txt", ".cmake"):
                words.update(re.findall(r"\w+", path.read_text()))
                names.add(path.name)
                names.add(path.stem)
    prefixes = set(used(root))
    found = []
    for page in pages(root):
        place, text = page.relative_to(root), page.read_text()
        for link in LINK.findall(text):
            if "://" not in link and not (page.parent / link).exists():
                found.append(f"{place} links to {link}, which is not there")
        for mention in MENTION.findall(text):
            first = mention.split(" ")[0]
            if re.match(rf"({'|'.join(TOP)})/", first) and first not in AWAITED and not isThere(
                    first, root, made):
                found.append(f"{place} mentions {first}, which is not there")
            for prefix, rest in NAME.findall(mention):
                name = f"{prefix}_{rest}"
                if prefix in prefixes and name not in words and name not in names and name not in AWAITED:
                    found.append(f"{place} mentions {name}, which no source has")
            if FILE_NAME.fullmatch(mention) and mention not in names:
                found.append(f"{place} mentions the file {mention}, which is not there")
    for name in AWAITED:
        if name in names or (root / name).exists():
            found.append(f"tests/house/pages_test.py still awaits {name}")
    return found


def unlisted(root=ROOT):
    index = (root / "docs/README.md").read_text()
    return [f"docs/README.md does not list {page.name}" for page in sorted((root / "docs").glob("*.md"))
            if page.name != "README.md" and f"]({page.name})" not in index]


def floorsWithoutRow(root=ROOT):
    page = (root / "docs/architecture.md").read_text()
    rows = set(re.findall(r"`([\w/]+)`", "".join(line for line in page.splitlines() if line.startswith("| `"))))
    return [f"docs/architecture.md has no row for {folder}" for folder in floors(root)
            if folder not in rows and not (folder.startswith("yld/impl/") and folder.split("/")[-1] in rows)]


def main():
    complaints = dangling() + unlisted() + floorsWithoutRow()
    for complaint in complaints:
        print(complaint)
    print(f"{len(pages())} pages looked through, {len(complaints)} complaints")
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
