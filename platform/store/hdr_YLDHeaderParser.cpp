#include "platform/store/hdr_YLDHeaderParser.h"

#include "platform/store/fio_File.h"

hdr_YLDHeaderParser::Status hdr_YLDHeaderParser::GetUpToDateStatus(int* version) const
{
    const int found = m_file.body()->version();
    *version = found == 0 ? versionOfUnnumbered : found;
    if (*version < fio_FileBody::currentVersion) return OLDER;
    return *version > fio_FileBody::currentVersion ? NEWER : CURRENT;
}
