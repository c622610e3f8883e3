#include "platform/shape/shc_Topology.h"

#include "platform/shape/shc_ShapeDictionary.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <random>
#include <vector>

namespace {

const shc_Topology& shapeOf(const char* label) { return *shc_ShapeDictionary::GetShape(label); }

std::vector<const shc_Topology*> movable()
{
    std::vector<const shc_Topology*> shapes;
    for (int i = 0; i < shc_ShapeDictionary::NumShapes(); ++i)
        if (shc_ShapeDictionary::Shape(i).AllowsExtrapolation()) shapes.push_back(&shc_ShapeDictionary::Shape(i));
    return shapes;
}

void straighten(const shc_Topology& shape, const double* point, double* place)
{
    const double width = shape.Cell().Kind() == shc_Cell::PYRAMID5 ? 0.5 * (1 - point[2]) : 1;
    place[0] = point[0] * width;
    place[1] = point[1] * width;
    place[2] = point[2];
}

// Linear in the directions that the integration points of the type can tell apart.
double linearField(const shc_Topology& shape, const double* point)
{
    double place[3];
    straighten(shape, point, place);
    if (shape.NumIntegrationPoints() == 1) return 4.25;
    if (shape.Family() == 10) return 4.25 - 1.75 * place[2];
    return 4.25 + 0.5 * place[0] + 3 * place[1] - 1.75 * place[2];
}

std::vector<double> atPoints(const shc_Topology& shape, double (*field)(const shc_Topology&, const double*))
{
    std::vector<double> values;
    for (int p = 0; p < shape.NumIntegrationPoints(); ++p) values.push_back(field(shape, shape.Rule().point[p]));
    return values;
}

// Everything that three points in each direction can follow.
double triquadratic(const shc_Topology&, const double* x)
{
    return (1 + x[0] - 2 * x[0] * x[0]) * (3 - x[1] + x[1] * x[1]) * (0.5 + 2 * x[2] + x[2] * x[2]);
}

double trilinear(const shc_Topology&, const double* x) { return (1 + 2 * x[0]) * (3 - x[1]) * (0.5 + x[2]); }

std::vector<int> face(const char* label, int index)
{
    int nodes[27];
    for (int i = 0; i < 27; ++i) nodes[i] = 100 + i;
    int out[9];
    const int count = shc_Topology::FaceConnectivity(shapeOf(label), nodes, index, out);
    return {out, out + count};
}

std::vector<int> edge(const char* label, int faceIndex, int index)
{
    int nodes[27];
    for (int i = 0; i < 27; ++i) nodes[i] = 100 + i;
    int out[9];
    const int count = shc_Topology::EdgeConnectivity(shapeOf(label), nodes, faceIndex, index, out);
    return {out, out + count};
}

} // namespace

TEST(shc_Topology, facesOfAHexahedron)
{
    EXPECT_EQ(face("HEX8", 0), (std::vector{100, 101, 105, 104}));
    EXPECT_EQ(face("HEX8", 4), (std::vector{100, 103, 102, 101}));
    EXPECT_EQ(face("HEX20", 3), (std::vector{100, 104, 107, 103, 116, 115, 119, 111}));
    EXPECT_EQ(face("HEX27", 5), (std::vector{104, 105, 106, 107, 112, 113, 114, 115, 125}));
}

TEST(shc_Topology, facesOfAWedgeHaveThreeOrFourCorners)
{
    EXPECT_EQ(face("WEDGE6", 2), (std::vector{100, 103, 105, 102}));
    EXPECT_EQ(face("WEDGE6", 3), (std::vector{100, 102, 101}));
    EXPECT_EQ(face("WEDGE15", 0), (std::vector{100, 101, 104, 103, 106, 113, 109, 112}));
    EXPECT_EQ(face("WEDGE15", 4), (std::vector{103, 104, 105, 109, 110, 111}));
}

TEST(shc_Topology, edgesOfAPlaneElementAreThoseOfItsOnlyFace)
{
    EXPECT_LT(shapeOf("QUAD8").NumFaces(), 2);
    EXPECT_EQ(edge("QUAD4", 0, 0), (std::vector{100, 101}));
    EXPECT_EQ(edge("QUAD4", 0, 3), (std::vector{103, 100}));
    EXPECT_EQ(edge("QUAD8", 0, 1), (std::vector{101, 102, 105}));
    EXPECT_EQ(edge("QUAD9", 0, 3), (std::vector{103, 100, 107}));
    EXPECT_EQ(edge("TRI6", 0, 2), (std::vector{102, 100, 105}));
    EXPECT_EQ(edge("SHELL3", 0, 1), (std::vector{101, 102}));
    EXPECT_EQ(face("QUAD9", 0), (std::vector{100, 101, 102, 103, 104, 105, 106, 107, 108}));
}

