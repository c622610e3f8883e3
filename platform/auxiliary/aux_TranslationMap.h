#ifndef AUX_TRANSLATIONMAP_H
#define AUX_TRANSLATIONMAP_H

#include <initializer_list>
#include <utility>
#include <vector>

/// A short table of labels and their values, read in both directions.
class aux_TranslationMap
{
public:
    /// The labels are static texts.
    aux_TranslationMap(std::initializer_list<std::pair<const char*, int>> entries) : m_entries(entries) {}

    /// The label of a value; null where there is none.
    const char* label(int value) const noexcept;
    /// Looks a label up, to the letter. @param[out] value  untouched where there is none  @return whether there is one
    bool value(const char* label, int& value) const noexcept;
    int size() const noexcept { return static_cast<int>(m_entries.size()); }

private:
    std::vector<std::pair<const char*, int>> m_entries;
};

#endif
