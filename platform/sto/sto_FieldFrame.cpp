#include "platform/sto/sto_FieldFrame.h"

#include "platform/result/fld_Field.h"
#include "platform/sto/sto_Field.h"
#include "platform/sto/sto_FieldDescription.h"
#include "platform/store/fio_Error.h"
#include "platform/store/fio_File.h"

#include <algorithm>
#include <unordered_map>

namespace {

// What stands after the second colon of a key text.
std::string_view nameIn(std::string_view keyText)
{
    for (int i = 0; i < 2; ++i) {
        const std::size_t colon = keyText.find(':');
        if (colon == std::string_view::npos) return {};
        keyText.remove_prefix(colon + 1);
    }
    return keyText;
}

std::size_t bytesOf(const fld_FieldDescription& description, int storageType)
{
    return static_cast<std::size_t>(description.m_length) * static_cast<std::size_t>(description.m_width) *
           (storageType == 1 ? sizeof(double) : sizeof(float));
}

void checkSize(const fld_FieldDescription& description, int storageType, const fio_Buffer& values,
               const fio_Buffer& conjugate, const std::shared_ptr<fio_FileBody>& file)
{
    const std::size_t bytes = bytesOf(description, storageType);
    if (values.size() != bytes || (!conjugate.isEmpty() && conjugate.size() != bytes)) {
        fio_raise(file->path(),
                  "the values of field \"" + description.m_label + "\" have another size than its description");
    }
}

lnk_ShortCut<fld_Field> create(const sto_FieldDescription& description, int key, const fio_Buffer& values,
                               const fio_Buffer& conjugate, const lnk_ShortCut<fld_Field>& orientation, int storageType)
{
    const auto& file = description.shortCut().file();
    const std::shared_ptr<const fld_FieldDescription> data = description.data();
    checkSize(*data, storageType, values, conjugate, file);
    fld_Field field;
    field.m_key = key;
    field.m_description = description.shortCut();
    field.m_orientation = orientation;
    field.m_rows = data->m_length;
    field.m_width = data->m_width;
    field.m_storageType = storageType;
    if (storageType == 1) {
        field.m_doubleValues.adopt(values);
        field.m_doubleValues.toDisk(file);
        if (!conjugate.isEmpty()) {
            field.m_doubleConjugate.adopt(conjugate);
            field.m_doubleConjugate.toDisk(file);
        }
    } else {
        field.m_values.adopt(values);
        field.m_values.toDisk(file);
        if (!conjugate.isEmpty()) {
            field.m_conjugate.adopt(conjugate);
            field.m_conjugate.toDisk(file);
        }
    }
    return lnk_ShortCut<fld_Field>::create(file, std::move(field));
}

} // namespace

int sto_FieldFrame::numFields() const { return m_frame.fetch()->m_fields.size(); }

namespace {

const std::vector<int>& keysOf(const fld_Frame& frame, const std::shared_ptr<fio_FileBody>& file)
{
    if (frame.m_fields.size() != static_cast<int>(frame.m_fieldKeys.size())) {
        fio_raise(file->path(), "a frame has " + std::to_string(frame.m_fields.size()) + " fields, but " +
                                    std::to_string(frame.m_fieldKeys.size()) + " keys; the file is damaged");
    }
    return frame.m_fieldKeys;
}

} // namespace

std::vector<int> sto_FieldFrame::fieldKeys() const { return keysOf(*m_frame.fetch(), m_frame.file()); }

std::vector<std::string> sto_FieldFrame::fieldNames() const
{
    const std::shared_ptr<const fld_Frame> frame = m_frame.fetch();
    std::vector<std::string> names;
    const int count = frame->m_fields.size();
    names.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) names.emplace_back(nameIn(frame->m_fields.key(i)));
    return names;
}

// The places of the names in the list of fields, which only grows.
struct sto_FieldFrame::Index
{
    std::unordered_multimap<std::string, int> places;
    int indexed = 0;
};

