#include "platform/sto/sto_Assembly.h"

#include "platform/shape/shc_Topology.h"
#include "platform/sto/sto_Model.h"
#include "platform/text/exc_Exception.h"
#include "platform/text/msg_Format.h"

bool sto_AssemblyAllowedElementType(const std::string& type)
{
    return type == "POINTMASS" || shc_Topology::IsRigidNode(type) || shc_Topology::IsConnector(type);
}

void sto_Assembly::setName(const std::string& name)
{
    m_reference.edit([&](mshK_Assembly& assembly) { assembly.m_name = name; });
}

void sto_Assembly::AssignSection(const setC_Region& region, const std::string& sectionName, double offset)
{
    sto_requireRegion(region, modelFile());
    m_reference.edit([&](mshK_Assembly& changed) {
        changed.AssignSection(modelFile(), prtC_SectionAssignment(region, sectionName, offset));
    });
}

void sto_Assembly::AssignConnectorOrientation(const prtC_ConnectorOrientation& orientation)
{
    sto_requireRegion(orientation.m_region, modelFile());
    m_reference.edit([&](mshK_Assembly& changed) { changed.AssignConnectorOrientation(modelFile(), orientation); });
}

void sto_Assembly::setSolverInput(const std::string& text)
{
    m_reference.edit([&](mshK_Assembly& changed) { changed.m_solverInput = text; });
}

sto_Mesh sto_Assembly::Mesh(const sto_NodeArg& arg)
{
    if (hasMesh()) return mesh();
    const sto_Mesh made = sto_Mesh::create(m_reference.file(), sto_newMeshIndex(m_model), arg.dimension);
    m_reference.edit([&made](mshK_Assembly& assembly) { assembly.m_mesh = made.shortCut(); });
    return made;
}

sto_PartInstance sto_Assembly::instance(int index) const
{
    return sto_PartInstance(m_reference.fetch()->m_instances.at(index), m_model);
}

bool sto_Assembly::hasInstance(const std::string& name) const
{
    return m_reference.fetch()->m_instances.find(name) >= 0;
}

sto_PartInstance sto_Assembly::instance(const std::string& name) const
{
    const lnk_ShortCut<mshK_PartInstance> found = m_reference.fetch()->m_instances.get(name);
    if (found.isNull()) throw exc_TextException(msg_Format("There is no part instance named \"%s\".", name.c_str()));
    return sto_PartInstance(found, m_model);
}

sto_Mesh sto_Assembly::meshOf(const std::string& instanceName) const
{
    return instanceName.empty() ? mesh() : instance(instanceName).mesh();
}

sto_SetList sto_Assembly::set() const
{
    const std::shared_ptr<const mshK_Assembly> assembly = m_reference.fetch();
    return sto_SetList(assembly->m_sets, assembly->m_internalSets);
}

void sto_Assembly::addNodes(const int* labels, const float* coordinates, int count, const std::string& setName)
{
    // Before a mesh is made for them.
    const sto_NodeArg arg;
    if (!hasMesh()) sto_Mesh::checkNewNodes(labels, coordinates, count, arg.dimension);
    Mesh(arg).addNodes(labels, coordinates, count, std::string());
    if (setName.empty()) return;
    const sto_Set joined = set().find(setC_Set::nodeSet, setName);
    if (!joined.isValid()) {
        Nset(setName, {{std::string(), std::vector<int>(labels, labels + count)}}, false, false);
        return;
    }
    joined.shortCut().edit([&](setC_Set& changed) { mesh().appendNodes(changed, labels, count); });
}

void sto_Assembly::addElements(const sto_ElementArg& arg, const std::string& setName, const sto_ElemCtrlParams* params)
{
    mesh().addElements(arg, std::string(), nullptr);
    if (params) mesh().setControlsOfLastClass(*params);
    joinElements(arg, setName);
}

