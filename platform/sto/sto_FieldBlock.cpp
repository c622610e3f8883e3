#include "platform/sto/sto_FieldBlock.h"

#include "platform/shape/shc_Topology.h"
#include "platform/store/fio_Error.h"
#include "platform/store/fio_File.h"
#include "platform/text/exc_Exception.h"
#include "platform/text/msg_Format.h"

#include <limits>
#include <string>

sto_Labels::sto_Labels(const pcl_Array<int>& array, int first, int count)
    : m_held(array), m_data(m_held.data() + first), m_size(count)
{
}

sto_Labels::sto_Labels(const fio_Buffer& labels, int count)
    : m_own(labels), m_data(reinterpret_cast<const int*>(m_own.data())), m_size(count)
{
}

namespace {

// Room for labels, filled through a pointer.
struct NewLabels
{
    explicit NewLabels(long long count) : buffer(static_cast<std::size_t>(count) * sizeof(int)) {}
    int* data() { return reinterpret_cast<int*>(buffer.writable()); }
    fio_Buffer buffer;
};

} // namespace

sto_FieldBlock::sto_FieldBlock(const sto_FieldDescription& description)
    : m_description(description.data()), m_file(description.shortCut().file())
{
}

sto_FieldBlock::sto_FieldBlock(fld_FieldDescription description, const std::shared_ptr<fio_FileBody>& file)
    : m_description(std::make_shared<const fld_FieldDescription>(std::move(description))), m_file(file)
{
}

sto_FieldBlock::sto_FieldBlock(const sto_Mesh& mesh, const sto_Set& set, int classIndex)
    : m_file(mesh.modelFile()), m_mesh(mesh), m_set(set)
{
    fld_FieldDescription description;
    description.m_set = set.shortCut();
    description.m_classIndex = classIndex;
    m_description = std::make_shared<const fld_FieldDescription>(std::move(description));
}

sto_FieldBlock::sto_FieldBlock(const sto_Mesh& mesh, const sto_Set& set, const sto_Subset& subset)
    : sto_FieldBlock(mesh, set, subset.classIndex())
{
    m_subsets.emplace(1, subset);
}

void sto_FieldBlock::refuse(const char* what) const
{
    fio_raise(m_file->path(), std::string("a field does not fit its set: ") + what);
}

const sto_Mesh& sto_FieldBlock::mesh() const
{
    if (!m_mesh) m_mesh = sto_FieldDescription::mesh(*m_description);
    return *m_mesh;
}

int sto_FieldBlock::meshIndex() const { return mesh().isValid() ? mesh().meshIndex() : -1; }

const sto_Set& sto_FieldBlock::set() const
{
    if (!m_set) m_set = sto_Set(m_description->m_set);
    return *m_set;
}

int sto_FieldBlock::setType() const
{
    constexpr int unknown = 7;
    if (m_setType < 0) m_setType = set().isValid() ? set().setType() : unknown;
    return m_setType;
}

const sto_ElementClass& sto_FieldBlock::elementClass() const
{
    if (!m_class) {
        m_class = m_description->m_classIndex >= 0 && mesh().isValid()
                      ? mesh().elementData().elementClass(m_description->m_classIndex)
                      : sto_ElementClass();
    }
    return *m_class;
}

int sto_FieldBlock::rowsPerMember(const fld_OutputPosition& place, int setType, const sto_ElementClass& onClass)
{
    using enum fld_OutputPosition::PerCarrier;
    switch (place.perCarrier) {
    case ONE:
        break;
    case NODES:
        if (setType == setC_Set::elementSet) return onClass.numNodesPerElement();
        break;
    case POINTS:
        if (setType == setC_Set::elementSet) return onClass.numIntegrationPointsPerElement();
        break;
    case FACE_POINTS:
        if (setType == setC_Set::surface) return onClass.maxIntegrationPointsPerFace();
        break;
    }
    return 1;
}

int sto_FieldBlock::rowsPerMember() const
{
    if (place().perCarrier == fld_OutputPosition::PerCarrier::ONE || isOnNodes()) return 1;
    return rowsPerMember(place(), setType(), elementClass());
}

