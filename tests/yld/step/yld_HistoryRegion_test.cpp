#include "platform/sto/sto_HistoryStep.h"
#include "platform/sto/sto_Set.h"
#include "platform/sto/sto_Step.h"
#include "platform/sto/sto_Sto.h"
#include "platform/store/fio_Database.h"
#include "platform/store/fio_File.h"
#include "result_model.h"

#include <algorithm>
#include <vector>

namespace {

class HistoryModel : public ResultModel
{
protected:
    yld_Node node(int label) { return instance().getNodeFromLabel(label); }
    yld_Element element(int label) { return instance().getElementFromLabel(label); }
    sto_HistoryStep store() { return step().step()->historyStep(); }
    yld_HistoryRegion& region(const char* name) { return step().historyRegions().get(name); }
    static yld_HistoryOutput& curve(yld_HistoryRegion& region, const char* name = "U1")
    {
        return region.HistoryOutput(name, "a curve", yld_Enum::SCALAR);
    }
    std::string regionNames() { return joined(step().historyRegions().keys()); }

    /// A stored curve at a node that no region was made for.
    sto_History storedAtNode(const char* label, int nodeNumber, const char* loadCase = "", const char* region = "")
    {
        fld_History like;
        like.m_type = static_cast<int>(fld_OutputPositionEnm::NODAL);
        like.m_label = label;
        like.m_name = region;
        like.m_loadCase = loadCase;
        like.m_nodeNumber = nodeNumber;
        like.m_instance = instance().instance().shortCut();
        return store().History(like, store().Clock());
    }

    /// The names of the internal sets of the instance that regions have made.
    std::vector<std::string> resultsSets()
    {
        const sto_SetList list = instance().instance().mesh().set();
        std::vector<std::string> names;
        for (int i = 0; i < list.length(); ++i) {
            if (list.internalSet(i)) names.push_back(list.setLabel(i));
        }
        return names;
    }
};

using Names = std::vector<std::string>;

} // namespace

using yld_HistoryRegionTest = HistoryModel;
using yld_HistoryRegionPersTest = HistoryModel;
using yld_StepHistoryTest = HistoryModel;

TEST_F(yld_HistoryRegionTest, aPlainRegionIsAnOrphan)
{
    yld_Repository<yld_String, yld_HistoryOutput> outputs;
    outputs.insert("u", yld_HistoryOutput("u", "", yld_Enum::SCALAR, rows({{1, 2}})));
    yld_HistoryRegion plain("name", "description", yld_HistoryPoint(node(50)), outputs, yld_LoadCase("pull"));
    EXPECT_STREQ(plain.name().cStr(), "name");
    EXPECT_STREQ(plain.description().cStr(), "description");
    EXPECT_TRUE(plain.historyPoint() == yld_HistoryPoint(node(50)));
    EXPECT_STREQ(plain.loadCase().name().cStr(), "pull");
    EXPECT_EQ(plain.historyOutput().size(), 1);
    EXPECT_EQ(plain.historyOutputs().size(), 1);
    plain.setLoadCase(yld_LoadCase("push"));
    EXPECT_STREQ(plain.loadCase().name().cStr(), "push");
    for (const auto type : {yld_Enum::SCALAR, yld_Enum::VECTOR}) {
        EXPECT_EQ(failureOf([&] { plain.HistoryOutput("v", "", type); }),
                  "Adding a history output object to an orphan History object is not allowed.");
    }
    const yld_HistoryRegion none;
    EXPECT_STREQ(none.name().cStr(), "");
    EXPECT_EQ(none.historyOutputs().size(), 0);
    EXPECT_TRUE(none.loadCase() == yld_LoadCase());
}

TEST_F(yld_HistoryRegionTest, outputsAreFoundByName)
{
    yld_HistoryRegion& here = step().HistoryRegion("here", "", yld_HistoryPoint(m_yld->rootAssembly()));
    curve(here, "u").addData(1.0, 2.0);
    EXPECT_EQ(here.historyOutput("u").dataSize(), 1);
    EXPECT_EQ(here.historyOutputs("u").dataSize(), 1);
    const yld_HistoryRegion& constant = here;
    EXPECT_EQ(constant.historyOutput("u").dataSize(), 1);
    EXPECT_EQ(constant.historyOutputs("u").dataSize(), 1);
    const char* const message = "HistoryOutput 'v' is not a member of HistoryRegion 'here";
    EXPECT_EQ(failureOf([&] { here.historyOutput("v"); }), message);
    EXPECT_EQ(failureOf([&] { here.historyOutputs("v"); }), message);
    EXPECT_EQ(failureOf([&] { constant.historyOutput("v"); }), message);
    EXPECT_EQ(failureOf([&] { constant.historyOutputs("v"); }), message);
}

