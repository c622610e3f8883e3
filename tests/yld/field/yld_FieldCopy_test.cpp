// Fields made from other fields: in another frame, another step, another database.
#include "platform/sto/sto_Field.h"
#include "platform/sto/sto_FieldDescription.h"
#include "platform/sto/sto_FieldFrame.h"
#include "platform/sto/sto_FieldStep.h"
#include "platform/sto/sto_Set.h"
#include "platform/store/fio_File.h"
#include "result_model.h"

namespace {

std::string describe(const yld_FieldOutput& field)
{
    std::string text;
    for (int i = 0; i < field.values().size(); ++i) {
        const yld_FieldValue value = field.values(i);
        text += (i ? "; " : "") + std::string("n") + std::to_string(value.nodeLabel()) + " e" +
                std::to_string(value.elementLabel()) + " p" + std::to_string(value.integrationPoint()) + ":";
        for (int c = 0; c < value.data().length(); ++c) {
            text += " " + std::to_string(static_cast<int>(value.data()[c]));
        }
    }
    return text;
}

// Two databases at a time: results.yld and a second one whose model each test makes.
class yld_FieldCopyTest : public ResultModel
{
protected:
    void TearDown() override
    {
        if (m_other) m_other->close();
        ResultModel::TearDown();
    }

    // The model of the first database but for what the test wants otherwise.
    void makeOther(const char* instanceName = "block-1", bool hasShells = true, bool hasPoints = true)
    {
        m_otherPath = m_folder.file("other.yld");
        m_other = &Yld("other", "", "", m_otherPath.c_str());
        yld_Part& part = m_other->Part("block", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
        yld_Sequence<int> labels;
        yld_Sequence<yld_Sequence<float>> coordinates;
        for (int i = 12; i > 0; --i) {
            labels.append(10 * i);
            coordinates.append(floats({static_cast<float>(i), 0.0F, 0.0F}));
        }
        part.addNodes(labels, coordinates);
        if (hasShells) {
            yld_SectionCategory& shell = m_other->SectionCategory("shell", "a shell");
            if (hasPoints) {
                shell.SectionPoint(1, "bottom");
                shell.SectionPoint(2, "top");
            }
            part.addElements(ints({302, 301}), connectivity({{50, 60, 70, 80}, {10, 20, 30, 40}}), "SHELL4", "", shell);
        }
        part.addElements(ints({102, 101}),
                         connectivity({{50, 60, 70, 80, 90, 100, 110, 120}, {10, 20, 30, 40, 50, 60, 70, 80}}), "HEX8");
        part.addElements(ints({5, 7}), connectivity({{20, 30, 40, 60}, {10, 20, 30, 50}}), "TET4");
        m_other->rootAssembly().Instance(instanceName, part);
        m_other->Step("Step-1", "", yld_Enum::TIME, 1.0);
        m_other->steps().get("Step-1").Frame(1, 1.0);
    }

    yld_Instance& otherInstance() { return m_other->rootAssembly().instances().get("block-1"); }
    yld_Frame otherFrame() { return m_other->steps().get("Step-1").frames(0); }

    void reopenOther()
    {
        m_other->save();
        m_other->close();
        m_other = nullptr;
        m_other = &openYld(m_otherPath.c_str(), true);
    }

    // A scalar of the first database at two nodes, in a set of the name "api_set 0".
    yld_FieldOutput& nodalSource()
    {
        m_frame = step().Frame(1, 1.0);
        yld_FieldOutput& t = m_frame.FieldOutput("T", "temperature", yld_Enum::SCALAR);
        t.addData(yld_Enum::NODAL, instance(), ints({20, 10}), rows({{2}, {1}}));
        return t;
    }

    yld_Frame m_frame;
    std::string m_otherPath;
    yld_Yld* m_other = nullptr;
};

} // namespace

TEST_F(yld_FieldCopyTest, copyInAnotherFrameTakesNameAndDescription)
{
    yld_FieldOutput& source = nodalSource();
    yld_Frame second = step().Frame(2, 2.0);
    const yld_FieldOutput& copy = second.FieldOutput(source);
    EXPECT_STREQ(copy.name().cStr(), "T");
    EXPECT_STREQ(copy.description().cStr(), "temperature");
    EXPECT_EQ(copy.frameNumber(), 1);
    EXPECT_EQ(describe(copy), "n20 e-1 p-1: 2; n10 e-1 p-1: 1");
    reopen();
    EXPECT_EQ(describe(field("T", 1)), "n20 e-1 p-1: 2; n10 e-1 p-1: 1");
    EXPECT_STREQ(field("T", 1).description().cStr(), "temperature");
    EXPECT_FALSE(field("T", 1).IsOrphan());
    // Both frames say what their values are in the same words, and the model got no other set.
    const long long described = field("T", 0).SubField()[0].description().shortCut().id();
    EXPECT_EQ(field("T", 1).SubField()[0].description().shortCut().id(), described);
    EXPECT_STREQ(field("T", 1).SubField()[0].description().set().setLabel().c_str(), "api_set 0");
}

TEST_F(yld_FieldCopyTest, copyUnderAnotherNameTakesTheGivenDescriptionEvenAnEmptyOne)
{
    yld_FieldOutput& source = nodalSource();
    yld_Frame frame = step().Frame(2, 2.0);
    EXPECT_STREQ(frame.FieldOutput(source, "T2", "other").description().cStr(), "other");
    EXPECT_STREQ(frame.FieldOutput(source, "T3").description().cStr(), "");
    reopen();
    EXPECT_EQ(joined(step().frames(1).fieldOutputs().getFieldOutputNames()), "T2,T3");
    EXPECT_EQ(describe(field("T2", 1)), "n20 e-1 p-1: 2; n10 e-1 p-1: 1");
}

// What decides is the name: a description without one is not taken.
TEST_F(yld_FieldCopyTest, emptyNameLeavesTheGivenDescriptionOut)
{
    yld_FieldOutput& source = nodalSource();
    yld_Frame frame = step().Frame(2, 2.0);
    EXPECT_STREQ(frame.FieldOutput(source, "", "not taken").description().cStr(), "temperature");
}

TEST_F(yld_FieldCopyTest, nameThatTheFrameHasIsRefused)
{
    yld_FieldOutput& source = nodalSource();
    EXPECT_EQ(failureOf([&] { m_frame.FieldOutput(source); }), "A field named 'T' already exists.");
    EXPECT_EQ(failureOf([&] { m_frame.FieldOutput(source, "T", "other"); }), "A field named 'T' already exists.");
    m_frame.FieldOutput(source, "T2", "other");
    EXPECT_EQ(failureOf([&] { m_frame.FieldOutput(source, "T2", "other"); }), "A field named 'T2' already exists.");
    reopen();
    yld_Frame read = step().frames(0);
    yld_FieldOutput again = field("T");
    EXPECT_EQ(failureOf([&] { read.FieldOutput(again, "T2"); }), "A field named 'T2' already exists.");
}

TEST_F(yld_FieldCopyTest, attributesOfTheSourceAreTaken)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& s =
        frame.FieldOutput("S", "stress", yld_Enum::TENSOR_3D_FULL, texts({"a", "b", "c", "d", "e", "f"}),
                          invariants({yld_Enum::MISES, yld_Enum::INV3}));
    s.addData(yld_Enum::CENTROID, instance(), ints({101, 7}), rows({{1, 2, 3, 4, 5, 6}, {7, 8, 9, 10, 11, 12}}),
              yld_SectionPoint(), turnedSystem());
    step().Frame(2, 2.0).FieldOutput(s, "copy", "of stress");
    reopen();
    // A copy, since asking for another frame ends the life of this one's.
    const yld_FieldOutput copy = field("copy", 1);
    EXPECT_EQ(copy.type(), yld_Enum::TENSOR_3D_FULL);
    EXPECT_EQ(joined(copy.componentLabels()), "a,b,c,d,e,f");
    ASSERT_EQ(copy.validInvariants().size(), 3);
    EXPECT_EQ(copy.validInvariants()[0], yld_Enum::MISES);
    EXPECT_EQ(copy.validInvariants()[1], yld_Enum::INV3);
    EXPECT_EQ(copy.validInvariants()[2], yld_Enum::PRESS);
    EXPECT_TRUE(copy.hasLocalCoordSystem());
    EXPECT_EQ(describe(copy), "n-1 e101 p-1: 1 2 3 4 5 6; n-1 e7 p-1: 7 8 9 10 11 12");
    const yld_FieldOutput& original = field("S", 0);
    ASSERT_EQ(copy.values().size(), 2);
    for (int i = 0; i < 2; ++i) {
        const auto own = copy.values(i).localCoordSystem();
        const auto given = original.values(i).localCoordSystem();
        ASSERT_EQ(own.size(), 3);
        for (int row = 0; row < 3; ++row) {
            for (int column = 0; column < 3; ++column) EXPECT_EQ(own[row][column], given[row][column]);
        }
        EXPECT_FLOAT_EQ(own[0][1], 1.0F);
        EXPECT_FLOAT_EQ(own[1][0], -1.0F);
    }
}

