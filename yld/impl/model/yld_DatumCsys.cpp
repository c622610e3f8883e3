#include "yld_DatumCsys.h"

#include "platform/sto/sto_Model.h"
#include "platform/sto/sto_StoToolset.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld_EnumMap.h"
#include "yld_Node.h"

yld_DatumCsys::yld_DatumCsys() : m_csys(new sto_DatumCsys) {}

yld_DatumCsys::yld_DatumCsys(const yld_String& name, const sto_DatumCsys& csys)
    : m_name(name), m_csys(new sto_DatumCsys(csys))
{
    for (int i = 0; i < 4; ++i) axis(i);
}

yld_DatumCsys::yld_DatumCsys(const yld_DatumCsys&) = default;
yld_DatumCsys& yld_DatumCsys::operator=(const yld_DatumCsys&) = default;
yld_DatumCsys::~yld_DatumCsys() = default;

sto_DatumCsys yld_DatumCsys::datumCsys() const { return *m_csys; }

yld_Enum::yld_DatumCsysTypeEnum yld_DatumCsys::type() const
{
    if (!m_csys->isValid()) return yld_Enum::UNDEFINED_CSYS;
    switch (yld_guard([this] { return m_csys->GetCsysType(); })) {
    case axs_CsysTypeEnm::CARTESIAN:
        return yld_Enum::CARTESIAN;
    case axs_CsysTypeEnm::CYLINDRICAL:
        return yld_Enum::CYLINDRICAL;
    case axs_CsysTypeEnm::SPHERICAL:
        return yld_Enum::SPHERICAL;
    default:
        return yld_Enum::UNDEFINED_CSYS;
    }
}

// The stored system may have been replaced since the last look.
const float* yld_DatumCsys::axis(int number) const
{
    if (m_csys->isValid()) {
        yld_guard([&] {
            if (number < 3) m_csys->axis(number, m_axes[number]);
            else m_csys->origin(m_axes[number]);
        });
    }
    return m_axes[number];
}

const float* yld_DatumCsys::xAxis() const { return axis(0); }
const float* yld_DatumCsys::yAxis() const { return axis(1); }
const float* yld_DatumCsys::zAxis() const { return axis(2); }
const float* yld_DatumCsys::origin() const { return axis(3); }

void yld_DatumCsys::summaryValue1(yld_String& out) const
{
    const bool valid = m_csys->isValid();
    yld_guard([&] {
        if (valid && m_csys->Is3nodedSystem()) out.append("Follows 3 nodes");
        else if (valid && m_csys->Is3nodedCircSystem()) out.append("Follows 3 nodes on circle");
        else if (valid && m_csys->Is6dofNodeSystem()) out.append("Follows single node");
        else out.append("Fixed");
    });
}

void yld_DatumCsys::summaryValue2(yld_String& out) const
{
    switch (type()) {
    case yld_Enum::CYLINDRICAL:
        out.append("Cylindrical");
        break;
    case yld_Enum::SPHERICAL:
        out.append("Spherical");
        break;
    default:
        out.append("Rectangular");
        break;
    }
}

yld_DatumCsysRepository::yld_DatumCsysRepository() : m_model(new sto_Model) {}

yld_DatumCsysRepository::yld_DatumCsysRepository(const sto_Model& model) : m_model(new sto_Model(model)) {}

yld_DatumCsysRepository::yld_DatumCsysRepository(const yld_DatumCsysRepository&) = default;
yld_DatumCsysRepository& yld_DatumCsysRepository::operator=(const yld_DatumCsysRepository&) = default;
yld_DatumCsysRepository::~yld_DatumCsysRepository() = default;

// The store is asked only for a name that is free here: what was deleted here is still there, and gives way.
template<class Make> yld_DatumCsys& yld_DatumCsysRepository::file(const yld_String& name, Make&& make)
{
    const bool existed = isMember(name);
    if (!existed) {
        yld_guard([&] { insert(name, yld_DatumCsys(name, make(std::string(name.cStr())))); });
    }
    sto_StoToolset::Instance().UpdateSceneForDatum(existed, name.cStr());
    return get(name);
}

