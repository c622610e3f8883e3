#include "yld_Set.h"

#include "platform/shape/shc_Topology.h"
#include "platform/sto/sto_Mesh.h"
#include "yld/impl/base/yld_Convert.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld/impl/model/yld_Mesh.h"
#include "yld/impl/model/yld_MeshInput.h"
#include "yld_EnumMap.h"

#include <limits>

yld_Set::yld_Set() : m_set(new sto_Set) {}

yld_Set::yld_Set(const yld_String& name, const sto_Set& set, const yld_MeshList& meshes)
    : m_set(new sto_Set(set)), m_isAssemblySet(true), m_name(name), m_meshes(meshes)
{
}

yld_Set::yld_Set(const yld_String& name, const sto_Set& set, const yld_MeshHandle& mesh)
    : m_set(new sto_Set(set)), m_name(name), m_meshes(mesh)
{
}

yld_Set::yld_Set(const yld_Set&) = default;
yld_Set& yld_Set::operator=(const yld_Set&) = default;
yld_Set::~yld_Set() = default;

yld_Enum::yld_SetTypeEnum yld_Set::type() const
{
    const int stored = m_set->isValid() ? yld_guard([this] { return m_set->setType(); }) : -1;
    switch (stored) {
    case setC_Set::nodeSet:
        return yld_Enum::NODE_SET;
    case setC_Set::elementSet:
        return yld_Enum::ELEMENT_SET;
    case setC_Set::surface:
        return yld_Enum::SURFACE_SET;
    default:
        yld_raise("Unknown Set type.");
    }
}

int yld_Set::size() const
{
    return m_set->isValid() ? yld_guard([this] { return m_set->numMembers(); }) : 0;
}

bool yld_Set::isInternal() const
{
    return m_set->isValid() && yld_guard([this] { return m_set->internalSet(); });
}

bool yld_Set::isUnsorted() const
{
    return m_set->isValid() && yld_guard([this] { return m_set->unsortedSet(); });
}

const sto_Set& yld_Set::set() const { return *m_set; }

namespace {

// Adds up, or says that the file is wrong: places come from a file.
int placeInMesh(int member, int offset)
{
    if (member < 0 || member > std::numeric_limits<int>::max() - offset) {
        yld_raise("A set has a member that no mesh can have; the file is damaged.");
    }
    return member + offset;
}

int classOffset(const yld_Mesh& mesh, int classIndex)
{
    if (classIndex <= 0) return 0;
    const sto_ElementData elements = mesh.store().elementData();
    if (classIndex >= elements.numClasses()) {
        yld_raise("A set has members in an element class that is not there; the file is damaged.");
    }
    return elements.firstElementIndex(classIndex);
}

// The members of one mesh as they come together from several subsets.
struct Gathered
{
    int meshIndex;
    yld_MeshHandle mesh;
    yld_Sequence<int> members;
};

struct SurfaceGroup
{
    yld_Sequence<int> elements;
    yld_Sequence<int> nodes;
    yld_Sequence<yld_Enum::yld_ElementFaceEnum> faces;
};

void readFacets(const sto_Subset& subset, int offset, bool isShell, SurfaceGroup& group)
{
    const bool isEdge = subset.subsetType() == setC_SubSet::edges;
    const std::vector<int> members = subset.members();
    const std::vector<int> facets = subset.facets();
    for (std::size_t i = 0; i < members.size(); ++i) {
        group.elements.append(placeInMesh(members[i], offset));
        group.faces.append(facets.empty() ? yld_Enum::FACE_UNKNOWN : mapFaceIndex(facets[i], isShell, isEdge));
    }
}

void readSurface(const sto_Subset& subset, const yld_Mesh& mesh, SurfaceGroup& group)
{
    if (subset.subsetType() == setC_SubSet::nodes) {
        group.nodes = yld_Convert::sequence(subset.members());
        return;
    }
    if (subset.classIndex() < 0) {
        readFacets(subset, 0, false, group);
        return;
    }
    const int offset = classOffset(mesh, subset.classIndex());
    const sto_ElementClass elementClass = mesh.store().elementData().elementClass(subset.classIndex(), offset);
    const std::string& type = elementClass.elementTypeLabel();
    if (shc_Topology::IsShellLike(type)) {
        readFacets(subset, offset, true, group);
    } else if (type == "RNODE2D" || type == "RNODE3D") {
        const int* connectivity = elementClass.elementConnectivity();
        const int width = elementClass.numNodesPerElement();
        for (int member : subset.members()) {
            if (member < 0 || member >= elementClass.numElements() || width < 1) {
                yld_raise("A set has a member that no mesh can have; the file is damaged.");
            }
            group.nodes.append(connectivity[static_cast<std::ptrdiff_t>(member) * width]);
        }
    } else if (!shc_Topology::IsAnalytic(type)) {
        readFacets(subset, offset, false, group);
    }
}

} // namespace

