#include "yld/impl/model/yld_Mesh.h"

#include "model_files.h"

#include <sqlite3.h>

namespace {

// Three classes: triangles 1 to 3, shells 11 and 12, a second kind of triangles 21 to 24; nodes 10, 20, 30.
class yld_MeshTest : public ::testing::Test
{
protected:
    yld_MeshTest() : part(model.parts->Part("P", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY))
    {
        part.addNodes(ints({10, 20, 30}), rows<float>({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}));
        add({1, 2, 3}, "TRI3", "");
        add({11, 12}, "SHELL3", "");
        add({21, 22, 23, 24}, "TRI3", "other");
    }

    void add(std::initializer_list<int> labels, const char* type, const char* category)
    {
        yld_Sequence<yld_Sequence<int>> nodes;
        for (std::size_t i = 0; i < labels.size(); ++i) nodes.append(ints({10, 20, 30}));
        part.addElements(ints(labels), nodes, type, yld_String(), yld_SectionCategory("c", category));
        part.elements();
    }
    // A class as a solver writes it for elements that it made itself, or one without labels.
    void addRaw(std::vector<int> labels, int count)
    {
        grd_ElementClass raw;
        raw.m_type = "TRI3";
        raw.m_nodesPerElement = 3;
        raw.m_numElements = count;
        raw.m_labels.append(labels.data(), static_cast<int>(labels.size()));
        const std::vector<int> nodes(static_cast<std::size_t>(3 * count), 0);
        raw.m_connectivity.append(nodes.data(), 3LL * count);
        mrp_Container<grd_ElementClass> classes = part.part().mesh().mesh()->m_classes;
        classes.append("raw" + std::to_string(classes.size()),
                       lnk_ShortCut<grd_ElementClass>::create(model.file, std::move(raw)));
        part.elements();
    }
    yld_Mesh& mesh() { return *part.mesh(); }

    ModelFile model;
    yld_Part& part;
    const std::vector<int> all = {1, 2, 3, 11, 12, 21, 22, 23, 24};
};

} // namespace

TEST_F(yld_MeshTest, walksForwardBackwardAndAtRandomAgree)
{
    ASSERT_EQ(mesh().elementCount(false), 9);
    for (int i = 0; i < 9; ++i) EXPECT_EQ(mesh().elementAt(i, true).label(), all[static_cast<std::size_t>(i)]);
    for (int i = 8; i >= 0; --i) EXPECT_EQ(mesh().elementAt(i, true).label(), all[static_cast<std::size_t>(i)]);
    for (int i : {8, 0, 4, 3, 5, 2, 8, 3, 0}) {
        EXPECT_EQ(mesh().elementAt(i, false).label(), all[static_cast<std::size_t>(i)]);
        EXPECT_EQ(mesh().elementLabelAt(i), all[static_cast<std::size_t>(i)]);
    }
}

TEST_F(yld_MeshTest, walkInOrderLooksAtEachClassOnce)
{
    const yld_SequenceElement& elements = part.elements();
    const long long before = mesh().classLoads();
    for (unsigned i = 0; i < 9; ++i) EXPECT_EQ(elements[i].label(), all[i]);
    EXPECT_EQ(mesh().classLoads() - before, 3);
    for (int label : all) EXPECT_EQ(mesh().elementFromLabel(label).label(), label);
    // By label it goes back to the first class once.
    EXPECT_EQ(mesh().classLoads() - before, 6);
}

TEST_F(yld_MeshTest, indexEqualToTheCountIsOutOfRange)
{
    EXPECT_EQ(raised([&] { mesh().elementAt(9, true); }), "Element index out of range.");
    mesh().elementAt(8, true);
    EXPECT_EQ(raised([&] { mesh().elementAt(9, true); }), "Element index out of range.");
    EXPECT_EQ(raised([&] { mesh().elementAt(-1, true); }), "Element index out of range.");
    // The cursor is left where it was.
    EXPECT_EQ(mesh().elementAt(8, true).label(), 24);
}

TEST_F(yld_MeshTest, negativeIndexOnAColdCursorIsAnElementWithoutNodes)
{
    const yld_Element odd = mesh().elementAt(-2, true);
    EXPECT_EQ(odd.label(), -2);
    EXPECT_EQ(odd.index(), -2);
    EXPECT_EQ(odd.connectivity().size(), 0);
}

