#ifndef YLD_MESH_SEQUENCE_H
#define YLD_MESH_SEQUENCE_H

#include "platform/base/bas_Export.h"
#include "yld_MeshList.h"
#include "yld_Sequence.h"

/// What sequences of nodes and of elements have in common: all items of a mesh, or a chosen list of them. It keeps at
/// most the places of its items; each access makes the item from the mesh, so a sequence of millions takes little
/// memory. Reading moves a cursor in the mesh, so a sequence is for one thread.
/// @tparam Sequence  the public class
/// @tparam Item      yld_Node or yld_Element
template<class Sequence, class Item> class YLD_API yld_MeshSequence
{
public:
    int size() const;
    /// The item at a place of the sequence, counted from 0. Raises "Node index out of range." or "Element index out of
    /// range." where there is none.
    Item get(unsigned index) const;
    Item constGet(unsigned index) const { return get(index); }
    Item operator[](unsigned index) const { return get(index); }
    /// The name of the mesh: of its part or instance, or "rootAssembly".
    yld_String instanceName() const;

    /// Appends the item of this sequence's mesh that has the label of the argument; nothing else of the argument
    /// counts. A sequence of all items of its mesh stays as it is. Raises "SequenceNode is not associated with an
    /// discrete entity." or "SequenceElement is not associated with an discrete entity." on a mesh without a name, and
    /// "Node index out of range." or "Element not found." for a label that the mesh lacks.
    void append(const Item& item);
    /// Appends the chosen items of a sequence of the same mesh. One of all items of the mesh has chosen none, and
    /// appends nothing. Raises "Cannot Append. Sequence belongs to different part.".
    void append(const Sequence& other);
    /// The items at the places from `from` on, up to but without `to`.
    Sequence slice(const int& from, const int& to) const;
    /// These two compare items with their operator==. Cost: linear, each item is made.
    bool isMember(const Item& item) const;
    bool isEqual(const Sequence& other) const;
    friend bool operator==(const Sequence& a, const Sequence& b) { return a.isEqual(b); }

    const yld_MeshHandle& mesh() const { return m_mesh; }
    /// Whether it is all items of the mesh; and the places of the chosen ones if it is not.
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
