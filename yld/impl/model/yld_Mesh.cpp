#include "yld/impl/model/yld_Mesh.h"

#include "platform/shape/shc_ShapeDictionary.h"
#include "yld/impl/base/yld_Convert.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld/impl/model/yld_MeshInput.h"

#include <algorithm>
#include <limits>

namespace {

constexpr const char* outOfRange = "Element index out of range.";

yld_Enum::yld_ElementGeometryClass geometryOf(const shc_Topology* shape)
{
    if (!shape) return yld_Enum::UNKNOWN_GEOMETRY;
    switch (shape->Family()) {
    case 0:
        return yld_Enum::POINT_GEOMETRY;
    case 1:
        return yld_Enum::LINEAR_LINE;
    case 2:
        return yld_Enum::QUADRATIC_LINE;
    case 3:
        return yld_Enum::LINEAR_TRIANGLE;
    case 4:
        return yld_Enum::QUADRATIC_TRIANGLE;
    case 5:
        return yld_Enum::LINEAR_QUADRILATERAL;
    case 6:
    case 7:
        return yld_Enum::QUADRATIC_QUADRILATERAL;
    case 8:
        return yld_Enum::LINEAR_HEXAHEDRON;
    case 9:
        return yld_Enum::QUADRATIC_HEXAHEDRON;
    case 10:
        return yld_Enum::LINEAR_WEDGE;
    case 11:
        return yld_Enum::QUADRATIC_WEDGE;
    case 12:
        return yld_Enum::LINEAR_TETRAHEDRON;
    case 13:
        return yld_Enum::QUADRATIC_TETRAHEDRON;
    default:
        return yld_Enum::UNKNOWN_GEOMETRY;
    }
}

} // namespace

yld_Mesh::yld_Mesh(const sto_Mesh& store, const yld_String& name, bool isScoped)
    : m_store(new sto_Mesh(store)), m_name(name), m_isScoped(isScoped)
{
    m_meshIndex = store.meshIndex();
    readCounts();
}

void yld_Mesh::requireStore() const
{
    if (!isBound()) yld_raise("Entity has no mesh.");
}

const sto_Mesh& yld_Mesh::store() const
{
    requireStore();
    return *m_store;
}

// What was read stays as long as the store has the same nodes; nothing is read here.
void yld_Mesh::readCounts()
{
    const sto_NodeData nodes = m_store->nodeData();
    m_numNodes = nodes.NumNodes();
    if (nodes.data() == m_nodeData.data() && (m_coordinates || !m_coordinatesAsked)) return;
    m_nodeData = nodes;
    m_nodeLabels = nullptr;
    m_coordinates.reset();
    m_coordinatesAsked = false;
    if (m_isScoped) m_scopedNodes = sto_ScopedNodeData(nodes);
}

void yld_Mesh::refresh()
{
    if (!isBound()) return;
    m_currentClass = -1;
    m_classStart = -1;
    m_numElements = -1;
    readCounts();
    m_meshIndex = m_store->meshIndex();
}

const int* yld_Mesh::nodeLabels()
{
    if (!m_nodeLabels && m_nodeData.NumNodes() > 0) {
        m_nodeData.GetUserNodeLabels();
        m_nodeLabelArray = m_nodeData.labels();
        m_nodeLabels = m_nodeLabelArray.data();
    }
    return m_nodeLabels;
}

yld_Node yld_Mesh::nodeAt(int index)
{
    if (static_cast<unsigned>(index) >= static_cast<unsigned>(m_numNodes)) yld_raise("Node index out of range.");
    if (!m_coordinatesAsked) {
        m_coordinatesAsked = true;
        try {
            m_coordinates = m_store->coordinates();
        } catch (const exc_Exception&) {
            // The labels are of use without the places.
            m_coordinates.reset();
        }
    }
    float coordinates[3] = {0.0f, 0.0f, 0.0f};
    if (m_coordinates && index < m_coordinates->NumNodes()) m_coordinates->GetCoord(index, coordinates);
    return yld_Node(index, nodeLabels()[index], m_meshIndex, coordinates);
}