TEST_F(yld_MeshTest, fieldsOfAnElement)
{
    const yld_Element shell = mesh().elementAt(4, true);
    EXPECT_EQ(shell.label(), 12);
    EXPECT_EQ(shell.index(), 1);
    EXPECT_EQ(shell.classIndex(), 1);
    EXPECT_EQ(shell.type(), "SHELL3");
    EXPECT_EQ(shell.numNodes(), 3);
    EXPECT_EQ(vec(shell.connectivity()), (std::vector<int>{10, 20, 30}));
    EXPECT_EQ(shell.geometryClass(), yld_Enum::LINEAR_TRIANGLE);
    EXPECT_EQ(shell.meshIndex(), part.part().GetMeshIndex());
    EXPECT_EQ(shell.sectionCategory().description(), "SectionCategory for element type SHELL3 in part P");
    int numNodes = 0;
    EXPECT_EQ(shell.connectivity(numNodes)[2], 30);
    EXPECT_EQ(numNodes, 3);
    EXPECT_EQ(vec(shell.instanceNames()), (std::vector<std::string>{"", "", ""}));
}

TEST_F(yld_MeshTest, labelsOfAlternatingClassesAreNeverLost)
{
    for (int round = 0; round < 3; ++round) {
        for (int label : {1, 24, 11, 3, 12, 21}) {
            EXPECT_EQ(mesh().elementFromLabel(label).label(), label);
        }
    }
    EXPECT_EQ(mesh().elementFromLabel(24).index(), 3);
    EXPECT_EQ(mesh().elementFromLabel(24).classIndex(), 2);
    EXPECT_EQ(raised([&] { mesh().elementFromLabel(99); }), "Element index not found.");
}

TEST_F(yld_MeshTest, searchByLabelDoesNotLeadTheWalkAstray)
{
    EXPECT_EQ(mesh().elementAt(0, true).label(), 1);
    EXPECT_EQ(mesh().elementFromLabel(12).label(), 12);
    EXPECT_EQ(mesh().elementAt(1, true).label(), 2);
    EXPECT_EQ(mesh().elementFromLabel(21).label(), 21);
    EXPECT_EQ(mesh().elementAt(8, true).label(), 24);
    EXPECT_EQ(mesh().elementFromLabel(1).label(), 1);
    EXPECT_EQ(mesh().elementAt(3, true).label(), 11);
}

TEST_F(yld_MeshTest, classesAndIndicesByLabel)
{
    EXPECT_EQ(mesh().elementIndexFromLabel(21), 5);
    EXPECT_EQ(raised([&] { mesh().elementIndexFromLabel(99); }), "Element not found.");
    EXPECT_EQ(mesh().elementClassFromLabel(12).typeLabel(), "SHELL3");
    EXPECT_EQ(raised([&] { mesh().elementClassFromLabel(99); }), "ElementClass not found.");
}

