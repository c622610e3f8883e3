#ifndef MSHK_MESH_H
#define MSHK_MESH_H

#include "platform/store/mrp_Container.h"
#include "platform/store/pcl_Persistent.h"

class grd_ElementClass;
class grd_NodeData;
class mshK_PartInstance;
class setC_Set;

/// A mesh: of a part, of an instance, which shares nodes and elements with the part's mesh and has sets of its own,
/// or of the assembly.
///
/// The key of a set in its container is the letter of its type (N, E or S) and its label, so that a list of sets can
/// be walked and searched without reading any of them. Internal sets, of which writing results makes many, are kept
/// apart.
class mshK_Mesh : public pcl_Class<mshK_Mesh>
{
public:
    static constexpr const char* className = "mshK_Mesh";
    static constexpr unsigned classId = 0x00100004;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("mesh index", self.m_meshIndex);
        visit("source", self.m_source);
        visit("instance", self.m_instance);
        visit("node data", self.m_nodeData);
        visit("element classes", self.m_classes);
        visit("sets", self.m_sets);
        visit("internal sets", self.m_internalSets);
    }

    int m_meshIndex = -1;
    lnk_ShortCut<mshK_Mesh> m_source;           ///< of an instance: the part's mesh
    lnk_ShortCut<mshK_PartInstance> m_instance; ///< the instance that this is the mesh of, or null
    lnk_ShortCut<grd_NodeData> m_nodeData;
    mrp_Container<grd_ElementClass> m_classes;
    mrp_Container<setC_Set> m_sets;
    mrp_Container<setC_Set> m_internalSets;
};

#endif
