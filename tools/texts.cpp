#include "texts.h"

std::vector<std::string> tool_texts(const yld_Sequence<yld_String>& texts)
{
    std::vector<std::string> result;
    for (int i = 0; i < texts.size(); ++i) result.push_back(tool_text(texts[i]));
    return result;
}

std::string tool_choices(const std::vector<std::string>& names)
{
    constexpr std::size_t longest = 400;
    if (names.empty()) return "; there is none";
    std::string list;
    for (const std::string& name : names) list += (list.empty() ? "" : ", ") + name;
    if (list.size() > longest) return "; there are " + std::to_string(names.size()) + ", see yld info";
    return "; there is: " + list;
}

std::string tool_oneLine(const std::string& text)
{
    std::string line;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        const bool isBlank = byte <= 0x20 || byte == 0x7f;
        if (!isBlank) line.push_back(c);
        else if (!line.empty() && line.back() != ' ') line.push_back(' ');
    }
    if (!line.empty() && line.back() == ' ') line.pop_back();
    return line;
}
