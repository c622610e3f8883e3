#include "names.h"

#include "failure.h"
#include "yld_EnumText.h"
#include "yld_Yld.h"

#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

std::string tool_positionName(yld_Enum::yld_ResultPositionEnum position)
{
    switch (position) {
    case yld_Enum::UNDEFINED_POSITION:
        return "UNDEFINED_POSITION";
    case yld_Enum::NODAL:
        return "NODAL";
    case yld_Enum::ELEMENT_NODAL:
        return "ELEMENT_NODAL";
    case yld_Enum::INTEGRATION_POINT:
        return "INTEGRATION_POINT";
    case yld_Enum::CENTROID:
        return "CENTROID";
    case yld_Enum::ELEMENT_FACE:
        return "ELEMENT_FACE";
    case yld_Enum::ELEMENT_FACE_INTEGRATION_POINT:
        return "ELEMENT_FACE_INTEGRATION_POINT";
    case yld_Enum::SURFACE_INTEGRATION_POINT:
        return "SURFACE_INTEGRATION_POINT";
    case yld_Enum::WHOLE_ELEMENT:
        return "WHOLE_ELEMENT";
    case yld_Enum::WHOLE_REGION:
        return "WHOLE_REGION";
    case yld_Enum::WHOLE_PART_INSTANCE:
        return "WHOLE_PART_INSTANCE";
    case yld_Enum::WHOLE_MODEL:
        return "WHOLE_MODEL";
    case yld_Enum::GENERAL_PARTICLE:
        return "GENERAL_PARTICLE";
    default:
        return std::to_string(static_cast<int>(position));
    }
}

std::string tool_typeName(yld_Enum::yld_DataTypeEnum type)
{
    switch (type) {
    case yld_Enum::BOOLEAN:
        return "BOOLEAN";
    case yld_Enum::INTEGER:
        return "INTEGER";
    case yld_Enum::SCALAR:
        return "SCALAR";
    case yld_Enum::VECTOR:
        return "VECTOR";
    case yld_Enum::MATRIX:
        return "MATRIX";
    case yld_Enum::TENSOR_3D_FULL:
        return "TENSOR_3D_FULL";
    case yld_Enum::TENSOR_3D_PLANAR:
        return "TENSOR_3D_PLANAR";
    case yld_Enum::TENSOR_3D_SURFACE:
        return "TENSOR_3D_SURFACE";
    case yld_Enum::TENSOR_2D_PLANAR:
        return "TENSOR_2D_PLANAR";
    case yld_Enum::TENSOR_2D_SURFACE:
        return "TENSOR_2D_SURFACE";
    case yld_Enum::QUATERNION_3D:
        return "QUATERNION_3D";
    case yld_Enum::QUATERNION_2D:
        return "QUATERNION_2D";
    case yld_Enum::UNDEFINED_DATATYPE:
        return "UNDEFINED_DATATYPE";
    default:
        return std::to_string(static_cast<int>(type));
    }
}

std::string tool_domainName(yld_Enum::yld_DomainEnum domain)
{
    const char* const text = yld_EnumText::of(domain);
    return text ? text : std::to_string(static_cast<int>(domain));
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
