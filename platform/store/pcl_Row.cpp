#include "platform/store/pcl_Row.h"

#include "platform/store/fio_Error.h"
#include "platform/store/fio_File.h"
#include "platform/store/lnk_ShortCut.h"

#include <charconv>
#include <cstring>
#include <limits>

namespace {

// A list of texts as "<bytes>:<text>," one after the other: unambiguous for any text, and readable.
std::string joinTexts(const std::vector<std::string>& list)
{
    std::string joined;
    for (const std::string& text : list) {
        joined += std::to_string(text.size());
        joined += ':';
        joined += text;
        joined += ',';
    }
    return joined;
}

bool splitTexts(const std::string& joined, std::vector<std::string>& list)
{
    list.clear();
    const char* at = joined.data();
    const char* end = at + joined.size();
    while (at < end) {
        std::size_t length = 0;
        const auto [rest, error] = std::from_chars(at, end, length);
        if (error != std::errc() || rest == end || *rest != ':') return false;
        const char* text = rest + 1;
        if (length >= static_cast<std::size_t>(end - text) || text[length] != ',') return false;
        list.emplace_back(text, length);
        at = text + length + 1;
    }
    return true;
}

int parametersOf(pcl_Kind kind)
{
    switch (kind) {
    case pcl_Kind::INT_ARRAY:
    case pcl_Kind::FLOAT_ARRAY:
    case pcl_Kind::DOUBLE_ARRAY:
        return 2;
    default:
        return 1;
    }
}

} // namespace

pcl_RowWriter::pcl_RowWriter(const pcl_ClassMetadata& metadata, fio_Statement& statement)
    : m_metadata(metadata), m_statement(statement)
{
    m_parameters.reserve(metadata.attributes().size());
    int next = 4;
    for (const auto& attribute : metadata.attributes()) {
        m_parameters.push_back(next);
        next += parametersOf(attribute.kind);
    }
    m_parameterCount = next - 1;
}

bool pcl_RowWriter::StartWrite(unsigned typeId) { return typeId == m_metadata.id(); }

int pcl_RowWriter::parameter(const char* attribute) const
{
    return m_parameters[static_cast<std::size_t>(m_metadata.find(attribute))];
}

const std::string& pcl_RowWriter::keep(std::string text)
{
    m_kept.push_back(std::make_unique<std::string>(std::move(text)));
    return *m_kept.back();
}

void pcl_RowWriter::Write(const char* attribute, int value)
{
    m_statement.bind(parameter(attribute), static_cast<long long>(value));
}
void pcl_RowWriter::Write(const char* attribute, long long value) { m_statement.bind(parameter(attribute), value); }
void pcl_RowWriter::Write(const char* attribute, float value)
{
    m_statement.bind(parameter(attribute), static_cast<double>(value));
}
void pcl_RowWriter::Write(const char* attribute, double value) { m_statement.bind(parameter(attribute), value); }
void pcl_RowWriter::Write(const char* attribute, bool value)
{
    m_statement.bind(parameter(attribute), static_cast<long long>(value));
}
void pcl_RowWriter::Write(const char* attribute, const char* text)
{
    m_statement.bind(parameter(attribute), keep(text));
}
void pcl_RowWriter::Write(const char* attribute, const std::string& text)
{
    m_statement.bind(parameter(attribute), text);
}
void pcl_RowWriter::Write(const char* attribute, const std::vector<int>& list)
{
    m_statement.bindBlob(parameter(attribute), list.data(), list.size() * sizeof(int));
}
void pcl_RowWriter::Write(const char* attribute, const std::vector<double>& list)
{
    m_statement.bindBlob(parameter(attribute), list.data(), list.size() * sizeof(double));
}
void pcl_RowWriter::Write(const char* attribute, const std::vector<std::string>& list)
{
    m_statement.bind(parameter(attribute), keep(joinTexts(list)));
}
void pcl_RowWriter::Write(const char* attribute, const lnk_AnyShortCut& reference)
{
    if (reference.isTemporary())
        fio_raise(m_metadata.name(), "a reference to an object that no file has cannot be kept");
    m_statement.bind(parameter(attribute), reference.id());
}
void pcl_RowWriter::writeRun(const char* attribute, const pcl_ArrayBase& bulk)
{
    m_statement.bind(parameter(attribute), bulk.stored().firstExtent);
    m_statement.bind(parameter(attribute) + 1, bulk.stored().count);
}
void pcl_RowWriter::Write(const char* attribute, const pcl_Array<int>& bulk) { writeRun(attribute, bulk); }
void pcl_RowWriter::Write(const char* attribute, const pcl_Array<float>& bulk) { writeRun(attribute, bulk); }
void pcl_RowWriter::Write(const char* attribute, const pcl_Array<double>& bulk) { writeRun(attribute, bulk); }

