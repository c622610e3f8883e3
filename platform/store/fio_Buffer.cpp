#include "platform/store/fio_Buffer.h"

#include <cstdlib>
#include <new>
#include <sys/mman.h>

namespace {

constexpr std::size_t largePage = 2u << 20;
// From here on what the last page wastes does not matter.
constexpr std::size_t largeBytes = 8 * largePage;

} // namespace

fio_Buffer::fio_Buffer(std::size_t bytes) : m_size(bytes)
{
    if (bytes == 0) return;
    const bool isLarge = bytes >= largeBytes;
    const std::size_t unit = isLarge ? largePage : alignment;
    const std::size_t rounded = (bytes + unit - 1) / unit * unit;
    if (rounded < bytes) throw std::bad_alloc();
    void* memory = std::aligned_alloc(unit, rounded);
    if (!memory) throw std::bad_alloc();
    // A hint: where it cannot be followed nothing is lost.
    if (isLarge) madvise(memory, rounded, MADV_HUGEPAGE);
    m_memory.reset(memory, std::free);
}

fio_Buffer fio_Buffer::borrow(const void* bytes, std::size_t count)
{
    fio_Buffer lent;
    // Only the const accessor is called on what is borrowed.
    lent.m_memory = std::shared_ptr<void>(std::shared_ptr<void>(), const_cast<void*>(bytes));
    lent.m_size = count;
    lent.m_isBorrowed = true;
    return lent;
}