int yld_Mesh::nodeIndexFromLabel(int label) const { return store().nodeData().GetNodeIndexFromLabel(label); }

yld_Node yld_Mesh::nodeFromLabel(int label) { return nodeAt(nodeIndexFromLabel(label)); }

int yld_Mesh::elementCount(bool includeInternal)
{
    if (m_numElements != -1) return m_numElements;
    if (!isBound()) {
        m_numElements = 0;
        return 0;
    }
    const sto_ElementData elements = m_store->elementData();
    const int classes = elements.numClasses();
    int total = 0;
    for (int i = 0; i < classes; ++i) {
        const sto_ElementClass each = elements.elementClass(i, total);
        const bool counts = includeInternal || (!each.data()->m_labels.isEmpty() && !each.isInternal());
        if (!counts) continue;
        if (each.numElements() > std::numeric_limits<int>::max() - total) {
            yld_raise("A mesh has more elements than can be counted.");
        }
        total += each.numElements();
    }
    m_numElements = total;
    return total;
}

void yld_Mesh::loadClass(int classIndex, const sto_ElementClass& elementClass)
{
    ++m_classLoads;
    m_currentClass = classIndex;
    m_class = elementClass.data();
    m_classSize = elementClass.numElements();
    m_nodesPerElement = elementClass.numNodesPerElement();
    m_elementLabels = nullptr;
    m_labelArray = pcl_Array<int>();
    if (elementClass.userElementLabels()) {
        m_labelArray = m_class->m_labels.array();
        m_elementLabels = m_labelArray.data();
    }
    m_connectivityRead = false;
    m_elementType = yld_String(elementClass.typeLabel().c_str());
    yld_String description("SectionCategory for element type ");
    description.append(m_elementType);
    if (!m_name.empty()) {
        description.append(" in part ");
        description.append(m_name);
    }
    m_sectionCategory = yld_SectionCategory(elementClass, description);
    // The class may know nodes that came since the last look.
    const sto_NodeData nodes = m_store->nodeData();
    if (nodes.data() != m_nodeData.data()) {
        m_nodeData = nodes;
        m_nodeLabels = nullptr;
        m_coordinates.reset();
        m_coordinatesAsked = false;
        if (m_isScoped) m_scopedNodes = sto_ScopedNodeData(nodes);
    }
    const shc_Topology* shape = elementClass.shape();
    m_shapeAttribute = shape ? shape->Attribute() : 0;
    m_geometryClass = geometryOf(shape);
}

void yld_Mesh::enterClass(int classIndex, const sto_ElementClass& elementClass, int start, int index)
{
    loadClass(classIndex, elementClass);
    m_startClass = classIndex;
    m_classStart = start;
    m_indexInClass = index - start;
}

void yld_Mesh::moveForward(int classIndex, int start, int index, bool includeInternal)
{
    const sto_ElementData elements = m_store->elementData();
    const int classes = elements.numClasses();
    for (int i = classIndex; i < classes; ++i) {
        const sto_ElementClass each = elements.elementClass(i, start);
        if (!includeInternal && each.isInternal()) continue;
        if (index - start < each.numElements()) {
            enterClass(i, each, start, index);
            return;
        }
        start += each.numElements();
    }
    yld_raise(outOfRange);
}

