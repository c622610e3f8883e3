#include "schema/kcnC_CORMLabelMap.h"

#include <gtest/gtest.h>

#include <string>

TEST(kcnC_CORMLabelMap, tellsLabelsAndValuesInBothDirections)
{
    const kcnC_CORMLabelMap& map = kcnC_CORMLabelMap::Instance();
    const char* labels[] = {"None", "U1", "U2", "U3", "UR1", "UR2", "UR3"};
    EXPECT_EQ(map.size(), 7);
    for (int value = 0; value < 7; ++value) {
        EXPECT_EQ(std::string(map.label(value)), labels[value]);
        int found = -1;
        EXPECT_TRUE(map.value(labels[value], found));
        EXPECT_EQ(found, value);
    }
    kcnC_CORMLabelMap::Finalize();
}

TEST(kcnC_CORMLabelMap, knowsNoOtherLabelsAndValues)
{
    const kcnC_CORMLabelMap& map = kcnC_CORMLabelMap::Instance();
    EXPECT_EQ(map.label(7), nullptr);
    EXPECT_EQ(map.label(-1), nullptr);
    int found = 42;
    EXPECT_FALSE(map.value("u1", found));
    EXPECT_FALSE(map.value("", found));
    EXPECT_EQ(found, 42);
    kcnC_CORMLabelMap::Finalize();
}
