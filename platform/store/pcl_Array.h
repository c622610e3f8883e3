#ifndef PCL_ARRAY_H
#define PCL_ARRAY_H

#include "platform/store/fio_Buffer.h"

#include <cstring>
#include <memory>

class fio_FileBody;

/// What an array knows of its place on disk.
struct pcl_StoredRun
{
    long long firstExtent = 0;
    long long count = 0; ///< values
};

/// The part of a bulk array that does not depend on its element type.
class pcl_ArrayBase
{
public:
    /// Where the values lie on disk; firstExtent 0 if they do not.
    const pcl_StoredRun& stored() const { return m_stored; }
    /// True when memory holds values that the disk does not.
    bool isChanged() const { return m_changed; }
    bool isLoaded() const { return m_loaded; }
    const std::shared_ptr<fio_FileBody>& file() const { return m_file; }

protected:
    pcl_ArrayBase() = default;

    void loadBytes(std::size_t valueSize) const;
    void readBytes(std::size_t valueSize, long long from, long long count, void* into) const;
    void storeBytes(const std::shared_ptr<fio_FileBody>& file, std::size_t valueSize);

    friend class pcl_RowWriter;
    friend class pcl_RowReader;

    std::shared_ptr<fio_FileBody> m_file;
    mutable fio_Buffer m_buffer;
    // How many bytes of the buffer any sharer has filled: an append may go on in place only from there.
    mutable std::shared_ptr<std::size_t> m_filled;
    mutable bool m_loaded = true;
    bool m_changed = false;
    long long m_count = 0;
    pcl_StoredRun m_stored;
};

/// A bulk array of a persistent object: 32-bit integers, floats or doubles. It is read from disk when its values are
/// first asked for, and shared between copies of its object. Appending is amortised constant time, also when an older
/// copy of the object is still being read. An array belongs to one object: it is never copied into another.
template<class T> class pcl_Array : public pcl_ArrayBase
{
public:
    long long size() const { return m_count; }
    bool isEmpty() const { return m_count == 0; }

    /// The values; borrowed until the array is changed, released or destroyed.
    /// The first call reads the whole array.
    const T* data() const
    {
        if (!m_loaded) loadBytes(sizeof(T));
        return reinterpret_cast<const T*>(m_buffer.data());
    }
    const T& operator[](long long index) const { return data()[index]; }
    /// The values that are in memory, shared.
    fio_Buffer buffer() const { return m_buffer.prefix(static_cast<std::size_t>(m_count) * sizeof(T)); }

    /// Copies values out without loading the array.
    void read(long long from, long long count, T* into) const
    {
        if (m_loaded) {
            if (count > 0) std::memcpy(into, data() + from, static_cast<std::size_t>(count) * sizeof(T));
        } else {
            readBytes(sizeof(T), from, count, into);
        }
    }

    void assign(const T* values, long long count)
    {
        fio_Buffer fresh(static_cast<std::size_t>(count) * sizeof(T));
        if (count > 0) std::memcpy(fresh.writable(), values, static_cast<std::size_t>(count) * sizeof(T));
        adopt(fresh);
    }

    /// Takes a filled buffer as the array's values, without a copy.
    void adopt(const fio_Buffer& values)
    {
        m_buffer = values;
        m_count = static_cast<long long>(values.size() / sizeof(T));
        m_filled = std::make_shared<std::size_t>(values.size());
        m_loaded = true;
        m_changed = true;
    }

    /// Room for count more values at the end, uninitialised; the caller fills them at once.
    T* extend(long long count)
    {
        if (!m_loaded) loadBytes(sizeof(T));
        const std::size_t used = static_cast<std::size_t>(m_count) * sizeof(T);
        const std::size_t wanted = used + static_cast<std::size_t>(count) * sizeof(T);
        const bool inPlace = m_filled && *m_filled == used && wanted <= m_buffer.size();
        if (!inPlace) {
            fio_Buffer grown(wanted < 4096 ? 4096 : wanted + wanted / 2);
            if (used > 0) std::memcpy(grown.writable(), m_buffer.data(), used);
            m_buffer = grown;
            m_filled = std::make_shared<std::size_t>(used);
        }
        *m_filled = wanted;
        m_count += count;
        m_changed = true;
        return reinterpret_cast<T*>(m_buffer.writable() + used);
    }

    void append(const T* values, long long count)
    {
        if (count > 0) std::memcpy(extend(count), values, static_cast<std::size_t>(count) * sizeof(T));
    }

    /// Sends the values to disk now and forgets them; the next use reads them again.
    void toDisk(const std::shared_ptr<fio_FileBody>& file)
    {
        storeBytes(file, sizeof(T));
        release();
    }
    /// Forgets values that the disk holds.
    void release()
    {
        if (m_changed || m_count == 0) return;
        m_buffer = fio_Buffer();
        m_filled.reset();
        m_loaded = false;
    }
};

#endif
