#include "platform/sto/sto_Model.h"

#include "platform/attribute/stpC_Step.h"
#include "platform/sto/sto_Procedure.h"
#include "platform/sto/sto_StepContainer.h"
#include "platform/sto/sto_StoStep.h"
#include "platform/store/fio_Error.h"
#include "platform/store/fio_File.h"
#include "platform/text/exc_Exception.h"
#include "platform/text/msg_Format.h"

#include <algorithm>
#include <utility>

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

void sto_Model::setModelTitle(const std::string& title) { change(&mshK_Model::m_title, title); }

void sto_Model::setGlobalJob(const std::string& job) { change(&mshK_Model::m_globalJob, job); }

void sto_Model::setShellToSolid(bool shellToSolid) { change(&mshK_Model::m_shellToSolid, shellToSolid); }

void sto_Model::setSolverInput(const std::string& text) { change(&mshK_Model::m_solverInput, text); }

void sto_Model::setTopLevelSolverInput(const std::string& text) { change(&mshK_Model::m_topLevelSolverInput, text); }

void sto_Model::DefineCyclicSymmetry(const float* startPoint, const float* endPoint, int sectors)
{
    m_reference.edit([&](mshK_Model& changed) {
        changed.m_sectorAxis.assign(startPoint, startPoint + 3);
        changed.m_sectorAxis.insert(changed.m_sectorAxis.end(), endPoint, endPoint + 3);
        changed.m_sectors = sectors;
    });
}

void sto_Model::setCyclicSymmTieConstraints(const std::vector<std::string>& names)
{
    change(&mshK_Model::m_sectorTies, names);
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
    return sto_Part(found, m_reference);
}

sto_Part sto_Model::Part(const std::string& name, int space, int type)
{
    mrp_Container<mshK_Part> parts = model()->m_parts;
    const lnk_ShortCut<mshK_Part> present = parts.get(name);
    if (!present.isNull()) return sto_Part(present, m_reference);

    const bool plane = space == mshK_Part::spaceTwoDPlanar || space == mshK_Part::spaceAxisymmetric;
    mshK_Part part;
    part.m_name = name;
    part.m_space = space;
    part.m_type = type;
    part.m_mesh = sto_Mesh::create(modelFile(), sto_newMeshIndex(m_reference), plane ? 2 : 3).shortCut();
    const lnk_ShortCut<mshK_Part> made = lnk_ShortCut<mshK_Part>::create(modelFile(), std::move(part));
    parts.append(name, made);
    return sto_Part(made, m_reference);
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

    const lnk_ShortCut<mshK_Mesh> mesh = sto_Mesh::createFrom(source.mesh(), sto_newMeshIndex(m_reference)).shortCut();
    mshK_PartInstance instance;
    instance.m_name = instanceName;
    instance.m_partName = partName;
    instance.m_part = source.shortCut();
    instance.m_mesh = mesh;
    instance.m_placement.assign(placement, placement + 6);
    const lnk_ShortCut<mshK_PartInstance> made =
        lnk_ShortCut<mshK_PartInstance>::create(modelFile(), std::move(instance));
    mesh.edit([&made](mshK_Mesh& placed) { placed.m_instance = made; });
    mrp_Container<mshK_PartInstance> instances = assembly.shortCut().fetch()->m_instances;
    instances.append(instanceName, made);
    return sto_PartInstance(made, m_reference);
}

sto_Datum sto_Model::datum(const std::string& name) const
{
    const lnk_ShortCut<axs_DatumCsys> found = model()->m_datums.get(name);
    if (found.isNull()) throw exc_TextException(msg_Format("There is no datum named \"%s\".", name.c_str()));
    return sto_Datum(found);
}

