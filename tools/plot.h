#ifndef PLOT_H
#define PLOT_H

#include <functional>
#include <string>
#include <vector>

/// One curve to draw. It is walked point by point, as often as the drawing needs it, and never held whole.
struct tool_PlotCurve
{
    using Visit = std::function<void(double x, double y)>;

    std::string name;     ///< for the legend
    std::string variable; ///< for the axis
    std::string unit;     ///< empty where it is not known
    std::function<void(const Visit&)> walk;
};

/// The numbers along an axis: multiples of 1, 2 or 5 times a power of ten.
struct tool_Axis
{
    double low = 0.0;
    double high = 1.0;
    double step = 1.0;

    std::vector<double> ticks() const;
    /// With as many digits as it takes to tell two ticks apart.
    std::string text(double tick) const;
    /// Where a number lies, 0 at the low end and 1 at the high one.
    double place(double number) const { return (number - low) / (high - low); }
};

/// An axis for the numbers from low to high. @param most  of ticks
/// @param toTicks  whether the axis ends at ticks, or at the numbers themselves
tool_Axis tool_axisFor(double low, double high, int most, bool toTicks);

/// The unit that a description ends with, in square brackets; empty for none.
std::string tool_unitOf(const std::string& description);

/// Draws each curve in a panel of its own, in lines of `columns` characters at most, `rows` of them a panel besides
/// title and labels. Points that are no numbers leave a gap. Raises tool_Failure for a curve without a point to draw.
std::string tool_terminalPlot(const std::vector<tool_PlotCurve>& curves, const std::string& xLabel, int columns,
                              int rows);

/// The same as an SVG document: curves of one unit share a panel, and each has its colour in the legend.
std::string tool_svgPlot(const std::vector<tool_PlotCurve>& curves, const std::string& xLabel,
                         const std::string& title);

/// How many curves one drawing takes.
constexpr std::size_t tool_mostCurves = 8;

#endif
