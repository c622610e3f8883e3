#ifndef FIO_BUFFER_H
#define FIO_BUFFER_H

#include <cstddef>
#include <memory>

/// Counted, aligned bytes. Copies share them. Not initialised when made.
class fio_Buffer
{
public:
    static constexpr std::size_t alignment = 64;

    fio_Buffer() = default;
    /// Large ones are in large pages where the system has them: filling small pages for the first time takes as long
    /// as reading what goes into them.
    explicit fio_Buffer(std::size_t bytes);
    /// The bytes of somebody else, who keeps them for as long as this and its copies are used. They need not be
    /// aligned.
    static fio_Buffer borrow(const void* bytes, std::size_t count);
    bool isBorrowed() const { return m_isBorrowed; }

    std::size_t size() const { return m_size; }
    const char* data() const { return static_cast<const char*>(m_memory.get()); }
    char* writable() { return static_cast<char*>(m_memory.get()); }
    bool isEmpty() const { return m_size == 0; }
    /// The same bytes up to a smaller size.
    fio_Buffer prefix(std::size_t bytes) const
    {
        fio_Buffer part(*this);
        part.m_size = bytes;
        return part;
    }
    /// Some of the same bytes; the others live as long.
    fio_Buffer part(std::size_t from, std::size_t bytes) const
    {
        fio_Buffer part(*this);
        part.m_memory = std::shared_ptr<void>(m_memory, static_cast<char*>(m_memory.get()) + from);
        part.m_size = bytes;
        return part;
    }
    const std::shared_ptr<void>& memory() const { return m_memory; }

private:
    std::shared_ptr<void> m_memory;
    std::size_t m_size = 0;
    bool m_isBorrowed = false;
};

#endif
