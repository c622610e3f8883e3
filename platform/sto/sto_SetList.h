#ifndef STO_SETLIST_H
#define STO_SETLIST_H

#include "platform/model/setC_Set.h"
#include "platform/sto/sto_Set.h"
#include "platform/store/mrp_Container.h"

#include <string>
#include <vector>

/// The sets of a mesh or an assembly: first those that users made, then the internal ones, last those that live in
/// memory alone, which are internal too. Going through the list reads no set.
class sto_SetList
{
public:
    sto_SetList() = default;
    sto_SetList(const mrp_Container<setC_Set>& sets, const mrp_Container<setC_Set>& internalSets)
        : m_sets(sets), m_internalSets(internalSets), m_numPublic(sets.size())
    {
    }
    sto_SetList(const mrp_Container<setC_Set>& sets, const mrp_Container<setC_Set>& internalSets,
                std::vector<lnk_AnyShortCut> temporarySets);

    /// @param includeInternal  false leaves the internal sets out
    int length(bool includeInternal = true) const
    {
        return m_numPublic + (includeInternal ? m_internalSets.size() + static_cast<int>(m_temporary.size()) : 0);
    }
    sto_Set get(int index) const;
    /// Label, type and flag of a set, known without reading it. One whose key says nothing has no label and type -1.
    std::string setLabel(int index) const
    {
        const std::string& known = key(index);
        return known.empty() ? known : known.substr(1);
    }
    int setType(int index) const { return setC_Set::typeOfKey(key(index)); }
    bool internalSet(int index) const { return index >= m_numPublic; }

    /// The set of that type and label; no set where there is none.
    sto_Set find(int type, const std::string& label) const;
    /// Whether the file has such a set.
    bool has(int type, const std::string& label) const { return findStored(setC_Set::key(type, label)).isValid(); }
    /// A set in the making. Raises "Duplicate set or surface name %s" for a name that a set of the same type has.
    setC_Set begin(int type, const std::string& name, bool isInternal, bool isUnsorted) const;
    /// The set of that type and label. Raises "Set "%s" does not exist.".
    lnk_ShortCut<setC_Set> require(int type, const std::string& label) const;
    /// Takes a new set in. @return a handle on it
    sto_Set add(const std::shared_ptr<fio_FileBody>& file, setC_Set set);

private:
    struct Temporary
    {
        std::string key;
        lnk_ShortCut<setC_Set> set;
    };
    const std::string& key(int index) const;
    const Temporary* temporary(int index) const;
    lnk_ShortCut<setC_Set> findStored(const std::string& key) const;

    mrp_Container<setC_Set> m_sets;
    mrp_Container<setC_Set> m_internalSets;
    std::vector<Temporary> m_temporary;
    int m_numPublic = 0;
};

#endif
