#include "platform/sto/sto_Assembly.h"
#include "platform/store/fio_File.h"
#include "result_model.h"
#include "stored_blocks.h"
#include "yld/impl/yld_FieldSubset.h"
#include "yld/impl/yld_Mesh.h"
#include "yld/impl/yld_TensorView.h"

#include <algorithm>
#include <cmath>

namespace {

// Label, point and first component of each value: "n10 e-1 p-1: 5; ".
std::string valuesOf(const yld_FieldOutput& field)
{
    std::string text;
    for (int i = 0; i < field.values().size(); ++i) {
        const yld_FieldValue value = field.values(i);
        if (value.nodeLabel() >= 0) text += "n" + std::to_string(value.nodeLabel()) + " ";
        if (value.elementLabel() >= 0) text += "e" + std::to_string(value.elementLabel()) + " ";
        if (value.integrationPoint() >= 0) text += "p" + std::to_string(value.integrationPoint()) + " ";
        text += std::to_string(static_cast<int>(value.data()[0])) + "; ";
    }
    return text;
}

std::string componentsOf(const yld_FieldValue& value)
{
    std::string text;
    for (int i = 0; i < value.data().length(); ++i) text += std::to_string(static_cast<int>(value.data()[i])) + " ";
    return text;
}

// A field of blocks that are put together by hand.
yld_FieldOutput fieldOf(std::initializer_list<yld_SubField> blocks, yld_Enum::yld_DataTypeEnum type = yld_Enum::SCALAR)
{
    yld_FieldOutput field("T", "", type, {}, {}, blocks.begin()->assembly(), 0);
    for (const yld_SubField& block : blocks) field.values().append(block);
    return field;
}

// A quaternion for a turn about the third axis.
std::vector<double> turned(double angle) { return {0.0, 0.0, std::sin(angle / 2), std::cos(angle / 2)}; }

} // namespace

class yld_FieldSubsetTest : public ResultModel
{
protected:
    void SetUp() override
    {
        ResultModel::SetUp();
        m_frame = step().Frame(1, 1.0);
    }

    yld_FieldOutput& newField(const char* name, yld_Enum::yld_DataTypeEnum type = yld_Enum::SCALAR)
    {
        return m_frame.FieldOutput(name, "", type);
    }
    sto_PartInstance on() { return instance().instance(); }
    fio_Database& database() { return on().modelFile()->database(); }

    // A block of a type at a position, on a set of the instance.
    yld_SubField blockOn(const sto_Set& set, fld_DataTypeEnm type, fld_OutputPositionEnm position, int length,
                         const BlockNumbers& numbers, yld_Enum::yld_DataTypeEnum shown)
    {
        fld_FieldDescription description = describe("T", type, position, length);
        description.m_instance = on().shortCut();
        description.m_set = set.shortCut();
        if (set.setType() != setC_Set::nodeSet) description.m_classIndex = set.subSet(0).classIndex();
        if (type == fld_DataTypeEnm::VECTOR) {
            description.m_width = static_cast<int>(numbers.values.size()) / length;
        }
        const int key = m_nextKey;
        m_nextKey += 2;
        return yld_SubField(key, writeNumbers(m_frame, description, key, numbers), step().assembly(), shown);
    }
    sto_Set elementSet(const char* name, std::vector<int> labels)
    {
        return on().Elset(name, labels.data(), static_cast<int>(labels.size()), true);
    }
    sto_Set nodeSet(const char* name, std::vector<int> labels)
    {
        return on().Nset(name, labels.data(), static_cast<int>(labels.size()), true, true);
    }
    sto_Set surface(const char* name, std::vector<int> labels, std::vector<int> facets)
    {
        sto_SurfaceSubset faces;
        faces.labels = std::move(labels);
        faces.facets = std::move(facets);
        return on().Surface(name, {faces}, true);
    }

    yld_Frame m_frame;
    int m_nextKey = 1000;
};

TEST_F(yld_FieldSubsetTest, filtersShareTheBlocksAndReadNothing)
{
    newField("S").addData(yld_Enum::NODAL, instance(), ints({10, 20}), rows({{1}, {2}}));
    m_frame.fieldOutputs().get("S").addData(yld_Enum::CENTROID, instance(), ints({301, 302}), rows({{3}, {4}}),
                                            yld_SectionPoint(2, "top"));
    m_frame.fieldOutputs().get("S").addData(yld_Enum::CENTROID, instance(), ints({101}), rows({{5}}));
    reopen();
    const yld_FieldOutput& s = field("S");
    ASSERT_EQ(s.values().size(), 5);
    const yld_Instance on = instance();
    yld_FieldLocation location(yld_Enum::CENTROID, yld_SectionPoint(2, "top"));
    const long long reads = database().extentReadCount();
    const yld_FieldOutput nodal = s.getSubset(yld_Enum::NODAL);
    const yld_FieldOutput top = s.getSubset(yld_SectionPoint(2, "top"));
    const yld_FieldOutput located = s.getSubset(location);
    const yld_FieldOutput shells = s.getSubset(yld_String("SHELL4"));
    const yld_FieldOutput placed = s.getSubset(on);
    EXPECT_EQ(nodal.values().size(), 2);
    EXPECT_EQ(top.values().size(), 2);
    EXPECT_EQ(located.values().size(), 3);
    EXPECT_EQ(shells.values().size(), 2);
    EXPECT_EQ(placed.values().size(), 5);
    EXPECT_EQ(database().extentReadCount(), reads);
    EXPECT_FALSE(s.SubField()[0].field().isLoaded());

    // What one of them reads the others have: the values are in memory once.
    EXPECT_EQ(valuesOf(top), "e301 3; e302 4; ");
    const long long afterFirst = database().extentReadBytes();
    EXPECT_EQ(valuesOf(shells), "e301 3; e302 4; ");
    EXPECT_EQ(top.values(0).data()[0], shells.values(0).data()[0]);
    EXPECT_TRUE(located.SubField()[0].field().isLoaded());
    EXPECT_EQ(database().extentReadBytes(), afterFirst);
}

TEST_F(yld_FieldSubsetTest, subsetIsAnOrphanWithEverythingElseOfItsField)
{
    yld_FieldOutput& s =
        m_frame.FieldOutput("S", "stress", yld_Enum::TENSOR_3D_FULL, {}, invariants({yld_Enum::INV3}));
    s.addData(yld_Enum::CENTROID, instance(), ints({101, 102}), rows({{1, 2, 3, 4, 5, 6}, {6, 5, 4, 3, 2, 1}}));
    s.addData(yld_Enum::NODAL, instance(), ints({10}), rows({{1, 2, 3, 4, 5, 6}}));
    const yld_FieldOutput part = s.getSubset(yld_Enum::CENTROID);
    EXPECT_TRUE(part.IsOrphan());
    EXPECT_FALSE(s.IsOrphan());
    EXPECT_STREQ(part.name().cStr(), "S");
    EXPECT_STREQ(part.description().cStr(), "stress");
    EXPECT_EQ(joined(part.componentLabels()), "S11,S22,S33,S12,S13,S23");
    EXPECT_EQ(part.validInvariants().size(), 1);
    EXPECT_EQ(part.fieldKeys().size(), 2);
    EXPECT_EQ(part.frameNumber(), s.frameNumber());
    ASSERT_EQ(part.locations().size(), 1);
    EXPECT_EQ(part.locations()[0].position(), yld_Enum::CENTROID);
    EXPECT_EQ(s.locations().size(), 2);
}

TEST_F(yld_FieldSubsetTest, blocksAreSharedAndMaterialiseForAll)
{
    newField("S").addData(yld_Enum::CENTROID, instance(), ints({101, 102}), rows({{1}, {2}}));
    const yld_FieldOutput one = m_frame.fieldOutputs().get("S").getSubset(instance().getElementFromLabel(102));
    const yld_FieldOutput same = one.getSubset(yld_Enum::CENTROID);
    EXPECT_EQ(same.SubField()[0].indices().size(), 1);
    EXPECT_EQ(same.SubField()[0].key(), one.SubField()[0].key());
    EXPECT_EQ(valuesOf(same), "e102 2; ");
    EXPECT_EQ(one.bulkDataBlocks()[0].length(), 1);
    EXPECT_EQ(same.SubField()[0].indices().size(), 0);
    EXPECT_EQ(same.SubField()[0].description().key(), -999);
    EXPECT_EQ(same.SubField()[0].length(), 1);
    EXPECT_EQ(valuesOf(same), "e102 2; ");
    // The field that it was taken from has its stored block still.
    EXPECT_EQ(m_frame.fieldOutputs().get("S").SubField()[0].description().key(), 0);
    EXPECT_EQ(m_frame.fieldOutputs().get("S").values().size(), 2);
}

