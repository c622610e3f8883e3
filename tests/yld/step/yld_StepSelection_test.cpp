// Which frames of a step are found by a value: the ties of getFrame, which go another way for each match, and the lists
// of findFrames.
#include "result_model.h"

#include <limits>
#include <vector>

using yld_StepSelection = ResultModel;

namespace {

constexpr double none = std::numeric_limits<double>::quiet_NaN();

struct Case
{
    const char* name;
    std::vector<double> frames;
    double value;
    yld_Enum::yld_MatchEnum match;
    std::string found; ///< indices, or nothing
};

} // namespace

TEST_F(yld_StepSelection, getFrameCaseByCase)
{
    const Case cases[] = {
        {"no frame", {}, 1.0, yld_Enum::MATCH_CLOSEST, ""},
        {"closest: one", {5.0}, 1.0, yld_Enum::MATCH_CLOSEST, "0"},
        {"closest: below and above at equal distance, the later", {1.0, 3.0}, 2.0, yld_Enum::MATCH_CLOSEST, "1"},
        {"closest: equal distance in falling order, the later", {3.0, 1.0}, 2.0, yld_Enum::MATCH_CLOSEST, "1"},
        {"closest: three of one value, the last", {2.0, 2.0, 2.0}, 2.5, yld_Enum::MATCH_CLOSEST, "2"},
        {"closest: nearer one comes first", {2.0, 9.0}, 2.5, yld_Enum::MATCH_CLOSEST, "0"},
        {"closest: not a number fits all", {1.0, 2.0}, none, yld_Enum::MATCH_CLOSEST, "1"},
        {"before: the largest below", {1.0, 2.0, 3.0}, 2.5, yld_Enum::MATCH_BEFORE, "1"},
        {"before: equal counts as before", {1.0, 2.0, 3.0}, 2.0, yld_Enum::MATCH_BEFORE, "1"},
        {"before: two of one value, the earlier", {2.0, 2.0, 3.0}, 2.5, yld_Enum::MATCH_BEFORE, "0"},
        {"before: none below", {1.0, 2.0}, 0.5, yld_Enum::MATCH_BEFORE, ""},
        {"after: the smallest above", {1.0, 2.0, 3.0}, 1.5, yld_Enum::MATCH_AFTER, "1"},
        {"after: equal counts as after", {1.0, 2.0, 3.0}, 2.0, yld_Enum::MATCH_AFTER, "1"},
        {"after: two of one value, the later", {2.0, 2.0, 3.0}, 1.5, yld_Enum::MATCH_AFTER, "1"},
        {"after: none above", {1.0, 2.0}, 2.5, yld_Enum::MATCH_AFTER, ""},
        {"exact: the later of two", {2.0, 1.0, 2.0}, 2.0, yld_Enum::MATCH_EXACT, "2"},
        {"exact: no tolerance", {2.0}, 2.0000000000000004, yld_Enum::MATCH_EXACT, ""},
        {"exact: values are kept in single precision", {0.1}, 0.1, yld_Enum::MATCH_EXACT, ""},
        {"exact: of a value as it is kept", {0.1}, static_cast<double>(0.1F), yld_Enum::MATCH_EXACT, "0"},
        {"exact: not a number equals nothing", {1.0}, none, yld_Enum::MATCH_EXACT, ""},
        {"a negative value without a load case is a value", {-1.0, 1.0}, -1.0, yld_Enum::MATCH_EXACT, "0"},
    };
    int number = 0;
    for (const Case& each : cases) {
        yld_Step& tried = m_yld->Step(("case " + std::to_string(number++)).c_str(), "", yld_Enum::TIME, 1.0);
        for (const double value : each.frames) tried.Frame(0, value);
        if (each.found.empty()) {
            EXPECT_EQ(failureOf([&] { tried.getFrame(each.value, each.match); }), "Frame not found") << each.name;
        } else {
            EXPECT_EQ(std::to_string(tried.getFrame(each.value, each.match).frameIndex()), each.found) << each.name;
        }
    }
}

