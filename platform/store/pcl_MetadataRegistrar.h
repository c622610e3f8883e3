#ifndef PCL_METADATA_REGISTRAR_H
#define PCL_METADATA_REGISTRAR_H

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