TEST_F(yld_HistoryRegionTest, subsetsAreOrphans)
{
    step().LoadCase("pull");
    yld_HistoryRegion& here = step().HistoryRegion("here", "what", node(50), yld_LoadCase("pull"));
    for (const char* name : {"u", "v"}) curve(here, name).addData(rows({{0, 1}, {1, 2}, {2, 3}}));

    for (yld_HistoryRegion part : {here.getSubset(0.0), here.getSubset(0.0, 2.0), here.getSubset("u")}) {
        EXPECT_STREQ(part.name().cStr(), "here");
        EXPECT_STREQ(part.description().cStr(), "what");
        EXPECT_TRUE(part.historyPoint() == here.historyPoint());
        EXPECT_STREQ(part.loadCase().name().cStr(), "");
        EXPECT_EQ(failureOf([&] { part.HistoryOutput("w", "", yld_Enum::SCALAR); }),
                  "Adding a history output object to an orphan History object is not allowed.");
    }
    EXPECT_EQ(here.getSubset(0.0).historyOutputs().size(), 2);
    EXPECT_EQ(here.getSubset(0.0).historyOutput("v").data().size(), 2);
    EXPECT_FALSE(here.getSubset(0.0).historyOutput("v").isAttached());
    EXPECT_EQ(here.getSubset(0.0, 2.0).historyOutput("u").data().size(), 1);
    EXPECT_EQ(here.getSubset("u").historyOutputs().size(), 1);
    EXPECT_EQ(here.getSubset("w").historyOutputs().size(), 0);
    // The curve that is picked out stays what it is.
    yld_HistoryRegion picked = here.getSubset("u");
    EXPECT_TRUE(picked.historyOutput("u").isAttached());
    picked.historyOutput("u").addData(3.0, 4.0);
    EXPECT_EQ(here.historyOutput("u").dataSize(), 4);
    // Subsets of subsets.
    EXPECT_EQ(here.getSubset(0.0).getSubset(1.0).historyOutput("u").data().size(), 2);
}

TEST_F(yld_HistoryRegionPersTest, onlyScalarsAreAllowedWhateverThePlace)
{
    yld_HistoryRegion& here = step().HistoryRegion("here", "", yld_HistoryPoint(element(101), node(10)));
    for (const auto type :
         {yld_Enum::VECTOR, yld_Enum::BOOLEAN, yld_Enum::TENSOR_3D_FULL, yld_Enum::UNDEFINED_DATATYPE}) {
        EXPECT_EQ(failureOf([&] { here.HistoryOutput("u", "", type); }),
                  "Only SCALAR data allowed for a historyVariable object.");
    }
    EXPECT_EQ(here.historyOutputs().size(), 0);
}

TEST_F(yld_HistoryRegionPersTest, placesThatTakeNoCurve)
{
    const auto failureAt = [&](const char* name, const yld_HistoryPoint& point) {
        yld_HistoryRegion& here = step().HistoryRegion(name, "", point);
        const std::string text = failureOf([&] { curve(here); });
        EXPECT_EQ(here.historyOutputs().size(), 0);
        return text;
    };
    EXPECT_EQ(failureAt("a", yld_HistoryPoint(element(101), node(10))), "yld_Enum::ELEMENT_NODAL history not allowed.");
    const char* const other = "HistoryOutput cannot be created for this output location";
    EXPECT_EQ(failureAt("b", yld_HistoryPoint(element(101), yld_Enum::FACE1)), other);
    EXPECT_EQ(failureAt("c", yld_HistoryPoint(element(101), yld_Enum::FACE1, 1)), other);
    EXPECT_EQ(failureAt("d", yld_HistoryPoint(instance())), other);
    EXPECT_EQ(store().numHistories(), 0);
    EXPECT_EQ(resultsSets(), Names());
}

