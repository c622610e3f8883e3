#ifndef STO_FIELDBLOCK_H
#define STO_FIELDBLOCK_H

#include "platform/sto/sto_FieldDescription.h"
#include "platform/store/fio_Buffer.h"

#include <memory>
#include <optional>
#include <vector>

/// User labels, one after the other: borrowed where they stand so in the mesh, else in memory of their own. Copies
/// share both.
class sto_Labels
{
public:
    sto_Labels() = default;
    /// A run of a stored array, which is held.
    sto_Labels(const pcl_Array<int>& array, int first, int count);
    /// Labels of their own.
    sto_Labels(const fio_Buffer& labels, int count);

    /// Null where there are none. Good as long as this or a copy lives.
    const int* data() const { return m_data; }
    int size() const { return m_size; }
    const int* begin() const { return m_data; }
    const int* end() const { return m_data + m_size; }
    int operator[](int index) const { return m_data[index]; }

private:
    pcl_Array<int> m_held;
    fio_Buffer m_own;
    const int* m_data = nullptr;
    int m_size = 0;
};

/// What the values of a field's block belong to: the one place that goes from a description to mesh, element class and
/// set, knows the members of the set with their labels and facets and the values of each, and says whether values fit.
///
/// A block looks each of these up once, when it is first asked, and shows the mesh as it stood then: it is made for one
/// piece of work and not kept. The members of a block of nodes are those of all subsets of its set that lie on its
/// mesh; of a block of elements or faces those of the first subset that lies in its class, of a surface the first of
/// faces.
class sto_FieldBlock
{
public:
    /// A block of nothing.
    sto_FieldBlock() = default;
    /// Of a stored description.
    explicit sto_FieldBlock(const sto_FieldDescription& description);
    /// Of one in the making. @param file  for messages
    sto_FieldBlock(fld_FieldDescription description, const std::shared_ptr<fio_FileBody>& file);
    /// Of values on a set; the class counts for sets of elements and faces.
    sto_FieldBlock(const sto_Mesh& mesh, const sto_Set& set, int classIndex);
    /// Of values on one subset alone.
    sto_FieldBlock(const sto_Mesh& mesh, const sto_Set& set, const sto_Subset& subset);

    const fld_FieldDescription& description() const { return *m_description; }
    const fld_OutputPosition& place() const { return m_description->place(); }
    const fld_DataType& type() const { return m_description->type(); }

    /// The instance's mesh or the assembly's; no mesh when the description names neither.
    const sto_Mesh& mesh() const;
    /// The mesh's number in the model, or -1.
    int meshIndex() const;
    /// No set for values that belong to none.
    const sto_Set& set() const;
    /// 0 nodes, 1 elements, 2 surface, 7 not known.
    int setType() const;
    bool isOnNodes() const { return setType() == setC_Set::nodeSet; }
    bool isOnElements() const { return setType() == setC_Set::elementSet; }
    bool isOnFaces() const { return setType() == setC_Set::surface; }
    /// The element class that the description names; no class where it names none. Raises when the mesh lacks it.
    const sto_ElementClass& elementClass() const;
    /// The text of the section point in the class; empty where there is none.
    shr_String sectionPointLabel() const { return sto_FieldDescription::sectionPointLabel(*m_description); }

    /// How many values each member has. 0 at integration points of an element whose type is not known; of faces the
    /// most that one can have.
    int rowsPerMember() const;
    static int rowsPerMember(const fld_OutputPosition& place, int setType, const sto_ElementClass& onClass);

    /// How many members there are.
    int numMembers() const;
    /// The members as nodes of the mesh or elements of the class. Raises for one that the mesh or class lacks.
    std::vector<int> members() const;
    /// Of a surface: whether its members are faces of elements, and not edges. Values on edges are kept and copied, but
    /// not read.
    bool areFaces() const { return !subsets().empty() && subsets().front().subsetType() == setC_SubSet::faces; }
    /// The user label of each member; none for elements without labels. Raises as members() does.
    /// Cost: nothing where the members are a run of the mesh, else one array.
    sto_Labels memberLabels() const;
    /// The facet of each member; none for nodes and elements, and for members without facets.
    std::vector<int> facets() const;
    /// The user labels of the nodes of each element, element by element, also of nodes in other instances.
    sto_Labels connectivityLabels() const;

    /// User labels of nodes of the mesh, also of those in other instances; of elements of the class. Raise for a place
    /// that the mesh or the class lacks, and for elements without labels.
    std::vector<int> nodeLabels(const std::vector<int>& nodes) const;
    std::vector<int> elementLabels(const std::vector<int>& elements) const;

    /// Which member a value on a face belongs to and which point of that face it is, counted from 0, where the faces
    /// differ in their number of points; nothing where all have as many.
    struct FacePoint
    {
        int member;
        int point;
    };
    std::vector<FacePoint> facePoints() const;
    /// Raises unless the stored values are one for each place that the members have.
    void checkFits(int numRows) const;
    /// Raises unless a writer has given as many rows as the description says. The text tells how many "locations" were
    /// expected, and for elements how many each has.
    /// @param halves  2 for the rows of pairs together with their conjugate ones
    void checkLength(long long numRows, int halves = 1) const;

    /// Raises "a field does not fit its set: ...", with the path of the file.
    [[noreturn]] void refuse(const char* what) const;

private:
    const std::vector<sto_Subset>& subsets() const;
    int numPlaces() const;
    template<class Visit> void eachMember(Visit visit) const;
    int nodeLabel(const sto_NodeData& nodes, int node) const;
    [[noreturn]] void refusePlace() const;

    std::shared_ptr<const fld_FieldDescription> m_description;
    std::shared_ptr<fio_FileBody> m_file;
    mutable std::optional<sto_Mesh> m_mesh;
    mutable std::optional<sto_Set> m_set;
    mutable std::optional<sto_ElementClass> m_class;
    mutable std::optional<std::vector<sto_Subset>> m_subsets;
    mutable int m_setType = -1;
};

#endif
