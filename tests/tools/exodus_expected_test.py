"""Exodus files of other programs, imported and looked into, against facts that another reader found in them.

Without an argument the files that are kept beside the tests; with --large those that are too large for that, from the
folder YLD_DATA; --left-out says which of these are not there."""

import hashlib
import json
import os
import re
import sys
import tempfile
import unittest

import programs
from programs import run, single

LARGE = os.environ.get("YLD_DATA") or os.path.join(programs.ROOT, "..", "shared", "data", "exodus")

# Type as written, nodes an element, dimensions: the element type it must become.
ELEMENT_TYPES = {
    ("HEX", 8, 3): "HEX8", ("HEX8", 8, 3): "HEX8", ("HEX20", 20, 3): "HEX20", ("HEX27", 27, 3): "HEX27",
    ("TETRA", 4, 3): "TET4", ("TETRA4", 4, 3): "TET4", ("TETRA10", 10, 3): "TET10",
    ("WEDGE", 6, 3): "WEDGE6", ("WEDGE15", 15, 3): "WEDGE15",
    ("SHELL", 4, 3): "SHELL4", ("SHELL8", 8, 3): "SHELL8",
    ("TRI", 3, 3): "SHELL3", ("TRI3", 3, 3): "SHELL3", ("TRI6", 6, 3): "SHELL6",
    ("BEAM", 2, 3): "BEAM2", ("BAR2", 2, 3): "TRUSS2",
    ("QUAD4", 4, 2): "QUAD4", ("QUAD8", 8, 2): "QUAD8", ("TRI6", 6, 2): "TRI6",
}

# Where the nodes after the corners sit, in the order of the library: the corners (from 0) that each is the middle of.
BOTTOM_4, TOP_4, UPRIGHT_4 = [(0, 1), (1, 2), (2, 3), (3, 0)], [(4, 5), (5, 6), (6, 7), (7, 4)], [(i, i + 4) for i in range(4)]
BOTTOM_3, TOP_3, UPRIGHT_3 = [(0, 1), (1, 2), (2, 0)], [(3, 4), (4, 5), (5, 3)], [(i, i + 3) for i in range(3)]
MIDDLES = {
    "HEX20": BOTTOM_4 + TOP_4 + UPRIGHT_4,
    "HEX27": BOTTOM_4 + TOP_4 + UPRIGHT_4
    + [(0, 4, 7, 3), (1, 2, 6, 5), (0, 1, 5, 4), (3, 7, 6, 2), (0, 1, 2, 3), (4, 5, 6, 7), tuple(range(8))],
    "TET10": BOTTOM_3 + [(0, 3), (1, 3), (2, 3)],
    "WEDGE15": BOTTOM_3 + TOP_3 + UPRIGHT_3,
    "SHELL8": BOTTOM_4, "QUAD8": BOTTOM_4, "TRI6": BOTTOM_3, "SHELL6": BOTTOM_3,
}

# Opposite corners: a box's face or body centre is the middle of these as well.
HEX_DIAGONALS = {(1, 3): (0, 1, 2, 3), (5, 7): (4, 5, 6, 7), (1, 8): (0, 4, 7, 3), (2, 7): (1, 2, 6, 5),
                 (1, 6): (0, 1, 5, 4), (3, 8): (3, 7, 6, 2), (1, 7): tuple(range(8))}

TENSOR_ORDER = [("xx",), ("yy",), ("zz",), ("xy",), ("zx", "xz"), ("yz", "zy")]

# Integration points of the element types that these files have.
POINTS = {"HEX8": 8, "HEX20": 27, "HEX27": 27, "TET4": 1, "TET10": 4, "WEDGE6": 2, "WEDGE15": 9, "SHELL3": 1,
          "SHELL4": 4, "SHELL6": 3, "SHELL8": 9, "BEAM2": 1, "TRUSS2": 1, "QUAD4": 4, "QUAD8": 9, "TRI6": 3}

# Of nine components, row by row, those of a symmetric tensor: 11 22 33 12 13 23.
SYMMETRIC = [0, 4, 8, 1, 2, 5]


