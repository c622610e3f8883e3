#include "yld_DiscreteEntity.h"

#include "platform/shape/shc_ShapeDictionary.h"
#include "yld/impl/base/yld_Convert.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld/impl/model/yld_Mesh.h"
#include "yld_EnumMap.h"

yld_DiscreteEntity::yld_DiscreteEntity() : m_mesh(new yld_Mesh), m_elements(m_mesh), m_nodes(m_mesh) {}

yld_DiscreteEntity::yld_DiscreteEntity(const yld_String& name, yld_Enum::yld_DimensionEnum space,
                                       yld_Enum::yld_PartTypeEnum type, const yld_MeshHandle& mesh)
    : m_name(name), m_embeddedSpace(space), m_type(type), m_mesh(mesh), m_elements(mesh), m_nodes(mesh)
{
}

yld_DiscreteEntity::yld_DiscreteEntity(const yld_DiscreteEntity&) = default;
yld_DiscreteEntity& yld_DiscreteEntity::operator=(const yld_DiscreteEntity&) = default;
yld_DiscreteEntity::~yld_DiscreteEntity() = default;

yld_Element yld_DiscreteEntity::elements(int index) const
{
    return yld_guard([&] { return m_mesh->elementAt(index, true); });
}

yld_SequenceElement& yld_DiscreteEntity::elements()
{
    yld_guard([this] { m_mesh->refresh(); });
    return m_elements;
}

const yld_SequenceElement& yld_DiscreteEntity::elements() const
{
    yld_guard([this] { m_mesh->refresh(); });
    return m_elements;
}

yld_Node yld_DiscreteEntity::nodes(int index) const
{
    return yld_guard([&] { return m_mesh->nodeAt(index); });
}

yld_SequenceNode& yld_DiscreteEntity::nodes()
{
    yld_guard([this] { m_mesh->refresh(); });
    return m_nodes;
}

const yld_SequenceNode& yld_DiscreteEntity::nodes() const
{
    yld_guard([this] { m_mesh->refresh(); });
    return m_nodes;
}

yld_Node yld_DiscreteEntity::getNodeFromLabel(int label) const
{
    return yld_guard([&] { return m_mesh->nodeFromLabel(label); });
}

yld_Element yld_DiscreteEntity::getElementFromLabel(int label) const
{
    return yld_guard([&] { return m_mesh->elementFromLabel(label); });
}

const yld_Sequence<yld_ElementClass>& yld_DiscreteEntity::elementClasses() const
{
    if (m_elementClasses.isEmpty() && m_mesh->isBound()) {
        yld_guard([this] {
            const sto_ElementData elements = m_mesh->store().elementData();
            int first = 0;
            for (int i = 0; i < elements.numClasses(); ++i) {
                const sto_ElementClass each = elements.elementClass(i, first);
                first += each.numElements();
                m_elementClasses.append(yld_ElementClass(each, i));
            }
        });
    }
    return m_elementClasses;
}

void yld_DiscreteEntity::readSets(int setType, bool includeInternal, yld_SetRepository& into) const
{
    if (!into.isEmpty() || !m_mesh->isBound()) return;
    yld_guard([&] {
        const sto_SetList list = m_mesh->store().set();
        const int length = list.length(includeInternal);
        for (int i = 0; i < length; ++i) {
            if (list.setType(i) != setType) continue;
            const yld_String label(list.setLabel(i).c_str());
            into.insert(label, yld_Set(label, list.get(i), m_mesh));
        }
    });
}

namespace {

// The sets of an entity stand on the same meshes, so those of one of them are those of all.
void refreshMeshes(const yld_SetRepository& sets)
{
    yld_RepositoryIT<yld_String, yld_Set> entry(sets);
    entry.first();
    if (entry.isDone()) return;
    const yld_MeshList& meshes = entry.currentValue().MeshList();
    yld_guard([&meshes] {
        for (int i = 0; i < meshes.size(); ++i) meshes.mesh(i)->refresh();
    });
}

} // namespace

