#include "yld_FieldValue.h"

#include "platform/math/eng_Quaternion.h"
#include "platform/math/eng_Tensor.h"
#include "platform/math/eng_Vector.h"
#include "platform/result/fld_DataType.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld_EnumMap.h"
#include "yld_Instance.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

template<class Real> yld_Sequence<yld_Sequence<Real>> cosinesOf(const Real* components, int length)
{
    yld_Sequence<yld_Sequence<Real>> rows;
    const fld_DataTypeEnm type = fld_DataType::quaternionOf(length);
    if (type == fld_DataTypeEnm::UNDEFINED) return rows;
    Real cosines[9];
    eng_Quaternion<Real>(static_cast<int>(type), components).inverse().cosines(cosines);
    const int size = type == fld_DataTypeEnm::QUATERNION_2D ? 2 : 3;
    for (int i = 0; i < size; ++i) rows.append(yld_Sequence<Real>(cosines + 3 * i, size));
    return rows;
}

} // namespace

yld_FieldValueData::yld_FieldValueData(int length, yld_Enum::yld_PrecisionEnum precision)
{
    reserve(length, precision);
}

yld_FieldValueData::yld_FieldValueData(const float* components, int length)
{
    reserve(length, yld_Enum::SINGLE_PRECISION);
    copyIn(components);
}

yld_FieldValueData::yld_FieldValueData(const double* components, int length)
{
    reserve(length, yld_Enum::DOUBLE_PRECISION);
    copyIn(components);
}

yld_FieldValueData::yld_FieldValueData(const yld_Sequence<float>& components)
{
    reserve(components.size(), yld_Enum::SINGLE_PRECISION);
    for (int i = 0; i < m_length; ++i) m_floatData[i] = components[i];
}

yld_FieldValueData::yld_FieldValueData(const yld_Sequence<double>& components)
{
    reserve(components.size(), yld_Enum::DOUBLE_PRECISION);
    for (int i = 0; i < m_length; ++i) m_doubleData[i] = components[i];
}

yld_FieldValueData::yld_FieldValueData(const yld_FieldValueData& other) { copyFrom(other); }

yld_FieldValueData::yld_FieldValueData(yld_FieldValueData&& other) noexcept
    : m_length(other.m_length), m_isBorrowed(other.m_isBorrowed), m_roomUsed(other.m_roomUsed)
{
    std::memcpy(m_room, other.m_room, m_roomUsed);
    take(m_floatData, other, other.m_floatData);
    take(m_floatConjugate, other, other.m_floatConjugate);
    take(m_doubleData, other, other.m_doubleData);
    take(m_doubleConjugate, other, other.m_doubleConjugate);
    other.m_length = 0;
    other.m_isBorrowed = false;
    other.m_roomUsed = 0;
}

yld_FieldValueData& yld_FieldValueData::operator=(const yld_FieldValueData& other)
{
    if (this == &other) return *this;
    if (m_isBorrowed) {
        // Its arrays belong to somebody else: they are let go of, or copied if they are to stay.
        const yld_FieldValueData kept(*this);
        m_floatData = m_floatConjugate = nullptr;
        m_doubleData = m_doubleConjugate = nullptr;
        m_isBorrowed = false;
        if (other.m_length <= 0) copyFrom(kept);
    }
    if (other.m_length > 0) copyFrom(other);
    return *this;
}

yld_FieldValueData::~yld_FieldValueData() { clear(); }

bool yld_FieldValueData::isInRoom(const void* components) const
{
    return components >= m_room && components < m_room + sizeof m_room;
}

// Inline, so that no copy of these is exported with the class.
template<class Real> inline Real* yld_FieldValueData::allocate(int length)
{
    const std::size_t bytes = static_cast<std::size_t>(length) * sizeof(Real);
    if (bytes > sizeof m_room - m_roomUsed) return new Real[static_cast<std::size_t>(length)];
    auto* components = reinterpret_cast<Real*>(m_room + m_roomUsed);
    constexpr std::size_t unit = sizeof(double);
    m_roomUsed = static_cast<unsigned char>(m_roomUsed + (bytes + unit - 1) / unit * unit);
    return components;
}

template<class Real> inline void yld_FieldValueData::release(Real*& components)
{
    if (components && !m_isBorrowed && !isInRoom(components)) delete[] components;
    components = nullptr;
}

// What stood in the other's room stands at the same place of this one's.
template<class Real> void yld_FieldValueData::take(Real*& components, yld_FieldValueData& from, Real*& theirs)
{
    const auto place = reinterpret_cast<const char*>(theirs) - from.m_room;
    components = from.isInRoom(theirs) ? reinterpret_cast<Real*>(m_room + place) : theirs;
    theirs = nullptr;
}

void yld_FieldValueData::reserve(int length, yld_Enum::yld_PrecisionEnum precision)
{
    clear();
    if (length <= 0) return;
    if (precision == yld_Enum::DOUBLE_PRECISION) m_doubleData = allocate<double>(length);
    else m_floatData = allocate<float>(length);
    m_length = length;
}

