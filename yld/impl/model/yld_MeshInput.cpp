#include "yld/impl/model/yld_MeshInput.h"

#include "platform/shape/shc_ShapeDictionary.h"
#include "yld/impl/base/yld_Convert.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld_EnumMap.h"

#include <algorithm>

namespace {

// All rows in one array. A row of another length goes to `odd`, which writes what belongs there or raises.
template<class T, class Odd> std::vector<T> flatten(const yld_Sequence<yld_Sequence<T>>& rows, int width, Odd&& odd)
{
    std::vector<T> all(static_cast<std::size_t>(rows.size()) * static_cast<std::size_t>(width));
    T* to = all.data();
    for (const yld_Sequence<T>& row : rows) {
        if (row.size() != width) odd(row, to);
        for (int i = 0, length = 0; row.size() == width && i < width; i += length) {
            const T* const run = row.run(i, length);
            for (int k = 0; k < length; ++k) to[i + k] = run[k];
        }
        to += width;
    }
    return all;
}

[[noreturn]] void refuseLength(const yld_Sequence<int>&, int*)
{
    yld_raise("Element connectivity arrays should be of same length.");
}

} // namespace

std::vector<float> yld_MeshInput::coordinates(const yld_Sequence<int>& labels,
                                              const yld_Sequence<yld_Sequence<float>>& rows, int dimension)
{
    if (labels.size() != rows.size()) yld_raise("Number of node labels and coordinates does not match.");
    return flatten(rows, dimension, [dimension](const yld_Sequence<float>& row, float*) {
        yld_raise("Node location specification does not correspond to part dimension. %1$s floats expected; %2$s "
                  "floats received.",
                  dimension, row.size());
    });
}

std::vector<int> yld_MeshInput::connectivity(const yld_Sequence<yld_Sequence<int>>& rows, int width)
{
    return flatten(rows, width, refuseLength);
}

std::vector<int> yld_MeshInput::elements(const yld_Sequence<int>& labels, const yld_Sequence<yld_Sequence<int>>& rows,
                                         const yld_String& type, int& width)
{
    if (labels.isEmpty()) yld_raise("No element labels provided.");
    if (rows.size() != labels.size()) yld_raise("Connectivity array must be provided for all elements. ");
    // A connector with one node is fixed to the ground there: its node stands at both ends.
    const bool grounded = shc_Topology::IsConnector(type.cStr());
    width = grounded && rows[0].size() == 1 ? 2 : rows[0].size();
    const shc_Topology* shape = shc_ShapeDictionary::GetShape(type.cStr());
    if (shape && shape->NumNodes() != width) {
        yld_raise("elements of type \"%s\" require \"%d\" nodes in their connectivity data.\n", type,
                  shape->NumNodes());
    }
    return flatten(rows, width, [grounded, width](const yld_Sequence<int>& row, int* to) {
        if (!grounded || row.size() != 1 || width != 2) refuseLength(row, to);
        to[0] = to[1] = row[0];
    });
}

sto_ElementArg yld_MeshInput::elementArg(const yld_String& type, const std::vector<int>& labels,
                                         const std::vector<int>& connectivity, int width,
                                         const yld_SectionCategory& category)
{
    constexpr int mostSectionPoints = 1000000;
    sto_ElementArg arg;
    arg.type = yld_Convert::text(type);
    arg.labels = labels.data();
    arg.numElements = static_cast<int>(labels.size());
    arg.connectivity = connectivity.data();
    arg.nodesPerElement = width;
    arg.categoryDescription = yld_Convert::text(category.description());
    for (const yld_SectionPoint& point : category.sectionPoints()) {
        if (point.number() < 1) continue;
        if (point.number() > mostSectionPoints) yld_raise("Invalid section point number %d.", point.number());
        const std::size_t place = static_cast<std::size_t>(point.number() - 1);
        if (arg.sectionPoints.size() <= place) arg.sectionPoints.resize(place + 1);
        arg.sectionPoints[place] = yld_Convert::text(point.description());
    }
    return arg;
}

namespace {

[[noreturn]] void refuse(const char* text) { throw exc_TextException(msg_Format(text)); }

bool isEdgeOrFace(int face) { return face >= yld_Enum::FACE1 && face <= yld_Enum::FACE6; }

// Whether the face goes to the edges.
bool checkFace(const shc_Topology* shape, yld_Enum::yld_ElementFaceEnum face)
{
    const char* const continuum = "Invalid face identifier for continuum elements";
    const int dimension = shape ? shape->Dimension() : 3;
    const int space = shape ? shape->SpaceDimension() : 3;
    if ((dimension == 2 && space == 3) || (dimension == 1 && shape->IsAxisymmetric())) {
        if (face >= yld_Enum::SIDE1 && face <= yld_Enum::SIDE3) return false;
        if (face >= yld_Enum::FACE1 && face <= yld_Enum::FACE4) return true;
        refuse("Invalid face/edge label for shell elements");
    }
    if (dimension != 1) {
        if (!isEdgeOrFace(face)) refuse(continuum);
        if (!shape) return false;
        if (dimension == 2) {
            if (unMapFaceIndex(face) >= shape->NumEdges()) refuse("Invalid face identifier for 2D continuum elements");
        } else if (unMapFaceIndex(face) >= (dimension == 0 ? 1 : shape->NumFaces())) {
            // A node is the one face of itself, so that rigid nodes can make a surface.
            refuse(continuum);
        }
        return false;
    }
    if (space == 2) {
        if (face != yld_Enum::END1 && face != yld_Enum::END2) refuse("Invalid face identifier for 2D beam elements");
        return false;
    }
    if (face != yld_Enum::FACE1) refuse("Invalid face identifier for 3D beam elements");
    return true;
}

} // namespace

std::vector<sto_SurfaceSubset> yld_MeshInput::classify(const yld_Sequence<int>& labels,
                                                       const yld_Sequence<yld_Enum::yld_ElementFaceEnum>& faces,
                                                       const sto_Mesh& mesh)
{
    const sto_ElementData elements = mesh.elementData();
    const std::vector<int> given = yld_Convert::values(labels);
    const int count = static_cast<int>(given.size());
    std::vector<int> classes(given.size());
    std::vector<int> places(given.size());
    std::vector<const shc_Topology*> shapes;
    for (int i = 0; i < elements.numClasses(); ++i) shapes.push_back(elements.elementClass(i, 0).shape());

    sto_SurfaceSubset faceSubset;
    sto_SurfaceSubset edgeSubset;
    faceSubset.subsetType = setC_SubSet::faces;
    edgeSubset.subsetType = setC_SubSet::edges;
    for (int from = 0; from < count;) {
        const int known =
            elements.GetElementIndices(given.data() + from, count - from, classes.data() + from, places.data() + from);
        for (int i = from; i < from + known; ++i) {
            if (i >= faces.size()) yld_raise("Number of faces and elements should agree for a Surface.");
            const yld_Enum::yld_ElementFaceEnum face = faces[i];
            const std::size_t place = static_cast<std::size_t>(i);
            const bool edge = checkFace(shapes[static_cast<std::size_t>(classes[place])], face);
            sto_SurfaceSubset& subset = edge ? edgeSubset : faceSubset;
            subset.labels.push_back(given[place]);
            subset.facets.push_back(unMapFaceIndex(face));
        }
        from += known + 1;
    }
    std::vector<sto_SurfaceSubset> subsets;
    if (!faceSubset.labels.empty()) subsets.push_back(std::move(faceSubset));
    if (!edgeSubset.labels.empty()) subsets.push_back(std::move(edgeSubset));
    return subsets;
}