TEST_F(yld_HistoryRegionPersTest, curvesAtANodeShareOneSet)
{
    yld_HistoryRegion& here = step().HistoryRegion("tip", "the tip", node(50));
    EXPECT_EQ(resultsSets(), Names());
    for (const char* name : {"U1", "U2", "U3"}) curve(here, name).addData(1.0, 2.0);
    EXPECT_EQ(resultsSets(), Names{"Node block-1.50 results_nset"});
    const sto_Set set = store().history(0).set();
    EXPECT_EQ(set.setType(), setC_Set::nodeSet);
    EXPECT_TRUE(set.internalSet());
    EXPECT_EQ(set.numMembers(), 1);
    for (int i = 1; i < 3; ++i) EXPECT_EQ(store().history(i).set().shortCut().id(), set.shortCut().id());
    EXPECT_EQ(store().history(0).nodeNumber(), 4);
    // It is no set of the user's.
    EXPECT_FALSE(instance().nodeSets().isMember("Node block-1.50 results_nset"));
}

TEST_F(yld_HistoryRegionPersTest, aCopyOfARegionUsesTheSameSet)
{
    yld_HistoryRegion& here = step().HistoryRegion("tip", "", node(50));
    const yld_HistoryRegionPers& persistent = step().historyRegions().get("tip");
    yld_HistoryRegionPers copy(persistent);
    curve(copy, "U1");
    curve(here, "U2");
    EXPECT_EQ(resultsSets().size(), 1u);
    EXPECT_EQ(store().history(0).set().shortCut().id(), store().history(1).set().shortCut().id());
}

TEST_F(yld_HistoryRegionPersTest, regionsAtOnePlaceAndLaterSessionsUseTheSetThatIsThere)
{
    curve(step().HistoryRegion("a", "", node(50)));
    curve(step().HistoryRegion("b", "", node(50)));
    curve(step().HistoryRegion("c", "", yld_HistoryPoint(element(101))));
    reopen();
    curve(region("a"), "U2").addData(1.0, 2.0);
    curve(region("c"), "E2").addData(1.0, 2.0);
    EXPECT_EQ(resultsSets(), (Names{"Node block-1.50 results_nset", "Element block-1.101 results_elset"}));
    reopen();
    EXPECT_EQ(region("a").historyOutputs().size(), 2);
    EXPECT_EQ(region("c").historyOutputs().size(), 2);
}

TEST_F(yld_HistoryRegionPersTest, curvesAtElementsShareOneSet)
{
    yld_HistoryRegion& here = step().HistoryRegion("e", "", yld_HistoryPoint(element(5)));
    curve(here, "E1");
    curve(here, "E2");
    EXPECT_EQ(resultsSets(), Names{"Element block-1.5 results_elset"});
    const sto_History history = store().history(1);
    EXPECT_EQ(history.type(), 5);
    EXPECT_EQ(history.set().setType(), setC_Set::elementSet);
    EXPECT_EQ(history.elementClass().classIndex(), 1);
    EXPECT_EQ(history.elementNumber(), 1);
    reopen();
    EXPECT_EQ(regionNames(), "e");
    EXPECT_TRUE(region("e").historyPoint() == yld_HistoryPoint(element(5)));
}

TEST_F(yld_HistoryRegionPersTest, curvesAtIntegrationPoints)
{
    curve(step().HistoryRegion("solid", "", yld_HistoryPoint(element(102), 3)));
    curve(step().HistoryRegion("shell", "", yld_HistoryPoint(element(301), 1, yld_SectionPoint(2, "top"))));
    EXPECT_EQ(resultsSets(), (Names{"Element block-1.102 Int Point 3 results_elset",
                                    "Element block-1.301 Int Point 1 Section Point 2 results_elset"}));
    EXPECT_EQ(store().history(0).type(), 2);
    EXPECT_EQ(store().history(0).integrationPoint(), 2);
    EXPECT_EQ(store().history(0).elementNumber(), 1);
    EXPECT_EQ(store().history(1).locationIndex(), 1);
    EXPECT_EQ(store().history(1).elementClass().classIndex(), 2);
    reopen();
    EXPECT_TRUE(region("solid").historyPoint() == yld_HistoryPoint(element(102), 3));
    EXPECT_TRUE(region("shell").historyPoint() == yld_HistoryPoint(element(301), 1, yld_SectionPoint(2, "top")));
    EXPECT_STREQ(region("shell").description().cStr(),
                 "Output at instance block-1 element 301 integration point 1 section point 2");
}

