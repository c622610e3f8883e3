#include "platform/result/fld_OutputPosition.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace {

using Position = fld_OutputPositionEnm;
using Carrier = fld_OutputPosition::Carrier;
using PerCarrier = fld_OutputPosition::PerCarrier;

std::set<int> codesWhere(bool (*holds)(const fld_OutputPosition&))
{
    std::set<int> codes;
    for (int code = -1; code < 40; ++code) {
        if (holds(fld_OutputPosition::of(code))) codes.insert(code);
    }
    return codes;
}

} // namespace

TEST(fld_OutputPosition, publicNumbersOfEachStoreNumber)
{
    struct Row
    {
        Position store;
        int shownAs;
        int askedAs;
        const char* name;
    };
    const Row rows[] = {{Position::UNDEFINED, 0, 0, "UNDEFINED_POSITION"},
                        {Position::NODAL, 1, 1, "NODAL"},
                        {Position::ELEMENT_NODAL, 2, 2, "ELEMENT_NODAL"},
                        {Position::INTEGRATION_POINT, 3, 3, "INTEGRATION_POINT"},
                        {Position::CENTROID, 4, 4, "CENTROID"},
                        {Position::ELEMENT_FACE, 5, 5, "ELEMENT_FACE"},
                        {Position::ELEMENT_FACE_INTEGRATION_POINT, 6, 6, "ELEMENT_FACE_INTEGRATION_POINT"},
                        {Position::SURFACE_INTEGRATION_POINT, 7, 7, "SURFACE_INTEGRATION_POINT"},
                        {Position::WHOLE_ELEMENT, 8, 8, "WHOLE_ELEMENT"},
                        {Position::WHOLE_REGION, 9, 9, "WHOLE_REGION"},
                        {Position::WHOLE_PART_INSTANCE, 10, 10, "WHOLE_PART_INSTANCE"},
                        {Position::WHOLE_MODEL, 11, 11, "WHOLE_MODEL"},
                        {Position::GENERAL_PARTICLE, 12, 12, "GENERAL_PARTICLE"},
                        {Position::WHOLE_FACE, 13, 13, ""},
                        {Position::NODAL_BY_ELEMENT, 1, 14, "NODAL"},
                        {Position::OTHER, 15, 15, ""}};
    for (const Row& row : rows) {
        const fld_OutputPosition& known = fld_OutputPosition::of(row.store);
        EXPECT_EQ(known.store, row.store);
        EXPECT_EQ(known.shownAs, row.shownAs) << static_cast<int>(row.store);
        EXPECT_EQ(known.askedAs, row.askedAs) << static_cast<int>(row.store);
        EXPECT_EQ(std::string(known.name ? known.name : ""), row.name);
        EXPECT_EQ(fld_OutputPosition::askedBy(row.askedAs), &known);
    }
    // Of two that are shown as one number the plain one stands for it.
    EXPECT_EQ(fld_OutputPosition::shownBy(1), &fld_OutputPosition::of(Position::NODAL));
    EXPECT_EQ(fld_OutputPosition::shownBy(14), nullptr);
}

TEST(fld_OutputPosition, everyPublicNumberAsksForOnePosition)
{
    constexpr int numbers = 16;
    std::set<const fld_OutputPosition*> rows;
    for (int number = 0; number < numbers; ++number) rows.insert(fld_OutputPosition::askedBy(number));
    EXPECT_FALSE(rows.contains(nullptr));
    EXPECT_EQ(rows.size(), 16u);
    for (const int number : {-1, 16, 17, 31, 32, 99, -2147483647}) {
        EXPECT_EQ(fld_OutputPosition::askedBy(number), nullptr) << number;
        EXPECT_EQ(fld_OutputPosition::shownBy(number), nullptr) << number;
    }
}

TEST(fld_OutputPosition, numbersThatMeanNothingKnowNothing)
{
    for (const int code : {-1, 13, 14, 15, 19, 31, 32, 99, -2147483647, 2147483647}) {
        const fld_OutputPosition& row = fld_OutputPosition::of(code);
        EXPECT_FALSE(row.isKnown()) << code;
        EXPECT_EQ(row.carrier, Carrier::NOTHING) << code;
        EXPECT_FALSE(row.isWritable || row.hasLabels || row.isMovedTo || row.takesCurves) << code;
        EXPECT_STREQ(row.notRead, "Results at unknown location not read.") << code;
        EXPECT_STREQ(row.curveText, "Unknown region") << code;
    }
}

TEST(fld_OutputPosition, carriersAndValuesPerCarrier)
{
    EXPECT_EQ(codesWhere([](const fld_OutputPosition& row) { return row.carrier == Carrier::NODE; }),
              (std::set<int>{1, 12}));
    EXPECT_EQ(codesWhere([](const fld_OutputPosition& row) { return row.carrier == Carrier::ELEMENT; }),
              (std::set<int>{2, 4, 5, 6}));
    EXPECT_EQ(codesWhere([](const fld_OutputPosition& row) { return row.carrier == Carrier::FACE; }),
              (std::set<int>{3, 11, 16, 17}));
    EXPECT_EQ(codesWhere([](const fld_OutputPosition& row) { return row.perCarrier == PerCarrier::NODES; }),
              (std::set<int>{4}));
    EXPECT_EQ(codesWhere([](const fld_OutputPosition& row) { return row.perCarrier == PerCarrier::POINTS; }),
              (std::set<int>{2}));
    EXPECT_EQ(codesWhere([](const fld_OutputPosition& row) { return row.perCarrier == PerCarrier::FACE_POINTS; }),
              (std::set<int>{16, 17}));
}

TEST(fld_OutputPosition, readingAndWriting)
{
    EXPECT_EQ(codesWhere([](const fld_OutputPosition& row) { return row.isWritable; }),
              (std::set<int>{1, 2, 4, 5, 6, 9}));
    EXPECT_EQ(codesWhere([](const fld_OutputPosition& row) { return row.hasLabels; }),
              (std::set<int>{1, 2, 3, 4, 5, 6, 12, 16, 17}));
    EXPECT_EQ(codesWhere([](const fld_OutputPosition& row) { return row.notRead == nullptr; }),
              (std::set<int>{1, 2, 3, 4, 5, 6, 9, 12, 16, 17}));
    EXPECT_EQ(codesWhere([](const fld_OutputPosition& row) { return row.notTaken == nullptr; }),
              (std::set<int>{1, 2, 3, 4, 5, 6, 12}));
    EXPECT_EQ(codesWhere([](const fld_OutputPosition& row) { return row.hasPointsInBulk; }), (std::set<int>{2, 16}));
    EXPECT_EQ(codesWhere([](const fld_OutputPosition& row) { return row.isMovedTo; }), (std::set<int>{4, 6}));
    EXPECT_EQ(codesWhere([](const fld_OutputPosition& row) { return row.takesCurves; }),
              (std::set<int>{0, 1, 2, 5, 7, 9}));
}
