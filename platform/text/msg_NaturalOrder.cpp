#include "platform/text/msg_NaturalOrder.h"

#include <cstddef>
#include <cstring>

namespace {

bool naturalOrder = false;

bool isDigit(char c) { return c >= '0' && c <= '9'; }

int sign(int order) { return (order > 0) - (order < 0); }

// Compares two runs of digits by value and moves both pointers past them.
int compareNumbers(const char*& a, const char*& b)
{
    while (*a == '0') {
        ++a;
    }
    while (*b == '0') {
        ++b;
    }
    const char* const beginA = a;
    const char* const beginB = b;
    while (isDigit(*a)) {
        ++a;
    }
    while (isDigit(*b)) {
        ++b;
    }
    const std::ptrdiff_t digitsA = a - beginA;
    const std::ptrdiff_t digitsB = b - beginB;
    if (digitsA != digitsB) {
        return digitsA < digitsB ? -1 : 1;
    }
    return sign(std::memcmp(beginA, beginB, static_cast<std::size_t>(digitsA)));
}

} // namespace

bool msg_getNaturalOrder() { return naturalOrder; }

void msg_setNaturalOrder(bool on) { naturalOrder = on; }

int strnatcmp(const char* a, const char* b)
{
    const char* const wholeA = a ? a : "";
    const char* const wholeB = b ? b : "";
    a = wholeA;
    b = wholeB;
    while (*a && *b) {
        if (isDigit(*a) && isDigit(*b)) {
            if (const int order = compareNumbers(a, b)) {
                return order;
            }
        } else if (*a != *b) {
            break;
        } else {
            ++a;
            ++b;
        }
    }
    if (*a != *b) {
        return static_cast<unsigned char>(*a) < static_cast<unsigned char>(*b) ? -1 : 1;
    }
    return sign(std::strcmp(wholeA, wholeB));
}
