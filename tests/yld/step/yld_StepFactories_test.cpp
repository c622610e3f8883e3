#include "platform/attribute/stpC_Steps.h"
#include "platform/sto/sto_Model.h"
#include "platform/sto/sto_Set.h"
#include "platform/sto/sto_Sto.h"
#include "platform/sto/sto_StoStep.h"
#include "result_model.h"

using yld_StepFactories = ResultModel;

namespace {

// Steps with settings alone, in a database without results.
class yld_StepSettings : public testing::Test
{
protected:
    yld_StepSettings() { yld_initializeAPI(); }
    ~yld_StepSettings() override { yld_finalizeAPI(); }

    void SetUp() override
    {
        m_path = m_folder.file("settings.yld");
        m_yld = &Yld("settings", "", "", m_path.c_str());
    }
    void TearDown() override
    {
        if (m_yld) m_yld->close();
    }

    void reopen()
    {
        m_yld->save();
        m_yld->close();
        m_yld = nullptr;
        m_yld = &openYld(m_path.c_str(), true);
    }

    yld_StepRepository& steps() { return m_yld->steps(); }
    sto_Model model() { return m_yld->sto().model("Default Model"); }

    template<class T> std::shared_ptr<const T> settings(const char* name)
    {
        const auto found = std::dynamic_pointer_cast<const T>(model().step(name).analysisStep());
        if (!found) throw std::runtime_error(std::string(name) + " has settings of another class");
        return found;
    }

    yld_Step& aStaticStep(const char* name, const char* previous)
    {
        return steps().StaticStep(name, previous, "", 1.0, "OFF", 100, 0.1, 1e-5, 1.0, "NONE", 0.0, false, "AUTOMATIC",
                                  "RAMP");
    }

    ScratchFolder m_folder;
    std::string m_path;
    yld_Yld* m_yld = nullptr;
};

} // namespace

TEST_F(yld_StepSettings, staticStepGivesItsArgumentsBack)
{
    yld_Step& made = steps().StaticStep("pull", "Initial", "a pull", 2.5, "ON", 17, 0.125, 1e-9, 0.75, "DAMPING", 2e-4,
                                        true, "FIXED", "STEP");
    EXPECT_STREQ(made.name().cStr(), "pull");
    EXPECT_TRUE(made.nlgeom());
    reopen();
    const auto kept = settings<stpC_StaticStep>("pull");
    EXPECT_EQ(kept->argument<1>(), 2.5);
    EXPECT_EQ(kept->argument<2>(), "ON");
    EXPECT_EQ(kept->argument<3>(), 17);
    EXPECT_EQ(kept->argument<4>(), 0.125);
    EXPECT_EQ(kept->argument<5>(), 1e-9);
    EXPECT_EQ(kept->argument<6>(), 0.75);
    EXPECT_EQ(kept->argument<7>(), "DAMPING");
    EXPECT_EQ(kept->argument<8>(), 2e-4);
    EXPECT_EQ(kept->argument<9>(), true);
    EXPECT_EQ(kept->argument<10>(), "FIXED");
    EXPECT_EQ(kept->argument<11>(), "STEP");
    EXPECT_EQ(kept->timePeriod(), 2.5);
    const sto_StoStep step = model().step("pull");
    EXPECT_EQ(step.stepId(), 1);
    EXPECT_STREQ(step.description().cStr(), "a pull");
    EXPECT_STREQ(step.previousName().cStr(), "Initial");
    EXPECT_STREQ(step.procedureKeyword().cStr(), "*STATIC");
    EXPECT_EQ(step.period(), 2.5);
    EXPECT_TRUE(step.isNlgeom());
    EXPECT_FALSE(step.isPerturbation());
    EXPECT_TRUE(step.isAnalisysStep());
}

TEST_F(yld_StepSettings, staticLinearPerturbationStepGivesItsArgumentBack)
{
    steps().StaticLinearPerturbationStep("small", "", "a small one", "ITERATIVE");
    reopen();
    EXPECT_EQ(settings<stpC_StaticLinearPerturbationStep>("small")->argument<1>(), "ITERATIVE");
    EXPECT_STREQ(model().step("small").procedureKeyword().cStr(), "*STEP PERTURBATION, *STATIC");
    EXPECT_TRUE(model().step("small").isPerturbation());
    EXPECT_FALSE(model().step("small").isNlgeom());
}

