#include "platform/text/exc_Exception.h"

namespace {

// The component number of the exception layer, in the upper half of its type ids.
constexpr unsigned component = 8u << 16;

bool assertionsBypassed = false;

} // namespace

exc_Exception::exc_Exception() = default;

exc_Exception::exc_Exception(const msg_StringBase& text) : m_text(text) {}

exc_Exception::exc_Exception(const exc_Exception&) = default;

exc_Exception& exc_Exception::operator=(const exc_Exception&) = default;

exc_Exception::~exc_Exception() = default;

msg_StringBase exc_Exception::DeveloperReport() const
{
    msg_StringBase report;
    if (m_throwFile) {
        report.append(m_throwFile).append(":").append(msg_StringBase(m_throwLine)).append(": ");
    }
    return report.append(AsString());
}

msg_StringBase exc_Exception::UserReport() const { return AsString(); }

msg_StringBase exc_Exception::AsString() const { return m_text; }

void exc_Exception::Propagate() const { throw exc_Exception(*this); }

exc_Exception* exc_Exception::Copy() const { return new exc_Exception(*this); }

unsigned exc_Exception::DynTypeId() const { return TypeId(); }

void exc_Exception::DBWrite(pcl_WriteVisitor&) const {}

msg_StringBase exc_Exception::JournalMessage() const { return m_text; }

const char* exc_Exception::PythonType() const { return "RuntimeError"; }

const char* exc_Exception::what() const noexcept
{
    try {
        if (m_what.empty()) {
            m_what = UserReport();
        }
        return m_what.cStr();
    } catch (...) {
        return m_text.cStr();
    }
}

void exc_Exception::Throw(const char* file, int line)
{
    m_throwFile = file;
    m_throwLine = line;
    Propagate();
    std::terminate(); // a subclass whose Propagate() returns
}

unsigned exc_Exception::TypeId() { return component | 1; }

exc_CommandException::exc_CommandException() = default;

exc_CommandException::exc_CommandException(const msg_StringBase& text) : exc_Exception(text) {}

exc_CommandException::exc_CommandException(const exc_CommandException&) = default;

exc_CommandException& exc_CommandException::operator=(const exc_CommandException&) = default;

exc_CommandException::~exc_CommandException() = default;

msg_StringBase exc_CommandException::AsString() const { return JournalMessage(); }

void exc_CommandException::Propagate() const { throw exc_CommandException(*this); }

exc_CommandException* exc_CommandException::Copy() const { return new exc_CommandException(*this); }

unsigned exc_CommandException::DynTypeId() const { return TypeId(); }

unsigned exc_CommandException::TypeId() { return component | 2; }

exc_TextException::exc_TextException(const msg_StringBase& text) : exc_Typed(text) {}

exc_TextException::exc_TextException(const exc_TextException&) = default;

exc_TextException::~exc_TextException() = default;

unsigned exc_TextException::TypeId() { return component | 3; }

exc_AssertException::exc_AssertException(const msg_StringBase& condition) : exc_Typed(condition) {}

exc_AssertException::exc_AssertException(const exc_AssertException&) = default;

exc_AssertException::~exc_AssertException() = default;

const char* exc_AssertException::PythonType() const { return "AssertionError"; }

unsigned exc_AssertException::TypeId() { return component | 4; }

void exc_AssertException::Raise(const char* condition, const char* file, int line)
{
    if (!assertionsBypassed) {
        exc_AssertException(condition).Throw(file, line);
    }
}

bool exc_AssertException::SetBypassed(bool bypassed)
{
    const bool before = assertionsBypassed;
    assertionsBypassed = bypassed;
    return before;
}
