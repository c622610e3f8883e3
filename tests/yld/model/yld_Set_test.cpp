#include "yld_Set.h"

#include "model_files.h"

namespace {

// Two hexahedra 1 and 2, four shells and a few lines on their nodes.
class yld_SetTest : public ::testing::Test
{
protected:
    yld_SetTest() : part(model.parts->Part("P", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY))
    {
        addTwoHexes(part);
        part.addElements(ints({11, 12}), rows<int>({{1, 2, 3, 4}, {9, 10, 11, 12}}), "SHELL4");
        part.addElements(ints({21, 22}), rows<int>({{1, 5}, {5, 9}}), "BEAM2");
        part.addElements(ints({31, 32}), rows<int>({{2}, {3}}), "RNODE3D");
    }

    ModelFile model;
    yld_Part& part;
};

} // namespace

TEST_F(yld_SetTest, defaultSetIsOfNoType)
{
    const yld_Set none;
    EXPECT_EQ(none.size(), 0);
    EXPECT_FALSE(none.isInternal());
    EXPECT_FALSE(none.isUnsorted());
    EXPECT_EQ(raised([&] { none.type(); }), "Unknown Set type.");
    EXPECT_EQ(raised([&] { none.nodes(); }), "Unknown Set type.");
}

TEST_F(yld_SetTest, membersOfTheOtherKindAreRefused)
{
    const yld_Set& nodes = part.NodeSet("N", ints({1}));
    const yld_Set& elements = part.ElementSet("E", ints({1}));
    EXPECT_EQ(raised([&] { elements.nodes(); }), "This set does not contain nodes.");
    EXPECT_EQ(raised([&] { nodes.elements(); }), "This set does not contain elements.");
    EXPECT_EQ(raised([&] { nodes.faces(); }), "Set does not contain faces.");
    EXPECT_EQ(raised([&] { elements.elements("Q"); }), "Instance 'Q is not a member of the set 'E'");
    EXPECT_EQ(raised([&] { nodes.nodes("Q"); }), "Instance 'Q is not a member of the set 'N'");
    EXPECT_EQ(raised([&] { nodes.elements("P"); }), "This set does not contain elements.");
    EXPECT_EQ(labelsOf(nodes.node("P")), (std::vector<int>{1}));
    EXPECT_EQ(labelsOf(elements.element()), (std::vector<int>{1}));
    EXPECT_EQ(vec(elements.instanceNames()), (std::vector<std::string>{"P"}));
}

TEST_F(yld_SetTest, elementsOfALaterClassAreOffsetByTheClassesBefore)
{
    const yld_Set& set = part.ElementSet("E", ints({22}));
    EXPECT_EQ(set.set().subSet(0).classIndex(), 2);
    EXPECT_EQ(vec(set.elements().indices()), (std::vector<int>{5}));
    EXPECT_EQ(set.elements()[0].label(), 22);
    const yld_Set& mixed = part.ElementSet("M", ints({22, 1, 21, 12}));
    EXPECT_EQ(mixed.size(), 4);
    // By class, classes in the order of their first appearance.
    EXPECT_EQ(labelsOf(mixed.elements()), (std::vector<int>{22, 21, 1, 12}));
}

TEST_F(yld_SetTest, emptySetHasAnEmptyGroup)
{
    const yld_Set& set = part.NodeSet("N", yld_Sequence<int>());
    EXPECT_EQ(set.size(), 0);
    EXPECT_EQ(set.nodes().size(), 0);
    EXPECT_EQ(part.ElementSet("E", yld_Sequence<int>()).elements().size(), 0);
}

TEST_F(yld_SetTest, sizeReadsNoMember)
{
    part.NodeSet("N", ints({5, 3, 1}));
    model.reopen();
    const yld_Set& set = model.part("P").nodeSets().get("N");
    EXPECT_EQ(set.size(), 3);
    EXPECT_FALSE(set.set().set()->m_members.isLoaded());
    EXPECT_EQ(labelsOf(set.nodes()), (std::vector<int>{5, 3, 1}));
    EXPECT_FALSE(set.set().set()->m_members.isLoaded());
}

