#include "platform/sto/sto_History.h"

#include "platform/result/fld_Series.h"
#include "platform/store/fio_Error.h"
#include "platform/store/fio_File.h"

void sto_History::setName(const shr_String& name)
{
    m_history.edit([&name](fld_History& history) { history.m_name = name.cStr(); });
}

void sto_History::setLoadCaseName(const shr_String& name)
{
    m_history.edit([&name](fld_History& history) { history.m_loadCase = name.cStr(); });
}

sto_ElementClass sto_History::elementClass() const
{
    const std::shared_ptr<const fld_History> history = m_history.fetch();
    const sto_Mesh mesh = history->m_instance.isValid() ? partInstance().mesh() : assembly().mesh();
    return mesh.elementData().elementClass(history->m_classIndex);
}

long long sto_History::numValues() const
{
    const std::shared_ptr<const fld_Series> values = m_history.fetch()->m_values.fetch();
    // Callers take memory for as many: a damaged number must not pass for one.
    values->verify(m_history.file());
    return values->m_rows;
}

int sto_History::numColumns() const { return m_history.fetch()->m_values.fetch()->m_columns; }

template<class T> sto_HistoryArray<T> sto_History::array() const
{
    const std::shared_ptr<const fld_Series> values = m_history.fetch()->m_values.fetch();
    // Before memory is taken.
    values->verify(m_history.file());
    sto_HistoryArray<T> array(values->m_rows, values->m_columns);
    values->read(m_history.file(), 0, values->m_rows, array.writable());
    return array;
}

template<class T> void sto_History::readRows(long long from, long long count, T* into) const
{
    m_history.fetch()->m_values.fetch()->read(m_history.file(), from, count, into);
}

template sto_HistoryArray<float> sto_History::array() const;
template sto_HistoryArray<double> sto_History::array() const;
template void sto_History::readRows(long long, long long, float*) const;
template void sto_History::readRows(long long, long long, double*) const;

void sto_History::append(double value, double conjugate) const
{
    fld_inPlace(m_history.fetch()->m_values).append(m_history.file(), value, conjugate);
}

sto_HistoryDouble::sto_HistoryDouble(const sto_History& history) : sto_History(history)
{
    if (history.storageType() != 1) {
        fio_raise(m_history.file()->path(), "a history curve is asked for in a precision that it does not have");
    }
}
