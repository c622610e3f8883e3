#include "yld_WipReporter.h"

#include "yld_Exception.h"

#include <gtest/gtest.h>

#include <ostream>
#include <sstream>

namespace {

// Shows only what has been flushed.
class FlushedBuffer : public std::stringbuf
{
public:
    std::string flushed;
    int flushes = 0;

protected:
    int sync() override
    {
        flushed = str();
        ++flushes;
        return 0;
    }
};

class yld_WipReporterTest : public testing::Test
{
protected:
    void TearDown() override { yld_WipReporter::GenerateWipMessages(false); }

    template<class Action> void expectAssertion(const Action& action, const char* condition)
    {
        try {
            action();
            ADD_FAILURE() << "not raised: " << condition;
        } catch (const exc_AssertException& caught) {
            EXPECT_EQ(caught.AsString(), condition);
            EXPECT_NE(caught.throwFile(), nullptr);
        }
        EXPECT_EQ(buffer.str(), "") << "nothing is written";
    }

    template<class Action> void expectError(const Action& action, const char* text)
    {
        try {
            action();
            ADD_FAILURE() << "not raised: " << text;
        } catch (const yld_Exception& caught) {
            EXPECT_EQ(caught.errorNo(), 6);
            EXPECT_EQ(caught.JournalMessage(), text);
        }
    }

    FlushedBuffer buffer;
    std::ostream stream{&buffer};
    yld_WipReporter reporter{stream};
};

} // namespace

TEST_F(yld_WipReporterTest, all_five_switches_are_on)
{
    EXPECT_TRUE(reporter.wantsErrors() && reporter.wantsWarnings() && reporter.wantsMessages() &&
                reporter.wantsProgress() && reporter.wantsLandmarks());
}

TEST_F(yld_WipReporterTest, a_warning_is_a_line_that_is_flushed_at_once)
{
    reporter.Warning(shr_String("the text"));
    EXPECT_EQ(buffer.flushed, "Warning: the text\n");
    EXPECT_EQ(buffer.flushes, 1);
    reporter.Warning(shr_String("another"));
    EXPECT_EQ(buffer.flushed, "Warning: the text\nWarning: another\n");
    EXPECT_EQ(buffer.flushes, 2);
}

TEST_F(yld_WipReporterTest, a_list_of_warnings_shows_its_first)
{
    reporter.Warning(prg_MessageList{"first", "second"});
    EXPECT_EQ(buffer.flushed, "Warning: first\n");
    reporter.Warning(prg_MessageList{});
    EXPECT_EQ(buffer.flushed, "Warning: first\nWarning: \n");
}

TEST_F(yld_WipReporterTest, an_error_is_written_and_raised)
{
    expectError([&] { reporter.Error("it broke", 3); }, "it broke");
    EXPECT_EQ(buffer.flushed, "ERROR: it broke\n");
    EXPECT_EQ(buffer.flushes, 1);
}

TEST_F(yld_WipReporterTest, a_list_of_errors_raises_its_first)
{
    expectError([&] { reporter.Error(prg_MessageList{"first", "second"}, 0); }, "first");
    EXPECT_EQ(buffer.flushed, "ERROR: first\n");
    expectError([&] { reporter.Error(prg_MessageList{}, 0); }, "");
}

TEST_F(yld_WipReporterTest, landmarks_are_silent_until_switched_on)
{
    reporter.Landmark("quiet");
    EXPECT_EQ(buffer.str(), "");
    EXPECT_EQ(buffer.flushes, 0);
    yld_WipReporter::GenerateWipMessages(true);
    reporter.Landmark("loud");
    EXPECT_EQ(buffer.flushed, "Landmark: loud\n");
    yld_WipReporter::GenerateWipMessages(false);
    reporter.Landmark("quiet");
    EXPECT_EQ(buffer.str(), "Landmark: loud\n");
}

TEST_F(yld_WipReporterTest, placeholders_in_a_text_stay)
{
    reporter.Warning(shr_String("100%s %1$s\n"));
    EXPECT_EQ(buffer.flushed, "Warning: 100%s %1$s\n\n");
}

TEST_F(yld_WipReporterTest, progress_and_facility_messages_do_nothing)
{
    reporter.FacilityMessage("facility", "text");
    reporter.Begin("text", 3);
    reporter.Advance(1);
    reporter.End();
    EXPECT_EQ(buffer.str(), "");
    EXPECT_EQ(buffer.flushes, 0);
}

TEST_F(yld_WipReporterTest, channels_without_a_place_raise_assertions)
{
    expectAssertion([&] { reporter.Verbose("text"); }, "\"Verbose is unimplemented\"== 0");
    expectAssertion([&] { reporter.Print("text"); }, "\"Print is unimplemented\" == 0");
    expectAssertion([&] { reporter.Display("text"); }, "\"Display is unimplemented\" == 0");
    expectAssertion([&] { reporter.Interrupted(); }, "\"Interrupted is unimplemented\" == 0");
    expectAssertion([&] { reporter.CommandDone(); }, "\"CommandDone is unimplemented\" == 0");
    expectAssertion([&] { reporter.InterruptedThrow(); }, "\"InterruptedThrow is unimplemented\" == 0");
}

TEST_F(yld_WipReporterTest, bypassed_assertions_do_nothing_and_interrupted_is_true)
{
    exc_AssertException::SetBypassed(true);
    reporter.Verbose("text");
    reporter.Print("text");
    reporter.Display("text");
    reporter.CommandDone();
    reporter.InterruptedThrow();
    EXPECT_TRUE(reporter.Interrupted());
    exc_AssertException::SetBypassed(false);
    EXPECT_EQ(buffer.str(), "");
}
