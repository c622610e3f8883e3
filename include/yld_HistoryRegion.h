#ifndef YLD_HISTORY_REGION_H
#define YLD_HISTORY_REGION_H

#include "containers/shr_COW.h"
#include "platform/base/bas_Export.h"
#include "yld_Frame.h"
#include "yld_HistoryOutput.h"
#include "yld_HistoryPoint.h"
#include "yld_Repository.h"
#include "yld_String.h"

class sto_Set;

/// A named group of curves that were taken at one point of the model. The regions of a step are of the derived class
/// yld_HistoryRegionPers and take new curves. A plain region, as getSubset() gives it, lives in memory alone and takes
/// none.
class YLD_API yld_HistoryRegion
{
public:
    yld_HistoryRegion();
    yld_HistoryRegion(const yld_String& name, const yld_String& description, const yld_HistoryPoint& point,
                      const yld_Repository<yld_String, yld_HistoryOutput>& outputs, const yld_LoadCase& loadCase);
    yld_HistoryRegion(const yld_HistoryRegion&);
    yld_HistoryRegion& operator=(const yld_HistoryRegion&);

    /// A new curve; a plain region refuses it and raises "Adding a history output object to an orphan History object is
    /// not allowed.".
    virtual yld_HistoryOutput& HistoryOutput(const yld_String& name, const yld_String& description,
                                             yld_Enum::yld_DataTypeEnum type);
    /// A plain region with a part of each curve: the pairs whose time is greater than start, and less than end where it
    /// is given.
    virtual yld_HistoryRegion getSubset(double start, double end) const;
    virtual yld_HistoryRegion getSubset(double start) const;
    /// A plain region with the curve of that name alone, or without any if there is none. The curve itself stays
    /// attached if it is.
    virtual yld_HistoryRegion getSubset(const yld_String& variableName) const;

    virtual ~yld_HistoryRegion();

    /// The key in the step.
    const yld_String& name() const { return m_name; }
    const yld_String& description() const { return m_description; }
    const yld_HistoryPoint& historyPoint() const { return m_point; }
    /// Without a name for none.
    const yld_LoadCase& loadCase() const { return m_loadCase; }
    void setLoadCase(const yld_LoadCase& loadCase) { m_loadCase = loadCase; }

    yld_Repository<yld_String, yld_HistoryOutput>& historyOutput() { return m_historyOutputs; }
    const yld_Repository<yld_String, yld_HistoryOutput>& historyOutput() const { return m_historyOutputs; }
    yld_Repository<yld_String, yld_HistoryOutput>& historyOutputs() { return m_historyOutputs; }
    const yld_Repository<yld_String, yld_HistoryOutput>& historyOutputs() const { return m_historyOutputs; }
    /// The curve of that name; the reference is good as long as the region. Raises "HistoryOutput '%1$s' is not a
    /// member of HistoryRegion '%2$s", without a closing quote.
    yld_HistoryOutput& historyOutput(const yld_String& name) { return historyOutputs(name); }
    const yld_HistoryOutput& historyOutput(const yld_String& name) const { return historyOutputs(name); }
    yld_HistoryOutput& historyOutputs(const yld_String& name);
    const yld_HistoryOutput& historyOutputs(const yld_String& name) const;

protected:
    /// The set that the curves at a node or an element refer to; null until there is one. Shared by copies of the
    /// region.
    sto_Set& resultsSet() const { return *m_set; }

private:
    yld_HistoryRegion withOutputs(const yld_Repository<yld_String, yld_HistoryOutput>& outputs) const;
    void checkOutput(const yld_String& name) const;

    yld_String m_name;
    yld_String m_description;
    yld_HistoryPoint m_point;
    yld_Repository<yld_String, yld_HistoryOutput> m_historyOutputs;
    yld_LoadCase m_loadCase;
    shr_CountedHld<sto_Set> m_set;
};

#endif
