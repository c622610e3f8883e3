#ifndef STO_ASSEMBLY_H
#define STO_ASSEMBLY_H

#include "platform/model/mshK_Assembly.h"
#include "platform/sto/sto_PartInstance.h"

class mshK_Model;

/// Labels of one instance, or of the assembly's own mesh when the name is empty.
struct sto_SetStruct
{
    std::string instanceName;
    std::vector<int> labels;
};

/// Faces and edges of the elements of one instance.
struct mshK_SurfStruct
{
    std::string instanceName;
    std::vector<sto_SurfaceSubset> subsets;
    std::vector<int> faces; ///< as they were given: the number of each face less one
};

/// Whether an element type may stand in the assembly's own mesh: point masses, rigid nodes and connectors.
bool sto_AssemblyAllowedElementType(const std::string& type);

/// A handle on the stored root assembly. What it tells is up to date with every call.
class sto_Assembly
{
public:
    /// No assembly.
    sto_Assembly() = default;
    sto_Assembly(const lnk_ShortCut<mshK_Assembly>& reference, const lnk_ShortCut<mshK_Model>& model)
        : m_reference(reference), m_model(model)
    {
    }

    bool isValid() const { return m_reference.isValid(); }
    std::string name() const { return m_reference.fetch()->m_name; }
    void setName(const std::string& name);

    bool hasMesh() const { return m_reference.fetch()->m_mesh.isValid(); }
    sto_Mesh mesh() const { return sto_Mesh(m_reference.fetch()->m_mesh); }
    /// Makes the assembly's own mesh, or gives it.
    sto_Mesh Mesh(const sto_NodeArg& arg = sto_NodeArg());
    /// Makes the mesh if need be, and appends nodes to it, see sto_Mesh. The set is one of the assembly.
    void addNodes(const int* labels, const float* coordinates, int count, const std::string& setName);
    /// The same for elements; the mesh must be there. Element controls go to the class that was made last, here and
    /// below.
    void addElements(const sto_ElementArg& arg, const std::string& setName, const sto_ElemCtrlParams* params);
    /// The same for elements whose nodes may live in instances; the mesh is made if need be.
    void addElements(const sto_ElementArg& arg, const std::vector<sto_ScopedNode>& nodes,
                     const std::vector<std::string>& names, const std::string& setName,
                     const sto_ElemCtrlParams* params);

    int numInstances() const { return m_reference.fetch()->m_instances.size(); }
    std::string instanceName(int index) const { return m_reference.fetch()->m_instances.key(index); }
    sto_PartInstance instance(int index) const;
    bool hasInstance(const std::string& name) const;
    /// Raises when there is no instance of that name.
    sto_PartInstance instance(const std::string& name) const;

    /// Append to the lists of what is assigned, as those of a part do.
    void AssignSection(const setC_Region& region, const std::string& sectionName, double offset);
    void AssignConnectorOrientation(const prtC_ConnectorOrientation& orientation);

    std::string solverInput() const { return m_reference.fetch()->m_solverInput; }
    void setSolverInput(const std::string& text);

    sto_SetList set() const;
    /// Make a set over several instances. Labels must exist, a surface leaves out those that do not. A name that a set
    /// of the same type has is refused.
    sto_Set Nset(const std::string& name, const std::vector<sto_SetStruct>& groups, bool isInternal, bool isUnsorted);
    sto_Set Elset(const std::string& name, const std::vector<sto_SetStruct>& groups, bool isInternal);
    sto_Set Surface(const std::string& name, const std::vector<mshK_SurfStruct>& groups, bool isInternal);
    /// Put new members in the place of a set's old ones. Raise when there is no such set. Whether a set is internal
    /// is settled when it is made; the flag is taken and changes nothing.
    void modifyNodeSetLabels(const std::string& name, const std::vector<sto_SetStruct>& groups, bool isInternal,
                             bool isUnsorted);
    void modifyElementSetLabels(const std::string& name, const std::vector<sto_SetStruct>& groups, bool isInternal,
                                bool isUnsorted);
    void modifySurfaceLabels(const std::string& name, const std::vector<mshK_SurfStruct>& groups, bool isInternal);

    const lnk_ShortCut<mshK_Assembly>& shortCut() const { return m_reference; }
    const lnk_ShortCut<mshK_Assembly>& reference() const { return m_reference; }
    /// The file that the model is in.
    const std::shared_ptr<fio_FileBody>& modelFile() const { return m_reference.file(); }
    const lnk_ShortCut<mshK_Model>& model() const { return m_model; }

private:
    sto_Mesh meshOf(const std::string& instanceName) const;
    void joinElements(const sto_ElementArg& arg, const std::string& setName);

    lnk_ShortCut<mshK_Assembly> m_reference;
    lnk_ShortCut<mshK_Model> m_model;
};

#endif
