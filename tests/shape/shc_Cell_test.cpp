#include "platform/shape/shc_Cell.h"

#include "platform/shape/shc_ShapeDictionary.h"
#include "tools/exodus_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

const char* const kindNames[] = {"POINT1",  "LINE2",   "LINE3", "TRIANGLE3", "TRIANGLE6", "QUAD4",
                                 "QUAD8",   "QUAD9",   "HEX8",  "HEX20",     "HEX27",     "WEDGE6",
                                 "WEDGE15", "WEDGE18", "TET4",  "TET10",     "PYRAMID5"};

std::ifstream openReference(const char* name) { return std::ifstream(std::filesystem::path(YLD_REFERENCE) / name); }

std::vector<const shc_Cell*> allCells()
{
    std::vector<const shc_Cell*> cells;
    for (int kind = 0; kind < shc_Cell::NUM_KINDS; ++kind)
        cells.push_back(&shc_Cell::Get(static_cast<shc_Cell::KindEnm>(kind)));
    return cells;
}

// Whether a direction of the natural coordinates runs from -1 to +1 (VTK: from 0 to 1 everywhere).
bool isSymmetric(const shc_Cell& cell, int direction)
{
    switch (cell.ShapeCode()) {
    case shc_Cell::TRIANGLE:
    case shc_Cell::TETRAHEDRON:
        return false;
    case shc_Cell::IRREGULAR:
        return cell.Kind() == shc_Cell::PYRAMID5 || direction == 2;
    default:
        return true;
    }
}

void fromVtk(const shc_Cell& cell, const double* place, double* point)
{
    for (int k = 0; k < 3; ++k)
        point[k] = k >= cell.Dimension() ? 0 : isSymmetric(cell, k) ? 2 * place[k] - 1 : place[k];
}

// A point well inside the cell.
void randomPoint(const shc_Cell& cell, std::mt19937& engine, double* point)
{
    std::uniform_real_distribution<double> unit(0.05, 0.3);
    double place[3];
    for (double& x : place) x = unit(engine);
    fromVtk(cell, place, point);
}

std::vector<double> numbers(std::istringstream& line)
{
    std::vector<double> result;
    for (double x; line >> x;) result.push_back(x);
    return result;
}

struct VtkCell
{
    const shc_Cell* cell = nullptr;
    std::vector<std::vector<double>> nodes;
    std::vector<std::vector<double>> edges;
    std::vector<std::vector<double>> faces;
    struct Sample
    {
        std::vector<double> place;
        std::vector<double> values;
        std::vector<std::vector<double>> slopes;
    };
    std::vector<Sample> samples;
};

std::vector<VtkCell> readVtk()
{
    std::vector<VtkCell> cells;
    std::ifstream file = openReference("vtk_shapes.txt");
    for (std::string text; std::getline(file, text);) {
        std::istringstream line(text);
        std::string word;
        line >> word;
        if (word == "cell") {
            std::string name;
            line >> name;
            const auto found = std::find(std::begin(kindNames), std::end(kindNames), name);
            cells.emplace_back();
            cells.back().cell = &shc_Cell::Get(static_cast<shc_Cell::KindEnm>(found - std::begin(kindNames)));
        } else if (word == "node") {
            cells.back().nodes.push_back(numbers(line));
        } else if (word == "edge") {
            cells.back().edges.push_back(numbers(line));
        } else if (word == "face") {
            cells.back().faces.push_back(numbers(line));
        } else if (word == "point") {
            cells.back().samples.push_back({numbers(line), {}, {}});
        } else if (word == "values") {
            cells.back().samples.back().values = numbers(line);
        } else if (word == "slopes") {
            cells.back().samples.back().slopes.push_back(numbers(line));
        }
    }
    return cells;
}

std::set<int> members(const shc_Cell::Side& side) { return {side.node, side.node + side.nodes}; }

std::set<int> members(const std::vector<double>& nodes) { return {nodes.begin(), nodes.end()}; }

} // namespace

TEST(shc_Cell, referenceFileHasEveryCellButThePoint)
{
    const std::vector<VtkCell> cells = readVtk();
    ASSERT_EQ(cells.size(), std::size_t(shc_Cell::NUM_KINDS - 1));
    std::set<const shc_Cell*> seen;
    for (const VtkCell& vtk : cells) {
        seen.insert(vtk.cell);
        EXPECT_EQ(vtk.samples.size(), 4u);
        EXPECT_EQ(vtk.nodes.size(), std::size_t(vtk.cell->NumNodes()));
    }
    EXPECT_EQ(seen.size(), cells.size());
}

