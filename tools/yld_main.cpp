// The command line tool: looks into results databases and makes them from result files of other programs.

#include "failure.h"
#include "history.h"
#include "import.h"
#include "info.h"
#include "texts.h"
#include "values.h"
#include "yld.h"

#include <CLI/CLI.hpp>
#include <csignal>
#include <cstdio>
#include <functional>
#include <new>

namespace {

constexpr int exitFailure = 1;
constexpr int exitUsage = 2;

// The library, started for as long as this object lives.
class Library
{
public:
    Library() { yld_initializeAPI(); }
    ~Library() { yld_finalizeAPI(); }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
};

int say(const std::string& text, int exitCode)
{
    std::fprintf(stderr, "yld: %s\n", tool_oneLine(text).c_str());
    return exitCode;
}

int run(const std::function<void()>& command)
{
    try {
        const Library library;
        command();
        return 0;
    } catch (const tool_BrokenPipe&) {
        return exitFailure;
    } catch (const std::bad_alloc&) {
        return say("out of memory", exitFailure);
    } catch (const std::exception& failure) {
        return say(failure.what(), exitFailure);
    }
}

} // namespace

int main(int argc, char** argv)
{
    // A reader that goes away ends us without a word, whatever our parent does with the signal.
    std::signal(SIGPIPE, SIG_DFL);

    CLI::App app("Looks into .yld results databases and makes them from Exodus II files.", "yld");
    app.require_subcommand(1);
    app.footer("Exit codes: 0 done; 1 it failed, one line on standard error says what and where; 2 bad usage.");
    std::function<void()> command;

    std::string path;
    bool asJson = false;
    CLI::App* const info = app.add_subcommand("info", "Print parts, instances, sets, steps, frames and fields");
    info->add_option("FILE", path, "The database")->required();
    info->add_flag("--json", asJson, "One JSON object");
    info->callback([&] { command = [&] { tool_info(path, asJson); }; });

    tool_ValuesRequest request;
    bool valuesAsJson = false;
    bool valuesAsCsv = false;
    CLI::App* const values = app.add_subcommand("values", "Print the values of one field in one frame");
    values->add_option("FILE", request.path, "The database")->required();
    values->add_option("--step", request.step, "Name of the step; the last one if left out");
    values->add_option("--frame", request.frame,
                       "Index of the frame, counted from 0; a negative one counts from the end, -1 is the last and "
                       "what is taken if left out");
    values->add_option("--field", request.field, "Name of the field")->required();
    values->add_option("--instance", request.instance, "Only the values on this part instance");
    values->add_option("--position", request.position,
                       "Only the values at this position: NODAL, ELEMENT_NODAL, INTEGRATION_POINT, CENTROID, ...");
    CLI::Option* const csv = values->add_flag("--csv", valuesAsCsv, "Comma-separated, a heading first");
    values->add_flag("--json", valuesAsJson, "One JSON object; what is no number is null")->excludes(csv);
    values->footer("Without --csv or --json an aligned table. Numbers read back as what the file holds.");
    values->callback([&] {
        request.format = valuesAsJson  ? tool_ValuesRequest::JSON
                         : valuesAsCsv ? tool_ValuesRequest::CSV
                                       : tool_ValuesRequest::TABLE;
        command = [&] { tool_values(request); };
    });

    tool_HistoryRequest curves;
    bool historyAsJson = false;
    bool historyAsCsv = false;
    CLI::App* const history = app.add_subcommand("history", "List the history of a step, print or draw curves of it");
    history->add_option("FILE", curves.path, "The database")->required();
    history->add_option("--step", curves.step, "Name of the step; the last one if left out");
    history->add_option("--region", curves.region, "Print the curves of this region");
    history->add_option("--output", curves.output, "Print the curves of this name");
    CLI::Option* const historyCsv = history->add_flag("--csv", historyAsCsv, "Comma-separated, a heading first");
    CLI::Option* const historyJson =
        history->add_flag("--json", historyAsJson, "One JSON object; what is no number is null")->excludes(historyCsv);
    CLI::Option* const plot =
        history
            ->add_option("--plot", curves.picture,
                         "Draw the curves: on the terminal, or into a file whose name ends in .svg")
            ->expected(0, 1)
            ->excludes(historyCsv)
            ->excludes(historyJson)
            ->check([](const std::string& name) {
                const bool isPicture = name.size() > 4 && name.compare(name.size() - 4, 4, ".svg") == 0;
                return name.empty() || isPicture ? std::string()
                                                 : "the name of a picture ends in .svg, not as in " + name;
            });
    history->footer("Without --region and --output the curves are listed. Numbers read back as what the file holds.");
    history->callback([&] {
        curves.format = plot->count() > 0 ? tool_HistoryRequest::PLOT
                        : historyAsJson   ? tool_HistoryRequest::JSON
                        : historyAsCsv    ? tool_HistoryRequest::CSV
                                          : tool_HistoryRequest::TABLE;
        command = [&] { tool_history(curves); };
    });

    std::string source;
    std::string target;
    bool mayReplace = false;
    CLI::App* const import = app.add_subcommand("import", "Make a database from an Exodus II file");
    import->add_option("IN", source, "The Exodus II file")->required();
    import->add_option("OUT", target, "The database to make")->required();
    import->add_flag("--force", mayReplace, "Replace OUT if it exists, once the new one is whole");
    import->callback([&] { command = [&] { tool_import(source, target, mayReplace);
};
});

try {
    app.parse(argc, argv);
} catch (const CLI::Success& success) {
    return app.exit(success);
} catch (const CLI::ParseError& error) {
    return say(std::string(error.what()) + " (yld --help tells more)", exitUsage);
}
return run(command);
}
