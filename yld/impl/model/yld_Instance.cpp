#include "yld_Instance.h"

#include "platform/math/eng_Quaternion.h"
#include "platform/sto/sto_Model.h"
#include "yld/impl/base/yld_Convert.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld/impl/model/yld_Mesh.h"

#include <cmath>

yld_Instance::yld_Instance() = default;

yld_Instance::yld_Instance(const yld_String& name, yld_Enum::yld_DimensionEnum space, const sto_PartInstance& instance,
                           const yld_MeshHandle& mesh)
    : yld_Instance(name, space, yld_Enum::DEFORMABLE_BODY, instance, mesh)
{
}

yld_Instance::yld_Instance(const yld_String& name, yld_Enum::yld_DimensionEnum space, yld_Enum::yld_PartTypeEnum type,
                           const sto_PartInstance& instance, const yld_MeshHandle& mesh)
    : yld_PartOrInstance(name, space, type, instance, mesh)
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
    return makeNodeSet(nodeSets(isInternal, skipRefresh), name, labels, isInternal, isUnsorted, !isUnsorted);
}

yld_Set& yld_Instance::ElementSet(const yld_String& name, const yld_Sequence<int>& labels, bool isInternal,
                                  bool skipRefresh)
{
    return makeElementSet(elementSets(isInternal, skipRefresh), name, labels, isInternal);
}

yld_String yld_Instance::partName() const
{
    return yld_String(yld_guard([this] { return m_stored->partName(); }).c_str());
}

sto_PartInstance yld_Instance::instance() const { return *m_stored; }

yld_InstanceRepository::yld_InstanceRepository() : m_model(new sto_Model) {}

yld_InstanceRepository::yld_InstanceRepository(const sto_Model& model) : m_model(new sto_Model(model)) {}

yld_InstanceRepository::yld_InstanceRepository(const yld_InstanceRepository&) = default;
yld_InstanceRepository& yld_InstanceRepository::operator=(const yld_InstanceRepository&) = default;
yld_InstanceRepository::~yld_InstanceRepository() = default;

yld_Instance& yld_InstanceRepository::Instance(const yld_String& name, const yld_Part& part,
                                               const yld_Sequence<yld_Sequence<float>>& localCoordSystem)
{
    // Rotation vector, then translation.
    float placement[6] = {};
    if (!localCoordSystem.isEmpty()) {
        if (localCoordSystem.size() != 4) yld_raise("localCoordSystem should contain 4 sequences.");
        for (const yld_Sequence<float>& row : localCoordSystem) {
            for (const float each : row) {
                if (!std::isfinite(each)) {
                    yld_raise("The coordinate system of part instance \"%s\" has entries that are not numbers.", name);
                }
            }
        }
        const yld_Sequence<float>& origin = localCoordSystem[3];
        for (int i = 0; i < 3 && i < origin.size(); ++i) placement[3 + i] = origin[i];
        float matrix[9];
        for (int i = 0; i < 3; ++i) {
            const yld_Sequence<float>& base = localCoordSystem[i];
            if (base.size() != 3) yld_raise("Coord system base vectors should be of length 3.");
            const float length = std::sqrt(base[0] * base[0] + base[1] * base[1] + base[2] * base[2]);
            for (int k = 0; k < 3; ++k) matrix[3 * k + i] = base[k] / length;
        }
        eng_QuaternionFloat::fromMatrix(matrix, eng_DataType::QUATERNION_3D).rotationVector(placement);
        // A base vector of length zero gives no direction. Rotation and coordinates are then not numbers, so that
        // nobody takes them for right.
        for (const float each : matrix) {
            if (std::isnan(each)) placement[0] = placement[1] = placement[2] = each;
        }
    }
    yld_guard([&] {
        const sto_Part source = part.part();
        const sto_PartInstance made = m_model->PartInstanceFromPart(
            yld_Convert::text(part.name()), yld_Convert::text(name), source.GetMeshIndex(), placement);
        const yld_MeshHandle mesh(new yld_Mesh(made.mesh(), name, false));
        insert(name, yld_Instance(name, part.embeddedSpace(), made, mesh));
        m_meshes.merge(mesh);
    });
    return get(name);
}
