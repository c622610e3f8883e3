// What is assigned to the sets of parts, instances and the assembly, through a closed file.

#include "model_files.h"
#include "yld_Section.h"

namespace {

class yld_AssignmentsTest : public ::testing::Test
{
protected:
    yld_AssignmentsTest() : part(model.parts->Part("P", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY))
    {
        addTwoHexes(part);
        part.ElementSet("E", ints({1}));
        part.NodeSet("N", ints({1}));
        model.assembly->Instance("A", part);
        model.instance("A").ElementSet("E", ints({2}));
        model.assembly->ElementSet("E", names({"A"}), rows<int>({{1}}));
        csys = part.DatumCsysByThreePoints("D", yld_Enum::CYLINDRICAL, none, none, none);
    }
    yld_Section section(const char* name, int kind) { return yld_Section(model.model.Section(name, kind)); }
    yld_Set& set(yld_DiscreteEntity& entity) { return entity.elementSets().get("E"); }

    ModelFile model;
    yld_Part& part;
    const yld_Sequence<float> none;
    yld_DatumCsys csys;
};

} // namespace

TEST_F(yld_AssignmentsTest, sectionOfNothing)
{
    const yld_Section empty;
    EXPECT_EQ(raised([&] { empty.subTypeIdentifier(); }), "Cannot fetch sub type for empty yld_Section object.");
    EXPECT_EQ(raised([&] { part.assignSection(set(part), empty); }), "The section of an assignment is empty.");
    EXPECT_EQ(part.part().assigned().m_sections.size(), 0);
}

TEST_F(yld_AssignmentsTest, sectionsKeepNameAndKind)
{
    const yld_Section steel = section("steel", 5);
    EXPECT_EQ(steel.name(), "steel");
    EXPECT_EQ(steel.subTypeIdentifier(), 5);
    const std::unique_ptr<yld_Section> copy(steel.Copy());
    EXPECT_EQ(copy->subTypeIdentifier(), 5);
    // A section of a name that is taken is the first one.
    EXPECT_EQ(section("steel", 6).subTypeIdentifier(), 5);
    EXPECT_EQ(model.model.numSections(), 1);
    model.reopen();
    EXPECT_TRUE(model.model.hasSection("steel"));
    EXPECT_EQ(yld_Section(model.model.section("steel")).subTypeIdentifier(), 5);
    EXPECT_TRUE(model.model.section("lead").isNull());
}

TEST_F(yld_AssignmentsTest, sectionsOfPartInstanceAndAssembly)
{
    part.assignSection(set(part), section("steel", 5), 0.5f);
    part.assignSection(set(part), section("lead", 5));
    model.instance("A").assignSection(set(model.instance("A")), section("steel", 5), -0.25f);
    model.assembly->SectionAssignment(set(*model.assembly), section("spring", 6), 0.125);
    model.reopen();
    const auto sections = model.part("P").part().assigned().m_sections;
    ASSERT_EQ(sections.size(), 2);
    EXPECT_EQ(sections.at(0).fetch()->m_sectionName, "steel");
    EXPECT_EQ(sections.at(0).fetch()->m_offset, 0.5);
    EXPECT_EQ(sections.at(1).fetch()->m_sectionName, "lead");
    EXPECT_EQ(sections.at(1).fetch()->m_offset, 0.0);
    const auto region = sections.at(0).fetch()->m_region.ConstSet();
    EXPECT_EQ(region->m_label, "E");
    EXPECT_EQ(region->SubSet(0).meshIndex, model.part("P").part().GetMeshIndex());
    const auto placed = model.instance("A").instance().assigned().m_sections;
    ASSERT_EQ(placed.size(), 1);
    EXPECT_EQ(placed.at(0).fetch()->m_offset, -0.25);
    EXPECT_EQ(placed.at(0).fetch()->m_region.ConstSet()->SubSet(0).meshIndex,
              model.instance("A").instance().mesh().meshIndex());
    const auto whole = model.model.rootAssembly().shortCut().fetch()->m_sectionAssignments;
    ASSERT_EQ(whole.size(), 1);
    EXPECT_EQ(whole.at(0).fetch()->m_sectionName, "spring");
    EXPECT_EQ(whole.at(0).fetch()->m_offset, 0.125);
}