TEST_F(yld_FieldCopyTest, complexAndDoublePrecisionAndMatricesAreCopied)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& pair = frame.FieldOutput("P", "", yld_Enum::SCALAR);
    pair.addData(yld_Enum::NODAL, instance(), ints({10, 20}), rows({{1}, {2}}), yld_SectionPoint(),
                 yld_Sequence<yld_Sequence<float>>(), rows({{3}, {4}}));
    yld_FieldOutput& matrix = frame.SymmetricMatrixOutput("M", "", 2);
    matrix.addData(yld_Enum::CENTROID, instance(), ints({101}), rows({{1, 2, 3}}));

    // A block in double precision, as only the store's interface writes it.
    sto_FieldFrame fields = frame.fieldOutputs().fieldFrame().ConstGet();
    sto_FieldStep fieldStep = frame.fieldOutputs().fieldStep().ConstGet();
    fld_FieldDescription wide;
    wide.m_label = "D";
    wide.m_dataType = static_cast<int>(fld_DataTypeEnm::SCALAR);
    wide.m_position = static_cast<int>(fld_OutputPositionEnm::WHOLE_MODEL);
    wide.m_length = 1;
    wide.m_completeness = 1;
    wide.m_clampType = 3;
    wide.m_minClamp = -1.5F;
    wide.m_maxClamp = 2.5F;
    wide.m_engineeringTensor = true;
    const int key = fieldStep.numberField();
    fio_Buffer value(sizeof(double));
    *reinterpret_cast<double*>(value.writable()) = 0.1;
    fields.Field(fieldStep.Field(wide), key, value, fio_Buffer(), sto_Field(), 1);
    fieldStep.setNumberField(key + 1);
    reopen();

    yld_Frame second = step().Frame(2, 2.0);
    for (const char* name : {"P", "M", "D"}) {
        yld_FieldOutput source = field(name, 0);
        second.FieldOutput(source);
    }
    reopen();
    EXPECT_TRUE(field("P", 1).isComplex());
    EXPECT_EQ(field("P", 1).values(1).data().floatConjugate()[0], 4.0F);
    EXPECT_EQ(describe(field("P", 1)), "n10 e-1 p-1: 1; n20 e-1 p-1: 2");
    EXPECT_EQ(field("M", 1).subtype(), yld_Enum::SYMMETRIC_MATRIX);
    EXPECT_EQ(field("M", 1).rows(), 2);
    EXPECT_EQ(describe(field("M", 1)), "n-1 e101 p-1: 1 2 3");
    EXPECT_EQ(field("D", 1).values(0).precision(), yld_Enum::DOUBLE_PRECISION);
    EXPECT_EQ(field("D", 1).SubField()[0].field().view<double>().data()[0], 0.1);
    const auto description = field("D", 1).SubField()[0].description().data();
    EXPECT_EQ(description->m_completeness, 1);
    EXPECT_EQ(description->m_minClamp, -1.5F);
    EXPECT_EQ(description->m_maxClamp, 2.5F);
    EXPECT_TRUE(description->m_engineeringTensor);
}

