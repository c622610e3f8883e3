#ifndef PCL_METADATA_REGISTRAR_H
#define PCL_METADATA_REGISTRAR_H

#include <typeinfo>
#include <vector>

class pcl_ClassMetadata;
class pcl_MetadataRegistrar;

/// Declares the metadata of one or more classes by calling add().
using pcl_MetadataFunction = void (*)(pcl_MetadataRegistrar&);

/// A persistent class as it makes itself known when the program starts: in a list without memory of its own.
class pcl_KnownClass
{
public:
    pcl_KnownClass(const char* name, unsigned id, int version, const std::type_info& type) noexcept;
    pcl_KnownClass(const pcl_KnownClass&) = delete;
    pcl_KnownClass& operator=(const pcl_KnownClass&) = delete;
    ~pcl_KnownClass();

    const char* name() const noexcept { return m_name; }
    unsigned id() const noexcept { return m_id; }
    int version() const noexcept { return m_version; }
    const std::type_info& type() const noexcept { return m_type; }

    static const pcl_KnownClass* first() noexcept;
    const pcl_KnownClass* next() const noexcept { return m_next; }

private:
    const char* m_name;
    unsigned m_id;
    int m_version;
    const std::type_info& m_type;
    mutable const pcl_KnownClass* m_next; // the list's affair, not the class's
};

/// The table of all persistent classes that this process knows, by name and by id.
/// Functions are remembered at start and run when the table is first asked, so a start costs nothing.
class pcl_MetadataRegistrar
{
public:
    /// Remembers a function that declares class metadata for a schema. Giving the same pair again has no effect.
    static void initClassMetadata(pcl_MetadataFunction function, int schema);
    /// Enters a family of persistent classes, by its prefix (static), with the function that declares those of its
    /// classes that stand; null for a family that has none. A family that is in stays where it is.
    static void formalize(const char* family, pcl_MetadataFunction function = nullptr, int schema = 0);
    /// The families in the order in which they came.
    static const std::vector<const char*>& families();
    /// Forgets every function and class of the schema, for tests.
    static void dropSchema(int schema);

    static const pcl_ClassMetadata* find(const char* className);
    static const pcl_ClassMetadata* find(unsigned classId);

    /// For use inside a metadata function: enters a class. A name that is present stays.
    /// Raises what checkUnique raises.
    void add(const pcl_ClassMetadata& metadata);

    /// Looks at a class before its first use. A name and an id belong together, in this process and in every file; two
    /// classes that have both are declarations of one, of different versions.
    /// Raises "Persistent classes %1$s and %2$s have the same id 0x%3$s.", "Persistent class %1$s has two ids, 0x%2$s
    /// and 0x%3$s." and "Persistent class %1$s of version %2$s is declared twice.". Goes through all known classes.
    static void checkUnique(const pcl_KnownClass& known);

private:
    static void declareAll();

    int m_schema = 0;
};

#endif
