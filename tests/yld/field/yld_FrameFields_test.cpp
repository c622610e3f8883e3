// How a frame finds its fields: by one name, all at once, and in which model.
#include "platform/sto/sto_Assembly.h"
#include "platform/sto/sto_Field.h"
#include "platform/sto/sto_FieldContainer.h"
#include "platform/sto/sto_FieldDescription.h"
#include "platform/sto/sto_FieldFrame.h"
#include "platform/sto/sto_FieldStep.h"
#include "platform/sto/sto_Frame.h"
#include "platform/sto/sto_Model.h"
#include "platform/sto/sto_Step.h"
#include "platform/sto/sto_Sto.h"
#include "platform/store/fio_File.h"
#include "result_model.h"

namespace {

class yld_FrameFieldsTest : public ResultModel
{
protected:
    // Writes a field of one value for the whole model, under any label and key text.
    void write(yld_Frame& frame, const char* label, const char* keyText, fld_DataTypeEnm type = fld_DataTypeEnm::SCALAR)
    {
        sto_FieldFrame fields = frame.fieldOutputs().fieldFrame().ConstGet();
        sto_FieldStep fieldStep = frame.fieldOutputs().fieldStep().ConstGet();
        fld_FieldDescription wanted;
        wanted.m_label = label;
        wanted.m_keyText = keyText;
        wanted.m_dataType = static_cast<int>(type);
        wanted.m_position = static_cast<int>(fld_OutputPositionEnm::WHOLE_MODEL);
        wanted.m_length = 1;
        const int key = fieldStep.numberField();
        const sto_FieldDescription description = fieldStep.Field(wanted);
        const fio_Buffer values(static_cast<std::size_t>(description.width()) * sizeof(float));
        fields.Field(description, key, values, fio_Buffer(), sto_Field());
        fieldStep.setNumberField(key + 1);
    }

    static std::string keysOf(const yld_FieldOutput& field)
    {
        std::string text;
        for (const int key : field.fieldKeys()) text += std::to_string(key) + " ";
        return text;
    }

    // A frame of this database that is told to look for its model elsewhere.
    yld_Frame frameOn(const yld_Yld& other)
    {
        const shr_ArrayCOW<sto_Assembly> assembly(other.sto().model("Default Model").rootAssembly());
        return yld_Frame(0, shr_COW<sto_Frame>(step().step()->frame(0)), assembly, yld_Enum::TIME, step(),
                         yld_LoadCase());
    }

    static std::string fileOfBlock(const yld_FieldOutput& field)
    {
        const shr_ArrayCOW<sto_Assembly>& assembly = field.SubField()[0].assembly();
        if (assembly.IsNull() || !assembly.ConstGet().isValid()) return "none";
        return std::filesystem::path(assembly.ConstGet().modelFile()->path()).filename().string();
    }
};

} // namespace

// The contact variables of each pair of surfaces are fields of their own when all fields are read, and one field of
// the common name when that is asked for.
TEST_F(yld_FrameFieldsTest, byNameTheStoredNameCountsAndAltogetherTheFullOne)
{
    yld_Frame frame = step().Frame(1, 1.0);
    write(frame, "CPRESS", "1:A/B");
    write(frame, "CPRESS", "2:C/D");
    write(frame, "U", "");
    reopen();
    yld_Frame read = step().frames(0);
    EXPECT_EQ(joined(read.fieldOutputs().getFieldOutputNames()), "CPRESS   A/B,CPRESS   C/D,U");
    EXPECT_FALSE(read.fieldOutputs().isFullyRead());
    EXPECT_FALSE(read.fieldOutputs().isMember("CPRESS   A/B"));
    EXPECT_TRUE(read.fieldOutputs().isMember("CPRESS"));
    EXPECT_EQ(keysOf(read.fieldOutputs().get("CPRESS")), "0 1 ");
    EXPECT_EQ(keysOf(read.fieldOutputs().get("U")), "2 ");
    EXPECT_FALSE(read.fieldOutputs().isFullyRead());

    EXPECT_EQ(read.fieldOutputs().size(), 4); // the one asked for by name stays
    EXPECT_TRUE(read.fieldOutputs().isFullyRead());
    EXPECT_EQ(keysOf(read.fieldOutputs().get("CPRESS   A/B")), "0 ");
    EXPECT_EQ(keysOf(read.fieldOutputs().get("CPRESS   C/D")), "1 ");

    // Without the look by name there are the three.
    EXPECT_EQ(step().frames(0).fieldOutputs().size(), 3);
}