TEST_F(yld_HistoryRegionPersTest, noPointCountsAsTheFirst)
{
    // Neither an integration point nor a section point goes to the store as number 0, which is the first.
    curve(step().HistoryRegion("a", "", yld_HistoryPoint(element(301), 1)));
    curve(step().HistoryRegion("b", "", yld_HistoryPoint(element(301), 0, yld_SectionPoint(1, "bottom"))));
    curve(step().HistoryRegion("c", "", yld_HistoryPoint(element(301), 2, yld_SectionPoint())));
    EXPECT_EQ(store().history(0).integrationPoint(), 0);
    EXPECT_EQ(store().history(0).locationIndex(), 0);
    EXPECT_EQ(store().history(1).integrationPoint(), 0);
    EXPECT_EQ(store().history(1).locationIndex(), 0);
    EXPECT_EQ(store().history(2).integrationPoint(), 1);
    EXPECT_EQ(store().history(2).locationIndex(), 0);
    // A class without section points has no first one.
    curve(step().HistoryRegion("d", "", yld_HistoryPoint(element(101), 1)));
    EXPECT_EQ(store().history(3).locationIndex(), -1);
    reopen();
    EXPECT_EQ(region("a").historyPoint().sectionPoint().number(), 1);
    EXPECT_STREQ(region("a").historyPoint().sectionPoint().description().cStr(), "bottom");
    EXPECT_EQ(region("b").historyPoint().ipNumber(), 1);
    EXPECT_EQ(region("d").historyPoint().sectionPoint().number(), 0);
}

TEST_F(yld_HistoryRegionPersTest, curvesOfARegionOfTheModel)
{
    const yld_Set set = instance().NodeSet("some nodes", ints({10, 20}));
    curve(step().HistoryRegion("r", "", yld_HistoryPoint(set))).addData(1.0, 2.0);
    EXPECT_EQ(store().history(0).type(), 7);
    EXPECT_EQ(store().history(0).set().setLabel(), "some nodes");
    EXPECT_EQ(resultsSets(), Names());
    reopen();
    EXPECT_EQ(regionNames(), "r");
    EXPECT_STREQ(region("r").historyPoint().region().name().cStr(), "some nodes");
    EXPECT_EQ(region("r").historyPoint().region().nodes("block-1").size(), 2);
}

TEST_F(yld_HistoryRegionPersTest, curvesOfTheAssemblyMakeNoSet)
{
    curve(step().HistoryRegion("model", "", yld_HistoryPoint(m_yld->rootAssembly()))).addData(1.0, 2.0);
    EXPECT_EQ(store().history(0).type(), 9);
    EXPECT_EQ(resultsSets(), Names());
    EXPECT_EQ(m_yld->rootAssembly().assembly().set().length(), 0);
    reopen();
    EXPECT_EQ(regionNames(), "model");
    EXPECT_TRUE(region("model").historyPoint() == yld_HistoryPoint(m_yld->rootAssembly()));
}

TEST_F(yld_HistoryRegionPersTest, curvesAtNoPlaceComeBackUnderTheirRegion)
{
    EXPECT_EQ(warningsOf([&] {
                  curve(step().HistoryRegion("somewhere", "", yld_HistoryPoint(yld_String("the left engine"))), "rpm")
                      .addData(1.0, 2.0);
              }),
              "");
    EXPECT_EQ(store().history(0).type(), 0);
    reopen();
    EXPECT_EQ(warningsOf([&] { EXPECT_EQ(regionNames(), "somewhere"); }),
              "Warning: Unknown History Output position.\n");
    EXPECT_STREQ(region("somewhere").historyPoint().name().cStr(), "a curve : rpm");
    EXPECT_STREQ(region("somewhere").description().cStr(), "a curve : rpm");
    EXPECT_EQ(warningsOf([&] { region("somewhere").historyPoint().position(); }), undefinedWarning);
    EXPECT_EQ(region("somewhere").historyOutput("rpm").dataSize(), 1);
}