TEST_F(yld_FieldSubsetTest, sectionPointWithoutANumberMatchesNothing)
{
    yld_FieldOutput& s = newField("S");
    s.addData(yld_Enum::CENTROID, instance(), ints({301}), rows({{1}}), yld_SectionPoint(1, "bottom"));
    s.addData(yld_Enum::CENTROID, instance(), ints({301}), rows({{2}}), yld_SectionPoint(2, "top"));
    s.addData(yld_Enum::CENTROID, instance(), ints({101}), rows({{3}}));
    EXPECT_EQ(s.getSubset(yld_SectionPoint()).values().size(), 0);
    EXPECT_EQ(s.getSubset(yld_SectionPoint(1, "top")).values().size(), 0);
    EXPECT_EQ(valuesOf(s.getSubset(yld_SectionPoint(1, "bottom"))), "e301 1; ");
}

TEST_F(yld_FieldSubsetTest, locationKeepsBlocksWithoutSectionPoints)
{
    yld_FieldOutput& s = newField("S");
    s.addData(yld_Enum::CENTROID, instance(), ints({301}), rows({{1}}), yld_SectionPoint(1, "bottom"));
    s.addData(yld_Enum::CENTROID, instance(), ints({301}), rows({{2}}), yld_SectionPoint(2, "top"));
    s.addData(yld_Enum::CENTROID, instance(), ints({101}), rows({{3}}));
    s.addData(yld_Enum::WHOLE_ELEMENT, instance(), ints({101}), rows({{4}}));
    EXPECT_EQ(valuesOf(s.getSubset(yld_FieldLocation(yld_Enum::CENTROID, yld_SectionPoint(2, "top")))),
              "e301 2; e101 3; ");
    EXPECT_EQ(valuesOf(s.getSubset(yld_FieldLocation(yld_Enum::CENTROID))), "e301 1; e301 2; e101 3; ");
    yld_FieldLocation both(yld_Enum::CENTROID, yld_SectionPoint(2, "top"));
    both.add(yld_SectionPoint(1, "bottom"));
    EXPECT_EQ(valuesOf(s.getSubset(both)), "e301 1; e301 2; e101 3; ");
    EXPECT_EQ(s.getSubset(yld_FieldLocation(yld_Enum::NODAL)).values().size(), 0);
}

TEST_F(yld_FieldSubsetTest, instanceNamedRootAssemblyGivesAllBlocks)
{
    yld_Part& part = m_yld->parts().get("block");
    yld_Instance second = m_yld->rootAssembly().Instance("block-2", part);
    yld_FieldOutput& s = newField("S");
    s.addData(yld_Enum::NODAL, instance(), ints({10}), rows({{1}}));
    s.addData(yld_Enum::NODAL, second, ints({10, 20}), rows({{2}, {3}}));
    s.addData(yld_Enum::WHOLE_MODEL, yld_Instance(), ints({}), rows({{4}}));
    const yld_Instance root("rootAssembly", yld_Enum::THREE_D, sto_PartInstance(), yld_MeshHandle(new yld_Mesh()));
    EXPECT_EQ(s.getSubset(root).values().size(), 4);
    EXPECT_EQ(valuesOf(s.getSubset(second)), "n10 2; n20 3; ");
    EXPECT_EQ(valuesOf(s.getSubset(instance())), "n10 1; ");
    EXPECT_EQ(s.getSubset(yld_Instance()).values().size(), 0);
    // A node or an element belongs to one instance.
    EXPECT_EQ(valuesOf(s.getSubset(second.getNodeFromLabel(10))), "n10 2; ");
}

TEST_F(yld_FieldSubsetTest, positionThatIsNotThereGivesAnEmptyField)
{
    yld_FieldOutput& s = newField("S");
    s.addData(yld_Enum::NODAL, instance(), ints({10}), rows({{1}}));
    const yld_FieldOutput none = s.getSubset(yld_Enum::CENTROID);
    EXPECT_EQ(none.values().size(), 0);
    EXPECT_EQ(none.locations().size(), 0);
    EXPECT_EQ(none.bulkDataBlocks().size(), 0);
    EXPECT_EQ(failureOf([&] { none.values(0); }), "FieldValue index out of range.");
    EXPECT_TRUE(none.IsOrphan());
}

TEST_F(yld_FieldSubsetTest, onlyCentroidAndElementNodalAreMovedTo)
{
    yld_FieldOutput& s = newField("S");
    s.addData(yld_Enum::INTEGRATION_POINT, instance(), ints({7}), rows({{1}}));
    EXPECT_EQ(s.getSubset(yld_Enum::WHOLE_ELEMENT).values().size(), 0);
    EXPECT_EQ(s.getSubset(yld_Enum::NODAL).values().size(), 0);
    EXPECT_EQ(s.getSubset(yld_Enum::ELEMENT_FACE).values().size(), 0);
    // Where there are values nothing has to be moved.
    s.addData(yld_Enum::CENTROID, instance(), ints({7}), rows({{2}}));
    EXPECT_EQ(valuesOf(s.getSubset(yld_Enum::CENTROID)), "e7 2; ");
}

TEST_F(yld_FieldSubsetTest, ownSetGivesTheBlockUnchanged)
{
    yld_FieldOutput& s = newField("S");
    s.addData(yld_Enum::CENTROID, instance(), ints({102, 101, 7}), rows({{1}, {2}, {3}}));
    const yld_Set own = instance().elementSets(true).get("api_set 0");
    EXPECT_EQ(own.size(), 3);
    const yld_FieldOutput part = s.getSubset(own);
    EXPECT_EQ(valuesOf(part), "e102 1; e101 2; e7 3; ");
    ASSERT_EQ(part.SubField().size(), 2);
    EXPECT_TRUE(part.SubField()[0].indices().isEmpty());
    EXPECT_TRUE(part.SubField()[1].indices().isEmpty());
}

TEST_F(yld_FieldSubsetTest, setOfTheSameNameOnAnotherInstanceCountsAsTheBlocksOwn)
{
    yld_Part& part = m_yld->parts().get("block");
    yld_Instance second = m_yld->rootAssembly().Instance("block-2", part);
    yld_Set& here = instance().NodeSet("same", ints({10}));
    second.NodeSet("same", ints({20, 30}));
    fld_FieldDescription description = describe("T", fld_DataTypeEnm::SCALAR, fld_OutputPositionEnm::NODAL, 2);
    description.m_instance = second.instance().shortCut();
    description.m_set = second.instance().mesh().nset("same").shortCut();
    const yld_FieldOutput t = fieldOf(
        {yld_SubField(0, writeBlock(m_frame, description, 0, {1, 2}), step().assembly(), yld_Enum::SCALAR)});
    EXPECT_EQ(valuesOf(t.getSubset(here)), "n20 1; n30 2; ");
}

TEST_F(yld_FieldSubsetTest, elementSetChoosesAllValuesOfItsElements)
{
    yld_FieldOutput& s = newField("S");
    s.addData(yld_Enum::INTEGRATION_POINT, instance(), ints({101, 102}), counted(16));
    s.addData(yld_Enum::ELEMENT_NODAL, instance(), ints({101, 102}), counted(16, 101));
    s.addData(yld_Enum::CENTROID, instance(), ints({101, 102}), counted(2, 201));
    s.addData(yld_Enum::NODAL, instance(), ints({10, 20}), counted(2, 301));
    s.addData(yld_Enum::CENTROID, instance(), ints({7}), counted(1, 401));
    yld_Set& upper = instance().ElementSet("upper", ints({102, 302}));
    const yld_FieldOutput part = s.getSubset(upper);
    EXPECT_EQ(valuesOf(part), "e102 p1 9; e102 p2 10; e102 p3 11; e102 p4 12; e102 p5 13; e102 p6 14; e102 p7 15; "
                              "e102 p8 16; n50 e102 109; n60 e102 110; n70 e102 111; n80 e102 112; n90 e102 113; "
                              "n100 e102 114; n110 e102 115; n120 e102 116; e102 202; ");
    EXPECT_EQ(part.SubField().size(), 3);
    EXPECT_EQ(part.locations().size(), 3);
    // In bulk the same, on the set itself as far as it goes.
    const yld_SequenceFieldBulkData& bulk = part.bulkDataBlocks();
    EXPECT_EQ(bulk[0].data()[7], 16.0F);
    EXPECT_EQ(listed(bulk[0].elementLabels(), 8), "102 102 102 102 102 102 102 102 ");
    EXPECT_EQ(listed(bulk[1].nodeLabels(), 8), "50 60 70 80 90 100 110 120 ");
    EXPECT_STREQ(part.SubField()[0].description().set().setLabel().c_str(), "upper");
    EXPECT_FALSE(on().mesh().elset("api_tmp_set").isValid());
}

