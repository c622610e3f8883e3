#ifndef NETCDF_SIZE_H
#define NETCDF_SIZE_H

#include <string>

/// Looks at a file before the Exodus reader does: the netCDF library reads zeros where a classic file has
/// been cut short, and trusts every count in its header.
///
/// Raises tool_Failure for a file that is missing, no plain file, empty, of another format, or shorter than
/// its header says. Of an HDF5 container only the signature is looked at; its library checks the rest.
void tool_requireWholeNetcdf(const std::string& path);

#endif
