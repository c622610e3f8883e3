#ifndef FLD_FIELD_DESCRIPTION_H
#define FLD_FIELD_DESCRIPTION_H

#include "platform/result/fld_DataType.h"
#include "platform/result/fld_OutputPosition.h"
#include "platform/store/pcl_Persistent.h"

#include <string>
#include <vector>

class mshK_Assembly;
class mshK_PartInstance;
class setC_Set;

/// What the values of a stored field are, and where in the model they belong.
class fld_FieldDescription : public pcl_Class<fld_FieldDescription>
{
public:
    static constexpr const char* className = "fld_FieldDescription";
    static constexpr unsigned classId = 0x00300005;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("key", self.m_key);
        visit("label", self.m_label);
        visit("key text", self.m_keyText);
        visit("description", self.m_description);
        visit("data type", self.m_dataType);
        visit("position", self.m_position);
        visit("location index", self.m_locationIndex);
        visit("class index", self.m_classIndex);
        visit("instance", self.m_instance);
        visit("instance name", self.m_instanceName);
        visit("root assembly", self.m_rootAssembly);
        visit("mesh index", self.m_meshIndex);
        visit("set", self.m_set);
        visit("component labels", self.m_componentLabels);
        visit("label components", self.m_labelComponents);
        visit("invariants", self.m_invariants);
        visit("pair", self.m_isPair);
        visit("orientation", self.m_orientation);
        visit("width", self.m_width);
        visit("length", self.m_length);
        visit("rows", self.m_rows);
        visit("cols", self.m_cols);
        visit("matrix kind", self.m_matrixKind);
        visit("engineering tensor", self.m_engineeringTensor);
        visit("completeness", self.m_completeness);
        visit("clamp type", self.m_clampType);
        visit("min clamp", self.m_minClamp);
        visit("max clamp", self.m_maxClamp);
        visit("load coordinate system", self.m_loadCoordSystem);
    }

    fld_DataTypeEnm dataType() const { return static_cast<fld_DataTypeEnm>(m_dataType); }
    fld_OutputPositionEnm position() const { return static_cast<fld_OutputPositionEnm>(m_position); }
    /// What the type and the position mean.
    const fld_DataType& type() const { return fld_DataType::of(m_dataType); }
    const fld_OutputPosition& place() const { return fld_OutputPosition::of(m_position); }
    /// The name under which the field is known to its frame: the label, rewritten for a contact variable, whose
    /// surfaces stand after the colon of the key text.
    std::string fieldName() const;
    /// "<position code>:<type code>:<field name>".
    std::string keyName() const;

    /// Whether blocks with this description say the same of their values as blocks with another. All attributes take
    /// part but the key, the length and what follows from another attribute; of the orientation whether there is one.
    /// @param hasOrientation  whether the other's values have local systems, which it may not refer to yet
    bool isSame(const fld_FieldDescription& other, bool hasOrientation) const;

    int m_key = -1;
    std::string m_label;
    std::string m_keyText; ///< empty for ordinary fields
    std::string m_description;
    int m_dataType = 0;
    int m_position = 0;
    int m_locationIndex = -1; ///< of the section point in its element class, or -1
    int m_classIndex = -1;    ///< of the element class in its mesh, or -1
    lnk_ShortCut<mshK_PartInstance> m_instance;
    std::string m_instanceName;
    lnk_ShortCut<mshK_Assembly> m_rootAssembly; ///< of values on the assembly's own mesh
    int m_meshIndex = -1;
    lnk_ShortCut<setC_Set> m_set; ///< the nodes, elements or faces that the values belong to, in their order
    std::vector<std::string> m_componentLabels;
    std::vector<int> m_labelComponents; ///< the component that each label names; empty when they stand in order
    std::vector<int> m_invariants;      ///< store codes
    bool m_isPair = false;
    lnk_ShortCut<fld_FieldDescription> m_orientation;
    int m_width = 0;  ///< components a value
    int m_length = 0; ///< values
    int m_rows = 0;   ///< of a matrix
    int m_cols = 0;
    int m_matrixKind = 0; ///< 1 symmetric
    bool m_engineeringTensor = false;
    int m_completeness = 0; ///< 0 complete, 1 partial, 2 no values
    int m_clampType = 0;    ///< 1 lower, 2 upper, 3 both
    float m_minClamp = 0.0F;
    float m_maxClamp = 0.0F;
    int m_loadCoordSystem = 0; ///< 1 for vectors and tensors, 3 for scalars, 0 where the writer does not say
};

#endif
