#ifndef HISTORY_H
#define HISTORY_H

#include <string>

/// What `yld history` is asked for.
struct tool_HistoryRequest
{
    enum FormatEnm
    {
        TABLE,
        CSV,
        JSON,
        PLOT ///< on the terminal, or as a picture
    };

    std::string path;
    std::string step;    ///< empty: the last one
    std::string region;  ///< empty: all
    std::string output;  ///< empty: all
    std::string picture; ///< of a plot: the SVG file to write; empty: draw on standard output
    FormatEnm format = TABLE;

    /// Whether curves are chosen; else they are listed alone.
    bool isChoice() const { return !region.empty() || !output.empty(); }
};

/// Lists the curves of a step; of those that are chosen it prints the pairs, or draws them. Raises tool_Failure for a
/// step, a region or an output that is not there.
void tool_history(const tool_HistoryRequest& request);

#endif