TEST_F(yld_FieldSubsetTest, nodeSetTurnsElementNodalValuesIntoNodalOnes)
{
    yld_FieldOutput& s = newField("S");
    s.addData(yld_Enum::ELEMENT_NODAL, instance(), ints({101, 102}), counted(16));
    s.addData(yld_Enum::NODAL, instance(), ints({10, 50, 60}), counted(3, 101));
    s.addData(yld_Enum::INTEGRATION_POINT, instance(), ints({7}), counted(1, 201));
    yld_Set& middle = instance().NodeSet("middle", ints({50, 80}));
    const yld_FieldOutput part = s.getSubset(middle);
    // Every element that has the node gives a value, in the order of the elements.
    EXPECT_EQ(valuesOf(part), "n50 5; n80 8; n50 9; n80 12; n50 102; ");
    ASSERT_EQ(part.SubField().size(), 2);
    EXPECT_EQ(part.SubField()[0].position(), yld_Enum::NODAL);
    EXPECT_EQ(part.SubField()[0].description().key(), -999);
    EXPECT_EQ(part.SubField()[0].key(), -1);
    EXPECT_TRUE(part.SubField()[0].indices().isEmpty());
    EXPECT_EQ(part.SubField()[1].indices().size(), 1);
    EXPECT_EQ(part.values(0).position(), yld_Enum::NODAL);
    EXPECT_STREQ(part.values(0).baseElementType().cStr(), "");
    ASSERT_EQ(part.locations().size(), 1);
    EXPECT_EQ(part.locations()[0].position(), yld_Enum::NODAL);
    EXPECT_STREQ(part.SubField()[0].setName().cStr(), "middle");
    // The set by which a block was chosen is its own from then on.
    EXPECT_EQ(part.getSubset(middle).values().size(), 5);
}

TEST_F(yld_FieldSubsetTest, setOfAnotherKindChoosesNothing)
{
    yld_FieldOutput& nodal = newField("N");
    nodal.addData(yld_Enum::NODAL, instance(), ints({10, 20}), counted(2));
    yld_FieldOutput& central = newField("C");
    central.addData(yld_Enum::CENTROID, instance(), ints({101, 102}), counted(2));
    yld_Set& elements = instance().ElementSet("elements", ints({101}));
    yld_Set& nodes = instance().NodeSet("nodes", ints({10}));
    yld_Set& faces = instance().Surface("faces", ints({101}), [] {
        yld_Sequence<yld_Enum::yld_ElementFaceEnum> all;
        all.append(yld_Enum::FACE1);
        return all;
    }());
    EXPECT_EQ(nodal.getSubset(elements).values().size(), 0);
    EXPECT_EQ(nodal.getSubset(faces).values().size(), 0);
    EXPECT_EQ(central.getSubset(nodes).values().size(), 0);
    EXPECT_EQ(central.getSubset(faces).values().size(), 0);
    EXPECT_EQ(nodal.getSubset(nodes).values().size(), 1);
}

TEST_F(yld_FieldSubsetTest, valuesOnNoSetAreRefused)
{
    yld_FieldOutput& e = newField("E");
    e.addData(yld_Enum::WHOLE_MODEL, yld_Instance(), ints({}), rows({{1}}));
    yld_Set& nodes = instance().NodeSet("nodes", ints({10}));
    EXPECT_EQ(failureOf([&] { e.getSubset(nodes); }), "Unknown Set type.");
    yld_FieldOutput& n = newField("N");
    n.addData(yld_Enum::NODAL, instance(), ints({10}), rows({{1}}));
    EXPECT_EQ(failureOf([&] { n.getSubset(yld_Set()); }), "Unknown Set type.");
}

TEST_F(yld_FieldSubsetTest, labelsOfBlockAndSetAreTakenForAscending)
{
    yld_FieldOutput& t = newField("T");
    t.addData(yld_Enum::NODAL, instance(), ints({20, 10, 120}), counted(3));
    yld_Set& sorted = instance().NodeSet("sorted", ints({10, 20, 120}));
    // 20 is found behind 10, which is then behind the walk.
    EXPECT_EQ(valuesOf(t.getSubset(sorted)), "n20 1; n120 3; ");
    yld_FieldOutput& u = newField("U");
    u.addData(yld_Enum::NODAL, instance(), ints({10, 20, 30}), counted(3));
    yld_Set& unsorted = instance().NodeSet("unsorted", ints({30, 20, 10}), false, true);
    EXPECT_EQ(valuesOf(u.getSubset(unsorted)), "n30 3; ");
    // One list ends before the other.
    yld_Set& high = instance().NodeSet("high", ints({20, 110}));
    EXPECT_EQ(valuesOf(u.getSubset(high)), "n20 2; ");
    yld_Set& low = instance().NodeSet("low", ints({10}));
    EXPECT_EQ(valuesOf(u.getSubset(low)), "n10 1; ");
}

TEST_F(yld_FieldSubsetTest, subsetOfASubsetBySetsIsTheirIntersection)
{
    yld_FieldOutput& t = newField("T");
    t.addData(yld_Enum::NODAL, instance(), ints({10, 20, 30, 40, 50, 60}), counted(6));
    yld_Set& a = instance().NodeSet("a", ints({20, 30, 40, 50}));
    yld_Set& b = instance().NodeSet("b", ints({10, 30, 50, 60}));
    yld_Set& c = instance().NodeSet("c", ints({10, 60, 70}));
    const yld_FieldOutput inA = t.getSubset(a);
    EXPECT_EQ(valuesOf(inA), "n20 2; n30 3; n40 4; n50 5; ");
    EXPECT_EQ(valuesOf(inA.getSubset(b)), "n30 3; n50 5; ");
    EXPECT_EQ(inA.getSubset(c).values().size(), 0);
    // Nothing was taken out for it, and the block says by which set it was chosen last.
    EXPECT_EQ(inA.SubField()[0].indices().size(), 4);
    EXPECT_STREQ(inA.getSubset(b).SubField()[0].setName().cStr(), "b");
    EXPECT_FALSE(on().mesh().nset("api_tmp_set").isValid());
    // The set of the stored values chooses all of them again.
    const yld_Set own("api_set 0", on().mesh().nset("api_set 0"), yld_MeshHandle());
    EXPECT_EQ(inA.getSubset(own).values().size(), 6);
}

TEST_F(yld_FieldSubsetTest, intersectionWalksTheShorterOfTwoListsTakenForAscending)
{
    yld_FieldOutput& t = newField("T");
    t.addData(yld_Enum::NODAL, instance(), ints({10, 20, 30, 40, 50, 60}), counted(6));
    yld_SubField block(t.SubField()[0]);
    block.setIndices(ints({4, 1, 2}));
    const yld_FieldOutput part = fieldOf({block});
    yld_Set& two = instance().NodeSet("two", ints({20, 30})); // places 1, 2
    yld_Set& many = instance().NodeSet("many", ints({20, 30, 40, 50})); // places 1 to 4
    // The new list is walked: 1 and 2 are behind 4, which the walk does not pass.
    EXPECT_EQ(part.getSubset(two).values().size(), 0);
    // The old list is walked: 4 goes to the end of the new one.
    EXPECT_EQ(valuesOf(part.getSubset(many)), "n50 5; ");
}

