#include "model_files.h"

#include <cmath>
#include <limits>
#include <sqlite3.h>

namespace {

const float origin3[9] = {0, 0, 0, 1, 0, 0, 0, 1, 0};

class sto_MeshTest : public ::testing::Test
{
protected:
    sto_MeshTest() : mesh(model.model.Part("P", 2000, 4001).mesh()) {}

    void addTriangleNodes() { mesh.addNodes(labels, origin3, 3, ""); }
    void addElements(const std::vector<int>& elementLabels, const std::vector<int>& nodes, const char* type, int width,
                     const char* category = "", const char* setName = "")
    {
        sto_ElementArg arg;
        arg.type = type;
        arg.labels = elementLabels.data();
        arg.numElements = static_cast<int>(elementLabels.size());
        arg.connectivity = nodes.data();
        arg.nodesPerElement = width;
        arg.categoryDescription = category;
        mesh.addElements(arg, setName, nullptr);
    }

    const int labels[3] = {30, 10, 20};
    ModelFile model;
    sto_Mesh mesh;
};

} // namespace

TEST_F(sto_MeshTest, newModelHasAnEmptyRootAssembly)
{
    const sto_Model fresh = sto_Model::create(model.file, "Other");
    EXPECT_EQ(fresh.name(), "Other");
    EXPECT_EQ(fresh.rootAssembly().name(), "Assembly");
    EXPECT_EQ(fresh.rootAssembly().numInstances(), 0);
    EXPECT_FALSE(fresh.rootAssembly().hasMesh());
    EXPECT_EQ(fresh.rootAssembly().set().length(), 0);
    EXPECT_EQ(fresh.dimension(), 3);
}

TEST_F(sto_MeshTest, titleAndJobSurvive)
{
    model.model.setModelTitle("Bracket");
    model.model.setGlobalJob("job-1");
    model.reopen();
    EXPECT_EQ(model.model.modelTitle(), "Bracket");
    EXPECT_EQ(model.model.globalJob(), "job-1");
}

TEST_F(sto_MeshTest, dimensionIsTwoWhenNoPartIsInSpace)
{
    ModelFile other;
    other.model.Part("plane", 2001, 4001);
    EXPECT_EQ(other.model.dimension(), 2);
    other.model.Part("axis", 2002, 4001);
    EXPECT_EQ(other.model.dimension(), 2);
    other.model.Part("solid", 2000, 4001);
    EXPECT_EQ(other.model.dimension(), 3);
}

TEST_F(sto_MeshTest, partOfANameThatIsTakenIsTheFirstOne)
{
    const sto_Part again = model.model.Part("P", 2001, 4001);
    EXPECT_EQ(again.space(), 2000);
    EXPECT_EQ(model.model.numParts(), 1);
    EXPECT_EQ(again.GetMeshIndex(), mesh.meshIndex());
}

TEST_F(sto_MeshTest, meshIndicesAreUniqueInTheModel)
{
    const sto_Part second = model.model.Part("Q", 2000, 4001);
    const float none[6] = {};
    const sto_PartInstance placed = model.model.PartInstanceFromPart("Q", "Q-1", second.GetMeshIndex(), none);
    sto_Assembly assembly = model.model.rootAssembly();
    const sto_Mesh own = assembly.Mesh();
    const std::vector<int> all = {mesh.meshIndex(), second.GetMeshIndex(), placed.mesh().meshIndex(), own.meshIndex()};
    for (std::size_t i = 0; i < all.size(); ++i) {
        for (std::size_t k = 0; k < i; ++k) EXPECT_NE(all[i], all[k]);
    }
}

TEST_F(sto_MeshTest, labelsBelowOneAreRefused)
{
    const int bad[] = {1, 0};
    EXPECT_EQ(raisedText([&] { mesh.addNodes(bad, origin3, 2, ""); }), "Invalid node label 0: labels begin at 1.");
    EXPECT_EQ(mesh.nodeData().NumNodes(), 0);
    addTriangleNodes();
    EXPECT_EQ(raisedText([&] {
                  addElements({-4}, {10, 20, 30}, "TRI3", 3);
              }),
              "Invalid element label -4: labels begin at 1.");
    EXPECT_EQ(mesh.elementData().numClasses(), 0);
}

