#ifndef YLD_MESH_SEQUENCE_H
#define YLD_MESH_SEQUENCE_H

#include "platform/base/bas_Export.h"
#include "yld_MeshList.h"
#include "yld_Sequence.h"

/// What sequences of nodes and of elements have in common: all items of a mesh, or a chosen list of them. It holds
/// indices at most, never the items themselves: each access builds its item from the mesh. Reading moves the mesh's
/// cursor, so a sequence is for one thread.
/// @tparam Sequence  the public class
/// @tparam Item      yld_Node or yld_Element
template<class Sequence, class Item> class YLD_API yld_MeshSequence
{
public:
    int size() const;
    /// Raises "Node index out of range." or "Element index out of range." where the mesh has no such item.
    Item get(unsigned index) const;
    Item constGet(unsigned index) const { return get(index); }
    Item operator[](unsigned index) const { return get(index); }
    /// The name of the mesh: of its part or instance, or "rootAssembly".
    yld_String instanceName() const;

    /// Appends this mesh's item of the argument's label; nothing else of the argument counts. On a whole mesh the item
    /// is taken and the sequence stays whole.
    /// Raises "SequenceNode is not associated with an discrete entity." or "SequenceElement is not associated with an
    /// discrete entity." on a mesh without a name, and "Node index out of range." or "Element not found." for a label
    /// that the mesh lacks.
    void append(const Item& item);
    /// Appends the chosen indices of a sequence of the same mesh; a whole-mesh sequence has none to append.
    /// Raises "Cannot Append. Sequence belongs to different part.".
    void append(const Sequence& other);
    /// The places from `from` up to but excluding `to`, on the same mesh.
    Sequence slice(const int& from, const int& to) const;
    /// Linear: builds the items one by one.
    bool isMember(const Item& item) const;
    bool isEqual(const Sequence& other) const;
    friend bool operator==(const Sequence& a, const Sequence& b) { return a.isEqual(b); }

    const yld_MeshHandle& mesh() const { return m_mesh; }
    bool isWholeMesh() const { return m_wholeMesh; }
    const yld_Sequence<int>& indices() const { return m_indices; }

protected:
    yld_MeshSequence();
    explicit yld_MeshSequence(const yld_MeshHandle& mesh);
    yld_MeshSequence(const yld_Sequence<int>& indices, const yld_MeshHandle& mesh);
    yld_MeshSequence(const yld_MeshSequence&);
    yld_MeshSequence& operator=(const yld_MeshSequence&);
    ~yld_MeshSequence();

private:
    bool m_wholeMesh = false;
    yld_Sequence<int> m_indices;
    yld_MeshHandle m_mesh;
};

#endif