TEST_F(yld_FieldSubsetTest, nodeSetOverInstancesIsReadByTheNumberOfTheBlocksOwnSubsets)
{
    yld_Part& part = m_yld->parts().get("block");
    yld_Instance second = m_yld->rootAssembly().Instance("block-2", part);
    yld_FieldOutput& t = newField("T");
    t.addData(yld_Enum::NODAL, instance(), ints({10, 20, 30}), counted(3));
    t.addData(yld_Enum::NODAL, second, ints({10, 20, 30}), counted(3, 11));
    yld_Sequence<yld_Sequence<int>> labels;
    labels.append(ints({10, 20}));
    labels.append(ints({30}));
    yld_Set& both = m_yld->rootAssembly().NodeSet("both", texts({"block-1", "block-2"}), labels);
    // The blocks' own sets have one subset each, so the first group serves for both.
    EXPECT_EQ(valuesOf(t.getSubset(both)), "n10 1; n20 2; n10 11; n20 12; ");
    yld_FieldOutput& c = newField("C");
    c.addData(yld_Enum::CENTROID, instance(), ints({101, 102}), counted(2));
    c.addData(yld_Enum::CENTROID, second, ints({101, 102}), counted(2, 11));
    labels.clearAll();
    labels.append(ints({101}));
    labels.append(ints({102}));
    yld_Set& elements = m_yld->rootAssembly().ElementSet("elements", texts({"block-1", "block-2"}), labels);
    EXPECT_EQ(valuesOf(c.getSubset(elements)), "e101 1; e102 12; ");
}

TEST_F(yld_FieldSubsetTest, elementGivesAllItsValues)
{
    yld_FieldOutput& s = newField("S");
    s.addData(yld_Enum::INTEGRATION_POINT, instance(), ints({102, 101}), counted(16));
    s.addData(yld_Enum::CENTROID, instance(), ints({101, 7}), counted(2, 101));
    s.addData(yld_Enum::NODAL, instance(), ints({10}), counted(1, 201));
    const yld_FieldOutput part = s.getSubset(instance().getElementFromLabel(101));
    EXPECT_EQ(valuesOf(part),
              "e101 p1 9; e101 p2 10; e101 p3 11; e101 p4 12; e101 p5 13; e101 p6 14; e101 p7 15; e101 p8 16; e101 101; ");
    EXPECT_EQ(part.SubField()[0].indices().size(), 8);
    EXPECT_EQ(s.getSubset(instance().getElementFromLabel(302)).values().size(), 0);
    EXPECT_EQ(s.getSubset(yld_Element()).values().size(), 0);
}

TEST_F(yld_FieldSubsetTest, subsetByElementMaterialisesWhatItIsTakenFrom)
{
    yld_FieldOutput& s = newField("S");
    s.addData(yld_Enum::CENTROID, instance(), ints({101, 102}), counted(2));
    const yld_FieldOutput first = s.getSubset(instance().ElementSet("both", ints({101, 102})));
    EXPECT_EQ(first.SubField()[0].indices().size(), 2);
    const yld_FieldOutput one = first.getSubset(instance().getElementFromLabel(102));
    EXPECT_TRUE(first.SubField()[0].indices().isEmpty());
    EXPECT_EQ(first.SubField()[0].description().key(), -999);
    EXPECT_EQ(valuesOf(one), "e102 2; ");
    // Places count in what was taken out.
    EXPECT_EQ(one.SubField()[0].indices()[0], 1);
    const yld_FieldOutput third = one.getSubset(instance().getElementFromLabel(102));
    EXPECT_EQ(one.SubField()[0].storedLength(), 1);
    EXPECT_EQ(valuesOf(third), "e102 2; ");
    EXPECT_EQ(third.SubField()[0].indices()[0], 0);
}

TEST_F(yld_FieldSubsetTest, nodeGivesItsFirstElementNodalValueInEachBlock)
{
    yld_FieldOutput& s = newField("S");
    s.addData(yld_Enum::ELEMENT_NODAL, instance(), ints({101, 102}), counted(16));
    s.addData(yld_Enum::ELEMENT_NODAL, instance(), ints({5, 7}), counted(8, 101));
    s.addData(yld_Enum::NODAL, instance(), ints({50, 60}), counted(2, 201));
    s.addData(yld_Enum::INTEGRATION_POINT, instance(), ints({5}), counted(1, 301));
    const yld_FieldOutput part = s.getSubset(instance().getNodeFromLabel(50));
    EXPECT_EQ(valuesOf(part), "n50 5; n50 108; n50 201; ");
    ASSERT_EQ(part.SubField().size(), 3);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(part.SubField()[i].position(), yld_Enum::NODAL);
    ASSERT_EQ(part.locations().size(), 1);
    EXPECT_EQ(s.getSubset(instance().getNodeFromLabel(120)).values().size(), 1);
    EXPECT_EQ(s.getSubset(yld_Node()).values().size(), 0);
    // Of a subset the same, after it has been materialised.
    const yld_FieldOutput upper = s.getSubset(instance().getElementFromLabel(102));
    EXPECT_EQ(valuesOf(upper.getSubset(instance().getNodeFromLabel(50))), "n50 9; ");
    EXPECT_EQ(upper.SubField()[0].description().key(), -999);
}

TEST_F(yld_FieldSubsetTest, elementNodalValuesOfASectionPointKeepItsNumberAtNodes)
{
    yld_FieldOutput& s = newField("S");
    s.addData(yld_Enum::ELEMENT_NODAL, instance(), ints({301}), counted(4), yld_SectionPoint(2, "top"));
    const yld_FieldOutput part = s.getSubset(instance().getNodeFromLabel(30));
    EXPECT_EQ(valuesOf(part), "n30 3; ");
    EXPECT_EQ(part.values(0).sectionPoint().number(), 2);
    // Nodes have no class that knows the text.
    EXPECT_STREQ(part.values(0).sectionPoint().description().cStr(), "");
}

TEST_F(yld_FieldSubsetTest, surfaceBlocksGoWithSurfacesByTheirElements)
{
    BlockNumbers numbers;
    numbers.values = {1, 2, 3};
    const yld_SubField faces =
        blockOn(surface("own", {101, 101, 102}, {0, 2, 4}), fld_DataTypeEnm::SCALAR, fld_OutputPositionEnm::ELEMENT_FACE, 3,
                numbers, yld_Enum::SCALAR);
    const yld_FieldOutput t = fieldOf({faces});
    yld_Sequence<yld_Enum::yld_ElementFaceEnum> second;
    second.append(yld_Enum::FACE2);
    // Another face of the element: both of its faces are taken.
    yld_Set& other = instance().Surface("other", ints({101}), second);
    const yld_FieldOutput part = t.getSubset(other);
    EXPECT_EQ(valuesOf(part), "e101 1; e101 2; ");
    EXPECT_EQ(part.values(1).face(), yld_Enum::FACE3);
    EXPECT_EQ(valuesOf(t.getSubset(instance().getElementFromLabel(102))), "e102 3; ");
    EXPECT_EQ(t.getSubset(instance().getNodeFromLabel(10)).values().size(), 0);
    EXPECT_EQ(t.getSubset(instance().ElementSet("elements", ints({101}))).values().size(), 0);
    // What is taken out stands on a set of elements, which has no faces.
    const yld_FieldBulkData& bulk = part.bulkDataBlocks()[0];
    EXPECT_EQ(bulk.setType(), 1);
    EXPECT_EQ(listed(bulk.elementLabels(), 2), "101 101 ");
    EXPECT_EQ(bulk.faces(), nullptr);
    EXPECT_EQ(part.values(1).face(), yld_Enum::FACE_UNKNOWN);
    // Unless the surface that they were chosen by has as many members.
    second.append(yld_Enum::FACE6);
    yld_Set& two = instance().Surface("two", ints({101, 101}), second);
    const yld_FieldOutput kept = t.getSubset(two);
    EXPECT_EQ(kept.bulkDataBlocks()[0].setType(), 2);
    EXPECT_EQ(kept.values(0).face(), yld_Enum::FACE2);
    EXPECT_EQ(valuesOf(kept), "e101 1; e101 2; ");
}

TEST_F(yld_FieldSubsetTest, pointsOnFacesAreCountedAsFaces)
{
    BlockNumbers numbers;
    for (int i = 1; i <= 8; ++i) numbers.values.push_back(i);
    const yld_SubField points =
        blockOn(surface("own", {101, 102}, {0, 4}), fld_DataTypeEnm::SCALAR,
                fld_OutputPositionEnm::ELEMENT_FACE_INTEGRATION_POINT, 8, numbers, yld_Enum::SCALAR);
    const yld_FieldOutput t = fieldOf({points});
    EXPECT_EQ(t.values().size(), 8);
    // The second face is asked for; its number among the faces is taken for that of a value.
    EXPECT_EQ(valuesOf(t.getSubset(instance().getElementFromLabel(102))), "e101 p2 2; ");
    yld_Sequence<yld_Enum::yld_ElementFaceEnum> first;
    first.append(yld_Enum::FACE1);
    EXPECT_EQ(valuesOf(t.getSubset(instance().Surface("other", ints({102}), first))), "e101 p2 2; ");
}

