// What a step tells beside its frames, and what it is told to keep.
#include "platform/attribute/stpC_Steps.h"
#include "platform/sto/sto_FieldDescription.h"
#include "platform/sto/sto_Frame.h"
#include "platform/sto/sto_Model.h"
#include "platform/sto/sto_Procedure.h"
#include "platform/sto/sto_Result.h"
#include "platform/sto/sto_Set.h"
#include "platform/sto/sto_Step.h"
#include "platform/sto/sto_StepContainer.h"
#include "platform/sto/sto_Sto.h"
#include "platform/sto/sto_StoStep.h"
#include "platform/store/fio_File.h"
#include "result_model.h"

using yld_StepDetails = ResultModel;

namespace {

std::string numbers(const yld_Sequence<double>& list)
{
    std::string text;
    for (int i = 0; i < list.size(); ++i) text += (i ? " " : "") + std::to_string(static_cast<int>(list[i]));
    return text;
}

} // namespace

TEST_F(yld_StepDetails, numberCountsCreationsFromOne)
{
    m_yld->Step("b", "", yld_Enum::TIME, 1.0);
    m_yld->Step("a", "", yld_Enum::TIME, 1.0, "Initial");
    reopen();
    EXPECT_EQ(joined(m_yld->steps().stepNames()), "a,Step-1,b");
    EXPECT_EQ(step().number(), 1);
    EXPECT_EQ(m_yld->steps().get("b").number(), 2);
    EXPECT_EQ(m_yld->steps().get("a").number(), 3);
}

TEST_F(yld_StepDetails, procedureOfAStepForResults)
{
    struct Case
    {
        const char* name;
        yld_Enum::yld_DomainEnum domain;
        double period;
        const char* given;
        const char* told;
        bool isPerturbation;
    };
    const Case cases[] = {
        {"modes", yld_Enum::MODAL, 0.0, "", "*FREQUENCY", true},
        {"modes of a time", yld_Enum::MODAL, 1.0, "*STATIC", "*FREQUENCY", true},
        {"buckling", yld_Enum::MODAL, 0.0, "*BUCKLE", "*BUCKLE", true},
        {"response", yld_Enum::FREQUENCY, 0.0, "*STEADY STATE DYNAMICS", "*RANDOM RESPONSE", true},
        {"time", yld_Enum::TIME, 1.0, "*DYNAMIC", "*STATIC", false},
        {"riks in time", yld_Enum::TIME, 1.0, "*STATIC, RIKS", "*STATIC, RIKS", false},
        {"arc", yld_Enum::ARC_LENGTH, 1.0, "*STATIC, RIKS", "*STATIC, RIKS", false},
        {"arc of a static step", yld_Enum::ARC_LENGTH, 1.0, "", "*STATIC", false},
        {"no time", yld_Enum::TIME, 0.0, "*STATIC, RIKS", "*STEP PERTURBATION, *STATIC", true},
        {"negative time", yld_Enum::TIME, -1.0, "", "*STEP PERTURBATION, *STATIC", true},
        {"no length", yld_Enum::ARC_LENGTH, 0.0, "*STATIC, RIKS", "*STEP PERTURBATION, *STATIC", true},
    };
    for (const Case& each : cases) m_yld->Step(each.name, "", each.domain, each.period, "", each.given);
    reopen();
    for (const Case& each : cases) {
        const yld_Step& made = m_yld->steps().get(each.name);
        EXPECT_STREQ(made.procedure().cStr(), each.told) << each.name;
        EXPECT_EQ(made.domain(), each.domain) << each.name;
        EXPECT_EQ(made.isPerturbation(), each.isPerturbation) << each.name;
        EXPECT_EQ(made.timePeriod(), each.period) << each.name;
        EXPECT_EQ(made.nlgeom(), !each.isPerturbation) << each.name;
    }
}

