#include "platform/result/fld_FieldDescription.h"
#include "platform/result/fld_Frame.h"
#include "platform/sto/sto_Field.h"
#include "platform/sto/sto_FieldContainer.h"
#include "platform/sto/sto_FieldFrame.h"
#include "platform/sto/sto_FieldStep.h"
#include "platform/sto/sto_Frame.h"
#include "platform/sto/sto_Result.h"
#include "platform/sto/sto_Step.h"
#include "platform/sto/sto_StepContainer.h"
#include "platform/sto/sto_StoStep.h"
#include "platform/store/fio_File.h"
#include "platform/text/exc_Exception.h"
#include "test_files.h"

#include <cstring>
#include <functional>
#include <sqlite3.h>

namespace {

std::string failureOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const exc_TextException& failure) {
        return failure.what();
    }
    return "no exception";
}

fio_Buffer bufferOf(const std::vector<float>& values)
{
    fio_Buffer buffer(values.size() * sizeof(float));
    std::memcpy(buffer.writable(), values.data(), buffer.size());
    return buffer;
}

// A file with nothing in it but one step of results with one frame.
class StoredFields : public testing::Test
{
protected:
    void SetUp() override
    {
        m_path = m_folder.file("fields.yld");
        m_file = fio_File::Create(m_path.c_str());
        const auto& body = m_file.body();
        fld_Step step;
        step.m_name = "Step-1";
        step.m_frames = mrp_Container<fld_Frame>::create(body);
        m_step = lnk_ShortCut<fld_Step>::create(body, std::move(step));
        body->setRootObject(0);
        m_stepId = m_step.id();
        handle().FieldStep();
        handle().Frame("frame", 1.5, 3);
    }

    sto_Step handle() const { return sto_Step(m_step); }
    sto_FieldFrame frame() const { return handle().frame(0).fieldFrame(); }

    static fld_FieldDescription description(const char* label, int length, int width)
    {
        fld_FieldDescription made;
        made.m_label = label;
        made.m_dataType = static_cast<int>(fld_DataTypeEnm::MATRIX);
        made.m_position = static_cast<int>(fld_OutputPositionEnm::WHOLE_MODEL);
        made.m_length = length;
        made.m_width = width;
        return made;
    }

    sto_Field write(const char* label, int key, const std::vector<float>& values)
    {
        return frame().Field(handle().fieldStep().Field(description(label, static_cast<int>(values.size()), 1)), key,
                             bufferOf(values), fio_Buffer(), sto_Field());
    }

    void reopen(const std::function<void(sqlite3*)>& damage = nullptr)
    {
        m_file.body()->save();
        m_file.body()->close();
        if (damage) {
            sqlite3* database = nullptr;
            ASSERT_EQ(sqlite3_open(m_path.c_str(), &database), SQLITE_OK);
            damage(database);
            sqlite3_close(database);
        }
        m_file = fio_File::Open(m_path.c_str(), true, true);
        m_step = lnk_ShortCut<fld_Step>(m_file.body(), m_stepId);
    }