TEST_F(yld_StepSettings, heatTransferStepGivesItsArgumentsBack)
{
    steps().HeatTransferStep("warm", "", "", "TRANSIENT", "RAMP", "AUTOMATIC", 1.5, -3, 2.5, 3.5, 4.5, 5.5, 6.5,
                             "PARABOLIC", "DIRECT");
    steps().HeatTransferStep("at rest", "warm", "", "STEADY_STATE", "STEP", "FIXED", 0.0, 0, 0.0, 0.0, 0.0, 0.0, 0.0,
                             "NONE", "ITERATIVE");
    reopen();
    const auto kept = settings<stpC_HeatTransferStep>("warm");
    EXPECT_EQ(kept->argument<1>(), "TRANSIENT");
    EXPECT_EQ(kept->argument<2>(), "RAMP");
    EXPECT_EQ(kept->argument<3>(), "AUTOMATIC");
    EXPECT_EQ(kept->argument<4>(), 1.5);
    EXPECT_EQ(kept->argument<5>(), -3);
    EXPECT_EQ(kept->argument<6>(), 2.5);
    EXPECT_EQ(kept->argument<7>(), 3.5);
    EXPECT_EQ(kept->argument<8>(), 4.5);
    EXPECT_EQ(kept->argument<9>(), 5.5);
    EXPECT_EQ(kept->argument<10>(), 6.5);
    EXPECT_EQ(kept->argument<11>(), "PARABOLIC");
    EXPECT_EQ(kept->argument<12>(), "DIRECT");
    EXPECT_STREQ(model().step("warm").procedureKeyword().cStr(), "*HEAT TRANSFER");
    EXPECT_STREQ(model().step("at rest").procedureKeyword().cStr(), "*HEAT TRANSFER, , STEADY STATE");
}

TEST_F(yld_StepFactories, staticRiksStepGivesItsArgumentsAndItsSetBack)
{
    yld_Part& part = m_yld->parts().get("block");
    const yld_Set& set = part.NodeSet("watched", ints({20, 10}));
    m_yld->steps().StaticRiksStep("snap", "Step-1", "", "OFF", true, 1.25, false, 2.25, 5, set, "FIXED", 6, 3.25, 4.25,
                                  5.25, 6.25, "DIRECT", "LINEAR", "a free text", true, false, 7, 8, true);
    m_yld->steps().StaticRiksStep("on", "snap", "", "ON", false, 0.0, true, 0.0, 0, yld_Set(), "AUTOMATIC", 0, 0.0, 0.0,
                                  0.0, 0.0, "ITERATIVE", "NONE", "", false, true, 0, 0, false);
    reopen();
    const sto_Model model = m_yld->sto().model("Default Model");
    const auto held = model.step("snap").analysisStep();
    const auto* kept = dynamic_cast<const stpC_StaticRiksStep*>(held.get());
    ASSERT_NE(kept, nullptr);
    EXPECT_EQ(kept->argument<1>(), "OFF");
    EXPECT_EQ(kept->argument<2>(), true);
    EXPECT_EQ(kept->argument<3>(), 1.25);
    EXPECT_EQ(kept->argument<4>(), false);
    EXPECT_EQ(kept->argument<5>(), 2.25);
    EXPECT_EQ(kept->argument<6>(), 5);
    EXPECT_EQ(kept->argument<7>().ConstSet()->m_label, "watched");
    EXPECT_EQ(sto_Set(kept->argument<7>()).numMembers(), 2);
    EXPECT_EQ(kept->argument<8>(), "FIXED");
    EXPECT_EQ(kept->argument<9>(), 6);
    EXPECT_EQ(kept->argument<10>(), 3.25);
    EXPECT_EQ(kept->argument<11>(), 4.25);
    EXPECT_EQ(kept->argument<12>(), 5.25);
    EXPECT_EQ(kept->argument<13>(), 6.25);
    EXPECT_EQ(kept->argument<14>(), "DIRECT");
    EXPECT_EQ(kept->argument<15>(), "LINEAR");
    EXPECT_EQ(kept->argument<16>(), "a free text");
    EXPECT_EQ(kept->argument<17>(), true);
    EXPECT_EQ(kept->argument<18>(), false);
    EXPECT_EQ(kept->argument<19>(), 7);
    EXPECT_EQ(kept->argument<20>(), 8);
    EXPECT_EQ(kept->argument<21>(), true);
    EXPECT_STREQ(model.step("snap").procedureKeyword().cStr(), "*STATIC, RIKS");
    EXPECT_EQ(model.step("snap").stepId(), 2);
    const auto second = model.step("on").analysisStep();
    EXPECT_TRUE(dynamic_cast<const stpC_StaticRiksStep&>(*second).argument<7>().isNull());
    EXPECT_TRUE(model.step("on").isNlgeom());
    EXPECT_EQ(model.step("on").getDomain(), 3);
}

