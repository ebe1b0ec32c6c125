#include "measurement/charts/ProfileChart.h"

#include "analysis/areal/HeightParameters.h"
#include "analysis/profile/SplitProfile.h"
#include "measurement/charts/Curve.h"
#include "measurement/charts/Plot.h"

#include <algorithm>

namespace CommonUI::Measurement
{

using Analysis::CProfileSplitter;
using Analysis::FindRange;
using Analysis::SProfiles;

namespace
{

constexpr double c_width = 640;
constexpr double c_right = c_width - 16;
constexpr double c_top = 30;
constexpr double c_plotHeight = 150;
constexpr double c_between = 44; // two plots
constexpr double c_below = 42;
constexpr double c_markRoom = 10;
constexpr std::size_t c_mostLengths = 40; // sampling lengths whose borders are told apart

CRange<double> RangeOf(std::span<const double> heights)
{
    const Analysis::SRange range = FindRange(heights);
    return MakeRoom({std::min(range.lowest, 0.0), std::max(range.highest, 0.0)});
}

void DrawProfileCurve(CSvg& svg, const SPlot& plot, std::span<const double> heights, double dx,
                      std::string_view classes)
{
    const auto columns = static_cast<std::size_t>(plot.GetRight() - plot.GetLeft());
    std::vector<SCurvePoint> points;
    for (const SSample& sample : ThinOut(heights, columns))
        points.push_back({(static_cast<double>(sample.index) + 0.5) * dx, sample.height});
    DrawCurve(svg, plot, points, classes);
}

void DrawMeanLine(CSvg& svg, const SPlot& plot)
{
    const double y = plot.y.Map(0);
    svg.AddLine(plot.GetLeft(), y, plot.GetRight(), y, "axis");
}

// Names of curves above a plot, the first at the right.
void DrawNames(CSvg& svg, const SPlot& plot, std::initializer_list<std::pair<CStr, const char*>> names)
{
    double x = plot.GetRight();
    for (const auto& [name, classes] : names) {
        svg.AddText(name, x, plot.GetTop() - 10, std::string("end ") + classes);
        x -= TextWidth(name) + 8;
    }
}

// The length of the cut-off, as a scale above the plot.
// @param begin of the first sampling length, m
// @param textLeft where the text may begin
void DrawCutoff(CSvg& svg, const SPlot& plot, double begin, double cutoff, double textLeft)
{
    const double left = plot.x.Map(begin);
    const double right = plot.x.Map(begin + cutoff);
    const double y = plot.GetTop() - 5;
    svg.AddLine(left, y, right, y, "axis");
    for (const double x : {left, right})
        svg.AddLine(x, y - 3, x, y + 3, "axis");
    svg.AddText(u"λc " + LengthText(cutoff), std::max(left + 4, textLeft), y - 5, "start");
}

// Draws the profiles of one length.
class CProfileChart
{
public:
    CProfileChart(std::span<const double> heights, double dx, double cutoff)
        : m_splitter(heights.size(), dx, cutoff)
        , m_profiles(m_splitter.Split(heights))
        , m_length(static_cast<double>(heights.size()) * dx)
        , m_cutoff(cutoff)
        , m_isFiltered(FindRange(m_profiles.roughness).count > 0)
    {
    }

    std::string Draw()
    {
        const CRange<double> upper = RangeOf(m_profiles.primary);
        const CRange<double> lower = m_isFiltered ? RangeOf(m_profiles.roughness) : upper;
        const double left = c_markRoom + std::max({38.0, LabelWidth(MakeAxis(upper, c_intervals)),
                                                   LabelWidth(MakeAxis(lower, c_intervals))});
        const SScale x{.range = {0, m_length}, .from = left, .to = c_right};
        const SPlot primary{.x = x, .y = {.range = upper, .from = c_top + c_plotHeight, .to = c_top}};
        const double second = primary.GetBottom() + c_between;
        const SPlot roughness{.x = x, .y = {.range = lower, .from = second + c_plotHeight, .to = second}};
        const SPlot& last = m_isFiltered ? roughness : primary;
        CSvg svg(c_width, last.GetBottom() + c_below, u"Profile", Describe(upper));
        DrawPrimary(svg, primary);
        if (m_isFiltered)
            DrawRoughness(svg, roughness);
        const SAxis lengths = MakeAxisBelow({0, m_length}, c_right - left, 8);
        DrawAxisBelow(svg, last, lengths, AxisName(u"x", lengths.unit), false);
        return svg.Finish();
    }

private:
    static constexpr int c_intervals = 4;

    CStr Describe(CRange<double> range) const
    {
        const CStr text = u"Heights from " + LengthText(range.GetLower()) + u" to " +
                          LengthText(range.GetUpper()) + u" over " + LengthText(m_length);
        return m_isFiltered ? text + u"; roughness and waviness at a cut-off of " + LengthText(m_cutoff)
                            : text;
    }

    void DrawPrimary(CSvg& svg, const SPlot& plot) const
    {
        const SAxis axis = MakeAxis(plot.y.range, c_intervals);
        DrawAxisLeft(svg, plot, axis, AxisName(u"z", axis.unit));
        DrawMeanLine(svg, plot);
        DrawProfileCurve(svg, plot, m_profiles.primary, m_splitter.GetSpacing(), "curve");
        if (m_isFiltered) {
            DrawProfileCurve(svg, plot, m_profiles.waviness, m_splitter.GetSpacing(), "second");
            DrawNames(svg, plot, {{u"waviness", "other"}, {u"primary profile", "first"}});
        } else {
            DrawNames(svg, plot, {{u"primary profile", "first"}});
        }
        DrawFrame(svg, plot);
    }

    void DrawRoughness(CSvg& svg, const SPlot& plot) const
    {
        const SAxis axis = MakeAxis(plot.y.range, c_intervals);
        const CStr name = AxisName(u"z", axis.unit);
        DrawAxisLeft(svg, plot, axis, name);
        DrawMeanLine(svg, plot);
        DrawSamplingLengths(svg, plot, plot.GetLeft() - LabelWidth(axis) + TextWidth(name));
        DrawProfileCurve(svg, plot, m_profiles.roughness, m_splitter.GetSpacing(), "third");
        DrawNames(svg, plot, {{u"roughness", "more"}});
        DrawFrame(svg, plot);
    }

    void DrawSamplingLengths(CSvg& svg, const SPlot& plot, double textLeft) const
    {
        const std::span<const double> profile = m_profiles.roughness;
        const auto lengths = m_splitter.GetSamplingLengths(profile);
        const auto positionOf = [&](const double* at) {
            return static_cast<double>(at - profile.data()) * m_splitter.GetSpacing();
        };
        const auto drawBorder = [&](const double* at) {
            const double x = plot.x.Map(positionOf(at));
            svg.AddLine(x, plot.GetTop(), x, plot.GetBottom(), "mark");
        };
        DrawCutoff(svg, plot, positionOf(lengths.front().data()), m_cutoff, textLeft);
        if (lengths.size() > c_mostLengths)
            return;
        for (const auto& length : lengths)
            drawBorder(length.data());
        drawBorder(lengths.back().data() + lengths.back().size());
    }

    CProfileSplitter m_splitter;
    SProfiles m_profiles;
    double m_length;
    double m_cutoff;
    bool m_isFiltered;
};

} // namespace

std::string DrawProfile(std::span<const double> heights, double dx, double cutoff)
{
    return FindRange(heights).count == 0 ? std::string() : CProfileChart(heights, dx, cutoff).Draw();
}

} // namespace CommonUI::Measurement
