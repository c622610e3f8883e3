#include "yld_EnumMap.h"

#include "yld_Exception.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using Rows = std::vector<std::pair<int, int>>;

// Numbers that are tried besides those of the tables.
std::vector<int> numbersToTry()
{
    std::vector<int> numbers = {INT_MIN, INT_MAX, 99, 999, 4001, 65536};
    for (int number = -3; number <= 40; ++number) numbers.push_back(number);
    return numbers;
}

std::string messageOf(const yld_Exception& error) { return error.JournalMessage().cStr(); }

/// Calls the map with every number to try; those of the rows (first to second) must give their partner, all
/// others must raise error 6 with the message.
template<class From, class To> void expectMap(To (*map)(From), const Rows& rows, const char* message)
{
    for (const int number : numbersToTry()) {
        SCOPED_TRACE(number);
        const std::pair<int, int>* row = nullptr;
        for (const auto& candidate : rows)
            if (candidate.first == number) row = &candidate;
        if (row) {
            EXPECT_EQ(row->second, static_cast<int>(map(static_cast<From>(number))));
            continue;
        }
        try {
            map(static_cast<From>(number));
            ADD_FAILURE() << "mapped";
        } catch (const yld_Exception& error) {
            EXPECT_EQ(message, messageOf(error));
            EXPECT_EQ(6, static_cast<int>(error.errorNo()));
        }
    }
}

Rows swapped(const Rows& rows)
{
    Rows result;
    for (const auto& row : rows) result.emplace_back(row.second, row.first);
    return result;
}

/// The store's numbers and the public ones, paired one to one.
template<class Store, class Public>
void expectBothWays(Public (*map)(Store), Store (*unMap)(Public), const Rows& rows, const char* message)
{
    expectMap(map, rows, message);
    expectMap(unMap, swapped(rows), message);
}

/// What the store's numbers mean, by the names that clients write.
template<class Store, class Public>
void expectNames(Public (*map)(Store), const std::vector<std::pair<int, std::type_identity_t<Public>>>& rows)
{
    for (const auto& [number, name] : rows) EXPECT_EQ(name, map(static_cast<Store>(number))) << number;
}

Rows identity(int first, int last)
{
    Rows rows;
    for (int number = first; number <= last; ++number) rows.emplace_back(number, number);
    return rows;
}

} // namespace

// Rows are store number, public number.

TEST(yld_EnumMap, dataType)
{
    const Rows rows = {{1, 0},  {2, 1}, {3, 2},  {4, 3},  {5, 4},  {6, 11},
                       {7, 10}, {9, 5}, {10, 6}, {11, 7}, {12, 8}, {13, 9}};
    expectBothWays(mapDataType, unMapDataType, rows, "Could not map DataType Enumeration");
}

TEST(yld_EnumMap, dataTypeByName)
{
    expectNames(mapDataType, {{1, yld_Enum::BOOLEAN},
                              {2, yld_Enum::INTEGER},
                              {3, yld_Enum::SCALAR},
                              {4, yld_Enum::VECTOR},
                              {5, yld_Enum::MATRIX},
                              {6, yld_Enum::QUATERNION_2D},
                              {7, yld_Enum::QUATERNION_3D},
                              {9, yld_Enum::TENSOR_3D_FULL},
                              {10, yld_Enum::TENSOR_3D_PLANAR},
                              {11, yld_Enum::TENSOR_3D_SURFACE},
                              {12, yld_Enum::TENSOR_2D_PLANAR},
                              {13, yld_Enum::TENSOR_2D_SURFACE}});
}

TEST(yld_EnumMap, aFieldWithoutATypeHasNoStoreNumber)
{
    EXPECT_THROW(unMapDataType(yld_Enum::UNDEFINED_DATATYPE), yld_Exception);
}

TEST(yld_EnumMap, outputPositionFromTheStore)
{
    const Rows rows = {{0, 0}, {1, 1},  {12, 1}, {2, 3},   {3, 5},   {4, 2},  {5, 8},  {6, 4},
                       {7, 9}, {8, 10}, {9, 11}, {10, 12}, {11, 13}, {16, 6}, {17, 7}, {18, 15}};
    expectMap(mapOutputPosition, rows, "Could not map OutputPosition Enumeration");
}

TEST(yld_EnumMap, outputPositionToTheStore)
{
    const Rows rows = {{0, 0},  {1, 1},  {3, 2},   {5, 3},   {2, 4},   {8, 5},  {4, 6},  {9, 7},
                       {10, 8}, {11, 9}, {12, 10}, {13, 11}, {14, 12}, {6, 16}, {7, 17}, {15, 18}};
    expectMap(unMapOutputPosition, rows, "Could not map OutputPosition Enumeration");
}