TEST(shc_Cell, nodesLieWhereVtkPutsThem)
{
    for (const VtkCell& vtk : readVtk()) {
        SCOPED_TRACE(kindNames[vtk.cell->Kind()]);
        for (int node = 0; node < vtk.cell->NumNodes(); ++node) {
            // VTK names a corner of the collapsed face as the apex; all of its points are the apex.
            if (vtk.cell->Kind() == shc_Cell::PYRAMID5 && node == 4) continue;
            double point[3];
            fromVtk(*vtk.cell, vtk.nodes[node].data(), point);
            for (int k = 0; k < 3; ++k)
                EXPECT_NEAR(vtk.cell->NodeCoordinates(node)[k], point[k], 1e-15) << node << " " << k;
        }
    }
}

TEST(shc_Cell, edgesAndFacesJoinTheNodesThatVtkJoins)
{
    for (const VtkCell& vtk : readVtk()) {
        const shc_Cell& cell = *vtk.cell;
        SCOPED_TRACE(kindNames[cell.Kind()]);
        if (cell.Dimension() > 1) {
            std::set<std::set<int>> ours;
            std::set<std::set<int>> theirs;
            for (int edge = 0; edge < cell.NumEdges(); ++edge) ours.insert(members(cell.Edge(edge)));
            for (const std::vector<double>& edge : vtk.edges) theirs.insert(members(edge));
            EXPECT_EQ(ours, theirs);
            EXPECT_EQ(ours.size(), std::size_t(cell.NumEdges()));
        }
        if (cell.Dimension() == 3) {
            std::set<std::set<int>> ours;
            std::set<std::set<int>> theirs;
            for (int face = 0; face < cell.NumFaces(); ++face) ours.insert(members(cell.Face(face)));
            for (const std::vector<double>& face : vtk.faces) theirs.insert(members(face));
            EXPECT_EQ(ours, theirs);
            EXPECT_EQ(ours.size(), std::size_t(cell.NumFaces()));
        }
    }
}

TEST(shc_Cell, shapeFunctionsAndDerivativesAgreeWithVtk)
{
    for (const VtkCell& vtk : readVtk()) {
        const shc_Cell& cell = *vtk.cell;
        SCOPED_TRACE(kindNames[cell.Kind()]);
        for (const VtkCell::Sample& sample : vtk.samples) {
            double point[3];
            fromVtk(cell, sample.place.data(), point);
            double values[shc_Cell::MAX_NODES];
            double slopes[3 * shc_Cell::MAX_NODES];
            cell.ShapeFunctions(point, values);
            cell.Derivatives(point, slopes);
            ASSERT_EQ(sample.values.size(), std::size_t(cell.NumNodes()));
            ASSERT_EQ(sample.slopes.size(), std::size_t(cell.Dimension()));
            for (int node = 0; node < cell.NumNodes(); ++node) {
                EXPECT_NEAR(values[node], sample.values[node], 1e-14) << node;
                for (int k = 0; k < cell.Dimension(); ++k) {
                    const double scale = isSymmetric(cell, k) ? 0.5 : 1;
                    EXPECT_NEAR(slopes[3 * node + k], scale * sample.slopes[k][node], 1e-14) << node << " " << k;
                }
                for (int k = cell.Dimension(); k < 3; ++k) EXPECT_EQ(slopes[3 * node + k], 0);
            }
        }
    }
}

TEST(shc_Cell, aShapeFunctionIsOneAtItsNodeAndZeroAtTheOthers)
{
    for (const shc_Cell* cell : allCells()) {
        SCOPED_TRACE(kindNames[cell->Kind()]);
        for (int at = 0; at < cell->NumNodes(); ++at) {
            double values[shc_Cell::MAX_NODES];
            cell->ShapeFunctions(cell->NodeCoordinates(at), values);
            for (int node = 0; node < cell->NumNodes(); ++node)
                EXPECT_NEAR(values[node], node == at ? 1 : 0, 1e-15) << node << " at " << at;
        }
    }
}

TEST(shc_Cell, shapeFunctionsSumToOneAndTheirDerivativesToZero)
{
    std::mt19937 engine(11);
    for (const shc_Cell* cell : allCells()) {
        SCOPED_TRACE(kindNames[cell->Kind()]);
        for (int trial = 0; trial < 20; ++trial) {
            double point[3];
            randomPoint(*cell, engine, point);
            double values[shc_Cell::MAX_NODES];
            double slopes[3 * shc_Cell::MAX_NODES];
            cell->ShapeFunctions(point, values);
            cell->Derivatives(point, slopes);
            double sum = 0;
            double slope[3] = {0, 0, 0};
            for (int node = 0; node < cell->NumNodes(); ++node) {
                sum += values[node];
                for (int k = 0; k < 3; ++k) slope[k] += slopes[3 * node + k];
            }
            EXPECT_NEAR(sum, 1, 1e-14);
            for (double s : slope) EXPECT_NEAR(s, 0, 1e-14);
        }
    }
}

