#ifndef YLD_WIPREPORTER_H
#define YLD_WIPREPORTER_H

#include "platform/text/prg_WipReporter.h"

#include <iosfwd>

/// Writes the library's warnings, errors and landmarks to a stream, each on a line of its own that is flushed
/// at once. The library makes one on the standard error stream when it starts.
class YLD_API yld_WipReporter : public prg_WipReporter
{
public:
    /// The stream is borrowed as long as the reporter lives.
    explicit yld_WipReporter(std::ostream& stream);
    ~yld_WipReporter() override;

    /// "ERROR: " and the text; then raises yld_Exception, error 6, with the text. The level is not used.
    void Error(const msg_StringBase& text, int level) override;
    /// "Warning: " and the text.
    void Warning(const msg_StringBase& text) override;
    /// The same with the first text of the list; an empty list counts as an empty text.
    void Error(const prg_MessageList& list, int level) override;
    void Warning(const prg_MessageList& list) override;
    /// "Landmark: " and the text, if landmarks are switched on.
    void Landmark(const msg_StringBase& text) override;
    /// Progress is not shown.
    void Begin(const msg_StringBase& text, int parts) override;
    void Advance(int part) override;
    void End() override;

    /// There is no place for these here; calling one raises exc_AssertException. Where assertions are
    /// bypassed they do nothing, and Interrupted() gives true.
    void Verbose(const msg_StringBase& text) override;
    void Print(const msg_StringBase& text) override;
    void Display(const msg_StringBase& text) override;
    bool Interrupted() override;
    void CommandDone() override;
    void InterruptedThrow() override;

    /// Switches landmarks of all reporters on or off; they are off at the start.
    static void GenerateWipMessages(bool on);

private:
    void writeLine(const char* prefix, const msg_StringBase& text);

    std::ostream& m_stream;
};

#endif
