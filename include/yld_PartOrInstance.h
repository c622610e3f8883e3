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

/// What a part and a part instance have in common beside the mesh: sets of their own, and what is assigned to them.
/// @tparam Entity  yld_Part or yld_Instance
template<class Entity> class YLD_API yld_PartOrInstance : public yld_DiscreteEntity
{
public:
    /// A set of the nodes of a sequence, in its order.
    /// Raises "SequenceNode is not associated with this entity.", "Duplicate set or surface name %s". Here and below
    /// the reference holds until the sets of the entity are next changed.
    yld_Set& NodeSet(const yld_String& name, const yld_SequenceNode& nodes);
    /// Raises "SequenceElement is not associated with this entity.", "Duplicate set or surface name %s".
    yld_Set& ElementSet(const yld_String& name, const yld_SequenceElement& elements);
    /// @param faces  one face a label; labels that the mesh has not are left out
    /// Raises "Duplicate set or surface name %s", as exc_TextException the messages for faces that an element has not,
    /// and for a part "Number of faces and elements should agree for a Surface.", for an instance "Number of surface
    /// faces and elements must agree.".
    yld_Set& Surface(const yld_String& name, const yld_Sequence<int>& labels,
                     const yld_Sequence<yld_Enum::yld_ElementFaceEnum>& faces, bool isInternal = false);
    /// The same by the labels of a sequence, which may be one of another entity.
    yld_Set& Surface(const yld_String& name, const yld_SequenceElement& elements,
                     const yld_Sequence<yld_Enum::yld_ElementFaceEnum>& faces);

    /// Gives the elements of a set a section. Of the set only the type and the name are looked at.
    /// @param offset  of the reference surface, in thicknesses
    /// Raises "Section assignment requires element sets.", "Section assignment requires element set from this part."
    /// or, of an instance, "Section assignment requires element set from this part instance.".
    void assignSection(const yld_Set& set, const yld_Section& section, float offset = 0.0f);
    /// Give the elements of a set local directions: a coordinate system turned about one of its axes.
    /// @param angle  in degrees
    /// Raise "Orientation assignment requires element set from this part." or, of an instance, "Orientation assignment
    /// requires element set from this part instance.".
    void assignMaterialOrientation(const yld_Set& set, const yld_DatumCsys& csys, yld_Enum::yld_AxisEnum axis,
                                   float angle, yld_Enum::yld_StackDirectionEnum stackDirection);
    void assignRebarOrientation(const yld_Set& set, const yld_DatumCsys& csys, yld_Enum::yld_AxisEnum axis,
                                float angle);
    /// @param vector  three components. Raises besides "The vector of a beam orientation needs 3 entries.".
    void assignBeamOrientation(const yld_Set& set, yld_Enum::yld_OrientationMethodEnum method,
                               const yld_Sequence<float>& vector);

    /// A fixed system of the model, see yld_DatumCsysRepository. A name that is taken keeps its system, which is given.
    yld_DatumCsys DatumCsysByThreePoints(const yld_String& name, yld_Enum::yld_DatumCsysTypeEnum type,
                                         const yld_Sequence<float>& origin, const yld_Sequence<float>& point1,
                                         const yld_Sequence<float>& point2);
    /// The systems of the model by name. Raises "There is no datum named "%s".".
    bool hasDatumCsys(const yld_String& name) const;
    yld_DatumCsys datumCsys(const yld_String& name) const;

    /// Text for the solver, kept as it is.
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
