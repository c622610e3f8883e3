#include "yld_Instance.h"

#include "platform/sto/sto_Model.h"
#include "yld/impl/yld_Mesh.h"
#include "yld/impl/yld_MeshInput.h"
#include "yld/impl/yld_Raise.h"

#include <algorithm>
#include <cmath>

yld_Instance::yld_Instance() : m_instance(new sto_PartInstance) {}

yld_Instance::yld_Instance(const yld_String& name, yld_Enum::yld_DimensionEnum space, const sto_PartInstance& instance,
                           const yld_MeshHandle& mesh)
    : yld_Instance(name, space, yld_Enum::DEFORMABLE_BODY, instance, mesh)
{
}

yld_Instance::yld_Instance(const yld_String& name, yld_Enum::yld_DimensionEnum space, yld_Enum::yld_PartTypeEnum type,
                           const sto_PartInstance& instance, const yld_MeshHandle& mesh)
    : yld_DiscreteEntity(name, space, type, mesh), m_instance(new sto_PartInstance(instance))
{
}

yld_Instance::yld_Instance(const yld_Instance&) = default;
yld_Instance& yld_Instance::operator=(const yld_Instance&) = default;
yld_Instance::~yld_Instance() = default;

void yld_Instance::addNodes(const yld_Sequence<int>&, const yld_Sequence<yld_Sequence<float>>&, const yld_String&)
{
    yld_raise("Nodes cannot be added to the instance.");
}

void yld_Instance::addElements(const yld_Sequence<int>&, const yld_Sequence<yld_Sequence<int>>&, const yld_String&,
                               const yld_String&, const yld_SectionCategory&, const yld_ElemCtrlParams&)
{
    yld_raise("Elements cannot be added to the instance.");
}

yld_Set& yld_Instance::NodeSet(const yld_String& name, const yld_Sequence<int>& labels, bool isInternal,
                               bool isUnsorted, bool skipRefresh)
{
    yld_SetRepository& sets = nodeSets(isInternal, skipRefresh);
    if (sets.isMember(name)) yld_raise("Duplicate set or surface name %s", name);
    std::vector<int> given = yld_MeshInput::values(labels);
    if (!isUnsorted) {
        std::sort(given.begin(), given.end());
        given.erase(std::unique(given.begin(), given.end()), given.end());
    }
    const int count = static_cast<int>(given.size());
    yld_MeshInput::guarded([&] {
        const int bad = m_instance->mesh().nodeData().CheckUserNodeLabels(given.data(), count);
        if (bad < count) yld_raise("Invalid node label %d", given[static_cast<std::size_t>(bad)]);
        const sto_Set made = m_instance->Nset(yld_MeshInput::text(name), given.data(), count, isInternal, isUnsorted);
        sets.insert(name, yld_Set(yld_String(made.setLabel().c_str()), made, m_mesh));
    });
    return sets.get(name);
}

yld_Set& yld_Instance::NodeSet(const yld_String& name, const yld_SequenceNode& nodes)
{
    if (!(nodes.instanceName() == m_name)) yld_raise("SequenceNode is not associated with this entity.");
    const int count = nodes.size();
    yld_Sequence<int> labels(count);
    for (int i = 0; i < count; ++i) labels.append(nodes.node(static_cast<unsigned>(i)).label());
    return NodeSet(name, labels, false, false);
}

yld_Set& yld_Instance::ElementSet(const yld_String& name, const yld_Sequence<int>& labels, bool isInternal,
                                  bool skipRefresh)
{
    yld_SetRepository& sets = elementSets(isInternal, skipRefresh);
    if (sets.isMember(name)) yld_raise("Duplicate set or surface name %s", name);
    const std::vector<int> given = yld_MeshInput::values(labels);
    const int count = static_cast<int>(given.size());
    yld_MeshInput::guarded([&] {
        const int bad = m_instance->mesh().elementData().CheckUserElementLabels(given.data(), count);
        if (bad < count) yld_raise("Invalid element label %d", given[static_cast<std::size_t>(bad)]);
        const sto_Set made = m_instance->Elset(yld_MeshInput::text(name), given.data(), count, isInternal);
        sets.insert(name, yld_Set(yld_String(made.setLabel().c_str()), made, m_mesh));
    });
    return sets.get(name);
}

yld_Set& yld_Instance::ElementSet(const yld_String& name, const yld_SequenceElement& elements)
{
    if (!(elements.instanceName() == m_name)) yld_raise("SequenceElement is not associated with this entity.");
    const int count = elements.size();
    yld_Sequence<int> labels(count);
    for (int i = 0; i < count; ++i) labels.append(elements.get(static_cast<unsigned>(i)).label());
    return ElementSet(name, labels, false);
}

