#include "result_model.h"

#include <cmath>
#include <memory>

namespace {

constexpr float full[] = {100.0F, 50.0F, -20.0F, 30.0F, -10.0F, 5.0F};

yld_FieldValue valueOf(yld_Enum::yld_DataTypeEnum type, bool engineering, const float* components, int length)
{
    const yld_FieldValue none;
    yld_FieldValue value(yld_Enum::CENTROID, type, shr_COW<yld_Instance>(none.instance()), engineering, "HEX8",
                         yld_SectionPoint(), yld_Enum::SINGLE_PRECISION);
    value.SetData(components, length);
    return value;
}

} // namespace

TEST(yld_FieldValueData, equalityIsBitwiseAndKnowsPrecisions)
{
    const float single[] = {1.0F, 2.0F};
    const double twice[] = {1.0, 2.0};
    const float negativeZero[] = {-0.0F};
    const float zero[] = {0.0F};
    EXPECT_TRUE(yld_FieldValueData(single, 2) == yld_FieldValueData(single, 2));
    EXPECT_TRUE(yld_FieldValueData(single, 2) != yld_FieldValueData(single, 1));
    EXPECT_FALSE(yld_FieldValueData(single, 2) == yld_FieldValueData(twice, 2));
    EXPECT_FALSE(yld_FieldValueData(twice, 2) == yld_FieldValueData(single, 2));
    EXPECT_TRUE(yld_FieldValueData(twice, 2) == yld_FieldValueData(twice, 2));
    EXPECT_FALSE(yld_FieldValueData(negativeZero, 1) == yld_FieldValueData(zero, 1));
    EXPECT_TRUE(yld_FieldValueData() == yld_FieldValueData());
}

TEST(yld_FieldValueData, emptySequenceGivesNothing)
{
    const yld_FieldValueData single{yld_Sequence<float>()};
    const yld_FieldValueData twice{yld_Sequence<double>()};
    EXPECT_EQ(single.length(), 0);
    EXPECT_EQ(single.floatData(), nullptr);
    EXPECT_EQ(single.doubleData(), nullptr);
    EXPECT_EQ(twice.length(), 0);
    EXPECT_EQ(twice.doubleData(), nullptr);
    const yld_FieldValueData filled(floats({4, 5}));
    EXPECT_EQ(filled.length(), 2);
    EXPECT_EQ(filled[1], 5.0);
}

TEST(yld_FieldValueData, emptySourceLeavesTheTargetAsItWas)
{
    yld_FieldValueData target(floats({4, 5}));
    target = yld_FieldValueData();
    EXPECT_EQ(target.length(), 2);
    EXPECT_EQ(target[0], 4.0);
    const yld_FieldValueData& alias = target;
    target = alias;
    EXPECT_EQ(target[1], 5.0);
    const double components[] = {7.0, 8.0, 9.0};
    target = yld_FieldValueData(components, 3);
    EXPECT_EQ(target.length(), 3);
    EXPECT_EQ(target.floatData(), nullptr);
    EXPECT_EQ(target[2], 9.0);
}

TEST(yld_FieldValueData, storageOfAPrecision)
{
    const yld_FieldValueData single(3, yld_Enum::SINGLE_PRECISION);
    EXPECT_NE(single.floatData(), nullptr);
    EXPECT_EQ(single.doubleData(), nullptr);
    const yld_FieldValueData twice(3, yld_Enum::DOUBLE_PRECISION);
    EXPECT_EQ(twice.length(), 3);
    EXPECT_NE(twice.doubleData(), nullptr);
    EXPECT_EQ(yld_FieldValueData(0, yld_Enum::SINGLE_PRECISION).floatData(), nullptr);
}

