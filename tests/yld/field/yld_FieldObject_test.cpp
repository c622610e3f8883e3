// The field object apart from its values: what its constructors take, what it adopts from the store, and the types that
// it goes through as blocks come in.
#include "platform/sto/sto_Assembly.h"
#include "platform/sto/sto_Field.h"
#include "platform/sto/sto_FieldFrame.h"
#include "platform/sto/sto_FieldStep.h"
#include "platform/store/fio_File.h"
#include "result_model.h"
#include "yld_EnumMap.h"

namespace {

class yld_FieldObjectTest : public ResultModel
{
protected:
    void SetUp() override
    {
        ResultModel::SetUp();
        m_frame = step().Frame(1, 1.0);
    }

    static fld_FieldDescription wholeModel(const char* label, fld_DataTypeEnm type)
    {
        fld_FieldDescription made;
        made.m_label = label;
        made.m_dataType = static_cast<int>(type);
        made.m_position = static_cast<int>(fld_OutputPositionEnm::WHOLE_MODEL);
        made.m_length = 1;
        if (fld_DataType::of(type).width == 0) made.m_width = 4;
        return made;
    }

    // @return the key of the block
    int write(const fld_FieldDescription& wanted)
    {
        sto_FieldStep fieldStep = m_frame.fieldOutputs().fieldStep().ConstGet();
        sto_FieldFrame fields = m_frame.fieldOutputs().fieldFrame().ConstGet();
        const int key = fieldStep.numberField();
        const sto_FieldDescription description = fieldStep.Field(wanted);
        const fio_Buffer values(static_cast<std::size_t>(description.width()) *
                                static_cast<std::size_t>(description.length()) * sizeof(float));
        fields.Field(description, key, values, fio_Buffer(), sto_Field());
        fieldStep.setNumberField(key + 1);
        return key;
    }

    yld_FieldOutput shell(const char* name)
    {
        return yld_FieldOutput(name, step().assembly(), m_frame.fieldOutputs().fieldFrame(),
                               m_frame.fieldOutputs().fieldStep(), 7);
    }

    yld_Frame m_frame;
};

std::string listed(const yld_Sequence<yld_Enum::yld_InvariantEnum>& list)
{
    std::string text;
    for (int i = 0; i < list.size(); ++i) text += (i ? " " : "") + std::to_string(list[i]);
    return text;
}

} // namespace

TEST_F(yld_FieldObjectTest, defaultFieldIsAnEmptyOrphan)
{
    const yld_FieldOutput none;
    EXPECT_STREQ(none.name().cStr(), "");
    EXPECT_EQ(none.type(), yld_Enum::UNDEFINED_DATATYPE);
    EXPECT_EQ(none.subtype(), yld_Enum::UNDEFINED_DATASUBTYPE);
    EXPECT_EQ(none.frameNumber(), -1);
    EXPECT_TRUE(none.IsOrphan());
    EXPECT_FALSE(none.isComplex());
    EXPECT_FALSE(none.hasLocalCoordSystem());
    EXPECT_EQ(none.rows(), 0);
    EXPECT_EQ(none.cols(), 0);
    EXPECT_EQ(none.fieldKeys().size(), 0);
    EXPECT_EQ(none.locations().size(), 0);
    EXPECT_EQ(none.SubField().size(), 0);
    EXPECT_EQ(none.baseElementTypes().size(), 0);
}

TEST_F(yld_FieldObjectTest, orphanTakesWhatItIsGiven)
{
    const yld_FieldOutput orphan("O", "text", yld_Enum::VECTOR, texts({"a", "b"}), invariants({yld_Enum::MAGNITUDE}),
                                 step().assembly(), 4);
    EXPECT_TRUE(orphan.IsOrphan());
    EXPECT_STREQ(orphan.description().cStr(), "text");
    EXPECT_EQ(orphan.type(), yld_Enum::VECTOR);
    EXPECT_EQ(joined(orphan.componentLabels()), "a,b");
    EXPECT_EQ(orphan.frameNumber(), 4);
}

TEST_F(yld_FieldObjectTest, shellIsAttachedAndScalarUntilABlockTells)
{
    yld_FieldOutput attached = shell("V");
    EXPECT_FALSE(attached.IsOrphan());
    EXPECT_EQ(attached.type(), yld_Enum::SCALAR);
    EXPECT_STREQ(attached.description().cStr(), "");
    EXPECT_EQ(attached.frameNumber(), 7);
    EXPECT_TRUE(attached.addFieldKeys(ints({write(wholeModel("V", fld_DataTypeEnm::VECTOR))})));
    EXPECT_EQ(attached.type(), yld_Enum::VECTOR);
    EXPECT_EQ(attached.frameNumber(), 7);
}

