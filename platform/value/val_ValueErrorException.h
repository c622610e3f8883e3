#ifndef VAL_VALUEERROREXCEPTION_H
#define VAL_VALUEERROREXCEPTION_H

#include "platform/text/exc_Exception.h"

/// A value of a command that is not allowed.
class val_ValueErrorException : public exc_Typed<val_ValueErrorException, exc_CommandException>
{
public:
    explicit val_ValueErrorException(const msg_StringBase& text);
    val_ValueErrorException(const val_ValueErrorException&);
    ~val_ValueErrorException() override;

    const char* PythonType() const override;

    static unsigned TypeId();
};

#endif