TEST_F(yld_FieldSubsetTest, localSystemChoosesTheValuesThatHaveIt)
{
    BlockNumbers numbers;
    numbers.values = {1, 1, 1, 1, 1, 1, 2, 2, 2, 2, 2, 2, 3, 3, 3, 3, 3, 3};
    for (const double angle : {0.0, 0.5, 0.0}) {
        for (const double component : turned(angle)) numbers.systems.push_back(component);
    }
    const yld_SubField tensors =
        blockOn(nodeSet("own", {10, 20, 30}), fld_DataTypeEnm::TENSOR_3D_FULL, fld_OutputPositionEnm::NODAL, 3, numbers,
                yld_Enum::TENSOR_3D_FULL);
    newField("N").addData(yld_Enum::NODAL, instance(), ints({40}), rows({{9}}));
    const yld_FieldOutput t = fieldOf({tensors, m_frame.fieldOutputs().get("N").SubField()[0]}, yld_Enum::TENSOR_3D_FULL);
    const yld_Sequence<yld_Sequence<float>> none = t.values(0).localCoordSystem();
    const yld_Sequence<yld_Sequence<float>> half = t.values(1).localCoordSystem();
    ASSERT_EQ(none.size(), 3);
    EXPECT_EQ(none[0][0], 1.0F);
    EXPECT_EQ(valuesOf(t.getSubset(none)), "n10 1; n30 3; ");
    EXPECT_EQ(valuesOf(t.getSubset(half)), "n20 2; ");
    EXPECT_EQ(t.getSubset(rows({{1, 0, 0}, {0, 0, 1}, {0, -1, 0}})).values().size(), 0);
    // Values without a system have the empty one.
    EXPECT_EQ(valuesOf(t.getSubset(yld_Sequence<yld_Sequence<float>>())), "n40 9; ");
    // The subset of a subset: the places are those of the stored values.
    EXPECT_EQ(valuesOf(t.getSubset(instance().NodeSet("some", ints({20, 30}))).getSubset(none)), "n30 3; ");
    // What is taken out keeps its systems.
    const yld_FieldOutput part = t.getSubset(none);
    EXPECT_EQ(part.bulkDataBlocks()[0].orientationWidth(), 4);
    EXPECT_EQ(part.SubField()[0].description().orientation().key(), -9999);
    EXPECT_STREQ(part.SubField()[0].description().orientation().label().cStr(), "orientation");
    EXPECT_EQ(part.SubField()[0].description().orientation().data()->m_description, "orientation for result");
    EXPECT_TRUE(part.values(1).localCoordSystem().isEqual(none));
}

TEST_F(yld_FieldSubsetTest, localSystemsOfDoubleValuesAreRefused)
{
    BlockNumbers numbers;
    numbers.isDouble = true;
    numbers.values = {1, 2};
    const yld_FieldOutput t = fieldOf({blockOn(nodeSet("own", {10, 20}), fld_DataTypeEnm::SCALAR,
                                               fld_OutputPositionEnm::NODAL, 2, numbers, yld_Enum::SCALAR)});
    EXPECT_EQ(failureOf([&] { t.getSubset(rows({{1, 0, 0}})); }),
              "Data is double precision.  Use localCoordSystemDouble");
}

TEST_F(yld_FieldSubsetTest, mixedTensorTypeGoesBackToPlanarAndKeepsItsLabels)
{
    BlockNumbers planar;
    planar.values = {1, 2, 3, 4};
    BlockNumbers full;
    full.values = {1, 2, 3, 4, 5, 6};
    const yld_SubField shell = blockOn(elementSet("shell", {301}), fld_DataTypeEnm::TENSOR_3D_PLANAR,
                                       fld_OutputPositionEnm::CENTROID, 1, planar, yld_Enum::TENSOR_3D_PLANAR);
    const yld_SubField solid = blockOn(elementSet("solid", {101}), fld_DataTypeEnm::TENSOR_3D_FULL,
                                       fld_OutputPositionEnm::CENTROID, 1, full, yld_Enum::TENSOR_3D_FULL);
    yld_FieldOutput s("S", "", yld_Enum::TENSOR_3D_FULL, texts({"S11", "S22", "S33", "S12", "S13", "S23"}),
                      invariants({yld_Enum::MISES}), step().assembly(), 0);
    s.values().append(shell);
    s.values().append(solid);
    const yld_FieldOutput shells = s.getSubset(yld_String("SHELL4"));
    EXPECT_EQ(shells.type(), yld_Enum::TENSOR_3D_PLANAR);
    EXPECT_EQ(joined(shells.componentLabels()), "S11,S22,S33,S12,S13,S23");
    EXPECT_EQ(shells.validInvariants().size(), 1);
    EXPECT_EQ(s.getSubset(yld_String("HEX8")).type(), yld_Enum::TENSOR_3D_FULL);
    EXPECT_EQ(s.getSubset(yld_Enum::CENTROID).type(), yld_Enum::TENSOR_3D_FULL);
    EXPECT_EQ(s.getSubset(yld_String("TET4")).type(), yld_Enum::TENSOR_3D_FULL);
}

TEST_F(yld_FieldSubsetTest, doublePrecisionComesOutOfMaterialisationSingle)
{
    BlockNumbers numbers;
    numbers.isDouble = true;
    numbers.values = {1.0 / 3.0, 2.0 / 3.0, 4.0 / 3.0};
    numbers.conjugate = {-1.0 / 3.0, -2.0 / 3.0, -4.0 / 3.0};
    const yld_FieldOutput t = fieldOf({blockOn(nodeSet("own", {10, 20, 30}), fld_DataTypeEnm::SCALAR,
                                               fld_OutputPositionEnm::NODAL, 3, numbers, yld_Enum::SCALAR)});
    const yld_FieldOutput part = t.getSubset(instance().NodeSet("some", ints({20, 30})));
    EXPECT_EQ(part.values(0).precision(), yld_Enum::DOUBLE_PRECISION);
    EXPECT_EQ(part.values(0).data().doubleData()[0], 2.0 / 3.0);
    EXPECT_EQ(part.values(0).data().doubleConjugate()[0], -2.0 / 3.0);
    const yld_FieldBulkData& bulk = part.bulkDataBlocks()[0];
    EXPECT_EQ(bulk.precision(), yld_Enum::SINGLE_PRECISION);
    EXPECT_EQ(bulk.dataDouble(), nullptr);
    EXPECT_EQ(bulk.data()[1], static_cast<float>(4.0 / 3.0));
    EXPECT_EQ(bulk.conjugateData()[0], static_cast<float>(-2.0 / 3.0));
    EXPECT_EQ(part.SubField()[0].field().storageType(), 0);
    EXPECT_TRUE(part.SubField()[0].description().isPair());
    // One by one they are single as well from now on; the stored field is double as ever.
    EXPECT_EQ(part.values(0).precision(), yld_Enum::SINGLE_PRECISION);
    EXPECT_EQ(part.values(0).data().floatData()[0], static_cast<float>(2.0 / 3.0));
    EXPECT_EQ(t.values(0).precision(), yld_Enum::DOUBLE_PRECISION);
}