class Field:
    def __init__(self, kind, components=()):
        self.kind, self.components = kind, list(components)
        self.nodal, self.element, self.points = [], [], []  # the variables, for points their names without the number
        self.node_set = self.side_set = None


def label_of(facts, block):
    return ELEMENT_TYPES[block["elem_type"].upper(), block["nodes_per_elem"], facts["num_dim"]]


def blocks_of(facts):
    """Element variable to the ids of the blocks that have it."""
    names = facts.get("element_variables") or []
    return {name: [b["id"] for b, row in zip(facts["blocks"], facts["element_truth_table"]) if row[column]]
            for column, name in enumerate(names)}


def points_of(facts):
    """Names without a number to (number of points, ids of the blocks where "_1" to "_n" are its points)."""
    present, found = blocks_of(facts), {}
    for name in present:
        match = re.match(r"^(.+)_([1-9]\d*)$", name)
        if not match or match.group(1) in found:
            continue
        base = match.group(1)
        for block in facts["blocks"]:
            numbers = sorted(int(n[len(base) + 1:]) for n in present
                             if re.match(re.escape(base) + r"_[1-9]\d*$", n) and block["id"] in present[n])
            count = POINTS[label_of(facts, block)]
            if count > 1 and numbers == list(range(1, count + 1)):
                found.setdefault(base, (count, []))[1].append(block["id"])
    return found


def fields_of(facts):
    """The fields that the variables of a file make."""
    fields, axes = {}, "xyz"[:facts["num_dim"]]
    points, present = points_of(facts), blocks_of(facts)
    averages = {name: list(blocks) for name, blocks in present.items()}
    for base, (count, blocks) in points.items():
        for q in range(1, count + 1):
            name = "%s_%d" % (base, q)
            averages[name] = [b for b in averages[name] if b not in blocks]

    def add(place, names):
        for name in names:
            vector = [name[:-1] + axis for axis in axes]
            tensor = [next((name[:-2] + p for p in pair if name[:-2] + p in names), None) for pair in TENSOR_ORDER]
            # Point components are numbered, nodal ones have row and column.
            flat = [name[:-2] + "_%d" % c for c in range(1, 10)] if place == "points" else []
            square = [name[:-4] + "_%d_%d" % (r, c) for r in (1, 2, 3) for c in (1, 2, 3)] if place == "nodal" else []
            nine = next((n for n in (flat, square) if n and name in n and all(m in names for m in n)), None)
            if nine:
                stem, kind, members = nine[0][:-2 if nine is flat else -4], "TENSOR_3D_FULL", [nine[i] for i in SYMMETRIC]
            elif name in tensor and None not in tensor:
                stem, kind, members = name[:-3], "TENSOR_3D_FULL", tensor
            elif name in vector and all(v in names for v in vector) and name[-2] == "_":
                stem, kind, members = name[:-2], "VECTOR", vector
            else:
                stem, kind, members = name, "SCALAR", [name]
            field = fields.setdefault(stem, Field(kind, members if kind != "SCALAR" else ()))
            setattr(field, place, members)

    add("nodal", facts.get("nodal_variables") or [])
    add("element", [n for n, blocks in averages.items() if blocks])
    add("points", list(points))
    for kind in ("node_set", "side_set"):
        for name in facts.get(kind + "_variables") or []:
            setattr(fields.setdefault(name, Field("SCALAR")), kind, name)
    return fields


