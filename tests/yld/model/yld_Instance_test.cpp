#include "yld_Instance.h"

#include "model_files.h"

#include <cmath>
#include <limits>

namespace {

class yld_InstanceTest : public ::testing::Test
{
protected:
    yld_InstanceTest() : part(model.parts->Part("P", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY))
    {
        addTwoHexes(part);
    }

    void expectAt(const yld_Node& node, float x, float y, float z)
    {
        EXPECT_NEAR(node.coordinate(0), x, 1e-6f);
        EXPECT_NEAR(node.coordinate(1), y, 1e-6f);
        EXPECT_NEAR(node.coordinate(2), z, 1e-6f);
    }

    ModelFile model;
    yld_Part& part;
};

} // namespace

TEST_F(yld_InstanceTest, unplacedInstanceBorrowsNodesAndElementsOfThePart)
{
    yld_Instance& instance = model.assembly->Instance("P-1", part);
    EXPECT_EQ(instance.name(), "P-1");
    EXPECT_EQ(instance.partName(), "P");
    EXPECT_EQ(instance.embeddedSpace(), yld_Enum::THREE_D);
    ASSERT_EQ(instance.nodes().size(), 12);
    expectAt(instance.nodes(6), 1, 1, 1);
    EXPECT_EQ(instance.nodes(6).meshIndex(), instance.instance().mesh().meshIndex());
    EXPECT_NE(instance.nodes(6).meshIndex(), part.nodes(6).meshIndex());
    ASSERT_EQ(instance.elements().size(), 2);
    const yld_Element element = instance.elements(1);
    EXPECT_EQ(vec(element.connectivity()), (std::vector<int>{5, 6, 7, 8, 9, 10, 11, 12}));
    EXPECT_EQ(vec(element.instanceNames()), std::vector<std::string>(8, "P-1"));
    EXPECT_EQ(element.sectionCategory().description(), "SectionCategory for element type HEX8 in part P-1");
    // The very same array, not a copy.
    EXPECT_EQ(instance.instance().mesh().coordinates()->data(), part.part().mesh().coordinates()->data());
}

TEST_F(yld_InstanceTest, whatThePartGetsLaterIsSeen)
{
    yld_Instance& instance = model.assembly->Instance("P-1", part);
    EXPECT_EQ(instance.nodes().size(), 12);
    part.addNodes(ints({100}), rows<float>({{5, 6, 7}}));
    part.addElements(ints({9}), rows<int>({{1, 2, 100}}), "TRI3");
    EXPECT_EQ(instance.nodes().size(), 13);
    expectAt(instance.getNodeFromLabel(100), 5, 6, 7);
    EXPECT_EQ(instance.elements().size(), 3);
    EXPECT_EQ(vec(instance.getElementFromLabel(9).connectivity()), (std::vector<int>{1, 2, 100}));
}

TEST_F(yld_InstanceTest, instanceOfAPartThatHasNothingYet)
{
    yld_Part& late = model.parts->Part("late", yld_Enum::TWO_D_PLANAR, yld_Enum::DEFORMABLE_BODY);
    yld_Instance& instance = model.assembly->Instance("late-1", late);
    EXPECT_EQ(instance.nodes().size(), 0);
    late.addNodes(ints({1}), rows<float>({{3, 4}}));
    ASSERT_EQ(instance.nodes().size(), 1);
    expectAt(instance.nodes(0), 3, 4, 0);
}

TEST_F(yld_InstanceTest, quarterTurnAboutZAndShift)
{
    // The local x axis points along the global y, the local y along the global -x.
    model.assembly->Instance("P-1", part, rows<float>({{0, 2, 0}, {-5, 0, 0}, {0, 0, 0.5f}, {10, 20, 30}}));
    const auto check = [this](yld_Instance& instance) {
        expectAt(instance.getNodeFromLabel(1), 10, 20, 30);
        expectAt(instance.getNodeFromLabel(5), 10, 21, 30); // (1,0,0)
        expectAt(instance.getNodeFromLabel(11), 9, 22, 31); // (2,1,1)
    };
    check(model.instance("P-1"));
    const std::vector<double> placement = model.instance("P-1").instance().placement();
    EXPECT_NEAR(placement[2], std::acos(-1.0) / 2, 1e-6);
    EXPECT_EQ(placement[3], 10.0);
    model.reopen();
    check(model.instance("P-1"));
    // The part has not moved.
    expectAt(model.part("P").getNodeFromLabel(11), 2, 1, 1);
}