TEST(yld_FieldValue, defaults)
{
    const yld_FieldValue value;
    EXPECT_EQ(value.position(), yld_Enum::UNDEFINED_POSITION);
    EXPECT_EQ(value.type(), yld_Enum::UNDEFINED_DATATYPE);
    EXPECT_EQ(value.elementLabel(), -1);
    EXPECT_EQ(value.nodeLabel(), -1);
    EXPECT_EQ(value.integrationPoint(), -1);
    EXPECT_EQ(value.face(), yld_Enum::FACE_UNKNOWN);
    EXPECT_EQ(value.sectionPoint().number(), -1);
    EXPECT_EQ(value.data().length(), 0);
    EXPECT_EQ(value.mises(), 0.0F);
    EXPECT_EQ(value.magnitude(), 0.0F);
}

TEST(yld_FieldValue, invariantsOfTheWrongTypeAreZero)
{
    const yld_FieldValue scalar = valueOf(yld_Enum::SCALAR, false, full, 1);
    const yld_FieldValue vector = valueOf(yld_Enum::VECTOR, false, full, 3);
    const yld_FieldValue tensor = valueOf(yld_Enum::TENSOR_3D_FULL, false, full, 6);
    EXPECT_EQ(scalar.mises(), 0.0F);
    EXPECT_EQ(scalar.magnitude(), 0.0F);
    EXPECT_EQ(vector.maxPrincipal(), 0.0F);
    EXPECT_EQ(tensor.magnitude(), 0.0F);
    EXPECT_FLOAT_EQ(vector.magnitude(), 113.57817F); // root of 10000 + 2500 + 400
}

TEST(yld_FieldValue, invariantsOfATensor)
{
    // A plane state with principal values worked out by hand: 100, 50 and shear 0 gives them as they stand.
    const float plane[] = {100.0F, 50.0F, 0.0F, 0.0F, 0.0F, 0.0F};
    const yld_FieldValue value = valueOf(yld_Enum::TENSOR_3D_FULL, false, plane, 6);
    EXPECT_FLOAT_EQ(value.mises(), 86.60254F); // root of 10000 - 5000 + 2500
    EXPECT_FLOAT_EQ(value.tresca(), 100.0F);
    EXPECT_FLOAT_EQ(value.press(), -50.0F);
    EXPECT_NEAR(value.inv3(), 0.0F, 1e-4F); // the deviator is 50, 0, -50
    EXPECT_FLOAT_EQ(value.maxPrincipal(), 100.0F);
    EXPECT_FLOAT_EQ(value.midPrincipal(), 50.0F);
    EXPECT_NEAR(value.minPrincipal(), 0.0F, 1e-5F);
    EXPECT_FLOAT_EQ(value.maxInPlanePrincipal(), 100.0F);
    EXPECT_FLOAT_EQ(value.minInPlanePrincipal(), 50.0F);
    EXPECT_FLOAT_EQ(value.outOfPlanePrincipal(), 0.0F);
}

TEST(yld_FieldValue, engineeringShearsCountForPrincipalsButNotForMises)
{
    const float shear[] = {0.0F, 0.0F, 0.0F, 10.0F, 0.0F, 0.0F};
    const yld_FieldValue plain = valueOf(yld_Enum::TENSOR_3D_FULL, false, shear, 6);
    const yld_FieldValue engineering = valueOf(yld_Enum::TENSOR_3D_FULL, true, shear, 6);
    EXPECT_FLOAT_EQ(plain.mises(), 17.320508F); // ten times the root of three
    EXPECT_FLOAT_EQ(engineering.mises(), 17.320508F);
    EXPECT_FLOAT_EQ(engineering.tresca(), 20.0F);
    EXPECT_FLOAT_EQ(plain.maxPrincipal(), 10.0F);
    EXPECT_FLOAT_EQ(engineering.maxPrincipal(), 5.0F);
    EXPECT_FLOAT_EQ(engineering.minPrincipal(), -5.0F);
}