TEST(yld_EnumMap, outputPosition12IsNodalLike1)
{
    EXPECT_EQ(yld_Enum::NODAL, mapOutputPosition(static_cast<fld_OutputPositionEnm>(12)));
    EXPECT_EQ(yld_Enum::NODAL, mapOutputPosition(static_cast<fld_OutputPositionEnm>(1)));
    EXPECT_EQ(1, static_cast<int>(unMapOutputPosition(yld_Enum::NODAL)));
}

TEST(yld_EnumMap, publicPosition14ComesBackAsNodal)
{
    const fld_OutputPositionEnm stored = unMapOutputPosition(static_cast<yld_Enum::yld_ResultPositionEnum>(14));
    EXPECT_EQ(12, static_cast<int>(stored));
    EXPECT_EQ(yld_Enum::NODAL, mapOutputPosition(stored));
}

TEST(yld_EnumMap, outputPositionByName)
{
    expectNames(mapOutputPosition, {{0, yld_Enum::UNDEFINED_POSITION},
                                    {2, yld_Enum::INTEGRATION_POINT},
                                    {3, yld_Enum::ELEMENT_FACE},
                                    {4, yld_Enum::ELEMENT_NODAL},
                                    {5, yld_Enum::WHOLE_ELEMENT},
                                    {6, yld_Enum::CENTROID},
                                    {7, yld_Enum::WHOLE_REGION},
                                    {8, yld_Enum::WHOLE_PART_INSTANCE},
                                    {9, yld_Enum::WHOLE_MODEL},
                                    {10, yld_Enum::GENERAL_PARTICLE},
                                    {16, yld_Enum::ELEMENT_FACE_INTEGRATION_POINT},
                                    {17, yld_Enum::SURFACE_INTEGRATION_POINT}});
}

TEST(yld_EnumMap, invariant)
{
    const Rows rows = {{0, 1}, {1, 2}, {2, 3}, {3, 9}, {4, 10}, {5, 11}, {6, 4}, {7, 5}, {8, 6}, {9, 7}, {10, 8}};
    expectBothWays(mapInvarEnum, unMapInvarEnum, rows, "Could not map Invariant Enumeration");
}

TEST(yld_EnumMap, invariantByName)
{
    expectNames(mapInvarEnum, {{0, yld_Enum::MAX_PRINCIPAL},
                               {1, yld_Enum::MID_PRINCIPAL},
                               {2, yld_Enum::MIN_PRINCIPAL},
                               {3, yld_Enum::MAX_INPLANE_PRINCIPAL},
                               {4, yld_Enum::MIN_INPLANE_PRINCIPAL},
                               {5, yld_Enum::OUTOFPLANE_PRINCIPAL},
                               {6, yld_Enum::MISES},
                               {7, yld_Enum::TRESCA},
                               {8, yld_Enum::PRESS},
                               {9, yld_Enum::INV3},
                               {10, yld_Enum::MAGNITUDE}});
}

TEST(yld_EnumMap, theUndefinedInvariantHasNoStoreNumber)
{
    try {
        unMapInvarEnum(yld_Enum::UNDEFINED_INVARIANT);
        ADD_FAILURE() << "mapped";
    } catch (const yld_Exception& error) {
        EXPECT_EQ("Could not map Invariant Enumeration", messageOf(error));
    }
}

TEST(yld_EnumMap, sourceType)
{
    expectBothWays(mapSourceType, unMapSourceType, identity(0, 4), "Could not map SourceType Enumeration");
}

TEST(yld_EnumMap, axisSharesTheInvariantMessage)
{
    expectBothWays(mapAxisEnum, unMapAxisEnum, identity(0, 2), "Could not map Invariant Enumeration");
}

TEST(yld_EnumMap, orientationMethodSharesTheInvariantMessage)
{
    expectBothWays(mapOrientationMethod, unMapOrientationMethod, identity(0, 2), "Could not map Invariant Enumeration");
}

TEST(yld_EnumMap, datumSystemSharesTheInvariantMessage)
{
    expectMap(unMapDatumCsysType, identity(0, 3), "Could not map Invariant Enumeration");
}

TEST(yld_EnumMap, relativePositionHasNo4)
{
    const Rows rows = {{0, 0}, {1, 1}, {2, 2}, {3, 3}, {5, 5}, {6, 6}, {7, 7}, {8, 8}};
    expectBothWays(mapRelativePositionEnm, unMapRelativePositionEnm, rows,
                   "Could not map RelativePosition Enumeration");
}

TEST(yld_EnumMap, arrowHeadStyle)
{
    expectBothWays(mapArrowHeadStyleEnm, unMapArrowHeadStyleEnm, identity(0, 8),
                   "Could not map ArrowHeadStyle Enumeration");
}

TEST(yld_EnumMap, lineStyle)
{
    expectBothWays(mapLineStyleEnm, unMapLineStyleEnm, identity(0, 4), "Could not map Line Style Enumeration");
}