TEST_F(yld_FieldCopyTest, clampsAreCopiedAsTheirTypeSays)
{
    for (int type = 0; type <= 3; ++type) {
        yld_Frame frame = step().Frame(type, type);
        sto_FieldFrame fields = frame.fieldOutputs().fieldFrame().ConstGet();
        sto_FieldStep fieldStep = frame.fieldOutputs().fieldStep().ConstGet();
        fld_FieldDescription clamped;
        clamped.m_label = "C";
        clamped.m_description = std::to_string(type);
        clamped.m_dataType = static_cast<int>(fld_DataTypeEnm::SCALAR);
        clamped.m_position = static_cast<int>(fld_OutputPositionEnm::WHOLE_MODEL);
        clamped.m_length = 1;
        clamped.m_completeness = 2;
        clamped.m_clampType = type;
        clamped.m_minClamp = 3.0F;
        clamped.m_maxClamp = 4.0F;
        const int key = fieldStep.numberField();
        fio_Buffer value(sizeof(float));
        *reinterpret_cast<float*>(value.writable()) = 1.0F;
        fields.Field(fieldStep.Field(clamped), key, value, fio_Buffer(), sto_Field());
        fieldStep.setNumberField(key + 1);
        yld_FieldOutput source = frame.fieldOutputs().get("C");
        const auto copied = frame.FieldOutput(source, "copy").SubField()[0].description().data();
        EXPECT_EQ(copied->m_minClamp, type == 1 || type == 3 ? 3.0F : 0.0F) << type;
        EXPECT_EQ(copied->m_maxClamp, type == 2 || type == 3 ? 4.0F : 0.0F) << type;
        EXPECT_EQ(copied->m_completeness, 0);
    }
}

