#ifndef FLD_OUTPUT_POSITION_H
#define FLD_OUTPUT_POSITION_H

#include "platform/result/fld_Enum.h"

/// What an output position means: a row a position, and every question about one is answered from its row. A position
/// without a row does not compile.
struct fld_OutputPosition
{
    /// What values belong to.
    enum class Carrier
    {
        NOTHING,
        NODE,
        ELEMENT,
        FACE,
        REGION,
        PART_INSTANCE,
        MODEL,
        PARTICLE
    };
    /// How many values one of these has.
    enum class PerCarrier
    {
        ONE,
        NODES,      ///< one a node of the element
        POINTS,     ///< one an integration point of the element
        FACE_POINTS ///< one an integration point of the face
    };
    /// What a writer by set says to a position. Each refusal has a text of its own.
    enum class BySet
    {
        UNDEFINED,
        INVALID,
        NOT_YET,
        WRITTEN
    };
    /// What a writer by set says to an element set with a position.
    enum class OfElementSet
    {
        UNDEFINED,
        MISMATCH,
        FITTING
    };
    /// The point that a curve at this position belongs to.
    enum class CurvePoint
    {
        UNKNOWN,
        NODE,
        ELEMENT_NODE,
        INTEGRATION_POINT,
        FACE,
        FACE_POINT,
        ELEMENT,
        REGION,
        PART_INSTANCE,
        MODEL
    };

    static constexpr const char* unknownPlace = "Results at unknown location not read.";
    static constexpr int noNumber = -1;

    /// The number in files.
    fld_OutputPositionEnm store = fld_OutputPositionEnm::UNDEFINED;
    /// The public number under which clients see values at the position; noNumber for a code that means nothing.
    int shownAs = noNumber;
    /// The public number by which clients ask for the position. It differs where two positions are shown as one.
    int askedAs = noNumber;
    /// The public enumerator; null for a number that has none.
    const char* name = nullptr;
    Carrier carrier = Carrier::NOTHING;
    PerCarrier perCarrier = PerCarrier::ONE;
    /// Whether blocks can be written with addData() and addBulkData().
    bool isWritable = false;
    BySet bySet = BySet::UNDEFINED;
    OfElementSet ofElementSet = OfElementSet::UNDEFINED;
    /// The word for the position in the refusal of BySet::NOT_YET.
    const char* wordBySet = "";
    /// Whether the values of a block have labels of nodes, elements or faces.
    bool hasLabels = false;
    /// The warning with which values are left unread; null where they are read.
    const char* notRead = unknownPlace;
    /// The warning with which values are not taken out into a field in memory; null where they are.
    const char* notTaken = unknownPlace;
    /// Whether bulk data tell the integration points of the values.
    bool hasPointsInBulk = false;
    /// Whether values at integration points can be moved here.
    bool isMovedTo = false;
    /// Whether nodal values are named and described as contact variables are, after the surfaces that carry them.
    bool isNamedBySurface = false;
    CurvePoint curvePoint = CurvePoint::UNKNOWN;
    /// Whether curves can be written.
    bool takesCurves = false;
    /// The short text of a curve's point, in which %n stands for the node, %e for the element, %f for the face, %p for
    /// the integration point, %r for the region, %i for the instance and %a for the assembly.
    const char* curveText = "Unknown region";

    bool isKnown() const { return shownAs != noNumber; }

    /// The row of a position; of a number that means nothing a row that knows nothing.
    static const fld_OutputPosition& of(fld_OutputPositionEnm position);
    static const fld_OutputPosition& of(int code) { return of(static_cast<fld_OutputPositionEnm>(code)); }
    /// The row that a public number asks for; null for a number that asks for none.
    static const fld_OutputPosition* askedBy(int publicNumber);
    /// The first row that a public number shows, by store number; null for none.
    static const fld_OutputPosition* shownBy(int publicNumber);
};

#endif
