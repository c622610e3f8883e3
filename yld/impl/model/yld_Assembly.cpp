#include "yld_Assembly.h"

#include "platform/model/prtC_Enum.h"
#include "platform/shape/shc_Topology.h"
#include "platform/sto/sto_Model.h"
#include "yld/impl/base/yld_Convert.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld/impl/model/yld_Mesh.h"
#include "yld/impl/model/yld_MeshInput.h"
#include "yld_EnumMap.h"

#include <unordered_map>
#include <utility>

yld_Assembly::yld_Assembly()
    : m_assembly(new sto_Assembly), m_model(new sto_Model), m_instances(new yld_InstanceRepository),
      m_datumCsyses(new yld_DatumCsysRepository)
{
}

yld_Assembly::yld_Assembly(const yld_String& name, const sto_Assembly& assembly, const sto_Model& model)
    : yld_DiscreteEntity(name, yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY, yld_MeshHandle(new yld_Mesh)),
      m_assembly(new sto_Assembly(assembly)), m_model(new sto_Model(model)),
      m_instances(new yld_InstanceRepository(model)), m_datumCsyses(new yld_DatumCsysRepository(model))
{
}

yld_Assembly::yld_Assembly(const yld_Assembly&) = default;
yld_Assembly& yld_Assembly::operator=(const yld_Assembly&) = default;
yld_Assembly::~yld_Assembly() = default;

sto_Assembly yld_Assembly::assembly() const { return *m_assembly; }

void yld_Assembly::setName(const shr_String& name)
{
    yld_guard([&] { m_assembly->setName(name.cStr()); });
    m_name = yld_String(name);
}

yld_InstanceRepository& yld_Assembly::instance() { return *m_instances; }

yld_InstanceRepository& yld_Assembly::instances()
{
    if (m_instances->isEmpty()) ReadInstances();
    return *m_instances;
}

const yld_InstanceRepository& yld_Assembly::instances() const
{
    if (m_instances->isEmpty()) ReadInstances();
    return *m_instances;
}

yld_Instance& yld_Assembly::Instance(const yld_String& name, const yld_Part& part,
                                     const yld_Sequence<yld_Sequence<float>>& localCoordSystem)
{
    if (instances().isMember(name)) yld_raise("A part instance named \"%s\" already exists.", name);
    return m_instances->Instance(name, part, localCoordSystem);
}

void yld_Assembly::ReadMesh()
{
    yld_guard([this] {
        if (!m_assembly->isValid() || !m_assembly->hasMesh()) return;
        // In the shared handle, so that whoever holds the mesh sees it.
        *m_mesh = yld_Mesh(m_assembly->mesh(), yld_String("rootAssembly"), true);
        m_elements = yld_SequenceElement(m_mesh);
        m_nodes = yld_SequenceNode(m_mesh);
        m_instances->meshes().merge(m_mesh);
    });
}

void yld_Assembly::ReadInstances() const
{
    if (!m_assembly->isValid()) return;
    yld_guard([this] {
        const int count = m_assembly->numInstances();
        for (int i = 0; i < count; ++i) {
            const sto_PartInstance stored = m_assembly->instance(i);
            if (!stored.IsPartInstance()) continue;
            const yld_String key(m_assembly->instanceName(i).c_str());
            const sto_Mesh storedMesh = stored.mesh();
            const yld_MeshHandle mesh(new yld_Mesh(storedMesh, key, stored.isAssemblyInstance()));
            yld_Enum::yld_DimensionEnum space = yld_Enum::THREE_D;
            if (storedMesh.nodeData().Dim() == 2) {
                const sto_ElementData elements = storedMesh.elementData();
                const shc_Topology* shape = elements.numClasses() > 0 ? elements.elementClass(0, 0).shape() : nullptr;
                space = shape && shape->IsAxisymmetric() ? yld_Enum::AXISYMMETRIC : yld_Enum::TWO_D_PLANAR;
            }
            const yld_Enum::yld_PartTypeEnum type = mapPartType(static_cast<prtC_PartTypeEnm>(stored.partType()));
            m_instances->meshes().merge(mesh);
            m_instances->insert(key, yld_Instance(key, space, type, stored, mesh));
        }
    });
}