TEST(yld_FieldValue, invariantByEnumerator)
{
    const yld_FieldValue value = valueOf(yld_Enum::TENSOR_3D_FULL, false, full, 6);
    EXPECT_EQ(value.invariant(yld_Enum::MAX_PRINCIPAL), value.maxPrincipal());
    EXPECT_EQ(value.invariant(yld_Enum::MID_PRINCIPAL), value.midPrincipal());
    EXPECT_EQ(value.invariant(yld_Enum::MIN_PRINCIPAL), value.minPrincipal());
    EXPECT_EQ(value.invariant(yld_Enum::MISES), value.mises());
    EXPECT_EQ(value.invariant(yld_Enum::TRESCA), value.tresca());
    EXPECT_EQ(value.invariant(yld_Enum::PRESS), value.press());
    EXPECT_EQ(value.invariant(yld_Enum::INV3), value.inv3());
    EXPECT_EQ(value.invariant(yld_Enum::MAX_INPLANE_PRINCIPAL), value.maxInPlanePrincipal());
    EXPECT_EQ(value.invariant(yld_Enum::MIN_INPLANE_PRINCIPAL), value.minInPlanePrincipal());
    EXPECT_EQ(value.invariant(yld_Enum::OUTOFPLANE_PRINCIPAL), value.outOfPlanePrincipal());
    EXPECT_EQ(value.invariant(yld_Enum::UNDEFINED_INVARIANT), 0.0F);
    EXPECT_EQ(value.invariant(static_cast<yld_Enum::yld_InvariantEnum>(99)), 0.0F);
    EXPECT_FLOAT_EQ(value.press(), -130.0F / 3.0F);
    const yld_FieldValue vector = valueOf(yld_Enum::VECTOR, false, full, 3);
    EXPECT_EQ(vector.invariant(yld_Enum::MAGNITUDE), vector.magnitude());
}

TEST(yld_FieldValue, setDataLeavesThePrecisionAsItWas)
{
    yld_FieldValue value = valueOf(yld_Enum::VECTOR, false, full, 3);
    const double components[] = {3.0, 4.0};
    value.SetData(components, 2);
    EXPECT_EQ(value.precision(), yld_Enum::SINGLE_PRECISION);
    EXPECT_EQ(value.data().length(), 2);
    EXPECT_EQ(value.data()[1], 4.0);
    // The accessors go by the precision, for which there are no numbers.
    EXPECT_EQ(value.magnitude(), 0.0F);
    value.SetData(2.5F);
    EXPECT_EQ(value.data().length(), 1);
    value.SetData(2.5);
    EXPECT_NE(value.data().doubleData(), nullptr);
}

TEST(yld_FieldValue, localSystemMessages)
{
    const yld_FieldValue single;
    EXPECT_EQ(single.localCoordSystem().size(), 0);
    EXPECT_EQ(failureOf([&] { single.localCoordSystemDouble(); }), "Data is single precision.  Use localCoordSystem");
    const yld_FieldValue twice(yld_Enum::NODAL, yld_Enum::VECTOR, shr_COW<yld_Instance>(single.instance()),
                               yld_Enum::DOUBLE_PRECISION);
    EXPECT_EQ(twice.localCoordSystemDouble().size(), 0);
    EXPECT_EQ(failureOf([&] { twice.localCoordSystem(); }), "Data is double precision.  Use localCoordSystemDouble");
}

TEST(yld_FieldValue, copyOwnsItsComponents)
{
    auto original = std::make_unique<yld_FieldValue>(valueOf(yld_Enum::VECTOR, false, full, 3));
    const yld_FieldValue copy(*original);
    yld_FieldValue assigned;
    assigned = *original;
    original.reset();
    EXPECT_EQ(copy.data()[2], -20.0);
    EXPECT_FALSE(copy.data().isBorrowed());
    EXPECT_EQ(assigned.data()[0], 100.0);
    assigned = yld_FieldValue();
    EXPECT_EQ(assigned.data().length(), 0);
}