TEST(shc_Topology, edgesOfASolidRunRoundItsFaces)
{
    EXPECT_EQ(edge("HEX20", 0, 1), (std::vector{101, 105, 117}));
    EXPECT_EQ(edge("TET10", 2, 2), (std::vector{102, 100, 106}));
    EXPECT_EQ(edge("BEAM3", 0, 0), (std::vector{100, 101, 102}));
}

TEST(shc_Topology, whatDoesNotExistHasNoNodes)
{
    EXPECT_TRUE(face("TET4", 4).empty());
    EXPECT_TRUE(face("TET4", -1).empty());
    EXPECT_TRUE(face("QUAD4", 1).empty());
    EXPECT_TRUE(face("POINTMASS", 0).empty());
    EXPECT_TRUE(edge("TRI3", 0, 3).empty());
    EXPECT_TRUE(edge("TRI3", 0, -1).empty());
    EXPECT_TRUE(edge("TRI3", 1, 0).empty());
    EXPECT_TRUE(edge("BEAM2", 0, 1).empty());
    EXPECT_TRUE(edge("RNODE2D", 0, 0).empty());
}

TEST(shc_Topology, predicatesByLabel)
{
    EXPECT_TRUE(shc_Topology::IsConnector("CONN3D2"));
    EXPECT_TRUE(shc_Topology::IsConnector("MYCONNX"));
    EXPECT_FALSE(shc_Topology::IsConnector("CON3D2"));
    EXPECT_FALSE(shc_Topology::IsConnector("conn3d2"));
    EXPECT_TRUE(shc_Topology::IsRigidNode("RNODE2D"));
    EXPECT_TRUE(shc_Topology::IsRigidNode("RNODE3D"));
    EXPECT_FALSE(shc_Topology::IsRigidNode("RNODE3DX"));
    EXPECT_TRUE(shc_Topology::IsAnalytic("ARS"));
    EXPECT_TRUE(shc_Topology::IsAnalytic("XARS2"));
    EXPECT_FALSE(shc_Topology::IsAnalytic("ASR"));
    for (const char* label : {"SHELL4", "s", "MEMBRANE3", "m3d4", "SHELLAX2"})
        EXPECT_TRUE(shc_Topology::IsShellLike(label)) << label;
    for (const char* label : {"", "QUAD4", "HEX8", "AXQUAD4"}) EXPECT_FALSE(shc_Topology::IsShellLike(label)) << label;
}

TEST(shc_Topology, noSolidLooksLikeAShellAndNoTypeLooksAnalytic)
{
    for (int i = 0; i < shc_ShapeDictionary::NumShapes(); ++i) {
        const shc_Topology& shape = shc_ShapeDictionary::Shape(i);
        if (shape.Dimension() == 3) {
            EXPECT_FALSE(shape.IsShellLike()) << shape.Label();
        }
        if (shape.Is3DShell()) {
            EXPECT_TRUE(shape.IsShellLike()) << shape.Label();
        }
        EXPECT_FALSE(shc_Topology::IsAnalytic(shape.Label())) << shape.Label();
    }
}

TEST(shc_Topology, attributeTellsTypesOfOneCellApart)
{
    EXPECT_EQ(shapeOf("QUAD4").Attribute(), 0);
    EXPECT_EQ(shapeOf("AXQUAD4").Attribute(), 1);
    EXPECT_EQ(shapeOf("QUAD4R").Attribute(), 2);
    EXPECT_EQ(shapeOf("AXQUAD4R").Attribute(), 3);
    EXPECT_EQ(shapeOf("SHELL4").Attribute(), 4);
    EXPECT_EQ(shapeOf("SHELLAX2").Attribute(), 5);
    EXPECT_EQ(shapeOf("MEMBRANE4R").Attribute(), 6);
    EXPECT_EQ(shapeOf("CONN2D2").Attribute(), 8);
    EXPECT_EQ(shapeOf("RNODE3D").Attribute(), 16);
    EXPECT_EQ(shapeOf("POINTMASS").Attribute(), 0);
}

