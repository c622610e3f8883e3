#ifndef YLD_PART_OR_INSTANCE_H
#define YLD_PART_OR_INSTANCE_H

#include "yld_DatumCsys.h"
#include "yld_DiscreteEntity.h"
#include "yld_Section.h"

class YLD_API yld_Instance;
class YLD_API yld_Part;
class sto_Part;
class sto_PartInstance;

/// The handle on the stored part or instance of a public one.
template<class Entity> struct yld_StoredEntity;
template<> struct yld_StoredEntity<yld_Part>
{
    using Type = sto_Part;
};
template<> struct yld_StoredEntity<yld_Instance>
{
    using Type = sto_PartInstance;
};

/// What a part and a part instance have in common besides the mesh: sets of their own, and what is assigned to them.
/// @tparam Entity  yld_Part or yld_Instance
template<class Entity> class YLD_API yld_PartOrInstance : public yld_DiscreteEntity
{
public:
    /// A set of the nodes of a sequence; in its order on a part, sorted and each taken once on an instance.
    /// Raises "SequenceNode is not associated with this entity.", "Duplicate set or surface name %s". References to
    /// sets, here and below, are good until the sets of this part or instance are next changed.
    yld_Set& NodeSet(const yld_String& name, const yld_SequenceNode& nodes);
    /// A set of the elements of a sequence, likewise. Raises "SequenceElement is not associated with this entity.",
    /// "Duplicate set or surface name %s".
    yld_Set& ElementSet(const yld_String& name, const yld_SequenceElement& elements);
    /// A surface: faces of elements.
    /// @param labels  element labels; one that the mesh lacks is left out
    /// @param faces   one face for each label
    /// Raises "Duplicate set or surface name %s", as exc_TextException the messages for faces that an element lacks,
    /// and for a part "Number of faces and elements should agree for a Surface.", for an instance "Number of surface
    /// faces and elements must agree.".
    yld_Set& Surface(const yld_String& name, const yld_Sequence<int>& labels,
                     const yld_Sequence<yld_Enum::yld_ElementFaceEnum>& faces, bool isInternal = false);
    /// The same by the labels of a sequence, which may be one of another part or instance.
    yld_Set& Surface(const yld_String& name, const yld_SequenceElement& elements,
                     const yld_Sequence<yld_Enum::yld_ElementFaceEnum>& faces);

    /// Gives the elements of an element set a section. It is tested that the part or instance has an element set of
    /// that name, and not that it is this one.
    /// @param offset  of the reference surface, in thicknesses
    /// Raises "Section assignment requires element sets.", "Section assignment requires element set from this part."
    /// or, of an instance, "Section assignment requires element set from this part instance.".
    void assignSection(const yld_Set& set, const yld_Section& section, float offset = 0.0f);
    /// Give the elements of a set local directions, for their material or for their rebars: those of a coordinate
    /// system that is turned about one of its axes.
    /// @param angle  in degrees
    /// Raise "Orientation assignment requires element set from this part." or, of an instance, "Orientation assignment
    /// requires element set from this part instance.".
    void assignMaterialOrientation(const yld_Set& set, const yld_DatumCsys& csys, yld_Enum::yld_AxisEnum axis,
                                   float angle, yld_Enum::yld_StackDirectionEnum stackDirection);
    void assignRebarOrientation(const yld_Set& set, const yld_DatumCsys& csys, yld_Enum::yld_AxisEnum axis,
                                float angle);
    /// Tells the direction of the cross section of beams.
    /// @param vector  three components in global coordinates. Raises also "The vector of a beam orientation needs 3
    /// entries.".
    void assignBeamOrientation(const yld_Set& set, yld_Enum::yld_OrientationMethodEnum method,
                               const yld_Sequence<float>& vector);

    /// Makes a fixed coordinate system of the model, see yld_DatumCsysRepository; gives the one that has the name if
    /// there is one.
    yld_DatumCsys DatumCsysByThreePoints(const yld_String& name, yld_Enum::yld_DatumCsysTypeEnum type,
                                         const yld_Sequence<float>& origin, const yld_Sequence<float>& point1,
                                         const yld_Sequence<float>& point2);
    /// The coordinate systems of the model, by name. datumCsys() raises "There is no datum named "%s".".
    bool hasDatumCsys(const yld_String& name) const;
    yld_DatumCsys datumCsys(const yld_String& name) const;

    /// Lines of solver input that belong to the part or instance, kept as they are.
    void setSolverInput(const yld_String& text);
    yld_String solverInput() const;

protected:
    using Stored = typename yld_StoredEntity<Entity>::Type;

    yld_PartOrInstance();
    yld_PartOrInstance(const yld_String& name, yld_Enum::yld_DimensionEnum space, yld_Enum::yld_PartTypeEnum type,
                       const Stored& stored, const yld_MeshHandle& mesh);
    yld_PartOrInstance(const yld_PartOrInstance&);
    yld_PartOrInstance& operator=(const yld_PartOrInstance&);
    ~yld_PartOrInstance() override;

    yld_Set& makeNodeSet(yld_SetRepository& sets, const yld_String& name, const yld_Sequence<int>& labels,
                         bool isInternal, bool isUnsorted, bool isSortedFirst);
    yld_Set& makeElementSet(yld_SetRepository& sets, const yld_String& name, const yld_Sequence<int>& labels,
                            bool isInternal);

    shr_CountedHld<Stored> m_stored;

private:
    void requireOrientable(const yld_Set& set) const;
    yld_Set& join(yld_SetRepository& sets, const yld_String& name, const sto_Set& made);
};

#endif