std::vector<int> sto_FieldFrame::fieldKeys(std::string_view name) const
{
    const std::shared_ptr<const fld_Frame> frame = m_frame.fetch();
    const std::vector<int>& all = keysOf(*frame, m_frame.file());
    const int count = static_cast<int>(all.size());
    if (!m_index || m_index->indexed > count) m_index = std::make_shared<Index>();
    for (int& i = m_index->indexed; i < count; ++i) m_index->places.emplace(nameIn(frame->m_fields.key(i)), i);
    std::vector<int> keys;
    const auto [begin, end] = m_index->places.equal_range(std::string(name));
    for (auto place = begin; place != end; ++place) keys.push_back(all[static_cast<std::size_t>(place->second)]);
    std::sort(keys.begin(), keys.end());
    return keys;
}

int sto_FieldFrame::firstKeyOf(const std::vector<sto_FieldDescription>& descriptions) const
{
    std::vector<std::string> names;
    names.reserve(descriptions.size());
    for (const sto_FieldDescription& description : descriptions) names.push_back(description.data()->keyName());
    const std::vector<int> keys = fieldKeys();
    const std::shared_ptr<const fld_Frame> frame = m_frame.fetch();
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const int place = static_cast<int>(i);
        if (std::find(names.begin(), names.end(), frame->m_fields.key(place)) == names.end()) continue;
        const lnk_ShortCut<fld_FieldDescription> own = frame->m_fields.at(place).fetch()->m_description;
        const auto isOwn = [&own](const sto_FieldDescription& each) { return each.shortCut() == own; };
        if (std::any_of(descriptions.begin(), descriptions.end(), isOwn)) return keys[i];
    }
    return -1;
}

fio_Buffer sto_FieldFrame::allocateField(const sto_FieldDescription& description, int storageType)
{
    return allocateField(*description.data(), storageType);
}

fio_Buffer sto_FieldFrame::allocateField(const fld_FieldDescription& description, int storageType)
{
    return fio_Extents::roomFor(bytesOf(description, storageType));
}

sto_Field sto_FieldFrame::Field(const sto_FieldDescription& description, int key, const fio_Buffer& values,
                                const fio_Buffer& conjugate, const sto_Field& orientation, int storageType)
{
    mrp_Container<fld_Field> fields = m_frame.fetch()->m_fields;
    if (fields.isNull()) fio_raise(m_frame.file()->path(), "the frame has no list of fields; the file is damaged");
    const lnk_ShortCut<fld_Field> field =
        create(description, key, values, conjugate, orientation.shortCut(), storageType);
    m_frame.edit([key](fld_Frame& frame) { frame.m_fieldKeys.push_back(key); });
    fields.append(description.data()->keyName(), field);
    return sto_Field(field);
}

sto_Field sto_FieldFrame::find(const sto_FieldDescription& description) const
{
    const std::shared_ptr<const fld_Frame> frame = m_frame.fetch();
    const std::string name = description.data()->keyName();
    for (int i = frame->m_fields.size(); i-- > 0;) {
        if (frame->m_fields.key(i) != name) continue;
        const lnk_ShortCut<fld_Field> field = frame->m_fields.at(i);
        if (field.fetch()->m_description == description.shortCut()) return sto_Field(field);
    }
    return {};
}

void sto_FieldFrame::Replace(const sto_Field& field, const fio_Buffer& values, const fio_Buffer& conjugate) const
{
    const auto& file = field.shortCut().file();
    checkSize(*field.fieldDescription().data(), 0, values, conjugate, file);
    field.shortCut().edit([&](fld_Field& changed) {
        changed.m_values.adopt(values);
        changed.m_values.toDisk(file);
        if (!conjugate.isEmpty()) {
            changed.m_conjugate.adopt(conjugate);
            changed.m_conjugate.toDisk(file);
        }
    });
}

sto_Field sto_FieldFrame::Orientation(const sto_FieldDescription& description, int key, const fio_Buffer& values,
                                      int storageType)
{
    return sto_Field(create(description, key, values, fio_Buffer(), lnk_ShortCut<fld_Field>(), storageType));
}

void sto_FieldFrame::release() const
{
    if (!isValid()) return;
    m_frame.fetch()->m_fields.release();
    m_frame.file()->release(m_frame.id());
}
