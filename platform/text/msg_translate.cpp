#include "platform/text/msg_translate.h"

namespace {

const msg_Catalogue* installed = nullptr;

} // namespace

msg_Catalogue::~msg_Catalogue() = default;

const msg_Catalogue* msg_installCatalogue(const msg_Catalogue* catalogue)
{
    const msg_Catalogue* const before = installed;
    installed = catalogue;
    return before;
}

msg_translate::msg_translate(const char* format)
{
    const char* const found = installed && format ? installed->Find(format) : nullptr;
    m_format = found ? found : format;
}

msg_translate::~msg_translate() = default;

void msg_translate::msg_SubstituteFormat(int position, const msg_StringBase& value)
{
    if (position >= 1 && position <= mostValues) {
        m_values[position - 1] = value;
        m_given |= 1u << position;
    }
}

void msg_translate::msg_SubstituteFormat(int position, const char* value)
{
    msg_SubstituteFormat(position, msg_StringBase(value));
}

void msg_translate::msg_SubstituteFormat(int position, int value)
{
    msg_SubstituteFormat(position, msg_StringBase(value));
}

void msg_translate::msg_SubstituteFormat(int position, unsigned int value)
{
    msg_SubstituteFormat(position, msg_StringBase(value));
}

// Built in one pass over the format: what a value brings in is never looked at again.
msg_StringBase msg_translate::Result() const
{
    if (m_format.find("%") < 0) {
        return m_format;
    }
    msg_StringBase result;
    int next = 1;
    const char* text = m_format.cStr();
    while (*text) {
        const char* plain = text;
        while (*text && *text != '%') {
            ++text;
        }
        result.append(plain, static_cast<int>(text - plain));
        if (!*text) {
            break;
        }
        if (text[1] == '%') {
            result.append("%");
            text += 2;
            continue;
        }
        const bool numbered = text[1] >= '1' && text[1] <= '9' && text[2] == '$';
        const int length = numbered ? 4 : 2;
        const char kind = numbered ? text[3] : text[1];
        if (kind != 's' && kind != 'd') {
            result.append(text, 1);
            ++text;
            continue;
        }
        const int position = numbered ? text[1] - '0' : next++;
        if (position <= mostValues && (m_given >> position & 1u)) {
            result.append(m_values[position - 1]);
        } else {
            result.append(text, length);
        }
        text += length;
    }
    return result;
}