void yld_FieldValueData::clear()
{
    release(m_floatData);
    release(m_floatConjugate);
    release(m_doubleData);
    release(m_doubleConjugate);
    m_length = 0;
    m_isBorrowed = false;
    m_roomUsed = 0;
}

void yld_FieldValueData::copyIn(const float* components) { std::copy_n(components, m_length, m_floatData); }

void yld_FieldValueData::copyIn(const double* components) { std::copy_n(components, m_length, m_doubleData); }

void yld_FieldValueData::borrow(float* components, int length)
{
    clear();
    m_floatData = components;
    m_length = length;
    m_isBorrowed = true;
}

void yld_FieldValueData::borrow(double* components, int length)
{
    clear();
    m_doubleData = components;
    m_length = length;
    m_isBorrowed = true;
}

void yld_FieldValueData::setConjugate(const float* components)
{
    if (!m_floatConjugate) m_floatConjugate = allocate<float>(m_length);
    std::copy_n(components, m_length, m_floatConjugate);
}

void yld_FieldValueData::setConjugate(const double* components)
{
    if (!m_doubleConjugate) m_doubleConjugate = allocate<double>(m_length);
    std::copy_n(components, m_length, m_doubleConjugate);
}

void yld_FieldValueData::copyFrom(const yld_FieldValueData& other)
{
    if (other.m_length <= 0) {
        clear();
        return;
    }
    if (other.m_floatData) {
        reserve(other.m_length, yld_Enum::SINGLE_PRECISION);
        copyIn(other.m_floatData);
        if (other.m_floatConjugate) setConjugate(other.m_floatConjugate);
    } else if (other.m_doubleData) {
        reserve(other.m_length, yld_Enum::DOUBLE_PRECISION);
        copyIn(other.m_doubleData);
        if (other.m_doubleConjugate) setConjugate(other.m_doubleConjugate);
    }
}

bool yld_FieldValueData::operator==(const yld_FieldValueData& other) const
{
    if (m_length != other.m_length) return false;
    if ((m_floatData != nullptr) != (other.m_floatData != nullptr)) return false;
    if ((m_doubleData != nullptr) != (other.m_doubleData != nullptr)) return false;
    const auto count = static_cast<std::size_t>(m_length);
    if (m_floatData && std::memcmp(m_floatData, other.m_floatData, count * sizeof(float)) != 0) return false;
    return !m_doubleData || std::memcmp(m_doubleData, other.m_doubleData, count * sizeof(double)) == 0;
}

namespace {

// Values without an instance share one empty one.
shr_COW<yld_Instance> emptyInstance()
{
    thread_local const shr_COW<yld_Instance> empty{yld_Instance()};
    return empty;
}

} // namespace

yld_FieldValue::yld_FieldValue() : m_instance(emptyInstance()) {}

yld_FieldValue::yld_FieldValue(yld_Enum::yld_ResultPositionEnum position, yld_Enum::yld_DataTypeEnum type,
                               const shr_COW<yld_Instance>& instance, yld_Enum::yld_PrecisionEnum precision)
    : m_position(position), m_type(type), m_precision(precision), m_instance(instance)
{
}

yld_FieldValue::yld_FieldValue(yld_Enum::yld_ResultPositionEnum position, yld_Enum::yld_DataTypeEnum type,
                               const shr_COW<yld_Instance>& instance, bool engineeringTensor,
                               const yld_String& baseElementType, const yld_SectionPoint& sectionPoint,
                               yld_Enum::yld_PrecisionEnum precision)
    : m_position(position), m_type(type), m_precision(precision), m_instance(instance), m_sectionPoint(sectionPoint),
      m_engineeringTensor(engineeringTensor), m_baseElementType(baseElementType)
{
}

yld_FieldValue::yld_FieldValue(const yld_FieldValue&) = default;

yld_FieldValue& yld_FieldValue::operator=(const yld_FieldValue& other)
{
    if (this == &other) return *this;
    m_position = other.m_position;
    m_type = other.m_type;
    m_precision = other.m_precision;
    m_instance = other.m_instance;
    m_elementLabel = other.m_elementLabel;
    m_nodeLabel = other.m_nodeLabel;
    m_integrationPoint = other.m_integrationPoint;
    m_face = other.m_face;
    m_sectionPoint = other.m_sectionPoint;
    // Assigning empty data would leave the old components: a value without any must not inherit those of another.
    m_localCoordSystemData.copyFrom(other.m_localCoordSystemData);
    m_data.copyFrom(other.m_data);
    m_engineeringTensor = other.m_engineeringTensor;
    m_baseElementType = other.m_baseElementType;
    return *this;
}

yld_FieldValue::~yld_FieldValue() = default;

void yld_FieldValue::SetData(float component) { SetData(&component, 1); }

void yld_FieldValue::SetData(double component) { SetData(&component, 1); }

void yld_FieldValue::SetData(const float* components, int length)
{
    m_data.copyFrom(yld_FieldValueData(components, length));
}