TEST(sto_ProcedureTable, rowByRow)
{
    const char* const rows[] = {"*STATIC",
                                "*STATIC, DIRECT",
                                "*DYNAMIC",
                                "*DYNAMIC, DIRECT",
                                "*DYNAMIC, SUBSPACE",
                                "*DYNAMIC, EXPLICIT",
                                "*VISCO",
                                "*HEAT TRANSFER, , STEADY STATE",
                                "*HEAT TRANSFER",
                                "*HEAT TRANSFER, DELTAMX=__",
                                "*MASS DIFFUSION, STEADY STATE",
                                "*MASS DIFFUSION",
                                "*MASS DIFFUSION, DCMAX=",
                                "*FREQUENCY",
                                "*BUCKLE",
                                "*COMPLEX FREQUENCY",
                                "",
                                "*GEOSTATIC",
                                "*SOILS",
                                "*SOILS, CETOL=__ and/or UTOL=__",
                                "*SOILS, CONSOLIDATION",
                                "*SOILS, CONSOLIDATION, CETOL=__ and/or UTOL=__",
                                "*COUPLED TEMPERATURE-DISPLACEMENT, STEADY STATE",
                                "*COUPLED TEMPERATURE-DISPLACEMENT",
                                "*COUPLED TEMPERATURE-DISPLACEMENT, CETOL=__",
                                "*COUPLED THERMAL-ELECTRICAL, STEADY STATE",
                                "*COUPLED THERMAL-ELECTRICAL",
                                "*COUPLED THERMAL-ELECTRICAL, DELTMX=__",
                                "*USA ADDDED MASS GENERATION",
                                "*STEADY STATE TRANSPORT",
                                "*STEADY STATE TRANSPORT, DIRECT",
                                "*RESPONSE SPECTRUM",
                                "*MODAL DYNAMIC",
                                "*STEADY STATE DYNAMICS",
                                "*RANDOM RESPONSE",
                                "*ANNEAL",
                                "*DYNAMIC TEMPERATURE-DISPLACEMENT,EXPLICT",
                                "*STEP PERTURBATION, *STATIC",
                                "*STATIC, RIKS",
                                "*SUBSTRUCTURE GENERATE"};
    ASSERT_EQ(std::size(rows), 40u);
    for (int number = 1; number <= 40; ++number) {
        EXPECT_STREQ(sto_Procedure::keyword(number), rows[number - 1]) << number;
    }
    for (const int outside : {-1, 0, 41, 1000}) EXPECT_STREQ(sto_Procedure::keyword(outside), "") << outside;
}

// Each number of the table comes out of a file as its keyword; the numbers that no writer makes are put in as they are.
TEST_F(yld_StepDetails, procedureNumbersOfAFileAreReadAsKeywords)
{
    for (int number = 0; number <= 41; ++number) {
        const yld_String name(("procedure " + std::to_string(number)).c_str());
        const sto_Model model = m_yld->sto().model("Default Model");
        const sto_StoStep side = model.GeneralStep(1, name, "", number, 1.0, "", 1);
        m_yld->sto().result().Step(name, side, "");
    }
    reopen();
    for (int number = 0; number <= 41; ++number) {
        const yld_Step& read = m_yld->steps().get(("procedure " + std::to_string(number)).c_str());
        EXPECT_STREQ(read.procedure().cStr(), sto_Procedure::keyword(number));
    }
}

TEST_F(yld_StepDetails, unknownDomainOfAFileIsTime)
{
    for (const int domain : {-1, 0, 1, 2, 3, 4}) {
        const yld_String name(("domain " + std::to_string(domain)).c_str());
        sto_StoStep side = m_yld->sto().model("Default Model").GeneralStep(1, name, "", 1, 1.0, "", 1);
        side.setDomain(domain);
        m_yld->sto().result().Step(name, side, "");
    }
    reopen();
    const auto domainOf = [&](const char* name) { return m_yld->steps().get(name).domain(); };
    EXPECT_EQ(domainOf("domain -1"), yld_Enum::TIME);
    EXPECT_EQ(domainOf("domain 0"), yld_Enum::TIME);
    EXPECT_EQ(domainOf("domain 1"), yld_Enum::FREQUENCY);
    EXPECT_EQ(domainOf("domain 2"), yld_Enum::MODAL);
    EXPECT_EQ(domainOf("domain 3"), yld_Enum::ARC_LENGTH);
    EXPECT_EQ(domainOf("domain 4"), yld_Enum::TIME);
}

