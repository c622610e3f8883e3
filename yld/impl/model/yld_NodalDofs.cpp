#include "yld_NodalDofs.h"

#include "platform/model/setC_Region.h"
#include "platform/sto/sto_Model.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld/impl/model/yld_Mesh.h"

yld_NodalDofs::yld_NodalDofs() : m_region(new setC_Region), m_set(new sto_Set), m_model(new sto_Model) {}

yld_NodalDofs::yld_NodalDofs(const setC_Region& region, const yld_Sequence<int>& dofs, const sto_Model& model)
    : m_region(new setC_Region(region)), m_set(new sto_Set(region)), m_dofs(dofs), m_model(new sto_Model(model))
{
}

yld_NodalDofs::yld_NodalDofs(const yld_NodalDofs&) = default;
yld_NodalDofs& yld_NodalDofs::operator=(const yld_NodalDofs&) = default;
yld_NodalDofs::~yld_NodalDofs() = default;

namespace {

sto_Mesh meshOf(const sto_Model& model, int meshIndex)
{
    const sto_Assembly assembly = model.rootAssembly();
    for (int i = 0; i < assembly.numInstances(); ++i) {
        const sto_Mesh mesh = assembly.instance(i).mesh();
        if (mesh.meshIndex() == meshIndex) return mesh;
    }
    for (int i = 0; i < model.numParts(); ++i) {
        const sto_Part part = model.part(i);
        if (part.hasMesh() && part.mesh().meshIndex() == meshIndex) return part.mesh();
    }
    if (assembly.hasMesh() && assembly.mesh().meshIndex() == meshIndex) return assembly.mesh();
    yld_raise("A set has members on a mesh that is not there; the file is damaged.");
}

} // namespace

yld_Set yld_NodalDofs::nset() const
{
    if (m_region->isNull()) return {};
    return yld_guard([this] {
        yld_MeshList meshes;
        for (int i = 0; i < m_set->numSubsets(); ++i) {
            meshes.append(
                yld_MeshHandle(new yld_Mesh(meshOf(*m_model, m_set->subSet(i).meshIndex()), yld_String(), false)));
        }
        return yld_Set(yld_String(m_set->setLabel().c_str()), *m_set, meshes);
    });
}
