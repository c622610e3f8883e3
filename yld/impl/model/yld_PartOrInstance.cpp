#include "yld_PartOrInstance.h"

#include "platform/sto/sto_Model.h"
#include "yld/impl/base/yld_Convert.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld/impl/model/yld_Mesh.h"
#include "yld/impl/model/yld_MeshInput.h"
#include "yld_EnumMap.h"
#include "yld_Instance.h"
#include "yld_Part.h"

#include <algorithm>

namespace {

// Parts and instances raise different texts for the same mistakes: clients compare them.
template<class Entity> struct Messages;

template<> struct Messages<yld_Part>
{
    static constexpr const char* facesDiffer = "Number of faces and elements should agree for a Surface.";
    static constexpr const char* foreignSection = "Section assignment requires element set from this part.";
    static constexpr const char* foreignOrientation = "Orientation assignment requires element set from this part.";
};

template<> struct Messages<yld_Instance>
{
    static constexpr const char* facesDiffer = "Number of surface faces and elements must agree.";
    static constexpr const char* foreignSection = "Section assignment requires element set from this part instance.";
    static constexpr const char* foreignOrientation =
        "Orientation assignment requires element set from this part instance.";
};

template<class Sequence> yld_Sequence<int> labelsOf(const Sequence& items)
{
    const int count = items.size();
    yld_Sequence<int> labels(count);
    for (int i = 0; i < count; ++i) labels.append(items.get(static_cast<unsigned>(i)).label());
    return labels;
}

setC_Region regionOf(const yld_Set& set) { return setC_Region(set.set().shortCut()); }

} // namespace

template<class Entity> yld_PartOrInstance<Entity>::yld_PartOrInstance() : m_stored(new Stored) {}

template<class Entity>
yld_PartOrInstance<Entity>::yld_PartOrInstance(const yld_String& name, yld_Enum::yld_DimensionEnum space,
                                               yld_Enum::yld_PartTypeEnum type, const Stored& stored,
                                               const yld_MeshHandle& mesh)
    : yld_DiscreteEntity(name, space, type, mesh), m_stored(new Stored(stored))
{
}

template<class Entity> yld_PartOrInstance<Entity>::yld_PartOrInstance(const yld_PartOrInstance&) = default;
template<class Entity>
yld_PartOrInstance<Entity>& yld_PartOrInstance<Entity>::operator=(const yld_PartOrInstance&) = default;
template<class Entity> yld_PartOrInstance<Entity>::~yld_PartOrInstance() = default;

template<class Entity>
yld_Set& yld_PartOrInstance<Entity>::join(yld_SetRepository& sets, const yld_String& name, const sto_Set& made)
{
    sets.insert(name, yld_Set(yld_String(made.setLabel().c_str()), made, m_mesh));
    return sets.get(name);
}

template<class Entity>
yld_Set& yld_PartOrInstance<Entity>::makeNodeSet(yld_SetRepository& sets, const yld_String& name,
                                                 const yld_Sequence<int>& labels, bool isInternal, bool isUnsorted,
                                                 bool isSortedFirst)
{
    if (sets.isMember(name)) yld_raise("Duplicate set or surface name %s", name);
    std::vector<int> given = yld_Convert::values(labels);
    if (isSortedFirst) {
        std::sort(given.begin(), given.end());
        given.erase(std::unique(given.begin(), given.end()), given.end());
    }
    const int count = static_cast<int>(given.size());
    return yld_guard([&]() -> yld_Set& {
        sto_Mesh mesh = m_stored->mesh();
        const int bad = mesh.nodeData().CheckUserNodeLabels(given.data(), count);
        if (bad < count) yld_raise("Invalid node label %d", given[static_cast<std::size_t>(bad)]);
        return join(sets, name, mesh.Nset(yld_Convert::text(name), given.data(), count, isInternal, isUnsorted));
    });
}

template<class Entity>
yld_Set& yld_PartOrInstance<Entity>::makeElementSet(yld_SetRepository& sets, const yld_String& name,
                                                    const yld_Sequence<int>& labels, bool isInternal)
{
    if (sets.isMember(name)) yld_raise("Duplicate set or surface name %s", name);
    const std::vector<int> given = yld_Convert::values(labels);
    const int count = static_cast<int>(given.size());
    return yld_guard([&]() -> yld_Set& {
        sto_Mesh mesh = m_stored->mesh();
        const int bad = mesh.elementData().CheckUserElementLabels(given.data(), count);
        if (bad < count) yld_raise("Invalid element label %d", given[static_cast<std::size_t>(bad)]);
        return join(sets, name, mesh.Elset(yld_Convert::text(name), given.data(), count, isInternal));
    });
}

template<class Entity>
yld_Set& yld_PartOrInstance<Entity>::NodeSet(const yld_String& name, const yld_SequenceNode& nodes)
{
    if (!(nodes.instanceName() == m_name)) yld_raise("SequenceNode is not associated with this entity.");
    const bool isInstance = std::is_same_v<Entity, yld_Instance>;
    return makeNodeSet(nodeSets(false, false), name, labelsOf(nodes), false, false, isInstance);
}

template<class Entity>
yld_Set& yld_PartOrInstance<Entity>::ElementSet(const yld_String& name, const yld_SequenceElement& elements)
{
    if (!(elements.instanceName() == m_name)) yld_raise("SequenceElement is not associated with this entity.");
    return makeElementSet(elementSets(false, false), name, labelsOf(elements), false);
}

