#ifndef STO_FRAMECONTAINER_H
#define STO_FRAMECONTAINER_H

#include "platform/result/fld_Frame.h"

class sto_Frame;

/// The frames of a step, in order.
class sto_FrameContainer
{
public:
    sto_FrameContainer() = default;
    explicit sto_FrameContainer(const mrp_Container<fld_Frame>& frames) : m_frames(frames) {}

    int size() const { return m_frames.size(); }
    /// Reads the frame alone. Raises when there is no such frame.
    sto_Frame get(int index) const;

private:
    mrp_Container<fld_Frame> m_frames;
};

#endif
