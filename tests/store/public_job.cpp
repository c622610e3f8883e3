#include "public_job.h"

#include "platform/attribute/stpC_Steps.h"
#include "platform/diagnostic/dgn_DiagnosticData.h"
#include "platform/sto/sto_Frame.h"
#include "platform/sto/sto_History.h"
#include "platform/sto/sto_HistoryStep.h"
#include "platform/sto/sto_Model.h"
#include "platform/sto/sto_Result.h"
#include "platform/sto/sto_Set.h"
#include "platform/sto/sto_Step.h"
#include "platform/sto/sto_Sto.h"
#include "platform/sto/sto_StoStep.h"
#include "platform/store/fio_File.h"
#include "yld.h"

#include <initializer_list>
#include <vector>

namespace {

template<class T> yld_Sequence<T> listOf(std::initializer_list<T> items)
{
    yld_Sequence<T> all;
    for (const T& item : items) all.append(item);
    return all;
}

yld_Sequence<int> ints(std::initializer_list<int> items) { return listOf<int>(items); }
yld_Sequence<float> floats(std::initializer_list<float> items) { return listOf<float>(items); }

// Rows whose components count up from a number.
yld_Sequence<yld_Sequence<float>> rows(int count, int width, float first)
{
    yld_Sequence<yld_Sequence<float>> all;
    for (int i = 0; i < count; ++i) {
        yld_Sequence<float> row;
        for (int c = 0; c < width; ++c) row.append(first + static_cast<float>(i * width + c));
        all.append(row);
    }
    return all;
}

yld_Yld& beginSmallJob(const std::string& path)
{
    constexpr int cells = 4;
    yld_Yld& db = Yld(path.c_str(), "title", "description", path.c_str());
    yld_Part& part = db.Part("bar", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
    yld_Sequence<int> nodes;
    yld_Sequence<yld_Sequence<float>> points;
    for (int i = 0; i <= cells; ++i) {
        for (int corner = 0; corner < 4; ++corner) {
            nodes.append(4 * i + corner + 1);
            yld_Sequence<float> point;
            point.append(static_cast<float>(i));
            point.append(corner == 1 || corner == 2 ? 1.0F : 0.0F);
            point.append(corner >= 2 ? 1.0F : 0.0F);
            points.append(point);
        }
    }
    part.addNodes(nodes, points, "all nodes");
    yld_Sequence<int> elements;
    yld_Sequence<yld_Sequence<int>> connectivity;
    yld_Sequence<yld_Enum::yld_ElementFaceEnum> faces;
    for (int i = 0; i < cells; ++i) {
        elements.append(i + 1);
        faces.append(yld_Enum::FACE1);
        yld_Sequence<int> corners;
        for (int corner = 0; corner < 8; ++corner) corners.append(4 * i + corner + 1);
        connectivity.append(corners);
    }
    yld_SectionCategory& solid = db.SectionCategory("solid", "homogeneous solid");
    part.addElements(elements, connectivity, "HEX8", "all elements", solid);
    yld_Instance& instance = db.rootAssembly().Instance("bar-1", part);
    instance.NodeSet("some nodes", nodes);
    instance.ElementSet("some elements", elements);
    instance.Surface("face", elements, faces);
    for (const char* name : {"load", "unload"}) {
        yld_Step& step = db.Step(name, "a step", yld_Enum::TIME, 1.0);
        for (int increment = 1; increment <= 3; ++increment) {
            yld_Frame frame = step.Frame(increment, increment / 3.0, "increment");
            yld_Sequence<yld_Enum::yld_InvariantEnum> length;
            length.append(yld_Enum::MAGNITUDE);
            yld_FieldOutput& u =
                frame.FieldOutput("U", "displacement", yld_Enum::VECTOR, yld_Sequence<yld_String>(), length);
            yld_Sequence<yld_Sequence<float>> rows;
            for (int i = 0; i < nodes.size(); ++i) {
                yld_Sequence<float> row;
                for (int c = 0; c < 3; ++c) row.append(static_cast<float>(i * increment + c));
                rows.append(row);
            }
            u.addData(yld_Enum::NODAL, instance, nodes, rows);
            yld_Sequence<yld_Sequence<float>> energies;
            for (int i = 0; i < 8 * elements.size(); ++i) {
                const float number = static_cast<float>(i);
                energies.append(yld_Sequence<float>(&number, 1));
            }
            frame.FieldOutput("E", "energy", yld_Enum::SCALAR)
                .addData(yld_Enum::INTEGRATION_POINT, instance, elements, energies);
        }
        const auto fill = [](yld_HistoryRegion& region) {
            for (const char* variable : {"V1", "V2"}) {
                yld_HistoryOutput& output = region.HistoryOutput(variable, "a variable", yld_Enum::SCALAR);
                for (int i = 0; i < 50; ++i) output.addData(0.25 * i, i);
            }
        };
        fill(step.HistoryRegion("node", "", instance.nodes(3)));
        fill(step.HistoryRegion("point", "", yld_HistoryPoint(instance.elements(1), 2)));
        fill(step.HistoryRegion("element", "", yld_HistoryPoint(instance.elements(2))));
        fill(step.HistoryRegion("set", "", yld_HistoryPoint(instance.nodeSets().constGet("some nodes"))));
        fill(step.HistoryRegion("model", "", yld_HistoryPoint(db.rootAssembly())));
        // A second save leaves more than one run of values behind.
        saveYld(db);
        fill(step.HistoryRegion("late", "", instance.nodes(4)));
        for (const char* region : {"node", "model"}) {
            yld_HistoryOutput& output = step.historyRegions().get(region).historyOutput("V1");
            for (int i = 50; i < 70; ++i) output.addData(0.25 * i, i);
        }
    }
    return db;
}

sto_Model modelOf(const yld_Yld& db) { return db.sto().model("Default Model"); }

// A quarter turn about the third axis.
yld_Sequence<yld_Sequence<float>> turned()
{
    return listOf({floats({0, 1, 0}), floats({-1, 0, 0}), floats({0, 0, 1})});
}

void addModel(yld_Yld& db)
{
    db.setGlobalJob("the whole of it");
    db.setShellGlobalModelToSolid(true);
    db.setSolverInput("text of the model");
    db.setTopLevelSolverInput("text of the job");
    db.setCyclicSymmetry(floats({0, 0, 0}), floats({0, 0, 1}), 6, listOf<yld_String>({"tie"}));
    db.extendApi(yld_Enum::RESULT_API, yld_ApiExtension("fatigue", "cycles"));

    yld_Part& part = db.Part("plate", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
    part.addNodes(ints({10, 20, 30, 40}),
                  listOf({floats({0, 0, 0}), floats({1, 0, 0}), floats({1, 1, 0}), floats({0, 1, 0})}));
    yld_SectionCategory& shell = db.SectionCategory("shell", "a shell");
    shell.SectionPoint(1, "bottom");
    shell.SectionPoint(2, "top");
    part.addElements(ints({7}), listOf({ints({10, 20, 30, 40})}), "SHELL4", "of the part", shell);
    part.setSolverInput("text of the plate");
    yld_Assembly& assembly = db.rootAssembly();
    yld_Instance& instance = assembly.Instance(
        "plate-1", part, listOf({floats({0, 1, 0}), floats({-1, 0, 0}), floats({0, 0, 1}), floats({5, 0, 0})}));
    instance.setSolverInput("text of the placed plate");
    instance.ElementSet("of the instance", ints({7}));
    assembly.addNodes(ints({1, 2}), listOf({floats({0, 0, 0}), floats({0, 0, 5})}), "reference");
    assembly.addElements(ints({3}), listOf({ints({1, 2})}), "CONN3D2", "connected");
    assembly.setSolverInput("text of the assembly");
    const yld_Sequence<yld_String> both = listOf<yld_String>({"bar-1", "plate-1"});
    assembly.NodeSet("both", both, listOf({ints({1, 2, 3}), ints({40, 10})}), false, true);
    const yld_Set& elements = assembly.ElementSet("both", both, listOf({ints({1, 2}), ints({7})}), true);
    yld_Sequence<yld_Sequence<yld_Enum::yld_ElementFaceEnum>> faces;
    faces.append(listOf({yld_Enum::FACE3, yld_Enum::FACE4}));
    faces.append(listOf({yld_Enum::SIDE1}));
    assembly.Surface("both", both, listOf({ints({1, 2}), ints({7})}), faces);

    const yld_DatumCsys fixed = assembly.DatumCsysByThreePoints("fixed", yld_Enum::CYLINDRICAL, floats({0, 0, 0}),
                                                                floats({1, 0, 0}), floats({0, 1, 0}));
    const yld_Node a = instance.nodes(0);
    const yld_Node b = instance.nodes(1);
    const yld_Node c = instance.nodes(2);
    assembly.DatumCsysByThreeNodes("three", yld_Enum::CARTESIAN, a, b, c);
    assembly.DatumCsysBy6dofNode("one", yld_Enum::SPHERICAL, b);
    assembly.DatumCsysByThreeCircNodes("circle", yld_Enum::CARTESIAN, a, b, c);

    const yld_Section steel(modelOf(db).Section("steel", 5));
    yld_Set& ofPart = part.elementSets().get("of the part");
    part.assignSection(ofPart, steel, 0.5F);
    part.assignMaterialOrientation(ofPart, fixed, yld_Enum::AXIS_2, 15.5F, yld_Enum::STACK_DIRECTION_OF_ORIENTATION);
    part.assignRebarOrientation(ofPart, fixed, yld_Enum::AXIS_3, -20.0F);
    part.assignBeamOrientation(ofPart, yld_Enum::ORIENTATION_BY_VECTOR, floats({0.5F, 0, -1}));
    assembly.SectionAssignment(elements, steel, 0.125);
    assembly.ConnectorOrientation(elements, fixed, yld_Enum::AXIS_1, 10.0, true);
    assembly.ConnectorOrientation(elements, fixed, yld_Enum::AXIS_1, 10.0, fixed, yld_Enum::AXIS_2, 20.0);
}

void addSettings(yld_Yld& db)
{
    yld_StepRepository& steps = db.steps();
    const yld_Set& watched = db.parts().get("plate").NodeSet("watched", ints({20, 10}));
    steps.StaticStep("pull", "", "a pull", 2.5, "ON", 17, 0.125, 1e-9, 0.75, "DAMPING", 2e-4, true, "FIXED", "STEP");
    steps.StaticLinearPerturbationStep("small", "pull", "a small one", "ITERATIVE");
    steps.HeatTransferStep("warm", "small", "", "TRANSIENT", "RAMP", "AUTOMATIC", 1.5, -3, 2.5, 3.5, 4.5, 5.5, 6.5,
                           "PARABOLIC", "DIRECT");
    steps.StaticRiksStep("snap", "warm", "", "OFF", true, 1.25, false, 2.25, 5, watched, "FIXED", 6, 3.25, 4.25, 5.25,
                         6.25, "DIRECT", "LINEAR", "a free text", true, false, 7, 8, true);
    yld_MassScalingList scaling;
    scaling.append(yld_MassScaling(2.0, 0.5, 3));
    scaling.append(yld_MassScaling(watched, 3.0, 0.25, 4));
    steps.ExplicitDynamicsStep("crash", "snap", "", 0.02, "ON", true, "AUTOMATIC", yld_Union(1e-7), 0.06, 1.2, 0.9,
                               yld_Union("NONE"), scaling);

    // No public call makes a substructure; the analysis does.
    const std::shared_ptr<fio_FileBody> file = db.sto().file();
    stpC_SubstructureGenerateStep settings;
    const auto listing = [&](const std::vector<int>& dofs) {
        auto list = mrp_Container<stpC_NodalDofs>::create(file);
        list.append("", lnk_ShortCut<stpC_NodalDofs>::create(
                            file, stpC_NodalDofs(setC_Region(watched.set().shortCut()), dofs)));
        return list;
    };
    settings.m_retainedNodalDofs = listing({1, 2, 3});
    settings.m_eliminatedNodalDofs = listing({4});
    settings.m_retainedEigenModes = {1, 2, 5};
    db.sto().result().Step("sub", modelOf(db).Step(1, "sub", "", settings, "crash"), "crash");
}

void addModes(yld_Yld& db)
{
    yld_Step& step = db.Step("modes", "of vibration", yld_Enum::MODAL, 0.0, "unload");
    step.setSolverInput("text of the step");
    step.RestartRequest(3, 7, true, false);
    for (int i = 0; i < 2; ++i) {
        sto_Frame stored = step.step()->Frame("Mode 3: Freq = 12.5", 12.5F, i);
        stored.setAssociation(true);
        stored.setImaginary(i == 1);
        stored.setModeNumber(3);
    }
    const sto_HistoryStep store = step.step()->historyStep();
    fld_History like;
    like.m_type = static_cast<int>(fld_OutputPositionEnm::WHOLE_MODEL);
    like.m_label = "z";
    like.m_name = "complex";
    const sto_HistoryFloat z(store.History(like, store.Clock(), 2));
    for (int i = 0; i < 3; ++i) {
        z.clock().appendTimeValueNoBufferSeq(static_cast<double>(i));
        z.appendDataNoBufferSeq(10.0 + i, -10.0 - i);
    }
}

// Fields of all kinds of numbers, places and systems, a block or two each.
void addFields(yld_Yld& db)
{
    yld_Step& step = db.Step("kinds", "of fields", yld_Enum::TIME, 1.0, "modes");
    const yld_LoadCase pull = step.LoadCase("pull");
    yld_Frame frame = step.Frame(pull, "under load", 0.5);
    yld_Instance& bar = db.rootAssembly().instances().get("bar-1");
    yld_Instance& plate = db.rootAssembly().instances().get("plate-1");
    const yld_SectionPoint nowhere;

    frame
        .FieldOutput("S", "a stress, with systems and an imaginary half", yld_Enum::TENSOR_3D_FULL,
                     listOf<yld_String>({"S11", "S22", "S33", "S12", "S13", "S23"}),
                     listOf({yld_Enum::MISES, yld_Enum::PRESS}))
        .addData(yld_Enum::INTEGRATION_POINT, bar, ints({1, 2}), rows(16, 6, 1.0F), nowhere, turned(),
                 rows(16, 6, -99.0F));
    yld_FieldOutput& layers = frame.FieldOutput("SS", "a stress in layers", yld_Enum::TENSOR_3D_SURFACE);
    layers.addData(yld_Enum::INTEGRATION_POINT, plate, ints({7}), rows(4, 3, 1.0F), yld_SectionPoint(1, "bottom"));
    layers.addData(yld_Enum::INTEGRATION_POINT, plate, ints({7}), rows(4, 3, 13.0F), yld_SectionPoint(2, "top"));
    const int labels[] = {4, 2, 3};
    double precise[9];
    for (int i = 0; i < 9; ++i) precise[i] = 0.1 * i;
    const int shell[] = {7};
    const float system[] = {0, 1, 0, -1, 0, 0, 0, 0, 1};
    frame.FieldOutput("P", "precise in a system", yld_Enum::TENSOR_3D_PLANAR)
        .addBulkData(yld_Enum::CENTROID, plate, shell, 1, precise, 1, 4, nowhere, nullptr, system, 1);
    frame.FieldOutput("D", "precise", yld_Enum::VECTOR)
        .addBulkData(yld_Enum::NODAL, bar, labels, 3, precise, 3, 3, nowhere, precise);
    frame.FieldOutput("EN", "at the nodes of elements", yld_Enum::SCALAR)
        .addData(yld_Enum::ELEMENT_NODAL, bar, ints({3, 1}), rows(16, 1, 5.0F));
    frame.FieldOutput("F", "on a set of elements", yld_Enum::SCALAR)
        .addData(yld_Enum::INTEGRATION_POINT, bar.elementSets().get("some elements"), rows(32, 1, 7.0F));
    frame.FieldOutput("N", "on a set of nodes", yld_Enum::VECTOR)
        .addData(yld_Enum::NODAL, bar.nodeSets().get("some nodes"), rows(20, 3, 9.0F));
    frame.MatrixOutput("K", "a matrix", 3, 2).addData(yld_Enum::WHOLE_ELEMENT, plate, ints({7}), rows(1, 6, 1.0F));
    frame.SymmetricMatrixOutput("Y", "a symmetric matrix", 3)
        .addData(yld_Enum::CENTROID, plate, ints({7}), rows(1, 6, 1.0F));
    frame.FieldOutput("W", "of the model", yld_Enum::SCALAR)
        .addData(yld_Enum::WHOLE_MODEL, yld_Instance(), yld_Sequence<int>(), rows(1, 1, 42.0F));
    step.setDefaultField(frame.fieldOutputs().get("S"));
    step.setDefaultDeformedField(frame.fieldOutputs().get("N"));
    step.HistoryRegion("loaded", "", yld_HistoryPoint(plate.nodes(2)), pull)
        .HistoryOutput("V", "", yld_Enum::SCALAR)
        .addData(0.5, 2.0);
}

void addJob(yld_Yld& db)
{
    sto_Sto store = db.sto();
    store.setProductAddOns({1, 3});
    dgn_DiagnosticData diagnostics;
    diagnostics.m_jobStatus = yld_DiagnosticData::JOB_STATUS_EXITED_WITH_ERROR;
    diagnostics.m_userTime = 1.5;
    diagnostics.m_jobHistory = {0, 2, 1, 0, 1, 0, 0};
    store.setDiagnosticData(diagnostics);
    for (const char* name : {"even", "ragged"}) {
        yld_Sequence<yld_Sequence<float>> curve;
        for (int i = 0; i < 20; ++i) {
            const float row[] = {static_cast<float>(i), 0.5F * static_cast<float>(i), 1.0F};
            curve.append(yld_Sequence<float>(row, name[0] == 'e' ? 2 : i % 4));
        }
        db.userData()
            .XYData(name, yld_Enum::XY_FROM_FILE, "points.txt", "a file", "a value", "a place", "x", "y", "legend")
            .addData(curve);
    }
}

void finish(yld_Yld& db)
{
    saveYld(db);
    db.close();
}

} // namespace

void makeSmallJob(const std::string& path) { finish(beginSmallJob(path)); }

void makeWholeJob(const std::string& path)
{
    yld_Yld& db = beginSmallJob(path);
    addModel(db);
    addJob(db);
    addSettings(db);
    addModes(db);
    saveYld(db);
    addFields(db);
    finish(db);
}
