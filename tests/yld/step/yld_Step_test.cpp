#include "platform/sto/sto_Frame.h"
#include "platform/sto/sto_Procedure.h"
#include "platform/sto/sto_Step.h"
#include "result_model.h"

using yld_StepTest = ResultModel;

TEST_F(yld_StepTest, framesOutsideTheStep)
{
    step().Frame(1, 1.0);
    EXPECT_EQ(failureOf([&] { step().frames(-1); }), "Incorrect index for frame.");
    EXPECT_EQ(failureOf([&] { step().frames(1); }), "Incorrect index for frame.");
    const yld_Step& constant = step();
    EXPECT_EQ(failureOf([&] { constant.frames(1); }), "Incorrect index for frame.");
    EXPECT_EQ(constant.frames(0).incrementNumber(), 1);
}

TEST_F(yld_StepTest, framesComeBackInOrder)
{
    EXPECT_EQ(step().Frame(1, 0.5, "one").frameIndex(), 0);
    EXPECT_EQ(step().Frame(7, 0.75, "two").frameIndex(), 1);
    reopen();
    ASSERT_EQ(step().frames().size(), 2);
    const yld_Frame& second = step().frames(1);
    EXPECT_EQ(second.frameIndex(), 1);
    EXPECT_EQ(second.incrementNumber(), 7);
    EXPECT_EQ(second.frameId(), 7);
    EXPECT_EQ(second.frameValue(), 0.75);
    EXPECT_STREQ(second.description().cStr(), "two");
    EXPECT_TRUE(second.loadCase() == yld_LoadCase());
    // The reference stands for one frame at a time.
    EXPECT_EQ(step().frames(0).incrementNumber(), 1);
}

TEST_F(yld_StepTest, frameValueIsKeptInSinglePrecision)
{
    EXPECT_EQ(step().Frame(1, 0.1).frameValue(), static_cast<double>(0.1F));
}

TEST_F(yld_StepTest, getFrameTakesTheLaterOrTheEarlierOfTwoThatFit)
{
    for (const double value : {1.0, 2.0, 2.0, 3.0}) step().Frame(0, value);
    const auto index = [&](double value, yld_Enum::yld_MatchEnum match) {
        return step().getFrame(value, match).frameIndex();
    };
    EXPECT_EQ(index(1.5, yld_Enum::MATCH_CLOSEST), 2);
    EXPECT_EQ(index(2.0, yld_Enum::MATCH_CLOSEST), 2);
    EXPECT_EQ(index(2.5, yld_Enum::MATCH_BEFORE), 1);
    EXPECT_EQ(index(1.5, yld_Enum::MATCH_AFTER), 2);
    EXPECT_EQ(index(2.0, yld_Enum::MATCH_EXACT), 2);
    EXPECT_EQ(index(9.0, yld_Enum::MATCH_CLOSEST), 3);
    EXPECT_EQ(failureOf([&] { step().getFrame(0.5, yld_Enum::MATCH_BEFORE); }), "Frame not found");
    EXPECT_EQ(failureOf([&] { step().getFrame(3.5, yld_Enum::MATCH_AFTER); }), "Frame not found");
    EXPECT_EQ(failureOf([&] { step().getFrame(2.0000001, yld_Enum::MATCH_EXACT); }), "Frame not found");
}

TEST_F(yld_StepTest, findFramesGivesAllAtTheBestDistance)
{
    for (const double value : {1.0, 2.0, 2.0, 3.0}) step().Frame(0, value);
    EXPECT_EQ(listed(step().findFrames(1.5, yld_Enum::MATCH_CLOSEST)), "0 1 2");
    EXPECT_EQ(listed(step().findFrames(2.75, yld_Enum::MATCH_BEFORE)), "1 2");
    EXPECT_EQ(listed(step().findFrames(1.25, yld_Enum::MATCH_AFTER)), "1 2");
    EXPECT_EQ(listed(step().findFrames(2.0, yld_Enum::MATCH_EXACT)), "1 2");
    EXPECT_EQ(listed(step().findFrames(0.5, yld_Enum::MATCH_BEFORE)), "");
    EXPECT_EQ(listed(step().findFrames(std::numeric_limits<double>::quiet_NaN(), yld_Enum::MATCH_EXACT)), "");
}

