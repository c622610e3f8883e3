// Values that are taken out of a block into a field in memory.
#include "subset_model.h"
#include "yld/impl/field/yld_FieldSubset.h"
#include "yld/impl/field/yld_checkTensor.h"

using yld_FieldOrphanTest = SubsetModel;

TEST_F(yld_FieldOrphanTest, blocksAreSharedAndMaterialiseForAll)
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

TEST_F(yld_FieldOrphanTest, subsetByElementMaterialisesWhatItIsTakenFrom)
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

TEST_F(yld_FieldOrphanTest, doublePrecisionComesOutOfMaterialisationSingle)
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

TEST_F(yld_FieldOrphanTest, whatIsTakenOutIsDescribedAsAnOrphan)
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

TEST_F(yld_FieldOrphanTest, planeTensorsKeepTheirPlaneSystemsAndEngineeringShears)
{
    BlockNumbers numbers;
    numbers.values = {1, 2, 0, 10, 3, 4, 0, 20};
    numbers.systems = {0.0, 1.0, 0.0, 1.0};
    fld_FieldDescription description =
        describe("E", fld_DataTypeEnm::TENSOR_2D_PLANAR, fld_OutputPositionEnm::NODAL, 2);
    description.m_instance = on().shortCut();
    description.m_set = nodeSet("own", {10, 20}).shortCut();
    description.m_engineeringTensor = true;
    const yld_FieldOutput e = fieldOf({yld_SubField(0, writeNumbers(m_frame, description, 0, numbers),
                                                    step().assembly(), yld_Enum::TENSOR_2D_PLANAR)},
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

TEST_F(yld_FieldOrphanTest, surfaceRowsAreFilledUpInTwoWays)
{
    BlockNumbers numbers;
    numbers.values = {1, 2, 3, 4, 5, 6};
    const auto shown = [&](const char* set, fld_DataTypeEnm type, const std::vector<double>& values) {
        numbers.values = values;
        const yld_FieldOutput s = fieldOf(
            {blockOn(nodeSet(set, {10, 20}), type, fld_OutputPositionEnm::NODAL, 2, numbers, yld_Enum::TENSOR_3D_FULL)},
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

TEST_F(yld_FieldOrphanTest, vectorsWithLocalSystemsCannotBeTakenOut)
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

TEST_F(yld_FieldOrphanTest, positionsThatCannotBeTakenOutWarn)
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
    EXPECT_EQ(outcome(fld_OutputPositionEnm::WHOLE_REGION, "a"),
              "Warning: WHOLE_REGION data are not read.\nSubfield spanning subsets is invalid.");
    EXPECT_EQ(outcome(fld_OutputPositionEnm::WHOLE_PART_INSTANCE, "b"),
              "Warning: WHOLE_PART_INSTANCE data are not read.\nSubfield spanning subsets is invalid.");
    EXPECT_EQ(outcome(fld_OutputPositionEnm::WHOLE_MODEL, "c"),
              "Warning: WHOLE_MODEL data are not read.\nSubfield spanning subsets is invalid.");
    EXPECT_EQ(outcome(fld_OutputPositionEnm::GENERAL_PARTICLE, "d"),
              "Warning: GENERAL_PARTICLE data are not read.\nSubfield spanning subsets is invalid.");
    EXPECT_EQ(outcome(fld_OutputPositionEnm::ELEMENT_FACE_INTEGRATION_POINT, "e"),
              "Warning: Results at unknown location not read.\nSubfield spanning subsets is invalid.");
    EXPECT_EQ(outcome(fld_OutputPositionEnm::SURFACE_INTEGRATION_POINT, "f"),
              "Warning: Results at unknown location not read.\nSubfield spanning subsets is invalid.");
    EXPECT_EQ(outcome(fld_OutputPositionEnm::CENTROID, "g"), "no exception");
}

TEST_F(yld_FieldOrphanTest, typesThatCannotBeTakenOutWarn)
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

TEST_F(yld_FieldOrphanTest, storageThatMeansNothingIsNoTensor)
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

TEST_F(yld_FieldOrphanTest, labelsOfSeveralSubsetsAreRefused)
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

TEST_F(yld_FieldOrphanTest, orphansAreCheckedAgainstTheSetThatTheyAreWrittenOn)
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
    EXPECT_EQ(
        failure(elementSet("one", {301}), 0),
        "Length of data sequence incorrect. Data at 1 locations expected. Data at 2 locations provided. Element data "
        "request failed. Element type is SHELL4. Data at 1 location per element expected.");
    EXPECT_EQ(into.description.key(), 0);
    taken.writeOrphanField(into, yld_Enum::CENTROID, elementSet("two", {301, 302}), 0);
    EXPECT_EQ(into.description.key(), -999);
    EXPECT_EQ(into.storedLength, 2);
}

TEST_F(yld_FieldOrphanTest, lengthMessagesOfWhatIsTakenOut)
{
    yld_FieldOutput& s = newField("S");
    s.addData(yld_Enum::ELEMENT_NODAL, instance(), ints({101}), counted(8));
    s.addData(yld_Enum::NODAL, instance(), ints({10, 20}), counted(2));
    yld_SubField nodes(s.SubField()[0]);
    nodes.setIndices(ints({3}));
    EXPECT_EQ(
        failureOf([&] { nodes.materialize(); }),
        "Length of data sequence incorrect. Data at 8 locations expected. Data at 1 locations provided. Element data "
        "request failed. Element type is HEX8. Data at 8 nodes per element expected.");
    yld_SubFieldBody body;
    body.field = s.SubField()[1].field();
    body.description = s.SubField()[1].description();
    body.type = yld_Enum::SCALAR;
    body.meshIndex = s.SubField()[1].meshIndex();
    yld_FieldSubset taken(body);
    taken.extract({1}, yld_Enum::NODAL);
    EXPECT_EQ(
        failureOf([&] {
            taken.writeOrphanField(body, yld_Enum::NODAL, nodeSet("three", {10, 20, 30}), 0);
        }),
        "Length of data sequence incorrect. Data at 3 locations expected. Data at 1 locations provided. Nodal data "
        "request failed. ");
}

TEST_F(yld_FieldOrphanTest, setOfWhatIsTakenOutLivesInMemoryAlone)
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

TEST_F(yld_FieldOrphanTest, readOnlyDatabasesGiveSubsetsToo)
{
    newField("T").addData(yld_Enum::NODAL, instance(), ints({10, 20, 30}), counted(3));
    m_yld->save();
    m_yld->close();
    m_yld = &openYld(m_path.c_str(), true);
    const yld_FieldOutput part = field("T").getSubset(instance().getNodeFromLabel(30));
    EXPECT_EQ(part.bulkDataBlocks()[0].data()[0], 3.0F);
    EXPECT_EQ(part.bulkDataBlocks()[0].nodeLabels()[0], 30);
}

TEST_F(yld_FieldOrphanTest, takenValuesOutliveTheirDatabase)
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

TEST_F(yld_FieldOrphanTest, indicesBeyondTheValuesAreRefused)
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
