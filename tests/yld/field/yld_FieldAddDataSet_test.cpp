#include "platform/sto/sto_FieldFrame.h"
#include "platform/sto/sto_FieldStep.h"
#include "platform/sto/sto_Set.h"
#include "result_model.h"
#include "yld/impl/field/yld_FieldAddDataSet.h"

#include <map>

namespace {

class yld_FieldAddDataSetTest : public ResultModel
{
protected:
    void SetUp() override
    {
        ResultModel::SetUp();
        instance().NodeSet("N", ints({10, 20, 30}));
        instance().ElementSet("E", ints({101, 102, 7}));
        m_frame = std::make_unique<yld_Frame>(step().Frame(1, 1.0));
    }
    void TearDown() override
    {
        m_frame.reset();
        ResultModel::TearDown();
    }

    const yld_Set& nodeSet() { return instance().nodeSets(false).constGet("N"); }
    const yld_Set& elementSet() { return instance().elementSets(false).constGet("E"); }
    yld_FieldOutput& make(const char* name, yld_Enum::yld_DataTypeEnum type)
    {
        return m_frame->FieldOutput(name, "", type);
    }
    /// The field as its frame gives it afresh.
    const yld_FieldOutput& readAgain(const char* name)
    {
        m_again = std::make_unique<yld_Frame>(step().frames(0));
        m_again->update();
        return m_again->fieldOutputs().constGet(name);
    }
    yld_FieldOutput with(const char* name, yld_Enum::yld_DataTypeEnum type, const yld_Sequence<yld_String>& labels,
                         const yld_Sequence<yld_Enum::yld_InvariantEnum>& invariants)
    {
        return yld_FieldOutput(name, "", type, labels, invariants, step().assembly(),
                               m_frame->fieldOutputs().fieldFrame(), m_frame->fieldOutputs().fieldStep(), 0, 0, 0,
                               yld_Enum::UNDEFINED_DATASUBTYPE);
    }
    int numDescriptions() { return m_frame->fieldOutputs().fieldStep().ConstGet().numDescriptions(); }

    std::unique_ptr<yld_Frame> m_frame;
    std::unique_ptr<yld_Frame> m_again;
};

yld_Enum::yld_ResultPositionEnum positionOf(int value) { return static_cast<yld_Enum::yld_ResultPositionEnum>(value); }

std::string nodesMismatch(const char* set)
{
    return std::string("Mismatch in setType & position for addData.\nNodeset ") + set +
           " is provided while position is not set to be NODAL";
}
std::string elementsMismatch(const char* set)
{
    return std::string("Mismatch in setType & position for addData.\nElementSet ") + set +
           " is provided while position is not set to be one of ELEMENT_NODAL, INTEGRATION_POINT, CENTROID or "
           "WHOLE_ELEMENT";
}

} // namespace

