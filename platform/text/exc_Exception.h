#ifndef EXC_EXCEPTION_H
#define EXC_EXCEPTION_H

#include "platform/text/msg_StringBase.h"

#include <exception>

class pcl_WriteVisitor;

/// Root of everything that the library throws. Carries a text and the source position where it was raised.
class YLD_API exc_Exception : public std::exception
{
public:
    exc_Exception();
    explicit exc_Exception(const msg_StringBase& text);
    exc_Exception(const exc_Exception&);
    exc_Exception& operator=(const exc_Exception&);
    ~exc_Exception() override;

    /// For the developer: the text, preceded by the source position if the exception went through Throw().
    virtual msg_StringBase DeveloperReport() const;
    /// For the user: the text alone.
    virtual msg_StringBase UserReport() const;
    virtual msg_StringBase AsString() const;
    /// Throws a copy of this object with its dynamic type.
    [[noreturn]] virtual void Propagate() const;
    /// A copy on the heap, with the dynamic type; the caller owns it.
    virtual exc_Exception* Copy() const;
    virtual unsigned DynTypeId() const;
    /// Hands the persistent fields to the visitor. This class and its platform subclasses have none.
    virtual void DBWrite(pcl_WriteVisitor& visitor) const;
    /// The user's text.
    virtual msg_StringBase JournalMessage() const;
    /// The name by which a scripting layer knows the exception; a static text.
    virtual const char* PythonType() const;

    /// The user's text. Made on the first call, good as long as the object lives.
    const char* what() const noexcept override;

    /// Remembers the source position and raises the object with its dynamic type. The file name is borrowed
    /// for ever: pass __FILE__.
    [[noreturn]] void Throw(const char* file, int line);

    /// Where Throw() was called: null and 0 if it was not.
    const char* throwFile() const noexcept { return m_throwFile; }
    int throwLine() const noexcept { return m_throwLine; }

    static unsigned TypeId();

private:
    msg_StringBase m_text;
    const char* m_throwFile = nullptr;
    int m_throwLine = 0;
    mutable msg_StringBase m_what;
};

/// Root of the exceptions that a user's command can cause. The inheritance is virtual so that a class which
/// names both bases has one exc_Exception, and each handler catches it without ambiguity.
class YLD_API exc_CommandException : public virtual exc_Exception
{
public:
    exc_CommandException();
    explicit exc_CommandException(const msg_StringBase& text);
    exc_CommandException(const exc_CommandException&);
    exc_CommandException& operator=(const exc_CommandException&);
    ~exc_CommandException() override;

    /// The text for the command's user, the same as JournalMessage().
    msg_StringBase AsString() const override;
    [[noreturn]] void Propagate() const override;
    exc_CommandException* Copy() const override;
    unsigned DynTypeId() const override;

    static unsigned TypeId();
};

/// Keeps the dynamic type of an exception through copying and raising. An exception class derives from this with itself
/// and its base for arguments, and tells its TypeId(); the two roots above stand for themselves.
template<class Self, class Base> class YLD_API exc_Typed : public Base
{
public:
    using Base::Base;

    [[noreturn]] void Propagate() const override { throw Self(self()); }
    Base* Copy() const override { return new Self(self()); }
    unsigned DynTypeId() const override { return Self::TypeId(); }

private:
    const Self& self() const { return static_cast<const Self&>(*this); }
};

/// A failure that is nothing but its text.
class YLD_API exc_TextException : public exc_Typed<exc_TextException, exc_Exception>
{
public:
    explicit exc_TextException(const msg_StringBase& text);
    exc_TextException(const exc_TextException&);
    ~exc_TextException() override;

    static unsigned TypeId();
};

/// A condition of the program that does not hold.
class YLD_API exc_AssertException : public exc_Typed<exc_AssertException, exc_Exception>
{
public:
    explicit exc_AssertException(const msg_StringBase& condition);
    exc_AssertException(const exc_AssertException&);
    ~exc_AssertException() override;

    const char* PythonType() const override;

    static unsigned TypeId();

    /// Raises an assertion with the text of the condition, unless assertions are bypassed: then it returns.
    static void Raise(const char* condition, const char* file, int line);
    /// Switches assertions off for the whole process, or on again. @return the switch as it was
    static bool SetBypassed(bool bypassed);
};

#endif