const std::vector<sto_Subset>& sto_FieldBlock::subsets() const
{
    if (m_subsets) return *m_subsets;
    m_subsets.emplace();
    if (!set().isValid()) return *m_subsets;
    // The row is looked at once: each look goes over all subsets.
    const std::shared_ptr<const setC_Set> row = set().set();
    for (int i = 0; i < row->numSubsets(); ++i) {
        const sto_Subset subset(row, row->SubSet(i));
        if (subset.meshIndex() != meshIndex()) continue;
        if (isOnNodes()) {
            m_subsets->push_back(subset);
            continue;
        }
        if (subset.classIndex() != m_description->m_classIndex) continue;
        // Edges only where there are no faces.
        const bool isFinal = !isOnFaces() || subset.subsetType() == setC_SubSet::faces;
        if (isFinal || m_subsets->empty()) m_subsets->assign(1, subset);
        if (isFinal) break;
    }
    return *m_subsets;
}

int sto_FieldBlock::numMembers() const
{
    long long count = 0;
    for (const sto_Subset& subset : subsets()) count += subset.numMembers();
    if (count > std::numeric_limits<int>::max()) refuse("more members than can be counted");
    return static_cast<int>(count);
}

int sto_FieldBlock::numPlaces() const
{
    return isOnNodes() ? mesh().isValid() ? mesh().nodeData().NumNodes() : 0 : elementClass().numElements();
}

template<class Visit> void sto_FieldBlock::eachMember(Visit visit) const
{
    const int limit = numPlaces();
    for (const sto_Subset& subset : subsets()) {
        const int count = subset.numMembers();
        if (subset.isRun()) {
            if (subset.firstMember() > limit - count) refusePlace();
            for (int k = 0; k < count; ++k) visit(subset.firstMember() + k);
            continue;
        }
        // Read once for all blocks that the set serves.
        const int* members = subset.memberList();
        for (int k = 0; k < count; ++k) {
            if (members[k] < 0 || members[k] >= limit) refusePlace();
            visit(members[k]);
        }
    }
}

std::vector<int> sto_FieldBlock::members() const
{
    std::vector<int> all;
    all.reserve(static_cast<std::size_t>(numMembers()));
    eachMember([&all](int member) { all.push_back(member); });
    return all;
}

sto_Labels sto_FieldBlock::memberLabels() const
{
    const int count = numMembers();
    if (count == 0) return {};
    const sto_NodeData nodes = isOnNodes() ? mesh().nodeData() : sto_NodeData();
    const int* labels = isOnNodes() ? nodes.GetUserNodeLabels() : elementClass().userElementLabels();
    if (subsets().size() == 1 && subsets().front().isRun()) {
        // A run of the mesh: its labels stand side by side in the store already.
        const int first = subsets().front().firstMember();
        if (first > numPlaces() - count) refusePlace();
        if (!labels) return {};
        return {isOnNodes() ? nodes.labels() : elementClass().data()->m_labels.array(), first, count};
    }
    NewLabels made(count);
    int* to = made.data();
    eachMember([&](int member) { *to++ = labels ? labels[member] : 0; });
    return labels ? sto_Labels(made.buffer, count) : sto_Labels();
}

std::vector<int> sto_FieldBlock::facets() const
{
    std::vector<int> all;
    if (!isOnFaces()) return all;
    for (const sto_Subset& subset : subsets()) {
        const std::vector<int> more = subset.facets();
        all.insert(all.end(), more.begin(), more.end());
    }
    return all;
}

void sto_FieldBlock::refusePlace() const
{
    refuse(isOnNodes() ? "a node that the mesh lacks" : "an element that the class lacks");
}

// An element of the assembly may stand on a node of an instance, whose label the mesh keeps.
int sto_FieldBlock::nodeLabel(const sto_NodeData& nodes, int node) const
{
    if (node >= grd_NodeData::firstForeignNode) return nodes.GetUserNodeLabel(node);
    if (node < 0 || node >= nodes.NumNodes()) refuse("a node that the mesh lacks");
    return nodes.GetUserNodeLabels()[node];
}

