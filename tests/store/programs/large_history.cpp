// A curve of ten million pairs, and ten thousand curves of a thousand pairs in one step, in little memory: appended
// pair by pair, as solvers do, and read back in pieces.
//
//     large_history [FOLDER]

#include "measured_child.h"
#include "yld.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <vector>

namespace {

constexpr int longPairs = 10000000;
constexpr int savesInLong = 5;
constexpr int curves = 10000;
constexpr int pairsInCurve = 1000;

// Exact in a float, and different in every curve.
float valueAt(int curve, int i) { return static_cast<float>((i * 31LL + curve * 7919LL) & 0xffffff); }

class Library
{
public:
    Library() { yld_initializeAPI(); }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    ~Library() { yld_finalizeAPI(); }
};

void writeLong(const std::string& path)
{
    const Library library;
    yld_Yld& db = Yld(path.c_str(), "", "", path.c_str());
    yld_Step& step = db.Step("long", "", yld_Enum::TIME, 1.0);
    yld_HistoryOutput& output =
        step.HistoryRegion("model", "", yld_HistoryPoint(db.rootAssembly())).HistoryOutput("v", "", yld_Enum::SCALAR);
    for (int i = 0; i < longPairs; ++i) {
        output.addData(0.1 * i, static_cast<double>(valueAt(0, i)));
        if ((i + 1) % (longPairs / savesInLong) == 0) db.save();
    }
    db.close();
}

void checkCurve(const yld_HistoryOutput& output, int curve, int pairs)
{
    demand(output.dataSize() == pairs, "a curve has another number of pairs");
    constexpr int piece = 100000;
    std::vector<double> times(piece);
    std::vector<float> values(piece);
    for (int from = 0; from < pairs; from += piece) {
        const int count = pairs - from < piece ? pairs - from : piece;
        output.readData(from, count, times.data(), values.data());
        for (int i = 0; i < count; ++i) {
            demand(times[static_cast<std::size_t>(i)] == 0.1 * (from + i), "a time differs");
            demand(values[static_cast<std::size_t>(i)] == valueAt(curve, from + i), "a value differs");
        }
    }
}

void readLong(const std::string& path)
{
    const Library library;
    yld_Yld& db = openYld(path.c_str(), true);
    checkCurve(db.steps().get("long").historyRegions().get("model").historyOutput("v"), 0, longPairs);
    db.close();
}

std::string nameOf(int curve) { return "curve " + std::to_string(curve); }

void writeMany(const std::string& path)
{
    const Library library;
    yld_Yld& db = Yld(path.c_str(), "", "", path.c_str());
    yld_Part& part = db.Part("part", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
    yld_Sequence<int> labels;
    yld_Sequence<yld_Sequence<float>> points;
    for (int i = 0; i < curves; ++i) {
        const float point[] = {static_cast<float>(i), 0.0F, 0.0F};
        labels.append(i + 1);
        points.append(yld_Sequence<float>(point, 3));
    }
    part.addNodes(labels, points);
    const yld_Instance& instance = db.rootAssembly().Instance("part-1", part);
    yld_Step& step = db.Step("many", "", yld_Enum::TIME, 1.0);
    std::vector<yld_HistoryOutput*> outputs;
    for (int i = 0; i < curves; ++i) {
        outputs.push_back(
            &step.HistoryRegion(nameOf(i).c_str(), "", instance.nodes(i)).HistoryOutput("v", "", yld_Enum::SCALAR));
    }
    for (int k = 0; k < pairsInCurve; ++k) {
        for (int i = 0; i < curves; ++i) {
            outputs[static_cast<std::size_t>(i)]->addData(0.1 * k, static_cast<double>(valueAt(i, k)));
        }
    }
    db.save();
    db.close();
}

void readMany(const std::string& path)
{
    const Library library;
    yld_Yld& db = openYld(path.c_str(), true);
    const auto& regions = db.steps().get("many").historyRegions();
    demand(regions.size() == curves, "the step has another number of regions");
    for (int i = 0; i < curves; ++i)
        checkCurve(regions.constGet(nameOf(i).c_str()).historyOutput("v"), i, pairsInCurve);
    db.close();
}

} // namespace

int main(int count, char** arguments)
{
    const std::filesystem::path parent =
        count > 1 ? std::filesystem::path(arguments[1]) : std::filesystem::temp_directory_path();
    std::string folder = (parent / "yld-history-XXXXXX").string();
    if (!mkdtemp(folder.data())) {
        std::fprintf(stderr, "%s: %s\n", folder.c_str(), std::strerror(errno));
        return 2;
    }
    const std::string longPath = folder + "/long.yld";
    const std::string manyPath = folder + "/many.yld";
    const bool good = inChild("write one long curve", [&] { writeLong(longPath); }) &&
                      inChild("read one long curve", [&] { readLong(longPath); }) &&
                      inChild("write many curves", [&] { writeMany(manyPath); }) &&
                      inChild("read many curves", [&] { readMany(manyPath); });
    if (good) {
        std::printf(
            "%llu and %llu bytes a pair on disk\n",
            static_cast<unsigned long long>(std::filesystem::file_size(longPath) / longPairs),
            static_cast<unsigned long long>(std::filesystem::file_size(manyPath) / (1ULL * curves * pairsInCurve)));
    }
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
    return good ? 0 : 1;
}
