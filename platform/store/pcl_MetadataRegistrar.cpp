#include "platform/store/pcl_MetadataRegistrar.h"

#include "platform/store/pcl_ClassMetadata.h"
#include "platform/text/exc_Exception.h"
#include "platform/text/msg_Format.h"

#include <cstdio>
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

constinit const pcl_KnownClass* firstKnown = nullptr;

std::string hexadecimal(unsigned id)
{
    char text[16];
    std::snprintf(text, sizeof text, "%08x", id);
    return text;
}

// What two classes with these names and ids do to each other.
void checkPair(const char* name, unsigned id, const char* otherName, unsigned otherId)
{
    const bool isSameName = std::strcmp(name, otherName) == 0;
    if (isSameName == (id == otherId)) return;
    if (isSameName) {
        throw exc_TextException(msg_Format("Persistent class %1$s has two ids, 0x%2$s and 0x%3$s.", name,
                                           hexadecimal(otherId).c_str(), hexadecimal(id).c_str()));
    }
    throw exc_TextException(msg_Format("Persistent classes %1$s and %2$s have the same id 0x%3$s.", otherName, name,
                                       hexadecimal(id).c_str()));
}

} // namespace

pcl_KnownClass::pcl_KnownClass(const char* name, unsigned id, int version, const std::type_info& type) noexcept
    : m_name(name), m_id(id), m_version(version), m_type(type), m_next(firstKnown)
{
    firstKnown = this;
}

// Classes leave when what they came with is unloaded, in any order.
pcl_KnownClass::~pcl_KnownClass()
{
    if (firstKnown == this) {
        firstKnown = m_next;
        return;
    }
    for (const pcl_KnownClass* known = firstKnown; known; known = known->m_next) {
        if (known->m_next == this) {
            known->m_next = m_next;
            return;
        }
    }
}

const pcl_KnownClass* pcl_KnownClass::first() noexcept { return firstKnown; }

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
        try {
            pendings()[i].function(registrar);
        } catch (...) {
            pendings()[i].done = false; // refused to everyone who asks
            throw;
        }
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

void pcl_MetadataRegistrar::checkUnique(const pcl_KnownClass& known)
{
    for (const pcl_KnownClass* other = firstKnown; other; other = other->next()) {
        if (other->type() == known.type()) continue;
        checkPair(known.name(), known.id(), other->name(), other->id());
        if (other->id() == known.id() && other->version() == known.version()) {
            throw exc_TextException(
                msg_Format("Persistent class %1$s of version %2$s is declared twice.", known.name(), known.version()));
        }
    }
    for (const auto& [name, entry] : classes()) checkPair(known.name(), known.id(), name.c_str(), entry.metadata.id());
}

void pcl_MetadataRegistrar::add(const pcl_ClassMetadata& metadata)
{
    for (const auto& [name, entry] : classes()) {
        checkPair(metadata.name().c_str(), metadata.id(), name.c_str(), entry.metadata.id());
    }
    for (const pcl_KnownClass* other = firstKnown; other; other = other->next()) {
        checkPair(metadata.name().c_str(), metadata.id(), other->name(), other->id());
    }
    classes().insert({metadata.name(), Entry{metadata, m_schema}});
}
