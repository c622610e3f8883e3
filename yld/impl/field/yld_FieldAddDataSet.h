#ifndef YLD_FIELDADDDATASET_H
#define YLD_FIELDADDDATASET_H

#include "yld_FieldOutput.h"

#include "platform/sto/sto_FieldDescriptionBuilder.h"
#include "platform/sto/sto_PartInstance.h"
#include "yld/impl/field/yld_RowArray.h"

#include <vector>

class yld_Set;

/// Writes results for a set that exists: one row a location of the set, in the set's own order. It writes to the store
/// alone; the field shows the data when it is read again from its frame.
class yld_FieldAddDataSet
{
public:
    /// @param conjugate  the imaginary half; no rows for none
    yld_FieldAddDataSet(const yld_FieldOutput& field, yld_Enum::yld_ResultPositionEnum position, const yld_Set& set,
                        const yld_RowArray& data, const yld_SectionPoint& sectionPoint, const yld_RowArray& conjugate);
    void run();

    /// Raises unless results for a set can lie at a position of the store.
    static void checkPosition(int positionCode);
    /// Raise unless data of a type of the store can be written for node sets, and for element sets.
    static void checkNodeType(int typeCode);
    static void checkElementType(int typeCode);
    /// The component that each label names, for a type of the store; empty for types without labels.
    /// Raises for types without such a map, and for a label given twice.
    static std::vector<int> componentMap(int typeCode, const yld_Sequence<yld_String>& labels);
    /// Store codes of the invariants: MIN_PRINCIPAL is left out, and 0 ends the list.
    static std::vector<int> invariantCodes(const yld_Sequence<yld_Enum::yld_InvariantEnum>& invariants);
    /// Copies rows `first` to `end` into a holder of length() rows, and the conjugate ones into another. A row shorter
    /// than the description's width leaves the rest of the holder's row as it was.
    /// Raises unless the rows fill the holder, are there, and fit its width.
    static void copyRows(const fld_FieldDescription& description, int first, int end, const yld_RowArray& data,
                         const yld_RowArray& conjugate, float* holder, float* conjugateHolder);

private:
    int validate() const;
    void checkSet(int type) const;
    void checkMesh(const sto_Set& set, int& meshIndex) const;
    sto_PartInstance instanceOf(int meshIndex) const;
    void writeNodes(const sto_PartInstance& instance);
    void writeElements(const sto_PartInstance& instance);
    void write(const sto_FieldDescriptionBuilder& wanted, int first, int end);
    sto_FieldDescriptionBuilder describe(const sto_PartInstance& instance, int sectionIndex) const;

    const yld_FieldOutput& m_field;
    yld_Enum::yld_ResultPositionEnum m_position;
    const yld_Set& m_set;
    const yld_RowArray& m_data;
    const yld_SectionPoint& m_sectionPoint;
    const yld_RowArray& m_conjugate;
    int m_typeCode = 0;
    const fld_OutputPosition* m_place = nullptr;
    int m_meshIndex = -1;
};

#endif