TEST_F(yld_StepFactories, explicitDynamicsStepGivesItsArgumentsAndItsMassScalingBack)
{
    const yld_Set& set = m_yld->parts().get("block").ElementSet("light", ints({101}));
    yld_MassScalingList scaling;
    scaling.append(yld_MassScaling(4.0, 0.0, 0));
    scaling.append(yld_MassScaling(set, 1.0, 1e-6, 25));
    m_yld->steps().ExplicitDynamicsStep("crash", "Step-1", "", 0.02, "ON", true, "AUTOMATIC", yld_Union(1e-7), 0.06,
                                        1.2, 0.9, yld_Union("NONE"), scaling);
    m_yld->steps().ExplicitDynamicsStep("free", "crash", "", 0.5, "OFF", false, "FIXED", yld_Union("MODEL"), 0.0, 0.0,
                                        0.0, yld_Union(2.0), yld_MassScalingList());
    reopen();
    const sto_Model model = m_yld->sto().model("Default Model");
    const auto held = model.step("crash").analysisStep();
    const auto* kept = dynamic_cast<const stpC_ExplicitDynamicsStep*>(held.get());
    ASSERT_NE(kept, nullptr);
    EXPECT_EQ(kept->argument<1>(), 0.02);
    EXPECT_EQ(kept->argument<2>(), "ON");
    EXPECT_EQ(kept->argument<3>(), true);
    EXPECT_EQ(kept->argument<4>(), "AUTOMATIC");
    EXPECT_EQ(kept->argument<5>().value, 1e-7);
    EXPECT_TRUE(kept->argument<5>().isUsed);
    EXPECT_EQ(kept->argument<5>().text, "");
    EXPECT_EQ(kept->argument<6>(), 0.06);
    EXPECT_EQ(kept->argument<7>(), 1.2);
    EXPECT_EQ(kept->argument<8>(), 0.9);
    EXPECT_FALSE(kept->argument<9>().isUsed);
    EXPECT_EQ(kept->argument<9>().text, "NONE");
    ASSERT_EQ(kept->argument<10>().size(), 2);
    const auto whole = kept->argument<10>().at(0).fetch();
    EXPECT_TRUE(whole->argument<1>().isNull());
    EXPECT_EQ(whole->argument<2>(), 4.0);
    const auto part = kept->argument<10>().at(1).fetch();
    EXPECT_EQ(part->argument<1>().ConstSet()->m_label, "light");
    EXPECT_EQ(part->argument<2>(), 1.0);
    EXPECT_EQ(part->argument<3>(), 1e-6);
    EXPECT_EQ(part->argument<4>(), 25);
    EXPECT_STREQ(model.step("crash").procedureKeyword().cStr(), "*DYNAMIC, EXPLICIT");
    EXPECT_EQ(model.step("crash").period(), 0.02);
    EXPECT_TRUE(model.step("crash").isNlgeom());
    const auto other = model.step("free").analysisStep();
    const auto& free = dynamic_cast<const stpC_ExplicitDynamicsStep&>(*other);
    EXPECT_TRUE(free.argument<5>().isUsed);
    EXPECT_EQ(free.argument<5>().text, "MODEL");
    EXPECT_TRUE(free.argument<9>().isUsed);
    EXPECT_EQ(free.argument<9>().value, 2.0);
    EXPECT_EQ(free.argument<10>().size(), 0);
}

