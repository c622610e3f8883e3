// What opening, listing and getting cost in a large database: the statements that reach the file, counted. Each is
// compared with the same in a small one, for what is not asked for must not be touched.
#include "platform/sto/sto_FieldFrame.h"
#include "platform/sto/sto_Step.h"
#include "platform/sto/sto_Sto.h"
#include "platform/store/fio_File.h"
#include "result_model.h"

#include <vector>

namespace {

struct Size
{
    int frames;
    int fields; ///< in the last frame; the others have none
    int instances;
};

// Statements of each request, in the order in which a reader comes to it.
struct Cost
{
    long long steps = 0;
    long long frame = 0;
    long long names = 0;
    long long field = 0;
    long long value = 0;
    int numNames = 0;
};

yld_String numbered(const char* text, int number)
{
    yld_String name(text);
    name += yld_String(number);
    return name;
}

class yld_Scale : public testing::Test
{
protected:
    yld_Scale() { yld_initializeAPI(); }
    ~yld_Scale() override { yld_finalizeAPI(); }

    std::string write(const Size& size)
    {
        const std::string path = m_folder.file("scale.yld");
        yld_Yld& yld = Yld("scale", "", "", path.c_str());
        yld_Part& part = yld.Part("part", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
        part.addNodes(ints({1, 2}), rows({{0, 0, 0}, {1, 0, 0}}));
        for (int i = 0; i < size.instances; ++i) yld.rootAssembly().Instance(numbered("instance-", i), part);
        yld_Step& step = yld.Step("Step-1", "", yld_Enum::TIME, 1.0);
        for (int i = 0; i < size.frames; ++i) step.Frame(i, i);
        yld_Frame last = step.frames(size.frames - 1);
        yld_InstanceRepository& instances = yld.rootAssembly().instances();
        for (int i = 0; i < size.fields; ++i) {
            last.FieldOutput(numbered("F", i), "", yld_Enum::SCALAR)
                .addData(yld_Enum::NODAL, instances.get(numbered("instance-", i % size.instances)), ints({1, 2}),
                         rows({{static_cast<float>(i)}, {0}}));
        }
        yld_FieldOutput& everywhere = last.FieldOutput("everywhere", "", yld_Enum::SCALAR);
        for (int i = 0; i < size.instances; ++i) {
            everywhere.addData(yld_Enum::NODAL, instances.get(numbered("instance-", i)), ints({2}), rows({{1}}));
        }
        yld.save();
        yld.close();
        return path;
    }

    Cost costOf(const Size& size)
    {
        const std::string path = write(size);
        yld_Yld& yld = openYld(path.c_str(), true);
        const std::shared_ptr<fio_FileBody> file = yld.sto().file();
        const auto statements = [&] { return file->database().statementCount(); };
        yld.rootAssembly(); // the model, with as many statements as it has instances
        Cost cost;
        // Steps come with the model; getting one again costs nothing.
        long long before = statements();
        yld_Step& step = yld.steps().get("Step-1");
        EXPECT_EQ(step.frames().size(), size.frames);
        cost.steps = statements() - before;

        before = statements();
        yld_Frame& frame = step.frames(size.frames - 1);
        EXPECT_EQ(frame.frameValue(), size.frames - 1);
        cost.frame = statements() - before;

        before = statements();
        cost.numNames = frame.fieldOutputs().getFieldOutputNames().size();
        cost.names = statements() - before;

        before = statements();
        const long long bytes = file->database().extentReadBytes();
        const yld_FieldOutput& field = frame.fieldOutputs().get(numbered("F", size.fields / 2));
        EXPECT_EQ(field.values().size(), 2);
        cost.field = statements() - before;
        EXPECT_EQ(file->database().extentReadBytes(), bytes); // no value is read before one is asked for

        before = statements();
        EXPECT_EQ(field.values(0).data()[0], size.fields / 2);
        cost.value = statements() - before;
        EXPECT_EQ(frame.fieldOutputs().get("everywhere").SubField().size(), size.instances);
        yld.close();
        return cost;
    }

    ScratchFolder m_folder;
};

void expectTheSame(const Cost& small, const Cost& large)
{
    EXPECT_EQ(large.steps, small.steps);
    EXPECT_EQ(large.frame, small.frame);
    EXPECT_EQ(large.names, small.names);
    EXPECT_EQ(large.field, small.field);
    EXPECT_EQ(large.value, small.value);
}

} // namespace

TEST_F(yld_Scale, tenThousandFramesCostWhatThreeDo)
{
    const Cost small = costOf({3, 3, 2});
    expectTheSame(small, costOf({10000, 3, 2}));
    // The first row of a class takes two looks at its table. A frame: its row. The names: their list. A field: its row,
    // that of its description and that of its set. A value takes no statement, for arrays are read without.
    EXPECT_EQ(small.steps, 0);
    EXPECT_EQ(small.frame, 3);
    EXPECT_EQ(small.names, 1);
    EXPECT_EQ(small.field, 9);
    EXPECT_EQ(small.value, 0);
}

TEST_F(yld_Scale, twoThousandFieldsCostWhatThreeDo)
{
    const Cost small = costOf({3, 3, 2});
    const Cost large = costOf({3, 2000, 2});
    EXPECT_EQ(small.numNames, 4);
    EXPECT_EQ(large.numNames, 2001);
    expectTheSame(small, large);
}

TEST_F(yld_Scale, twoHundredInstancesCostAFieldOfOneWhatTwoDo)
{
    expectTheSame(costOf({3, 3, 2}), costOf({3, 200, 200}));
}

// Before the first access to steps or model a database of any size costs the same to open, and reads none of them.
TEST_F(yld_Scale, openingLooksAtTheHeaderAlone)
{
    const auto opening = [&](const Size& size) {
        const std::string path = write(size);
        yld_Yld& yld = openYld(path.c_str(), true);
        const std::shared_ptr<fio_FileBody> file = yld.sto().file();
        const std::pair<long long, std::size_t> cost(file->database().statementCount(), file->loadedObjects());
        yld.close();
        return cost;
    };
    EXPECT_EQ(opening({10000, 200, 200}), opening({1, 1, 1}));
}

// The first access reads each step once and no frame.
TEST_F(yld_Scale, readingTheStepsReadsNoFrame)
{
    const auto loaded = [&](int frames) {
        const std::string path = write({frames, 1, 1});
        yld_Yld& yld = openYld(path.c_str(), true);
        const std::shared_ptr<fio_FileBody> file = yld.sto().file();
        yld.steps();
        const std::size_t count = file->loadedObjects();
        yld.close();
        return count;
    };
    EXPECT_EQ(loaded(2000), loaded(1));
}
