// Prints what `yld` and mesh_dump leave out of a database, a line each, read by an ordinary client; then reads all that
// a client can reach and counts it; then, with "write", adds a little of each kind and saves.

#include "store/public_walk.h"

#include <yld.h>

#include <cstdio>
#include <cstring>
#include <exception>
#include <string>

namespace {

template<class Number> std::string listed(const Number* numbers, long long count)
{
    std::string text;
    char one[40];
    for (long long i = 0; i < count; ++i) {
        std::snprintf(one, sizeof one, " %.9g", static_cast<double>(numbers[i]));
        text += one;
    }
    return text;
}

template<class Number> std::string listed(const yld_Sequence<Number>& numbers)
{
    std::string text;
    for (int i = 0; i < numbers.size(); ++i) {
        const auto number = static_cast<double>(numbers[i]);
        text += listed(&number, 1);
    }
    return text;
}

void printJob(const yld_Yld& db)
{
    std::printf("global job: %s\n", db.globalJob().cStr());
    std::printf("inputs: %s, %s\n", db.solverInput().cStr(), db.topLevelSolverInput().cStr());
    std::printf("sectors: %d\n", db.sectorDefinition().numSymmetricSectors());
    const yld_DiagnosticData diagnostics = db.diagnosticData();
    std::printf("exited with error: %d\n", diagnostics.jobStatus() == yld_DiagnosticData::JOB_STATUS_EXITED_WITH_ERROR);
    std::printf("user time: %.9g\n", diagnostics.jobTime().userTime());
    std::printf("job history:%s\n", listed(diagnostics.jobHistoryDescription()).c_str());
    for (const char* name : {"even", "ragged"}) {
        const yld_UserXYData& curve = db.userData().xyDataObjects(name);
        std::printf("curve %s: %s, %s, %s\n", name, curve.sourceFileName().cStr(), curve.xAxisLabel().cStr(),
                    curve.legendLabel().cStr());
        const yld_Sequence<yld_Sequence<float>>& data = curve.getData();
        for (int i = 0; i < data.size(); ++i) std::printf("curve %s %d:%s\n", name, i, listed(data[i]).c_str());
    }
}

void printModel(yld_Yld& db)
{
    const yld_Assembly& assembly = db.rootAssembly();
    const yld_Instance& placed = assembly.instances().constGet("plate-1");
    std::printf("inputs of the model: %s, %s, %s\n", db.parts().get("plate").solverInput().cStr(),
                assembly.solverInput().cStr(), placed.solverInput().cStr());
    std::printf("part of plate-1: %s\n", placed.partName().cStr());
    const yld_SectionCategory shell = placed.elements(0).sectionCategory();
    std::printf("section of plate-1: %s\n", shell.name().cStr());
    const yld_Sequence<yld_SectionPoint>& points = shell.sectionPoints();
    for (int i = 0; i < points.size(); ++i)
        std::printf("section point: %d %s\n", points[i].number(), points[i].description().cStr());
    for (int i = 0; i < assembly.nodes().size(); ++i) {
        const yld_Node node = assembly.nodes(i);
        std::printf("node of the assembly: %d%s\n", node.label(), listed(node.coordinates(), 3).c_str());
    }
    const yld_Element element = assembly.elements(0);
    std::printf("element of the assembly: %d %s%s\n", element.label(), element.type().cStr(),
                listed(element.connectivity()).c_str());
    const yld_Set& surface = assembly.surfaces().constGet("both");
    for (const char* name : {"bar-1", "plate-1"}) {
        const yld_SequenceElement& members = surface.elements(name);
        for (int i = 0; i < members.size(); ++i) {
            std::printf("surface both: %s %d %d\n", name, members[static_cast<unsigned>(i)].label(),
                        static_cast<int>(surface.faces(name)[i]));
        }
    }
    const yld_DatumCsys& fixed = assembly.datumCsyses().constGet("fixed");
    std::printf("fixed is cylindrical: %d\n", fixed.type() == yld_Enum::CYLINDRICAL);
    for (const float* axis : {fixed.origin(), fixed.xAxis(), fixed.yAxis(), fixed.zAxis()})
        std::printf("axis of fixed:%s\n", listed(axis, 3).c_str());
}

void printSteps(yld_Yld& db)
{
    const yld_Sequence<yld_String> names = db.steps().stepNames();
    for (int i = 0; i < names.size(); ++i) {
        const yld_Step& step = db.steps().get(names[i]);
        std::printf("step %s: %s, after %s, input %s\n", names[i].cStr(), step.description().cStr(),
                    step.previousStepName().cStr(), step.solverInput().cStr());
    }
    yld_Step& modes = db.steps().get("modes");
    for (int i = 0; i < modes.frames().size(); ++i) {
        const yld_Frame frame = modes.frames(i);
        std::printf("mode: %d imaginary %d with frame %d\n", frame.mode(), frame.isImaginary(),
                    frame.associatedFrame().frameIndex());
    }
    const yld_Frame frame = db.steps().get("kinds").frames(0);
    std::printf("load case: %s\n", frame.loadCase().name().cStr());
    const yld_FieldBulkData& stress = frame.fieldOutputs().constGet("S").bulkDataBlocks()[0];
    std::printf("S, imaginary:%s\n", listed(stress.conjugateData(), 6).c_str());
    const yld_FieldBulkData& precise = frame.fieldOutputs().constGet("D").bulkDataBlocks()[0];
    std::printf("D, imaginary:%s\n", listed(precise.conjugateDataDouble(), 9).c_str());
    std::printf("sub, dofs:%s and%s, modes%s\n", listed(db.steps().get("sub").retainedNodalDofs()[0].dofs()).c_str(),
                listed(db.steps().get("sub").eliminatedNodalDofs()[0].dofs()).c_str(),
                listed(db.steps().get("sub").retainedEigenModes()).c_str());
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2) return 2;
    try {
        yld_initializeAPI();
        yld_Yld& db = openYld(argv[1], true);
        printJob(db);
        printModel(db);
        printSteps(db);
        db.close();
        const PublicWalk seen = PublicWalk::of(argv[1], argc > 2 && std::strcmp(argv[2], "write") == 0);
        std::printf("nodes %lld, elements %lld, datums %lld, steps %lld, frames %lld, pairs %lld, fields %lld\n",
                    seen.nodes, seen.elements, seen.datums, seen.steps, seen.frames, seen.pairs, seen.fields);
        std::printf(
            "values %lld, bulk %lld, regions %lld, curves %lld, points %lld, rows %lld, dofs %lld, load cases %lld\n",
            seen.values, seen.bulk, seen.regions, seen.curves, seen.points, seen.rows, seen.dofs, seen.loadCases);
        yld_finalizeAPI();
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "layout_dump: %s\n", error.what());
        return 1;
    }
}
