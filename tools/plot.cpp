#include "plot.h"

#include "failure.h"
#include "json_text.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>

namespace {

struct Range
{
    double low = std::numeric_limits<double>::infinity();
    double high = -std::numeric_limits<double>::infinity();

    void take(double number)
    {
        low = std::min(low, number);
        high = std::max(high, number);
    }
    void take(const Range& other)
    {
        low = std::min(low, other.low);
        high = std::max(high, other.high);
    }
    bool isEmpty() const { return low > high; }
};

struct Extent
{
    Range x;
    Range y;
    long long points = 0;
};

Extent extentOf(const tool_PlotCurve& curve)
{
    Extent extent;
    curve.walk([&extent](double x, double y) {
        if (!std::isfinite(x) || !std::isfinite(y)) return;
        extent.x.take(x);
        extent.y.take(y);
        ++extent.points;
    });
    if (extent.points == 0) throw tool_Failure("nothing to draw in " + curve.name);
    return extent;
}

std::string withUnit(const std::string& text, const std::string& unit)
{
    if (unit.empty()) return text;
    return (text.empty() ? text : text + " ") + "[" + unit + "]";
}

// Whole characters, cut where there are too many.
std::string cut(const std::string& text, std::size_t most)
{
    std::size_t characters = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if ((static_cast<unsigned char>(text[i]) & 0xc0) == 0x80) continue;
        if (characters == most) return text.substr(0, i);
        ++characters;
    }
    return text;
}

void appendUtf8(std::string& text, unsigned code)
{
    text.push_back(static_cast<char>(0xe0 | (code >> 12)));
    text.push_back(static_cast<char>(0x80 | ((code >> 6) & 0x3f)));
    text.push_back(static_cast<char>(0x80 | (code & 0x3f)));
}

// Cells of characters, each of two by four dots.
class DotCanvas
{
public:
    static constexpr int dotsAcross = 2;
    static constexpr int dotsDown = 4;

    DotCanvas(int columns, int rows)
        : m_columns(columns), m_rows(rows), m_cells(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows))
    {
    }

    int width() const { return m_columns * dotsAcross; }
    int height() const { return m_rows * dotsDown; }

    /// Dots count from the upper left corner.
    void dot(int x, int y)
    {
        static constexpr std::uint8_t bits[dotsDown][dotsAcross] = {
            {0x01, 0x08}, {0x02, 0x10}, {0x04, 0x20}, {0x40, 0x80}};
        const auto cell = static_cast<std::size_t>(y / dotsDown) * static_cast<std::size_t>(m_columns) +
                          static_cast<std::size_t>(x / dotsAcross);
        m_cells[cell] |= bits[y % dotsDown][x % dotsAcross];
    }
    void line(int fromX, int fromY, int toX, int toY)
    {
        const int steps = std::max({std::abs(toX - fromX), std::abs(toY - fromY), 1});
        for (int i = 0; i <= steps; ++i) {
            const double part = static_cast<double>(i) / steps;
            dot(fromX + static_cast<int>(std::lround(part * (toX - fromX))),
                fromY + static_cast<int>(std::lround(part * (toY - fromY))));
        }
    }
    std::string row(int number) const
    {
        std::string text;
        for (int i = 0; i < m_columns; ++i) {
            const std::uint8_t dots = m_cells[static_cast<std::size_t>(number) * static_cast<std::size_t>(m_columns) +
                                              static_cast<std::size_t>(i)];
            if (dots == 0) text.push_back(' ');
            else appendUtf8(text, 0x2800u + dots);
        }
        text.erase(text.find_last_not_of(' ') + 1);
        return text;
    }

private:
    int m_columns;
    int m_rows;
    std::vector<std::uint8_t> m_cells;
};

int dotOf(double place, int dots) { return std::clamp(static_cast<int>(std::lround(place * (dots - 1))), 0, dots - 1); }

// Labels of the ticks below an axis, as many as fit side by side, and the axis with its marks.
void addXAxis(std::string& text, const tool_Axis& axis, std::size_t margin, int columns)
{
    const auto width = static_cast<std::size_t>(columns);
    std::vector<bool> marks(width, false);
    std::string labels;
    for (const double tick : axis.ticks()) {
        const std::string label = axis.text(tick);
        const auto column = static_cast<std::size_t>(dotOf(axis.place(tick), columns));
        if (label.size() > width) continue;
        std::size_t start = column > label.size() / 2 ? column - label.size() / 2 : 0;
        start = std::min(start, width - label.size());
        if (!labels.empty() && start < labels.size() + 2) continue;
        labels.append(start - labels.size(), ' ');
        labels += label;
        marks[column] = true;
    }
    text.append(margin, ' ');
    text += "└";
    for (const bool mark : marks) text += mark ? "┬" : "─";
    text += '\n';
    text.append(margin + 1, ' ');
    text += labels + '\n';
}

