#include "yld_MeshList.h"

#include "yld/impl/base/yld_Raise.h"
#include "yld/impl/model/yld_Mesh.h"

yld_MeshList::yld_MeshList() = default;

yld_MeshList::yld_MeshList(const yld_MeshHandle& mesh) { m_meshes.Append(mesh); }

yld_MeshList::yld_MeshList(const shr_List<yld_MeshHandle>& meshes) : m_meshes(meshes) {}

yld_MeshList::yld_MeshList(const yld_MeshList&) = default;
yld_MeshList& yld_MeshList::operator=(const yld_MeshList&) = default;
yld_MeshList::~yld_MeshList() = default;

int yld_MeshList::size() const { return m_meshes.Size(); }

const yld_MeshHandle& yld_MeshList::meshFromMeshIndex(int meshIndex) const
{
    // A mesh appended later stands for the same nodes under another name, so the last one counts.
    for (int i = m_meshes.Size() - 1; i >= 0; --i) {
        const yld_MeshHandle& each = m_meshes[i];
        if (each.IsValid() && each->isBound() && each->meshIndex() == meshIndex) return each;
    }
    yld_raise("Invalid part index.");
}

const yld_MeshHandle& yld_MeshList::mesh(const yld_String& name) const
{
    for (int i = 0; i < m_meshes.Size(); ++i) {
        const yld_MeshHandle& each = m_meshes[i];
        if (each.IsValid() && each->name() == name) return each;
    }
    yld_raise("Invalid mesh name.");
}

const yld_MeshHandle& yld_MeshList::mesh(int position) const { return m_meshes[position]; }

void yld_MeshList::merge(const yld_MeshHandle& mesh)
{
    bool found = false;
    for (int i = 0; i < m_meshes.Size(); ++i) {
        if (m_meshes[i].IsNull() || !(m_meshes[i]->name() == mesh->name())) continue;
        found = true;
        m_meshes.Get(i) = mesh;
    }
    if (!found) m_meshes.Append(mesh);
}

void yld_MeshList::merge(const yld_MeshList& meshes)
{
    for (int i = 0; i < meshes.size(); ++i) merge(yld_MeshHandle(meshes.mesh(i)));
}

void yld_MeshList::append(const yld_MeshHandle& mesh) { m_meshes.Append(mesh); }

bool yld_MeshList::hasName(const yld_String& name) const
{
    for (int i = 0; i < m_meshes.Size(); ++i) {
        if (m_meshes[i].IsValid() && m_meshes[i]->name() == name) return true;
    }
    return false;
}

bool yld_MeshList::hasSet(const yld_String& label) const
{
    for (int i = 0; i < m_meshes.Size(); ++i) {
        if (m_meshes[i].IsValid() && m_meshes[i]->hasSet(label)) return true;
    }
    return false;
}

bool yld_MeshList::hasMesh(const yld_MeshHandle& mesh) const
{
    for (int i = 0; i < m_meshes.Size(); ++i) {
        if (m_meshes[i] == mesh) return true;
    }
    return false;
}
