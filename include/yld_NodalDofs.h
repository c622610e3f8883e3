#ifndef YLD_NODAL_DOFS_H
#define YLD_NODAL_DOFS_H

#include "containers/shr_COW.h"
#include "platform/base/bas_Export.h"
#include "yld_Sequence.h"
#include "yld_Set.h"

class setC_Region;
class sto_Model;
class sto_Set;

/// Degrees of freedom of the nodes of a set, as a step that generates a substructure keeps or eliminates them.
class YLD_API yld_NodalDofs
{
public:
    yld_NodalDofs();
    /// @param model  the one to which the set of the region belongs
    yld_NodalDofs(const setC_Region& region, const yld_Sequence<int>& dofs, const sto_Model& model);
    yld_NodalDofs(const yld_NodalDofs&);
    yld_NodalDofs& operator=(const yld_NodalDofs&);
    ~yld_NodalDofs();

    /// The numbers of the degrees of freedom, as they were given.
    yld_Sequence<int> dofs() const { return m_dofs; }
    /// The set of the nodes; a set without members where there is no region. instanceNames() of it are empty texts, one
    /// for each mesh of the set.
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
