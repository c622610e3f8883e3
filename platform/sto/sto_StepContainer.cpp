#include "platform/sto/sto_StepContainer.h"

#include "platform/store/fio_Error.h"
#include "platform/store/fio_File.h"

sto_Step sto_StepContainer::get(const shr_String& name) const
{
    const int place = m_steps.find(name.cStr());
    if (place < 0) fio_raise(m_steps.file()->path(), "has no step named \"" + std::string(name.cStr()) + "\"");
    return get(place);
}

void sto_StepContainer::release(const shr_String& name)
{
    const lnk_ShortCut<fld_Step> step = m_steps.get(name.cStr());
    if (step.isValid()) step.fetch()->m_frames.release();
}

void sto_StepContainer::flush()
{
    if (m_steps.isValid()) m_steps.file()->takeArrays();
}