TEST_F(yld_FieldObjectTest, fieldOfAnotherTakesAttributesAndNoBlocks)
{
    yld_FieldOutput& source =
        m_frame.FieldOutput("S", "stress", yld_Enum::TENSOR_3D_FULL, {}, invariants({yld_Enum::INV3}));
    source.addData(yld_Enum::CENTROID, instance(), ints({101}), rows({{1, 2, 3, 4, 5, 6}}));
    const yld_FieldOutput made(source, m_frame.fieldOutputs().fieldFrame(), m_frame.fieldOutputs().fieldStep(), 9);
    EXPECT_STREQ(made.name().cStr(), "S");
    EXPECT_STREQ(made.description().cStr(), "stress");
    EXPECT_EQ(made.type(), yld_Enum::TENSOR_3D_FULL);
    EXPECT_EQ(joined(made.componentLabels()), "S11,S22,S33,S12,S13,S23");
    EXPECT_EQ(listed(made.validInvariants()), "7");
    EXPECT_FALSE(made.IsOrphan());
    EXPECT_EQ(made.frameNumber(), 9);
    EXPECT_EQ(made.SubField().size(), 0);
    EXPECT_EQ(made.locations().size(), 0);
    EXPECT_EQ(made.fieldKeys().size(), 0);
}

// Two copies move their cursors apart from each other and share their blocks.
TEST_F(yld_FieldObjectTest, copiesShareBlocksAndNotTheCursor)
{
    yld_FieldOutput& t = m_frame.FieldOutput("T", "", yld_Enum::SCALAR);
    t.addData(yld_Enum::NODAL, instance(), ints({10}), rows({{1}}));
    t.addData(yld_Enum::CENTROID, instance(), ints({101}), rows({{2}}));
    const yld_FieldOutput copy(t);
    EXPECT_EQ(t.values(1).data()[0], 2.0);
    EXPECT_EQ(copy.values(0).data()[0], 1.0);
    EXPECT_EQ(t.values(0).data()[0], 1.0);
    EXPECT_EQ(copy.values(1).data()[0], 2.0);
    EXPECT_EQ(copy.SubField()[0].field().shortCut().id(), t.SubField()[0].field().shortCut().id());
}

TEST_F(yld_FieldObjectTest, keysComeOnceAndInTheOrderOfArrival)
{
    const int first = write(wholeModel("T", fld_DataTypeEnm::SCALAR));
    const int second = write(wholeModel("T", fld_DataTypeEnm::SCALAR));
    const int third = write(wholeModel("T", fld_DataTypeEnm::SCALAR));
    yld_FieldOutput field = shell("T");
    EXPECT_FALSE(field.addFieldKeys(ints({})));
    EXPECT_TRUE(field.addFieldKeys(ints({third, first})));
    EXPECT_TRUE(field.addFieldKeys(ints({first, second, third})));
    EXPECT_FALSE(field.addFieldKeys(ints({second})));
    ASSERT_EQ(field.fieldKeys().size(), 3);
    EXPECT_EQ(field.fieldKeys()[0], third);
    EXPECT_EQ(field.fieldKeys()[1], first);
    EXPECT_EQ(field.fieldKeys()[2], second);
    EXPECT_EQ(field.SubField().size(), 3);
}

// Which type a field has once a block of another type has come in: only planar tensors give way, and they to anything.
TEST_F(yld_FieldObjectTest, wideningTypeByType)
{
    const fld_DataTypeEnm types[] = {fld_DataTypeEnm::SCALAR,           fld_DataTypeEnm::VECTOR,
                                     fld_DataTypeEnm::MATRIX,           fld_DataTypeEnm::TENSOR_3D_FULL,
                                     fld_DataTypeEnm::TENSOR_3D_PLANAR, fld_DataTypeEnm::TENSOR_3D_SURFACE,
                                     fld_DataTypeEnm::TENSOR_2D_PLANAR, fld_DataTypeEnm::TENSOR_2D_SURFACE,
                                     fld_DataTypeEnm::QUATERNION_3D,    fld_DataTypeEnm::QUATERNION_2D};
    for (const fld_DataTypeEnm first : types) {
        for (const fld_DataTypeEnm second : types) {
            const int firstKey = write(wholeModel("W", first));
            const int secondKey = write(wholeModel("W", second));
            yld_FieldOutput field = shell("W");
            field.addFieldKeys(ints({firstKey}));
            field.addFieldKeys(ints({secondKey}));
            const bool isPlanar =
                first == fld_DataTypeEnm::TENSOR_3D_PLANAR || first == fld_DataTypeEnm::TENSOR_2D_PLANAR;
            const bool widens = isPlanar && first != second;
            EXPECT_EQ(field.type(), widens ? yld_Enum::TENSOR_3D_FULL : mapDataType(first))
                << static_cast<int>(first) << " then " << static_cast<int>(second);
            EXPECT_EQ(joined(field.componentLabels()), widens ? "W11,W22,W33,W12,W13,W23" : "");
        }
    }
}

