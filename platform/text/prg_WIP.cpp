#include "platform/text/prg_WIP.h"

#include "platform/text/exc_Exception.h"

namespace {

// The thread's reporter if it wants the kind of report that the switch stands for.
prg_WipReporter* reporterFor(bool (prg_WipReporter::*wants)() const noexcept)
{
    prg_WipReporter* const reporter = lok_ThreadSingleton<prg_WIP>::Instance().Reporter();
    return reporter && (reporter->*wants)() ? reporter : nullptr;
}

} // namespace

void prg_WIPBase::Error(const msg_StringBase& text, int level)
{
    if (auto* reporter = reporterFor(&prg_WipReporter::wantsErrors)) {
        reporter->Error(text, level);
        return;
    }
    exc_TextException(text).Throw(__FILE__, __LINE__);
}

void prg_WIPBase::Error(const prg_MessageList& list, int level)
{
    if (auto* reporter = reporterFor(&prg_WipReporter::wantsErrors)) {
        reporter->Error(list, level);
        return;
    }
    exc_TextException(list.empty() ? msg_StringBase() : list.front()).Throw(__FILE__, __LINE__);
}

void prg_WIPBase::Warning(const msg_StringBase& text)
{
    if (auto* reporter = reporterFor(&prg_WipReporter::wantsWarnings)) {
        reporter->Warning(text);
    }
}

void prg_WIPBase::Warning(const prg_MessageList& list)
{
    if (auto* reporter = reporterFor(&prg_WipReporter::wantsWarnings)) {
        reporter->Warning(list);
    }
}

void prg_WIPBase::FacilityMessage(const msg_StringBase& facility, const msg_StringBase& text)
{
    if (auto* reporter = reporterFor(&prg_WipReporter::wantsMessages)) {
        reporter->FacilityMessage(facility, text);
    }
}

void prg_WIPBase::Verbose(const msg_StringBase& text)
{
    if (auto* reporter = reporterFor(&prg_WipReporter::wantsMessages)) {
        reporter->Verbose(text);
    }
}

void prg_WIPBase::Begin(const msg_StringBase& text, int parts)
{
    if (auto* reporter = reporterFor(&prg_WipReporter::wantsProgress)) {
        reporter->Begin(text, parts);
    }
}

void prg_WIPBase::Advance(int part)
{
    if (auto* reporter = reporterFor(&prg_WipReporter::wantsProgress)) {
        reporter->Advance(part);
    }
}

void prg_WIPBase::End()
{
    if (auto* reporter = reporterFor(&prg_WipReporter::wantsProgress)) {
        reporter->End();
    }
}

void prg_WIPBase::Landmark(const msg_StringBase& text)
{
    if (auto* reporter = reporterFor(&prg_WipReporter::wantsLandmarks)) {
        reporter->Landmark(text);
    }
}

prg_WipReporter* prg_WIP::InstallReporter(prg_WipReporter* reporter) noexcept
{
    prg_WipReporter* const before = m_reporter;
    m_reporter = reporter;
    return before;
}
