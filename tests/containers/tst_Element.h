#ifndef TST_ELEMENT_H
#define TST_ELEMENT_H

#include <stdexcept>

/// An element that keeps count of its kind and of the copies made of it, and whose copies fail when told to.
class tst_Element
{
public:
    tst_Element(int v = 0) : value(v) { ++alive; }
    tst_Element(const tst_Element& other) : value(other.value)
    {
        copied();
        ++alive;
    }
    tst_Element& operator=(const tst_Element& other)
    {
        copied();
        value = other.value;
        return *this;
    }
    ~tst_Element() { --alive; }
    friend bool operator==(const tst_Element& a, const tst_Element& b)
    {
        ++compared;
        return a.value == b.value;
    }

    int value;

    static void reset()
    {
        copies = 0;
        compared = 0;
        failAfter = -1;
    }

    static inline int alive = 0;
    static inline int copies = 0;
    static inline int compared = 0;
    /// Copies that still succeed; negative: all.
    static inline int failAfter = -1;

private:
    static void copied()
    {
        if (failAfter == 0) {
            throw std::runtime_error("copy refused");
        }
        if (failAfter > 0) {
            --failAfter;
        }
        ++copies;
    }
};

#endif
