#ifndef YLD_SEQUENCE_ELEMENT_H
#define YLD_SEQUENCE_ELEMENT_H

#include "yld_Element.h"
#include "yld_MeshList.h"
#include "yld_Sequence.h"

/// All elements of a mesh, or a chosen list of them. Holds indices at most, never the elements themselves: each access
/// builds its element from the mesh. Reading moves the mesh's cursor, so a sequence is for one thread.
class YLD_API yld_SequenceElement
{
public:
    /// No elements, on an empty mesh of its own.
    yld_SequenceElement();
    /// Every element of the mesh.
    explicit yld_SequenceElement(const yld_MeshHandle& mesh);
    /// @param indices  places in the mesh, counted from 0
    yld_SequenceElement(const yld_Sequence<int>& indices, const yld_MeshHandle& mesh);
    yld_SequenceElement(const yld_SequenceElement&);
    yld_SequenceElement& operator=(const yld_SequenceElement&);
    ~yld_SequenceElement();

    int size() const;
    /// Raises "Element index out of range." where the mesh has no such element.
    yld_Element element(unsigned index) const;
    /// Exactly as element().
    yld_Element anyElement(unsigned index) const { return element(index); }
    int numElements() const { return size(); }
    yld_Element operator[](unsigned index) const { return element(index); }
    yld_Element get(unsigned index) const { return element(index); }
    yld_Element constGet(unsigned index) const { return element(index); }
    /// The name of the mesh: of its part or instance, or "rootAssembly".
    yld_String instanceName() const;

    /// Appends this mesh's element of the argument's label.
    /// Raises "SequenceElement is not associated with an discrete entity." on a mesh without a name.
    void append(const yld_Element& element);
    /// Appends the chosen indices of a sequence of the same mesh; a whole-mesh sequence has none to append.
    /// Raises "Cannot Append. Sequence belongs to different part.".
    void append(const yld_SequenceElement& other);
    /// The places from `from` up to but excluding `to`, on the same mesh.
    yld_SequenceElement slice(const int& from, const int& to) const;
    /// Linear: builds the elements one by one.
    bool isMember(const yld_Element& element) const;
    bool isEqual(const yld_SequenceElement& other) const;
    bool operator==(const yld_SequenceElement& other) const { return isEqual(other); }

    const yld_MeshHandle& mesh() const { return m_mesh; }
    bool isWholeMesh() const { return m_wholeMesh; }
    const yld_Sequence<int>& indices() const { return m_indices; }

private:
    bool m_wholeMesh = false;
    yld_Sequence<int> m_indices;
    yld_MeshHandle m_mesh;
};

#endif