TEST_F(yld_HistoryRegionPersTest, aNameGivenTwiceMakesASecondCurveAndGivesTheFirst)
{
    yld_HistoryRegion& here = step().HistoryRegion("here", "", node(50));
    yld_HistoryOutput& first = curve(here);
    first.addData(1.0, 10.0);
    yld_HistoryOutput& again = here.HistoryOutput("U1", "another", yld_Enum::SCALAR);
    EXPECT_EQ(&again, &first);
    EXPECT_STREQ(again.description().cStr(), "a curve");
    EXPECT_EQ(store().numHistories(), 2);
    reopen();
    EXPECT_EQ(region("here").historyOutputs().size(), 1);
    EXPECT_STREQ(region("here").historyOutput("U1").description().cStr(), "a curve");
    EXPECT_EQ(region("here").historyOutput("U1").dataSize(), 1);
    EXPECT_EQ(store().numHistories(), 2);
}

TEST_F(yld_HistoryRegionPersTest, theSetOfAFailedCallStays)
{
    yld_HistoryRegion& here = step().HistoryRegion("here", "", node(50));
    // A list of curves that is not there lets the curve fail after its set was made.
    const lnk_ShortCut<fld_HistoryStep> broken = store().shortCut();
    const auto whole = broken.fetchWritable();
    const auto changed = broken.fetchWritable();
    changed->m_histories = mrp_Container<fld_History>();
    broken.replace(changed);
    EXPECT_EQ(failureOf([&] { curve(here); }), m_path + ": the step has no list of curves; the file is damaged");
    EXPECT_EQ(here.historyOutputs().size(), 0);
    EXPECT_EQ(resultsSets(), Names{"Node block-1.50 results_nset"});
    broken.replace(whole);
    curve(here);
    EXPECT_EQ(here.historyOutputs().size(), 1);
    EXPECT_EQ(resultsSets().size(), 1u);
}

TEST_F(yld_HistoryRegionPersTest, curvesOnTheAssemblysOwnMesh)
{
    yld_Assembly& assembly = m_yld->rootAssembly();
    assembly.addNodes(ints({7, 8}), rows({{0, 0, 9}, {1, 0, 9}}));
    assembly.addElements(ints({1}), connectivity({{8}}), "POINTMASS");
    curve(step().HistoryRegion("n", "", assembly.getNodeFromLabel(8))).addData(1.0, 2.0);
    curve(step().HistoryRegion("e", "", yld_HistoryPoint(assembly.getElementFromLabel(1)))).addData(1.0, 2.0);
    EXPECT_STREQ(region("n").historyPoint().instance().name().cStr(), "Assembly");
    reopen();
    EXPECT_EQ(regionNames(), "e,n");
    EXPECT_TRUE(region("n").historyPoint() == yld_HistoryPoint(m_yld->rootAssembly().getNodeFromLabel(8)));
    EXPECT_TRUE(region("e").historyPoint() == yld_HistoryPoint(m_yld->rootAssembly().getElementFromLabel(1)));
    curve(region("n"), "U2");
    EXPECT_EQ(m_yld->rootAssembly().assembly().set().length(), 2);
}

TEST_F(yld_HistoryRegionPersTest, aRegionWithoutAStepIsAnOrphan)
{
    yld_HistoryRegionPers none;
    EXPECT_EQ(failureOf([&] { curve(none); }),
              "Adding a history output object to an orphan History object is not allowed.");
    EXPECT_EQ(failureOf([&] { none.HistoryOutput("u", "", yld_Enum::VECTOR); }),
              "Only SCALAR data allowed for a historyVariable object.");
}

TEST_F(yld_StepHistoryTest, aNewRegionGetsTheInstanceOfItsNodeOrElement)
{
    m_yld->rootAssembly().Instance("block-2", m_yld->parts().get("block"));
    yld_Instance& second = m_yld->rootAssembly().instances().get("block-2");
    const auto instanceOf = [&](const char* name, const yld_HistoryPoint& point) {
        return std::string(step().HistoryRegion(name, "", point).historyPoint().instance().name().cStr());
    };
    EXPECT_EQ(instanceOf("a", yld_HistoryPoint(node(50))), "block-1");
    EXPECT_EQ(instanceOf("b", yld_HistoryPoint(second.getNodeFromLabel(50))), "block-2");
    EXPECT_EQ(instanceOf("c", yld_HistoryPoint(second.getElementFromLabel(5), 1)), "block-2");
    // With an element its instance counts.
    EXPECT_EQ(instanceOf("d", yld_HistoryPoint(element(5), second.getNodeFromLabel(50))), "block-1");
    EXPECT_EQ(instanceOf("e", yld_HistoryPoint()), "");
    EXPECT_EQ(instanceOf("f", yld_HistoryPoint(yld_String("name"))), "");
    // A node of the part belongs to no instance; what the caller said stays.
    yld_HistoryPoint ofPart(m_yld->parts().get("block").getNodeFromLabel(50));
    EXPECT_EQ(instanceOf("g", ofPart), "");
    ofPart.setInstance(second);
    EXPECT_EQ(instanceOf("h", ofPart), "block-2");
    // An instance placed after the first look is found.
    m_yld->rootAssembly().Instance("block-3", m_yld->parts().get("block"));
    EXPECT_EQ(instanceOf("i", yld_HistoryPoint(m_yld->rootAssembly().instances().get("block-3").getNodeFromLabel(50))),
              "block-3");
    // The caller's point is not touched.
    const yld_HistoryPoint mine(node(50));
    step().HistoryRegion("j", "", mine);
    EXPECT_STREQ(mine.instance().name().cStr(), "");
}

