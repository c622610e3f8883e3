#ifndef MSG_TRANSLATE_H
#define MSG_TRANSLATE_H

#include "platform/text/msg_StringBase.h"

/// Texts of messages in the user's language, by their original text.
class msg_Catalogue
{
public:
    virtual ~msg_Catalogue();
    /// The translation of a format string, or null if there is none. Read at once, not kept.
    virtual const char* Find(const char* format) const = 0;
};

/// Installs the catalogue of the whole process; null takes it away. It is borrowed until it is replaced.
/// @return the one that was installed before, or null
const msg_Catalogue* msg_installCatalogue(const msg_Catalogue* catalogue);

/// One message in the making: the format is looked up in the catalogue and kept as it is if that has none,
/// then values go into its placeholders.
///
/// `%s` and `%d` stand for the values in their order, `%1$s`, `%2$d` and so on for the value of that number,
/// so that a translation can reorder them; `%%` is a per cent sign. A placeholder without a value, and a per
/// cent sign before anything else, stay as they are. Values are not searched for placeholders.
class msg_translate
{
public:
    explicit msg_translate(const char* format);
    ~msg_translate();
    msg_translate(const msg_translate&) = delete;
    msg_translate& operator=(const msg_translate&) = delete;

    /// Gives a value for a position from 1 to `mostValues`; other positions are ignored, a second value for
    /// the same position replaces the first.
    void msg_SubstituteFormat(int position, const msg_StringBase& value);
    void msg_SubstituteFormat(int position, const char* value);
    void msg_SubstituteFormat(int position, int value);
    void msg_SubstituteFormat(int position, unsigned int value);

    /// The finished text.
    msg_StringBase Result() const;

    static constexpr int mostValues = 9;

private:
    msg_StringBase m_format;
    msg_StringBase m_values[mostValues];
    unsigned m_given = 0;
};

#endif