TEST(shc_Topology, linearFieldsArriveUnchangedAtNodesFacesAndCentroid)
{
    for (const shc_Topology* shape : movable()) {
        SCOPED_TRACE(shape->Label());
        const std::vector<double> values = atPoints(*shape, linearField);
        double nodes[27];
        double faces[6];
        double centroid = 0;
        ASSERT_TRUE(shape->StdExtrapToNodes(values.data(), 2, nodes, 1));
        ASSERT_TRUE(shape->ExtrapolateToFaces(values.data(), 2, faces, 1));
        ASSERT_TRUE(shape->ExtrapolateToCentroid(values.data(), 2, &centroid, 1));
        for (int i = 0; i < shape->NumNodes(); ++i)
            EXPECT_NEAR(nodes[i], linearField(*shape, shape->Cell().NodeCoordinates(i)), 1e-13) << i;
        for (int i = 0; i < shape->NumFaces(); ++i) {
            double centre[3];
            shape->Cell().FaceCentre(i, centre);
            EXPECT_NEAR(faces[i], linearField(*shape, centre), 1e-13) << i;
        }
        EXPECT_NEAR(centroid, linearField(*shape, shape->Cell().Centroid()), 1e-13);
    }
}

TEST(shc_Topology, productsOfLagrangePolynomialsFollowEveryPowerThatThePointsCanTell)
{
    struct Case
    {
        const char* label;
        double (*field)(const shc_Topology&, const double*);
    };
    for (const Case& one : {Case{"HEX8", trilinear}, Case{"HEX20", triquadratic}, Case{"HEX20R", trilinear},
                            Case{"HEX27", triquadratic}, Case{"HEX27R", trilinear}, Case{"QUAD4", trilinear},
                            Case{"QUAD8", triquadratic}, Case{"SHELL9R", trilinear}, Case{"BEAM3", trilinear}}) {
        SCOPED_TRACE(one.label);
        const shc_Topology& shape = shapeOf(one.label);
        const std::vector<double> values = atPoints(shape, one.field);
        double nodes[27];
        ASSERT_TRUE(shape.StdExtrapToNodes(values.data(), 2, nodes, 1));
        for (int i = 0; i < shape.NumNodes(); ++i)
            EXPECT_NEAR(nodes[i], one.field(shape, shape.Cell().NodeCoordinates(i)), 1e-12) << i;
    }
}

TEST(shc_Topology, aQuadrilateralsCornerTakesTheKnownFactors)
{
    // Two points at 1/sqrt(3): at the end of the line the factors are (1 + sqrt 3)/2 and (1 - sqrt 3)/2.
    const double near = (1 + std::sqrt(3.0)) / 2;
    const double far = (1 - std::sqrt(3.0)) / 2;
    const double values[4] = {1, 0, 0, 0};
    double nodes[4];
    ASSERT_TRUE(shapeOf("QUAD4").StdExtrapToNodes(values, 2, nodes, 1));
    EXPECT_NEAR(nodes[0], near * near, 1e-15);
    EXPECT_NEAR(nodes[1], near * far, 1e-15);
    EXPECT_NEAR(nodes[2], far * far, 1e-15);
    EXPECT_NEAR(nodes[3], near * far, 1e-15);
}

TEST(shc_Topology, aWedgeOfTwoPointsIsConstantInItsTriangles)
{
    const float values[2] = {10, 20};
    float nodes[6];
    ASSERT_TRUE(shapeOf("WEDGE6").StdExtrapToNodes(values, 2, nodes, 1));
    const float low = static_cast<float>(15 - 5 * std::sqrt(3.0));
    const float high = static_cast<float>(15 + 5 * std::sqrt(3.0));
    for (int i = 0; i < 3; ++i) {
        EXPECT_FLOAT_EQ(nodes[i], low);
        EXPECT_FLOAT_EQ(nodes[3 + i], high);
    }
}

TEST(shc_Topology, constantsArriveBitForBit)
{
    for (const shc_Topology* shape : movable()) {
        SCOPED_TRACE(shape->Label());
        const std::vector<float> values(shape->NumIntegrationPoints(), 1234.567f);
        float nodes[27];
        ASSERT_TRUE(shape->StdExtrapToNodes(values.data(), 2, nodes, 1));
        for (int i = 0; i < shape->NumNodes(); ++i) EXPECT_EQ(nodes[i], 1234.567f);
    }
}

