"""What the pages show is so: their programs compile and run, their queries and commands give what is said there."""

import itertools
import os
import re
import shlex
import sqlite3
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests/tools"))
import exodus_writer

BIN, LIB, CXX = (os.environ[k] for k in ("YLD_BIN", "YLD_LIB", "YLD_CXX"))
FLAGS = os.environ.get("YLD_FLAGS", "").split()
WARNINGS = ["-std=c++20", "-Wall", "-Wextra", "-Wpedantic", "-Werror"]

# What stands for what in the synopses, for the database of the README's client.
STAND_INS = {"--field": "U", "--step": "load", "--frame": "-1", "--instance": "block-1", "--position": "NODAL",
             "--region": "tip", "--output": "U3", "--plot": "curves.svg"}


def read(page):
    return (ROOT / page).read_text()


def indented(page):
    """The lines of the page's indented blocks."""
    return [line[4:] for line in read(page).splitlines() if line.startswith("    ") and line.strip()]


def readme_client():
    program, = re.findall(r"^```cpp\n(.*?)^```$", read("README.md"), re.MULTILINE | re.DOTALL)
    return program


def queries(page):
    """The page's calls of sqlite3, each with the lines that it says come out."""
    found = []
    for line in indented(page):
        if line.startswith("sqlite3 "):
            found.append((shlex.split(line), []))
        elif found:
            found[-1][1].append(line)
    return found


def synopses(page):
    """The page's synopses of the tool, without what explains them, by command."""
    found = {}
    for line in indented(page):
        if line.startswith("yld "):
            words = re.split(r"\s{2,}", line)[0].split(" ", 2)
            found[words[1]] = words[2]
    return found


def options(synopsis):
    """The optional parts of a synopsis, each a list of its alternatives, each of these a list of words."""
    parts = re.findall(r"\[((?:[^\[\]]|\[[^\]]*\])*)\]", synopsis)
    alternatives = [part.split(" | ") for part in parts]
    # What an alternative may have besides, as the picture of --plot, is tried with it and without.
    return [[words for one in part for words in ([one.split()] if "[" not in one else
             [one.split(" [")[0].split(), one.replace("[", "").replace("]", "").split()])] for part in alternatives]


def filled(words):
    """The words with what stands for their capitals."""
    return [STAND_INS[words[i - 1]] if i > 0 and words[i - 1] in STAND_INS else word for i, word in enumerate(words)]


def run(*command, **how):
    return subprocess.run([str(word) for word in command], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.PIPE, universal_newlines=True, timeout=600, **how)


