#ifndef FLD_SERIES_H
#define FLD_SERIES_H

#include "platform/result/fld_inPlace.h"
#include "platform/store/fio_Buffer.h"
#include "platform/store/pcl_Persistent.h"

#include <vector>

/// The end of a series that is still in memory. All such ends of a process share a budget: the more there are, the
/// earlier each goes to disk.
class fld_Tail
{
public:
    fld_Tail() = default;
    fld_Tail(const fld_Tail& other);
    fld_Tail& operator=(const fld_Tail&) = delete;
    ~fld_Tail() { clear(); }

    std::size_t used() const { return m_used; }
    const char* data() const { return m_buffer.data(); }
    bool hasRoom(std::size_t bytes) const { return bytes <= m_buffer.size() - m_used; }
    char* take(std::size_t bytes)
    {
        char* const place = m_buffer.writable() + m_used;
        m_used += bytes;
        return place;
    }
    /// Makes room; false when the tail is so long that it should go to disk instead.
    bool grow();
    /// The bytes, without a copy.
    fio_Buffer bytes() const { return m_buffer.prefix(m_used); }
    void clear();

    /// How long one tail may get just now.
    static std::size_t limit();
    static constexpr std::size_t longest = 1u << 20;
    static constexpr std::size_t shortest = 1u << 10;
    static constexpr std::size_t budget = 32u << 20;

private:
    fio_Buffer m_buffer;
    std::size_t m_used = 0;
};

/// Numbers that come one at a time over a whole analysis: the times of curves, or the values of one. What has come
/// is gathered in memory and goes to disk in runs of extents; a save writes the rest as a run of its own, joined with
/// short runs before it, so that frequent saves neither leave many runs behind nor write the whole series again.
class fld_Series : public pcl_Class<fld_Series>
{
public:
    static constexpr const char* className = "fld_Series";
    static constexpr unsigned classId = 0x00300013;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("storage type", self.m_storageType);
        visit("columns", self.m_columns);
        visit("rows", self.m_rows);
        visit("runs", self.m_runs);
    }
    void StoreArrays(const std::shared_ptr<fio_FileBody>& file) override;

    /// Appends a row; a second column gets `second`. The object must come from fld_inPlace().
    void append(const std::shared_ptr<fio_FileBody>& file, double first, double second = 0.0)
    {
        if (!m_isVerified) verify(file);
        if (!m_tail.hasRoom(rowBytes())) makeRoom(file);
        char* const row = m_tail.take(rowBytes());
        if (m_storageType == 1) put<double>(row, first, second);
        else put<float>(row, static_cast<float>(first), static_cast<float>(second));
        ++m_rows;
    }

    /// Raises when the parts of the row do not fit each other, or extents that it names are not there. Looks once.
    void verify(const std::shared_ptr<fio_FileBody>& file) const;
    /// Copies rows out, converted if need be; memory besides the target stays small.
    /// @param into  room for count * m_columns numbers
    template<class T>
    void read(const std::shared_ptr<fio_FileBody>& file, long long from, long long count, T* into) const;
    /// One number of the first column; made for looking at one place again and again, or at one after the other.
    double at(const std::shared_ptr<fio_FileBody>& file, long long row) const;

    std::size_t rowBytes() const
    {
        return static_cast<std::size_t>(m_columns) * (m_storageType == 1 ? sizeof(double) : sizeof(float));
    }

    int m_storageType = 0; ///< 0 single precision, 1 double
    int m_columns = 1;     ///< 1 or 2
    long long m_rows = 0;
    std::vector<double> m_runs; ///< a run each: the number of its first extent, and its rows
    fld_InPlaceMark m_mark;

private:
    template<class T> void put(char* row, T first, T second) const
    {
        std::memcpy(row, &first, sizeof(T));
        if (m_columns == 2) std::memcpy(row + sizeof(T), &second, sizeof(T));
    }
    void look(const std::shared_ptr<fio_FileBody>& file) const;
    void makeRoom(const std::shared_ptr<fio_FileBody>& file);
    void addRun(long long first, long long rows);
    std::size_t numRuns() const { return m_runs.size() / 2; }
    long long firstExtent(std::size_t run) const { return static_cast<long long>(m_runs[2 * run]); }
    long long runRows(std::size_t run) const { return static_cast<long long>(m_runs[2 * run + 1]); }
    std::size_t runBytes(std::size_t run) const { return static_cast<std::size_t>(runRows(run)) * rowBytes(); }
    void readBytes(const std::shared_ptr<fio_FileBody>& file, long long from, long long count, char* into) const;

    fld_Tail m_tail;
    mutable bool m_isVerified = false;
    mutable std::vector<double> m_window; // rows read last, for at()
    mutable long long m_windowFrom = 0;
};

#endif
