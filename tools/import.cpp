#include "import.h"

#include "element_types.h"
#include "exodus_reader.h"
#include "failure.h"
#include "field_plan.h"
#include "progress.h"
#include "target_file.h"
#include "texts.h"
#include "yld.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <map>
#include <optional>
#include <set>

namespace {

// Closes a database that a failure left open, without saving.
class OpenDatabase
{
public:
    explicit OpenDatabase(yld_Yld& database) : m_database(&database) {}
    ~OpenDatabase()
    {
        try {
            if (m_database != nullptr) m_database->close();
        } catch (const std::exception&) {
            // The file goes away in any case.
        }
    }
    OpenDatabase(const OpenDatabase&) = delete;
    OpenDatabase& operator=(const OpenDatabase&) = delete;

    void close()
    {
        yld_Yld* const database = m_database;
        m_database = nullptr;
        database->close();
    }

private:
    yld_Yld* m_database;
};

class Importer
{
public:
    Importer(const exo_Reader& reader, yld_Yld& database) : m_reader(reader), m_database(database) {}

    void run()
    {
        m_types = elementTypes();
        const std::string partName = std::filesystem::path(m_reader.path()).stem().string();
        yld_Part& part =
            m_database.Part(partName.c_str(), m_reader.dimension() == 3 ? yld_Enum::THREE_D : yld_Enum::TWO_D_PLANAR,
                            yld_Enum::DEFORMABLE_BODY);
        addNodes(part);
        addBlocks(part);
        yld_Instance& instance = m_database.rootAssembly().Instance((partName + "-1").c_str(), part);
        addElementSets(instance);
        addNodeSets(part, instance);
        addSurfaces(part, instance);
        addFrames(instance);
        saveYld(m_database);
    }

    void report() const
    {
        std::string left;
        const auto add = [&](std::size_t count, const char* one, const char* many) {
            if (count != 0) append(left, std::to_string(count).append(" ").append(count == 1 ? one : many), ", ");
        };
        const auto mention = [&](bool isThere, const char* what) {
            if (isThere) append(left, what, ", ");
        };
        // Without times there is no step for them.
        if (m_reader.times().empty()) add(m_reader.variables(exo_GLOBAL).size(), "global variable", "global variables");
        bool attributes = false;
        for (const exo_Block& block : m_reader.blocks()) attributes = attributes || block.numAttributes > 0;
        bool factors = false;
        for (const auto* sets : {&m_reader.nodeSets(), &m_reader.sideSets()})
            for (const exo_Set& set : *sets) factors = factors || set.numDistributionFactors > 0;
        mention(attributes, "block attributes");
        mention(factors, "distribution factors");
        add(static_cast<std::size_t>(m_reader.numOtherEntities()), "edge, face or element set entity",
            "edge, face or element set entities");
        add(m_sidesLeftOut, "side without a counterpart", "sides without a counterpart");
        if (!left.empty()) std::fprintf(stderr, "yld: not imported: %s\n", left.c_str());
        std::string notes;
        for (const std::string& note : m_notes) append(notes, note, "; ");
        if (m_valuesOutOfRange > 0)
            append(notes,
                   std::to_string(m_valuesOutOfRange).append(" values beyond the range of a float became infinite"),
                   "; ");
        if (!notes.empty()) std::fprintf(stderr, "yld: note: %s\n", tool_oneLine(notes).c_str());
    }

private:
    // Sides of a set: the elements that they belong to, and their places in the set.
    struct SideBlock
    {
        std::vector<int> labels;
        std::vector<std::size_t> sides;
    };

    static void append(std::string& list, const std::string& what, const char* separator)
    {
        if (!list.empty()) list += separator;
        list += what;
    }

