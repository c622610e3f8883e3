#ifndef PRG_WIPREPORTER_H
#define PRG_WIPREPORTER_H

#include "platform/text/msg_StringBase.h"

#include <vector>

/// Texts of one message, the first of them the one that a reporter with a single line shows.
using prg_MessageList = std::vector<msg_StringBase>;

/// Where reports of work in progress go. This base takes them and does nothing; a subclass shows them.
class YLD_API prg_WipReporter
{
public:
    prg_WipReporter();
    prg_WipReporter(const prg_WipReporter&) = delete;
    prg_WipReporter& operator=(const prg_WipReporter&) = delete;
    virtual ~prg_WipReporter();

    virtual void Error(const msg_StringBase& text, int level);
    virtual void Warning(const msg_StringBase& text);
    virtual void Error(const prg_MessageList& list, int level);
    virtual void Warning(const prg_MessageList& list);
    /// A remark that names the facility it comes from.
    virtual void FacilityMessage(const msg_StringBase& facility, const msg_StringBase& text);
    virtual void Verbose(const msg_StringBase& text);
    /// Progress of a piece of work: its begin with the number of parts, a part done, its end.
    virtual void Begin(const msg_StringBase& text, int parts);
    virtual void Advance(int part);
    virtual void End();
    virtual void Landmark(const msg_StringBase& text);
    virtual void Print(const msg_StringBase& text);
    virtual void Display(const msg_StringBase& text);
    /// Whether the user asked the work to stop.
    virtual bool Interrupted();
    virtual void CommandDone();
    /// Raises an exception if the user asked the work to stop.
    virtual void InterruptedThrow();

    /// Which kinds of report this object wants; those switched off do not reach it.
    bool wantsErrors() const noexcept { return m_errors; }
    bool wantsWarnings() const noexcept { return m_warnings; }
    bool wantsMessages() const noexcept { return m_messages; }
    bool wantsProgress() const noexcept { return m_progress; }
    bool wantsLandmarks() const noexcept { return m_landmarks; }

protected:
    bool m_errors = false;
    bool m_warnings = false;
    bool m_messages = false;
    bool m_progress = false;
    bool m_landmarks = false;
};

#endif
