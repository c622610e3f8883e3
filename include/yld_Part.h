#ifndef YLD_PART_H
#define YLD_PART_H

#include "yld_PartOrInstance.h"

class sto_ElemCtrlParams;
class sto_Model;
class sto_Part;

/// Settings of a solver for new elements, handed to the store with them.
class YLD_API yld_ElemCtrlParams
{
public:
    /// No controls are given.
    yld_ElemCtrlParams();
    /// The values are kept in this order; what they mean is the solver's affair. If the sixth is "Enhanced", the 11th,
    /// 12th and 13th become 1.0.
    yld_ElemCtrlParams(yld_String, double, double, double, yld_String, yld_String, double, bool, yld_String, double,
                       double, double, double, double, double);
    yld_ElemCtrlParams(const yld_ElemCtrlParams&);
    yld_ElemCtrlParams& operator=(const yld_ElemCtrlParams&);
    ~yld_ElemCtrlParams();

    bool isSet() const { return m_isSet; }
    const sto_ElemCtrlParams& params() const;

private:
    shr_CountedHld<sto_ElemCtrlParams> m_params;
    bool m_isSet = false;
};

extern template class yld_PartOrInstance<yld_Part>;

/// A part: a mesh with its sets, to be placed in the assembly by instances. yld_Yld::Part() makes one.
class YLD_API yld_Part : public yld_PartOrInstance<yld_Part>
{
public:
    yld_Part();
    yld_Part(const yld_String& name, yld_Enum::yld_DimensionEnum space, yld_Enum::yld_PartTypeEnum type,
             const sto_Part& part, const yld_MeshHandle& mesh);
    yld_Part(const yld_Part&);
    yld_Part& operator=(const yld_Part&);
    ~yld_Part() override;

    /// Adds nodes, see yld_DiscreteEntity::addNodes(). Raises "No node labels provided.", "Number of node labels and
    /// coordinates does not match.", "Node location specification does not correspond to part dimension. %1$s floats
    /// expected; %2$s floats received.", and for labels below 1 or given twice an error of the store. The model is then
    /// as it was.
    void addNodes(const yld_Sequence<int>& labels, const yld_Sequence<yld_Sequence<float>>& coordinates,
                  const yld_String& setName = yld_String()) override;
    /// Adds elements, see yld_DiscreteEntity::addElements(). Raises "No element labels provided.", "Connectivity array
    /// must be provided for all elements. ", "elements of type "%s" require "%d" nodes in their connectivity data.\n",
    /// "Element connectivity arrays should be of same length.".
    void addElements(const yld_Sequence<int>& labels, const yld_Sequence<yld_Sequence<int>>& connectivity,
                     const yld_String& type, const yld_String& setName = yld_String(),
                     const yld_SectionCategory& category = yld_SectionCategory(),
                     const yld_ElemCtrlParams& params = yld_ElemCtrlParams()) override;

    using yld_PartOrInstance::ElementSet;
    using yld_PartOrInstance::NodeSet;
    /// A node set by labels, which stand in it in the order given, repeated ones too. The reference is good until the
    /// sets of the part are next changed. Raises "Duplicate set or surface name %s", "Invalid node label %d".
    yld_Set& NodeSet(const yld_String& name, const yld_Sequence<int>& labels, bool isInternal = false,
                     bool isUnsorted = false);
    /// An element set by labels. Raises "Duplicate set or surface name %s", "Invalid element label %d".
    yld_Set& ElementSet(const yld_String& name, const yld_Sequence<int>& labels, bool isInternal = false);

    /// For the layers underneath: a handle on the stored part.
    sto_Part part() const;

private:
    void bindMesh();
    void joinSet(const yld_String& name, yld_Enum::yld_SetTypeEnum type);
};

/// The parts of a database, by name.
class YLD_API yld_PartRepository : public yld_Repository<yld_String, yld_Part>
{
public:
    yld_PartRepository();
    explicit yld_PartRepository(const sto_Model& model);
    yld_PartRepository(const yld_PartRepository&);
    yld_PartRepository& operator=(const yld_PartRepository&);
    ~yld_PartRepository();

    /// A new part; or the part that has the name already.
    yld_Part& Part(const yld_String& name, yld_Enum::yld_DimensionEnum space, yld_Enum::yld_PartTypeEnum type);

private:
    shr_CountedHld<sto_Model> m_model;
};

#endif