void yld_Assembly::ReadDatumCsyses() const
{
    if (!m_model->isValid()) return;
    yld_guard([this] {
        for (int i = 0; i < m_model->numDatums(); ++i) {
            const sto_Datum datum = m_model->datum(i);
            if (datum.GetDatumType() != axs_DatumCsys::coordinateSystem) continue;
            const yld_String key(m_model->datumName(i).c_str());
            m_datumCsyses->insert(key, yld_DatumCsys(key, datum.CvtDatumCsys()));
        }
    });
}

yld_DatumCsysRepository& yld_Assembly::datumCsyses()
{
    if (m_datumCsyses->isEmpty()) ReadDatumCsyses();
    return *m_datumCsyses;
}

const yld_DatumCsysRepository& yld_Assembly::datumCsyses() const
{
    if (m_datumCsyses->isEmpty()) ReadDatumCsyses();
    return *m_datumCsyses;
}

yld_DatumCsys& yld_Assembly::DatumCsysByThreePoints(const yld_String& name, yld_Enum::yld_DatumCsysTypeEnum type,
                                                    const yld_Sequence<float>& origin,
                                                    const yld_Sequence<float>& point1,
                                                    const yld_Sequence<float>& point2)
{
    return datumCsyses().DatumCsysByThreePoints(name, type, origin, point1, point2);
}

yld_DatumCsys& yld_Assembly::DatumCsysByThreeNodes(const yld_String& name, yld_Enum::yld_DatumCsysTypeEnum type,
                                                   const yld_Node& node1, const yld_Node& node2, const yld_Node& node3)
{
    return datumCsyses().DatumCsysByThreeNodes(name, type, node1, node2, node3);
}

yld_DatumCsys& yld_Assembly::DatumCsysBy6dofNode(const yld_String& name, yld_Enum::yld_DatumCsysTypeEnum type,
                                                 const yld_Node& node)
{
    return datumCsyses().DatumCsysBy6dofNode(name, type, node);
}

yld_DatumCsys& yld_Assembly::DatumCsysByThreeCircNodes(const yld_String& name, yld_Enum::yld_DatumCsysTypeEnum type,
                                                       const yld_Node& node1, const yld_Node& node2,
                                                       const yld_Node& node3)
{
    return datumCsyses().DatumCsysByThreeCircNodes(name, type, node1, node2, node3);
}

yld_DatumCsys& yld_Assembly::DatumCsys(const yld_String& name, const yld_DatumCsys& csys)
{
    return datumCsyses().DatumCsys(name, csys);
}

void yld_Assembly::DeleteDatumCsys(const yld_String& name) { datumCsyses().DeleteDatumCsys(name); }

void yld_Assembly::SectionAssignment(const yld_Set& set, const yld_Section& section, double offset)
{
    // The class of stored connector sections has this number. What is compared is the number of the class of all
    // sections, so any section passes.
    constexpr int connectorSections = 0x2600045;
    if (set.type() != yld_Enum::ELEMENT_SET) yld_raise("Section assignment requires element sets.");
    if (yld_Section::typeIdentifier() == connectorSections) {
        yld_raise("Section assignment at the assembly level requires a Connector Section.");
    }
    yld_guard([&] {
        m_assembly->AssignSection(setC_Region(set.set().shortCut()), yld_Convert::text(section.name()), offset);
    });
}

namespace {

prtC_ConnectorOrientation::End connectorEnd(const yld_DatumCsys& csys, yld_Enum::yld_AxisEnum axis, double angle,
                                            const sto_Model& model)
{
    prtC_ConnectorOrientation::End end;
    end.datum = sto_datumRef(csys.datumCsys(), model.modelFile());
    if (!end.datum.IsNullRef()) end.datumName = model.model()->datumNameFromID(end.datum.m_id);
    end.axis = static_cast<int>(unMapAxisEnum(axis));
    end.angle = angle;
    return end;
}

prtC_ConnectorOrientation connectorOrientation(const yld_Set& set)
{
    if (set.type() != yld_Enum::ELEMENT_SET) yld_raise("Connector orientation assignment requires an element set.");
    prtC_ConnectorOrientation orientation;
    orientation.m_region = setC_Region(set.set().shortCut());
    return orientation;
}

} // namespace

void yld_Assembly::ConnectorOrientation(const yld_Set& set, const yld_DatumCsys& csys, yld_Enum::yld_AxisEnum axis,
                                        double angle, bool orient2sameAs1)
{
    yld_guard([&] {
        prtC_ConnectorOrientation orientation = connectorOrientation(set);
        orientation.m_first = connectorEnd(csys, axis, angle, *m_model);
        orientation.m_orient2sameAs1 = orient2sameAs1;
        m_assembly->AssignConnectorOrientation(orientation);
    });
}

