#ifndef YLD_MESH_INPUT_H
#define YLD_MESH_INPUT_H

#include "platform/sto/sto_Mesh.h"
#include "yld_Enum.h"
#include "yld_SectionCategory.h"
#include "yld_Sequence.h"
#include "yld_String.h"

#include <vector>

class shc_Topology;

/// What part, instance and assembly have in common in checking what a client gives them and in handing it to the
/// store as plain arrays. All messages are raised as yld_Exception unless told otherwise.
class yld_MeshInput
{
public:
    /// All rows in one array. Raises "Number of node labels and coordinates does not match." and "Node location
    /// specification does not correspond to part dimension. %1$s floats expected; %2$s floats received.".
    static std::vector<float> coordinates(const yld_Sequence<int>& labels,
                                          const yld_Sequence<yld_Sequence<float>>& rows, int dimension);
    /// The same for connectivity. Raises "Element connectivity arrays should be of same length.".
    static std::vector<int> connectivity(const yld_Sequence<yld_Sequence<int>>& rows, int width);

    /// Checks new elements in the order in which all entities do it and gives all rows in one array: connectors of
    /// one node get it twice, and the number of nodes must be that of the type, if the type is known. Raises "No
    /// element labels provided.", "Connectivity array must be provided for all elements. ", "elements of type "%s"
    /// require "%d" nodes in their connectivity data.\n", "Element connectivity arrays should be of same length.".
    /// @param[out] width  nodes an element
    static std::vector<int> elements(const yld_Sequence<int>& labels, const yld_Sequence<yld_Sequence<int>>& rows,
                                     const yld_String& type, int& width);

    /// The argument borrows the two arrays.
    static sto_ElementArg elementArg(const yld_String& type, const std::vector<int>& labels,
                                     const std::vector<int>& connectivity, int width,
                                     const yld_SectionCategory& category);

    /// Sorts the members of a surface into faces and edges: at most two subsets, faces first. Unknown labels are left
    /// out. Raises, as exc_TextException, "Invalid face/edge label for shell elements", "Invalid face identifier for
    /// continuum elements" and their like.
    static std::vector<sto_SurfaceSubset> classify(const yld_Sequence<int>& labels,
                                                   const yld_Sequence<yld_Enum::yld_ElementFaceEnum>& faces,
                                                   const sto_Mesh& mesh);
};

#endif
