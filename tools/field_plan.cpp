#include "field_plan.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <map>
#include <set>

namespace {

using Names = std::vector<std::string>;
using Places = std::vector<std::size_t>;

constexpr std::size_t none = static_cast<std::size_t>(-1);

std::string lower(std::string text)
{
    for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
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
    static const std::map<std::string, std::size_t> places = {{"xx", 0}, {"yy", 1}, {"zz", 2}, {"xy", 3}, {"yx", 3},
                                                              {"zx", 4}, {"xz", 4}, {"yz", 5}, {"zy", 5}};
    const auto found = places.find(lower(pair));
    return found == places.end() ? none : found->second;
}

// Splits "base_7"; 0 where there is no such number, or one that counting would not write.
int numberBehind(const std::string& name, std::string& base)
{
    const std::size_t bar = name.rfind('_');
    if (bar == std::string::npos || bar == 0 || bar + 1 == name.size() || name.size() - bar > 5) return 0;
    if (name[bar + 1] == '0') return 0;
    int number = 0;
    for (std::size_t i = bar + 1; i < name.size(); ++i) {
        if (!std::isdigit(static_cast<unsigned char>(name[i]))) return 0;
        number = 10 * number + (name[i] - '0');
    }
    base = name.substr(0, bar);
    return number;
}

// Variables that lie at one kind of place.
struct Group
{
    enum KindEnm
    {
        NODAL,
        ELEMENT,
        POINTS,
        NODE_SET,
        SIDE_SET
    };
    KindEnm kind = NODAL;
    Names names;
    std::vector<Places> blocks;    // of each variable
    std::vector<Places> variables; // of each: itself, or one for each integration point
};

class Planner
{
public:
    Planner(const tool_Variables& variables, const std::function<void(const std::string&)>& note)
        : m_variables(variables), m_note(note)
    {
        for (const Names* names : {&variables.nodal, &variables.element, &variables.nodeSet, &variables.sideSet})
            m_taken.insert(names->begin(), names->end());
    }

    std::vector<tool_PlannedField> plan()
    {
        Group elements;
        const Group points = takePoints(elements);
        planGroup(plain(Group::NODAL, m_variables.nodal));
        planGroup(elements);
        planGroup(points);
        planGroup(plain(Group::NODE_SET, m_variables.nodeSet));
        planGroup(plain(Group::SIDE_SET, m_variables.sideSet));
        return m_fields;
    }

private:
    static Group plain(Group::KindEnm kind, const Names& names)
    {
        Group group;
        group.kind = kind;
        group.names = names;
        group.blocks.resize(names.size());
        for (std::size_t i = 0; i < names.size(); ++i) group.variables.push_back({i});
        return group;
    }

    // The series of integration points; what is left goes to `elements`.
    Group takePoints(Group& elements)
    {
        const Names& names = m_variables.element;
        std::map<std::string, std::map<int, std::size_t>> series;
        Names order;
        for (std::size_t i = 0; i < names.size(); ++i) {
            std::string base;
            const int number = numberBehind(names[i], base);
            if (number == 0) continue;
            if (series[base].empty()) order.push_back(base);
            series[base].emplace(number, i);
        }
        Group points;
        points.kind = Group::POINTS;
        std::set<std::pair<std::size_t, std::size_t>> consumed; // block and variable
        for (const std::string& base : order) {
            const std::map<int, std::size_t>& numbered = series[base];
            Places blocks;
            std::size_t count = 0;
            for (std::size_t block = 0; block < m_variables.numBlocks; ++block) {
                const std::size_t fitting = fittingPoints(numbered, block);
                // Blocks of another type may have another number of points: the first number counts.
                if (fitting < 2 || (count != 0 && fitting != count)) continue;
                count = fitting;
                blocks.push_back(block);
            }
            if (blocks.empty()) continue;
            Places variables;
            for (const auto& [number, variable] : numbered) {
                if (static_cast<std::size_t>(number) > count) continue;
                variables.push_back(variable);
                for (const std::size_t block : blocks) consumed.emplace(block, variable);
            }
            points.names.push_back(base);
            points.blocks.push_back(blocks);
            points.variables.push_back(variables);
        }
        elements.kind = Group::ELEMENT;
        for (std::size_t i = 0; i < names.size(); ++i) {
            Places blocks;
            bool isConsumed = false;
            for (std::size_t block = 0; block < m_variables.numBlocks; ++block) {
                if (consumed.contains({block, i})) isConsumed = true;
                else if (m_variables.hasVariable(block, i)) blocks.push_back(block);
            }
            if (isConsumed && blocks.empty()) continue;
            elements.names.push_back(names[i]);
            elements.blocks.push_back(blocks);
            elements.variables.push_back({i});
        }
        return points;
    }

    // How many points the numbered variables are for in a block; 0 where they do not fit its elements.
    std::size_t fittingPoints(const std::map<int, std::size_t>& numbered, std::size_t block) const
    {
        std::size_t present = 0;
        int largest = 0;
        for (const auto& [number, variable] : numbered) {
            if (!m_variables.hasVariable(block, variable)) continue;
            ++present;
            largest = number;
        }
        const bool fits = largest == static_cast<int>(present) && largest == m_variables.numPoints(block);
        return fits ? present : 0;
    }