TEST(shc_Topology, blocksOfElementsAndComponentsEqualOneByOne)
{
    std::mt19937 engine(21);
    std::uniform_real_distribution<float> unit(-100, 100);
    const int elements = 19;
    const int components = 6;
    for (const char* label : {"HEX20", "TET10", "WEDGE15", "PYRAMID5", "SHELL4R"}) {
        SCOPED_TRACE(label);
        const shc_Topology& shape = shapeOf(label);
        const int points = shape.NumIntegrationPoints();
        const int nodes = shape.NumNodes();
        std::vector<float> values(elements * points * components);
        for (float& value : values) value = unit(engine);
        std::vector<float> out(elements * nodes * components);
        ASSERT_TRUE(shape.StdExtrapToNodes(values.data(), 2, out.data(), components, elements));
        for (int e = 0; e < elements; ++e)
            for (int c = 0; c < components; ++c) {
                std::vector<float> column;
                for (int p = 0; p < points; ++p) column.push_back(values[(e * points + p) * components + c]);
                std::vector<float> single(nodes);
                ASSERT_TRUE(shape.StdExtrapToNodes(column.data(), 2, single.data(), 1));
                for (int i = 0; i < nodes; ++i) EXPECT_EQ(out[(e * nodes + i) * components + c], single[i]);
            }
    }
}

TEST(shc_Topology, otherPositions)
{
    const shc_Topology& shape = shapeOf("TET4");
    const double nodal[8] = {1, 10, 2, 20, 3, 30, 4, 40};
    double out[8] = {};
    ASSERT_TRUE(shape.StdExtrapToNodes(nodal, 4, out, 2));
    EXPECT_EQ(std::memcmp(nodal, out, sizeof nodal), 0);
    ASSERT_TRUE(shape.StdExtrapToNodes(nodal, 6, out, 2));
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(out[2 * i], 1);
        EXPECT_EQ(out[2 * i + 1], 10);
    }
    double faces[8];
    // Faces 0 1 3, 1 2 3, 0 3 2, 0 2 1: the mean of their corners.
    ASSERT_TRUE(shape.ExtrapolateToFaces(nodal, 4, faces, 2));
    EXPECT_NEAR(faces[0], 7.0 / 3, 1e-14);
    EXPECT_NEAR(faces[1], 70.0 / 3, 1e-14);
    EXPECT_NEAR(faces[2], 3, 1e-14);
    EXPECT_NEAR(faces[4], 8.0 / 3, 1e-14);
    EXPECT_NEAR(faces[6], 2, 1e-14);
    double centroid[2];
    ASSERT_TRUE(shape.ExtrapolateToCentroid(nodal, 4, centroid, 2));
    EXPECT_NEAR(centroid[0], 2.5, 1e-15);
    EXPECT_NEAR(centroid[1], 25, 1e-14);
}

TEST(shc_Topology, positionsThatCannotBeMovedLeaveTheOutputAlone)
{
    const float values[8] = {1, 1, 1, 1, 1, 1, 1, 1};
    float out[8] = {7, 7, 7, 7, 7, 7, 7, 7};
    for (int position : {-1, 0, 1, 3, 7, 12})
        EXPECT_FALSE(shapeOf("QUAD4").StdExtrapToNodes(values, position, out, 1)) << position;
    for (const char* label : {"POINTMASS", "RNODE2D", "RNODE3D", "CONN2D2", "CONN3D2"}) {
        EXPECT_FALSE(shapeOf(label).AllowsExtrapolation()) << label;
        EXPECT_FALSE(shapeOf(label).StdExtrapToNodes(values, 2, out, 1)) << label;
        EXPECT_FALSE(shapeOf(label).ExtrapolateToFaces(values, 2, out, 1)) << label;
        EXPECT_FALSE(shapeOf(label).ExtrapolateToCentroid(values, 2, out, 1)) << label;
    }
    for (float value : out) EXPECT_EQ(value, 7);
}

TEST(shc_Topology, axisymmetricTypesMoveLikeTheOthers)
{
    const float values[4] = {1, -2, 3, 5};
    float plane[4];
    float axisymmetric[4];
    ASSERT_TRUE(shapeOf("QUAD4").StdExtrapToNodes(values, 2, plane, 1));
    ASSERT_TRUE(shapeOf("AXQUAD4").CaxaExtrapToNodes(values, 2, axisymmetric, 1));
    for (int i = 0; i < 4; ++i) EXPECT_EQ(plane[i], axisymmetric[i]);
}