TEST_F(yld_StepHistoryTest, aSecondRegionOfANameIsRefused)
{
    step().HistoryRegion("here", "", node(50));
    const char* const message = "A historyRegion named 'here' already exists in step 'Step-1'.";
    EXPECT_EQ(failureOf([&] { step().HistoryRegion("here", "", node(60)); }), message);
    EXPECT_EQ(failureOf([&] { step().HistoryRegion("here", "", yld_HistoryPoint()); }), message);
    curve(step().historyRegions().get("here"));
    reopen();
    EXPECT_EQ(failureOf([&] { step().HistoryRegion("here", "", node(60)); }), message);
}

TEST_F(yld_StepHistoryTest, loadCasesMustBeThoseOfTheStep)
{
    const yld_LoadCase pull = step().LoadCase("pull");
    EXPECT_EQ(failureOf([&] { step().HistoryRegion("a", "", node(50), yld_LoadCase("twist")); }), "Invalid LoadCase");
    EXPECT_EQ(failureOf([&] { step().HistoryRegion("a", "", yld_HistoryPoint(node(50)), yld_LoadCase("twist")); }),
              "Invalid LoadCase");
    EXPECT_EQ(step().historyRegions().size(), 0);
    curve(step().HistoryRegion("a", "", node(50), pull));
    curve(step().HistoryRegion("b", "", yld_HistoryPoint(node(60)), pull));
    curve(step().HistoryRegion("c", "", node(70)));
    // The load case comes before the name.
    EXPECT_EQ(failureOf([&] { step().HistoryRegion("a", "", node(50), yld_LoadCase("twist")); }), "Invalid LoadCase");
    reopen();
    EXPECT_STREQ(region("a").loadCase().name().cStr(), "pull");
    EXPECT_STREQ(region("b").loadCase().name().cStr(), "pull");
    EXPECT_TRUE(region("c").loadCase() == yld_LoadCase());
}

TEST_F(yld_StepHistoryTest, regionsWithoutANameAreKeyedByTheirPlace)
{
    storedAtNode("U1", 4);
    storedAtNode("U2", 4);
    storedAtNode("U1", 4, "pull");
    storedAtNode("U1", 5, "pull", "named");
    reopen();
    EXPECT_EQ(regionNames(), "Node block-1.50,Node block-1.50, pull,named");
    EXPECT_EQ(region("Node block-1.50").historyOutputs().size(), 2);
    EXPECT_STREQ(region("Node block-1.50").description().cStr(), "Output at instance block-1 node 50");
    EXPECT_STREQ(region("Node block-1.50").name().cStr(), "Node block-1.50");
    EXPECT_STREQ(region("Node block-1.50").loadCase().name().cStr(), "");
    EXPECT_STREQ(region("Node block-1.50, pull").loadCase().name().cStr(), "pull");
    EXPECT_STREQ(region("named").loadCase().name().cStr(), "pull");
    // A region that was read takes new curves.
    curve(region("Node block-1.50, pull"), "U9").addData(1.0, 2.0);
    reopen();
    EXPECT_EQ(region("Node block-1.50, pull").historyOutputs().size(), 2);
}

