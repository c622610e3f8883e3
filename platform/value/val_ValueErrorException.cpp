#include "platform/value/val_ValueErrorException.h"

// exc_Exception is a virtual base, so the most derived class hands it the text.
val_ValueErrorException::val_ValueErrorException(const msg_StringBase& text) : exc_Exception(text) {}

val_ValueErrorException::val_ValueErrorException(const val_ValueErrorException&) = default;

val_ValueErrorException::~val_ValueErrorException() = default;

const char* val_ValueErrorException::PythonType() const { return "ValueError"; }

unsigned val_ValueErrorException::TypeId() { return 13u << 16 | 1; }
