#ifndef STO_FIELDSTEP_H
#define STO_FIELDSTEP_H

#include "platform/result/fld_Step.h"
#include "platform/sto/sto_FieldDescription.h"

#include <memory>
#include <unordered_map>

/// Finds descriptions by what they describe; follows the step's list as that grows.
class sto_FieldStepIndex
{
private:
    friend class sto_FieldStep;
    std::unordered_multimap<std::size_t, lnk_ShortCut<fld_FieldDescription>> m_entries;
    int m_indexed = 0;
};

/// A handle on what the fields of a step have in common.
class sto_FieldStep
{
public:
    sto_FieldStep() = default;
    sto_FieldStep(const lnk_ShortCut<fld_FieldStep>& step, const std::shared_ptr<sto_FieldStepIndex>& index)
        : m_step(step), m_index(index)
    {
    }

    bool isValid() const { return m_step.isValid(); }
    const lnk_ShortCut<fld_FieldStep>& shortCut() const { return m_step; }

    /// The key of the next stored field.
    int numberField() const;
    /// Keys below this one are taken from now on.
    void setNumberField(int next);

    /// Enters a description. A width of 0 stands for the type's own, and for a vector for the number of its labels.
    sto_FieldDescription Field(fld_FieldDescription description);
    /// The description of the same combination: everything but the key and the length takes part, the set too, and of
    /// the orientation whether there is one. Raises when there is none.
    sto_FieldDescription field(const fld_FieldDescription& like, bool hasOrientation) const;
    /// The same without raising: an empty handle.
    sto_FieldDescription find(const fld_FieldDescription& like, bool hasOrientation) const;
    /// For tests.
    int numDescriptions() const;

    /// The dimension of the model's space: 2 or 3.
    int modelDimension() const;

private:
    lnk_ShortCut<fld_FieldStep> m_step;
    std::shared_ptr<sto_FieldStepIndex> m_index;
};

#endif
