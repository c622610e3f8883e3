#include "platform/sto/sto_UserXYData.h"

#include "platform/store/fio_Error.h"
#include "platform/store/fio_File.h"

#include <limits>

namespace {

[[noreturn]] void raiseDamaged(const lnk_ShortCut<sto_UserXYDataContent>& curve)
{
    fio_raise(curve.file()->path(),
              "the rows of curve " + std::to_string(curve.id()) + " do not fit its values; the file is damaged");
}

long long rowCount(const lnk_ShortCut<sto_UserXYDataContent>& curve, const sto_UserXYDataContent& content)
{
    long long rows = content.m_lengths.size();
    if (rows == 0) {
        if (content.m_columns < 1 || content.m_values.size() % content.m_columns != 0) raiseDamaged(curve);
        rows = content.m_values.size() / content.m_columns;
    }
    if (rows > std::numeric_limits<int>::max()) raiseDamaged(curve);
    return rows;
}

// How long each row is, where they differ; the sum is that of all values.
std::vector<int> lengthsOf(const lnk_ShortCut<sto_UserXYDataContent>& curve, const sto_UserXYDataContent& content)
{
    std::vector<int> lengths(static_cast<std::size_t>(content.m_lengths.size()));
    content.m_lengths.read(0, content.m_lengths.size(), lengths.data());
    long long sum = 0;
    for (const int length : lengths) {
        if (length < 0) raiseDamaged(curve);
        sum += length;
    }
    if (!lengths.empty() && sum != content.m_values.size()) raiseDamaged(curve);
    return lengths;
}

} // namespace

void sto_UserXYData::setSourceType(kvp_SourceTypeEnm type)
{
    m_content.edit([&](sto_UserXYDataContent& changed) { changed.m_sourceType = static_cast<int>(type); });
}

void sto_UserXYData::setText(std::string sto_UserXYDataContent::*member, const shr_String& to)
{
    m_content.edit([&](sto_UserXYDataContent& changed) { changed.*member = to.cStr(); });
}

shr_String sto_UserXYData::description() const
{
    const auto content = m_content.fetch();
    std::string all;
    for (const std::string* part :
         {&content->m_contentDescription, &content->m_positionDescription, &content->m_sourceDescription}) {
        if (part->empty()) continue;
        if (!all.empty()) all += ", ";
        all += *part;
    }
    return shr_String(all.c_str());
}

int sto_UserXYData::size() const { return static_cast<int>(rowCount(m_content, *m_content.fetch())); }

sto_UserXYData::DataList sto_UserXYData::dataListList() const
{
    const auto content = m_content.fetch();
    const int count = static_cast<int>(rowCount(m_content, *content));
    const std::vector<int> lengths = lengthsOf(m_content, *content);
    std::vector<float> values(static_cast<std::size_t>(content->m_values.size()));
    content->m_values.read(0, content->m_values.size(), values.data());
    DataList rows(count);
    const float* next = values.data();
    for (int i = 0; i < count; ++i) {
        const int length = lengths.empty() ? content->m_columns : lengths[static_cast<std::size_t>(i)];
        rows.Append(shr_1DArrayList<float>(next, length));
        next += length;
    }
    return rows;
}

void sto_UserXYData::setDataListList(const DataList& rows)
{
    std::vector<float> values;
    std::vector<int> lengths;
    bool alike = true;
    for (int i = 0; i < rows.Size(); ++i) {
        const shr_1DArrayList<float>& row = rows[i];
        for (int c = 0; c < row.Size(); ++c) values.push_back(row[c]);
        lengths.push_back(row.Size());
        alike = alike && row.Size() == lengths.front();
    }
    m_content.edit([&](sto_UserXYDataContent& changed) {
        // Rows without numbers cannot be counted by their values.
        if (alike && !lengths.empty() && lengths.front() > 0) {
            changed.m_columns = lengths.front();
            lengths.clear();
        }
        changed.m_lengths.assign(lengths.data(), static_cast<long long>(lengths.size()));
        changed.m_values.assign(values.data(), static_cast<long long>(values.size()));
    });
}

sto_UserXYData sto_UserXYDataContainer::operator[](const shr_String& name) const
{
    const lnk_ShortCut<sto_UserXYDataContent> found = m_curves.get(name.cStr());
    if (found.isNull()) fio_raise("user data", "has no curve named \"" + std::string(name.cStr()) + "\"");
    return sto_UserXYData(found);
}

sto_UserXYData sto_UserXYDataContainer::CreateXYDataInContainer(const shr_String& name, int)
{
    if (m_curves.isNull()) fio_raise("user data", "the database has none, and none can be added");
    sto_UserXYDataContent content;
    content.m_name = name.cStr();
    const auto made = lnk_ShortCut<sto_UserXYDataContent>::create(m_curves.file(), content);
    m_curves.append(name.cStr(), made);
    return sto_UserXYData(made);
}