    // Null for an empty block, which becomes nothing.
    std::vector<const tool_ElementType*> elementTypes() const
    {
        std::vector<const tool_ElementType*> types;
        for (const exo_Block& block : m_reader.blocks()) {
            const tool_ElementType* type = nullptr;
            if (block.numElements > 0) {
                type = tool_elementType(block.type, block.nodesPerElement, m_reader.dimension());
                if (type == nullptr)
                    throw tool_Failure("block " + std::to_string(block.id) + " has elements of type \"" + block.type +
                                       "\" with " + std::to_string(block.nodesPerElement) + " nodes in " +
                                       std::to_string(m_reader.dimension()) +
                                       " dimensions, which have no counterpart: " + m_reader.path());
            }
            types.push_back(type);
        }
        return types;
    }

    // The entity's own name, or one from its number; never one that was given before.
    static std::string uniqueName(const std::string& name, const char* prefix, std::int64_t id,
                                  std::set<std::string>& given)
    {
        std::string unique = name.empty() ? prefix + std::to_string(id) : name;
        if (!given.insert(unique).second) {
            unique.append("_").append(std::to_string(id));
            while (!given.insert(unique).second) unique += "_";
        }
        return unique;
    }

    void addNodes(yld_Part& part)
    {
        m_nodeLabels = m_reader.nodeLabels();
        if (m_nodeLabels.empty()) return;
        const std::vector<std::vector<double>> axes = m_reader.coordinates();
        const int width = m_reader.dimension() == 3 ? 3 : 2;
        yld_Sequence<yld_Sequence<float>> rows(static_cast<int>(m_nodeLabels.size()));
        float row[3] = {};
        for (std::size_t i = 0; i < m_nodeLabels.size(); ++i) {
            for (std::size_t axis = 0; axis < axes.size(); ++axis) row[axis] = single(axes[axis][i]);
            rows.append(yld_Sequence<float>(row, width));
        }
        part.addNodes(sequence(m_nodeLabels), rows);
    }

    void addBlocks(yld_Part& part)
    {
        const std::vector<int> labels = m_reader.elementLabels();
        std::set<std::string> given;
        for (std::size_t b = 0; b < m_reader.blocks().size(); ++b) {
            const exo_Block& block = m_reader.blocks()[b];
            const auto first = labels.begin() + block.firstElement;
            m_blockLabels.emplace_back(first, first + block.numElements);
            m_blockNames.push_back(uniqueName(block.name, "block_", block.id, given));
            if (m_types[b] == nullptr) continue;
            const tool_ElementType& type = *m_types[b];
            const std::vector<int> theirs = m_reader.connectivity(block);
            yld_Sequence<yld_Sequence<int>> rows(block.numElements);
            std::vector<int> row(static_cast<std::size_t>(type.numNodes));
            for (std::size_t at = 0; at < theirs.size(); at += row.size()) {
                for (std::size_t i = 0; i < row.size(); ++i) {
                    const std::size_t place = type.order == nullptr ? i : static_cast<std::size_t>(type.order[i]);
                    row[i] = m_nodeLabels[static_cast<std::size_t>(theirs[at + place])];
                }
                rows.append(yld_Sequence<int>(row.data(), type.numNodes));
            }
            // Classes are told apart by type and by the category's description: the block's name keeps two
            // blocks of one type apart.
            const yld_String name(m_blockNames[b].c_str());
            const yld_SectionCategory category = m_database.SectionCategory(name, name);
            part.addElements(sequence(m_blockLabels[b]), rows, type.label, name, category);
        }
    }

    void addElementSets(yld_Instance& instance)
    {
        for (std::size_t b = 0; b < m_blockLabels.size(); ++b)
            if (m_types[b] != nullptr) instance.ElementSet(m_blockNames[b].c_str(), sequence(m_blockLabels[b]));
    }

