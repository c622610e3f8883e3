#ifndef STO_PART_H
#define STO_PART_H

#include "platform/model/mshK_Part.h"
#include "platform/sto/sto_MeshOwner.h"

extern template class sto_MeshOwner<mshK_Part>;

/// A handle on a stored part.
class sto_Part : public sto_MeshOwner<mshK_Part>
{
public:
    /// No part.
    sto_Part() = default;
    explicit sto_Part(const lnk_ShortCut<mshK_Part>& reference, const lnk_ShortCut<mshK_Model>& model = {})
        : sto_MeshOwner(reference, model)
    {
    }

    /// The code of the space: 2000 three dimensions, 2001 plane, 2002 axisymmetric.
    int space() const { return m_reference.fetch()->m_space; }
    /// The code of the type of body: 4001 deformable.
    int type() const { return m_reference.fetch()->m_type; }
    /// Whether the mesh has nodes or elements.
    bool hasMesh() const { return mesh().hasContents(); }
    int GetMeshIndex() const { return mesh().meshIndex(); }

    void addNodes(const int* labels, const float* coordinates, int count, const std::string& setName)
    {
        mesh().addNodes(labels, coordinates, count, setName);
    }
    void addElements(const sto_ElementArg& arg, const std::string& setName, const sto_ElemCtrlParams* params)
    {
        mesh().addElements(arg, setName, params);
    }
};

#endif