TEST(shc_Cell, derivativesAreTheLimitOfDifferences)
{
    std::mt19937 engine(12);
    const double h = 1e-5;
    for (const shc_Cell* cell : allCells()) {
        SCOPED_TRACE(kindNames[cell->Kind()]);
        for (int trial = 0; trial < 5; ++trial) {
            double point[3];
            randomPoint(*cell, engine, point);
            double slopes[3 * shc_Cell::MAX_NODES];
            cell->Derivatives(point, slopes);
            for (int k = 0; k < cell->Dimension(); ++k) {
                double before[shc_Cell::MAX_NODES];
                double after[shc_Cell::MAX_NODES];
                double moved[3] = {point[0], point[1], point[2]};
                moved[k] = point[k] - h;
                cell->ShapeFunctions(moved, before);
                moved[k] = point[k] + h;
                cell->ShapeFunctions(moved, after);
                for (int node = 0; node < cell->NumNodes(); ++node)
                    EXPECT_NEAR(slopes[3 * node + k], (after[node] - before[node]) / (2 * h), 1e-9);
            }
        }
    }
}

// Straight coordinates of a point: those of a pyramid with the shrinking undone.
static void straighten(const shc_Cell& cell, const double* point, double* place)
{
    const double width = cell.Kind() == shc_Cell::PYRAMID5 ? 0.5 * (1 - point[2]) : 1;
    place[0] = point[0] * width;
    place[1] = point[1] * width;
    place[2] = point[2];
}

TEST(shc_Cell, nodalValuesOfAPolynomialOfTheCellsOrderGiveItBack)
{
    std::mt19937 engine(13);
    for (const shc_Cell* cell : allCells()) {
        SCOPED_TRACE(kindNames[cell->Kind()]);
        const int order = cell->IsQuadratic() ? 2 : 1;
        for (int a = 0; a <= order; ++a)
            for (int b = 0; a + b <= order; ++b)
                for (int c = 0; a + b + c <= order; ++c) {
                    const auto polynomial = [&](const double* point) {
                        double place[3];
                        straighten(*cell, point, place);
                        return std::pow(place[0], a) * std::pow(place[1], b) * std::pow(place[2], c);
                    };
                    double point[3];
                    randomPoint(*cell, engine, point);
                    double values[shc_Cell::MAX_NODES];
                    cell->ShapeFunctions(point, values);
                    double sum = 0;
                    for (int node = 0; node < cell->NumNodes(); ++node)
                        sum += values[node] * polynomial(cell->NodeCoordinates(node));
                    // A cell of lower dimension has no way across it: there the polynomial is zero or one.
                    EXPECT_NEAR(sum, polynomial(point), 1e-14) << a << b << c;
                }
    }
}

TEST(shc_Cell, sidesAreThoseOfExodus)
{
    std::ifstream file = openReference("exodus_sides.txt");
    int checked = 0;
    for (std::string text; std::getline(file, text);) {
        SCOPED_TRACE(text);
        std::istringstream line(text);
        std::string label;
        int side = 0;
        int count = 0;
        line >> label >> side >> count;
        const shc_Topology* shape = shc_ShapeDictionary::GetShape(label);
        ASSERT_NE(shape, nullptr);
        // Nodes of ours, named by the numbers that Exodus gives them.
        int exodus[shc_Cell::MAX_NODES];
        for (int i = 0; i < shape->NumNodes(); ++i) {
            const int place = label == "HEX20"     ? exodus_hex20Order[i]
                              : label == "HEX27"   ? exodus_hex27Order[i]
                              : label == "WEDGE15" ? exodus_wedge15Order[i]
                                                   : i;
            exodus[i] = place + 1;
        }
        // Exodus gives a shell its upper and its lower side first, then its edges.
        const bool shell = shape->Is3DShell();
        const bool asFace = shape->Dimension() == 3 || (shell && side <= 2);
        const int index = shell ? (side <= 2 ? 0 : side - 3) : side - 1;
        int found[shc_Cell::MAX_FACE_NODES];
        const int written = asFace ? shc_Topology::FaceConnectivity(*shape, exodus, index, found)
                                   : shc_Topology::EdgeConnectivity(*shape, exodus, 0, index, found);
        ASSERT_EQ(written, count);
        std::vector<int> ours(found, found + count);
        std::vector<int> theirs;
        for (int node = 0; line >> node;) theirs.push_back(node);
        if (shell && side == 2) { // seen from below: the same nodes the other way round
            EXPECT_NE(ours, theirs);
            std::sort(ours.begin(), ours.end());
            std::sort(theirs.begin(), theirs.end());
        }
        EXPECT_EQ(ours, theirs);
        ++checked;
    }
    // Plane, hexahedra, wedges, tetrahedra, pyramid, shells.
    EXPECT_EQ(checked, 3 * 2 + 4 * 3 + 6 * 3 + 5 * 2 + 4 * 2 + 5 + 5 + 6 * 2);
}

