#include "platform/auxiliary/aux_TranslationMap.h"

#include <cstring>

const char* aux_TranslationMap::label(int value) const noexcept
{
    for (const auto& [label, known] : m_entries) {
        if (known == value) return label;
    }
    return nullptr;
}

bool aux_TranslationMap::value(const char* label, int& value) const noexcept
{
    for (const auto& [known, its] : m_entries) {
        if (std::strcmp(known, label) != 0) continue;
        value = its;
        return true;
    }
    return false;
}
