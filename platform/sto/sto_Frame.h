#ifndef STO_FRAME_H
#define STO_FRAME_H

#include "containers/shr_String.h"
#include "platform/result/fld_Frame.h"

class sto_FieldFrame;

/// A handle on a stored frame.
class sto_Frame
{
public:
    sto_Frame() = default;
    explicit sto_Frame(const lnk_ShortCut<fld_Frame>& frame) : m_frame(frame) {}

    bool isValid() const { return m_frame.isValid(); }
    const lnk_ShortCut<fld_Frame>& shortCut() const { return m_frame; }

    shr_String frameLabel() const;
    /// Time, frequency or another measure of the step.
    float time() const;
    int incrementNumber() const;
    bool hasLoadCase() const;
    shr_String loadCaseName() const;
    void setLoadCaseName(const shr_String& name);
    bool hasModeNumber() const;
    int getModeNumber() const;
    /// For tests: the library writes none.
    void setModeNumber(int mode);
    /// Whether the frame is one half of a complex pair.
    bool hasAssociation() const;
    /// For tests: the library writes none.
    void setAssociation(bool has);
    bool isImaginary() const;
    /// For tests: the library writes none.
    void setImaginary(bool imaginary);

    /// The key of the field to be shown first, and of the one to deform the model by; -1 for none.
    /// For tests.
    int defaultPrimaryVariable() const;
    void setDefaultPrimaryVariable(int key);
    /// For tests.
    int defaultDeformedVariable() const;
    void setDefaultDeformedVariable(int key);

    bool hasField() const;
    sto_FieldFrame fieldFrame() const;

private:
    lnk_ShortCut<fld_Frame> m_frame;
};

#endif
