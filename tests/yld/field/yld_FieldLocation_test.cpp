#include "result_model.h"

TEST(yld_FieldLocation, equalityLooksAtPositionAndPoints)
{
    const yld_SectionPoint one(1, "a");
    EXPECT_TRUE(yld_FieldLocation(yld_Enum::NODAL) == yld_FieldLocation(yld_Enum::NODAL));
    EXPECT_FALSE(yld_FieldLocation(yld_Enum::NODAL) == yld_FieldLocation(yld_Enum::CENTROID));
    EXPECT_FALSE(yld_FieldLocation(yld_Enum::NODAL) == yld_FieldLocation(yld_Enum::NODAL, one));
    EXPECT_TRUE(yld_FieldLocation(yld_Enum::NODAL, one) ==
                yld_FieldLocation(yld_Enum::NODAL, yld_SectionPoint(1, "a")));
    EXPECT_TRUE(yld_FieldLocation(yld_Enum::NODAL, one) !=
                yld_FieldLocation(yld_Enum::NODAL, yld_SectionPoint(1, "b")));
    EXPECT_EQ(yld_FieldLocation().position(), yld_Enum::UNDEFINED_POSITION);
}

TEST(yld_FieldLocation, pointsWithoutANumberAreDropped)
{
    yld_FieldLocation location(yld_Enum::CENTROID, yld_SectionPoint(0, "none"));
    EXPECT_EQ(location.sectionPoints().size(), 0);
    location.add(yld_SectionPoint(-1, ""));
    EXPECT_EQ(location.sectionPoints().size(), 0);
    location.add(yld_SectionPoint(2, "b"));
    location.add(yld_SectionPoint(2, "b"));
    location.add(yld_SectionPoint(2, "c"));
    EXPECT_EQ(location.sectionPoints().size(), 2);
    EXPECT_STREQ(location.sectionPoint(1).description().cStr(), "c");
}

TEST(yld_SequenceFieldLocation, oneEntryAPosition)
{
    yld_SequenceFieldLocation all;
    all.append(yld_Enum::CENTROID);
    all.append(yld_Enum::CENTROID);
    EXPECT_EQ(all.size(), 1);
    all.append(yld_Enum::CENTROID, yld_SectionPoint(1, "a"));
    all.append(yld_Enum::NODAL, yld_SectionPoint(1, "a"));
    all.append(yld_FieldLocation(yld_Enum::CENTROID, yld_SectionPoint(2, "b")));
    all.append(yld_FieldLocation(yld_Enum::CENTROID));
    EXPECT_EQ(all.size(), 2);
    EXPECT_EQ(all[0].sectionPoints().size(), 2);
    EXPECT_TRUE(all.isMember(yld_FieldLocation(yld_Enum::NODAL, yld_SectionPoint(1, "a"))));
    EXPECT_FALSE(all.isMember(yld_FieldLocation(yld_Enum::NODAL)));
    all.append(all);
    EXPECT_EQ(all.size(), 2);
    yld_SequenceFieldLocation other;
    other.append(yld_Enum::WHOLE_ELEMENT);
    all.append(other);
    EXPECT_EQ(all.size(), 3);
}

TEST(yld_SequenceFieldLocation, onlyAnIndexBehindTheCountIsRefused)
{
    yld_SequenceFieldLocation all;
    all.append(yld_Enum::CENTROID);
    EXPECT_EQ(failureOf([&] { all.constGet(2); }), "Index out of range.");
    EXPECT_EQ(failureOf([&] { all.get(2); }), "Index out of range.");
    EXPECT_EQ(failureOf([&] { all[2]; }), "Index out of range.");
    EXPECT_EQ(all.constGet(1).position(), yld_Enum::UNDEFINED_POSITION);
    EXPECT_EQ(yld_SequenceFieldLocation().constGet(0).position(), yld_Enum::UNDEFINED_POSITION);
}
