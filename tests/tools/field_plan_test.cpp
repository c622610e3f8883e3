#include "field_plan.h"

#include <gtest/gtest.h>

namespace {

using Names = std::vector<std::string>;

struct Plan
{
    Names notes; // told while the fields are made
    std::vector<tool_PlannedField> fields;

    Plan(int dimension, const Names& nodal, const Names& element, bool sameBlocks = true)
        : fields(tool_planFields(
              dimension, nodal, element, [=](std::size_t a, std::size_t b) { return sameBlocks || a == b; },
              [this](const std::string& note) { notes.push_back(note); }))
    {
    }

    Names names() const
    {
        Names result;
        for (const tool_PlannedField& field : fields)
            result.push_back(field.name);
        return result;
    }
};

using Places = std::vector<std::size_t>;

} // namespace

TEST(field_plan, vectorTakesTheStemAndKeepsTheNames)
{
    const Plan plan(3, {"u_z", "t", "u_x", "u_y"}, {});
    ASSERT_EQ((Names{"u", "t"}), plan.names());
    EXPECT_EQ(tool_PlannedField::VECTOR, plan.fields[0].type);
    EXPECT_EQ((Names{"u_x", "u_y", "u_z"}), plan.fields[0].componentLabels);
    EXPECT_EQ((Places{2, 3, 0}), plan.fields[0].nodal);
    EXPECT_EQ(tool_PlannedField::SCALAR, plan.fields[1].type);
    EXPECT_TRUE(plan.notes.empty());
}

TEST(field_plan, lettersAloneAreNoVector)
{
    EXPECT_EQ((Names{"x", "y", "z"}), Plan(3, {"x", "y", "z"}, {}).names());
    EXPECT_EQ((Names{"_x", "_y", "_z"}), Plan(3, {"_x", "_y", "_z"}, {}).names());
}

TEST(field_plan, aFluxIsNotTakenForATensorRow)
{
    EXPECT_EQ(Names{"Flux"}, Plan(3, {"Fluxx", "Fluxy", "Fluxz"}, {}).names());
}

TEST(field_plan, inThePlaneTwoComponentsDo)
{
    const Plan plan(2, {"u_x", "u_y", "u_z"}, {});
    ASSERT_EQ((Names{"u", "u_z"}), plan.names());
    EXPECT_EQ((Names{"u_x", "u_y"}), plan.fields[0].componentLabels);
}

TEST(field_plan, elementVariablesMakeNoVector)
{
    EXPECT_EQ((Names{"q_x", "q_y", "q_z"}), Plan(3, {}, {"q_x", "q_y", "q_z"}).names());
}

TEST(field_plan, tensorIsSortedWhateverTheSpelling)
{
    const Plan plan(3, {}, {"s_yy", "s_zy", "s_xx", "s_YX", "s_xz", "s_zz"});
    ASSERT_EQ(Names{"s"}, plan.names());
    EXPECT_EQ(tool_PlannedField::TENSOR, plan.fields[0].type);
    EXPECT_EQ((Places{2, 0, 5, 3, 4, 1}), plan.fields[0].element);
    EXPECT_EQ((Names{"s_xx", "s_yy", "s_zz", "s_YX", "s_xz", "s_zy"}), plan.fields[0].componentLabels);
}

TEST(field_plan, fiveComponentsAreScalars)
{
    const Names names{"s_xx", "s_yy", "s_xy", "s_yz", "s_zx"};
    EXPECT_EQ(names, Plan(3, {}, names).names());
}

TEST(field_plan, tensorWithHolesIsScalars)
{
    const Names names{"s_xx", "s_yy", "s_zz", "s_xy", "s_yz", "s_zx"};
    const Plan plan(3, {}, names, false);
    EXPECT_EQ(names, plan.names());
    EXPECT_EQ(Names{"the components of tensor \"s\" stay scalars, not all blocks have all of them"},
              plan.notes);
}

TEST(field_plan, stemThatIsTakenStaysFree)
{
    const Plan plan(3, {"u_x", "u_y", "u_z"}, {"u"});
    EXPECT_EQ((Names{"u_x", "u_y", "u_z", "u"}), plan.names());
    EXPECT_EQ(Names{"the components of vector \"u\" stay scalars, the name is that of another field"},
              plan.notes);
}

TEST(field_plan, vectorAndTensorOfOneStemStayApart)
{
    const Plan plan(3, {"s_x", "s_y", "s_z"}, {"s_xx", "s_yy", "s_zz", "s_xy", "s_yz", "s_zx"});
    EXPECT_EQ((Names{"s", "s_xx", "s_yy", "s_zz", "s_xy", "s_yz", "s_zx"}), plan.names());
    EXPECT_EQ(1u, plan.notes.size());
}

TEST(field_plan, oneNameAtNodesAndElementsIsOneField)
{
    const Plan plan(3, {"t"}, {"t"});
    ASSERT_EQ(Names{"t"}, plan.names());
    EXPECT_EQ(Places{0}, plan.fields[0].nodal);
    EXPECT_EQ(Places{0}, plan.fields[0].element);
}

TEST(field_plan, oneNameTwiceIsTwoFields)
{
    const Plan plan(3, {"t", "t_2", "t"}, {});
    EXPECT_EQ((Names{"t", "t_2", "t_3"}), plan.names());
    EXPECT_EQ(Names{"variable \"t\" is named \"t_3\""}, plan.notes);
}

TEST(field_plan, aVariableWithoutANameGetsOne)
{
    const Plan plan(3, {""}, {""});
    EXPECT_EQ(Names{"unnamed"}, plan.names());
}
