#ifndef YLD_API_EXTENSION_H
#define YLD_API_EXTENSION_H

#include "platform/base/bas_Export.h"
#include "yld_String.h"

/// What a program adds to a database's interface under one of the types of yld_Enum::yld_ApiType: its name, and text
/// that means something to that program alone. A value; copies share their texts.
class YLD_API yld_ApiExtension
{
public:
    /// No extension: name and content are empty.
    yld_ApiExtension();
    explicit yld_ApiExtension(const yld_String& name, const yld_String& content = yld_String());
    yld_ApiExtension(const yld_ApiExtension&);
    yld_ApiExtension& operator=(const yld_ApiExtension&);
    ~yld_ApiExtension();

    const yld_String& name() const { return m_name; }
    const yld_String& content() const { return m_content; }

private:
    yld_String m_name;
    yld_String m_content;
};

#endif
