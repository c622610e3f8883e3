#include "platform/result/fld_DataType.h"

#include "platform/math/eng_Tensor.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::vector<std::string> texts(std::span<const char* const> components)
{
    return {components.begin(), components.end()};
}

} // namespace

TEST(fld_DataType, publicNumbersNamesAndWidths)
{
    struct Row
    {
        int store;
        int shownAs;
        const char* name;
        int width;
    };
    const Row rows[] = {{1, 0, "BOOLEAN", 1},
                        {2, 1, "INTEGER", 1},
                        {3, 2, "SCALAR", 1},
                        {4, 3, "VECTOR", 0},
                        {5, 4, "MATRIX", 0},
                        {6, 11, "QUATERNION_2D", 2},
                        {7, 10, "QUATERNION_3D", 4},
                        {9, 5, "TENSOR_3D_FULL", 6},
                        {10, 6, "TENSOR_3D_PLANAR", 4},
                        {11, 7, "TENSOR_3D_SURFACE", 3},
                        {12, 8, "TENSOR_2D_PLANAR", 4},
                        {13, 9, "TENSOR_2D_SURFACE", 3}};
    for (const Row& row : rows) {
        const fld_DataType& type = fld_DataType::of(row.store);
        EXPECT_EQ(static_cast<int>(type.store), row.store);
        EXPECT_EQ(type.shownAs, row.shownAs) << row.name;
        EXPECT_STREQ(type.name, row.name);
        EXPECT_EQ(type.width, row.width) << row.name;
        EXPECT_EQ(&fld_DataType::shownBy(row.shownAs), &type) << row.name;
    }
    for (const int code : {0, 8, 14, 15}) {
        EXPECT_TRUE(fld_DataType::of(code).isOfStore) << code;
        EXPECT_EQ(fld_DataType::of(code).shownAs, fld_DataType::noNumber) << code;
    }
    for (const int code : {-1, 16, 31, 32, 2147483647}) EXPECT_FALSE(fld_DataType::of(code).isOfStore) << code;
    for (const int number : {-1, 12, 13, 99}) EXPECT_FALSE(fld_DataType::shownBy(number).isOfStore) << number;
}

TEST(fld_DataType, tensorsAgreeWithValueMathematics)
{
    for (int code = 0; code < 16; ++code) {
        const fld_DataType& type = fld_DataType::of(code);
        EXPECT_EQ(type.isTensor(), eng_DataType::numTensorComponents(code) > 0) << code;
        if (!type.isTensor()) continue;
        EXPECT_EQ(type.width, eng_DataType::numTensorComponents(code)) << code;
        EXPECT_EQ(type.components.size(), static_cast<std::size_t>(type.width)) << code;
        // Each component stands in the full tensor under the same name.
        const fld_DataType& full = fld_DataType::of(fld_DataTypeEnm::TENSOR_3D_FULL);
        for (std::size_t i = 0; i < type.components.size(); ++i) {
            EXPECT_STREQ(type.components[i], full.components[static_cast<std::size_t>(type.placesInFullTensor[i])]);
        }
    }
}

TEST(fld_DataType, componentsOfVectorsGoByTheSpace)
{
    const fld_DataType& vector = fld_DataType::of(fld_DataTypeEnm::VECTOR);
    EXPECT_EQ(texts(vector.components), (std::vector<std::string>{"1", "2", "3"}));
    EXPECT_EQ(texts(vector.planarComponents), (std::vector<std::string>{"1", "2"}));
    EXPECT_EQ(texts(fld_DataType::of(fld_DataTypeEnm::TENSOR_2D_SURFACE).components),
              (std::vector<std::string>{"11", "22", "12"}));
}

TEST(fld_DataType, localSystems)
{
    for (int code = 0; code < 16; ++code) {
        const fld_DataType& type = fld_DataType::of(code);
        const bool isPlanar = code == 12 || code == 13;
        EXPECT_EQ(type.systems, !type.isTensor() ? fld_DataTypeEnm::UNDEFINED
                                : isPlanar       ? fld_DataTypeEnm::QUATERNION_2D
                                                 : fld_DataTypeEnm::QUATERNION_3D)
            << code;
        EXPECT_EQ(type.hasSystems, type.isTensor() || code == 4) << code;
    }
    EXPECT_EQ(fld_DataType::quaternionOf(2), fld_DataTypeEnm::QUATERNION_2D);
    EXPECT_EQ(fld_DataType::quaternionOf(4), fld_DataTypeEnm::QUATERNION_3D);
    for (const int width : {0, 1, 3, 5, -1}) EXPECT_EQ(fld_DataType::quaternionOf(width), fld_DataTypeEnm::UNDEFINED);
}
