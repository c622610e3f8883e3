#include "platform/sto/sto_Field.h"

#include "platform/store/fio_Error.h"
#include "platform/store/fio_File.h"

struct sto_Field::Loaded
{
    bool hasValues = false;
    fio_Buffer values;
    fio_Buffer conjugate;
    std::shared_ptr<sto_Field> orientation;
};

namespace {

template<class T>
fio_Buffer load(const fld_Field& field, const pcl_Array<T>& array, const std::shared_ptr<fio_FileBody>& file)
{
    const long long count = static_cast<long long>(field.m_rows) * field.m_width;
    if (field.m_rows < 0 || field.m_width < 0 || array.size() != count) {
        fio_raise(file->path(), "a field has " + std::to_string(array.size()) + " values, but " +
                                    std::to_string(field.m_rows) + " rows of " + std::to_string(field.m_width) +
                                    "; the file is damaged");
    }
    const auto bytes = static_cast<std::size_t>(count) * sizeof(T);
    // Before memory is taken: a damaged count must not cost more than the look.
    if (!array.isLoaded()) file->extents().verify(array.stored().firstExtent, bytes);
    fio_Buffer buffer(bytes);
    array.read(0, count, reinterpret_cast<T*>(buffer.writable()));
    return buffer;
}

template<class T> const pcl_Array<T>& valuesOf(const fld_Field& field)
{
    if constexpr (sizeof(T) == sizeof(float)) return field.m_values;
    else return field.m_doubleValues;
}

template<class T> const pcl_Array<T>& conjugateOf(const fld_Field& field)
{
    if constexpr (sizeof(T) == sizeof(float)) return field.m_conjugate;
    else return field.m_doubleConjugate;
}

} // namespace

sto_Field::sto_Field(const lnk_ShortCut<fld_Field>& field) : m_field(field), m_loaded(std::make_shared<Loaded>()) {}

long long sto_Field::size() const
{
    const std::shared_ptr<const fld_Field> field = m_field.fetch();
    return static_cast<long long>(field->m_rows) * field->m_width;
}

template<class T> sto_FieldView<T> sto_Field::view() const
{
    const std::shared_ptr<const fld_Field> field = m_field.fetch();
    if (field->m_storageType != (sizeof(T) == sizeof(double) ? 1 : 0)) {
        fio_raise(m_field.file()->path(), "a field is asked for in a precision that it has not");
    }
    const bool isPair = conjugateOf<T>(*field).size() > 0;
    if (!m_loaded->hasValues) {
        m_loaded->values = load(*field, valuesOf<T>(*field), m_field.file());
        if (isPair) m_loaded->conjugate = load(*field, conjugateOf<T>(*field), m_field.file());
        m_loaded->hasValues = true;
    }
    return {reinterpret_cast<const T*>(m_loaded->values.data()),
            isPair ? reinterpret_cast<const T*>(m_loaded->conjugate.data()) : nullptr, field->m_rows, field->m_width};
}

template sto_FieldView<float> sto_Field::view<float>() const;
template sto_FieldView<double> sto_Field::view<double>() const;

bool sto_Field::hasConjugate() const
{
    const std::shared_ptr<const fld_Field> field = m_field.fetch();
    return field->m_conjugate.size() > 0 || field->m_doubleConjugate.size() > 0;
}

const sto_Field& sto_Field::orientation() const
{
    if (!m_loaded->orientation) m_loaded->orientation = std::make_shared<sto_Field>(m_field.fetch()->m_orientation);
    return *m_loaded->orientation;
}

bool sto_Field::isLoaded() const { return m_loaded && m_loaded->hasValues; }
