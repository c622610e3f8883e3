#ifndef YLD_FIELD_VALUE_H
#define YLD_FIELD_VALUE_H

#include "containers/shr_COW.h"
#include "platform/base/bas_Export.h"
#include "yld_Enum.h"
#include "yld_SectionCategory.h"
#include "yld_Sequence.h"
#include "yld_String.h"

class yld_Instance;

/// The components of one value, in single or double precision, with the imaginary half of a complex value. Up to six
/// components, as many as a tensor has, lie in the object itself, so that a value takes no other memory.
class YLD_API yld_FieldValueData
{
public:
    yld_FieldValueData() = default;
    /// Storage of that length and precision, uninitialised.
    yld_FieldValueData(int length, yld_Enum::yld_PrecisionEnum precision);
    yld_FieldValueData(const float* components, int length);
    yld_FieldValueData(const double* components, int length);
    explicit yld_FieldValueData(const yld_Sequence<float>& components);
    explicit yld_FieldValueData(const yld_Sequence<double>& components);
    /// A copy always owns its components.
    yld_FieldValueData(const yld_FieldValueData& other);
    yld_FieldValueData(yld_FieldValueData&& other) noexcept;
    /// Copies the components; an empty source leaves length and arrays of the target as they were.
    yld_FieldValueData& operator=(const yld_FieldValueData& other);
    ~yld_FieldValueData();

    int length() const { return m_length; }
    /// Null unless single precision; valid as long as this object is not changed.
    const float* floatData() const { return m_floatData; }
    const float* floatConjugate() const { return m_floatConjugate; }
    /// Null unless double precision.
    const double* doubleData() const { return m_doubleData; }
    const double* doubleConjugate() const { return m_doubleConjugate; }
    /// Whether the components belong to somebody else, who keeps them.
    bool isBorrowed() const { return m_isBorrowed; }
    /// A component in either precision; the index is not checked.
    double operator[](int index) const
    {
        return m_floatData ? static_cast<double>(m_floatData[index]) : m_doubleData[index];
    }

    /// Bitwise equality of the components; conjugate halves take no part.
    bool operator==(const yld_FieldValueData& other) const;
    bool operator!=(const yld_FieldValueData& other) const { return !(*this == other); }

private:
    friend class yld_FieldValue;
    friend class yld_FieldValueList;

    template<class Real> Real* allocate(int length);
    template<class Real> void release(Real*& components);
    template<class Real> void take(Real*& components, yld_FieldValueData& from, Real*& theirs);
    bool isInRoom(const void* components) const;
    void reserve(int length, yld_Enum::yld_PrecisionEnum precision);
    void clear();
    void copyIn(const float* components);
    void copyIn(const double* components);
    void borrow(float* components, int length);
    void borrow(double* components, int length);
    void borrowConjugate(float* components) { m_floatConjugate = components; }
    void borrowConjugate(double* components) { m_doubleConjugate = components; }
    void setConjugate(const float* components);
    void setConjugate(const double* components);
    void copyFrom(const yld_FieldValueData& other);

    float* m_floatData = nullptr;
    float* m_floatConjugate = nullptr;
    double* m_doubleData = nullptr;
    double* m_doubleConjugate = nullptr;
    int m_length = 0;
    bool m_isBorrowed = false;
    unsigned char m_roomUsed = 0;
    // Six doubles, or six floats and their conjugates.
    alignas(double) char m_room[6 * sizeof(double)];
};

/// One result at one place: its components, and the labels of the place. A value that owns what it has and outlives its
/// field and its database.
class YLD_API yld_FieldValue
{
public:
    yld_FieldValue();
    yld_FieldValue(yld_Enum::yld_ResultPositionEnum position, yld_Enum::yld_DataTypeEnum type,
                   const shr_COW<yld_Instance>& instance, yld_Enum::yld_PrecisionEnum precision);
    yld_FieldValue(yld_Enum::yld_ResultPositionEnum position, yld_Enum::yld_DataTypeEnum type,
                   const shr_COW<yld_Instance>& instance, bool engineeringTensor, const yld_String& baseElementType,
                   const yld_SectionPoint& sectionPoint, yld_Enum::yld_PrecisionEnum precision);
    yld_FieldValue(const yld_FieldValue&);
    yld_FieldValue& operator=(const yld_FieldValue&);
    ~yld_FieldValue();

