#ifndef STO_HISTORY_H
#define STO_HISTORY_H

#include "containers/shr_String.h"
#include "platform/sto/sto_Assembly.h"
#include "platform/sto/sto_HistoryClock.h"

/// A handle on a stored curve: what it is and where it was taken. What it tells comes from the curve's row alone.
class sto_History
{
public:
    /// No curve.
    sto_History() = default;
    explicit sto_History(const lnk_ShortCut<fld_History>& history) : m_history(history) {}

    bool isValid() const { return m_history.isValid(); }
    const lnk_ShortCut<fld_History>& shortCut() const { return m_history; }

    /// The position code; also one that has no meaning here.
    int type() const { return m_history.fetch()->m_type; }
    /// 0 single precision, 1 double.
    int storageType() const { return m_history.fetch()->m_storageType; }
    shr_String variableLabel() const { return m_history.fetch()->m_label.c_str(); }
    shr_String variableDescription() const { return m_history.fetch()->m_description.c_str(); }

    /// The region that the curve is filed under; empty for none.
    shr_String name() const { return m_history.fetch()->m_name.c_str(); }
    void setName(const shr_String& name);
    /// Empty for none.
    shr_String loadCaseName() const { return m_history.fetch()->m_loadCase.c_str(); }
    void setLoadCaseName(const shr_String& name);

    /// Not valid where the curve belongs to the assembly's own mesh, or to no mesh.
    sto_PartInstance partInstance() const { return sto_PartInstance(m_history.fetch()->m_instance); }
    sto_Assembly assembly() const { return sto_Assembly(m_history.fetch()->m_assembly, lnk_ShortCut<mshK_Model>()); }
    sto_Set set() const { return sto_Set(m_history.fetch()->m_set); }
    /// Raises when the mesh has no such class.
    sto_ElementClass elementClass() const;
    /// The element's place in its class, and the node's in its mesh, from 0; -1 for none.
    int elementNumber() const { return m_history.fetch()->m_elementNumber; }
    int nodeNumber() const { return m_history.fetch()->m_nodeNumber; }
    /// These count from 0.
    int integrationPoint() const { return m_history.fetch()->m_integrationPoint; }
    int faceId() const { return m_history.fetch()->m_face; }
    /// Of the section point, from 0; -1 for none.
    int locationIndex() const { return m_history.fetch()->m_locationIndex; }

    sto_HistoryClock clock() const { return sto_HistoryClock(m_history.fetch()->m_clock); }

    /// How many rows of values there are. Reads none, but looks once whether the file has as many.
    long long numValues() const;
    /// 1, or 2 with an imaginary half.
    int numColumns() const;

protected:
    template<class T> sto_HistoryArray<T> array() const;
    template<class T> void readRows(long long from, long long count, T* into) const;
    void append(double value, double conjugate) const;

    lnk_ShortCut<fld_History> m_history;
};

class sto_HistoryFloat;

/// A curve whose values are kept in double precision.
class sto_HistoryDouble : public sto_History
{
public:
    sto_HistoryDouble() = default;
    /// Raises for a curve of single precision.
    explicit sto_HistoryDouble(const sto_History& history);

    /// All values, copied, row by row.
    sto_HistoryArray<double> dataArray() const { return array<double>(); }
    /// A value at the end, gathered in memory first.
    void appendDataNoBufferSeq(double value, double conjugate = 0.0) const { append(value, conjugate); }
};

/// A curve whose values are presented in single precision.
class sto_HistoryFloat : public sto_History
{
public:
    sto_HistoryFloat() = default;
    explicit sto_HistoryFloat(const sto_History& history) : sto_History(history) {}
    /// The values of a curve of double precision, rounded on the way.
    explicit sto_HistoryFloat(const sto_HistoryDouble& history) : sto_History(history) {}

    /// All values, copied, row by row.
    sto_HistoryArray<float> dataArray() const { return array<float>(); }
    /// Some rows, copied. @param into  room for count * numColumns() numbers
    void readData(long long from, long long count, float* into) const { readRows(from, count, into); }
    void readData(long long from, long long count, double* into) const { readRows(from, count, into); }
    /// A value at the end, gathered in memory first; a curve of two columns takes the imaginary half along.
    void appendDataNoBufferSeq(float value) const { append(static_cast<double>(value), 0.0); }
    void appendDataNoBufferSeq(double value) const { append(value, 0.0); }
    void appendDataNoBufferSeq(double value, double conjugate) const { append(value, conjugate); }
};

#endif
