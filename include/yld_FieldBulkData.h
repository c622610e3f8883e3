#ifndef YLD_FIELD_BULK_DATA_H
#define YLD_FIELD_BULK_DATA_H

#include "containers/shr_COW.h"
#include "platform/base/bas_Export.h"
#include "yld_Enum.h"
#include "yld_SectionCategory.h"
#include "yld_Sequence.h"
#include "yld_SequenceFieldValue.h"
#include "yld_String.h"

class yld_FieldValueList;
class yld_Instance;

/// One block of a field as plain arrays: values, labels, local systems. A block has one position, element class,
/// section point and instance. Every array is borrowed and good as long as the yld_SequenceFieldBulkData that this
/// object came from; those that are "built on first use" belong to this object and go with it. What the file was read
/// into is shown without a copy, unless rows have to be made wider.
class YLD_API yld_FieldBulkData
{
public:
    yld_FieldBulkData();
    explicit yld_FieldBulkData(const yld_FieldValueList& list);
    yld_FieldBulkData(const yld_FieldBulkData& other);
    yld_FieldBulkData& operator=(const yld_FieldBulkData& other);
    ~yld_FieldBulkData();

    /// length() rows of width() floats, the components of one value after the other; null in double precision.
    const float* data() const { return m_data; }
    /// The imaginary half, laid out the same; null for real values.
    const float* conjugateData() const { return m_conjugateData; }
    /// length() rows of orientationWidth() quaternion components, or null.
    const float* localCoordSystem() const { return m_localCoordSystem; }
    /// The same three in double precision; null in single precision.
    const double* dataDouble() const { return m_dataDouble; }
    const double* conjugateDataDouble() const { return m_conjugateDataDouble; }
    const double* localCoordSystemDouble() const { return m_localCoordSystemDouble; }
    /// One label a value for NODAL and ELEMENT_NODAL data; null otherwise.
    const int* nodeLabels() const { return m_nodeLabels; }
    /// The number of values: rows of the arrays.
    int length() const { return m_length; }
    /// The number of components of a value.
    int width() const { return m_width; }
    /// 4 for quaternions in space, 2 in the plane, 0 without local systems.
    int orientationWidth() const { return m_orientationWidth; }
    yld_Enum::yld_ResultPositionEnum position() const { return m_position; }
    yld_Enum::yld_DataTypeEnum type() const { return m_type; }
    yld_Enum::yld_PrecisionEnum precision() const { return m_precision; }
    /// Empty where the values belong to no instance.
    const yld_Instance& instance() const { return m_instance.ConstGet(); }
    /// The element type label; empty for values at nodes.
    const yld_String& baseElementType() const { return m_baseElementType; }
    const yld_SectionPoint& sectionPoint() const { return m_sectionPoint; }
    const yld_Sequence<yld_String>& componentLabels() const { return m_componentLabels; }
    /// Whether shear components are twice those of the tensor.
    bool engineeringTensor() const { return m_engineeringTensor; }
    /// The kind of set that the values belong to: 0 node set, 1 element set, 2 surface, 7 not known.
    int setType() const { return m_setType; }
    /// How many values an element has; 0 for values at nodes.
    int valuesPerElement() const { return m_valuesPerElement; }
    int numberOfNodes() const { return m_numberOfNodes; }
    int numberOfElements() const;

    /// One label a value, built on first use and owned by this object; null for node data.
    const int* elementLabels() const;
    /// One face a value, for a surface; built on first use.
    const yld_Enum::yld_ElementFaceEnum* faces() const;
    /// One number a value, counted from 1, for integration point data; built on first use.
    const int* integrationPoints() const;
    /// One float a value, for a tensor; built on first use. Engineering shears count half.
    const float* mises() const;

private:
    void release();
    void duplicateOwned(const yld_FieldBulkData& other);

    const float* m_data = nullptr;
    const float* m_conjugateData = nullptr;
    const float* m_localCoordSystem = nullptr;
    const double* m_dataDouble = nullptr;
    const double* m_conjugateDataDouble = nullptr;
    const double* m_localCoordSystemDouble = nullptr;
    mutable float* m_misesValues = nullptr;
    const int* m_nodeLabels = nullptr;
    mutable int* m_elementLabelsPerValue = nullptr;
    mutable int* m_integrationPointsPerValue = nullptr;
    mutable yld_Enum::yld_ElementFaceEnum* m_facesPerValue = nullptr;
    int m_length = 0;
    int m_width = 0;
    int m_orientationWidth = 0;
    yld_Enum::yld_ResultPositionEnum m_position = yld_Enum::UNDEFINED_POSITION;
    yld_Enum::yld_DataTypeEnum m_type = yld_Enum::UNDEFINED_DATATYPE;
    yld_Enum::yld_PrecisionEnum m_precision = yld_Enum::SINGLE_PRECISION;
    shr_COW<yld_Instance> m_instance;
    yld_String m_baseElementType;
    yld_SectionPoint m_sectionPoint;
    yld_Sequence<yld_String> m_componentLabels;
    yld_Sequence<int> m_elementIndices;
    yld_Sequence<int> m_integrationPointIndices;
    bool m_engineeringTensor = false;
    int m_setType = 7;
    const int* m_elementLabelsOfBlock = nullptr;
    int m_valuesPerElement = 1;
    int m_numberOfNodes = 0;
    const yld_Enum::yld_ElementFaceEnum* m_facesOfBlock = nullptr;
};

/// The bulk data of all blocks of a field. It keeps the blocks in memory that it has read: the arrays that its entries
/// give are good as long as it lives. yld_FieldOutput::bulkDataBlocks() makes one.
class YLD_API yld_SequenceFieldBulkData
{
public:
    yld_SequenceFieldBulkData();
    /// Reads every block of the sequence. A block that shows only some of its values is given a contiguous array of
    /// those first, see yld_SubField::materialize(): in single precision, and for everyone who holds the block.
    explicit yld_SequenceFieldBulkData(const yld_SequenceFieldValue& values);
    yld_SequenceFieldBulkData(const yld_SequenceFieldBulkData&);
    yld_SequenceFieldBulkData& operator=(const yld_SequenceFieldBulkData&);
    ~yld_SequenceFieldBulkData();

    /// The number of blocks.
    int size() const { return m_count; }
    /// Raises "Field bulk data index is out of range." for an index greater than size(); an index equal to
    /// size(), or a negative one, is not caught.
    const yld_FieldBulkData& constGet(int index) const;
    yld_FieldBulkData& get(int index);
    const yld_FieldBulkData& operator[](int index) const { return constGet(index); }
    void clearAll();

private:
    yld_SequenceFieldValue m_values;
    int m_count = 0;
    mutable shr_1DArray<shr_COW<yld_FieldBulkData>> m_bulk;
};

#endif
