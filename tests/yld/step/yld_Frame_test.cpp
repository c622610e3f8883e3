#include "platform/sto/sto_Field.h"
#include "platform/sto/sto_FieldContainer.h"
#include "platform/sto/sto_FieldFrame.h"
#include "platform/sto/sto_FieldStep.h"
#include "platform/sto/sto_Frame.h"
#include "platform/sto/sto_Step.h"
#include "platform/store/fio_File.h"
#include "result_model.h"

using yld_FrameTest = ResultModel;

TEST_F(yld_FrameTest, emptyFrame)
{
    const yld_Frame frame;
    EXPECT_EQ(frame.frameIndex(), -1);
    EXPECT_EQ(frame.domain(), yld_Enum::TIME);
    EXPECT_EQ(frame.frameValue(), 0.0);
    EXPECT_EQ(frame.cyclicModeNumber(), -1);
    EXPECT_FALSE(frame.hasAssociatedFrame());
    EXPECT_EQ(frame.fieldOutputs().size(), 0);
    EXPECT_EQ(frame.fieldOutputs().getFieldOutputNames().size(), 0);
}

TEST_F(yld_FrameTest, modeComesFromTheLabelOrTheIncrement)
{
    EXPECT_EQ(step().Frame(4, 1.0, "Mode 3").mode(), 0);
    yld_Step& modal = m_yld->Step("modes", "", yld_Enum::MODAL);
    EXPECT_EQ(modal.Frame(4, 1.0, "Mode         3: Value = 1 Freq = 12.5 (cycles/time)").mode(), 3);
    EXPECT_EQ(modal.Frame(4, 1.0, "no word").mode(), 4);
    sto_Frame stored = modal.step()->Frame("no word", 1.0, 4);
    stored.setAssociation(true);
    stored.setModeNumber(9);
    EXPECT_EQ(modal.frames(2).mode(), 9);
    EXPECT_EQ(modal.frames(2).cyclicModeNumber(), 9);
    EXPECT_EQ(modal.frames(1).cyclicModeNumber(), -1);
}

TEST_F(yld_FrameTest, frequencyByDomain)
{
    EXPECT_EQ(step().Frame(4, 2.0, "Freq = 12.5").frequency(), 0.0);
    yld_Step& modal = m_yld->Step("modes", "", yld_Enum::MODAL);
    EXPECT_EQ(modal.Frame(1, 2.0, "Mode 1 Freq = 12.5 (cycles/time)").frequency(), 12.5);
    EXPECT_EQ(modal.Frame(1, 2.0, "").frequency(), 2.0);
    yld_Step& response = m_yld->Step("response", "", yld_Enum::FREQUENCY);
    EXPECT_EQ(response.Frame(1, 3.0, "Freq = 12.5").frequency(), 3.0);
}

TEST_F(yld_FrameTest, complexPairsStandSideBySide)
{
    yld_Step& modal = m_yld->Step("modes", "", yld_Enum::MODAL);
    for (int i = 0; i < 4; ++i) {
        sto_Frame stored = modal.step()->Frame("", 1.0, i);
        stored.setAssociation(i < 2);
        stored.setImaginary(i == 1);
    }
    reopen();
    yld_Step& read = m_yld->steps().get("modes");
    const yld_Frame real = read.frames(0);
    const yld_Frame imaginary = read.frames(1);
    EXPECT_FALSE(real.isImaginary());
    EXPECT_TRUE(imaginary.isImaginary());
    EXPECT_EQ(real.associatedFrame().frameIndex(), 1);
    EXPECT_EQ(imaginary.associatedFrame().frameIndex(), 0);
    EXPECT_EQ(real.associatedFrame().associatedFrame().frameIndex(), 0);
    EXPECT_EQ(read.frames(2).associatedFrame().frameIndex(), -1);
}

TEST_F(yld_FrameTest, unknownFieldIsEmpty)
{
    yld_Frame frame = step().Frame(1, 1.0);
    EXPECT_FALSE(frame.fieldOutputs().isMember("U"));
    EXPECT_STREQ(frame.fieldOutputs().get("U").name().cStr(), "");
    EXPECT_EQ(frame.fieldOutputs().constGet("U").values().size(), 0);
    EXPECT_TRUE(frame.fieldOutputs().get("U").IsOrphan());
}

TEST_F(yld_FrameTest, fieldOfTheStoreKeepsItsName)
{
    yld_Frame frame = step().Frame(1, 1.0);
    frame.FieldOutput("T", "", yld_Enum::SCALAR).addData(yld_Enum::NODAL, instance(), ints({10}), rows({{1}}));
    reopen();
    yld_Frame read = step().frames(0);
    EXPECT_EQ(failureOf([&] { read.FieldOutput("T", "", yld_Enum::VECTOR); }), "A field named 'T' already exists.");
    EXPECT_EQ(failureOf([&] { read.VectorOutput("T", "", 2); }), "A field named 'T' already exists.");
    EXPECT_EQ(failureOf([&] { read.MatrixOutput("T", "", 2, 2); }), "A field named 'T' already exists.");
    EXPECT_EQ(failureOf([&] { read.SymmetricMatrixOutput("T", "", 2); }), "A field named 'T' already exists.");
}