TEST_F(sto_MeshTest, repeatedLabelsAreRefused)
{
    const int bad[] = {7, 3, 7};
    EXPECT_EQ(raisedText([&] { mesh.addNodes(bad, origin3, 3, ""); }), "Node label 7 is given twice.");
    addTriangleNodes();
    EXPECT_EQ(raisedText([&] { mesh.addNodes(labels + 1, origin3, 1, "S"); }), "Node label 10 exists already.");
    EXPECT_EQ(mesh.nodeData().NumNodes(), 3);
    EXPECT_FALSE(mesh.nset("S").isValid());
    EXPECT_EQ(raisedText([&] {
                  addElements({2, 2}, {10, 20, 30, 10, 20, 30}, "TRI3", 3);
              }),
              "Element label 2 is given twice.");
    addElements({2}, {10, 20, 30}, "TRI3", 3);
    EXPECT_EQ(raisedText([&] { addElements({2}, {10, 20, 30}, "SHELL3", 3); }), "Element label 2 exists already.");
    EXPECT_EQ(mesh.elementData().numElements(), 1);
}

TEST_F(sto_MeshTest, coordinatesThatAreNotNumbersAreRefused)
{
    const float bad[] = {0, 0, 0, 1, std::numeric_limits<float>::quiet_NaN(), 0};
    EXPECT_EQ(raisedText([&] { mesh.addNodes(labels, bad, 2, ""); }), "The coordinates of node 10 are not numbers.");
    const float endless[] = {std::numeric_limits<float>::infinity(), 0, 0};
    EXPECT_EQ(raisedText([&] { mesh.addNodes(labels, endless, 1, ""); }),
              "The coordinates of node 30 are not numbers.");
    EXPECT_EQ(mesh.nodeData().NumNodes(), 0);
}

TEST_F(sto_MeshTest, unknownNodesInAConnectivityAreRefusedAndNothingChanges)
{
    addTriangleNodes();
    addElements({1}, {10, 20, 30}, "TRI3", 3);
    EXPECT_EQ(raisedText([&] {
                  addElements({2, 3}, {10, 20, 30, 10, 99, 30}, "TRI3", 3);
              }),
              "Node number \"99\" of element \"3\" does not exist.");
    EXPECT_EQ(mesh.elementData().numElements(), 1);
    EXPECT_EQ(raisedText([&] {
                  addElements({2}, {10, 99, 30}, "SHELL3", 3);
              }),
              "Node number \"99\" of element \"2\" does not exist.");
    EXPECT_EQ(mesh.elementData().numClasses(), 1);
    // The failed call leaves no trace in what comes after it.
    addElements({2}, {30, 20, 10}, "TRI3", 3);
    const sto_ElementClass only = mesh.elementData().elementClass(0);
    EXPECT_EQ(std::vector<int>(only.elementConnectivity(), only.elementConnectivity() + 6),
              (std::vector<int>{1, 2, 0, 0, 2, 1}));
}

TEST_F(sto_MeshTest, elementsHaveThirtyNodesAtMost)
{
    addTriangleNodes();
    EXPECT_EQ(raisedText([&] { addElements({1}, std::vector<int>(31, 10), "USER31", 31); }),
              "An element can have 30 nodes at most; 31 were given.");
    addElements({1}, std::vector<int>(30, 10), "USER30", 30);
    const sto_ElementClass odd = mesh.elementData().elementClass(0);
    EXPECT_EQ(odd.numNodesPerElement(), 30);
    // Of an unknown type nothing more can be told.
    EXPECT_EQ(odd.numIntegrationPointsPerElement(), 0);
    EXPECT_EQ(odd.numFacesPerElement(), 0);
    EXPECT_EQ(odd.maxIntegrationPointsPerFace(), 0);
}

