#include "yld_SectorDefinition.h"

#include "platform/sto/sto_Model.h"
#include "platform/sto/sto_Sto.h"
#include "yld/impl/base/yld_Convert.h"

yld_SectorDefinition::yld_SectorDefinition(const sto_Sto& store)
{
    const sto_Model model = store.model();
    if (!model.HasSectorDefinition()) return;
    m_startPoint = yld_Convert::sequence(model.modelSectorDefinition().GetStartPoint());
    m_endPoint = yld_Convert::sequence(model.modelSectorDefinition().GetEndPoint());
    m_numSymmetricSectors = model.modelSectorDefinition().GetNumberOfSectors();
}

yld_SectorDefinition::yld_SectorDefinition(const yld_SectorDefinition&) = default;
yld_SectorDefinition& yld_SectorDefinition::operator=(const yld_SectorDefinition&) = default;
yld_SectorDefinition::~yld_SectorDefinition() = default;

yld_Sequence<yld_Sequence<float>> yld_SectorDefinition::symmetryAxis() const
{
    yld_Sequence<yld_Sequence<float>> axis;
    axis.append(m_startPoint);
    axis.append(m_endPoint);
    return axis;
}
