#include "yld_EnumText.h"

#include <gtest/gtest.h>

TEST(yld_EnumText, givesTheNameOfAnEnumerator)
{
    EXPECT_STREQ(yld_EnumText::of(yld_Enum::TIME), "TIME");
    EXPECT_STREQ(yld_EnumText::of(yld_Enum::FREQUENCY), "FREQUENCY");
    EXPECT_STREQ(yld_EnumText::of(yld_Enum::MODAL), "MODAL");
    EXPECT_STREQ(yld_EnumText::of(yld_Enum::ARC_LENGTH), "ARC_LENGTH");
    EXPECT_STREQ(yld_EnumText::of(yld_Enum::ZANTRA_EXPLICIT), "ZANTRA_EXPLICIT");
    EXPECT_STREQ(yld_EnumText::of(yld_Enum::DOUBLE_PRECISION), "DOUBLE_PRECISION");
    EXPECT_STREQ(yld_EnumText::of(yld_Enum::WELD_MARINE), "WELD_MARINE");
    EXPECT_STREQ(yld_EnumText::of(yld_Enum::AXISYMMETRIC), "AXISYMMETRIC");
    EXPECT_STREQ(yld_EnumText::of(yld_Enum::DISCRETE_RIGID_SURFACE), "DISCRETE_RIGID_SURFACE");
    EXPECT_STREQ(yld_EnumText::of(yld_Enum::SYMMETRIC_MATRIX), "SYMMETRIC_MATRIX");
    EXPECT_STREQ(yld_EnumText::of(yld_Enum::TENSOR_2D_SURFACE), "TENSOR_2D_SURFACE");
    EXPECT_STREQ(yld_EnumText::of(yld_Enum::UNDEFINED_DATATYPE), "UNDEFINED_DATATYPE");
    EXPECT_STREQ(yld_EnumText::of(yld_Enum::NODAL), "NODAL");
    EXPECT_STREQ(yld_EnumText::of(yld_Enum::GENERAL_PARTICLE), "GENERAL_PARTICLE");
    EXPECT_STREQ(yld_EnumText::of(yld_Enum::OUTOFPLANE_PRINCIPAL), "OUTOFPLANE_PRINCIPAL");
    EXPECT_STREQ(yld_EnumText::of(yld_Enum::SIDE1), "SIDE1");
}

TEST(yld_EnumText, isNullForANumberThatIsNoEnumerators)
{
    EXPECT_EQ(yld_EnumText::of(static_cast<yld_Enum::yld_DomainEnum>(-1)), nullptr);
    EXPECT_EQ(yld_EnumText::of(static_cast<yld_Enum::yld_DomainEnum>(77)), nullptr);
    EXPECT_EQ(yld_EnumText::of(static_cast<yld_Enum::yld_ElementFaceEnum>(1000)), nullptr);
    EXPECT_EQ(yld_EnumText::of(static_cast<yld_Enum::yld_ResultPositionEnum>(14)), nullptr);
    EXPECT_EQ(yld_EnumText::of(static_cast<yld_Enum::yld_ResultPositionEnum>(-1)), nullptr);
    EXPECT_EQ(yld_EnumText::of(static_cast<yld_Enum::yld_DataTypeEnum>(13)), nullptr);
}