std::string terminalPanel(const tool_PlotCurve& curve, const Range& xRange, const Extent& extent,
                          const std::string& xLabel, int columns, int rows)
{
    const tool_Axis y = tool_axisFor(extent.y.low, extent.y.high, std::max(2, rows / 3), true);
    std::vector<std::string> labels(static_cast<std::size_t>(rows));
    std::size_t margin = 1;
    for (const double tick : y.ticks()) {
        const int row = dotOf(1.0 - y.place(tick), rows * DotCanvas::dotsDown) / DotCanvas::dotsDown;
        labels[static_cast<std::size_t>(row)] = y.text(tick);
        margin = std::max(margin, y.text(tick).size());
    }
    const int inside = std::max(8, columns - static_cast<int>(margin) - 2);
    const tool_Axis x = tool_axisFor(xRange.low, xRange.high, std::max(2, inside / 9), false);

    DotCanvas canvas(inside, rows);
    bool hasLast = false;
    int lastX = 0, lastY = 0;
    curve.walk([&](double time, double value) {
        if (!std::isfinite(time) || !std::isfinite(value)) {
            hasLast = false;
            return;
        }
        const int atX = dotOf(x.place(time), canvas.width());
        const int atY = dotOf(1.0 - y.place(value), canvas.height());
        if (hasLast && atX == lastX && atY == lastY) return;
        if (hasLast) canvas.line(lastX, lastY, atX, atY);
        else canvas.dot(atX, atY);
        hasLast = true;
        lastX = atX;
        lastY = atY;
    });

    std::string text = cut(withUnit(curve.name, curve.unit), static_cast<std::size_t>(columns)) + '\n';
    for (int row = 0; row < rows; ++row) {
        const std::string& label = labels[static_cast<std::size_t>(row)];
        text.append(margin - label.size(), ' ');
        text += label + (label.empty() ? "│" : "┤") + canvas.row(row) + '\n';
    }
    addXAxis(text, x, margin, inside);
    const auto width = static_cast<std::size_t>(inside);
    const std::string below = cut(xLabel, width);
    text.append(margin + 1 + (width - std::min(width, below.size())) / 2, ' ');
    return text + below + '\n';
}

} // namespace

std::vector<double> tool_Axis::ticks() const
{
    std::vector<double> all;
    // A little beyond the ends: multiples of the step carry rounding.
    constexpr double slack = 1e-9;
    const double first = std::ceil(low / step - slack);
    const double last = std::floor(high / step + slack);
    for (double i = first; i <= last && all.size() < 1000; ++i) all.push_back(i == 0.0 ? 0.0 : i * step);
    return all;
}

std::string tool_Axis::text(double tick) const
{
    const double largest = std::max(std::fabs(low), std::fabs(high));
    const int digits = std::clamp(static_cast<int>(std::ceil(std::log10(largest / step))) + 1, 6, 17);
    char number[40];
    std::snprintf(number, sizeof number, "%.*g", digits, tick);
    return number;
}

tool_Axis tool_axisFor(double low, double high, int most, bool toTicks)
{
    if (!(low < high)) {
        // A line that goes nowhere lies in the middle.
        const double half = low == 0.0 ? 1.0 : 0.5 * std::fabs(low);
        low -= half;
        high = low + 2.0 * half;
    }
    if (!std::isfinite(high - low)) throw tool_Failure("the numbers lie too far apart to be drawn");
    const double least = (high - low) / std::max(1, most - 1);
    double step = std::pow(10.0, std::floor(std::log10(least)));
    for (const double factor : {1.0, 2.0, 5.0, 10.0}) {
        if (factor * step >= least * (1.0 - 1e-9)) {
            step *= factor;
            break;
        }
    }
    // Numbers so small or so close that their difference is lost.
    if (!(step > 0.0) || low + step == low) step = high - low;
    tool_Axis axis{low, high, step};
    if (toTicks) {
        axis.low = std::floor(low / step + 1e-9) * step;
        axis.high = std::ceil(high / step - 1e-9) * step;
    }
    return axis;
}

std::string tool_unitOf(const std::string& description)
{
    const std::size_t end = description.find_last_not_of(" \t");
    if (end == std::string::npos || description[end] != ']') return {};
    const std::size_t begin = description.rfind('[', end);
    return begin == std::string::npos ? std::string() : description.substr(begin + 1, end - begin - 1);
}

