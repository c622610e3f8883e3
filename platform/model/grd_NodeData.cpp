#include "platform/model/grd_NodeData.h"

#include "platform/store/fio_Error.h"

#include <algorithm>

void grd_NodeData::verify(const std::string& path) const
{
    m_labels.verify(path);
    if ((m_dimension != 2 && m_dimension != 3) || m_labels.size() >= firstForeignNode ||
        m_coordinates.size() != static_cast<long long>(m_labels.size()) * m_dimension ||
        m_foreignNodes.size() % 3 != 0 || m_foreignNodes.size() / 3 >= firstForeignNode) {
        fio_raise(path, "labels and coordinates of a mesh differ in number; the file is damaged");
    }
}

int grd_NodeData::foreignNode(const std::string& instance, int node, int label)
{
    const auto keyOf = [](int name, int nodeThere) { return (static_cast<long long>(name) << 32) + nodeThere; };
    const auto found = std::find(m_foreignInstances.begin(), m_foreignInstances.end(), instance);
    const int name = static_cast<int>(found - m_foreignInstances.begin());
    if (found == m_foreignInstances.end()) m_foreignInstances.push_back(instance);
    if (!m_foreignIndex) m_foreignIndex = std::make_shared<ForeignIndex>();
    const int count = numForeignNodes();
    const int* triples = m_foreignNodes.data();
    for (int& place = m_foreignIndex->entered; place < count; ++place) {
        m_foreignIndex->places.emplace(keyOf(triples[3 * place], triples[3 * place + 1]), place);
    }
    const auto [known, isNew] = m_foreignIndex->places.emplace(keyOf(name, node), count);
    if (isNew) {
        const int triple[3] = {name, node, label};
        m_foreignNodes.append(triple, 3);
        m_foreignIndex->entered = count + 1;
    }
    return firstForeignNode + known->second;
}
