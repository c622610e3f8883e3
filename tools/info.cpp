#include "info.h"

#include "database.h"
#include "json_text.h"
#include "output.h"
#include "texts.h"
#include "yld.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace {

// The sets of an entity, without a walk over their members.
struct Sets
{
    explicit Sets(const yld_DiscreteEntity& entity)
        : nodeSets(entity.nodeSets(false, true)), elementSets(entity.elementSets(false, true)),
          surfaces(entity.surfaces(false))
    {
    }

    const yld_SetRepository& nodeSets;
    const yld_SetRepository& elementSets;
    const yld_SetRepository& surfaces;
};

using Position = std::pair<yld_Enum::yld_ResultPositionEnum, int>;

// How many values a field has at each position, in the order of the blocks.
std::vector<Position> positionsOf(const yld_FieldOutput& field)
{
    std::vector<Position> positions;
    const yld_Sequence<yld_SubField>& blocks = field.SubField();
    for (int i = 0; i < blocks.size(); ++i) {
        const yld_SubField& block = blocks[i];
        std::size_t at = 0;
        while (at < positions.size() && positions[at].first != block.position()) ++at;
        if (at == positions.size()) positions.emplace_back(block.position(), 0);
        positions[at].second += block.length();
    }
    return positions;
}

class JsonReport
{
public:
    JsonReport(yld_Yld& database, tool_Output& output) : m_database(database), m_json(output)
    {
        m_json.beginObject();
        m_json.member("version", database.databaseVersion());
        m_json.member("title", tool_text(database.analysisTitle()));
        m_json.member("description", tool_text(database.description()));
        yld_PartRepository& parts = database.parts();
        const std::vector<std::string> partNames = tool_texts(parts.keys());
        m_json.key("parts").beginArray();
        for (const std::string& name : partNames) entity(parts.constGet(name.c_str()));
        m_json.endArray();
        const yld_Assembly& assembly = database.rootAssembly();
        const yld_InstanceRepository& instances = assembly.instances();
        m_json.key("instances").beginArray();
        for (const std::string& name : tool_texts(instances.keys())) entity(instances.constGet(name.c_str()));
        m_json.endArray();
        m_json.key("assembly").beginObject();
        sets(assembly);
        m_json.endObject();
        m_json.key("steps").beginArray();
        for (const std::string& name : tool_texts(database.steps().stepNames()))
            step(database.steps().get(name.c_str()));
        m_json.endArray();
        m_json.endObject();
        output << '\n';
    }

private:
    void entity(const yld_DiscreteEntity& what)
    {
        m_json.beginObject();
        m_json.member("name", tool_text(what.name()));
        m_json.member("nodes", what.nodes().size());
        m_json.member("elements", what.elements().size());
        m_json.key("elementClasses").beginArray();
        const yld_Sequence<yld_ElementClass>& classes = what.elementClasses();
        for (int i = 0; i < classes.size(); ++i) {
            m_json.beginObject();
            m_json.member("type", tool_text(classes[i].typeLabel()));
            m_json.member("elements", classes[i].numElements());
            m_json.member("nodesPerElement", classes[i].numNodesPerElement());
            m_json.endObject();
        }
        m_json.endArray();
        sets(what);
        m_json.endObject();
    }

    void sets(const yld_DiscreteEntity& what)
    {
        const Sets all(what);
        setList("nodeSets", all.nodeSets);
        setList("elementSets", all.elementSets);
        setList("surfaces", all.surfaces);
    }

    void setList(const char* key, const yld_SetRepository& repository)
    {
        m_json.key(key).beginArray();
        for (const std::string& name : tool_texts(repository.keys())) {
            m_json.beginObject();
            m_json.member("name", name);
            m_json.member("size", repository.constGet(name.c_str()).size());
            m_json.endObject();
        }
        m_json.endArray();
    }

    void step(yld_Step& what)
    {
        m_json.beginObject();
        m_json.member("name", tool_text(what.name()));
        m_json.member("procedure", tool_text(what.procedure()));
        m_json.member("domain", tool_nameOf(what.domain()));
        m_json.member("timePeriod", what.timePeriod());
        m_json.key("frames").beginArray();
        const int count = what.frames().size();
        for (int i = 0; i < count; ++i) frame(what.frames(i));
        m_json.endArray();
        m_json.endObject();
        what.ClearFrameContainer();
    }

    void frame(const yld_Frame& what)
    {
        m_json.beginObject();
        m_json.member("index", what.frameIndex());
        m_json.member("increment", what.incrementNumber());
        // Kept as a float: printed as one, it reads back as what the file holds.
        m_json.member("value", static_cast<float>(what.frameValue()));
        m_json.member("description", tool_text(what.description()));
        m_json.key("fields").beginArray();
        for (const std::string& name : tool_texts(what.fieldOutputs().getFieldOutputNames()))
            field(name, what.fieldOutputs().constGet(name.c_str()));
        m_json.endArray();
        m_json.endObject();
    }

    void field(const std::string& name, const yld_FieldOutput& what)
    {
        m_json.beginObject();
        m_json.member("name", name);
        m_json.member("type", tool_nameOf(what.type()));
        m_json.key("components").beginArray();
        for (const std::string& label : tool_texts(what.componentLabels())) m_json.value(label);
        m_json.endArray();
        m_json.key("positions").beginArray();
        for (const Position& position : positionsOf(what)) {
            m_json.beginObject();
            m_json.member("position", tool_nameOf(position.first));
            m_json.member("values", position.second);
            m_json.endObject();
        }
        m_json.endArray();
        m_json.endObject();
    }

