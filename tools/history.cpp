#include "history.h"

#include "database.h"
#include "failure.h"
#include "json_text.h"
#include "output.h"
#include "plot.h"
#include "texts.h"
#include "yld.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <sys/ioctl.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {

struct Curve
{
    const yld_HistoryRegion& region;
    const yld_HistoryOutput& output;
    long long pairs;
};

// Reads a curve in pieces, so that its length does not matter.
template<class Visit> void walk(const Curve& curve, const Visit& visit)
{
    constexpr long long piece = 65536;
    const bool isComplex = curve.output.hasConjugate();
    const auto room = static_cast<std::size_t>(std::min(piece, curve.pairs));
    std::vector<double> times(room);
    std::vector<float> values(room), conjugates(isComplex ? room : 0);
    for (long long from = 0; from < curve.pairs; from += piece) {
        const long long count = std::min(piece, curve.pairs - from);
        curve.output.readData(from, count, times.data(), values.data(), isComplex ? conjugates.data() : nullptr);
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
            visit(times[i], values[i], isComplex ? conjugates[i] : 0.0F);
    }
}

// A time that came as a float reads back as that float.
bool isFloat(double time) { return static_cast<double>(static_cast<float>(time)) == time; }

std::string timeText(double time)
{
    return isFloat(time) ? tool_numberText(static_cast<float>(time)) : tool_numberText(time);
}

void jsonTime(tool_JsonWriter& json, double time)
{
    if (isFloat(time)) json.value(static_cast<float>(time));
    else json.value(time);
}

std::string positionOf(const yld_HistoryRegion& region) { return tool_nameOf(region.historyPoint().storedPosition()); }

void listJson(const std::string& step, const std::vector<Curve>& curves, tool_Output& output)
{
    tool_JsonWriter json(output);
    json.beginObject();
    json.member("step", step);
    json.key("regions").beginArray();
    for (std::size_t i = 0; i < curves.size();) {
        const yld_HistoryRegion& region = curves[i].region;
        json.beginObject();
        json.member("name", tool_text(region.name()));
        json.member("description", tool_text(region.description()));
        json.member("position", positionOf(region));
        json.member("loadCase", tool_text(region.loadCase().name()));
        json.key("outputs").beginArray();
        for (; i < curves.size() && &curves[i].region == &region; ++i) {
            json.beginObject();
            json.member("name", tool_text(curves[i].output.name()));
            json.member("description", tool_text(curves[i].output.description()));
            json.member("pairs", curves[i].pairs);
            json.endObject();
        }
        json.endArray();
        json.endObject();
    }
    json.endArray();
    json.endObject();
    output << '\n';
}

void listCsv(const std::vector<Curve>& curves, tool_Output& output)
{
    output << "region,position,loadCase,output,description,pairs\n";
    for (const Curve& curve : curves) {
        output << tool_csvCell(tool_text(curve.region.name())) << ',' << positionOf(curve.region) << ','
               << tool_csvCell(tool_text(curve.region.loadCase().name())) << ','
               << tool_csvCell(tool_text(curve.output.name())) << ','
               << tool_csvCell(tool_text(curve.output.description())) << ',' << std::to_string(curve.pairs) << '\n';
    }
}

void listTable(const std::string& step, const std::vector<Curve>& curves, tool_Output& output)
{
    std::size_t width = 8;
    std::size_t regions = 0;
    for (std::size_t i = 0; i < curves.size(); ++i) {
        width = std::max(width, std::min<std::size_t>(tool_text(curves[i].output.name()).size(), 40));
        if (i == 0 || &curves[i].region != &curves[i - 1].region) ++regions;
    }
    output << "step \"" << step << "\": " << std::to_string(regions) << (regions == 1 ? " region, " : " regions, ")
           << std::to_string(curves.size()) << (curves.size() == 1 ? " curve\n" : " curves\n");
    const yld_HistoryRegion* last = nullptr;
    for (const Curve& curve : curves) {
        if (&curve.region != last) {
            last = &curve.region;
            output << '\n' << tool_oneLine(tool_text(last->name()));
            const std::string description = tool_oneLine(tool_text(last->description()));
            if (!description.empty()) output << "  " << description;
            if (!last->loadCase().name().empty()) output << ", load case " << tool_text(last->loadCase().name());
            output << '\n';
        }
        output << "  ";
        output.left(tool_oneLine(tool_text(curve.output.name())), width + 2);
        output.right(std::to_string(curve.pairs), 10);
        output << (curve.pairs == 1 ? " pair   " : " pairs  ") << tool_oneLine(tool_text(curve.output.description()))
               << '\n';
    }
}

