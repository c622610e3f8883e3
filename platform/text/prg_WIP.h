#ifndef PRG_WIP_H
#define PRG_WIP_H

#include "platform/base/lok_ThreadSingleton.h"
#include "platform/text/prg_WipReporter.h"

/// The way in for everyone who has something to report: hands it to the calling thread's reporter. Without a
/// reporter, or if that does not want the kind, a report goes nowhere, except an error, which raises.
class prg_WIPBase
{
public:
    /// Returns only if the reporter takes the error and returns. Unreported, it raises exc_TextException with
    /// the text; a list does so with its first text.
    static void Error(const msg_StringBase& text, int level = 0);
    static void Error(const prg_MessageList& list, int level = 0);
    static void Warning(const msg_StringBase& text);
    static void Warning(const prg_MessageList& list);
    static void FacilityMessage(const msg_StringBase& facility, const msg_StringBase& text);
    static void Verbose(const msg_StringBase& text);
    static void Begin(const msg_StringBase& text, int parts);
    static void Advance(int part);
    static void End();
    static void Landmark(const msg_StringBase& text);
};

/// The reporting of one thread: `lok_ThreadSingleton<prg_WIP>::Instance()`.
class prg_WIP : public prg_WIPBase
{
public:
    /// Installs where the thread's reports go; null takes it away. The reporter is borrowed until it is
    /// replaced.
    /// @return the one that was installed before, or null
    prg_WipReporter* InstallReporter(prg_WipReporter* reporter) noexcept;
    prg_WipReporter* Reporter() const noexcept { return m_reporter; }

private:
    prg_WipReporter* m_reporter = nullptr;
};

#endif
