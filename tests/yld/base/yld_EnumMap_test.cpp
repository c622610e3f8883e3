#include "yld_EnumMap.h"

#include "yld_Exception.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
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
    const char* message = "Could not map DataType Enumeration";
    expectMap(mapDataType, rows, message);
    expectMap(unMapDataType, swapped(rows), message);
}

TEST(yld_EnumMap, dataTypeByName)
{
    EXPECT_EQ(yld_Enum::BOOLEAN, mapDataType(static_cast<fld_DataTypeEnm>(1)));
    EXPECT_EQ(yld_Enum::INTEGER, mapDataType(static_cast<fld_DataTypeEnm>(2)));
    EXPECT_EQ(yld_Enum::SCALAR, mapDataType(static_cast<fld_DataTypeEnm>(3)));
    EXPECT_EQ(yld_Enum::VECTOR, mapDataType(static_cast<fld_DataTypeEnm>(4)));
    EXPECT_EQ(yld_Enum::MATRIX, mapDataType(static_cast<fld_DataTypeEnm>(5)));
    EXPECT_EQ(yld_Enum::QUATERNION_2D, mapDataType(static_cast<fld_DataTypeEnm>(6)));
    EXPECT_EQ(yld_Enum::QUATERNION_3D, mapDataType(static_cast<fld_DataTypeEnm>(7)));
    EXPECT_EQ(yld_Enum::TENSOR_3D_FULL, mapDataType(static_cast<fld_DataTypeEnm>(9)));
    EXPECT_EQ(yld_Enum::TENSOR_3D_PLANAR, mapDataType(static_cast<fld_DataTypeEnm>(10)));
    EXPECT_EQ(yld_Enum::TENSOR_3D_SURFACE, mapDataType(static_cast<fld_DataTypeEnm>(11)));
    EXPECT_EQ(yld_Enum::TENSOR_2D_PLANAR, mapDataType(static_cast<fld_DataTypeEnm>(12)));
    EXPECT_EQ(yld_Enum::TENSOR_2D_SURFACE, mapDataType(static_cast<fld_DataTypeEnm>(13)));
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
    EXPECT_EQ(yld_Enum::UNDEFINED_POSITION, mapOutputPosition(static_cast<fld_OutputPositionEnm>(0)));
    EXPECT_EQ(yld_Enum::INTEGRATION_POINT, mapOutputPosition(static_cast<fld_OutputPositionEnm>(2)));
    EXPECT_EQ(yld_Enum::ELEMENT_FACE, mapOutputPosition(static_cast<fld_OutputPositionEnm>(3)));
    EXPECT_EQ(yld_Enum::ELEMENT_NODAL, mapOutputPosition(static_cast<fld_OutputPositionEnm>(4)));
    EXPECT_EQ(yld_Enum::WHOLE_ELEMENT, mapOutputPosition(static_cast<fld_OutputPositionEnm>(5)));
    EXPECT_EQ(yld_Enum::CENTROID, mapOutputPosition(static_cast<fld_OutputPositionEnm>(6)));
    EXPECT_EQ(yld_Enum::WHOLE_REGION, mapOutputPosition(static_cast<fld_OutputPositionEnm>(7)));
    EXPECT_EQ(yld_Enum::WHOLE_PART_INSTANCE, mapOutputPosition(static_cast<fld_OutputPositionEnm>(8)));
    EXPECT_EQ(yld_Enum::WHOLE_MODEL, mapOutputPosition(static_cast<fld_OutputPositionEnm>(9)));
    EXPECT_EQ(yld_Enum::GENERAL_PARTICLE, mapOutputPosition(static_cast<fld_OutputPositionEnm>(10)));
    EXPECT_EQ(yld_Enum::ELEMENT_FACE_INTEGRATION_POINT, mapOutputPosition(static_cast<fld_OutputPositionEnm>(16)));
    EXPECT_EQ(yld_Enum::SURFACE_INTEGRATION_POINT, mapOutputPosition(static_cast<fld_OutputPositionEnm>(17)));
}

TEST(yld_EnumMap, invariant)
{
    const Rows rows = {{0, 1}, {1, 2}, {2, 3}, {3, 9}, {4, 10}, {5, 11}, {6, 4}, {7, 5}, {8, 6}, {9, 7}, {10, 8}};
    const char* message = "Could not map Invariant Enumeration";
    expectMap(mapInvarEnum, rows, message);
    expectMap(unMapInvarEnum, swapped(rows), message);
}

