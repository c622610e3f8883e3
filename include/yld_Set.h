#ifndef YLD_SET_H
#define YLD_SET_H

#include "containers/shr_COW.h"
#include "platform/base/bas_Export.h"
#include "yld_Enum.h"
#include "yld_MeshList.h"
#include "yld_Sequence.h"
#include "yld_SequenceElement.h"
#include "yld_SequenceNode.h"
#include "yld_String.h"

class sto_Set;

/// A node set, an element set or a surface, of a part, an instance or the assembly. Its members are read when they are
/// first asked for, and come in groups: those of a part or instance have one, those of the assembly one for each
/// instance. A handle: copies stand for the same stored set, each with the members that it has read.
class YLD_API yld_Set
{
public:
    yld_Set();
    /// A set of the assembly, over the meshes of its instances.
    yld_Set(const yld_String& name, const sto_Set& set, const yld_MeshList& meshes);
    /// A set on one mesh.
    yld_Set(const yld_String& name, const sto_Set& set, const yld_MeshHandle& mesh);
    yld_Set(const yld_Set&);
    yld_Set& operator=(const yld_Set&);
    ~yld_Set();

    yld_String name() const { return m_name; }
    const yld_MeshList& MeshList() const { return m_meshes; }
    /// Raises "Unknown Set type." for a number that a damaged file may have.
    yld_Enum::yld_SetTypeEnum type() const;
    /// How many members the store counts, over all meshes. Reads no member.
    int size() const;
    /// Whether it was made by the library or a program for itself, and is left out of lists for users.
    bool isInternal() const;
    /// Whether its maker said that the order of its members matters.
    bool isUnsorted() const;
    /// The instance of each group, by name.
    yld_Sequence<yld_String> instanceNames() const;

    /// The nodes of the first group; of a surface, those of its faces. Raises "This set does not contain nodes.".
    /// References, here and below, are good until the set gets other members.
    const yld_SequenceNode& nodes() const;
    /// The elements of the first group. Raises "This set does not contain elements.".
    const yld_SequenceElement& elements() const;
    /// The faces of a surface, one for each of its elements. Raises "Faces must be retrieved using the instance name
    /// for assembly sets." for every set of the assembly, and "Set does not contain faces.".
    const yld_Sequence<yld_Enum::yld_ElementFaceEnum>& faces() const;
    /// The same of the group of one instance. Raises also "Instance '%1$s is not a member of the set '%2$s'".
    const yld_SequenceNode& nodes(const yld_String& instanceName) const;
    const yld_SequenceElement& elements(const yld_String& instanceName) const;
    const yld_Sequence<yld_Enum::yld_ElementFaceEnum>& faces(const yld_String& instanceName) const;

    /// Older names of the same.
    const yld_SequenceNode& node() const { return nodes(); }
    const yld_SequenceElement& element() const { return elements(); }
    const yld_Sequence<yld_Enum::yld_ElementFaceEnum>& face() const { return faces(); }
    const yld_SequenceNode& node(const yld_String& name) const { return nodes(name); }
    const yld_SequenceElement& element(const yld_String& name) const { return elements(name); }
    const yld_Sequence<yld_Enum::yld_ElementFaceEnum>& face(const yld_String& name) const { return faces(name); }

    /// Replaces all members by those of these labels, nodes or elements of the set's first mesh; the next save keeps
    /// it. The set stays internal or not, whatever isInternal says. Raises "Entity has no mesh.", and "Number of faces
    /// and elements should agree for a Surface." for a surface.
    void addLabels(const yld_Sequence<int>& labels, bool isInternal = false, bool isUnsorted = false);
    /// Replaces all faces of a surface; does nothing to any other set.
    void addSurfaceLabels(const yld_Sequence<int>& labels, const yld_Sequence<yld_Enum::yld_ElementFaceEnum>& faces,
                          bool isInternal = false);

    /// Forgets the members; they are read again when asked for.
    void clearMembers();
    const sto_Set& set() const;

private:
    void fill() const;

    shr_CountedHld<sto_Set> m_set;
    mutable bool m_filled = false;
    bool m_isAssemblySet = false;
    yld_String m_name;
    yld_MeshList m_meshes;
    mutable yld_Sequence<yld_SequenceElement> m_elements;
    mutable yld_Sequence<yld_SequenceNode> m_nodes;
    mutable yld_Sequence<yld_Sequence<yld_Enum::yld_ElementFaceEnum>> m_faces;
};

#endif