TEST(shc_Cell, exodusOrdersArePermutations)
{
    const auto isPermutation = [](const int* order, int count) {
        std::set<int> seen(order, order + count);
        return static_cast<int>(seen.size()) == count && *seen.begin() == 0 && *seen.rbegin() == count - 1;
    };
    EXPECT_TRUE(isPermutation(exodus_hex20Order, 20));
    EXPECT_TRUE(isPermutation(exodus_hex27Order, 27));
    EXPECT_TRUE(isPermutation(exodus_wedge15Order, 15));
    EXPECT_TRUE(isPermutation(exodus_wedge18Order, 18));
}

TEST(shc_Cell, facesLookOutward)
{
    for (const shc_Cell* cell : allCells()) {
        if (cell->Dimension() != 3) continue;
        SCOPED_TRACE(kindNames[cell->Kind()]);
        double middle[3];
        straighten(*cell, cell->Centroid(), middle);
        for (int face = 0; face < cell->NumFaces(); ++face) {
            const shc_Cell::Side& side = cell->Face(face);
            double corner[3][3];
            for (int c = 0; c < 3; ++c) straighten(*cell, cell->NodeCoordinates(side.node[c]), corner[c]);
            double u[3];
            double v[3];
            double w[3];
            for (int k = 0; k < 3; ++k) {
                u[k] = corner[1][k] - corner[0][k];
                v[k] = corner[2][k] - corner[0][k];
                w[k] = corner[0][k] - middle[k];
            }
            const double volume = w[0] * (u[1] * v[2] - u[2] * v[1]) + w[1] * (u[2] * v[0] - u[0] * v[2]) +
                                  w[2] * (u[0] * v[1] - u[1] * v[0]);
            EXPECT_GT(volume, 0) << face;
        }
    }
}

TEST(shc_Cell, middleNodesOfFacesLieBetweenTheirCorners)
{
    for (const shc_Cell* cell : allCells()) {
        if (!cell->IsQuadratic()) continue;
        SCOPED_TRACE(kindNames[cell->Kind()]);
        for (int face = 0; face < cell->NumFaces(); ++face) {
            const shc_Cell::Side& side = cell->Face(face);
            for (int edge = 0; edge < cell->NumEdgesOfFace(face); ++edge) {
                const shc_Cell::Side end = cell->EdgeOfFace(face, edge);
                ASSERT_EQ(end.nodes, 3);
                EXPECT_EQ(end.node[0], side.node[edge]);
                EXPECT_EQ(end.node[1], side.node[(edge + 1) % side.corners]);
                for (int k = 0; k < 3; ++k)
                    EXPECT_DOUBLE_EQ(
                        cell->NodeCoordinates(end.node[2])[k],
                        0.5 * (cell->NodeCoordinates(end.node[0])[k] + cell->NodeCoordinates(end.node[1])[k]));
            }
            if (side.nodes == 9) {
                double centre[3];
                cell->FaceCentre(face, centre);
                for (int k = 0; k < 3; ++k) EXPECT_NEAR(cell->NodeCoordinates(side.node[8])[k], centre[k], 1e-15);
            }
        }
    }
}

TEST(shc_Cell, centreOfAPyramidsTriangleLiesAThirdUp)
{
    double centre[3];
    shc_Cell::Get(shc_Cell::PYRAMID5).FaceCentre(0, centre);
    // Straight pyramid: (0, -2/3, 1/3 of the height); across, the pyramid is 2/3 wide there.
    EXPECT_NEAR(centre[0], 0, 1e-15);
    EXPECT_NEAR(centre[1], -1, 1e-15);
    EXPECT_NEAR(centre[2], -1.0 / 3.0, 1e-15);
}