    yld_Yld& m_database;
    tool_JsonWriter m_json;
};

class TextReport
{
public:
    TextReport(const std::string& path, yld_Yld& database, tool_Output& output) : m_output(output)
    {
        m_output << path << '\n';
        line("version", std::to_string(database.databaseVersion()));
        line("title", tool_text(database.analysisTitle()));
        line("description", tool_text(database.description()));
        yld_PartRepository& parts = database.parts();
        for (const std::string& name : tool_texts(parts.keys())) entity("part", parts.constGet(name.c_str()));
        const yld_Assembly& assembly = database.rootAssembly();
        const yld_InstanceRepository& instances = assembly.instances();
        for (const std::string& name : tool_texts(instances.keys()))
            entity("instance", instances.constGet(name.c_str()));
        m_output << "\nassembly\n";
        sets(assembly);
        for (const std::string& name : tool_texts(database.steps().stepNames()))
            step(database.steps().get(name.c_str()));
    }

private:
    static constexpr int framesInFull = 24; // more are shown by their first and last ones

    void line(const char* key, const std::string& text)
    {
        m_output << "  ";
        m_output.left(key, 14);
        m_output << tool_oneLine(text) << '\n';
    }

    void entity(const char* kind, const yld_DiscreteEntity& what)
    {
        m_output << '\n'
                 << kind << " \"" << tool_text(what.name()) << "\": " << what.nodes().size() << " nodes, "
                 << what.elements().size() << " elements\n";
        const yld_Sequence<yld_ElementClass>& classes = what.elementClasses();
        for (int i = 0; i < classes.size(); ++i) {
            m_output << "  ";
            m_output.left(tool_text(classes[i].typeLabel()), 14);
            m_output << classes[i].numElements() << " elements of " << classes[i].numNodesPerElement() << " nodes";
            const std::string category = tool_text(classes[i].categoryLabel());
            if (!category.empty()) m_output << ", " << category;
            m_output << '\n';
        }
        sets(what);
    }

    void sets(const yld_DiscreteEntity& what)
    {
        const Sets all(what);
        setList("node sets", all.nodeSets);
        setList("element sets", all.elementSets);
        setList("surfaces", all.surfaces);
    }

    void setList(const char* kind, const yld_SetRepository& repository)
    {
        const char* title = kind;
        for (const std::string& name : tool_texts(repository.keys())) {
            m_output << "  ";
            m_output.left(title, 14);
            m_output << name << " (" << repository.constGet(name.c_str()).size() << ")\n";
            title = "";
        }
    }

    void step(yld_Step& what)
    {
        const int count = what.frames().size();
        m_output << "\nstep \"" << tool_text(what.name()) << "\": " << tool_text(what.procedure()) << ", domain "
                 << tool_nameOf(what.domain()) << ", time period " << tool_numberText(what.timePeriod()) << ", "
                 << count << (count == 1 ? " frame\n" : " frames\n");
        if (count == 0) return;
        m_output << "  ";
        m_output.right("frame", 8);
        m_output.right("increment", 11);
        m_output.right("value", 16);
        m_output << "  description\n";
        for (int i = 0; i < count; ++i) {
            if (count > framesInFull && i == framesInFull / 2) {
                m_output << "  ";
                m_output.right("...", 8);
                m_output << '\n';
                i = count - framesInFull / 2;
            }
            const yld_Frame& frame = what.frames(i);
            m_output << "  ";
            m_output.right(std::to_string(frame.frameIndex()), 8);
            m_output.right(std::to_string(frame.incrementNumber()), 11);
            m_output.right(tool_numberText(static_cast<float>(frame.frameValue())), 16);
            m_output << "  " << tool_oneLine(tool_text(frame.description())) << '\n';
        }
        const yld_Frame& last = what.frames(count - 1);
        const std::vector<std::string> names = tool_texts(last.fieldOutputs().getFieldOutputNames());
        m_output << "  fields of the last frame: " << static_cast<int>(names.size()) << '\n';
        std::size_t width = 12;
        for (const std::string& name : names) width = std::max(width, std::min<std::size_t>(name.size(), 40));
        for (const std::string& name : names) {
            const yld_FieldOutput& field = last.fieldOutputs().constGet(name.c_str());
            m_output << "    ";
            m_output.left(name, width + 2);
            m_output.left(tool_nameOf(field.type()), 18);
            const char* separator = "";
            for (const Position& position : positionsOf(field)) {
                m_output << separator << position.second << ' ' << tool_nameOf(position.first);
                separator = ", ";
            }
            const std::vector<std::string> labels = tool_texts(field.componentLabels());
            for (std::size_t i = 0; i < labels.size(); ++i)
                m_output << (i == 0 ? "  [" : " ") << labels[i] << (i + 1 == labels.size() ? "]" : "");
            m_output << '\n';
        }
        what.ClearFrameContainer();
    }

    tool_Output& m_output;
};

} // namespace

void tool_info(const std::string& path, bool asJson)
{
    tool_Database database(path);
    tool_Output output;
    if (asJson) JsonReport(*database, output);
    else TextReport(path, *database, output);
    output.finish();
}