class ExpectedTest(programs.ProgramTest):
    def check_file(self, source, facts, folder):
        with open(source, "rb") as stream:
            self.assertEqual(facts["sha256"], hashlib.sha256(stream.read()).hexdigest(), source)
        target = os.path.join(folder, "imported.yld")
        if os.path.exists(target):
            os.remove(target)
        done = run("yld", "import", source, target)
        self.assertEqual(0, done.returncode, done.stderr)
        self.assertEqual(["imported.yld"], os.listdir(folder))
        self.check_notes(facts, done.stderr)
        self.target, self.facts = target, facts
        self.stem = os.path.splitext(os.path.basename(source))[0]
        info = self.info(target)
        self.check_model(info)
        self.check_steps(info)
        self.check_mesh()
        if facts["num_time_steps"]:
            self.check_last_step()
            self.check_histories()
            self.check_globals()

    def check_notes(self, facts, text):
        for what in ("global variable", "node set variable"):
            self.assertNotIn(what, text)
        self.assertEqual(bool(facts.get("side_set_variables")), "lies on the whole elements behind the sides" in text)
        self.assertNotIn("side set variable on a set", text)

    def check_globals(self):
        names = self.facts.get("global_variables") or []
        regions = self.json("history", self.target, "--json")["regions"]
        self.assertEqual(["Assembly Assembly"] if names else [], [r["name"] for r in regions])
        for name in names:
            curve, = self.json("history", self.target, "--output", name, "--json")["curves"]
            self.assertEqual(self.facts["num_time_steps"], len(curve["data"]))
            self.assertEqual(self.facts["times"]["last"], curve["data"][-1][0])
            self.assert_single(self.facts["global_last_step"][name], curve["data"][-1][1], name)

    def name_of(self, entity, prefix):
        return entity.get("name") or prefix + str(entity["id"])

    def check_model(self, info):
        facts = self.facts
        self.assertEqual(891, info["version"])
        self.assertEqual(facts["title"], info["title"])
        self.assertEqual([self.stem], [part["name"] for part in info["parts"]])
        self.assertEqual([self.stem + "-1"], [instance["name"] for instance in info["instances"]])
        classes = [{"type": self.label(block), "elements": block["num_elem"],
                    "nodesPerElement": block["nodes_per_elem"]} for block in facts["blocks"]]
        sizes = {
            "elementSets": {self.name_of(b, "block_"): b["num_elem"] for b in facts["blocks"]},
            "nodeSets": {self.name_of(s, "nodelist_"): s["count"] for s in facts.get("node_sets") or []},
            "surfaces": {self.name_of(s, "surface_"): s["count"] for s in facts.get("side_sets") or []},
        }
        for entity in info["parts"] + info["instances"]:
            self.assertEqual(facts["num_nodes"], entity["nodes"])
            self.assertEqual(facts["num_elem"], entity["elements"])
            self.assertEqual(classes, entity["elementClasses"])
            for kind, expected in sizes.items():
                self.assertEqual(len(expected), len(entity[kind]), kind)
                self.assertEqual(expected, {s["name"]: s["size"] for s in entity[kind]}, kind)

    def label(self, block):
        return label_of(self.facts, block)

    def number_of(self, blocks):
        return sum(b["num_elem"] for b in self.facts["blocks"] if b["id"] in blocks)

    def place_of(self, variable, block):
        """Field, component, and point (None for an average) of an element variable in a block; None if it is the
        mirror of another component."""
        points = points_of(self.facts)
        match = re.match(r"^(.+)_([1-9]\d*)$", variable)
        at_points = match and match.group(1) in points and block in points[match.group(1)][1]
        name, point = (match.group(1), int(match.group(2))) if at_points else (variable, None)
        for field_name, field in fields_of(self.facts).items():
            members = field.points if at_points else field.element
            if name in members:
                return field_name, members.index(name), point
        return None

    def nodal_place_of(self, variable):
        for field_name, field in fields_of(self.facts).items():
            if variable in field.nodal:
                return field_name, field.nodal.index(variable)
        return None

    def sets_with(self, kind, variable):
        found = (self.facts.get(kind + "_last_step") or {}).get(variable) or {}
        return [s for s in self.facts[kind + "s"] if str(s["id"]) in found]

    def check_steps(self, info):
        facts = self.facts
        count = facts["num_time_steps"]
        if not count:
            self.assertEqual([], info["steps"])
            return
        self.assertEqual(["Step-1"], [step["name"] for step in info["steps"]])
        step = info["steps"][0]
        times = facts["times"]
        self.assertEqual("TIME", step["domain"])
        self.assertAlmostEqual(times["last"] if times["last"] > 0 else 1.0, step["timePeriod"], 12)
        frames = step["frames"]
        self.assertEqual(list(range(count)), [frame["index"] for frame in frames])
        self.assertEqual(list(range(count)), [frame["increment"] for frame in frames])
        self.assertEqual(single(times["first"]), single(frames[0]["value"]))
        self.assertEqual(single(times["last"]), single(frames[-1]["value"]))
        total = sum(frame["value"] for frame in frames)
        self.assertLessEqual(abs(total - times["sum"]), 1e-7 * abs(times["sum"]))
        if len(times.get("values", [])) == count:
            self.assertEqual([single(t) for t in times["values"]], [single(f["value"]) for f in frames])

        expected = fields_of(facts)
        for frame in (frames[0], frames[-1]):
            found = {field["name"]: field for field in frame["fields"]}
            self.assertEqual(sorted(expected), sorted(found))
            self.assertEqual(len(expected), len(frame["fields"]))
            present, points = blocks_of(facts), points_of(facts)
            for name, field in expected.items():
                self.assertEqual(field.kind, found[name]["type"], name)
                self.assertEqual(field.components, found[name]["components"], name)
                positions = {}
                if field.nodal:
                    positions["NODAL"] = facts["num_nodes"]
                if field.element:
                    variable = field.element[0]
                    taken = [b for base, (n, blocks) in points.items() for b in blocks
                             if variable in ["%s_%d" % (base, q) for q in range(1, n + 1)]]
                    positions["CENTROID"] = self.number_of([b for b in present[variable] if b not in taken])
                if field.points:
                    count, blocks = points[field.points[0]]
                    positions["INTEGRATION_POINT"] = count * self.number_of(blocks)
                if field.node_set:
                    positions["NODAL"] = sum(s["count"] for s in self.sets_with("node_set", name))
                if field.side_set:
                    positions["WHOLE_ELEMENT"] = sum(s["count"] for s in self.sets_with("side_set", name))
                self.assertEqual(positions, {p["position"]: p["values"] for p in found[name]["positions"]}, name)

    def check_mesh(self):
        facts = self.facts
        done = run("mesh_dump", self.target)
        self.assertEqual(0, done.returncode, done.stderr)
        instance, = json.loads(done.stdout)
        self.assertEqual(0 if facts["num_dim"] == 3 else 1, instance["space"])
        nodes, elements = instance["nodes"], instance["elements"]
        for key, found in (("node_id_map", [n[0] for n in nodes]), ("element_id_map", [e[0] for e in elements])):
            ids = facts[key]
            self.assertEqual(ids["first5"], found[:5])
            self.assertEqual((ids["min"], ids["max"]), (min(found), max(found)))
            if ids["identity"]:
                self.assertEqual(list(range(1, len(found) + 1)), found)
        node_labels = [n[0] for n in nodes]
        self.element_labels = [e[0] for e in elements]
        coordinates = {n[0]: n[1:] for n in nodes}

        for axis, name in enumerate("xyz"[:facts["num_dim"]]):
            column = [n[1 + axis] for n in nodes]
            expected = facts["coordinates"][name]
            scale = max(abs(expected["min"]), abs(expected["max"]))
            self.assert_single(expected["min"], min(column), "smallest " + name)
            self.assert_single(expected["max"], max(column), "largest " + name)
            self.assert_single(expected["mean"], sum(column) / len(column), "mean " + name, scale)
        for sample in facts["sample_nodes"]:
            node = nodes[sample["index0"]]
            self.assertEqual(sample["id"], node[0])
            self.assertEqual([single(x) for x in sample["xyz"]], [single(x) for x in node[1:1 + len(sample["xyz"])]])

        total = 0
        for block in facts["blocks"]:
            label, first = self.label(block), block["first_element_index0"]
            members = elements[first:first + block["num_elem"]]
            self.assertEqual({label}, {e[1] for e in members})
            self.assertEqual(sorted(e[0] for e in members),
                             sorted(instance["elementSets"][self.name_of(block, "block_")]))
            self.check_order(block, label, members[0][2], block["first_connectivity"], node_labels)
            self.check_order(block, label, members[-1][2], block["last_connectivity"], node_labels)
            total += block["connectivity_sum"]
        place = {label: i + 1 for i, label in enumerate(node_labels)}
        self.assertEqual(total, sum(place[n] for e in elements for n in e[2]))

        for node_set in facts.get("node_sets") or []:
            found = [place[n] for n in instance["nodeSets"][self.name_of(node_set, "nodelist_")]]
            self.assertEqual(node_set["sum"], sum(found))
            self.assertTrue(set(node_set["first5"]) <= set(found))
            for corner, choose in zip((0, -1), (min, max)):
                if "bounding_box" in node_set:
                    for axis, bound in enumerate(node_set["bounding_box"][corner]):
                        value = choose(coordinates[node_labels[n - 1]][axis] for n in found)
                        self.assertEqual(single(bound), single(value))

        element_place = {label: i + 1 for i, label in enumerate(self.element_labels)}
        for side_set in facts.get("side_sets") or []:
            pairs = [(element_place[e], self.side_of(elements[element_place[e] - 1][1], face))
                     for e, face in instance["surfaces"][self.name_of(side_set, "surface_")]]
            self.assertEqual(side_set["sum_elements"], sum(e for e, _ in pairs))
            self.assertEqual(side_set["sum_sides"], sum(s for _, s in pairs))
            for pair in zip(side_set["first5_elements"], side_set["first5_sides"]):
                self.assertIn(pair, pairs)

    def side_of(self, label, face):
        """The side number of the file for a face number of the library."""
        if label.startswith("SHELL"):
            return {1001: 1, 1002: 2}.get(face, face - 11 + 3)
        return face - 10

    def check_order(self, block, label, found, theirs, node_labels):
        """Corners stay in place; every other node sits between the corners that the type says."""
        theirs = [node_labels[n - 1] for n in theirs]
        middles = MIDDLES.get(label, [])
        corners = len(found) - len(middles)
        self.assertEqual(theirs[:corners], found[:corners], block["id"])
        self.assertEqual(sorted(theirs), sorted(found))
        observed = block.get("observed_position_of_non_corner_nodes")
        if not middles or not observed:
            return
        between = {}
        for place, what in observed.items():
            ends = tuple(what["mean_of_corners"])
            key = HEX_DIAGONALS.get(ends) if label == "HEX27" else None
            between[int(place)] = set(key if key else (n - 1 for n in ends))
        for i, middle in enumerate(middles):
            place = theirs.index(found[corners + i]) + 1
            self.assertEqual(set(middle), between[place], "%s node %d" % (label, corners + i + 1))

    def rows(self, field, position, frame, cache):
        key = field, position, frame
        if key not in cache:
            cache[key] = self.values(self.target, field, "--position", position, "--frame", frame)
        return cache[key]

    def check_statistics(self, expected, column, what):
        scale = max(abs(expected["min"]), abs(expected["max"]))
        self.assert_single(expected["min"], min(column), what + " min")
        self.assert_single(expected["max"], max(column), what + " max")
        self.assert_single(expected["mean"], sum(column) / len(column), what + " mean", scale)

    def block_column(self, variable, block, frame, cache):
        """One value an element of a block, in the order of the file; None for the mirror of another component."""
        place = self.place_of(variable, block["id"])
        if place is None:
            return None
        field, component, point = place
        key = "by label", field, point, frame
        if key not in cache:
            rows = self.rows(field, "CENTROID" if point is None else "INTEGRATION_POINT", frame, cache)
            chosen = [row for row in rows if point is None or row["point"] == point]
            cache[key] = {row["element"]: row["data"] for row in chosen}
            self.assertEqual(len(chosen), len(cache[key]))
        first = block["first_element_index0"]
        return [cache[key][label][component] for label in self.element_labels[first:first + block["num_elem"]]]

    def check_last_step(self):
        facts, last, cache = self.facts, self.facts["num_time_steps"] - 1, {}
        for variable, expected in (facts.get("nodal_last_step") or {}).items():
            place = self.nodal_place_of(variable)
            if place is None:
                self.assertRegex(variable, "_(2_1|3_1|3_2)$")  # the mirror of another
                continue
            rows = self.rows(place[0], "NODAL", last, cache)
            column = [row["data"][place[1]] for row in rows]
            self.assertEqual(facts["num_nodes"], len(column))
            self.check_statistics(expected, column, variable)
            at = {row["node"]: row["data"][place[1]] for row in rows}
            for sample, value in zip(facts["sample_nodes"], expected["at_sample_nodes"]):
                self.assert_single(value, at[sample["id"]], variable)
            self.assertEqual({self.stem + "-1"}, {row["instance"] for row in rows})
        blocks = {str(b["id"]): b for b in facts["blocks"]}
        for variable, expected in (facts.get("element_last_step") or {}).items():
            self.assertEqual(sorted(map(str, blocks_of(facts)[variable])), sorted(expected), variable)
            for block, statistics in expected.items():
                column = self.block_column(variable, blocks[block], last, cache)
                if column is None:
                    self.assertRegex(variable, r"_[478]_\d$")  # 21 31 32: the mirrors of others
                    continue
                self.check_statistics(statistics, column, variable)
                self.assert_single(statistics["first"], column[0], variable)
                self.assert_single(statistics["last"], column[-1], variable)
        self.check_sets(last, cache)

    def check_sets(self, last, cache):
        """Sets of one variable stand one after the other, in the order of the file."""
        for kind, position, member in (("node_set", "NODAL", "node"), ("side_set", "WHOLE_ELEMENT", "element")):
            for variable, expected in (self.facts.get(kind + "_last_step") or {}).items():
                rows = list(self.rows(variable, position, last, cache))
                for entity in self.sets_with(kind, variable):
                    mine, rows = rows[:entity["count"]], rows[entity["count"]:]
                    statistics = expected[str(entity["id"])]
                    self.check_statistics(statistics, [row["data"][0] for row in mine], variable)
                    total = entity["sum"] if kind == "node_set" else entity["sum_elements"]
                    labels = [row[member] for row in mine]
                    if self.facts["node_id_map" if kind == "node_set" else "element_id_map"]["identity"]:
                        self.assertEqual(total, sum(labels), variable)
                self.assertEqual([], rows)

    def check_histories(self):
        histories, cache = self.facts.get("histories") or {}, {}
        blocks = {b["id"]: b for b in self.facts["blocks"]}
        for place, step in enumerate(histories.get("steps_index0", [])):
            for history in histories.get("nodal", []):
                field, component = self.nodal_place_of(history["variable"])
                rows = self.rows(field, "NODAL", step, cache)
                self.assert_single(history["values"][place], rows[history["node_index0"]]["data"][component],
                                   "%s at step %d" % (history["variable"], step))
            for history in histories.get("element", []):
                column = self.block_column(history["variable"], blocks[history["block_id"]], step, cache)
                if column is not None:
                    self.assert_single(history["values"][place], column[history["element_in_block_index0"]],
                                       "%s at step %d" % (history["variable"], step))


