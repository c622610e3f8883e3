#ifndef PCL_METADATA_REGISTRAR_H
#define PCL_METADATA_REGISTRAR_H

#include <vector>

class pcl_ClassMetadata;
class pcl_MetadataRegistrar;

/// Declares the metadata of one or more classes by calling add().
using pcl_MetadataFunction = void (*)(pcl_MetadataRegistrar&);

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
    /// Forgets every function and class of the schema.
    static void dropSchema(int schema);

    static const pcl_ClassMetadata* find(const char* className);
    static const pcl_ClassMetadata* find(unsigned classId);

    /// For use inside a metadata function: enters a class. A name that is present stays.
    void add(const pcl_ClassMetadata& metadata);

private:
    static void declareAll();

    int m_schema = 0;
};

#endif
