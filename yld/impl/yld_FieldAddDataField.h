#ifndef YLD_FIELDADDDATAFIELD_H
#define YLD_FIELDADDDATAFIELD_H

#include "yld_FieldOutput.h"

#include "platform/sto/sto_FieldDescription.h"
#include "platform/store/fio_Buffer.h"

#include <vector>

/// Copies the blocks of a field into another, which may be in another database. Instances, sets and element classes are
/// found again by their names; rows go to the nodes and elements of the same labels.
class yld_FieldAddDataField
{
public:
    yld_FieldAddDataField(yld_FieldOutput& field, const yld_FieldOutput& source) : m_field(field), m_source(source) {}
    void run();

private:
    // The members of one class in a set: of a surface the place alone counts.
    struct Members
    {
        std::vector<int> labels;
        bool hasLabels = false;
        int size() const { return static_cast<int>(labels.size()); }
    };

    bool isCompatible() const;
    bool isCompatible(const yld_SubField& block) const;
    sto_Set setOf(const yld_SubField& block) const;
    sto_Set findSet(const sto_Set& like, const std::string& instance) const;
    static Members membersOf(const sto_Set& set, const sto_Mesh& mesh, int classIndex);
    sto_ElementClass classLike(const sto_ElementClass& onClass, int index, const sto_Mesh& mesh, int& found) const;
    sto_Mesh targetMesh(const std::string& instance) const;
    void copy(const yld_SubField& block);
    template<class T>
    fio_Buffer rows(const T* values, int width, const std::vector<int>& places, int perEntity) const;

    yld_FieldOutput& m_field;
    const yld_FieldOutput& m_source;
};

#endif
