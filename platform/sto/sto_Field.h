#ifndef STO_FIELD_H
#define STO_FIELD_H

#include "platform/result/fld_Field.h"
#include "platform/sto/sto_FieldDescription.h"
#include "platform/sto/sto_FieldView.h"
#include "platform/store/fio_Buffer.h"

#include <memory>
#include <vector>

/// A handle on one stored block of values. The values are read when they are first asked for, once, and belong to this
/// handle and its copies: when the last of them goes, so do the values.
class sto_Field
{
public:
    sto_Field() = default;
    explicit sto_Field(const lnk_ShortCut<fld_Field>& field);

    bool isValid() const { return m_field.isValid(); }
    const lnk_ShortCut<fld_Field>& shortCut() const { return m_field; }

    int key() const { return m_field.fetch()->m_key; }
    sto_FieldDescription fieldDescription() const { return sto_FieldDescription(m_field.fetch()->m_description); }
    /// 0 single precision, 1 double.
    int storageType() const { return m_field.fetch()->m_storageType; }
    /// Keeps the values in the other precision; those of double precision are rounded to single.
    void setStorageType(int type);
    int rows() const { return m_field.fetch()->m_rows; }
    /// How many components are stored in all.
    long long size() const;

    /// All values; T is the one that storageType() tells. Reads them on the first call.
    /// Raises when the file has other values than the field says.
    template<class T> sto_FieldView<T> view() const;
    /// Whether rowsAt() reads these rows alone: the values are not in memory, and the rows are few of them.
    bool isSparse(const std::vector<int>& rows) const;
    /// Copies rows out, side by side in the order given. Few rows are read alone, for many all are read and kept.
    /// Raises for a row that the field lacks.
    /// @param ofConjugate  of the imaginary half, which must be there
    template<class T> fio_Buffer rowsAt(const std::vector<int>& rows, bool ofConjugate = false) const;
    bool hasConjugate() const;
    bool hasOrientation() const { return m_field.fetch()->m_orientation.isValid(); }
    /// The local systems as a quaternion field; what is read of it lives as long as this handle.
    const sto_Field& orientation() const;

    /// Whether values are in memory.
    bool isLoaded() const;

private:
    struct Loaded;

    lnk_ShortCut<fld_Field> m_field;
    std::shared_ptr<Loaded> m_loaded;
};

#endif
