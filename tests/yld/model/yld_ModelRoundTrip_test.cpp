// Models that one process writes and another one reads, through the public interface alone.

#include "model_files.h"
#include "platform/sto/sto_Sto.h"
#include "yld.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>

namespace {

class yld_ModelRoundTrip : public ::testing::Test
{
protected:
    yld_ModelRoundTrip() : path(folder.file("job.yld")) { yld_initializeAPI(); }
    ~yld_ModelRoundTrip() override { yld_finalizeAPI(); }

    // Makes a database in another process, which saves and closes it.
    void write(const std::function<void(yld_Yld&)>& fill)
    {
        ASSERT_EQ(inOtherProcess([&] {
                      yld_Yld& made = Yld(path.c_str());
                      fill(made);
                      saveYld(made);
                      closeYld(made);
                  }),
                  0);
    }
    // Opens what the other process has left.
    void read(const std::function<void(yld_Yld&)>& look, bool readOnly = true)
    {
        yld_Yld& opened = openYld(path.c_str(), readOnly);
        look(opened);
        if (!readOnly) saveYld(opened);
        closeYld(opened);
    }

    ScratchFolder folder;
    const std::string path;
};

struct TypeRow
{
    const char* label;
    int nodes;
    yld_Enum::yld_DimensionEnum space;
};

constexpr yld_Enum::yld_DimensionEnum solid = yld_Enum::THREE_D;
constexpr yld_Enum::yld_DimensionEnum plane = yld_Enum::TWO_D_PLANAR;
constexpr yld_Enum::yld_DimensionEnum axis = yld_Enum::AXISYMMETRIC;

const TypeRow types[] = {
    {"POINTMASS", 1, solid}, {"RNODE3D", 1, solid},   {"TRUSS2", 2, solid},     {"BEAM2", 2, solid},
    {"CONN3D2", 2, solid},   {"TRUSS3", 3, solid},    {"BEAM3", 3, solid},      {"SHELL3", 3, solid},
    {"MEMBRANE3", 3, solid}, {"SHELL6", 6, solid},    {"MEMBRANE6", 6, solid},  {"SHELL4", 4, solid},
    {"SHELL4R", 4, solid},   {"MEMBRANE4", 4, solid}, {"MEMBRANE4R", 4, solid}, {"SHELL8", 8, solid},
    {"SHELL8R", 8, solid},   {"MEMBRANE8", 8, solid}, {"MEMBRANE8R", 8, solid}, {"SHELL9", 9, solid},
    {"SHELL9R", 9, solid},   {"MEMBRANE9", 9, solid}, {"MEMBRANE9R", 9, solid}, {"HEX8", 8, solid},
    {"HEX8R", 8, solid},     {"HEX20", 20, solid},    {"HEX20R", 20, solid},    {"HEX27", 27, solid},
    {"HEX27R", 27, solid},   {"WEDGE6", 6, solid},    {"WEDGE15", 15, solid},   {"WEDGE18", 18, solid},
    {"TET4", 4, solid},      {"TET10", 10, solid},    {"PYRAMID5", 5, solid},   {"RNODE2D", 1, plane},
    {"TRUSS2D2", 2, plane},  {"BEAM2D2", 2, plane},   {"CONN2D2", 2, plane},    {"TRUSS2D3", 3, plane},
    {"BEAM2D3", 3, plane},   {"TRI3", 3, plane},      {"TRI6", 6, plane},       {"QUAD4", 4, plane},
    {"QUAD4R", 4, plane},    {"QUAD8", 8, plane},     {"QUAD8R", 8, plane},     {"QUAD9", 9, plane},
    {"QUAD9R", 9, plane},    {"SHELLAX2", 2, axis},   {"SHELLAX3", 3, axis},    {"AXTRI3", 3, axis},
    {"AXTRI6", 6, axis},     {"AXQUAD4", 4, axis},    {"AXQUAD4R", 4, axis},    {"AXQUAD8", 8, axis},
    {"AXQUAD8R", 8, axis},   {"AXQUAD9", 9, axis},    {"AXQUAD9R", 9, axis}};

const char* nameOf(yld_Enum::yld_DimensionEnum space)
{
    return space == solid ? "solid" : space == plane ? "plane" : "axis";
}

// The node of a place, in no order: 27 labels.
int nodeLabel(int place) { return 1000 - 31 * ((place * 5) % 27); }

// The nodes of the k-th element: each begins at another one.
std::vector<int> nodesOf(int k, int count)
{
    std::vector<int> nodes;
    for (int i = 0; i < count; ++i) nodes.push_back(nodeLabel((k + i) % 27));
    return nodes;
}

yld_Sequence<int> sequence(const std::vector<int>& values)
{
    return yld_Sequence<int>(values.data(), static_cast<int>(values.size()));
}

// Two hexahedra 1 and 2, shells 11 and 12, beams 21 and 22, rigid nodes 31 and 32 on twelve nodes.
void addMixedMesh(yld_Part& part)
{
    addTwoHexes(part);
    part.addElements(ints({11, 12}), rows<int>({{1, 2, 3, 4}, {9, 10, 11, 12}}), "SHELL4");
    part.addElements(ints({21, 22}), rows<int>({{1, 5}, {5, 9}}), "BEAM2");
    part.addElements(ints({31, 32}), rows<int>({{2}, {3}}), "RNODE3D");
}

} // namespace

