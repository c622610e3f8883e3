// Many frames with many fields are walked one frame at a time, in little memory, and what was read is given back.
//
//     frame_walk [--folder FOLDER] [--frames N] [--fields N] [--kilobytes N]
//
// 1,000 frames with 20 fields of 1 MB each take 20 GB of disk: frame_walk --frames 1000 --kilobytes 1024

#include "measured_child.h"
#include "yld.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

namespace {

#ifdef __SANITIZE_ADDRESS__
// The sanitizer's own memory counts as resident, too: what it keeps of every byte and around every block.
constexpr long long mostResidentKilobytes = 200 * 1024;
#else
constexpr long long mostResidentKilobytes = 100 * 1024;
#endif

struct Scale
{
    std::string folder = std::filesystem::temp_directory_path().string();
    int frames = 150;
    int fields = 20;
    int kilobytes = 128;
    int numNodes() const { return kilobytes * 1024 / static_cast<int>(sizeof(float)); }
};

// Exact in a float, and different in every frame and field.
float valueAt(int frame, int field, int node)
{
    return static_cast<float>((node * 31 + frame * 7919 + field * 257) & 0xffffff);
}

yld_String fieldName(int field)
{
    yld_String name("F");
    name += yld_String(field);
    return name;
}

void writeFrames(const std::string& path, const Scale& scale)
{
    yld_Yld& yld = Yld("walk", "", "", path.c_str());
    const int numNodes = scale.numNodes();
    std::vector<int> labels(static_cast<std::size_t>(numNodes));
    for (int i = 0; i < numNodes; ++i) labels[static_cast<std::size_t>(i)] = i + 1;
    {
        yld_Part& part = yld.Part("part", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
        yld_Sequence<yld_Sequence<float>> coordinates(numNodes);
        const float origin[3] = {0.0F, 0.0F, 0.0F};
        const yld_Sequence<float> row(origin, 3);
        for (int i = 0; i < numNodes; ++i) coordinates.append(row);
        part.addNodes(yld_Sequence<int>(labels.data(), numNodes), coordinates);
        yld.rootAssembly().Instance("part-1", part);
    }
    yld_Instance& instance = yld.rootAssembly().instances().get("part-1");
    std::vector<float> values(labels.size());
    for (const char* name : {"Step-1", "Step-2"}) {
        yld.Step(name, "", yld_Enum::TIME, 1.0);
        const int frames = std::strcmp(name, "Step-1") == 0 ? scale.frames : 2;
        for (int f = 0; f < frames; ++f) {
            yld_Frame frame = yld.steps().get(name).Frame(f, f);
            for (int k = 0; k < scale.fields; ++k) {
                for (int i = 0; i < numNodes; ++i) values[static_cast<std::size_t>(i)] = valueAt(f, k, i);
                frame.FieldOutput(fieldName(k), "", yld_Enum::SCALAR)
                    .addBulkData(yld_Enum::NODAL, instance, labels.data(), numNodes, values.data(), numNodes, 1);
            }
            if (f % 100 == 99) yld.save();
        }
    }
    yld.save();
    // Of what is written nothing stays: neither the values nor holes where they were.
    demand(statusNumber("VmHWM:") < mostResidentKilobytes, "writing takes too much memory");
    yld.close();
}

void readFrame(yld_Step& step, int frame, const Scale& scale)
{
    yld_Frame& read = step.frames(frame);
    for (int k = 0; k < scale.fields; ++k) {
        const yld_FieldOutput& field = read.fieldOutputs().get(fieldName(k));
        demand(field.bulkDataBlocks().size() == 1, "a field does not have one block");
        const yld_FieldBulkData& bulk = field.bulkDataBlocks()[0];
        demand(bulk.length() == scale.numNodes(), "a field has another length");
        const float* values = bulk.data();
        for (int i = 0; i < scale.numNodes(); ++i) demand(values[i] == valueAt(frame, k, i), "a value differs");
    }
}

void walkFrames(const std::string& path, const Scale& scale)
{
    yld_Yld& yld = openYld(path.c_str(), true);
    yld_Step& step = yld.steps().get("Step-1");
    demand(step.frames().size() == scale.frames, "the step has another number of frames");
    for (int f = 0; f < scale.frames; ++f) readFrame(step, f, scale);
    const long long peak = statusNumber("VmHWM:");
    std::printf("walk: %lld MB resident at most, %lld MB of them not the file's own pages now\n", peak / 1024,
                statusNumber("RssAnon:") / 1024);
    demand(peak < mostResidentKilobytes, "too much memory");
    yld.close();
}

// What an action takes is given back by another: by the process's own figure.
void giveBack(const char* what, long long wanted, const std::function<void()>& take, const std::function<void()>& give)
{
    const long long before = statusNumber("RssAnon:");
    take();
    const long long taken = statusNumber("RssAnon:") - before;
    give();
    const long long kept = statusNumber("RssAnon:") - before;
    std::printf("%s: %lld kB taken, %lld kB kept\n", what, taken, kept);
    demand(taken >= wanted * 9 / 10, "what was read is not in memory");
#ifndef __SANITIZE_ADDRESS__
    // The sanitizer keeps freed memory to find late uses of it.
    demand(kept < wanted / 4, "memory is not given back");
#endif
}

void releaseFrames(const std::string& path, const Scale& scale)
{
    yld_Yld& yld = openYld(path.c_str(), true);
    yld_StepRepositoryIT it(yld.steps());
    it.first();
    readFrame(it.currentValue(), 0, scale); // what is needed once is there from now on
    it.currentValue().ClearFrameContainer();
    const long long frame = static_cast<long long>(scale.fields) * scale.kilobytes;
    giveBack(
        "ClearFrameContainer", frame, [&] { readFrame(it.currentValue(), 1, scale); },
        [&] { it.currentValue().ClearFrameContainer(); });
    giveBack(
        "the next step", frame, [&] { readFrame(it.currentValue(), 3, scale); }, [&] { it.next(); });
    demand(std::strcmp(it.currentKey().cStr(), "Step-2") == 0, "the steps are out of order");
    readFrame(it.currentValue(), 1, scale);
    it.next();
    demand(it.isDone(), "there are more steps");
    yld.close();
}

// In a process of its own, so that its memory is its own.
bool inLibrary(const char* what, const std::function<void()>& function)
{
    std::fflush(stdout);
    return inChild(what, [&] {
        yld_initializeAPI();
        function();
        yld_finalizeAPI();
    });
}

} // namespace

int main(int count, char** arguments)
{
    Scale scale;
    for (int i = 1; i + 1 < count; i += 2) {
        const std::string word = arguments[i];
        const char* value = arguments[i + 1];
        if (word == "--folder") scale.folder = value;
        else if (word == "--frames") scale.frames = std::atoi(value);
        else if (word == "--fields") scale.fields = std::atoi(value);
        else if (word == "--kilobytes") scale.kilobytes = std::atoi(value);
        else {
            std::fprintf(stderr, "%s is not known\n", word.c_str());
            return 2;
        }
    }
    if (scale.frames < 4 || scale.fields < 1 || scale.kilobytes < 1) {
        std::fprintf(stderr, "at least 4 frames, 1 field and 1 kilobyte\n");
        return 2;
    }
    std::string folder = (std::filesystem::path(scale.folder) / "yld-walk-XXXXXX").string();
    if (!mkdtemp(folder.data())) {
        std::perror(folder.c_str());
        return 2;
    }
    const std::string path = folder + "/walk.yld";
    const bool good = inLibrary("write", [&] { writeFrames(path, scale); }) &&
                      inLibrary("walk", [&] { walkFrames(path, scale); }) &&
                      inLibrary("release", [&] { releaseFrames(path, scale); });
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
    return good ? 0 : 1;
}