yld_SetRepository& yld_DiscreteEntity::nodeSets(bool includeInternal, bool skipRefresh)
{
    readSets(setC_Set::nodeSet, includeInternal, m_nodeSets);
    if (!skipRefresh) refreshMeshes(m_nodeSets);
    return m_nodeSets;
}

yld_SetRepository& yld_DiscreteEntity::elementSets(bool includeInternal, bool skipRefresh)
{
    readSets(setC_Set::elementSet, includeInternal, m_elementSets);
    if (!skipRefresh) refreshMeshes(m_elementSets);
    return m_elementSets;
}

yld_SetRepository& yld_DiscreteEntity::surfaces(bool includeInternal)
{
    readSets(setC_Set::surface, includeInternal, m_surfaces);
    return m_surfaces;
}

const yld_SetRepository& yld_DiscreteEntity::nodeSets(bool includeInternal, bool skipRefresh) const
{
    readSets(setC_Set::nodeSet, includeInternal, m_nodeSets);
    if (!skipRefresh) refreshMeshes(m_nodeSets);
    return m_nodeSets;
}

const yld_SetRepository& yld_DiscreteEntity::elementSets(bool includeInternal, bool skipRefresh) const
{
    readSets(setC_Set::elementSet, includeInternal, m_elementSets);
    if (!skipRefresh) refreshMeshes(m_elementSets);
    return m_elementSets;
}

const yld_SetRepository& yld_DiscreteEntity::surfaces(bool includeInternal) const
{
    readSets(setC_Set::surface, includeInternal, m_surfaces);
    return m_surfaces;
}

yld_Sequence<int> yld_DiscreteEntity::nodesLabelsFromNodeTypeFace(const yld_Sequence<int>& labels,
                                                                  const yld_String& type,
                                                                  yld_Enum::yld_ElementFaceEnum face)
{
    const char* const invalid = "Invalid face";
    if (face == yld_Enum::SIDE1 || face == yld_Enum::SIDE2) {
        const char first = type.cStr()[0];
        if (first != 'S' && first != 's') yld_raise("Face SPOS and SNEG not valid for element type %s.", type);
        if (face == yld_Enum::SIDE1) return labels;
        yld_Sequence<int> reversed(labels.size());
        for (int i = labels.size() - 1; i >= 0; --i) reversed.append(labels[i]);
        return reversed;
    }
    const shc_Topology* shape = shc_ShapeDictionary::GetShape(type.cStr());
    if (!shape) yld_raise(invalid);
    if (shape->Dimension() == 1) {
        if (face != yld_Enum::END1 && face != yld_Enum::END2 && face != yld_Enum::END3) yld_raise(invalid);
        const int end = static_cast<int>(face) - static_cast<int>(yld_Enum::END1);
        if (end >= labels.size()) yld_raise(invalid);
        const int label = labels[end];
        return yld_Sequence<int>(&label, 1);
    }
    std::vector<int> nodes = yld_Convert::values(labels);
    if (static_cast<int>(nodes.size()) < shape->NumNodes()) yld_raise(invalid);
    int picked[shc_Cell::MAX_FACE_NODES] = {};
    int count = 0;
    const int number = unMapFaceIndex(face);
    if (shape->NumFaces() < 2) {
        if (face < yld_Enum::FACE1 || face > yld_Enum::FACE4) yld_raise(invalid);
        count = shc_Topology::EdgeConnectivity(*shape, nodes.data(), 0, number, picked);
    } else {
        if (face < yld_Enum::FACE1 || face > yld_Enum::FACE6) yld_raise(invalid);
        count = shc_Topology::FaceConnectivity(*shape, nodes.data(), number, picked);
    }
    if (count == 0) yld_raise(invalid);
    return yld_Sequence<int>(picked, count);
}
