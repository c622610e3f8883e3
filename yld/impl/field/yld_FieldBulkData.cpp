#include "yld_FieldBulkData.h"

#include "platform/math/eng_Tensor.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld/impl/field/yld_FieldValueList.h"
#include "yld_EnumMap.h"
#include "yld_Instance.h"

#include <algorithm>
#include <memory>

namespace {

std::size_t sizeOf(int count) { return static_cast<std::size_t>(count); }

template<class T> T* duplicate(const T* values, int count)
{
    if (!values) return nullptr;
    T* copy = new T[sizeOf(count)];
    std::copy_n(values, count, copy);
    return copy;
}

// One entry a value out of one entry an element.
template<class T>
T* perValue(const T* ofBlock, int length, int valuesPerElement, const yld_Sequence<int>& elementIndices)
{
    auto values = std::make_unique<T[]>(sizeOf(length));
    if (!elementIndices.isEmpty()) {
        int k = 0;
        for (const int element : elementIndices) values[sizeOf(k++)] = ofBlock[element];
        return values.release();
    }
    T* to = values.get();
    const int elements = valuesPerElement > 0 ? length / valuesPerElement : 0;
    for (int i = 0; i < elements; ++i, to += valuesPerElement) std::fill_n(to, valuesPerElement, ofBlock[i]);
    return values.release();
}

// Rows that stand as close as the type has components, as nearly all do, go in one piece.
template<class Real> void fillMises(int code, const Real* rows, int count, int width, bool engineering, float* values)
{
    if (width == fld_DataType::of(code).width) {
        eng_mises(code, rows, sizeOf(count), engineering, values);
        return;
    }
    for (int i = 0; i < count; ++i, rows += width) eng_mises(code, rows, 1, engineering, values + i);
}

} // namespace

yld_FieldBulkData::yld_FieldBulkData() : m_instance(yld_FieldValueList::noInstance()) {}

yld_FieldBulkData::yld_FieldBulkData(const yld_FieldValueList& list)
    : m_nodeLabels(list.m_nodeLabels.data()), m_length(list.m_numValues), m_width(list.m_width),
      m_orientationWidth(list.m_orientationWidth), m_position(list.m_position),
      m_instance(yld_FieldValueList::noInstance()), m_componentLabels(list.m_componentLabels),
      m_elementIndices(list.m_elementIndices), m_integrationPointIndices(list.m_integrationPointIndices),
      m_setType(list.m_setType), m_elementLabelsOfBlock(list.m_elementLabels.data()),
      m_valuesPerElement(list.m_valuesPerEntity), m_numberOfNodes(list.m_numNodes), m_facesOfBlock(list.m_faces)
{
    if (list.m_floatData) {
        m_data = list.m_floatData;
        m_conjugateData = list.m_floatConjugate;
        m_localCoordSystem = list.m_floatOrientation;
    } else {
        m_dataDouble = list.m_doubleData;
        m_conjugateDataDouble = list.m_doubleConjugate;
        m_localCoordSystemDouble = list.m_doubleOrientation;
        m_precision = yld_Enum::DOUBLE_PRECISION;
    }
    if (list.length() > 0) {
        const yld_FieldValue first = list.value(0);
        m_engineeringTensor = first.engineeringTensor();
        m_sectionPoint = first.sectionPoint();
        m_type = first.type();
        m_instance = first.m_instance;
        m_baseElementType = first.baseElementType();
    }
}

yld_FieldBulkData::yld_FieldBulkData(const yld_FieldBulkData& other) { *this = other; }

yld_FieldBulkData& yld_FieldBulkData::operator=(const yld_FieldBulkData& other)
{
    if (this == &other) return *this;
    release();
    m_data = other.m_data;
    m_conjugateData = other.m_conjugateData;
    m_localCoordSystem = other.m_localCoordSystem;
    m_dataDouble = other.m_dataDouble;
    m_conjugateDataDouble = other.m_conjugateDataDouble;
    m_localCoordSystemDouble = other.m_localCoordSystemDouble;
    m_nodeLabels = other.m_nodeLabels;
    m_length = other.m_length;
    m_width = other.m_width;
    m_orientationWidth = other.m_orientationWidth;
    m_position = other.m_position;
    m_type = other.m_type;
    m_precision = other.m_precision;
    m_instance = other.m_instance;
    m_baseElementType = other.m_baseElementType;
    m_sectionPoint = other.m_sectionPoint;
    m_componentLabels = other.m_componentLabels;
    m_elementIndices = other.m_elementIndices;
    m_integrationPointIndices = other.m_integrationPointIndices;
    m_engineeringTensor = other.m_engineeringTensor;
    m_setType = other.m_setType;
    m_elementLabelsOfBlock = other.m_elementLabelsOfBlock;
    m_valuesPerElement = other.m_valuesPerElement;
    m_numberOfNodes = other.m_numberOfNodes;
    m_facesOfBlock = other.m_facesOfBlock;
    duplicateOwned(other);
    return *this;
}

yld_FieldBulkData::~yld_FieldBulkData() { release(); }

