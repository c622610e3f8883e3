#ifndef STO_PART_INSTANCE_H
#define STO_PART_INSTANCE_H

#include "platform/model/mshK_PartInstance.h"
#include "platform/sto/sto_MeshOwner.h"

extern template class sto_MeshOwner<mshK_PartInstance>;

/// A handle on a stored part instance.
class sto_PartInstance : public sto_MeshOwner<mshK_PartInstance>
{
public:
    /// No instance.
    sto_PartInstance() = default;
    explicit sto_PartInstance(const lnk_ShortCut<mshK_PartInstance>& reference,
                              const lnk_ShortCut<mshK_Model>& model = {})
        : sto_MeshOwner(reference, model)
    {
    }

    bool IsPartInstance() const { return true; }
    /// Whether the mesh refers to nodes of other instances. Those of parts never do.
    bool isAssemblyInstance() const { return false; }
    std::string partName() const { return m_reference.fetch()->m_partName; }
    /// The type code of the part.
    int partType() const;
    /// Rotation vector and translation, six numbers.
    std::vector<double> placement() const;
};

#endif