class ExamplesTest(unittest.TestCase):
    maxDiff = None
    numbers = itertools.count()

    @classmethod
    def setUpClass(cls):
        cls.scratch = tempfile.TemporaryDirectory()
        cls.folder = Path(cls.scratch.name)
        (cls.folder / "client.cpp").write_text(readme_client())
        cls.built = run(CXX, *WARNINGS, *FLAGS, "-I", ROOT / "include", "-I", ROOT, "client.cpp", "-o", "client",
                        "-L", LIB, "-lyld", "-Wl,-rpath," + LIB, cwd=cls.folder)
        cls.client = run(cls.folder / "client", cwd=cls.folder) if cls.built.returncode == 0 else None
        exodus_writer.write(str(cls.folder / "IN.e"), 3, [(x, y, z) for z in (0.0, 1.0) for x, y in
                                                         ((0.0, 0.0), (1.0, 0.0), (1.0, 1.0), (0.0, 1.0))],
                            [{"id": 1, "type": "HEX", "connectivity": [list(range(1, 9))]}])

    @classmethod
    def tearDownClass(cls):
        cls.scratch.cleanup()

    def succeed(self, *command):
        done = run(*command, cwd=self.folder)
        self.assertEqual((0, ""), (done.returncode, done.stderr), " ".join(str(word) for word in command))
        return done.stdout

    def test_readme_client_compiles_and_prints_what_it_wrote(self):
        self.assertEqual((0, "", ""), (self.built.returncode, self.built.stdout, self.built.stderr))
        # The nodes with x = 1 go down by a half.
        down = "".join("node %d: %s\n" % (i, "-0.5" if i in (2, 3, 6, 7) else "0") for i in range(1, 9))
        self.assertEqual((0, "", down), (self.client.returncode, self.client.stderr, self.client.stdout))
        for said in re.findall(r"`(node \d: [-.\d]+)`", read("README.md")):
            self.assertIn(said + "\n", down)

    def test_queries_of_the_file_page(self):
        found = queries("docs/file.md")
        self.assertEqual(3, len(found))
        for (_, database, statement), expected in found:
            connection = sqlite3.connect(str(self.folder / database))
            rows = connection.execute(statement).fetchall()
            connection.close()
            self.assertEqual(expected, ["|".join(str(cell) for cell in row) for row in rows], statement)

    def test_settings_and_header_of_the_file_page(self):
        connection = sqlite3.connect(str(self.folder / "job.yld"))
        page = read("docs/file.md")
        said = re.findall(r"^\| `(application_id|user_version|page_size)` \| (.*) \|$", page, re.MULTILINE)
        self.assertEqual(3, len(said))
        for name, text in said:
            value, = connection.execute("PRAGMA " + name).fetchone()
            self.assertIn(hex(value) if name == "application_id" else str(value), text)
        table = page[page.index("`header(name, value)`"):page.index("`catalogue(")]
        names = {name for cell in re.findall(r"^\| (`.*?) \|", table, re.MULTILINE)
                 for name in re.findall(r"`([^`]+)`", cell)}
        self.assertEqual({name for name, in connection.execute("SELECT name FROM header")}, names)
        for name, columns in re.findall(r"^`(\w+)\((.+?)\)`:", page, re.MULTILINE):
            there = [row[1] for row in connection.execute("PRAGMA table_info(%s)" % name)]
            self.assertEqual([column.strip('"') for column in columns.split(", ")], there, name)
        connection.close()

    def test_synopses_of_the_tool(self):
        pages = {page: synopses(page) for page in ("README.md", "docs/tools.md")}
        self.assertEqual({"info", "values", "history", "import"}, set(pages["README.md"]))
        self.assertLessEqual({"values", "history", "import"}, set(pages["docs/tools.md"]))
        for page, found in pages.items():
            for command, synopsis in found.items():
                with self.subTest(page=page, command=command):
                    self.check_synopsis(command, synopsis)

    def check_synopsis(self, command, synopsis):
        optional = options(synopsis)
        required = re.sub(r"\[(?:[^\[\]]|\[[^\]]*\])*\]", "", synopsis).split()
        choices = [[]] + [words for part in optional for words in part]
        # Each alone, and the first of all together.
        choices.append(list(itertools.chain.from_iterable(part[0] for part in optional)))
        for choice in choices:
            words = filled(required + choice)
            out = "OUT%d.yld" % next(self.numbers)
            words = [{"FILE": "job.yld", "IN": "IN.e", "OUT": out}.get(word, word) for word in words]
            if "--plot" in words and "--region" not in words:
                words += ["--region", "tip"]
            printed = self.succeed(Path(BIN) / "yld", command, *words)
            if command == "import":
                self.assertIn("nodes", self.succeed(Path(BIN) / "yld", "info", out))
            elif "curves.svg" in words:
                self.assertTrue((self.folder / "curves.svg").read_text().startswith(("<svg", "<?xml")))
            else:
                self.assertNotEqual("", printed, words)

    def test_options_that_the_pages_name_exist(self):
        said = {command: self.succeed(Path(BIN) / "yld", command, "--help")
                for command in ("info", "values", "history", "import")}
        for page in ("README.md", "docs/tools.md"):
            for command, synopsis in synopses(page).items():
                for option in re.findall(r"--\w+", synopsis):
                    self.assertIn(option, said[command], page)

    def test_programs_of_the_pages_compile(self):
        for page in sorted((ROOT / "docs").glob("*.md")):
            lines = indented(page.relative_to(ROOT))
            if not any(line.startswith("#include") for line in lines):
                continue
            head = [line for line in lines if line.startswith("#include")]
            body = [line for line in lines if not line.startswith("#include")]
            program = "\n".join(head + ["void example();", "void example()", "{"] + body + ["}", ""])
            source = self.folder / (page.stem + ".cpp")
            source.write_text(program)
            done = run(CXX, *WARNINGS, "-fsyntax-only", "-I", ROOT / "include", "-I", ROOT, source)
            self.assertEqual((0, ""), (done.returncode, done.stderr), page)

    def test_commands_by_hand(self):
        page = read("README.md") + read("docs/contributing.md")
        presets = read("CMakePresets.json")
        for kind, preset in re.findall(r"(cmake --build|cmake|ctest) --preset (\w+)", page):
            self.assertIn('"name": "%s"' % preset, presets, kind)
        scripts = set(re.findall(r"(?:\./|`)((?:scripts/)?\w+\.sh)\b", page))
        self.assertLessEqual({"run.sh", "test.sh", "scripts/format.sh"}, scripts)
        for script in scripts:
            if not (ROOT / script).exists():
                continue  # tests/house/pages_test.py has a word on that
            self.assertTrue(os.access(ROOT / script, os.X_OK), script)
            self.assertEqual(0, run("bash", "-n", ROOT / script).returncode, script)


if __name__ == "__main__":
    unittest.main()