TEST_F(yld_StepDetails, totalTimeGoesOnFromTheLastStepOfTheList)
{
    EXPECT_EQ(step().totalTime(), 0.0); // the first, of period 1, without a time given
    EXPECT_EQ(m_yld->Step("first again", "", yld_Enum::TIME, 2.0, "Initial").totalTime(), 1.0);
    // The list is now "first again", "Step-1": the last one counts, whatever step this one follows.
    EXPECT_EQ(m_yld->Step("behind", "", yld_Enum::TIME, 0.0, "first again").totalTime(), 1.0);
    EXPECT_EQ(m_yld->Step("given", "", yld_Enum::TIME, -4.0, "", "", 0.0).totalTime(), 0.0);
    // A period that is not above 0 adds nothing.
    EXPECT_EQ(m_yld->Step("last", "", yld_Enum::TIME, 1.0).totalTime(), 0.0);
}

TEST_F(yld_StepDetails, massOfTheModelComesBack)
{
    EXPECT_EQ(step().mass(), 0.0);
    EXPECT_EQ(step().acousticMass(), 0.0);
    EXPECT_EQ(step().massCenter().size(), 0);
    EXPECT_EQ(step().inertiaAboutCenter().size(), 0);
    EXPECT_EQ(step().inertiaAboutOrigin().size(), 0);
    EXPECT_EQ(step().acousticMassCenter().size(), 0);
    sto_Step stored(*step().step());
    stored.setMass(12.5, 0.25);
    stored.setMassCenter({1, 2, 3}, {4, 5, 6});
    stored.setInertia({1, 2, 3, 4, 5, 6}, {7, 8, 9, 10, 11, 12});
    reopen();
    EXPECT_EQ(step().mass(), 12.5);
    EXPECT_EQ(step().acousticMass(), 0.25);
    EXPECT_EQ(numbers(step().massCenter()), "1 2 3");
    EXPECT_EQ(numbers(step().acousticMassCenter()), "4 5 6");
    EXPECT_EQ(numbers(step().inertiaAboutCenter()), "1 2 3 4 5 6");
    EXPECT_EQ(numbers(step().inertiaAboutOrigin()), "7 8 9 10 11 12");
}

TEST_F(yld_StepDetails, solverInputComesBack)
{
    EXPECT_STREQ(step().solverInput().cStr(), "");
    step().setSolverInput("first line\nsecond, with \"quotes\" and \xc3\xa4\n");
    reopen();
    EXPECT_STREQ(step().solverInput().cStr(), "first line\nsecond, with \"quotes\" and \xc3\xa4\n");
}

TEST_F(yld_StepDetails, restartRequestKeepsItsArgumentsInTheStoresOrder)
{
    EXPECT_FALSE(step().modelStep()->hasRestart());
    const yld_RestartRequest& made = step().RestartRequest(3, 7, true, false);
    EXPECT_EQ(made.argument1(), 3);
    EXPECT_EQ(made.argument2(), 7);
    EXPECT_TRUE(made.argument3());
    EXPECT_FALSE(made.argument4());
    reopen();
    const sto_Restart stored = step().modelStep()->restart();
    EXPECT_EQ(stored.first(), 3);
    EXPECT_FALSE(stored.second());
    EXPECT_TRUE(stored.third());
    EXPECT_EQ(stored.fourth(), 7);

    step().RestartRequest(1, 2, true, false);
    step().RestartRequest(4, 5, false, true); // the later one counts
    reopen();
    const sto_Restart last = step().modelStep()->restart();
    EXPECT_EQ(last.first(), 4);
    EXPECT_TRUE(last.second());
    EXPECT_FALSE(last.third());
    EXPECT_EQ(last.fourth(), 5);
}

TEST(yld_RestartRequest, emptyRequest)
{
    const yld_RestartRequest none;
    EXPECT_EQ(none.argument1(), 0);
    EXPECT_EQ(none.argument2(), 0);
    EXPECT_FALSE(none.argument3());
    EXPECT_FALSE(none.argument4());
    EXPECT_FALSE(none.restart().isValid());
}