TEST_F(sto_MeshTest, sameTypeAndCategoryGoToOneClass)
{
    addTriangleNodes();
    addElements({5}, {10, 20, 30}, "SHELL3", 3, "thin");
    addElements({4}, {20, 10, 30}, "SHELL3", 3, "thick");
    addElements({9, 1}, {30, 20, 10, 10, 30, 20}, "SHELL3", 3, "thin");
    model.reopen();
    const sto_ElementData elements = model.model.part("P").mesh().elementData();
    ASSERT_EQ(elements.numClasses(), 2);
    const sto_ElementClass thin = elements.elementClass(0);
    EXPECT_EQ(thin.categoryLabel(), "thin");
    EXPECT_EQ(std::vector<int>(thin.userElementLabels(), thin.userElementLabels() + 3), (std::vector<int>{5, 9, 1}));
    EXPECT_EQ(thin.FirstElementIndex(), 0);
    EXPECT_EQ(elements.elementClass(1).FirstElementIndex(), 3);
    EXPECT_EQ(elements.GetMeshElemIndexFromLabel(4), 3);
    EXPECT_EQ(elements.GetMeshElemIndexFromLabel(1), 2);
    EXPECT_EQ(elements.GetMeshElemIndexFromLabel(77), -1);
    int place = -1;
    EXPECT_EQ(elements.GetElemClass(3, place).categoryLabel(), "thick");
    EXPECT_EQ(place, 0);
    EXPECT_EQ(raisedText([&] { elements.GetElemClass(4, place); }), "Element index out of range.");
    EXPECT_EQ(raisedText([&] { elements.GetElemClass(-1, place); }), "Element index out of range.");
    EXPECT_EQ(thin.GetElementIndexFromLabel(1, 2), 2);
    EXPECT_EQ(thin.GetElementIndexFromLabel(4, 0), -1);
}

TEST_F(sto_MeshTest, unknownTypeOfAnotherWidthIsAnotherClass)
{
    addTriangleNodes();
    addElements({1}, {10, 20}, "USER", 2);
    addElements({2}, {10, 20, 30}, "USER", 3);
    EXPECT_EQ(mesh.elementData().numClasses(), 2);
}

TEST_F(sto_MeshTest, countsOfAKnownType)
{
    addTriangleNodes();
    addElements({1}, std::vector<int>(20, 10), "HEX20", 20);
    const sto_ElementClass hex = mesh.elementData().elementClass(0);
    EXPECT_EQ(hex.numIntegrationPointsPerElement(), 27);
    EXPECT_EQ(hex.numFacesPerElement(), 6);
    EXPECT_EQ(hex.maxIntegrationPointsPerFace(), 9);
}

TEST_F(sto_MeshTest, elementControlsAreKeptWithTheClass)
{
    addTriangleNodes();
    sto_ElemCtrlParams controls;
    controls.SetElemCtrlParams("a", 1, 2, 3, "b", "c", 4, true, "d", 5, 6, 7, 8, 9, 10);
    const int label = 1;
    const int nodes[] = {10, 20, 30};
    sto_ElementArg arg;
    arg.type = "TRI3";
    arg.labels = &label;
    arg.numElements = 1;
    arg.connectivity = nodes;
    arg.nodesPerElement = 3;
    mesh.addElements(arg, "", &controls);
    model.reopen();
    const sto_ElementClass kept = model.model.part("P").mesh().elementData().elementClass(0);
    EXPECT_EQ(kept.data()->m_controlTexts, (std::vector<std::string>{"a", "b", "c", "d"}));
    EXPECT_EQ(kept.data()->m_controlValues, (std::vector<double>{1, 2, 3, 4, 1, 5, 6, 7, 8, 9, 10}));
}

