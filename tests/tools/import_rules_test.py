"""What the import makes of files with one oddity each; docs/tools.md has the rules."""

import json
import os
import subprocess
import tempfile
import time

import exodus_writer
import programs
from programs import run

CUBE = [(x, y, z) for z in (0.0, 1.0) for y in (0.0, 1.0) for x in (0.0, 1.0)]
HEX = [1, 2, 4, 3, 5, 6, 8, 7]
SQUARE = [(0.0, 0.0), (1.0, 0.0), (1.0, 1.0), (0.0, 1.0)]


class ImportTest(programs.ProgramTest):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)

    def path(self, name):
        return os.path.join(self.folder.name, name)

    def imported(self, *arguments, **options):
        """Path of the database made of a file; what the import said is in self.said."""
        source, target = self.path("model.e"), self.path("model.yld")
        exodus_writer.write(source, *arguments, **options)
        done = run("yld", "import", source, target)
        self.assertEqual(0, done.returncode, done.stderr)
        self.assertEqual("", done.stdout)
        self.said = done.stderr
        return target

    def mesh(self, path):
        done = run("mesh_dump", path)
        self.assertEqual(0, done.returncode, done.stderr)
        return json.loads(done.stdout)[0]

    def fields(self, info, frame=-1):
        return {f["name"]: f for f in info["steps"][0]["frames"][frame]["fields"]}

    def hexes(self, **options):
        return self.imported(3, CUBE, [{"id": 7, "type": "HEX8", "connectivity": [HEX]}], **options)

    def test_part_instance_and_header(self):
        info = self.info(self.hexes(title="the title"))
        self.assertEqual("the title", info["title"])
        self.assertEqual("imported from model.e", info["description"])
        self.assertEqual(["model"], [p["name"] for p in info["parts"]])
        self.assertEqual(["model-1"], [i["name"] for i in info["instances"]])
        self.assertEqual({"nodeSets": [], "elementSets": [], "surfaces": []}, info["assembly"])
        self.assertEqual("", self.said)
        self.assertEqual(["model.e", "model.yld"], sorted(os.listdir(self.folder.name)))

    def test_keys_are_the_named_ones(self):
        info = self.info(self.hexes(times=[0.5], nodal={"t": [[1.0] * 8]}))
        self.assertEqual(["version", "title", "description", "parts", "instances", "assembly", "steps"], list(info))
        for entity in info["parts"] + info["instances"]:
            self.assertEqual(["name", "nodes", "elements", "elementClasses", "nodeSets", "elementSets", "surfaces"],
                             list(entity))
            self.assertEqual(["type", "elements", "nodesPerElement"], list(entity["elementClasses"][0]))
            self.assertEqual(["name", "size"], list(entity["elementSets"][0]))
        step = info["steps"][0]
        self.assertEqual(["name", "procedure", "domain", "timePeriod", "frames"], list(step))
        self.assertEqual(["index", "increment", "value", "description", "fields"], list(step["frames"][0]))
        self.assertEqual(["name", "type", "components", "positions"], list(step["frames"][0]["fields"][0]))
        self.assertEqual([{"position": "NODAL", "values": 8}], step["frames"][0]["fields"][0]["positions"])

    def test_no_times_no_step(self):
        self.assertEqual([], self.info(self.hexes())["steps"])

    def test_a_time_without_variables_makes_an_empty_frame(self):
        step, = self.info(self.hexes(times=[0.0]))["steps"]
        self.assertEqual(1.0, step["timePeriod"])
        self.assertEqual([{"index": 0, "increment": 0, "value": 0, "description": "time step 1", "fields": []}],
                         step["frames"])

    def test_unnamed_entities_are_named_by_number(self):
        info = self.info(self.hexes(node_sets=[{"id": 4, "nodes": [1, 2]}], side_sets=[{"id": 9, "sides": [(1, 6)]}]))
        for entity in info["parts"] + info["instances"]:
            self.assertEqual([{"name": "block_7", "size": 1}], entity["elementSets"])
            self.assertEqual([{"name": "nodelist_4", "size": 2}], entity["nodeSets"])
            self.assertEqual([{"name": "surface_9", "size": 1}], entity["surfaces"])

    def test_two_sets_of_one_name_stay_two(self):
        info = self.info(self.hexes(node_sets=[{"id": 1, "nodes": [1], "name": "s"}, {"id": 2, "nodes": [2, 3], "name": "s"}],
                                    side_sets=[{"id": 1, "sides": [(1, 1)], "name": "s"}]))
        self.assertEqual({"s": 1, "s_2": 2}, {s["name"]: s["size"] for s in info["instances"][0]["nodeSets"]})
        self.assertEqual([{"name": "s", "size": 1}], info["instances"][0]["surfaces"])

    def test_blocks_of_one_type_stay_apart(self):
        nodes = CUBE + [(x + 1, y, z) for x, y, z in CUBE]
        path = self.imported(3, nodes, [{"id": 1, "type": "hex", "connectivity": [HEX], "name": "left"},
                                        {"id": 2, "type": "HEX8", "connectivity": [[n + 8 for n in HEX]], "name": "right"}])
        part, = self.info(path)["parts"]
        self.assertEqual([{"type": "HEX8", "elements": 1, "nodesPerElement": 8}] * 2, part["elementClasses"])
        self.assertEqual({"left": 1, "right": 1}, {s["name"]: s["size"] for s in part["elementSets"]})

    def test_labels_come_from_the_maps(self):
        path = self.hexes(node_ids=[10, 20, 30, 40, 50, 60, 70, 80], element_ids=[77],
                          node_sets=[{"id": 1, "nodes": [8, 1]}], side_sets=[{"id": 1, "sides": [(1, 2)]}],
                          times=[1.0], nodal={"t": [[1.0 * i for i in range(8)]]}, element={"e": {7: [[5.0]]}})
        mesh = self.mesh(path)
        self.assertEqual([77, "HEX8", [10, 20, 40, 30, 50, 60, 80, 70]], mesh["elements"][0])
        self.assertEqual({"nodelist_1": [10, 80]}, mesh["nodeSets"])
        self.assertEqual({"surface_1": [[77, 12]]}, mesh["surfaces"])
        self.assertEqual([(10 * i + 10, [i]) for i in range(8)], [(v["node"], v["data"]) for v in self.values(path, "t")])
        self.assertEqual([{"instance": "model-1", "position": "CENTROID", "element": 77, "data": [5]}],
                         self.values(path, "e"))

    def test_vectors_in_space(self):
        names = ["disp_x", "disp_y", "disp_z", "DISPLX", "DISPLY", "DISPLZ", "velx", "vely", "velz"]
        path = self.hexes(times=[1.0], nodal={n: [[float(i)] * 8] for i, n in enumerate(names)})
        fields = self.fields(self.info(path))
        self.assertEqual({"disp": names[:3], "DISPL": names[3:6], "vel": names[6:]},
                         {n: f["components"] for n, f in fields.items()})
        self.assertEqual({"VECTOR"}, {f["type"] for f in fields.values()})
        self.assertEqual([3, 4, 5], self.values(path, "DISPL")[0]["data"])

    def test_no_vector_of_two_in_space_or_of_mixed_case(self):
        names = ["a_x", "a_y", "b_X", "b_y", "b_z"]
        fields = self.fields(self.info(self.hexes(times=[1.0], nodal={n: [[0.0] * 8] for n in names})))
        self.assertEqual(set(names), set(fields))
        self.assertEqual({"SCALAR"}, {f["type"] for f in fields.values()})

    def test_rows_of_a_nodal_tensor_are_no_vectors(self):
        names = ["s_" + p for p in ("xx", "xy", "xz", "yx", "yy", "yz", "zx", "zy", "zz")]
        fields = self.fields(self.info(self.hexes(times=[1.0], nodal={n: [[0.0] * 8] for n in names})))
        self.assertEqual(set(names), set(fields))

    def test_vectors_in_the_plane(self):
        path = self.imported(2, SQUARE, [{"id": 1, "type": "QUAD", "connectivity": [[1, 2, 3, 4]]}], times=[1.0],
                             nodal={"disp_y": [[2.0] * 4], "disp_x": [[1.0] * 4]})
        field = self.fields(self.info(path))["disp"]
        self.assertEqual(("VECTOR", ["disp_x", "disp_y"]), (field["type"], field["components"]))
        self.assertEqual([1, 2], self.values(path, "disp")[0]["data"])

    def test_tensor_components_are_sorted(self):
        pairs = ["zx", "yy", "xx", "XY", "yz", "zz"]
        path = self.hexes(times=[1.0], element={"s" + p: {7: [[float(i)]]} for i, p in enumerate(pairs)})
        field = self.fields(self.info(path))["s"]
        self.assertEqual("TENSOR_3D_FULL", field["type"])
        self.assertEqual(["sxx", "syy", "szz", "sXY", "szx", "syz"], field["components"])
        self.assertEqual([2, 1, 5, 3, 0, 4], self.values(path, "s")[0]["data"])

    def test_tensor_with_both_shears_stays_scalar(self):
        names = ["s_" + p for p in ("xx", "yy", "zz", "xy", "yx", "yz", "zx")]
        fields = self.fields(self.info(self.hexes(times=[1.0], element={n: {7: [[0.0]]} for n in names})))
        self.assertEqual(set(names), set(fields))

    def test_tensor_missing_in_a_block_stays_scalar(self):
        nodes = CUBE + [(x + 1, y, z) for x, y, z in CUBE]
        names = ["s_" + p for p in ("xx", "yy", "zz", "xy", "yz", "zx")]
        element = {n: {1: [[0.0]], 2: [[0.0]]} for n in names}
        del element["s_zz"][2]
        path = self.imported(3, nodes, [{"id": 1, "type": "HEX", "connectivity": [HEX]},
                                        {"id": 2, "type": "HEX", "connectivity": [[n + 8 for n in HEX]]}],
                             times=[1.0], element=element)
        self.assertEqual(set(names), set(self.fields(self.info(path))))
        self.assertIn('tensor "s" stay scalars', self.said)
        self.assertEqual([1], [v["element"] for v in self.values(path, "s_zz")])
        self.assertEqual([1, 2], [v["element"] for v in self.values(path, "s_xx")])

    def test_a_stem_that_is_a_name_stays_apart(self):
        names = ["disp_x", "disp_y", "disp_z", "disp"]
        fields = self.fields(self.info(self.hexes(times=[1.0], nodal={n: [[0.0] * 8] for n in names})))
        self.assertEqual(set(names), set(fields))
        self.assertIn('yld: note: the components of vector "disp" stay scalars', self.said)

    def test_one_name_at_nodes_and_elements_is_one_field(self):
        path = self.hexes(times=[1.0], nodal={"t": [[1.0] * 8]}, element={"t": {7: [[2.0]]}})
        field = self.fields(self.info(path))["t"]
        self.assertEqual([{"position": "NODAL", "values": 8}, {"position": "CENTROID", "values": 1}], field["positions"])
        self.assertEqual([2], self.values(path, "t", "--position", "CENTROID")[0]["data"])
        self.assertEqual(9, len(self.values(path, "t")))

    def test_numbers_that_are_none(self):
        nan, inf = float("nan"), float("inf")
        path = self.hexes(times=[1.0], nodal={"t": [[nan, inf, -inf, 1e300, 0.1, -0.0, 1e-45, 3.0]]})
        data = [v["data"][0] for v in self.values(path, "t")]
        self.assertEqual([None, None, None, None, 0.1, 0.0, 1e-45, 3], data)
        self.assertIn("1 values beyond the range of a float became infinite", self.said)
        rows = self.yld("values", path, "--field", "t", "--csv").splitlines()
        self.assertEqual("instance,position,node,t", rows[0])
        self.assertEqual(["nan", "inf", "-inf", "inf", "0.1", "-0", "1e-45", "3"], [r.split(",")[3] for r in rows[1:]])

    def test_global_variables_become_curves_of_the_assembly(self):
        path = self.hexes(times=[0.5, 1.0, 1.5], global_names=["energy", "dt", "energy", ""],
                          global_values=[[1.0, 0.1, 7.0, -1.0], [2.0, 0.2, 8.0, -2.0], [1e300, 0.3, 9.0, float("nan")]])
        region, = self.json("history", path, "--json")["regions"]
        self.assertEqual(("Assembly Assembly", "Output at assembly Assembly", "WHOLE_MODEL", ""),
                         tuple(region[k] for k in ("name", "description", "position", "loadCase")))
        self.assertEqual([("dt", "dt", 3), ("energy", "energy", 3), ("energy_3", "energy", 3), ("global_4", "", 3)],
                         [(o["name"], o["description"], o["pairs"]) for o in region["outputs"]])
        curves = {c["output"]: c["data"] for c in
                  self.json("history", path, "--region", "Assembly Assembly", "--json")["curves"]}
        self.assertEqual([[0.5, 0.1], [1, 0.2], [1.5, 0.3]], curves["dt"])
        self.assertEqual([[0.5, 1], [1, 2], [1.5, None]], curves["energy"])
        self.assertEqual([[0.5, 7], [1, 8], [1.5, 9]], curves["energy_3"])
        self.assertEqual([[0.5, -1], [1, -2], [1.5, None]], curves["global_4"])
        self.assertEqual("yld: note: 1 values beyond the range of a float became infinite\n", self.said)

    def test_what_is_left_out_is_named(self):
        # Without times there is no step for them.
        self.hexes(global_names=["energy", "dt"])
        self.assertEqual("yld: not imported: 2 global variables\n", self.said)

    def test_distribution_factors_are_named(self):
        path = self.hexes(node_sets=[{"id": 1, "nodes": [1, 2], "factors": [0.5, 0.5]}],
                          side_sets=[{"id": 1, "sides": [(1, 1)], "factors": [1.0] * 4}])
        self.assertEqual("yld: not imported: distribution factors\n", self.said)
        self.assertEqual(2, self.info(path)["instances"][0]["nodeSets"][0]["size"])

    def points(self, path, field, *arguments):
        return [(v["element"], v["point"], v["data"])
                for v in self.values(path, field, "--position", "INTEGRATION_POINT", *arguments)]

    def test_numbered_variables_at_integration_points(self):
        element = {"e_%d" % q: {7: [[float(q)], [10.0 * q]]} for q in range(1, 9)}
        path = self.hexes(times=[1.0, 2.0], element=element)
        field, = self.fields(self.info(path)).values()
        self.assertEqual(("e", "SCALAR", [{"position": "INTEGRATION_POINT", "values": 8}]),
                         (field["name"], field["type"], field["positions"]))
        self.assertEqual([(1, q, [q]) for q in range(1, 9)], self.points(path, "e", "--frame", "0"))
        self.assertEqual([(1, q, [10 * q]) for q in range(1, 9)], self.points(path, "e"))
        self.assertEqual("", self.said)

    def test_numbered_variables_that_fit_no_points_stay_scalars(self):
        names = ["e_%d" % q for q in range(1, 6)]
        fields = self.fields(self.info(self.hexes(times=[1.0], element={n: {7: [[1.0]]} for n in names})))
        self.assertEqual(set(names), set(fields))
        self.assertEqual([{"position": "CENTROID", "values": 1}], fields["e_5"]["positions"])

    def test_points_and_averages_by_block(self):
        # The first block has points, the second averages alone, the third two values for its one point.
        nodes = CUBE + [(x + 1, y, z) for x, y, z in CUBE]
        element = {"s": {1: [[9.0]], 2: [[8.0]]}}
        for q in range(1, 9):
            element["s_%d" % q] = {1: [[float(q)]]}
        element["s_1"][3] = [[21.0]]
        element["s_2"][3] = [[22.0]]
        path = self.imported(3, nodes, [{"id": 1, "type": "HEX", "connectivity": [HEX]},
                                        {"id": 2, "type": "HEX", "connectivity": [[n + 8 for n in HEX]]},
                                        {"id": 3, "type": "TET", "connectivity": [[1, 2, 3, 5]]}],
                             times=[1.0], element=element)
        fields = self.fields(self.info(path))
        self.assertEqual({"s", "s_1", "s_2"}, set(fields))
        self.assertEqual([(1, q, [q]) for q in range(1, 9)], self.points(path, "s"))
        self.assertEqual([(1, [9]), (2, [8])],
                         [(v["element"], v["data"]) for v in self.values(path, "s", "--position", "CENTROID")])
        self.assertEqual([(3, [22])], [(v["element"], v["data"]) for v in self.values(path, "s_2")])

    def test_tensors_at_integration_points(self):
        pairs = ["xx", "yy", "zz", "xy", "yz", "zx"]
        element = {"s_%s_%d" % (p, q): {7: [[10.0 * q + i]]} for q in range(1, 9) for i, p in enumerate(pairs)}
        path = self.hexes(times=[1.0], element=element)
        field, = self.fields(self.info(path)).values()
        self.assertEqual(("s", "TENSOR_3D_FULL"), (field["name"], field["type"]))
        self.assertEqual(["s_xx", "s_yy", "s_zz", "s_xy", "s_zx", "s_yz"], field["components"])
        self.assertEqual((1, 3, [30, 31, 32, 33, 35, 34]), self.points(path, "s")[2])

    def nine(self, mirror):
        """Row by row: component c at point q is 100 q + c, those below the diagonal as `mirror` says."""
        element = {}
        for q in range(1, 9):
            for c in range(1, 10):
                value = 100.0 * q + {4: mirror(2), 7: mirror(3), 8: mirror(6)}.get(c, c)
                element["s_%d_%d" % (c, q)] = {7: [[value]]}
        path = self.hexes(times=[1.0], element=element)
        field, = self.fields(self.info(path)).values()
        return path, field

    def test_nine_symmetric_components_are_a_tensor(self):
        path, field = self.nine(lambda c: c)
        self.assertEqual(("s", "TENSOR_3D_FULL"), (field["name"], field["type"]))
        self.assertEqual(["s_1", "s_5", "s_9", "s_2", "s_3", "s_6"], field["components"])
        self.assertEqual((1, 2, [201, 205, 209, 202, 203, 206]), self.points(path, "s")[1])

    def test_nine_other_components_are_a_matrix(self):
        path, field = self.nine(lambda c: c + 50)
        self.assertEqual(("s", "MATRIX", []), (field["name"], field["type"], field["components"]))
        self.assertEqual((1, 2, [201, 202, 203, 252, 205, 206, 253, 256, 209]), self.points(path, "s")[1])

    def test_tensors_and_matrices_at_nodes(self):
        six = {"a_" + p: [[float(i)] * 8] for i, p in enumerate(["xx", "yy", "zz", "xy", "yz", "zx"])}
        nine = {"b_%d_%d" % (r, c): [[float(10 * min(r, c) + max(r, c))] * 8] for r in (1, 2, 3) for c in (1, 2, 3)}
        path = self.hexes(times=[1.0], nodal={**six, **nine})
        self.assertEqual({"a", "b"}, set(self.fields(self.info(path))))
        self.assertEqual([0, 1, 2, 3, 5, 4], self.values(path, "a")[0]["data"])
        self.assertEqual([11, 22, 33, 12, 13, 23], self.values(path, "b")[7]["data"])

    def test_vectors_on_elements(self):
        path = self.hexes(times=[1.0], element={"q_" + a: {7: [[float(i)]]} for i, a in enumerate("xyz")})
        self.assertEqual("VECTOR", self.fields(self.info(path))["q"]["type"])
        self.assertEqual([0, 1, 2], self.values(path, "q")[0]["data"])

    def test_node_set_variables(self):
        path = self.hexes(times=[1.0, 2.0], nodal={"t": [[0.0] * 8] * 2},
                          node_sets=[{"id": 1, "nodes": [8, 2]}, {"id": 2, "nodes": [3]}, {"id": 3, "nodes": [1, 4]}],
                          of_node_sets={"p": {1: [[1.0, 2.0], [3.0, 4.0]], 3: [[5.0, 6.0], [7.0, 8.0]]},
                                        "t": {2: [[9.0], [10.0]]}})
        self.assertEqual([(8, [3]), (2, [4]), (1, [7]), (4, [8])],
                         [(v["node"], v["data"]) for v in self.values(path, "p")])
        self.assertEqual([(3, [9])], [(v["node"], v["data"]) for v in self.values(path, "t_2", "--frame", "0")])
        self.assertEqual('yld: note: variable "t" is named "t_2"\n', self.said)

    def test_side_set_variables(self):
        nodes = CUBE + [(x + 1, y, z) for x, y, z in CUBE]
        path = self.imported(3, nodes, [{"id": 1, "type": "HEX", "connectivity": [HEX, [n + 8 for n in HEX]]}],
                             side_sets=[{"id": 1, "sides": [(2, 1), (1, 3)]}, {"id": 2, "sides": [(1, 1), (1, 2), (2, 4)]}],
                             times=[1.0], of_side_sets={"p": {1: [[5.0, 6.0]], 2: [[7.0, 8.0, 9.0]]},
                                                        "q": {1: [[1.0, 2.0]]}})
        self.assertEqual([("WHOLE_ELEMENT", 2, [5]), ("WHOLE_ELEMENT", 1, [6]), ("WHOLE_ELEMENT", 1, [7]),
                          ("WHOLE_ELEMENT", 2, [9]), ("WHOLE_ELEMENT", 1, [8])],
                         [(v["position"], v["element"], v["data"]) for v in self.values(path, "p")])
        self.assertEqual([1, 2], [v["data"][0] for v in self.values(path, "q")])
        self.assertEqual('yld: note: side set variable "p" lies on the whole elements behind the sides, once for each side; '
                         'side set variable "q" lies on the whole elements behind the sides\n', self.said)

    def test_memory_is_that_of_one_field_at_one_time(self):
        # 96 megabytes of values; what is held of them is to be far less.
        numbers = [float(i) for i in range(60000)]
        source, target = self.path("large.e"), self.path("large.yld")
        times = [0.1 * i for i in range(200)]
        exodus_writer.write(source, 3, [(x, 0.0, 0.0) for x in numbers], [{"id": 1, "type": "SPHERE", "connectivity": [[1]]}],
                            times=times, nodal={"t": [numbers] * len(times)})
        process = subprocess.Popen([programs.program("yld"), "import", source, target], stdin=subprocess.DEVNULL)
        peak = 0
        while process.poll() is None:
            # The peak of the program itself: what a parent has used counts in the usage of its children.
            try:
                with open("/proc/%d/status" % process.pid) as stream:
                    lines = [line for line in stream if line.startswith("VmHWM")]
                if os.readlink("/proc/%d/exe" % process.pid).endswith("yld"):
                    peak = max([peak] + [1024 * int(line.split()[1]) for line in lines])
            except OSError:
                pass
            time.sleep(0.002)
        self.assertEqual(0, process.returncode)
        self.assertEqual([59999], self.values(target, "t", "--frame", "150")[-1]["data"])
        self.assertGreater(peak, 0)
        if "asan" not in programs.BIN:  # a sanitizer keeps freed memory back
            self.assertLess(peak, os.path.getsize(source))

    def test_element_types(self):
        line = [(float(i), 0.0, 0.0) for i in range(20)]
        cases = [("SPHERE", 1, 3, "POINTMASS"), ("BAR", 2, 3, "TRUSS2"), ("truss3", 3, 3, "TRUSS3"),
                 ("Beam2", 2, 3, "BEAM2"), ("BEAM3", 3, 3, "BEAM3"), ("TRISHELL3", 3, 3, "SHELL3"),
                 ("TRI6", 6, 3, "SHELL6"), ("QUAD", 4, 3, "SHELL4"), ("SHELL9", 9, 3, "SHELL9"),
                 ("TET", 4, 3, "TET4"), ("TETRA10", 10, 3, "TET10"), ("PYRAMID", 5, 3, "PYRAMID5"),
                 ("WEDGE", 15, 3, "WEDGE15"), ("WEDGE18", 18, 3, "WEDGE18"), ("BAR2", 2, 2, "TRUSS2D2"),
                 ("BEAM", 2, 2, "BEAM2D2"), ("TRIANGLE", 3, 2, "TRI3"), ("quad9", 9, 2, "QUAD9")]
        for name, count, dimension, label in cases:
            with self.subTest(name):
                nodes = [n[:dimension] for n in line[:count]]
                path = self.imported(dimension, nodes, [{"id": 1, "type": name, "connectivity": [list(range(1, count + 1))]}])
                self.assertEqual(label, self.info(path)["parts"][0]["elementClasses"][0]["type"])
                os.remove(path)

    def test_sides(self):
        nodes = CUBE[:4] + [(5.0, 5.0, 5.0), (6.0, 5.0, 5.0)]
        path = self.imported(3, nodes, [{"id": 1, "type": "SHELL4", "connectivity": [[1, 2, 4, 3]]},
                                        {"id": 2, "type": "BAR2", "connectivity": [[5, 6]]}],
                             side_sets=[{"id": 1, "sides": [(1, 1), (1, 2), (1, 3), (1, 6), (2, 1), (2, 2)]}])
        self.assertEqual([[1, 11], [1, 14], [1, 1001], [1, 1002], [2, 11]],
                         sorted(self.mesh(path)["surfaces"]["surface_1"]))
        self.assertEqual("yld: not imported: 1 side without a counterpart\n", self.said)

    def test_sides_in_the_plane(self):
        nodes = SQUARE + [(2.0, 0.0), (3.0, 0.0)]
        path = self.imported(2, nodes, [{"id": 1, "type": "QUAD4", "connectivity": [[1, 2, 3, 4]]},
                                        {"id": 2, "type": "BEAM", "connectivity": [[5, 6]]}],
                             side_sets=[{"id": 1, "sides": [(1, 1), (1, 4)]}])
        self.assertEqual([[1, 11], [1, 14]], sorted(self.mesh(path)["surfaces"]["surface_1"]))


if __name__ == "__main__":
    programs.main()
