#include "platform/shape/shc_ShapeDictionary.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <thread>
#include <vector>

namespace {

struct Row
{
    const char* label;
    int family;
    int nodes;
    int points;
    int edges;
    int faces;
    int dimension;
    int space;
    bool axisymmetric;
    int shapeCode;
    int pointsPerFace;
};

// Typed from the table of element types, independently of the tables in the library.
const Row rows[] = {
    {"POINTMASS", 0, 1, 1, 0, 0, 0, 3, false, 0, 0},  {"RNODE2D", 0, 1, 1, 0, 0, 0, 2, false, 0, 0},
    {"RNODE3D", 0, 1, 1, 0, 0, 0, 3, false, 0, 0},    {"TRUSS2", 1, 2, 1, 1, 1, 1, 3, false, 1, 1},
    {"TRUSS2D2", 1, 2, 1, 1, 1, 1, 2, false, 1, 1},   {"BEAM2", 1, 2, 1, 1, 1, 1, 3, false, 1, 1},
    {"BEAM2D2", 1, 2, 1, 1, 1, 1, 2, false, 1, 1},    {"SHELLAX2", 1, 2, 1, 1, 1, 1, 2, true, 1, 1},
    {"CONN2D2", 1, 2, 1, 1, 1, 1, 2, false, 1, 1},    {"CONN3D2", 1, 2, 1, 1, 1, 1, 3, false, 1, 1},
    {"TRUSS3", 2, 3, 2, 1, 1, 1, 3, false, 1, 2},     {"TRUSS2D3", 2, 3, 2, 1, 1, 1, 2, false, 1, 2},
    {"BEAM3", 2, 3, 2, 1, 1, 1, 3, false, 1, 2},      {"BEAM2D3", 2, 3, 2, 1, 1, 1, 2, false, 1, 2},
    {"SHELLAX3", 2, 3, 2, 1, 1, 1, 2, true, 1, 2},    {"TRI3", 3, 3, 1, 3, 1, 2, 2, false, 2, 1},
    {"AXTRI3", 3, 3, 1, 3, 1, 2, 2, true, 2, 1},      {"SHELL3", 3, 3, 1, 3, 1, 2, 3, false, 2, 1},
    {"MEMBRANE3", 3, 3, 1, 3, 1, 2, 3, false, 2, 1},  {"TRI6", 4, 6, 3, 3, 1, 2, 2, false, 2, 2},
    {"AXTRI6", 4, 6, 3, 3, 1, 2, 2, true, 2, 2},      {"SHELL6", 4, 6, 3, 3, 1, 2, 3, false, 2, 3},
    {"MEMBRANE6", 4, 6, 3, 3, 1, 2, 3, false, 2, 3},  {"QUAD4", 5, 4, 4, 4, 1, 2, 2, false, 3, 2},
    {"AXQUAD4", 5, 4, 4, 4, 1, 2, 2, true, 3, 2},     {"SHELL4", 5, 4, 4, 4, 1, 2, 3, false, 3, 4},
    {"MEMBRANE4", 5, 4, 4, 4, 1, 2, 3, false, 3, 4},  {"QUAD4R", 5, 4, 1, 4, 1, 2, 2, false, 3, 1},
    {"AXQUAD4R", 5, 4, 1, 4, 1, 2, 2, true, 3, 1},    {"SHELL4R", 5, 4, 1, 4, 1, 2, 3, false, 3, 1},
    {"MEMBRANE4R", 5, 4, 1, 4, 1, 2, 3, false, 3, 1}, {"QUAD8", 6, 8, 9, 4, 1, 2, 2, false, 3, 3},
    {"AXQUAD8", 6, 8, 9, 4, 1, 2, 2, true, 3, 3},     {"SHELL8", 6, 8, 9, 4, 1, 2, 3, false, 3, 9},
    {"MEMBRANE8", 6, 8, 9, 4, 1, 2, 3, false, 3, 9},  {"QUAD8R", 6, 8, 4, 4, 1, 2, 2, false, 3, 2},
    {"AXQUAD8R", 6, 8, 4, 4, 1, 2, 2, true, 3, 2},    {"SHELL8R", 6, 8, 4, 4, 1, 2, 3, false, 3, 4},
    {"MEMBRANE8R", 6, 8, 4, 4, 1, 2, 3, false, 3, 4}, {"QUAD9", 7, 9, 9, 4, 1, 2, 2, false, 3, 3},
    {"AXQUAD9", 7, 9, 9, 4, 1, 2, 2, true, 3, 3},     {"SHELL9", 7, 9, 9, 4, 1, 2, 3, false, 3, 9},
    {"MEMBRANE9", 7, 9, 9, 4, 1, 2, 3, false, 3, 9},  {"QUAD9R", 7, 9, 4, 4, 1, 2, 2, false, 3, 2},
    {"AXQUAD9R", 7, 9, 4, 4, 1, 2, 2, true, 3, 2},    {"SHELL9R", 7, 9, 4, 4, 1, 2, 3, false, 3, 4},
    {"MEMBRANE9R", 7, 9, 4, 4, 1, 2, 3, false, 3, 4}, {"HEX8", 8, 8, 8, 12, 6, 3, 3, false, 5, 4},
    {"HEX8R", 8, 8, 1, 12, 6, 3, 3, false, 5, 1},     {"HEX20", 9, 20, 27, 12, 6, 3, 3, false, 5, 9},
    {"HEX20R", 9, 20, 8, 12, 6, 3, 3, false, 5, 4},   {"HEX27", 9, 27, 27, 12, 6, 3, 3, false, 5, 9},
    {"HEX27R", 9, 27, 8, 12, 6, 3, 3, false, 5, 4},   {"WEDGE6", 10, 6, 2, 9, 5, 3, 3, false, 7, 4},
    {"WEDGE15", 11, 15, 9, 9, 5, 3, 3, false, 7, 9},  {"WEDGE18", 11, 18, 9, 9, 5, 3, 3, false, 7, 9},
    {"TET4", 12, 4, 1, 6, 4, 3, 3, false, 4, 1},      {"TET10", 13, 10, 4, 6, 4, 3, 3, false, 4, 3},
    {"PYRAMID5", 14, 5, 5, 8, 5, 3, 3, false, 7, 4},
};

} // namespace