TEST_F(yld_StepHistoryTest, regionsAreReadOnDemandAndOnce)
{
    storedAtNode("U1", 4);
    reopen();
    EXPECT_EQ(step().historyRegion().size(), 0);
    EXPECT_EQ(step().historyRegions().size(), 1);
    EXPECT_EQ(step().historyRegion().size(), 1);
    storedAtNode("U1", 5);
    EXPECT_EQ(step().historyRegions().size(), 1);
    const yld_Step& constant = step();
    EXPECT_EQ(constant.historyRegions().size(), 1);
    EXPECT_TRUE(constant.historyRegions().isMember("Node block-1.50"));
    // An update looks again.
    EXPECT_TRUE(step().update());
    EXPECT_EQ(constant.historyRegions().size(), 2);
    EXPECT_FALSE(step().update());
}

TEST_F(yld_StepHistoryTest, anUpdateReadsNoHistoryThatNobodyAskedFor)
{
    storedAtNode("U1", 4);
    reopen();
    EXPECT_FALSE(step().update());
    EXPECT_EQ(step().historyRegion().size(), 0);
}

TEST_F(yld_StepHistoryTest, whatTheStepMadeItselfIsNoNews)
{
    curve(step().HistoryRegion("here", "", node(50)));
    EXPECT_FALSE(step().update());
    EXPECT_EQ(regionNames(), "here");
}

TEST_F(yld_StepHistoryTest, theFirstCallOfEachKindReads)
{
    storedAtNode("U1", 4);
    reopen();
    step().getHistoryRegion(yld_HistoryPoint(node(50)));
    EXPECT_EQ(step().historyRegion().size(), 1);
    reopen();
    step().HistoryRegion("new", "", node(60));
    EXPECT_EQ(step().historyRegion().size(), 2);
}

TEST_F(yld_StepHistoryTest, regionsAreFoundByTheirPoint)
{
    storedAtNode("U1", 4);
    reopen();
    EXPECT_EQ(warningsOf([&] {
                  EXPECT_STREQ(step().getHistoryRegion(yld_HistoryPoint(node(50))).name().cStr(), "Node block-1.50");
              }),
              "");
    EXPECT_EQ(failureOf([&] { step().getHistoryRegion(yld_HistoryPoint(node(60))); }), "HistoryRegion not found.");
    EXPECT_EQ(failureOf([&] { step().getHistoryRegion(yld_HistoryPoint(node(60)), yld_LoadCase()); }),
              "HistoryRegion not found.");
    // What is found is the step's own.
    EXPECT_EQ(&step().getHistoryRegion(yld_HistoryPoint(node(50))), &region("Node block-1.50"));
}

TEST_F(yld_StepHistoryTest, furtherRegionsAtAPlaceAreToldOf)
{
    step().LoadCase("pull");
    for (const char* name : {"c", "a", "b"}) step().HistoryRegion(name, "", node(50), yld_LoadCase("pull"));
    step().HistoryRegion("0", "", node(50));
    step().HistoryRegion("z", "", node(60));
    const yld_HistoryPoint point = region("a").historyPoint();
    const std::string each =
        "Warning: Multiple HistoryRegions found for point \"Output at instance block-1 node 50\".The "
        "first HistoryRegion found will be retrieved.\n";
    EXPECT_EQ(warningsOf([&] { EXPECT_STREQ(step().getHistoryRegion(point).name().cStr(), "0"); }), each + each + each);
    // The text is that of the point that was asked for.
    EXPECT_EQ(warningsOf([&] { step().getHistoryRegion(yld_HistoryPoint(node(50))); }).substr(0, 75),
              "Warning: Multiple HistoryRegions found for point \"Output at node 50\".The fi");
    const std::string eachCase = "Warning: Multiple HistoryRegions found for point \"Output at instance block-1 node "
                                 "50\" and loadCase \"pull\". The first HistoryRegion found will be retrieved.\n";
    EXPECT_EQ(
        warningsOf([&] { EXPECT_STREQ(step().getHistoryRegion(point, yld_LoadCase("pull")).name().cStr(), "a"); }),
        eachCase + eachCase);
    EXPECT_EQ(warningsOf([&] { EXPECT_STREQ(step().getHistoryRegion(point, yld_LoadCase()).name().cStr(), "0"); }), "");
}

