#!/usr/bin/env python3
"""What layout-1.yld has to say, worked out from what its maker was told to write and from nothing that was read back:

    tests/data/yld/expect_layout_1.py > tests/data/yld/layout-1.json
"""

import json

CELLS = range(4)
NODES = range(1, 21)

# A row of four bricks along the first axis; each layer has its corners in the order (0,0) (1,0) (1,1) (0,1).
bar = {
    "name": "bar-1", "space": 0,
    "nodes": [[4 * layer + corner + 1, layer, int(corner in (1, 2)), int(corner in (2, 3))]
              for layer in range(5) for corner in range(4)],
    "elements": [[cell + 1, "HEX8", [4 * cell + corner + 1 for corner in range(8)]] for cell in CELLS],
    "nodeSets": {"some nodes": list(NODES)}, "elementSets": {"some elements": [1, 2, 3, 4]},
    "surfaces": {"face": [[1, 11], [2, 11], [3, 11], [4, 11]]},
}
# A unit square, a quarter turn about the third axis, then 5 along the first: (x, y, z) comes to (5 - y, x, z).
plate = {
    "name": "plate-1", "space": 0,
    "nodes": [[10, 5, 0, 0], [20, 5, 1, 0], [30, 4, 1, 0], [40, 4, 0, 0]],
    "elements": [[7, "SHELL4", [10, 20, 30, 40]]],
    "nodeSets": {}, "elementSets": {"of the instance": [7]}, "surfaces": {},
}


def value(instance, position, data, **where):
    return dict(where, instance=instance, position=position, data=data)


def counted(count, width, first):
    """Rows whose components count up from a number."""
    return [[first + i * width + c for c in range(width)] for i in range(count)]


