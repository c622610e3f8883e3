"""Databases of each layout that there was, kept in tests/data/yld: the library reads them all, for good.

layout-N.yld.gz is what sample_files (the maker, files/whole.yld) wrote when the layout was today's, layout-N.json what
it has to say, worked out by expect_layout_N.py. Where the layout changes, a file of the next number is added."""

import glob
import gzip
import json
import os
import re
import shutil
import sqlite3
import tempfile

import programs
from programs import run

KEPT = os.path.join(programs.ROOT, "tests", "data", "yld")


def layout_of(path):
    """Tables to their columns, with types and keys."""
    database = sqlite3.connect("file:%s?mode=ro" % path, uri=True)
    tables = [name for name, in database.execute("SELECT name FROM sqlite_master WHERE type = 'table'")]
    layout = {table: database.execute('PRAGMA table_info("%s")' % table).fetchall() for table in tables}
    database.close()
    return layout


class LayoutTest(programs.ProgramTest):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name

    def unpacked(self, number):
        path = os.path.join(self.folder, "layout-%d.yld" % number)
        with gzip.open(os.path.join(KEPT, "layout-%d.yld.gz" % number)) as packed, open(path, "wb") as stream:
            shutil.copyfileobj(packed, stream)
        return path

    def assert_near(self, expected, found, what):
        """The same shape, with numbers that are equal to the precision of a float."""
        if isinstance(expected, (int, float)) and isinstance(found, (int, float)):
            self.assert_single(expected, found, what, 5.0)
        elif isinstance(expected, dict) and isinstance(found, dict):
            self.assertEqual(sorted(expected), sorted(found), what)
            for key in expected:
                self.assert_near(expected[key], found[key], "%s %s" % (what, key))
        elif isinstance(expected, list) and isinstance(found, list):
            self.assertEqual(len(expected), len(found), what)
            for i, pair in enumerate(zip(expected, found)):
                self.assert_near(pair[0], pair[1], "%s %d" % (what, i))
        else:
            self.assertEqual(expected, found, what)

    def printed(self, *command):
        done = run(*command)
        self.assertEqual(0, done.returncode, done.stderr)
        return done.stdout

    def check(self, number):
        path = self.unpacked(number)
        with open(path, "rb") as stream:
            before = stream.read()
        with open(os.path.join(KEPT, "layout-%d.json" % number)) as stream:
            expected = json.load(stream)
        database = sqlite3.connect("file:%s?mode=ro" % path, uri=True)
        for query, rows in expected["rows"].items():
            self.assertEqual(rows, [list(row) for row in database.execute(query)], query)
        database.close()

        self.assert_near(expected["mesh"], json.loads(self.printed("mesh_dump", path)), "mesh")
        found = {}
        for step in self.info(path)["steps"]:
            for frame in step["frames"]:
                for field in frame["fields"]:
                    place = "%s %d %s" % (step["name"], frame["index"], field["name"])
                    found[place] = self.values(path, field["name"], "--step", step["name"], "--frame", frame["index"])
        self.assert_near(expected["fields"], found, "fields")
        for place, pairs in expected["curves"].items():
            step, region, output = place.split("/")
            curve, = self.json("history", path, "--step", step, "--region", region, "--output", output,
                               "--json")["curves"]
            self.assertEqual(pairs, curve["data"], place)
        self.assertEqual(expected["lines"], self.printed("layout_dump", path).splitlines())
        with open(path, "rb") as stream:
            self.assertEqual(before, stream.read(), "reading leaves it as it was")

        # And it goes on being written to.
        self.assertEqual(expected["lines"], self.printed("layout_dump", path, "write").splitlines())
        self.assertIn("walker-1", [instance["name"] for instance in self.info(path)["instances"]])

    def test_what_is_written_now_has_the_latest_layout_that_is_kept(self):
        self.printed("sample_files", self.folder)
        now = layout_of(os.path.join(self.folder, "files", "whole.yld"))
        self.assertEqual(layout_of(self.unpacked(max(NUMBERS))), now,
                         "the layout has changed: keep a file of it, too (see %s)" % os.path.basename(__file__))
        columns = {table: [column[1] for column in info] for table, info in now.items()}
        # As docs/file.md tells.
        self.assertEqual(["name", "value"], columns["header"])
        self.assertEqual(["Class Name", "Class Id", "Class Version", "Class Table"], columns["catalogue"])
        self.assertEqual(["container", "position", "key", "object", "since"], columns["entry"])
        self.assertEqual(["save", "at", "class", "id", "which"], columns["superseded"])
        self.assertEqual(["id", "bytes"], columns["extent"])
        for table in columns:
            if "_" in table:
                self.assertEqual(["oid", "since", "base"], columns[table][:3], table)


NUMBERS = sorted(int(re.search(r"layout-(\d+)\.yld\.gz$", name).group(1))
                 for name in glob.glob(os.path.join(KEPT, "layout-*.yld.gz")))
for each in NUMBERS:
    setattr(LayoutTest, "test_layout_%d" % each, lambda self, number=each: self.check(number))

if __name__ == "__main__":
    programs.main()
