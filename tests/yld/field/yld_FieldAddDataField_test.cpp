#include "platform/sto/sto_FieldStep.h"
#include "result_model.h"

#include <map>

namespace {

// How the database that is copied into differs from the other.
struct Target
{
    bool hasTetrahedra = true;
    bool tetrahedraFirst = false;
    const char* shellCategory = "a shell";
};

class yld_FieldAddDataFieldTest : public ResultModel
{
protected:
    void TearDown() override
    {
        if (m_target) m_target->close();
        ResultModel::TearDown();
    }

    /// The model of the other database with nodes and elements in another order.
    yld_Yld& makeTarget(const Target& how = Target())
    {
        m_targetPath = m_folder.file("target.yld");
        m_target = &Yld("target", "", "", m_targetPath.c_str());
        yld_Part& part = m_target->Part("block", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
        yld_Sequence<int> labels;
        yld_Sequence<yld_Sequence<float>> coordinates;
        for (int i = 12; i > 0; --i) {
            labels.append(10 * i);
            coordinates.append(floats({static_cast<float>(i), 0, 0}));
        }
        part.addNodes(labels, coordinates);
        const auto addTetrahedra = [&] {
            part.addElements(ints({5, 7}), connectivity({{20, 30, 40, 60}, {10, 20, 30, 50}}), "TET4");
        };
        if (how.hasTetrahedra && how.tetrahedraFirst) addTetrahedra();
        part.addElements(ints({102, 101}),
                         connectivity({{50, 60, 70, 80, 90, 100, 110, 120}, {10, 20, 30, 40, 50, 60, 70, 80}}), "HEX8");
        if (how.hasTetrahedra && !how.tetrahedraFirst) addTetrahedra();
        yld_SectionCategory& shell = m_target->SectionCategory("shell", how.shellCategory);
        shell.SectionPoint(1, "bottom");
        shell.SectionPoint(2, "top");
        part.addElements(ints({302, 301}), connectivity({{50, 60, 70, 80}, {10, 20, 30, 40}}), "SHELL4", "", shell);
        m_target->rootAssembly().Instance("block-1", part);
        m_target->Step("Step-1", "", yld_Enum::TIME, 1.0);
        return *m_target;
    }
    yld_Instance& targetInstance() { return m_target->rootAssembly().instances().get("block-1"); }
    yld_Frame targetFrame() { return m_target->steps().get("Step-1").Frame(0, 0.0); }
    void reopenTarget()
    {
        m_target->save();
        m_target->close();
        m_target = nullptr;
        m_target = &openYld(m_targetPath.c_str(), false);
    }
    const yld_FieldOutput& targetField(const char* name)
    {
        return m_target->steps().get("Step-1").frames(0).fieldOutputs().constGet(name);
    }
    const yld_Set& nodeSet(const char* name, const yld_Sequence<int>& labels, bool isUnsorted = false)
    {
        return instance().NodeSet(name, labels, false, isUnsorted);
    }
    const yld_Set& elementSet(const char* name, const yld_Sequence<int>& labels)
    {
        return instance().ElementSet(name, labels);
    }

    /// A field of this database with data for a set, read again so that it shows them.
    yld_FieldOutput& filled(yld_Frame& frame, const char* name, yld_Enum::yld_DataTypeEnum type,
                            yld_Enum::yld_ResultPositionEnum position, const yld_Set& set,
                            const yld_Sequence<yld_Sequence<float>>& data,
                            const yld_SectionPoint& point = yld_SectionPoint(),
                            const yld_Sequence<yld_Sequence<float>>& conjugate = yld_Sequence<yld_Sequence<float>>())
    {
        frame.FieldOutput(name, "", type).addData(position, set, data, point, conjugate);
        frame.update();
        return frame.fieldOutputs().get(name);
    }

    std::string m_targetPath;
    yld_Yld* m_target = nullptr;
};

// What each node or element of a field has, in the order of their labels: "10:1 2 3; 20:4 5 6".
std::string byLabel(const yld_FieldOutput& field)
{
    std::map<int, std::string> texts;
    for (int i = 0; i < field.values().size(); ++i) {
        const yld_FieldValue value = field.values(i);
        const int label = value.position() == yld_Enum::NODAL ? value.nodeLabel() : value.elementLabel();
        std::string& text = texts[label];
        text += text.empty() ? "" : ",";
        for (int c = 0; c < value.data().length(); ++c) {
            text += (c == 0 ? "" : " ") + std::to_string(static_cast<int>(value.data()[c]));
        }
    }
    std::string all;
    for (const auto& [label, text] : texts) all += std::to_string(label) + ":" + text + "; ";
    return all;
}

} // namespace

TEST_F(yld_FieldAddDataFieldTest, withinOneDatabaseEveryBlockIsCopied)
{
    yld_Frame first = step().Frame(1, 1.0);
    yld_FieldOutput& source = first.FieldOutput("S", "", yld_Enum::TENSOR_3D_FULL);
    source.addData(
        yld_Enum::INTEGRATION_POINT, instance(), ints({7, 101}),
        [] {
            yld_Sequence<yld_Sequence<float>> all;
            for (int i = 0; i < 9; ++i) all.append(floats({static_cast<float>(i), 1, 2, 3, 4, 5}));
            return all;
        }(),
        yld_SectionPoint(), turnedSystem());
    source.addData(yld_Enum::CENTROID, instance(), ints({301, 302}), rows({{1, 2, 3, 4, 5, 6}, {7, 8, 9, 1, 2, 3}}),
                   yld_SectionPoint(2, "top"));
    yld_Frame second = step().Frame(2, 2.0);
    yld_FieldOutput& copy = second.FieldOutput("copy of S", "copied", yld_Enum::TENSOR_3D_FULL);
    copy.addData(source);
    EXPECT_EQ(copy.SubField().size(), 3);
    EXPECT_EQ(copy.fieldKeys().size(), 3);
    EXPECT_EQ(byLabel(copy), byLabel(source));
    EXPECT_EQ(copy.locations().size(), 2);
    reopen();
    const yld_FieldOutput& read = field("copy of S", 1);
    EXPECT_STREQ(read.description().cStr(), "copied");
    EXPECT_EQ(byLabel(read),
              "7:0 1 2 3 4 5; 101:1 1 2 3 4 5,2 1 2 3 4 5,3 1 2 3 4 5,4 1 2 3 4 5,5 1 2 3 4 5,6 1 2 3 4 5,"
              "7 1 2 3 4 5,8 1 2 3 4 5; 301:1 2 3 4 5 6; 302:7 8 9 1 2 3; ");
    EXPECT_TRUE(read.hasLocalCoordSystem());
    EXPECT_NEAR(read.values(3).localCoordSystem()[0][1], 1.0F, 1e-6F);
    EXPECT_EQ(read.values(9).sectionPoint().number(), 2);
    // No set was made for the copy.
    EXPECT_EQ(instance().elementSets(true).size(), 2);
}

TEST_F(yld_FieldAddDataFieldTest, valuesGoToTheSameLabelsInAnotherDatabase)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& u = filled(frame, "U", yld_Enum::VECTOR, yld_Enum::NODAL, nodeSet("N", ints({10, 20, 30})),
                                rows({{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}));
    yld_FieldOutput& p = filled(frame, "P", yld_Enum::SCALAR, yld_Enum::INTEGRATION_POINT,
                                elementSet("E", ints({7, 101, 102})), counted(17));
    makeTarget();
    targetInstance().NodeSet("N", ints({30, 10, 20}), false, true);
    targetInstance().ElementSet("E", ints({7, 101, 102}));
    yld_Frame into = targetFrame();
    into.FieldOutput("U", "", yld_Enum::VECTOR).addData(u);
    into.FieldOutput("P", "", yld_Enum::SCALAR).addData(p);
    const auto check = [this] {
        EXPECT_EQ(byLabel(targetField("U")), "10:1 2 3; 20:4 5 6; 30:7 8 9; ");
        EXPECT_EQ(byLabel(targetField("P")), "7:1; 101:2,3,4,5,6,7,8,9; 102:10,11,12,13,14,15,16,17; ");
        EXPECT_STREQ(targetField("P").values(0).instance().name().cStr(), "block-1");
    };
    reopenTarget();
    check();
    m_target->close();
    m_target = nullptr;
    EXPECT_EQ(inOtherProcess([&] {
                  m_target = &openYld(m_targetPath.c_str(), true);
                  check();
                  m_target->close();
              }),
              0);
}

TEST_F(yld_FieldAddDataFieldTest, classesInAnotherOrderAreFoundByTypeAndCategory)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& p =
        filled(frame, "P", yld_Enum::SCALAR, yld_Enum::ELEMENT_NODAL, elementSet("E", ints({5, 7, 101})), counted(16));
    Target how;
    how.tetrahedraFirst = true;
    makeTarget(how);
    targetInstance().ElementSet("E", ints({5, 7, 101}));
    yld_Frame into = targetFrame();
    into.FieldOutput("P", "", yld_Enum::SCALAR).addData(p);
    reopenTarget();
    EXPECT_EQ(byLabel(targetField("P")), "5:1,2,3,4; 7:5,6,7,8; 101:9,10,11,12,13,14,15,16; ");
    EXPECT_EQ(joined(targetField("P").baseElementTypes()), "TET4,HEX8");
    EXPECT_EQ(targetField("P").SubField()[0].elementClass(), 0);
}