TEST_F(yld_StepHistoryTest, copiesOfAStepShareItsRegions)
{
    yld_Step copy(step());
    yld_HistoryRegion& made = copy.HistoryRegion("here", "", node(50));
    EXPECT_EQ(&made, &region("here"));
    // Frames hold a copy of their step; curves and regions outlive them.
    yld_HistoryOutput& output = curve(made);
    {
        const yld_Frame frame = step().Frame(1, 1.0);
        for (int i = 0; i < 50; ++i) {
            step().HistoryRegion(("region " + std::to_string(i)).c_str(), "", node(60));
            made.HistoryOutput(("U" + std::to_string(i)).c_str(), "", yld_Enum::SCALAR);
        }
    }
    output.addData(1.0, 2.0);
    EXPECT_EQ(&output, &region("here").historyOutput("U1"));
    EXPECT_EQ(region("here").historyOutput("U1").dataSize(), 1);
}

TEST_F(yld_StepHistoryTest, aStepWithoutResultsHasNoRegions)
{
    yld_Step none;
    EXPECT_EQ(none.historyRegions().size(), 0);
    EXPECT_EQ(none.historyRegion().size(), 0);
    EXPECT_EQ(failureOf([&] { none.HistoryRegion("here", "", yld_HistoryPoint()); }), "Step \"\" has no results.");
    EXPECT_EQ(failureOf([&] { none.getHistoryRegion(yld_HistoryPoint()); }), "HistoryRegion not found.");
    EXPECT_FALSE(none.update());
}

TEST_F(yld_StepHistoryTest, listingReadsNoCurve)
{
    for (int i = 0; i < 12; ++i) {
        yld_HistoryOutput& output = curve(step().HistoryRegion(std::to_string(i).c_str(), "", node(10 * (i + 1))));
        for (int k = 0; k < 1000; ++k) output.addData(static_cast<double>(k), 1.0 * k);
    }
    reopen();
    step();
    const fio_Database& database = m_yld->sto().file()->database();
    const long long before = database.extentReadBytes();
    EXPECT_EQ(step().historyRegions().size(), 12);
    // Labels, 4 bytes, and coordinates, 12 bytes, of the 12 nodes, once; not one of 4000 bytes a curve.
    EXPECT_EQ(database.extentReadBytes() - before, 12 * 16);
    EXPECT_EQ(region("7").historyOutput("U1").dataSize(), 1000);
    EXPECT_LT(database.extentReadBytes() - before, 4000);
    EXPECT_EQ(region("7").historyOutput("U1").data().size(), 1000);
}

TEST_F(yld_StepHistoryTest, historyOfADatabaseThatAnotherProcessWrites)
{
    storedAtNode("U1", 4, "", "here");
    m_yld->save();
    m_yld->close();
    m_yld = nullptr;
    int toWriter[2], toReader[2];
    ASSERT_EQ(pipe(toWriter), 0);
    ASSERT_EQ(pipe(toReader), 0);
    const pid_t writer = fork();
    if (writer == 0) {
        char go = 0;
        int status = 1;
        try {
            yld_Yld& database = openYld("written", m_path.c_str(), false, false);
            yld_HistoryRegion& here = database.steps().get("Step-1").historyRegions().get("here");
            if (read(toWriter[0], &go, 1) == 1) {
                here.historyOutput("U1").addData(1.0, 10.0);
                here.HistoryOutput("U2", "", yld_Enum::SCALAR).addData(1.0, 20.0);
                database.save();
                status = write(toReader[1], &go, 1) == 1 ? 0 : 1;
            }
        } catch (const std::exception& failure) {
            std::fprintf(stderr, "writer: %s\n", failure.what());
        }
        close(toReader[1]);
        _exit(status);
    }
    close(toReader[1]);
    m_yld = &openYld(m_path.c_str(), true);
    EXPECT_EQ(region("here").historyOutputs().size(), 1);
    EXPECT_EQ(region("here").historyOutput("U1").dataSize(), 0);
    char go = 1;
    ASSERT_EQ(write(toWriter[1], &go, 1), 1);
    EXPECT_EQ(read(toReader[0], &go, 1), 1);
    EXPECT_EQ(region("here").historyOutput("U1").dataSize(), 0);
    EXPECT_TRUE(m_yld->update());
    EXPECT_EQ(region("here").historyOutputs().size(), 2);
    EXPECT_EQ(region("here").historyOutput("U1").dataSize(), 1);
    EXPECT_EQ(region("here").historyOutput("U2").data()[0][1], 20.0F);
    int status = 0;
    waitpid(writer, &status, 0);
    EXPECT_EQ(status, 0);
}