void yld_Assembly::ConnectorOrientation(const yld_Set& set, const yld_DatumCsys& csys1, yld_Enum::yld_AxisEnum axis1,
                                        double angle1, const yld_DatumCsys& csys2, yld_Enum::yld_AxisEnum axis2,
                                        double angle2)
{
    yld_guard([&] {
        prtC_ConnectorOrientation orientation = connectorOrientation(set);
        orientation.m_first = connectorEnd(csys1, axis1, angle1, *m_model);
        orientation.m_second = connectorEnd(csys2, axis2, angle2, *m_model);
        m_assembly->AssignConnectorOrientation(orientation);
    });
}

void yld_Assembly::setSolverInput(const yld_String& text)
{
    yld_guard([&] { m_assembly->setSolverInput(yld_Convert::text(text)); });
}

yld_String yld_Assembly::solverInput() const
{
    return yld_String(yld_guard([this] { return m_assembly->solverInput(); }).c_str());
}

void yld_Assembly::ReadSets(bool includeInternal)
{
    if (!m_assembly->isValid()) return;
    yld_guard([&] {
        const sto_SetList list = m_assembly->set();
        const int length = list.length(includeInternal);
        for (int i = 0; i < length; ++i) {
            const yld_String label(list.setLabel(i).c_str());
            const yld_Set set(label, list.get(i), m_instances->meshes());
            switch (list.setType(i)) {
            case setC_Set::nodeSet:
                m_nodeSets.insert(label, set);
                break;
            case setC_Set::elementSet:
                m_elementSets.insert(label, set);
                break;
            case setC_Set::surface:
                m_surfaces.insert(label, set);
                break;
            default:
                yld_raise("Unknown Set type.");
            }
        }
    });
}

// A set over all meshes; the assembly's own mesh stands in it without a name.
yld_Set yld_Assembly::setOf(const yld_String& name, const sto_Set& set) const
{
    yld_MeshList meshes(m_instances->meshes());
    if (m_assembly->hasMesh()) {
        meshes.append(yld_MeshHandle(new yld_Mesh(m_assembly->mesh(), yld_String(), true)));
    }
    return yld_Set(name, set, meshes);
}

namespace {

struct GroupMessages
{
    const char* badInstance;
    const char* noMesh;
    const char* badInAssembly;
    const char* badInInstance;
};

constexpr GroupMessages nodeMessages = {
    "The nodes associated with entity named '%s' cannot be used to construct a set.",
    "No part instance name was specified for a group of nodes, but the assembly does not have a mesh.",
    "Invalid node label %d for the assembly.", "Invalid node label %d for instance %s"};

constexpr GroupMessages elementMessages = {
    "The elements associated with entity named '%s' cannot be used to construct a set.",
    "No part instance name was specified for a group of elements, but the assembly does not have a mesh.",
    "Invalid element label %d for the assembly.", "Invalid element label %d for instance %s"};

void requireGroups(int names, int groups)
{
    if (names != groups) yld_raise("Number of instance names and groups of labels does not match.");
}

// The groups of a new set, each tested before any is used.
std::vector<sto_SetStruct> groupsOf(const yld_Sequence<yld_String>& instanceNames,
                                    const yld_Sequence<yld_Sequence<int>>& labels,
                                    const yld_InstanceRepository& instances, const sto_Assembly& assembly, bool isNodes)
{
    requireGroups(instanceNames.size(), labels.size());
    const GroupMessages& messages = isNodes ? nodeMessages : elementMessages;
    std::vector<sto_SetStruct> groups;
    for (int i = 0; i < instanceNames.size(); ++i) {
        const yld_String& name = instanceNames[i];
        const bool own = name.empty();
        if (!own && !instances.isMember(name)) yld_raise(messages.badInstance, name);
        if (own && !assembly.hasMesh()) yld_raise(messages.noMesh);
        const sto_Mesh mesh = own ? assembly.mesh() : instances.constGet(name).instance().mesh();
        groups.push_back({yld_Convert::text(name), yld_Convert::values(labels[i])});
        const std::vector<int>& given = groups.back().labels;
        const int count = static_cast<int>(given.size());
        const int bad = isNodes ? mesh.nodeData().CheckUserNodeLabels(given.data(), count)
                                : mesh.elementData().CheckUserElementLabels(given.data(), count);
        if (bad == count) continue;
        if (own) yld_raise(messages.badInAssembly, given[static_cast<std::size_t>(bad)]);
        yld_raise(messages.badInInstance, given[static_cast<std::size_t>(bad)], name);
    }
    return groups;
}

std::vector<mshK_SurfStruct> surfaceGroupsOf(const yld_Sequence<yld_String>& instanceNames,
                                             const yld_Sequence<yld_Sequence<int>>& labels,
                                             const yld_Sequence<yld_Sequence<yld_Enum::yld_ElementFaceEnum>>& faces,
                                             const yld_InstanceRepository& instances)
{
    requireGroups(instanceNames.size(), labels.size());
    requireGroups(instanceNames.size(), faces.size());
    std::vector<mshK_SurfStruct> groups;
    for (int i = 0; i < instanceNames.size(); ++i) {
        const yld_Instance& owner = instances.constGet(instanceNames[i]);
        const sto_Mesh mesh = yld_guard([&owner] { return owner.instance().mesh(); });
        mshK_SurfStruct group{
            yld_Convert::text(instanceNames[i]), yld_MeshInput::classify(labels[i], faces[i], mesh), {}};
        for (const yld_Enum::yld_ElementFaceEnum face : faces[i]) group.faces.push_back(static_cast<int>(face) - 1);
        groups.push_back(std::move(group));
    }
    return groups;
}

} // namespace