TEST_F(yld_StepDetails, onlyASubstructureHasNodalDegreesOfFreedom)
{
    EXPECT_EQ(step().retainedNodalDofs().size(), 0);
    EXPECT_EQ(step().eliminatedNodalDofs().size(), 0);
    EXPECT_EQ(step().retainedEigenModes().size(), 0);

    // A step of that procedure without settings has none either.
    const sto_Model model = m_yld->sto().model("Default Model");
    m_yld->sto().result().Step("bare", model.PerturbationStep(1, "bare", "", 40, 0.0, ""), "");
    reopen();
    EXPECT_STREQ(m_yld->steps().get("bare").procedure().cStr(), "*SUBSTRUCTURE GENERATE");
    EXPECT_EQ(m_yld->steps().get("bare").retainedNodalDofs().size(), 0);
}

TEST_F(yld_StepDetails, nodalDegreesOfFreedomOfASubstructure)
{
    yld_Part& part = m_yld->parts().get("block");
    const setC_Region corner(part.NodeSet("corner", ints({20, 10})).set().shortCut());
    yld_Sequence<yld_Sequence<int>> labels;
    labels.append(ints({30, 40, 50}));
    yld_Sequence<yld_String> names;
    names.append("block-1");
    const setC_Region ofAssembly(m_yld->rootAssembly().NodeSet("of assembly", names, labels).set().shortCut());

    const std::shared_ptr<fio_FileBody> file = m_yld->sto().file();
    stpC_SubstructureGenerateStep settings;
    settings.m_retainedNodalDofs = mrp_Container<stpC_NodalDofs>::create(file);
    settings.m_eliminatedNodalDofs = mrp_Container<stpC_NodalDofs>::create(file);
    const auto add = [&file](mrp_Container<stpC_NodalDofs> list, const setC_Region& region,
                             const std::vector<int>& dofs) {
        list.append("", lnk_ShortCut<stpC_NodalDofs>::create(file, stpC_NodalDofs(region, dofs)));
    };
    add(settings.m_retainedNodalDofs, corner, {1, 2, 3});
    add(settings.m_retainedNodalDofs, ofAssembly, {6});
    add(settings.m_eliminatedNodalDofs, corner, {4});
    settings.m_retainedEigenModes = {1, 2, 5};
    const sto_Model model = m_yld->sto().model("Default Model");
    m_yld->sto().result().Step("sub", model.Step(1, "sub", "", settings, "Step-1"), "Step-1");
    reopen();

    const yld_Step& read = m_yld->steps().get("sub");
    EXPECT_EQ(listed(read.retainedEigenModes()), "1 2 5");
    const yld_SequenceNodalDofs retained = read.retainedNodalDofs();
    ASSERT_EQ(retained.size(), 2);
    EXPECT_EQ(listed(retained[0].dofs()), "1 2 3");
    EXPECT_EQ(listed(retained[1].dofs()), "6");
    const yld_Set first = retained[0].nset();
    EXPECT_STREQ(first.name().cStr(), "corner");
    EXPECT_EQ(first.type(), yld_Enum::NODE_SET);
    EXPECT_EQ(first.size(), 2);
    ASSERT_EQ(first.MeshList().size(), 1);
    EXPECT_EQ(joined(first.instanceNames()), "");
    EXPECT_EQ(first.nodes("").size(), 2);
    EXPECT_EQ(retained[1].nset().size(), 3);
    EXPECT_EQ(retained[1].nset().MeshList().size(), 1);
    const yld_SequenceNodalDofs eliminated = read.eliminatedNodalDofs();
    ASSERT_EQ(eliminated.size(), 1);
    EXPECT_EQ(listed(eliminated[0].dofs()), "4");
    EXPECT_STREQ(eliminated[0].nset().name().cStr(), "corner");
    EXPECT_EQ(yld_NodalDofs().dofs().size(), 0);
    EXPECT_EQ(yld_NodalDofs().nset().MeshList().size(), 0);
}

