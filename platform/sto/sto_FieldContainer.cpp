#include "platform/sto/sto_FieldContainer.h"

#include "platform/sto/sto_Field.h"
#include "platform/store/fio_Error.h"
#include "platform/store/fio_File.h"

#include <algorithm>

int sto_FieldContainer::size() const { return m_frame.fetch()->m_fields.size(); }

sto_Field sto_FieldContainer::get(int key) const
{
    const std::shared_ptr<const fld_Frame> frame = m_frame.fetch();
    const std::vector<int>& keys = frame->m_fieldKeys;
    // Keys ascend as they are given out; only a file of other making may have them in disorder.
    auto found = std::lower_bound(keys.begin(), keys.end(), key);
    if (found == keys.end() || *found != key) found = std::find(keys.begin(), keys.end(), key);
    if (found == keys.end()) {
        fio_raise(m_frame.file()->path(), "the frame has no field with the key " + std::to_string(key));
    }
    const auto place = found - keys.begin();
    if (place >= frame->m_fields.size()) {
        fio_raise(m_frame.file()->path(), "a frame has more field keys than fields; the file is damaged");
    }
    return sto_Field(frame->m_fields.at(static_cast<int>(place)));
}
