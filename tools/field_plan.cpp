#include "field_plan.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <map>
#include <set>

namespace {

using Names = std::vector<std::string>;

constexpr std::size_t none = static_cast<std::size_t>(-1);

std::string lower(std::string text)
{
    for (char& c : text)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

// The stem as a name: without the "_" that set the suffix off.
std::string stemName(std::string stem)
{
    if (!stem.empty() && stem.back() == '_') stem.pop_back();
    return stem;
}

std::size_t placeOf(const Names& names, const std::string& name)
{
    const auto found = std::find(names.begin(), names.end(), name);
    return found == names.end() ? none : static_cast<std::size_t>(found - names.begin());
}

// 0 to 5 in the order 11 22 33 12 13 23; none for letters that are no pair of axes.
std::size_t tensorPlace(const std::string& pair)
{
    static const std::map<std::string, std::size_t> places = {
        {"xx", 0}, {"yy", 1}, {"zz", 2}, {"xy", 3}, {"yx", 3}, {"zx", 4}, {"xz", 4}, {"yz", 5}, {"zy", 5}};
    const auto found = places.find(lower(pair));
    return found == places.end() ? none : found->second;
}

class Planner
{
public:
    Planner(int dimension, const Names& nodal, const Names& element,
            const std::function<bool(std::size_t, std::size_t)>& sameBlocks,
            const std::function<void(const std::string&)>& note)
        : m_dimension(dimension), m_nodal(nodal), m_element(element), m_sameBlocks(sameBlocks), m_note(note)
    {
        m_taken.insert(nodal.begin(), nodal.end());
        m_taken.insert(element.begin(), element.end());
    }

    std::vector<tool_PlannedField> plan()
    {
        std::set<std::size_t> used;
        for (std::size_t i = 0; i < m_nodal.size(); ++i)
            if (!used.contains(i) && !takeVector(i, used)) takeScalar(m_nodal[i], i, none);
        used.clear();
        findTensors();
        for (std::size_t i = 0; i < m_element.size(); ++i)
            if (!used.contains(i) && !takeTensor(i, used)) takeScalar(m_element[i], none, i);
        return m_fields;
    }

private:
    bool isFree(const std::string& stem, const char* kind)
    {
        if (stem.empty()) return false;
        if (m_taken.insert(stem).second) return true;
        m_note(std::string("the components of ") + kind + " \"" + stem +
               "\" stay scalars, the name is that of another field");
        return false;
    }

    bool takeVector(std::size_t first, std::set<std::size_t>& used)
    {
        const std::string& name = m_nodal[first];
        if (name.empty()) return false;
        const char last = name.back();
        if (last != 'x' && last != 'X' && last != 'y' && last != 'Y' && last != 'z' && last != 'Z')
            return false;
        const std::string stem = name.substr(0, name.size() - 1);
        const char x = std::isupper(static_cast<unsigned char>(last)) ? 'X' : 'x';
        if (isTensorRow(stem, x)) return false;
        const int width = m_dimension == 3 ? 3 : 2;
        std::vector<std::size_t> members;
        for (int axis = 0; axis < width; ++axis)
            members.push_back(placeOf(m_nodal, stem + static_cast<char>(x + axis)));
        // A plane vector is not read into the first two components of one in space, nor a line into a plane.
        if (m_dimension == 1 || std::find(members.begin(), members.end(), none) != members.end())
            return false;
        if (std::find(members.begin(), members.end(), first) == members.end()) return false;
        if (!m_refused.insert(stem).second || !isFree(stemName(stem), "vector")) return false;

        tool_PlannedField field;
        field.name = stemName(stem);
        field.type = tool_PlannedField::VECTOR;
        field.nodal = members;
        for (const std::size_t member : members) {
            field.componentLabels.push_back(m_nodal[member]);
            used.insert(member);
        }
        m_fields.push_back(field);
        return true;
    }

    // xx, xy, xz of a nodal tensor look like the vector "..x"; its yy and zz give it away.
    bool isTensorRow(const std::string& stem, char x) const
    {
        if (stem.empty()) return false;
        const char row = stem.back();
        if (row < x || row > x + 2) return false;
        const std::string base = stem.substr(0, stem.size() - 1);
        for (int axis = 0; axis < 3; ++axis) {
            const char letter = static_cast<char>(x + axis);
            if (letter != row && placeOf(m_nodal, base + letter + letter) != none) return true;
        }
        return false;
    }

    struct Tensor
    {
        std::array<std::size_t, 6> members{none, none, none, none, none, none};
        bool isAmbiguous = false;
    };

    void findTensors()
    {
        for (std::size_t i = 0; i < m_element.size(); ++i) {
            const std::string& name = m_element[i];
            if (name.size() < 2) continue;
            const std::size_t place = tensorPlace(name.substr(name.size() - 2));
            if (place == none) continue;
            Tensor& tensor = m_tensors[name.substr(0, name.size() - 2)];
            // Both xy and yx: a full nine-component tensor, which need not be symmetric.
            if (tensor.members[place] != none) tensor.isAmbiguous = true;
            tensor.members[place] = i;
        }
    }

    bool takeTensor(std::size_t first, std::set<std::size_t>& used)
    {
        const std::string& name = m_element[first];
        if (name.size() < 2 || tensorPlace(name.substr(name.size() - 2)) == none) return false;
        const std::string stem = name.substr(0, name.size() - 2);
        Tensor& tensor = m_tensors[stem];
        const auto& members = tensor.members;
        if (tensor.isAmbiguous || std::find(members.begin(), members.end(), none) != members.end())
            return false;
        tensor.isAmbiguous = true; // decided now, either way
        if (stemName(stem).empty()) return false;
        for (const std::size_t member : members)
            if (!m_sameBlocks(members[0], member)) {
                m_note("the components of tensor \"" + stemName(stem) +
                       "\" stay scalars, not all blocks have all of them");
                return false;
            }
        if (!isFree(stemName(stem), "tensor")) return false;

        tool_PlannedField field;
        field.name = stemName(stem);
        field.type = tool_PlannedField::TENSOR;
        field.element.assign(members.begin(), members.end());
        for (const std::size_t member : members) {
            field.componentLabels.push_back(m_element[member]);
            used.insert(member);
        }
        m_fields.push_back(field);
        return true;
    }

    void takeScalar(const std::string& name, std::size_t nodal, std::size_t element)
    {
        // The same name at nodes and elements is one field; twice at one place it is two.
        const std::string base = name.empty() ? "unnamed" : name;
        std::string unique = base;
        for (int count = 2;; ++count) {
            const auto found = m_scalars.find(unique);
            if (found == m_scalars.end()) {
                if (unique == name || !m_taken.contains(unique)) break;
            } else if (unique == base && nodal == none && m_fields[found->second].element.empty()) {
                m_fields[found->second].element.push_back(element);
                return;
            }
            unique = base + "_" + std::to_string(count);
        }
        if (unique != name) {
            m_taken.insert(unique);
            m_note("variable \"" + name + "\" is named \"" + unique + "\"");
        }
        tool_PlannedField field;
        field.name = unique;
        if (nodal != none) field.nodal.push_back(nodal);
        if (element != none) field.element.push_back(element);
        m_scalars[unique] = m_fields.size();
        m_fields.push_back(field);
    }

    int m_dimension;
    const Names& m_nodal;
    const Names& m_element;
    const std::function<bool(std::size_t, std::size_t)>& m_sameBlocks;
    const std::function<void(const std::string&)>& m_note;
    std::set<std::string> m_taken;
    std::set<std::string> m_refused;
    std::map<std::string, Tensor> m_tensors;
    std::map<std::string, std::size_t> m_scalars;
    std::vector<tool_PlannedField> m_fields;
};

} // namespace

std::vector<tool_PlannedField>
tool_planFields(int dimension, const std::vector<std::string>& nodal, const std::vector<std::string>& element,
                const std::function<bool(std::size_t, std::size_t)>& sameBlocks,
                const std::function<void(const std::string&)>& note)
{
    return Planner(dimension, nodal, element, sameBlocks, note).plan();
}