yld_Set& yld_Assembly::NodeSet(const yld_String& name, const yld_Sequence<yld_String>& instanceNames,
                               const yld_Sequence<yld_Sequence<int>>& labels, bool isInternal, bool isUnsorted,
                               bool skipRefresh)
{
    yld_SetRepository& sets = nodeSets(isInternal, skipRefresh);
    if (sets.isMember(name)) yld_raise("Duplicate set or surface name %s", name);
    yld_guard([&] {
        const std::vector<sto_SetStruct> groups = groupsOf(instanceNames, labels, *m_instances, *m_assembly, true);
        const sto_Set made = m_assembly->Nset(yld_Convert::text(name), groups, isInternal, isUnsorted);
        sets.insert(name, setOf(name, made));
    });
    return sets.get(name);
}

yld_Set& yld_Assembly::ElementSet(const yld_String& name, const yld_Sequence<yld_String>& instanceNames,
                                  const yld_Sequence<yld_Sequence<int>>& labels, bool isInternal, bool skipRefresh)
{
    yld_SetRepository& sets = elementSets(isInternal, skipRefresh);
    if (sets.isMember(name)) yld_raise("Duplicate set or surface name %s", name);
    yld_guard([&] {
        const std::vector<sto_SetStruct> groups = groupsOf(instanceNames, labels, *m_instances, *m_assembly, false);
        const sto_Set made = m_assembly->Elset(yld_Convert::text(name), groups, isInternal);
        sets.insert(name, setOf(name, made));
    });
    return sets.get(name);
}

yld_Set& yld_Assembly::Surface(const yld_String& name, const yld_Sequence<yld_String>& instanceNames,
                               const yld_Sequence<yld_Sequence<int>>& labels,
                               const yld_Sequence<yld_Sequence<yld_Enum::yld_ElementFaceEnum>>& faces, bool isInternal)
{
    yld_SetRepository& sets = surfaces(false);
    if (sets.isMember(name)) yld_raise("Duplicate set or surface name %s", name);
    const std::vector<mshK_SurfStruct> groups = surfaceGroupsOf(instanceNames, labels, faces, *m_instances);
    yld_guard([&] {
        const sto_Set made = m_assembly->Surface(yld_Convert::text(name), groups, isInternal);
        sets.insert(name, setOf(name, made));
    });
    return sets.get(name);
}

// The members of the set have changed in the store. Instances and mesh may be younger than the set's list of meshes.
yld_Set& yld_Assembly::renewSet(yld_Set& set, const yld_Sequence<yld_String>& instanceNames) const
{
    const yld_MeshList& meshes = set.MeshList();
    for (const yld_String& name : instanceNames) {
        if (meshes.hasName(name) || (name.empty() && meshes.hasName(yld_String("rootAssembly")))) continue;
        set = setOf(set.name(), set.set());
        return set;
    }
    set.clearMembers();
    return set;
}