TEST_F(yld_FrameFieldsTest, allNamesOfTheFirstReadAreNewAndOfTheSecondNone)
{
    yld_Frame frame = step().Frame(1, 1.0);
    write(frame, "T", "");
    reopen();
    yld_Frame read = step().frames(0);
    EXPECT_TRUE(read.update());
    EXPECT_FALSE(read.update());
    yld_Frame byName = step().frames(0);
    EXPECT_TRUE(byName.fieldOutputs().isMember("T"));
    EXPECT_FALSE(byName.update()); // nothing that was not there
    EXPECT_TRUE(byName.fieldOutputs().isFullyRead());
    EXPECT_FALSE(yld_Frame().update());
}

TEST_F(yld_FrameFieldsTest, localSystemsAreNoFields)
{
    yld_Frame frame = step().Frame(1, 1.0);
    write(frame, "T", "");
    write(frame, "orientation", "", fld_DataTypeEnm::QUATERNION_3D);
    write(frame, "orientation", "", fld_DataTypeEnm::QUATERNION_2D);
    reopen();
    EXPECT_EQ(step().frames(0).fieldOutputs().size(), 1);
    EXPECT_FALSE(step().frames(0).fieldOutputs().isMember("nothing"));
}

TEST_F(yld_FrameFieldsTest, keysOfANameAreTakenInAscendingOrder)
{
    yld_Frame frame = step().Frame(1, 1.0);
    sto_FieldFrame fields = frame.fieldOutputs().fieldFrame().ConstGet();
    sto_FieldStep fieldStep = frame.fieldOutputs().fieldStep().ConstGet();
    for (const int key : {12, 3, 7}) {
        fld_FieldDescription wanted;
        wanted.m_label = "T";
        wanted.m_dataType = static_cast<int>(fld_DataTypeEnm::SCALAR);
        wanted.m_position = static_cast<int>(fld_OutputPositionEnm::WHOLE_MODEL);
        wanted.m_length = 1;
        fields.Field(fieldStep.Field(wanted), key, fio_Buffer(sizeof(float)), fio_Buffer(), sto_Field());
    }
    reopen();
    EXPECT_EQ(keysOf(step().frames(0).fieldOutputs().get("T")), "3 7 12 ");
}

TEST_F(yld_FrameFieldsTest, oneLetterNameIsFilledUpBeforeTheKeyText)
{
    yld_Frame frame = step().Frame(1, 1.0);
    write(frame, "C", "7:tail");
    write(frame, "d_ABCDEFGHIJK_2", "8:more:tail");
    reopen();
    yld_Frame read = step().frames(0);
    EXPECT_EQ(read.fieldOutputs().size(), 2);
    EXPECT_TRUE(read.fieldOutputs().isMember("C        tail"));
    EXPECT_TRUE(read.fieldOutputs().isMember("d_ABCDEFGHImore:tail_2"));
}

TEST_F(yld_FrameFieldsTest, fieldMadeHereIsFoundBeforeOneOfTheStore)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& made = frame.FieldOutput("T", "made", yld_Enum::SCALAR);
    EXPECT_TRUE(frame.fieldOutputs().isMember("T"));
    EXPECT_EQ(&frame.fieldOutputs().get("T"), &made);
    EXPECT_EQ(frame.fieldOutputs().size(), 1);
    // A field without data leaves nothing behind.
    reopen();
    EXPECT_EQ(step().frames(0).fieldOutputs().size(), 0);
}