TEST(shc_Topology, planeElementsHaveOneFaceWhoseCentreIsTheCentroid)
{
    for (const char* label : {"QUAD4", "TRI6", "SHELL8", "BEAM3"}) {
        SCOPED_TRACE(label);
        const shc_Topology& shape = shapeOf(label);
        const std::vector<double> values = atPoints(shape, linearField);
        double atFace = 0;
        double atCentroid = 1;
        ASSERT_EQ(shape.NumFaces(), 1);
        ASSERT_TRUE(shape.ExtrapolateToFaces(values.data(), 2, &atFace, 1));
        ASSERT_TRUE(shape.ExtrapolateToCentroid(values.data(), 2, &atCentroid, 1));
        EXPECT_NEAR(atFace, atCentroid, 1e-15);
    }
}

TEST(shc_Topology, interpolationFromNodes)
{
    const float nodal[8] = {1, 2, 4, 3, 5, 6, 8, 7};
    const float middle[3] = {0, 0, 0};
    EXPECT_FLOAT_EQ(shapeOf("HEX8").InterpolateResultFromNodes(nodal, middle, -1.0f), 4.5f);
    const float corner[3] = {1, 1, -1};
    EXPECT_FLOAT_EQ(shapeOf("HEX8").InterpolateResultFromNodes(nodal, corner, -1.0f), 4.0f);
    const float unavailable = -3.4028235e38f;
    EXPECT_EQ(shapeOf("CONN3D2").InterpolateResultFromNodes(nodal, middle, unavailable), unavailable);
    EXPECT_EQ(shapeOf("POINTMASS").InterpolateResultFromNodes(nodal, middle, unavailable), unavailable);
}

TEST(shc_Topology, centroidsInNaturalCoordinates)
{
    const auto expectCentroid = [](const char* label, float x, float y, float z) {
        float point[3] = {9, 9, 9};
        shapeOf(label).IsoParCentroidLocation(point);
        EXPECT_FLOAT_EQ(point[0], x) << label;
        EXPECT_FLOAT_EQ(point[1], y) << label;
        EXPECT_FLOAT_EQ(point[2], z) << label;
    };
    expectCentroid("BEAM2", 0, 0, 0);
    expectCentroid("TRI6", 1 / 3.0f, 1 / 3.0f, 0);
    expectCentroid("QUAD9", 0, 0, 0);
    expectCentroid("HEX27", 0, 0, 0);
    expectCentroid("WEDGE15", 1 / 3.0f, 1 / 3.0f, 0);
    expectCentroid("TET10", 0.25f, 0.25f, 0.25f);
    expectCentroid("PYRAMID5", 0, 0, -0.5f);
}

TEST(shc_Topology, positionsOfIntegrationPointsAndCentroid)
{
    // A 4 by 2 by 6 box with its corner at (10, 20, 30).
    float nodes[8 * 3];
    for (int i = 0; i < 8; ++i) {
        const double* n = shapeOf("HEX8").Cell().NodeCoordinates(i);
        nodes[3 * i] = static_cast<float>(12 + 2 * n[0]);
        nodes[3 * i + 1] = static_cast<float>(21 + n[1]);
        nodes[3 * i + 2] = static_cast<float>(33 + 3 * n[2]);
    }
    float points[8 * 3];
    shapeOf("HEX8").IntPtCoord(nodes, points, 3);
    const double g = 1 / std::sqrt(3.0);
    EXPECT_FLOAT_EQ(points[3], static_cast<float>(12 + 2 * g));
    EXPECT_FLOAT_EQ(points[4], static_cast<float>(21 - g));
    EXPECT_FLOAT_EQ(points[5], static_cast<float>(33 - 3 * g));
    float centroid[3];
    shapeOf("HEX8").Centroid(nodes, centroid, 3);
    EXPECT_FLOAT_EQ(centroid[0], 12);
    EXPECT_FLOAT_EQ(centroid[1], 21);
    EXPECT_FLOAT_EQ(centroid[2], 33);
    const double apex[5 * 3] = {-1, -1, 0, 1, -1, 0, 1, 1, 0, -1, 1, 0, 0, 0, 1};
    double place[3];
    shapeOf("PYRAMID5").Centroid(apex, place, 3);
    EXPECT_NEAR(place[2], 0.25, 1e-15);
}

TEST(shc_Topology, limitsOfFloatPassThroughWithoutTrapping)
{
    const std::vector<float> values(8, 3.4028235e38f);
    float nodes[8];
    ASSERT_TRUE(shapeOf("HEX8").StdExtrapToNodes(values.data(), 2, nodes, 1));
    for (float value : nodes) EXPECT_FALSE(std::isnan(value));
}
