#include "yld_SectorDefinition.h"

#include "platform/sto/sto_Model.h"
#include "platform/sto/sto_Sto.h"

namespace {

yld_Sequence<float> sequenceOf(const std::array<float, 3>& point)
{
    return yld_Sequence<float>(point.data(), static_cast<int>(point.size()));
}

} // namespace

yld_SectorDefinition::yld_SectorDefinition(const sto_Sto& store)
{
    const sto_Model model = store.model();
    if (!model.HasSectorDefinition()) return;
    m_startPoint = sequenceOf(model.modelSectorDefinition().GetStartPoint());
    m_endPoint = sequenceOf(model.modelSectorDefinition().GetEndPoint());
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