pcl_RowReader::pcl_RowReader(const pcl_ClassMetadata& metadata, const std::vector<int>& columns, fio_Statement& row,
                             const std::shared_ptr<fio_FileBody>& file)
    : m_metadata(metadata), m_columns(columns), m_row(row), m_file(file)
{
}

int pcl_RowReader::column(const char* attribute) const
{
    const int number = m_metadata.find(attribute);
    const int place = number < 0 ? -1 : m_columns[static_cast<std::size_t>(number)];
    return place >= 0 && m_row.isNull(place) ? -1 : place;
}

void pcl_RowReader::refuse(const char* attribute) const
{
    m_file->database().raise("the value of " + m_metadata.name() + "." + attribute +
                             " makes no sense; the file is damaged");
}

bool pcl_RowReader::Read(const char* attribute, long long& value)
{
    const int place = column(attribute);
    if (place < 0) return false;
    value = m_row.integer(place);
    return true;
}

bool pcl_RowReader::Read(const char* attribute, int& value)
{
    long long wide = value;
    if (!Read(attribute, wide)) return false;
    if (wide < std::numeric_limits<int>::min() || wide > std::numeric_limits<int>::max()) refuse(attribute);
    value = static_cast<int>(wide);
    return true;
}

bool pcl_RowReader::Read(const char* attribute, double& value)
{
    const int place = column(attribute);
    if (place < 0) return false;
    value = m_row.real(place);
    return true;
}

bool pcl_RowReader::Read(const char* attribute, float& value)
{
    double wide = static_cast<double>(value);
    if (!Read(attribute, wide)) return false;
    if (wide > static_cast<double>(std::numeric_limits<float>::max()) ||
        wide < static_cast<double>(std::numeric_limits<float>::lowest())) {
        // Infinity is a float; a larger finite double is not.
        if (wide - wide == 0.0) refuse(attribute);
    }
    value = static_cast<float>(wide);
    return true;
}

bool pcl_RowReader::Read(const char* attribute, bool& value)
{
    long long wide = value ? 1 : 0;
    if (!Read(attribute, wide)) return false;
    value = wide != 0;
    return true;
}

bool pcl_RowReader::Read(const char* attribute, std::string& text)
{
    const int place = column(attribute);
    if (place < 0) return false;
    text = m_row.text(place);
    return true;
}

template<class T> bool pcl_RowReader::readList(const char* attribute, std::vector<T>& list)
{
    const int place = column(attribute);
    if (place < 0) return false;
    std::size_t bytes = 0;
    const void* values = m_row.blob(place, bytes);
    if (bytes % sizeof(T) != 0) refuse(attribute);
    list.resize(bytes / sizeof(T));
    if (bytes > 0) std::memcpy(list.data(), values, bytes);
    return true;
}

bool pcl_RowReader::Read(const char* attribute, std::vector<int>& list) { return readList(attribute, list); }
bool pcl_RowReader::Read(const char* attribute, std::vector<double>& list) { return readList(attribute, list); }

bool pcl_RowReader::Read(const char* attribute, std::vector<std::string>& list)
{
    const int place = column(attribute);
    if (place < 0) return false;
    if (!splitTexts(m_row.text(place), list)) refuse(attribute);
    return true;
}

bool pcl_RowReader::Read(const char* attribute, lnk_AnyShortCut& reference)
{
    const int place = column(attribute);
    if (place < 0) return false;
    reference.m_id = m_row.integer(place);
    reference.m_file = m_file;
    return true;
}

bool pcl_RowReader::readRun(const char* attribute, pcl_ArrayBase& bulk, std::size_t valueSize)
{
    const int place = column(attribute);
    if (place < 0) return false;
    const long long first = m_row.integer(place);
    const long long count = m_row.isNull(place + 1) ? 0 : m_row.integer(place + 1);
    constexpr long long largest = std::numeric_limits<long long>::max() / 16;
    if (count < 0 || count > largest / static_cast<long long>(valueSize) || first < 0 || (count > 0 && first == 0)) {
        refuse(attribute);
    }
    bulk.m_file = m_file;
    bulk.m_stored = {first, count};
    bulk.m_count = count;
    bulk.m_loaded = count == 0;
    bulk.m_changed = false;
    return true;
}

bool pcl_RowReader::Read(const char* attribute, pcl_Array<int>& bulk) { return readRun(attribute, bulk, sizeof(int)); }
bool pcl_RowReader::Read(const char* attribute, pcl_Array<float>& bulk)
{
    return readRun(attribute, bulk, sizeof(float));
}
bool pcl_RowReader::Read(const char* attribute, pcl_Array<double>& bulk)
{
    return readRun(attribute, bulk, sizeof(double));
}