TEST_F(yld_FieldCopyTest, copyOfAnOrphanIsKeptAndTakesNoMoreData)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& v = frame.FieldOutput("V", "", yld_Enum::SCALAR);
    v.addData(yld_Enum::NODAL, instance(), ints({10}), rows({{1}}));
    v.addData(yld_Enum::CENTROID, instance(), ints({101, 5}), rows({{2}, {3}}));
    yld_FieldOutput subset = v.getSubset(yld_Enum::CENTROID);
    ASSERT_TRUE(subset.IsOrphan());
    yld_Frame second = step().Frame(2, 2.0);
    yld_FieldOutput& copy = second.FieldOutput(subset, "centroids", "");
    EXPECT_TRUE(copy.IsOrphan());
    EXPECT_EQ(failureOf([&] { copy.addData(yld_Enum::NODAL, instance(), ints({10}), rows({{1}})); }),
              "addData() not valid for an orphaned object.");
    EXPECT_EQ(failureOf([&] { copy.addData(v); }), "addData() not valid for an orphaned object.");
    reopen();
    EXPECT_FALSE(field("centroids", 1).IsOrphan());
    EXPECT_EQ(describe(field("centroids", 1)), "n-1 e101 p-1: 2; n-1 e5 p-1: 3");
}

TEST_F(yld_FieldCopyTest, dataOfAnotherFieldJoinThoseThatAreThere)
{
    yld_FieldOutput& source = nodalSource();
    yld_Frame frame = step().Frame(2, 2.0);
    yld_FieldOutput& t = frame.FieldOutput("T", "", yld_Enum::SCALAR);
    t.addData(yld_Enum::NODAL, instance(), ints({30}), rows({{3}}));
    t.addData(source);
    t.addData(t);
    EXPECT_EQ(t.SubField().size(), 4);
    EXPECT_EQ(t.fieldKeys().size(), 4);
    EXPECT_EQ(t.locations().size(), 1);
    reopen();
    EXPECT_EQ(describe(field("T", 1)),
              "n30 e-1 p-1: 3; n20 e-1 p-1: 2; n10 e-1 p-1: 1; n30 e-1 p-1: 3; n20 e-1 p-1: 2; "
              "n10 e-1 p-1: 1");
}

TEST_F(yld_FieldCopyTest, anotherTypeIsNotCompatible)
{
    yld_FieldOutput& source = nodalSource();
    yld_Frame frame = step().Frame(2, 2.0);
    yld_FieldOutput& vector = frame.FieldOutput("T", "", yld_Enum::VECTOR);
    const std::string warnings =
        warningsOf([&] { EXPECT_EQ(failureOf([&] { vector.addData(source); }), incompatible); });
    EXPECT_EQ(warnings, "");
    EXPECT_EQ(vector.SubField().size(), 0);
}

