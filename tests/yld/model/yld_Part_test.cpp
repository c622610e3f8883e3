#include "yld_Part.h"

#include "model_files.h"

#include "platform/text/prg_WIP.h"

#include <limits>

namespace {

class yld_PartTest : public ::testing::Test
{
protected:
    yld_PartTest() : part(model.parts->Part("P", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY)) {}

    ModelFile model;
    yld_Part& part;
};

class Collector : public prg_WipReporter
{
public:
    Collector() : m_before(lok_ThreadSingleton<prg_WIP>::Instance().InstallReporter(this)) { m_errors = true; }
    ~Collector() override { lok_ThreadSingleton<prg_WIP>::Instance().InstallReporter(m_before); }

    using prg_WipReporter::Error;
    void Error(const msg_StringBase& text, int) override { texts.push_back(text.cStr()); }

    std::vector<std::string> texts;

private:
    prg_WipReporter* m_before;
};

} // namespace

TEST_F(yld_PartTest, newPartHasNoMesh)
{
    EXPECT_EQ(part.name(), "P");
    EXPECT_EQ(part.embeddedSpace(), yld_Enum::THREE_D);
    EXPECT_EQ(part.type(), yld_Enum::DEFORMABLE_BODY);
    EXPECT_EQ(part.nodes().size(), 0);
    EXPECT_EQ(part.elements().size(), 0);
    EXPECT_EQ(part.nodes().instanceName(), "");
    EXPECT_EQ(part.elementClasses().size(), 0);
    EXPECT_EQ(part.nodeSets().size(), 0);
    EXPECT_EQ(raised([&] { part.nodes(0); }), "Node index out of range.");
    EXPECT_EQ(raised([&] { part.elements(0); }), "Entity has no mesh.");
    EXPECT_EQ(raised([&] { part.getElementFromLabel(1); }), "Entity has no mesh.");
}

TEST_F(yld_PartTest, sequenceOfAPartWithoutNodesTakesNone)
{
    yld_SequenceNode none;
    EXPECT_EQ(raised([&] { none.append(yld_Node()); }), "SequenceNode is not associated with an discrete entity.");
    yld_SequenceNode nodes(part.nodes());
    EXPECT_EQ(raised([&] { nodes.append(yld_Node()); }), "SequenceNode is not associated with an discrete entity.");
    yld_SequenceElement elements(part.elements());
    EXPECT_EQ(raised([&] { elements.append(yld_Element()); }),
              "SequenceElement is not associated with an discrete entity.");
    part.addNodes(ints({4}), rows<float>({{1, 2, 3}}));
    yld_SequenceNode some(yld_Sequence<int>(), part.mesh());
    const float elsewhere[] = {9, 9, 9};
    some.append(yld_Node(17, 4, 99, elsewhere));
    ASSERT_EQ(some.size(), 1);
    // Only the label counts: it is this mesh's node.
    EXPECT_EQ(some[0].index(), 0);
    EXPECT_EQ(some[0].coordinate(1), 2.0f);
}

