#include "yld_DatumCsys.h"

#include "model_files.h"

#include "platform/sto/sto_StoToolset.h"

#include <cmath>

namespace {

class yld_DatumCsysTest : public ::testing::Test
{
protected:
    yld_DatumCsysTest() : part(model.parts->Part("P", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY))
    {
        addTwoHexes(part);
        model.assembly->Instance("A", part);
        model.assembly->Instance("B", part, rows<float>({{0, 1, 0}, {-1, 0, 0}, {0, 0, 1}, {10, 0, 0}}));
    }
    yld_Assembly& assembly() { return *model.assembly; }
    static std::vector<float> of(const float* three) { return std::vector<float>(three, three + 3); }
    static std::vector<std::string> summary(const yld_DatumCsys& csys)
    {
        yld_String first("It: ");
        yld_String second;
        csys.summaryValue1(first);
        csys.summaryValue2(second);
        return {first.cStr(), second.cStr()};
    }

    ModelFile model;
    yld_Part& part;
    const yld_Sequence<float> none;
};

using V = std::vector<float>;

// Counts what a viewer is told.
class Scene : public sto_StoToolsetClient
{
public:
    Scene() { sto_StoToolset::Instance().AddClient(this); }
    ~Scene() override { sto_StoToolset::Instance().RemoveClient(this); }
    void UpdateSceneForDatum() override { ++datums; }

    int datums = 0;
};

} // namespace

TEST_F(yld_DatumCsysTest, noSystem)
{
    const yld_DatumCsys csys;
    EXPECT_EQ(csys.name(), "");
    EXPECT_FALSE(csys.datumCsys().isValid());
    EXPECT_EQ(csys.type(), yld_Enum::UNDEFINED_CSYS);
    EXPECT_EQ(of(csys.xAxis()), (V{0, 0, 0}));
    EXPECT_EQ(of(csys.origin()), (V{0, 0, 0}));
    EXPECT_EQ(summary(csys), (std::vector<std::string>{"It: Fixed", "Rectangular"}));
}

TEST_F(yld_DatumCsysTest, emptySequencesGiveTheGlobalSystem)
{
    const yld_DatumCsys& csys = assembly().DatumCsysByThreePoints("G", yld_Enum::CARTESIAN, none, none, none);
    EXPECT_EQ(csys.name(), "G");
    EXPECT_EQ(of(csys.xAxis()), (V{1, 0, 0}));
    EXPECT_EQ(of(csys.yAxis()), (V{0, 1, 0}));
    EXPECT_EQ(of(csys.zAxis()), (V{0, 0, 1}));
    EXPECT_EQ(of(csys.origin()), (V{0, 0, 0}));
    EXPECT_EQ(summary(csys), (std::vector<std::string>{"It: Fixed", "Rectangular"}));
}

TEST_F(yld_DatumCsysTest, sequenceThatHasNotThreeEntriesIsIgnored)
{
    const yld_DatumCsys& csys = assembly().DatumCsysByThreePoints("G", yld_Enum::SPHERICAL, seq<float>({5, 5}),
                                                                  seq<float>({0, 0, 4}), seq<float>({1, 2, 3, 4}));
    // x along z, the second point at (0, 1, 0): z = x cross v = -global x, y = z cross x = global y.
    EXPECT_EQ(of(csys.origin()), (V{0, 0, 0}));
    EXPECT_EQ(of(csys.xAxis()), (V{0, 0, 1}));
    EXPECT_EQ(of(csys.yAxis()), (V{0, 1, 0}));
    EXPECT_EQ(of(csys.zAxis()), (V{-1, 0, 0}));
    EXPECT_EQ(summary(csys)[1], "Spherical");
}

TEST_F(yld_DatumCsysTest, pointOnTheOriginGivesZeroAxesAndNoMessage)
{
    const yld_DatumCsys& csys =
        assembly().DatumCsysByThreePoints("Z", yld_Enum::CARTESIAN, seq<float>({1, 1, 1}), seq<float>({1, 1, 1}), none);
    EXPECT_EQ(of(csys.xAxis()), (V{0, 0, 0}));
    EXPECT_EQ(of(csys.yAxis()), (V{0, 0, 0}));
    EXPECT_EQ(of(csys.zAxis()), (V{0, 0, 0}));
    EXPECT_EQ(of(csys.origin()), (V{1, 1, 1}));
}