    static void run(sqlite3* database, const char* statement)
    {
        ASSERT_EQ(sqlite3_exec(database, statement, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(database);
    }

    ScratchFolder m_folder;
    std::string m_path;
    fio_File m_file;
    lnk_ShortCut<fld_Step> m_step;
    long long m_stepId = 0;
};

} // namespace

TEST_F(StoredFields, valuesBelongToTheHandleThatReadThem)
{
    write("A", 0, {1, 2, 3});
    reopen();
    const sto_Field first = frame().field().get(0);
    const sto_Field copy(first);
    const sto_Field other = frame().field().get(0);
    EXPECT_FALSE(copy.isLoaded());
    const float* values = first.view<float>().data();
    EXPECT_EQ(values[2], 3.0F);
    EXPECT_TRUE(copy.isLoaded());
    EXPECT_EQ(copy.view<float>().data(), values);
    EXPECT_FALSE(other.isLoaded());
    EXPECT_FALSE(first.shortCut().fetch()->m_values.isLoaded());
}

TEST_F(StoredFields, valuesGoToDiskAtOnce)
{
    const sto_Field field = write("A", 0, {1, 2, 3});
    EXPECT_FALSE(field.shortCut().fetch()->m_values.isLoaded());
    EXPECT_EQ(field.view<float>().data()[1], 2.0F);
}

TEST_F(StoredFields, conjugateAndDoubleComeBack)
{
    fio_Buffer values(2 * sizeof(double));
    const double numbers[] = {1.0 / 3.0, -1.0};
    std::memcpy(values.writable(), numbers, sizeof numbers);
    fld_FieldDescription made = description("D", 2, 1);
    made.m_isPair = true;
    frame().Field(handle().fieldStep().Field(made), 4, values, values, sto_Field(), 1);
    reopen();
    const sto_Field field = frame().field().get(4);
    EXPECT_EQ(field.storageType(), 1);
    EXPECT_EQ(field.size(), 2);
    EXPECT_TRUE(field.hasConjugate());
    EXPECT_EQ(field.view<double>().data()[0], 1.0 / 3.0);
    EXPECT_EQ(field.view<double>().conjugate()[1], -1.0);
    EXPECT_EQ(failureOf([&] { field.view<float>(); }),
              m_path + ": a field is asked for in a precision that it does not have");
}

TEST_F(StoredFields, wrongNumberOfValuesIsRefused)
{
    const sto_FieldDescription made = handle().fieldStep().Field(description("A", 2, 3));
    EXPECT_EQ(failureOf([&] {
                  frame().Field(made, 0, bufferOf({1, 2, 3}), fio_Buffer(), sto_Field());
              }),
              m_path + ": the values of field \"A\" have another size than its description");
    EXPECT_EQ(frame().numFields(), 0);
}

TEST_F(StoredFields, descriptionsAreFoundByWhatTheyDescribe)
{
    sto_FieldStep step = handle().fieldStep();
    fld_FieldDescription made = description("A", 2, 3);
    EXPECT_EQ(failureOf([&] { step.field(made, false); }), m_path + ": has no description of field \"A\" there");
    made.m_key = 17;
    const sto_FieldDescription kept = step.Field(made);
    EXPECT_EQ(step.field(description("A", 9, 3), false).shortCut().id(), kept.shortCut().id());
    EXPECT_FALSE(step.find(description("A", 2, 3), true).isValid());
    EXPECT_FALSE(step.find(description("A", 2, 4), false).isValid());
    EXPECT_FALSE(step.find(description("B", 2, 3), false).isValid());
    fld_FieldDescription pair = description("A", 2, 3);
    pair.m_isPair = true;
    EXPECT_FALSE(step.find(pair, false).isValid());
    fld_FieldDescription labelled = description("A", 2, 3);
    labelled.m_componentLabels = {"x", "y", "z"};
    EXPECT_FALSE(step.find(labelled, false).isValid());
    // Another handle, made after the file was opened again, finds the same.
    reopen();
    EXPECT_EQ(handle().fieldStep().field(description("A", 2, 3), false).key(), 17);
}

TEST_F(StoredFields, widthOfNothingIsTheTypesOwn)
{
    sto_FieldStep step = handle().fieldStep();
    const auto widthOf = [&step](fld_DataTypeEnm type, std::vector<std::string> labels) {
        fld_FieldDescription made = description("A", 1, 0);
        made.m_dataType = static_cast<int>(type);
        made.m_componentLabels = std::move(labels);
        return step.Field(made).width();
    };
    EXPECT_EQ(widthOf(fld_DataTypeEnm::SCALAR, {}), 1);
    EXPECT_EQ(widthOf(fld_DataTypeEnm::VECTOR, {"a", "b"}), 2);
    EXPECT_EQ(widthOf(fld_DataTypeEnm::TENSOR_3D_FULL, {}), 6);
    EXPECT_EQ(widthOf(fld_DataTypeEnm::QUATERNION_2D, {}), 2);
}

TEST_F(StoredFields, countThatTheFileHasNotIsRefusedBeforeMemoryIsTaken)
{
    write("A", 0, {1, 2, 3});
    reopen([](sqlite3* database) {
        run(database, "UPDATE fld_Field SET rows = 500000000, width = 4, \"values.count\" = 2000000000");
    });
    const sto_Field field = frame().field().get(0);
    const std::string failure = failureOf([&] { field.view<float>(); });
    EXPECT_NE(failure.find("the file is damaged"), std::string::npos) << failure;
    EXPECT_FALSE(field.isLoaded());
}

TEST_F(StoredFields, rowsThatDisagreeWithValuesAreRefused)
{
    write("A", 0, {1, 2, 3});
    reopen([](sqlite3* database) { run(database, "UPDATE fld_Field SET rows = 4"); });
    EXPECT_EQ(failureOf([&] { frame().field().get(0).view<float>(); }),
              m_path + ": a field has 3 values, but 4 rows of 1; the file is damaged");
    reopen([](sqlite3* database) { run(database, "UPDATE fld_Field SET rows = -3, width = -1"); });
    EXPECT_EQ(failureOf([&] { frame().field().get(0).view<float>(); }),
              m_path + ": a field has 3 values, but -3 rows of -1; the file is damaged");
}

TEST_F(StoredFields, keysThatDisagreeWithFieldsAreRefused)
{
    write("A", 0, {1});
    reopen(
        [](sqlite3* database) { run(database, "UPDATE fld_Frame SET \"field keys\" = x'000000000100000002000000'"); });
    EXPECT_EQ(failureOf([&] { frame().fieldKeys(); }),
              m_path + ": a frame has 1 fields, but 3 keys; the file is damaged");
    EXPECT_EQ(failureOf([&] { frame().field().get(2); }),
              m_path + ": a frame has more field keys than fields; the file is damaged");
}

TEST_F(StoredFields, fieldWithoutItsDescriptionIsRefused)
{
    write("A", 0, {1});
    reopen([](sqlite3* database) { run(database, "DELETE FROM fld_FieldDescription"); });
    const std::string failure = failureOf([&] { frame().field().get(0).fieldDescription().width(); });
    EXPECT_NE(failure.find("of class fld_FieldDescription is missing; the file is damaged"), std::string::npos)
        << failure;
}

TEST_F(StoredFields, framesOutsideTheStepAreRefused)
{
    EXPECT_EQ(failureOf([&] { handle().frame(1); }), m_path + ": frame 1 asked for, but there are 1");
    EXPECT_EQ(failureOf([&] { handle().frame(-1); }), m_path + ": frame -1 asked for, but there are 1");
    EXPECT_EQ(failureOf([&] { handle().setFrameLoadCaseName(1, "x"); }),
              m_path + ": there is no frame 1 to name a load case for");
    EXPECT_EQ(failureOf([&] { handle().modelStep(); }), m_path + ": the model has no step named \"Step-1\"");
}

TEST_F(StoredFields, keysInAnyOrderAreFound)
{
    write("A", 5, {5});
    write("B", 2, {2});
    write("A", 3, {3});
    reopen();
    EXPECT_EQ(frame().field().get(2).view<float>().data()[0], 2.0F);
    EXPECT_EQ(frame().field().get(5).view<float>().data()[0], 5.0F);
    EXPECT_EQ(frame().fieldKeys("A"), (std::vector<int>{3, 5}));
    EXPECT_EQ(frame().fieldKeys("C"), std::vector<int>());
    EXPECT_EQ(failureOf([&] { frame().field().get(4); }), m_path + ": the frame has no field with the key 4");
}

TEST_F(StoredFields, resultsKeepStepsInOrder)
{
    const sto_Result results = sto_Result::create(m_file.body());
    EXPECT_EQ(results.steps().size(), 0);
    EXPECT_FALSE(results.hasStep("Step-1"));
    EXPECT_EQ(failureOf([&] { results.step("Step-1"); }), m_path + ": has no step named \"Step-1\"");
    sto_Result writable(results);
    EXPECT_EQ(failureOf([&] { writable.Step("Step-1"); }), m_path + ": the model has no step named \"Step-1\"");
    results.steps().release("Step-1");
    results.steps().flush();
}

TEST_F(StoredFields, precisionIsChangedAndKept)
{
    write("first", 1, {0.1F, -2.5F});
    sto_Field first = frame().field().get(1);
    first.setStorageType(0); // as it is
    first.setStorageType(1);
    EXPECT_EQ(failureOf([&] { first.setStorageType(2); }), m_path + ": a field has no precision 2");
    EXPECT_EQ(first.view<double>().data()[0], static_cast<double>(0.1F));
    reopen();
    sto_Field read = frame().field().get(1);
    EXPECT_EQ(read.storageType(), 1);
    EXPECT_EQ(read.view<double>().data()[1], -2.5);
    EXPECT_EQ(read.shortCut().fetch()->m_values.size(), 0);
    read.setStorageType(0);
    reopen();
    EXPECT_EQ(frame().field().get(1).storageType(), 0);
    EXPECT_EQ(frame().field().get(1).view<float>().data()[0], 0.1F);
    EXPECT_EQ(frame().field().get(1).shortCut().fetch()->m_doubleValues.size(), 0);
}

TEST_F(StoredFields, bothHalvesOfAPairChangeTheirPrecision)
{
    fld_FieldDescription pair = description("pair", 2, 1);
    pair.m_isPair = true;
    frame().Field(handle().fieldStep().Field(pair), 1, bufferOf({1.0F, 2.0F}), bufferOf({3.0F, 4.0F}), sto_Field());
    sto_Field field = frame().field().get(1);
    field.setStorageType(1);
    reopen();
    const sto_Field read = frame().field().get(1);
    const sto_FieldView<double> view = read.view<double>();
    EXPECT_EQ(view.data()[1], 2.0);
    ASSERT_NE(view.conjugate(), nullptr);
    EXPECT_EQ(view.conjugate()[1], 4.0);
}

// Each typed view takes the values of its own kind and precision and refuses all others.
TEST_F(StoredFields, typedViewsTakeTheirOwnKind)
{
    struct Case
    {
        fld_DataTypeEnm type;
        sto_ValueKind kind;
    };
    const Case cases[] = {
        {fld_DataTypeEnm::SCALAR, sto_ValueKind::SCALAR},
        {fld_DataTypeEnm::VECTOR, sto_ValueKind::VECTOR},
        {fld_DataTypeEnm::MATRIX, sto_ValueKind::MATRIX},
        {fld_DataTypeEnm::TENSOR_3D_FULL, sto_ValueKind::TENSOR},
        {fld_DataTypeEnm::TENSOR_3D_PLANAR, sto_ValueKind::TENSOR},
        {fld_DataTypeEnm::TENSOR_3D_SURFACE, sto_ValueKind::TENSOR},
        {fld_DataTypeEnm::TENSOR_2D_PLANAR, sto_ValueKind::TENSOR},
        {fld_DataTypeEnm::TENSOR_2D_SURFACE, sto_ValueKind::TENSOR},
        {fld_DataTypeEnm::QUATERNION_2D, sto_ValueKind::QUATERNION},
        {fld_DataTypeEnm::QUATERNION_3D, sto_ValueKind::QUATERNION},
        {fld_DataTypeEnm::INTEGER, static_cast<sto_ValueKind>(-1)},
    };
    int key = 0;
    for (const Case& each : cases) {
        fld_FieldDescription described = description("typed", 1, 2);
        described.m_dataType = static_cast<int>(each.type);
        frame().Field(handle().fieldStep().Field(described), key++, bufferOf({1.0F, 2.0F}), fio_Buffer(), sto_Field());
    }
    reopen();
    for (int i = 0; i < key; ++i) {
        for (int precision = 0; precision < 2; ++precision) {
            sto_Field field = frame().field().get(i);
            field.setStorageType(precision);
            const auto outcome = [&]<class Float, class Double>(sto_ValueKind kind, Float, Double) {
                const std::string single = failureOf([&] { EXPECT_EQ(Float(field).data()[1], 2.0F); });
                const std::string wide = failureOf([&] { EXPECT_EQ(Double(field).data()[1], 2.0); });
                const bool isOwn = kind == cases[i].kind;
                const std::string otherKind = m_path + ": the values of a field are taken for others than they are";
                const std::string otherPrecision =
                    m_path + ": a field is asked for in a precision that it does not have";
                const std::string none = "no exception";
                EXPECT_EQ(single, !isOwn ? otherKind : precision == 0 ? none : otherPrecision) << i;
                EXPECT_EQ(wide, !isOwn ? otherKind : precision == 1 ? none : otherPrecision) << i;
            };
            outcome(sto_ValueKind::SCALAR, sto_ScalarFloat(), sto_ScalarDouble());
            outcome(sto_ValueKind::VECTOR, sto_VectorFloat(), sto_VectorDouble());
            outcome(sto_ValueKind::MATRIX, sto_MatrixFloat(), sto_MatrixDouble());
            outcome(sto_ValueKind::TENSOR, sto_TensorFloat(), sto_TensorDouble());
            outcome(sto_ValueKind::QUATERNION, sto_QuaternionFloat(), sto_QuaternionDouble());
        }
    }
}
