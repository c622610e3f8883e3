#ifndef INFO_H
#define INFO_H

#include <string>

/// Prints what a database holds: header, parts, instances, sets, steps, frames and fields. Reads no value.
void tool_info(const std::string& path, bool asJson);

#endif
