#include "platform/sto/sto_NodeData.h"

#include "platform/store/fio_File.h"
#include "platform/text/exc_Exception.h"

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

int sto_NodeData::GetUserNodeLabel(int index) const
{
    if (index >= 0 && index < NumNodes()) return m_data->m_labels.data()[index];
    if (m_data && index >= grd_NodeData::firstForeignNode &&
        index - grd_NodeData::firstForeignNode < m_data->numForeignNodes()) {
        return m_data->m_foreignNodes.data()[3 * (index - grd_NodeData::firstForeignNode) + 2];
    }
    throw exc_TextException("Node index out of range.");
}
