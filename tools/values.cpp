#include "values.h"

#include "database.h"
#include "failure.h"
#include "json_text.h"
#include "output.h"
#include "texts.h"
#include "yld.h"

#include <algorithm>
#include <vector>

namespace {

// What the rows to print have in common.
struct Layout
{
    bool hasNode = false;
    bool hasElement = false;
    bool hasPoint = false;
    bool hasSectionPoint = false;
    int width = 0;
    std::size_t instanceWidth = 8;
    std::vector<std::string> headings; // of the components
};

// One block of the field, its arrays at hand.
struct Block
{
    explicit Block(const yld_FieldBulkData& data)
        : bulk(data), instance(tool_text(data.instance().name())), position(tool_nameOf(data.position())),
          nodes(data.nodeLabels()), elements(data.elementLabels()), points(data.integrationPoints())
    {
    }

    int sectionPoint() const { return bulk.sectionPoint().number(); }
    std::string component(int row, int column) const
    {
        const std::ptrdiff_t at = static_cast<std::ptrdiff_t>(row) * bulk.width() + column;
        return bulk.data() != nullptr ? tool_numberText(bulk.data()[at]) : tool_numberText(bulk.dataDouble()[at]);
    }

    const yld_FieldBulkData& bulk;
    std::string instance;
    std::string position;
    const int* nodes;
    const int* elements;
    const int* points;
};

void printJson(const tool_ValuesRequest& request, const std::string& step, int frame,
               const std::vector<std::string>& components, const std::vector<Block>& blocks, tool_Output& output)
{
    tool_JsonWriter json(output);
    json.beginObject();
    json.member("field", request.field);
    json.member("step", step);
    json.member("frame", frame);
    json.key("components").beginArray();
    for (const std::string& component : components) json.value(component);
    json.endArray();
    json.key("values").beginArray();
    for (const Block& block : blocks) {
        const int width = block.bulk.width();
        const float* data = block.bulk.data();
        const double* dataDouble = block.bulk.dataDouble();
        for (int row = 0; row < block.bulk.length(); ++row) {
            json.beginObject();
            json.member("instance", block.instance);
            json.member("position", block.position);
            if (block.nodes != nullptr) json.member("node", block.nodes[row]);
            if (block.elements != nullptr) json.member("element", block.elements[row]);
            if (block.points != nullptr) json.member("point", block.points[row]);
            if (block.sectionPoint() > 0) json.member("sectionPoint", block.sectionPoint());
            json.key("data").beginArray();
            for (int column = 0; column < width; ++column) {
                const std::ptrdiff_t at = static_cast<std::ptrdiff_t>(row) * width + column;
                if (data != nullptr) json.value(data[at]);
                else json.value(dataDouble[at]);
            }
            json.endArray();
            json.endObject();
        }
    }
    json.endArray();
    json.endObject();
    output << '\n';
}

void printCsv(const Layout& layout, const std::vector<Block>& blocks, tool_Output& output)
{
    output << "instance,position";
    if (layout.hasNode) output << ",node";
    if (layout.hasElement) output << ",element";
    if (layout.hasPoint) output << ",point";
    if (layout.hasSectionPoint) output << ",sectionPoint";
    for (const std::string& heading : layout.headings) output << ',' << tool_csvCell(heading);
    output << '\n';
    const auto label = [&](bool isColumn, const int* labels, int row) {
        if (!isColumn) return;
        output << ',';
        if (labels != nullptr) output << labels[row];
    };
    for (const Block& block : blocks) {
        const std::string start = tool_csvCell(block.instance) + ',' + block.position;
        for (int row = 0; row < block.bulk.length(); ++row) {
            output << start;
            label(layout.hasNode, block.nodes, row);
            label(layout.hasElement, block.elements, row);
            label(layout.hasPoint, block.points, row);
            if (layout.hasSectionPoint) {
                output << ',';
                if (block.sectionPoint() > 0) output << block.sectionPoint();
            }
            for (int column = 0; column < layout.width; ++column) {
                output << ',';
                if (column < block.bulk.width()) output << block.component(row, column);
            }
            output << '\n';
        }
    }
}

void printTable(const Layout& layout, const std::vector<Block>& blocks, tool_Output& output)
{
    constexpr std::size_t positionWidth = 20;
    constexpr std::size_t labelWidth = 10;
    constexpr std::size_t numberWidth = 16;
    std::vector<std::size_t> widths;
    for (const std::string& heading : layout.headings) widths.push_back(std::max(numberWidth, heading.size() + 2));

    output.left("instance", layout.instanceWidth + 2);
    output.left("position", positionWidth);
    if (layout.hasNode) output.right("node", labelWidth);
    if (layout.hasElement) output.right("element", labelWidth);
    if (layout.hasPoint) output.right("point", labelWidth);
    if (layout.hasSectionPoint) output.right("section", labelWidth);
    for (std::size_t i = 0; i < widths.size(); ++i) output.right(layout.headings[i], widths[i]);
    output << '\n';
    const auto label = [&](bool isColumn, const int* labels, int row) {
        if (isColumn) output.right(labels != nullptr ? std::to_string(labels[row]) : "", labelWidth);
    };
    for (const Block& block : blocks)
        for (int row = 0; row < block.bulk.length(); ++row) {
            output.left(block.instance, layout.instanceWidth + 2);
            output.left(block.position, positionWidth);
            label(layout.hasNode, block.nodes, row);
            label(layout.hasElement, block.elements, row);
            label(layout.hasPoint, block.points, row);
            if (layout.hasSectionPoint)
                output.right(block.sectionPoint() > 0 ? std::to_string(block.sectionPoint()) : "", labelWidth);
            for (int column = 0; column < block.bulk.width(); ++column)
                output.right(block.component(row, column), widths[static_cast<std::size_t>(column)]);
            output << '\n';
        }
}

int findFrame(yld_Step& step, const tool_ValuesRequest& request)
{
    const int count = step.frames().size();
    const std::string where = "step \"" + tool_text(step.name()) + "\" of " + request.path;
    if (count == 0) throw tool_Failure("no frames in " + where);
    const int index = request.frame < 0 ? count + request.frame : request.frame;
    if (index < 0 || index >= count)
        throw tool_Failure("no frame " + std::to_string(request.frame) + " in " + where + "; there are " +
                           std::to_string(count) + ", 0 to " + std::to_string(count - 1));
    return index;
}

template<class Names> bool contains(const Names& names, const std::string& name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

} // namespace

void tool_values(const tool_ValuesRequest& request)
{
    tool_Database database(request.path);
    yld_Step& step = tool_findStep(*database, request.path, request.step);
    const int index = findFrame(step, request);
    const yld_Frame& frame = step.frames(index);
    const std::string where =
        "frame " + std::to_string(index) + " of step \"" + tool_text(step.name()) + "\" of " + request.path;
    if (!frame.fieldOutputs().isMember(request.field.c_str()))
        throw tool_Failure("no field \"" + request.field + "\" in " + where +
                           tool_choices(tool_texts(frame.fieldOutputs().getFieldOutputNames())));
    const yld_FieldOutput& field = frame.fieldOutputs().constGet(request.field.c_str());
    if (!request.instance.empty()) {
        const yld_Assembly& assembly = database->rootAssembly();
        if (!assembly.instances().isMember(request.instance.c_str()))
            throw tool_Failure("no instance \"" + request.instance + "\" in " + request.path +
                               tool_choices(tool_texts(assembly.instances().keys())));
    }

    const yld_SequenceFieldBulkData& bulk = field.bulkDataBlocks();
    std::vector<Block> blocks;
    std::vector<std::string> positions;
    std::vector<std::string> instances;
    Layout layout;
    for (int i = 0; i < bulk.size(); ++i) {
        const Block block(bulk.constGet(i));
        if (!contains(positions, block.position)) positions.push_back(block.position);
        if (!contains(instances, block.instance)) instances.push_back(block.instance);
        if (!request.instance.empty() && request.instance != block.instance) continue;
        if (!request.position.empty() && request.position != block.position) continue;
        layout.hasNode = layout.hasNode || block.nodes != nullptr;
        layout.hasElement = layout.hasElement || block.elements != nullptr;
        layout.hasPoint = layout.hasPoint || block.points != nullptr;
        layout.hasSectionPoint = layout.hasSectionPoint || block.sectionPoint() > 0;
        layout.width = std::max(layout.width, block.bulk.width());
        layout.instanceWidth = std::max(layout.instanceWidth, block.instance.size());
        blocks.push_back(block);
    }
    if (!request.position.empty() && !contains(positions, request.position))
        throw tool_Failure("field \"" + request.field + "\" has no values at position " + request.position + " in " +
                           where + tool_choices(positions));
    if (!request.instance.empty() && !contains(instances, request.instance))
        throw tool_Failure("field \"" + request.field + "\" has no values on instance \"" + request.instance +
                           "\" in " + where + tool_choices(instances));

    layout.headings = tool_texts(field.componentLabels());
    if (layout.headings.empty() && layout.width == 1) layout.headings.push_back(request.field);
    for (int column = static_cast<int>(layout.headings.size()); column < layout.width; ++column)
        layout.headings.push_back(std::to_string(column + 1));

    tool_Output output;
    switch (request.format) {
    case tool_ValuesRequest::JSON:
        printJson(request, tool_text(step.name()), index, tool_texts(field.componentLabels()), blocks, output);
        break;
    case tool_ValuesRequest::CSV:
        printCsv(layout, blocks, output);
        break;
    case tool_ValuesRequest::TABLE:
        printTable(layout, blocks, output);
        break;
    }
    output.finish();
}
