#include "platform/store/pcl_MetadataRegistrar.h"

#include "platform/store/pcl_ClassMetadata.h"

#include <cstring>
#include <map>
#include <string>
#include <vector>

namespace {

struct Pending
{
    pcl_MetadataFunction function;
    int schema;
    bool done;
};

struct Entry
{
    pcl_ClassMetadata metadata;
    int schema;
};

std::vector<Pending>& pendings()
{
    static std::vector<Pending> list;
    return list;
}

std::vector<const char*>& familyList()
{
    static std::vector<const char*> list;
    return list;
}

std::map<std::string, Entry>& classes()
{
    static std::map<std::string, Entry> table;
    return table;
}

} // namespace

void pcl_MetadataRegistrar::initClassMetadata(pcl_MetadataFunction function, int schema)
{
    for (const Pending& known : pendings()) {
        if (known.function == function && known.schema == schema) return;
    }
    pendings().push_back({function, schema, false});
}

void pcl_MetadataRegistrar::formalize(const char* family, pcl_MetadataFunction function, int schema)
{
    for (const char* known : familyList()) {
        if (std::strcmp(known, family) == 0) return;
    }
    familyList().push_back(family);
    if (function) initClassMetadata(function, schema);
}

const std::vector<const char*>& pcl_MetadataRegistrar::families() { return familyList(); }

void pcl_MetadataRegistrar::dropSchema(int schema)
{
    std::erase_if(pendings(), [schema](const Pending& entry) { return entry.schema == schema; });
    std::erase_if(classes(), [schema](const auto& entry) { return entry.second.schema == schema; });
}

void pcl_MetadataRegistrar::declareAll()
{
    // A metadata function may remember further functions, so the list is walked by index.
    for (std::size_t i = 0; i < pendings().size(); ++i) {
        if (pendings()[i].done) continue;
        pendings()[i].done = true;
        pcl_MetadataRegistrar registrar;
        registrar.m_schema = pendings()[i].schema;
        pendings()[i].function(registrar);
    }
}

const pcl_ClassMetadata* pcl_MetadataRegistrar::find(const char* className)
{
    declareAll();
    const auto found = classes().find(className);
    return found == classes().end() ? nullptr : &found->second.metadata;
}

const pcl_ClassMetadata* pcl_MetadataRegistrar::find(unsigned classId)
{
    declareAll();
    for (const auto& [name, entry] : classes()) {
        if (entry.metadata.id() == classId) return &entry.metadata;
    }
    return nullptr;
}

void pcl_MetadataRegistrar::add(const pcl_ClassMetadata& metadata)
{
    classes().insert({metadata.name(), Entry{metadata, m_schema}});
}