TEST_F(yld_StepSettings, unionOfAnotherKindIsRefused)
{
    const auto with = [&](const yld_Union& value) {
        return failureOf([&] {
            steps().ExplicitDynamicsStep("x", "", "", 1.0, "ON", true, "FIXED", value, 0.0, 0.0, 0.0, yld_Union(1.0),
                                         yld_MassScalingList());
        });
    };
    EXPECT_EQ(with(yld_Union(3)), "The union is not of type string");
    EXPECT_EQ(with(yld_Union(true)), "The union is not of type string");
    EXPECT_EQ(with(yld_Union(3.0F)), "The union is not of type string");
    EXPECT_EQ(steps().size(), 0);
}

// Each text that an enumeration lacks is refused with those that it has, before anything is filed.
TEST_F(yld_StepSettings, unknownTextsAreRefusedWithTheKnownOnes)
{
    const auto staticWith = [&](const char* nlgeom, const char* stabilization, const char* incrementation,
                                const char* amplitude) {
        return failureOf([&] {
            steps().StaticStep("x", "", "", 1.0, nlgeom, 1, 0.0, 0.0, 0.0, stabilization, 0.0, false, incrementation,
                               amplitude);
        });
    };
    const auto heatWith = [&](const char* response, const char* extrapolation, const char* solver) {
        return failureOf([&] {
            steps().HeatTransferStep("x", "", "", response, "RAMP", "FIXED", 0.0, 0, 0.0, 0.0, 0.0, 0.0, 0.0,
                                     extrapolation, solver);
        });
    };
    const std::string before = "val_PrimEnum(const shr_String&) - str not allowed: ";
    EXPECT_EQ(staticWith("on", "NONE", "FIXED", "RAMP"), before + "on  Permissible: OFF, ON");
    EXPECT_EQ(staticWith("ON", "SOME", "FIXED", "RAMP"), before + "SOME  Permissible: NONE, ENERGY_FRACTION, DAMPING");
    EXPECT_EQ(staticWith("ON", "NONE", "", "RAMP"), before + "  Permissible: FIXED, AUTOMATIC");
    EXPECT_EQ(staticWith("ON", "NONE", "FIXED", "SINE"), before + "SINE  Permissible: STEP, RAMP");
    EXPECT_EQ(heatWith("SLOW", "NONE", "DIRECT"), before + "SLOW  Permissible: STEADY_STATE, TRANSIENT");
    EXPECT_EQ(heatWith("TRANSIENT", "CUBIC", "DIRECT"), before + "CUBIC  Permissible: NONE, LINEAR, PARABOLIC");
    EXPECT_EQ(heatWith("TRANSIENT", "NONE", "BEST"), before + "BEST  Permissible: DIRECT, ITERATIVE");
    EXPECT_EQ(steps().size(), 0);
    EXPECT_EQ(model().model()->m_steps.size(), 1);
}

TEST_F(yld_StepSettings, firstFactoryFilesTheInitialStep)
{
    EXPECT_EQ(steps().size(), 0);
    aStaticStep("a", "");
    EXPECT_EQ(joined(steps().stepNames()), "Initial,a");
    yld_Step& initial = steps().get("Initial");
    EXPECT_EQ(initial.number(), 0);
    EXPECT_FALSE(initial.isAnalysisStep());
    EXPECT_EQ(initial.frames().size(), 0);
    EXPECT_EQ(steps().get("a").number(), 1);
    // Steps with settings hold no results.
    EXPECT_EQ(failureOf([&] { steps().get("a").Frame(1, 1.0); }), "Step \"a\" has no results.");
}

TEST_F(yld_StepSettings, setInitialStepFilesOnce)
{
    steps().setInitialStep();
    steps().setInitialStep();
    EXPECT_EQ(joined(steps().stepNames()), "Initial");
    aStaticStep("a", "");
    steps().setInitialStep();
    EXPECT_EQ(joined(steps().stepNames()), "Initial,a");
}

