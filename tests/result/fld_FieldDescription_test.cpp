#include "platform/result/fld_FieldDescription.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

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
    EXPECT_EQ(fld_DataType::of(fld_DataTypeEnm::SCALAR).width, 1);
    EXPECT_EQ(fld_DataType::of(fld_DataTypeEnm::VECTOR).width, 0);
    EXPECT_EQ(fld_DataType::of(fld_DataTypeEnm::MATRIX).width, 0);
    EXPECT_EQ(fld_DataType::of(fld_DataTypeEnm::TENSOR_3D_FULL).width, 6);
    EXPECT_EQ(fld_DataType::of(fld_DataTypeEnm::TENSOR_3D_PLANAR).width, 4);
    EXPECT_EQ(fld_DataType::of(fld_DataTypeEnm::TENSOR_2D_PLANAR).width, 4);
    EXPECT_EQ(fld_DataType::of(fld_DataTypeEnm::TENSOR_3D_SURFACE).width, 3);
    EXPECT_EQ(fld_DataType::of(fld_DataTypeEnm::TENSOR_2D_SURFACE).width, 3);
    EXPECT_EQ(fld_DataType::of(fld_DataTypeEnm::QUATERNION_3D).width, 4);
    EXPECT_EQ(fld_DataType::of(fld_DataTypeEnm::QUATERNION_2D).width, 2);
}

namespace {

// Gives each kind of attribute another value.
void change(int& value) { value += 7; }
void change(float& value) { value += 0.5F; }
void change(bool& value) { value = !value; }
void change(std::string& value) { value += "x"; }
void change(std::vector<int>& value) { value.push_back(3); }
void change(std::vector<std::string>& value) { value.emplace_back("x"); }
template<class T> void change(lnk_ShortCut<T>& value) { value = lnk_ShortCut<T>(nullptr, 17); }

} // namespace

TEST(fld_FieldDescription, isTheSameByItsListOfAttributes)
{
    // The only ones that may differ: what tells blocks apart, and what follows from others.
    const std::set<std::string> free = {"key", "length", "instance name", "mesh index", "orientation"};
    std::vector<std::string> names;
    const fld_FieldDescription plain;
    fld_FieldDescription::attributes(plain, [&](const char* name, const auto&) { names.emplace_back(name); });
    EXPECT_TRUE(plain.isSame(plain, false));
    EXPECT_FALSE(plain.isSame(plain, true));
    for (std::size_t i = 0; i < names.size(); ++i) {
        fld_FieldDescription changed;
        std::size_t at = 0;
        fld_FieldDescription::attributes(changed, [&](const char*, auto& value) {
            if (at++ == i) change(value);
        });
        EXPECT_EQ(plain.isSame(changed, false), free.contains(names[i])) << names[i];
        if (names[i] != "orientation") {
            EXPECT_EQ(changed.isSame(plain, false), free.contains(names[i])) << names[i];
        }
    }
}

TEST(fld_FieldDescription, isNotTheSameWhereOnlyOneHasLocalSystems)
{
    fld_FieldDescription turned;
    turned.m_orientation = lnk_ShortCut<fld_FieldDescription>(nullptr, 17);
    EXPECT_TRUE(turned.isSame(fld_FieldDescription(), true));
    EXPECT_FALSE(turned.isSame(fld_FieldDescription(), false));
}