void yld_FieldBulkData::release()
{
    delete[] m_misesValues;
    delete[] m_elementLabelsPerValue;
    delete[] m_integrationPointsPerValue;
    delete[] m_facesPerValue;
    m_misesValues = nullptr;
    m_elementLabelsPerValue = nullptr;
    m_integrationPointsPerValue = nullptr;
    m_facesPerValue = nullptr;
}

void yld_FieldBulkData::duplicateOwned(const yld_FieldBulkData& other)
{
    m_misesValues = duplicate(other.m_misesValues, m_length);
    m_elementLabelsPerValue = duplicate(other.m_elementLabelsPerValue, m_length);
    m_integrationPointsPerValue = duplicate(other.m_integrationPointsPerValue, m_length);
    m_facesPerValue = duplicate(other.m_facesPerValue, m_length);
}

int yld_FieldBulkData::numberOfElements() const { return m_valuesPerElement < 1 ? 0 : m_length / m_valuesPerElement; }

const int* yld_FieldBulkData::elementLabels() const
{
    if (m_elementLabelsPerValue) return m_elementLabelsPerValue;
    if (!m_elementLabelsOfBlock || (m_setType != 1 && m_setType != 2)) return nullptr;
    m_elementLabelsPerValue = perValue(m_elementLabelsOfBlock, m_length, m_valuesPerElement, m_elementIndices);
    return m_elementLabelsPerValue;
}

const yld_Enum::yld_ElementFaceEnum* yld_FieldBulkData::faces() const
{
    if (m_facesPerValue) return m_facesPerValue;
    if (!m_facesOfBlock || m_setType != 2) return nullptr;
    m_facesPerValue = perValue(m_facesOfBlock, m_length, m_valuesPerElement, m_elementIndices);
    return m_facesPerValue;
}

const int* yld_FieldBulkData::integrationPoints() const
{
    if (m_integrationPointsPerValue) return m_integrationPointsPerValue;
    const fld_OutputPosition* place = fld_OutputPosition::shownBy(m_position);
    if (!place || !place->hasPointsInBulk) return nullptr;
    auto points = std::make_unique<int[]>(sizeOf(m_length));
    if (!m_integrationPointIndices.isEmpty()) {
        int k = 0;
        for (const int point : m_integrationPointIndices) points[sizeOf(k++)] = point + 1;
    } else if (m_valuesPerElement > 0) {
        for (int k = 0; k < m_length; ++k) points[sizeOf(k)] = k % m_valuesPerElement + 1;
    }
    m_integrationPointsPerValue = points.release();
    return m_integrationPointsPerValue;
}

const float* yld_FieldBulkData::mises() const
{
    if (m_misesValues) return m_misesValues;
    const fld_DataType& type = fld_DataType::shownBy(m_type);
    if (!type.isTensor()) return nullptr;
    const int code = static_cast<int>(type.store);
    if (m_width < type.width || (!m_data && !m_dataDouble)) return nullptr;
    std::unique_ptr<float[]> values(new float[sizeOf(m_length)]);
    if (m_data) fillMises(code, m_data, m_length, m_width, m_engineeringTensor, values.get());
    else fillMises(code, m_dataDouble, m_length, m_width, m_engineeringTensor, values.get());
    m_misesValues = values.release();
    return m_misesValues;
}

yld_SequenceFieldBulkData::yld_SequenceFieldBulkData() = default;

yld_SequenceFieldBulkData::yld_SequenceFieldBulkData(const yld_SequenceFieldValue& values)
    : m_values(values), m_bulk(values.numBlocks())
{
    for (int i = 0; i < m_values.numBlocks(); ++i) {
        // Plain arrays are contiguous: a block that shows only some of its values gets a field of its own for them.
        m_values.blocks()[i].materialize();
        const yld_FieldValueList& shown = m_values.list(i);
        m_bulk.Get(m_count++) = shr_COW<yld_FieldBulkData>(new yld_FieldBulkData(shown));
    }
}

yld_SequenceFieldBulkData::yld_SequenceFieldBulkData(const yld_SequenceFieldBulkData&) = default;
yld_SequenceFieldBulkData& yld_SequenceFieldBulkData::operator=(const yld_SequenceFieldBulkData&) = default;
yld_SequenceFieldBulkData::~yld_SequenceFieldBulkData() = default;

const yld_FieldBulkData& yld_SequenceFieldBulkData::constGet(int index) const
{
    if (index > m_count) yld_raise("Field bulk data index is out of range.");
    // The test lets an index through for which there is no block: it gets one without values.
    thread_local const yld_FieldBulkData nothing;
    return index >= 0 && index < m_count ? m_bulk.FullArrayConstGet(index).ConstGet() : nothing;
}

yld_FieldBulkData& yld_SequenceFieldBulkData::get(int index)
{
    if (index > m_count) yld_raise("Field bulk data index is out of range.");
    if (index >= 0 && index < m_count) return m_bulk.Get(index).Get();
    thread_local yld_FieldBulkData nothing;
    return nothing = yld_FieldBulkData();
}

void yld_SequenceFieldBulkData::clearAll() { *this = yld_SequenceFieldBulkData(); }