TEST_F(yld_SetTest, listOfTenThousandSetsReadsNoneOfThem)
{
    {
        sto_Mesh mesh = part.part().mesh();
        const int backward[] = {9, 3, 5}; // no run, so there is a list to stay away from
        for (int i = 0; i < 10000; ++i) mesh.Nset("set " + std::to_string(i), backward, 3, false, false);
    }
    model.reopen();
    yld_Part& read = model.part("P");
    read.nodes().size();
    const std::size_t before = model.file->loadedObjects();
    EXPECT_EQ(read.nodeSets().size(), 10000);
    EXPECT_TRUE(read.nodeSets().isMember("set 9999"));
    EXPECT_EQ(model.file->loadedObjects(), before);
    // The size of one takes its row.
    EXPECT_EQ(read.nodeSets().get("set 17").size(), 3);
    EXPECT_EQ(model.file->loadedObjects(), before + 1);
    EXPECT_FALSE(read.nodeSets().get("set 17").set().set()->m_members.isLoaded());
}

TEST_F(yld_SetTest, surfaceOnSolids)
{
    part.Surface("S", ints({1, 2, 1}), faces({yld_Enum::FACE1, yld_Enum::FACE6, yld_Enum::FACE5}));
    model.reopen();
    const yld_Set& surface = model.part("P").surfaces().get("S");
    EXPECT_EQ(surface.size(), 3);
    EXPECT_EQ(labelsOf(surface.elements()), (std::vector<int>{1, 2, 1}));
    EXPECT_EQ(vec(surface.faces()), (std::vector<int>{11, 16, 15}));
    EXPECT_EQ(vec(surface.face("P")), (std::vector<int>{11, 16, 15}));
    EXPECT_EQ(surface.nodes().size(), 0);
    EXPECT_EQ(surface.set().subSet(0).subsetType(), 4);
}

TEST_F(yld_SetTest, surfaceOnShellsHasSidesAndEdges)
{
    part.Surface("S", ints({11, 12, 11, 12}),
                 faces({yld_Enum::FACE3, yld_Enum::SIDE2, yld_Enum::SIDE1, yld_Enum::SIDE3}));
    model.reopen();
    const yld_Set& surface = model.part("P").surfaces().get("S");
    ASSERT_EQ(surface.set().numSubsets(), 2);
    EXPECT_EQ(surface.set().subSet(0).subsetType(), 4);
    EXPECT_EQ(surface.set().subSet(1).subsetType(), 5);
    EXPECT_EQ(surface.set().subSet(0).facets(), (std::vector<int>{1, 0, 6}));
    // Sides first, then edges.
    EXPECT_EQ(labelsOf(surface.elements()), (std::vector<int>{12, 11, 12, 11}));
    EXPECT_EQ(vec(surface.faces()), (std::vector<int>{1002, 1001, 1003, 13}));
}

TEST_F(yld_SetTest, surfaceOnMixedClassesIsOneGroup)
{
    part.Surface("S", ints({11, 1, 12, 2}),
                 faces({yld_Enum::SIDE1, yld_Enum::FACE2, yld_Enum::SIDE2, yld_Enum::FACE3}));
    const yld_Set& surface = part.surfaces().get("S");
    EXPECT_EQ(vec(surface.instanceNames()), (std::vector<std::string>{"P"}));
    EXPECT_EQ(labelsOf(surface.elements()), (std::vector<int>{11, 12, 1, 2}));
    EXPECT_EQ(vec(surface.faces()), (std::vector<int>{1001, 1002, 12, 13}));
}

