#include "platform/result/fld_OutputPosition.h"

#include "platform/shape/shc_Topology.h"

#include <array>

namespace {

constexpr fld_OutputPosition rowOf(fld_OutputPositionEnm position)
{
    using enum fld_OutputPositionEnm;
    using Carrier = fld_OutputPosition::Carrier;
    using PerCarrier = fld_OutputPosition::PerCarrier;
    using BySet = fld_OutputPosition::BySet;
    using OfElementSet = fld_OutputPosition::OfElementSet;
    using CurvePoint = fld_OutputPosition::CurvePoint;
    fld_OutputPosition row;
    row.store = position;
    const auto is = [&row](int number, const char* name, Carrier carrier) {
        row.shownAs = row.askedAs = number;
        row.name = name;
        row.carrier = carrier;
        row.bySet = BySet::INVALID;
        row.ofElementSet = OfElementSet::MISMATCH;
    };
    const auto isRead = [&row] {
        row.hasLabels = true;
        row.notRead = nullptr;
    };
    const auto isOfElements = [&](PerCarrier values) {
        row.perCarrier = values;
        row.isWritable = true;
        row.ofElementSet = OfElementSet::FITTING;
        row.notTaken = nullptr;
        isRead();
    };
    // No default: a position without a row is a warning, and so an error.
    switch (position) {
    case UNDEFINED:
        is(0, "UNDEFINED_POSITION", Carrier::NOTHING);
        row.takesCurves = true;
        return row;
    case NODAL:
        is(1, "NODAL", Carrier::NODE);
        isRead();
        row.notTaken = nullptr;
        row.isWritable = true;
        row.bySet = BySet::WRITTEN;
        row.curvePoint = CurvePoint::NODE;
        row.takesCurves = true;
        row.curveText = "Node %n";
        return row;
    case INTEGRATION_POINT:
        is(3, "INTEGRATION_POINT", Carrier::ELEMENT);
        isOfElements(PerCarrier::POINTS);
        row.bySet = BySet::WRITTEN;
        row.hasPointsInBulk = true;
        row.curvePoint = CurvePoint::INTEGRATION_POINT;
        row.takesCurves = true;
        row.curveText = "Element %e Int Point %p";
        return row;
    case ELEMENT_FACE:
        is(5, "ELEMENT_FACE", Carrier::FACE);
        isRead();
        row.notTaken = nullptr;
        row.curvePoint = CurvePoint::FACE;
        row.curveText = "Element %e Face %f";
        return row;
    case ELEMENT_NODAL:
        is(2, "ELEMENT_NODAL", Carrier::ELEMENT);
        isOfElements(PerCarrier::NODES);
        row.bySet = BySet::WRITTEN;
        row.isMovedTo = true;
        row.curvePoint = CurvePoint::ELEMENT_NODE;
        row.curveText = "Element %e Node %n";
        return row;
    case WHOLE_ELEMENT:
        is(8, "WHOLE_ELEMENT", Carrier::ELEMENT);
        isOfElements(PerCarrier::ONE);
        row.bySet = BySet::NOT_YET;
        row.wordBySet = "WHOLE_ELEMENT";
        row.curvePoint = CurvePoint::ELEMENT;
        row.takesCurves = true;
        row.curveText = "Element %e";
        return row;
    case CENTROID:
        is(4, "CENTROID", Carrier::ELEMENT);
        isOfElements(PerCarrier::ONE);
        row.bySet = BySet::NOT_YET;
        row.wordBySet = "ELEMENT_CENTROID";
        row.isMovedTo = true;
        row.curvePoint = CurvePoint::ELEMENT;
        return row;
    case WHOLE_REGION:
        is(9, "WHOLE_REGION", Carrier::REGION);
        row.notRead = row.notTaken = "WHOLE_REGION data are not read.";
        row.curvePoint = CurvePoint::REGION;
        row.takesCurves = true;
        row.curveText = "%r";
        return row;
    case WHOLE_PART_INSTANCE:
        is(10, "WHOLE_PART_INSTANCE", Carrier::PART_INSTANCE);
        row.notRead = row.notTaken = "WHOLE_PART_INSTANCE data are not read.";
        row.curvePoint = CurvePoint::PART_INSTANCE;
        row.curveText = "Instance %i";
        return row;
    case WHOLE_MODEL:
        is(11, "WHOLE_MODEL", Carrier::MODEL);
        row.isWritable = true;
        row.notRead = nullptr;
        row.notTaken = "WHOLE_MODEL data are not read.";
        row.curvePoint = CurvePoint::MODEL;
        row.takesCurves = true;
        row.curveText = "Assembly %a";
        return row;
    case GENERAL_PARTICLE:
        is(12, "GENERAL_PARTICLE", Carrier::PARTICLE);
        row.notRead = row.notTaken = "GENERAL_PARTICLE data are not read.";
        return row;
    case WHOLE_FACE:
        is(13, nullptr, Carrier::FACE);
        return row;
    case NODAL_BY_ELEMENT:
        // Clients see plain nodal values; a number of its own asks for it.
        is(1, "NODAL", Carrier::NODE);
        row.askedAs = 14;
        row.ofElementSet = OfElementSet::UNDEFINED;
        isRead();
        row.notTaken = nullptr;
        row.isNamedBySurface = true;
        row.curvePoint = CurvePoint::NODE;
        return row;
    case ELEMENT_FACE_INTEGRATION_POINT:
        is(6, "ELEMENT_FACE_INTEGRATION_POINT", Carrier::FACE);
        row.perCarrier = PerCarrier::FACE_POINTS;
        row.bySet = BySet::UNDEFINED;
        row.ofElementSet = OfElementSet::UNDEFINED;
        isRead();
        row.hasPointsInBulk = true;
        row.curvePoint = CurvePoint::FACE_POINT;
        row.curveText = "Element %e Face %f Int Point %p";
        return row;
    case SURFACE_INTEGRATION_POINT:
        is(7, "SURFACE_INTEGRATION_POINT", Carrier::FACE);
        row.perCarrier = PerCarrier::FACE_POINTS;
        row.bySet = BySet::UNDEFINED;
        row.ofElementSet = OfElementSet::UNDEFINED;
        isRead();
        row.curvePoint = CurvePoint::FACE_POINT;
        row.curveText = "Element %e Face %f Int Point %p";
        return row;
    case UNUSED_13:
    case UNUSED_14:
    case UNUSED_15:
        row.bySet = BySet::INVALID;
        return row;
    case OTHER:
        is(15, nullptr, Carrier::NOTHING);
        return row;
    }
    return {};
}

// By store number; numbers that mean nothing have a row that knows nothing.
constexpr auto positionRows = [] {
    std::array<fld_OutputPosition, 32> all;
    for (std::size_t code = 0; code < all.size(); ++code) all[code] = rowOf(static_cast<fld_OutputPositionEnm>(code));
    return all;
}();
constexpr fld_OutputPosition unknownPosition;

// Shapes know the positions that they move values from by the same numbers.
constexpr bool isSame(fld_OutputPositionEnm position, shc_Topology::PositionEnm ofShape)
{
    return static_cast<int>(position) == static_cast<int>(ofShape);
}
static_assert(isSame(fld_OutputPositionEnm::INTEGRATION_POINT, shc_Topology::INTEGRATION_POINT));
static_assert(isSame(fld_OutputPositionEnm::ELEMENT_FACE, shc_Topology::ELEMENT_FACE));
static_assert(isSame(fld_OutputPositionEnm::ELEMENT_NODAL, shc_Topology::ELEMENT_NODAL));
static_assert(isSame(fld_OutputPositionEnm::WHOLE_ELEMENT, shc_Topology::WHOLE_ELEMENT));
static_assert(isSame(fld_OutputPositionEnm::CENTROID, shc_Topology::CENTROID));

// The first row, by store number, with each public number.
constexpr auto firstWith(int fld_OutputPosition::*number)
{
    std::array<const fld_OutputPosition*, positionRows.size()> found{};
    for (const fld_OutputPosition& row : positionRows) {
        if (row.*number == fld_OutputPosition::noNumber) continue;
        const fld_OutputPosition*& first = found[static_cast<std::size_t>(row.*number)];
        if (!first) first = &row;
    }
    return found;
}
constexpr auto rowsByAsking = firstWith(&fld_OutputPosition::askedAs);
constexpr auto rowsByShowing = firstWith(&fld_OutputPosition::shownAs);

const fld_OutputPosition* in(const std::array<const fld_OutputPosition*, positionRows.size()>& table, int publicNumber)
{
    const auto number = static_cast<std::size_t>(publicNumber);
    return number < table.size() ? table[number] : nullptr;
}

} // namespace

const fld_OutputPosition& fld_OutputPosition::of(fld_OutputPositionEnm position)
{
    const auto code = static_cast<std::size_t>(position);
    return code < positionRows.size() ? positionRows[code] : unknownPosition;
}

const fld_OutputPosition* fld_OutputPosition::askedBy(int publicNumber) { return in(rowsByAsking, publicNumber); }

const fld_OutputPosition* fld_OutputPosition::shownBy(int publicNumber) { return in(rowsByShowing, publicNumber); }