TEST_F(yld_AssignmentsTest, sectionNeedsAnElementSetOfThatName)
{
    const yld_Section steel = section("steel", 5);
    yld_Part& other = model.parts->Part("Q", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
    addTwoHexes(other);
    yld_Set& same = other.ElementSet("E", ints({2}));
    yld_Set& foreign = other.ElementSet("F", ints({2}));
    EXPECT_EQ(raised([&] { part.assignSection(part.nodeSets().get("N"), steel); }),
              "Section assignment requires element sets.");
    EXPECT_EQ(raised([&] { part.assignSection(foreign, steel); }),
              "Section assignment requires element set from this part.");
    yld_Instance& instance = model.instance("A");
    EXPECT_EQ(raised([&] { instance.assignSection(part.nodeSets().get("N"), steel); }),
              "Section assignment requires element sets.");
    EXPECT_EQ(raised([&] { instance.assignSection(foreign, steel); }),
              "Section assignment requires element set from this part instance.");
    EXPECT_EQ(raised([&] { model.assembly->SectionAssignment(part.nodeSets().get("N"), steel); }),
              "Section assignment requires element sets.");
    // Only the name is looked at.
    part.assignSection(same, steel);
    EXPECT_EQ(part.part().assigned().m_sections.at(0).fetch()->m_region.ConstSet()->SubSet(0).meshIndex,
              other.part().GetMeshIndex());
    // The assembly does not even look at that.
    model.assembly->SectionAssignment(foreign, steel);
    EXPECT_EQ(model.model.rootAssembly().shortCut().fetch()->m_sectionAssignments.size(), 1);
}

TEST_F(yld_AssignmentsTest, assemblyTakesEverySectionForAConnectorSection)
{
    // What is compared is the number of the class of all sections, not that of the section's kind.
    EXPECT_NE(yld_Section::typeIdentifier(), 0x2600045);
    model.assembly->SectionAssignment(set(*model.assembly), section("of connectors", 0x2600045));
    model.assembly->SectionAssignment(set(*model.assembly), section("of something else", 1));
    EXPECT_EQ(model.model.rootAssembly().shortCut().fetch()->m_sectionAssignments.size(), 2);
}

TEST_F(yld_AssignmentsTest, orientationsOfPartAndInstance)
{
    part.assignMaterialOrientation(set(part), csys, yld_Enum::AXIS_2, 15.5f, yld_Enum::STACK_DIRECTION_OF_ORIENTATION);
    part.assignRebarOrientation(set(part), csys, yld_Enum::AXIS_3, -20.0f);
    part.assignBeamOrientation(set(part), yld_Enum::ORIENTATION_BY_VECTOR, seq<float>({0.5f, 0, -1}));
    yld_Instance& instance = model.instance("A");
    instance.assignMaterialOrientation(set(instance), yld_DatumCsys(), yld_Enum::AXIS_1, 0.0f,
                                       yld_Enum::STACK_DIRECTION_1);
    instance.assignRebarOrientation(set(instance), csys, yld_Enum::AXIS_1, 1.0f);
    instance.assignBeamOrientation(set(instance), yld_Enum::ORIENTATION_BY_COSINES, seq<float>({1, 2, 3}));
    model.reopen();
    const prtC_AssignmentLists assigned = model.part("P").part().assigned();
    ASSERT_EQ(assigned.m_materials.size(), 1);
    const auto material = assigned.m_materials.at(0).fetch();
    EXPECT_EQ(material->m_region.ConstSet()->m_label, "E");
    EXPECT_EQ(material->m_name, "D");
    EXPECT_EQ(material->m_datum.m_id, 1);
    EXPECT_EQ(material->m_datum.m_datum.fetch()->m_systemType, 2);
    EXPECT_EQ(material->m_axis, 1);
    EXPECT_EQ(material->m_angle, 15.5f);
    EXPECT_EQ(material->m_stackDirection, 3);
    ASSERT_EQ(assigned.m_rebars.size(), 1);
    EXPECT_EQ(assigned.m_rebars.at(0).fetch()->m_axis, 2);
    EXPECT_EQ(assigned.m_rebars.at(0).fetch()->m_angle, -20.0f);
    ASSERT_EQ(assigned.m_beams.size(), 1);
    EXPECT_EQ(assigned.m_beams.at(0).fetch()->m_method, 2);
    EXPECT_EQ(assigned.m_beams.at(0).fetch()->m_vector, (std::vector<double>{0.5, 0, -1}));
    const prtC_AssignmentLists placed = model.instance("A").instance().assigned();
    ASSERT_EQ(placed.m_materials.size(), 1);
    EXPECT_TRUE(placed.m_materials.at(0).fetch()->m_datum.IsNullRef());
    EXPECT_EQ(placed.m_materials.at(0).fetch()->m_stackDirection, 0);
    EXPECT_EQ(placed.m_rebars.size(), 1);
    EXPECT_EQ(placed.m_beams.at(0).fetch()->m_vector, (std::vector<double>{1, 2, 3}));
}

TEST_F(yld_AssignmentsTest, orientationNeedsAnElementSetOfThatName)
{
    yld_Part& other = model.parts->Part("Q", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
    addTwoHexes(other);
    yld_Set& foreign = other.ElementSet("F", ints({2}));
    yld_Set& nodes = part.nodeSets().get("N");
    const yld_Sequence<float> up = seq<float>({0, 0, 1});
    const auto refuse = [&](auto& entity, const yld_Set& set, const std::string& text) {
        EXPECT_EQ(raised([&] {
                      entity.assignMaterialOrientation(set, csys, yld_Enum::AXIS_1, 0, yld_Enum::STACK_DIRECTION_1);
                  }),
                  text);
        EXPECT_EQ(raised([&] { entity.assignRebarOrientation(set, csys, yld_Enum::AXIS_1, 0); }), text);
        EXPECT_EQ(raised([&] { entity.assignBeamOrientation(set, yld_Enum::ORIENTATION_BY_VECTOR, up); }), text);
    };
    refuse(part, foreign, "Orientation assignment requires element set from this part.");
    refuse(part, nodes, "Orientation assignment requires element set from this part.");
    refuse(model.instance("A"), foreign, "Orientation assignment requires element set from this part instance.");
    refuse(model.instance("A"), nodes, "Orientation assignment requires element set from this part instance.");
    EXPECT_EQ(raised([&] {
                  part.assignBeamOrientation(set(part), yld_Enum::ORIENTATION_BY_VECTOR, seq<float>({1, 2}));
              }),
              "The vector of a beam orientation needs 3 entries.");
    EXPECT_EQ(part.part().assigned().m_materials.size(), 0);
    EXPECT_EQ(part.part().assigned().m_beams.size(), 0);
}

TEST_F(yld_AssignmentsTest, setsAndSystemsOfAnotherDatabaseAreRefused)
{
    ModelFile elsewhere;
    yld_Part& other = elsewhere.parts->Part("Q", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
    addTwoHexes(other);
    yld_Set& same = other.ElementSet("E", ints({2}));
    const yld_DatumCsys theirs = other.DatumCsysByThreePoints("T", yld_Enum::CARTESIAN, none, none, none);
    EXPECT_EQ(raised([&] { part.assignSection(same, section("steel", 5)); }), "Set \"E\" belongs to another database.");
    EXPECT_EQ(raised([&] { part.assignRebarOrientation(set(part), theirs, yld_Enum::AXIS_1, 0); }),
              "Coordinate system \"T\" belongs to another database.");
    EXPECT_EQ(
        raised([&] { model.assembly->ConnectorOrientation(set(*model.assembly), theirs, yld_Enum::AXIS_1, 0, true); }),
        "Coordinate system \"T\" belongs to another database.");
    EXPECT_EQ(part.part().assigned().m_sections.size(), 0);
}

TEST_F(yld_AssignmentsTest, connectorOrientations)
{
    yld_Assembly& assembly = *model.assembly;
    EXPECT_EQ(raised([&] { assembly.ConnectorOrientation(part.nodeSets().get("N"), csys, yld_Enum::AXIS_1, 0, true); }),
              "Connector orientation assignment requires an element set.");
    EXPECT_EQ(raised([&] {
                  assembly.ConnectorOrientation(part.nodeSets().get("N"), csys, yld_Enum::AXIS_1, 0, csys,
                                                yld_Enum::AXIS_1, 0);
              }),
              "Connector orientation assignment requires an element set.");
    assembly.DatumCsysByThreePoints("E", yld_Enum::SPHERICAL, none, none, none);
    assembly.ConnectorOrientation(set(assembly), csys, yld_Enum::AXIS_3, 45.25, true);
    assembly.ConnectorOrientation(set(assembly), yld_DatumCsys(), yld_Enum::AXIS_2, 1.0,
                                  assembly.datumCsyses().get("E"), yld_Enum::AXIS_3, -2.0);
    model.reopen();
    const auto all = model.model.rootAssembly().shortCut().fetch()->m_connectorOrientations;
    ASSERT_EQ(all.size(), 2);
    const auto same = all.at(0).fetch();
    EXPECT_EQ(same->m_region.ConstSet()->m_label, "E");
    EXPECT_EQ(same->m_first.datum.m_id, 1);
    EXPECT_EQ(same->m_first.datumName, "D");
    EXPECT_EQ(same->m_first.axis, 2);
    EXPECT_EQ(same->m_first.angle, 45.25);
    EXPECT_TRUE(same->m_orient2sameAs1);
    EXPECT_TRUE(same->m_second.datum.IsNullRef());
    const auto two = all.at(1).fetch();
    EXPECT_EQ(two->m_first.datum.m_id, 0);
    EXPECT_TRUE(two->m_first.datum.IsNullRef());
    EXPECT_EQ(two->m_first.datumName, "");
    EXPECT_EQ(two->m_first.axis, 1);
    EXPECT_EQ(two->m_first.angle, 1.0);
    EXPECT_FALSE(two->m_orient2sameAs1);
    EXPECT_EQ(two->m_second.datumName, "E");
    EXPECT_EQ(two->m_second.datum.m_datum.fetch()->m_systemType, 3);
    EXPECT_EQ(two->m_second.axis, 2);
    EXPECT_EQ(two->m_second.angle, -2.0);
}

TEST_F(yld_AssignmentsTest, solverInputOfPartInstanceAndAssembly)
{
    EXPECT_EQ(part.solverInput(), "");
    part.setSolverInput("one\ntwo");
    model.instance("A").setSolverInput("three");
    model.assembly->setSolverInput("four");
    model.reopen();
    EXPECT_EQ(model.part("P").solverInput(), "one\ntwo");
    EXPECT_EQ(model.instance("A").solverInput(), "three");
    EXPECT_EQ(model.assembly->solverInput(), "four");
}