TEST_F(yld_FieldSubsetTest, whatIsTakenOutIsDescribedAsAnOrphan)
{
    yld_FieldOutput& s = m_frame.FieldOutput("S", "stress", yld_Enum::TENSOR_3D_FULL, {},
                                             invariants({yld_Enum::MISES, yld_Enum::PRESS}));
    s.addData(yld_Enum::CENTROID, instance(), ints({301, 302}), rows({{1, 2, 3, 4, 5, 6}, {6, 5, 4, 3, 2, 1}}),
              yld_SectionPoint(2, "top"), rows({{0, 1, 0}, {-1, 0, 0}, {0, 0, 1}}));
    const yld_FieldOutput part = s.getSubset(instance().getElementFromLabel(302));
    part.bulkDataBlocks();
    const yld_SubField& block = part.SubField()[0];
    EXPECT_EQ(block.length(), 1);
    EXPECT_EQ(block.elementClass(), s.SubField()[0].elementClass());
    EXPECT_EQ(block.meshIndex(), s.SubField()[0].meshIndex());
    EXPECT_EQ(block.type(), yld_Enum::TENSOR_3D_FULL);
    EXPECT_STREQ(block.label().cStr(), "S");
    const std::shared_ptr<const fld_FieldDescription> description = block.description().data();
    EXPECT_EQ(description->m_key, -999);
    EXPECT_EQ(description->m_label, "S");
    EXPECT_EQ(description->m_description, "orphaned field");
    EXPECT_EQ(description->m_invariants, (std::vector<int>{6, 8}));
    EXPECT_EQ(description->m_componentLabels, (std::vector<std::string>{"S11", "S22", "S33", "S12", "S13", "S23"}));
    EXPECT_EQ(description->m_locationIndex, 1);
    EXPECT_EQ(description->m_instanceName, "block-1");
    const yld_FieldValue value = part.values(0);
    EXPECT_STREQ(value.instance().name().cStr(), "block-1");
    EXPECT_STREQ(value.baseElementType().cStr(), "SHELL4");
    EXPECT_STREQ(value.sectionPoint().description().cStr(), "top");
    EXPECT_EQ(value.elementLabel(), 302);
    ASSERT_EQ(value.localCoordSystem().size(), 3);
    EXPECT_NEAR(value.localCoordSystem()[0][1], 1.0F, 1e-6F);
    EXPECT_EQ(part.locations()[0].sectionPoint(0).number(), 2);
    EXPECT_FALSE(part.SubField()[0].field().shortCut().id() > 0);
}

TEST_F(yld_FieldSubsetTest, planeTensorsKeepTheirPlaneSystemsAndEngineeringShears)
{
    BlockNumbers numbers;
    numbers.values = {1, 2, 0, 10, 3, 4, 0, 20};
    numbers.systems = {0.0, 1.0, 0.0, 1.0};
    fld_FieldDescription description =
        describe("E", fld_DataTypeEnm::TENSOR_2D_PLANAR, fld_OutputPositionEnm::NODAL, 2);
    description.m_instance = on().shortCut();
    description.m_set = nodeSet("own", {10, 20}).shortCut();
    description.m_engineeringTensor = true;
    const yld_FieldOutput e = fieldOf({yld_SubField(0, writeNumbers(m_frame, description, 0, numbers), step().assembly(),
                                                    yld_Enum::TENSOR_2D_PLANAR)},
                                      yld_Enum::TENSOR_2D_PLANAR);
    const yld_FieldOutput part = e.getSubset(instance().getNodeFromLabel(20));
    const yld_FieldBulkData& bulk = part.bulkDataBlocks()[0];
    EXPECT_EQ(bulk.orientationWidth(), 2);
    EXPECT_EQ(bulk.localCoordSystem()[1], 1.0F);
    EXPECT_TRUE(bulk.engineeringTensor());
    EXPECT_EQ(bulk.width(), 4);
    EXPECT_EQ(bulk.data()[3], 20.0F);
    EXPECT_EQ(part.SubField()[0].description().orientation().dataType(), fld_DataTypeEnm::QUATERNION_2D);
}

TEST_F(yld_FieldSubsetTest, surfaceRowsAreFilledUpInTwoWays)
{
    BlockNumbers numbers;
    numbers.values = {1, 2, 3, 4, 5, 6};
    const auto shown = [&](const char* set, fld_DataTypeEnm type, const std::vector<double>& values) {
        numbers.values = values;
        const yld_FieldOutput s = fieldOf({blockOn(nodeSet(set, {10, 20}), type, fld_OutputPositionEnm::NODAL, 2, numbers,
                                                   yld_Enum::TENSOR_3D_FULL)},
                                          yld_Enum::TENSOR_3D_FULL);
        const yld_FieldOutput part = s.getSubset(instance().getNodeFromLabel(20));
        const std::string read = componentsOf(part.values(0));
        part.bulkDataBlocks();
        return read + "| " + componentsOf(part.values(0));
    };
    // The shear stands third when a block is read, and fourth when values are taken out of it.
    EXPECT_EQ(shown("a", fld_DataTypeEnm::TENSOR_3D_SURFACE, {1, 2, 3, 4, 5, 6}), "4 5 6 0 0 0 | 4 5 0 6 0 0 ");
    EXPECT_EQ(shown("b", fld_DataTypeEnm::TENSOR_2D_SURFACE, {1, 2, 3, 4, 5, 6}), "4 5 6 0 0 0 | 4 5 0 6 0 0 ");
    EXPECT_EQ(shown("c", fld_DataTypeEnm::TENSOR_3D_PLANAR, {1, 2, 3, 4, 5, 6, 7, 8}), "5 6 7 8 0 0 | 5 6 7 8 0 0 ");
    EXPECT_EQ(shown("d", fld_DataTypeEnm::TENSOR_3D_FULL, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}),
              "7 8 9 10 11 12 | 7 8 9 10 11 12 ");
}

TEST_F(yld_FieldSubsetTest, vectorsWithLocalSystemsCannotBeTakenOut)
{
    BlockNumbers numbers;
    numbers.values = {1, 2, 3, 4, 5, 6};
    for (const double component : turned(0.25)) numbers.systems.push_back(component);
    for (const double component : turned(0.25)) numbers.systems.push_back(component);
    const yld_FieldOutput u = fieldOf({blockOn(nodeSet("own", {10, 20}), fld_DataTypeEnm::VECTOR,
                                               fld_OutputPositionEnm::NODAL, 2, numbers, yld_Enum::VECTOR)},
                                      yld_Enum::VECTOR);
    const char* const message = "Transformation not allowed for scalar, vector or matrix data.";
    const yld_FieldOutput one = u.getSubset(instance().getNodeFromLabel(20));
    EXPECT_EQ(one.values(0).localCoordSystem().size(), 3);
    EXPECT_EQ(failureOf([&] { one.bulkDataBlocks(); }), message);
    // Not on the set that they were chosen by either.
    const yld_FieldOutput both = u.getSubset(instance().NodeSet("both", ints({10, 20})));
    EXPECT_EQ(failureOf([&] { both.bulkDataBlocks(); }), message);
    // The block is as it was.
    EXPECT_EQ(one.SubField()[0].indices().size(), 1);
    EXPECT_EQ(one.values(0).data()[2], 6.0);
    EXPECT_EQ(u.bulkDataBlocks()[0].orientationWidth(), 4);
}

TEST_F(yld_FieldSubsetTest, positionsThatCannotBeTakenOutWarn)
{
    const auto outcome = [&](fld_OutputPositionEnm position, const char* set) {
        BlockNumbers numbers;
        numbers.values = {1, 2};
        yld_SubField block =
            blockOn(elementSet(set, {101, 102}), fld_DataTypeEnm::SCALAR, position, 2, numbers, yld_Enum::SCALAR);
        block.setIndices(ints({1}));
        std::string failure;
        const std::string warning = warningsOf([&] { failure = failureOf([&] { block.materialize(); }); });
        return warning + failure;
    };
    EXPECT_EQ(outcome(fld_OutputPositionEnm::WHOLE_REGION, "a"), "Warning: WHOLE_REGION data are not read.\nSubfield spanning subsets is invalid.");
    EXPECT_EQ(outcome(fld_OutputPositionEnm::WHOLE_PART_INSTANCE, "b"), "Warning: WHOLE_PART_INSTANCE data are not read.\nSubfield spanning subsets is invalid.");
    EXPECT_EQ(outcome(fld_OutputPositionEnm::WHOLE_MODEL, "c"), "Warning: WHOLE_MODEL data are not read.\nSubfield spanning subsets is invalid.");
    EXPECT_EQ(outcome(fld_OutputPositionEnm::GENERAL_PARTICLE, "d"), "Warning: GENERAL_PARTICLE data are not read.\nSubfield spanning subsets is invalid.");
    EXPECT_EQ(outcome(fld_OutputPositionEnm::ELEMENT_FACE_INTEGRATION_POINT, "e"),
              "Warning: Results at unknown location not read.\nSubfield spanning subsets is invalid.");
    EXPECT_EQ(outcome(fld_OutputPositionEnm::SURFACE_INTEGRATION_POINT, "f"),
              "Warning: Results at unknown location not read.\nSubfield spanning subsets is invalid.");
    EXPECT_EQ(outcome(fld_OutputPositionEnm::CENTROID, "g"), "no exception");
}

