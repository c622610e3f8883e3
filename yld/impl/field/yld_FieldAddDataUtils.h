#ifndef YLD_FIELDADDDATAUTILS_H
#define YLD_FIELDADDDATAUTILS_H

#include "yld_FieldOutput.h"

#include "platform/sto/sto_Field.h"
#include "platform/sto/sto_FieldDescriptionBuilder.h"
#include "platform/sto/sto_PartInstance.h"
#include "platform/store/fio_Buffer.h"
#include "yld/impl/field/yld_RowArray.h"

#include <vector>

/// Writes results: sorts rows that come by user label into the store's blocks, one for each element class.
class yld_FieldAddDataUtils
{
public:
    /// @param instance   a handle that is not valid for WHOLE_MODEL
    /// @param labels     numLabels user labels, borrowed
    /// @param conjugate  the imaginary half; no rows for none
    yld_FieldAddDataUtils(yld_FieldOutput& field, yld_Enum::yld_ResultPositionEnum position,
                          const sto_PartInstance& instance, const int* labels, int numLabels, const yld_RowArray& data,
                          const yld_SectionPoint& sectionPoint, const yld_SystemArray& systems,
                          const yld_RowArray& conjugate);
    void run();

    /// What every block that a field writes has in common: name, description, type, labels, invariants and width.
    static sto_FieldDescriptionBuilder describe(const yld_FieldOutput& field);
    /// Store codes of the invariants that a field names as valid.
    static std::vector<int> invariantCodes(const yld_FieldOutput& field);
    /// Appends a block to the field, with its location and its key.
    static void appendBlock(yld_FieldOutput& field, int key, const sto_Field& stored);

private:
    // Rows that stand side by side.
    struct Run
    {
        int first;
        int count;
    };
    // An element of the caller's: its place in its class, and its first row.
    struct Placed
    {
        int place;
        long long offset;
    };
    // The rows of one block, in the order of the block.
    struct Block
    {
        sto_ElementClass elementClass;
        int classIndex = -1;
        int length = 0; // locations
        std::vector<Run> runs;
        int numRows = 0;
    };

    bool isOnElements() const { return m_place.carrier == fld_OutputPosition::Carrier::ELEMENT; }
    int rowsPerElement(const sto_ElementClass& onClass) const
    {
        return sto_FieldBlock::rowsPerMember(m_place, setC_Set::elementSet, onClass);
    }
    void makeSet();
    void checkSectionPoint();
    void mapRows();
    void cut(const sto_Subset& members, Block& block) const;
    Block blockOf(int index) const;
    void writeOneBlock(const Block& block);
    template<class T>
    fio_Buffer fill(const fld_FieldDescription& description, const yld_RowArray& rows, const Block& block,
                    int firstWidth) const;
    template<class T> fio_Buffer fillSystems(const sto_FieldDescriptionBuilder& wanted, const Block& block) const;
    template<class T> void writeValues(const Block& block, const sto_FieldDescriptionBuilder& wanted);
    template<class Visit> static void eachRow(const Block& block, Visit visit);

    yld_FieldOutput& m_field;
    sto_PartInstance m_instance;
    const int* m_labels;
    int m_numLabels;
    const yld_RowArray& m_data;
    const yld_SectionPoint& m_sectionPoint;
    const yld_SystemArray& m_systems;
    const yld_RowArray& m_conjugate;

    sto_Mesh m_mesh;
    sto_Set m_set;
    int m_numBlocks = 1;
    int m_sectionIndex = -1;
    int m_key = 0;
    long long m_total = 0;
    bool m_isPair = false;
    const fld_OutputPosition& m_place;
    const fld_DataType& m_type;
    sto_FieldDescriptionBuilder m_common{"", "", fld_DataTypeEnm::UNDEFINED};
    std::vector<std::vector<Placed>> m_placed; // by class, in the caller's order
};

#endif
