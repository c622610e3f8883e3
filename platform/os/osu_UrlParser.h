#ifndef OSU_URLPARSER_H
#define OSU_URLPARSER_H

#include "containers/shr_String.h"

/// Parts of a URL `scheme://user@host:port/path`. Parts that are missing, and all parts of a text that is no
/// URL, are empty.
class osu_UrlParser
{
public:
    /// Whether the text begins with a scheme (a letter, then letters, digits, `+`, `-` or points) and "://".
    static bool IsUrl(const msg_StringBase& text);

    static shr_String GetScheme(const msg_StringBase& url);
    /// Without user and port; an address in brackets keeps them.
    static shr_String GetHost(const msg_StringBase& url);
    /// 0 if there is none, or none from 1 to 65535.
    static int GetPort(const msg_StringBase& url);
    /// From the slash after the host to the end of the text.
    static shr_String GetPath(const msg_StringBase& url);
};

#endif