yld_Set& yld_Instance::Surface(const yld_String& name, const yld_Sequence<int>& labels,
                               const yld_Sequence<yld_Enum::yld_ElementFaceEnum>& faces, bool isInternal)
{
    yld_SetRepository& sets = surfaces(false);
    if (sets.isMember(name)) yld_raise("Duplicate set or surface name %s", name);
    if (labels.size() != faces.size()) yld_raise("Number of surface faces and elements must agree.");
    const sto_Mesh mesh = yld_MeshInput::guarded([this] { return m_instance->mesh(); });
    const std::vector<sto_SurfaceSubset> subsets = yld_MeshInput::classify(labels, faces, mesh);
    yld_MeshInput::guarded([&] {
        const sto_Set made = m_instance->Surface(yld_MeshInput::text(name), subsets, isInternal);
        sets.insert(name, yld_Set(yld_String(made.setLabel().c_str()), made, m_mesh));
    });
    return sets.get(name);
}

yld_Set& yld_Instance::Surface(const yld_String& name, const yld_SequenceElement& elements,
                               const yld_Sequence<yld_Enum::yld_ElementFaceEnum>& faces)
{
    const int count = elements.size();
    yld_Sequence<int> labels(count);
    for (int i = 0; i < count; ++i) labels.append(elements.get(static_cast<unsigned>(i)).label());
    return Surface(name, labels, faces, false);
}

yld_String yld_Instance::partName() const
{
    return yld_String(yld_MeshInput::guarded([this] { return m_instance->partName(); }).c_str());
}

sto_PartInstance yld_Instance::instance() const { return *m_instance; }

yld_InstanceRepository::yld_InstanceRepository() : m_model(new sto_Model) {}

yld_InstanceRepository::yld_InstanceRepository(const sto_Model& model) : m_model(new sto_Model(model)) {}

yld_InstanceRepository::yld_InstanceRepository(const yld_InstanceRepository&) = default;
yld_InstanceRepository& yld_InstanceRepository::operator=(const yld_InstanceRepository&) = default;
yld_InstanceRepository::~yld_InstanceRepository() = default;

namespace {

// The rotation vector of a rotation matrix, by way of the unit quaternion with the largest component first, which is
// accurate for every angle up to half a turn.
void rotationVector(const float matrix[3][3], float vector[3])
{
    double m[3][3];
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) m[i][j] = static_cast<double>(matrix[i][j]);
    }
    double q[4]; // x, y, z, w
    const double trace = m[0][0] + m[1][1] + m[2][2];
    int largest = 0;
    for (int i = 1; i < 3; ++i) {
        if (m[i][i] > m[largest][largest]) largest = i;
    }
    if (trace > m[largest][largest]) {
        q[0] = m[2][1] - m[1][2];
        q[1] = m[0][2] - m[2][0];
        q[2] = m[1][0] - m[0][1];
        q[3] = 1.0 + trace;
    } else {
        const int i = largest;
        const int j = (i + 1) % 3;
        const int k = (i + 2) % 3;
        q[i] = 1.0 + m[i][i] - m[j][j] - m[k][k];
        q[j] = m[j][i] + m[i][j];
        q[k] = m[k][i] + m[i][k];
        q[3] = m[k][j] - m[j][k];
    }
    if (q[3] < 0.0) {
        for (double& component : q) component = -component;
    }
    const double sine = std::sqrt(q[0] * q[0] + q[1] * q[1] + q[2] * q[2]);
    const double factor = sine == 0.0 ? 0.0 : 2.0 * std::atan2(sine, q[3]) / sine;
    for (int i = 0; i < 3; ++i) vector[i] = static_cast<float>(factor * q[i]);
}

} // namespace

yld_Instance& yld_InstanceRepository::Instance(const yld_String& name, const yld_Part& part,
                                               const yld_Sequence<yld_Sequence<float>>& localCoordSystem)
{
    // Rotation vector, then translation.
    float placement[6] = {};
    if (!localCoordSystem.isEmpty()) {
        if (localCoordSystem.size() != 4) yld_raise("localCoordSystem should contain 4 sequences.");
        const yld_Sequence<float>& origin = localCoordSystem[3];
        for (int i = 0; i < 3 && i < origin.size(); ++i) placement[3 + i] = origin[i];
        float matrix[3][3];
        for (int i = 0; i < 3; ++i) {
            const yld_Sequence<float>& base = localCoordSystem[i];
            if (base.size() != 3) yld_raise("Coord system base vectors should be of length 3.");
            const float length = std::sqrt(base[0] * base[0] + base[1] * base[1] + base[2] * base[2]);
            for (int k = 0; k < 3; ++k) matrix[k][i] = base[k] / length;
        }
        rotationVector(matrix, placement);
    }
    yld_MeshInput::guarded([&] {
        const sto_Part source = part.part();
        const sto_PartInstance made = m_model->PartInstanceFromPart(
            yld_MeshInput::text(part.name()), yld_MeshInput::text(name), source.GetMeshIndex(), placement);
        const yld_MeshHandle mesh(new yld_Mesh(made.mesh(), name, false));
        insert(name, yld_Instance(name, part.embeddedSpace(), made, mesh));
        m_meshes.merge(mesh);
    });
    return get(name);
}