sto_Labels sto_FieldBlock::connectivityLabels() const
{
    const int width = elementClass().numNodesPerElement();
    const long long count = static_cast<long long>(numMembers()) * width;
    if (count > std::numeric_limits<int>::max()) refuse("more nodes than can be counted");
    const int* connectivity = elementClass().elementConnectivity();
    const sto_NodeData nodes = mesh().nodeData();
    const int* labels = nodes.GetUserNodeLabels();
    const int numNodes = nodes.NumNodes();
    NewLabels made(count);
    int* to = made.data();
    eachMember([&](int element) {
        const int* row = connectivity + static_cast<std::ptrdiff_t>(element) * width;
        for (int n = 0; n < width; ++n)
            *to++ = row[n] >= 0 && row[n] < numNodes ? labels[row[n]] : nodeLabel(nodes, row[n]);
    });
    return {made.buffer, static_cast<int>(count)};
}

std::vector<int> sto_FieldBlock::nodeLabels(const std::vector<int>& nodes) const
{
    const sto_NodeData data = mesh().isValid() ? mesh().nodeData() : sto_NodeData();
    std::vector<int> all(nodes.size());
    for (std::size_t i = 0; i < nodes.size(); ++i) all[i] = nodeLabel(data, nodes[i]);
    return all;
}

std::vector<int> sto_FieldBlock::elementLabels(const std::vector<int>& elements) const
{
    const sto_ElementClass& onClass = elementClass();
    const int* labels = onClass.userElementLabels();
    std::vector<int> all(elements.size());
    for (std::size_t i = 0; i < elements.size(); ++i) {
        if (!labels || elements[i] < 0 || elements[i] >= onClass.numElements())
            refuse("an element that the class lacks");
        all[i] = labels[elements[i]];
    }
    return all;
}

std::vector<sto_FieldBlock::FacePoint> sto_FieldBlock::facePoints() const
{
    std::vector<FacePoint> points;
    const shc_Topology* shape = elementClass().shape();
    constexpr int facesDiffer = 7;
    if (place().perCarrier != fld_OutputPosition::PerCarrier::FACE_POINTS || !isOnFaces() || !shape ||
        shape->ShapeCode() != facesDiffer) {
        return points;
    }
    const std::vector<int> facets = this->facets();
    for (std::size_t k = 0; k < facets.size(); ++k) {
        const int count = shape->NumIntegrationPointsOnFace(facets[k]);
        for (int point = 0; point < count; ++point) points.push_back({static_cast<int>(k), point});
    }
    if (points.size() == facets.size() * static_cast<std::size_t>(rowsPerMember())) points.clear();
    return points;
}

void sto_FieldBlock::checkFits(int numRows) const
{
    if (!isOnNodes() && (subsets().empty() || !elementClass().isValid() || (isOnFaces() && !areFaces()))) {
        refuse(isOnFaces() ? "no faces of its class" : "no elements of its class");
    }
    if (isOnFaces() && static_cast<int>(facets().size()) != numMembers()) refuse("elements without a face");
    const std::size_t irregular = facePoints().size();
    if (irregular != 0) {
        if (irregular != static_cast<std::size_t>(numRows)) refuse("another number of points on faces than values");
        return;
    }
    if (static_cast<long long>(numMembers()) * rowsPerMember() == numRows) return;
    refuse(isOnNodes()      ? "another number of nodes than values"
           : isOnElements() ? "another number of elements than values"
                            : "another number of faces than values");
}

void sto_FieldBlock::checkLength(long long numRows, int halves) const
{
    const fld_FieldDescription& description = *m_description;
    if (numRows == static_cast<long long>(description.m_length) * halves) return;
    msg_StringBase text = msg_Format("Length of data sequence incorrect. Data at %1$s locations expected. Data at %2$s "
                                     "locations provided.",
                                     description.m_length, std::to_string(numRows).c_str());
    if (place().carrier == fld_OutputPosition::Carrier::NODE) {
        text.append(msg_Format(" Nodal data request failed. "));
        throw exc_TextException(text);
    }
    const char* type = elementClass().isValid() ? elementClass().typeLabel().c_str() : "";
    text.append(msg_Format(" Element data request failed. Element type is %s", type));
    using enum fld_OutputPosition::PerCarrier;
    if (place().perCarrier == POINTS) {
        text.append(msg_Format(". Data at %s integration points per element expected.", rowsPerMember()));
    } else if (place().perCarrier == NODES) {
        text.append(msg_Format(". Data at %s nodes per element expected.", rowsPerMember()));
    } else {
        text.append(msg_Format(". Data at 1 location per element expected."));
    }
    throw exc_TextException(text);
}
