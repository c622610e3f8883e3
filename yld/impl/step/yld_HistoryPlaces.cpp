#include "yld/impl/step/yld_HistoryPlaces.h"

#include "platform/result/fld_OutputPosition.h"
#include "platform/shape/shc_Topology.h"
#include "platform/sto/sto_History.h"
#include "platform/sto/sto_Model.h"
#include "platform/text/prg_WIP.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld/impl/model/yld_Mesh.h"
#include "yld_EnumMap.h"

#include <limits>

namespace {

// Numbers of the store count from 0. One that cannot be counted on comes from a damaged file and stays.
int fromOne(int number) { return number < std::numeric_limits<int>::max() ? number + 1 : number; }

yld_Enum::yld_ElementFaceEnum faceOf(const sto_History& history)
{
    const shc_Topology* shape = history.elementClass().shape();
    constexpr int plane = 2;
    return mapFaceIndex(history.faceId(), shape && shape->Is3DShell(), shape && shape->SpaceDimension() == plane);
}

yld_SectionPoint sectionPointOf(const sto_History& history)
{
    const int index = history.locationIndex();
    if (index < 0) return yld_SectionPoint(0, yld_String());
    const sto_ElementClass elementClass = history.elementClass();
    // A number that the class lacks can only come from a file.
    const yld_String text(index < elementClass.numLocation() ? elementClass.sectionPointLabel(index).c_str() : "");
    return yld_SectionPoint(fromOne(index), text);
}

yld_HistoryPoint unknownPoint(const sto_History& history)
{
    prg_WIPBase::Warning(msg_Format("Unknown History Output position."));
    yld_String name(history.variableDescription());
    name += " : ";
    name += yld_String(history.variableLabel());
    return yld_HistoryPoint(name);
}

} // namespace

yld_Assembly& yld_HistoryPlaces::assembly()
{
    if (!m_assembly) {
        m_assembly.emplace(yld_String(m_store.name().c_str()), m_store, sto_Model());
        m_assembly->ReadMesh();
        m_assembly->ReadInstances();
    }
    return *m_assembly;
}

const yld_Instance& yld_HistoryPlaces::own()
{
    if (!m_own) {
        const yld_String name = assembly().name();
        const yld_MeshHandle mesh(m_store.hasMesh() ? new yld_Mesh(m_store.mesh(), name, true) : new yld_Mesh(name));
        m_own.emplace(name, yld_Enum::THREE_D, sto_PartInstance(), mesh);
    }
    return *m_own;
}

const yld_Instance* yld_HistoryPlaces::placeOf(const sto_History& history)
{
    const sto_PartInstance instance = history.partInstance();
    if (!instance.isValid()) return assembly().name().empty() ? nullptr : &own();
    const yld_String name(instance.name().c_str());
    if (name.empty()) return nullptr;
    if (!assembly().instance().isMember(name)) m_assembly.reset(); // placed since the last look
    const yld_InstanceRepository& instances = assembly().instance();
    return instances.isMember(name) ? &instances.constGet(name) : nullptr;
}

yld_HistoryPoint yld_HistoryPlaces::pointOf(const sto_History& history)
{
    using enum fld_OutputPosition::CurvePoint;
    const fld_OutputPosition::CurvePoint kind = fld_OutputPosition::of(history.type()).curvePoint;
    if (kind == UNKNOWN) return unknownPoint(history);
    if (kind == MODEL) return yld_HistoryPoint(assembly());
    if (kind == REGION) {
        const sto_Set set = history.set();
        if (!set.isValid()) return yld_HistoryPoint(yld_Set());
        return yld_HistoryPoint(yld_Set(yld_String(set.setLabel().c_str()), set, assembly().instance().meshes()));
    }

    const yld_Instance* place = placeOf(history);
    if (!place) place = &own();
    yld_HistoryPoint point;
    if (kind != PART_INSTANCE) {
        yld_Mesh& mesh = *place->mesh();
        const bool hasNode = kind == NODE || kind == ELEMENT_NODE;
        const yld_Node node = hasNode ? mesh.nodeAt(history.nodeNumber()) : yld_Node();
        const yld_Element element =
            kind == NODE ? yld_Element()
                         : mesh.elementAtClass(history.elementClass().classIndex(), history.elementNumber());
        switch (kind) {
        case fld_OutputPosition::CurvePoint::INTEGRATION_POINT:
            point = yld_HistoryPoint(element, fromOne(history.integrationPoint()), sectionPointOf(history));
            break;
        case FACE:
            point = yld_HistoryPoint(element, faceOf(history), 0);
            break;
        case ELEMENT_NODE:
            point = yld_HistoryPoint(element, node);
            break;
        case ELEMENT:
            point = yld_HistoryPoint(element, 0);
            break;
        case FACE_POINT:
            point = yld_HistoryPoint(element, faceOf(history), fromOne(history.integrationPoint()));
            break;
        default:
            point = yld_HistoryPoint(node);
            break;
        }
    }
    point.setInstance(*place);
    return point;
}

void yld_HistoryPlaces::readMeshes()
{
    m_byMesh.clear();
    const yld_InstanceRepository& instances = assembly().instance();
    yld_RepositoryIT<yld_String, yld_Instance> entry(instances);
    for (entry.first(); !entry.isDone(); entry.next()) {
        m_byMesh.emplace(entry.currentValue().mesh()->meshIndex(), entry.currentValue());
    }
    if (m_store.hasMesh()) m_byMesh.emplace(m_store.mesh().meshIndex(), own());
}

const yld_Instance* yld_HistoryPlaces::instanceOf(int meshIndex)
{
    auto found = m_byMesh.find(meshIndex);
    if (found == m_byMesh.end()) {
        m_assembly.reset();
        m_own.reset();
        readMeshes();
        found = m_byMesh.find(meshIndex);
    }
    return found == m_byMesh.end() ? nullptr : &found->second;
}