TEST_F(yld_StepSelection, findFramesCaseByCase)
{
    const Case cases[] = {
        {"no frame", {}, 1.0, yld_Enum::MATCH_CLOSEST, ""},
        {"closest: all at the smallest distance", {1.0, 3.0, 2.5, 1.5, 9.0}, 2.0, yld_Enum::MATCH_CLOSEST, "2 3"},
        {"closest: both sides", {1.0, 3.0}, 2.0, yld_Enum::MATCH_CLOSEST, "0 1"},
        {"closest: not a number fits all", {1.0, 2.0}, none, yld_Enum::MATCH_CLOSEST, "0 1"},
        {"before: all of the largest below", {2.0, 1.0, 2.0, 3.0}, 2.5, yld_Enum::MATCH_BEFORE, "0 2"},
        {"before: none", {1.0}, 0.5, yld_Enum::MATCH_BEFORE, ""},
        {"after: all of the smallest above", {1.0, 2.0, 3.0, 2.0}, 1.5, yld_Enum::MATCH_AFTER, "1 3"},
        {"after: none", {1.0}, 1.5, yld_Enum::MATCH_AFTER, ""},
        {"exact: all", {2.0, 1.0, 2.0}, 2.0, yld_Enum::MATCH_EXACT, "0 2"},
        {"exact: none", {2.0}, 2.0000000000000004, yld_Enum::MATCH_EXACT, ""},
        {"exact: not a number equals nothing", {1.0}, none, yld_Enum::MATCH_EXACT, ""},
    };
    int number = 0;
    for (const Case& each : cases) {
        yld_Step& tried = m_yld->Step(("case " + std::to_string(number++)).c_str(), "", yld_Enum::TIME, 1.0);
        for (const double value : each.frames) tried.Frame(0, value);
        EXPECT_EQ(listed(tried.findFrames(each.value, each.match)), each.found) << each.name;
    }
}

TEST_F(yld_StepSelection, negativeValueWithALoadCaseTakesAllItsFrames)
{
    const yld_LoadCase pull = step().LoadCase("pull");
    const yld_LoadCase push = step().LoadCase("push");
    step().Frame(pull, "", 3.0);
    step().Frame(push, "", 1.0);
    step().Frame(pull, "", 1.0);
    for (const auto match :
         {yld_Enum::MATCH_CLOSEST, yld_Enum::MATCH_BEFORE, yld_Enum::MATCH_AFTER, yld_Enum::MATCH_EXACT}) {
        EXPECT_EQ(listed(step().findFrames(pull, -1.0, match)), "0 2");
        EXPECT_EQ(step().getFrame(pull, -1.0, match).frameIndex(), 0);
        EXPECT_EQ(step().getFrame(push, -1.0, match).frameIndex(), 1);
    }
    // A value of 0 or more, or the default load case, goes by the value.
    EXPECT_EQ(listed(step().findFrames(pull, 0.0, yld_Enum::MATCH_CLOSEST)), "2");
    EXPECT_EQ(listed(step().findFrames(yld_LoadCase(), -1.0, yld_Enum::MATCH_CLOSEST)), "1 2");
    EXPECT_EQ(listed(step().findFrames(yld_LoadCase("twist"), -1.0, yld_Enum::MATCH_CLOSEST)), "");
    EXPECT_EQ(failureOf([&] { step().getFrame(yld_LoadCase("twist"), -1.0, yld_Enum::MATCH_CLOSEST); }),
              "Frame not found");
}

TEST_F(yld_StepSelection, frameOfALoadCaseComesWithItsFieldsRead)
{
    const yld_LoadCase pull = step().LoadCase("pull");
    step().Frame(1, 1.0);
    yld_Frame made = step().Frame(pull, "", 2.0);
    made.FieldOutput("T", "", yld_Enum::SCALAR).addData(yld_Enum::NODAL, instance(), ints({10}), rows({{1}}));
    reopen();
    const yld_Frame found = step().getFrame(pull, -1.0);
    EXPECT_EQ(found.frameIndex(), 1);
    EXPECT_TRUE(found.fieldOutputs().isFullyRead());
    EXPECT_STREQ(found.loadCase().name().cStr(), "pull");
    // By value the frame comes unread, in a copy of the caller's own.
    const yld_Frame other = step().getFrame(pull, 2.0);
    EXPECT_FALSE(other.fieldOutputs().isFullyRead());
    step().frames(0);
    EXPECT_EQ(other.frameIndex(), 1);
}

TEST_F(yld_StepSelection, wholeDatabaseIsSearchedByTotalTime)
{
    yld_Step& second = m_yld->Step("Step-2", "", yld_Enum::TIME, 1.0, "", "", 10.0);
    step().Frame(0, 1.0);
    second.Frame(0, 1.0);
    EXPECT_EQ(m_yld->getFrame(11.0, yld_Enum::MATCH_EXACT).frameIndex(), 0);
    EXPECT_EQ(failureOf([&] { m_yld->getFrame(2.0, yld_Enum::MATCH_EXACT); }), "Frame not found.");
}