TEST_F(yld_InstanceTest, turnAboutTheDiagonalTakesTheAxesInACircle)
{
    model.assembly->Instance("P-1", part, rows<float>({{0, 1, 0}, {0, 0, 1}, {1, 0, 0}, {0, 0, 0}}));
    expectAt(model.instance("P-1").getNodeFromLabel(5), 0, 1, 0); // x becomes y
    expectAt(model.instance("P-1").getNodeFromLabel(2), 0, 0, 1); // (0,1,0): y becomes z
    expectAt(model.instance("P-1").getNodeFromLabel(4), 1, 0, 0); // (0,0,1): z becomes x
}

TEST_F(yld_InstanceTest, halfTurnsAboutEachAxis)
{
    const float turns[3][3] = {{1, -1, -1}, {-1, 1, -1}, {-1, -1, 1}};
    for (int axis = 0; axis < 3; ++axis) {
        const float* s = turns[axis];
        const yld_String name(("turn" + std::to_string(axis)).c_str());
        yld_Instance& instance =
            model.assembly->Instance(name, part, rows<float>({{s[0], 0, 0}, {0, s[1], 0}, {0, 0, s[2]}, {0, 0, 0}}));
        expectAt(instance.getNodeFromLabel(11), 2 * s[0], s[1], s[2]);
    }
}