TEST_F(yld_FrameFieldsTest, unknownNameGivesOneEmptyField)
{
    yld_Frame frame = step().Frame(1, 1.0);
    write(frame, "T", "");
    yld_FieldOutput& first = frame.fieldOutputs().get("X");
    EXPECT_EQ(&first, &frame.fieldOutputs().get("Y"));
    EXPECT_STREQ(first.name().cStr(), "");
    EXPECT_EQ(first.type(), yld_Enum::UNDEFINED_DATATYPE);
    EXPECT_EQ(first.frameNumber(), -1);
    EXPECT_FALSE(frame.fieldOutputs().isMember("X"));
    EXPECT_EQ(failureOf([&] { first.addData(yld_Enum::NODAL, instance(), ints({10}), rows({{1}})); }),
              "addData() not valid for an orphaned object.");
}

TEST_F(yld_FrameFieldsTest, factoriesGiveTypeAndShape)
{
    yld_Frame frame = step().Frame(1, 1.0);
    const yld_FieldOutput& vector = frame.VectorOutput("V", "five numbers", 5);
    EXPECT_EQ(vector.type(), yld_Enum::VECTOR);
    EXPECT_EQ(vector.rows(), 5);
    EXPECT_EQ(vector.cols(), 1);
    EXPECT_EQ(vector.subtype(), yld_Enum::UNDEFINED_DATASUBTYPE);
    EXPECT_EQ(vector.componentLabels().size(), 0);
    const yld_FieldOutput& matrix = frame.MatrixOutput("M", "", 3, 2);
    EXPECT_EQ(matrix.type(), yld_Enum::MATRIX);
    EXPECT_EQ(matrix.rows(), 3);
    EXPECT_EQ(matrix.cols(), 2);
    EXPECT_EQ(matrix.subtype(), yld_Enum::UNDEFINED_DATASUBTYPE);
    const yld_FieldOutput& symmetric = frame.SymmetricMatrixOutput("Y", "", 3);
    EXPECT_EQ(symmetric.rows(), 3);
    EXPECT_EQ(symmetric.cols(), 3);
    EXPECT_EQ(symmetric.subtype(), yld_Enum::SYMMETRIC_MATRIX);
    const yld_FieldOutput& scalar = frame.FieldOutput("T", "", yld_Enum::SCALAR);
    EXPECT_EQ(scalar.rows(), 0);
    EXPECT_EQ(scalar.cols(), 1);
    EXPECT_FALSE(scalar.IsOrphan());
    EXPECT_EQ(scalar.frameNumber(), 0);
}

TEST_F(yld_FrameFieldsTest, nameIsLookedAtBeforeTheInvariants)
{
    yld_Frame frame = step().Frame(1, 1.0);
    frame.FieldOutput("T", "", yld_Enum::SCALAR);
    EXPECT_EQ(failureOf([&] { frame.FieldOutput("T", "", yld_Enum::SCALAR, {}, invariants({yld_Enum::MISES})); }),
              "A field named 'T' already exists.");
    EXPECT_EQ(failureOf([&] { frame.FieldOutput("U", "", yld_Enum::SCALAR, {}, invariants({yld_Enum::MISES})); }),
              "Invalid invariant");
    EXPECT_FALSE(frame.fieldOutputs().isMember("U"));
}

// A frame that is told to look in another file takes the model of that file, whatever the field says of itself.
TEST_F(yld_FrameFieldsTest, assemblyOfAnOrdinaryFileIsTheFramesOwn)
{
    yld_Frame frame = step().Frame(1, 1.0);
    frame.FieldOutput("T", "", yld_Enum::SCALAR).addData(yld_Enum::NODAL, instance(), ints({10}), rows({{1}}));
    write(frame, "W", "");
    yld_Yld& other = Yld("other", "", "", m_folder.file("other.yld").c_str());
    EXPECT_EQ(fileOfBlock(frameOn(other).fieldOutputs().get("T")), "other.yld");
    EXPECT_EQ(fileOfBlock(frameOn(other).fieldOutputs().get("W")), "other.yld");
    yld_Frame all = frameOn(other);
    EXPECT_EQ(all.fieldOutputs().size(), 2);
    EXPECT_EQ(fileOfBlock(all.fieldOutputs().get("T")), "other.yld");
    other.close();
}

