"""What `yld history` lists, prints and draws. Pictures are read back: what they show must be what the curves hold."""

import fcntl
import math
import os
import pty
import re
import struct
import subprocess
import tempfile
import termios
import xml.etree.ElementTree as xml

import programs
from programs import program, run, single

SVG = "{http://www.w3.org/2000/svg}"


class Panel:
    """One plot of the terminal, its dots as pairs of column and row, both from the lower left."""

    def __init__(self, lines):
        self.title = lines[0]
        rows = [line for line in lines if re.match(r"^ *[^ ]* ?[│┤]", line)]
        self.labels = [re.split("[│┤]", row)[0].strip() for row in rows]
        self.dots = set()
        for r, row in enumerate(rows):
            cells = re.split("[│┤]", row, maxsplit=1)[1]
            for c, cell in enumerate(cells):
                if cell == " ":
                    continue
                code = ord(cell) - 0x2800
                assert 0 < code < 256, cell
                for bit, (x, y) in enumerate([(0, 0), (0, 1), (0, 2), (1, 0), (1, 1), (1, 2), (0, 3), (1, 3)]):
                    if code >> bit & 1:
                        self.dots.add((2 * c + x, 4 * (len(rows) - r) - 1 - y))
        self.height = 4 * len(rows)
        axis = next(i for i, line in enumerate(lines) if "└" in line)
        self.width = 2 * len(lines[axis].split("└")[1])
        self.ticks = lines[axis + 1].split()
        self.name = lines[axis + 2].strip()


class Picture:
    """The curves of an SVG file by name, read back through the numbers at its axes."""

    def __init__(self, path):
        root = xml.parse(path).getroot()
        self.title = root.find(SVG + "title").text
        self.curves, self.gaps, self.axes = {}, {}, []
        texts, names, scales = [], {}, None
        entry = None
        for element in root:
            kind = element.tag.replace(SVG, "")
            if kind == "line" and element.get("stroke-width") == "2.5":
                entry = element.get("stroke")
            elif kind == "text" and entry:
                names[entry], entry = element.text, None
                texts = []
            elif kind == "text":
                texts.append(element)
            elif kind == "path":
                if texts:
                    scales = self.scales_of(texts)
                    texts = []
                color = element.get("stroke")
                parts = [[tuple(map(float, point.split())) for point in re.split("[ML]", part) if point.strip()]
                         for part in re.findall("M[^M]*", element.get("d"))]
                self.gaps[names[color]] = len(parts) - 1
                self.curves[names[color]] = [tuple(a + b * p for (a, b), p in zip(scales, point))
                                             for part in parts for point in part]
        self.legend = list(names.values())

    def scales_of(self, texts):
        scales = []
        for axis, anchor in (("x", "middle"), ("y", "end")):
            ticks = []
            for text in texts:
                if text.get("text-anchor") == anchor and not text.get("transform"):
                    try:
                        ticks.append((float(text.get(axis)) - (4.5 if axis == "y" else 0.0), float(text.text)))
                    except ValueError:
                        self.axes.append(text.text)
            (p, a), (q, b) = ticks[0], ticks[-1]
            factor = (b - a) / (q - p)
            scales.append((a - factor * p, factor))
        self.axes += [text.text for text in texts if text.get("transform")]
        return scales


