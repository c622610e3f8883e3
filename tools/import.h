#ifndef IMPORT_H
#define IMPORT_H

#include <string>

/// Reads the Exodus II file `source` and writes it as the results database `target`. docs/tools.md tells what
/// becomes of what. What is not taken over is named in one line on standard error. Memory: the mesh, and one
/// variable of one time step.
/// @param mayReplace  an existing target is replaced, when the new one is whole
/// Raises tool_Failure and what the library raises; the target is then as it was.
void tool_import(const std::string& source, const std::string& target, bool mayReplace);

#endif