template<class Entity>
yld_Set& yld_PartOrInstance<Entity>::Surface(const yld_String& name, const yld_Sequence<int>& labels,
                                             const yld_Sequence<yld_Enum::yld_ElementFaceEnum>& faces, bool isInternal)
{
    yld_SetRepository& sets = surfaces(false);
    if (sets.isMember(name)) yld_raise("Duplicate set or surface name %s", name);
    if (labels.size() != faces.size()) yld_raise(Messages<Entity>::facesDiffer);
    sto_Mesh mesh = yld_guard([this] { return m_stored->mesh(); });
    const std::vector<sto_SurfaceSubset> subsets = yld_MeshInput::classify(labels, faces, mesh);
    return yld_guard(
        [&]() -> yld_Set& { return join(sets, name, mesh.Surface(yld_Convert::text(name), subsets, isInternal)); });
}

template<class Entity>
yld_Set& yld_PartOrInstance<Entity>::Surface(const yld_String& name, const yld_SequenceElement& elements,
                                             const yld_Sequence<yld_Enum::yld_ElementFaceEnum>& faces)
{
    return Surface(name, labelsOf(elements), faces, false);
}

template<class Entity>
void yld_PartOrInstance<Entity>::assignSection(const yld_Set& set, const yld_Section& section, float offset)
{
    if (set.type() != yld_Enum::ELEMENT_SET) yld_raise("Section assignment requires element sets.");
    if (!elementSets(false, false).isMember(set.name())) yld_raise(Messages<Entity>::foreignSection);
    yld_guard([&] {
        m_stored->AssignSection(regionOf(set), yld_Convert::text(section.name()), static_cast<double>(offset));
    });
}

template<class Entity> void yld_PartOrInstance<Entity>::requireOrientable(const yld_Set& set) const
{
    if (set.type() == yld_Enum::ELEMENT_SET && elementSets(false, false).isMember(set.name())) return;
    yld_raise(Messages<Entity>::foreignOrientation);
}

template<class Entity>
void yld_PartOrInstance<Entity>::assignMaterialOrientation(const yld_Set& set, const yld_DatumCsys& csys,
                                                           yld_Enum::yld_AxisEnum axis, float angle,
                                                           yld_Enum::yld_StackDirectionEnum stackDirection)
{
    requireOrientable(set);
    yld_guard([&] {
        m_stored->assignMaterialOrientation(regionOf(set), yld_Convert::text(csys.name()), csys.datumCsys(),
                                            unMapAxisEnum(axis), angle,
                                            unMapStackDirectionEnumToStackDirection(stackDirection));
    });
}

template<class Entity>
void yld_PartOrInstance<Entity>::assignRebarOrientation(const yld_Set& set, const yld_DatumCsys& csys,
                                                        yld_Enum::yld_AxisEnum axis, float angle)
{
    requireOrientable(set);
    yld_guard([&] {
        m_stored->assignRebarOrientation(regionOf(set), yld_Convert::text(csys.name()), csys.datumCsys(),
                                         unMapAxisEnum(axis), angle);
    });
}

template<class Entity>
void yld_PartOrInstance<Entity>::assignBeamOrientation(const yld_Set& set, yld_Enum::yld_OrientationMethodEnum method,
                                                       const yld_Sequence<float>& vector)
{
    requireOrientable(set);
    if (vector.size() < 3) yld_raise("The vector of a beam orientation needs 3 entries.");
    yld_guard([&] {
        m_stored->assignBeamOrientation(
            regionOf(set), unMapOrientationMethod(method),
            geo_Vector(static_cast<double>(vector[0]), static_cast<double>(vector[1]), static_cast<double>(vector[2])));
    });
}

template<class Entity>
yld_DatumCsys
yld_PartOrInstance<Entity>::DatumCsysByThreePoints(const yld_String& name, yld_Enum::yld_DatumCsysTypeEnum type,
                                                   const yld_Sequence<float>& origin, const yld_Sequence<float>& point1,
                                                   const yld_Sequence<float>& point2)
{
    float points[9];
    yld_DatumCsysRepository::threePoints(origin, point1, point2, points);
    return yld_guard([&] {
        return yld_DatumCsys(name, m_stored->DatumCsys(yld_Convert::text(name), points, unMapDatumCsysType(type)));
    });
}

template<class Entity> bool yld_PartOrInstance<Entity>::hasDatumCsys(const yld_String& name) const
{
    return yld_guard([&] { return sto_Model(m_stored->model()).hasDatum(yld_Convert::text(name)); });
}

template<class Entity> yld_DatumCsys yld_PartOrInstance<Entity>::datumCsys(const yld_String& name) const
{
    return yld_guard([&] {
        return yld_DatumCsys(name, sto_Model(m_stored->model()).datum(yld_Convert::text(name)).CvtDatumCsys());
    });
}

template<class Entity> void yld_PartOrInstance<Entity>::setSolverInput(const yld_String& text)
{
    yld_guard([&] { m_stored->setSolverInput(yld_Convert::text(text)); });
}

template<class Entity> yld_String yld_PartOrInstance<Entity>::solverInput() const
{
    return yld_String(yld_guard([this] { return m_stored->solverInput(); }).c_str());
}

template class yld_PartOrInstance<yld_Part>;
template class yld_PartOrInstance<yld_Instance>;