    void planGroup(const Group& group)
    {
        std::set<std::size_t> used;
        std::set<std::string> decided;
        const bool isOfSets = group.kind == Group::NODE_SET || group.kind == Group::SIDE_SET;
        std::map<std::string, Tensor> tensors;
        if (!isOfSets) findTensors(group, tensors);
        for (std::size_t i = 0; i < group.names.size(); ++i) {
            if (used.contains(i)) continue;
            if (!isOfSets && (takeNine(group, i, used, decided) || takeTensor(group, i, tensors, used) ||
                              takeVector(group, i, used, decided)))
                continue;
            takeScalar(group, i);
        }
    }

    static bool hasFree(const tool_PlannedField& field, Group::KindEnm kind)
    {
        switch (kind) {
        case Group::NODAL:
            return field.nodal.empty() && field.nodeSet.empty();
        case Group::ELEMENT:
            return field.element.empty();
        case Group::POINTS:
            return field.points.empty();
        case Group::NODE_SET: // these lie at nodes too
            return field.nodal.empty() && field.nodeSet.empty();
        case Group::SIDE_SET:
            return field.sideSet.empty();
        }
        return false;
    }

    static void put(tool_PlannedField& field, const Group& group, const Places& members)
    {
        for (const std::size_t member : members) {
            const std::size_t variable = group.variables[member].front();
            switch (group.kind) {
            case Group::NODAL:
                field.nodal.push_back(variable);
                break;
            case Group::ELEMENT:
                field.element.push_back(variable);
                field.elementBlocks = group.blocks[member];
                break;
            case Group::POINTS:
                field.points.push_back(group.variables[member]);
                field.pointBlocks = group.blocks[member];
                break;
            case Group::NODE_SET:
                field.nodeSet.push_back(variable);
                break;
            case Group::SIDE_SET:
                field.sideSet.push_back(variable);
                break;
            }
        }
    }

    // Makes a field of several components, or finds the one of that name that has room for them; false for a stem that
    // is the name of something else.
    bool takeField(const Group& group, const std::string& stem, tool_PlannedField::TypeEnm type, const char* kind,
                   const Places& members, std::set<std::size_t>& used)
    {
        if (stem.empty()) return false;
        for (const std::size_t member : members)
            if (group.blocks[member] != group.blocks[members.front()]) {
                m_note(std::string("the components of ") + kind + " \"" + stem +
                       "\" stay scalars, not all blocks have all of them");
                return false;
            }
        const auto present = m_fieldOf.find(stem);
        const bool isJoined = present != m_fieldOf.end() && m_fields[present->second].type == type &&
                              type != tool_PlannedField::NINE && hasFree(m_fields[present->second], group.kind);
        if (!isJoined && !m_taken.insert(stem).second) {
            m_note(std::string("the components of ") + kind + " \"" + stem +
                   "\" stay scalars, the name is that of another field");
            return false;
        }
        if (!isJoined) {
            m_fieldOf[stem] = m_fields.size();
            m_fields.emplace_back();
            m_fields.back().name = stem;
            m_fields.back().type = type;
            for (const std::size_t member : members) m_fields.back().componentLabels.push_back(group.names[member]);
        }
        put(m_fields[m_fieldOf[stem]], group, members);
        used.insert(members.begin(), members.end());
        return true;
    }

    bool takeVector(const Group& group, std::size_t first, std::set<std::size_t>& used, std::set<std::string>& decided)
    {
        const std::string& name = group.names[first];
        if (name.empty()) return false;
        const char last = name.back();
        if (last != 'x' && last != 'X' && last != 'y' && last != 'Y' && last != 'z' && last != 'Z') return false;
        const std::string stem = name.substr(0, name.size() - 1);
        const char x = std::isupper(static_cast<unsigned char>(last)) ? 'X' : 'x';
        if (isTensorRow(group.names, stem, x)) return false;
        const int width = m_variables.dimension == 3 ? 3 : 2;
        Places members;
        for (int axis = 0; axis < width; ++axis)
            members.push_back(placeOf(group.names, stem + static_cast<char>(x + axis)));
        // A plane vector is not read into the first two components of one in space, nor a line into a plane.
        if (m_variables.dimension == 1 || std::find(members.begin(), members.end(), none) != members.end())
            return false;
        if (std::find(members.begin(), members.end(), first) == members.end()) return false;
        if (!decided.insert(stem).second) return false;
        return takeField(group, stemName(stem), tool_PlannedField::VECTOR, "vector", members, used);
    }

    // xx, xy, xz of a tensor look like the vector "..x"; its yy and zz give it away.
    static bool isTensorRow(const Names& names, const std::string& stem, char x)
    {
        if (stem.empty()) return false;
        const char row = stem.back();
        if (row < x || row > x + 2) return false;
        const std::string base = stem.substr(0, stem.size() - 1);
        for (int axis = 0; axis < 3; ++axis) {
            const char letter = static_cast<char>(x + axis);
            if (letter != row && placeOf(names, base + letter + letter) != none) return true;
        }
        return false;
    }

