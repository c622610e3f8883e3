// Databases that lie, walked whole by a client of the public classes.

#include "hostile_files.h"
#include "yld.h"

namespace {

class Library
{
public:
    Library() { yld_initializeAPI(); }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    ~Library() { yld_finalizeAPI(); }
};

// Two steps on a row of brick elements, with sets, a surface, and fields at nodes and integration points.
void makeJob(const std::string& path)
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
    saveYld(db);
    db.close();
}

struct Seen
{
    long long nodes = 0;
    long long elements = 0;
    long long members = 0;
    long long frames = 0;
    long long values = 0;
    long long bulk = 0;
    long long curves = 0;
    long long pairs = 0;
    long long chosen = 0;
    long long points = 0;
    double sum = 0.0;
};

void walkSets(const yld_SetRepository& sets, Seen& seen)
{
    const yld_Sequence<yld_String> names = sets.keys();
    for (int s = 0; s < names.size(); ++s) {
        const yld_Set& set = sets.constGet(names[s]);
        if (set.size() == 0) continue;
        seen.members += set.size();
        if (set.type() == yld_Enum::NODE_SET) {
            for (int i = 0; i < set.nodes().size(); ++i) seen.sum += set.nodes()[static_cast<unsigned>(i)].label();
        } else {
            for (int i = 0; i < set.elements().size(); ++i) {
                seen.sum += set.elements()[static_cast<unsigned>(i)].label();
            }
            if (set.type() != yld_Enum::SURFACE_SET) continue;
            for (int i = 0; i < set.faces().size(); ++i) seen.sum += static_cast<int>(set.faces()[i]);
        }
    }
}

void walkEntity(const yld_DiscreteEntity& entity, Seen& seen)
{
    for (int i = 0; i < entity.nodes().size(); ++i) {
        const yld_Node node = entity.nodes(i);
        seen.sum += node.label();
        for (int c = 0; c < 3; ++c) seen.sum += static_cast<double>(node.coordinate(c));
        ++seen.nodes;
    }
    for (int i = 0; i < entity.elements().size(); ++i) {
        const yld_Element element = entity.elements(i);
        seen.sum += element.label() + element.type().length();
        const yld_Sequence<int> nodes = element.connectivity();
        for (int n = 0; n < nodes.size(); ++n) seen.sum += nodes[n];
        ++seen.elements;
    }
    walkSets(entity.nodeSets(true, true), seen);
    walkSets(entity.elementSets(true, true), seen);
    walkSets(entity.surfaces(true), seen);
}

void walkField(const yld_FieldOutput& field, Seen& seen)
{
    seen.sum += field.description().length() + field.componentLabels().size() + field.locations().size();
    for (int i = 0; i < field.values().size(); ++i) {
        const yld_FieldValue value = field.values(i);
        seen.sum += static_cast<double>(value.precision());
        ++seen.values;
    }
    const yld_SequenceFieldBulkData& blocks = field.bulkDataBlocks();
    for (int b = 0; b < blocks.size(); ++b) {
        const yld_FieldBulkData& block = blocks[b];
        const long long count = static_cast<long long>(block.length()) * block.width();
        if (const float* data = block.data()) {
            for (long long i = 0; i < count; ++i) seen.sum += static_cast<double>(data[i]);
            seen.bulk += count;
        }
        if (const int* labels = block.nodeLabels()) {
            for (int i = 0; i < block.length(); ++i) seen.sum += labels[i];
        }
    }
}