TEST(shc_ShapeDictionary, everyLabelHasItsRow)
{
    std::set<std::string> seen;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.label);
        const shc_Topology* shape = shc_ShapeDictionary::GetShape(row.label);
        ASSERT_NE(shape, nullptr);
        EXPECT_STREQ(shape->Label(), row.label);
        EXPECT_EQ(shape->Family(), row.family);
        EXPECT_EQ(shape->NumNodes(), row.nodes);
        EXPECT_EQ(shape->NumIntegrationPoints(), row.points);
        EXPECT_EQ(shape->NumEdges(), row.edges);
        EXPECT_EQ(shape->NumFaces(), row.faces);
        EXPECT_EQ(shape->Dimension(), row.dimension);
        EXPECT_EQ(shape->SpaceDimension(), row.space);
        EXPECT_EQ(shape->IsAxisymmetric(), row.axisymmetric);
        EXPECT_EQ(shape->ShapeCode(), row.shapeCode);
        EXPECT_EQ(shape->MaxIntegrationPointsPerFace(), row.pointsPerFace);
        EXPECT_EQ(shape->Is3DShell(), row.dimension == 2 && row.space == 3);
        EXPECT_TRUE(seen.insert(row.label).second);
    }
    EXPECT_EQ(shc_ShapeDictionary::NumShapes(), static_cast<int>(seen.size()));
}

TEST(shc_ShapeDictionary, shapesAreListedInLabelOrder)
{
    for (int i = 1; i < shc_ShapeDictionary::NumShapes(); ++i)
        EXPECT_LT(std::string(shc_ShapeDictionary::Shape(i - 1).Label()),
                  std::string(shc_ShapeDictionary::Shape(i).Label()));
}

TEST(shc_ShapeDictionary, unknownLabelsGiveNull)
{
    for (const char* label : {"", "HEX", "HEX88", "hex8", "HEX8 ", " HEX8", "TRI3R", "PYRAMID13", "ARS3D", "ZZZ", "A"})
        EXPECT_EQ(shc_ShapeDictionary::GetShape(label), nullptr) << label;
    EXPECT_EQ(shc_ShapeDictionary::GetShape(static_cast<const char*>(nullptr)), nullptr);
}

TEST(shc_ShapeDictionary, aViewNeedNoEndingZero)
{
    const std::string text = "HEX20RX";
    const shc_Topology* shape = shc_ShapeDictionary::GetShape(std::string_view(text).substr(0, 6));
    ASSERT_NE(shape, nullptr);
    EXPECT_STREQ(shape->Label(), "HEX20R");
    EXPECT_STREQ(shc_ShapeDictionary::GetShape(std::string_view(text).substr(0, 5))->Label(), "HEX20");
}

TEST(shc_ShapeDictionary, anUnknownLabelDoesNotDisturbTheNextLookup)
{
    const shc_Topology* first = shc_ShapeDictionary::GetShape("TET4");
    EXPECT_EQ(shc_ShapeDictionary::GetShape("TET5"), nullptr);
    EXPECT_EQ(shc_ShapeDictionary::GetShape("TET4"), first);
    EXPECT_NE(shc_ShapeDictionary::GetShape("TET10"), first);
}

TEST(shc_ShapeDictionary, allThreadsSeeTheSameTopologies)
{
    std::vector<const shc_Topology*> found(8, nullptr);
    std::vector<std::thread> threads;
    for (const shc_Topology*& slot : found)
        threads.emplace_back([&slot] { slot = shc_ShapeDictionary::GetShape("WEDGE15"); });
    for (std::thread& thread : threads) thread.join();
    for (const shc_Topology* shape : found) EXPECT_EQ(shape, shc_ShapeDictionary::GetShape("WEDGE15"));
}
