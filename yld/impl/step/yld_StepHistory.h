#ifndef YLD_STEP_HISTORY_H
#define YLD_STEP_HISTORY_H

#include "yld/impl/step/yld_HistoryPlaces.h"
#include "yld_HistoryRegionPers.h"

class sto_Step;

/// The history regions of a step, read on demand. The copies of a step have it in common, so that references to regions
/// and curves are good as long as any of them.
class yld_StepHistory
{
public:
    /// Enters the curves that the step has and that were not entered yet; tells whether there were any.
    bool read(const sto_Step& step, const sto_Assembly& assembly);
    bool isRead() const { return m_isRead; }

    yld_HistoryRegionPers& add(const yld_String& name, const yld_String& description, const yld_HistoryPoint& point,
                               sto_Step& step, const sto_Assembly& assembly);

    yld_Repository<yld_String, yld_HistoryRegionPers>& regions() { return m_regions; }

private:
    yld_HistoryPlaces& places(const sto_Assembly& assembly);
    bool enter(const sto_History& history, const sto_HistoryStep& step, const sto_Assembly& assembly);

    bool m_isRead = false;
    int m_numRead = 0; // how many of the step's curves have been entered
    yld_Repository<yld_String, yld_HistoryRegionPers> m_regions;
    std::optional<yld_HistoryPlaces> m_places;
};

#endif