// The values that a block shows, and no others; the nodes get a set of their own.
TEST_F(yld_FieldCopyTest, chosenValuesOfABlockAreCopiedAlone)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& p = frame.FieldOutput("P", "", yld_Enum::SCALAR);
    p.addData(yld_Enum::ELEMENT_NODAL, instance(), ints({7, 5}), counted(8));
    yld_FieldOutput& n = frame.FieldOutput("N", "", yld_Enum::SCALAR);
    n.addData(yld_Enum::NODAL, instance(), ints({10, 20, 30}), counted(3));
    const auto choose = [](const yld_FieldOutput& whole, std::initializer_list<int> indices) {
        yld_SubField block = whole.SubField()[0];
        block.setIndices(ints(indices));
        yld_Sequence<yld_SubField> blocks;
        blocks.append(block);
        yld_FieldOutput chosen(whole);
        chosen.values() = yld_SequenceFieldValue(blocks);
        return chosen;
    };
    yld_FieldOutput nodes = choose(n, {2, 0});
    yld_FieldOutput element = choose(p, {4, 5, 6, 7});
    yld_FieldOutput half = choose(p, {4, 5});
    yld_Frame second = step().Frame(2, 2.0);
    EXPECT_EQ(describe(second.FieldOutput(nodes, "nodes")), "n30 e-1 p-1: 3; n10 e-1 p-1: 1");
    EXPECT_EQ(describe(second.FieldOutput(element, "element")),
              "n20 e5 p-1: 5; n30 e5 p-1: 6; n40 e5 p-1: 7; n60 e5 p-1: 8");
    // Half the nodes of an element are no block.
    EXPECT_EQ(failureOf([&] { second.FieldOutput(half, "half"); }), incompatible);
    EXPECT_FALSE(second.fieldOutputs().isMember("half"));
    reopen();
    EXPECT_EQ(describe(field("nodes", 1)), "n30 e-1 p-1: 3; n10 e-1 p-1: 1");
    EXPECT_STREQ(field("nodes", 1).SubField()[0].description().set().setLabel().c_str(), "api set");
    EXPECT_EQ(describe(field("element", 1)), "n20 e5 p-1: 5; n30 e5 p-1: 6; n40 e5 p-1: 7; n60 e5 p-1: 8");
}

TEST_F(yld_FieldCopyTest, otherDatabaseWithOtherOrderKeepsValuesByTheirLabels)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& v = frame.FieldOutput("V", "", yld_Enum::SCALAR);
    v.addData(yld_Enum::CENTROID, instance(), ints({301, 302}), rows({{1}, {2}}), yld_SectionPoint(2, "top"));
    v.addData(yld_Enum::INTEGRATION_POINT, instance(), ints({7, 5}), rows({{3}, {4}}));
    makeOther();
    // The sets are looked for by name: one with other members is there, one with the same.
    yld_Sequence<int> shells = ints({302});
    yld_Frame target = otherFrame();
    target.FieldOutput("first", "", yld_Enum::SCALAR).addData(yld_Enum::CENTROID, otherInstance(), shells, rows({{9}}));
    yld_FieldOutput& second = target.FieldOutput("second", "", yld_Enum::SCALAR);
    second.addData(yld_Enum::INTEGRATION_POINT, otherInstance(), ints({7, 5}), rows({{8}, {8}}));
    const std::string warnings = warningsOf([&] { target.FieldOutput(v, "copy", ""); });
    EXPECT_EQ(warnings, "");
    reopenOther();
    const yld_FieldOutput& copy = m_other->steps().get("Step-1").frames(0).fieldOutputs().constGet("copy");
    EXPECT_EQ(describe(copy), "n-1 e301 p-1: 1; n-1 e302 p-1: 2; n-1 e7 p1: 3; n-1 e5 p1: 4");
    EXPECT_EQ(copy.values(0).sectionPoint().number(), 2);
    EXPECT_STREQ(copy.values(0).sectionPoint().description().cStr(), "top");
    EXPECT_STREQ(copy.SubField()[0].description().set().setLabel().c_str(), "api set");
    EXPECT_STREQ(copy.SubField()[1].description().set().setLabel().c_str(), "api_set 1");
    EXPECT_STREQ(copy.values(2).baseElementType().cStr(), "TET4");
}

