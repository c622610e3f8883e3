#include "netcdf_size.h"

#include "failure.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <memory>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace {

// The header of a netCDF classic file (versions 1, 2 and 5) as far as it tells where the data end.
class HeaderReader
{
public:
    HeaderReader(std::FILE* file, const std::string& path, std::uint64_t size)
        : m_file(file), m_path(path), m_size(size)
    {
    }

    void requireWhole(int version)
    {
        m_wideOffsets = version != 1;
        m_wideCounts = version == 5;
        const std::uint64_t records = count();
        const bool streaming = records == (m_wideCounts ? ~std::uint64_t(0) : 0xffffffffu);
        readDimensions();
        skipAttributes();
        readVariables(streaming ? 0 : records);
    }

private:
    struct Variable
    {
        bool hasRecords;
        std::uint64_t bytes; // of one record, or of the whole
        std::uint64_t begin;
    };

    [[noreturn]] void tooShort() const { throw tool_Failure("file is truncated: " + m_path); }
    [[noreturn]] void damaged() const { throw tool_Failure("file is damaged: " + m_path); }

    std::uint64_t bigEndian(int bytes)
    {
        unsigned char raw[8];
        if (std::fread(raw, 1, static_cast<std::size_t>(bytes), m_file) != static_cast<std::size_t>(bytes)) tooShort();
        std::uint64_t number = 0;
        for (int i = 0; i < bytes; ++i) number = number << 8 | raw[i];
        return number;
    }
    std::uint64_t count() { return bigEndian(m_wideCounts ? 8 : 4); }

    void skip(std::uint64_t bytes)
    {
        if (bytes > m_size) tooShort();
        if (std::fseek(m_file, static_cast<long>(bytes), SEEK_CUR) != 0) damaged();
        if (static_cast<std::uint64_t>(std::ftell(m_file)) > m_size) tooShort();
    }

    static std::uint64_t padded(std::uint64_t bytes) { return (bytes + 3) & ~std::uint64_t(3); }

    std::uint64_t product(std::uint64_t a, std::uint64_t b) const
    {
        if (b != 0 && a > std::numeric_limits<std::uint64_t>::max() / 4 / b) tooShort();
        return a * b;
    }

    // The entries of a list; an empty one may carry the tag 0.
    std::uint64_t listLength(std::uint64_t tag)
    {
        const std::uint64_t found = bigEndian(4);
        const std::uint64_t length = count();
        if (found != tag && (found != 0 || length != 0)) damaged();
        // Every entry takes more than eight bytes of header.
        if (length > m_size / 8) tooShort();
        return length;
    }

    void skipName() { skip(padded(count())); }

    std::uint64_t typeSize()
    {
        switch (bigEndian(4)) {
        case 1:
        case 2:
        case 7:
            return 1;
        case 3:
        case 8:
            return 2;
        case 4:
        case 5:
        case 9:
            return 4;
        case 6:
        case 10:
        case 11:
            return 8;
        default:
            damaged();
        }
    }

    void readDimensions()
    {
        const std::uint64_t length = listLength(0x0a);
        for (std::uint64_t i = 0; i < length; ++i) {
            skipName();
            m_dimensions.push_back(count());
        }
    }

    void skipAttributes()
    {
        const std::uint64_t length = listLength(0x0c);
        for (std::uint64_t i = 0; i < length; ++i) {
            skipName();
            const std::uint64_t size = typeSize();
            skip(padded(product(count(), size)));
        }
    }

    void readVariables(std::uint64_t records)
    {
        const std::uint64_t length = listLength(0x0b);
        std::vector<Variable> variables;
        for (std::uint64_t i = 0; i < length; ++i) {
            skipName();
            Variable variable{false, 1, 0};
            const std::uint64_t rank = count();
            if (rank > m_size / 4) tooShort();
            for (std::uint64_t d = 0; d < rank; ++d) {
                const std::uint64_t id = count();
                if (id >= m_dimensions.size()) damaged();
                // The unlimited dimension has length 0 in the list and stands first.
                if (d == 0 && m_dimensions[id] == 0) variable.hasRecords = true;
                else variable.bytes = product(variable.bytes, m_dimensions[id]);
            }
            skipAttributes();
            variable.bytes = product(variable.bytes, typeSize());
            count(); // the size as the writer reckoned it; too narrow for large variables
            variable.begin = bigEndian(m_wideOffsets ? 8 : 4);
            variables.push_back(variable);
        }

        // One record holds a slab of every record variable; a lone record variable is not padded.
        std::uint64_t recordVariables = 0;
        std::uint64_t recordSize = 0;
        for (const Variable& variable : variables)
            if (variable.hasRecords) {
                ++recordVariables;
                recordSize += padded(variable.bytes);
            }
        for (const Variable& variable : variables) {
            std::uint64_t bytes = variable.bytes;
            if (variable.hasRecords) {
                if (records == 0) continue;
                const std::uint64_t stride = recordVariables == 1 ? variable.bytes : recordSize;
                bytes += product(stride, records - 1);
            }
            if (bytes != 0 && (variable.begin > m_size || bytes > m_size - variable.begin)) tooShort();
        }
    }

    std::FILE* m_file;
    const std::string& m_path;
    std::uint64_t m_size;
    bool m_wideOffsets = false;
    bool m_wideCounts = false;
    std::vector<std::uint64_t> m_dimensions;
};

} // namespace

void tool_requireWholeNetcdf(const std::string& path)
{
    struct stat status;
    if (::stat(path.c_str(), &status) != 0)
        throw tool_Failure(std::string(errno == ENOENT ? "no such file" : std::strerror(errno)) + ": " + path);
    if (S_ISDIR(status.st_mode)) throw tool_Failure("is a directory: " + path);
    if (!S_ISREG(status.st_mode)) throw tool_Failure("is no plain file: " + path);
    if (status.st_size == 0) throw tool_Failure("file is empty: " + path);

    const auto closer = [](std::FILE* open) { std::fclose(open); };
    const std::unique_ptr<std::FILE, decltype(closer)> file(std::fopen(path.c_str(), "rb"), closer);
    if (!file) throw tool_Failure(std::string("cannot read: ") + path + ": " + std::strerror(errno));

    unsigned char magic[8] = {};
    const std::size_t got = std::fread(magic, 1, sizeof magic, file.get());
    if (got == sizeof magic && std::memcmp(magic, "\211HDF\r\n\032\n", 8) == 0) return;
    if (got < 4 || std::memcmp(magic, "CDF", 3) != 0 || (magic[3] != 1 && magic[3] != 2 && magic[3] != 5))
        throw tool_Failure("not an Exodus II file: " + path);
    if (std::fseek(file.get(), 4, SEEK_SET) != 0) throw tool_Failure("cannot read: " + path);
    HeaderReader(file.get(), path, static_cast<std::uint64_t>(status.st_size)).requireWhole(magic[3]);
}
