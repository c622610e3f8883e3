#include "platform/store/pcl_ClassMetadata.h"

#include <cstring>

pcl_ClassMetadata::pcl_ClassMetadata(const char* name, unsigned id, int version, const char* baseName)
    : m_name(name), m_baseName(baseName), m_id(id), m_version(version)
{
}

int pcl_ClassMetadata::AddAttribute(const char* name, pcl_Kind kind)
{
    m_attributes.push_back({name, kind});
    return static_cast<int>(m_attributes.size()) - 1;
}

int pcl_ClassMetadata::find(const char* name) const
{
    for (std::size_t i = 0; i < m_attributes.size(); ++i) {
        if (std::strcmp(m_attributes[i].name.c_str(), name) == 0) return static_cast<int>(i);
    }
    return -1;
}