TEST(yld_EnumMap, lineThickness)
{
    expectBothWays(mapLineThicknessEnm, unMapLineThicknessEnm, identity(0, 3),
                   "Could not map LineThickness Enumeration");
}

TEST(yld_EnumMap, backgroundStyle)
{
    expectBothWays(mapBackgroundStyleEnm, unMapBackgroundStyleEnm, identity(0, 2),
                   "Could not map yld_Enum::BackgroundStyleEnm Enumeration");
}

TEST(yld_EnumMap, lineJustification)
{
    expectBothWays(mapLineJustificationEnm, unMapLineJustificationEnm, identity(0, 2),
                   "Could not map yld_Enum::LineJustificationEnm Enumeration");
}

TEST(yld_EnumMap, stackDirection)
{
    expectBothWays(mapStackDirectionEnm, unMapStackDirectionEnumToStackDirection, identity(0, 3),
                   "Could not map stack direction enumeration.");
}

TEST(yld_EnumMap, dimensionNeverRaises)
{
    EXPECT_EQ(yld_Enum::THREE_D, mapDimension(static_cast<fld_DimensionEnm>(2000)));
    EXPECT_EQ(yld_Enum::TWO_D_PLANAR, mapDimension(static_cast<fld_DimensionEnm>(2001)));
    EXPECT_EQ(yld_Enum::AXISYMMETRIC, mapDimension(static_cast<fld_DimensionEnm>(2002)));
    for (const int other : {INT_MIN, -1, 0, 1, 2, 3, 1999, 2003, 4001, INT_MAX})
        EXPECT_EQ(yld_Enum::UNKNOWN_DIMENSION, mapDimension(static_cast<fld_DimensionEnm>(other))) << other;
}

TEST(yld_EnumMap, partTypeNeverRaises)
{
    EXPECT_EQ(yld_Enum::DEFORMABLE_BODY, mapPartType(static_cast<prtC_PartTypeEnm>(4001)));
    EXPECT_EQ(yld_Enum::DISCRETE_RIGID_SURFACE, mapPartType(static_cast<prtC_PartTypeEnm>(4002)));
    EXPECT_EQ(yld_Enum::ANALYTIC_RIGID_SURFACE, mapPartType(static_cast<prtC_PartTypeEnm>(4003)));
    for (const int other : {INT_MIN, -1, 0, 1, 2, 2000, 4000, 4004, INT_MAX})
        EXPECT_EQ(yld_Enum::DEFORMABLE_BODY, mapPartType(static_cast<prtC_PartTypeEnm>(other))) << other;
}

TEST(yld_EnumMap, faceOfASolidAndOfAShell)
{
    struct Row
    {
        bool isShell;
        bool isEdge;
        int faces[7]; // of the numbers from 0
    };
    for (const Row& row :
         {Row{false, false, {11, 12, 13, 14, 15, 16, 0}}, Row{false, true, {11, 12, 13, 14, 0, 0, 0}},
          Row{true, false, {1001, 1002, 0, 0, 0, 0, 1003}}, Row{true, true, {11, 12, 13, 14, 0, 0, 1003}}}) {
        for (int number = 0; number <= 6; ++number) {
            EXPECT_EQ(row.faces[number], mapFaceIndex(number, row.isShell, row.isEdge))
                << number << (row.isShell ? " of a shell" : " of a solid") << (row.isEdge ? "'s edge" : "");
        }
    }
}

TEST(yld_EnumMap, faceOutsideTheTableIsUnknown)
{
    for (const int number : {INT_MIN, -1, 7, 8, 11, 1001, INT_MAX})
        for (const bool shell : {false, true})
            for (const bool edge : {false, true})
                EXPECT_EQ(yld_Enum::FACE_UNKNOWN, mapFaceIndex(number, shell, edge)) << number;
}

TEST(yld_EnumMap, faceBackToItsNumber)
{
    const Rows rows = {{2, 1},   {12, 1}, {102, 1}, {1002, 1}, {3, 2},  {13, 2},
                       {103, 2}, {14, 3}, {104, 3}, {15, 4},   {16, 5}, {1003, 6}};
    std::vector<int> tried = {INT_MIN, INT_MAX};
    for (int face = -2; face <= 1100; ++face) tried.push_back(face);
    for (const int face : tried) {
        int expected = 0;
        for (const auto& row : rows)
            if (row.first == face) expected = row.second;
        EXPECT_EQ(expected, unMapFaceIndex(static_cast<yld_Enum::yld_ElementFaceEnum>(face))) << face;
    }
}

TEST(yld_EnumMap, theSidesOfAShellComeBackFromTheStore)
{
    for (const yld_Enum::yld_ElementFaceEnum side : {yld_Enum::SIDE1, yld_Enum::SIDE2, yld_Enum::SIDE3})
        EXPECT_EQ(side, mapFaceIndex(unMapFaceIndex(side), true, false));
}
