#include "platform/sto/sto_NodeData.h"

#include "platform/store/fio_File.h"

sto_NodeData::sto_NodeData(const lnk_ShortCut<grd_NodeData>& reference) : m_data(reference.fetch())
{
    m_data->verify(reference.file()->path());
}

void sto_NodeData::GetNodalCoord(int index, float* coordinates) const
{
    const int dimension = m_data->Dim();
    const float* stored = m_data->m_coordinates.data() + static_cast<std::ptrdiff_t>(index) * dimension;
    for (int i = 0; i < dimension; ++i) coordinates[i] = stored[i];
}
