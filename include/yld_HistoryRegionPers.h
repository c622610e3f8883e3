#ifndef YLD_HISTORY_REGION_PERS_H
#define YLD_HISTORY_REGION_PERS_H

#include "yld_HistoryRegion.h"

class sto_History;
class sto_HistoryStep;
class sto_PartInstance;

/// A region of a step. Its new curves are kept in the database by the next save. The region itself is not stored: it is
/// found again by what its curves say. So a region without a curve is gone when the database is opened again, and in
/// place of the description there is then the long text of the point.
class YLD_API yld_HistoryRegionPers : public yld_HistoryRegion
{
public:
    yld_HistoryRegionPers();
    yld_HistoryRegionPers(const yld_String& name, const yld_String& description, const yld_HistoryPoint& point,
                          const sto_HistoryStep& historyStep);
    yld_HistoryRegionPers(const yld_HistoryRegionPers&);
    yld_HistoryRegionPers& operator=(const yld_HistoryRegionPers&);

    /// A new curve, good as long as the region; a name that the region has gives the curve that is there, though the
    /// database gets a second one. The first curve at a node or element makes an internal set of that node or element
    /// in its instance. Raises "Only SCALAR data allowed for a historyVariable object.", "yld_Enum::ELEMENT_NODAL
    /// history not allowed.", "HistoryOutput cannot be created for this output location".
    yld_HistoryOutput& HistoryOutput(const yld_String& name, const yld_String& description,
                                     yld_Enum::yld_DataTypeEnum type) override;
    yld_HistoryRegion getSubset(double start, double end) const override;
    yld_HistoryRegion getSubset(double start) const override;
    yld_HistoryRegion getSubset(const yld_String& variableName) const override;
    ~yld_HistoryRegionPers() override;

private:
    friend class yld_StepHistory;

    /// Enters a curve that the database has; false if there is one of that name.
    bool addStored(const sto_History& history);
    /// The set of the node or the element, made when it is first asked for.
    const sto_Set& results(const sto_PartInstance& instance, bool isNode) const;

    shr_CountedHld<sto_HistoryStep> m_historyStep;
};

#endif
