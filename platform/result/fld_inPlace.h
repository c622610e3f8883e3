#ifndef FLD_INPLACE_H
#define FLD_INPLACE_H

#include "platform/store/lnk_ShortCut.h"

/// Whether an object that is changed in place is already among those that the next save writes. A copy is not.
class fld_InPlaceMark
{
public:
    fld_InPlaceMark() = default;
    fld_InPlaceMark(const fld_InPlaceMark&) {}
    fld_InPlaceMark& operator=(const fld_InPlaceMark&) { return *this; }

    bool isSet() const { return m_isSet; }
    void set() { m_isSet = true; }
    void clear() { m_isSet = false; }

private:
    bool m_isSet = false;
};

/// The object of a reference, to be changed in place: what takes a number at a time cannot be copied each time.
/// Raises for a file that is closed or open for reading only.
/// @tparam T  has a member m_mark, which its StoreArrays clears
template<class T> T& fld_inPlace(const lnk_ShortCut<T>& reference)
{
    const std::shared_ptr<T> object = std::const_pointer_cast<T>(reference.fetch());
    if (!object->m_mark.isSet()) {
        reference.replace(object);
        object->m_mark.set();
    }
    // The file keeps it.
    return *object;
}

#endif