    void addNodeSets(yld_Part& part, yld_Instance& instance)
    {
        std::set<std::string> given;
        for (const exo_Set& set : m_reader.nodeSets()) {
            const std::string name = uniqueName(set.name, "nodelist_", set.id, given);
            std::vector<int> labels = m_reader.nodesOf(set);
            for (int& label : labels) label = m_nodeLabels[static_cast<std::size_t>(label)];
            m_nodeSetLabels.push_back(m_reader.variables(exo_NODE_SET).empty() ? std::vector<int>() : labels);
            part.NodeSet(name.c_str(), sequence(labels));
            instance.NodeSet(name.c_str(), sequence(labels));
        }
    }

    // The face for a side number; nothing for a side that elements of the type lack here.
    static std::optional<yld_Enum::yld_ElementFaceEnum> faceOf(tool_SideRuleEnm rule, int side)
    {
        const auto face = [](int number) { return static_cast<yld_Enum::yld_ElementFaceEnum>(number); };
        switch (rule) {
        case tool_FACES:
            if (side >= 1 && side <= 6) return face(yld_Enum::FACE1 + side - 1);
            break;
        case tool_SHELL_SIDES:
            if (side == 1) return yld_Enum::SIDE1;
            if (side == 2) return yld_Enum::SIDE2;
            if (side >= 3 && side <= 6) return face(yld_Enum::FACE1 + side - 3);
            break;
        case tool_PLANE_ENDS:
            if (side == 1) return yld_Enum::END1;
            if (side == 2) return yld_Enum::END2;
            break;
        case tool_LINE:
            if (side == 1) return yld_Enum::FACE1;
            break;
        case tool_NO_SIDES:
            break;
        }
        return std::nullopt;
    }

    void addSurfaces(yld_Part& part, yld_Instance& instance)
    {
        // Which block an element is in, by position.
        std::vector<std::size_t> blockOf;
        std::vector<int> labelOf;
        for (std::size_t b = 0; b < m_blockLabels.size(); ++b) {
            blockOf.insert(blockOf.end(), m_blockLabels[b].size(), b);
            labelOf.insert(labelOf.end(), m_blockLabels[b].begin(), m_blockLabels[b].end());
        }
        std::set<std::string> given;
        std::vector<int> elements, sides;
        for (const exo_Set& set : m_reader.sideSets()) {
            const std::string name = uniqueName(set.name, "surface_", set.id, given);
            m_reader.sidesOf(set, elements, sides);
            yld_Sequence<int> labels(set.size);
            yld_Sequence<yld_Enum::yld_ElementFaceEnum> faces(set.size);
            m_sideBlocks.emplace_back();
            if (!m_reader.variables(exo_SIDE_SET).empty()) m_sideBlocks.back() = sideBlocks(elements, labelOf);
            for (std::size_t i = 0; i < elements.size(); ++i) {
                const auto element = static_cast<std::size_t>(elements[i]);
                const auto face = faceOf(m_types[blockOf[element]]->sides, sides[i]);
                if (!face) {
                    ++m_sidesLeftOut;
                    continue;
                }
                labels.append(labelOf[element]);
                faces.append(*face);
            }
            part.Surface(name.c_str(), labels, faces);
            instance.Surface(name.c_str(), labels, faces);
        }
    }

    // The sides of a set in blocks in which no element comes twice: the first sides of all, then the second ones.
    static std::vector<SideBlock> sideBlocks(const std::vector<int>& elements, const std::vector<int>& labelOf)
    {
        std::vector<SideBlock> blocks;
        std::map<int, std::size_t> sidesOf;
        for (std::size_t i = 0; i < elements.size(); ++i) {
            const std::size_t earlier = sidesOf[elements[i]]++;
            if (earlier == blocks.size()) blocks.emplace_back();
            blocks[earlier].labels.push_back(labelOf[static_cast<std::size_t>(elements[i])]);
            blocks[earlier].sides.push_back(i);
        }
        return blocks;
    }

