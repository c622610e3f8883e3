#ifndef YLD_MESH_LIST_H
#define YLD_MESH_LIST_H

#include "containers/shr_COW.h"
#include "containers/shr_List.h"
#include "platform/base/bas_Export.h"
#include "yld_String.h"

class yld_Mesh;

/// The handle by which one mesh is shared among the sets, sequences and entities that belong to it.
using yld_MeshHandle = shr_CountedHld<yld_Mesh>;

/// The meshes that a set can reach: one for a set of a part, one per instance for a set of the assembly.
class YLD_API yld_MeshList
{
public:
    yld_MeshList();
    explicit yld_MeshList(const yld_MeshHandle& mesh);
    explicit yld_MeshList(const shr_List<yld_MeshHandle>& meshes);
    yld_MeshList(const yld_MeshList&);
    yld_MeshList& operator=(const yld_MeshList&);
    ~yld_MeshList();

    int size() const;
    /// The last mesh that carries this number in the model. Raises "Invalid part index.".
    const yld_MeshHandle& meshFromMeshIndex(int meshIndex) const;
    /// The first mesh of exactly this name. Raises "Invalid mesh name.".
    const yld_MeshHandle& mesh(const yld_String& name) const;
    /// By position, unchecked.
    const yld_MeshHandle& mesh(int position) const;

    /// Adds the mesh, or puts it in the place of every mesh that has its name.
    void merge(const yld_MeshHandle& mesh);
    void merge(const yld_MeshList& meshes);
    /// Appends without looking at names.
    void append(const yld_MeshHandle& mesh);
    /// Whether a mesh has this name; whether a mesh has a set of this label; whether it is one of these.
    bool hasName(const yld_String& name) const;
    bool hasSet(const yld_String& label) const;
    bool hasMesh(const yld_MeshHandle& mesh) const;

private:
    shr_List<yld_MeshHandle> m_meshes;
};

#endif