TEST_F(yld_FieldAddDataFieldTest, setsWithOtherMembersAreNotTheSetsOfTheData)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& t =
        filled(frame, "T", yld_Enum::SCALAR, yld_Enum::NODAL, nodeSet("N", ints({10, 20, 30})), counted(3));
    makeTarget();
    targetInstance().NodeSet("N", ints({20, 30, 40}));
    yld_Frame into = targetFrame();
    into.FieldOutput("T", "", yld_Enum::SCALAR).addData(t);
    EXPECT_EQ(byLabel(into.fieldOutputs().get("T")), "10:1; 20:2; 30:3; ");
    EXPECT_EQ(into.fieldOutputs().get("T").SubField()[0].description().set().setLabel(), "api set");
}

TEST_F(yld_FieldAddDataFieldTest, setOfTheInstanceServesWhereThatOfTheAssemblyHasOtherMembers)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& t =
        filled(frame, "T", yld_Enum::SCALAR, yld_Enum::NODAL, nodeSet("N", ints({10, 20, 30})), counted(3));
    makeTarget();
    targetInstance().NodeSet("N", ints({10, 20, 30}));
    yld_Sequence<yld_Sequence<int>> labels;
    labels.append(ints({10, 20}));
    m_target->rootAssembly().NodeSet("N", texts({"block-1"}), labels);
    yld_Frame into = targetFrame();
    into.FieldOutput("T", "", yld_Enum::SCALAR).addData(t);
    EXPECT_EQ(byLabel(into.fieldOutputs().get("T")), "10:1; 20:2; 30:3; ");
    EXPECT_EQ(targetInstance().nodeSets(true).size(), 1);
}

