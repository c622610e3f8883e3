"""What the tests of the programs share: running them, and comparing floats."""

import gzip
import json
import os
import struct
import subprocess
import sys
import unittest

BIN = os.environ.get("YLD_BIN", "")
ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
EXODUS = os.path.join(ROOT, "tests", "data", "exodus")


def program(name):
    return os.path.join(BIN, name)


def run(*arguments, **options):
    """Runs a program of the build to its end; its output as text."""
    command = [program(arguments[0])] + [str(a) for a in arguments[1:]]
    return subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                          universal_newlines=True, timeout=600, **options)


def exodus_file(name, folder):
    """A file of another program, unpacked into a folder; its path."""
    path = os.path.join(folder, os.path.basename(name))
    with gzip.open(os.path.join(EXODUS, name + ".gz")) as packed, open(path, "wb") as stream:
        stream.write(packed.read())
    return path


def single(number):
    """The float nearest to a number."""
    return struct.unpack("<f", struct.pack("<f", number))[0]


class ProgramTest(unittest.TestCase):
    maxDiff = None

    def yld(self, *arguments):
        """What `yld` prints; the test fails if it fails."""
        result = run("yld", *arguments)
        self.assertEqual(0, result.returncode, result.stderr)
        return result.stdout

    def json(self, *arguments):
        return json.loads(self.yld(*arguments))

    def info(self, path):
        return self.json("info", path, "--json")

    def values(self, path, field, *arguments):
        return self.json("values", path, "--field", field, "--json", *arguments)["values"]

    def assert_fails(self, result, code, *parts):
        """It failed with one line on standard error that starts with the program's name and has all parts."""
        self.assertEqual(code, result.returncode, result.stderr)
        self.assertEqual("", result.stdout)
        lines = result.stderr.splitlines()
        self.assertEqual(1, len(lines), result.stderr)
        self.assertTrue(lines[0].startswith("yld: "), lines[0])
        for part in parts:
            self.assertIn(str(part), lines[0])

    def assert_single(self, expected, found, what, scale=0.0):
        """Equal to the precision of a float, relative to the number or to a scale."""
        tolerance = 1.2e-7 * max(abs(expected), scale) + 1e-45
        self.assertLessEqual(abs(expected - found), tolerance, "%s: %r expected, %r found" % (what, expected, found))


def main():
    if not BIN:
        sys.exit("YLD_BIN is not set: the folder of the programs to test")
    unittest.main(verbosity=1)