TEST_F(yld_FieldSubsetTest, typesThatCannotBeTakenOutWarn)
{
    const auto outcome = [&](fld_DataTypeEnm type, yld_Enum::yld_DataTypeEnum shown, const char* set, int width) {
        BlockNumbers numbers;
        numbers.values = std::vector<double>(static_cast<std::size_t>(2 * width), 1.0);
        yld_SubField block =
            blockOn(elementSet(set, {101, 102}), type, fld_OutputPositionEnm::CENTROID, 2, numbers, shown);
        block.setIndices(ints({1}));
        std::string failure;
        const std::string warning = warningsOf([&] { failure = failureOf([&] { block.materialize(); }); });
        return warning + failure;
    };
    EXPECT_EQ(outcome(fld_DataTypeEnm::QUATERNION_3D, yld_Enum::QUATERNION_3D, "a", 4),
              "Warning: Quaternions result not read.\nSubfield spanning subsets is invalid.");
    EXPECT_EQ(outcome(fld_DataTypeEnm::QUATERNION_2D, yld_Enum::QUATERNION_2D, "b", 2),
              "Warning: Quaternions result not read.\nSubfield spanning subsets is invalid.");
    EXPECT_EQ(outcome(fld_DataTypeEnm::QUATERNION_3D, yld_Enum::BOOLEAN, "c", 4),
              "Warning: Quaternion results not processed.\nInvalid results type for field.");
    EXPECT_EQ(outcome(fld_DataTypeEnm::BOOLEAN, yld_Enum::BOOLEAN, "d", 1),
              "Warning: Unknown datatype not processed.\nInvalid results type for field.");
    EXPECT_EQ(outcome(fld_DataTypeEnm::INTEGER, yld_Enum::INTEGER, "e", 1),
              "Warning: Unknown datatype not processed.\nInvalid results type for field.");
}

TEST_F(yld_FieldSubsetTest, storageThatMeansNothingIsNoTensor)
{
    BlockNumbers numbers;
    numbers.values = {1, 2, 3, 4, 5, 6};
    yld_SubField block = blockOn(elementSet("own", {101}), fld_DataTypeEnm::TENSOR_3D_FULL,
                                 fld_OutputPositionEnm::CENTROID, 1, numbers, yld_Enum::TENSOR_3D_FULL);
    const std::shared_ptr<fld_Field> damaged = block.field().shortCut().fetchWritable();
    damaged->m_storageType = 2;
    block.field().shortCut().replace(damaged);
    const yld_FieldOutput s = fieldOf({block}, yld_Enum::TENSOR_3D_FULL);
    EXPECT_EQ(failureOf([&] { s.values(0); }), "Invalid data: must be float tensor.");
    block.setIndices(ints({0}));
    EXPECT_EQ(failureOf([&] { block.materialize(); }), "Invalid data: must be float tensor.");
    EXPECT_EQ(failureOf([&] { yld_checkTensor<double>(block.field()); }), "Double tensor data expected.");
}

TEST_F(yld_FieldSubsetTest, labelsOfSeveralSubsetsAreRefused)
{
    // Nodes 1 and 2 and, by mistake of the file, values of elements on them: elements 1 and 2 are of two classes.
    yld_Part& part = m_yld->Part("two", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
    part.addNodes(ints({1, 2, 3, 4}), rows({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}}));
    part.addElements(ints({1}), connectivity({{1, 2, 3, 4}}), "TET4");
    part.addElements(ints({2}), connectivity({{1, 2, 3}}), "SHELL3");
    sto_PartInstance two = m_yld->rootAssembly().Instance("two-1", part).instance();
    const int labels[] = {1, 2};
    fld_FieldDescription description = describe("T", fld_DataTypeEnm::SCALAR, fld_OutputPositionEnm::CENTROID, 2);
    description.m_instance = two.shortCut();
    description.m_set = two.Nset("nodes", labels, 2, true, false).shortCut();
    yld_SubField block(0, writeBlock(m_frame, description, 0, {1, 2}), step().assembly(), yld_Enum::SCALAR);
    block.setIndices(ints({0, 1}));
    EXPECT_EQ(failureOf([&] { block.materialize(); }), "Subfield spanning subsets is invalid.");
    EXPECT_EQ(block.indices().size(), 2);
}

TEST_F(yld_FieldSubsetTest, orphansAreCheckedAgainstTheSetThatTheyAreWrittenOn)
{
    yld_FieldOutput& s = newField("S");
    s.addData(yld_Enum::CENTROID, instance(), ints({301, 302}), counted(2), yld_SectionPoint(2, "top"));
    yld_SectionCategory& other = m_yld->SectionCategory("other", "another shell");
    other.SectionPoint(1, "inside");
    other.SectionPoint(2, "outside");
    m_yld->parts().get("block").addElements(ints({401}), connectivity({{10, 20, 30, 40}}), "SHELL4", "", other);
    const sto_Set solids = elementSet("solids", {101, 102});
    const sto_Set others = elementSet("others", {401});

    yld_SubFieldBody body;
    body.field = s.SubField()[0].field();
    body.description = s.SubField()[0].description();
    body.type = yld_Enum::SCALAR;
    body.elementClass = s.SubField()[0].elementClass();
    body.meshIndex = s.SubField()[0].meshIndex();
    body.label = "S";
    yld_FieldSubset taken(body);
    taken.extract({0, 1}, yld_Enum::CENTROID);
    EXPECT_EQ(taken.labels(), (std::vector<int>{301, 302}));
    yld_SubFieldBody into(body);
    const auto failure = [&](const sto_Set& set, int subset) {
        return failureOf([&] { taken.writeOrphanField(into, yld_Enum::CENTROID, set, subset); });
    };
    EXPECT_EQ(failure(solids, 1), "Subfield spanning subsets is invalid.");
    EXPECT_EQ(failure(solids, 0), "Section Point number 2.");
    EXPECT_EQ(failure(others, 0), "Section point not valid for elements.");
    EXPECT_EQ(failure(elementSet("one", {301}), 0),
              "Length of data sequence incorrect. Data at 1 locations expected. Data at 2 locations provided. Element data "
              "request failed. Element type is SHELL4. Data at 1 location per element expected.");
    EXPECT_EQ(into.description.key(), 0);
    taken.writeOrphanField(into, yld_Enum::CENTROID, elementSet("two", {301, 302}), 0);
    EXPECT_EQ(into.description.key(), -999);
    EXPECT_EQ(into.storedLength, 2);
}

TEST_F(yld_FieldSubsetTest, lengthMessagesOfWhatIsTakenOut)
{
    yld_FieldOutput& s = newField("S");
    s.addData(yld_Enum::ELEMENT_NODAL, instance(), ints({101}), counted(8));
    s.addData(yld_Enum::NODAL, instance(), ints({10, 20}), counted(2));
    yld_SubField nodes(s.SubField()[0]);
    nodes.setIndices(ints({3}));
    EXPECT_EQ(failureOf([&] { nodes.materialize(); }),
              "Length of data sequence incorrect. Data at 8 locations expected. Data at 1 locations provided. Element data "
              "request failed. Element type is HEX8. Data at 8 nodes per element expected.");
    yld_SubFieldBody body;
    body.field = s.SubField()[1].field();
    body.description = s.SubField()[1].description();
    body.type = yld_Enum::SCALAR;
    body.meshIndex = s.SubField()[1].meshIndex();
    yld_FieldSubset taken(body);
    taken.extract({1}, yld_Enum::NODAL);
    EXPECT_EQ(failureOf([&] { taken.writeOrphanField(body, yld_Enum::NODAL, nodeSet("three", {10, 20, 30}), 0); }),
              "Length of data sequence incorrect. Data at 3 locations expected. Data at 1 locations provided. Nodal data "
              "request failed. ");
}