TEST_F(yld_FieldAddDataFieldTest, partsOfBlocksMakeSetsOfTheirOwn)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& t =
        filled(frame, "T", yld_Enum::SCALAR, yld_Enum::NODAL, nodeSet("N", ints({10, 20, 30})), counted(3));
    yld_FieldOutput& p = filled(frame, "P", yld_Enum::SCALAR, yld_Enum::INTEGRATION_POINT,
                                elementSet("E", ints({101, 102})), counted(16));
    const auto shown = [](const yld_FieldOutput& field, const yld_Sequence<int>& indices) {
        yld_SubField block = field.SubField()[0];
        block.setIndices(indices);
        yld_Sequence<yld_SubField> blocks;
        blocks.append(block);
        yld_FieldOutput part = field.getSubset(field.SubField()[0].position());
        part.values() = yld_SequenceFieldValue(blocks);
        return part;
    };
    yld_FieldOutput twoNodes = shown(t, ints({2, 0}));
    yld_FieldOutput oneElement = shown(p, ints({8, 9, 10, 11, 12, 13, 14, 15}));
    makeTarget();
    targetInstance().NodeSet("N", ints({10, 20, 30}));
    targetInstance().ElementSet("E", ints({101, 102}));
    for (int i = 0; i < 2; ++i) {
        yld_Frame into = m_target->steps().get("Step-1").Frame(i, i);
        yld_FieldOutput& nodes = into.FieldOutput("T", "", yld_Enum::SCALAR);
        nodes.addData(twoNodes);
        EXPECT_EQ(byLabel(nodes), "10:1; 30:3; ");
        EXPECT_EQ(nodes.values(0).nodeLabel(), 30);
        yld_FieldOutput& elements = into.FieldOutput("P", "", yld_Enum::SCALAR);
        elements.addData(oneElement);
        EXPECT_EQ(byLabel(elements), "102:9,10,11,12,13,14,15,16; ");
        EXPECT_EQ(elements.SubField()[0].description().set().setLabel(), "api set");
    }
    // Points of an element that are not all of them are no values that a set could have.
    yld_FieldOutput points = shown(p, ints({3, 4, 9}));
    yld_Frame into = m_target->steps().get("Step-1").Frame(3, 3.0);
    EXPECT_EQ(failureOf([&] { into.FieldOutput("P", "", yld_Enum::SCALAR).addData(points); }), incompatible);
    reopenTarget();
    EXPECT_EQ(targetInstance().nodeSets(true).size(), 2);
}

