#include "yld_Section.h"

#include "platform/attribute/secC_Section.h"
#include "yld/impl/base/yld_Raise.h"

yld_Section::yld_Section() : m_section(new lnk_ShortCut<secC_Section>) {}

yld_Section::yld_Section(const lnk_ShortCut<secC_Section>& section) : m_section(new lnk_ShortCut<secC_Section>(section))
{
}

yld_Section::yld_Section(const yld_Section&) = default;
yld_Section& yld_Section::operator=(const yld_Section&) = default;
yld_Section::~yld_Section() = default;

yld_Section* yld_Section::Copy() const { return new yld_Section(*this); }

int yld_Section::typeIdentifier() { return secC_Section::TypeId(); }

int yld_Section::subTypeIdentifier() const
{
    if (!m_section->isValid()) yld_raise("Cannot fetch sub type for empty yld_Section object.");
    return yld_guard([this] { return m_section->fetch()->m_subType; });
}

yld_String yld_Section::name() const
{
    if (!m_section->isValid()) yld_raise("The section of an assignment is empty.");
    return yld_String(yld_guard([this] { return m_section->fetch()->m_name; }).c_str());
}
