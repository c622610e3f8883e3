#include "platform/sto/sto_Model.h"

#include "platform/store/fio_File.h"
#include "platform/sto/sto_StoStep.h"
#include "platform/text/exc_Exception.h"
#include "platform/text/msg_Format.h"

sto_Model sto_Model::create(const std::shared_ptr<fio_FileBody>& file, const std::string& name)
{
    mshK_Assembly assembly;
    assembly.m_name = "Assembly";
    assembly.m_instances = mrp_Container<mshK_PartInstance>::create(file);
    assembly.m_sets = mrp_Container<setC_Set>::create(file);
    assembly.m_internalSets = mrp_Container<setC_Set>::create(file);

    mshK_Model model;
    model.m_name = name;
    model.m_parts = mrp_Container<mshK_Part>::create(file);
    model.m_rootAssembly = lnk_ShortCut<mshK_Assembly>::create(file, std::move(assembly));
    model.m_steps = mrp_Container<mshK_Step>::create(file);
    const sto_Model made(lnk_ShortCut<mshK_Model>::create(file, std::move(model)));
    made.step(mshK_Step::InitialStepName());
    return made;
}

void sto_Model::setModelTitle(const std::string& title)
{
    const std::shared_ptr<mshK_Model> changed = m_reference.fetchWritable();
    changed->m_title = title;
    m_reference.replace(changed);
}

void sto_Model::setGlobalJob(const std::string& job)
{
    const std::shared_ptr<mshK_Model> changed = m_reference.fetchWritable();
    changed->m_globalJob = job;
    m_reference.replace(changed);
}

int sto_Model::dimension() const
{
    const int parts = numParts();
    for (int i = 0; i < parts; ++i) {
        if (part(i).space() == mshK_Part::spaceThreeD) return 3;
    }
    return parts > 0 ? 2 : 3;
}

sto_Part sto_Model::part(const std::string& name) const
{
    const lnk_ShortCut<mshK_Part> found = model()->m_parts.get(name);
    if (found.isNull()) throw exc_TextException(msg_Format("There is no part named \"%s\".", name.c_str()));
    return sto_Part(found);
}

sto_Part sto_Model::Part(const std::string& name, int space, int type)
{
    mrp_Container<mshK_Part> parts = model()->m_parts;
    const lnk_ShortCut<mshK_Part> present = parts.get(name);
    if (!present.isNull()) return sto_Part(present);

    const bool plane = space == mshK_Part::spaceTwoDPlanar || space == mshK_Part::spaceAxisymmetric;
    mshK_Part part;
    part.m_name = name;
    part.m_space = space;
    part.m_type = type;
    part.m_mesh = sto_Mesh::create(modelFile(), sto_newMeshIndex(m_reference), plane ? 2 : 3).shortCut();
    const lnk_ShortCut<mshK_Part> made = lnk_ShortCut<mshK_Part>::create(modelFile(), std::move(part));
    parts.append(name, made);
    return sto_Part(made);
}

sto_PartInstance sto_Model::PartInstanceFromPart(const std::string& partName, const std::string& instanceName,
                                                 int meshIndex, const float* placement)
{
    const sto_Part source = part(partName);
    if (source.GetMeshIndex() != meshIndex) {
        throw exc_TextException(msg_Format("Part \"%s\" has another mesh.", partName.c_str()));
    }
    const sto_Assembly assembly = rootAssembly();
    if (instanceName.empty()) throw exc_TextException("A part instance needs a name.");
    if (assembly.hasInstance(instanceName)) {
        throw exc_TextException(msg_Format("A part instance named \"%s\" already exists.", instanceName.c_str()));
    }

    const lnk_ShortCut<mshK_Mesh> mesh =
        sto_Mesh::createFrom(source.mesh(), sto_newMeshIndex(m_reference)).shortCut();
    mshK_PartInstance instance;
    instance.m_name = instanceName;
    instance.m_partName = partName;
    instance.m_part = source.shortCut();
    instance.m_mesh = mesh;
    instance.m_placement.assign(placement, placement + 6);
    const lnk_ShortCut<mshK_PartInstance> made =
        lnk_ShortCut<mshK_PartInstance>::create(modelFile(), std::move(instance));
    const std::shared_ptr<mshK_Mesh> placed = mesh.fetchWritable();
    placed->m_instance = made;
    mesh.replace(placed);
    mrp_Container<mshK_PartInstance> instances = assembly.shortCut().fetch()->m_instances;
    instances.append(instanceName, made);
    return sto_PartInstance(made);
}

int sto_newMeshIndex(const lnk_ShortCut<mshK_Model>& model)
{
    const std::shared_ptr<mshK_Model> changed = model.fetchWritable();
    const int index = changed->m_nextMeshIndex++;
    model.replace(changed);
    return index;
}