TEST(yld_EnumMap, invariantByName)
{
    EXPECT_EQ(yld_Enum::MAX_PRINCIPAL, mapInvarEnum(static_cast<fld_InvariantEnm>(0)));
    EXPECT_EQ(yld_Enum::MID_PRINCIPAL, mapInvarEnum(static_cast<fld_InvariantEnm>(1)));
    EXPECT_EQ(yld_Enum::MIN_PRINCIPAL, mapInvarEnum(static_cast<fld_InvariantEnm>(2)));
    EXPECT_EQ(yld_Enum::MAX_INPLANE_PRINCIPAL, mapInvarEnum(static_cast<fld_InvariantEnm>(3)));
    EXPECT_EQ(yld_Enum::MIN_INPLANE_PRINCIPAL, mapInvarEnum(static_cast<fld_InvariantEnm>(4)));
    EXPECT_EQ(yld_Enum::OUTOFPLANE_PRINCIPAL, mapInvarEnum(static_cast<fld_InvariantEnm>(5)));
    EXPECT_EQ(yld_Enum::MISES, mapInvarEnum(static_cast<fld_InvariantEnm>(6)));
    EXPECT_EQ(yld_Enum::TRESCA, mapInvarEnum(static_cast<fld_InvariantEnm>(7)));
    EXPECT_EQ(yld_Enum::PRESS, mapInvarEnum(static_cast<fld_InvariantEnm>(8)));
    EXPECT_EQ(yld_Enum::INV3, mapInvarEnum(static_cast<fld_InvariantEnm>(9)));
    EXPECT_EQ(yld_Enum::MAGNITUDE, mapInvarEnum(static_cast<fld_InvariantEnm>(10)));
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
    const char* message = "Could not map SourceType Enumeration";
    expectMap(mapSourceType, identity(0, 4), message);
    expectMap(unMapSourceType, identity(0, 4), message);
}

TEST(yld_EnumMap, axisSharesTheInvariantMessage)
{
    const char* message = "Could not map Invariant Enumeration";
    expectMap(mapAxisEnum, identity(0, 2), message);
    expectMap(unMapAxisEnum, identity(0, 2), message);
}

TEST(yld_EnumMap, orientationMethodSharesTheInvariantMessage)
{
    const char* message = "Could not map Invariant Enumeration";
    expectMap(mapOrientationMethod, identity(0, 2), message);
    expectMap(unMapOrientationMethod, identity(0, 2), message);
}

TEST(yld_EnumMap, datumSystemSharesTheInvariantMessage)
{
    expectMap(unMapDatumCsysType, identity(0, 3), "Could not map Invariant Enumeration");
}

TEST(yld_EnumMap, relativePositionHasNo4)
{
    const Rows rows = {{0, 0}, {1, 1}, {2, 2}, {3, 3}, {5, 5}, {6, 6}, {7, 7}, {8, 8}};
    const char* message = "Could not map RelativePosition Enumeration";
    expectMap(mapRelativePositionEnm, rows, message);
    expectMap(unMapRelativePositionEnm, rows, message);
}

TEST(yld_EnumMap, arrowHeadStyle)
{
    const char* message = "Could not map ArrowHeadStyle Enumeration";
    expectMap(mapArrowHeadStyleEnm, identity(0, 8), message);
    expectMap(unMapArrowHeadStyleEnm, identity(0, 8), message);
}

TEST(yld_EnumMap, lineStyle)
{
    const char* message = "Could not map Line Style Enumeration";
    expectMap(mapLineStyleEnm, identity(0, 4), message);
    expectMap(unMapLineStyleEnm, identity(0, 4), message);
}

TEST(yld_EnumMap, lineThickness)
{
    const char* message = "Could not map LineThickness Enumeration";
    expectMap(mapLineThicknessEnm, identity(0, 3), message);
    expectMap(unMapLineThicknessEnm, identity(0, 3), message);
}

TEST(yld_EnumMap, backgroundStyle)
{
    const char* message = "Could not map yld_Enum::BackgroundStyleEnm Enumeration";
    expectMap(mapBackgroundStyleEnm, identity(0, 2), message);
    expectMap(unMapBackgroundStyleEnm, identity(0, 2), message);
}

TEST(yld_EnumMap, lineJustification)
{
    const char* message = "Could not map yld_Enum::LineJustificationEnm Enumeration";
    expectMap(mapLineJustificationEnm, identity(0, 2), message);
    expectMap(unMapLineJustificationEnm, identity(0, 2), message);
}

TEST(yld_EnumMap, stackDirection)
{
    const char* message = "Could not map stack direction enumeration.";
    expectMap(mapStackDirectionEnm, identity(0, 3), message);
    expectMap(unMapStackDirectionEnumToStackDirection, identity(0, 3), message);
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

TEST(yld_EnumMap, faceOfASolid)
{
    const int faces[] = {11, 12, 13, 14, 15, 16, 0};
    for (int number = 0; number <= 6; ++number) EXPECT_EQ(faces[number], mapFaceIndex(number, false, false)) << number;
}

TEST(yld_EnumMap, faceOfASolidsEdge)
{
    const int faces[] = {11, 12, 13, 14, 0, 0, 0};
    for (int number = 0; number <= 6; ++number) EXPECT_EQ(faces[number], mapFaceIndex(number, false, true)) << number;
}

TEST(yld_EnumMap, faceOfAShell)
{
    const int faces[] = {1001, 1002, 0, 0, 0, 0, 1003};
    for (int number = 0; number <= 6; ++number) EXPECT_EQ(faces[number], mapFaceIndex(number, true, false)) << number;
}

TEST(yld_EnumMap, faceOfAShellsEdge)
{
    const int faces[] = {11, 12, 13, 14, 0, 0, 1003};
    for (int number = 0; number <= 6; ++number) EXPECT_EQ(faces[number], mapFaceIndex(number, true, true)) << number;
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