    void addFrames(const yld_Instance& instance)
    {
        const std::vector<double>& times = m_reader.times();
        if (times.empty()) return;
        const std::vector<tool_PlannedField> fields = planFields();

        const std::string fileName = std::filesystem::path(m_reader.path()).filename().string();
        const std::string description = m_reader.title().empty() ? "time steps of " + fileName : m_reader.title();
        yld_Step& step =
            m_database.Step("Step-1", description.c_str(), yld_Enum::TIME, times.back() > 0.0 ? times.back() : 1.0);
        std::vector<yld_HistoryOutput> curves = addCurves(step);
        tool_Progress progress("importing", static_cast<int>(times.size()));
        for (std::size_t i = 0; i < times.size(); ++i) {
            {
                const int index = static_cast<int>(i);
                yld_Frame frame = step.Frame(index, times[i], ("time step " + std::to_string(i + 1)).c_str());
                for (const tool_PlannedField& field : fields) addField(frame, field, index, instance);
            }
            step.ClearFrameContainer();
            m_reader.globalValues(static_cast<int>(i), m_column);
            for (std::size_t c = 0; c < curves.size(); ++c)
                curves[c].addData(times[i], static_cast<double>(single(m_column[c])));
            progress.show(static_cast<int>(i) + 1);
        }
    }

    // A curve for each global variable, in their order.
    std::vector<yld_HistoryOutput> addCurves(yld_Step& step)
    {
        std::vector<yld_HistoryOutput> curves;
        const std::vector<std::string>& variables = m_reader.variables(exo_GLOBAL);
        if (variables.empty()) return curves;
        const yld_HistoryPoint point(m_database.rootAssembly());
        yld_HistoryRegion& region = step.HistoryRegion(point.shortText(), point.longText(), point);
        std::set<std::string> given;
        for (std::size_t i = 0; i < variables.size(); ++i) {
            const std::string name = uniqueName(variables[i], "global_", static_cast<std::int64_t>(i) + 1, given);
            curves.push_back(region.HistoryOutput(name.c_str(), variables[i].c_str(), yld_Enum::SCALAR));
        }
        return curves;
    }

    std::vector<tool_PlannedField> planFields()
    {
        tool_Variables variables;
        variables.dimension = m_reader.dimension();
        variables.nodal = m_reader.variables(exo_NODAL);
        variables.element = m_reader.variables(exo_ELEMENT);
        variables.nodeSet = m_reader.variables(exo_NODE_SET);
        variables.sideSet = m_reader.variables(exo_SIDE_SET);
        variables.numBlocks = m_reader.blocks().size();
        variables.hasVariable = [this](std::size_t block, std::size_t variable) {
            return m_types[block] != nullptr && m_reader.hasVariable(block, variable);
        };
        variables.numPoints = [this](std::size_t block) {
            return m_types[block] == nullptr ? 0 : m_types[block]->numPoints;
        };
        std::vector<tool_PlannedField> fields =
            tool_planFields(variables, [this](const std::string& note) { m_notes.push_back(note); });
        for (tool_PlannedField& field : fields)
            if (field.type == tool_PlannedField::NINE) tool_settleNine(field, isSymmetric(field));
        for (const tool_PlannedField& field : fields)
            if (!field.sideSet.empty()) tellOfSides(field);
        return fields;
    }

    // Whether nine components are those of a symmetric tensor, at all times: as exactly as a float can tell.
    bool isSymmetric(const tool_PlannedField& field)
    {
        std::vector<std::vector<double>> nine(9);
        const auto isMirrored = [&nine] {
            for (std::size_t i = 0; i < nine[0].size(); ++i) {
                double largest = 0.0;
                for (const std::vector<double>& column : nine) largest = std::max(largest, std::fabs(column[i]));
                for (const auto& [upper, below] : {std::pair(1, 3), std::pair(2, 6), std::pair(5, 7)})
                    if (std::fabs(nine[static_cast<std::size_t>(upper)][i] - nine[static_cast<std::size_t>(below)][i]) >
                        1e-6 * largest)
                        return false;
            }
            return true;
        };
        for (std::size_t step = 0; step < m_reader.times().size(); ++step) {
            const int index = static_cast<int>(step);
            if (!field.nodal.empty()) {
                for (std::size_t c = 0; c < 9; ++c) m_reader.nodalValues(index, field.nodal[c], nine[c]);
                if (!isMirrored()) return false;
            }
            for (const std::size_t block : field.pointBlocks)
                for (std::size_t q = 0; q < field.points.front().size(); ++q) {
                    for (std::size_t c = 0; c < 9; ++c)
                        m_reader.elementValues(index, field.points[c][q], m_reader.blocks()[block], nine[c]);
                    if (!isMirrored()) return false;
                }
        }
        return true;
    }