TEST_F(sto_MeshTest, runOfMembersIsKeptWithoutAList)
{
    std::vector<int> many(1000);
    std::vector<float> points(3000, 0.0f);
    for (int i = 0; i < 1000; ++i) many[static_cast<std::size_t>(i)] = 3 * i + 1;
    mesh.addNodes(many.data(), points.data(), 1000, "");
    const sto_Set whole = mesh.Nset("whole", many.data(), 1000, true, false);
    const int back[] = {7, 4, 1};
    const sto_Set list = mesh.Nset("list", back, 3, false, true);
    model.reopen();
    const sto_Mesh again = model.model.part("P").mesh();
    const sto_Subset run = again.nset("whole").subSet(0);
    EXPECT_TRUE(run.isRun());
    EXPECT_EQ(run.firstMember(), 0);
    EXPECT_EQ(run.numMembers(), 1000);
    EXPECT_EQ(run.memberList(), nullptr);
    EXPECT_EQ(run.members()[999], 999);
    EXPECT_EQ(again.nset("whole").set()->m_members.size(), 0);
    EXPECT_TRUE(again.nset("whole").internalSet());
    const sto_Set unsorted = again.nset("list");
    EXPECT_FALSE(unsorted.subSet(0).isRun());
    EXPECT_TRUE(unsorted.unsortedSet());
    EXPECT_EQ(unsorted.subSet(0).members(), (std::vector<int>{2, 1, 0}));
    EXPECT_EQ(unsorted.subSet(0).memberList()[1], 1);
    EXPECT_EQ(unsorted.subSet(0).meshIndex(), again.meshIndex());
    EXPECT_EQ(unsorted.subSet(0).classIndex(), -1);
    EXPECT_EQ(unsorted.subSet(0).subsetType(), 6);
}

TEST_F(sto_MeshTest, setThatGrowsInManySmallStepsStaysOneSubset)
{
    const float point[3] = {};
    for (int label = 1; label <= 50; ++label) mesh.addNodes(&label, point, 1, "grown");
    const sto_Set grown = mesh.nset("grown");
    EXPECT_EQ(grown.numSubsets(), 1);
    EXPECT_EQ(grown.numMembers(), 50);
    EXPECT_TRUE(grown.subSet(0).isRun());
}

TEST_F(sto_MeshTest, elementSetGroupsItsMembersByClass)
{
    addTriangleNodes();
    addElements({1, 2, 3}, {10, 20, 30, 10, 20, 30, 10, 20, 30}, "TRI3", 3);
    addElements({11, 12}, {10, 20, 30, 10, 20, 30}, "SHELL3", 3);
    const int mixed[] = {12, 3, 11, 1};
    const sto_Set set = mesh.Elset("mixed", mixed, 4, false);
    ASSERT_EQ(set.numSubsets(), 2);
    EXPECT_EQ(set.subSet(0).classIndex(), 1);
    EXPECT_EQ(set.subSet(0).members(), (std::vector<int>{1, 0}));
    EXPECT_EQ(set.subSet(1).classIndex(), 0);
    EXPECT_EQ(set.subSet(1).members(), (std::vector<int>{2, 0}));
    EXPECT_EQ(set.numMembers(), 4);
    EXPECT_THROW(set.subSet(2), exc_TextException);
    const int unknown = 99;
    EXPECT_EQ(raisedText([&] { mesh.Elset("bad", &unknown, 1, false); }), "Invalid element label 99");
    EXPECT_FALSE(mesh.elset("bad").isValid());
}

TEST_F(sto_MeshTest, setNamesAreUniqueForEachType)
{
    addTriangleNodes();
    mesh.Nset("A", labels, 3, true, false);
    EXPECT_EQ(raisedText([&] { mesh.Nset("A", labels, 1, false, false); }), "Duplicate set or surface name A");
    addElements({1}, {10, 20, 30}, "TRI3", 3);
    const int element = 1;
    EXPECT_EQ(mesh.Elset("A", &element, 1, false).setLabel(), "A");
}

