#ifndef YLD_SEQUENCE_ELEMENT_H
#define YLD_SEQUENCE_ELEMENT_H

#include "yld_Element.h"
#include "yld_MeshSequence.h"

class yld_SequenceElement;
extern template class yld_MeshSequence<yld_SequenceElement, yld_Element>;

/// All elements of a mesh, or a chosen list of them.
class YLD_API yld_SequenceElement : public yld_MeshSequence<yld_SequenceElement, yld_Element>
{
public:
    /// No elements, on an empty mesh of its own.
    yld_SequenceElement() = default;
    /// Every element of the mesh.
    explicit yld_SequenceElement(const yld_MeshHandle& mesh) : yld_MeshSequence(mesh) {}
    /// @param indices  places in the mesh, counted from 0
    yld_SequenceElement(const yld_Sequence<int>& indices, const yld_MeshHandle& mesh) : yld_MeshSequence(indices, mesh)
    {
    }

    /// As get(), both of them.
    yld_Element element(unsigned index) const { return get(index); }
    yld_Element anyElement(unsigned index) const { return get(index); }
    int numElements() const { return size(); }
};

#endif
