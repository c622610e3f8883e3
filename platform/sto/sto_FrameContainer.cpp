#include "platform/sto/sto_FrameContainer.h"

#include "platform/sto/sto_Frame.h"
#include "platform/store/fio_Error.h"
#include "platform/store/fio_File.h"

sto_Frame sto_FrameContainer::get(int index) const
{
    if (index < 0 || index >= size()) {
        fio_raise(m_frames.isNull() ? std::string() : m_frames.file()->path(),
                  "frame " + std::to_string(index) + " asked for, but there are " + std::to_string(size()));
    }
    return sto_Frame(m_frames.at(index));
}