TEST_F(yld_DatumCsysTest, firstSystemOfANameStays)
{
    const Scene scene;
    assembly().DatumCsysByThreePoints("D", yld_Enum::CYLINDRICAL, none, none, none);
    const yld_DatumCsys& again =
        assembly().DatumCsysByThreePoints("D", yld_Enum::SPHERICAL, seq<float>({9, 9, 9}), none, none);
    EXPECT_EQ(again.type(), yld_Enum::CYLINDRICAL);
    EXPECT_EQ(scene.datums, 2);
    EXPECT_EQ(part.DatumCsysByThreePoints("D", yld_Enum::SPHERICAL, none, none, none).type(), yld_Enum::CYLINDRICAL);
    model.reopen();
    EXPECT_EQ(assembly().datumCsyses().size(), 1);
    EXPECT_EQ(assembly().datumCsyses().get("D").type(), yld_Enum::CYLINDRICAL);
    EXPECT_EQ(summary(assembly().datumCsyses().get("D"))[1], "Cylindrical");
    // Also what was not read yet keeps its name.
    model.reopen();
    EXPECT_EQ(assembly().DatumCsysByThreePoints("D", yld_Enum::SPHERICAL, none, none, none).type(),
              yld_Enum::CYLINDRICAL);
}

TEST_F(yld_DatumCsysTest, deletedNameStaysInTheStoreUntilItIsMadeAgain)
{
    assembly().DatumCsysByThreePoints("other", yld_Enum::CYLINDRICAL, none, none, none);
    assembly().DatumCsysByThreePoints("D", yld_Enum::CYLINDRICAL, none, none, none);
    const int id = assembly().datumCsyses().get("D").datumCsys().GetDatumId();
    assembly().DeleteDatumCsys("D");
    EXPECT_EQ(vec(assembly().datumCsyses().keys()), (std::vector<std::string>{"other"}));
    EXPECT_TRUE(part.hasDatumCsys("D"));
    EXPECT_EQ(part.datumCsys("D").type(), yld_Enum::CYLINDRICAL);
    const yld_DatumCsys& again = assembly().DatumCsysByThreePoints("D", yld_Enum::SPHERICAL, none, none, none);
    EXPECT_EQ(again.type(), yld_Enum::SPHERICAL);
    EXPECT_EQ(again.datumCsys().GetDatumId(), id);
    EXPECT_EQ(model.model.numDatums(), 2);
    // A repository without entries is read anew.
    assembly().DeleteDatumCsys("D");
    assembly().DeleteDatumCsys("other");
    EXPECT_EQ(assembly().datumCsyses().size(), 2);
    EXPECT_EQ(raised([&] { part.datumCsys("E"); }), "There is no datum named \"E\".");
    EXPECT_FALSE(part.hasDatumCsys("E"));
}

