#pragma once

#include "../../common/Range.h"
#include "../../export/Export.h"
#include "Axis.h"
#include "Svg.h"

#include <vector>

namespace CommonUI::Measurement
{

/// The range with room for a curve: one that is flat, or as good as flat beside its values, gets a length.
COMMONUIMEASUREMENT_API CRange<double> MakeRoom(CRange<double> range);

/// Where values lie along one direction of a picture.
struct COMMONUIMEASUREMENT_API SScale {
    CRange<double> range{};     ///< of values, with a length
    double from = 0;            ///< coordinate of the lower bound
    double to = 0;              ///< coordinate of the upper bound
    bool isLogarithmic = false; ///< whether powers of ten are equally far apart; the range is above 0 then

    /// The coordinate of a value, outside of the scale for one beyond the range.
    double Map(double value) const;
};

/// A frame with axes in a picture.
struct SPlot {
    SScale x{}; ///< from the left to the right
    SScale y{}; ///< from the bottom to the top

    /// The coordinate of the left edge.
    double GetLeft() const { return x.from; }
    /// The coordinate of the right edge.
    double GetRight() const { return x.to; }
    /// The coordinate of the top edge, which is less than that of the bottom.
    double GetTop() const { return y.to; }
    /// The coordinate of the bottom edge.
    double GetBottom() const { return y.from; }
};

/// The name of an axis with its unit: "z / nm".
COMMONUIMEASUREMENT_API CStr AxisName(const CStr& quantity, const CStr& unit);

/// Draws marks and name below a frame.
/// @param hasGrid whether lines across the frame continue the marks
COMMONUIMEASUREMENT_API void DrawAxisBelow(CSvg& svg, const SPlot& plot, const SAxis& axis, const CStr& name,
                                           bool hasGrid = true);
/// Draws marks to the left of a frame, and the name above them.
COMMONUIMEASUREMENT_API void DrawAxisLeft(CSvg& svg, const SPlot& plot, const SAxis& axis, const CStr& name,
                                          bool hasGrid = true);
/// Draws the rectangle around a plot, in the class of axes.
COMMONUIMEASUREMENT_API void DrawFrame(CSvg& svg, const SPlot& plot);

/// Marks of lengths, as many as have room for their texts next to each other.
/// @param room in coordinates
/// @param most of the intervals, about
COMMONUIMEASUREMENT_API SAxis MakeAxisBelow(CRange<double> range, double room, int most);

/// How wide a text is, about, in coordinates.
COMMONUIMEASUREMENT_API double TextWidth(const CStr& text);
/// That of the widest mark.
COMMONUIMEASUREMENT_API double LabelWidth(const SAxis& axis);

/// A curve through points of a plot.
struct SCurvePoint {
    double x = 0; ///< as the scale of the plot has it
    double y = 0; ///< NaN interrupts the curve
};
/// Draws a curve in straight lines; a point between two gaps becomes a dot. @param classes of the style
COMMONUIMEASUREMENT_API void DrawCurve(CSvg& svg, const SPlot& plot, const std::vector<SCurvePoint>& points,
                                       std::string_view classes);

/// The style of all pictures, an element for a page that has some: colours that suit a bright, a dark and a
/// printed page, whose tables get those of a dark page, too.
COMMONUIMEASUREMENT_API std::string GetChartStyle();

/// A chart as a file of its own, with that style. @param svg the element of a chart
COMMONUIMEASUREMENT_API std::string MakeSvgFile(std::string_view svg);

} // namespace CommonUI::Measurement