void printJson(const std::string& step, const std::vector<Curve>& curves, tool_Output& output)
{
    tool_JsonWriter json(output);
    json.beginObject();
    json.member("step", step);
    json.key("curves").beginArray();
    for (const Curve& curve : curves) {
        const bool isComplex = curve.output.hasConjugate();
        json.beginObject();
        json.member("region", tool_text(curve.region.name()));
        json.member("output", tool_text(curve.output.name()));
        json.member("description", tool_text(curve.output.description()));
        json.key("data").beginArray();
        walk(curve, [&](double time, float value, float conjugate) {
            json.beginArray();
            jsonTime(json, time);
            json.value(value);
            if (isComplex) json.value(conjugate);
            json.endArray();
        });
        json.endArray();
        json.endObject();
    }
    json.endArray();
    json.endObject();
    output << '\n';
}

bool anyComplex(const std::vector<Curve>& curves)
{
    return std::any_of(curves.begin(), curves.end(), [](const Curve& curve) { return curve.output.hasConjugate(); });
}

void printCsv(const std::vector<Curve>& curves, tool_Output& output)
{
    const bool hasConjugates = anyComplex(curves);
    output << (hasConjugates ? "region,output,time,value,conjugate\n" : "region,output,time,value\n");
    for (const Curve& curve : curves) {
        const std::string start =
            tool_csvCell(tool_text(curve.region.name())) + ',' + tool_csvCell(tool_text(curve.output.name())) + ',';
        const bool isComplex = curve.output.hasConjugate();
        walk(curve, [&](double time, float value, float conjugate) {
            output << start << timeText(time) << ',' << tool_numberText(value);
            if (hasConjugates) output << ',';
            if (isComplex) output << tool_numberText(conjugate);
            output << '\n';
        });
    }
}

void printTable(const std::vector<Curve>& curves, tool_Output& output)
{
    constexpr std::size_t width = 24;
    bool isFirst = true;
    for (const Curve& curve : curves) {
        if (!isFirst) output << '\n';
        isFirst = false;
        output << tool_oneLine(tool_text(curve.output.name())) << ", " << tool_oneLine(tool_text(curve.region.name()))
               << '\n';
        const bool isComplex = curve.output.hasConjugate();
        output.right("time", width);
        output.right("value", width);
        if (isComplex) output.right("conjugate", width);
        output << '\n';
        walk(curve, [&](double time, float value, float conjugate) {
            output.right(timeText(time), width);
            output.right(tool_numberText(value), width);
            if (isComplex) output.right(tool_numberText(conjugate), width);
            output << '\n';
        });
    }
}

// The size of the terminal; what the environment says, or a common one, where there is none.
void terminalSize(int& columns, int& rows)
{
    columns = 80;
    rows = 24;
    const auto fromEnvironment = [](const char* name, int& number) {
        const char* const text = std::getenv(name);
        const int given = text != nullptr ? std::atoi(text) : 0;
        if (given > 0) number = given;
    };
    winsize size = {};
    if (::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) {
        columns = size.ws_col;
        if (size.ws_row > 0) rows = size.ws_row;
    } else {
        fromEnvironment("COLUMNS", columns);
        fromEnvironment("LINES", rows);
    }
    columns = std::clamp(columns, 24, 400);
    // Title, axis, its labels and its name take four lines, and a prompt follows.
    rows = std::clamp(rows - 6, 6, 30);
}

std::string axisName(const yld_Step& step)
{
    switch (step.domain()) {
    case yld_Enum::FREQUENCY:
    case yld_Enum::MODAL:
        return "frequency";
    case yld_Enum::ARC_LENGTH:
        return "arc length";
    default:
        return "time";
    }
}

