#include "platform/sto/sto_PartInstance.h"

#include "platform/model/mshK_Part.h"

int sto_PartInstance::partType() const { return m_reference.fetch()->m_part.fetch()->m_type; }

std::vector<double> sto_PartInstance::placement() const
{
    std::vector<double> placement = m_reference.fetch()->m_placement;
    placement.resize(6, 0.0);
    return placement;
}
