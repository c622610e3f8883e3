#include "platform/result/fld_FieldDescription.h"

#include <gtest/gtest.h>

namespace {

std::string nameOf(const char* label, const char* keyText, int position = 1)
{
    fld_FieldDescription description;
    description.m_label = label;
    description.m_keyText = keyText;
    description.m_position = position;
    return description.fieldName();
}

} // namespace

TEST(fld_FieldDescription, ordinaryNameStaysAsItIs)
{
    EXPECT_EQ(nameOf("U", ""), "U");
    EXPECT_EQ(nameOf("d_U_x", ""), "d_U_x");
    EXPECT_EQ(nameOf("S", "no colon"), "S");
}

TEST(fld_FieldDescription, nameIsFilledUpOrCutToNineCharacters)
{
    EXPECT_EQ(nameOf("C", "1:tail"), "C        tail");
    EXPECT_EQ(nameOf("ABCDEFGHIJKL", "1:tail"), "ABCDEFGHItail");
    EXPECT_EQ(nameOf("C", "1:a:b"), "C        a:b");
    EXPECT_EQ(nameOf("C", ":"), "C        ");
}

TEST(fld_FieldDescription, derivativeKeepsItsEnds)
{
    EXPECT_EQ(nameOf("d_CPRESS_p1", "1:A/B"), "d_CPRESS   A/B_p1");
    EXPECT_EQ(nameOf("d_C_P_p1", "1:A"), "d_C_P      A_p1");
    EXPECT_EQ(nameOf("d_C", "1:A"), "d_C        A");
}

TEST(fld_FieldDescription, nodalValuesOfElementsAreNamedWithoutAKeyText)
{
    EXPECT_EQ(nameOf("T", "", 12), "T        ");
    EXPECT_EQ(nameOf("T", "x:y", 12), "T        y");
}

TEST(fld_FieldDescription, keyName)
{
    fld_FieldDescription description;
    description.m_label = "A:B";
    description.m_position = 2;
    description.m_dataType = 9;
    EXPECT_EQ(description.keyName(), "2:9:A:B");
}

TEST(fld_FieldDescription, widthsOfTypes)
{
    EXPECT_EQ(fld_FieldDescription::typeWidth(fld_DataTypeEnm::SCALAR), 1);
    EXPECT_EQ(fld_FieldDescription::typeWidth(fld_DataTypeEnm::VECTOR), 0);
    EXPECT_EQ(fld_FieldDescription::typeWidth(fld_DataTypeEnm::MATRIX), 0);
    EXPECT_EQ(fld_FieldDescription::typeWidth(fld_DataTypeEnm::TENSOR_3D_FULL), 6);
    EXPECT_EQ(fld_FieldDescription::typeWidth(fld_DataTypeEnm::TENSOR_3D_PLANAR), 4);
    EXPECT_EQ(fld_FieldDescription::typeWidth(fld_DataTypeEnm::TENSOR_2D_PLANAR), 4);
    EXPECT_EQ(fld_FieldDescription::typeWidth(fld_DataTypeEnm::TENSOR_3D_SURFACE), 3);
    EXPECT_EQ(fld_FieldDescription::typeWidth(fld_DataTypeEnm::TENSOR_2D_SURFACE), 3);
    EXPECT_EQ(fld_FieldDescription::typeWidth(fld_DataTypeEnm::QUATERNION_3D), 4);
    EXPECT_EQ(fld_FieldDescription::typeWidth(fld_DataTypeEnm::QUATERNION_2D), 2);
}