TEST_F(yld_PartTest, roundTrip)
{
    addTwoHexes(part);
    part.addElements(ints({7}), rows<int>({{1, 2, 3, 4}}), "SHELL4", "skin", yld_SectionCategory("c", "thin"));
    part.addNodes(ints({2147483647}), rows<float>({{7, 8, 9}}), "far");
    model.reopen();
    yld_Part& read = model.part("P");
    ASSERT_EQ(read.nodes().size(), 13);
    EXPECT_EQ(read.nodes(12).label(), 2147483647);
    EXPECT_EQ(read.getNodeFromLabel(2147483647).coordinate(2), 9.0f);
    EXPECT_EQ(read.getNodeFromLabel(7).coordinate(0), 1.0f);
    ASSERT_EQ(read.elements().size(), 3);
    EXPECT_EQ(vec(read.elements(1).connectivity()), (std::vector<int>{5, 6, 7, 8, 9, 10, 11, 12}));
    EXPECT_EQ(read.elements(2).type(), "SHELL4");
    EXPECT_EQ(read.getElementFromLabel(7).classIndex(), 1);
    EXPECT_EQ(labelsOf(read.nodeSets().get("far").nodes()), (std::vector<int>{2147483647}));
    EXPECT_EQ(labelsOf(read.elementSets().get("skin").elements()), (std::vector<int>{7}));
    const yld_Sequence<yld_ElementClass>& classes = read.elementClasses();
    ASSERT_EQ(classes.size(), 2);
    EXPECT_EQ(classes[1].typeLabel(), "SHELL4");
    EXPECT_EQ(classes[1].categoryLabel(), "thin");
    EXPECT_EQ(classes[1].classIndex(), 1);
    EXPECT_EQ(classes[0].numElements(), 2);
    EXPECT_EQ(classes[0].numNodesPerElement(), 8);
    EXPECT_EQ(classes[0].numIntegrationPointsPerElement(), 8);
    EXPECT_EQ(classes[0].numFacesPerElement(), 6);
    EXPECT_EQ(classes[0].maxIntegrationPointsPerFace(), 4);
    // The part can be added to where it was left.
    read.addNodes(ints({500}), rows<float>({{0, 0, 0}}), "far");
    EXPECT_EQ(labelsOf(read.nodeSets().get("far").nodes()), (std::vector<int>{2147483647, 500}));
}

TEST_F(yld_PartTest, planePart)
{
    yld_Part& plane = model.parts->Part("plane", yld_Enum::TWO_D_PLANAR, yld_Enum::DEFORMABLE_BODY);
    EXPECT_EQ(raised([&] {
                  plane.addNodes(ints({1}), rows<float>({{1, 2, 3}}));
              }),
              "Node location specification does not correspond to part dimension. 2 floats expected; 3 floats "
              "received.");
    plane.addNodes(ints({3, 2, 1, 4}), rows<float>({{0, 1}, {1, 1}, {1, 0}, {0, 0}}));
    plane.addElements(ints({1}), rows<int>({{4, 1, 2, 3}}), "QUAD4");
    model.parts->Part("axis", yld_Enum::AXISYMMETRIC, yld_Enum::DEFORMABLE_BODY)
        .addNodes(ints({1}), rows<float>({{5, 6}}));
    model.reopen();
    EXPECT_EQ(model.part("plane").embeddedSpace(), yld_Enum::TWO_D_PLANAR);
    EXPECT_EQ(model.part("axis").embeddedSpace(), yld_Enum::AXISYMMETRIC);
    const yld_Node node = model.part("plane").getNodeFromLabel(1);
    EXPECT_EQ(node.coordinate(0), 1.0f);
    EXPECT_EQ(node.coordinate(1), 0.0f);
    EXPECT_EQ(node.coordinate(2), 0.0f);
    EXPECT_EQ(vec(model.part("plane").elements(0).connectivity()), (std::vector<int>{4, 1, 2, 3}));
}

TEST_F(yld_PartTest, nodesAreCheckedBeforeAnyIsAdded)
{
    EXPECT_EQ(raised([&] {
                  part.addNodes(yld_Sequence<int>(), rows<float>({{1, 2, 3}}));
              }),
              "No node labels provided.");
    EXPECT_EQ(raised([&] {
                  part.addNodes(ints({1, 2}), rows<float>({{1, 2, 3}}));
              }),
              "Number of node labels and coordinates does not match.");
    EXPECT_EQ(raised([&] {
                  part.addNodes(ints({1}), rows<float>({{1, 2}}));
              }),
              "Node location specification does not correspond to part dimension. 3 floats expected; 2 floats "
              "received.");
    EXPECT_EQ(raised([&] {
                  part.addNodes(ints({0}), rows<float>({{1, 2, 3}}));
              }),
              "Invalid node label 0: labels begin at 1.");
    EXPECT_EQ(part.nodes().size(), 0);
    part.addNodes(ints({1}), rows<float>({{1, 2, 3}}));
    EXPECT_EQ(raised([&] {
                  part.addNodes(ints({2, 1}), rows<float>({{1, 2, 3}, {1, 2, 3}}));
              }),
              "Node label 1 exists already.");
    EXPECT_EQ(part.nodes().size(), 1);
}

