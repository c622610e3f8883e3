#include "platform/store/pcl_Array.h"

#include "platform/store/fio_File.h"
#include "platform/text/exc_Exception.h"

void pcl_ArrayBase::loadBytes(std::size_t valueSize) const
{
    const std::size_t bytes = static_cast<std::size_t>(m_count) * valueSize;
    fio_Buffer buffer;
    try {
        fio_Extents& extents = m_file->extents();
        extents.verify(m_stored.firstExtent, bytes);
        buffer = fio_Buffer(bytes);
        extents.read(m_stored.firstExtent, 0, buffer.writable(), bytes);
    } catch (const exc_Exception&) {
        // The extents of an older state may be gone by now: that is no damage.
        if (m_file->isOpen()) m_file->raiseIfChanged();
        throw;
    }
    m_buffer = buffer;
    m_filled = std::make_shared<std::size_t>(bytes);
    m_loaded = true;
}

void pcl_ArrayBase::readBytes(std::size_t valueSize, long long from, long long count, void* into) const
{
    m_file->extents().read(m_stored.firstExtent, static_cast<std::size_t>(from) * valueSize, into,
                           static_cast<std::size_t>(count) * valueSize);
}

void pcl_ArrayBase::storeBytes(const std::shared_ptr<fio_FileBody>& file, std::size_t valueSize)
{
    if (!m_changed) return;
    fio_Extents& extents = file->extents();
    const std::size_t bytes = static_cast<std::size_t>(m_count) * valueSize;
    const long long first = file->appendBulk(m_buffer.prefix(bytes));
    extents.release(m_stored.firstExtent, static_cast<std::size_t>(m_stored.count) * valueSize);
    m_stored = {first, m_count};
    m_file = file;
    m_changed = false;
}
