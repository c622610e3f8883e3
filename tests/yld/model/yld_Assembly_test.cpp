#include "yld_Assembly.h"

#include "model_files.h"

#include <limits>

namespace {

// Two instances of two hexahedra each.
class yld_AssemblyTest : public ::testing::Test
{
protected:
    yld_AssemblyTest()
    {
        yld_Part& part = model.parts->Part("P", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
        addTwoHexes(part);
        assembly().Instance("P-1", part);
        assembly().Instance("P-2", part, rows<float>({{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {0, 0, 9}}));
    }
    yld_Assembly& assembly() { return *model.assembly; }

    ModelFile model;
};

} // namespace

TEST_F(yld_AssemblyTest, nameCanChange)
{
    EXPECT_EQ(assembly().name(), "Assembly");
    EXPECT_EQ(assembly().embeddedSpace(), yld_Enum::THREE_D);
    EXPECT_EQ(assembly().type(), yld_Enum::DEFORMABLE_BODY);
    assembly().setName("Whole");
    EXPECT_EQ(assembly().name(), "Whole");
    model.reopen();
    EXPECT_EQ(assembly().name(), "Whole");
    EXPECT_EQ(assembly().assembly().name(), "Whole");
}

TEST_F(yld_AssemblyTest, emptyAssembly)
{
    yld_Assembly none;
    EXPECT_EQ(none.instances().size(), 0);
    EXPECT_EQ(none.nodes().size(), 0);
    EXPECT_EQ(none.nodeSets().size(), 0);
    none.ReadMesh();
    none.ReadSets(true);
}

TEST_F(yld_AssemblyTest, takenInstanceNameIsRefusedBeforeTheStoreIsTouched)
{
    const int before = model.model.model()->m_nextMeshIndex;
    EXPECT_EQ(raised([&] { assembly().Instance("P-1", model.part("P")); }),
              "A part instance named \"P-1\" already exists.");
    EXPECT_EQ(model.model.model()->m_nextMeshIndex, before);
    EXPECT_EQ(model.model.rootAssembly().numInstances(), 2);
    model.reopen();
    EXPECT_EQ(vec(assembly().instances().keys()), (std::vector<std::string>{"P-1", "P-2"}));
    const yld_Assembly& constant = assembly();
    EXPECT_EQ(constant.instances().size(), 2);
    EXPECT_EQ(assembly().instance().size(), 2);
}

TEST_F(yld_AssemblyTest, instancesAreReadOnFirstUse)
{
    yld_Assembly fresh("Assembly", model.model.rootAssembly(), model.model);
    EXPECT_EQ(fresh.instance().size(), 0);
    EXPECT_EQ(fresh.instances().size(), 2);
    EXPECT_EQ(fresh.instance().size(), 2);
}

TEST_F(yld_AssemblyTest, nodeSetOverTwoInstances)
{
    yld_Set& set = assembly().NodeSet("A", names({"P-2", "P-1"}), {[] {
                                          yld_Sequence<yld_Sequence<int>> groups;
                                          groups.append(ints({12, 1}));
                                          groups.append(ints({5}));
                                          return groups;
                                      }()});
    const auto check = [](const yld_Set& read) {
        EXPECT_EQ(read.size(), 3);
        EXPECT_EQ(vec(read.instanceNames()), (std::vector<std::string>{"P-2", "P-1"}));
        EXPECT_EQ(labelsOf(read.nodes()), (std::vector<int>{12, 1}));
        EXPECT_EQ(labelsOf(read.nodes("P-1")), (std::vector<int>{5}));
        EXPECT_EQ(read.nodes("P-2")[0].coordinate(2), 10.0f); // (2,0,1) moved by 9
        EXPECT_EQ(raised([&] { read.nodes("P-3"); }), "Instance 'P-3 is not a member of the set 'A'");
        EXPECT_EQ(raised([&] { read.nodes(""); }), "Instance ' is not a member of the set 'A'");
        EXPECT_EQ(raised([&] { read.faces(); }), "Faces must be retrieved using the instance name for assembly sets.");
    };
    check(set);
    EXPECT_EQ(raised([&] { assembly().NodeSet("A", names({}), {}); }), "Duplicate set or surface name A");
    model.reopen();
    check(assembly().nodeSets().get("A"));
}

TEST_F(yld_AssemblyTest, elementSetOverTwoInstances)
{
    yld_Sequence<yld_Sequence<int>> groups;
    groups.append(ints({2}));
    groups.append(ints({2, 1}));
    groups.append(ints({1}));
    assembly().ElementSet("A", names({"P-1", "P-2", "P-1"}), groups);
    model.reopen();
    const yld_Set& read = assembly().elementSets().get("A");
    EXPECT_EQ(vec(read.instanceNames()), (std::vector<std::string>{"P-1", "P-2"}));
    EXPECT_EQ(labelsOf(read.elements("P-1")), (std::vector<int>{2, 1}));
    EXPECT_EQ(labelsOf(read.elements("P-2")), (std::vector<int>{2, 1}));
    EXPECT_EQ(vec(read.elements("P-2")[0].instanceNames()), std::vector<std::string>(8, "P-2"));
    EXPECT_EQ(raised([&] { read.nodes(); }), "This set does not contain nodes.");
}

TEST_F(yld_AssemblyTest, surfaceOverTwoInstances)
{
    yld_Sequence<yld_Sequence<int>> groups;
    groups.append(ints({1, 2}));
    groups.append(ints({2}));
    yld_Sequence<yld_Sequence<yld_Enum::yld_ElementFaceEnum>> sides;
    sides.append(faces({yld_Enum::FACE1, yld_Enum::FACE2}));
    sides.append(faces({yld_Enum::FACE6}));
    assembly().Surface("S", names({"P-1", "P-2"}), groups, sides);
    EXPECT_EQ(raised([&] {
                  assembly().Surface("S", names({"P-1", "P-2"}), groups, sides);
              }),
              "Duplicate set or surface name S");
    EXPECT_EQ(raised([&] {
                  assembly().Surface("T", names({"P-1", "P-9"}), groups, sides);
              }),
              "Key \"P-9\" not found in repository");
    EXPECT_EQ(raised([&] {
                  assembly().Surface("T", names({"P-1", ""}), groups, sides);
              }),
              "Key \"\" not found in repository");
    model.reopen();
    const yld_Set& read = assembly().surfaces().get("S");
    EXPECT_EQ(raised([&] { read.faces(); }), "Faces must be retrieved using the instance name for assembly sets.");
    EXPECT_EQ(vec(read.faces("P-1")), (std::vector<int>{11, 12}));
    EXPECT_EQ(vec(read.faces("P-2")), (std::vector<int>{16}));
    EXPECT_EQ(labelsOf(read.elements("P-2")), (std::vector<int>{2}));
}

TEST_F(yld_AssemblyTest, groupsAreTestedOneByOneAndNothingIsWritten)
{
    const yld_Sequence<yld_Sequence<int>> one = rows<int>({{1}});
    EXPECT_EQ(raised([&] { assembly().NodeSet("A", names({"Q"}), one); }),
              "The nodes associated with entity named 'Q' cannot be used to construct a set.");
    EXPECT_EQ(raised([&] { assembly().ElementSet("A", names({"Q"}), one); }),
              "The elements associated with entity named 'Q' cannot be used to construct a set.");
    EXPECT_EQ(raised([&] { assembly().NodeSet("A", names({""}), one); }),
              "No part instance name was specified for a group of nodes, but the assembly does not have a mesh.");
    EXPECT_EQ(raised([&] { assembly().ElementSet("A", names({""}), one); }),
              "No part instance name was specified for a group of elements, but the assembly does not have a mesh.");
    EXPECT_EQ(raised([&] {
                  assembly().NodeSet("A", names({"P-1", "P-2"}), rows<int>({{1}, {2, 99}}));
              }),
              "Invalid node label 99 for instance P-2");
    EXPECT_EQ(raised([&] {
                  assembly().ElementSet("A", names({"P-1", "P-2"}), rows<int>({{1}, {3}}));
              }),
              "Invalid element label 3 for instance P-2");
    // The first group that is wrong tells.
    EXPECT_EQ(raised([&] {
                  assembly().NodeSet("A", names({"P-1", "Q"}), rows<int>({{77}, {1}}));
              }),
              "Invalid node label 77 for instance P-1");
    assembly().addNodes(ints({5}), rows<float>({{0, 0, 0}}));
    EXPECT_EQ(raised([&] {
                  assembly().NodeSet("A", names({""}), rows<int>({{5, 6}}));
              }),
              "Invalid node label 6 for the assembly.");
    EXPECT_EQ(raised([&] { assembly().ElementSet("A", names({""}), rows<int>({{7}})); }),
              "Invalid element label 7 for the assembly.");
    EXPECT_EQ(raised([&] {
                  assembly().NodeSet("A", names({"P-1"}), rows<int>({{1}, {2}}));
              }),
              "Number of instance names and groups of labels does not match.");
    EXPECT_EQ(assembly().nodeSets().size(), 0);
    EXPECT_EQ(model.model.rootAssembly().set().length(), 0);
}

TEST_F(yld_AssemblyTest, nodesOfItsOwn)
{
    EXPECT_EQ(raised([&] { assembly().addNodes(yld_Sequence<int>(), {}); }), "No node labels provided.");
    EXPECT_EQ(raised([&] {
                  assembly().addNodes(ints({1}), rows<float>({{1, 2}}));
              }),
              "Node location specification does not correspond to part dimension. 3 floats expected; 2 floats "
              "received.");
    EXPECT_EQ(raised([&] { assembly().addNodes(ints({1}), {}); }),
              "Number of node labels and coordinates does not match.");
    EXPECT_FALSE(model.model.rootAssembly().hasMesh());
    assembly().addNodes(ints({100, 50}), rows<float>({{1, 2, 3}, {4, 5, 6}}), "ends");
    EXPECT_EQ(assembly().nodes().size(), 2);
    EXPECT_EQ(assembly().nodes().instanceName(), "rootAssembly");
    EXPECT_EQ(labelsOf(assembly().nodeSets().get("ends").nodes()), (std::vector<int>{100, 50}));
    // Made with the set, the mesh stands in it without a name; read, under its own.
    EXPECT_EQ(vec(assembly().nodeSets().get("ends").instanceNames()), (std::vector<std::string>{""}));
    model.reopen();
    EXPECT_EQ(assembly().nodes()[1].coordinate(2), 6.0f);
    EXPECT_EQ(vec(assembly().nodeSets().get("ends").instanceNames()), (std::vector<std::string>{"rootAssembly"}));
    EXPECT_EQ(labelsOf(assembly().nodeSets().get("ends").nodes("rootAssembly")), (std::vector<int>{100, 50}));
    assembly().addNodes(ints({60}), rows<float>({{7, 8, 9}}), "ends");
    EXPECT_EQ(labelsOf(assembly().nodeSets().get("ends").nodes()), (std::vector<int>{100, 50, 60}));
}

TEST_F(yld_AssemblyTest, setOverTheAssemblyAndAnInstance)
{
    assembly().addNodes(ints({100}), rows<float>({{1, 2, 3}}));
    yld_Set& set = assembly().NodeSet("A", names({"P-2", ""}), rows<int>({{3}, {100}}));
    EXPECT_EQ(vec(set.instanceNames()), (std::vector<std::string>{"P-2", ""}));
    EXPECT_EQ(labelsOf(set.nodes("")), (std::vector<int>{100}));
    model.reopen();
    const yld_Set& read = assembly().nodeSets().get("A");
    EXPECT_EQ(labelsOf(read.nodes("rootAssembly")), (std::vector<int>{100}));
    EXPECT_EQ(labelsOf(read.nodes("P-2")), (std::vector<int>{3}));
}

TEST_F(yld_AssemblyTest, setThatIsOlderThanTheMeshCanBeJoined)
{
    assembly().NodeSet("A", names({"P-1"}), rows<int>({{1}}));
    assembly().addNodes(ints({100}), rows<float>({{1, 2, 3}}), "A");
    const yld_Set& set = assembly().nodeSets().get("A");
    EXPECT_EQ(set.size(), 2);
    EXPECT_EQ(labelsOf(set.nodes("P-1")), (std::vector<int>{1}));
    EXPECT_EQ(labelsOf(set.nodes("")), (std::vector<int>{100}));
}

TEST_F(yld_AssemblyTest, elementsBetweenItsOwnNodes)
{
    EXPECT_EQ(raised([&] {
                  assembly().addElements(ints({1}), rows<int>({{1, 2}}), "TRUSS2");
              }),
              "Addition of elements of type \"TRUSS2\" is not permitted at the assembly level.");
    EXPECT_EQ(raised([&] { assembly().addElements(yld_Sequence<int>(), {}, "CONN3D2"); }),
              "No element labels provided.");
    EXPECT_EQ(raised([&] {
                  assembly().addElements(ints({1, 2}), rows<int>({{1, 2}}), "CONN3D2");
              }),
              "Connectivity array must be provided for all elements. ");
    EXPECT_EQ(raised([&] {
                  assembly().addElements(ints({1}), rows<int>({{1, 2, 3}}), "CONN3D2");
              }),
              "elements of type \"CONN3D2\" require \"2\" nodes in their connectivity data.\n");
    EXPECT_EQ(raisedText([&] {
                  assembly().addElements(ints({1}), rows<int>({{1, 2}}), "CONN3D2");
              }),
              "Element nodes do not exist at the assembly level.");
    assembly().addNodes(ints({100, 50}), rows<float>({{1, 2, 3}, {4, 5, 6}}));
    EXPECT_EQ(raised([&] {
                  assembly().addElements(ints({1}), rows<int>({{100, 51}}), "CONN3D2");
              }),
              "Node number \"51\" does not exist in the rootAssembly.\n");
    assembly().addElements(ints({1, 2}), rows<int>({{100, 50}, {50}}), "CONN3D2", "links",
                           yld_SectionCategory("c", "left out"));
    model.reopen();
    ASSERT_EQ(assembly().elements().size(), 2);
    EXPECT_EQ(vec(assembly().elements(0).connectivity()), (std::vector<int>{100, 50}));
    EXPECT_EQ(vec(assembly().elements(1).connectivity()), (std::vector<int>{50, 50}));
    EXPECT_EQ(vec(assembly().elements(1).instanceNames()), (std::vector<std::string>{"", ""}));
    EXPECT_EQ(assembly().elements(0).sectionCategory().name(), "");
    EXPECT_EQ(labelsOf(assembly().elementSets().get("links").elements()), (std::vector<int>{1, 2}));
}

TEST_F(yld_AssemblyTest, internalSets)
{
    assembly().NodeSet("hidden", names({"P-1"}), rows<int>({{1}}), true);
    assembly().NodeSet("open", names({"P-1"}), rows<int>({{3, 2}}), false, true);
    model.reopen();
    EXPECT_EQ(vec(assembly().nodeSets().keys()), (std::vector<std::string>{"open"}));
    EXPECT_TRUE(assembly().nodeSets().get("open").isUnsorted());
    assembly().ReadSets(true);
    EXPECT_EQ(assembly().nodeSets().size(), 2);
    EXPECT_TRUE(assembly().nodeSets().get("hidden").isInternal());
}

TEST_F(yld_AssemblyTest, setLabelsOfTheStoredAssemblyCanBeReplaced)
{
    assembly().NodeSet("A", names({"P-1"}), rows<int>({{1}}));
    sto_Assembly stored = assembly().assembly();
    stored.modifyNodeSetLabels("A", {{"P-2", {4, 5}}}, false, false);
    yld_Set& set = assembly().nodeSets().get("A");
    set.clearMembers();
    EXPECT_EQ(labelsOf(set.nodes("P-2")), (std::vector<int>{4, 5}));
    EXPECT_EQ(raisedText([&] { stored.modifyElementSetLabels("A", {}, false, false); }), "Set \"A\" does not exist.");
    EXPECT_EQ(raisedText([&] { stored.instance("Q"); }), "There is no part instance named \"Q\".");
}

TEST_F(yld_AssemblyTest, connectorBetweenTwoInstancesMakesTheMesh)
{
    assembly().addElements(ints({1, 2}), rows<int>({{5, 1}, {1, 12}}), names({"P-1", "P-2", "P-2", "P-1"}), "CONN3D2",
                           "links");
    const auto check = [](yld_Assembly& read) {
        ASSERT_EQ(read.elements().size(), 2);
        EXPECT_EQ(read.nodes().size(), 0);
        EXPECT_EQ(vec(read.elements(0).connectivity()), (std::vector<int>{5, 1}));
        EXPECT_EQ(vec(read.elements(0).instanceNames()), (std::vector<std::string>{"P-1", "P-2"}));
        EXPECT_EQ(vec(read.getElementFromLabel(2).connectivity()), (std::vector<int>{1, 12}));
        EXPECT_EQ(vec(read.getElementFromLabel(2).instanceNames()), (std::vector<std::string>{"P-2", "P-1"}));
        EXPECT_EQ(labelsOf(read.elementSets().get("links").elements()), (std::vector<int>{1, 2}));
        const sto_NodeData nodes = read.assembly().mesh().nodeData();
        // Node 1 of P-2 stands in both elements and is kept once.
        EXPECT_EQ(nodes.data()->numForeignNodes(), 3);
        EXPECT_EQ(nodes.GetUserNodeLabel(grd_NodeData::firstForeignNode + 2), 12);
        EXPECT_EQ(sto_ScopedNodeData(nodes).getInstanceNode(grd_NodeData::firstForeignNode + 2), 11);
        EXPECT_EQ(raisedText([&] { nodes.GetUserNodeLabel(grd_NodeData::firstForeignNode + 3); }),
                  "Node index out of range.");
        EXPECT_EQ(raisedText([&] { nodes.GetUserNodeLabel(0); }), "Node index out of range.");
    };
    check(assembly());
    model.reopen();
    check(assembly());
    // A node known from before is found again, also after reopening.
    assembly().addElements(ints({3}), rows<int>({{12, 1}}), names({"P-1", "P-2"}), "CONN3D2");
    EXPECT_EQ(assembly().assembly().mesh().nodeData().data()->numForeignNodes(), 3);
}

TEST_F(yld_AssemblyTest, nodesOfTheAssemblyAndOfInstancesInOneElement)
{
    assembly().addNodes(ints({5}), rows<float>({{1, 2, 3}}));
    assembly().addElements(ints({1, 2}), rows<int>({{5, 5}, {5}}), names({"", "P-1", "P-2", "P-2"}), "CONN3D2");
    assembly().addNodes(ints({6}), rows<float>({{4, 5, 6}}));
    assembly().addElements(ints({3}), rows<int>({{6, 5}}), names({"", "P-1"}), "CONN3D2");
    model.reopen();
    EXPECT_EQ(vec(assembly().elements(0).instanceNames()), (std::vector<std::string>{"", "P-1"}));
    EXPECT_EQ(vec(assembly().elements(1).connectivity()), (std::vector<int>{5, 5}));
    EXPECT_EQ(vec(assembly().elements(1).instanceNames()), (std::vector<std::string>{"P-2", "P-2"}));
    EXPECT_EQ(vec(assembly().elements(2).connectivity()), (std::vector<int>{6, 5}));
    EXPECT_EQ(assembly().nodes().size(), 2);
    EXPECT_EQ(assembly().nodes(1).label(), 6);
}

TEST_F(yld_AssemblyTest, elementsBetweenInstancesAreCheckedBeforeAnythingIsWritten)
{
    EXPECT_EQ(raised([&] {
                  assembly().addElements(ints({1}), rows<int>({{1, 2}}), names({"P-1", "P-2"}), "HEX8");
              }),
              "Addition of elements of type \"HEX8\" is not permitted at the assembly level.");
    EXPECT_EQ(raised([&] {
                  assembly().addElements(ints({1}), rows<int>({{1, 2}}), names({"P-1"}), "CONN3D2");
              }),
              "Instance names must be specified for all nodes in the connectivity array.");
    EXPECT_EQ(raised([&] {
                  assembly().addElements(ints({1}), rows<int>({{1, 2}}), names({"P-1", "Q"}), "CONN3D2");
              }),
              "Invalid part name provided to addNodes().\n Part Instance \"Q\" does not exist.");
    EXPECT_EQ(raised([&] {
                  assembly().addElements(ints({1}), rows<int>({{1, 99}}), names({"P-1", "P-2"}), "CONN3D2");
              }),
              "Node number \"99\" does not exist in the part instance \"P-2\".\n");
    EXPECT_EQ(raised([&] {
                  assembly().addElements(ints({1}), rows<int>({{1, 2}}), names({"P-1", ""}), "CONN3D2");
              }),
              "Node number \"2\" does not exist in the rootAssembly.\n");
    EXPECT_FALSE(assembly().assembly().hasMesh());
    assembly().addElements(ints({1}), rows<int>({{1, 2}}), names({"P-1", "P-2"}), "CONN3D2");
    EXPECT_EQ(raised([&] {
                  assembly().addElements(ints({1}), rows<int>({{7, 8}}), names({"P-1", "P-2"}), "CONN3D2");
              }),
              "Element label 1 exists already.");
    EXPECT_EQ(assembly().assembly().mesh().nodeData().data()->numForeignNodes(), 2);
}

TEST_F(yld_AssemblyTest, nodeSetCanGetOtherMembers)
{
    assembly().NodeSet("A", names({"P-1"}), rows<int>({{1, 2}}));
    yld_Set& set = assembly().nodeSets().get("A");
    EXPECT_EQ(labelsOf(set.nodes()), (std::vector<int>{1, 2}));
    yld_Set& changed = assembly().ModifyNodeSet("A", names({"P-2", "P-1"}), rows<int>({{9, 3}, {4}}), false, true);
    EXPECT_EQ(&changed, &set);
    EXPECT_EQ(labelsOf(changed.nodes("P-2")), (std::vector<int>{9, 3}));
    EXPECT_EQ(labelsOf(changed.nodes("P-1")), (std::vector<int>{4}));
    EXPECT_TRUE(changed.isUnsorted());
    model.reopen();
    EXPECT_EQ(assembly().nodeSets().get("A").size(), 3);
    EXPECT_EQ(labelsOf(assembly().nodeSets().get("A").nodes("P-2")), (std::vector<int>{9, 3}));
    EXPECT_TRUE(assembly().nodeSets().get("A").isUnsorted());
}

TEST_F(yld_AssemblyTest, nodeSetToModifyIsTestedAsANewOne)
{
    assembly().NodeSet("A", names({"P-1"}), rows<int>({{1, 2}}));
    EXPECT_EQ(raised([&] { assembly().ModifyNodeSet("B", names({"P-1"}), rows<int>({{1}})); }),
              "Set \"B\" does not exist.");
    EXPECT_EQ(raised([&] { assembly().ModifyNodeSet("A", names({"Q"}), rows<int>({{1}})); }),
              "The nodes associated with entity named 'Q' cannot be used to construct a set.");
    EXPECT_EQ(raised([&] { assembly().ModifyNodeSet("A", names({""}), rows<int>({{1}})); }),
              "No part instance name was specified for a group of nodes, but the assembly does not have a mesh.");
    EXPECT_EQ(raised([&] { assembly().ModifyNodeSet("A", names({"P-2"}), rows<int>({{99}})); }),
              "Invalid node label 99 for instance P-2");
    assembly().addNodes(ints({5}), rows<float>({{0, 0, 0}}));
    EXPECT_EQ(raised([&] {
                  assembly().ModifyNodeSet("A", names({"P-1", ""}), rows<int>({{1}, {6}}));
              }),
              "Invalid node label 6 for the assembly.");
    EXPECT_EQ(labelsOf(assembly().nodeSets().get("A").nodes("P-1")), (std::vector<int>{1, 2}));
    // A mesh that is younger than the set can be used.
    yld_Set& set = assembly().ModifyNodeSet("A", names({"", "P-1"}), rows<int>({{5}, {7}}));
    EXPECT_EQ(labelsOf(set.nodes("")), (std::vector<int>{5}));
    EXPECT_EQ(labelsOf(set.nodes("P-1")), (std::vector<int>{7}));
    assembly().Instance("P-3", model.part("P"));
    EXPECT_EQ(labelsOf(assembly().ModifyNodeSet("A", names({"P-3"}), rows<int>({{8}})).nodes("P-3")),
              (std::vector<int>{8}));
}

TEST_F(yld_AssemblyTest, elementSetCanGetOtherMembers)
{
    assembly().ElementSet("A", names({"P-1"}), rows<int>({{1, 2}}));
    EXPECT_EQ(labelsOf(assembly().elementSets().get("A").elements()), (std::vector<int>{1, 2}));
    yld_Set& set = assembly().ModifyElementSet("A", names({"P-2"}), rows<int>({{2}}));
    EXPECT_EQ(vec(set.instanceNames()), (std::vector<std::string>{"P-2"}));
    EXPECT_EQ(labelsOf(set.elements()), (std::vector<int>{2}));
    // The text is that of a name given twice, although the set is missing.
    EXPECT_EQ(raised([&] { assembly().ModifyElementSet("B", names({"P-1"}), rows<int>({{1}})); }),
              "Duplicate set or surface name B");
    EXPECT_EQ(raised([&] { assembly().ModifyElementSet("A", names({"Q"}), rows<int>({{1}})); }),
              "The elements associated with entity named 'Q' cannot be used to construct a set.");
    // The empty name stands for nothing here, even where the assembly has a mesh.
    assembly().addNodes(ints({5}), rows<float>({{0, 0, 0}}));
    assembly().addElements(ints({1}), rows<int>({{5}}), "POINTMASS");
    EXPECT_EQ(raised([&] { assembly().ModifyElementSet("A", names({""}), rows<int>({{1}})); }),
              "The elements associated with entity named '' cannot be used to construct a set.");
    // Labels are first looked at where they are needed, and then without the instance's name.
    EXPECT_EQ(raised([&] {
                  assembly().ModifyElementSet("A", names({"P-1", "P-2"}), rows<int>({{1}, {9}}));
              }),
              "Invalid element label 9");
    model.reopen();
    EXPECT_EQ(labelsOf(assembly().elementSets().get("A").elements("P-2")), (std::vector<int>{2}));
    EXPECT_EQ(assembly().elementSets().get("A").size(), 1);
}

TEST_F(yld_AssemblyTest, surfaceCanGetOtherMembers)
{
    const auto sides = [](std::initializer_list<yld_Enum::yld_ElementFaceEnum> list) {
        yld_Sequence<yld_Sequence<yld_Enum::yld_ElementFaceEnum>> all;
        all.append(faces(list));
        return all;
    };
    assembly().Surface("S", names({"P-1"}), rows<int>({{1}}), sides({yld_Enum::FACE1}));
    EXPECT_EQ(vec(assembly().surfaces().get("S").faces("P-1")), (std::vector<int>{11}));
    yld_Set& set = assembly().ModifySurface("S", names({"P-2"}), rows<int>({{2, 1, 99}}),
                                            sides({yld_Enum::FACE5, yld_Enum::FACE2, yld_Enum::FACE1}));
    EXPECT_EQ(labelsOf(set.elements("P-2")), (std::vector<int>{2, 1}));
    EXPECT_EQ(vec(set.faces("P-2")), (std::vector<int>{15, 12}));
    EXPECT_EQ(
        raised([&] { assembly().ModifySurface("T", names({"P-1"}), rows<int>({{1}}), sides({yld_Enum::FACE1})); }),
        "Duplicate set or surface name T");
    EXPECT_EQ(raised([&] { assembly().ModifySurface("S", names({"Q"}), rows<int>({{1}}), sides({yld_Enum::FACE1})); }),
              "Key \"Q\" not found in repository");
    EXPECT_EQ(raised([&] { assembly().ModifySurface("S", names({""}), rows<int>({{1}}), sides({yld_Enum::FACE1})); }),
              "Key \"\" not found in repository");
    EXPECT_EQ(
        raisedText([&] { assembly().ModifySurface("S", names({"P-1"}), rows<int>({{1}}), sides({yld_Enum::SIDE1})); }),
        "Invalid face identifier for continuum elements");
    model.reopen();
    EXPECT_EQ(vec(assembly().surfaces().get("S").faces("P-2")), (std::vector<int>{15, 12}));
    EXPECT_EQ(assembly().surfaces().get("S").size(), 2);
}

TEST_F(yld_AssemblyTest, modifiedSetsStayInternal)
{
    assembly().NodeSet("hidden", names({"P-1"}), rows<int>({{1}}), true);
    assembly().ModifyNodeSet("hidden", names({"P-1"}), rows<int>({{2}}), false, false);
    model.reopen();
    EXPECT_EQ(assembly().nodeSets().size(), 0);
    assembly().ReadSets(true);
    EXPECT_TRUE(assembly().nodeSets().get("hidden").isInternal());
    EXPECT_EQ(labelsOf(assembly().nodeSets().get("hidden").nodes()), (std::vector<int>{2}));
}

TEST_F(yld_AssemblyTest, refusedNodesAndElementsLeaveNoMeshBehind)
{
    const int before = model.model.model()->m_nextMeshIndex;
    const float nan = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(raised([&] {
                  assembly().addNodes(ints({0}), rows<float>({{1, 2, 3}}));
              }),
              "Invalid node label 0: labels begin at 1.");
    EXPECT_EQ(raised([&] {
                  assembly().addNodes(ints({-7}), rows<float>({{1, 2, 3}}));
              }),
              "Invalid node label -7: labels begin at 1.");
    EXPECT_EQ(raised([&] {
                  assembly().addNodes(ints({4, 4}), rows<float>({{1, 2, 3}, {1, 2, 3}}));
              }),
              "Node label 4 is given twice.");
    EXPECT_EQ(raised([&] {
                  assembly().addNodes(ints({4}), rows<float>({{1, nan, 3}}));
              }),
              "The coordinates of node 4 are not numbers.");
    EXPECT_EQ(raised([&] {
                  assembly().addElements(ints({0}), rows<int>({{1, 2}}), names({"P-1", "P-2"}), "CONN3D2");
              }),
              "Invalid element label 0: labels begin at 1.");
    EXPECT_EQ(raised([&] {
                  assembly().addElements(ints({3, 3}), rows<int>({{1, 2}, {3, 4}}), names({"P-1", "P-2", "P-1", "P-2"}),
                                         "CONN3D2");
              }),
              "Element label 3 is given twice.");
    EXPECT_FALSE(assembly().assembly().hasMesh());
    EXPECT_EQ(model.model.model()->m_nextMeshIndex, before);
    EXPECT_EQ(assembly().nodes().size(), 0);
}

TEST_F(yld_AssemblyTest, elementControlsGoToTheClassThatWasMadeLast)
{
    const yld_ElemCtrlParams first("first", 1, 2, 3, "b", "c", 4, false, "d", 5, 6, 7, 8, 9, 10);
    const yld_ElemCtrlParams second("second", 1, 2, 3, "b", "c", 4, false, "d", 5, 6, 7, 8, 9, 10);
    assembly().addNodes(ints({1, 2}), rows<float>({{0, 0, 0}, {1, 0, 0}}));
    assembly().addElements(ints({1}), rows<int>({{1, 2}}), "CONN3D2", "", yld_SectionCategory(), first);
    assembly().addElements(ints({2}), rows<int>({{1}}), "POINTMASS");
    // The third element joins the first class; its controls do not.
    assembly().addElements(ints({3}), rows<int>({{2, 1}}), "CONN3D2", "", yld_SectionCategory(), second);
    model.reopen();
    const sto_ElementData elements = assembly().assembly().mesh().elementData();
    ASSERT_EQ(elements.numClasses(), 2);
    EXPECT_EQ(elements.elementClass(0).numElements(), 2);
    EXPECT_EQ(elements.elementClass(0).data()->m_controlTexts[0], "first");
    EXPECT_EQ(elements.elementClass(1).data()->m_controlTexts[0], "second");
    // The form with instances as well.
    assembly().addElements(ints({4}), rows<int>({{1, 1}}), names({"P-1", "P-2"}), "CONN3D2", "", yld_SectionCategory(),
                           first);
    EXPECT_EQ(assembly().assembly().mesh().elementData().elementClass(1).data()->m_controlTexts[0], "first");
}

TEST_F(yld_AssemblyTest, unknownTypesOfSetsAreRefused)
{
    mrp_Container<setC_Set> sets = model.model.rootAssembly().shortCut().fetch()->m_sets;
    sets.append("Xodd", lnk_ShortCut<setC_Set>::create(model.file, setC_Set()));
    EXPECT_EQ(raised([&] { assembly().ReadSets(false); }), "Unknown Set type.");
}