TEST_F(yld_ModelRoundTrip, everyElementTypeInSpaceInThePlaneAndAboutAnAxis)
{
    write([](yld_Yld& database) {
        for (const auto space : {solid, plane, axis}) {
            yld_Part& part = database.Part(nameOf(space), space, yld_Enum::DEFORMABLE_BODY);
            yld_Sequence<int> labels;
            yld_Sequence<yld_Sequence<float>> points;
            for (int i = 0; i < 27; ++i) {
                const float x = static_cast<float>(i) + 0.5f;
                labels.append(nodeLabel(i));
                points.append(space == solid ? seq<float>({x, -x, 2 * x}) : seq<float>({x, -x}));
            }
            part.addNodes(labels, points);
            int k = 0;
            for (const TypeRow& type : types) {
                ++k;
                if (type.space != space) continue;
                yld_Sequence<yld_Sequence<int>> connectivity;
                connectivity.append(sequence(nodesOf(k, type.nodes)));
                connectivity.append(sequence(nodesOf(k + 7, type.nodes)));
                part.addElements(ints({2000000000 - k, k}), connectivity, type.label);
            }
            database.rootAssembly().Instance((std::string(nameOf(space)) + "-1").c_str(), part);
        }
    });
    read([](yld_Yld& database) {
        for (const auto space : {solid, plane, axis}) {
            yld_Part& part = database.parts().get(nameOf(space));
            yld_Instance& instance =
                database.rootAssembly().instances().get((std::string(nameOf(space)) + "-1").c_str());
            EXPECT_EQ(part.embeddedSpace(), space);
            EXPECT_EQ(instance.embeddedSpace(), space);
            ASSERT_EQ(part.nodes().size(), 27);
            ASSERT_EQ(instance.nodes().size(), 27);
            for (int i = 0; i < 27; ++i) {
                const float x = static_cast<float>(i) + 0.5f;
                const yld_Node node = part.nodes(i);
                EXPECT_EQ(node.label(), nodeLabel(i));
                EXPECT_EQ(node.coordinate(0), x);
                EXPECT_EQ(node.coordinate(1), -x);
                EXPECT_EQ(node.coordinate(2), space == solid ? 2 * x : 0.0f);
                EXPECT_EQ(part.getNodeFromLabel(nodeLabel(i)).index(), i);
                EXPECT_EQ(instance.nodes(i).label(), nodeLabel(i));
            }
            int k = 0;
            int index = 0;
            for (const TypeRow& type : types) {
                ++k;
                if (type.space != space) continue;
                const yld_Element first = part.elements(index);
                EXPECT_EQ(first.label(), 2000000000 - k);
                EXPECT_EQ(first.type(), type.label);
                EXPECT_EQ(vec(first.connectivity()), nodesOf(k, type.nodes)) << type.label;
                const yld_Element second = instance.getElementFromLabel(k);
                EXPECT_EQ(second.type(), type.label);
                EXPECT_EQ(vec(second.connectivity()), nodesOf(k + 7, type.nodes)) << type.label;
                EXPECT_EQ(part.elementClasses()[index / 2].typeLabel(), type.label);
                EXPECT_EQ(part.elementClasses()[index / 2].numNodesPerElement(), type.nodes);
                index += 2;
            }
            EXPECT_EQ(part.elements().size(), index);
            EXPECT_EQ(instance.elements().size(), index);
        }
    });
}

