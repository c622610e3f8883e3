#ifndef SHR_1DARRAYBLOCK_H
#define SHR_1DARRAYBLOCK_H

#include "containers/shr_Counter.h"

/// One block of a paged array: a count of the tables that hold it, and the elements, which all exist from the
/// start. Numbers start at zero.
template<class T> class YLD_API shr_1DArrayBlock
{
public:
    explicit shr_1DArrayBlock(int size) : count(1), elements(new T[static_cast<std::size_t>(size)]()) {}
    /// A clone: every element copied, whether in use or not.
    shr_1DArrayBlock(const shr_1DArrayBlock& other, int size) : shr_1DArrayBlock(size)
    {
        // The other constructor is done, so a copy that raises is followed by the destructor.
        for (int i = 0; i < size; ++i) {
            elements[i] = other.elements[i];
        }
    }
    ~shr_1DArrayBlock() { delete[] elements; }
    shr_1DArrayBlock(const shr_1DArrayBlock&) = delete;
    shr_1DArrayBlock& operator=(const shr_1DArrayBlock&) = delete;

    static void* operator new(std::size_t bytes) { return shr_Counter::operator new(bytes); }
    static void operator delete(void* block) noexcept { shr_Counter::operator delete(block); }

    int count;
    T* elements;
};

#endif