class HistoryTest(programs.ProgramTest):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.path = os.path.join(cls.folder.name, "made.yld")
        made = run("history_maker", cls.path)
        assert made.returncode == 0, made.stderr

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def file(self, name):
        return os.path.join(self.folder.name, name)

    def history(self, *arguments):
        return self.yld("history", self.path, *arguments)

    def plot(self, *arguments, columns=80, lines=24):
        done = run("yld", "history", self.path, *arguments, "--plot",
                   env=dict(os.environ, COLUMNS=str(columns), LINES=str(lines)))
        self.assertEqual((0, ""), (done.returncode, done.stderr))
        for line in done.stdout.splitlines():
            self.assertLessEqual(len(line), columns, line)
        return [Panel(part.splitlines()) for part in done.stdout.split("\n\n")]

    def picture(self, *arguments):
        path = self.file("picture.svg")
        self.assertEqual("", self.history(*arguments, "--plot", path))
        return Picture(path)

    # Lists

    def test_the_last_step_is_listed_in_words(self):
        lines = self.history().splitlines()
        self.assertEqual('step "time": 2 regions, 9 curves', lines[0])
        at = lines.index("model  Output at assembly Assembly")
        self.assertEqual([["bare", "3"], ["empty", "0"], ["flat", "2"]], [l.split()[:2] for l in lines[at + 1:at + 4]])
        at = lines.index("node  Output at instance part-1 node 10")
        # Name, ten columns, and the number of pairs at the right end of ten more.
        self.assertEqual("  U1" + " " * 17 + "5 pairs  displacement [mm]", lines[at + 1])
        self.assertIn("  precise" + " " * 12 + "1 pair   ", lines)
        modes = self.history("--step", "modes").splitlines()
        self.assertEqual('end, "free"  Output at instance part-1 node 20, load case pull', modes[2])

    def test_lists_as_json(self):
        answer = self.json("history", self.path, "--step", "modes", "--json")
        self.assertEqual({"step": "modes", "regions": [
            {"name": 'end, "free"', "description": "Output at instance part-1 node 20", "position": "NODAL",
             "loadCase": "pull", "outputs": [{"name": "U1", "description": "displacement [m]", "pairs": 1}]}]}, answer)
        answer = self.json("history", self.path, "--json")
        self.assertEqual(["model", "node"], [r["name"] for r in answer["regions"]])
        self.assertEqual(["WHOLE_MODEL", "NODAL"], [r["position"] for r in answer["regions"]])
        self.assertEqual(200001, {o["name"]: o["pairs"] for o in answer["regions"][0]["outputs"]}["wave"])

    def test_lists_as_csv(self):
        self.assertEqual('region,position,loadCase,output,description,pairs\n'
                         '"end, ""free""",NODAL,pull,U1,displacement [m],1\n', self.history("--step", "modes", "--csv"))

    def test_a_step_without_history(self):
        path = self.file("bare.yld")
        done = run("cantilever_analysis", path, 1, 1, 1)
        self.assertEqual(0, done.returncode, done.stderr)
        self.assertEqual(["root", "tip"], [r["name"] for r in self.json("history", path, "--json")["regions"]])

    # Curves

    def test_curves_in_words(self):
        self.assertEqual(["U1, node", "time value", "0 -2", "0.5 -1", "1 2", "1.5 7", "2 14"],
                         [" ".join(l.split()) for l in self.history("--output", "U1").splitlines()])
        lines = self.history("--region", "node").splitlines()
        self.assertEqual(["U1, node", "V1, node"], [l for l in lines if "node" in l])

    def test_curves_as_csv(self):
        self.assertEqual("region,output,time,value\nnode,V1,0,0\nnode,V1,0.5,10\nnode,V1,1,20\nnode,V1,1.5,30\nnode,V1,2,40\n",
                         self.history("--region", "node", "--output", "V1", "--csv"))
        self.assertEqual('region,output,time,value\n"end, ""free""",U1,10,0.25\n',
                         self.history("--step", "modes", "--output", "U1", "--csv"))
        self.assertEqual(["nan", "inf"], [l.split(",")[3] for l in self.history("--output", "gap", "--csv").splitlines()[3:5]])

    def test_curves_as_json(self):
        answer = self.json("history", self.path, "--region", "node", "--json")
        self.assertEqual("time", answer["step"])
        self.assertEqual([("node", "U1", "displacement [mm]"), ("node", "V1", "velocity [mm/s]")],
                         [(c["region"], c["output"], c["description"]) for c in answer["curves"]])
        self.assertEqual([[0.5 * i, i * i - 2] for i in range(5)], answer["curves"][0]["data"])
        gap, = self.json("history", self.path, "--output", "gap", "--json")["curves"]
        self.assertEqual([1, 2, None, None, 4, 5], [v for _, v in gap["data"]])
        empty, = self.json("history", self.path, "--output", "empty", "--json")["curves"]
        self.assertEqual([], empty["data"])

    def test_numbers_read_back(self):
        self.assertIn("\nmodel,precise,0.1,0.1\n", self.history("--output", "precise", "--csv"))
        text = self.history("--output", "rounded", "--csv").splitlines()[1].split(",")
        self.assertEqual(["0.33333334", "0.33333334"], text[2:])
        self.assertEqual(single(1 / 3), single(float(text[2])))

    def test_long_curves_are_printed_whole(self):
        rows = self.history("--output", "wave", "--csv").splitlines()[1:]
        self.assertEqual(200001, len(rows))
        for i in (0, 65535, 65536, 131072, 200000):
            _, _, time, value = rows[i].split(",")
            self.assertEqual(i / 200000, float(time))
            self.assert_single(math.sin(2000.0 * i / 200000), float(value), "row %d" % i)

    def test_names_that_are_not_there(self):
        for arguments, parts in ((["--step", "x"], ['no step "x"', "there is: many, odd, modes, time"]),
                                 (["--region", "x"], ['no region "x" in step "time"', "there is: model, node"]),
                                 (["--output", "x"], ['no output "x" in step "time"', "U1"]),
                                 (["--region", "node", "--output", "wave"], ['no output "wave"', "there is: U1, V1"]),
                                 (["--plot", "--region", "x"], ['no region "x"'])):
            with self.subTest(arguments):
                self.assert_fails(run("yld", "history", self.path, *arguments), 1, self.path, *parts)

    def test_bad_usage(self):
        for arguments in ([], [self.path, "--csv", "--json"], [self.path, "--plot", "--json"], [self.path, "--plot", "--csv"],
                          [self.path, "--plot", "picture.png"], [self.path, "--plot", ".svg"], [self.path, "--nonsense"]):
            with self.subTest(arguments):
                self.assert_fails(run("yld", "history", *arguments), 2)

    # Plots on the terminal

    def test_a_straight_line_on_the_terminal(self):
        panel, = self.plot("--output", "V1")
        self.assertEqual("V1, node [mm/s]", panel.title)
        self.assertEqual("time", panel.name)
        self.assertEqual(("0", "2"), (panel.ticks[0], panel.ticks[-1]))
        self.assertEqual("0", panel.labels[-1])
        self.assertEqual("40", panel.labels[0])
        self.assertEqual(80 - len("40") - 2, panel.width // 2)
        # A dot a column, on the line from corner to corner: half a dot is lost at the dot itself, half at the ends of
        # each of the four pieces, and a quarter as these ends are shifted along the line.
        self.assertEqual(set(range(panel.width)), {x for x, _ in panel.dots})
        for x, y in panel.dots:
            self.assertLessEqual(abs(y - x * (panel.height - 1) / (panel.width - 1)), 1.25)

    def test_plots_fit_the_width(self):
        for columns in (24, 40, 80, 200):
            panel, = self.plot("--output", "V1", columns=columns)
            self.assertEqual(columns, panel.width // 2 + 2 + max(map(len, panel.labels)))
        self.assertEqual(4 * 6, self.plot("--output", "V1", lines=5)[0].height)
        self.assertEqual(4 * 18, self.plot("--output", "V1", lines=24)[0].height)
        self.assertEqual(4 * 30, self.plot("--output", "V1", lines=100)[0].height)

    def test_the_size_of_the_terminal_counts(self):
        leader, follower = pty.openpty()
        fcntl.ioctl(follower, termios.TIOCSWINSZ, struct.pack("HHHH", 20, 50, 0, 0))
        done = subprocess.Popen([program("yld"), "history", self.path, "--output", "V1", "--plot"], stdout=follower,
                                stdin=subprocess.DEVNULL, env=dict(os.environ, COLUMNS="33", LINES="99"))
        os.close(follower)
        text = b""
        while True:
            try:
                piece = os.read(leader, 65536)
            except OSError:
                break
            if not piece:
                break
            text += piece
        os.close(leader)
        self.assertEqual(0, done.wait())
        lines = text.decode().replace("\r", "").splitlines()
        # The last column stays free.
        self.assertEqual(49, max(map(len, lines)))
        self.assertEqual(1 + 14 + 3, len(lines))

    def test_curves_have_a_panel_each_over_one_time(self):
        panels = self.plot("--region", "node")
        self.assertEqual(["U1, node [mm]", "V1, node [mm/s]"], [p.title for p in panels])
        u = panels[0]
        self.assertEqual("-5", u.labels[-1])
        self.assertEqual("15", u.labels[0])
        # From -2 to 14 over an axis from -5 to 15.
        self.assertAlmostEqual(3 / 20 * (u.height - 1), min(y for _, y in u.dots), delta=1)
        self.assertAlmostEqual(19 / 20 * (u.height - 1), max(y for _, y in u.dots), delta=1)

    def test_gaps_stay_empty(self):
        panel, = self.plot("--output", "gap")
        # Nothing between the times 1 and 4 of 5.
        self.assertEqual([], [x for x, _ in panel.dots if 0.22 < x / (panel.width - 1) < 0.78])
        self.assertEqual("gap, model [m/s]", panel.title)

    def test_flat_curves_lie_in_the_middle(self):
        panel, = self.plot("--output", "flat")
        self.assertEqual(1, len({y for _, y in panel.dots}))
        self.assertEqual(set(range(panel.width)), {x for x, _ in panel.dots})

    def test_frequencies_are_named_so(self):
        panel, = self.plot("--step", "modes")
        self.assertEqual("frequency", panel.name)
        self.assertEqual(1, len(panel.dots))

    def test_what_cannot_be_drawn(self):
        for arguments, what in ((["--output", "bare"], "nothing to draw in bare, model"),
                                (["--output", "empty"], "nothing to draw in empty, model"),
                                (["--step", "many"], "12 curves are too many for one plot, 8 are the most")):
            for picture in ([], [self.file("none.svg")]):
                with self.subTest(arguments + picture):
                    self.assert_fails(run("yld", "history", self.path, *arguments, "--plot", *picture), 1, what)
        self.assertFalse(os.path.exists(self.file("none.svg")))

    # Pictures

    def test_a_picture_holds_the_curves(self):
        picture = self.picture("--region", "node")
        self.assertEqual("made.yld, step time", picture.title)
        self.assertEqual(["U1, node [mm]", "V1, node [mm/s]"], picture.legend)
        self.assertEqual(["time", "U1 [mm]", "time", "V1 [mm/s]"], [a for a in picture.axes if a != picture.title])
        for name, value in (("U1, node [mm]", lambda i: i * i - 2), ("V1, node [mm/s]", lambda i: 10 * i)):
            self.assertEqual(5, len(picture.curves[name]))
            for i, (x, y) in enumerate(picture.curves[name]):
                self.assertAlmostEqual(0.5 * i, x, delta=2e-4)
                self.assertAlmostEqual(value(i), y, delta=5e-3)

    def test_curves_of_one_unit_share_a_panel(self):
        picture = self.picture("--step", "many", "--output", "c3")
        self.assertEqual(["c3, whole"], picture.legend)
        path = self.file("made.svg")
        self.history("--region", "model", "--output", "precise", "--plot", path)
        self.assertEqual(1, len(Picture(path).curves["precise, model"]))

    def test_gaps_in_pictures(self):
        picture = self.picture("--output", "gap")
        name, = picture.legend
        self.assertEqual("gap, model [m/s]", name)
        self.assertEqual(1, picture.gaps[name])
        self.assertEqual([(0, 1), (1, 2), (4, 4), (5, 5)], [(round(x), round(y)) for x, y in picture.curves[name]])

    def test_bytes_that_are_no_text(self):
        self.assertEqual(["b, bytes [\ufffd]"], self.picture("--step", "odd").legend)
        self.assertEqual("b, bytes [\ufffd]", self.plot("--step", "odd")[0].title)
        region, = self.json("history", self.path, "--step", "odd", "--json")["regions"]
        self.assertEqual("no text [\ufffd]", region["outputs"][0]["description"])

    def test_long_curves_stay_small_and_true(self):
        picture = self.picture("--output", "wave")
        self.assertLess(os.path.getsize(self.file("picture.svg")), 200000)
        points = picture.curves["wave, model"]
        # 318 waves over some 1300 half pixels: each column must show how far the curve goes within it.
        self.assertLess(abs(max(y for _, y in points) - 1), 0.01)
        self.assertLess(abs(min(y for _, y in points) + 1), 0.01)
        for i in range(0, 318):
            wave = [y for x, y in points if i * math.pi / 1000 <= x < (i + 1) * math.pi / 1000]
            self.assertGreater(max(wave), 0.7, i)
            self.assertLess(min(wave), -0.7, i)

    def test_pictures_that_cannot_be_written(self):
        for path in (self.file("no/such.svg"), "/proc/none.svg"):
            self.assert_fails(run("yld", "history", self.path, "--output", "V1", "--plot", path), 1, "cannot write: " + path)
        if os.path.exists("/dev/full"):
            link = self.file("full.svg")
            os.symlink("/dev/full", link)
            self.assert_fails(run("yld", "history", self.path, "--output", "V1", "--plot", link), 1, "cannot write: " + link)

    def test_pictures_are_replaced(self):
        path = self.file("again.svg")
        self.history("--region", "node", "--plot", path)
        self.history("--output", "V1", "--plot", path)
        self.assertEqual(["V1, node [mm/s]"], Picture(path).legend)


if __name__ == "__main__":
    programs.main()
