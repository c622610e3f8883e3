#ifndef HDR_YLD_HEADER_PARSER_H
#define HDR_YLD_HEADER_PARSER_H

class fio_File;

/// Reads the version that a database was written in.
class hdr_YLDHeaderParser
{
public:
    enum Status
    {
        CURRENT = 0,
        OLDER = 1, ///< needs an upgrade
        NEWER = 2  ///< than this library
    };
    /// The version assumed for a header that gives 0.
    static constexpr int versionOfUnnumbered = 203;

    explicit hdr_YLDHeaderParser(const fio_File& file) : m_file(file) {}

    /// @param[out] version  the database's version
    Status GetUpToDateStatus(int* version) const;

private:
    const fio_File& m_file;
};

#endif
