#ifndef STO_HISTORYSTEP_H
#define STO_HISTORYSTEP_H

#include "platform/result/fld_Enum.h"
#include "platform/sto/sto_History.h"

/// A handle on the history of a step.
class sto_HistoryStep
{
public:
    /// No history.
    sto_HistoryStep() = default;
    explicit sto_HistoryStep(const lnk_ShortCut<fld_HistoryStep>& step) : m_step(step) {}

    bool isValid() const { return m_step.isValid(); }
    const lnk_ShortCut<fld_HistoryStep>& shortCut() const { return m_step; }

    /// How many curves there are. Reads none.
    int numHistories() const { return m_step.fetch()->m_histories.size(); }
    sto_History history(int index) const { return sto_History(m_step.fetch()->m_histories.at(index)); }
    /// Gives back the memory of the curves' rows, as far as the disk has them.
    void release() const { m_step.fetch()->m_histories.release(); }

    /// The root assembly, whose own mesh has the places without an instance.
    sto_Assembly assembly() const;

    /// A clock for new curves, at its beginning. Clocks of a step keep equal times once.
    sto_HistoryClock Clock() const;

    /// Make a curve of single precision. A curve at no place, or of the whole model:
    sto_HistoryFloat FloatHistory(const sto_HistoryClock& clock, fld_OutputPositionEnm position,
                                  const shr_String& label, const shr_String& description) const;
    /// At a node. An instance that is not valid means the assembly's own mesh, here and below.
    sto_HistoryFloat FloatHistory(const sto_HistoryClock& clock, fld_OutputPositionEnm position,
                                  const sto_PartInstance& instance, const shr_String& label,
                                  const shr_String& description, int nodeLabel, const sto_Set& set) const;
    /// At an integration point. @param integrationPoint, sectionPoint  from 0; the section point of a class that has
    /// none is none
    sto_HistoryFloat FloatHistory(const sto_HistoryClock& clock, fld_OutputPositionEnm position, int integrationPoint,
                                  const sto_PartInstance& instance, const sto_ElementClass& elementClass,
                                  const shr_String& label, const shr_String& description, int sectionPoint,
                                  const sto_Set& set, int elementLabel) const;
    /// Of a whole element.
    sto_HistoryFloat FloatHistory(const sto_HistoryClock& clock, fld_OutputPositionEnm position,
                                  const sto_PartInstance& instance, const sto_ElementClass& elementClass,
                                  const shr_String& label, const shr_String& description, int elementLabel,
                                  const sto_Set& set) const;
    /// Of a region.
    sto_HistoryFloat FloatHistory(const sto_HistoryClock& clock, fld_OutputPositionEnm position,
                                  const sto_PartInstance& instance, const shr_String& label,
                                  const shr_String& description, const sto_Set& region) const;

    /// Makes a curve of any kind.
    /// @param curve    what it is, with its storage type; clock and values are filled in
    /// @param columns  1, or 2 for values with an imaginary half
    sto_History History(fld_History curve, const sto_HistoryClock& clock, int columns = 1) const;

private:
    fld_History describe(fld_OutputPositionEnm position, const sto_PartInstance& instance, const shr_String& label,
                         const shr_String& description) const;
    void setElement(fld_History& curve, const sto_ElementClass& elementClass, int elementLabel) const;

    lnk_ShortCut<fld_HistoryStep> m_step;
};

#endif