TEST_F(yld_FrameTest, namesStandInTheOrderOfTheStore)
{
    yld_Frame frame = step().Frame(1, 1.0);
    for (const char* name : {"U", "A:B:C", "S", "U2"}) {
        yld_FieldOutput& field = frame.FieldOutput(name, "", yld_Enum::SCALAR);
        field.addData(yld_Enum::NODAL, instance(), ints({10}), rows({{1}}));
        field.addData(yld_Enum::CENTROID, instance(), ints({101}), rows({{1}}));
    }
    frame.FieldOutput("empty", "", yld_Enum::SCALAR);
    reopen();
    yld_Frame read = step().frames(0);
    EXPECT_EQ(joined(read.fieldOutputs().getFieldOutputNames()), "U,A:B:C,S,U2");
    EXPECT_TRUE(read.fieldOutputs().isMember("A:B:C"));
    EXPECT_FALSE(read.fieldOutputs().isMember("C"));
    EXPECT_EQ(read.fieldOutputs().size(), 4);
    EXPECT_EQ(read.fieldOutputs().constGet("S").SubField().size(), 2);
}

TEST_F(yld_FrameTest, contactVariablesHaveANameForEachPair)
{
    yld_Frame frame = step().Frame(1, 1.0);
    sto_FieldFrame fields = frame.fieldOutputs().fieldFrame().ConstGet();
    sto_FieldStep fieldStep = frame.fieldOutputs().fieldStep().ConstGet();
    int key = 0;
    const auto write = [&](const char* label, const char* keyText, const char* description, int position) {
        fld_FieldDescription wanted;
        wanted.m_label = label;
        wanted.m_keyText = keyText;
        wanted.m_description = description;
        wanted.m_dataType = static_cast<int>(fld_DataTypeEnm::SCALAR);
        wanted.m_position = position;
        wanted.m_length = 1;
        fio_Buffer values(sizeof(float));
        *reinterpret_cast<float*>(values.writable()) = 1.0F;
        fields.Field(fieldStep.Field(wanted), key++, values, fio_Buffer(), sto_Field());
    };
    write("CPRESS", "3:ASURF/BSURF", "pressure: ASURF", 9);
    write("CPRESS", "4:CSURF/DSURF", "pressure", 9);
    write("d_CPRESS_x", "5:E", "derivative", 9);
    write("C", "6:tail", "short", 9);
    write("CSHEAR1", "", "no pair", 9);
    reopen();
    yld_Frame read = step().frames(0);
    EXPECT_EQ(joined(read.fieldOutputs().getFieldOutputNames()),
              "CPRESS   ASURF/BSURF,CPRESS   CSURF/DSURF,d_CPRESS_x,C,CSHEAR1");
    EXPECT_EQ(read.fieldOutputs().size(), 5);
    EXPECT_TRUE(read.fieldOutputs().isMember("CPRESS   ASURF/BSURF"));
    EXPECT_TRUE(read.fieldOutputs().isMember("d_CPRESS   E_x"));
    EXPECT_TRUE(read.fieldOutputs().isMember("C        tail"));
    EXPECT_TRUE(read.fieldOutputs().isMember("CSHEAR1"));
}

TEST_F(yld_FrameTest, listingReadsNoFieldAndAFieldReadsNoValue)
{
    yld_Frame frame = step().Frame(1, 1.0);
    for (int i = 0; i < 50; ++i) {
        const yld_String name(("F" + std::to_string(i)).c_str());
        frame.FieldOutput(name, "", yld_Enum::SCALAR).addData(yld_Enum::NODAL, instance(), ints({10}), rows({{1}}));
    }
    reopen();
    yld_Frame& read = step().frames(0);
    const auto& file = read.fieldOutputs().fieldFrame().ConstGet().shortCut().file();
    const std::size_t before = file->loadedObjects();
    EXPECT_EQ(read.fieldOutputs().getFieldOutputNames().size(), 50);
    EXPECT_EQ(file->loadedObjects(), before);

    const yld_FieldOutput& one = read.fieldOutputs().constGet("F7");
    EXPECT_EQ(one.SubField().size(), 1);
    // The field, its description, and what places it: its set.
    EXPECT_LE(file->loadedObjects(), before + 4);
    EXPECT_EQ(one.values().size(), 1);
    EXPECT_FALSE(one.SubField()[0].field().isLoaded());
    EXPECT_EQ(one.values(0).data()[0], 1.0);
    EXPECT_TRUE(one.SubField()[0].field().isLoaded());
}

TEST_F(yld_FrameTest, walkingFramesGivesTheirFieldsBack)
{
    constexpr int count = 20;
    for (int i = 0; i < count; ++i) {
        yld_Frame frame = step().Frame(i, i);
        frame.FieldOutput("T", "", yld_Enum::SCALAR)
            .addData(yld_Enum::NODAL, instance(), ints({10}), rows({{static_cast<float>(i)}}));
    }
    reopen();
    yld_FieldOutput kept;
    std::size_t afterTwo = 0;
    const auto& file = step().step()->shortCut().file();
    for (int i = 0; i < count; ++i) {
        const yld_FieldOutput& t = field("T", i);
        EXPECT_EQ(t.values(0).data()[0], i);
        if (i == 1) {
            kept = t;
            afterTwo = file->loadedObjects();
        }
    }
    // A frame leaves nothing behind, neither its own row nor any of its fields.
    EXPECT_EQ(file->loadedObjects(), afterTwo);
    EXPECT_EQ(kept.values(0).data()[0], 1.0);
}

TEST_F(yld_FrameTest, updateFindsFieldsThatCameIn)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_Frame other = step().frames(0);
    EXPECT_EQ(other.fieldOutputs().size(), 0);
    frame.FieldOutput("T", "", yld_Enum::SCALAR).addData(yld_Enum::NODAL, instance(), ints({10}), rows({{1}}));
    EXPECT_TRUE(other.update());
    EXPECT_FALSE(other.update());
    EXPECT_EQ(other.fieldOutputs().size(), 1);
    frame.fieldOutputs().get("T").addData(yld_Enum::NODAL, instance(), ints({20}), rows({{2}}));
    EXPECT_TRUE(other.update());
    EXPECT_EQ(other.fieldOutputs().get("T").values().size(), 2);
}