sto_DatumCsys sto_Model::file(const std::string& name, axs_DatumCsys datum)
{
    datum.m_name = name;
    const lnk_ShortCut<axs_DatumCsys> present = model()->m_datums.get(name);
    if (present.isValid()) {
        datum.m_id = present.fetch()->m_id;
        present.replace(std::make_shared<axs_DatumCsys>(std::move(datum)));
        return sto_DatumCsys(present);
    }
    m_reference.edit([&](mshK_Model& changed) {
        // Datums are never taken out, so their number is an id that none has.
        datum.m_id = changed.m_datums.size() + 1;
        prtC_append(modelFile(), changed.m_datums, name, std::move(datum));
    });
    return sto_DatumCsys(model()->m_datums.get(name));
}

sto_DatumCsys sto_Model::DatumCsys(const std::string& name, const geo_Vector& x, const geo_Vector& y,
                                   const geo_Vector& z, axs_CsysTypeEnm type, const geo_Vector& origin)
{
    axs_DatumCsys made;
    made.setAxes(origin, x, y, z);
    made.m_systemType = static_cast<int>(type);
    return file(name, std::move(made));
}

geo_Vector sto_Model::nodePosition(int meshIndex, int label) const
{
    std::vector<sto_Mesh> meshes;
    const sto_Assembly assembly = rootAssembly();
    for (int i = 0; i < assembly.numInstances(); ++i) meshes.push_back(assembly.instance(i).mesh());
    if (assembly.hasMesh()) meshes.push_back(assembly.mesh());
    for (int i = 0; i < numParts(); ++i) meshes.push_back(part(i).mesh());
    for (const sto_Mesh& mesh : meshes) {
        if (mesh.meshIndex() != meshIndex) continue;
        const int node = mesh.nodeData().GetNodeIndexFromLabel(label);
        if (node < 0) break;
        float place[3];
        mesh.coordinates()->GetCoord(node, place);
        return geo_Vector(place[0], place[1], place[2]);
    }
    throw exc_TextException(msg_Format("Invalid node label %d", label));
}

axs_DatumCsys sto_Model::followingNodes(int follows, const int meshIndices[], const int labels[],
                                        axs_CsysTypeEnm type) const
{
    geo_Vector places[3];
    axs_DatumCsys made;
    for (int i = 0; i < axs_DatumCsys::numNodes(follows); ++i) {
        places[i] = nodePosition(meshIndices[i], labels[i]);
        made.m_nodes.append(meshIndices[i], labels[i]);
    }
    if (follows == axs_DatumCsys::threeNodes) made.setAxesThrough(places[0], places[1], places[2]);
    else if (follows == axs_DatumCsys::threeNodesOnCircle) made.setAxesOnCircle(places[0], places[1], places[2]);
    else made.setAxes(places[0], {1, 0, 0}, {0, 1, 0}, {0, 0, 1});
    made.m_systemType = static_cast<int>(type);
    made.m_follows = follows;
    return made;
}

sto_DatumCsys sto_Model::DatumCsys3Nodes(const std::string& name, const int meshIndices[3], const int labels[3],
                                         axs_CsysTypeEnm type)
{
    return file(name, followingNodes(axs_DatumCsys::threeNodes, meshIndices, labels, type));
}

sto_DatumCsys sto_Model::DatumCsys3CircNodes(const std::string& name, const int meshIndices[3], const int labels[3],
                                             axs_CsysTypeEnm type)
{
    return file(name, followingNodes(axs_DatumCsys::threeNodesOnCircle, meshIndices, labels, type));
}

sto_DatumCsys sto_Model::DatumCsys6dofNode(const std::string& name, int meshIndex, int label, axs_CsysTypeEnm type)
{
    return file(name, followingNodes(axs_DatumCsys::sixDofNode, &meshIndex, &label, type));
}

lnk_ShortCut<secC_Section> sto_Model::Section(const std::string& name, int subType)
{
    const lnk_ShortCut<secC_Section> present = section(name);
    if (present.isValid()) return present;
    secC_Section made;
    made.m_name = name;
    made.m_subType = subType;
    m_reference.edit([&](mshK_Model& changed) { prtC_append(modelFile(), changed.m_sections, name, std::move(made)); });
    return section(name);
}