yld_Set& yld_Assembly::ModifyNodeSet(const yld_String& name, const yld_Sequence<yld_String>& instanceNames,
                                     const yld_Sequence<yld_Sequence<int>>& labels, bool isInternal, bool isUnsorted)
{
    yld_SetRepository& sets = nodeSets(isInternal, true);
    if (!sets.isMember(name)) yld_raise("Set \"%s\" does not exist.", name);
    return yld_guard([&]() -> yld_Set& {
        const std::vector<sto_SetStruct> groups = groupsOf(instanceNames, labels, *m_instances, *m_assembly, true);
        m_assembly->modifyNodeSetLabels(yld_Convert::text(name), groups, isInternal, isUnsorted);
        return renewSet(sets.get(name), instanceNames);
    });
}

yld_Set& yld_Assembly::ModifyElementSet(const yld_String& name, const yld_Sequence<yld_String>& instanceNames,
                                        const yld_Sequence<yld_Sequence<int>>& labels, bool isInternal)
{
    yld_SetRepository& sets = elementSets(isInternal, true);
    if (!sets.isMember(name)) yld_raise("Duplicate set or surface name %s", name);
    requireGroups(instanceNames.size(), labels.size());
    std::vector<sto_SetStruct> groups;
    for (int i = 0; i < instanceNames.size(); ++i) {
        if (!m_instances->isMember(instanceNames[i])) yld_raise(elementMessages.badInstance, instanceNames[i]);
        groups.push_back({yld_Convert::text(instanceNames[i]), yld_Convert::values(labels[i])});
    }
    return yld_guard([&]() -> yld_Set& {
        m_assembly->modifyElementSetLabels(yld_Convert::text(name), groups, isInternal, false);
        return renewSet(sets.get(name), instanceNames);
    });
}

yld_Set& yld_Assembly::ModifySurface(const yld_String& name, const yld_Sequence<yld_String>& instanceNames,
                                     const yld_Sequence<yld_Sequence<int>>& labels,
                                     const yld_Sequence<yld_Sequence<yld_Enum::yld_ElementFaceEnum>>& faces,
                                     bool isInternal)
{
    yld_SetRepository& sets = surfaces(isInternal);
    if (!sets.isMember(name)) yld_raise("Duplicate set or surface name %s", name);
    const std::vector<mshK_SurfStruct> groups = surfaceGroupsOf(instanceNames, labels, faces, *m_instances);
    return yld_guard([&]() -> yld_Set& {
        m_assembly->modifySurfaceLabels(yld_Convert::text(name), groups, isInternal);
        return renewSet(sets.get(name), instanceNames);
    });
}

void yld_Assembly::joinSet(const yld_String& name, yld_Enum::yld_SetTypeEnum type)
{
    yld_guard([&] {
        const bool isNodes = type == yld_Enum::NODE_SET;
        const sto_Set set =
            m_assembly->set().find(isNodes ? setC_Set::nodeSet : setC_Set::elementSet, yld_Convert::text(name));
        yld_SetRepository& sets = isNodes ? m_nodeSets : m_elementSets;
        const yld_String own[1];
        if (!sets.insert(name, setOf(name, set))) renewSet(sets.get(name), yld_Sequence<yld_String>(own, 1));
    });
}

void yld_Assembly::addNodes(const yld_Sequence<int>& labels, const yld_Sequence<yld_Sequence<float>>& coordinates,
                            const yld_String& setName)
{
    constexpr int width = 3;
    if (labels.isEmpty()) yld_raise("No node labels provided.");
    const std::vector<float> points = yld_MeshInput::coordinates(labels, coordinates, width);
    const std::vector<int> given = yld_Convert::values(labels);
    yld_guard([&] {
        if (m_assembly->hasMesh() && m_assembly->mesh().nodeData().Dim() != width) {
            yld_raise("The space of part \"%s\" is not that of its mesh.", m_name);
        }
        m_assembly->addNodes(given.data(), points.data(), static_cast<int>(given.size()), yld_Convert::text(setName));
    });
    ReadMesh();
    if (!setName.empty()) joinSet(setName, yld_Enum::NODE_SET);
    yld_guard([this] { m_mesh->refresh(); });
}

namespace {

void requireAllowed(const yld_String& type)
{
    if (!sto_AssemblyAllowedElementType(yld_Convert::text(type))) {
        yld_raise("Addition of elements of type \"%s\" is not permitted at the assembly level.", type);
    }
}

} // namespace

