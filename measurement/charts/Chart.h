#pragma once

#include "../../common/Range.h"
#include "../../common/Str.h"
#include "../../export/Export.h"
#include "Figures.h"

#include <optional>
#include <vector>

namespace CommonUI::Measurement
{

/// An axis of a chart that somebody looks around in.
struct COMMONUIMEASUREMENT_API SChartAxis {
    CStr name{};                ///< with the unit, but for lengths: "points / %", "z"
    CRange<double> range{};     ///< of all that there is to see, with a length
    bool isLength = false;      ///< in m, in units that go by what is seen
    bool isLogarithmic = false; ///< whether powers of ten are equally far apart; the range is above 0 then

    /// Marks for a part of the range. @param intervals about how many there shall be
    SAxis MakeMarks(CRange<double> seen, int intervals) const;
    /// The name with the unit of some marks.
    CStr GetName(const SAxis& marks) const { return AxisName(name, marks.unit); }
    /// A value as text with its unit. @param step in which values change
    CStr GetText(double value, double step) const;
};

/// What a line of a chart is.
enum class EChartLine {
    Curve,       ///< by its values over x
    Area,        ///< likewise, filled down to the axis
    Part,        ///< a closed figure
    Construction ///< what explains a curve
};

/// A line of a chart.
struct SChartLine {
    CStr name{};                         ///< as users read it
    EChartLine kind = EChartLine::Curve; ///< how it is drawn
    int color = 0;                       ///< by which lines are told apart, from 0
    std::vector<SCurvePoint> points{};   ///< of curves by rising x; y is NaN in gaps
};

/// A value that is marked across the chart.
struct SChartMark {
    double value = 0;      ///< of x or y, as the axis has it
    CStr name{};           ///< as users read it
    bool isHeight = false; ///< of y; otherwise of x
};

/// A chart without any way to draw it.
struct SChart {
    CStr title{};                    ///< as users read it
    SChartAxis x{};                  ///< to the right
    SChartAxis y{};                  ///< upwards
    std::vector<SChartLine> lines{}; ///< what is drawn
    std::vector<SChartMark> marks{}; ///< values marked across it
};

/// Charts of a surface. @param threshold see DrawHistogram
COMMONUIMEASUREMENT_API SChart MakeHistogramChart(const SHistogram& histogram,
                                                  std::optional<double> threshold = {});
/// The material ratio curve with the construction of its core, where there is one.
COMMONUIMEASUREMENT_API SChart MakeMaterialRatioChart(const SMaterialRatioFigure& figure);
/// The power spectrum over frequency, both axes logarithmic.
COMMONUIMEASUREMENT_API SChart MakeSpectrumChart(const SSpectrumFigure& figure);

/// The value of a curve at x, between its points along the straight line; NaN in gaps and beyond its ends.
COMMONUIMEASUREMENT_API double GetValueAt(const SChartLine& line, double x);

/// The values of curves and areas as a table for a spreadsheet: headers, then x and y of each in two columns,
/// at unit factor 1, tab-separated.
COMMONUIMEASUREMENT_API CStr MakeChartText(const SChart& chart);

} // namespace CommonUI::Measurement
