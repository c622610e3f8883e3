#include "platform/sto/sto_Mesh.h"

#include "platform/model/mshK_PartInstance.h"
#include "platform/store/fio_Error.h"
#include "platform/store/fio_File.h"
#include "platform/text/exc_Exception.h"
#include "platform/text/msg_Format.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

void checkNewLabels(const int* labels, int count, const char* belowOne, const char* repeated)
{
    for (int i = 0; i < count; ++i) {
        if (labels[i] < 1) throw exc_TextException(msg_Format(belowOne, labels[i]));
    }
    const int twice = grd_LabelList::firstRepeated(labels, count);
    if (twice >= 0) throw exc_TextException(msg_Format(repeated, labels[twice]));
}

// Elements of one type and category make one class. An unknown type has no fixed number of nodes, so that belongs to
// the key as well.
std::string classKey(const sto_ElementArg& arg)
{
    return arg.type + '\n' + std::to_string(arg.nodesPerElement) + '\n' + arg.categoryDescription;
}

struct ClassMembers
{
    int classIndex;
    std::vector<int> members;
    std::vector<int> facets;
};

// Members by class, classes in the order in which they first appear.
ClassMembers& membersOf(std::vector<ClassMembers>& groups, std::vector<int>& placeOf, int classIndex)
{
    if (placeOf.size() <= static_cast<std::size_t>(classIndex))
        placeOf.resize(static_cast<std::size_t>(classIndex) + 1, -1);
    int& place = placeOf[static_cast<std::size_t>(classIndex)];
    if (place < 0) {
        place = static_cast<int>(groups.size());
        groups.push_back({classIndex, {}, {}});
    }
    return groups[static_cast<std::size_t>(place)];
}

} // namespace

const std::string& sto_ScopedNodeData::getPartInstance(int index) const
{
    const grd_NodeData& data = *m_nodes.data();
    const int name = data.m_foreignNodes.data()[3 * (index - grd_NodeData::firstForeignNode)];
    if (name < 0 || static_cast<std::size_t>(name) >= data.m_foreignInstances.size()) {
        throw exc_TextException("A node of a part instance names no instance; the file is damaged");
    }
    return data.m_foreignInstances[static_cast<std::size_t>(name)];
}

int sto_ScopedNodeData::getInstanceNode(int index) const
{
    return m_nodes.data()->m_foreignNodes.data()[3 * (index - grd_NodeData::firstForeignNode) + 1];
}

int sto_ScopedNodeData::GetUserNodeLabel(int index) const { return m_nodes.GetUserNodeLabel(index); }

sto_Mesh sto_Mesh::create(const std::shared_ptr<fio_FileBody>& file, int meshIndex, int dimension)
{
    grd_NodeData nodes;
    nodes.m_dimension = dimension;
    mshK_Mesh mesh;
    mesh.m_meshIndex = meshIndex;
    mesh.m_nodeData = lnk_ShortCut<grd_NodeData>::create(file, std::move(nodes));
    mesh.m_classes = mrp_Container<grd_ElementClass>::create(file);
    mesh.m_sets = mrp_Container<setC_Set>::create(file);
    mesh.m_internalSets = mrp_Container<setC_Set>::create(file);
    return sto_Mesh(lnk_ShortCut<mshK_Mesh>::create(file, std::move(mesh)));
}

sto_Mesh sto_Mesh::createFrom(const sto_Mesh& source, int meshIndex)
{
    const std::shared_ptr<fio_FileBody>& file = source.modelFile();
    const std::shared_ptr<const mshK_Mesh> shared = source.mesh();
    mshK_Mesh mesh;
    mesh.m_meshIndex = meshIndex;
    mesh.m_source = source.shortCut();
    mesh.m_nodeData = shared->m_nodeData;
    mesh.m_classes = shared->m_classes;
    mesh.m_sets = mrp_Container<setC_Set>::create(file);
    mesh.m_internalSets = mrp_Container<setC_Set>::create(file);
    return sto_Mesh(lnk_ShortCut<mshK_Mesh>::create(file, std::move(mesh)));
}

sto_ElementData sto_Mesh::elementData() const
{
    const std::shared_ptr<const mshK_Mesh> body = mesh();
    return sto_ElementData(body->m_classes, body->m_nodeData);
}

bool sto_Mesh::hasContents() const { return nodeData().NumNodes() > 0 || elementData().numClasses() > 0; }

std::string sto_Mesh::instanceName() const
{
    const std::shared_ptr<const mshK_Mesh> body = mesh();
    return body->m_instance.isNull() ? std::string() : body->m_instance.fetch()->m_name;
}

