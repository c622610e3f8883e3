#!/usr/bin/env python3
"""Makes seeds for the file's fuzzer from true databases: make_seeds.py SEEDS DATABASE-OR-FOLDER...

A seed holds the tables and rows of its database in small pages, since a fuzzer gets further with few bytes. Databases
that stay larger than a megabyte are left out.
"""
import os
import sqlite3
import sys

LARGEST = 1 << 20


def main():
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    folder = sys.argv[1]
    os.makedirs(folder, exist_ok=True)
    paths = []
    for path in sys.argv[2:]:
        if os.path.isdir(path):
            paths += sorted(os.path.join(path, name) for name in os.listdir(path) if name.endswith(".yld"))
        else:
            paths.append(path)
    made = 0
    for number, path in enumerate(paths):
        seed = os.path.join(folder, f"{number:03}-{os.path.basename(path)}")
        if os.path.exists(seed):
            os.remove(seed)
        source = sqlite3.connect(f"file:{path}?mode=ro", uri=True)
        (sign,) = source.execute("PRAGMA application_id").fetchone()
        source.execute("PRAGMA page_size = 512")
        source.execute("VACUUM INTO ?", (seed,))
        source.close()
        copy = sqlite3.connect(seed)
        (kept,) = copy.execute("PRAGMA application_id").fetchone()
        (page,) = copy.execute("PRAGMA page_size").fetchone()
        copy.close()
        if (kept, page) != (sign, 512):
            sys.exit(f"{seed}: lost its sign or its page size")
        if os.path.getsize(seed) > LARGEST:
            os.remove(seed)
            print(f"{path}: too large for a seed")
        else:
            made += 1
    print(f"{made} seeds")
    if made == 0:
        sys.exit(1)


if __name__ == "__main__":
    main()
