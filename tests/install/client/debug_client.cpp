// The same somebody's program in the making: nothing is inlined, so each member that the library has compiled for its
// clients is called where the library keeps it, and one that is missing there fails the link.
#include <yld.h>

#include "public_walk.h"

#include <cstdio>
#include <exception>
#include <sstream>

namespace {

int failures = 0;

#define DEMAND(...)                                                                                                    \
    do {                                                                                                               \
        if (!(__VA_ARGS__)) {                                                                                          \
            std::printf("line %d: %s\n", __LINE__, #__VA_ARGS__);                                                      \
            ++failures;                                                                                                \
        }                                                                                                              \
    } while (false)

// Every member of an array, a list and a sequence; a and b differ.
template<class T> void useSequence(const T& a, const T& b)
{
    using Stored = typename yld_Stored<T>::Type;
    const T both[] = {a, b};
    yld_Sequence<T> list(both, 2);
    const yld_Sequence<T> same(list);
    DEMAND(list.size() == 2 && !list.isEmpty() && list.allocatedSize() >= 2);
    DEMAND(list.isEqual(same) && list == same);
    list.append(a);
    DEMAND(list.findFirst(b) == 1 && list.isMember(a) && list.FindLast(a) == 3);
    DEMAND(list.insert(0, b) && list.constGet(0) == b && list[1] == a && list.get(3) == a);
    DEMAND(list.remove(0) && list.slice(1, 3).size() == 2);
    int length = 0;
    DEMAND(*list.run(0, length) == a && length > 0);
    int walked = 0;
    for (const T& item : list) walked += item == a || item == b ? 1 : 0;
    DEMAND(walked == 3);
    list.append(same);
    DEMAND(list.size() == 5 && list.grow(64) && list.grow(2) && list.size() == 2);
    list.clearAll();
    DEMAND(list.isEmpty() && yld_Sequence<T>(4).size() == 0);
    list = same;

    shr_1DArrayList<Stored> plain(list);
    DEMAND(plain.Size() == 2 && !plain.IsEmpty() && plain.Get(0) == Stored(a) && plain.ConstGet(1) == Stored(b));
    DEMAND(!plain.AppendUnlessMember(a) && plain.RemoveMember(a) && plain.Size() == 1);
    plain.Append(a);
    DEMAND(plain.Pop() == Stored(a) && plain.Slice(0, 1).Size() == 1 && plain == plain);
    int count = 0;
    Stored* const copied = plain.GetCArray(count);
    DEMAND(count == 1 && copied[0] == Stored(b));
    delete[] copied;
    DEMAND(yld_Sequence<T>(plain).size() == 1);

    shr_1DArray<Stored> array(3);
    array.Get(2) = a;
    shr_1DArray<Stored> shared(array);
    DEMAND(shared.SharesTableWith(array) && shared.HasTable() && shared.TableCount() == 2);
    shared.CopyArray();
    DEMAND(!shared.SharesTableWith(array) && shared.FullArrayConstGet(2) == Stored(a));
    DEMAND(shared.Size() == 3 && shared.End() == 3 && shared.Head() == 0 && shared.UsedBlocks() > 0 &&
           shared.TableLength() > 0 && shared.BlockPower() >= 0 && shared.BlockAt(0) != nullptr);
    shared.GetHead() = b;
    shared.RemoveHead();
    shared.swap(array);
    array = shared;
    int seen = 0;
    shr_1DArrayIter<Stored> entry(array);
    for (entry.First(); !entry.IsDone(); entry.Next()) {
        if (entry.HasCurrent() && entry.Index() >= 0 && entry.Current() == Stored(a)) ++seen;
    }
    DEMAND(seen == 1);
}

template<class T> yld_Sequence<T> listOf(const T& a)
{
    yld_Sequence<T> list;
    list.append(a);
    return list;
}

void useSequences()
{
    useSequence<int>(1, 2);
    useSequence<float>(1.0F, 2.0F);
    useSequence<double>(1.0, 2.0);
    useSequence<bool>(true, false);
    useSequence<yld_Enum::yld_ElementFaceEnum>(yld_Enum::FACE1, yld_Enum::FACE2);
    useSequence<yld_String>("one", "two");
    useSequence<shr_String>("one", "two");
    useSequence(listOf(1), listOf(2));
    useSequence(listOf(1.0F), listOf(2.0F));
    useSequence(listOf(1.0), listOf(2.0));
    useSequence(listOf(listOf(1.0F)), listOf(listOf(2.0F)));
    useSequence(listOf(listOf(1.0)), listOf(listOf(2.0)));
    useSequence(yld_SectionPoint(1, "bottom"), yld_SectionPoint(2, "top"));
}

template<class K> void useRepository(const K& a, const K& b)
{
    yld_Repository<K, yld_String> map;
    DEMAND(map.insert(a, "x") && map.insert(b, "y") && !map.insert(a, "z") && map.size() == 2 && !map.isEmpty());
    DEMAND(map.isMember(a) && map.CheckKey(b) && map.get(a) == "x" && map.constGet(b) == "y" && map[a] == "x");
    const yld_Repository<K, yld_String> copy(map);
    int entries = 0;
    yld_RepositoryIT<K, yld_String> entry(copy);
    for (entry.first(); !entry.isDone(); entry.next()) {
        if (entry.currentKey() == a || entry.currentValue() == "y") ++entries;
    }
    DEMAND(entries == 2 && copy.keys().size() == 2);
    DEMAND(map.remove(a) && !map.isMember(a) && copy.isMember(a));
    bool isRefused = false;
    try {
        map.CheckKey(a);
    } catch (const yld_Exception& failure) {
        isRefused = failure.errorNo() == 6 && failure.UserReport().length() > 0;
    }
    DEMAND(isRefused);
}

void useStrings()
{
    yld_String text("abc");
    text += yld_String("def");
    text += "g";
    text.append("hij", 1).append(yld_String("xyz"), 1, 1);
    DEMAND(text == "abcdefghy" && text.length() == 9 && !text.empty());
    DEMAND(text.find("cd") == 2 && text.find(yld_String("cd"), 1) == 2 && text.rFind("b") == 1);
    text.erase(7).insert(0, "<").insert(1, yld_String("-")).replace(0, 1, "[").replace(1, 1, yld_String("="));
    DEMAND(text == "[=abcdefg" && text.substr(2, 3) == "abc" && text[2] == 'a' && text.compare("[") > 0);
    text.leftTrim("[=").rightTrim("g").trim("x").toUpper().reverse();
    DEMAND(text == "FEDCBA" && text.toLower().capitalize() == "Fedcba" && text.uncapitalize() == "fedcba");
    DEMAND(yld_String(7) == "7" && yld_String(7u) == "7" && yld_String(2.5).length() > 0);
    yld_String moved(static_cast<yld_String&&>(text));
    text = "again";
    const yld_String shared(text);
    text[0] = 'A';
    DEMAND(shared == "again" && text == "Again" && moved.cStr()[0] == 'f' && shared < moved);

    const yld_Union values[] = {1, 2.5F, 2.5, true, "text", yld_String("string")};
    DEMAND(values[0].getInt() == 1 && values[1].getFloat() == 2.5F && values[2].getDouble() == 2.5);
    DEMAND(values[3].getBool() && values[4].getString() == "text" && values[5].getString() == "string");
    yld_Union value(values[0]);
    value = values[4];
    DEMAND(value.getString() == "text");
    yld_Timer timer;
    timer.Start();
    timer.Stop();
    DEMAND(timer.GetElapsedTime() >= 0.0 && timer.GetTotalCpuTime() >= 0.0);
    timer.Reset();
    std::ostringstream stream;
    yld_WipReporter reporter(stream);
    reporter.Warning(yld_String("careful"));
    DEMAND(stream.str() == "Warning: careful\n");
    DEMAND(unMapDataType(mapDataType(unMapDataType(yld_Enum::VECTOR))) == unMapDataType(yld_Enum::VECTOR));
}

// The templates under parts and instances and under the nodes and elements of a mesh, and plain arrays.
void writeJob(const char* path)
{
    yld_Yld& db = Yld("job", "title", "description", path);
    yld_Part& part = db.Part("plate", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
    const int labels[] = {1, 2, 3, 4};
    const yld_Sequence<int> nodes(labels, 4);
    yld_Sequence<yld_Sequence<float>> points;
    for (int i = 0; i < 4; ++i) {
        const float point[] = {i == 1 || i == 2 ? 1.0F : 0.0F, i >= 2 ? 1.0F : 0.0F, 0.0F};
        points.append(yld_Sequence<float>(point, 3));
    }
    part.addNodes(nodes, points, "all");
    part.addElements(listOf(7), listOf(nodes), "SHELL4", "all", db.SectionCategory("shell", "a shell"));
    part.setSolverInput("text");
    yld_Instance& instance = db.rootAssembly().Instance("plate-1", part);
    instance.NodeSet("some", instance.nodes());
    instance.ElementSet("some", instance.elements());
    instance.Surface("side", instance.elements(), listOf(yld_Enum::SIDE1));
    part.NodeSet("some", part.nodes().slice(0, 2));
    part.ElementSet("some", part.elements());
    part.Surface("side", listOf(7), listOf(yld_Enum::SIDE1));
    part.assignBeamOrientation(part.elementSets().get("some"), yld_Enum::ORIENTATION_BY_VECTOR, points[1]);
    const yld_DatumCsys csys =
        part.DatumCsysByThreePoints("axes", yld_Enum::CARTESIAN, points[0], points[1], points[2]);
    part.assignMaterialOrientation(part.elementSets().get("some"), csys, yld_Enum::AXIS_1, 0.0F,
                                   yld_Enum::STACK_DIRECTION_1);
    part.assignRebarOrientation(part.elementSets().get("some"), csys, yld_Enum::AXIS_1, 0.0F);
    DEMAND(part.hasDatumCsys("axes") && part.datumCsys("axes").name() == "axes" && part.solverInput() == "text");

    yld_SequenceNode chosen = part.nodes().slice(0, 2);
    chosen.append(part.nodes(3));
    DEMAND(chosen.size() == 3 && chosen.isMember(part.nodes(0)) && chosen == chosen && chosen[2].label() == 4);
    chosen.append(part.nodes().slice(2, 3));
    DEMAND(!chosen.isWholeMesh() && chosen.indices().size() == 4 && chosen.node(3).label() == 3);
    yld_SequenceElement shells = part.elements().slice(0, 1);
    DEMAND(shells.size() == 1 && shells.isMember(part.elements(0)) && shells.get(0).label() == 7);
    shells.append(part.elements(0));
    DEMAND(shells.size() == 2 && shells.instanceName() == part.elements().instanceName());

    yld_Step& step = db.Step("load", "ramp", yld_Enum::TIME, 1.0);
    yld_Frame frame = step.Frame(1, 0.5, "increment 1");
    const float single[] = {1, 2, 3, 4};
    const double precise[] = {0.1, 0.2, 0.3, 0.4};
    frame.FieldOutput("T", "single", yld_Enum::SCALAR).addBulkData(yld_Enum::NODAL, instance, labels, 4, single, 4, 1);
    frame.FieldOutput("D", "double", yld_Enum::SCALAR).addBulkData(yld_Enum::NODAL, instance, labels, 4, precise, 4, 1);
    yld_HistoryOutput& curve =
        step.HistoryRegion("corner", "", instance.nodes(0)).HistoryOutput("V", "", yld_Enum::SCALAR);
    for (int i = 0; i < 3; ++i) curve.addData(0.5 * i, i);
    saveYld(db);
    db.close();
}

void readJob(const char* path)
{
    const PublicWalk seen = PublicWalk::of(path);
    std::printf("%lld nodes, %lld elements, %lld datums, %lld values, %lld of bulk, %lld pairs\n", seen.nodes,
                seen.elements, seen.datums, seen.values, seen.bulk, seen.points);
    yld_Yld& db = openYld(path, true);
    yld_Step step(db.steps().get("load"));
    const yld_FieldOutput field(step.frames(0).fieldOutputs().get("D"));
    const yld_SequenceFieldBulkData blocks(field.bulkDataBlocks());
    yld_FieldBulkData block(blocks[0]);
    block = blocks.constGet(0);
    DEMAND(block.length() == 4 && block.dataDouble()[3] == 0.4 && block.data() == nullptr);
    yld_FieldValue value(field.values(1));
    value = field.values(3);
    yld_FieldValueData data(value.data());
    data = value.data();
    DEMAND(data == value.data() && data.length() == 1 && data[0] == 0.4 && !(data != data));
    const yld_Sequence<yld_SubField>& parts = field.SubField();
    DEMAND(parts.size() == 1 && parts[0].length() == 4 && parts.slice(0, 1).size() == 1);
    int steps = 0;
    yld_StepRepositoryIT entry(db.steps());
    for (entry.first(); !entry.isDone(); entry.next()) steps += entry.currentKey() == "load" ? 1 : 0;
    DEMAND(steps == 1);
    db.close();
}

} // namespace

int main(int argc, char** argv)
try {
    if (argc != 2) return 2;
    yld_initializeAPI();
    useSequences();
    useRepository<yld_String>("a", "b");
    useRepository<int>(1, 2);
    useStrings();
    writeJob(argv[1]);
    readJob(argv[1]);
    yld_finalizeAPI();
    return failures == 0 ? 0 : 1;
} catch (const std::exception& error) {
    std::fprintf(stderr, "client: %s\n", error.what());
    return 1;
}