// Of several blocks that come in at once only the first tells its type.
TEST_F(yld_FieldObjectTest, blocksOfOneCallWidenByTheFirstAlone)
{
    const int planar = write(wholeModel("W", fld_DataTypeEnm::TENSOR_3D_PLANAR));
    const int full = write(wholeModel("W", fld_DataTypeEnm::TENSOR_3D_FULL));
    yld_FieldOutput together = shell("W");
    together.addFieldKeys(ints({planar, full}));
    EXPECT_EQ(together.type(), yld_Enum::TENSOR_3D_PLANAR);
    yld_FieldOutput apart = shell("W");
    apart.addFieldKeys(ints({planar}));
    apart.addFieldKeys(ints({full}));
    EXPECT_EQ(apart.type(), yld_Enum::TENSOR_3D_FULL);
    reopen();
    EXPECT_EQ(field("W").type(), yld_Enum::TENSOR_3D_PLANAR);
}

TEST_F(yld_FieldObjectTest, wideningKeepsTheInvariantsThatBothHaveInItsOwnOrder)
{
    fld_FieldDescription planar = wholeModel("W", fld_DataTypeEnm::TENSOR_2D_PLANAR);
    fld_FieldDescription full = wholeModel("W", fld_DataTypeEnm::TENSOR_3D_FULL);
    for (const fld_InvariantEnm code :
         {fld_InvariantEnm::MIN_PRINCIPAL, fld_InvariantEnm::MAX_INPLANE_PRINCIPAL, fld_InvariantEnm::INV3,
          fld_InvariantEnm::PRESS, fld_InvariantEnm::MISES, fld_InvariantEnm::MAX_PRINCIPAL}) {
        planar.m_invariants.push_back(static_cast<int>(code));
        full.m_invariants.push_back(static_cast<int>(code));
    }
    full.m_invariants.pop_back(); // no MAX_PRINCIPAL
    full.m_invariants.push_back(static_cast<int>(fld_InvariantEnm::TRESCA));
    yld_FieldOutput field = shell("W");
    field.addFieldKeys(ints({write(planar)}));
    EXPECT_EQ(listed(field.validInvariants()), "3 9 7 6 4 1");
    field.addFieldKeys(ints({write(full)}));
    EXPECT_EQ(listed(field.validInvariants()), "4 6 7 3"); // MISES, PRESS, INV3, MIN_PRINCIPAL
}

TEST_F(yld_FieldObjectTest, labelsStandInTheOrderOfTheirComponents)
{
    fld_FieldDescription described = wholeModel("W", fld_DataTypeEnm::TENSOR_3D_SURFACE);
    described.m_componentLabels = {"c", "a", "b"};
    described.m_labelComponents = {2, 0, 1};
    yld_FieldOutput field = shell("W");
    field.addFieldKeys(ints({write(described)}));
    EXPECT_EQ(joined(field.componentLabels()), "a,b,c");
}

TEST_F(yld_FieldObjectTest, descriptionOfCarriedNodalValuesStopsAtItsColon)
{
    fld_FieldDescription carried = wholeModel("W", fld_DataTypeEnm::SCALAR);
    carried.m_position = static_cast<int>(fld_OutputPositionEnm::NODAL_BY_ELEMENT);
    carried.m_description = "Contact pressure: A/B: more";
    yld_FieldOutput first = shell("W");
    first.addFieldKeys(ints({write(carried)}));
    EXPECT_STREQ(first.description().cStr(), "Contact pressure");
    EXPECT_EQ(first.location(0).position(), yld_Enum::NODAL);
    EXPECT_EQ(first.SubField()[0].position(), yld_Enum::NODAL);
    carried.m_description = "no colon";
    yld_FieldOutput second = shell("W");
    second.addFieldKeys(ints({write(carried)}));
    EXPECT_STREQ(second.description().cStr(), "no colon");
    fld_FieldDescription plain = wholeModel("W", fld_DataTypeEnm::SCALAR);
    plain.m_description = "kept: whole";
    yld_FieldOutput third = shell("W");
    third.addFieldKeys(ints({write(plain)}));
    EXPECT_STREQ(third.description().cStr(), "kept: whole");
}

