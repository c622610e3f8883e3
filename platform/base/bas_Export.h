#ifndef BAS_EXPORT_H
#define BAS_EXPORT_H

/// Marks what clients of the shared library may reach; everything else stays hidden.
#define YLD_API __attribute__((visibility("default")))

#endif
