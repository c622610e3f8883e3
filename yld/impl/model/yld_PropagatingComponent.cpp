#include "yld_PropagatingComponent.h"

#include "platform/sto/sto_ComponentArg.h"

yld_PropagatingComponent::operator sto_ComponentArg() const
{
    switch (m_kind) {
    case yld_UNSET_COMPONENT:
        return sto_ComponentArg(sto_ComponentArg::UNSET);
    case yld_FREE_COMPONENT:
        return sto_ComponentArg(sto_ComponentArg::FREE);
    case yld_REAL_COMPONENT:
        return sto_ComponentArg(m_value);
    default:
        return sto_ComponentArg(m_complexValue);
    }
}
