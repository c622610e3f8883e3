#include "yld_WipReporter.h"

#include "yld_Exception.h"

#include <ostream>

namespace {

bool landmarks = false;

shr_String firstOf(const prg_MessageList& list) { return list.empty() ? shr_String() : list.front(); }

} // namespace

yld_WipReporter::yld_WipReporter(std::ostream& stream) : m_stream(stream)
{
    m_errors = true;
    m_warnings = true;
    m_messages = true;
    m_progress = true;
    m_landmarks = true;
}

yld_WipReporter::~yld_WipReporter() = default;

void yld_WipReporter::Error(const msg_StringBase& text, int)
{
    writeLine("ERROR: ", text);
    yld_Exception(yld_GENERAL, text).Throw(__FILE__, __LINE__);
}

void yld_WipReporter::Warning(const msg_StringBase& text) { writeLine("Warning: ", text); }

void yld_WipReporter::Error(const prg_MessageList& list, int level) { Error(firstOf(list), level); }

void yld_WipReporter::Warning(const prg_MessageList& list) { Warning(firstOf(list)); }

void yld_WipReporter::Landmark(const msg_StringBase& text)
{
    if (landmarks) {
        writeLine("Landmark: ", text);
    }
}

void yld_WipReporter::Begin(const msg_StringBase&, int) {}

void yld_WipReporter::Advance(int) {}

void yld_WipReporter::End() {}

// The first text lacks a blank that the others have; clients look for it as it is.
void yld_WipReporter::Verbose(const msg_StringBase&)
{
    exc_AssertException::Raise("\"Verbose is unimplemented\"== 0", __FILE__, __LINE__);
}

void yld_WipReporter::Print(const msg_StringBase&)
{
    exc_AssertException::Raise("\"Print is unimplemented\" == 0", __FILE__, __LINE__);
}

void yld_WipReporter::Display(const msg_StringBase&)
{
    exc_AssertException::Raise("\"Display is unimplemented\" == 0", __FILE__, __LINE__);
}

bool yld_WipReporter::Interrupted()
{
    exc_AssertException::Raise("\"Interrupted is unimplemented\" == 0", __FILE__, __LINE__);
    return true;
}

void yld_WipReporter::CommandDone()
{
    exc_AssertException::Raise("\"CommandDone is unimplemented\" == 0", __FILE__, __LINE__);
}

void yld_WipReporter::InterruptedThrow()
{
    exc_AssertException::Raise("\"InterruptedThrow is unimplemented\" == 0", __FILE__, __LINE__);
}

void yld_WipReporter::GenerateWipMessages(bool on) { landmarks = on; }

void yld_WipReporter::writeLine(const char* prefix, const msg_StringBase& text)
{
    m_stream << prefix << text.cStr() << '\n' << std::flush;
}
