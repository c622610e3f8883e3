#include "yld_Part.h"

#include "platform/model/prtC_Enum.h"
#include "platform/result/fld_Enum.h"
#include "platform/sto/sto_Model.h"
#include "platform/text/prg_WIP.h"
#include "yld/impl/base/yld_Convert.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld/impl/model/yld_Mesh.h"
#include "yld/impl/model/yld_MeshInput.h"
#include "yld_EnumMap.h"

yld_ElemCtrlParams::yld_ElemCtrlParams() : m_params(new sto_ElemCtrlParams) {}

yld_ElemCtrlParams::yld_ElemCtrlParams(yld_String text1, double value2, double value3, double value4, yld_String text5,
                                       yld_String text6, double value7, bool flag8, yld_String text9, double value10,
                                       double value11, double value12, double value13, double value14, double value15)
    : m_params(new sto_ElemCtrlParams), m_isSet(true)
{
    if (text6 == "Enhanced") value11 = value12 = value13 = 1.0;
    m_params->SetElemCtrlParams(text1.cStr(), value2, value3, value4, text5.cStr(), text6.cStr(), value7, flag8,
                                text9.cStr(), value10, value11, value12, value13, value14, value15);
}

yld_ElemCtrlParams::yld_ElemCtrlParams(const yld_ElemCtrlParams&) = default;
yld_ElemCtrlParams& yld_ElemCtrlParams::operator=(const yld_ElemCtrlParams&) = default;
yld_ElemCtrlParams::~yld_ElemCtrlParams() = default;

const sto_ElemCtrlParams& yld_ElemCtrlParams::params() const { return *m_params; }

yld_Part::yld_Part() = default;

yld_Part::yld_Part(const yld_String& name, yld_Enum::yld_DimensionEnum space, yld_Enum::yld_PartTypeEnum type,
                   const sto_Part& part, const yld_MeshHandle& mesh)
    : yld_PartOrInstance(name, space, type, part, mesh)
{
}

yld_Part::yld_Part(const yld_Part&) = default;
yld_Part& yld_Part::operator=(const yld_Part&) = default;
yld_Part::~yld_Part() = default;

sto_Part yld_Part::part() const { return *m_stored; }

void yld_Part::addNodes(const yld_Sequence<int>& labels, const yld_Sequence<yld_Sequence<float>>& coordinates,
                        const yld_String& setName)
{
    const bool plane = m_embeddedSpace == yld_Enum::TWO_D_PLANAR || m_embeddedSpace == yld_Enum::AXISYMMETRIC;
    const int width = plane ? 2 : 3;
    if (labels.isEmpty()) yld_raise("No node labels provided.");
    const std::vector<float> points = yld_MeshInput::coordinates(labels, coordinates, width);
    const std::vector<int> given = yld_Convert::values(labels);
    if (!setName.empty()) readSets(setC_Set::nodeSet, false, m_nodeSets);
    yld_guard([&] {
        sto_Mesh mesh = m_stored->mesh();
        if (mesh.nodeData().Dim() != width) yld_raise("The space of part \"%s\" is not that of its mesh.", m_name);
        m_stored->addNodes(given.data(), points.data(), static_cast<int>(given.size()), yld_Convert::text(setName));
    });
    bindMesh();
    if (!setName.empty()) joinSet(setName, yld_Enum::NODE_SET);
    yld_guard([this] { m_mesh->refresh(); });
}

// A mesh that was not bound has a name only if the part was read from the store so; either way it is bound now, for
// all who share the handle.
void yld_Part::bindMesh()
{
    if (m_mesh->isBound()) return;
    yld_guard([this] { *m_mesh = yld_Mesh(m_stored->mesh(), m_name, false); });
    m_elements = yld_SequenceElement(m_mesh);
    m_nodes = yld_SequenceNode(m_mesh);
}

// The sets that were there before have been read: one that stands alone in the repository would hide them.
void yld_Part::joinSet(const yld_String& name, yld_Enum::yld_SetTypeEnum type)
{
    const std::string wanted = yld_Convert::text(name);
    yld_guard([&] {
        const bool isNodes = type == yld_Enum::NODE_SET;
        const sto_Set set = isNodes ? m_stored->mesh().nset(wanted) : m_stored->mesh().elset(wanted);
        yld_SetRepository& sets = isNodes ? m_nodeSets : m_elementSets;
        if (!sets.insert(name, yld_Set(name, set, yld_MeshList(m_mesh)))) sets.get(name).clearMembers();
    });
}

void yld_Part::addElements(const yld_Sequence<int>& labels, const yld_Sequence<yld_Sequence<int>>& connectivity,
                           const yld_String& type, const yld_String& setName, const yld_SectionCategory& category,
                           const yld_ElemCtrlParams& params)
{
    int width = 0;
    const std::vector<int> nodes = yld_MeshInput::elements(labels, connectivity, type, width);
    const std::vector<int> given = yld_Convert::values(labels);
    const sto_ElementArg arg = yld_MeshInput::elementArg(type, given, nodes, width, category);
    if (!setName.empty()) readSets(setC_Set::elementSet, false, m_elementSets);
    yld_guard(
        [&] { m_stored->addElements(arg, yld_Convert::text(setName), params.isSet() ? &params.params() : nullptr); });
    if (!setName.empty()) joinSet(setName, yld_Enum::ELEMENT_SET);
}

yld_Set& yld_Part::NodeSet(const yld_String& name, const yld_Sequence<int>& labels, bool isInternal, bool isUnsorted)
{
    return makeNodeSet(nodeSets(false, false), name, labels, isInternal, isUnsorted, false);
}

yld_Set& yld_Part::ElementSet(const yld_String& name, const yld_Sequence<int>& labels, bool isInternal)
{
    return makeElementSet(elementSets(false, false), name, labels, isInternal);
}

yld_PartRepository::yld_PartRepository() : m_model(new sto_Model) {}

yld_PartRepository::yld_PartRepository(const sto_Model& model) : m_model(new sto_Model(model)) {}

yld_PartRepository::yld_PartRepository(const yld_PartRepository&) = default;
yld_PartRepository& yld_PartRepository::operator=(const yld_PartRepository&) = default;
yld_PartRepository::~yld_PartRepository() = default;

yld_Part& yld_PartRepository::Part(const yld_String& name, yld_Enum::yld_DimensionEnum space,
                                   yld_Enum::yld_PartTypeEnum type)
{
    if (type != yld_Enum::DEFORMABLE_BODY) {
        prg_WIP::Error(yld_String("Only parts of type yld_Enum::DEFORMABLE_BODY allowed."));
    }
    int code = mshK_Part::spaceThreeD;
    switch (space) {
    case yld_Enum::THREE_D:
        break;
    case yld_Enum::TWO_D_PLANAR:
        code = mshK_Part::spaceTwoDPlanar;
        break;
    case yld_Enum::AXISYMMETRIC:
        code = mshK_Part::spaceAxisymmetric;
        break;
    default:
        prg_WIP::Error(yld_String("Only yld_Enum::THREE_D, yld_Enum::TWO_D_PLANAR, or yld_Enum::AXISYMMETRIC parts "
                                  "allowed."));
        break;
    }
    yld_guard([&] {
        const sto_Part made = m_model->Part(yld_Convert::text(name), code, mshK_Part::typeDeformable);
        insert(name,
               yld_Part(name, mapDimension(static_cast<fld_DimensionEnm>(made.space())),
                        mapPartType(static_cast<prtC_PartTypeEnm>(made.type())), made, yld_MeshHandle(new yld_Mesh)));
    });
    return get(name);
}
