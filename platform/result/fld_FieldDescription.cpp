#include "platform/result/fld_FieldDescription.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>
#include <type_traits>

namespace {

// The names of contact variables are padded to this width before the surfaces follow.
constexpr std::size_t paddedName = 9;

// What tells one block from another of the same description, what follows from another attribute (the mesh and the
// name of the instance), and the orientation, of which only counts whether there is one.
constexpr std::string_view notCompared[] = {"key", "length", "instance name", "mesh index", "orientation"};

template<class T> bool equal(const T& a, const T& b) { return a == b; }
template<class T> bool equal(const lnk_ShortCut<T>& a, const lnk_ShortCut<T>& b) { return a.id() == b.id(); }

} // namespace

std::string fld_FieldDescription::fieldName() const
{
    const std::size_t colon = m_keyText.find(':');
    if (!place().isNamedBySurface && colon == std::string::npos) return m_label;

    std::string name = m_label;
    std::string suffix;
    const bool isDerivative = name.starts_with("d_");
    if (isDerivative) {
        name.erase(0, 2);
        const std::size_t bar = name.rfind('_');
        if (bar != std::string::npos) {
            suffix = name.substr(bar);
            name.erase(bar);
        }
    }
    name.resize(paddedName, ' ');
    if (colon != std::string::npos) name += m_keyText.substr(colon + 1);
    return isDerivative ? "d_" + name + suffix : name;
}

std::string fld_FieldDescription::keyName() const
{
    return std::to_string(m_position) + ":" + std::to_string(m_dataType) + ":" + m_label;
}

bool fld_FieldDescription::isSame(const fld_FieldDescription& other, bool hasOrientation) const
{
    // Both lists of attributes are walked side by side, so that an attribute takes part as soon as it is in the list.
    std::array<const void*, 64> own;
    std::size_t count = 0;
    attributes(*this, [&](const char*, const auto& value) { own.at(count++) = &value; });
    static const std::uint64_t takesPart = [] {
        const fld_FieldDescription none;
        std::uint64_t mask = 0;
        std::uint64_t bit = 1;
        attributes(none, [&](std::string_view name, const auto&) {
            if (std::find(std::begin(notCompared), std::end(notCompared), name) == std::end(notCompared)) mask |= bit;
            bit <<= 1;
        });
        return mask;
    }();
    bool isEqual = m_orientation.isValid() == hasOrientation;
    std::size_t at = 0;
    attributes(other, [&](const char*, const auto& value) {
        using Value = std::remove_cvref_t<decltype(value)>;
        const void* mine = own[at];
        const bool isCompared = (takesPart >> at++ & 1) != 0;
        if (isEqual && isCompared) isEqual = equal(*static_cast<const Value*>(mine), value);
    });
    return isEqual;
}