TEST_F(yld_FieldCopyTest, otherDatabaseWithoutTheInstance)
{
    yld_FieldOutput& source = nodalSource();
    makeOther("block-2");
    yld_Frame target = otherFrame();
    const std::string warnings =
        warningsOf([&] { EXPECT_EQ(failureOf([&] { target.FieldOutput(source); }), incompatible); });
    EXPECT_EQ(warnings, "Warning: No Instance named \"block-1\" found in the target database.\n");
    EXPECT_FALSE(target.fieldOutputs().isMember("T"));
}

TEST_F(yld_FieldCopyTest, otherDatabaseWithoutTheSet)
{
    yld_FieldOutput& source = nodalSource();
    makeOther();
    yld_Frame target = otherFrame();
    yld_FieldOutput& t = target.FieldOutput("T", "", yld_Enum::SCALAR);
    const std::string warnings = warningsOf([&] { EXPECT_EQ(failureOf([&] { t.addData(source); }), incompatible); });
    EXPECT_EQ(warnings, "Warning: No set named \"api_set 0\" found in the target database.\n");
    // An element set of the name is no node set.
    t.addData(yld_Enum::CENTROID, otherInstance(), ints({101}), rows({{1}}));
    EXPECT_EQ(warningsOf([&] { EXPECT_EQ(failureOf([&] { t.addData(source); }), incompatible); }),
              "Warning: No set named \"api_set 0\" found in the target database.\n");
}

TEST_F(yld_FieldCopyTest, setOfTheAssemblyServesToo)
{
    yld_FieldOutput& source = nodalSource();
    makeOther();
    yld_Sequence<yld_String> names;
    names.append("block-1");
    yld_Sequence<yld_Sequence<int>> labels;
    labels.append(ints({20, 10}));
    m_other->rootAssembly().NodeSet("api_set 0", names, labels);
    yld_Frame target = otherFrame();
    EXPECT_EQ(describe(target.FieldOutput(source)), "n20 e-1 p-1: 2; n10 e-1 p-1: 1");
}

TEST_F(yld_FieldCopyTest, otherDatabaseWithoutTheElements)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& v = frame.FieldOutput("V", "", yld_Enum::SCALAR);
    v.addData(yld_Enum::CENTROID, instance(), ints({301}), rows({{1}}), yld_SectionPoint(2, "top"));
    makeOther("block-1", false);
    yld_Frame target = otherFrame();
    target.FieldOutput("first", "", yld_Enum::SCALAR)
        .addData(yld_Enum::CENTROID, otherInstance(), ints({101}), rows({{9}}));
    const std::string warnings =
        warningsOf([&] { EXPECT_EQ(failureOf([&] { target.FieldOutput(v); }), incompatible); });
    EXPECT_EQ(warnings,
              "Warning: No elements with type \"SHELL4\" and sectionCategory \"a shell\" in set \"api_set 0\" "
              "found in the target database.\n");
}

TEST_F(yld_FieldCopyTest, otherDatabaseWithoutTheSectionPoint)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& v = frame.FieldOutput("V", "", yld_Enum::SCALAR);
    v.addData(yld_Enum::CENTROID, instance(), ints({301}), rows({{1}}), yld_SectionPoint(2, "top"));
    makeOther("block-1", true, false);
    yld_Frame target = otherFrame();
    target.FieldOutput("first", "", yld_Enum::SCALAR)
        .addData(yld_Enum::CENTROID, otherInstance(), ints({101}), rows({{9}}));
    const std::string warnings =
        warningsOf([&] { EXPECT_EQ(failureOf([&] { target.FieldOutput(v); }), incompatible); });
    EXPECT_EQ(warnings, "Warning: No sectionPoint numbered \"2\" for element type \"SHELL4\" and sectionCategory "
                        "\"a shell\" in set \"api_set 0\" found in the target database.\n");
}

