#include "measurement/charts/Chart.h"

#include "common/NumberText.h"
#include "common/TextBuilder.h"

#include <algorithm>
#include <cmath>

namespace CommonUI::Measurement
{

namespace
{

CStr PercentText(double percent)
{
    return CStr::FromAscii(CNumberText(percent, {.conversion = 'g', .precision = 3}).View()) + u" %";
}

bool IsInTable(const SChartLine& line)
{
    return line.kind == EChartLine::Curve || line.kind == EChartLine::Area;
}

CStr TableName(const SChartAxis& axis)
{
    return axis.isLength ? axis.name + u" / m" : axis.name;
}

SChartLine MakePart(double from, double to, double base, double tip)
{
    return {.kind = EChartLine::Part, .color = 2, .points = {{from, base}, {to, base}, {from, tip}}};
}

void AddConstruction(const SMaterialRatioFigure::SConstruction& line, SChart& chart)
{
    const Analysis::SCore& core = line.core;
    chart.lines.push_back(MakePart(0, core.Smr1, line.top, line.top + core.Spk));
    chart.lines.push_back(MakePart(100, core.Smr2, line.bottom, line.bottom - core.Svk));
    chart.lines.push_back({.name = u"Sk " + LengthLabel(core.Sk),
                           .kind = EChartLine::Construction,
                           .color = 1,
                           .points = {{0, line.top}, {100, line.bottom}}});
    chart.marks = {{core.Smr1, u"Smr1 " + PercentText(core.Smr1)},
                   {core.Smr2, u"Smr2 " + PercentText(core.Smr2)},
                   {line.top, u"Spk " + LengthLabel(core.Spk), true},
                   {line.bottom, u"Svk " + LengthLabel(core.Svk), true}};
}

} // namespace

SAxis SChartAxis::MakeMarks(CRange<double> seen, int intervals) const
{
    if (isLogarithmic)
        return MakeLogarithmicAxis(seen, intervals);
    return isLength ? MakeAxis(seen, intervals) : MakeNumberAxis(seen, intervals);
}

CStr SChartAxis::GetText(double value, double step) const
{
    if (std::isnan(value))
        return u"–";
    if (isLogarithmic || !isLength)
        return CStr::FromAscii(
                   CNumberText(value, {.conversion = 'g', .precision = isLogarithmic ? 3 : 4}).View())
            .Replace(u"-", u"−");
    const CUnit metre(CUnit::EUnitFactor::Unity);
    const double longest = std::max(std::abs(range.GetLower()), std::abs(range.GetUpper()));
    const CUnit unit = metre.WithFactor(metre.SuitableFactor(longest, 1));
    const double shown = step / unit.GetFactorValue();
    const int decade =
        shown > 0 && std::isfinite(shown) ? static_cast<int>(std::floor(std::log10(shown))) : 0;
    const CNumberText text(value / unit.GetFactorValue(),
                           {.conversion = 'f', .precision = std::clamp(-decade, 0, 9)});
    return CStr::FromAscii(text.View()).Replace(u"-", u"−") + u" " + unit.GetText();
}

SChart MakeHistogramChart(const SHistogram& histogram, std::optional<double> threshold)
{
    SChart chart{
        .title = u"Histogram of the heights",
        .x = {.name = u"z", .range = histogram.range, .isLength = true},
        .y = {.name = u"points / %", .range = {0, 1.05 * *std::ranges::max_element(histogram.shares)}}};
    SChartLine line{.name = u"points", .kind = EChartLine::Area};
    for (std::size_t i = 0; i < histogram.shares.size(); ++i) {
        const double left = histogram.range.GetLower() + histogram.GetClassWidth() * static_cast<double>(i);
        line.points.push_back({left, histogram.shares[i]});
        line.points.push_back({left + histogram.GetClassWidth(), histogram.shares[i]});
    }
    chart.lines.push_back(std::move(line));
    chart.marks.push_back({histogram.mean, u"mean"});
    if (threshold)
        chart.marks.push_back({*threshold, u"threshold"});
    return chart;
}

SChart MakeMaterialRatioChart(const SMaterialRatioFigure& figure)
{
    SChart chart{.title = u"Material ratio curve",
                 .x = {.name = u"material ratio / %", .range = {0, 100}},
                 .y = {.name = u"z", .range = figure.range, .isLength = true}};
    if (figure.construction)
        AddConstruction(*figure.construction, chart);
    chart.lines.push_back({.name = u"material ratio", .points = figure.points});
    return chart;
}

SChart MakeSpectrumChart(const SSpectrumFigure& figure)
{
    return {.title = u"Power spectrum",
            .x = {.name = AxisName(u"frequency", figure.unit.GetText() + u"⁻¹"),
                  .range = figure.frequencies,
                  .isLogarithmic = true},
            .y = {.name = u"power / m³", .range = figure.powers, .isLogarithmic = true},
            .lines = {{.name = u"power", .points = figure.points}}};
}

double GetValueAt(const SChartLine& line, double x)
{
    const auto after = std::ranges::upper_bound(line.points, x, {}, &SCurvePoint::x);
    if (after == line.points.begin())
        return Analysis::c_missing;
    const SCurvePoint& before = *std::prev(after);
    if (before.x == x || after == line.points.end())
        return before.x == x ? before.y : Analysis::c_missing;
    return before.y + (x - before.x) / (after->x - before.x) * (after->y - before.y);
}

CStr MakeChartText(const SChart& chart)
{
    std::vector<const SChartLine*> lines;
    std::size_t rows = 0;
    CTextBuilder text;
    for (const SChartLine& line : chart.lines) {
        if (!IsInTable(line))
            continue;
        text += ((lines.empty() ? CStr() : CStr(u"\t")) + TableName(chart.x) + u"\t" + line.name + u": " +
                 TableName(chart.y))
                    .View();
        lines.push_back(&line);
        rows = std::max(rows, line.points.size());
    }
    const auto number = [](double value) {
        return std::isnan(value)
                   ? CStr()
                   : CStr::FromAscii(CNumberText(value, {.conversion = 'g', .precision = 9}).View());
    };
    for (std::size_t row = 0; row < rows; ++row) {
        text += u"\r\n";
        for (const SChartLine* const line : lines) {
            const bool isThere = row < line->points.size();
            text +=
                ((line == lines.front() ? CStr() : CStr(u"\t")) +
                 (isThere ? number(line->points[row].x) + u"\t" + number(line->points[row].y) : CStr(u"\t")))
                    .View();
        }
    }
    text += u"\r\n";
    return text.Take();
}

} // namespace CommonUI::Measurement