void yld_Mesh::moveTo(int index, bool includeInternal)
{
    if (m_classStart < 0) {
        requireStore();
        if (index >= elementCount(includeInternal)) yld_raise(outOfRange);
        moveForward(0, 0, index, includeInternal);
        return;
    }

    if (m_startClass == m_currentClass && index >= m_classStart && index - m_classStart < m_classSize) {
        m_indexInClass = index - m_classStart;
        return;
    }
    const sto_ElementData elements = m_store->elementData();
    int start = m_classStart;
    const int size =
        m_startClass == m_currentClass ? m_classSize : elements.elementClass(m_startClass, 0).numElements();
    if (index >= start && index - start < size) {
        if (m_startClass != m_currentClass) loadClass(m_startClass, elements.elementClass(m_startClass, start));
        m_indexInClass = index - start;
        return;
    }
    if (index >= start) {
        if (index >= elementCount(false)) yld_raise(outOfRange);
        moveForward(m_startClass + 1, start + size, index, false);
        return;
    }
    for (int i = m_startClass - 1; i >= 0; --i) {
        const sto_ElementClass each = elements.elementClass(i, 0);
        if (each.isInternal()) continue;
        start -= each.numElements();
        if (index >= start) {
            enterClass(i, each, start, index);
            return;
        }
    }
    yld_raise(outOfRange);
}

int yld_Mesh::labelHere()
{
    return m_elementLabels && m_indexInClass >= 0 ? m_elementLabels[m_indexInClass] : m_indexInClass;
}

yld_Element yld_Mesh::elementHere()
{
    if (!m_connectivityRead) {
        if (!m_isScoped && m_nodeData.data()->numForeignNodes() > 0) {
            yld_raise("The mesh of \"%s\" refers to nodes of part instances; the file is damaged.", m_name);
        }
        m_class->connectivity(m_nodeData.NumNodes(), m_nodeData.data()->numForeignNodes());
        m_connectivityArray = m_class->m_connectivity;
        m_connectivity = m_connectivityArray.data();
        m_connectivityRead = true;
    }
    const int* nodes =
        m_indexInClass < 0 ? nullptr : m_connectivity + static_cast<std::ptrdiff_t>(m_indexInClass) * m_nodesPerElement;
    return yld_Element(m_indexInClass, labelHere(), nodes, m_meshIndex, m_nodesPerElement, m_elementType,
                       m_sectionCategory, m_geometryClass, m_shapeAttribute, m_currentClass, nodeLabels(),
                       m_isScoped ? &m_scopedNodes : nullptr, m_store);
}

yld_Element yld_Mesh::elementAt(int index, bool includeInternal)
{
    moveTo(index, includeInternal);
    return elementHere();
}

int yld_Mesh::elementLabelAt(int index)
{
    moveTo(index, true);
    return labelHere();
}

// The class at hand first, then those after it, then those before it.
bool yld_Mesh::findLabel(int label, Found& found) const
{
    const sto_ElementData elements = store().elementData();
    const int classes = elements.numClasses();
    const int from = m_currentClass < 0 || m_currentClass >= classes ? 0 : m_currentClass;
    for (int step = 0; step < classes; ++step) {
        const int i = from + step < classes ? from + step : from + step - classes;
        const sto_ElementClass each = elements.elementClass(i, 0);
        const int index = each.GetElementIndexFromLabel(label, i == m_currentClass ? std::max(m_indexInClass, 0) : 0);
        if (index >= 0) {
            found = {i, each, index};
            return true;
        }
    }
    return false;
}

yld_Element yld_Mesh::elementFromLabel(int label)
{
    Found found{};
    if (!findLabel(label, found)) yld_raise("Element index not found.");
    if (found.classIndex != m_currentClass || found.elementClass.data() != m_class) {
        loadClass(found.classIndex, found.elementClass);
    }
    m_indexInClass = found.index;
    return elementHere();
}

sto_ElementClass yld_Mesh::elementClassFromLabel(int label) const
{
    Found found{};
    if (!findLabel(label, found)) yld_raise("ElementClass not found.");
    return found.elementClass;
}

int yld_Mesh::elementIndexFromLabel(int label) const
{
    const sto_ElementData elements = store().elementData();
    const int classes = elements.numClasses();
    int total = 0;
    for (int i = 0; i < classes; ++i) {
        const sto_ElementClass each = elements.elementClass(i, total);
        const int index = each.GetElementIndexFromLabel(label);
        if (index >= 0) return total + index;
        total += each.numElements();
    }
    yld_raise("Element not found.");
}

