#ifndef PUBLIC_JOB_H
#define PUBLIC_JOB_H

#include <string>

/// Databases as jobs leave them, written through the public classes; the library has to be started.

/// Two steps on a row of brick elements, with sets, a surface, fields at nodes and integration points, and curves.
void makeSmallJob(const std::string& path);

/// The small job with one of everything else that the library writes: a shell and nodes of the assembly, datums,
/// sections and what is assigned, sectors, settings of steps, modes, and fields of every kind of storage.
void makeWholeJob(const std::string& path);

#endif