void sto_Assembly::addElements(const sto_ElementArg& arg, const std::vector<sto_ScopedNode>& nodes,
                               const std::vector<std::string>& names, const std::string& setName,
                               const sto_ElemCtrlParams* params)
{
    if (!hasMesh()) sto_Mesh::checkElementArg(arg);
    Mesh().addElements(arg, nodes, names, nullptr);
    if (params) mesh().setControlsOfLastClass(*params);
    joinElements(arg, setName);
}

void sto_Assembly::joinElements(const sto_ElementArg& arg, const std::string& setName)
{
    if (setName.empty()) return;
    const sto_Set joined = set().find(setC_Set::elementSet, setName);
    if (!joined.isValid()) {
        Elset(setName, {{std::string(), std::vector<int>(arg.labels, arg.labels + arg.numElements)}}, false);
        return;
    }
    joined.shortCut().edit([&](setC_Set& changed) { mesh().appendElements(changed, arg.labels, arg.numElements); });
}

sto_Set sto_Assembly::Nset(const std::string& name, const std::vector<sto_SetStruct>& groups, bool isInternal,
                           bool isUnsorted)
{
    sto_SetList list = set();
    setC_Set made = list.begin(setC_Set::nodeSet, name, isInternal, isUnsorted);
    for (const sto_SetStruct& group : groups) {
        meshOf(group.instanceName).appendNodes(made, group.labels.data(), static_cast<int>(group.labels.size()));
    }
    return list.add(m_reference.file(), std::move(made));
}

sto_Set sto_Assembly::Elset(const std::string& name, const std::vector<sto_SetStruct>& groups, bool isInternal)
{
    sto_SetList list = set();
    setC_Set made = list.begin(setC_Set::elementSet, name, isInternal, false);
    for (const sto_SetStruct& group : groups) {
        meshOf(group.instanceName).appendElements(made, group.labels.data(), static_cast<int>(group.labels.size()));
    }
    return list.add(m_reference.file(), std::move(made));
}

sto_Set sto_Assembly::Surface(const std::string& name, const std::vector<mshK_SurfStruct>& groups, bool isInternal)
{
    sto_SetList list = set();
    setC_Set made = list.begin(setC_Set::surface, name, isInternal, false);
    for (const mshK_SurfStruct& group : groups) meshOf(group.instanceName).appendFacets(made, group.subsets);
    return list.add(m_reference.file(), std::move(made));
}

void sto_Assembly::modifyNodeSetLabels(const std::string& name, const std::vector<sto_SetStruct>& groups,
                                       bool /*isInternal*/, bool isUnsorted)
{
    const lnk_ShortCut<setC_Set> reference = set().require(setC_Set::nodeSet, name);
    reference.edit([&](setC_Set& changed) {
        changed.clear();
        changed.m_unsorted = isUnsorted;
        for (const sto_SetStruct& group : groups) {
            meshOf(group.instanceName).appendNodes(changed, group.labels.data(), static_cast<int>(group.labels.size()));
        }
    });
}

void sto_Assembly::modifyElementSetLabels(const std::string& name, const std::vector<sto_SetStruct>& groups,
                                          bool /*isInternal*/, bool isUnsorted)
{
    const lnk_ShortCut<setC_Set> reference = set().require(setC_Set::elementSet, name);
    reference.edit([&](setC_Set& changed) {
        changed.clear();
        changed.m_unsorted = isUnsorted;
        for (const sto_SetStruct& group : groups) {
            meshOf(group.instanceName)
                .appendElements(changed, group.labels.data(), static_cast<int>(group.labels.size()));
        }
    });
}

void sto_Assembly::modifySurfaceLabels(const std::string& name, const std::vector<mshK_SurfStruct>& groups,
                                       bool /*isInternal*/)
{
    const lnk_ShortCut<setC_Set> reference = set().require(setC_Set::surface, name);
    reference.edit([&](setC_Set& changed) {
        changed.clear();
        for (const mshK_SurfStruct& group : groups) meshOf(group.instanceName).appendFacets(changed, group.subsets);
    });
}
