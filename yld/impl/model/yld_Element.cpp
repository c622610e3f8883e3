#include "yld_Element.h"

#include "platform/sto/sto_Mesh.h"
#include "yld/impl/base/yld_Raise.h"

yld_Element::yld_Element() = default;

yld_Element::yld_Element(int index, int label, const int* connectivityIndices, int meshIndex, int numNodes,
                         const yld_String& type, const yld_SectionCategory& category,
                         yld_Enum::yld_ElementGeometryClass geometryClass, int shapeAttribute, int classIndex,
                         const int* nodeLabels, const sto_ScopedNodeData* scopedNodes,
                         const shr_CountedHld<sto_Mesh>& mesh)
    : m_index(index), m_label(label), m_meshIndex(meshIndex), m_numNodes(connectivityIndices ? numNodes : 0),
      m_type(type), m_sectionCategory(category), m_geometryClass(geometryClass), m_shapeAttribute(shapeAttribute),
      m_classIndex(classIndex), m_mesh(mesh)
{
    if (!scopedNodes) {
        for (int i = 0; i < m_numNodes; ++i) m_connectivity[i] = nodeLabels[connectivityIndices[i]];
        return;
    }
    for (int i = 0; i < m_numNodes; ++i) {
        const int node = connectivityIndices[i];
        if (scopedNodes->isNativeNode(node)) {
            m_connectivity[i] = nodeLabels[node];
            m_instanceNames.append(yld_String());
        } else {
            m_connectivity[i] = scopedNodes->GetUserNodeLabel(node);
            m_instanceNames.append(yld_String(scopedNodes->getPartInstance(node).c_str()));
        }
    }
}

namespace {

// The list keeps labels in blocks, the common constructor wants them side by side: only those that are needed.
class NeededLabels
{
public:
    NeededLabels(const int* indices, int count, const shr_1DArrayList<int>& labels, const sto_ScopedNodeData* scoped)
    {
        for (int i = 0; indices && i < count; ++i) {
            const bool native = !scoped || scoped->isNativeNode(indices[i]);
            m_labels[i] = native ? labels[indices[i]] : 0;
            m_places[i] = native ? i : indices[i];
        }
        m_any = indices != nullptr;
    }
    const int* labels() const { return m_labels; }
    const int* places() const { return m_any ? m_places : nullptr; }

private:
    int m_labels[yld_Element::maxNodes] = {};
    int m_places[yld_Element::maxNodes] = {};
    bool m_any = false;
};

} // namespace

yld_Element::yld_Element(int index, int label, const int* connectivityIndices, int meshIndex, int numNodes,
                         const yld_String& type, const yld_SectionCategory& category,
                         yld_Enum::yld_ElementGeometryClass geometryClass, int shapeAttribute, int classIndex,
                         const shr_1DArrayList<int>& nodeLabels, const sto_Mesh& mesh)
{
    const NeededLabels needed(connectivityIndices, numNodes, nodeLabels, nullptr);
    *this =
        yld_Element(index, label, needed.places(), meshIndex, numNodes, type, category, geometryClass, shapeAttribute,
                    classIndex, needed.labels(), nullptr, shr_CountedHld<sto_Mesh>(new sto_Mesh(mesh)));
}

yld_Element::yld_Element(int index, int label, const int* connectivityIndices, int meshIndex, int numNodes,
                         const yld_String& type, const yld_SectionCategory& category,
                         yld_Enum::yld_ElementGeometryClass geometryClass, int shapeAttribute, int classIndex,
                         const shr_1DArrayList<int>& nodeLabels, const sto_ScopedNodeData& scopedNodes,
                         const sto_Mesh& mesh)
{
    const NeededLabels needed(connectivityIndices, numNodes, nodeLabels, &scopedNodes);
    *this =
        yld_Element(index, label, needed.places(), meshIndex, numNodes, type, category, geometryClass, shapeAttribute,
                    classIndex, needed.labels(), &scopedNodes, shr_CountedHld<sto_Mesh>(new sto_Mesh(mesh)));
}

yld_Element::yld_Element(const yld_Element&) = default;
yld_Element& yld_Element::operator=(const yld_Element&) = default;
yld_Element::~yld_Element() = default;

const int* yld_Element::connectivity(int& numNodes) const
{
    numNodes = m_numNodes;
    return m_connectivity;
}

yld_Sequence<int> yld_Element::connectivity() const { return yld_Sequence<int>(m_connectivity, m_numNodes); }

yld_Sequence<yld_String> yld_Element::instanceNames() const
{
    if (m_meshIndex == -1) yld_raise("Element is not associated with a mesh.");
    if (!m_instanceNames.isEmpty() || m_mesh.IsNull()) return m_instanceNames;
    const yld_String name(yld_guard([this] { return m_mesh->instanceName(); }).c_str());
    yld_Sequence<yld_String> names(m_numNodes);
    for (int i = 0; i < m_numNodes; ++i) names.append(name);
    return names;
}

bool yld_Element::operator==(const yld_Element& other) const
{
    if (m_meshIndex == -1) return other.m_meshIndex == -1;
    return m_index == other.m_index && m_meshIndex == other.m_meshIndex && m_classIndex == other.m_classIndex;
}
