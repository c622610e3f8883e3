#include "platform/result/fld_DataType.h"

#include "platform/math/eng_Tensor.h"

#include <algorithm>
#include <array>

namespace {

constexpr const char* ofFullTensor[] = {"11", "22", "33", "12", "13", "23"};
constexpr const char* ofPlanarTensor[] = {"11", "22", "33", "12"};
constexpr const char* ofSurfaceTensor[] = {"11", "22", "12"};
constexpr const char* inSpace[] = {"1", "2", "3"};
constexpr const char* inPlane[] = {"1", "2"};

constexpr int inOrder[] = {0, 1, 2, 3, 4, 5};
constexpr int ofSurface[] = {0, 1, 3}; // the third component is a shear

using enum fld_InvariantEnm;
constexpr fld_InvariantEnm ofVectors[] = {MAGNITUDE};
constexpr fld_InvariantEnm ofFullTensors[] = {MAX_PRINCIPAL, MID_PRINCIPAL, MIN_PRINCIPAL, MISES, TRESCA, PRESS, INV3};
constexpr fld_InvariantEnm ofPlanarTensors[] = {MAX_PRINCIPAL,
                                                MID_PRINCIPAL,
                                                MIN_PRINCIPAL,
                                                MAX_INPLANE_PRINCIPAL,
                                                MIN_INPLANE_PRINCIPAL,
                                                OUTOFPLANE_PRINCIPAL,
                                                MISES,
                                                TRESCA,
                                                PRESS,
                                                INV3};
constexpr fld_InvariantEnm ofSurfaceTensors[] = {MAX_PRINCIPAL, MIN_PRINCIPAL, MAX_INPLANE_PRINCIPAL,
                                                 MIN_INPLANE_PRINCIPAL};

constexpr fld_DataType rowOf(fld_DataTypeEnm type)
{
    using enum fld_DataTypeEnm;
    using Kind = fld_DataType::Kind;
    fld_DataType row;
    row.store = type;
    row.isOfStore = true;
    const auto is = [&row](int number, const char* name, Kind kind, int width) {
        row.shownAs = number;
        row.name = name;
        row.kind = kind;
        row.width = width;
    };
    const auto isTensor = [&](int number, const char* name, std::span<const char* const> components, const int* places,
                              std::span<const fld_InvariantEnm> invariants, fld_DataTypeEnm systems) {
        is(number, name, Kind::TENSOR, static_cast<int>(components.size()));
        row.components = components;
        row.placesInFullTensor = places;
        row.invariants = invariants;
        row.systems = systems;
        row.hasSystems = true;
    };
    const auto isWrittenByElementSet = [&row](int labels) {
        row.isWrittenByElementSet = true;
        row.labelsBySet = labels;
    };
    // No default: a type without a row is a warning, and so an error.
    switch (type) {
    case UNDEFINED:
    case UNUSED_14:
    case NOT_FOUND:
        row.labelsBySet = 0;
        return row;
    case BOOLEAN:
        is(0, "BOOLEAN", Kind::OTHER, 1);
        row.labelsBySet = 0;
        return row;
    case INTEGER:
        is(1, "INTEGER", Kind::OTHER, 1);
        row.labelsBySet = 0;
        return row;
    case SCALAR:
        is(2, "SCALAR", Kind::SCALAR, 1);
        row.isWrittenByNodeSet = true;
        isWrittenByElementSet(0);
        return row;
    case VECTOR:
        is(3, "VECTOR", Kind::VECTOR, 0);
        row.components = inSpace;
        row.planarComponents = inPlane;
        row.invariants = ofVectors;
        row.hasSystems = true;
        row.isWrittenByNodeSet = true;
        isWrittenByElementSet(3);
        return row;
    case MATRIX:
        is(4, "MATRIX", Kind::MATRIX, 0);
        return row;
    case QUATERNION_2D:
        is(11, "QUATERNION_2D", Kind::QUATERNION, 2);
        return row;
    case QUATERNION_3D:
        is(10, "QUATERNION_3D", Kind::QUATERNION, 4);
        return row;
    case TENSOR:
        return row;
    case TENSOR_3D_FULL:
        isTensor(5, "TENSOR_3D_FULL", ofFullTensor, inOrder, ofFullTensors, QUATERNION_3D);
        isWrittenByElementSet(6);
        return row;
    case TENSOR_3D_PLANAR:
        isTensor(6, "TENSOR_3D_PLANAR", ofPlanarTensor, inOrder, ofPlanarTensors, QUATERNION_3D);
        row.isWidened = true;
        isWrittenByElementSet(4);
        return row;
    case TENSOR_3D_SURFACE:
        isTensor(7, "TENSOR_3D_SURFACE", ofSurfaceTensor, ofSurface, ofSurfaceTensors, QUATERNION_3D);
        return row;
    case TENSOR_2D_PLANAR:
        isTensor(8, "TENSOR_2D_PLANAR", ofPlanarTensor, inOrder, ofPlanarTensors, QUATERNION_2D);
        row.isWidened = true;
        isWrittenByElementSet(4);
        return row;
    case TENSOR_2D_SURFACE:
        isTensor(9, "TENSOR_2D_SURFACE", ofSurfaceTensor, ofSurface, ofSurfaceTensors, QUATERNION_2D);
        return row;
    }
    return {};
}

// By store number; numbers that mean nothing have a row that knows nothing.
constexpr auto typeRows = [] {
    std::array<fld_DataType, 32> all;
    for (std::size_t code = 0; code < all.size(); ++code) all[code] = rowOf(static_cast<fld_DataTypeEnm>(code));
    return all;
}();
constexpr fld_DataType unknownType;
constexpr auto typesByPublicNumber = [] {
    std::array<const fld_DataType*, typeRows.size()> found;
    found.fill(&unknownType);
    for (const fld_DataType& row : typeRows) {
        if (row.shownAs != fld_DataType::noNumber) found[static_cast<std::size_t>(row.shownAs)] = &row;
    }
    return found;
}();

// Value mathematics knows the types by the same numbers.
constexpr bool isSame(fld_DataTypeEnm type, eng_DataType::Enm ofMathematics)
{
    return static_cast<int>(type) == static_cast<int>(ofMathematics);
}
static_assert(isSame(fld_DataTypeEnm::VECTOR, eng_DataType::VECTOR));
static_assert(isSame(fld_DataTypeEnm::QUATERNION_2D, eng_DataType::QUATERNION_2D));
static_assert(isSame(fld_DataTypeEnm::QUATERNION_3D, eng_DataType::QUATERNION_3D));
static_assert(isSame(fld_DataTypeEnm::TENSOR_3D_FULL, eng_DataType::TENSOR_3D_FULL));
static_assert(isSame(fld_DataTypeEnm::TENSOR_3D_PLANAR, eng_DataType::TENSOR_3D_PLANAR));
static_assert(isSame(fld_DataTypeEnm::TENSOR_3D_SURFACE, eng_DataType::TENSOR_3D_SURFACE));
static_assert(isSame(fld_DataTypeEnm::TENSOR_2D_PLANAR, eng_DataType::TENSOR_2D_PLANAR));
static_assert(isSame(fld_DataTypeEnm::TENSOR_2D_SURFACE, eng_DataType::TENSOR_2D_SURFACE));

} // namespace

const fld_DataType& fld_DataType::of(fld_DataTypeEnm type)
{
    const auto code = static_cast<std::size_t>(type);
    return code < typeRows.size() ? typeRows[code] : unknownType;
}

const fld_DataType& fld_DataType::shownBy(int publicNumber)
{
    const auto number = static_cast<std::size_t>(publicNumber);
    return number < typesByPublicNumber.size() ? *typesByPublicNumber[number] : unknownType;
}

fld_DataTypeEnm fld_DataType::quaternionOf(int width)
{
    const auto found = std::find_if(typeRows.begin(), typeRows.end(),
                                    [=](const fld_DataType& row) { return row.isQuaternion() && row.width == width; });
    return found == typeRows.end() ? fld_DataTypeEnm::UNDEFINED : found->store;
}
