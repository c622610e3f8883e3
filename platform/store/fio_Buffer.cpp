#include "platform/store/fio_Buffer.h"

#include <cstdlib>
#include <new>
#include <sys/mman.h>

namespace {

constexpr std::size_t largePage = 2u << 20;

} // namespace

fio_Buffer::fio_Buffer(std::size_t bytes) : m_size(bytes)
{
    if (bytes == 0) return;
    const std::size_t rounded = (bytes + alignment - 1) / alignment * alignment;
    if (rounded < bytes) throw std::bad_alloc();
    const bool isLarge = bytes >= 2 * largePage;
    void* memory = nullptr;
    if (posix_memalign(&memory, isLarge ? largePage : alignment, rounded) != 0) throw std::bad_alloc();
    // A hint: where it cannot be followed nothing is lost. What is less than a large page stays in small ones.
    if (isLarge) madvise(memory, bytes / largePage * largePage, MADV_HUGEPAGE);
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
