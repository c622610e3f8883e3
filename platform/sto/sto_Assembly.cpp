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
    const std::shared_ptr<mshK_Assembly> assembly = m_reference.fetchWritable();
    assembly->m_name = name;
    m_reference.replace(assembly);
}

sto_Mesh sto_Assembly::Mesh(const sto_NodeArg& arg)
{
    if (hasMesh()) return mesh();
    const std::shared_ptr<mshK_Assembly> assembly = m_reference.fetchWritable();
    const sto_Mesh made = sto_Mesh::create(m_reference.file(), sto_newMeshIndex(m_model), arg.dimension);
    assembly->m_mesh = made.shortCut();
    m_reference.replace(assembly);
    return made;
}

sto_PartInstance sto_Assembly::instance(int index) const
{
    return sto_PartInstance(m_reference.fetch()->m_instances.at(index));
}

bool sto_Assembly::hasInstance(const std::string& name) const
{
    return m_reference.fetch()->m_instances.find(name) >= 0;
}

sto_PartInstance sto_Assembly::instance(const std::string& name) const
{
    const lnk_ShortCut<mshK_PartInstance> found = m_reference.fetch()->m_instances.get(name);
    if (found.isNull()) throw exc_TextException(msg_Format("There is no part instance named \"%s\".", name.c_str()));
    return sto_PartInstance(found);
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

namespace {

lnk_ShortCut<setC_Set> present(const sto_Set& set, const std::string& name)
{
    if (!set.isValid()) throw exc_TextException(msg_Format("Set \"%s\" does not exist.", name.c_str()));
    return set.shortCut();
}

setC_Set newSet(const sto_SetList& list, int type, const std::string& name, bool isInternal, bool isUnsorted)
{
    if (list.has(type, name)) throw exc_TextException(msg_Format("Duplicate set or surface name %s", name.c_str()));
    setC_Set set;
    set.m_label = name;
    set.m_type = type;
    set.m_internal = isInternal;
    set.m_unsorted = isUnsorted;
    return set;
}

} // namespace

void sto_Assembly::addNodes(const int* labels, const float* coordinates, int count, const std::string& setName)
{
    Mesh().addNodes(labels, coordinates, count, std::string());
    if (setName.empty()) return;
    const sto_Set joined = set().find(setC_Set::nodeSet, setName);
    if (!joined.isValid()) {
        Nset(setName, {{std::string(), std::vector<int>(labels, labels + count)}}, false, false);
        return;
    }
    const std::shared_ptr<setC_Set> changed = joined.shortCut().fetchWritable();
    mesh().appendNodes(*changed, labels, count);
    joined.shortCut().replace(changed);
}

void sto_Assembly::addElements(const sto_ElementArg& arg, const std::string& setName, const sto_ElemCtrlParams* params)
{
    mesh().addElements(arg, std::string(), params);
    joinElements(arg, setName);
}

void sto_Assembly::addElements(const sto_ElementArg& arg, const std::vector<sto_ScopedNode>& nodes,
                               const std::vector<std::string>& names, const std::string& setName,
                               const sto_ElemCtrlParams* params)
{
    Mesh().addElements(arg, nodes, names, params);
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
    const std::shared_ptr<setC_Set> changed = joined.shortCut().fetchWritable();
    mesh().appendElements(*changed, arg.labels, arg.numElements);
    joined.shortCut().replace(changed);
}

sto_Set sto_Assembly::Nset(const std::string& name, const std::vector<sto_SetStruct>& groups, bool isInternal,
                           bool isUnsorted)
{
    sto_SetList list = set();
    setC_Set made = newSet(list, setC_Set::nodeSet, name, isInternal, isUnsorted);
    for (const sto_SetStruct& group : groups) {
        meshOf(group.instanceName).appendNodes(made, group.labels.data(), static_cast<int>(group.labels.size()));
    }
    return list.add(m_reference.file(), std::move(made));
}

sto_Set sto_Assembly::Elset(const std::string& name, const std::vector<sto_SetStruct>& groups, bool isInternal)
{
    sto_SetList list = set();
    setC_Set made = newSet(list, setC_Set::elementSet, name, isInternal, false);
    for (const sto_SetStruct& group : groups) {
        meshOf(group.instanceName).appendElements(made, group.labels.data(), static_cast<int>(group.labels.size()));
    }
    return list.add(m_reference.file(), std::move(made));
}

sto_Set sto_Assembly::Surface(const std::string& name, const std::vector<mshK_SurfStruct>& groups, bool isInternal)
{
    sto_SetList list = set();
    setC_Set made = newSet(list, setC_Set::surface, name, isInternal, false);
    for (const mshK_SurfStruct& group : groups) meshOf(group.instanceName).appendFacets(made, group.subsets);
    return list.add(m_reference.file(), std::move(made));
}

void sto_Assembly::modifyNodeSetLabels(const std::string& name, const std::vector<sto_SetStruct>& groups,
                                       bool /*isInternal*/, bool isUnsorted)
{
    const lnk_ShortCut<setC_Set> reference = present(set().find(setC_Set::nodeSet, name), name);
    const std::shared_ptr<setC_Set> changed = reference.fetchWritable();
    changed->clear();
    changed->m_unsorted = isUnsorted;
    for (const sto_SetStruct& group : groups) {
        meshOf(group.instanceName).appendNodes(*changed, group.labels.data(), static_cast<int>(group.labels.size()));
    }
    reference.replace(changed);
}

void sto_Assembly::modifyElementSetLabels(const std::string& name, const std::vector<sto_SetStruct>& groups,
                                          bool /*isInternal*/)
{
    const lnk_ShortCut<setC_Set> reference = present(set().find(setC_Set::elementSet, name), name);
    const std::shared_ptr<setC_Set> changed = reference.fetchWritable();
    changed->clear();
    for (const sto_SetStruct& group : groups) {
        meshOf(group.instanceName).appendElements(*changed, group.labels.data(), static_cast<int>(group.labels.size()));
    }
    reference.replace(changed);
}

void sto_Assembly::modifySurfaceLabels(const std::string& name, const std::vector<mshK_SurfStruct>& groups,
                                       bool /*isInternal*/)
{
    const lnk_ShortCut<setC_Set> reference = present(set().find(setC_Set::surface, name), name);
    const std::shared_ptr<setC_Set> changed = reference.fetchWritable();
    changed->clear();
    for (const mshK_SurfStruct& group : groups) meshOf(group.instanceName).appendFacets(*changed, group.subsets);
    reference.replace(changed);
}
