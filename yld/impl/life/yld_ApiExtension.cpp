#include "yld_ApiExtension.h"

yld_ApiExtension::yld_ApiExtension() = default;
yld_ApiExtension::yld_ApiExtension(const yld_String& name, const yld_String& content) : m_name(name), m_content(content)
{
}
yld_ApiExtension::yld_ApiExtension(const yld_ApiExtension&) = default;
yld_ApiExtension& yld_ApiExtension::operator=(const yld_ApiExtension&) = default;
yld_ApiExtension::~yld_ApiExtension() = default;