void yld_Set::fill() const
{
    if (m_filled) return;
    const yld_Enum::yld_SetTypeEnum kind = type();
    yld_guard([&] {
        const int subsets = m_set->numSubsets();
        switch (kind) {
        case yld_Enum::NODE_SET:
            for (int i = 0; i < subsets; ++i) {
                const sto_Subset subset = m_set->subSet(i);
                const yld_MeshHandle& mesh = m_meshes.meshFromMeshIndex(subset.meshIndex());
                m_nodes.append(yld_SequenceNode(yld_Convert::sequence(subset.members()), mesh));
            }
            break;
        case yld_Enum::ELEMENT_SET: {
            std::vector<Gathered> groups;
            for (int i = 0; i < subsets; ++i) {
                const sto_Subset subset = m_set->subSet(i);
                std::size_t at = 0;
                while (at < groups.size() && groups[at].meshIndex != subset.meshIndex()) ++at;
                if (at == groups.size()) {
                    groups.push_back({subset.meshIndex(), m_meshes.meshFromMeshIndex(subset.meshIndex()), {}});
                }
                const int offset = classOffset(*groups[at].mesh, subset.classIndex());
                std::vector<int> members = subset.members();
                for (int& member : members) member = placeInMesh(member, offset);
                if (groups[at].members.isEmpty()) groups[at].members = yld_Convert::sequence(members);
                else {
                    for (int member : members) groups[at].members.append(member);
                }
            }
            for (const Gathered& group : groups) m_elements.append(yld_SequenceElement(group.members, group.mesh));
            break;
        }
        default: {
            std::vector<int> meshIndices;
            for (int i = 0; i < subsets; ++i) {
                const sto_Subset subset = m_set->subSet(i);
                const yld_MeshHandle mesh = m_meshes.meshFromMeshIndex(subset.meshIndex());
                SurfaceGroup group;
                readSurface(subset, *mesh, group);
                const yld_SequenceElement elements(group.elements, mesh);
                const yld_SequenceNode nodes(group.nodes, mesh);
                std::size_t at = 0;
                while (at < meshIndices.size() && meshIndices[at] != subset.meshIndex()) ++at;
                if (at == meshIndices.size()) {
                    meshIndices.push_back(subset.meshIndex());
                    m_elements.append(elements);
                    m_nodes.append(nodes);
                    m_faces.append(group.faces);
                } else {
                    const int place = m_elements.size() - static_cast<int>(meshIndices.size() - at);
                    m_elements.get(place).append(elements);
                    m_nodes.get(place).append(nodes);
                    m_faces.get(place).append(group.faces);
                }
            }
            break;
        }
        }
    });
    m_filled = true;
}

void yld_Set::clearMembers()
{
    m_filled = false;
    switch (type()) {
    case yld_Enum::NODE_SET:
        m_nodes.clearAll();
        break;
    case yld_Enum::ELEMENT_SET:
        m_elements.clearAll();
        break;
    default:
        m_nodes.clearAll();
        m_elements.clearAll();
        m_faces.clearAll();
        break;
    }
}

yld_Sequence<yld_String> yld_Set::instanceNames() const
{
    fill();
    yld_Sequence<yld_String> names;
    if (type() == yld_Enum::NODE_SET) {
        for (int i = 0; i < m_nodes.size(); ++i) names.append(m_nodes[i].instanceName());
    } else {
        for (int i = 0; i < m_elements.size(); ++i) names.append(m_elements[i].instanceName());
    }
    return names;
}

