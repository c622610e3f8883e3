#ifndef PCL_CLASS_METADATA_H
#define PCL_CLASS_METADATA_H

#include "platform/store/pcl_Kind.h"

#include <string>
#include <vector>

/// What the store knows of a persistent class: its name (also the name of its table), its 32-bit id, the
/// version of its declaration, and its attributes in the order of declaration.
class pcl_ClassMetadata
{
public:
    struct Attribute
    {
        std::string name;
        pcl_Kind kind;
    };

    pcl_ClassMetadata() = default;
    pcl_ClassMetadata(const char* name, unsigned id, int version, const char* baseName = "");

    /// Declares one more attribute and returns its number, counted from 0.
    int AddAttribute(const char* name, pcl_Kind kind);

    const std::string& name() const { return m_name; }
    const std::string& baseName() const { return m_baseName; }
    unsigned id() const { return m_id; }
    int version() const { return m_version; }
    const std::vector<Attribute>& attributes() const { return m_attributes; }

    /// The number of the attribute of that name, or -1.
    int find(const char* name) const;

private:
    std::string m_name;
    std::string m_baseName;
    unsigned m_id = 0;
    int m_version = 0;
    std::vector<Attribute> m_attributes;
};

#endif