TEST_F(yld_ModelRoundTrip, setsOfAPart)
{
    write([](yld_Yld& database) {
        yld_Part& part = database.Part("P", solid, yld_Enum::DEFORMABLE_BODY);
        addMixedMesh(part);
        part.NodeSet("unsorted", ints({9, 2, 9, 4}), false, true);
        part.NodeSet("hidden", ints({1, 2}), true);
        part.NodeSet("run", ints({3, 4, 5, 6}));
        part.NodeSet("empty", yld_Sequence<int>());
        part.ElementSet("mixed", ints({22, 1, 12, 21}));
        part.ElementSet("hidden", ints({2}), true);
        part.Surface("hidden", ints({1}), faces({yld_Enum::FACE1}), true);
    });
    read([](yld_Yld& database) {
        yld_Part& part = database.parts().get("P");
        EXPECT_EQ(vec(part.nodeSets().keys()), (std::vector<std::string>{"empty", "run", "unsorted"}));
        const yld_Set& unsorted = part.nodeSets().get("unsorted");
        EXPECT_TRUE(unsorted.isUnsorted());
        EXPECT_EQ(labelsOf(unsorted.nodes()), (std::vector<int>{9, 2, 9, 4}));
        EXPECT_EQ(labelsOf(part.nodeSets().get("run").nodes()), (std::vector<int>{3, 4, 5, 6}));
        EXPECT_EQ(part.nodeSets().get("empty").size(), 0);
        EXPECT_EQ(labelsOf(part.elementSets().get("mixed").elements()), (std::vector<int>{22, 21, 1, 12}));
        EXPECT_EQ(vec(part.elementSets().keys()), (std::vector<std::string>{"mixed"}));
        EXPECT_EQ(part.surfaces().size(), 0);
        EXPECT_EQ(vec(part.surfaces(true).get("hidden").faces()), (std::vector<int>{11}));
    });
    read([](yld_Yld& database) {
        yld_Part& part = database.parts().get("P");
        EXPECT_EQ(part.nodeSets(true).size(), 4);
        EXPECT_TRUE(part.nodeSets().get("hidden").isInternal());
        EXPECT_FALSE(part.nodeSets().get("run").isInternal());
        EXPECT_EQ(labelsOf(part.nodeSets().get("hidden").nodes()), (std::vector<int>{1, 2}));
        EXPECT_TRUE(part.elementSets(true).get("hidden").isInternal());
    });
}