TEST_F(yld_DatumCsysTest, systemsThatFollowNodes)
{
    // Nodes 1, 2 and 5 of the block lie at (0,0,0), (0,1,0) and (1,0,0); in B turned about z and moved by 10.
    const yld_Instance& b = model.instance("B");
    const yld_Node n1 = b.getNodeFromLabel(1);
    const yld_Node n2 = b.getNodeFromLabel(2);
    const yld_Node n5 = b.getNodeFromLabel(5);
    assembly().DatumCsysByThreeNodes("three", yld_Enum::CARTESIAN, n1, n5, n2);
    assembly().DatumCsysBy6dofNode("one", yld_Enum::CYLINDRICAL, n2);
    // The circle through (10,0,0), (10,1,0) and (9,0,0) has its centre in the middle of the last two.
    assembly().DatumCsysByThreeCircNodes("circle", yld_Enum::CARTESIAN, n1, n5, n2);
    const auto check = [this](yld_DatumCsysRepository& all) {
        const yld_DatumCsys& three = all.get("three");
        EXPECT_EQ(summary(three), (std::vector<std::string>{"It: Follows 3 nodes", "Rectangular"}));
        EXPECT_NEAR(three.origin()[0], 10, 1e-5);
        EXPECT_NEAR(three.xAxis()[1], 1, 1e-5);  // from (10,0,0) to (10,1,0)
        EXPECT_NEAR(three.yAxis()[0], -1, 1e-5); // towards (9,0,0)
        EXPECT_NEAR(three.zAxis()[2], 1, 1e-5);
        EXPECT_TRUE(three.datumCsys().IsDynamicSystem());
        const axs_NodesPackage nodes = three.datumCsys().nodes();
        ASSERT_EQ(nodes.size(), 3);
        EXPECT_EQ(nodes.ConstGetNodeLabel(0), 1);
        EXPECT_EQ(nodes.ConstGetNodeLabel(1), 5);
        EXPECT_EQ(nodes.ConstGetNodeLabel(2), 2);
        EXPECT_EQ(nodes.ConstGetInstanceID(2), model.instance("B").instance().mesh().meshIndex());

        const yld_DatumCsys& one = all.get("one");
        EXPECT_EQ(summary(one), (std::vector<std::string>{"It: Follows single node", "Cylindrical"}));
        EXPECT_NEAR(one.origin()[0], 9, 1e-5);
        EXPECT_EQ(of(one.xAxis()), (V{1, 0, 0}));
        EXPECT_FALSE(one.datumCsys().IsDynamicSystem());
        EXPECT_EQ(one.datumCsys().ConstNodeLabel(), 2);
        EXPECT_EQ(one.datumCsys().ConstInstanceID(), model.instance("B").instance().mesh().meshIndex());

        const yld_DatumCsys& circle = all.get("circle");
        EXPECT_EQ(summary(circle)[0], "It: Follows 3 nodes on circle");
        EXPECT_TRUE(circle.datumCsys().IsDynamicSystem());
        EXPECT_NEAR(circle.origin()[0], 9.5, 1e-5);
        EXPECT_NEAR(circle.origin()[1], 0.5, 1e-5);
        EXPECT_NEAR(circle.xAxis()[0], std::sqrt(0.5), 1e-5); // towards (10,0,0)
        EXPECT_NEAR(circle.xAxis()[1], -std::sqrt(0.5), 1e-5);
        EXPECT_NEAR(circle.zAxis()[2], 1, 1e-5);
    };
    check(assembly().datumCsyses());
    model.reopen();
    EXPECT_EQ(vec(assembly().datumCsyses().keys()), (std::vector<std::string>{"circle", "one", "three"}));
    check(assembly().datumCsyses());
    EXPECT_EQ(raised([&] { assembly().DatumCsysBy6dofNode("lost", yld_Enum::CARTESIAN, yld_Node()); }),
              "Invalid node label -1");
    EXPECT_FALSE(assembly().datumCsyses().isMember("lost"));
    EXPECT_FALSE(model.part("P").hasDatumCsys("lost")) << "nothing is left in the store";
    EXPECT_EQ(
        raisedText([&] {
            assembly().DatumCsysByThreePoints("f", yld_Enum::CARTESIAN, none, none, none).datumCsys().ConstNodeLabel();
        }),
        "The coordinate system follows no node.");
}

TEST_F(yld_DatumCsysTest, pointsOnALineHaveNoCircle)
{
    axs_DatumCsys line;
    line.setAxesOnCircle({1, 2, 3}, {2, 2, 3}, {4, 2, 3});
    EXPECT_EQ(line.m_origin, (std::vector<double>{1, 2, 3}));
    EXPECT_EQ(line.m_axes, std::vector<double>(9, 0.0));
}

TEST_F(yld_DatumCsysTest, copyUnderAnotherName)
{
    yld_DatumCsys& first =
        assembly().DatumCsysByThreePoints("D", yld_Enum::SPHERICAL, seq<float>({1, 2, 3}), none, none);
    const yld_DatumCsys& copy = assembly().DatumCsys("E", first);
    EXPECT_EQ(copy.name(), "E");
    EXPECT_NE(copy.datumCsys().GetDatumId(), assembly().datumCsyses().get("D").datumCsys().GetDatumId());
    model.reopen();
    EXPECT_EQ(assembly().datumCsyses().get("E").type(), yld_Enum::SPHERICAL);
    EXPECT_EQ(of(assembly().datumCsyses().get("E").origin()), (V{1, 2, 3}));
    EXPECT_EQ(model.model.model()->datumNameFromID(2), "E");
    EXPECT_EQ(model.model.model()->datumNameFromID(7), "");
}

TEST_F(yld_DatumCsysTest, otherKindsOfDatumsAreLeftOut)
{
    axs_DatumCsys point;
    point.m_datumType = 1;
    model.model.file("point", point);
    assembly().DatumCsysByThreePoints("D", yld_Enum::CARTESIAN, none, none, none);
    model.reopen();
    EXPECT_EQ(vec(assembly().datumCsyses().keys()), (std::vector<std::string>{"D"}));
    const yld_Assembly& constant = assembly();
    EXPECT_EQ(constant.datumCsyses().size(), 1);
    yld_Assembly unbound;
    EXPECT_EQ(unbound.datumCsyses().size(), 0);
}

TEST_F(yld_DatumCsysTest, systemThatMakesNoSenseIsRefused)
{
    axs_DatumCsys odd;
    odd.m_axes.pop_back();
    const sto_DatumCsys stored = model.model.file("odd", odd);
    EXPECT_EQ(raised([&] { yld_DatumCsys("odd", stored); }),
              model.path() + ": a datum coordinate system makes no sense; the file is damaged");
}
