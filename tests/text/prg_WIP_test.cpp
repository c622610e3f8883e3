#include "platform/text/prg_WIP.h"

#include "platform/text/exc_Exception.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>

namespace {

// Notes every call in one text.
class Notes : public prg_WipReporter
{
public:
    explicit Notes(bool wanted) { m_errors = m_warnings = m_messages = m_progress = m_landmarks = wanted; }

    void Error(const msg_StringBase& text, int level) override { note("E", text, level); }
    void Warning(const msg_StringBase& text) override { note("W", text); }
    void Error(const prg_MessageList& list, int level) override { note("EL", list.back(), level); }
    void Warning(const prg_MessageList& list) override { note("WL", list.back()); }
    void FacilityMessage(const msg_StringBase& facility, const msg_StringBase& text) override
    {
        note("F", facility);
        note("", text);
    }
    void Verbose(const msg_StringBase& text) override { note("V", text); }
    void Begin(const msg_StringBase& text, int parts) override { note("B", text, parts); }
    void Advance(int part) override { note("A", "", part); }
    void End() override { note("N", ""); }
    void Landmark(const msg_StringBase& text) override { note("L", text); }

    std::string all;

private:
    void note(const char* kind, const msg_StringBase& text, int number = 0)
    {
        all += std::string(kind) + ":" + text.cStr() + ":" + std::to_string(number) + " ";
    }
};

class Installed
{
public:
    explicit Installed(prg_WipReporter* reporter)
        : m_before(lok_ThreadSingleton<prg_WIP>::Instance().InstallReporter(reporter))
    {
    }
    ~Installed() { lok_ThreadSingleton<prg_WIP>::Instance().InstallReporter(m_before); }

private:
    prg_WipReporter* m_before;
};

void reportAllButErrors()
{
    prg_WIP::Warning(msg_StringBase("one"));
    prg_WIP::Warning(prg_MessageList{"two", "three"});
    prg_WIP::FacilityMessage("fac", "text");
    prg_WIP::Verbose("talk");
    prg_WIP::Begin("work", 3);
    prg_WIP::Advance(1);
    prg_WIP::End();
    prg_WIP::Landmark("mark");
}

void expectText(const msg_StringBase& expected, void (*action)())
{
    try {
        action();
        FAIL() << "nothing thrown";
    } catch (const exc_TextException& caught) {
        EXPECT_EQ(caught.AsString(), expected);
    }
}

} // namespace

TEST(prg_WIP, without_a_reporter_only_errors_are_heard)
{
    const Installed none(nullptr);
    EXPECT_NO_THROW(reportAllButErrors());
    expectText("broken", [] { prg_WIPBase::Error("broken"); });
    expectText("first", [] { prg_WIPBase::Error(prg_MessageList{"first", "second"}); });
    expectText("", [] { prg_WIPBase::Error(prg_MessageList{}); });
}

TEST(prg_WIP, hands_every_report_to_the_installed_reporter)
{
    Notes notes(true);
    const Installed installed(&notes);
    reportAllButErrors();
    prg_WIP::Error("broken", 2);
    prg_WIP::Error(prg_MessageList{"a", "b"}, 3);
    EXPECT_EQ(notes.all, "W:one:0 WL:three:0 F:fac:0 :text:0 V:talk:0 B:work:3 A::1 N::0 L:mark:0 E:broken:2 "
                         "EL:b:3 ");
}

TEST(prg_WIP, a_switch_that_is_off_keeps_reports_away)
{
    Notes notes(false);
    const Installed installed(&notes);
    reportAllButErrors();
    expectText("broken", [] { prg_WIP::Error("broken"); });
    EXPECT_EQ(notes.all, "");
}

TEST(prg_WIP, each_thread_has_its_own_reporter)
{
    Notes notes(true);
    const Installed installed(&notes);
    std::thread([] {
        EXPECT_EQ(lok_ThreadSingleton<prg_WIP>::Instance().Reporter(), nullptr);
        prg_WIP::Warning(msg_StringBase("elsewhere"));
    }).join();
    EXPECT_EQ(notes.all, "");
}

TEST(prg_WIP, install_gives_the_one_before)
{
    Notes first(true);
    Notes second(true);
    prg_WIP wip;
    EXPECT_EQ(wip.InstallReporter(&first), nullptr);
    EXPECT_EQ(wip.InstallReporter(&second), &first);
    EXPECT_EQ(wip.Reporter(), &second);
}

TEST(prg_WipReporter, wants_nothing_and_does_nothing_by_itself)
{
    prg_WipReporter reporter;
    EXPECT_FALSE(reporter.wantsErrors() || reporter.wantsWarnings() || reporter.wantsMessages() ||
                 reporter.wantsProgress() || reporter.wantsLandmarks());
    EXPECT_FALSE(reporter.Interrupted());
    EXPECT_NO_THROW(reporter.InterruptedThrow());
    EXPECT_NO_THROW(reporter.Error("text", 1));
}