// In a file of the other kind the field itself tells: its instance, or else the assembly that it was written on.
TEST_F(yld_FrameFieldsTest, assemblyBehindAFileOfTheOtherKindIsTheFieldsOwn)
{
    yld_Frame frame = step().Frame(1, 1.0);
    frame.FieldOutput("T", "", yld_Enum::SCALAR).addData(yld_Enum::NODAL, instance(), ints({10}), rows({{1}}));
    write(frame, "W", "");
    sto_FieldStep fieldStep = frame.fieldOutputs().fieldStep().ConstGet();
    sto_FieldFrame fields = frame.fieldOutputs().fieldFrame().ConstGet();
    fld_FieldDescription ofAssembly;
    ofAssembly.m_label = "A";
    ofAssembly.m_dataType = static_cast<int>(fld_DataTypeEnm::SCALAR);
    ofAssembly.m_position = static_cast<int>(fld_OutputPositionEnm::WHOLE_MODEL);
    ofAssembly.m_length = 1;
    ofAssembly.m_rootAssembly = m_yld->sto().model("Default Model").rootAssembly().shortCut();
    const int key = fieldStep.numberField();
    fields.Field(fieldStep.Field(ofAssembly), key, fio_Buffer(sizeof(float)), fio_Buffer(), sto_Field());
    fieldStep.setNumberField(key + 1);

    yld_Yld& other = Yld("other", "", "", m_folder.file("shared.yls.yld").c_str());
    yld_Frame read = frameOn(other);
    EXPECT_EQ(fileOfBlock(read.fieldOutputs().get("T")), "results.yld");
    EXPECT_EQ(fileOfBlock(read.fieldOutputs().get("A")), "results.yld");
    EXPECT_EQ(fileOfBlock(read.fieldOutputs().get("W")), "none");
    yld_Frame all = frameOn(other);
    EXPECT_EQ(all.fieldOutputs().size(), 3);
    EXPECT_EQ(fileOfBlock(all.fieldOutputs().get("T")), "results.yld");
    EXPECT_EQ(fileOfBlock(all.fieldOutputs().get("A")), "results.yld");
    EXPECT_EQ(fileOfBlock(all.fieldOutputs().get("W")), "none");

    // Only the name of the file counts, not that of a folder.
    std::filesystem::create_directory(m_folder.file("folder.yls"));
    yld_Yld& third = Yld("third", "", "", m_folder.file("folder.yls/other.yld").c_str());
    EXPECT_EQ(fileOfBlock(frameOn(third).fieldOutputs().get("T")), "other.yld");
    third.close();
    other.close();
}

TEST_F(yld_FrameFieldsTest, copiedFieldLivesInTheFramesModelOrBehindAFileOfTheOtherKindInItsOwn)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& t = frame.FieldOutput("T", "", yld_Enum::SCALAR);
    t.addData(yld_Enum::NODAL, instance(), ints({10}), rows({{1}}));
    yld_Yld& shared = Yld("shared", "", "", m_folder.file("shared.yls.yld").c_str());
    yld_Yld& other = Yld("other", "", "", m_folder.file("other.yld").c_str());

    yld_Frame behind = frameOn(shared);
    EXPECT_EQ(fileOfBlock(behind.FieldOutput(t, "copy")), "results.yld");

    // An ordinary frame looks for the instance in its own model, which here has none.
    yld_Frame plain = frameOn(other);
    const std::string warnings = warningsOf([&] {
        EXPECT_EQ(failureOf([&] { plain.FieldOutput(t, "another"); }),
                  "Fields are not compatible. They are either associated with different structural models or have "
                  "incompatible attributes.");
    });
    EXPECT_EQ(warnings, "Warning: No Instance named \"block-1\" found in the target database.\n");
    other.close();
    shared.close();
}