TEST_F(yld_StepSettings, nameOfTheInitialStepFilesItInAnEmptyRepository)
{
    EXPECT_STREQ(steps().getInitialStepName().cStr(), "Initial");
    EXPECT_EQ(joined(steps().stepNames()), "Initial");
}

TEST_F(yld_StepFactories, nameOfTheInitialStepFilesNothingWhereStepsAre)
{
    EXPECT_STREQ(m_yld->steps().getInitialStepName().cStr(), "Initial");
    EXPECT_EQ(joined(m_yld->steps().stepNames()), "Step-1");
}

TEST_F(yld_StepSettings, readOnlyDatabaseKnowsItsInitialStep)
{
    reopen();
    EXPECT_STREQ(steps().getInitialStepName().cStr(), "Initial");
    EXPECT_EQ(failureOf([&] { aStaticStep("a", ""); }), m_path + ": the database is open for reading only");
}

// "Initial" stands for the place before the first entry, and the entry of the initial step is no exception.
TEST_F(yld_StepSettings, filingBehindInitialGoesBeforeItsEntry)
{
    aStaticStep("a", "");
    aStaticStep("b", "Initial");
    EXPECT_EQ(joined(steps().stepNames()), "b,Initial,a");
    // In the model the initial step stays the first.
    const mrp_Container<mshK_Step> stored = model().model()->m_steps;
    EXPECT_EQ(stored.key(0) + " " + stored.key(1) + " " + stored.key(2), "Initial b a");
    EXPECT_EQ(steps().get("b").number(), 2);
}

TEST_F(yld_StepSettings, filingBehindANamedStep)
{
    aStaticStep("a", "");
    aStaticStep("b", "");
    aStaticStep("c", "a");
    EXPECT_EQ(joined(steps().stepNames()), "Initial,a,c,b");
}

TEST_F(yld_StepSettings, duplicateIsFoundAfterTheStoreHasTheStep)
{
    steps().StaticLinearPerturbationStep("a", "", "the first", "DIRECT");
    EXPECT_EQ(failureOf([&] { steps().StaticLinearPerturbationStep("a", "Initial", "the second", "ITERATIVE"); }),
              "Invalid step name.");
    EXPECT_EQ(joined(steps().stepNames()), "Initial,a");
    EXPECT_EQ(model().model()->m_steps.size(), 3);
    reopen();
    EXPECT_EQ(model().model()->m_steps.size(), 3);
    EXPECT_STREQ(model().step("a").description().cStr(), "the first");
    EXPECT_EQ(settings<stpC_StaticLinearPerturbationStep>("a")->argument<1>(), "DIRECT");
}

TEST_F(yld_StepSettings, unknownPreviousStepIsFoundAfterTheStoreHasTheStep)
{
    EXPECT_EQ(failureOf([&] { aStaticStep("a", "nowhere"); }), "Invalid previous step name.");
    EXPECT_EQ(joined(steps().stepNames()), "Initial");
    EXPECT_EQ(model().model()->m_steps.size(), 2);
}

TEST_F(yld_StepSettings, resultsStepTakesThePlaceAmongStepsWithSettings)
{
    aStaticStep("a", "");
    yld_Step& results = m_yld->Step("r", "", yld_Enum::TIME, 1.0, "a");
    EXPECT_EQ(joined(steps().stepNames()), "Initial,a,r");
    EXPECT_EQ(results.totalTime(), 0.0);
    EXPECT_EQ(results.number(), 2);
    EXPECT_EQ(failureOf([&] { m_yld->Step("a", "", yld_Enum::TIME); }), "A Step named \"a\" already exists.");
    reopen();
    // A database that is opened shows the steps that have results.
    EXPECT_EQ(joined(steps().stepNames()), "r");
    EXPECT_EQ(steps().get("r").number(), 2);
    EXPECT_STREQ(steps().get("r").previousStepName().cStr(), "");
    EXPECT_STREQ(model().step("a").procedureKeyword().cStr(), "*STATIC");
    EXPECT_STREQ(model().step("r").previousName().cStr(), "a");
    EXPECT_EQ(model().step("r").analysisStep(), nullptr);
}
