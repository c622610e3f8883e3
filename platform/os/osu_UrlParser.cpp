#include "platform/os/osu_UrlParser.h"

namespace {

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// Length of the scheme of a URL, 0 if the text is none.
int schemeLength(const char* text)
{
    int length = 0;
    if (!isLetter(text[0])) {
        return 0;
    }
    while (isLetter(text[length]) || isDigit(text[length]) || text[length] == '+' || text[length] == '-' ||
           text[length] == '.') {
        ++length;
    }
    return text[length] == ':' && text[length + 1] == '/' && text[length + 2] == '/' ? length : 0;
}

// Host and port: what stands between the slashes, without the user.
shr_String authority(const msg_StringBase& url)
{
    const int scheme = schemeLength(url.cStr());
    if (scheme == 0) {
        return shr_String();
    }
    const int begin = scheme + 3;
    const int slash = url.find("/", begin);
    const shr_String whole = url.substr(begin, (slash < 0 ? url.length() : slash) - begin);
    return whole.substr(whole.rFind("@") + 1);
}

// Where the host ends: at the port's colon, or at the end.
int hostLength(const msg_StringBase& text)
{
    const int bracket = text.cStr()[0] == '[' ? text.find("]") : -1;
    const int colon = text.find(":", bracket < 0 ? 0 : bracket);
    return colon < 0 ? text.length() : colon;
}

} // namespace

bool osu_UrlParser::IsUrl(const msg_StringBase& text) { return schemeLength(text.cStr()) > 0; }

shr_String osu_UrlParser::GetScheme(const msg_StringBase& url) { return url.substr(0, schemeLength(url.cStr())); }

shr_String osu_UrlParser::GetHost(const msg_StringBase& url)
{
    const shr_String both = authority(url);
    return both.substr(0, hostLength(both));
}

int osu_UrlParser::GetPort(const msg_StringBase& url)
{
    const shr_String both = authority(url);
    const shr_String digits = both.substr(hostLength(both) + 1);
    int port = 0;
    for (const char* text = digits.cStr(); *text; ++text) {
        if (!isDigit(*text)) {
            return 0;
        }
        port = port * 10 + (*text - '0');
        if (port > 65535) {
            return 0;
        }
    }
    return port;
}

shr_String osu_UrlParser::GetPath(const msg_StringBase& url)
{
    const int scheme = schemeLength(url.cStr());
    if (scheme == 0) {
        return shr_String();
    }
    const int slash = url.find("/", scheme + 3);
    return slash < 0 ? shr_String() : shr_String(url.substr(slash));
}
