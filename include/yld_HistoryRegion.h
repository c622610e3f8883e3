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

/// A named set of curves at one point. A plain region is an orphan, a result of getSubset: it takes no new curves. What
/// a step holds are regions of yld_HistoryRegionPers.
class YLD_API yld_HistoryRegion
{
public:
    yld_HistoryRegion();
    yld_HistoryRegion(const yld_String& name, const yld_String& description, const yld_HistoryPoint& point,
                      const yld_Repository<yld_String, yld_HistoryOutput>& outputs, const yld_LoadCase& loadCase);
    yld_HistoryRegion(const yld_HistoryRegion&);
    yld_HistoryRegion& operator=(const yld_HistoryRegion&);

    /// A new curve. Raises here "Adding a history output object to an orphan History object is not allowed.".
    virtual yld_HistoryOutput& HistoryOutput(const yld_String& name, const yld_String& description,
                                             yld_Enum::yld_DataTypeEnum type);
    /// A plain region with the part of each curve that lies strictly between start and end, or after start.
    virtual yld_HistoryRegion getSubset(double start, double end) const;
    virtual yld_HistoryRegion getSubset(double start) const;
    /// A plain region with that one curve, or with none if there is none of that name. The curve stays what it is.
    virtual yld_HistoryRegion getSubset(const yld_String& variableName) const;

    virtual ~yld_HistoryRegion();

    /// The key in the step.
    const yld_String& name() const { return m_name; }
    const yld_String& description() const { return m_description; }
    const yld_HistoryPoint& historyPoint() const { return m_point; }
    /// The default one for none.
    const yld_LoadCase& loadCase() const { return m_loadCase; }
    void setLoadCase(const yld_LoadCase& loadCase) { m_loadCase = loadCase; }

    yld_Repository<yld_String, yld_HistoryOutput>& historyOutput() { return m_historyOutputs; }
    const yld_Repository<yld_String, yld_HistoryOutput>& historyOutput() const { return m_historyOutputs; }
    yld_Repository<yld_String, yld_HistoryOutput>& historyOutputs() { return m_historyOutputs; }
    const yld_Repository<yld_String, yld_HistoryOutput>& historyOutputs() const { return m_historyOutputs; }
    /// The curve of that name, good as long as the region. Raises "HistoryOutput '%1$s' is not a member of
    /// HistoryRegion
    /// '%2$s", the last quote being left out.
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