namespace {

mrp_Container<mshK_Step> stepsOf(const lnk_ShortCut<mshK_Model>& model)
{
    const mrp_Container<mshK_Step> steps = model.fetch()->m_steps;
    if (steps.isNull()) fio_raise(model.file()->path(), "the model has no list of steps; the file is damaged");
    return steps;
}

sto_StoStep enter(const lnk_ShortCut<mshK_Model>& model, mshK_Step step, const shr_String& previous)
{
    const auto& file = model.file();
    mrp_Container<mshK_Step> steps = stepsOf(model);
    const bool hasInitial = steps.find(mshK_Step::InitialStepName()) >= 0;
    step.m_stepId = steps.size() + (hasInitial ? 0 : 1);
    step.m_previousName = previous.cStr();
    const std::string name = step.m_name;
    // What is found under a name stays: a step that comes in under a name that is taken goes behind its namesake.
    const int place = std::max(sto_StepContainer::placeBehind(steps, previous.cStr()), steps.find(name) + 1);
    const lnk_ShortCut<mshK_Step> created = lnk_ShortCut<mshK_Step>::create(file, std::move(step));
    steps.insert(place, name, created);
    return sto_StoStep(created);
}

mshK_Step describe(const shr_String& name, const shr_String& description, int procedure, double period)
{
    mshK_Step step;
    step.m_name = name.cStr();
    step.m_description = description.cStr();
    step.m_procedure = procedure;
    step.m_domain = sto_Procedure::domain(procedure);
    step.m_period = period;
    return step;
}

} // namespace

sto_StoStep sto_Model::GeneralStep(int, const shr_String& name, const shr_String& description, int procedure,
                                   double period, const shr_String& previous, int flag) const
{
    mshK_Step step = describe(name, description, procedure, period);
    step.m_isNlgeom = flag == 1;
    return enter(m_reference, std::move(step), previous);
}

sto_StoStep sto_Model::PerturbationStep(int, const shr_String& name, const shr_String& description, int procedure,
                                        double period, const shr_String& previous) const
{
    mshK_Step step = describe(name, description, procedure, period);
    step.m_isPerturbation = true;
    return enter(m_reference, std::move(step), previous);
}

sto_StoStep sto_Model::Step(int, const shr_String& name, const shr_String& description, const stpC_Step& settings,
                            const shr_String& previous) const
{
    const pcl_Persistent& stored = settings.persistent();
    mshK_Step step = describe(name, description, settings.procedure(), settings.timePeriod());
    step.m_isNlgeom = settings.isNlgeom();
    step.m_isPerturbation = settings.isPerturbation();
    step.m_settings = lnk_ShortCut<stpC_Step>(modelFile(), lnk_create(modelFile(), stored.Clone()));
    step.m_settingsClass = stored.Metadata().name();
    return enter(m_reference, std::move(step), previous);
}

sto_StoStep sto_Model::step(const shr_String& name) const
{
    mrp_Container<mshK_Step> steps = stepsOf(m_reference);
    lnk_ShortCut<mshK_Step> found = steps.get(name.cStr());
    if (found.isValid()) return sto_StoStep(found);
    if (name.compare(mshK_Step::InitialStepName()) != 0) {
        fio_raise(modelFile()->path(), "the model has no step named \"" + std::string(name.cStr()) + "\"");
    }
    mshK_Step initial;
    initial.m_name = mshK_Step::InitialStepName();
    initial.m_isAnalysisStep = false;
    found = lnk_ShortCut<mshK_Step>::create(modelFile(), std::move(initial));
    steps.insert(0, mshK_Step::InitialStepName(), found);
    return sto_StoStep(found);
}

int sto_newMeshIndex(const lnk_ShortCut<mshK_Model>& model)
{
    int index = 0;
    model.edit([&index](mshK_Model& changed) { index = changed.m_nextMeshIndex++; });
    return index;
}