TEST_F(yld_FieldAddDataFieldTest, complexDoubleAndTurnedDataKeepWhatTheyAre)
{
    yld_Frame frame = step().Frame(1, 1.0);
    const yld_Set& set = elementSet("E", ints({101, 102}));
    yld_FieldOutput& c = filled(frame, "C", yld_Enum::SCALAR, yld_Enum::ELEMENT_NODAL, set, counted(16),
                                yld_SectionPoint(), counted(16, 101));
    yld_FieldOutput& s = frame.FieldOutput("S", "", yld_Enum::TENSOR_3D_FULL);
    const int labels[] = {101, 102};
    const double data[] = {0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 1.1, 1.2, 1.3, 1.4, 1.5, 1.6};
    const float systems[] = {1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 1, 0, -1, 0, 0, 0, 0, 1};
    s.addBulkData(yld_Enum::CENTROID, instance(), labels, 2, data, 2, 6, yld_SectionPoint(), nullptr, systems, 2);
    makeTarget();
    targetInstance().ElementSet("E", ints({101, 102}));
    targetInstance().ElementSet("api_set 2", ints({101, 102}));
    yld_Frame into = targetFrame();
    into.FieldOutput("C", "", yld_Enum::SCALAR).addData(c);
    const std::string setName = s.SubField()[0].description().set().setLabel();
    if (setName != "api_set 2") targetInstance().ElementSet(setName.c_str(), ints({101, 102}));
    into.FieldOutput("S", "", yld_Enum::TENSOR_3D_FULL).addData(s);
    reopenTarget();
    const yld_FieldOutput& complex = targetField("C");
    EXPECT_TRUE(complex.isComplex());
    EXPECT_EQ(complex.values(15).data().floatConjugate()[0], 116.0F);
    EXPECT_EQ(complex.values(15).data()[0], 16.0);
    const yld_FieldOutput& turned = targetField("S");
    ASSERT_EQ(turned.values().size(), 2);
    for (int i = 0; i < 2; ++i) {
        const yld_FieldValue value = turned.values(i);
        const bool isSecond = value.elementLabel() == 102;
        EXPECT_EQ(value.data().doubleData()[5], isSecond ? 1.6 : 0.6);
        EXPECT_NEAR(value.localCoordSystemDouble()[0][1], isSecond ? 1.0 : 0.0, 1e-12);
    }
}

TEST_F(yld_FieldAddDataFieldTest, matricesAndWholeModelValues)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& m = frame.SymmetricMatrixOutput("K", "", 3);
    m.addData(yld_Enum::NODAL, instance(), ints({10}), rows({{1, 2, 3, 4, 5, 6}}));
    yld_FieldOutput& e = frame.FieldOutput("E", "", yld_Enum::SCALAR);
    e.addData(yld_Enum::WHOLE_MODEL, yld_Instance(), ints({}), rows({{42}}));
    makeTarget();
    targetInstance().NodeSet("api_set 0", ints({10}));
    yld_Frame into = targetFrame();
    into.SymmetricMatrixOutput("K", "", 3).addData(m);
    into.FieldOutput("E", "", yld_Enum::SCALAR).addData(e);
    reopenTarget();
    EXPECT_EQ(byLabel(targetField("K")), "10:1 2 3 4 5 6; ");
    EXPECT_EQ(targetField("K").subtype(), yld_Enum::SYMMETRIC_MATRIX);
    EXPECT_EQ(targetField("K").rows(), 3);
    ASSERT_EQ(targetField("E").values().size(), 1);
    EXPECT_EQ(targetField("E").values(0).data()[0], 42.0);
}

TEST_F(yld_FieldAddDataFieldTest, missingClass)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& t =
        filled(frame, "T", yld_Enum::SCALAR, yld_Enum::INTEGRATION_POINT, elementSet("E", ints({7})), counted(1));
    yld_FieldOutput& s =
        filled(frame, "S", yld_Enum::SCALAR, yld_Enum::INTEGRATION_POINT, elementSet("F", ints({301})), counted(4));
    Target how;
    how.hasTetrahedra = false;
    how.shellCategory = "another shell";
    makeTarget(how);
    targetInstance().ElementSet("E", ints({101}));
    targetInstance().ElementSet("F", ints({301}));
    yld_Frame into = targetFrame();
    EXPECT_EQ(warningsOf([&] {
                  EXPECT_EQ(failureOf([&] { into.FieldOutput("T", "", yld_Enum::SCALAR).addData(t); }), incompatible);
              }),
              "Warning: No elements with type \"TET4\" and sectionCategory \"" +
                  std::string(t.SubField()[0].description().elementClass().categoryLabel()) +
                  "\" in set \"E\" found in the target database.\n");
    EXPECT_EQ(
        warningsOf([&] {
            EXPECT_EQ(failureOf([&] { into.FieldOutput("S", "", yld_Enum::SCALAR).addData(s); }), incompatible);
        }),
        "Warning: No elements with type \"SHELL4\" and sectionCategory \"a shell\" in set \"F\" found in the target "
        "database.\n");
}