    // A value of a side becomes one of the whole element that it belongs to.
    void tellOfSides(const tool_PlannedField& field)
    {
        std::size_t mostSides = 0;
        for (std::size_t s = 0; s < m_reader.sideSets().size(); ++s) {
            if (!m_reader.hasVariable(exo_SIDE_SET, s, field.sideSet.front())) continue;
            mostSides = std::max(mostSides, m_sideBlocks[s].size());
        }
        if (mostSides == 0) return;
        m_notes.push_back("side set variable \"" + field.name + "\" lies on the whole elements behind the sides" +
                          (mostSides > 1 ? ", once for each side" : ""));
    }

    yld_FieldOutput& makeField(yld_Frame& frame, const tool_PlannedField& planned)
    {
        const yld_String name(planned.name.c_str());
        if (planned.type == tool_PlannedField::MATRIX) return frame.MatrixOutput(name, name, 3, 3);
        yld_Enum::yld_DataTypeEnum type = yld_Enum::SCALAR;
        std::vector<yld_Enum::yld_InvariantEnum> invariants;
        if (planned.type == tool_PlannedField::VECTOR) {
            type = yld_Enum::VECTOR;
            invariants = {yld_Enum::MAGNITUDE};
        } else if (planned.type == tool_PlannedField::TENSOR) {
            type = yld_Enum::TENSOR_3D_FULL;
            invariants = {yld_Enum::MISES,         yld_Enum::TRESCA,        yld_Enum::PRESS,        yld_Enum::INV3,
                          yld_Enum::MAX_PRINCIPAL, yld_Enum::MID_PRINCIPAL, yld_Enum::MIN_PRINCIPAL};
        }
        yld_Sequence<yld_String> labels;
        for (const std::string& label : planned.componentLabels) labels.append(yld_String(label.c_str()));
        yld_Sequence<yld_Enum::yld_InvariantEnum> valid;
        for (const yld_Enum::yld_InvariantEnum invariant : invariants) valid.append(invariant);
        return frame.FieldOutput(name, name, type, labels, valid);
    }