void writePicture(const std::string& path, const std::string& text)
{
    const auto closer = [](std::FILE* open) { std::fclose(open); };
    std::unique_ptr<std::FILE, decltype(closer)> file(std::fopen(path.c_str(), "wb"), closer);
    bool isWritten = file && std::fwrite(text.data(), 1, text.size(), file.get()) == text.size();
    if (file) isWritten = std::fclose(file.release()) == 0 && isWritten;
    if (!isWritten) throw tool_Failure("cannot write: " + path);
}

void plot(const tool_HistoryRequest& request, const yld_Step& step, const std::vector<Curve>& curves,
          tool_Output& output)
{
    if (curves.size() > tool_mostCurves)
        throw tool_Failure(std::to_string(curves.size()) + " curves are too many for one plot, " +
                           std::to_string(tool_mostCurves) +
                           " are the most; choose with --region and --output: " + request.path);
    std::vector<tool_PlotCurve> drawn;
    for (const Curve& curve : curves) {
        tool_PlotCurve next;
        next.variable = tool_oneLine(tool_validUtf8(tool_text(curve.output.name())));
        next.name = next.variable + ", " + tool_oneLine(tool_validUtf8(tool_text(curve.region.name())));
        next.unit = tool_oneLine(tool_validUtf8(tool_unitOf(tool_text(curve.output.description()))));
        next.walk = [&curve](const tool_PlotCurve::Visit& visit) {
            walk(curve, [&visit](double time, float value, float) { visit(time, static_cast<double>(value)); });
        };
        drawn.push_back(next);
    }
    if (!request.picture.empty()) {
        const std::string title =
            std::filesystem::path(request.path).filename().string() + ", step " + tool_oneLine(tool_text(step.name()));
        writePicture(request.picture, tool_svgPlot(drawn, axisName(step), title));
        return;
    }
    int columns = 0, rows = 0;
    terminalSize(columns, rows);
    output << tool_terminalPlot(drawn, axisName(step), columns, rows);
}

} // namespace

void tool_history(const tool_HistoryRequest& request)
{
    tool_Database database(request.path);
    yld_Step& step = tool_findStep(*database, request.path, request.step);
    const std::string where = "step \"" + tool_text(step.name()) + "\" of " + request.path;
    const yld_Repository<yld_String, yld_HistoryRegionPers>& regions = std::as_const(step).historyRegions();
    if (!request.region.empty() && !regions.isMember(request.region.c_str()))
        throw tool_Failure("no region \"" + request.region + "\" in " + where +
                           tool_choices(tool_texts(regions.keys())));

    std::vector<Curve> curves;
    std::vector<std::string> outputNames;
    yld_RepositoryIT<yld_String, yld_HistoryRegionPers> region(regions);
    for (region.first(); !region.isDone(); region.next()) {
        if (!request.region.empty() && request.region != region.currentKey().cStr()) continue;
        yld_RepositoryIT<yld_String, yld_HistoryOutput> output(region.currentValue().historyOutputs());
        for (output.first(); !output.isDone(); output.next()) {
            const std::string name = tool_text(output.currentKey());
            if (std::find(outputNames.begin(), outputNames.end(), name) == outputNames.end())
                outputNames.push_back(name);
            if (!request.output.empty() && request.output != name) continue;
            curves.push_back({region.currentValue(), output.currentValue(), output.currentValue().dataSize()});
        }
    }
    if (!request.output.empty() && curves.empty())
        throw tool_Failure("no output \"" + request.output + "\" in " + where + tool_choices(outputNames));

    tool_Output output;
    const std::string name = tool_text(step.name());
    if (request.format == tool_HistoryRequest::PLOT) {
        if (curves.empty()) throw tool_Failure("no history in " + where);
        plot(request, step, curves, output);
    } else if (request.isChoice()) {
        if (request.format == tool_HistoryRequest::JSON) printJson(name, curves, output);
        else if (request.format == tool_HistoryRequest::CSV) printCsv(curves, output);
        else printTable(curves, output);
    } else {
        if (request.format == tool_HistoryRequest::JSON) listJson(name, curves, output);
        else if (request.format == tool_HistoryRequest::CSV) listCsv(curves, output);
        else listTable(name, curves, output);
    }
    output.finish();
}