def at_points(instance, elements, rows, **more):
    """The rows of elements, a row a point."""
    each = len(rows) // len(elements)
    return [value(instance, "INTEGRATION_POINT", row, element=elements[i // each], point=i % each + 1, **more)
            for i, row in enumerate(rows)]


fields = {}
for step in ("load", "unload"):
    for increment in (1, 2, 3):
        fields["%s %d U" % (step, increment - 1)] = [
            value("bar-1", "NODAL", [i * increment + c for c in range(3)], node=n) for i, n in enumerate(NODES)]
        fields["%s %d E" % (step, increment - 1)] = at_points("bar-1", [1, 2, 3, 4], [[i] for i in range(32)])
# The nodes of the third and of the first brick.
corners = [9, 10, 11, 12, 13, 14, 15, 16, 1, 2, 3, 4, 5, 6, 7, 8]
fields.update({
    "kinds 0 S": at_points("bar-1", [1, 2], counted(16, 6, 1)),
    "kinds 0 SS": at_points("plate-1", [7], counted(4, 3, 1), sectionPoint=1)
                  + at_points("plate-1", [7], counted(4, 3, 13), sectionPoint=2),
    "kinds 0 P": [value("plate-1", "CENTROID", [0.0, 0.1, 0.2, 0.3], element=7)],
    "kinds 0 D": [value("bar-1", "NODAL", [0.1 * (3 * i + c) for c in range(3)], node=n)
                  for i, n in enumerate((4, 2, 3))],
    "kinds 0 EN": [value("bar-1", "ELEMENT_NODAL", [5 + i], node=n, element=3 if i < 8 else 1)
                   for i, n in enumerate(corners)],
    "kinds 0 F": at_points("bar-1", [1, 2, 3, 4], counted(32, 1, 7)),
    "kinds 0 N": [value("bar-1", "NODAL", row, node=n) for n, row in zip(NODES, counted(20, 3, 9))],
    "kinds 0 K": [value("plate-1", "WHOLE_ELEMENT", [1, 2, 3, 4, 5, 6], element=7)],
    "kinds 0 Y": [value("plate-1", "CENTROID", [1, 2, 3, 4, 5, 6], element=7)],
    "kinds 0 W": [value("", "WHOLE_MODEL", [42])],
})

curves = {}
for step in ("load", "unload"):
    for region in ("node", "point", "element", "set", "model", "late"):
        for output in ("V1", "V2"):
            # Two of them went on after the save.
            pairs = 70 if output == "V1" and region in ("node", "model") else 50
            curves["%s/%s/%s" % (step, region, output)] = [[0.25 * i, i] for i in range(pairs)]
curves["kinds/loaded/V"] = [[0.5, 2]]

lines = [
    "global job: the whole of it",
    "inputs: text of the model, text of the job",
    "sectors: 6",
    "exited with error: 1",
    "user time: 1.5",
    "job history: 0 2 1 0 1 0 0",
]
for name in ("even", "ragged"):
    lines.append("curve %s: points.txt, x, legend" % name)
    for i in range(20):
        row = ["%d" % i, "%g" % (0.5 * i), "1"][:2 if name == "even" else i % 4]
        lines.append("curve %s %d:%s" % (name, i, "".join(" " + number for number in row)))
lines += [
    "inputs of the model: text of the plate, text of the assembly, text of the placed plate",
    "part of plate-1: plate",
    "section of plate-1: a shell",
    "section point: 1 bottom",
    "section point: 2 top",
    "node of the assembly: 1 0 0 0",
    "node of the assembly: 2 0 0 5",
    "element of the assembly: 3 CONN3D2 1 2",
    "surface both: bar-1 1 13",
    "surface both: bar-1 2 14",
    "surface both: plate-1 7 1001",
    "fixed is cylindrical: 1",
    "axis of fixed: 0 0 0",
    "axis of fixed: 1 0 0",
    "axis of fixed: 0 1 0",
    "axis of fixed: 0 0 1",
    "step load: a step, after , input ",
    "step unload: a step, after load, input ",
    "step modes: of vibration, after unload, input text of the step",
    "step kinds: of fields, after modes, input ",
    # The steps that it was put after hold no results, so they are none of these.
    "step sub: , after kinds, input ",
    "mode: 3 imaginary 0 with frame 1",
    "mode: 3 imaginary 1 with frame 0",
    "load case: pull",
    "S, imaginary: -99 -98 -97 -96 -95 -94",
    "D, imaginary:" + "".join(" %.9g" % (0.1 * i) for i in range(9)),
    "sub, dofs: 1 2 3 and 4, modes 1 2 5",
    # Parts and instances, and what the assembly has itself.
    "nodes %d, elements %d, datums 4, steps 5, frames %d, pairs 2, fields %d"
    % (2 * 20 + 2 * 4 + 2, 2 * 4 + 2 * 1 + 1, 6 + 2 + 1, 6 * 2 + 10),
    # With imaginary halves in S and D, and systems of four numbers in S and P.
    "values %d, bulk %d, regions %d, curves %d, points %d, rows 40, dofs 4, load cases 1"
    % (6 * (20 + 32) + 16 + 8 + 1 + 3 + 16 + 32 + 20 + 1 + 1 + 1,
       6 * (20 * 3 + 32) + 16 * (2 * 6 + 4) + 8 * 3 + (4 + 4) + 2 * 3 * 3 + 16 + 32 + 20 * 3 + 6 + 6 + 1,
       2 * 6 + 2, 2 * 12 + 2, 2 * (12 * 50 + 2 * 20) + 3 + 1),
]

# Rows as they lie in the tables: settings of steps that no accessor gives.
rows = {
    'SELECT "argument 1", "argument 2", "argument 3", "argument 4", "argument 5", "argument 6", "argument 7", '
    '"argument 8", "argument 9", "argument 10", "argument 11" FROM stpC_StaticStep':
        [[2.5, "ON", 17, 0.125, 1e-9, 0.75, "DAMPING", 2e-4, 1, "FIXED", "STEP"]],
    'SELECT "argument 1" FROM stpC_StaticLinearPerturbationStep': [["ITERATIVE"]],
    'SELECT "argument 1", "argument 4", "argument 5", "argument 10", "argument 12" FROM stpC_HeatTransferStep':
        [["TRANSIENT", 1.5, -3, 6.5, "DIRECT"]],
    'SELECT "argument 2", "argument 3", "argument 4" FROM stpC_MassScaling ORDER BY oid':
        [[2.0, 0.5, 3], [3.0, 0.25, 4]],
    # The store has the second and the fourth argument in each other's place.
    'SELECT "argument 1", "argument 2", "argument 3", "argument 4" FROM stpC_Restart': [[3, 0, 1, 7]],
    'SELECT "section name", "offset" FROM prtC_SectionAssignment ORDER BY "offset"': [["steel", 0.125], ["steel", 0.5]],
    'SELECT "first datum name", "first angle", "second same as first", "second datum name", "second angle" '
    'FROM prtC_ConnectorOrientation ORDER BY oid': [["fixed", 10.0, 1, "", 0.0], ["fixed", 10.0, 0, "fixed", 20.0]],
    'SELECT name FROM axs_DatumCsys ORDER BY name': [["circle"], ["fixed"], ["one"], ["three"]],
    "SELECT type, name, content FROM sto_ApiExtension": [[1, "fatigue", "cycles"]],
    # When it was made, once in each of the first two steps, before the fields, and at the end.
    "SELECT value FROM header WHERE name = 'save count'": [[5]],
    "PRAGMA application_id": [[0x796C6431]],
    "PRAGMA user_version": [[891]],
    "PRAGMA page_size": [[16384]],
    "PRAGMA integrity_check": [["ok"]],
}

body = {"mesh": [bar, plate], "fields": fields, "curves": curves, "lines": lines, "rows": rows}
print("{")
for i, (key, part) in enumerate(body.items()):
    separator = "[]" if isinstance(part, list) else "{}"
    entries = ([json.dumps(entry) for entry in part] if isinstance(part, list)
               else ["%s: %s" % (json.dumps(name), json.dumps(entry)) for name, entry in part.items()])
    print("%s: %s\n%s\n%s%s" % (json.dumps(key), separator[0], ",\n".join(entries), separator[1],
                               "," if i + 1 < len(body) else ""))
print("}")
