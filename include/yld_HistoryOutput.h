#ifndef YLD_HISTORY_OUTPUT_H
#define YLD_HISTORY_OUTPUT_H

#include "containers/shr_COW.h"
#include "platform/base/bas_Export.h"
#include "yld_Enum.h"
#include "yld_Sequence.h"
#include "yld_String.h"

class sto_HistoryClock;
class sto_HistoryFloat;

/// One curve over a step: a name, a description and pairs of time and value. An attached curve keeps its pairs in the
/// database and takes new ones; an orphan, as getSubset() gives it, holds them in memory and takes none.
///
/// A copy of an attached curve stands for the same curve: what is added to one is in the other.
class YLD_API yld_HistoryOutput
{
public:
    /// An orphan without pairs.
    yld_HistoryOutput();
    /// An orphan with these pairs, each a sequence of time and value.
    yld_HistoryOutput(const yld_String& name, const yld_String& description, yld_Enum::yld_DataTypeEnum type,
                      const yld_Sequence<yld_Sequence<float>>& data);
    /// An attached curve.
    yld_HistoryOutput(const yld_String& name, const yld_String& description, yld_Enum::yld_DataTypeEnum type,
                      const sto_HistoryClock& clock, const sto_HistoryFloat& values);
    yld_HistoryOutput(const yld_HistoryOutput&);
    yld_HistoryOutput& operator=(const yld_HistoryOutput&);

    /// The pairs of time and value, copied on every call. Warns "History time and data array of unequal length." and
    /// gives none where the database has another number of times than of values.
    /// A sequence a pair: for a long curve see readData().
    virtual yld_Sequence<yld_Sequence<float>> data() const;
    /// The pairs of time and imaginary value; empty for a real curve. Warns as data() does.
    virtual yld_Sequence<yld_Sequence<float>> conjugateData() const;

    /// Appends pairs. Raises "Data sequences added to a history variable should be of equal length." and, for an
    /// orphan, "Cannot add data to an orphan history object. The object was likely created using the getSubset method,
    /// or by a C++ user who did not use the reference to the history objects.".
    virtual void addData(const yld_Sequence<float>& times, const yld_Sequence<float>& values);
    /// Appends one pair; the time is kept in double precision. Costs some hundred nanoseconds: pairs are gathered in
    /// memory and go to disk in large pieces. They are kept by the next save.
    virtual void addData(double time, double value);
    /// Appends pairs of time and value. Raises "Data added to a history variable should be of width 2" at the first
    /// pair of another width; those before it stay.
    virtual void addData(const yld_Sequence<yld_Sequence<float>>& pairs);

    virtual ~yld_HistoryOutput();

    /// How many pairs there are. Warns as data() does, and gives 0 then. Reads none.
    long long dataSize() const;
    /// Whether the curve has an imaginary half.
    bool hasConjugate() const;
    /// Copies pairs out without a sequence for each: for long curves, which need not be read at once.
    /// @param from       place of the first pair, from 0
    /// @param count      from + count must not be above dataSize(); else raises "Index out of range."
    /// @param times      room for count numbers, or null; what a client gave as float is that float
    /// @param values     room for count numbers, or null
    /// @param conjugate  room for count numbers, or null; a real curve gives zeros
    /// Costs about what it costs to copy as many bytes out of a file.
    void readData(long long from, long long count, double* times, float* values, float* conjugate = nullptr) const;

    /// An orphan with the pairs whose time is greater than start, and less than end where it is given; pairs at exactly
    /// start or end are left out, and so is the imaginary half.
    yld_HistoryOutput getSubset(double start) const;
    yld_HistoryOutput getSubset(double start, double end) const;

    const yld_String& name() const { return m_name; }
    const yld_String& description() const { return m_description; }
    yld_Enum::yld_DataTypeEnum type() const { return m_type; }
    bool isAttached() const { return m_attached; }

private:
    yld_HistoryOutput subset(double start, const double* end) const;
    void requireAttached() const;
    bool isWhole() const;
    yld_Sequence<yld_Sequence<float>> column(int column) const;

    yld_String m_name;
    yld_String m_description;
    yld_Enum::yld_DataTypeEnum m_type = yld_Enum::SCALAR;
    shr_CountedHld<sto_HistoryClock> m_clock;
    shr_CountedHld<sto_HistoryFloat> m_values;
    bool m_attached = false;
    yld_Sequence<yld_Sequence<float>> m_data;
    yld_Sequence<yld_Sequence<float>> m_conjugate;
};

#endif
