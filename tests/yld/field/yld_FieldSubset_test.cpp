#include "subset_model.h"

using yld_FieldSubsetTest = SubsetModel;

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
    yld_FieldOutput& s = m_frame.FieldOutput("S", "stress", yld_Enum::TENSOR_3D_FULL, {}, invariants({yld_Enum::INV3}));
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
    const yld_FieldOutput t =
        fieldOf({yld_SubField(0, writeBlock(m_frame, description, 0, {1, 2}), step().assembly(), yld_Enum::SCALAR)});
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
    // 20 is found after 10, which the walk has then passed.
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
    yld_Set& two = instance().NodeSet("two", ints({20, 30}));           // places 1, 2
    yld_Set& many = instance().NodeSet("many", ints({20, 30, 40, 50})); // places 1 to 4
    // The new list is walked: 1 and 2 come after 4, which the walk does not pass.
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
    EXPECT_EQ(
        valuesOf(part),
        "e101 p1 9; e101 p2 10; e101 p3 11; e101 p4 12; e101 p5 13; e101 p6 14; e101 p7 15; e101 p8 16; e101 101; ");
    EXPECT_EQ(part.SubField()[0].indices().size(), 8);
    EXPECT_EQ(s.getSubset(instance().getElementFromLabel(302)).values().size(), 0);
    EXPECT_EQ(s.getSubset(yld_Element()).values().size(), 0);
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
    const yld_SubField faces = blockOn(surface("own", {101, 101, 102}, {0, 2, 4}), fld_DataTypeEnm::SCALAR,
                                       fld_OutputPositionEnm::ELEMENT_FACE, 3, numbers, yld_Enum::SCALAR);
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
    const yld_SubField tensors = blockOn(nodeSet("own", {10, 20, 30}), fld_DataTypeEnm::TENSOR_3D_FULL,
                                         fld_OutputPositionEnm::NODAL, 3, numbers, yld_Enum::TENSOR_3D_FULL);
    newField("N").addData(yld_Enum::NODAL, instance(), ints({40}), rows({{9}}));
    const yld_FieldOutput t =
        fieldOf({tensors, m_frame.fieldOutputs().get("N").SubField()[0]}, yld_Enum::TENSOR_3D_FULL);
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
    EXPECT_EQ(failureOf([&] {
                  t.getSubset(rows({{1, 0, 0}}));
              }),
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

TEST_F(yld_FieldSubsetTest, blocksOfTheAssemblyBelongToNoInstance)
{
    yld_Assembly& root = m_yld->rootAssembly();
    root.addNodes(ints({900}), rows({{5, 5, 5}}));
    root.addElements(ints({901, 902}), connectivity({{900, 10}, {900, 20}}), texts({"", "block-1", "", "block-1"}),
                     "CONN3D2");
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
    const char* const message =
        "The 8 values of field \"S\" at integration points cannot be moved to another position.";
    EXPECT_EQ(failureOf([&] { s.getSubset(yld_Enum::CENTROID); }), message);
    EXPECT_EQ(failureOf([&] { s.getSubset(yld_Enum::ELEMENT_NODAL, false, false); }), message);
    EXPECT_EQ(s.values().size(), 8);
}