std::shared_ptr<const aux_CoordCont3D> sto_Mesh::coordinates() const
{
    const std::shared_ptr<const mshK_Mesh> body = mesh();
    const sto_NodeData nodes(body->m_nodeData);
    aux_Placement placement;
    if (!body->m_instance.isNull()) {
        const std::shared_ptr<const mshK_PartInstance> instance = body->m_instance.fetch();
        if (instance->m_placement.size() == 6) placement = aux_Placement(instance->m_placement.data());
        else if (!instance->m_placement.empty()) {
            fio_raise(modelFile()->path(), "the placement of an instance makes no sense; the file is damaged");
        }
    }
    return std::make_shared<aux_CoordCont3D>(nodes.data()->m_coordinates, nodes.Dim(), placement);
}

void sto_Mesh::checkNewNodes(const int* labels, const float* coordinates, int count, int dimension)
{
    checkNewLabels(labels, count, "Invalid node label %d: labels begin at 1.", "Node label %d is given twice.");
    const long long numbers = static_cast<long long>(count) * dimension;
    for (long long i = 0; i < numbers; ++i) {
        if (!std::isfinite(coordinates[i])) {
            throw exc_TextException(msg_Format("The coordinates of node %d are not numbers.", labels[i / dimension]));
        }
    }
}

void sto_Mesh::addNodes(const int* labels, const float* coordinates, int count, const std::string& setName)
{
    const lnk_ShortCut<grd_NodeData> reference = mesh()->m_nodeData;
    const sto_NodeData before(reference);
    const long long numbers = static_cast<long long>(count) * before.Dim();
    checkNewNodes(labels, coordinates, count, before.Dim());
    const int present = before.data()->m_labels.firstPresent(labels, count);
    if (present < count) {
        throw exc_TextException(msg_Format("Node label %d exists already.", labels[present]));
    }
    if (before.NumNodes() > grd_NodeData::firstForeignNode - 1 - count) {
        throw exc_TextException("A mesh cannot have so many nodes.");
    }
    reference.edit([&](grd_NodeData& nodes) {
        nodes.m_labels.append(labels, count);
        nodes.m_coordinates.append(coordinates, numbers);
    });

    if (setName.empty()) return;
    const sto_Set joined = nset(setName);
    if (!joined.isValid()) {
        Nset(setName, labels, count, false, false);
        return;
    }
    joined.shortCut().edit([&](setC_Set& set) { appendNodes(set, labels, count); });
}

void sto_Mesh::checkElementArg(const sto_ElementArg& arg)
{
    if (arg.nodesPerElement > grd_ElementClass::maxNodes) {
        throw exc_TextException(msg_Format("An element can have %d nodes at most; %d were given.",
                                           static_cast<int>(grd_ElementClass::maxNodes), arg.nodesPerElement));
    }
    checkNewLabels(arg.labels, arg.numElements, "Invalid element label %d: labels begin at 1.",
                   "Element label %d is given twice.");
}

void sto_Mesh::checkNewElements(const sto_ElementArg& arg) const
{
    checkElementArg(arg);
    const std::shared_ptr<const mshK_Mesh> body = mesh();
    const sto_ElementData elements(body->m_classes, body->m_nodeData);
    for (int i = 0; i < elements.numClasses(); ++i) {
        const sto_ElementClass present = elements.elementClass(i, 0);
        const int found = present.data()->m_labels.firstPresent(arg.labels, arg.numElements);
        if (found < arg.numElements) {
            throw exc_TextException(msg_Format("Element label %d exists already.", arg.labels[found]));
        }
    }
    if (elements.numElements() > std::numeric_limits<int>::max() - arg.numElements) {
        throw exc_TextException("A mesh cannot have so many elements.");
    }
}

// Only the nodes are still to be checked.
void sto_Mesh::appendChecked(const sto_ElementArg& arg, const sto_ElemCtrlParams* params, bool areIndices)
{
    const std::shared_ptr<const mshK_Mesh> body = mesh();
    mrp_Container<grd_ElementClass> classes = body->m_classes;
    const std::string key = classKey(arg);
    const sto_NodeData nodes(body->m_nodeData);
    const auto append = [&](grd_ElementClass& into) {
        const long long numbers = static_cast<long long>(arg.numElements) * arg.nodesPerElement;
        int* connectivity = into.m_connectivity.extend(numbers);
        int last = -1;
        for (long long i = 0; i < numbers; ++i) {
            const int node = arg.connectivity[i];
            if (areIndices) {
                connectivity[i] = node;
                continue;
            }
            last = nodes.GetNodeIndexFromLabel(node, last + 1);
            if (last < 0) {
                throw exc_TextException(msg_Format("Node number \"%d\" of element \"%d\" does not exist.", node,
                                                   arg.labels[i / arg.nodesPerElement]));
            }
            connectivity[i] = last;
        }
        into.m_labels.append(arg.labels, arg.numElements);
        into.m_numElements += arg.numElements;
        if (params && !params->isEmpty()) into.SetElemControlParams(params->texts(), params->values());
    };
    if (const lnk_ShortCut<grd_ElementClass> present = classes.get(key); present.isValid()) {
        present.edit(append);
        return;
    }
    grd_ElementClass made;
    made.m_type = arg.type;
    made.m_category = arg.categoryDescription;
    made.m_sectionPoints = arg.sectionPoints;
    made.m_nodesPerElement = arg.nodesPerElement;
    append(made);
    classes.append(key, lnk_ShortCut<grd_ElementClass>::create(modelFile(), std::move(made)));
}