def expected(folder):
    try:
        with open(os.path.join(folder, "expected.json")) as stream:
            return json.load(stream)
    except FileNotFoundError:
        return {"files": {}}


def test_of(name, facts, fetch):
    def test(self):
        with tempfile.TemporaryDirectory() as source, tempfile.TemporaryDirectory() as folder:
            self.check_file(fetch(name, source), facts, folder)
    return test


def main():
    argument = sys.argv.pop(1) if len(sys.argv) > 1 and sys.argv[1] in ("--large", "--left-out") else None
    kept, large = expected(programs.EXODUS), expected(LARGE)["files"]
    names = kept["leftOut"] if argument else list(kept["files"])
    missing = [name for name in names if name not in large] if argument else []
    if missing:
        print("LEFT OUT of the comparison with other programs' results, as %r does not have them: %s"
              % (LARGE, ", ".join(missing)))
    if argument == "--left-out":
        return
    for name in names:
        if name not in missing:
            method = "test_" + "".join(c if c.isalnum() else "_" for c in name)
            facts, fetch = ((large[name], lambda name, folder: os.path.join(LARGE, name)) if argument
                            else (kept["files"][name], programs.exodus_file))
            setattr(ExpectedTest, method, test_of(name, facts, fetch))
    if len(missing) == len(names):
        sys.exit(77)
    programs.main()


if __name__ == "__main__":
    main()
