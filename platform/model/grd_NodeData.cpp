#include "platform/model/grd_NodeData.h"

#include "platform/store/fio_Error.h"

void grd_NodeData::verify(const std::string& path) const
{
    m_labels.verify(path);
    if ((m_dimension != 2 && m_dimension != 3) || m_labels.size() >= firstForeignNode ||
        m_coordinates.size() != static_cast<long long>(m_labels.size()) * m_dimension ||
        m_foreignNodes.size() % 3 != 0 || m_foreignNodes.size() / 3 >= firstForeignNode) {
        fio_raise(path, "labels and coordinates of a mesh differ in number; the file is damaged");
    }
}
