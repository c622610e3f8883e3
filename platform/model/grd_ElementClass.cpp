#include "platform/model/grd_ElementClass.h"

#include "platform/model/grd_NodeData.h"
#include "platform/store/fio_Error.h"
#include "platform/store/fio_File.h"

bool grd_ElementClass::isInternal() const
{
    if (m_labels.isEmpty()) return false;
    // Labels of users are positive, so the array need not be read to look at its first one.
    return m_labels.smallest() < 1 && m_labels.data()[0] < 1;
}

const int* grd_ElementClass::connectivity(int numNodes, int numForeign) const
{
    const int* nodes = m_connectivity.data();
    const long long count = m_connectivity.size();
    for (; m_checked < count; ++m_checked) {
        const int node = nodes[m_checked];
        const bool known = node < grd_NodeData::firstForeignNode ? node >= 0 && node < numNodes
                                                                 : node - grd_NodeData::firstForeignNode < numForeign;
        if (!known) {
            fio_raise(m_connectivity.file() ? m_connectivity.file()->path() : m_type,
                      "an element refers to a node that is not there; the file is damaged");
        }
    }
    return nodes;
}

void grd_ElementClass::verify(const std::string& path) const
{
    m_labels.verify(path);
    if (m_numElements < 0 || m_nodesPerElement < 0 || m_nodesPerElement > maxNodes ||
        (!m_labels.isEmpty() && m_labels.size() != m_numElements) ||
        m_connectivity.size() != static_cast<long long>(m_numElements) * m_nodesPerElement) {
        fio_raise(path, "labels and connectivity of an element class differ in number; the file is damaged");
    }
}
