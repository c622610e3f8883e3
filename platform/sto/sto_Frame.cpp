#include "platform/sto/sto_Frame.h"

#include "platform/sto/sto_FieldFrame.h"

shr_String sto_Frame::frameLabel() const { return m_frame.fetch()->m_label.c_str(); }

float sto_Frame::time() const { return m_frame.fetch()->m_value; }

int sto_Frame::incrementNumber() const { return m_frame.fetch()->m_increment; }

bool sto_Frame::hasLoadCase() const { return !m_frame.fetch()->m_loadCase.empty(); }

shr_String sto_Frame::loadCaseName() const { return m_frame.fetch()->m_loadCase.c_str(); }

void sto_Frame::setLoadCaseName(const shr_String& name)
{
    m_frame.edit([&name](fld_Frame& frame) { frame.m_loadCase = name.cStr(); });
}

bool sto_Frame::hasModeNumber() const { return m_frame.fetch()->m_hasMode; }

int sto_Frame::getModeNumber() const { return m_frame.fetch()->m_mode; }

void sto_Frame::setModeNumber(int mode)
{
    m_frame.edit([mode](fld_Frame& frame) {
        frame.m_mode = mode;
        frame.m_hasMode = true;
    });
}

bool sto_Frame::hasAssociation() const { return m_frame.fetch()->m_hasAssociation; }

void sto_Frame::setAssociation(bool has)
{
    m_frame.edit([has](fld_Frame& frame) { frame.m_hasAssociation = has; });
}

bool sto_Frame::isImaginary() const { return m_frame.fetch()->m_isImaginary; }

void sto_Frame::setImaginary(bool imaginary)
{
    m_frame.edit([imaginary](fld_Frame& frame) { frame.m_isImaginary = imaginary; });
}

int sto_Frame::defaultPrimaryVariable() const { return m_frame.fetch()->m_defaultPrimaryVariable; }

void sto_Frame::setDefaultPrimaryVariable(int key)
{
    m_frame.edit([key](fld_Frame& frame) { frame.m_defaultPrimaryVariable = key; });
}

int sto_Frame::defaultDeformedVariable() const { return m_frame.fetch()->m_defaultDeformedVariable; }

void sto_Frame::setDefaultDeformedVariable(int key)
{
    m_frame.edit([key](fld_Frame& frame) { frame.m_defaultDeformedVariable = key; });
}

bool sto_Frame::hasField() const { return m_frame.fetch()->m_fields.isValid(); }

sto_FieldFrame sto_Frame::fieldFrame() const { return sto_FieldFrame(m_frame); }
