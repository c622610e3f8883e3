# Writes what VTK says about each cell: parametric coordinates of the nodes, edges, faces, and shape functions with
# derivatives at random points. The tests read the file; VTK itself is needed only to write it again:
#
#     python3 vtk_shapes.py > vtk_shapes.txt      (Debian package python3-vtk9)
import random

import vtkmodules.vtkCommonCore
from vtkmodules import vtkCommonDataModel as model

CELLS = [
    ("LINE2", model.vtkLine, 1),
    ("LINE3", model.vtkQuadraticEdge, 1),
    ("TRIANGLE3", model.vtkTriangle, 2),
    ("TRIANGLE6", model.vtkQuadraticTriangle, 2),
    ("QUAD4", model.vtkQuad, 2),
    ("QUAD8", model.vtkQuadraticQuad, 2),
    ("QUAD9", model.vtkBiQuadraticQuad, 2),
    ("HEX8", model.vtkHexahedron, 3),
    ("HEX20", model.vtkQuadraticHexahedron, 3),
    ("HEX27", model.vtkTriQuadraticHexahedron, 3),
    ("WEDGE6", model.vtkWedge, 3),
    ("WEDGE15", model.vtkQuadraticWedge, 3),
    ("WEDGE18", model.vtkBiQuadraticQuadraticWedge, 3),
    ("TET4", model.vtkTetra, 3),
    ("TET10", model.vtkQuadraticTetra, 3),
    ("PYRAMID5", model.vtkPyramid, 3),
]


# The wrapped interpolation of the 18-node wedge asks for too short an array, so its functions are read off the
# cell itself: with the nodes at their parametric places, the derivative of the nodal values 0 ... 1 ... 0 is the
# derivative of one shape function, and the place of a cell whose node i has moved away shows its value.
def interpolate(cell, place, nodes, dimension):
    if not isinstance(cell, model.vtkBiQuadraticQuadraticWedge):
        values = [0.0] * nodes
        slopes = [0.0] * (nodes * dimension)
        cell.InterpolateFunctions(place, values)
        cell.InterpolateDerivs(place, slopes)
        return values, slopes
    values = []
    slopes = [0.0] * (nodes * 3)
    scratch = [0.0] * 64
    for i in range(nodes):
        unit = [1.0 if j == i else 0.0 for j in range(nodes)]
        derivative = [0.0] * 3
        cell.Derivatives(0, place, unit, 1, derivative)
        for k in range(3):
            slopes[k * nodes + i] = derivative[k]
        home = cell.GetPoints().GetPoint(i)
        cell.GetPoints().SetPoint(i, home[0] + 1, home[1], home[2])
        moved = [0.0] * 3
        cell.EvaluateLocation(vtkmodules.vtkCommonCore.reference(0), place, moved, scratch)
        cell.GetPoints().SetPoint(i, home)
        values.append(moved[0] - place[0])
    return values, slopes


def row(word, numbers):
    print(word, *("%.17g" % number for number in numbers))


def side(word, cell):
    print(word, *(cell.GetPointId(i) for i in range(cell.GetNumberOfPoints())))


random.seed(20240229)
for name, make, dimension in CELLS:
    cell = make()
    nodes = cell.GetNumberOfPoints()
    parametric = [0.0] * (3 * nodes)
    array = cell.GetParametricCoords()
    print("cell", name, nodes, dimension)
    for i in range(nodes):
        cell.GetPointIds().SetId(i, i)
        place = [array[3 * i + k] for k in range(3)]
        cell.GetPoints().SetPoint(i, place)
        row("node", place)
    if dimension > 1:
        for i in range(cell.GetNumberOfEdges()):
            side("edge", cell.GetEdge(i))
    for i in range(cell.GetNumberOfFaces()):
        side("face", cell.GetFace(i))
    for _ in range(4):
        place = [random.random() if k < dimension else 0.0 for k in range(3)]
        if name.startswith(("TRI", "WEDGE", "TET")):
            total = sum(place[: 3 if name.startswith("TET") else 2])
            if total > 1:
                place = [x / (total + 0.25) if k < (3 if name.startswith("TET") else 2) else x
                         for k, x in enumerate(place)]
        values, slopes = interpolate(cell, place, nodes, dimension)
        row("point", place)
        row("values", values)
        for k in range(dimension):
            row("slopes", slopes[k * nodes : (k + 1) * nodes])
