#ifndef MSG_NATURALORDER_H
#define MSG_NATURALORDER_H

#include "platform/base/bas_Export.h"

/// Whether names are ordered with their numbers taken by value, so that Step-2 comes before Step-10.
/// Process-wide, off at the start; containers that hold names already must not see it change.
bool msg_getNaturalOrder();
void msg_setNaturalOrder(bool on);

/// Compares two texts, runs of decimal digits by value whatever their length, everything else byte by byte.
/// Texts that differ in leading zeros alone are told apart byte by byte, so that 0 means equal texts.
/// @return -1, 0 or 1 with the first text as left operand; a null pointer counts as the empty text
int strnatcmp(const char* a, const char* b);

#endif