TEST_F(yld_FrameFieldsTest, halfOfAPairWithoutTheOtherIsRefused)
{
    yld_Step& modal = m_yld->Step("modes", "", yld_Enum::MODAL);
    sto_Frame first = modal.step()->Frame("", 1.0, 1);
    first.setAssociation(true);
    first.setImaginary(true);
    sto_Frame last = modal.step()->Frame("", 1.0, 2);
    last.setAssociation(true);
    EXPECT_EQ(failureOf([&] { modal.frames(0).associatedFrame(); }), "Incorrect index for frame.");
    EXPECT_EQ(failureOf([&] { modal.frames(1).associatedFrame(); }), "Incorrect index for frame.");
}

TEST_F(yld_FrameFieldsTest, partnerIsACopyOfItsOwn)
{
    yld_Step& modal = m_yld->Step("modes", "", yld_Enum::MODAL);
    for (int i = 0; i < 2; ++i) {
        sto_Frame stored = modal.step()->Frame("", i, i);
        stored.setAssociation(true);
        stored.setImaginary(i == 1);
    }
    yld_Frame real = modal.frames(0);
    yld_Frame made = modal.frames(1);
    made.FieldOutput("T", "", yld_Enum::SCALAR).addData(yld_Enum::NODAL, instance(), ints({10}), rows({{7}}));
    reopen();
    yld_Frame partner = m_yld->steps().get("modes").frames(0).associatedFrame();
    m_yld->steps().get("modes").frames(0);
    EXPECT_EQ(partner.frameIndex(), 1);
    EXPECT_TRUE(partner.isImaginary());
    EXPECT_EQ(partner.fieldOutputs().get("T").values(0).data()[0], 7.0);
    const yld_Frame back = partner.associatedFrame();
    EXPECT_EQ(back.frameIndex(), 0);
    EXPECT_FALSE(back.isImaginary());
    EXPECT_EQ(back.domain(), yld_Enum::MODAL);
}

TEST_F(yld_FrameFieldsTest, modeAndFrequencyTakeTheNumbersBehindTheirWords)
{
    yld_Step& modal = m_yld->Step("modes", "", yld_Enum::MODAL);
    EXPECT_EQ(modal.Frame(9, 2.0, "Mode3").mode(), 3);
    EXPECT_EQ(modal.Frame(9, 2.0, "Mode -2").mode(), -2);
    EXPECT_EQ(modal.Frame(9, 2.0, "Mode of vibration").mode(), 0); // no number stands there
    EXPECT_EQ(modal.Frame(9, 2.0, "first Mode 4, not Mode 5").mode(), 4);
    EXPECT_EQ(modal.Frame(9, 2.0, "mode 3").mode(), 9);
    EXPECT_EQ(modal.Frame(9, 2.0, "Freq =12.5").frequency(), 12.5);
    EXPECT_EQ(modal.Frame(9, 2.0, "Freq = 1e3 cycles").frequency(), 1000.0);
    EXPECT_EQ(modal.Frame(9, 2.0, "Freq = high").frequency(), 0.0);
    EXPECT_EQ(modal.Frame(9, 2.0, "Freq 12.5").frequency(), 2.0);
}

TEST_F(yld_FrameFieldsTest, associatedModalFrameWithoutAWordHasItsOwnModeNumber)
{
    yld_Step& modal = m_yld->Step("modes", "", yld_Enum::MODAL);
    sto_Frame stored = modal.step()->Frame("", 1.0, 4);
    stored.setAssociation(true);
    EXPECT_EQ(modal.frames(0).mode(), 0); // no mode was told
    EXPECT_EQ(modal.frames(0).cyclicModeNumber(), -1);
    stored.setModeNumber(6);
    EXPECT_EQ(modal.frames(0).mode(), 6);
    EXPECT_EQ(modal.frames(0).cyclicModeNumber(), 6);
}
