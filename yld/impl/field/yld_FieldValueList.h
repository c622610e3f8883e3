#ifndef YLD_FIELDVALUELIST_H
#define YLD_FIELDVALUELIST_H

#include "yld_FieldValue.h"
#include "yld_SubField.h"

#include "platform/sto/sto_Field.h"
#include "platform/sto/sto_FieldBlock.h"
#include "platform/store/fio_Buffer.h"

/// One block of a field once it has been read: where its numbers are, which labels they belong to, and what each value
/// needs to be produced. Numbers and labels are borrowed from the store where they stand there as they are wanted;
/// what is made here is shared between copies, for a read block does not change.
class yld_FieldValueList
{
public:
    /// Not read.
    yld_FieldValueList() = default;

    /// Whether read() has found values.
    bool isRead() const { return m_numValues != 0; }
    /// Whether it is the read form of the block as the block stands.
    bool isReadFrom(const yld_SubField& block) const { return isRead() && m_indexCount == block.indices().size(); }
    /// Reads a block. Warns where its position or type has no values to show; raises where the file makes no sense.
    void read(const yld_SubField& block);
    void clear() { *this = yld_FieldValueList(); }

    /// How many values the block shows.
    int length() const { return m_indexCount != 0 ? m_indexCount : m_numValues; }
    /// One value of those that the block shows; the index must be below length().
    yld_FieldValue value(int index) const;
    /// The places in the stored values of those shown values that have a local system, to the last digit.
    /// Raises "Data is double precision.  Use localCoordSystemDouble".
    yld_Sequence<int> placesOfSystem(const yld_Sequence<yld_Sequence<float>>& system) const;

    /// An empty instance, shared by all who have none.
    static shr_COW<yld_Instance> noInstance();

private:
    friend class yld_FieldBulkData;

    void readInstance(const sto_FieldBlock& on);
    template<class T> void readData(const sto_FieldBlock& on);
    template<class T> void readOrientation(const sto_FieldBlock& on);
    template<class T> const T* rowsOf(const sto_Field& field, bool ofConjugate, int width, fio_Buffer& own);
    void readLabels(const sto_FieldBlock& on);
    void readFaces(const sto_FieldBlock& on);

    // The field is held so that what is borrowed from it stays.
    sto_Field m_field;
    const float* m_floatData = nullptr;
    const float* m_floatConjugate = nullptr;
    const float* m_floatOrientation = nullptr;
    const double* m_doubleData = nullptr;
    const double* m_doubleConjugate = nullptr;
    const double* m_doubleOrientation = nullptr;
    fio_Buffer m_ownData;
    fio_Buffer m_ownConjugate;
    fio_Buffer m_ownOrientation;

    sto_Labels m_nodeLabels;
    sto_Labels m_elementLabels;
    const yld_Enum::yld_ElementFaceEnum* m_faces = nullptr;
    fio_Buffer m_ownFaces;

    bool m_isPicked = false; // the numbers are those of the shown values alone
    int m_numValues = 0;
    int m_width = 0;
    int m_orientationWidth = 0;
    yld_Enum::yld_ResultPositionEnum m_position = yld_Enum::UNDEFINED_POSITION;
    const fld_OutputPosition* m_place = &fld_OutputPosition::of(fld_OutputPositionEnm::UNDEFINED);
    yld_Enum::yld_PrecisionEnum m_precision = yld_Enum::SINGLE_PRECISION;
    int m_valuesPerEntity = 1;
    int m_numNodes = 0;
    int m_setType = 7;
    bool m_isPair = false;
    int m_indexCount = 0;
    std::vector<int> m_places; // of the shown values, for a block that does not show all
    shr_COW<yld_Instance> m_instance = noInstance();
    yld_Enum::yld_DataTypeEnum m_dataType = yld_Enum::UNDEFINED_DATATYPE;
    bool m_engineeringTensor = false;
    yld_String m_baseElementType;
    yld_SectionPoint m_sectionPoint;
    yld_Sequence<yld_String> m_componentLabels;
    // Of faces that differ in their number of points: for each value its place in the element list, and its point.
    yld_Sequence<int> m_elementIndices;
    yld_Sequence<int> m_integrationPointIndices;
};

#endif
