#ifndef SHC_INTERPOLANT_H
#define SHC_INTERPOLANT_H

#include "platform/shape/shc_Rule.h"

/// A cell together with an integration rule: everything that all element types of one cell and one rule have
/// in common. Made once per process, in double precision, and never changed.
class shc_Interpolant
{
public:
    enum CodeEnm
    {
        POINT1,
        LINE2,
        LINE3,
        TRIANGLE3,
        TRIANGLE6,
        QUAD4,
        QUAD4R,
        QUAD8,
        QUAD8R,
        QUAD9,
        QUAD9R,
        HEX8,
        HEX8R,
        HEX20,
        HEX20R,
        HEX27,
        HEX27R,
        WEDGE6,
        WEDGE15,
        WEDGE18,
        TET4,
        TET10,
        PYRAMID5,
        NUM_CODES
    };

    static const shc_Interpolant& Get(CodeEnm code);

    const shc_Cell& Cell() const { return *m_cell; }
    bool IsReduced() const { return m_reduced; }
    /// Integration points of the element.
    const shc_Rule& Rule() const { return m_rule; }
    /// Integration points on a face of a solid; points are in the element's natural coordinates, weights
    /// belong to the face's own. The single face of a line or a plane cell has the element's own points.
    const shc_Rule& FaceRule(int face) const { return m_faceRule[face]; }
    /// The same on an edge.
    const shc_Rule& EdgeRule(int edge) const { return m_edgeRule[edge]; }

    shc_Interpolant(const shc_Interpolant&) = delete;
    shc_Interpolant& operator=(const shc_Interpolant&) = delete;

private:
    struct Store;

    shc_Interpolant() = default;
    void build(CodeEnm code);
    void buildRules(int gauss);

    const shc_Cell* m_cell = nullptr;
    bool m_reduced = false;
    shc_Rule m_rule;
    shc_Rule m_faceRule[shc_Cell::MAX_FACES];
    shc_Rule m_edgeRule[shc_Cell::MAX_EDGES];
};

#endif