TEST_F(yld_MeshTest, elementsByClass)
{
    EXPECT_EQ(mesh().elementAtClass(2, 1).label(), 22);
    EXPECT_EQ(mesh().elementAtClass(2, 3).label(), 24);
    EXPECT_EQ(raised([&] { mesh().elementAtClass(2, 4); }), "Element index out of range.");
    EXPECT_EQ(raised([&] { mesh().elementAtClass(1, 2); }), "Element index out of range.");
    EXPECT_EQ(mesh().elementAtClass(1, 0).label(), 11);
    EXPECT_EQ(vec(mesh().connectivityOf(1, 1)), (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(raised([&] { mesh().connectivityOf(1, 2); }), "Element index out of range.");
    EXPECT_EQ(yld_Mesh().connectivityOf(0, 0).size(), 0);
}

TEST_F(yld_MeshTest, internalClassesAreSkippedByTheWalksAndCountedOnRequest)
{
    addRaw({0, -1}, 2);
    add({31}, "TRI3", "behind");
    ASSERT_EQ(mesh().elementCount(false), 10);
    EXPECT_EQ(mesh().elementAt(9, false).label(), 31);
    mesh().refresh();
    // The first walk counts them, on request; those that follow do not.
    EXPECT_EQ(mesh().elementCount(true), 12);
    EXPECT_EQ(mesh().elementAt(9, true).label(), 0);
    EXPECT_EQ(mesh().elementAt(10, true).label(), -1);
    mesh().refresh();
    EXPECT_EQ(mesh().elementAt(0, true).label(), 1);
    EXPECT_EQ(mesh().elementAt(9, true).label(), 31);
}

TEST_F(yld_MeshTest, firstCallDecidesAboutTheCount)
{
    addRaw({-5}, 1);
    EXPECT_EQ(mesh().elementCount(true), 10);
    EXPECT_EQ(mesh().elementCount(false), 10);
    mesh().refresh();
    EXPECT_EQ(mesh().elementCount(false), 9);
    EXPECT_EQ(mesh().elementCount(true), 9);
}

TEST_F(yld_MeshTest, classWithoutLabelsIsNotCountedButEntered)
{
    addRaw({}, 2);
    add({31}, "TRI3", "behind");
    EXPECT_EQ(mesh().elementCount(false), 10);
    EXPECT_EQ(mesh().elementAt(9, false).label(), 0);
    EXPECT_EQ(mesh().elementAt(9, false).classIndex(), 3);
}

TEST_F(yld_MeshTest, elementUnderASkin)
{
    ModelFile other;
    yld_Part& solid = other.parts->Part("S", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
    addTwoHexes(solid);
    solid.addElements(ints({100, 101}), rows<int>({{9, 10, 11, 12}, {1, 2, 10, 11}}), "SHELL4");
    solid.elements();
    int classOut = -1;
    int indexOut = -1;
    int meshElementIndex = -1;
    solid.mesh()->locateElementByNodes(1, 0, classOut, indexOut, meshElementIndex);
    EXPECT_EQ(classOut, 0);
    EXPECT_EQ(indexOut, 1);
    EXPECT_EQ(meshElementIndex, 1);
    EXPECT_EQ(raised([&] { solid.mesh()->locateElementByNodes(1, 1, classOut, indexOut, meshElementIndex); }),
              "Element index not found.");
    // The element's own class is passed over whole.
    EXPECT_EQ(raised([&] { solid.mesh()->locateElementByNodes(0, 0, classOut, indexOut, meshElementIndex); }),
              "Element index not found.");
    classOut = 77;
    yld_Mesh().locateElementByNodes(0, 0, classOut, indexOut, meshElementIndex);
    EXPECT_EQ(classOut, 77);
}

TEST_F(yld_MeshTest, nodesByIndexAndLabel)
{
    const yld_Node node = mesh().nodeAt(1);
    EXPECT_EQ(node.label(), 20);
    EXPECT_EQ(node.index(), 1);
    EXPECT_EQ(node.meshIndex(), part.part().GetMeshIndex());
    EXPECT_EQ(node.coordinate(0), 1.0f);
    EXPECT_EQ(mesh().nodeFromLabel(30).index(), 2);
    EXPECT_EQ(raised([&] { mesh().nodeAt(3); }), "Node index out of range.");
    EXPECT_EQ(raised([&] { mesh().nodeAt(-1); }), "Node index out of range.");
    EXPECT_EQ(raised([&] { mesh().nodeFromLabel(99); }), "Node index out of range.");
}

TEST_F(yld_MeshTest, entityWithoutAMesh)
{
    yld_Mesh none("N");
    EXPECT_EQ(none.elementCount(false), 0);
    EXPECT_EQ(raised([&] { none.elementAt(0, true); }), "Entity has no mesh.");
    EXPECT_EQ(raised([&] { none.elementFromLabel(1); }), "Entity has no mesh.");
    EXPECT_EQ(raised([&] { none.elementIndexFromLabel(1); }), "Entity has no mesh.");
    EXPECT_EQ(raised([&] { none.nodeFromLabel(1); }), "Entity has no mesh.");
    EXPECT_EQ(raised([&] { none.nodeAt(0); }), "Node index out of range.");
    EXPECT_EQ(raised([&] { none.requireStore(); }), "Entity has no mesh.");
    EXPECT_EQ(raised([&] { none.addNodes(ints({1}), rows<float>({{0, 0, 0}}), ""); }), "Entity has no mesh.");
    EXPECT_EQ(raised([&] { none.addElements(ints({1}), rows<int>({{1}}), "POINTMASS", "", yld_SectionCategory()); }),
              "Entity has no mesh.");
    EXPECT_FALSE(none.hasSet("x"));
    none.refresh();
}

TEST_F(yld_MeshTest, lostCoordinatesLeaveTheLabels)
{
    const long long id = part.part().mesh().shortCut().id();
    model.file->save();
    model.file->close();
    sqlite3* raw = nullptr;
    ASSERT_EQ(sqlite3_open(model.path().c_str(), &raw), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(raw, "UPDATE grd_NodeData SET coordinates = 999999", nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(raw);
    sqlite3_close(raw);
    model.opened = fio_File::Open(model.path().c_str(), false, true);
    model.file = model.opened.body();
    yld_Mesh blind(sto_Mesh(lnk_ShortCut<mshK_Mesh>(model.file, id)), "P", false);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(blind.nodeAt(i).label(), 10 * (i + 1));
        EXPECT_EQ(blind.nodeAt(i).coordinate(0), 0.0f);
        EXPECT_EQ(blind.nodeAt(i).coordinate(1), 0.0f);
    }
}

TEST_F(yld_MeshTest, cursorOutlivesASaveAndAChange)
{
    EXPECT_EQ(mesh().elementAt(0, true).label(), 1);
    model.file->save();
    EXPECT_EQ(mesh().elementAt(2, true).label(), 3);
    EXPECT_EQ(vec(mesh().elementAt(1, true).connectivity()), (std::vector<int>{10, 20, 30}));
    EXPECT_EQ(mesh().nodeAt(2).coordinate(1), 1.0f);
    part.addElements(ints({4}), rows<int>({{30, 20, 10}}), "TRI3", yld_String(), yld_SectionCategory("c", ""));
    model.file->save();
    // A cached count stays until the mesh is refreshed; a search by label sees the store as it is.
    EXPECT_EQ(mesh().elementCount(false), 9);
    EXPECT_EQ(vec(mesh().elementFromLabel(4).connectivity()), (std::vector<int>{30, 20, 10}));
    EXPECT_EQ(mesh().elementAt(0, true).label(), 1);
    part.elements();
    EXPECT_EQ(mesh().elementCount(false), 10);
    EXPECT_EQ(mesh().elementAt(3, true).label(), 4);
}

TEST_F(yld_MeshTest, meshOfAPartCannotReferToNodesOfInstances)
{
    const auto nodes = part.part().mesh().mesh()->m_nodeData;
    const auto changed = nodes.fetchWritable();
    changed->foreignNode("Q", 0, 1);
    nodes.replace(changed);
    part.elements();
    EXPECT_EQ(raised([&] { mesh().elementAt(0, true); }),
              "The mesh of \"P\" refers to nodes of part instances; the file is damaged.");
}

TEST_F(yld_MeshTest, setsByLabel)
{
    part.NodeSet("N", ints({10}));
    part.ElementSet("E", ints({1}));
    EXPECT_TRUE(mesh().hasSet("N"));
    EXPECT_TRUE(mesh().hasSet("E"));
    EXPECT_FALSE(mesh().hasSet("S"));
}

TEST_F(yld_MeshTest, writersOfAnAssemblyMesh)
{
    sto_Assembly assembly = model.model.rootAssembly();
    yld_Mesh own(assembly.Mesh(), "rootAssembly", true);
    EXPECT_EQ(raised([&] {
                  own.addNodes(ints({1, 2}), rows<float>({{0, 0, 0}}), "");
              }),
              "Number of node labels and coordinates does not match.");
    EXPECT_EQ(raised([&] {
                  own.addNodes(ints({1}), rows<float>({{0, 0}}), "");
              }),
              "Node location specification does not correspond to part dimension. 3 floats expected; 2 floats "
              "received.");
    own.addNodes(ints({1, 2}), rows<float>({{0, 0, 0}, {4, 5, 6}}), "ends");
    EXPECT_EQ(own.numNodes(), 2);
    EXPECT_EQ(own.nodeAt(1).coordinate(2), 6.0f);
    EXPECT_TRUE(own.hasSet("ends"));
    EXPECT_EQ(raised([&] {
                  own.addElements(ints({1, 2}), rows<int>({{1, 2}}), "CONN3D2", "", yld_SectionCategory());
              }),
              "Connectivity array must be provided for all elements.");
    EXPECT_EQ(raised([&] {
                  own.addElements(ints({1, 2}), rows<int>({{1, 2}, {1}}), "CONN3D2", "", yld_SectionCategory());
              }),
              "Element connectivity arrays should be of same length.");
    own.addElements(ints({1}), rows<int>({{2, 1}}), "CONN3D2", "link", yld_SectionCategory());
    EXPECT_EQ(vec(own.elementFromLabel(1).connectivity()), (std::vector<int>{2, 1}));
    EXPECT_EQ(vec(own.elementFromLabel(1).instanceNames()), (std::vector<std::string>{"", ""}));
}

TEST(yld_MeshGeometry, geometryClassOfEveryShapeKind)
{
    struct Row
    {
        const char* type;
        int nodes;
        int geometry;
    };
    const Row table[] = {{"POINTMASS", 1, 1}, {"TRUSS2", 2, 6},  {"BEAM3", 3, 7},    {"TRI3", 3, 10},
                         {"TRI6", 6, 12},     {"QUAD4", 4, 11},  {"QUAD8", 8, 13},   {"QUAD9", 9, 13},
                         {"HEX8", 8, 16},     {"HEX20", 20, 19}, {"WEDGE6", 6, 15},  {"WEDGE15", 15, 18},
                         {"TET4", 4, 14},     {"TET10", 10, 17}, {"PYRAMID5", 5, 0}, {"NOSUCH", 3, 0}};
    ModelFile model;
    yld_Part& part = model.parts->Part("P", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
    part.addNodes(ints({1}), rows<float>({{0, 0, 0}}));
    int label = 0;
    for (const Row& row : table) {
        yld_Sequence<int> nodes;
        for (int i = 0; i < row.nodes; ++i) nodes.append(1);
        yld_Sequence<yld_Sequence<int>> connectivity;
        connectivity.append(nodes);
        part.addElements(ints({++label}), connectivity, row.type);
        EXPECT_EQ(part.getElementFromLabel(label).geometryClass(), row.geometry) << row.type;
    }
}

TEST(yld_MeshList, lastMeshOfAnIndexAndFirstOfAName)
{
    ModelFile model;
    const sto_Mesh stored = model.model.Part("P", 2000, 4001).mesh();
    const yld_MeshHandle first(new yld_Mesh(stored, "A", false));
    const yld_MeshHandle second(new yld_Mesh(stored, "B", false));
    const yld_MeshHandle third(new yld_Mesh(stored, "A", false));
    yld_MeshList list(first);
    list.append(second);
    EXPECT_TRUE(list.meshFromMeshIndex(stored.meshIndex()) == second);
    list.append(third);
    EXPECT_TRUE(list.meshFromMeshIndex(stored.meshIndex()) == third);
    EXPECT_TRUE(list.mesh(yld_String("A")) == first);
    EXPECT_EQ(raised([&] { list.meshFromMeshIndex(stored.meshIndex() + 1); }), "Invalid part index.");
    EXPECT_EQ(raised([&] { list.mesh(yld_String("a")); }), "Invalid mesh name.");
    // Every mesh of the name is replaced.
    const yld_MeshHandle fresh(new yld_Mesh("A"));
    list.merge(fresh);
    EXPECT_EQ(list.size(), 3);
    EXPECT_TRUE(list.mesh(0) == fresh);
    EXPECT_TRUE(list.mesh(1) == second);
    EXPECT_TRUE(list.mesh(2) == fresh);
    list.merge(yld_MeshHandle(new yld_Mesh("C")));
    EXPECT_EQ(list.size(), 4);
    EXPECT_TRUE(list.hasName("C"));
    EXPECT_FALSE(list.hasName("D"));
    EXPECT_TRUE(list.hasMesh(second));
    EXPECT_FALSE(list.hasMesh(first));
    yld_MeshList other;
    other.merge(list);
    EXPECT_EQ(other.size(), 3);
}

TEST(yld_Element, defaultIsOfNoMesh)
{
    const yld_Element none;
    EXPECT_EQ(none.label(), -1);
    EXPECT_EQ(none.index(), -1);
    EXPECT_EQ(none.classIndex(), -1);
    EXPECT_EQ(none.numNodes(), 0);
    EXPECT_EQ(raised([&] { none.instanceNames(); }), "Element is not associated with a mesh.");
    EXPECT_TRUE(none == yld_Element());
}

TEST(yld_Element, equalityLooksAtIndexMeshAndClassAlone)
{
    const yld_SectionCategory category;
    const yld_Sequence<int> labels = ints({7, 8});
    const int nodes[] = {1, 0};
    const auto make = [&](int index, int label, int mesh, int classIndex) {
        return yld_Element(index, label, nodes, mesh, 2, "TRUSS2", category, yld_Enum::LINEAR_LINE, 0, classIndex,
                           labels, sto_Mesh());
    };
    EXPECT_EQ(vec(make(0, 1, 0, 0).connectivity()), (std::vector<int>{8, 7}));
    EXPECT_TRUE(make(0, 1, 0, 0) == make(0, 99, 0, 0));
    EXPECT_FALSE(make(0, 1, 0, 0) == make(1, 1, 0, 0));
    EXPECT_FALSE(make(0, 1, 0, 0) == make(0, 1, 1, 0));
    EXPECT_FALSE(make(0, 1, 0, 0) == make(0, 1, 0, 1));
    EXPECT_TRUE(make(0, 1, -1, 0) == make(3, 1, -1, 2));
    EXPECT_FALSE(make(0, 1, -1, 0) == make(0, 1, 0, 0));
}

TEST(yld_Node, equality)
{
    const float here[] = {1, 2, 3};
    const float there[] = {1, 2, 4};
    EXPECT_TRUE(yld_Node() == yld_Node());
    EXPECT_TRUE(yld_Node() == yld_Node(4, 5, -3, here));
    EXPECT_FALSE(yld_Node() == yld_Node(0, 1, 0, here));
    EXPECT_TRUE(yld_Node(0, 1, 0, here) == yld_Node(9, 1, 0, here));
    EXPECT_FALSE(yld_Node(0, 1, 0, here) == yld_Node(0, 2, 0, here));
    EXPECT_FALSE(yld_Node(0, 1, 0, here) == yld_Node(0, 1, 1, here));
    EXPECT_FALSE(yld_Node(0, 1, 0, here) == yld_Node(0, 1, 0, there));
    EXPECT_TRUE(yld_Node(sto_Node(0, 1, 0, here)) == yld_Node(0, 1, 0, here));
}

TEST(yld_SectionCategory, pointsAreAppendedUnchecked)
{
    EXPECT_EQ(yld_SectionPoint().number(), -1);
    EXPECT_EQ(yld_SectionPoint().description(), "");
    EXPECT_TRUE(yld_SectionPoint() == yld_SectionPoint());
    EXPECT_FALSE(yld_SectionPoint(1, "a") == yld_SectionPoint(1, "b"));
    EXPECT_FALSE(yld_SectionPoint(1, "a") == yld_SectionPoint(2, "a"));
    yld_SectionCategory category("shell", "Shell of five points");
    EXPECT_EQ(category.SectionPoint(5, "top").description(), "top");
    EXPECT_EQ(category.SectionPoint(5, "top again").number(), 5);
    EXPECT_EQ(category.sectionPoints().size(), 2);
    EXPECT_EQ(category.sectionPoint(1).description(), "top again");
    yld_SectionCategoryRepository all;
    all.SectionCategory("shell", "first");
    EXPECT_EQ(all.SectionCategory("shell", "second").description(), "first");
}

TEST(yld_SectionCategory, comesBackFromAnElementClass)
{
    ModelFile model;
    yld_Part& part = model.parts->Part("P", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
    part.addNodes(ints({1}), rows<float>({{0, 0, 0}}));
    yld_SectionCategory category("shell", "Shell of three points");
    category.SectionPoint(3, "top");
    category.SectionPoint(1, "bottom");
    part.addElements(ints({1}), rows<int>({{1, 1, 1, 1}}), "SHELL4", "", category);
    model.reopen();
    const yld_SectionCategory read = model.part("P").elements(0).sectionCategory();
    EXPECT_EQ(read.name(), "Shell of three points");
    ASSERT_EQ(read.sectionPoints().size(), 3);
    EXPECT_TRUE(read.sectionPoint(0) == yld_SectionPoint(1, "bottom"));
    EXPECT_TRUE(read.sectionPoint(1) == yld_SectionPoint(2, ""));
    EXPECT_TRUE(read.sectionPoint(2) == yld_SectionPoint(3, "top"));
    const sto_ElementClass stored = model.model.part("P").mesh().elementData().elementClass(0);
    const yld_SectionCategory same(*stored.data(), "described");
    EXPECT_EQ(same.name(), "Shell of three points");
    EXPECT_EQ(same.description(), "described");
    EXPECT_EQ(same.sectionPoints().size(), 3);
}