yld_Element yld_Mesh::elementAtClass(int classIndex, int indexInClass)
{
    const char* const outOfRange = "Element index out of range.";
    if (classIndex != m_currentClass) {
        const sto_ElementData elements = store().elementData();
        if (classIndex < 0 || classIndex >= elements.numClasses()) yld_raise(outOfRange);
        const sto_ElementClass wanted = elements.elementClass(classIndex, 0);
        if (indexInClass >= wanted.numElements()) yld_raise(outOfRange);
        loadClass(classIndex, wanted);
    } else if (m_currentClass < 0 || indexInClass >= m_classSize) {
        yld_raise(outOfRange);
    }
    m_indexInClass = indexInClass;
    return elementHere();
}

yld_Sequence<int> yld_Mesh::connectivityOf(int classIndex, int indexInClass) const
{
    if (!isBound()) return yld_Sequence<int>();
    const sto_ElementClass each = m_store->elementData().elementClass(classIndex, 0);
    if (indexInClass < 0 || indexInClass >= each.numElements()) yld_raise("Element index out of range.");
    return yld_Sequence<int>(each.getSingleElementConnectivity(indexInClass), each.numNodesPerElement());
}

void yld_Mesh::locateElementByNodes(int classIndex, int indexInClass, int& classOut, int& indexOut,
                                    int& meshElementIndex) const
{
    if (!isBound()) return;
    const yld_Sequence<int> wanted = connectivityOf(classIndex, indexInClass);
    const sto_ElementData elements = m_store->elementData();
    const int classes = elements.numClasses();
    int passed = 0;
    for (int i = 0; i < classes; ++i) {
        const sto_ElementClass each = elements.elementClass(i, passed);
        if (i == classIndex) {
            passed += each.numElements();
            continue;
        }
        const int width = each.numNodesPerElement();
        const int* nodes = each.elementConnectivity();
        for (int k = 0; k < each.numElements(); ++k, ++passed, nodes += width) {
            int hits = 0;
            while (hits < wanted.size() && std::find(nodes, nodes + width, wanted[hits]) != nodes + width) ++hits;
            if (hits == wanted.size()) {
                classOut = i;
                indexOut = k;
                meshElementIndex = passed;
                return;
            }
        }
    }
    yld_raise("Element index not found.");
}

bool yld_Mesh::hasSet(const yld_String& label) const
{
    if (!isBound()) return false;
    const sto_SetList list = m_store->set();
    const std::string wanted(label.cStr());
    return list.has(setC_Set::nodeSet, wanted) || list.has(setC_Set::elementSet, wanted) ||
           list.has(setC_Set::surface, wanted);
}

void yld_Mesh::addNodes(const yld_Sequence<int>& labels, const yld_Sequence<yld_Sequence<float>>& coordinates,
                        const yld_String& setName)
{
    const int dimension = store().nodeData().Dim();
    const std::vector<float> points = yld_MeshInput::coordinates(labels, coordinates, dimension);
    const std::vector<int> given = yld_Convert::values(labels);
    yld_guard([&] { m_store->addNodes(given.data(), points.data(), static_cast<int>(given.size()), setName.cStr()); });
    refresh();
}

void yld_Mesh::addElements(const yld_Sequence<int>& labels, const yld_Sequence<yld_Sequence<int>>& connectivity,
                           const yld_String& type, const yld_String& setName, const yld_SectionCategory& category)
{
    requireStore();
    if (labels.size() != connectivity.size()) yld_raise("Connectivity array must be provided for all elements.");
    const int width = labels.isEmpty() ? 0 : connectivity[0].size();
    const std::vector<int> nodes = yld_MeshInput::connectivity(connectivity, width);
    const std::vector<int> given = yld_Convert::values(labels);
    const sto_ElementArg arg = yld_MeshInput::elementArg(type, given, nodes, width, category);
    yld_guard([&] { m_store->addElements(arg, setName.cStr(), nullptr); });
    refresh();
}