    void addField(yld_Frame& frame, const tool_PlannedField& planned, int index, const yld_Instance& instance)
    {
        yld_FieldOutput& field = makeField(frame, planned);
        const auto write = [&](yld_Enum::yld_ResultPositionEnum position, const std::vector<int>& labels,
                               std::size_t numRows, std::size_t width) {
            field.addBulkData(position, instance, labels.data(), static_cast<int>(labels.size()), m_rows.data(),
                              static_cast<int>(numRows), static_cast<int>(width));
        };
        if (!planned.nodal.empty() && !m_nodeLabels.empty()) {
            const std::size_t width = planned.nodal.size();
            m_rows.resize(m_nodeLabels.size() * width);
            for (std::size_t c = 0; c < width; ++c) {
                m_reader.nodalValues(index, planned.nodal[c], m_column);
                fillColumn(c, width);
            }
            write(yld_Enum::NODAL, m_nodeLabels, m_nodeLabels.size(), width);
        }
        for (const std::size_t b : planned.elementBlocks) {
            const std::size_t width = planned.element.size();
            m_rows.resize(m_blockLabels[b].size() * width);
            for (std::size_t c = 0; c < width; ++c) {
                m_reader.elementValues(index, planned.element[c], m_reader.blocks()[b], m_column);
                fillColumn(c, width);
            }
            write(yld_Enum::CENTROID, m_blockLabels[b], m_blockLabels[b].size(), width);
        }
        for (const std::size_t b : planned.pointBlocks) {
            const std::size_t width = planned.points.size();
            const std::size_t numPoints = planned.points.front().size();
            m_rows.resize(m_blockLabels[b].size() * numPoints * width);
            for (std::size_t c = 0; c < width; ++c)
                for (std::size_t q = 0; q < numPoints; ++q) {
                    m_reader.elementValues(index, planned.points[c][q], m_reader.blocks()[b], m_column);
                    fillColumn(q * width + c, numPoints * width);
                }
            write(yld_Enum::INTEGRATION_POINT, m_blockLabels[b], m_blockLabels[b].size() * numPoints, width);
        }
        for (const std::size_t variable : planned.nodeSet)
            for (std::size_t s = 0; s < m_nodeSetLabels.size(); ++s) {
                const exo_Set& set = m_reader.nodeSets()[s];
                if (set.size == 0 || !m_reader.hasVariable(exo_NODE_SET, s, variable)) continue;
                m_rows.resize(m_nodeSetLabels[s].size());
                m_reader.setValues(index, exo_NODE_SET, variable, set, m_column);
                fillColumn(0, 1);
                write(yld_Enum::NODAL, m_nodeSetLabels[s], m_nodeSetLabels[s].size(), 1);
            }
        for (const std::size_t variable : planned.sideSet)
            for (std::size_t s = 0; s < m_sideBlocks.size(); ++s) {
                const exo_Set& set = m_reader.sideSets()[s];
                if (set.size == 0 || !m_reader.hasVariable(exo_SIDE_SET, s, variable)) continue;
                m_reader.setValues(index, exo_SIDE_SET, variable, set, m_column);
                for (const SideBlock& block : m_sideBlocks[s]) {
                    m_rows.clear();
                    for (const std::size_t side : block.sides) m_rows.push_back(single(m_column[side]));
                    write(yld_Enum::WHOLE_ELEMENT, block.labels, block.labels.size(), 1);
                }
            }
    }

    void fillColumn(std::size_t component, std::size_t width)
    {
        for (std::size_t i = 0; i < m_column.size(); ++i) m_rows[i * width + component] = single(m_column[i]);
    }

    float single(double value)
    {
        const auto result = static_cast<float>(value);
        if (std::isinf(result) && std::isfinite(value)) ++m_valuesOutOfRange;
        return result;
    }

    static yld_Sequence<int> sequence(const std::vector<int>& numbers)
    {
        return yld_Sequence<int>(numbers.data(), static_cast<int>(numbers.size()));
    }

    const exo_Reader& m_reader;
    yld_Yld& m_database;
    std::vector<const tool_ElementType*> m_types;
    std::vector<int> m_nodeLabels;
    std::vector<std::vector<int>> m_blockLabels;
    std::vector<std::string> m_blockNames;
    std::vector<std::vector<int>> m_nodeSetLabels;    // only where sets have variables
    std::vector<std::vector<SideBlock>> m_sideBlocks; // the same, for sets with variables
    std::vector<double> m_column;
    std::vector<float> m_rows;
    std::vector<std::string> m_notes;
    std::size_t m_sidesLeftOut = 0;
    std::size_t m_valuesOutOfRange = 0;
};

} // namespace

void tool_import(const std::string& source, const std::string& target, bool mayReplace)
{
    const exo_Reader reader(source);
    tool_TargetFile file(target, source, mayReplace);
    const std::string description = "imported from " + std::filesystem::path(source).filename().string();
    yld_Yld& database = Yld(file.path().c_str(), reader.title().c_str(), description.c_str(), file.path().c_str());
    OpenDatabase open(database);
    Importer importer(reader, database);
    importer.run();
    open.close();
    file.commit();
    importer.report();
}
