#include "database.h"

#include "failure.h"
#include "texts.h"
#include "yld_Yld.h"

#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

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