namespace {

int groupOf(const yld_Sequence<yld_String>& names, const yld_String& name, const yld_String& set)
{
    const int place = names.findFirst(name);
    if (place == names.size()) yld_raise("Instance '%1$s is not a member of the set '%2$s'", name, set);
    return place;
}

} // namespace

const yld_SequenceNode& yld_Set::nodes() const
{
    fill();
    if (m_nodes.isEmpty()) yld_raise("This set does not contain nodes.");
    yld_guard([this] { m_nodes[0].mesh()->refresh(); });
    return m_nodes[0];
}

const yld_SequenceElement& yld_Set::elements() const
{
    fill();
    if (m_elements.isEmpty()) yld_raise("This set does not contain elements.");
    yld_guard([this] { m_elements[0].mesh()->refresh(); });
    return m_elements[0];
}

const yld_Sequence<yld_Enum::yld_ElementFaceEnum>& yld_Set::faces() const
{
    if (m_isAssemblySet) yld_raise("Faces must be retrieved using the instance name for assembly sets.");
    fill();
    if (m_faces.isEmpty()) yld_raise("Set does not contain faces.");
    return m_faces[0];
}

const yld_SequenceNode& yld_Set::nodes(const yld_String& instanceName) const
{
    fill();
    const int place = groupOf(instanceNames(), instanceName, m_name);
    if (place >= m_nodes.size()) yld_raise("This set does not contain nodes.");
    yld_guard([this, place] { m_nodes[place].mesh()->refresh(); });
    return m_nodes[place];
}

const yld_SequenceElement& yld_Set::elements(const yld_String& instanceName) const
{
    fill();
    const int place = groupOf(instanceNames(), instanceName, m_name);
    if (place >= m_elements.size()) yld_raise("This set does not contain elements.");
    yld_guard([this, place] { m_elements[place].mesh()->refresh(); });
    return m_elements[place];
}

const yld_Sequence<yld_Enum::yld_ElementFaceEnum>& yld_Set::faces(const yld_String& instanceName) const
{
    fill();
    const int place = groupOf(instanceNames(), instanceName, m_name);
    if (place >= m_faces.size()) yld_raise("Set does not contain faces.");
    return m_faces[place];
}

void yld_Set::addLabels(const yld_Sequence<int>& labels, bool isInternal, bool isUnsorted)
{
    const yld_Enum::yld_SetTypeEnum kind = type();
    if (m_meshes.size() == 0) yld_raise("Entity has no mesh.");
    sto_Mesh mesh = m_meshes.mesh(0)->store();
    const std::vector<int> given = yld_Convert::values(labels);
    const int count = static_cast<int>(given.size());
    if (kind == yld_Enum::SURFACE_SET) {
        const std::vector<sto_SurfaceSubset> subsets =
            yld_MeshInput::classify(labels, yld_Sequence<yld_Enum::yld_ElementFaceEnum>(), mesh);
        yld_guard([&] { mesh.modifySurfaceSetLabels(m_set->setLabel(), subsets, isInternal); });
    } else {
        yld_guard([&] {
            if (kind == yld_Enum::NODE_SET) {
                mesh.modifyNodeSetLabels(m_set->setLabel(), given.data(), count, isInternal, isUnsorted);
            } else {
                mesh.modifyElementSetLabels(m_set->setLabel(), given.data(), count, isInternal);
            }
        });
    }
    clearMembers();
}

void yld_Set::addSurfaceLabels(const yld_Sequence<int>& labels,
                               const yld_Sequence<yld_Enum::yld_ElementFaceEnum>& faces, bool isInternal)
{
    if (type() == yld_Enum::SURFACE_SET) {
        if (m_meshes.size() == 0) yld_raise("Entity has no mesh.");
        sto_Mesh mesh = m_meshes.mesh(0)->store();
        const std::vector<sto_SurfaceSubset> subsets = yld_MeshInput::classify(labels, faces, mesh);
        yld_guard([&] { mesh.modifySurfaceSetLabels(m_set->setLabel(), subsets, isInternal); });
    }
    clearMembers();
}