std::string tool_terminalPlot(const std::vector<tool_PlotCurve>& curves, const std::string& xLabel, int columns,
                              int rows)
{
    std::vector<Extent> extents;
    Range x;
    for (const tool_PlotCurve& curve : curves) {
        extents.push_back(extentOf(curve));
        x.take(extents.back().x);
    }
    std::string text;
    for (std::size_t i = 0; i < curves.size(); ++i) {
        if (i > 0) text += '\n';
        text += terminalPanel(curves[i], x, extents[i], xLabel, columns, rows);
    }
    return text;
}

namespace {

// Colours that also those tell apart who see red and green alike.
constexpr const char* colours[tool_mostCurves] = {"#0072b2", "#d55e00", "#009e73", "#cc79a7",
                                                  "#56b4e9", "#e69f00", "#000000", "#999933"};

std::string number(double value)
{
    char text[40];
    std::snprintf(text, sizeof text, "%.2f", value);
    return text;
}

std::string escaped(const std::string& text)
{
    std::string result;
    for (const char c : tool_validUtf8(text)) {
        switch (c) {
        case '&':
            result += "&amp;";
            break;
        case '<':
            result += "&lt;";
            break;
        case '>':
            result += "&gt;";
            break;
        case '"':
            result += "&quot;";
            break;
        default:
            result.push_back(static_cast<unsigned char>(c) < 0x20 ? ' ' : c);
        }
    }
    return result;
}

class SvgPlot
{
public:
    SvgPlot(const std::vector<tool_PlotCurve>& curves, const std::string& xLabel) : m_curves(curves), m_xLabel(xLabel)
    {
    }

    std::string draw(const std::string& title)
    {
        Range x;
        for (const tool_PlotCurve& curve : m_curves) {
            m_extents.push_back(extentOf(curve));
            x.take(m_extents.back().x);
        }
        m_x = tool_axisFor(x.low, x.high, 9, false);

        std::vector<std::vector<std::size_t>> groups;
        for (std::size_t i = 0; i < m_curves.size(); ++i) {
            const auto group = std::find_if(groups.begin(), groups.end(), [&](const std::vector<std::size_t>& members) {
                return m_curves[members.front()].unit == m_curves[i].unit;
            });
            if (group == groups.end()) groups.push_back({i});
            else group->push_back(i);
        }
        double top = 44.0;
        for (const std::vector<std::size_t>& group : groups) top = panel(group, top);

        const std::string size = "width=\"" + number(width) + "\" height=\"" + number(top) + "\"";
        return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" " + size +
               " viewBox=\"0 0 " + number(width) + " " + number(top) +
               "\" font-family=\"Helvetica, Arial, sans-serif\" font-size=\"13\" fill=\"#222\">\n"
               "<title>" +
               escaped(title) + "</title>\n<rect " + size + " fill=\"white\"/>\n" +
               label(width / 2, 26, "middle", title, " font-size=\"16\"") + m_body + "</svg>\n";
    }

private:
    static constexpr double width = 800.0;
    static constexpr double left = 108.0;
    static constexpr std::size_t mostCharacters = 88; // of a line of text
    static constexpr double right = 776.0;
    static constexpr double plotHeight = 320.0;
    static constexpr double legendLine = 20.0;
    static constexpr long long mostMarkers = 60;

    static std::string label(double x, double y, const char* anchor, const std::string& text,
                             const std::string& more = "")
    {
        return "<text x=\"" + number(x) + "\" y=\"" + number(y) + "\" text-anchor=\"" + anchor + "\"" + more + ">" +
               escaped(cut(text, mostCharacters)) + "</text>\n";
    }
    static std::string line(double x1, double y1, double x2, double y2, const char* colour)
    {
        return "<line x1=\"" + number(x1) + "\" y1=\"" + number(y1) + "\" x2=\"" + number(x2) + "\" y2=\"" +
               number(y2) + "\" stroke=\"" + colour + "\"/>\n";
    }