void yld_FieldValue::SetData(const double* components, int length)
{
    m_data.copyFrom(yld_FieldValueData(components, length));
}

yld_Sequence<yld_Sequence<float>> yld_FieldValue::localCoordSystem() const
{
    if (m_precision == yld_Enum::DOUBLE_PRECISION) {
        yld_raise("Data is double precision.  Use localCoordSystemDouble");
    }
    if (!m_localCoordSystemData.floatData()) return {};
    return cosinesOf(m_localCoordSystemData.floatData(), m_localCoordSystemData.length());
}

yld_Sequence<yld_Sequence<double>> yld_FieldValue::localCoordSystemDouble() const
{
    if (m_precision == yld_Enum::SINGLE_PRECISION) yld_raise("Data is single precision.  Use localCoordSystem");
    if (!m_localCoordSystemData.doubleData()) return {};
    return cosinesOf(m_localCoordSystemData.doubleData(), m_localCoordSystemData.length());
}

namespace {

// The invariant of a tensor in the precision that the value says; 0 where components and type do not fit.
template<class Invariant> float tensorInvariant(const yld_FieldValue& value, bool engineering, Invariant invariant)
{
    const fld_DataType& type = fld_DataType::shownBy(value.type());
    const int code = static_cast<int>(type.store);
    const yld_FieldValueData& data = value.data();
    if (!type.isTensor() || data.length() < type.width) return 0.0F;
    if (value.precision() == yld_Enum::DOUBLE_PRECISION) {
        if (!data.doubleData()) return 0.0F;
        return static_cast<float>(invariant(eng_Tensor<double>(code, data.doubleData(), engineering)));
    }
    if (!data.floatData()) return 0.0F;
    return static_cast<float>(invariant(eng_Tensor<float>(code, data.floatData(), engineering)));
}

} // namespace

float yld_FieldValue::magnitude() const
{
    if (m_type != yld_Enum::VECTOR || m_data.length() == 0) return 0.0F;
    if (m_precision == yld_Enum::DOUBLE_PRECISION) {
        if (!m_data.doubleData()) return 0.0F;
        return static_cast<float>(eng_Vector<double>(m_data.doubleData(), m_data.length()).magnitude());
    }
    if (!m_data.floatData()) return 0.0F;
    return eng_Vector<float>(m_data.floatData(), m_data.length()).magnitude();
}

float yld_FieldValue::mises() const
{
    return tensorInvariant(*this, false, [](const auto& tensor) { return tensor.mises(); });
}

float yld_FieldValue::tresca() const
{
    return tensorInvariant(*this, false, [](const auto& tensor) { return tensor.tresca(); });
}

float yld_FieldValue::press() const
{
    return tensorInvariant(*this, false, [](const auto& tensor) { return tensor.pressure(); });
}

float yld_FieldValue::inv3() const
{
    return tensorInvariant(*this, m_engineeringTensor, [](const auto& tensor) { return tensor.inv3(); });
}

float yld_FieldValue::maxPrincipal() const
{
    return tensorInvariant(*this, m_engineeringTensor, [](const auto& tensor) { return tensor.maxPrincipal(); });
}

float yld_FieldValue::midPrincipal() const
{
    return tensorInvariant(*this, m_engineeringTensor, [](const auto& tensor) { return tensor.midPrincipal(); });
}

float yld_FieldValue::minPrincipal() const
{
    return tensorInvariant(*this, m_engineeringTensor, [](const auto& tensor) { return tensor.minPrincipal(); });
}

float yld_FieldValue::maxInPlanePrincipal() const
{
    return tensorInvariant(*this, m_engineeringTensor, [](const auto& tensor) { return tensor.maxInplanePrincipal(); });
}

float yld_FieldValue::minInPlanePrincipal() const
{
    return tensorInvariant(*this, m_engineeringTensor, [](const auto& tensor) { return tensor.minInplanePrincipal(); });
}

float yld_FieldValue::outOfPlanePrincipal() const
{
    return tensorInvariant(*this, m_engineeringTensor, [](const auto& tensor) { return tensor.outOfPlanePrincipal(); });
}

float yld_FieldValue::invariant(yld_Enum::yld_InvariantEnum which) const
{
    switch (which) {
    case yld_Enum::MAX_PRINCIPAL:
        return maxPrincipal();
    case yld_Enum::MID_PRINCIPAL:
        return midPrincipal();
    case yld_Enum::MIN_PRINCIPAL:
        return minPrincipal();
    case yld_Enum::MISES:
        return mises();
    case yld_Enum::TRESCA:
        return tresca();
    case yld_Enum::PRESS:
        return press();
    case yld_Enum::INV3:
        return inv3();
    case yld_Enum::MAGNITUDE:
        return magnitude();
    case yld_Enum::MAX_INPLANE_PRINCIPAL:
        return maxInPlanePrincipal();
    case yld_Enum::MIN_INPLANE_PRINCIPAL:
        return minInPlanePrincipal();
    case yld_Enum::OUTOFPLANE_PRINCIPAL:
        return outOfPlanePrincipal();
    default:
        return 0.0F;
    }
}
