// Steps and frames through the public interface, beside the same rows written and read with the store alone.
#include "bench_folder.h"
#include "bench_ratio.h"
#include "platform/result/fld_Field.h"
#include "platform/result/fld_FieldDescription.h"
#include "platform/result/fld_Frame.h"
#include "platform/result/fld_Step.h"
#include "platform/store/fio_File.h"
#include "yld.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace {

constexpr int numFrames = 10000;
constexpr int fieldsInFrame = 10;
constexpr int manyFields = 2000;
constexpr int numNodes = 8;

const BenchFolder& folder()
{
    static const BenchFolder made;
    return made;
}

const int labels[numNodes] = {1, 2, 3, 4, 5, 6, 7, 8};

std::string nameOf(int field)
{
    std::string name("F");
    name += std::to_string(field);
    return name;
}

std::vector<yld_String> names(int count)
{
    std::vector<yld_String> all;
    for (int i = 0; i < count; ++i) all.emplace_back(nameOf(i).c_str());
    return all;
}

// Through the public interface.

yld_Yld& makeDatabase(const std::string& path)
{
    std::filesystem::remove(path);
    yld_Yld& yld = Yld("bench", "", "", path.c_str());
    yld_Part& part = yld.Part("part", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
    yld_Sequence<yld_Sequence<float>> coordinates;
    const float origin[3] = {0.0F, 0.0F, 0.0F};
    for (int i = 0; i < numNodes; ++i) coordinates.append(yld_Sequence<float>(origin, 3));
    part.addNodes(yld_Sequence<int>(labels, numNodes), coordinates);
    yld.rootAssembly().Instance("part-1", part);
    yld.Step("Step-1", "", yld_Enum::TIME, 1.0);
    yld.save();
    return yld;
}

void writeFrames(yld_Yld& yld, int frames, int fields)
{
    const std::vector<yld_String> all = names(fields);
    const yld_Instance& instance = yld.rootAssembly().instances().get("part-1");
    yld_Step& step = yld.steps().get("Step-1");
    float values[numNodes];
    for (int f = 0; f < frames; ++f) {
        yld_Frame frame = step.Frame(f, f);
        for (int k = 0; k < fields; ++k) {
            for (int i = 0; i < numNodes; ++i) values[i] = static_cast<float>(f + k + i);
            frame.FieldOutput(all[static_cast<std::size_t>(k)], "", yld_Enum::SCALAR)
                .addBulkData(yld_Enum::NODAL, instance, labels, numNodes, values, numNodes, 1);
        }
    }
    yld.save();
}

double walkFrames(yld_Yld& yld)
{
    double sum = 0.0;
    yld_Step& step = yld.steps().get("Step-1");
    const int frames = step.frames().size();
    for (int f = 0; f < frames; ++f) {
        yld_Frame& frame = step.frames(f);
        const yld_Sequence<yld_String> all = frame.fieldOutputs().getFieldOutputNames();
        for (int k = 0; k < all.size(); ++k) {
            sum += static_cast<double>(frame.fieldOutputs().get(all[k]).bulkDataBlocks()[0].data()[numNodes - 1]);
        }
    }
    return sum;
}

// The same rows with the store alone: a step, frames, fields with their arrays, one description a field.

struct PlainStep
{
    fio_File file;
    lnk_ShortCut<fld_Step> step;
};

PlainStep makePlain(const std::string& path, int fields, std::vector<lnk_ShortCut<fld_FieldDescription>>& descriptions)
{
    std::filesystem::remove(path);
    PlainStep made;
    made.file = fio_File::Create(path.c_str());
    const auto& body = made.file.body();
    fld_Step step;
    step.m_name = "Step-1";
    step.m_frames = mrp_Container<fld_Frame>::create(body);
    made.step = lnk_ShortCut<fld_Step>::create(body, std::move(step));
    body->setRootObject(made.step.id());
    for (int k = 0; k < fields; ++k) {
        fld_FieldDescription description;
        description.m_label = nameOf(k);
        description.m_dataType = static_cast<int>(fld_DataTypeEnm::SCALAR);
        description.m_position = static_cast<int>(fld_OutputPositionEnm::NODAL);
        description.m_width = 1;
        description.m_length = numNodes;
        descriptions.push_back(lnk_ShortCut<fld_FieldDescription>::create(body, std::move(description)));
    }
    body->save();
    return made;
}

void writePlain(const PlainStep& plain, int frames, const std::vector<lnk_ShortCut<fld_FieldDescription>>& descriptions)
{
    const auto& body = plain.file.body();
    mrp_Container<fld_Frame> list = plain.step.fetch()->m_frames;
    int key = 0;
    for (int f = 0; f < frames; ++f) {
        fld_Frame frame;
        frame.m_value = static_cast<float>(f);
        frame.m_increment = f;
        frame.m_fields = mrp_Container<fld_Field>::create(body);
        for (std::size_t k = 0; k < descriptions.size(); ++k) {
            fio_Buffer buffer(numNodes * sizeof(float));
            auto* values = reinterpret_cast<float*>(buffer.writable());
            for (int i = 0; i < numNodes; ++i) values[i] = static_cast<float>(f + static_cast<int>(k) + i);
            fld_Field field;
            field.m_key = key;
            field.m_description = descriptions[k];
            field.m_rows = numNodes;
            field.m_width = 1;
            field.m_values.adopt(buffer);
            field.m_values.toDisk(body);
            frame.m_fields.append("1:3:" + nameOf(static_cast<int>(k)),
                                  lnk_ShortCut<fld_Field>::create(body, std::move(field)));
            frame.m_fieldKeys.push_back(key++);
        }
        list.append(std::to_string(f), lnk_ShortCut<fld_Frame>::create(body, std::move(frame)));
    }
    body->save();
}

double walkPlain(const fio_File& file)
{
    double sum = 0.0;
    const lnk_ShortCut<fld_Step> step(file.body(), file.body()->rootObject());
    const mrp_Container<fld_Frame> list = step.fetch()->m_frames;
    for (int f = 0; f < list.size(); ++f) {
        const auto frame = list.at(f).fetch();
        for (int k = 0; k < frame->m_fields.size(); ++k) {
            const auto field = frame->m_fields.at(k).fetch();
            float values[numNodes];
            field->m_values.read(0, numNodes, values);
            sum += static_cast<double>(values[numNodes - 1]);
        }
        frame->m_fields.release();
    }
    return sum;
}

void creatingFrames(benchmark::State& state)
{
    benchRatio(
        state, 0.0,
        [&] {
            std::vector<lnk_ShortCut<fld_FieldDescription>> descriptions;
            const PlainStep plain = makePlain(folder().file("plain.yld"), fieldsInFrame, descriptions);
            writePlain(plain, numFrames, descriptions);
            plain.file.body()->close();
        },
        [&] {
            yld_Yld& yld = makeDatabase(folder().file("frames.yld"));
            writeFrames(yld, numFrames, fieldsInFrame);
            yld.close();
        });
    state.counters["us/frame"] = state.counters["ours_ms"] * 1e3 / numFrames;
}
BENCHMARK(creatingFrames)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);

