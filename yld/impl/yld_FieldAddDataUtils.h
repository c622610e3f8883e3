#ifndef YLD_FIELDADDDATAUTILS_H
#define YLD_FIELDADDDATAUTILS_H

#include "yld_FieldOutput.h"

#include "platform/result/fld_FieldDescription.h"
#include "platform/sto/sto_Field.h"
#include "platform/sto/sto_FieldDescription.h"
#include "platform/sto/sto_PartInstance.h"
#include "platform/store/fio_Buffer.h"

#include <string>
#include <vector>

class sto_FieldStep;

/// Rows of numbers, one behind the other in one array. Rows of the same width need no more than that; others say
/// where each begins. The numbers are borrowed or held.
class yld_RowArray
{
public:
    yld_RowArray() = default;
    /// Borrows rows of one width.
    yld_RowArray(const float* values, int count, int width) : m_values(values), m_count(count), m_width(width) {}
    /// Copies rows of any widths.
    explicit yld_RowArray(const yld_Sequence<yld_Sequence<float>>& rows);

    int size() const { return m_count; }
    bool isUniform() const { return m_starts.empty(); }
    int width(int row) const
    {
        return isUniform() ? m_width : static_cast<int>(m_starts[place(row) + 1] - m_starts[place(row)]);
    }
    const float* row(int row) const
    {
        return m_values + (isUniform() ? static_cast<std::ptrdiff_t>(row) * m_width : m_starts[place(row)]);
    }

private:
    static std::size_t place(int row) { return static_cast<std::size_t>(row); }

    std::vector<float> m_held;
    std::vector<std::ptrdiff_t> m_starts; // one more than rows
    const float* m_values = nullptr;
    int m_count = 0;
    int m_width = 0;
};

/// Writes results: sorts rows that come by user label into the store's blocks, one for each element class.
class yld_FieldAddDataUtils
{
public:
    using Systems = yld_Sequence<yld_Sequence<yld_Sequence<float>>>;

    /// @param instance   a handle that is not valid for WHOLE_MODEL
    /// @param labels     numLabels user labels, borrowed
    /// @param conjugate  the imaginary half; no rows for none
    yld_FieldAddDataUtils(yld_FieldOutput& field, yld_Enum::yld_ResultPositionEnum position,
                          const sto_PartInstance& instance, const int* labels, int numLabels, const yld_RowArray& data,
                          const yld_SectionPoint& sectionPoint, const Systems& systems, const yld_RowArray& conjugate);
    void run();

    /// A name that no set of the mesh has: the given one, or else one with the first free number behind it.
    static std::string freeSetName(const sto_Mesh& mesh, int type, const std::string& name);
    /// The description of a block in a step: one that is there already, or a new one.
    /// @param systems  the type of the block's local systems, which get a description too; UNDEFINED for none
    static sto_FieldDescription enter(sto_FieldStep& step, fld_FieldDescription wanted, fld_DataTypeEnm systems,
                                      int systemsKey, int key);

private:
    // The stretch of rows that an element or node has.
    struct Stretch
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
    // The rows of one block: all of them as they stand, or stretches in the order of the block.
    struct Block
    {
        sto_ElementClass elementClass;
        int classIndex = -1;
        bool isWhole = true;
        std::vector<Stretch> stretches;
        int numRows = 0;
    };

    bool isOnElements() const;
    void makeSet();
    void checkSectionPoint();
    void mapRows();
    int rowsPerElement(const sto_ElementClass& elementClass) const;
    Block cut(const sto_Subset& members) const;
    fld_FieldDescription describe(const Block& block) const;
    int lengthOf(const Block& block) const;
    void writeOneBlock(Block block);
    void checkLength(const fld_FieldDescription& description, const Block& block) const;
    fio_Buffer fill(const fld_FieldDescription& description, const yld_RowArray& rows, const Block& block,
                    int firstWidth) const;
    sto_Field writeOrientation(const sto_FieldDescription& orientation, int key, const Block& block);
    template<class Visit> void eachRow(const Block& block, Visit visit) const;

    yld_FieldOutput& m_field;
    yld_Enum::yld_ResultPositionEnum m_position;
    sto_PartInstance m_instance;
    const int* m_labels;
    int m_numLabels;
    const yld_RowArray& m_data;
    const yld_SectionPoint& m_sectionPoint;
    const Systems& m_systems;
    const yld_RowArray& m_conjugate;

    sto_Mesh m_mesh;
    sto_Set m_set;
    int m_numBlocks = 1;
    int m_sectionIndex = -1;
    int m_key = 0;
    int m_total = 0;
    bool m_isPair = false;
    std::vector<std::vector<Placed>> m_placed; // by class, in the caller's order
    fld_FieldDescription m_common;
};

#endif