void sto_Mesh::addElements(const sto_ElementArg& arg, const std::vector<sto_ScopedNode>& nodes,
                           const std::vector<std::string>& names, const sto_ElemCtrlParams* params)
{
    checkNewElements(arg);
    std::vector<int> indices(nodes.size());
    std::transform(nodes.begin(), nodes.end(), indices.begin(), [](const sto_ScopedNode& node) { return node.index; });
    const auto isForeign = [](const sto_ScopedNode& node) { return node.instance >= 0; };
    if (std::any_of(nodes.begin(), nodes.end(), isForeign)) {
        mesh()->m_nodeData.edit([&](grd_NodeData& data) {
            for (std::size_t i = 0; i < nodes.size(); ++i) {
                const sto_ScopedNode& node = nodes[i];
                if (!isForeign(node)) continue;
                indices[i] = data.foreignNode(names[static_cast<std::size_t>(node.instance)], node.index, node.label);
            }
        });
    }
    sto_ElementArg resolved = arg;
    resolved.connectivity = indices.data();
    appendChecked(resolved, params, true);
}

void sto_Mesh::addElements(const sto_ElementArg& arg, const std::string& setName, const sto_ElemCtrlParams* params)
{
    checkNewElements(arg);
    appendChecked(arg, params, false);
    if (setName.empty()) return;
    const sto_Set joined = elset(setName);
    if (!joined.isValid()) {
        Elset(setName, arg.labels, arg.numElements, false);
        return;
    }
    joined.shortCut().edit([&](setC_Set& set) { appendElements(set, arg.labels, arg.numElements); });
}

void sto_Mesh::setControlsOfLastClass(const sto_ElemCtrlParams& params)
{
    const mrp_Container<grd_ElementClass> classes = mesh()->m_classes;
    if (classes.isEmpty()) return;
    const lnk_ShortCut<grd_ElementClass> last = classes.at(classes.size() - 1);
    last.edit([&](grd_ElementClass& changed) { changed.SetElemControlParams(params.texts(), params.values()); });
}

sto_SetList sto_Mesh::set() const
{
    const std::shared_ptr<const mshK_Mesh> body = mesh();
    return sto_SetList(body->m_sets, body->m_internalSets, modelFile()->temporaries(m_reference.id()));
}

sto_Set sto_Mesh::temporarySet(int type, const std::string& name, const int* labels, int count) const
{
    setC_Set set;
    set.m_label = name;
    set.m_type = type;
    set.m_internal = true;
    if (count > 0 && type == setC_Set::nodeSet) appendNodes(set, labels, count);
    else if (count > 0) appendElements(set, labels, count);
    const auto made = lnk_ShortCut<setC_Set>::temporary(modelFile(), std::move(set));
    modelFile()->keepTemporary(m_reference.id(), setC_Set::key(type, name), made);
    return sto_Set(made);
}

void sto_Mesh::appendNodes(setC_Set& set, const int* labels, int count) const
{
    const std::shared_ptr<const mshK_Mesh> body = mesh();
    const sto_NodeData nodes(body->m_nodeData);
    const int first = nodes.isValid() ? nodes.data()->m_labels.findRun(labels, count) : -1;
    if (first >= 0) {
        set.appendRun(body->m_meshIndex, -1, setC_SubSet::nodes, first, count);
        return;
    }
    std::vector<int> places(static_cast<std::size_t>(count));
    const int bad = nodes.GetNodeIndices(labels, count, places.data());
    if (bad < count) throw exc_TextException(msg_Format("Invalid node label %d", labels[bad]));
    set.append(body->m_meshIndex, -1, setC_SubSet::nodes, places.data(), nullptr, count);
}