void yld_DatumCsysRepository::threePoints(const yld_Sequence<float>& origin, const yld_Sequence<float>& point1,
                                          const yld_Sequence<float>& point2, float points[9])
{
    const yld_Sequence<float>* const given[3] = {&origin, &point1, &point2};
    for (int i = 0; i < 3; ++i) {
        for (int k = 0; k < 3; ++k) {
            points[3 * i + k] = given[i]->size() == 3 ? (*given[i])[k] : i > 0 && k == i - 1 ? 1.0f : 0.0f;
        }
    }
}

yld_DatumCsys& yld_DatumCsysRepository::DatumCsysByThreePoints(const yld_String& name,
                                                               yld_Enum::yld_DatumCsysTypeEnum type,
                                                               const yld_Sequence<float>& origin,
                                                               const yld_Sequence<float>& point1,
                                                               const yld_Sequence<float>& point2)
{
    return file(name, [&](const std::string& key) {
        float points[9];
        threePoints(origin, point1, point2, points);
        const geo_Vector from(points[0], points[1], points[2]);
        const geo_Vector x = geo_Vector(points[3], points[4], points[5]) - from;
        const geo_Vector z = x.cross(geo_Vector(points[6], points[7], points[8]) - from);
        return m_model->DatumCsys(key, x, z.cross(x), z, unMapDatumCsysType(type), from);
    });
}

namespace {

// Nodes as the store is told of them.
struct ThreeNodes
{
    ThreeNodes(const yld_Node& node1, const yld_Node& node2, const yld_Node& node3)
        : meshes{node1.meshIndex(), node2.meshIndex(), node3.meshIndex()}, labels{node1.label(), node2.label(),
                                                                                  node3.label()}
    {
    }

    int meshes[3];
    int labels[3];
};

} // namespace

yld_DatumCsys& yld_DatumCsysRepository::DatumCsysByThreeNodes(const yld_String& name,
                                                              yld_Enum::yld_DatumCsysTypeEnum type,
                                                              const yld_Node& node1, const yld_Node& node2,
                                                              const yld_Node& node3)
{
    return file(name, [&](const std::string& key) {
        const ThreeNodes nodes(node1, node2, node3);
        return m_model->DatumCsys3Nodes(key, nodes.meshes, nodes.labels, unMapDatumCsysType(type));
    });
}

yld_DatumCsys& yld_DatumCsysRepository::DatumCsysByThreeCircNodes(const yld_String& name,
                                                                  yld_Enum::yld_DatumCsysTypeEnum type,
                                                                  const yld_Node& node1, const yld_Node& node2,
                                                                  const yld_Node& node3)
{
    return file(name, [&](const std::string& key) {
        const ThreeNodes nodes(node1, node2, node3);
        return m_model->DatumCsys3CircNodes(key, nodes.meshes, nodes.labels, unMapDatumCsysType(type));
    });
}

yld_DatumCsys& yld_DatumCsysRepository::DatumCsysBy6dofNode(const yld_String& name,
                                                            yld_Enum::yld_DatumCsysTypeEnum type, const yld_Node& node)
{
    return file(name, [&](const std::string& key) {
        return m_model->DatumCsys6dofNode(key, node.meshIndex(), node.label(), unMapDatumCsysType(type));
    });
}

yld_DatumCsys& yld_DatumCsysRepository::DatumCsys(const yld_String& name, const yld_DatumCsys& csys)
{
    return file(name, [&](const std::string& key) {
        const sto_DatumCsys source = csys.datumCsys();
        return m_model->file(key, source.isValid() ? *source.datum() : axs_DatumCsys());
    });
}

void yld_DatumCsysRepository::DeleteDatumCsys(const yld_String& name) { remove(name); }