    struct Tensor
    {
        std::array<std::size_t, 6> members{none, none, none, none, none, none};
        bool isAmbiguous = false;
    };

    static void findTensors(const Group& group, std::map<std::string, Tensor>& tensors)
    {
        for (std::size_t i = 0; i < group.names.size(); ++i) {
            const std::string& name = group.names[i];
            if (name.size() < 2) continue;
            const std::size_t place = tensorPlace(name.substr(name.size() - 2));
            if (place == none) continue;
            Tensor& tensor = tensors[name.substr(0, name.size() - 2)];
            // Both xy and yx: a full nine-component tensor, which need not be symmetric.
            if (tensor.members[place] != none) tensor.isAmbiguous = true;
            tensor.members[place] = i;
        }
    }

    bool takeTensor(const Group& group, std::size_t first, std::map<std::string, Tensor>& tensors,
                    std::set<std::size_t>& used)
    {
        const std::string& name = group.names[first];
        if (name.size() < 2 || tensorPlace(name.substr(name.size() - 2)) == none) return false;
        const std::string stem = name.substr(0, name.size() - 2);
        Tensor& tensor = tensors[stem];
        const auto& members = tensor.members;
        if (tensor.isAmbiguous || std::find(members.begin(), members.end(), none) != members.end()) return false;
        tensor.isAmbiguous = true; // decided now, either way
        return takeField(group, stemName(stem), tool_PlannedField::TENSOR, "tensor",
                         Places(members.begin(), members.end()), used);
    }

    // stem_1 to stem_9 at integration points, stem_1_1 to stem_3_3 at nodes; and no more of them.
    bool takeNine(const Group& group, std::size_t first, std::set<std::size_t>& used, std::set<std::string>& decided)
    {
        std::string stem;
        if (group.kind == Group::ELEMENT || numberBehind(group.names[first], stem) == 0) return false;
        Places members;
        if (group.kind == Group::POINTS) {
            for (int c = 1; c <= 9; ++c) members.push_back(placeOf(group.names, stem + "_" + std::to_string(c)));
            if (placeOf(group.names, stem + "_10") != none) return false;
        } else {
            const std::string rows = stem;
            if (numberBehind(rows, stem) == 0) return false;
            for (int r = 1; r <= 3; ++r)
                for (int s = 1; s <= 3; ++s)
                    members.push_back(placeOf(group.names, stem + "_" + std::to_string(r) + "_" + std::to_string(s)));
            if (placeOf(group.names, stem + "_1_4") != none || placeOf(group.names, stem + "_4_1") != none)
                return false;
        }
        if (std::find(members.begin(), members.end(), none) != members.end()) return false;
        if (std::find(members.begin(), members.end(), first) == members.end()) return false;
        if (!decided.insert(stem + "_").second) return false;
        return takeField(group, stem, tool_PlannedField::NINE, "tensor", members, used);
    }

    void takeScalar(const Group& group, std::size_t member)
    {
        // The same name at several places is one field; twice at one place it is two.
        const std::string& name = group.names[member];
        const std::string base = name.empty() ? "unnamed" : name;
        std::string unique = base;
        for (int count = 2;; ++count) {
            const auto found = m_fieldOf.find(unique);
            if (found == m_fieldOf.end()) {
                if (unique == name || !m_taken.contains(unique)) break;
            } else if (unique == base && m_fields[found->second].type == tool_PlannedField::SCALAR &&
                       hasFree(m_fields[found->second], group.kind)) {
                put(m_fields[found->second], group, {member});
                return;
            }
            unique = base + "_" + std::to_string(count);
        }
        if (unique != name) m_note("variable \"" + name + "\" is named \"" + unique + "\"");
        m_taken.insert(unique);
        m_fieldOf[unique] = m_fields.size();
        m_fields.emplace_back();
        m_fields.back().name = unique;
        put(m_fields.back(), group, {member});
    }

    const tool_Variables& m_variables;
    const std::function<void(const std::string&)>& m_note;
    std::set<std::string> m_taken;
    std::map<std::string, std::size_t> m_fieldOf; // by name
    std::vector<tool_PlannedField> m_fields;
};

template<class Members> void keepSymmetric(Members& members)
{
    if (members.empty()) return;
    // 11 22 33 12 13 23 of nine that stand row by row.
    members = Members{members[0], members[4], members[8], members[1], members[2], members[5]};
}

} // namespace

std::vector<tool_PlannedField> tool_planFields(const tool_Variables& variables,
                                               const std::function<void(const std::string&)>& note)
{
    return Planner(variables, note).plan();
}

void tool_settleNine(tool_PlannedField& field, bool isSymmetric)
{
    if (isSymmetric) {
        field.type = tool_PlannedField::TENSOR;
        keepSymmetric(field.nodal);
        keepSymmetric(field.points);
        keepSymmetric(field.componentLabels);
    } else {
        field.type = tool_PlannedField::MATRIX;
        field.componentLabels.clear();
    }
}