TEST_F(yld_SetTest, surfaceOnBeamsInSpaceIsAnEdge)
{
    const yld_Set& surface = part.Surface("S", ints({22}), faces({yld_Enum::FACE1}));
    EXPECT_EQ(surface.set().subSet(0).subsetType(), 5);
    EXPECT_EQ(surface.set().subSet(0).facets(), (std::vector<int>{0}));
    EXPECT_EQ(vec(surface.faces()), (std::vector<int>{11}));
    EXPECT_EQ(labelsOf(surface.elements()), (std::vector<int>{22}));
}

TEST_F(yld_SetTest, surfaceOnBeamsInThePlaneHasEnds)
{
    yld_Part& plane = model.parts->Part("plane", yld_Enum::TWO_D_PLANAR, yld_Enum::DEFORMABLE_BODY);
    plane.addNodes(ints({1, 2}), rows<float>({{0, 0}, {1, 0}}));
    plane.addElements(ints({1}), rows<int>({{1, 2}}), "BEAM2D2");
    const yld_Set& surface = plane.Surface("S", ints({1, 1}), faces({yld_Enum::END2, yld_Enum::END1}));
    EXPECT_EQ(surface.set().subSet(0).subsetType(), 4);
    EXPECT_EQ(surface.set().subSet(0).facets(), (std::vector<int>{1, 0}));
    EXPECT_EQ(vec(surface.faces()), (std::vector<int>{12, 11}));
    EXPECT_EQ(raisedText([&] { plane.Surface("T", ints({1}), faces({yld_Enum::FACE1})); }),
              "Invalid face identifier for 2D beam elements");
}

TEST_F(yld_SetTest, facesThatAnElementDoesNotHaveAreRefusedByTheClassifier)
{
    yld_Part& plane = model.parts->Part("plane", yld_Enum::TWO_D_PLANAR, yld_Enum::DEFORMABLE_BODY);
    plane.addNodes(ints({1, 2, 3}), rows<float>({{0, 0}, {1, 0}, {0, 1}}));
    plane.addElements(ints({1}), rows<int>({{1, 2, 3}}), "TRI3");
    EXPECT_EQ(raisedText([&] { part.Surface("S", ints({11}), faces({yld_Enum::FACE5})); }),
              "Invalid face/edge label for shell elements");
    EXPECT_EQ(raisedText([&] { part.Surface("S", ints({1}), faces({yld_Enum::SIDE1})); }),
              "Invalid face identifier for continuum elements");
    EXPECT_EQ(raisedText([&] { part.Surface("S", ints({21}), faces({yld_Enum::END1})); }),
              "Invalid face identifier for 3D beam elements");
    EXPECT_EQ(raisedText([&] { plane.Surface("S", ints({1}), faces({yld_Enum::FACE4})); }),
              "Invalid face identifier for 2D continuum elements");
    EXPECT_EQ(raisedText([&] { plane.Surface("S", ints({1}), faces({yld_Enum::END1})); }),
              "Invalid face identifier for continuum elements");
    EXPECT_EQ(vec(plane.Surface("S", ints({1}), faces({yld_Enum::FACE3})).faces()), (std::vector<int>{13}));
    EXPECT_EQ(part.surfaces().size(), 0);
}

TEST_F(yld_SetTest, axisymmetricShellsAreShells)
{
    yld_Part& axis = model.parts->Part("axis", yld_Enum::AXISYMMETRIC, yld_Enum::DEFORMABLE_BODY);
    axis.addNodes(ints({1, 2}), rows<float>({{1, 0}, {1, 1}}));
    axis.addElements(ints({1}), rows<int>({{1, 2}}), "SHELLAX2");
    EXPECT_EQ(vec(axis.Surface("S", ints({1, 1}), faces({yld_Enum::SIDE2, yld_Enum::SIDE1})).faces()),
              (std::vector<int>{1002, 1001}));
    EXPECT_EQ(raisedText([&] { axis.Surface("T", ints({1}), faces({yld_Enum::END1})); }),
              "Invalid face/edge label for shell elements");
}

