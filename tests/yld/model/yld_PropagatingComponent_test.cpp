#include "yld_PropagatingComponent.h"

#include "platform/sto/sto_ComponentArg.h"

#include <gtest/gtest.h>

TEST(yld_PropagatingComponent, ofAKindHasTheSmallestNormalDoubleForAValue)
{
    for (const auto kind : {yld_UNSET_COMPONENT, yld_REAL_COMPONENT, yld_COMPLEX_COMPONENT, yld_FREE_COMPONENT}) {
        const yld_PropagatingComponent component(kind);
        EXPECT_EQ(component.kind(), kind);
        EXPECT_EQ(component.value(), 2.2250738585072014e-308);
        EXPECT_EQ(component.complexValue(), sys_complex(0.0, 0.0));
    }
    EXPECT_EQ(yld_UNSET_COMPONENT, 0);
    EXPECT_EQ(yld_REAL_COMPONENT, 1);
    EXPECT_EQ(yld_COMPLEX_COMPONENT, 2);
    EXPECT_EQ(yld_FREE_COMPONENT, 3);
    EXPECT_EQ(sizeof(yld_ComponentType), 4u);
}

TEST(yld_PropagatingComponent, ofANumberIsReal)
{
    const yld_PropagatingComponent component(2.5);
    EXPECT_EQ(component.kind(), yld_REAL_COMPONENT);
    EXPECT_EQ(component.value(), 2.5);
    EXPECT_EQ(component.complexValue(), sys_complex(0.0, 0.0));
    const sto_ComponentArg argument = component;
    EXPECT_EQ(argument.code(), 1);
    EXPECT_EQ(argument.real(), 2.5);
    EXPECT_EQ(argument.complex(), sys_complex(2.5, 0.0));
}

TEST(yld_PropagatingComponent, ofAComplexNumberIsComplex)
{
    const yld_PropagatingComponent component(sys_complex(1.0, -2.0));
    EXPECT_EQ(component.kind(), yld_COMPLEX_COMPONENT);
    EXPECT_EQ(component.value(), 2.2250738585072014e-308);
    EXPECT_EQ(component.complexValue(), sys_complex(1.0, -2.0));
    const sto_ComponentArg argument = component;
    EXPECT_EQ(argument.code(), 2);
    EXPECT_EQ(argument.complex(), sys_complex(1.0, -2.0));
}

TEST(yld_PropagatingComponent, unsetAfterAValueStillHoldsItAndConvertsAsUnset)
{
    yld_PropagatingComponent component(1.0);
    component.setValue(3.0);
    component.unset();
    EXPECT_EQ(component.kind(), yld_UNSET_COMPONENT);
    EXPECT_EQ(component.value(), 3.0);
    EXPECT_EQ(static_cast<sto_ComponentArg>(component).code(), 0);
}

TEST(yld_PropagatingComponent, freeKeepsTheValueAndConvertsAsFree)
{
    yld_PropagatingComponent component(1.0);
    component.free();
    EXPECT_EQ(component.kind(), yld_FREE_COMPONENT);
    EXPECT_EQ(component.value(), 1.0);
    EXPECT_EQ(static_cast<sto_ComponentArg>(component).code(), 3);
}

TEST(yld_PropagatingComponent, aValueForAnUnsetOneLeavesItUnset)
{
    yld_PropagatingComponent component(yld_UNSET_COMPONENT);
    component.setValue(3.0);
    EXPECT_EQ(component.kind(), yld_UNSET_COMPONENT);
    EXPECT_EQ(component.value(), 3.0);
    EXPECT_EQ(static_cast<sto_ComponentArg>(component).code(), 0);
}

TEST(yld_PropagatingComponent, aKindThatIsNoneConvertsAsComplex)
{
    const yld_PropagatingComponent component(static_cast<yld_ComponentType>(9));
    EXPECT_EQ(static_cast<sto_ComponentArg>(component).code(), 2);
}

TEST(yld_PropagatingComponent, ofTheRealKindWithoutAValueConvertsWithTheSentinel)
{
    const sto_ComponentArg argument = yld_PropagatingComponent(yld_REAL_COMPONENT);
    EXPECT_EQ(argument.code(), 1);
    EXPECT_EQ(argument.real(), 2.2250738585072014e-308);
}