void walkingFrames(benchmark::State& state)
{
    const std::string plainPath = folder().file("plain.yld");
    const std::string path = folder().file("frames.yld");
    {
        std::vector<lnk_ShortCut<fld_FieldDescription>> descriptions;
        const PlainStep plain = makePlain(plainPath, fieldsInFrame, descriptions);
        writePlain(plain, numFrames, descriptions);
        plain.file.body()->close();
        yld_Yld& yld = makeDatabase(path);
        writeFrames(yld, numFrames, fieldsInFrame);
        yld.close();
    }
    double plainSum = 0.0;
    double ourSum = 0.0;
    benchRatio(
        state, 0.0,
        [&] {
            const fio_File file = fio_File::Open(plainPath.c_str(), false, true);
            plainSum = walkPlain(file);
            file.body()->close();
        },
        [&] {
            yld_Yld& yld = openYld(path.c_str(), true);
            ourSum = walkFrames(yld);
            yld.close();
        });
    if (plainSum != ourSum) state.SkipWithError("the two have not read the same");
    state.counters["us/frame"] = state.counters["ours_ms"] * 1e3 / numFrames;
}
BENCHMARK(walkingFrames)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);

// One field by its name, each time from a file that has just been opened, up to its first value. The openings are in
// both figures; the frame has 2,000 fields.
void oneFieldOfMany(benchmark::State& state)
{
    const std::string plainPath = folder().file("plain-many.yld");
    const std::string path = folder().file("many.yld");
    {
        std::vector<lnk_ShortCut<fld_FieldDescription>> descriptions;
        const PlainStep plain = makePlain(plainPath, manyFields, descriptions);
        writePlain(plain, 1, descriptions);
        plain.file.body()->close();
        yld_Yld& yld = makeDatabase(path);
        writeFrames(yld, 1, manyFields);
        yld.close();
    }
    const std::string wanted = "1:3:" + nameOf(manyFields / 2);
    const yld_String name(nameOf(manyFields / 2).c_str());
    float plainValue = -1.0F;
    float ourValue = -2.0F;
    benchRatio(
        state, 0.0,
        [&] {
            const fio_File file = fio_File::Open(plainPath.c_str(), false, true);
            const lnk_ShortCut<fld_Step> step(file.body(), file.body()->rootObject());
            const auto frame = step.fetch()->m_frames.at(0).fetch();
            const auto field = frame->m_fields.get(wanted).fetch();
            const auto description = field->m_description.fetch();
            benchmark::DoNotOptimize(description->m_length);
            field->m_values.read(0, 1, &plainValue);
            file.body()->close();
        },
        [&] {
            yld_Yld& yld = openYld(path.c_str(), true);
            ourValue = yld.steps().get("Step-1").frames(0).fieldOutputs().get(name).bulkDataBlocks()[0].data()[0];
            yld.close();
        });
    if (plainValue != ourValue) state.SkipWithError("the two have not read the same");
}
BENCHMARK(oneFieldOfMany)->UseManualTime()->Iterations(20)->Unit(benchmark::kMillisecond);

