// Opens the results that cantilever_analysis wrote, walks model, steps and frames, and holds the numbers
// against beam theory.
//
//     cantilever_report FILE.yld

#include "cantilever.h"

#include <yld.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <exception>
#include <map>
#include <stdexcept>
#include <string>

namespace {

void printModel(yld_Yld& db)
{
    std::printf("%s: %s\n", db.path().cStr(), db.analysisTitle().cStr());
    const yld_InstanceRepository& instances = db.rootAssembly().instances();
    const yld_Sequence<yld_String> names = instances.keys();
    for (int i = 0; i < names.size(); ++i) {
        const yld_Instance& instance = instances.constGet(names[i]);
        std::printf("  instance %s of part %s: %d nodes, %d elements\n", names[i].cStr(), instance.partName().cStr(),
                    instance.nodes().size(), instance.elements().size());
        const yld_Sequence<yld_ElementClass>& classes = instance.elementClasses();
        for (int c = 0; c < classes.size(); ++c)
            std::printf("    %d elements of type %s, %d integration points each\n", classes[c].numElements(),
                        classes[c].typeLabel().cStr(), classes[c].numIntegrationPointsPerElement());
    }
}

// Reads a field twice, value by value and in bulk, and hands each value to `visit`. The two ways must give
// the same bits at the same places in the same order.
template<class Visit> void walk(const yld_FieldOutput& field, long& compared, const Visit& visit)
{
    const yld_SequenceFieldBulkData& blocks = field.bulkDataBlocks();
    int index = 0;
    for (int b = 0; b < blocks.size(); ++b) {
        const yld_FieldBulkData& block = blocks.constGet(b);
        const int* const nodes = block.nodeLabels();
        const int* const elements = block.elementLabels();
        const int* const points = block.integrationPoints();
        for (int row = 0; row < block.length(); ++row, ++index) {
            const yld_FieldValue value = field.values(index);
            const bool samePlace = (nodes == nullptr || nodes[row] == value.nodeLabel()) &&
                                   (elements == nullptr || elements[row] == value.elementLabel()) &&
                                   (points == nullptr || points[row] == value.integrationPoint());
            const auto width = static_cast<std::size_t>(block.width());
            if (!samePlace || value.data().length() != block.width() ||
                std::memcmp(value.data().floatData(), block.data() + width * static_cast<std::size_t>(row),
                            width * sizeof(float)) != 0)
                throw std::runtime_error(std::string("value ") + std::to_string(index) + " of " + field.name().cStr() +
                                         " read alone and in bulk differ");
            visit(value, block, row);
            ++compared;
        }
    }
    if (index != field.values().size())
        throw std::runtime_error(std::string("the bulk data of ") + field.name().cStr() + " are not all of its values");
}

// The mean displacement of the tip set across the bar, downwards.
double tipDeflection(const yld_Frame& frame, const yld_Instance& instance, long& compared)
{
    std::map<int, float> down;
    walk(frame.fieldOutputs().get("U"), compared, [&](const yld_FieldValue& value, const yld_FieldBulkData&, int) {
        down[value.nodeLabel()] = -value.data().floatData()[2];
    });
    const yld_SequenceNode& tip = instance.nodeSets().constGet("tip").nodes();
    double sum = 0.0;
    for (int i = 0; i < tip.size(); ++i) sum += static_cast<double>(down.at(tip[static_cast<unsigned>(i)].label()));
    return sum / tip.size();
}

struct Peak
{
    float mises = -1.0f;
    int element = 0;
    int point = 0;
};

Peak largestMises(const yld_Frame& frame, long& compared)
{
    Peak peak;
    walk(frame.fieldOutputs().get("S"), compared,
         [&](const yld_FieldValue& value, const yld_FieldBulkData& block, int row) {
             const float mises = value.mises();
             if (std::abs(mises - block.mises()[row]) > 1e-6f * mises)
                 throw std::runtime_error("the Mises stress of one value and in bulk differ");
             if (mises > peak.mises) peak = {mises, value.elementLabel(), value.integrationPoint()};
         });
    return peak;
}

struct Place
{
    double x = 0.0;
    double z = 0.0;
};

// Where an integration point lies: trilinear interpolation between the corners of its element.
Place placeOf(const yld_Instance& instance, const Peak& peak)
{
    const yld_Element element = instance.getElementFromLabel(peak.element);
    const yld_Sequence<int> corners = element.connectivity();
    const double side = 1.0 / std::sqrt(3.0);
    const int point = peak.point - 1;
    const double at[3] = {point & 1 ? side : -side, point & 2 ? side : -side, point & 4 ? side : -side};
    Place place;
    for (int i = 0; i < corners.size(); ++i) {
        const double signs[3] = {i % 4 == 1 || i % 4 == 2 ? 1.0 : -1.0, i % 4 >= 2 ? 1.0 : -1.0, i >= 4 ? 1.0 : -1.0};
        double weight = 0.125;
        for (int axis = 0; axis < 3; ++axis) weight *= 1.0 + signs[axis] * at[axis];
        const yld_Node node = instance.getNodeFromLabel(corners[i]);
        place.x += weight * node.coordinate(0);
        place.z += weight * node.coordinate(2);
    }
    return place;
}

// The curves that the analysis wrote along the way: the deflection must be that of the frames, the reaction the load.
void printHistory(const yld_Step& step, double deflection, double force)
{
    const auto& regions = step.historyRegions();
    const yld_Sequence<yld_String> names = regions.keys();
    for (int r = 0; r < names.size(); ++r) {
        const yld_HistoryRegion& region = regions.constGet(names[r]);
        const yld_Sequence<yld_String> outputs = region.historyOutputs().keys();
        for (int o = 0; o < outputs.size(); ++o) {
            const yld_HistoryOutput& output = region.historyOutput(outputs[o]);
            const yld_Sequence<yld_Sequence<float>> pairs = output.data();
            const auto last = static_cast<double>(pairs[pairs.size() - 1][1]);
            const double expected = output.name() == "reaction" ? force : deflection;
            std::printf("history %s of %s: %s; %d pairs, %.6g at the end, difference %.4f%%\n", output.name().cStr(),
                        region.name().cStr(), output.description().cStr(), pairs.size(), last,
                        100.0 * (last - expected) / expected);
        }
    }
}

void report(const char* path)
{
    yld_Yld& db = openYld(path, true);
    printModel(db);
    const yld_Instance& instance = db.rootAssembly().instances().constGet("bar-1");
    long compared = 0;
    const yld_Sequence<yld_String> steps = db.steps().stepNames();
    for (int i = 0; i < steps.size(); ++i) {
        yld_Step& step = db.steps().get(steps[i]);
        std::printf("step %s: %s, %d frames\n", steps[i].cStr(), step.description().cStr(), step.frames().size());
        std::printf("  %9s %14s %14s %14s %11s\n", "increment", "load", "tip deflection", "beam theory", "difference");
        for (int f = 0; f < step.frames().size(); ++f) {
            const yld_Frame& frame = step.frames(f);
            const double force = frame.frameValue() * Cantilever::load;
            const double deflection = tipDeflection(frame, instance, compared);
            const double theory = Cantilever::deflection(force);
            std::printf("  %9d %14.6g %14.6g %14.6g %10.3f%%\n", frame.incrementNumber(), force, deflection, theory,
                        100.0 * (deflection - theory) / theory);
        }
        const yld_Frame& last = step.frames(step.frames().size() - 1);
        const double force = last.frameValue() * Cantilever::load;
        const double deflection = tipDeflection(last, instance, compared);
        const double bending = Cantilever::bendingDeflection(force);
        const double theory = Cantilever::deflection(force);
        std::printf("tip deflection %.6g; bending alone (Euler-Bernoulli) %.6g, difference %.3f%%; "
                    "with shear (Timoshenko) %.6g, difference %.3f%%\n",
                    deflection, bending, 100.0 * (deflection - bending) / bending, theory,
                    100.0 * (deflection - theory) / theory);
        printHistory(step, deflection, force);
        const Peak peak = largestMises(last, compared);
        const Place place = placeOf(instance, peak);
        const double expected = Cantilever::mises(force, place.x, place.z);
        std::printf("largest Mises stress %.6g in element %d at integration point %d (x %.4g, z %.4g); "
                    "beam theory there %.6g, difference %.3f%%\n",
                    static_cast<double>(peak.mises), peak.element, peak.point, place.x, place.z, expected,
                    100.0 * (static_cast<double>(peak.mises) - expected) / expected);
    }
    std::printf("%ld values read in bulk agree with those read one by one\n", compared);
    db.close();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 2 && std::strcmp(argv[1], "--help") == 0) {
        std::puts(
            "usage: cantilever_report FILE.yld\n\n"
            "Reads the results that cantilever_analysis wrote, one by one and in bulk, and compares them with beam\n"
            "theory. Exit status: 0 done, 1 the results could not be read, 2 the arguments are wrong.");
        return 0;
    }
    if (argc != 2) {
        std::fprintf(stderr, "cantilever_report: usage: cantilever_report FILE.yld\n");
        return 2;
    }
    try {
        yld_initializeAPI();
        report(argv[1]);
        yld_finalizeAPI();
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "cantilever_report: %s\n", error.what());
        return 1;
    }
}