TEST_F(yld_FieldAddDataSetTest, nodesComeInTheOrderOfTheSetAndShowWhenReadAgain)
{
    yld_FieldOutput& u = make("U", yld_Enum::VECTOR);
    u.addData(yld_Enum::NODAL, nodeSet(), rows({{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}));
    EXPECT_EQ(u.SubField().size(), 0);
    EXPECT_EQ(u.fieldKeys().size(), 0);
    EXPECT_EQ(u.locations().size(), 0);
    const auto check = [](const yld_FieldOutput& read) {
        ASSERT_EQ(read.values().size(), 3);
        EXPECT_EQ(read.values(2).nodeLabel(), 30);
        EXPECT_EQ(read.values(2).data()[2], 9.0);
        EXPECT_EQ(read.values(0).nodeLabel(), 10);
        EXPECT_EQ(read.SubField()[0].description().set().setLabel(), "N");
        EXPECT_EQ(read.SubField()[0].description().data()->m_loadCoordSystem, 1);
    };
    check(readAgain("U"));
    EXPECT_TRUE(m_frame->update());
    EXPECT_EQ(u.SubField().size(), 1);
    reopen();
    check(field("U"));
    // No set is made.
    EXPECT_EQ(instance().nodeSets(true).size(), 1);
    m_yld->close();
    m_yld = nullptr;
    EXPECT_EQ(inOtherProcess([&] {
                  m_yld = &openYld(m_path.c_str(), true);
                  check(field("U"));
                  m_yld->close();
              }),
              0);
}

TEST_F(yld_FieldAddDataSetTest, elementsOfSeveralClassesTakeTheirRowsOneAfterTheOther)
{
    make("P", yld_Enum::SCALAR).addData(yld_Enum::INTEGRATION_POINT, elementSet(), counted(17));
    make("Q", yld_Enum::SCALAR).addData(yld_Enum::ELEMENT_NODAL, elementSet(), counted(20));
    reopen();
    const yld_FieldOutput& p = field("P");
    ASSERT_EQ(p.values().size(), 17);
    EXPECT_EQ(p.SubField().size(), 2);
    EXPECT_EQ(p.values(0).elementLabel(), 101);
    EXPECT_EQ(p.values(0).data()[0], 1.0);
    EXPECT_EQ(p.values(15).elementLabel(), 102);
    EXPECT_EQ(p.values(15).integrationPoint(), 8);
    EXPECT_EQ(p.values(15).data()[0], 16.0);
    EXPECT_EQ(p.values(16).elementLabel(), 7);
    EXPECT_EQ(p.values(16).data()[0], 17.0);
    EXPECT_EQ(p.SubField()[0].description().data()->m_loadCoordSystem, 3);
    EXPECT_FALSE(p.SubField()[0].description().data()->m_engineeringTensor);
    const yld_FieldOutput& q = field("Q");
    ASSERT_EQ(q.values().size(), 20);
    EXPECT_EQ(q.values(8).nodeLabel(), 50);
    EXPECT_EQ(q.values(8).elementLabel(), 102);
    EXPECT_EQ(q.values(8).data()[0], 9.0);
    EXPECT_EQ(q.values(19).nodeLabel(), 50);
    EXPECT_EQ(q.values(19).elementLabel(), 7);
    EXPECT_EQ(q.values(19).data()[0], 20.0);
}

TEST_F(yld_FieldAddDataSetTest, tensorsAreEngineeringTensorsAndVectorsAreNot)
{
    instance().ElementSet("T", ints({7}));
    const yld_Set& set = instance().elementSets(false).constGet("T");
    make("S", yld_Enum::TENSOR_3D_FULL).addData(yld_Enum::INTEGRATION_POINT, set, rows({{1, 2, 3, 4, 5, 6}}));
    make("A", yld_Enum::TENSOR_3D_PLANAR).addData(yld_Enum::INTEGRATION_POINT, set, rows({{1, 2, 3, 4}}));
    make("B", yld_Enum::TENSOR_2D_PLANAR).addData(yld_Enum::INTEGRATION_POINT, set, rows({{1, 2, 3, 4}}));
    make("V", yld_Enum::VECTOR).addData(yld_Enum::INTEGRATION_POINT, set, rows({{1, 2, 3}}));
    reopen();
    for (const char* name : {"S", "A", "B"}) {
        EXPECT_TRUE(field(name).values(0).engineeringTensor()) << name;
        EXPECT_EQ(field(name).SubField()[0].description().data()->m_loadCoordSystem, 1) << name;
    }
    EXPECT_FALSE(field("V").values(0).engineeringTensor());
    EXPECT_EQ(field("V").SubField()[0].description().data()->m_loadCoordSystem, 1);
    EXPECT_EQ(field("S").values(0).data()[5], 6.0);
    EXPECT_EQ(joined(field("S").componentLabels()), "S11,S22,S33,S12,S13,S23");
}

TEST_F(yld_FieldAddDataSetTest, sectionPointsAndComplexData)
{
    instance().ElementSet("shells", ints({301, 302}));
    const yld_Set& shells = instance().elementSets(false).constGet("shells");
    make("S", yld_Enum::SCALAR)
        .addData(yld_Enum::INTEGRATION_POINT, shells, counted(8), yld_SectionPoint(2, "top"), counted(8, 101));
    make("U", yld_Enum::VECTOR)
        .addData(yld_Enum::NODAL, nodeSet(), rows({{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}), yld_SectionPoint(),
                 rows({{-1, -2, -3}, {-4, -5, -6}, {-7, -8, -9}}));
    reopen();
    EXPECT_TRUE(field("S").isComplex());
    EXPECT_EQ(field("S").values(7).sectionPoint().number(), 2);
    EXPECT_EQ(field("S").values(7).data()[0], 8.0);
    EXPECT_EQ(field("S").values(7).data().floatConjugate()[0], 108.0F);
    EXPECT_EQ(field("U").values(1).data().floatConjugate()[2], -6.0F);
}

TEST_F(yld_FieldAddDataSetTest, setOfTheAssemblyOnOneInstance)
{
    yld_Assembly& assembly = m_yld->rootAssembly();
    yld_Sequence<yld_Sequence<int>> labels;
    labels.append(ints({20, 40}));
    assembly.NodeSet("one", texts({"block-1"}), labels);
    make("T", yld_Enum::SCALAR).addData(yld_Enum::NODAL, assembly.nodeSets(false).constGet("one"), counted(2));
    reopen();
    ASSERT_EQ(field("T").values().size(), 2);
    EXPECT_EQ(field("T").values(1).nodeLabel(), 40);
    EXPECT_STREQ(field("T").values(1).instance().name().cStr(), "block-1");
}

TEST_F(yld_FieldAddDataSetTest, positionsOfNodeSets)
{
    yld_FieldOutput& t = make("T", yld_Enum::SCALAR);
    for (int position = 0; position <= 15; ++position) {
        if (position == yld_Enum::NODAL) continue;
        EXPECT_EQ(failureOf([&] { t.addData(positionOf(position), nodeSet(), counted(3)); }), nodesMismatch("N"))
            << position;
    }
}

TEST_F(yld_FieldAddDataSetTest, positionsOfElementSets)
{
    yld_FieldOutput& t = make("T", yld_Enum::SCALAR);
    for (const int position : {0, 1, 5, 9, 10, 11, 12, 13, 15}) {
        EXPECT_EQ(failureOf([&] { t.addData(positionOf(position), elementSet(), counted(17)); }), elementsMismatch("E"))
            << position;
    }
    for (const int position : {6, 7, 14}) {
        EXPECT_EQ(failureOf([&] { t.addData(positionOf(position), elementSet(), counted(17)); }),
                  "undefined position specified for addData.\nElementSet E is provided.")
            << position;
    }
    // These two pass as positions of an element set, and are refused when it comes to writing.
    EXPECT_EQ(failureOf([&] { t.addData(yld_Enum::WHOLE_ELEMENT, elementSet(), counted(17)); }),
              "AddData is not yet implemented for position : WHOLE_ELEMENT");
    EXPECT_EQ(failureOf([&] { t.addData(yld_Enum::CENTROID, elementSet(), counted(17)); }),
              "AddData is not yet implemented for position : ELEMENT_CENTROID");
    EXPECT_EQ(numDescriptions(), 0);
}

TEST_F(yld_FieldAddDataSetTest, otherKindsOfSets)
{
    yld_FieldOutput& t = make("T", yld_Enum::SCALAR);
    yld_Sequence<yld_Enum::yld_ElementFaceEnum> faces;
    faces.append(yld_Enum::FACE1);
    instance().Surface("skin", ints({101}), faces);
    const yld_Set& surface = instance().surfaces(false).constGet("skin");
    EXPECT_EQ(
        failureOf([&] { t.addData(yld_Enum::NODAL, surface, counted(1)); }),
        "Error. Invalid setType provided. addData can be called only for nodesets or elementSets. check set skin");
    EXPECT_EQ(failureOf([&] { t.addData(yld_Enum::NODAL, yld_Set(), counted(1)); }),
              "Error. Invalid setType provided. addData can be called only for nodesets or elementSets. check set ");
    const auto changeType = [&](int type) {
        const lnk_ShortCut<setC_Set>& stored = nodeSet().set().shortCut();
        const std::shared_ptr<setC_Set> changed = stored.fetchWritable();
        changed->m_type = type;
        stored.replace(changed);
        return failureOf([&] { t.addData(yld_Enum::NODAL, nodeSet(), counted(3)); });
    };
    EXPECT_EQ(changeType(7),
              "Error. Invalid setType provided. addData can be called only for nodesets or elementSets. check set N");
    EXPECT_EQ(changeType(8),
              "Error. undefined setType provided. addData can be called only for nodesets or elementSets. check set N");
}

TEST_F(yld_FieldAddDataSetTest, setWithoutSubsets)
{
    const lnk_ShortCut<setC_Set>& stored = nodeSet().set().shortCut();
    const std::shared_ptr<setC_Set> changed = stored.fetchWritable();
    changed->clear();
    stored.replace(changed);
    EXPECT_EQ(failureOf([&] { make("T", yld_Enum::SCALAR).addData(yld_Enum::NODAL, nodeSet(), counted(3)); }),
              "No valid subsets in set N");
}

TEST_F(yld_FieldAddDataSetTest, setsOverSeveralMeshes)
{
    yld_Assembly& assembly = m_yld->rootAssembly();
    assembly.Instance("block-2", m_yld->parts().get("block"));
    assembly.addNodes(ints({1, 2}), rows({{0, 0, 0}, {1, 0, 0}}));
    yld_Sequence<yld_Sequence<int>> twice;
    twice.append(ints({10}));
    twice.append(ints({20}));
    yld_Sequence<yld_Sequence<int>> mixed;
    mixed.append(ints({10}));
    mixed.append(ints({1}));
    yld_Sequence<yld_Sequence<int>> all(twice);
    all.append(ints({1}));
    yld_Sequence<yld_Sequence<int>> own;
    own.append(ints({1}));
    assembly.NodeSet("both", texts({"block-1", "block-2"}), twice);
    assembly.NodeSet("mixed", texts({"block-1", ""}), mixed);
    assembly.NodeSet("three", texts({"block-1", "block-2", ""}), all);
    assembly.NodeSet("own", texts({""}), own);
    yld_FieldOutput& t = make("T", yld_Enum::SCALAR);
    const auto add = [&](const char* name) {
        return failureOf([&] { t.addData(yld_Enum::NODAL, assembly.nodeSets(false).constGet(name), counted(3)); });
    };
    EXPECT_EQ(add("both"), "Entities from multiple instances present in set both. This is not permitted.");
    EXPECT_EQ(add("own"), "Assembly mesh entities(nodes/elements) in set own. This is not permitted.");
    EXPECT_EQ(add("mixed"), "Assembly mesh entities(nodes/elements) in set mixed. This is not permitted.");
    // The first that is out of place decides.
    EXPECT_EQ(add("three"), "Entities from multiple instances present in set three. This is not permitted.");
    EXPECT_EQ(numDescriptions(), 0);
}

TEST_F(yld_FieldAddDataSetTest, elementSetOverTwoInstances)
{
    yld_Assembly& assembly = m_yld->rootAssembly();
    assembly.Instance("block-2", m_yld->parts().get("block"));
    yld_Sequence<yld_Sequence<int>> twice;
    twice.append(ints({101}));
    twice.append(ints({101}));
    assembly.ElementSet("both", texts({"block-1", "block-2"}), twice);
    EXPECT_EQ(failureOf([&] {
                  make("T", yld_Enum::SCALAR)
                      .addData(yld_Enum::INTEGRATION_POINT, assembly.elementSets(false).constGet("both"), counted(16));
              }),
              "Entities from multiple instances present in set both. This is not permitted.");
}

TEST_F(yld_FieldAddDataSetTest, setOfAPart)
{
    yld_Part& part = m_yld->parts().get("block");
    part.NodeSet("of part", ints({10}));
    const yld_Set& set = part.nodeSets(false).constGet("of part");
    const int index = set.set().subSet(0).meshIndex();
    EXPECT_EQ(failureOf([&] { make("T", yld_Enum::SCALAR).addData(yld_Enum::NODAL, set, counted(1)); }),
              "Internal Error during AddData. Cannot find instance object for meshindex = " + std::to_string(index) +
                  ". Report to Zantra,Inc.");
}

TEST_F(yld_FieldAddDataSetTest, setsOfOtherDatabases)
{
    const std::string path = m_folder.file("other.yld");
    yld_Yld& other = Yld("other", "", "", path.c_str());
    yld_Part& part = other.Part("block", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
    part.addNodes(ints({10, 20}), rows({{0, 0, 0}, {1, 0, 0}}));
    const yld_Set set = other.rootAssembly().Instance("block-1", part).NodeSet("foreign", ints({10}));
    yld_FieldOutput& t = make("T", yld_Enum::SCALAR);
    EXPECT_EQ(failureOf([&] { t.addData(yld_Enum::NODAL, set, counted(1)); }),
              "Specified yldSet foreign belongs to YLD : " + path + ", while AddData is attempted on YLD : " + m_path +
                  ". This is not permitted.");
    other.close();
    EXPECT_EQ(failureOf([&] { t.addData(yld_Enum::NODAL, set, counted(1)); }),
              "Specified yldSet foreign is not associated with a valid output database");
}

TEST_F(yld_FieldAddDataSetTest, typesForNodes)
{
    const std::string refusal =
        "Invalid dataType for writing data at Nodes. Permitted datatypes are SCALAR and VECTOR.";
    EXPECT_EQ(failureOf([&] { make("S", yld_Enum::TENSOR_3D_FULL).addData(yld_Enum::NODAL, nodeSet(), counted(3)); }),
              refusal);
    EXPECT_EQ(failureOf([&] { make("B", yld_Enum::BOOLEAN).addData(yld_Enum::NODAL, nodeSet(), counted(3)); }),
              refusal);
    // The map of the components is made before the type is looked at.
    EXPECT_EQ(failureOf([&] { m_frame->MatrixOutput("M", "", 2, 2).addData(yld_Enum::NODAL, nodeSet(), counted(3)); }),
              "Invalid dataType specified in AddData. Permitted datatypes are SCALAR,VECTOR and TENSOR Types.");
    for (const int code : {0, 1, 2, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}) {
        EXPECT_EQ(failureOf([&] { yld_FieldAddDataSet::checkNodeType(code); }), refusal) << code;
    }
    for (const int code : {-1, 16, 99}) {
        EXPECT_EQ(failureOf([&] { yld_FieldAddDataSet::checkNodeType(code); }),
                  "Undefined dataType for writing data at Nodes. Permitted datatypes are SCALAR and VECTOR.");
    }
    for (const int code : {3, 4}) EXPECT_NO_THROW(yld_FieldAddDataSet::checkNodeType(code));
}

TEST_F(yld_FieldAddDataSetTest, typesForElements)
{
    const std::string refusal =
        "Invalid dataType for writing element data. Permitted datatypes are SCALAR and VECTOR and TENSOR.";
    EXPECT_EQ(
        failureOf([&] {
            make("S", yld_Enum::TENSOR_3D_SURFACE).addData(yld_Enum::INTEGRATION_POINT, elementSet(), counted(17));
        }),
        refusal);
    EXPECT_EQ(failureOf([&] {
                  m_frame->MatrixOutput("M", "", 2, 2).addData(yld_Enum::ELEMENT_NODAL, elementSet(), counted(20));
              }),
              refusal);
    for (const int code : {0, 1, 2, 5, 6, 7, 8, 11, 13, 14, 15}) {
        EXPECT_EQ(failureOf([&] { yld_FieldAddDataSet::checkElementType(code); }), refusal) << code;
    }
    for (const int code : {-1, 16}) {
        EXPECT_EQ(failureOf([&] { yld_FieldAddDataSet::checkElementType(code); }),
                  "Undefined dataType for writing element data. Permitted datatypes are SCALAR and VECTOR and TENSOR.");
    }
    for (const int code : {3, 4, 9, 10, 12}) EXPECT_NO_THROW(yld_FieldAddDataSet::checkElementType(code));
}

TEST(yld_FieldAddDataSet, positionsOfTheStore)
{
    for (const int code : {1, 2, 4}) EXPECT_NO_THROW(yld_FieldAddDataSet::checkPosition(code));
    EXPECT_EQ(failureOf([] { yld_FieldAddDataSet::checkPosition(5); }),
              "AddData is not yet implemented for position : WHOLE_ELEMENT");
    EXPECT_EQ(failureOf([] { yld_FieldAddDataSet::checkPosition(6); }),
              "AddData is not yet implemented for position : ELEMENT_CENTROID");
    for (const int code : {0, 3, 7, 8, 9, 10, 11, 12, 13, 14, 15, 18}) {
        EXPECT_EQ(failureOf([&] { yld_FieldAddDataSet::checkPosition(code); }),
                  "Invalid output position type specified for AddData")
            << code;
    }
    for (const int code : {-1, 16, 17, 19}) {
        EXPECT_EQ(failureOf([&] { yld_FieldAddDataSet::checkPosition(code); }),
                  "Undefined output position type specified for AddData")
            << code;
    }
}

TEST(yld_FieldAddDataSet, componentsByType)
{
    const auto count = [](int code, const yld_Sequence<yld_String>& labels) {
        return static_cast<int>(yld_FieldAddDataSet::componentMap(code, labels).size());
    };
    EXPECT_EQ(count(4, texts({"1", "2"})), 2);
    EXPECT_EQ(count(4, texts({"1", "2", "3"})), 3);
    EXPECT_EQ(count(4, texts({"1", "2", "3", "4"})), 3);
    EXPECT_EQ(count(9, texts({"1", "2", "3", "4", "5", "6"})), 6);
    for (const int code : {10, 12}) EXPECT_EQ(count(code, texts({"1", "2", "3", "4"})), 4);
    for (const int code : {0, 1, 2, 3, 14, 15}) EXPECT_EQ(count(code, texts({"1", "1"})), 0);
    for (const int code : {5, 6, 7, 8, 11, 13}) {
        EXPECT_EQ(failureOf([&] { count(code, texts({})); }),
                  "Invalid dataType specified in AddData. Permitted datatypes are SCALAR,VECTOR and TENSOR Types.")
            << code;
    }
    EXPECT_EQ(failureOf([&] { count(16, texts({})); }),
              "Undefined dataType specified in AddData. Permitted datatypes are SCALAR,VECTOR and TENSOR Types.");
    EXPECT_EQ(failureOf([&] {
                  count(4, texts({"1", "2", "1"}));
              }),
              "**Error in setting components of the field in addData. Report to Zantra,Inc.");
}

TEST_F(yld_FieldAddDataSetTest, minPrincipalIsNotWritten)
{
    yld_FieldOutput s = with("S", yld_Enum::TENSOR_3D_FULL, texts({"a", "b", "c", "d", "e", "f"}),
                             invariants({yld_Enum::MISES, yld_Enum::MIN_PRINCIPAL}));
    s.addData(yld_Enum::INTEGRATION_POINT, elementSet(), yld_Sequence<yld_Sequence<float>>(counted(17)));
    const yld_FieldOutput& read = readAgain("S");
    ASSERT_EQ(read.validInvariants().size(), 1);
    EXPECT_EQ(read.validInvariants()[0], yld_Enum::MISES);
}

TEST(yld_FieldAddDataSet, zeroEndsTheInvariants)
{
    const auto zero = static_cast<yld_Enum::yld_InvariantEnum>(0);
    const std::vector<int> codes = yld_FieldAddDataSet::invariantCodes(
        invariants({yld_Enum::MAX_PRINCIPAL, yld_Enum::MIN_PRINCIPAL, yld_Enum::PRESS, zero, yld_Enum::MISES}));
    EXPECT_EQ(codes, (std::vector<int>{0, 8}));
}

TEST_F(yld_FieldAddDataSetTest, secondCallWritesToTheSameDescription)
{
    yld_FieldOutput& u = make("U", yld_Enum::VECTOR);
    u.addData(yld_Enum::NODAL, nodeSet(), rows({{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}));
    u.addData(yld_Enum::NODAL, nodeSet(), rows({{10, 20, 30}, {40}, {}}));
    EXPECT_EQ(numDescriptions(), 1);
    const yld_FieldOutput& read = readAgain("U");
    ASSERT_EQ(read.SubField().size(), 1);
    ASSERT_EQ(read.values().size(), 3);
    EXPECT_EQ(read.values(0).data()[2], 30.0);
    // What a row is short of stays as it was.
    EXPECT_EQ(read.values(1).data()[0], 40.0);
    EXPECT_EQ(read.values(1).data()[1], 5.0);
    EXPECT_EQ(read.values(2).data()[0], 7.0);
    yld_Frame next = step().Frame(2, 2.0);
    next.FieldOutput("U", "", yld_Enum::VECTOR).addData(yld_Enum::NODAL, nodeSet(), rows({{1}, {2, 2}, {}}));
    EXPECT_EQ(numDescriptions(), 1);
    reopen();
    EXPECT_EQ(field("U", 0).values(1).data()[0], 40.0);
    EXPECT_EQ(field("U", 1).values(1).data()[1], 2.0);
    EXPECT_EQ(field("U", 1).values(1).data()[2], 0.0);
    EXPECT_EQ(field("U", 1).values(2).data()[0], 0.0);
}

TEST_F(yld_FieldAddDataSetTest, rowsThatAreMissingOrTooWide)
{
    yld_FieldOutput& u = make("U", yld_Enum::VECTOR);
    yld_FieldOutput& p = make("P", yld_Enum::SCALAR);
    const yld_Sequence<yld_Sequence<float>> good = rows({{1, 2, 3}, {1, 2, 3}, {1, 2, 3}});
    EXPECT_EQ(failureOf([&] {
                  u.addData(yld_Enum::NODAL, nodeSet(), rows({{1, 2, 3}, {1, 2, 3}}));
              }),
              "Expecting at least 3 rows of data. Input data has 2 rows.Please check input data");
    EXPECT_EQ(failureOf([&] {
                  u.addData(yld_Enum::NODAL, nodeSet(), good, yld_SectionPoint(), rows({{1, 2, 3}}));
              }),
              "Expecting at least 3 rows of conjugate data. Input data has 1 rows.Please check input data");
    EXPECT_EQ(
        failureOf([&] {
            u.addData(yld_Enum::NODAL, nodeSet(), rows({{1, 2, 3}, {1, 2, 3, 4}, {1}}));
        }),
        "**ERROR in input data array.\nInvalid width of data in row 1. Expected max width = 3, current data Width = 4");
    EXPECT_EQ(
        failureOf([&] {
            u.addData(yld_Enum::NODAL, nodeSet(), good, yld_SectionPoint(), rows({{1, 2, 3}, {1}, {1, 2, 3, 4, 5}}));
        }),
        "**ERROR in input data array.\nInvalid width of conjugate data in row 2.Expected max width = 3, current data "
        "Width = 5");
    EXPECT_EQ(numDescriptions(), 0);
    // More rows than needed are no failure. A later subset that fails leaves the earlier ones written.
    u.addData(yld_Enum::NODAL, nodeSet(), rows({{1, 2, 3}, {1, 2, 3}, {1, 2, 3}, {9, 9, 9, 9}}));
    EXPECT_EQ(failureOf([&] { p.addData(yld_Enum::INTEGRATION_POINT, elementSet(), counted(16)); }),
              "Expecting at least 17 rows of data. Input data has 16 rows.Please check input data");
    const yld_FieldOutput& read = readAgain("P");
    ASSERT_EQ(read.values().size(), 16);
    EXPECT_EQ(read.values(15).elementLabel(), 102);
    EXPECT_EQ(readAgain("U").values().size(), 3);
}

TEST(yld_FieldAddDataSet, rowsThatDoNotFillTheHolder)
{
    fld_FieldDescription description;
    description.m_length = 3;
    description.m_width = 1;
    const yld_RowArray data(counted(10));
    float holder[3] = {};
    EXPECT_EQ(
        failureOf([&] { yld_FieldAddDataSet::copyRows(description, 2, 4, data, yld_RowArray(), holder, nullptr); }),
        "Error while computing offsets for data.\n Expecting to fill 3 rows of data. Computed indices = 2 rows. "
        "Report to ZANTRA,Inc.");
    yld_FieldAddDataSet::copyRows(description, 4, 7, data, yld_RowArray(), holder, nullptr);
    EXPECT_EQ(holder[0], 5.0F);
    EXPECT_EQ(holder[2], 7.0F);
}

TEST_F(yld_FieldAddDataSetTest, grownSetNoLongerFitsItsDescription)
{
    yld_FieldOutput& t = make("T", yld_Enum::SCALAR);
    t.addData(yld_Enum::NODAL, nodeSet(), counted(3));
    yld_Set set = nodeSet();
    set.addLabels(ints({10, 20, 30, 40}));
    yld_Frame next = step().Frame(2, 2.0);
    EXPECT_EQ(failureOf([&] { next.FieldOutput("T", "", yld_Enum::SCALAR).addData(yld_Enum::NODAL, set, counted(4)); }),
              "Error while computing offsets for data.\n Expecting to fill 3 rows of data. Computed indices = 4 rows. "
              "Report to ZANTRA,Inc.");
}