TEST_F(yld_PartTest, addingToAMeshKeepsHandleAndSequences)
{
    part.addNodes(ints({1}), rows<float>({{1, 2, 3}}));
    const yld_MeshHandle handle = part.mesh();
    const yld_SequenceNode nodes = part.nodes();
    EXPECT_EQ(nodes.size(), 1);
    part.addNodes(ints({2}), rows<float>({{4, 5, 6}}));
    EXPECT_TRUE(part.mesh() == handle);
    EXPECT_EQ(nodes.size(), 2);
    EXPECT_EQ(nodes[1].coordinate(0), 4.0f);
}

TEST_F(yld_PartTest, holdersOfAnUnboundMeshSeeItBound)
{
    const yld_Part copy(part);
    addTwoHexes(part);
    EXPECT_EQ(copy.nodes().size(), 12);
    EXPECT_EQ(copy.nodes().instanceName(), "P");
}

TEST_F(yld_PartTest, elementsAreCheckedBeforeAnyIsAdded)
{
    addTwoHexes(part);
    EXPECT_EQ(raised([&] { part.addElements(yld_Sequence<int>(), rows<int>({{1}}), "HEX8"); }),
              "No element labels provided.");
    EXPECT_EQ(raised([&] {
                  part.addElements(ints({5, 6}), rows<int>({{1, 2, 3}}), "TRI3");
              }),
              "Connectivity array must be provided for all elements. ");
    EXPECT_EQ(raised([&] {
                  part.addElements(ints({5}), rows<int>({{1, 2, 3, 4}}), "HEX8");
              }),
              "elements of type \"HEX8\" require \"8\" nodes in their connectivity data.\n");
    EXPECT_EQ(raised([&] {
                  part.addElements(ints({5, 6}), rows<int>({{1, 2, 3}, {1, 2}}), "TRI3");
              }),
              "Element connectivity arrays should be of same length.");
    EXPECT_EQ(raised([&] {
                  part.addElements(ints({5}), rows<int>({{1, 2, 99}}), "TRI3");
              }),
              "Node number \"99\" of element \"5\" does not exist.");
    EXPECT_EQ(raised([&] {
                  part.addElements(ints({2}), rows<int>({{1, 2, 3}}), "TRI3");
              }),
              "Element label 2 exists already.");
    EXPECT_EQ(part.elements().size(), 2);
    EXPECT_EQ(part.part().mesh().elementData().numClasses(), 1);
    // An unknown type may have any width.
    part.addElements(ints({5}), rows<int>({{1, 2, 3, 4, 5}}), "USER5");
    EXPECT_EQ(part.getElementFromLabel(5).type(), "USER5");
}

TEST_F(yld_PartTest, countOfElementsStaysStaleUntilTheNextWholeSequence)
{
    addTwoHexes(part);
    EXPECT_EQ(part.elements().size(), 2);
    part.addElements(ints({3}), rows<int>({{1, 2, 3}}), "TRI3");
    EXPECT_EQ(part.mesh()->elementCount(false), 2);
    EXPECT_EQ(part.getElementFromLabel(3).type(), "TRI3");
    EXPECT_EQ(part.elements().size(), 3);
}

TEST_F(yld_PartTest, groundedConnectorsGetTheirNodeTwice)
{
    addTwoHexes(part);
    const yld_Sequence<yld_Sequence<int>> given = rows<int>({{3}, {1, 2}, {4}});
    part.addElements(ints({10, 11, 12}), given, "CONN3D2");
    EXPECT_EQ(vec(part.getElementFromLabel(10).connectivity()), (std::vector<int>{3, 3}));
    EXPECT_EQ(vec(part.getElementFromLabel(11).connectivity()), (std::vector<int>{1, 2}));
    EXPECT_EQ(vec(part.getElementFromLabel(12).connectivity()), (std::vector<int>{4, 4}));
    EXPECT_EQ(given[0].size(), 1);
}