TEST_F(yld_ModelRoundTrip, assemblySetsOverInstancesAndItsOwnMesh)
{
    write([](yld_Yld& database) {
        yld_Part& part = database.Part("P", solid, yld_Enum::DEFORMABLE_BODY);
        addMixedMesh(part);
        yld_Assembly& assembly = database.rootAssembly();
        assembly.Instance("A", part);
        assembly.Instance("B", part, rows<float>({{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {0, 0, 10}}));
        assembly.addNodes(ints({700, 500}), rows<float>({{1, 2, 3}, {4, 5, 6}}));
        assembly.addElements(ints({90}), rows<int>({{700}}), "POINTMASS");
        assembly.NodeSet("nodes", names({"B", "", "A"}), rows<int>({{12, 7}, {500, 700}, {1}}));
        assembly.NodeSet("hidden", names({"A"}), rows<int>({{1}}), true);
        assembly.ElementSet("elements", names({"A", "", "B"}), rows<int>({{22, 1}, {90}, {12}}));
        yld_Sequence<yld_Sequence<yld_Enum::yld_ElementFaceEnum>> sides;
        sides.append(faces({yld_Enum::FACE6, yld_Enum::SIDE2}));
        sides.append(faces({yld_Enum::FACE3}));
        assembly.Surface("surface", names({"B", "A"}), rows<int>({{2, 11}, {12}}), sides);
    });
    read([](yld_Yld& database) {
        yld_Assembly& assembly = database.rootAssembly();
        EXPECT_EQ(vec(assembly.nodeSets().keys()), (std::vector<std::string>{"nodes"}));
        const yld_Set& nodes = assembly.nodeSets().get("nodes");
        EXPECT_EQ(nodes.size(), 5);
        EXPECT_EQ(vec(nodes.instanceNames()), (std::vector<std::string>{"B", "rootAssembly", "A"}));
        EXPECT_EQ(labelsOf(nodes.nodes("B")), (std::vector<int>{12, 7}));
        EXPECT_EQ(labelsOf(nodes.nodes("rootAssembly")), (std::vector<int>{500, 700}));
        EXPECT_EQ(labelsOf(nodes.nodes("A")), (std::vector<int>{1}));
        EXPECT_EQ(nodes.nodes("B")[0].coordinate(2), 11.0f); // (2, 0, 1) moved by 10
        EXPECT_EQ(nodes.nodes("rootAssembly")[0].coordinate(0), 4.0f);
        const yld_Set& elements = assembly.elementSets().get("elements");
        EXPECT_EQ(vec(elements.instanceNames()), (std::vector<std::string>{"A", "rootAssembly", "B"}));
        EXPECT_EQ(labelsOf(elements.elements("A")), (std::vector<int>{22, 1}));
        EXPECT_EQ(labelsOf(elements.elements("rootAssembly")), (std::vector<int>{90}));
        EXPECT_EQ(labelsOf(elements.elements("B")), (std::vector<int>{12}));
        const yld_Set& surface = assembly.surfaces().get("surface");
        EXPECT_EQ(vec(surface.instanceNames()), (std::vector<std::string>{"B", "A"}));
        EXPECT_EQ(labelsOf(surface.elements("B")), (std::vector<int>{2, 11}));
        EXPECT_EQ(vec(surface.faces("B")), (std::vector<int>{16, 1002}));
        EXPECT_EQ(labelsOf(surface.elements("A")), (std::vector<int>{12}));
        EXPECT_EQ(vec(surface.faces("A")), (std::vector<int>{13}));
        assembly.ReadSets(true);
        EXPECT_TRUE(assembly.nodeSets().get("hidden").isInternal());
    });
}

TEST_F(yld_ModelRoundTrip, surfacesOfEveryKind)
{
    write([](yld_Yld& database) {
        yld_Part& part = database.Part("P", solid, yld_Enum::DEFORMABLE_BODY);
        addMixedMesh(part);
        part.Surface("solids", ints({2, 1}), faces({yld_Enum::FACE6, yld_Enum::FACE4}));
        part.Surface("shell sides", ints({11, 12}), faces({yld_Enum::SIDE2, yld_Enum::SIDE1}));
        part.Surface("shell edges", ints({12, 11}), faces({yld_Enum::FACE4, yld_Enum::FACE1}));
        part.Surface("beams", ints({22, 21}), faces({yld_Enum::FACE1, yld_Enum::FACE1}));
        part.Surface("rigid", ints({32, 31}), faces({yld_Enum::FACE1, yld_Enum::FACE1}));
        yld_Part& flat = database.Part("flat", plane, yld_Enum::DEFORMABLE_BODY);
        flat.addNodes(ints({1, 2, 3, 4}), rows<float>({{0, 0}, {1, 0}, {1, 1}, {0, 1}}));
        flat.addElements(ints({1, 2}), rows<int>({{1, 2}, {2, 3}}), "BEAM2D2");
        flat.addElements(ints({3}), rows<int>({{1, 2, 3, 4}}), "QUAD4");
        flat.Surface("beams", ints({2, 1}), faces({yld_Enum::END2, yld_Enum::END1}));
        flat.Surface("quads", ints({3, 3}), faces({yld_Enum::FACE4, yld_Enum::FACE2}));
    });
    read([](yld_Yld& database) {
        yld_SetRepository& surfaces = database.parts().get("P").surfaces();
        const auto elements = [&](const char* name) { return labelsOf(surfaces.get(name).elements()); };
        const auto sides = [&](const char* name) { return vec(surfaces.get(name).faces()); };
        EXPECT_EQ(elements("solids"), (std::vector<int>{2, 1}));
        EXPECT_EQ(sides("solids"), (std::vector<int>{16, 14}));
        EXPECT_EQ(elements("shell sides"), (std::vector<int>{11, 12}));
        EXPECT_EQ(sides("shell sides"), (std::vector<int>{1002, 1001}));
        EXPECT_EQ(elements("shell edges"), (std::vector<int>{12, 11}));
        EXPECT_EQ(sides("shell edges"), (std::vector<int>{14, 11}));
        EXPECT_EQ(elements("beams"), (std::vector<int>{22, 21}));
        EXPECT_EQ(sides("beams"), (std::vector<int>{11, 11}));
        // Rigid nodes give their nodes and no elements.
        EXPECT_EQ(elements("rigid"), std::vector<int>());
        EXPECT_EQ(labelsOf(surfaces.get("rigid").nodes()), (std::vector<int>{3, 2}));
        yld_SetRepository& flat = database.parts().get("flat").surfaces();
        EXPECT_EQ(labelsOf(flat.get("beams").elements()), (std::vector<int>{2, 1}));
        EXPECT_EQ(vec(flat.get("beams").faces()), (std::vector<int>{12, 11}));
        EXPECT_EQ(labelsOf(flat.get("quads").elements()), (std::vector<int>{3, 3}));
        EXPECT_EQ(vec(flat.get("quads").faces()), (std::vector<int>{14, 12}));
    });
}

TEST_F(yld_ModelRoundTrip, connectorsBetweenInstancesAreTakenUpAgain)
{
    write([](yld_Yld& database) {
        yld_Part& part = database.Part("P", solid, yld_Enum::DEFORMABLE_BODY);
        addTwoHexes(part);
        yld_Assembly& assembly = database.rootAssembly();
        assembly.Instance("A", part);
        assembly.Instance("B", part);
        assembly.addElements(ints({7, 5}), rows<int>({{12, 1}, {3}}), names({"A", "B", "B", "B"}), "CONN3D2", "links");
    });
    const auto check = [](yld_Assembly& assembly) {
        const yld_Element between = assembly.getElementFromLabel(7);
        EXPECT_EQ(vec(between.connectivity()), (std::vector<int>{12, 1}));
        EXPECT_EQ(vec(between.instanceNames()), (std::vector<std::string>{"A", "B"}));
        const yld_Element grounded = assembly.getElementFromLabel(5);
        EXPECT_EQ(vec(grounded.connectivity()), (std::vector<int>{3, 3}));
        EXPECT_EQ(vec(grounded.instanceNames()), (std::vector<std::string>{"B", "B"}));
        EXPECT_EQ(assembly.nodes().size(), 0);
    };
    read(
        [&check](yld_Yld& database) {
            yld_Assembly& assembly = database.rootAssembly();
            check(assembly);
            EXPECT_EQ(labelsOf(assembly.elementSets().get("links").elements()), (std::vector<int>{7, 5}));
            assembly.addElements(ints({9}), rows<int>({{1, 2}}), names({"B", "A"}), "CONN3D2", "links");
        },
        false);
    EXPECT_EQ(
        inOtherProcess([&] {
            read([&check](yld_Yld& database) {
                yld_Assembly& assembly = database.rootAssembly();
                check(assembly);
                EXPECT_EQ(vec(assembly.getElementFromLabel(9).instanceNames()), (std::vector<std::string>{"B", "A"}));
                EXPECT_EQ(labelsOf(assembly.elementSets().get("links").elements()), (std::vector<int>{7, 5, 9}));
            });
        }),
        0);
}

TEST_F(yld_ModelRoundTrip, placedInstancesKeepTheirRotationVector)
{
    const float half = std::sqrt(0.75f); // the cosine of 30 degrees
    write([half](yld_Yld& database) {
        yld_Part& part = database.Part("P", solid, yld_Enum::DEFORMABLE_BODY);
        addTwoHexes(part);
        yld_Assembly& assembly = database.rootAssembly();
        assembly.Instance("about z", part, rows<float>({{0, 1, 0}, {-1, 0, 0}, {0, 0, 1}, {1, 2, 3}}));
        assembly.Instance("about x", part, rows<float>({{9, 0, 0}, {0, half, 0.5f}, {0, -0.5f, half}, {0, 0, 0}}));
        assembly.Instance("diagonal", part, rows<float>({{0, 1, 0}, {0, 0, 1}, {1, 0, 0}, {0, 0}}));
    });
    read([half](yld_Yld& database) {
        yld_InstanceRepository& instances = database.rootAssembly().instances();
        const double pi = std::acos(-1.0);
        const auto expectPlacement = [&](const char* name, double x, double y, double z) {
            const std::vector<double> placement = instances.get(name).instance().placement();
            EXPECT_NEAR(placement[0], x, 1e-6) << name;
            EXPECT_NEAR(placement[1], y, 1e-6) << name;
            EXPECT_NEAR(placement[2], z, 1e-6) << name;
        };
        // A quarter turn; 30 degrees; a third of a turn about (1, 1, 1), whose length is the root of 3.
        expectPlacement("about z", 0, 0, pi / 2);
        expectPlacement("about x", pi / 6, 0, 0);
        const double third = 2 * pi / 3 / std::sqrt(3.0);
        expectPlacement("diagonal", third, third, third);
        EXPECT_EQ(instances.get("about z").instance().placement()[4], 2.0);
        const yld_Node node = instances.get("about x").getNodeFromLabel(2); // (0, 1, 0)
        EXPECT_NEAR(node.coordinate(1), half, 1e-6f);
        EXPECT_NEAR(node.coordinate(2), 0.5f, 1e-6f);
    });
}

TEST_F(yld_ModelRoundTrip, sectionsOrientationsAndCoordinateSystems)
{
    write([](yld_Yld& database) {
        sto_Model model = database.sto().model("Default Model");
        const yld_Section section(model.Section("steel sheet", 17));
        yld_Part& part = database.Part("P", solid, yld_Enum::DEFORMABLE_BODY);
        addMixedMesh(part);
        const yld_Set shells = part.ElementSet("shells", ints({11, 12}));
        const yld_DatumCsys csys = part.DatumCsysByThreePoints("skew", yld_Enum::CYLINDRICAL, seq<float>({1, 1, 1}),
                                                               seq<float>({1, 3, 1}), seq<float>({0, 1, 1}));
        part.assignSection(shells, section, 0.25f);
        part.assignMaterialOrientation(shells, csys, yld_Enum::AXIS_3, 30.0f, yld_Enum::STACK_DIRECTION_2);
        part.setSolverInput("*PART INPUT\n");
    });
    read([](yld_Yld& database) {
        yld_Part& part = database.parts().get("P");
        EXPECT_EQ(part.solverInput(), "*PART INPUT\n");
        ASSERT_TRUE(part.hasDatumCsys("skew"));
        const yld_DatumCsys csys = database.rootAssembly().datumCsyses().get("skew");
        EXPECT_EQ(csys.type(), yld_Enum::CYLINDRICAL);
        // x along the global y, the second point on the global -x: y along it, z along the global z.
        EXPECT_EQ(csys.xAxis()[1], 1.0f);
        EXPECT_EQ(csys.yAxis()[0], -1.0f);
        EXPECT_EQ(csys.zAxis()[2], 1.0f);
        EXPECT_EQ(csys.origin()[2], 1.0f);
        const prtC_AssignmentLists assigned = part.part().assigned();
        ASSERT_EQ(assigned.m_sections.size(), 1);
        const auto section = assigned.m_sections.at(0).fetch();
        EXPECT_EQ(section->m_sectionName, "steel sheet");
        EXPECT_EQ(section->m_offset, 0.25);
        EXPECT_EQ(section->m_region.ConstSet()->m_label, "shells");
        ASSERT_EQ(assigned.m_materials.size(), 1);
        const auto material = assigned.m_materials.at(0).fetch();
        EXPECT_EQ(material->m_name, "skew");
        EXPECT_EQ(material->m_datum.m_datum.fetch()->m_name, "skew");
        EXPECT_EQ(material->m_axis, 2);
        EXPECT_EQ(material->m_angle, 30.0f);
        EXPECT_EQ(material->m_stackDirection, 1);
        const yld_Section stored(database.sto().model("Default Model").section("steel sheet"));
        EXPECT_EQ(stored.subTypeIdentifier(), 17);
    });
}

TEST_F(yld_ModelRoundTrip, meshGivenInManyPartsWithSetsInBetween)
{
    // 40 times 50 nodes and 20 triangles on them; labels jump through all 31 bits and never repeat.
    const auto labelOf = [](int i) { return static_cast<int>((i + 1) * 48271LL % 2147483647LL); };
    const auto elementLabelOf = [](int i) { return static_cast<int>((i + 1) * 69621LL % 2147483647LL); };
    constexpr int rounds = 40;
    write([&](yld_Yld& database) {
        yld_Part& part = database.Part("P", solid, yld_Enum::DEFORMABLE_BODY);
        int node = 0;
        int element = 0;
        for (int round = 0; round < rounds; ++round) {
            yld_Sequence<int> labels;
            yld_Sequence<yld_Sequence<float>> points;
            for (int i = 0; i < 50; ++i, ++node) {
                labels.append(labelOf(node));
                points.append(seq<float>({static_cast<float>(node), 1, 2}));
            }
            part.addNodes(labels, points, round % 2 ? "odd" : "even");
            yld_Sequence<int> elements;
            yld_Sequence<yld_Sequence<int>> connectivity;
            for (int i = 0; i < 20; ++i, ++element) {
                elements.append(elementLabelOf(element));
                connectivity.append(ints({labelOf(node - 1 - i), labelOf(i), labelOf(node / 2)}));
            }
            part.addElements(elements, connectivity, round % 3 ? "SHELL3" : "MEMBRANE3");
            part.NodeSet(("round " + std::to_string(round)).c_str(), ints({labelOf(node - 1), labelOf(0)}));
            if (round % 10 == 5) saveYld(database);
        }
        part.addNodes(ints({2147483647}), rows<float>({{7, 8, 9}}));
    });
    read([&](yld_Yld& database) {
        yld_Part& part = database.parts().get("P");
        ASSERT_EQ(part.nodes().size(), 50 * rounds + 1);
        ASSERT_EQ(part.elements().size(), 20 * rounds);
        for (int i = 0; i < 50 * rounds; ++i) {
            const yld_Node found = part.getNodeFromLabel(labelOf(i));
            ASSERT_EQ(found.index(), i);
            ASSERT_EQ(found.coordinate(0), static_cast<float>(i));
        }
        EXPECT_EQ(part.getNodeFromLabel(2147483647).coordinate(2), 9.0f);
        for (int i = 0; i < 20 * rounds; ++i) {
            const int round = i / 20;
            const int nodes = 50 * (round + 1);
            const yld_Element found = part.getElementFromLabel(elementLabelOf(i));
            ASSERT_EQ(found.type(), round % 3 ? "SHELL3" : "MEMBRANE3");
            ASSERT_EQ(vec(found.connectivity()),
                      (std::vector<int>{labelOf(nodes - 1 - i % 20), labelOf(i % 20), labelOf(nodes / 2)}));
        }
        EXPECT_EQ(part.elementClasses().size(), 2);
        EXPECT_EQ(part.nodeSets().get("odd").size(), 1000);
        const yld_Set& last = part.nodeSets().get("round 39");
        EXPECT_EQ(labelsOf(last.nodes()), (std::vector<int>{labelOf(1999), labelOf(0)}));
    });
}
