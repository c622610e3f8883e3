#include "names.h"

#include "failure.h"
#include "yld_Yld.h"

#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

std::string tool_domainName(yld_Enum::yld_DomainEnum domain)
{
    switch (domain) {
    case yld_Enum::TIME:
        return "TIME";
    case yld_Enum::FREQUENCY:
        return "FREQUENCY";
    case yld_Enum::MODAL:
        return "MODAL";
    case yld_Enum::ARC_LENGTH:
        return "ARC_LENGTH";
    default:
        return std::to_string(static_cast<int>(domain));
    }
}

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

tool_Database::tool_Database(const std::string& path) : m_database(nullptr)
{
    // Said here, where the path is as the user wrote it.
    struct stat status;
    if (::stat(path.c_str(), &status) != 0)
        throw tool_Failure(std::string(errno == ENOENT ? "no such file" : std::strerror(errno)) + ": " + path);
    if (S_ISDIR(status.st_mode)) throw tool_Failure("is a directory: " + path);
    if (!S_ISREG(status.st_mode)) throw tool_Failure("is no plain file: " + path);
    if (status.st_size == 0) throw tool_Failure("file is empty: " + path);
    if (::access(path.c_str(), R_OK) != 0)
        throw tool_Failure(std::string("cannot read: ") + path + ": " + std::strerror(errno));
    m_database = &openYld(path.c_str(), true);
}

tool_Database::~tool_Database()
{
    try {
        m_database->close();
    } catch (const std::exception&) {
        // Opened for reading alone: nothing is lost.
    }
}

yld_Step& tool_findStep(yld_Yld& database, const std::string& path, const std::string& name)
{
    yld_StepRepository& steps = database.steps();
    const std::vector<std::string> names = tool_texts(steps.stepNames());
    if (names.empty()) throw tool_Failure("no steps: " + path);
    const std::string& wanted = name.empty() ? names.back() : name;
    if (!steps.isMember(wanted.c_str()))
        throw tool_Failure("no step \"" + wanted + "\" in " + path + tool_choices(names));
    return steps.get(wanted.c_str());
}