TEST_F(yld_PartTest, nodeSets)
{
    addTwoHexes(part);
    yld_Set& set = part.NodeSet("A", ints({5, 3, 3, 12}));
    EXPECT_EQ(set.name(), "A");
    EXPECT_EQ(set.type(), yld_Enum::NODE_SET);
    // Order and repetitions pass through.
    EXPECT_EQ(labelsOf(set.nodes()), (std::vector<int>{5, 3, 3, 12}));
    EXPECT_EQ(raised([&] { part.NodeSet("A", ints({1})); }), "Duplicate set or surface name A");
    EXPECT_EQ(raised([&] { part.NodeSet("B", ints({1, 99, 98})); }), "Invalid node label 99");
    EXPECT_FALSE(part.nodeSets().isMember("B"));
    // Another type of set may have the name.
    EXPECT_EQ(part.ElementSet("A", ints({2})).size(), 1);
    const yld_SequenceNode some = part.nodes().slice(2, 4);
    EXPECT_EQ(labelsOf(part.NodeSet("C", some).nodes()), (std::vector<int>{3, 4}));
    EXPECT_EQ(raised([&] { part.NodeSet("D", yld_SequenceNode()); }),
              "SequenceNode is not associated with this entity.");
}

TEST_F(yld_PartTest, elementSets)
{
    addTwoHexes(part);
    EXPECT_EQ(labelsOf(part.ElementSet("A", ints({2, 1})).elements()), (std::vector<int>{2, 1}));
    EXPECT_EQ(raised([&] { part.ElementSet("A", ints({1})); }), "Duplicate set or surface name A");
    EXPECT_EQ(raised([&] { part.ElementSet("B", ints({3})); }), "Invalid element label 3");
    EXPECT_EQ(labelsOf(part.ElementSet("C", part.elements()).elements()), (std::vector<int>{1, 2}));
    EXPECT_EQ(raised([&] { part.ElementSet("D", yld_SequenceElement()); }),
              "SequenceElement is not associated with this entity.");
}

TEST_F(yld_PartTest, internalAndUnsortedSetsSurvive)
{
    addTwoHexes(part);
    part.NodeSet("open", ints({9, 2}), false, true);
    part.NodeSet("hidden", ints({1}), true, false);
    part.ElementSet("hidden", ints({1}), true);
    model.reopen();
    yld_Part& read = model.part("P");
    EXPECT_EQ(vec(read.nodeSets().keys()), (std::vector<std::string>{"open"}));
    EXPECT_EQ(read.elementSets(false).size(), 0);
    EXPECT_TRUE(read.nodeSets().get("open").isUnsorted());
    EXPECT_FALSE(read.nodeSets().get("open").isInternal());
    EXPECT_EQ(labelsOf(read.nodeSets().get("open").nodes()), (std::vector<int>{9, 2}));
    // The flag of the first call that finds something wins.
    EXPECT_EQ(read.nodeSets(true).size(), 1);
    EXPECT_EQ(read.elementSets(true).size(), 1);
    EXPECT_TRUE(read.elementSets(false).get("hidden").isInternal());
    const yld_Part& constant = read;
    EXPECT_EQ(constant.nodeSets(false, true).size(), 1);
}

TEST_F(yld_PartTest, classesAreLookedForUntilThereAreSome)
{
    part.addNodes(ints({1, 2, 3}), rows<float>({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}));
    EXPECT_EQ(part.elementClasses().size(), 0);
    part.addElements(ints({1}), rows<int>({{1, 2, 3}}), "SHELL3");
    EXPECT_EQ(part.elementClasses().size(), 1);
    // Once there are some, they stay.
    part.addElements(ints({2}), rows<int>({{1, 2, 3}}), "MEMBRANE3");
    EXPECT_EQ(part.elementClasses().size(), 1);
}