TEST_F(yld_StepDetails, defaultFieldsAreMarkedInTheFramesThatHoldThem)
{
    const auto write = [&](yld_Frame& frame, const char* name, float value) {
        frame.FieldOutput(name, "", yld_Enum::SCALAR)
            .addData(yld_Enum::NODAL, instance(), ints({10, 20}), rows({{value}, {value}}));
    };
    yld_Frame first = step().Frame(1, 1.0);
    write(first, "T", 1.0F);
    write(first, "U", 2.0F);
    yld_Frame second = step().Frame(2, 2.0);
    write(second, "U", 3.0F);
    yld_Frame third = step().Frame(3, 3.0);
    write(third, "U", 4.0F);
    write(third, "T", 5.0F);
    yld_Frame last = step().Frame(4, 4.0);

    step().setDefaultField(first.fieldOutputs().get("T"));
    step().setDefaultDeformedField(second.fieldOutputs().get("U"));
    reopen();
    const auto primary = [&](int frame) { return step().step()->frame(frame).defaultPrimaryVariable(); };
    const auto deformed = [&](int frame) { return step().step()->frame(frame).defaultDeformedVariable(); };
    const auto key = [&](const char* name, int frame) { return field(name, frame).fieldKeys()[0]; };
    EXPECT_EQ(primary(0), key("T", 0));
    EXPECT_EQ(primary(1), -1);
    EXPECT_EQ(primary(2), key("T", 2));
    EXPECT_EQ(primary(3), -1);
    EXPECT_EQ(deformed(0), key("U", 0));
    EXPECT_EQ(deformed(1), key("U", 1));
    EXPECT_EQ(deformed(2), key("U", 2));
    EXPECT_EQ(deformed(3), -1);

    // A later choice takes the place of an earlier one; an orphan without blocks is no choice.
    step().setDefaultField(field("U", 0));
    step().setDefaultField(yld_FieldOutput());
    EXPECT_EQ(primary(1), key("U", 1));
    EXPECT_EQ(primary(3), -1);
}

TEST_F(yld_StepDetails, framesAreNotAppended)
{
    yld_Frame frame = step().Frame(1, 1.0);
    try {
        step().frames().append(frame);
        FAIL() << "no exception";
    } catch (const yld_Exception&) {
        FAIL() << "an exception of the interface";
    } catch (const exc_TextException& failure) {
        EXPECT_STREQ(failure.what(), "\"SequenceFrame::Append\" == 0");
    }
    EXPECT_EQ(step().frames().size(), 1);
}

TEST_F(yld_StepDetails, framesStandInOneSlot)
{
    step().Frame(1, 1.0);
    step().Frame(2, 2.0);
    const yld_Frame& slot = step().frames(0);
    const yld_Frame copy = slot;
    EXPECT_EQ(&step().frames(1), &slot);
    EXPECT_EQ(slot.incrementNumber(), 2);
    EXPECT_EQ(copy.incrementNumber(), 1);
    // A copy of the sequence has a slot of its own from its first get on.
    yld_SequenceFrame other = step().frames();
    EXPECT_NE(&other.get(0), &slot);
    EXPECT_EQ(slot.incrementNumber(), 2);
    // The sequence itself does not look at the index; what the store says of it comes through.
    EXPECT_EQ(failureOf([&] { step().frames()[2]; }), m_path + ": frame 2 asked for, but there are 2");
    EXPECT_EQ(failureOf([&] { step().frames().get(-1); }), m_path + ": frame -1 asked for, but there are 2");
}

TEST_F(yld_StepDetails, failedStepLeavesNothingInTheStore)
{
    const sto_Model model = m_yld->sto().model("Default Model");
    const int before = model.model()->m_steps.size();
    EXPECT_EQ(failureOf([&] { m_yld->Step("Step-2", "", yld_Enum::TIME, 1.0, "nowhere"); }),
              "Previous step \"nowhere\" not found.");
    EXPECT_EQ(failureOf([&] { m_yld->Step("Step-1", "", yld_Enum::TIME, 1.0); }),
              "A Step named \"Step-1\" already exists.");
    EXPECT_EQ(model.model()->m_steps.size(), before);
    EXPECT_EQ(m_yld->sto().result().steps().size(), 1);
}

TEST(yld_LoadCase, equalityComparesNames)
{
    EXPECT_TRUE(yld_LoadCase("a") == yld_LoadCase("a"));
    EXPECT_TRUE(yld_LoadCase("a") != yld_LoadCase("b"));
    EXPECT_TRUE(yld_LoadCase() == yld_LoadCase(""));
    EXPECT_STREQ(yld_LoadCase().name().cStr(), "");
}