TEST_F(sto_MeshTest, listingTenThousandSetsReadsNoSetAndNoMember)
{
    addTriangleNodes();
    const int backward[] = {20, 10, 30}; // no run, so there is a list to stay away from
    for (int i = 0; i < 10000; ++i) {
        mesh.Nset("set " + std::to_string(i), backward, 3, i % 2 == 1, false);
    }
    model.reopen();
    const sto_SetList list = model.model.part("P").mesh().set();
    const std::size_t before = model.file->loadedObjects();
    ASSERT_EQ(list.length(), 10000);
    ASSERT_EQ(list.length(false), 5000);
    for (int i = 0; i < list.length(); ++i) {
        EXPECT_EQ(list.internalSet(i), i >= 5000);
        EXPECT_EQ(list.setType(i), setC_Set::nodeSet);
    }
    EXPECT_EQ(list.setLabel(4999), "set 9998");
    EXPECT_EQ(list.setLabel(5000), "set 1");
    EXPECT_EQ(model.file->loadedObjects(), before);
    // The size of a set takes its row, and still no member.
    EXPECT_EQ(list.get(17).numMembers(), 3);
    EXPECT_FALSE(list.get(17).set()->m_members.isLoaded());
}

TEST_F(sto_MeshTest, referenceToASetStaysGoodWhenItsMembersChange)
{
    addTriangleNodes();
    const sto_Set set = mesh.Nset("A", labels, 3, false, false);
    const lnk_ShortCut<setC_Set> kept = set.shortCut();
    mesh.modifyNodeSetLabels("A", labels, 1, false, true);
    EXPECT_EQ(sto_Set(kept).numMembers(), 1);
    EXPECT_TRUE(sto_Set(kept).unsortedSet());
    EXPECT_EQ(raisedText([&] { mesh.modifyNodeSetLabels("none", labels, 1, false, false); }),
              "Set \"none\" does not exist.");
    const int unknown = 99;
    EXPECT_EQ(raisedText([&] { mesh.modifyNodeSetLabels("A", &unknown, 1, false, false); }), "Invalid node label 99");
    EXPECT_EQ(set.numMembers(), 1);
}

TEST_F(sto_MeshTest, appendingNodeByNodeIsLinear)
{
    // A walk over all nodes for each new one would take hours here.
    const float point[3] = {1, 2, 3};
    int label = 1;
    for (int i = 0; i < 100000; ++i) {
        label = static_cast<int>((label * 48271LL) % 2147483647LL);
        mesh.addNodes(&label, point, 1, "");
    }
    EXPECT_EQ(mesh.nodeData().NumNodes(), 100000);
    EXPECT_EQ(mesh.nodeData().GetNodeIndexFromLabel(label), 99999);
}

TEST_F(sto_MeshTest, damagedCountsAreRefusedWithThePathOfTheFile)
{
    addTriangleNodes();
    addElements({1}, {10, 20, 30}, "TRI3", 3);
    mesh.Nset("A", labels, 3, false, false);
    model.file->save();
    model.file->close();
    sqlite3* raw = nullptr;
    ASSERT_EQ(sqlite3_open(model.path().c_str(), &raw), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(raw, "UPDATE grd_NodeData SET dimension = 7", nullptr, nullptr, nullptr), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(raw, "UPDATE grd_ElementClass SET elements = 5", nullptr, nullptr, nullptr), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(raw, "UPDATE setC_Set SET subsets = x'0000000000000000000000000A00000000000000FFFFFFFF'",
                           nullptr, nullptr, nullptr),
              SQLITE_OK);
    sqlite3_close(raw);
    model.opened = fio_File::Open(model.path().c_str(), false, true);
    model.file = model.opened.body();
    const sto_Mesh again(lnk_ShortCut<mshK_Mesh>(model.file, mesh.shortCut().id()));
    EXPECT_EQ(raisedText([&] { again.nodeData(); }),
              model.path() + ": labels and coordinates of a mesh differ in number; the file is damaged");
    EXPECT_EQ(raisedText([&] { again.elementData().elementClass(0, 0); }),
              model.path() + ": labels and connectivity of an element class differ in number; the file is damaged");
    EXPECT_EQ(raisedText([&] { again.nset("A").numMembers(); }),
              model.path() + ": the members of set \"A\" differ from their count; the file is damaged");
}