TEST_F(yld_PartTest, setsOfThreeTypesBesideEachOther)
{
    addTwoHexes(part);
    part.NodeSet("A", ints({1}));
    part.ElementSet("A", ints({1}));
    part.Surface("A", ints({1}), faces({yld_Enum::FACE1}));
    model.reopen();
    EXPECT_EQ(model.part("P").nodeSets().get("A").type(), yld_Enum::NODE_SET);
    EXPECT_EQ(model.part("P").elementSets().get("A").type(), yld_Enum::ELEMENT_SET);
    EXPECT_EQ(model.part("P").surfaces().get("A").type(), yld_Enum::SURFACE_SET);
}

TEST_F(yld_PartTest, refreshOfTheSetsBringsTheMeshUpToDate)
{
    addTwoHexes(part);
    part.NodeSet("A", ints({1}));
    part.elements().size();
    part.addElements(ints({3}), rows<int>({{1, 2, 3}}), "TRI3");
    part.nodeSets(false, true);
    EXPECT_EQ(part.mesh()->elementCount(false), 2);
    part.nodeSets(false, false);
    EXPECT_EQ(part.mesh()->elementCount(false), 3);
}

TEST_F(yld_PartTest, sequences)
{
    addTwoHexes(part);
    yld_Part& other = model.parts->Part("Q", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
    addTwoHexes(other);
    const yld_SequenceNode& nodes = part.nodes();
    EXPECT_TRUE(nodes.isWholeMesh());
    EXPECT_EQ(raised([&] { nodes[12]; }), "Node index out of range.");
    yld_SequenceNode part1 = nodes.slice(0, 3);
    EXPECT_FALSE(part1.isWholeMesh());
    EXPECT_EQ(raised([&] { part1[3]; }), "Node index out of range.");
    part1.append(nodes.slice(10, 12));
    EXPECT_EQ(labelsOf(part1), (std::vector<int>{1, 2, 3, 11, 12}));
    EXPECT_EQ(labelsOf(part1.slice(3, 100)), (std::vector<int>{11, 12}));
    // A whole mesh has no indices to append, and stays whole when it is appended to.
    part1.append(nodes);
    EXPECT_EQ(part1.size(), 5);
    yld_SequenceNode whole = nodes;
    whole.append(part1);
    EXPECT_EQ(whole.size(), 12);
    EXPECT_TRUE(part1.isMember(nodes[10]));
    EXPECT_FALSE(part1.isMember(nodes[5]));
    EXPECT_FALSE(part1.isMember(other.nodes()[0]));
    EXPECT_TRUE(nodes.isEqual(nodes.slice(0, 12)));
    EXPECT_FALSE(nodes.isEqual(nodes.slice(0, 11)));
    EXPECT_FALSE(nodes.isEqual(other.nodes()));
    EXPECT_EQ(raised([&] { part1.append(other.nodes()); }), "Cannot Append. Sequence belongs to different part.");

    const yld_SequenceElement& elements = part.elements();
    yld_SequenceElement one = elements.slice(1, 2);
    EXPECT_EQ(labelsOf(one), (std::vector<int>{2}));
    one.append(elements[0]);
    EXPECT_EQ(labelsOf(one), (std::vector<int>{2, 1}));
    EXPECT_EQ(one.anyElement(0).label(), 2);
    EXPECT_EQ(one.numElements(), 2);
    EXPECT_TRUE(one.isMember(elements[0]));
    EXPECT_FALSE(one.isMember(other.elements()[0]));
    EXPECT_FALSE(one.isEqual(elements));
    EXPECT_TRUE(elements.isEqual(elements.slice(0, 2)));
    EXPECT_EQ(raised([&] { one.append(other.elements()); }), "Cannot Append. Sequence belongs to different part.");
    EXPECT_EQ(raised([&] { one.append(yld_Element()); }), "Element not found.");
    EXPECT_EQ(raised([&] { elements[2]; }), "Element index out of range.");
}

TEST_F(yld_PartTest, faceNodes)
{
    const yld_Sequence<int> hex = ints({11, 12, 13, 14, 15, 16, 17, 18});
    const auto of = [](const yld_Sequence<int>& labels, const char* type, yld_Enum::yld_ElementFaceEnum face) {
        return vec(yld_DiscreteEntity::nodesLabelsFromNodeTypeFace(labels, type, face));
    };
    // Side 1 of a hexahedron in Exodus II: corners 1 2 6 5; side 6: 5 6 7 8.
    EXPECT_EQ(of(hex, "HEX8", yld_Enum::FACE1), (std::vector<int>{11, 12, 16, 15}));
    EXPECT_EQ(of(hex, "HEX8", yld_Enum::FACE6), (std::vector<int>{15, 16, 17, 18}));
    EXPECT_EQ(raised([&] { of(hex, "HEX8", yld_Enum::END1); }), "Invalid face");
    EXPECT_EQ(raised([&] { of(hex, "HEX8", yld_Enum::SIDE1); }), "Face SPOS and SNEG not valid for element type HEX8.");
    EXPECT_EQ(raised([&] {
                  of(ints({1, 2, 3, 4}), "MEMBRANE4", yld_Enum::SIDE2);
              }),
              "Face SPOS and SNEG not valid for element type MEMBRANE4.");
    EXPECT_EQ(of(ints({1, 2, 3, 4}), "SHELL4", yld_Enum::SIDE1), (std::vector<int>{1, 2, 3, 4}));
    EXPECT_EQ(of(ints({1, 2, 3, 4}), "SHELL4", yld_Enum::SIDE2), (std::vector<int>{4, 3, 2, 1}));
    EXPECT_EQ(of(ints({1, 2, 3, 4}), "SHELL4", yld_Enum::FACE4), (std::vector<int>{4, 1}));
    EXPECT_EQ(of(ints({1, 2, 3}), "TRI3", yld_Enum::FACE2), (std::vector<int>{2, 3}));
    EXPECT_EQ(raised([&] { of(ints({1, 2, 3}), "TRI3", yld_Enum::FACE4); }), "Invalid face");
    EXPECT_EQ(raised([&] { of(ints({1, 2, 3}), "TRI3", yld_Enum::FACE5); }), "Invalid face");
    EXPECT_EQ(of(ints({1, 2}), "TRUSS2", yld_Enum::END2), (std::vector<int>{2}));
    EXPECT_EQ(raised([&] { of(ints({1, 2}), "TRUSS2", yld_Enum::END3); }), "Invalid face");
    EXPECT_EQ(raised([&] { of(ints({1, 2}), "TRUSS2", yld_Enum::FACE1); }), "Invalid face");
    EXPECT_EQ(of(ints({1, 2, 3}), "TRUSS3", yld_Enum::END3), (std::vector<int>{3}));
}

TEST_F(yld_PartTest, elementControlsReplaceThreeValuesWhenEnhanced)
{
    const yld_ElemCtrlParams none;
    EXPECT_FALSE(none.isSet());
    const yld_ElemCtrlParams plain("a", 1, 2, 3, "b", "Default", 4, false, "c", 5, 6, 7, 8, 9, 10);
    EXPECT_TRUE(plain.isSet());
    EXPECT_EQ(plain.params().values(), (std::vector<double>{1, 2, 3, 4, 0, 5, 6, 7, 8, 9, 10}));
    const yld_ElemCtrlParams enhanced("a", 1, 2, 3, "b", "Enhanced", 4, true, "c", 5, 6, 7, 8, 9, 10);
    EXPECT_EQ(enhanced.params().values(), (std::vector<double>{1, 2, 3, 4, 1, 5, 1, 1, 1, 9, 10}));
    addTwoHexes(part);
    part.addElements(ints({9}), rows<int>({{1, 2, 3}}), "TRI3", "", yld_SectionCategory(), enhanced);
    model.reopen();
    EXPECT_EQ(model.model.part("P").mesh().elementData().elementClass(1).data()->m_controlValues[6], 1.0);
}

TEST_F(yld_PartTest, partOfATakenNameIsTheFirst)
{
    addTwoHexes(part);
    yld_Part& again = model.parts->Part("P", yld_Enum::TWO_D_PLANAR, yld_Enum::DEFORMABLE_BODY);
    EXPECT_EQ(&again, &model.part("P"));
    EXPECT_EQ(again.embeddedSpace(), yld_Enum::THREE_D);
    EXPECT_EQ(again.nodes().size(), 12);
    EXPECT_EQ(model.parts->size(), 1);
}

TEST_F(yld_PartTest, wrongTypeAndSpaceAreReportedAndTheRestGoesOn)
{
    Collector reports;
    yld_Part& odd = model.parts->Part("odd", yld_Enum::UNKNOWN_DIMENSION, yld_Enum::DISCRETE_RIGID_SURFACE);
    EXPECT_EQ(reports.texts,
              (std::vector<std::string>{"Only parts of type yld_Enum::DEFORMABLE_BODY allowed.",
                                        "Only yld_Enum::THREE_D, yld_Enum::TWO_D_PLANAR, or yld_Enum::AXISYMMETRIC "
                                        "parts allowed."}));
    EXPECT_EQ(odd.type(), yld_Enum::DEFORMABLE_BODY);
    EXPECT_EQ(odd.embeddedSpace(), yld_Enum::THREE_D);
}

TEST_F(yld_PartTest, badNodesLeaveTheModelAsItWas)
{
    addTwoHexes(part);
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float infinite = std::numeric_limits<float>::infinity();
    EXPECT_EQ(raised([&] {
                  part.addNodes(ints({20, -3}), rows<float>({{1, 2, 3}, {1, 2, 3}}), "S");
              }),
              "Invalid node label -3: labels begin at 1.");
    EXPECT_EQ(raised([&] {
                  part.addNodes(ints({20, 21, 20}), rows<float>({{1, 2, 3}, {1, 2, 3}, {1, 2, 3}}), "S");
              }),
              "Node label 20 is given twice.");
    EXPECT_EQ(raised([&] {
                  part.addNodes(ints({20, 12}), rows<float>({{1, 2, 3}, {1, 2, 3}}), "S");
              }),
              "Node label 12 exists already.");
    EXPECT_EQ(raised([&] {
                  part.addNodes(ints({20, 21}), rows<float>({{1, 2, 3}, {1, 2, nan}}), "S");
              }),
              "The coordinates of node 21 are not numbers.");
    EXPECT_EQ(raised([&] {
                  part.addNodes(ints({20}), rows<float>({{-infinite, 2, 3}}), "S");
              }),
              "The coordinates of node 20 are not numbers.");
    EXPECT_EQ(raised([&] {
                  part.addNodes(ints({20, 21}), rows<float>({{1, 2, 3}, {1, 2, 3, 4}}), "S");
              }),
              "Node location specification does not correspond to part dimension. 3 floats expected; 4 floats "
              "received.");
    EXPECT_EQ(part.nodes().size(), 12);
    EXPECT_EQ(part.nodeSets().size(), 0);
    EXPECT_EQ(part.part().mesh().set().length(), 0);
    part.addNodes(ints({20}), rows<float>({{1, 2, 3}}));
    EXPECT_EQ(part.getNodeFromLabel(20).index(), 12);
}

TEST_F(yld_PartTest, badElementsLeaveTheModelAsItWas)
{
    addTwoHexes(part);
    EXPECT_EQ(raised([&] {
                  part.addElements(ints({5, 0}), rows<int>({{1, 2, 3}, {1, 2, 3}}), "TRI3", "S");
              }),
              "Invalid element label 0: labels begin at 1.");
    EXPECT_EQ(raised([&] {
                  part.addElements(ints({5, -5}), rows<int>({{1, 2, 3}, {1, 2, 3}}), "TRI3", "S");
              }),
              "Invalid element label -5: labels begin at 1.");
    EXPECT_EQ(raised([&] {
                  part.addElements(ints({5, 5}), rows<int>({{1, 2, 3}, {1, 2, 3}}), "TRI3", "S");
              }),
              "Element label 5 is given twice.");
    EXPECT_EQ(raised([&] {
                  part.addElements(ints({5, 1}), rows<int>({{1, 2, 3}, {1, 2, 3}}), "TRI3", "S");
              }),
              "Element label 1 exists already.");
    EXPECT_EQ(raised([&] {
                  part.addElements(ints({5, 6}), rows<int>({{1, 2, 3}, {1, 2, -3}}), "TRI3", "S");
              }),
              "Node number \"-3\" of element \"6\" does not exist.");
    EXPECT_EQ(raised([&] {
                  part.addElements(ints({5, 6}), rows<int>({{1, 2, 3}, {1, 2, 0}}), "HEX8", "S");
              }),
              "elements of type \"HEX8\" require \"8\" nodes in their connectivity data.\n");
    yld_Sequence<yld_Sequence<int>> wide(rows<int>({{}}));
    for (int i = 0; i < 31; ++i) wide.get(0).append(1);
    EXPECT_EQ(raised([&] { part.addElements(ints({5}), wide, "USER31", "S"); }),
              "An element can have 30 nodes at most; 31 were given.");
    EXPECT_EQ(part.elements().size(), 2);
    EXPECT_EQ(part.elementSets().size(), 0);
    EXPECT_EQ(part.part().mesh().set().length(), 0);
    EXPECT_EQ(part.part().mesh().elementData().numClasses(), 1);
    part.addElements(ints({5}), rows<int>({{3, 2, 1}}), "TRI3");
    EXPECT_EQ(vec(part.getElementFromLabel(5).connectivity()), (std::vector<int>{3, 2, 1}));
}

TEST_F(yld_PartTest, setsOfBadLabelsLeaveTheModelAsItWas)
{
    addTwoHexes(part);
    for (const int bad : {0, -1, 13, 2147483647, -2147483647 - 1}) {
        const std::string number = std::to_string(bad);
        EXPECT_EQ(raised([&] { part.NodeSet("S", ints({1, bad, 2})); }), "Invalid node label " + number);
        EXPECT_EQ(raised([&] { part.ElementSet("S", ints({1, bad, 2})); }), "Invalid element label " + number);
    }
    EXPECT_EQ(part.nodeSets().size(), 0);
    EXPECT_EQ(part.elementSets().size(), 0);
    EXPECT_EQ(part.part().mesh().set().length(), 0);
}

TEST_F(yld_PartTest, internalSetOfTheStoreKeepsItsName)
{
    addTwoHexes(part);
    part.NodeSet("hidden", ints({1}), true);
    model.reopen();
    // It is not among the sets that are shown, but the name is taken all the same.
    EXPECT_EQ(raised([&] { model.part("P").NodeSet("hidden", ints({2})); }), "Duplicate set or surface name hidden");
    EXPECT_EQ(labelsOf(model.part("P").nodeSets(true).get("hidden").nodes()), (std::vector<int>{1}));
}

TEST_F(yld_PartTest, wholeSequencesOfTheEntityTakeItemsAndStayWhole)
{
    addTwoHexes(part);
    part.nodes().append(part.nodes(3));
    EXPECT_EQ(vec(part.nodes().indices()), (std::vector<int>{3}));
    EXPECT_TRUE(part.nodes().isWholeMesh());
    EXPECT_EQ(part.nodes().size(), 12);
    part.elements().append(part.elements(1));
    EXPECT_EQ(vec(part.elements().indices()), (std::vector<int>{1}));
    EXPECT_EQ(part.elements().size(), 2);
    // What was taken goes over to others: it is all that a whole mesh has to give.
    yld_SequenceElement some = part.elements().slice(0, 1);
    some.append(part.elements());
    EXPECT_EQ(labelsOf(some), (std::vector<int>{1, 2}));
}
