#ifndef FIO_ERROR_H
#define FIO_ERROR_H

#include <string>

/// Raises exc_TextException with "<path>: <what>". Every failure of the store engine leaves this way.
[[noreturn]] void fio_raise(const std::string& path, const std::string& what);

#endif