TEST_F(sto_MeshTest, connectivityToNodesThatAreNotThereIsRefused)
{
    addTriangleNodes();
    addElements({1}, {10, 20, 30}, "TRI3", 3);
    const auto shortCut = mesh.mesh()->m_classes.at(0);
    const auto changed = shortCut.fetchWritable();
    const int beyond[] = {0, 1, 3};
    changed->m_connectivity.assign(beyond, 3);
    shortCut.replace(changed);
    model.reopen();
    const sto_ElementClass read = model.model.part("P").mesh().elementData().elementClass(0);
    EXPECT_EQ(raisedText([&] { read.elementConnectivity(); }),
              model.path() + ": an element refers to a node that is not there; the file is damaged");
}

TEST_F(sto_MeshTest, temporarySetsLiveInMemoryAlone)
{
    addTriangleNodes();
    addElements({5, 6}, {10, 20, 30, 20, 10, 30}, "SHELL3", 3);
    addElements({7}, {10, 20}, "TRUSS2", 2);
    mesh.Nset("kept", labels, 3, true, false);
    model.file->save();
    const int two[] = {10, 20};
    const sto_Set first = mesh.temporarySet(setC_Set::nodeSet, "tmp", two, 2);
    EXPECT_EQ(first.setLabel(), "tmp");
    EXPECT_TRUE(first.internalSet());
    EXPECT_EQ(first.numSubsets(), 1);
    EXPECT_EQ(first.subSet(0).members(), (std::vector<int>{1, 2}));
    EXPECT_EQ(mesh.nset("tmp").numMembers(), 2);
    EXPECT_EQ(mesh.set().length(), 2);
    EXPECT_EQ(mesh.set().length(false), 0);
    EXPECT_EQ(mesh.set().setLabel(1), "tmp");
    EXPECT_EQ(mesh.set().setType(1), setC_Set::nodeSet);
    EXPECT_TRUE(mesh.set().internalSet(1));
    EXPECT_FALSE(mesh.set().has(setC_Set::nodeSet, "tmp"));

    // The next of that name takes its place; who holds the one before keeps it.
    const sto_Set second = mesh.temporarySet(setC_Set::nodeSet, "tmp", labels, 3);
    EXPECT_EQ(first.numMembers(), 2);
    EXPECT_EQ(second.numMembers(), 3);
    EXPECT_EQ(mesh.nset("tmp").numMembers(), 3);
    EXPECT_EQ(mesh.set().length(), 2);

    // Elements of one class make one subset, of two classes two, none none.
    const int elements[] = {6, 5, 7};
    EXPECT_EQ(mesh.temporarySet(setC_Set::elementSet, "tmp", elements, 2).numSubsets(), 1);
    EXPECT_EQ(mesh.temporarySet(setC_Set::elementSet, "tmp", elements, 3).numSubsets(), 2);
    EXPECT_EQ(mesh.temporarySet(setC_Set::elementSet, "tmp", nullptr, 0).numSubsets(), 0);
    const int unknown[] = {99};
    EXPECT_EQ(raisedText([&] { mesh.temporarySet(setC_Set::elementSet, "tmp", unknown, 1); }),
              "Invalid element label 99");
    EXPECT_EQ(raisedText([&] { mesh.temporarySet(setC_Set::nodeSet, "tmp", unknown, 1); }), "Invalid node label 99");

    // A set of users may have the name.
    EXPECT_EQ(mesh.Nset("tmp", two, 1, false, false).numMembers(), 1);
    EXPECT_EQ(mesh.nset("tmp").numMembers(), 1);
    model.reopen();
    const sto_Mesh read = model.model.part("P").mesh();
    EXPECT_EQ(read.set().length(), 2);
    EXPECT_EQ(read.nset("tmp").numMembers(), 1);
    EXPECT_FALSE(read.elset("tmp").isValid());
}