TEST_F(yld_SetTest, unknownLabelsVanishFromASurface)
{
    const yld_Set& surface =
        part.Surface("S", ints({99, 1, 98, 97, 2}),
                     faces({yld_Enum::FACE1, yld_Enum::FACE2, yld_Enum::FACE1, yld_Enum::FACE1, yld_Enum::FACE3}));
    EXPECT_EQ(labelsOf(surface.elements()), (std::vector<int>{1, 2}));
    EXPECT_EQ(vec(surface.faces()), (std::vector<int>{12, 13}));
    const yld_Set& none = part.Surface("T", ints({99}), faces({yld_Enum::FACE1}));
    EXPECT_EQ(none.size(), 0);
    EXPECT_EQ(raised([&] { none.faces(); }), "Set does not contain faces.");
}

TEST_F(yld_SetTest, surfaceNeedsAsManyFacesAsLabels)
{
    EXPECT_EQ(raised([&] {
                  part.Surface("S", ints({1}), faces({yld_Enum::FACE1, yld_Enum::FACE2}));
              }),
              "Number of faces and elements should agree for a Surface.");
    EXPECT_EQ(labelsOf(part.Surface("S", part.elements().slice(0, 1), faces({yld_Enum::FACE1})).elements()),
              (std::vector<int>{1}));
    EXPECT_EQ(raised([&] { part.Surface("S", ints({1}), faces({yld_Enum::FACE1})); }),
              "Duplicate set or surface name S");
    // In contrast to the other sets, elements of another part are taken by their labels.
    yld_Part& other = model.parts->Part("Q", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
    addTwoHexes(other);
    EXPECT_EQ(part.Surface("T", other.elements(), faces({yld_Enum::FACE1, yld_Enum::FACE1})).size(), 2);
}

TEST_F(yld_SetTest, surfaceOnRigidNodesIsNodes)
{
    sto_SurfaceSubset rigid;
    rigid.labels = {32, 31};
    rigid.facets = {0, 0};
    sto_Mesh mesh = part.part().mesh();
    mesh.Surface("R", {rigid}, false);
    const yld_Set& surface = part.surfaces().get("R");
    EXPECT_EQ(surface.elements().size(), 0);
    EXPECT_EQ(labelsOf(surface.nodes()), (std::vector<int>{3, 2}));
    EXPECT_EQ(surface.faces().size(), 0);
    EXPECT_EQ(surface.size(), 2);
}

TEST_F(yld_SetTest, otherSubsetsThatAFileCanHold)
{
    const int mesh = part.part().GetMeshIndex();
    const auto surfaceOf = [&](const char* name, int classIndex, int type, std::vector<int> members,
                               std::vector<int> facets) {
        setC_Set raw;
        raw.m_label = name;
        raw.m_type = setC_Set::surface;
        raw.append(mesh, classIndex, type, members.data(), facets.empty() ? nullptr : facets.data(),
                   static_cast<int>(members.size()));
        return yld_Set(name, sto_Set(lnk_ShortCut<setC_Set>::create(model.file, std::move(raw))), part.mesh());
    };
    // Nodes alone.
    const yld_Set nodes = surfaceOf("nodes", -1, setC_SubSet::nodes, {4, 2}, {});
    EXPECT_EQ(labelsOf(nodes.nodes()), (std::vector<int>{5, 3}));
    EXPECT_EQ(nodes.elements().size(), 0);
    EXPECT_EQ(nodes.faces().size(), 0);
    // Without a class members are indices in the mesh, and no element is shell-like.
    const yld_Set whole = surfaceOf("whole", -1, setC_SubSet::faces, {3, 1}, {0, 4});
    EXPECT_EQ(labelsOf(whole.elements()), (std::vector<int>{12, 2}));
    EXPECT_EQ(vec(whole.faces()), (std::vector<int>{11, 15}));
    // Without facets the face is not known.
    EXPECT_EQ(vec(surfaceOf("bare", 0, setC_SubSet::faces, {1}, {}).faces()), (std::vector<int>{0}));
    // Facets by flags: shell edges, faces of solids beyond the sixth.
    EXPECT_EQ(vec(surfaceOf("edges", 1, setC_SubSet::edges, {0, 1, 0, 1}, {0, 3, 4, 6}).faces()),
              (std::vector<int>{11, 14, 0, 1003}));
    EXPECT_EQ(vec(surfaceOf("sides", 1, setC_SubSet::faces, {0, 1, 0}, {2, 1, 7}).faces()),
              (std::vector<int>{0, 1002, 0}));
    EXPECT_EQ(vec(surfaceOf("solid", 0, setC_SubSet::faces, {0, 1}, {6, 5}).faces()), (std::vector<int>{0, 16}));
    // What no mesh can have is refused.
    EXPECT_EQ(raised([&] { surfaceOf("class", 17, setC_SubSet::faces, {0}, {0}).elements(); }),
              "A set has members in an element class that is not there; the file is damaged.");
    EXPECT_EQ(raised([&] { surfaceOf("minus", 0, setC_SubSet::faces, {-3}, {0}).elements(); }),
              "A set has a member that no mesh can have; the file is damaged.");
    EXPECT_EQ(raised([&] { surfaceOf("rigid", 3, setC_SubSet::faces, {2}, {0}).nodes(); }),
              "A set has a member that no mesh can have; the file is damaged.");
    setC_Set lost;
    lost.m_type = setC_Set::nodeSet;
    const int first = 0;
    lost.append(mesh + 100, -1, setC_SubSet::nodes, &first, nullptr, 1);
    const yld_Set astray("lost", sto_Set(lnk_ShortCut<setC_Set>::create(model.file, std::move(lost))), part.mesh());
    EXPECT_EQ(raised([&] { astray.nodes(); }), "Invalid part index.");
}

TEST_F(yld_SetTest, analyticSurfaceHasNoMembers)
{
    part.addElements(ints({41}), rows<int>({{1, 2}}), "ARSX");
    const yld_Set& surface = part.Surface("S", ints({41}), faces({yld_Enum::FACE1}));
    EXPECT_EQ(surface.size(), 1);
    EXPECT_EQ(surface.elements().size(), 0);
    EXPECT_EQ(surface.nodes().size(), 0);
}

TEST_F(yld_SetTest, unknownStoredType)
{
    setC_Set raw;
    raw.m_type = 5;
    const yld_Set odd("odd", sto_Set(lnk_ShortCut<setC_Set>::create(model.file, std::move(raw))), part.mesh());
    EXPECT_EQ(raised([&] { odd.type(); }), "Unknown Set type.");
}

TEST_F(yld_SetTest, labelsAddedToASetShowAtOnce)
{
    yld_Set& nodes = part.NodeSet("N", ints({1, 2}));
    yld_Set copy(nodes);
    EXPECT_EQ(labelsOf(copy.nodes()), (std::vector<int>{1, 2}));
    nodes.addLabels(ints({7, 3}), false, true);
    EXPECT_EQ(labelsOf(nodes.nodes()), (std::vector<int>{7, 3}));
    EXPECT_TRUE(nodes.isUnsorted());
    // A copy keeps the groups that it has read.
    EXPECT_EQ(labelsOf(copy.nodes()), (std::vector<int>{1, 2}));
    copy.clearMembers();
    EXPECT_EQ(labelsOf(copy.nodes()), (std::vector<int>{7, 3}));
    yld_Set& elements = part.ElementSet("E", ints({1}));
    elements.addLabels(ints({12, 2}));
    EXPECT_EQ(labelsOf(elements.elements()), (std::vector<int>{12, 2}));
    EXPECT_EQ(raised([&] { elements.addLabels(ints({99})); }), "Invalid element label 99");
    EXPECT_EQ(elements.size(), 2);
    // Labels for faces do nothing to a set without faces.
    elements.addSurfaceLabels(ints({1}), faces({yld_Enum::FACE1}));
    EXPECT_EQ(labelsOf(elements.elements()), (std::vector<int>{12, 2}));
    model.reopen();
    EXPECT_EQ(labelsOf(model.part("P").nodeSets().get("N").nodes()), (std::vector<int>{7, 3}));
}

TEST_F(yld_SetTest, labelsAddedToASurfaceNeedFaces)
{
    yld_Set& surface = part.Surface("S", ints({1}), faces({yld_Enum::FACE1}));
    surface.addSurfaceLabels(ints({2, 11}), faces({yld_Enum::FACE3, yld_Enum::SIDE2}));
    EXPECT_EQ(labelsOf(surface.elements()), (std::vector<int>{2, 11}));
    EXPECT_EQ(vec(surface.faces()), (std::vector<int>{13, 1002}));
    EXPECT_EQ(raised([&] { surface.addLabels(ints({1})); }),
              "Number of faces and elements should agree for a Surface.");
    EXPECT_EQ(surface.size(), 2);
    surface.addLabels(yld_Sequence<int>());
    EXPECT_EQ(surface.size(), 0);
}

TEST_F(yld_SetTest, groupsReadBeforeAFailureStayAndAreReadAgain)
{
    const int here = part.part().GetMeshIndex();
    const int first = 0;
    const int second = 1;
    setC_Set raw;
    raw.m_type = setC_Set::nodeSet;
    raw.append(here, -1, setC_SubSet::nodes, &first, nullptr, 1);
    raw.append(here + 100, -1, setC_SubSet::nodes, &first, nullptr, 1);
    const auto stored = lnk_ShortCut<setC_Set>::create(model.file, std::move(raw));
    const yld_Set set("broken", sto_Set(stored), part.mesh());
    EXPECT_EQ(raised([&] { set.nodes(); }), "Invalid part index.");
    EXPECT_EQ(raised([&] { set.instanceNames(); }), "Invalid part index.");
    const auto repaired = stored.fetchWritable();
    repaired->clear();
    repaired->append(here, -1, setC_SubSet::nodes, &second, nullptr, 1);
    stored.replace(repaired);
    // One group from each of the two attempts, and the good one.
    EXPECT_EQ(set.instanceNames().size(), 3);
    EXPECT_EQ(labelsOf(set.nodes()), (std::vector<int>{1}));
}

TEST_F(yld_SetTest, facesOfAnAssemblySetAreRefusedBeforeAnythingIsRead)
{
    const yld_Set none("S", sto_Set(), yld_MeshList(part.mesh()));
    EXPECT_EQ(raised([&] { none.faces(); }), "Faces must be retrieved using the instance name for assembly sets.");
    // A set that came with new nodes counts as one, although it is of one mesh.
    part.addNodes(ints({50}), rows<float>({{1, 2, 3}}), "new");
    EXPECT_EQ(raised([&] { part.nodeSets().get("new").faces(); }),
              "Faces must be retrieved using the instance name for assembly sets.");
    model.reopen();
    EXPECT_EQ(raised([&] { model.part("P").nodeSets().get("new").faces(); }), "Set does not contain faces.");
}

TEST_F(yld_SetTest, surfaceOnRigidNodesThroughTheInterface)
{
    part.Surface("R", ints({32, 31}), faces({yld_Enum::FACE1, yld_Enum::FACE1}));
    EXPECT_EQ(raisedText([&] { part.Surface("T", ints({31}), faces({yld_Enum::FACE2})); }),
              "Invalid face identifier for continuum elements");
    model.reopen();
    const yld_Set& surface = model.part("P").surfaces().get("R");
    EXPECT_EQ(labelsOf(surface.nodes()), (std::vector<int>{3, 2}));
    EXPECT_EQ(surface.elements().size(), 0);
    EXPECT_EQ(surface.faces().size(), 0);
}