TEST_F(yld_StepTest, loadCasesSelectFrames)
{
    const yld_LoadCase pull = step().LoadCase("pull");
    const yld_LoadCase push = step().LoadCase("push");
    EXPECT_EQ(failureOf([&] { step().LoadCase("pull"); }), "Invalid LoadCase");
    EXPECT_EQ(failureOf([&] { step().Frame(yld_LoadCase("twist"), ""); }), "Invalid LoadCase");
    step().Frame(1, 1.0);
    step().Frame(pull, "a", 1.0);
    step().Frame(push, "b", 1.0);
    step().Frame(pull, "c");
    reopen();
    EXPECT_EQ(step().loadCases().size(), 2);
    EXPECT_STREQ(step().frames(1).loadCase().name().cStr(), "pull");
    EXPECT_STREQ(step().frames(0).loadCase().name().cStr(), "");
    EXPECT_EQ(step().frames(3).frameValue(), 0.0);
    EXPECT_EQ(listed(step().findFrames(pull, -1.0, yld_Enum::MATCH_EXACT)), "1 3");
    EXPECT_EQ(listed(step().findFrames(push, 1.0, yld_Enum::MATCH_CLOSEST)), "2");
    EXPECT_EQ(listed(step().findFrames(1.0, yld_Enum::MATCH_EXACT)), "0 1 2");
    EXPECT_EQ(step().getFrame(pull, -1.0).frameIndex(), 1);
    EXPECT_EQ(step().getFrame(pull, 0.1).frameIndex(), 3);
    EXPECT_EQ(failureOf([&] { step().getFrame(yld_LoadCase("twist"), -1.0); }), "Frame not found");
    EXPECT_EQ(failureOf([&] { step().getFrame(yld_LoadCase("twist"), 1.0); }), "Frame not found");
}

TEST_F(yld_StepTest, orderOfStepsAndTotalTimes)
{
    m_yld->Step("Step-2", "second", yld_Enum::TIME, 2.5);
    m_yld->Step("Step-3", "third", yld_Enum::FREQUENCY, 0.0, "Step-1");
    m_yld->Step("Step-0", "before all", yld_Enum::ARC_LENGTH, 1.0, "Initial", "*STATIC, RIKS");
    m_yld->Step("Step-4", "given", yld_Enum::MODAL, 0.0, "", "*BUCKLE", 17.5);
    EXPECT_EQ(failureOf([&] { m_yld->Step("Step-1", "", yld_Enum::TIME); }), "A Step named \"Step-1\" already exists.");
    EXPECT_EQ(failureOf([&] { m_yld->Step("Step-9", "", yld_Enum::TIME, 1.0, "Step-8"); }),
              "Previous step \"Step-8\" not found.");
    const auto check = [&] {
        yld_StepRepository& steps = m_yld->steps();
        EXPECT_EQ(joined(steps.stepNames()), "Step-0,Step-1,Step-3,Step-2,Step-4");
        EXPECT_EQ(steps.get("Step-1").totalTime(), 0.0);
        EXPECT_EQ(steps.get("Step-2").totalTime(), 1.0);
        EXPECT_EQ(steps.get("Step-3").totalTime(), 3.5);
        EXPECT_EQ(steps.get("Step-4").totalTime(), 17.5);
        EXPECT_EQ(steps.get("Step-2").timePeriod(), 2.5);
        EXPECT_EQ(steps.get("Step-0").domain(), yld_Enum::ARC_LENGTH);
        EXPECT_STREQ(steps.get("Step-0").procedure().cStr(), "*STATIC, RIKS");
        EXPECT_EQ(steps.get("Step-3").domain(), yld_Enum::FREQUENCY);
        EXPECT_EQ(steps.get("Step-4").domain(), yld_Enum::MODAL);
        EXPECT_STREQ(steps.get("Step-4").procedure().cStr(), "*BUCKLE");
        EXPECT_TRUE(steps.get("Step-4").isPerturbation());
        EXPECT_FALSE(steps.get("Step-1").isPerturbation());
        EXPECT_TRUE(steps.get("Step-1").isAnalysisStep());
        EXPECT_STREQ(steps.get("Step-2").description().cStr(), "second");
    };
    check();
    reopen();
    check();
    EXPECT_EQ(failureOf([&] { m_yld->steps().get("Step-9"); }), "No step named \"Step-9\" in StepContainer.");
}

