"""Every Exodus file of the collection, imported and looked into, against facts that another reader found in it."""

import json
import os
import sys
import tempfile
import unittest

import programs
from programs import run, single

DATA = os.environ.get("YLD_DATA") or os.environ.get("YLD_DEFAULT_DATA", "")

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

# Where the nodes behind the corners sit, in the order of the library: the corners (from 0) that each is the middle of.
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


def fields_of(facts):
    """The fields that the variables of a file make: name to (type, components, nodal?, element?)."""
    fields = {}
    nodal, element = facts.get("nodal_variables") or [], facts.get("element_variables") or []
    axes = "xyz"[:facts["num_dim"]]
    for name in nodal:
        stem = name[:-2]
        parts = [stem + "_" + axis for axis in axes]
        if name in parts and all(part in nodal for part in parts):
            fields[stem] = ("VECTOR", parts, True, False)
        else:
            fields[name] = ("SCALAR", [], True, False)
    for name in element:
        stem = name[:-3]
        parts = [next((stem + "_" + p for p in pair if stem + "_" + p in element), None) for pair in TENSOR_ORDER]
        if name in parts and None not in parts:
            fields[stem] = ("TENSOR_3D_FULL", parts, False, True)
        else:
            fields[name] = ("SCALAR", [], name in fields, True)
    return fields


class ExpectedTest(programs.ProgramTest):
    def check_file(self, name, facts, folder):
        target = os.path.join(folder, "imported.yld")
        if os.path.exists(target):
            os.remove(target)
        done = run("yld", "import", os.path.join(DATA, name), target)
        self.assertEqual(0, done.returncode, done.stderr)
        self.assertEqual(["imported.yld"], os.listdir(folder))
        self.check_notes(facts, done.stderr)
        self.target, self.facts = target, facts
        self.stem = os.path.splitext(os.path.basename(name))[0]
        info = self.info(target)
        self.check_model(info)
        self.check_steps(info)
        self.check_mesh()
        if facts["num_time_steps"]:
            self.check_last_step()
            self.check_histories()
            self.check_globals()

    def check_notes(self, facts, text):
        left_out = {"global variable": [],
                    "node set variable": facts.get("node_set_variables"),
                    "side set variable": facts.get("side_set_variables")}
        for what, names in left_out.items():
            if names:
                self.assertIn("%d %s" % (len(names), what), text)
            else:
                self.assertNotIn(what, text)

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
        return ELEMENT_TYPES[block["elem_type"].upper(), block["nodes_per_elem"], self.facts["num_dim"]]

    def blocks_with(self, variable):
        facts = self.facts
        column = facts["element_variables"].index(variable)
        return [b for b, row in zip(facts["blocks"], facts["element_truth_table"]) if row[column]]

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
            for name, (kind, components, at_nodes, at_elements) in expected.items():
                self.assertEqual(kind, found[name]["type"], name)
                self.assertEqual(components, found[name]["components"], name)
                positions = {}
                if at_nodes:
                    positions["NODAL"] = facts["num_nodes"]
                if at_elements:
                    variable = components[0] if components else name
                    positions["CENTROID"] = sum(b["num_elem"] for b in self.blocks_with(variable))
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
        """The side number of the file behind a face number of the library."""
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

    def find(self, variable):
        """Field and component of a variable."""
        for name, (_, components, _, _) in fields_of(self.facts).items():
            if variable in components:
                return name, components.index(variable)
        return variable, 0

    def column(self, variable, position, frame, cache):
        field, component = self.find(variable)
        key = field, position, frame
        if key not in cache:
            cache[key] = self.values(self.target, field, "--position", position, "--frame", frame)
        return cache[key], component

    def check_statistics(self, expected, column, what):
        scale = max(abs(expected["min"]), abs(expected["max"]))
        self.assert_single(expected["min"], min(column), what + " min")
        self.assert_single(expected["max"], max(column), what + " max")
        self.assert_single(expected["mean"], sum(column) / len(column), what + " mean", scale)

    def block_rows(self, variable, rows):
        """Rows by block: blocks in the order of the file, each with all its elements."""
        by_label = {row["element"]: row for row in rows}
        self.assertEqual(len(rows), len(by_label))
        blocks = {}
        for block in self.blocks_with(variable):
            first = block["first_element_index0"]
            labels = self.element_labels[first:first + block["num_elem"]]
            blocks[str(block["id"])] = [by_label.pop(label) for label in labels]
        self.assertEqual({}, by_label)
        return blocks

    def check_last_step(self):
        facts, last, cache = self.facts, self.facts["num_time_steps"] - 1, {}
        for variable, expected in (facts.get("nodal_last_step") or {}).items():
            rows, component = self.column(variable, "NODAL", last, cache)
            column = [row["data"][component] for row in rows]
            self.assertEqual(facts["num_nodes"], len(column))
            self.check_statistics(expected, column, variable)
            at = {row["node"]: row["data"][component] for row in rows}
            for sample, value in zip(facts["sample_nodes"], expected["at_sample_nodes"]):
                self.assert_single(value, at[sample["id"]], variable)
            self.assertEqual({self.stem + "-1"}, {row["instance"] for row in rows})
        cache.clear()
        for variable, expected in (facts.get("element_last_step") or {}).items():
            rows, component = self.column(variable, "CENTROID", last, cache)
            blocks = self.block_rows(variable, rows)
            self.assertEqual(sorted(expected), sorted(blocks), variable)
            for block, statistics in expected.items():
                column = [row["data"][component] for row in blocks[block]]
                self.check_statistics(statistics, column, variable)
                self.assert_single(statistics["first"], column[0], variable)
                self.assert_single(statistics["last"], column[-1], variable)

    def check_histories(self):
        histories, cache = self.facts.get("histories") or {}, {}
        for place, step in enumerate(histories.get("steps_index0", [])):
            for history in histories.get("nodal", []):
                rows, component = self.column(history["variable"], "NODAL", step, cache)
                self.assert_single(history["values"][place], rows[history["node_index0"]]["data"][component],
                                   "%s at step %d" % (history["variable"], step))
            for history in histories.get("element", []):
                rows, component = self.column(history["variable"], "CENTROID", step, cache)
                block = self.block_rows(history["variable"], rows)[str(history["block_id"])]
                self.assert_single(history["values"][place],
                                   block[history["element_in_block_index0"]]["data"][component],
                                   "%s at step %d" % (history["variable"], step))


def test_of(name, facts):
    def test(self):
        with tempfile.TemporaryDirectory() as folder:
            self.check_file(name, facts, folder)
    return test


if __name__ == "__main__":
    if not os.path.exists(os.path.join(DATA, "expected.json")):
        print("no Exodus files at %r; YLD_DATA tells where they are" % DATA)
        sys.exit(1 if os.environ.get("CI") else 77)
    with open(os.path.join(DATA, "expected.json")) as stream:
        collection = json.load(stream)["files"]
    for file_name, its_facts in collection.items():
        method = "test_" + "".join(c if c.isalnum() else "_" for c in file_name)
        setattr(ExpectedTest, method, test_of(file_name, its_facts))
    programs.main()