TEST_F(yld_FieldObjectTest, shapeOfAStoredMatrix)
{
    fld_FieldDescription matrix = wholeModel("M", fld_DataTypeEnm::MATRIX);
    matrix.m_width = 6;
    matrix.m_rows = 3;
    matrix.m_cols = 3;
    matrix.m_matrixKind = 1;
    yld_FieldOutput symmetric = shell("M");
    symmetric.addFieldKeys(ints({write(matrix)}));
    EXPECT_EQ(symmetric.rows(), 3);
    EXPECT_EQ(symmetric.cols(), 3);
    EXPECT_EQ(symmetric.subtype(), yld_Enum::SYMMETRIC_MATRIX);
    matrix.m_matrixKind = 2;
    matrix.m_rows = 2;
    yld_FieldOutput plain = shell("M");
    plain.addFieldKeys(ints({write(matrix)}));
    EXPECT_EQ(plain.rows(), 2);
    EXPECT_EQ(plain.subtype(), yld_Enum::UNDEFINED_DATASUBTYPE);
}

TEST_F(yld_FieldObjectTest, blockOfTheWholeModelHasNoMeshAndNoClass)
{
    yld_FieldOutput field = shell("W");
    field.addFieldKeys(ints({write(wholeModel("W", fld_DataTypeEnm::SCALAR))}));
    EXPECT_EQ(field.SubField()[0].meshIndex(), -1);
    EXPECT_EQ(field.SubField()[0].elementClass(), -1);
    yld_FieldOutput& v = m_frame.FieldOutput("V", "", yld_Enum::SCALAR);
    v.addData(yld_Enum::NODAL, instance(), ints({10}), rows({{1}}));
    v.addData(yld_Enum::CENTROID, instance(), ints({7}), rows({{1}}));
    EXPECT_EQ(v.SubField()[0].elementClass(), -1);
    EXPECT_EQ(v.SubField()[1].elementClass(), 1);
    EXPECT_GE(v.SubField()[0].meshIndex(), 0);
    EXPECT_EQ(v.SubField()[1].meshIndex(), v.SubField()[0].meshIndex());
    EXPECT_EQ(joined(v.baseElementTypes()), "TET4");
}

// The member is made when blocks come in; by index the locations are looked up in the blocks afresh.
TEST_F(yld_FieldObjectTest, locationsByIndexFollowTheBlocks)
{
    yld_FieldOutput& v = m_frame.FieldOutput("V", "", yld_Enum::SCALAR);
    v.addData(yld_Enum::CENTROID, instance(), ints({7}), rows({{1}}));
    v.addData(yld_Enum::NODAL, instance(), ints({10}), rows({{1}}));
    EXPECT_EQ(v.locations().size(), 2);
    yld_Sequence<yld_SubField> onlyNodal;
    onlyNodal.append(v.SubField()[1]);
    v.values() = yld_SequenceFieldValue(onlyNodal);
    EXPECT_EQ(v.locations().size(), 2);
    EXPECT_EQ(v.location(0).position(), yld_Enum::NODAL);
    EXPECT_EQ(v.locations(0).position(), yld_Enum::NODAL);
    EXPECT_EQ(failureOf([&] { v.location(2); }), "Index out of range.");
    EXPECT_EQ(v.location(1).position(), yld_Enum::UNDEFINED_POSITION); // one past the last is not caught
}

TEST(yld_FieldLabels, vectorOfAPlaneModelHasTwo)
{
    yld_initializeAPI();
    {
        const ScratchFolder folder;
        yld_Yld& plane = Yld("plane", "", "", folder.file("plane.yld").c_str());
        plane.Part("sheet", yld_Enum::TWO_D_PLANAR, yld_Enum::DEFORMABLE_BODY);
        yld_Frame frame = plane.Step("s", "", yld_Enum::TIME, 1.0).Frame(1, 1.0);
        EXPECT_EQ(joined(frame.FieldOutput("U", "", yld_Enum::VECTOR).componentLabels()), "U1,U2");
        EXPECT_EQ(failureOf([&] {
                      frame.FieldOutput("V", "", yld_Enum::VECTOR, texts({"a", "b", "c"}));
                  }),
                  "The number of component labels should be 2");
        EXPECT_EQ(failureOf([&] { frame.FieldOutput("S", "", yld_Enum::TENSOR_2D_SURFACE, texts({"a"})); }),
                  "The number of component labels should be 3");
        // A scalar's labels are not looked at.
        EXPECT_EQ(joined(frame.FieldOutput("T", "", yld_Enum::SCALAR, texts({"a", "b"})).componentLabels()), "a,b");
        plane.close();
    }
    yld_finalizeAPI();
}