void walkHistory(const yld_Step& step, Seen& seen)
{
    yld_RepositoryIT<yld_String, yld_HistoryRegionPers> region(step.historyRegions());
    for (region.first(); !region.isDone(); region.next()) {
        const yld_HistoryPoint& point = region.currentValue().historyPoint();
        seen.sum += point.longText().length() + point.shortText().length() + point.position();
        yld_RepositoryIT<yld_String, yld_HistoryOutput> output(region.currentValue().historyOutputs());
        for (output.first(); !output.isDone(); output.next()) {
            const yld_HistoryOutput& curve = output.currentValue();
            const yld_Sequence<yld_Sequence<float>> pairs = curve.data();
            const auto count = static_cast<std::size_t>(curve.dataSize());
            std::vector<double> times(count);
            std::vector<float> values(count);
            curve.readData(0, curve.dataSize(), times.data(), values.data());
            for (std::size_t i = 0; i < count; ++i) seen.sum += times[i] + static_cast<double>(values[i]);
            seen.sum += curve.conjugateData().size() + curve.getSubset(1.0).data().size();
            seen.pairs += pairs.size();
            ++seen.curves;
        }
    }
}

// Parts of a field, as far as the file has sets, elements and nodes to choose by.
void walkSubsets(const yld_FieldOutput& field, const yld_Instance& instance, Seen& seen)
{
    const auto walk = [&seen](const yld_FieldOutput& subset) {
        if (subset.values().size() > 0) {
            // A field that lies may say that its values have no components.
            const yld_FieldValueData last = subset.values(subset.values().size() - 1).data();
            for (int c = 0; c < last.length(); ++c) seen.sum += last[c];
        }
        seen.sum += subset.bulkDataBlocks().size();
        seen.chosen += subset.values().size();
    };
    const auto walkSets = [&](const yld_SetRepository& sets) {
        const yld_Sequence<yld_String> names = sets.keys();
        for (int i = 0; i < names.size(); ++i) walk(field.getSubset(sets.constGet(names[i])));
    };
    walkSets(instance.nodeSets(true, true));
    walkSets(instance.elementSets(true, true));
    if (instance.nodes().size() > 0) walk(field.getSubset(instance.nodes(0)));
    if (instance.elements().size() > 0) walk(field.getSubset(instance.elements(0)));
    walk(field.getSubset(instance));
    walk(field.getSubset(yld_String("HEX8")));
    walk(field.getSubset(yld_Sequence<yld_Sequence<float>>()));
}

Seen walkJob(const std::string& path)
{
    Seen seen;
    yld_Yld& db = openYld(path.c_str(), true);
    try {
        seen.sum += db.analysisTitle().length() + db.description().length();
        yld_PartRepository& parts = db.parts();
        const yld_Sequence<yld_String> partNames = parts.keys();
        for (int p = 0; p < partNames.size(); ++p) walkEntity(parts.constGet(partNames[p]), seen);
        const yld_Sequence<yld_String> categories = db.sectionCategories().keys();
        for (int c = 0; c < categories.size(); ++c) {
            seen.sum += db.sectionCategories().constGet(categories[c]).description().length();
        }
        const yld_Assembly& assembly = db.rootAssembly();
        walkEntity(assembly, seen);
        const yld_Sequence<yld_String> instances = assembly.instances().keys();
        for (int i = 0; i < instances.size(); ++i) walkEntity(assembly.instances().constGet(instances[i]), seen);
        yld_RepositoryIT<yld_String, yld_UserXYData> curve(db.userData().xyDataObjects());
        for (curve.first(); !curve.isDone(); curve.next()) {
            const yld_Sequence<yld_Sequence<float>>& data = curve.currentValue().getData();
            for (int i = 0; i < data.size(); ++i) {
                for (int c = 0; c < data[i].size(); ++c) seen.sum += static_cast<double>(data[i][c]);
            }
            seen.sum += curve.currentValue().description().length();
            seen.points += data.size();
        }
        seen.sum += static_cast<double>(db.jobData().creationTime());
        seen.sum += db.diagnosticData().jobTime().userTime() + db.boundaryConditions().size() + db.contactControls().size();
        const yld_Sequence<yld_String> steps = db.steps().stepNames();
        for (int s = 0; s < steps.size(); ++s) {
            const yld_Step& step = db.steps().constGet(steps[s]);
            seen.sum += step.totalTime() + step.description().length();
            for (int f = 0; f < step.frames().size(); ++f) {
                const yld_Frame frame = step.frames(f);
                seen.sum += frame.frameValue() + frame.description().length();
                ++seen.frames;
                const yld_Sequence<yld_String> fields = frame.fieldOutputs().getFieldOutputNames();
                for (int n = 0; n < fields.size(); ++n) {
                    const yld_FieldOutput& field = frame.fieldOutputs().constGet(fields[n]);
                    walkField(field, seen);
                    for (int i = 0; i < instances.size(); ++i) {
                        walkSubsets(field, assembly.instances().constGet(instances[i]), seen);
                    }
                }
            }
            walkHistory(step, seen);
        }
    } catch (...) {
        db.close();
        throw;
    }
    db.close();
    return seen;
}

