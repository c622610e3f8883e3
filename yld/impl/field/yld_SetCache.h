#ifndef YLD_SETCACHE_H
#define YLD_SETCACHE_H

#include "platform/sto/sto_Mesh.h"

#include <cstdint>
#include <string>
#include <unordered_map>

/// The sets that writers of results make for the labels they are given, by those labels. Results of many frames come
/// for the same nodes and elements: the set that was made for the first of them serves the others, and with it one
/// description serves all frames. One cache a thread, as with everything of the store.
class yld_SetCache
{
public:
    static yld_SetCache& instance();

    /// A node or element set with exactly these labels in this order; if there is none, a new internal one, whose name
    /// is `name` or, where that is taken, `nextName` and the first number from `number` on that is free.
    /// Raises "Invalid node label %d", "Invalid element label %d" with the first bad label; no set is then made.
    sto_Set get(const sto_Mesh& mesh, int type, const int* labels, int count, const std::string& name,
                const std::string& nextName, int number);

private:
    struct Entry
    {
        std::weak_ptr<fio_FileBody> file;
        long long mesh;
        long long set;
        std::string family;
    };

    sto_Set find(std::uint64_t hash, const sto_Mesh& mesh, int type, const int* labels, int count,
                 const std::string& family) const;

    std::unordered_multimap<std::uint64_t, Entry> m_entries;
};

#endif
