#include "field_plan.h"

#include <gtest/gtest.h>

namespace {

using Names = std::vector<std::string>;

struct Plan
{
    Names notes; // told while the fields are made
    std::vector<tool_PlannedField> fields;

    Plan(int dimension, const Names& nodal, const Names& element, bool sameBlocks = true)
    {
        tool_Variables variables;
        variables.dimension = dimension;
        variables.nodal = nodal;
        variables.element = element;
        // Either one block with everything, or one for each variable.
        variables.numBlocks = sameBlocks ? 1 : element.size();
        variables.hasVariable = [=](std::size_t block, std::size_t variable) {
            return sameBlocks || block == variable;
        };
        variables.numPoints = [](std::size_t) { return 1; };
        make(variables);
    }
    explicit Plan(const tool_Variables& variables) { make(variables); }
    void make(const tool_Variables& variables)
    {
        fields = tool_planFields(variables, [this](const std::string& note) { notes.push_back(note); });
    }

    Names names() const
    {
        Names result;
        for (const tool_PlannedField& field : fields) result.push_back(field.name);
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

TEST(field_plan, elementVariablesMakeVectorsToo)
{
    const Plan plan(3, {}, {"q_x", "q_y", "q_z"});
    ASSERT_EQ(Names{"q"}, plan.names());
    EXPECT_EQ((Places{0, 1, 2}), plan.fields[0].element);
    EXPECT_EQ(Places{0}, plan.fields[0].elementBlocks);
}

TEST(field_plan, nodalVariablesMakeTensorsToo)
{
    const Plan plan(3, {"s_xx", "s_yy", "s_zz", "s_xy", "s_yz", "s_zx"}, {});
    ASSERT_EQ(Names{"s"}, plan.names());
    EXPECT_EQ((Places{0, 1, 2, 3, 5, 4}), plan.fields[0].nodal);
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
    EXPECT_EQ(Names{"the components of tensor \"s\" stay scalars, not all blocks have all of them"}, plan.notes);
}

TEST(field_plan, stemThatIsTakenStaysFree)
{
    const Plan plan(3, {"u_x", "u_y", "u_z"}, {"u"});
    EXPECT_EQ((Names{"u_x", "u_y", "u_z", "u"}), plan.names());
    EXPECT_EQ(Names{"the components of vector \"u\" stay scalars, the name is that of another field"}, plan.notes);
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

namespace {

// Variables with "_1" to "_n" after each of these names.
Names numbered(const Names& bases, int count)
{
    Names names;
    for (int q = 1; q <= count; ++q)
        for (const std::string& base : bases) names.push_back(base + "_" + std::to_string(q));
    return names;
}

// Blocks with all variables, whose elements have these numbers of points.
tool_Variables onBlocks(const Names& element, const std::vector<int>& points)
{
    tool_Variables variables;
    variables.element = element;
    variables.numBlocks = points.size();
    variables.hasVariable = [](std::size_t, std::size_t) { return true; };
    variables.numPoints = [points](std::size_t block) { return points[block]; };
    return variables;
}

} // namespace

TEST(field_plan, numberedVariablesAreIntegrationPointsWhereTheirNumberFits)
{
    const Plan fits(onBlocks(numbered({"e"}, 8), {8}));
    ASSERT_EQ(Names{"e"}, fits.names());
    ASSERT_EQ(1u, fits.fields[0].points.size());
    EXPECT_EQ((Places{0, 1, 2, 3, 4, 5, 6, 7}), fits.fields[0].points[0]);
    EXPECT_EQ(Places{0}, fits.fields[0].pointBlocks);
    EXPECT_TRUE(fits.fields[0].element.empty());
    // Five values for four points, or a hole in the numbers, are no points.
    EXPECT_EQ(numbered({"e"}, 5), Plan(onBlocks(numbered({"e"}, 5), {4})).names());
    EXPECT_EQ((Names{"e_1", "e_2", "e_4"}), Plan(onBlocks({"e_1", "e_2", "e_4"}, {3})).names());
    EXPECT_EQ((Names{"e_01", "e_02"}), Plan(onBlocks({"e_01", "e_02"}, {2})).names());
    // One number alone says nothing.
    EXPECT_EQ(Names{"e_1"}, Plan(onBlocks({"e_1"}, {1})).names());
}

TEST(field_plan, blocksWithOtherPointsKeepTheirVariables)
{
    // The third block has a ninth value, and none of its elements nine points.
    tool_Variables variables = onBlocks(numbered({"e"}, 9), {8, 8, 8});
    variables.hasVariable = [](std::size_t block, std::size_t variable) { return variable < 8 || block == 2; };
    const Plan plan(variables);
    ASSERT_EQ(10u, plan.fields.size());
    EXPECT_EQ("e_1", plan.fields[0].name);
    EXPECT_EQ(Places{2}, plan.fields[0].elementBlocks);
    EXPECT_EQ("e_9", plan.fields[8].name);
    EXPECT_EQ("e", plan.fields[9].name);
    EXPECT_EQ((Places{0, 1}), plan.fields[9].pointBlocks);
    EXPECT_EQ(8u, plan.fields[9].points[0].size());
}

TEST(field_plan, averagesAndPointsOfOneNameAreOneField)
{
    Names names = {"e", "s_xx", "s_yy", "s_zz", "s_xy", "s_yz", "s_zx"};
    for (const std::string& name : numbered(names, 2)) names.push_back(name);
    const Plan plan(onBlocks(names, {2}));
    ASSERT_EQ((Names{"e", "s"}), plan.names());
    EXPECT_EQ(Places{0}, plan.fields[0].element);
    EXPECT_EQ((std::vector<Places>{{7, 14}}), plan.fields[0].points);
    EXPECT_EQ(tool_PlannedField::TENSOR, plan.fields[1].type);
    EXPECT_EQ((Places{1, 2, 3, 4, 6, 5}), plan.fields[1].element);
    EXPECT_EQ((std::vector<Places>{{8, 15}, {9, 16}, {10, 17}, {11, 18}, {13, 20}, {12, 19}}), plan.fields[1].points);
    EXPECT_EQ((Names{"s_xx", "s_yy", "s_zz", "s_xy", "s_zx", "s_yz"}), plan.fields[1].componentLabels);
}

TEST(field_plan, nineNumberedComponentsAreATensorOrAMatrix)
{
    const Plan plan(onBlocks(numbered(numbered({"s"}, 9), 2), {2}));
    ASSERT_EQ(Names{"s"}, plan.names());
    ASSERT_EQ(tool_PlannedField::NINE, plan.fields[0].type);
    ASSERT_EQ(9u, plan.fields[0].points.size());
    EXPECT_EQ((Places{3, 12}), plan.fields[0].points[3]);
    tool_PlannedField tensor = plan.fields[0];
    tool_settleNine(tensor, true);
    EXPECT_EQ(tool_PlannedField::TENSOR, tensor.type);
    EXPECT_EQ((std::vector<Places>{{0, 9}, {4, 13}, {8, 17}, {1, 10}, {2, 11}, {5, 14}}), tensor.points);
    EXPECT_EQ((Names{"s_1", "s_5", "s_9", "s_2", "s_3", "s_6"}), tensor.componentLabels);
    tool_PlannedField matrix = plan.fields[0];
    tool_settleNine(matrix, false);
    EXPECT_EQ(tool_PlannedField::MATRIX, matrix.type);
    EXPECT_EQ(9u, matrix.points.size());
    EXPECT_TRUE(matrix.componentLabels.empty());
    // Ten are no tensor.
    EXPECT_EQ(10u, Plan(onBlocks(numbered(numbered({"s"}, 10), 2), {2})).fields.size());
}

TEST(field_plan, threeByThreeAtNodes)
{
    const Names names = {"p_1_1", "p_2_1", "p_3_1", "p_1_2", "p_2_2", "p_3_2", "p_1_3", "p_2_3", "p_3_3"};
    const Plan plan(3, names, {});
    ASSERT_EQ(Names{"p"}, plan.names());
    EXPECT_EQ(tool_PlannedField::NINE, plan.fields[0].type);
    EXPECT_EQ((Places{0, 3, 6, 1, 4, 7, 2, 5, 8}), plan.fields[0].nodal); // row by row
}

TEST(field_plan, variablesOfSets)
{
    tool_Variables variables = onBlocks({"e"}, {1});
    variables.nodal = {"t"};
    variables.nodeSet = {"t", "e", "n"};
    variables.sideSet = {"t", "p"};
    const Plan plan(variables);
    // At nodes there is a "t" already; elsewhere there is room in the field of the name.
    ASSERT_EQ((Names{"t", "e", "t_2", "n", "p"}), plan.names());
    EXPECT_EQ(Places{0}, plan.fields[0].sideSet);
    EXPECT_EQ(Places{1}, plan.fields[1].nodeSet);
    EXPECT_EQ(Places{0}, plan.fields[2].nodeSet);
    EXPECT_EQ(Names{"variable \"t\" is named \"t_2\""}, plan.notes);
}