void yld_Assembly::addElements(const yld_Sequence<int>& labels, const yld_Sequence<yld_Sequence<int>>& connectivity,
                               const yld_String& type, const yld_String& setName, const yld_SectionCategory&,
                               const yld_ElemCtrlParams& params)
{
    requireAllowed(type);
    int width = 0;
    const std::vector<int> nodes = yld_MeshInput::elements(labels, connectivity, type, width);
    if (!yld_guard([this] { return m_assembly->hasMesh(); })) {
        throw exc_TextException("Element nodes do not exist at the assembly level.");
    }
    const std::vector<int> given = yld_Convert::values(labels);
    yld_guard([&] {
        sto_Mesh mesh = m_assembly->mesh();
        const int count = static_cast<int>(nodes.size());
        const int bad = mesh.nodeData().CheckUserNodeLabels(nodes.data(), count);
        if (bad < count) {
            yld_raise("Node number \"%d\" does not exist in the rootAssembly.\n", nodes[static_cast<std::size_t>(bad)]);
        }
        const sto_ElementArg arg = yld_MeshInput::elementArg(type, given, nodes, width, yld_SectionCategory());
        m_assembly->addElements(arg, yld_Convert::text(setName), params.isSet() ? &params.params() : nullptr);
    });
    if (!m_mesh->isBound()) ReadMesh();
    if (!setName.empty()) joinSet(setName, yld_Enum::ELEMENT_SET);
    yld_guard([this] { m_mesh->refresh(); });
}

void yld_Assembly::addElements(const yld_Sequence<int>& labels, const yld_Sequence<yld_Sequence<int>>& connectivity,
                               const yld_Sequence<yld_String>& instanceNames, const yld_String& type,
                               const yld_String& setName, const yld_SectionCategory&, const yld_ElemCtrlParams& params)
{
    requireAllowed(type);
    int width = 0;
    const std::vector<int> nodes = yld_MeshInput::elements(labels, connectivity, type, width);
    if (static_cast<std::size_t>(instanceNames.size()) != nodes.size()) {
        yld_raise("Instance names must be specified for all nodes in the connectivity array.");
    }
    // Each name is looked up once, however many nodes bear it.
    std::vector<std::string> names;
    std::vector<sto_NodeData> nodeData;
    std::vector<sto_ScopedNode> scoped(nodes.size());
    std::unordered_map<std::string, int> places;
    yld_guard([&] {
        for (int i = 0; i < instanceNames.size(); ++i) {
            const yld_String& name = instanceNames[i];
            if (name.empty()) continue;
            const auto [place, isNew] = places.emplace(yld_Convert::text(name), static_cast<int>(names.size()));
            scoped[static_cast<std::size_t>(i)].instance = place->second;
            if (!isNew) continue;
            if (!m_instances->isMember(name)) {
                yld_raise("Invalid part name provided to addNodes().\n Part Instance \"%s\" does not exist.", name);
            }
            names.push_back(place->first);
            nodeData.push_back(std::as_const(*m_instances).constGet(name).instance().mesh().nodeData());
        }
        const sto_NodeData own = m_assembly->hasMesh() ? m_assembly->mesh().nodeData() : sto_NodeData();
        for (std::size_t i = 0; i < nodes.size(); ++i) {
            sto_ScopedNode& node = scoped[i];
            node.label = nodes[i];
            const bool isOwn = node.instance < 0;
            node.index =
                (isOwn ? own : nodeData[static_cast<std::size_t>(node.instance)]).GetNodeIndexFromLabel(node.label);
            if (node.index >= 0) continue;
            if (isOwn) yld_raise("Node number \"%d\" does not exist in the rootAssembly.\n", node.label);
            yld_raise("Node number \"%d\" does not exist in the part instance \"%s\".\n", node.label,
                      names[static_cast<std::size_t>(node.instance)].c_str());
        }
        const std::vector<int> given = yld_Convert::values(labels);
        const sto_ElementArg arg = yld_MeshInput::elementArg(type, given, nodes, width, yld_SectionCategory());
        m_assembly->addElements(arg, scoped, names, yld_Convert::text(setName),
                                params.isSet() ? &params.params() : nullptr);
    });
    if (!m_mesh->isBound()) ReadMesh();
    if (!setName.empty()) joinSet(setName, yld_Enum::ELEMENT_SET);
    yld_guard([this] { m_mesh->refresh(); });
}