TEST_F(yld_StepTest, filingChecksNames)
{
    yld_StepRepository steps;
    yld_Step a(yld_String("a"), *step().step(), "", step().assembly(), yld_Enum::TIME, "", "");
    yld_Step b(yld_String("b"), *step().step(), "", step().assembly(), yld_Enum::TIME, "", "");
    steps.file(a, "");
    EXPECT_EQ(failureOf([&] { steps.file(a, ""); }), "Invalid step name.");
    EXPECT_EQ(failureOf([&] { steps.file(a, "Initial"); }), "Invalid step name.");
    EXPECT_EQ(failureOf([&] { steps.file(b, "c"); }), "Invalid previous step name.");
    steps.file(b, "Initial");
    EXPECT_EQ(joined(steps.stepNames()), "b,a");
}

TEST_F(yld_StepTest, walkingTheSteps)
{
    m_yld->Step("Step-2", "", yld_Enum::TIME, 1.0);
    step().Frame(1, 1.0);
    reopen();
    yld_StepRepositoryIT it(m_yld->steps());
    std::string names;
    for (it.first(); !it.isDone(); it.next()) {
        names += std::string(it.currentKey().cStr()) + " " + std::to_string(it.currentValue().frames().size()) + " ";
        if (it.currentValue().frames().size() > 0) it.currentValue().frames(0);
    }
    EXPECT_EQ(names, "Step-1 1 Step-2 0 ");
    EXPECT_EQ(failureOf([&] { it.currentValue(); }), "StepContainerIterator done.");
    EXPECT_EQ(failureOf([&] { it.currentKey(); }), "StepContainerIterator done.");
}

TEST_F(yld_StepTest, updateTellsOfNewFrames)
{
    yld_Step& mine = step();
    EXPECT_FALSE(mine.update());
    sto_Step store(*mine.step());
    store.Frame("", 2.0, 1);
    EXPECT_TRUE(mine.update());
    EXPECT_FALSE(mine.update());
    EXPECT_EQ(mine.frames(0).frameValue(), 2.0);
}

TEST(sto_Procedure, keywordsAreSpelledAsTheyAre)
{
    EXPECT_STREQ(sto_Procedure::keyword(1), "*STATIC");
    EXPECT_STREQ(sto_Procedure::keyword(8), "*HEAT TRANSFER, , STEADY STATE");
    EXPECT_STREQ(sto_Procedure::keyword(16), "*COMPLEX FREQUENCY");
    EXPECT_STREQ(sto_Procedure::keyword(17), "");
    EXPECT_STREQ(sto_Procedure::keyword(18), "*GEOSTATIC");
    EXPECT_STREQ(sto_Procedure::keyword(29), "*USA ADDDED MASS GENERATION");
    EXPECT_STREQ(sto_Procedure::keyword(37), "*DYNAMIC TEMPERATURE-DISPLACEMENT,EXPLICT");
    EXPECT_STREQ(sto_Procedure::keyword(40), "*SUBSTRUCTURE GENERATE");
    EXPECT_STREQ(sto_Procedure::keyword(0), "");
    EXPECT_STREQ(sto_Procedure::keyword(41), "");
    EXPECT_STREQ(sto_Procedure::keyword(-1), "");
}