TEST_F(yld_InstanceTest, originOfTwoEntriesHasNoThirdShift)
{
    model.assembly->Instance("P-1", part, rows<float>({{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {3, 4}}));
    expectAt(model.instance("P-1").getNodeFromLabel(11), 5, 5, 1);
}

TEST_F(yld_InstanceTest, baseVectorOfNoLengthDividesByZero)
{
    yld_Instance& instance =
        model.assembly->Instance("P-1", part, rows<float>({{0, 0, 0}, {0, 1, 0}, {0, 0, 1}, {0, 0, 0}}));
    EXPECT_TRUE(std::isnan(instance.nodes(0).coordinate(0)));
}

TEST_F(yld_InstanceTest, coordinateSystemsAreChecked)
{
    EXPECT_EQ(raised([&] {
                  model.assembly->Instance("P-1", part, rows<float>({{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}));
              }),
              "localCoordSystem should contain 4 sequences.");
    EXPECT_EQ(raised([&] {
                  model.assembly->Instance("P-1", part, rows<float>({{1, 0, 0}, {0, 1}, {0, 0, 1}, {0, 0, 0}}));
              }),
              "Coord system base vectors should be of length 3.");
    for (const float odd : {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()}) {
        EXPECT_EQ(
            raised([&] {
                model.assembly->Instance("P-1", part, rows<float>({{1, 0, 0}, {0, odd, 0}, {0, 0, 1}, {0, 0, 0}}));
            }),
            "The coordinate system of part instance \"P-1\" has entries that are not numbers.");
        EXPECT_EQ(raised([&] {
                      model.assembly->Instance("P-1", part, rows<float>({{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {0, odd}}));
                  }),
                  "The coordinate system of part instance \"P-1\" has entries that are not numbers.");
    }
    EXPECT_EQ(model.assembly->instances().size(), 0);
    EXPECT_EQ(model.model.rootAssembly().numInstances(), 0);
}

TEST_F(yld_InstanceTest, nothingCanBeAdded)
{
    yld_Instance& instance = model.assembly->Instance("P-1", part);
    EXPECT_EQ(raised([&] { instance.addNodes(yld_Sequence<int>(), yld_Sequence<yld_Sequence<float>>()); }),
              "Nodes cannot be added to the instance.");
    EXPECT_EQ(raised([&] { instance.addElements(ints({1}), rows<int>({{1}}), "POINTMASS"); }),
              "Elements cannot be added to the instance.");
}

TEST_F(yld_InstanceTest, setsOfItsOwn)
{
    part.NodeSet("A", ints({1}));
    yld_Instance& instance = model.assembly->Instance("P-1", part);
    EXPECT_EQ(instance.nodeSets().size(), 0);
    // Sorted and each once, unless told otherwise.
    EXPECT_EQ(labelsOf(instance.NodeSet("A", ints({7, 2, 7, 3})).nodes()), (std::vector<int>{2, 3, 7}));
    EXPECT_EQ(labelsOf(instance.NodeSet("B", ints({7, 2, 7}), false, true).nodes()), (std::vector<int>{7, 2, 7}));
    EXPECT_EQ(labelsOf(instance.ElementSet("A", ints({2, 1})).elements()), (std::vector<int>{2, 1}));
    instance.Surface("A", ints({2}), faces({yld_Enum::FACE2}));
    EXPECT_EQ(raised([&] { instance.NodeSet("A", ints({1})); }), "Duplicate set or surface name A");
    EXPECT_EQ(raised([&] { instance.ElementSet("A", ints({1})); }), "Duplicate set or surface name A");
    EXPECT_EQ(raised([&] { instance.Surface("A", ints({1}), faces({yld_Enum::FACE2})); }),
              "Duplicate set or surface name A");
    EXPECT_EQ(raised([&] { instance.NodeSet("C", ints({99})); }), "Invalid node label 99");
    EXPECT_EQ(raised([&] { instance.ElementSet("C", ints({99})); }), "Invalid element label 99");
    EXPECT_EQ(raised([&] { instance.Surface("C", ints({1}), faces({})); }),
              "Number of surface faces and elements must agree.");
    EXPECT_EQ(raised([&] { instance.NodeSet("C", part.nodes()); }), "SequenceNode is not associated with this entity.");
    EXPECT_EQ(raised([&] { instance.ElementSet("C", part.elements()); }),
              "SequenceElement is not associated with this entity.");
    EXPECT_EQ(labelsOf(instance.NodeSet("C", instance.nodes().slice(0, 2)).nodes()), (std::vector<int>{1, 2}));
    model.reopen();
    yld_Instance& read = model.instance("P-1");
    EXPECT_EQ(read.nodeSets().size(), 3);
    EXPECT_EQ(labelsOf(read.nodeSets().get("B").nodes()), (std::vector<int>{7, 2, 7}));
    EXPECT_EQ(vec(read.nodeSets().get("B").instanceNames()), (std::vector<std::string>{"P-1"}));
    EXPECT_EQ(vec(read.surfaces().get("A").faces()), (std::vector<int>{12}));
    EXPECT_EQ(model.part("P").nodeSets().size(), 1);
}

TEST_F(yld_InstanceTest, spaceAfterReadingFollowsTheMesh)
{
    yld_Part& plane = model.parts->Part("plane", yld_Enum::TWO_D_PLANAR, yld_Enum::DEFORMABLE_BODY);
    plane.addNodes(ints({1, 2, 3}), rows<float>({{0, 0}, {1, 0}, {0, 1}}));
    yld_Part& axis = model.parts->Part("axis", yld_Enum::AXISYMMETRIC, yld_Enum::DEFORMABLE_BODY);
    axis.addNodes(ints({1, 2, 3}), rows<float>({{1, 0}, {2, 0}, {1, 1}}));
    axis.addElements(ints({1}), rows<int>({{1, 2, 3}}), "AXTRI3");
    model.assembly->Instance("P-1", part);
    model.assembly->Instance("plane-1", plane);
    model.assembly->Instance("axis-1", axis);
    EXPECT_EQ(model.instance("axis-1").embeddedSpace(), yld_Enum::AXISYMMETRIC);
    model.reopen();
    EXPECT_EQ(model.instance("P-1").embeddedSpace(), yld_Enum::THREE_D);
    EXPECT_EQ(model.instance("plane-1").embeddedSpace(), yld_Enum::TWO_D_PLANAR);
    EXPECT_EQ(model.instance("axis-1").embeddedSpace(), yld_Enum::AXISYMMETRIC);
    EXPECT_EQ(model.instance("axis-1").type(), yld_Enum::DEFORMABLE_BODY);
}