    double panel(const std::vector<std::size_t>& group, double top)
    {
        const char* const frameColour = "#444";
        const char* const gridColour = "#ddd";
        Range range;
        for (const std::size_t i : group) range.take(m_extents[i].y);
        const tool_Axis y = tool_axisFor(range.low, range.high, 8, true);

        for (std::size_t i = 0; i < group.size(); ++i) {
            const double at = top + legendLine * static_cast<double>(i) + 12.0;
            m_body += "<line x1=\"" + number(left) + "\" y1=\"" + number(at - 4.0) + "\" x2=\"" + number(left + 28.0) +
                      "\" y2=\"" + number(at - 4.0) + "\" stroke=\"" + colours[group[i]] +
                      "\" stroke-width=\"2.5\"/>\n";
            m_body += label(left + 36.0, at, "start", withUnit(m_curves[group[i]].name, m_curves[group[i]].unit));
        }
        const double plotTop = top + legendLine * static_cast<double>(group.size()) + 8.0;
        const double bottom = plotTop + plotHeight;
        const auto atX = [&](double value) { return left + m_x.place(value) * (right - left); };
        const auto atY = [&](double value) { return bottom - y.place(value) * plotHeight; };

        for (const double tick : m_x.ticks()) {
            m_body += line(atX(tick), plotTop, atX(tick), bottom, gridColour);
            m_body += line(atX(tick), bottom, atX(tick), bottom + 5.0, frameColour);
            m_body += label(atX(tick), bottom + 20.0, "middle", m_x.text(tick));
        }
        for (const double tick : y.ticks()) {
            m_body += line(left, atY(tick), right, atY(tick), gridColour);
            m_body += line(left - 5.0, atY(tick), left, atY(tick), frameColour);
            m_body += label(left - 9.0, atY(tick) + 4.5, "end", y.text(tick));
        }
        m_body += line(left, plotTop, left, bottom, frameColour) + line(left, bottom, right, bottom, frameColour);
        m_body += label((left + right) / 2, bottom + 42.0, "middle", m_xLabel);
        const double middle = (plotTop + bottom) / 2;
        m_body +=
            label(20.0, middle, "middle", axisText(group), " transform=\"rotate(-90 20.00 " + number(middle) + ")\"");
        for (const std::size_t i : group) curve(i, atX, atY);
        return bottom + 64.0;
    }

    std::string axisText(const std::vector<std::size_t>& group) const
    {
        const tool_PlotCurve& first = m_curves[group.front()];
        const bool isOne = std::all_of(group.begin(), group.end(),
                                       [&](std::size_t i) { return m_curves[i].variable == first.variable; });
        return withUnit(isOne ? first.variable : "", first.unit);
    }

    template<class X, class Y> void curve(std::size_t number_, const X& atX, const Y& atY)
    {
        std::string path, markers;
        bool isPenDown = false;
        const auto point = [&](double x, double y) {
            path += (isPenDown ? " L" : " M") + number(x) + " " + number(y);
            isPenDown = true;
        };
        // A column of half a pixel shows no more of a curve than where it enters, its ends, and where it leaves.
        struct
        {
            long long column = 0;
            bool isOpen = false;
            double x = 0, first = 0, low = 0, high = 0, last = 0;
        } pending;
        const auto flush = [&] {
            if (!pending.isOpen) return;
            point(pending.x, pending.first);
            if (pending.low < std::min(pending.first, pending.last)) point(pending.x, pending.low);
            if (pending.high > std::max(pending.first, pending.last)) point(pending.x, pending.high);
            if (pending.last != pending.first) point(pending.x, pending.last);
            pending.isOpen = false;
        };
        const bool isShort = m_extents[number_].points <= mostMarkers;
        m_curves[number_].walk([&](double time, double value) {
            if (!std::isfinite(time) || !std::isfinite(value)) {
                flush();
                isPenDown = false;
                return;
            }
            const double x = atX(time), y = atY(value);
            if (isShort) {
                point(x, y);
                markers += "<circle cx=\"" + number(x) + "\" cy=\"" + number(y) + "\" r=\"2.5\"/>";
                return;
            }
            const auto column = static_cast<long long>(std::floor(2.0 * x));
            if (pending.isOpen && column == pending.column) {
                pending.low = std::min(pending.low, y);
                pending.high = std::max(pending.high, y);
                pending.last = y;
                return;
            }
            flush();
            pending = {column, true, x, y, y, y, y};
        });
        flush();
        m_body += std::string("<path d=\"") + (path.empty() ? "" : path.substr(1)) + "\" fill=\"none\" stroke=\"" +
                  colours[number_] + "\" stroke-width=\"1.6\" stroke-linejoin=\"round\"/>\n";
        if (isShort) m_body += std::string("<g fill=\"") + colours[number_] + "\">" + markers + "</g>\n";
    }

    const std::vector<tool_PlotCurve>& m_curves;
    const std::string& m_xLabel;
    std::vector<Extent> m_extents;
    tool_Axis m_x;
    std::string m_body;
};

} // namespace

std::string tool_svgPlot(const std::vector<tool_PlotCurve>& curves, const std::string& xLabel, const std::string& title)
{
    return SvgPlot(curves, xLabel).draw(title);
}