std::string jobBytes()
{
    const Library library;
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    makeJob(path);
    return bytesOf(path);
}

class fio_PublicWalk : public ::testing::Test
{
protected:
    void expectDataOrOneException(int count, void (Mutation::*mutate)(const std::string&), int leastRefused)
    {
        const std::string original = jobBytes();
        const Outcome outcome = openAll(
            count,
            [&](unsigned number, const std::string& path) { (Mutation(original, number).*mutate)(path); },
            [](unsigned, const std::string& path) {
                const Library library;
                walkJob(path);
            },
            false);
        std::printf("%d files: %d gave data, %d were refused, the slowest took %.3f s\n", count, outcome.data,
                    outcome.refused, outcome.slowest);
        for (const std::string& failure : outcome.failures) ADD_FAILURE() << failure;
        EXPECT_EQ(outcome.data + outcome.refused + static_cast<int>(outcome.failures.size()), count);
        EXPECT_GE(outcome.refused, leastRefused);
        EXPECT_GT(outcome.data, 0);
    }
};

} // namespace

TEST_F(fio_PublicWalk, theTrueJobIsWalkedWhole)
{
    const ScratchFolder folder;
    const std::string path = folder.file("job.yld");
    putBytes(path, jobBytes());
    const Library library;
    const Seen seen = walkJob(path);
    EXPECT_EQ(seen.nodes, 2 * 20);
    EXPECT_EQ(seen.elements, 2 * 4);
    EXPECT_GE(seen.members, 20 + 4 + 4);
    EXPECT_EQ(seen.frames, 6);
    EXPECT_EQ(seen.values, 6 * (20 + 32));
    EXPECT_EQ(seen.bulk, 6 * (20 * 3 + 32));
    // Of the nodal values twice all by node sets, one node, the instance, and those of no system; of the others all by
    // two element sets, one element, the instance, the type, and those of no system.
    // The points with history are sets of their own: two nodes, and two elements with 8 values each.
    EXPECT_EQ(seen.chosen, 6 * (2 * 20 + 1 + 20 + 20 + 2 * 32 + 8 + 32 + 32 + 32 + 2 * 1 + 2 * 8));
    EXPECT_EQ(seen.points, 2 * 20);
    EXPECT_EQ(seen.curves, 2 * 12);
    EXPECT_EQ(seen.pairs, 2 * (12 * 50 + 2 * 20));
}

TEST_F(fio_PublicWalk, bitsBytesPagesAndLengths) { expectDataOrOneException(1200, &Mutation::bytes, 200); }
TEST_F(fio_PublicWalk, rowsThatLie) { expectDataOrOneException(900, &Mutation::rows, 100); }
TEST_F(fio_PublicWalk, tablesAndColumnsMissingOrOfOtherKinds) { expectDataOrOneException(300, &Mutation::schema, 50); }
TEST_F(fio_PublicWalk, countsCirclesAndLists) { expectDataOrOneException(800, &Mutation::structure, 100); }
TEST_F(fio_PublicWalk, databasesOfOthersUnderOurSign) { expectDataOrOneException(60, &Mutation::foreign, 20); }
