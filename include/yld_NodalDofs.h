#ifndef YLD_NODAL_DOFS_H
#define YLD_NODAL_DOFS_H

#include "containers/shr_COW.h"
#include "platform/base/bas_Export.h"
#include "yld_Sequence.h"
#include "yld_Set.h"

class setC_Region;
class sto_Model;
class sto_Set;

/// Degrees of freedom of the nodes of a set.
class YLD_API yld_NodalDofs
{
public:
    yld_NodalDofs();
    /// @param model  the one that the region's set is of
    yld_NodalDofs(const setC_Region& region, const yld_Sequence<int>& dofs, const sto_Model& model);
    yld_NodalDofs(const yld_NodalDofs&);
    yld_NodalDofs& operator=(const yld_NodalDofs&);
    ~yld_NodalDofs();

    /// The numbers of the degrees of freedom, as they were given.
    yld_Sequence<int> dofs() const { return m_dofs; }
    /// The nodes; their meshes have empty names, one for each group of the set. An empty set where there is
    /// no region.
    yld_Set nset() const;

    /// Whether it is the very same object.
    bool operator==(const yld_NodalDofs& other) const { return this == &other; }

private:
    shr_CountedHld<setC_Region> m_region;
    shr_CountedHld<sto_Set> m_set;
    yld_Sequence<int> m_dofs;
    shr_CountedHld<sto_Model> m_model;
};

using yld_SequenceNodalDofs = yld_Sequence<yld_NodalDofs>;

#endif