void sto_Mesh::appendElements(setC_Set& set, const int* labels, int count) const
{
    int classIndex = -1;
    if (const int first = elementData().findRun(labels, count, classIndex); first >= 0) {
        set.appendRun(meshIndex(), classIndex, setC_SubSet::elements, first, count);
        return;
    }
    std::vector<int> classes(static_cast<std::size_t>(count));
    std::vector<int> places(static_cast<std::size_t>(count));
    const int bad = elementData().GetElementIndices(labels, count, classes.data(), places.data());
    if (bad < count) throw exc_TextException(msg_Format("Invalid element label %d", labels[bad]));
    const int index = meshIndex();
    const bool oneClass =
        std::all_of(classes.begin(), classes.end(), [&classes](int each) { return each == classes[0]; });
    if (oneClass) {
        set.append(index, count > 0 ? classes[0] : -1, setC_SubSet::elements, places.data(), nullptr, count);
        return;
    }
    std::vector<ClassMembers> groups;
    std::vector<int> placeOf;
    for (std::size_t i = 0; i < places.size(); ++i) {
        membersOf(groups, placeOf, classes[i]).members.push_back(places[i]);
    }
    for (const ClassMembers& group : groups) {
        set.append(index, group.classIndex, setC_SubSet::elements, group.members.data(), nullptr,
                   static_cast<int>(group.members.size()));
    }
}

void sto_Mesh::appendFacets(setC_Set& set, const std::vector<sto_SurfaceSubset>& subsets) const
{
    const sto_ElementData elements = elementData();
    const int index = meshIndex();
    for (const sto_SurfaceSubset& subset : subsets) {
        std::vector<ClassMembers> groups;
        std::vector<int> placeOf;
        const int count = static_cast<int>(std::min(subset.labels.size(), subset.facets.size()));
        std::vector<int> classes(static_cast<std::size_t>(count));
        std::vector<int> places(static_cast<std::size_t>(count));
        // An unknown label is left out, and the search goes on after it.
        for (int from = 0; from < count;) {
            const int known = elements.GetElementIndices(subset.labels.data() + from, count - from,
                                                         classes.data() + from, places.data() + from);
            for (std::size_t i = static_cast<std::size_t>(from); i < static_cast<std::size_t>(from + known); ++i) {
                ClassMembers& group = membersOf(groups, placeOf, classes[i]);
                group.members.push_back(places[i]);
                group.facets.push_back(subset.facets[i]);
            }
            from += known + 1;
        }
        for (const ClassMembers& group : groups) {
            set.append(index, group.classIndex, subset.subsetType, group.members.data(), group.facets.data(),
                       static_cast<int>(group.members.size()));
        }
    }
}

sto_Set sto_Mesh::Nset(const std::string& name, const int* labels, int count, bool isInternal, bool isUnsorted)
{
    sto_SetList list = set();
    setC_Set made = list.begin(setC_Set::nodeSet, name, isInternal, isUnsorted);
    appendNodes(made, labels, count);
    return list.add(modelFile(), std::move(made));
}

sto_Set sto_Mesh::Elset(const std::string& name, const int* labels, int count, bool isInternal)
{
    sto_SetList list = set();
    setC_Set made = list.begin(setC_Set::elementSet, name, isInternal, false);
    appendElements(made, labels, count);
    return list.add(modelFile(), std::move(made));
}

sto_Set sto_Mesh::Surface(const std::string& name, const std::vector<sto_SurfaceSubset>& subsets, bool isInternal)
{
    sto_SetList list = set();
    setC_Set made = list.begin(setC_Set::surface, name, isInternal, false);
    appendFacets(made, subsets);
    return list.add(modelFile(), std::move(made));
}

void sto_Mesh::modifyNodeSetLabels(const std::string& name, const int* labels, int count, bool /*isInternal*/,
                                   bool isUnsorted)
{
    const lnk_ShortCut<setC_Set> reference = set().require(setC_Set::nodeSet, name);
    reference.edit([&](setC_Set& set) {
        set.clear();
        set.m_unsorted = isUnsorted;
        appendNodes(set, labels, count);
    });
}

void sto_Mesh::modifyElementSetLabels(const std::string& name, const int* labels, int count, bool /*isInternal*/)
{
    const lnk_ShortCut<setC_Set> reference = set().require(setC_Set::elementSet, name);
    reference.edit([&](setC_Set& set) {
        set.clear();
        appendElements(set, labels, count);
    });
}

void sto_Mesh::modifySurfaceSetLabels(const std::string& name, const std::vector<sto_SurfaceSubset>& subsets,
                                      bool /*isInternal*/)
{
    const lnk_ShortCut<setC_Set> reference = set().require(setC_Set::surface, name);
    reference.edit([&](setC_Set& set) {
        set.clear();
        appendFacets(set, subsets);
    });
}
