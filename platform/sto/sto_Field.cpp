#include "platform/sto/sto_Field.h"

#include "platform/store/fio_Error.h"
#include "platform/store/fio_File.h"

#include <algorithm>

struct sto_Field::Loaded
{
    bool hasValues = false;
    fio_Buffer values;
    fio_Buffer conjugate;
    std::shared_ptr<sto_Field> orientation;
};

namespace {

// Raises unless the file has as many values as the field says.
template<class T>
void check(const fld_Field& field, const pcl_Array<T>& array, const std::shared_ptr<fio_FileBody>& file)
{
    const long long count = static_cast<long long>(field.m_rows) * field.m_width;
    if (field.m_rows < 0 || field.m_width < 0 || array.size() != count) {
        fio_raise(file->path(), "a field has " + std::to_string(array.size()) + " values, but " +
                                    std::to_string(field.m_rows) + " rows of " + std::to_string(field.m_width) +
                                    "; the file is damaged");
    }
    // Before memory is taken: a damaged count must not cost more than the look.
    if (!array.isLoaded()) {
        file->extents().verify(array.stored().firstExtent, static_cast<std::size_t>(count) * sizeof(T));
    }
}

template<class T>
fio_Buffer load(const fld_Field& field, const pcl_Array<T>& array, const std::shared_ptr<fio_FileBody>& file)
{
    check(field, array, file);
    if (array.isLoaded()) return array.buffer();
    fio_Buffer buffer(static_cast<std::size_t>(array.size()) * sizeof(T));
    array.read(0, array.size(), reinterpret_cast<T*>(buffer.writable()));
    return buffer;
}

// Rows that are read in one go: from one to the end of another, with what lies between them.
struct Run
{
    int first;
    int last;
    std::size_t from; // in the list of rows
    std::size_t to;
};

// Rows close to each other cost one read together.
std::vector<Run> runsOf(const std::vector<int>& rows, int rowBytes)
{
    constexpr int closeBytes = 4096;
    const int gap = std::max(1, closeBytes / std::max(1, rowBytes));
    std::vector<Run> runs;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (!runs.empty()) {
            Run& current = runs.back();
            if (rows[i] >= current.first && rows[i] - current.last <= gap) {
                current.last = std::max(current.last, rows[i]);
                current.to = i + 1;
                continue;
            }
        }
        runs.push_back({rows[i], rows[i], i, i + 1});
    }
    return runs;
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
        fio_raise(m_field.file()->path(), "a field is asked for in a precision that it does not have");
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

bool sto_Field::isSparse(const std::vector<int>& rows) const
{
    if (isLoaded()) return false;
    const std::shared_ptr<const fld_Field> field = m_field.fetch();
    if (field->m_values.isLoaded() && field->m_doubleValues.isLoaded()) return false;
    const int rowBytes = field->m_width * static_cast<int>(field->m_storageType == 1 ? sizeof(double) : sizeof(float));
    const std::vector<Run> runs = runsOf(rows, rowBytes);
    long long spanned = 0;
    for (const Run& each : runs) spanned += static_cast<long long>(each.last) - each.first + 1;
    constexpr std::size_t mostReads = 1024;
    constexpr int share = 4;
    return runs.size() <= mostReads && spanned <= field->m_rows / share;
}

template<class T> fio_Buffer sto_Field::rowsAt(const std::vector<int>& rows, bool ofConjugate) const
{
    const std::shared_ptr<const fld_Field> field = m_field.fetch();
    for (const int row : rows) {
        if (row < 0 || row >= field->m_rows) fio_raise(m_field.file()->path(), "a subset goes beyond its values");
    }
    const auto width = static_cast<std::size_t>(std::max(0, field->m_width));
    fio_Buffer buffer(rows.size() * width * sizeof(T));
    T* to = reinterpret_cast<T*>(buffer.writable());
    if (!isSparse(rows)) {
        const sto_FieldView<T> all = view<T>();
        const T* values = ofConjugate ? all.conjugate() : all.data();
        for (const int row : rows) {
            std::copy_n(values + static_cast<std::size_t>(row) * width, width, to);
            to += width;
        }
        return buffer;
    }
    const pcl_Array<T>& array = ofConjugate ? conjugateOf<T>(*field) : valuesOf<T>(*field);
    check(*field, array, m_field.file());
    const fio_ReadSession session(*m_field.file());
    std::vector<T> read;
    for (const Run& each : runsOf(rows, static_cast<int>(width * sizeof(T)))) {
        const std::size_t count = (static_cast<std::size_t>(each.last - each.first) + 1) * width;
        read.resize(count);
        array.read(static_cast<long long>(each.first) * field->m_width, static_cast<long long>(count), read.data());
        for (std::size_t i = each.from; i < each.to; ++i, to += width) {
            std::copy_n(read.data() + static_cast<std::size_t>(rows[i] - each.first) * width, width, to);
        }
    }
    return buffer;
}

template fio_Buffer sto_Field::rowsAt<float>(const std::vector<int>&, bool) const;
template fio_Buffer sto_Field::rowsAt<double>(const std::vector<int>&, bool) const;

namespace {

template<class From, class To>
void convert(pcl_Array<From>& from, pcl_Array<To>& to, const From* values, const std::shared_ptr<fio_FileBody>& file)
{
    fio_Buffer converted(static_cast<std::size_t>(from.size()) * sizeof(To));
    std::transform(values, values + from.size(), reinterpret_cast<To*>(converted.writable()),
                   [](From value) { return static_cast<To>(value); });
    to.adopt(converted);
    to.toDisk(file);
    from.adopt(fio_Buffer());
    from.toDisk(file);
}

template<class T> sto_FieldView<T> viewOfKind(const sto_Field& field, sto_ValueKind kind)
{
    if (field.fieldDescription().data()->type().kind != kind) {
        fio_raise(field.shortCut().file()->path(), "the values of a field are taken for others than they are");
    }
    return field.view<T>();
}

} // namespace

template<class T, sto_ValueKind kind>
sto_TypedView<T, kind>::sto_TypedView(const sto_Field& field) : sto_FieldView<T>(viewOfKind<T>(field, kind))
{
}

template class sto_TypedView<float, sto_ValueKind::SCALAR>;
template class sto_TypedView<float, sto_ValueKind::VECTOR>;
template class sto_TypedView<float, sto_ValueKind::MATRIX>;
template class sto_TypedView<float, sto_ValueKind::TENSOR>;
template class sto_TypedView<float, sto_ValueKind::QUATERNION>;
template class sto_TypedView<double, sto_ValueKind::SCALAR>;
template class sto_TypedView<double, sto_ValueKind::VECTOR>;
template class sto_TypedView<double, sto_ValueKind::MATRIX>;
template class sto_TypedView<double, sto_ValueKind::TENSOR>;
template class sto_TypedView<double, sto_ValueKind::QUATERNION>;

void sto_Field::setStorageType(int type)
{
    if (type == storageType()) return;
    const auto& file = m_field.file();
    if (type != 0 && type != 1) fio_raise(file->path(), "a field has no precision " + std::to_string(type));
    m_field.edit([&](fld_Field& changed) {
        if (type == 1) {
            const sto_FieldView<float> old = view<float>();
            convert(changed.m_values, changed.m_doubleValues, old.data(), file);
            if (old.conjugate()) convert(changed.m_conjugate, changed.m_doubleConjugate, old.conjugate(), file);
        } else {
            const sto_FieldView<double> old = view<double>();
            convert(changed.m_doubleValues, changed.m_values, old.data(), file);
            if (old.conjugate()) convert(changed.m_doubleConjugate, changed.m_conjugate, old.conjugate(), file);
        }
        changed.m_storageType = type;
    });
    m_loaded = std::make_shared<Loaded>();
}

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
