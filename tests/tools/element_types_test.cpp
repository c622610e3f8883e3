#include "element_types.h"

#include <gtest/gtest.h>
#include <set>

namespace {

std::string labelOf(const char* name, int numNodes, int dimension)
{
    const tool_ElementType* const type = tool_elementType(name, numNodes, dimension);
    return type == nullptr ? "" : type->label;
}

} // namespace

TEST(element_types, caseAndCountInTheNameDoNotMatter)
{
    EXPECT_EQ("HEX8", labelOf("HEX", 8, 3));
    EXPECT_EQ("HEX8", labelOf("hex8", 8, 3));
    EXPECT_EQ("TET4", labelOf("Tetra4", 4, 3));
    EXPECT_EQ("TET10", labelOf("TETRA", 10, 3));
}

TEST(element_types, aCountInTheNameMustBeTheBlocksOwn)
{
    EXPECT_EQ("", labelOf("HEX8", 20, 3));
    EXPECT_EQ("", labelOf("TETRA10", 4, 3));
}

TEST(element_types, flatElementsDependOnTheSpace)
{
    EXPECT_EQ("QUAD4", labelOf("QUAD", 4, 2));
    EXPECT_EQ("SHELL4", labelOf("QUAD", 4, 3));
    EXPECT_EQ("TRI6", labelOf("TRI", 6, 2));
    EXPECT_EQ("SHELL6", labelOf("TRI", 6, 3));
    EXPECT_EQ("TRUSS2D2", labelOf("BAR", 2, 2));
    EXPECT_EQ("TRUSS2", labelOf("BAR", 2, 3));
    EXPECT_EQ("", labelOf("HEX8", 8, 2));
}

TEST(element_types, unknownNamesAndCountsHaveNoType)
{
    EXPECT_EQ("", labelOf("NSIDED", 8, 3));
    EXPECT_EQ("", labelOf("", 8, 3));
    EXPECT_EQ("", labelOf("8", 8, 3));
    EXPECT_EQ("", labelOf("HEX8R", 8, 3));
    EXPECT_EQ("", labelOf("PYRAMID13", 13, 3));
}

TEST(element_types, everyOrderIsAPermutation)
{
    for (const auto& [name, count] :
         {std::pair("HEX", 20), std::pair("HEX", 27), std::pair("WEDGE", 15), std::pair("WEDGE", 18)}) {
        const tool_ElementType* const type = tool_elementType(name, count, 3);
        ASSERT_NE(nullptr, type);
        ASSERT_NE(nullptr, type->order);
        const std::set<int> places(type->order, type->order + count);
        EXPECT_EQ(static_cast<std::size_t>(count), places.size());
        EXPECT_EQ(0, *places.begin());
        EXPECT_EQ(count - 1, *places.rbegin());
    }
}

TEST(element_types, integrationPoints)
{
    const auto points = [](const char* name, int numNodes, int dimension) {
        return tool_elementType(name, numNodes, dimension)->numPoints;
    };
    EXPECT_EQ(8, points("HEX", 8, 3));
    EXPECT_EQ(27, points("HEX", 20, 3));
    EXPECT_EQ(27, points("HEX", 27, 3));
    EXPECT_EQ(1, points("TET", 4, 3));
    EXPECT_EQ(4, points("TET", 10, 3));
    EXPECT_EQ(2, points("WEDGE", 6, 3));
    EXPECT_EQ(9, points("WEDGE", 15, 3));
    EXPECT_EQ(5, points("PYRAMID", 5, 3));
    EXPECT_EQ(4, points("SHELL", 4, 3));
    EXPECT_EQ(9, points("QUAD", 8, 2));
    EXPECT_EQ(3, points("TRI", 6, 2));
    EXPECT_EQ(2, points("BAR", 3, 3));
}
