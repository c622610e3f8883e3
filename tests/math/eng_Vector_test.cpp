#include "platform/math/eng_Vector.h"

#include "platform/math/geo_Vector.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

TEST(eng_Vector, magnitudeByHand)
{
    const float three[3] = {2, 3, 6};
    const float two[2] = {3, -4};
    const double one[1] = {-7};
    EXPECT_EQ(eng_VectorFloat(three, 3).magnitude(), 7);
    EXPECT_EQ(eng_VectorFloat(two, 2).magnitude(), 5);
    EXPECT_EQ(eng_VectorDouble(one, 1).magnitude(), 7);
    EXPECT_EQ(eng_VectorDouble(one, 0).magnitude(), 0);
    EXPECT_EQ(eng_VectorFloat(three, 3).length(), 3);
    EXPECT_EQ(eng_VectorFloat(three, 3)[1], 3);
}

TEST(eng_Vector, magnitudeOfLargeAndSmallComponents)
{
    const float large[3] = {2e37f, 3e37f, 6e37f};
    const float small[3] = {2e-37f, 3e-37f, 6e-37f};
    EXPECT_FLOAT_EQ(eng_VectorFloat(large, 3).magnitude(), 7e37f);
    EXPECT_FLOAT_EQ(eng_VectorFloat(small, 3).magnitude(), 7e-37f);
    const double wide[3] = {2e307, 3e307, -6e307};
    const double narrow[3] = {2e-310, 3e-310, 6e-310};
    EXPECT_DOUBLE_EQ(eng_VectorDouble(wide, 3).magnitude(), 7e307);
    EXPECT_NEAR(eng_VectorDouble(narrow, 3).magnitude(), 7e-310, 2e-323);
}

TEST(eng_Vector, magnitudeOfZeroInfinityAndNothing)
{
    const double zero[3] = {0, -0.0, 0};
    EXPECT_EQ(eng_VectorDouble(zero, 3).magnitude(), 0);
    const double infinite[3] = {1, -std::numeric_limits<double>::infinity(), 2};
    EXPECT_TRUE(std::isinf(eng_VectorDouble(infinite, 3).magnitude()));
    const float mixed[2] = {1e-30f, 1e30f};
    EXPECT_FLOAT_EQ(eng_VectorFloat(mixed, 2).magnitude(), 1e30f);
}

TEST(geo_Vector, arithmetic)
{
    const geo_Vector a(1, 2, 3);
    const geo_Vector b(4, -5, 6);
    EXPECT_EQ(a + b, geo_Vector(5, -3, 9));
    EXPECT_EQ(a - b, geo_Vector(-3, 7, -3));
    EXPECT_EQ(-a, geo_Vector(-1, -2, -3));
    EXPECT_EQ(2 * a, geo_Vector(2, 4, 6));
    EXPECT_EQ(a.dot(b), 12);
    EXPECT_EQ(a.cross(b), geo_Vector(27, 6, -13));
    EXPECT_EQ(geo_Vector(2, 3, 6).length(), 7);
}

TEST(geo_Vector, unitVectors)
{
    EXPECT_EQ(geo_Vector(0, 0, -1e-320).unit(), geo_Vector(0, 0, -1));
    EXPECT_EQ(geo_Vector(3e300, 4e300, 0).unit(), geo_Vector(0.6, 0.8, 0));
    EXPECT_EQ(geo_Vector().unit(), geo_Vector());
}