TEST_F(yld_FieldSubsetTest, setOfWhatIsTakenOutLivesInMemoryAlone)
{
    newField("S").addData(yld_Enum::CENTROID, instance(), ints({101, 102}), counted(2));
    yld_FieldOutput& t = newField("T");
    t.addData(yld_Enum::NODAL, instance(), ints({10, 20, 30}), counted(3));
    reopen();
    const auto internalSets = [&](bool ofNodes) {
        std::string names;
        const sto_SetList list = on().mesh().set();
        for (int i = 0; i < list.length(); ++i) {
            if (list.setType(i) != (ofNodes ? setC_Set::nodeSet : setC_Set::elementSet)) continue;
            EXPECT_TRUE(list.internalSet(i));
            EXPECT_EQ(list.get(i).setLabel(), list.setLabel(i));
            names += list.setLabel(i) + " ";
        }
        return names;
    };
    EXPECT_EQ(internalSets(true), "api_set 1 ");
    const yld_FieldOutput one = field("T").getSubset(instance().getNodeFromLabel(20));
    one.bulkDataBlocks();
    EXPECT_EQ(internalSets(true), "api_set 1 api_tmp_set ");
    EXPECT_EQ(internalSets(false), "api_set 0 ");
    field("S").getSubset(instance().getElementFromLabel(102)).bulkDataBlocks();
    EXPECT_EQ(internalSets(false), "api_set 0 api_tmp_set ");
    EXPECT_FALSE(on().mesh().set().has(setC_Set::nodeSet, "api_tmp_set"));
    EXPECT_FALSE(on().modelFile()->hasChanges());

    // The next one takes the name; what was taken out first keeps its nodes.
    const yld_FieldOutput other = field("T").getSubset(instance().getNodeFromLabel(30));
    other.bulkDataBlocks();
    EXPECT_EQ(internalSets(true), "api_set 1 api_tmp_set ");
    EXPECT_EQ(valuesOf(one), "n20 2; ");
    EXPECT_EQ(valuesOf(other), "n30 3; ");
    EXPECT_EQ(on().mesh().nset("api_tmp_set").numMembers(), 1);

    // Neither a close without a save nor a save leaves it behind.
    m_yld->close();
    m_yld = &openYld(m_path.c_str(), false);
    EXPECT_EQ(internalSets(true), "api_set 1 ");
    field("T").getSubset(instance().getNodeFromLabel(20)).bulkDataBlocks();
    m_yld->rootAssembly();
    reopen();
    EXPECT_EQ(internalSets(true), "api_set 1 ");
    EXPECT_EQ(internalSets(false), "api_set 0 ");
}

TEST_F(yld_FieldSubsetTest, readOnlyDatabasesGiveSubsetsToo)
{
    newField("T").addData(yld_Enum::NODAL, instance(), ints({10, 20, 30}), counted(3));
    m_yld->save();
    m_yld->close();
    m_yld = &openYld(m_path.c_str(), true);
    const yld_FieldOutput part = field("T").getSubset(instance().getNodeFromLabel(30));
    EXPECT_EQ(part.bulkDataBlocks()[0].data()[0], 3.0F);
    EXPECT_EQ(part.bulkDataBlocks()[0].nodeLabels()[0], 30);
}

TEST_F(yld_FieldSubsetTest, takenValuesOutliveTheirDatabase)
{
    newField("T").addData(yld_Enum::NODAL, instance(), ints({10, 20, 30}), counted(3));
    const yld_FieldOutput part = m_frame.fieldOutputs().get("T").getSubset(instance().getNodeFromLabel(30));
    const yld_SequenceFieldBulkData bulk = part.bulkDataBlocks();
    m_frame = yld_Frame();
    m_yld->close();
    m_yld = nullptr;
    EXPECT_EQ(bulk[0].data()[0], 3.0F);
    EXPECT_EQ(bulk[0].nodeLabels()[0], 30);
    EXPECT_EQ(part.values(0).data()[0], 3.0);
}

TEST_F(yld_FieldSubsetTest, blocksThatShareABodyPartWhenOneIsSet)
{
    newField("T").addData(yld_Enum::NODAL, instance(), ints({10, 20, 30}), counted(3));
    const yld_SubField& original = m_frame.fieldOutputs().get("T").SubField()[0];
    yld_SubField copy(original);
    copy.setIndices(ints({2}));
    EXPECT_EQ(copy.length(), 1);
    EXPECT_EQ(original.length(), 3);
    const yld_SubField third(copy);
    copy.setIndices(ints({0, 1}));
    EXPECT_EQ(third.length(), 1);
    // A block that shows everything has nothing to take out.
    original.materialize();
    EXPECT_EQ(original.description().key(), 0);
    EXPECT_EQ(original.subsetAt(ints({}), yld_Enum::NODAL).length(), 0);
    EXPECT_FALSE(original.subsetAt(ints({}), yld_Enum::NODAL).hasDescription());
    EXPECT_STREQ(original.subsetAt(ints({}), yld_Enum::CENTROID).label().cStr(), "T");
    EXPECT_EQ(original.subsetAt(ints({}), yld_Enum::CENTROID).type(), yld_Enum::SCALAR);
    // A new choice takes the place of the one before.
    EXPECT_EQ(third.subsetAt(ints({0, 1}), yld_Enum::NODAL).indices().size(), 2);
}

TEST_F(yld_FieldSubsetTest, indicesBeyondTheValuesAreRefused)
{
    newField("T").addData(yld_Enum::NODAL, instance(), ints({10, 20, 30}), counted(3));
    yld_SubField block(m_frame.fieldOutputs().get("T").SubField()[0]);
    for (const int bad : {3, -1}) {
        block.setIndices(ints({bad}));
        EXPECT_EQ(failureOf([&] { fieldOf({block}).values(0); }),
                  m_path + ": a field does not fit its set: a subset goes beyond its values");
        EXPECT_EQ(failureOf([&] { block.materialize(); }), m_path + ": a subset goes beyond its values");
    }
}

TEST_F(yld_FieldSubsetTest, blocksOfTheAssemblyBelongToNoInstance)
{
    yld_Assembly& root = m_yld->rootAssembly();
    root.addNodes(ints({900}), rows({{5, 5, 5}}));
    root.addElements(ints({901, 902}), connectivity({{900, 10}, {900, 20}}), texts({"", "block-1", "", "block-1"}), "CONN3D2");
    const sto_Assembly stored = step().assembly().ConstGet();
    sto_Mesh mesh = stored.mesh();
    const int labels[] = {901, 902};
    const sto_Set set = mesh.Elset("links", labels, 2, true);
    const auto blockAt = [&](fld_OutputPositionEnm position, const std::vector<float>& values, int key) {
        fld_FieldDescription description =
            describe("F", fld_DataTypeEnm::SCALAR, position, static_cast<int>(values.size()));
        description.m_rootAssembly = stored.shortCut();
        description.m_set = set.shortCut();
        description.m_classIndex = set.subSet(0).classIndex();
        return yld_SubField(key, writeBlock(m_frame, description, key, values), step().assembly(), yld_Enum::SCALAR);
    };
    const yld_FieldOutput f = fieldOf({blockAt(fld_OutputPositionEnm::CENTROID, {1, 2}, 10),
                                       blockAt(fld_OutputPositionEnm::ELEMENT_NODAL, {3, 4, 5, 6}, 11)});
    EXPECT_EQ(valuesOf(f), "e901 1; e902 2; n900 e901 3; n10 e901 4; n900 e902 5; n20 e902 6; ");
    EXPECT_EQ(f.getSubset(instance()).values().size(), 0);
    const yld_Instance named("rootAssembly", yld_Enum::THREE_D, sto_PartInstance(), yld_MeshHandle(new yld_Mesh()));
    EXPECT_EQ(f.getSubset(named).values().size(), 6);
    const yld_FieldOutput second = f.getSubset(root.getElementFromLabel(902));
    EXPECT_EQ(valuesOf(second), "e902 2; n900 e902 5; n20 e902 6; ");
    EXPECT_EQ(second.bulkDataBlocks()[0].data()[0], 2.0F);
    EXPECT_EQ(listed(second.bulkDataBlocks()[1].nodeLabels(), 2), "900 20 ");
    EXPECT_EQ(second.values(0).position(), yld_Enum::CENTROID);
    EXPECT_EQ(valuesOf(f.getSubset(root.getNodeFromLabel(900))), "n900 3; ");
    EXPECT_TRUE(mesh.elset("api_tmp_set").isValid());
    EXPECT_TRUE(mesh.nset("api_tmp_set").isValid());
}

TEST_F(yld_FieldSubsetTest, valuesAtIntegrationPointsAloneAreNotMoved)
{
    yld_FieldOutput& s = newField("S");
    s.addData(yld_Enum::INTEGRATION_POINT, instance(), ints({101}), counted(8));
    const char* const message = "The 8 values of field \"S\" at integration points cannot be moved to another position.";
    EXPECT_EQ(failureOf([&] { s.getSubset(yld_Enum::CENTROID); }), message);
    EXPECT_EQ(failureOf([&] { s.getSubset(yld_Enum::ELEMENT_NODAL, false, false); }), message);
    EXPECT_EQ(s.values().size(), 8);
}
