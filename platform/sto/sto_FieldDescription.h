#ifndef STO_FIELDDESCRIPTION_H
#define STO_FIELDDESCRIPTION_H

#include "containers/shr_String.h"
#include "platform/result/fld_FieldDescription.h"
#include "platform/sto/sto_Assembly.h"

/// A handle on the description of stored fields. Everything that is asked of it comes from its row; no value is read.
class sto_FieldDescription
{
public:
    sto_FieldDescription() = default;
    explicit sto_FieldDescription(const lnk_ShortCut<fld_FieldDescription>& description) : m_description(description) {}

    bool isValid() const { return m_description.isValid(); }
    const lnk_ShortCut<fld_FieldDescription>& shortCut() const { return m_description; }
    /// The description as it stands.
    std::shared_ptr<const fld_FieldDescription> data() const { return m_description.fetch(); }

    int key() const { return data()->m_key; }
    shr_String label() const { return data()->m_label.c_str(); }
    fld_OutputPositionEnm position() const { return data()->position(); }
    fld_DataTypeEnm dataType() const { return data()->dataType(); }
    int width() const { return data()->m_width; }
    int length() const { return data()->m_length; }
    int locationIndex() const { return data()->m_locationIndex; }
    bool isPair() const { return data()->m_isPair; }

    bool hasOrientation() const { return data()->m_orientation.isValid(); }
    sto_FieldDescription orientation() const { return sto_FieldDescription(data()->m_orientation); }

    bool hasPartInstance() const { return data()->m_instance.isValid(); }
    sto_PartInstance partInstance() const;
    bool hasRootAssembly() const { return data()->m_rootAssembly.isValid(); }
    sto_Assembly rootAssembly() const;
    /// The mesh that the values lie on: the instance's or the assembly's; no mesh when the description names neither.
    sto_Mesh mesh() const { return mesh(*data()); }
    static sto_Mesh mesh(const fld_FieldDescription& description);
    bool hasSet() const { return data()->m_set.isValid(); }
    sto_Set set() const;
    /// 0 nodes, 1 elements, 2 surface, 7 not known.
    int setType() const;
    /// The element class of values on elements or faces; no class for others. Raises when the mesh has no such class.
    sto_ElementClass elementClass() const { return elementClass(*data()); }
    static sto_ElementClass elementClass(const fld_FieldDescription& description);
    /// The text of the section point in its element class; empty where there is none.
    shr_String sectionPointLabel() const { return sectionPointLabel(*data()); }
    static shr_String sectionPointLabel(const fld_FieldDescription& description);

private:
    lnk_ShortCut<fld_FieldDescription> m_description;
};

#endif