    yld_Enum::yld_ResultPositionEnum position() const { return m_position; }
    yld_Enum::yld_DataTypeEnum type() const { return m_type; }
    yld_Enum::yld_PrecisionEnum precision() const { return m_precision; }
    /// The instance of the value; an empty one where there is none.
    const yld_Instance& instance() const { return m_instance.ConstGet(); }
    /// The user label, or -1.
    int elementLabel() const { return m_elementLabel; }
    int nodeLabel() const { return m_nodeLabel; }
    /// Counted from 1, or -1.
    int integrationPoint() const { return m_integrationPoint; }
    yld_Enum::yld_ElementFaceEnum face() const { return m_face; }
    const yld_SectionPoint& sectionPoint() const { return m_sectionPoint; }
    /// The components; for a tensor 11, 22, 33, 12, 13, 23.
    const yld_FieldValueData& data() const { return m_data; }
    /// The local system as a quaternion: x, y, z, w, or s, c in the plane; of length 0 without one.
    const yld_FieldValueData& localCoordSystemData() const { return m_localCoordSystemData; }
    bool engineeringTensor() const { return m_engineeringTensor; }
    const yld_String& baseElementType() const { return m_baseElementType; }

    /// Replace the components. precision() stays what it was.
    void SetData(float component);
    void SetData(double component);
    void SetData(const float* components, int length);
    void SetData(const double* components, int length);

    /// The direction cosines of the local system, three rows of three (two of two in the plane); empty without one.
    /// Raises "Data is double precision.  Use localCoordSystemDouble".
    yld_Sequence<yld_Sequence<float>> localCoordSystem() const;
    /// Raises "Data is single precision.  Use localCoordSystem".
    yld_Sequence<yld_Sequence<double>> localCoordSystemDouble() const;

    /// The length of a VECTOR; 0 for every other type.
    float magnitude() const;
    /// The invariants of a tensor; 0 for every other type. They are worked out with each call;
    /// docs/value-mathematics.md has the formulas. mises, tresca and press take shear components as they stand, the
    /// others halve those of an engineering tensor.
    float mises() const;
    float tresca() const;
    float press() const;
    float inv3() const;
    float maxPrincipal() const;
    float midPrincipal() const;
    float minPrincipal() const;
    float maxInPlanePrincipal() const;
    float minInPlanePrincipal() const;
    float outOfPlanePrincipal() const;
    /// The one of the above for the enumerator; 0 for any other number.
    float invariant(yld_Enum::yld_InvariantEnum which) const;

private:
    friend class yld_FieldBulkData;
    friend class yld_FieldValueList;

    yld_Enum::yld_ResultPositionEnum m_position = yld_Enum::UNDEFINED_POSITION;
    yld_Enum::yld_DataTypeEnum m_type = yld_Enum::UNDEFINED_DATATYPE;
    yld_Enum::yld_PrecisionEnum m_precision = yld_Enum::SINGLE_PRECISION;
    shr_COW<yld_Instance> m_instance;
    int m_elementLabel = -1;
    int m_nodeLabel = -1;
    int m_integrationPoint = -1;
    yld_Enum::yld_ElementFaceEnum m_face = yld_Enum::FACE_UNKNOWN;
    yld_SectionPoint m_sectionPoint;
    yld_FieldValueData m_localCoordSystemData;
    yld_FieldValueData m_data;
    bool m_engineeringTensor = false;
    yld_String m_baseElementType;
};

#endif
