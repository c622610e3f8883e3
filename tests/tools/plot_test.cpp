#include "failure.h"
#include "json_text.h"
#include "plot.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

std::string ticksOf(const tool_Axis& axis)
{
    std::string text;
    for (const double tick : axis.ticks()) text += axis.text(tick) + " ";
    return text;
}

tool_PlotCurve curveOf(std::vector<std::pair<double, double>> points)
{
    return {"c", "c", "", [points](const tool_PlotCurve::Visit& visit) {
                for (const auto& [x, y] : points) visit(x, y);
            }};
}

std::string failureOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const tool_Failure& failure) {
        return failure.what();
    }
    return "no failure";
}

} // namespace

TEST(plot, ticksAreRoundNumbers)
{
    EXPECT_EQ(ticksOf(tool_axisFor(0.0, 10.0, 6, true)), "0 2 4 6 8 10 ");
    EXPECT_EQ(ticksOf(tool_axisFor(0.1, 1.0, 6, false)), "0.2 0.4 0.6 0.8 1 ");
    EXPECT_EQ(ticksOf(tool_axisFor(-0.3, 0.3, 7, true)), "-0.3 -0.2 -0.1 0 0.1 0.2 0.3 ");
    EXPECT_EQ(ticksOf(tool_axisFor(0.0, 0.0016, 5, true)), "0 0.0005 0.001 0.0015 0.002 ");
    EXPECT_EQ(ticksOf(tool_axisFor(0.0, 3e9, 4, true)), "0 1e+09 2e+09 3e+09 ");
    EXPECT_EQ(ticksOf(tool_axisFor(5.0, 45.0, 3, true)), "0 20 40 60 ");
}

TEST(plot, ticksFarFromZeroKeepTheirDigits)
{
    EXPECT_EQ(ticksOf(tool_axisFor(1000000.0, 1000000.4, 3, true)), "1000000 1000000.2 1000000.4 ");
}

TEST(plot, anAxisEndsAtTicksOrAtTheNumbers)
{
    const tool_Axis atTicks = tool_axisFor(0.13, 0.97, 6, true);
    EXPECT_EQ(atTicks.low, 0.0);
    EXPECT_EQ(atTicks.high, 1.0);
    const tool_Axis atNumbers = tool_axisFor(0.13, 0.97, 6, false);
    EXPECT_EQ(atNumbers.low, 0.13);
    EXPECT_EQ(atNumbers.high, 0.97);
    EXPECT_EQ(atNumbers.place(0.13), 0.0);
    EXPECT_EQ(atNumbers.place(0.97), 1.0);
}

TEST(plot, oneNumberLiesInTheMiddle)
{
    for (const double number : {0.0, 7.0, -3.5, 1e-30, 1e30}) {
        const tool_Axis axis = tool_axisFor(number, number, 6, false);
        EXPECT_LT(axis.low, number);
        EXPECT_GT(axis.high, number);
        EXPECT_NEAR(axis.place(number), 0.5, 1e-9) << number;
        EXPECT_FALSE(axis.ticks().empty()) << number;
    }
}

TEST(plot, extremeNumbersComeToAnEnd)
{
    const double largest = std::numeric_limits<double>::max();
    EXPECT_EQ(failureOf([&] { tool_axisFor(-largest, largest, 6, true); }),
              "the numbers lie too far apart to be drawn");
    const double tiny = std::numeric_limits<double>::denorm_min();
    EXPECT_LT(tool_axisFor(0.0, tiny, 6, true).ticks().size(), 20u);
    const double one = 1.0;
    const tool_Axis close = tool_axisFor(one, std::nextafter(one, 2.0), 6, true);
    EXPECT_LT(close.ticks().size(), 20u);
    EXPECT_LT(close.low, close.high);
}

TEST(plot, unitsStandInBracketsAtTheEnd)
{
    EXPECT_EQ(tool_unitOf("displacement [mm]"), "mm");
    EXPECT_EQ(tool_unitOf("displacement [mm] \t"), "mm");
    EXPECT_EQ(tool_unitOf("[N]"), "N");
    EXPECT_EQ(tool_unitOf("force [x] of [N m]"), "N m");
    EXPECT_EQ(tool_unitOf("displacement"), "");
    EXPECT_EQ(tool_unitOf("displacement [mm] of the tip"), "");
    EXPECT_EQ(tool_unitOf("odd]"), "");
    EXPECT_EQ(tool_unitOf(""), "");
}

TEST(plot, aPanelOnTheTerminal)
{
    // Sixteen dots across, eight up: two neighbours at each height.
    EXPECT_EQ(tool_terminalPlot({curveOf({{0, 0}, {10, 10}})}, "x", 12, 2), "c\n"
                                                                            "10┤    ⣀⠤⠒⠉\n"
                                                                            " 0┤⣀⠤⠒⠉\n"
                                                                            "  └┬──────┬\n"
                                                                            "   0     10\n"
                                                                            "      x\n");
}

TEST(plot, aCurveWithoutAPointIsRefused)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const auto& points : {std::vector<std::pair<double, double>>{}, {{0.0, nan}}, {{nan, 0.0}}}) {
        EXPECT_EQ(failureOf([&] { tool_terminalPlot({curveOf(points)}, "x", 80, 10); }), "nothing to draw in c");
        EXPECT_EQ(failureOf([&] { tool_svgPlot({curveOf(points)}, "x", ""); }), "nothing to draw in c");
    }
}

TEST(plot, picturesKeepTheirTextsApartFromTheirMarks)
{
    tool_PlotCurve curve = curveOf({{0, 0}, {1, 1}});
    curve.name = "a<b>&\"c\"\n\x01";
    const std::string text = tool_svgPlot({curve}, "x<y", "t>u");
    EXPECT_NE(text.find(">a&lt;b&gt;&amp;&quot;c&quot;  </text>"), std::string::npos);
    EXPECT_NE(text.find(">x&lt;y</text>"), std::string::npos);
    EXPECT_NE(text.find("<title>t&gt;u</title>"), std::string::npos);
}

TEST(plot, textsThatAreNotUtf8AreMadeSo)
{
    EXPECT_EQ(tool_validUtf8("a\xc3\xa4z"), "a\xc3\xa4z");
    EXPECT_EQ(tool_validUtf8("a\xff\xc3"), "a\xef\xbf\xbd\xef\xbf\xbd");
}