// The same in a frame that is open and whose names are known.
void oneFieldOfManyAgain(benchmark::State& state)
{
    const std::string path = folder().file("many.yld");
    const std::vector<yld_String> all = names(manyFields);
    yld_Yld& yld = openYld(path.c_str(), true);
    const fio_File file = fio_File::Open(folder().file("plain-many.yld").c_str(), false, true);
    const lnk_ShortCut<fld_Step> step(file.body(), file.body()->rootObject());
    const auto frame = step.fetch()->m_frames.at(0).fetch();
    yld.steps().get("Step-1").frames(0).fieldOutputs().getFieldOutputNames();
    frame->m_fields.get("");
    double sum = 0.0;
    benchRatio(
        state, 0.0,
        [&] {
            for (int k = 0; k < manyFields; k += 20) {
                const auto field = frame->m_fields.get("1:3:" + nameOf(k)).fetch();
                float value = 0.0F;
                field->m_values.read(0, 1, &value);
                sum += static_cast<double>(value);
            }
            frame->m_fields.release();
        },
        [&] {
            yld_Frame& ours = yld.steps().get("Step-1").frames(0);
            for (int k = 0; k < manyFields; k += 20) {
                sum -= static_cast<double>(
                    ours.fieldOutputs().get(all[static_cast<std::size_t>(k)]).bulkDataBlocks()[0].data()[0]);
            }
            yld.steps().get("Step-1").ClearFrameContainer();
        });
    if (sum != 0.0) state.SkipWithError("the two have not read the same");
    yld.close();
    file.body()->close();
}
BENCHMARK(oneFieldOfManyAgain)->UseManualTime()->Iterations(20)->Unit(benchmark::kMillisecond);

} // namespace
