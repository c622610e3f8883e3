// A client that writes histories for the tests of the tool: history_maker FILE.yld
//
// Steps, in this order: "many" with twelve curves, "odd" with a text that is none, "modes" over the frequency, "time"
// with one curve of each kind.

#include <yld.h>

#include <cmath>
#include <cstdio>
#include <exception>
#include <initializer_list>
#include <limits>

namespace {

yld_Sequence<int> ints(std::initializer_list<int> values)
{
    return yld_Sequence<int>(values.begin(), static_cast<int>(values.size()));
}

yld_HistoryOutput& curve(yld_HistoryRegion& region, const char* name, const char* description)
{
    return region.HistoryOutput(name, description, yld_Enum::SCALAR);
}

void make(const char* path)
{
    yld_Yld& db = Yld(path, "", "", path);
    yld_Part& part = db.Part("part", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
    yld_Sequence<yld_Sequence<float>> points;
    for (const float x : {0.0f, 1.0f}) {
        const float point[] = {x, 0.0f, 0.0f};
        points.append(yld_Sequence<float>(point, 3));
    }
    part.addNodes(ints({10, 20}), points);
    yld_Instance& instance = db.rootAssembly().Instance("part-1", part);

    yld_Step& many = db.Step("many", "", yld_Enum::TIME, 1.0);
    yld_HistoryRegion& whole = many.HistoryRegion("whole", "", yld_HistoryPoint(db.rootAssembly()));
    for (int i = 0; i < 12; ++i) {
        char name[16];
        std::snprintf(name, sizeof name, "c%d", i);
        yld_HistoryOutput& output = curve(whole, name, "");
        for (int k = 0; k < 3; ++k) output.addData(0.5 * k, i * k);
    }

    yld_Step& odd = db.Step("odd", "", yld_Enum::TIME, 1.0);
    yld_HistoryRegion& bytes = odd.HistoryRegion("bytes", "", yld_HistoryPoint(db.rootAssembly()));
    curve(bytes, "b", "no text [\xff]").addData(1.0, 1.0);

    yld_Step& modes = db.Step("modes", "", yld_Enum::FREQUENCY);
    modes.LoadCase("pull");
    yld_HistoryRegion& pulled =
        modes.HistoryRegion("end, \"free\"", "", instance.getNodeFromLabel(20), yld_LoadCase("pull"));
    curve(pulled, "U1", "displacement [m]").addData(10.0, 0.25);

    yld_Step& time = db.Step("time", "", yld_Enum::TIME, 2.0);
    yld_HistoryRegion& node = time.HistoryRegion("node", "", instance.getNodeFromLabel(10));
    yld_HistoryOutput& u = curve(node, "U1", "displacement [mm]");
    yld_HistoryOutput& v = curve(node, "V1", "velocity [mm/s]");
    for (int i = 0; i <= 4; ++i) {
        u.addData(0.5 * i, i * i - 2.0);
        v.addData(0.5 * i, 10.0 * i);
    }
    yld_HistoryRegion& model = time.HistoryRegion("model", "", yld_HistoryPoint(db.rootAssembly()));
    // Times that no float is.
    curve(model, "precise", "").addData(0.1, 0.1);
    const float third = 1.0f / 3.0f;
    curve(model, "rounded", "").addData(yld_Sequence<float>(&third, 1), yld_Sequence<float>(&third, 1));
    yld_HistoryOutput& gap = curve(model, "gap", "a < b & c [m/s]");
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinite = std::numeric_limits<double>::infinity();
    int at = 0;
    for (const double value : {1.0, 2.0, nan, infinite, 4.0, 5.0}) gap.addData(at++, value);
    yld_HistoryOutput& bare = curve(model, "bare", "");
    for (int i = 0; i < 3; ++i) bare.addData(i, nan);
    curve(model, "empty", "");
    yld_HistoryOutput& flat = curve(model, "flat", "");
    for (int i = 0; i < 2; ++i) flat.addData(i, 7.0);
    yld_HistoryOutput& wave = curve(model, "wave", "");
    constexpr int samples = 200000;
    for (int i = 0; i <= samples; ++i) wave.addData(static_cast<double>(i) / samples, std::sin(2000.0 * i / samples));
    saveYld(db);
    db.close();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) return 2;
    try {
        yld_initializeAPI();
        make(argv[1]);
        yld_finalizeAPI();
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "history_maker: %s\n", error.what());
        return 1;
    }
}
