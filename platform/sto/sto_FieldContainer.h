#ifndef STO_FIELDCONTAINER_H
#define STO_FIELDCONTAINER_H

#include "platform/result/fld_Frame.h"

class sto_Field;

/// The stored fields of a frame, by key.
class sto_FieldContainer
{
public:
    sto_FieldContainer() = default;
    explicit sto_FieldContainer(const lnk_ShortCut<fld_Frame>& frame) : m_frame(frame) {}

    int size() const;
    /// Reads the field's row; neither its values nor another field. Raises when the frame has no field of that key.
    sto_Field get(int key) const;

private:
    lnk_ShortCut<fld_Frame> m_frame;
};

#endif
