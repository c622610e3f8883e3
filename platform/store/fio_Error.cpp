#include "platform/store/fio_Error.h"

#include "platform/text/exc_Exception.h"

void fio_raise(const std::string& path, const std::string& what)
{
    const std::string text = path + ": " + what;
    throw exc_TextException(msg_StringBase(text.c_str()));
}