// Nodal values carried by elements become plain nodal ones.
TEST_F(yld_FieldCopyTest, carriedNodalValuesBecomeNodal)
{
    yld_FieldOutput& source = nodalSource();
    const std::shared_ptr<const fld_FieldDescription> nodal = source.SubField()[0].description().data();
    sto_FieldFrame fields = m_frame.fieldOutputs().fieldFrame().ConstGet();
    sto_FieldStep fieldStep = m_frame.fieldOutputs().fieldStep().ConstGet();
    fld_FieldDescription carried = *nodal;
    carried.m_label = "CARRIED";
    carried.m_position = static_cast<int>(fld_OutputPositionEnm::NODAL_BY_ELEMENT);
    const int key = fieldStep.numberField();
    fio_Buffer values(2 * sizeof(float));
    reinterpret_cast<float*>(values.writable())[0] = 5.0F;
    reinterpret_cast<float*>(values.writable())[1] = 6.0F;
    fields.Field(fieldStep.Field(carried), key, values, fio_Buffer(), sto_Field());
    fieldStep.setNumberField(key + 1);
    yld_FieldOutput found = m_frame.fieldOutputs().get("CARRIED");
    yld_FieldOutput& copy = m_frame.FieldOutput(found, "plain");
    EXPECT_EQ(copy.SubField()[0].description().position(), fld_OutputPositionEnm::NODAL);
    EXPECT_EQ(describe(copy), "n20 e-1 p-1: 5; n10 e-1 p-1: 6");
}

TEST_F(yld_FieldCopyTest, systemsOfAFieldTransformedTwiceStayBehind)
{
    yld_Frame frame = step().Frame(1, 1.0);
    for (const char* name : {"S (Transformed)", "S (Transformed) (Transformed)"}) {
        yld_FieldOutput& s = frame.FieldOutput(name, "", yld_Enum::TENSOR_3D_SURFACE);
        s.addData(yld_Enum::CENTROID, instance(), ints({301}), rows({{1, 2, 3}}), yld_SectionPoint(), turnedSystem());
    }
    yld_Frame second = step().Frame(2, 2.0);
    second.FieldOutput(frame.fieldOutputs().get("S (Transformed)"), "once");
    second.FieldOutput(frame.fieldOutputs().get("S (Transformed) (Transformed)"), "twice");
    reopen();
    EXPECT_TRUE(field("once", 1).hasLocalCoordSystem());
    EXPECT_FALSE(field("twice", 1).hasLocalCoordSystem());
    EXPECT_EQ(describe(field("twice", 1)), "n-1 e301 p-1: 1 2 3");
}

// Planar and full blocks of one field keep their own widths.
TEST_F(yld_FieldCopyTest, planarBlocksOfAFullFieldStayPlanarInTheStore)
{
    yld_Frame frame = step().Frame(1, 1.0);
    frame.FieldOutput("planar", "", yld_Enum::TENSOR_3D_PLANAR)
        .addData(yld_Enum::CENTROID, instance(), ints({301}), rows({{1, 2, 3, 4}}));
    frame.FieldOutput("full", "", yld_Enum::TENSOR_3D_FULL)
        .addData(yld_Enum::CENTROID, instance(), ints({101}), rows({{1, 2, 3, 4, 5, 6}}));
    yld_FieldOutput mixed = frame.fieldOutputs().get("full");
    yld_Sequence<yld_SubField> blocks = frame.fieldOutputs().get("planar").SubField();
    blocks.append(mixed.SubField());
    mixed.values() = yld_SequenceFieldValue(blocks);
    step().Frame(2, 2.0).FieldOutput(mixed, "mixed", "");
    reopen();
    const yld_FieldOutput& read = field("mixed", 1);
    ASSERT_EQ(read.SubField().size(), 2);
    EXPECT_EQ(read.SubField()[0].type(), yld_Enum::TENSOR_3D_PLANAR);
    EXPECT_EQ(read.SubField()[1].type(), yld_Enum::TENSOR_3D_FULL);
    EXPECT_EQ(describe(read), "n-1 e301 p-1: 1 2 3 4; n-1 e101 p-1: 1 2 3 4 5 6");
}
