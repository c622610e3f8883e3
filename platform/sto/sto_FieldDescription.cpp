#include "platform/sto/sto_FieldDescription.h"

#include "platform/store/fio_Error.h"
#include "platform/store/fio_File.h"

sto_PartInstance sto_FieldDescription::partInstance() const { return sto_PartInstance(data()->m_instance); }

sto_Assembly sto_FieldDescription::rootAssembly() const
{
    return sto_Assembly(data()->m_rootAssembly, lnk_ShortCut<mshK_Model>());
}

sto_Mesh sto_FieldDescription::mesh(const fld_FieldDescription& description)
{
    if (description.m_instance.isValid()) return sto_PartInstance(description.m_instance).mesh();
    if (description.m_rootAssembly.isValid()) {
        const sto_Assembly assembly(description.m_rootAssembly, lnk_ShortCut<mshK_Model>());
        if (assembly.hasMesh()) return assembly.mesh();
    }
    return {};
}

sto_Set sto_FieldDescription::set() const { return sto_Set(data()->m_set); }

int sto_FieldDescription::setType() const
{
    constexpr int unknown = 7;
    return hasSet() ? set().setType() : unknown;
}

sto_ElementClass sto_FieldDescription::elementClass(const fld_FieldDescription& description)
{
    if (description.m_classIndex < 0) return {};
    const sto_Mesh on = mesh(description);
    return on.isValid() ? on.elementData().elementClass(description.m_classIndex) : sto_ElementClass();
}

shr_String sto_FieldDescription::sectionPointLabel(const fld_FieldDescription& description)
{
    if (description.m_locationIndex < 0) return {};
    const sto_ElementClass onClass = elementClass(description);
    // A point that the class does not know has a number, but no text.
    if (description.m_locationIndex >= onClass.numLocation()) return {};
    return onClass.sectionPointLabel(description.m_locationIndex).c_str();
}
