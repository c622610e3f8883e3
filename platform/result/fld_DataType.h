#ifndef FLD_DATA_TYPE_H
#define FLD_DATA_TYPE_H

#include "platform/result/fld_Enum.h"

#include <span>

/// What a data type means: a row a type, and every question about one is answered from its row. A type without a row
/// does not compile.
struct fld_DataType
{
    enum class Kind
    {
        OTHER,
        SCALAR,
        VECTOR,
        MATRIX,
        TENSOR,
        QUATERNION
    };

    static constexpr int noNumber = -1;
    static constexpr int fullTensorWidth = 6;
    static constexpr int refused = -1;

    /// The number in files.
    fld_DataTypeEnm store = fld_DataTypeEnm::UNDEFINED;
    /// Whether files may hold the number.
    bool isOfStore = false;
    /// The public number; noNumber for a type that no field presents itself as.
    int shownAs = noNumber;
    /// The public enumerator.
    const char* name = nullptr;
    Kind kind = Kind::OTHER;
    /// Components of one value; 0 where the field tells: vectors and matrices.
    int width = 0;
    /// What the names of the components end in; of a vector in space.
    std::span<const char* const> components;
    /// The same for a vector in the plane; empty for other types.
    std::span<const char* const> planarComponents;
    /// Where each component stands in a full tensor; null for what is no tensor.
    const int* placesInFullTensor = nullptr;
    /// Whether a field that has values of this type and of others presents them all as full tensors.
    bool isWidened = false;
    /// The invariants that a field may name as valid.
    std::span<const fld_InvariantEnm> invariants;
    /// The type of the local systems that the writer makes for such values; UNDEFINED where it refuses them.
    fld_DataTypeEnm systems = fld_DataTypeEnm::UNDEFINED;
    /// Whether local systems of stored values are read.
    bool hasSystems = false;
    /// Whether values can be written at nodes and at elements by set.
    bool isWrittenByNodeSet = false;
    bool isWrittenByElementSet = false;
    /// How many component labels a writer by set maps; `refused` for a type that it takes no labels of.
    int labelsBySet = refused;

    bool isTensor() const { return kind == Kind::TENSOR; }
    bool isQuaternion() const { return kind == Kind::QUATERNION; }
    /// Whether fields of such values can be written and copied.
    bool isOfFields() const
    {
        return isTensor() || kind == Kind::SCALAR || kind == Kind::VECTOR || kind == Kind::MATRIX;
    }

    /// The row of a type; of a number that means nothing a row that knows nothing.
    static const fld_DataType& of(fld_DataTypeEnm type);
    static const fld_DataType& of(int code) { return of(static_cast<fld_DataTypeEnm>(code)); }
    /// The row that a public number shows; one that knows nothing for a number that shows none.
    static const fld_DataType& shownBy(int publicNumber);
    /// The quaternion type with so many components; UNDEFINED where there is none.
    static fld_DataTypeEnm quaternionOf(int width);
};

#endif
