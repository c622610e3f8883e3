#ifndef YLD_FIELDCOPY_H
#define YLD_FIELDCOPY_H

#include "platform/sto/sto_Assembly.h"
#include "platform/sto/sto_Field.h"
#include "platform/sto/sto_FieldBlock.h"
#include "yld_FieldOutput.h"

#include <vector>

/// Writes the blocks of one field into another, which may stand in another step or another database. Instances, sets
/// and element classes are found there by their names, nodes and elements by their labels.
class yld_FieldCopy
{
public:
    /// Both are borrowed.
    yld_FieldCopy(yld_FieldOutput& target, const yld_FieldOutput& source) : m_target(target), m_source(source) {}

    /// Whether the target's model has what the source's blocks are about; warns of the first thing that it lacks.
    bool isCompatible() const;
    /// Raises when the two are not compatible.
    void run();

private:
    // What the values of a block belong to, in their order.
    struct Members
    {
        std::vector<int> labels;
        std::vector<int> facets;
        bool operator==(const Members&) const = default;
    };
    // A block's place in the target.
    struct Place
    {
        sto_PartInstance instance;
        sto_Mesh mesh;
        int classIndex = -1;
        sto_Set set;
    };

    bool isCompatible(const yld_SubField& block) const;
    void copy(const yld_SubField& block);
    Place placeOf(const yld_SubField& block, const std::vector<int>& rows) const;
    sto_Set setFor(const yld_SubField& block, const Place& place, const std::vector<int>& rows) const;
    const sto_Assembly& assembly() const { return m_target.m_assembly.ConstGet(); }
    bool hasAssembly() const { return m_target.m_assembly.IsValid() && assembly().isValid(); }
    sto_Mesh targetMesh(const fld_FieldDescription& description) const;

    static sto_Set setOf(const yld_SubField& block);
    static int findClass(const sto_Mesh& mesh, const sto_ElementClass& like, int preferred);
    static Members membersOf(const sto_FieldBlock& block);
    static Members shown(const Members& all, const std::vector<int>& rows, int perMember);

    yld_FieldOutput& m_target;
    const yld_FieldOutput& m_source;
};

#endif
