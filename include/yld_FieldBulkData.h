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

/// The values, labels and local systems of one block as plain arrays. All arrays are borrowed: from the read
/// block, or, where a docstring says so, from this object. They hold as long as the sequence that gave this object.
class YLD_API yld_FieldBulkData
{
public:
    yld_FieldBulkData();
    explicit yld_FieldBulkData(const yld_FieldValueList& list);
    yld_FieldBulkData(const yld_FieldBulkData& other);
    yld_FieldBulkData& operator=(const yld_FieldBulkData& other);
    ~yld_FieldBulkData();

    /// length() rows of width() floats; null in double precision.
    const float* data() const { return m_data; }
    const float* conjugateData() const { return m_conjugateData; }
    /// length() rows of orientationWidth() quaternion components, or null.
    const float* localCoordSystem() const { return m_localCoordSystem; }
    const double* dataDouble() const { return m_dataDouble; }
    const double* conjugateDataDouble() const { return m_conjugateDataDouble; }
    const double* localCoordSystemDouble() const { return m_localCoordSystemDouble; }
    /// One label a value for NODAL and ELEMENT_NODAL data; null otherwise.
    const int* nodeLabels() const { return m_nodeLabels; }
    /// The number of rows.
    int length() const { return m_length; }
    /// The number of components a row.
    int width() const { return m_width; }
    int orientationWidth() const { return m_orientationWidth; }
    yld_Enum::yld_ResultPositionEnum position() const { return m_position; }
    yld_Enum::yld_DataTypeEnum type() const { return m_type; }
    yld_Enum::yld_PrecisionEnum precision() const { return m_precision; }
    const yld_Instance& instance() const { return m_instance.ConstGet(); }
    const yld_String& baseElementType() const { return m_baseElementType; }
    const yld_SectionPoint& sectionPoint() const { return m_sectionPoint; }
    const yld_Sequence<yld_String>& componentLabels() const { return m_componentLabels; }
    bool engineeringTensor() const { return m_engineeringTensor; }
    /// 0 node set, 1 element set, 2 surface, 7 not known.
    int setType() const { return m_setType; }
    /// Rows an element has; 0 for node data.
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

/// The bulk data of all blocks of a field; keeps the read blocks alive.
class YLD_API yld_SequenceFieldBulkData
{
public:
    yld_SequenceFieldBulkData();
    /// Reads every block of the sequence. A block that shows only some of its values materialises, for all who share
    /// it: its values are in single precision from then on.
    explicit yld_SequenceFieldBulkData(const yld_SequenceFieldValue& values);
    yld_SequenceFieldBulkData(const yld_SequenceFieldBulkData&);
    yld_SequenceFieldBulkData& operator=(const yld_SequenceFieldBulkData&);
    ~yld_SequenceFieldBulkData();

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
