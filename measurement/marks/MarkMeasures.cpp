#include "measurement/marks/MarkMeasures.h"

#include "analysis/areal/HeightParameters.h"
#include "common/NumberText.h"
#include "common/StringTable.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace CommonUI::Measurement
{

using Analysis::GetHeightAt;
using Analysis::SPlace;
using Analysis::SSurface;

namespace
{

constexpr double c_degree = 180 / std::numbers::pi;

CStr FixedText(double value, int decimals)
{
    if (std::isnan(value))
        return u"–";
    const CNumberText text(value, {.conversion = 'f', .precision = decimals});
    return CStr::FromAscii(text.View()).Replace(u"-", u"−");
}

CStr DegreesText(double degrees)
{
    return FixedText(degrees, 2);
}

using CDirection = std::array<double, 3>;

double LengthOf(const CDirection& direction)
{
    return std::hypot(direction[0], direction[1], direction[2]);
}

double AngleBetween(const CDirection& a, const CDirection& b)
{
    if (LengthOf(a) == 0 || LengthOf(b) == 0)
        return Analysis::c_missing;
    const CDirection cross{a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
    return c_degree * std::atan2(LengthOf(cross), a[0] * b[0] + a[1] * b[1] + a[2] * b[2]);
}

// The texts in the string table.
enum class EText {
    Profile = 12111, // the marks, as EMark has them
    Distance,
    Angle,
    LengthInPlane,
    LengthInSpace,
    Slope,
    AngleInPlane,
    AngleInSpace,
};

CStr Text(EText text)
{
    return GetString(static_cast<int>(text));
}

CStr NameOf(EMark kind)
{
    return Text(kind == EMark::Profile    ? EText::Profile
                : kind == EMark::Distance ? EText::Distance
                                          : EText::Angle);
}

} // namespace

SDistance MeasureDistance(const SSurface& surface, const SPlace& from, const SPlace& to)
{
    SDistance distance{.dx = to.x - from.x, .dy = to.y - from.y};
    distance.dz = GetHeightAt(surface, to) - GetHeightAt(surface, from);
    distance.inPlane = std::hypot(distance.dx, distance.dy);
    distance.inSpace = std::isnan(distance.dz) ? distance.dz : std::hypot(distance.inPlane, distance.dz);
    distance.slope =
        distance.inPlane > 0 ? c_degree * std::atan2(distance.dz, distance.inPlane) : Analysis::c_missing;
    return distance;
}

SAngle MeasureAngle(const SSurface& surface, const SPlace& from, const SPlace& at, const SPlace& to)
{
    const double height = GetHeightAt(surface, at);
    CDirection a{from.x - at.x, from.y - at.y, 0};
    CDirection b{to.x - at.x, to.y - at.y, 0};
    SAngle angle{.inPlane = AngleBetween(a, b)};
    a[2] = GetHeightAt(surface, from) - height;
    b[2] = GetHeightAt(surface, to) - height;
    angle.inSpace = std::isnan(angle.inPlane) ? angle.inPlane : AngleBetween(a, b);
    return angle;
}

SLengthFormat SLengthFormat::Of(double range)
{
    const CUnit metre(CUnit::EUnitFactor::Unity);
    const CUnit unit = metre.WithFactor(metre.SuitableFactor(range, 1));
    const double shown = range / unit.GetFactorValue();
    const int decade =
        shown > 0 && std::isfinite(shown) ? static_cast<int>(std::floor(std::log10(shown))) : 0;
    return {.unit = unit, .decimals = std::clamp(3 - decade, 0, 9)};
}

CStr SLengthFormat::GetNumber(double metres) const
{
    return FixedText(metres / unit.GetFactorValue(), decimals);
}

CStr SLengthFormat::GetText(double metres) const
{
    return GetNumber(metres) + u" " + unit.GetText();
}

SLengthFormat GetWidthFormat(const SSurface& surface)
{
    return SLengthFormat::Of(std::max(surface.dx * static_cast<double>(surface.points),
                                      surface.dy * static_cast<double>(surface.lines)));
}

SLengthFormat GetHeightFormat(const SSurface& surface)
{
    const Analysis::SRange range = Analysis::FindRange(surface.heights);
    return SLengthFormat::Of(range.count > 0 ? range.highest - range.lowest : 0);
}

CStr DescribeMark(const SSurface& surface, const SMark& mark, const SLengthFormat& width,
                  const SLengthFormat& height)
{
    const CStr number = CStr::Format(u"%d: ", mark.number);
    if (mark.kind == EMark::Angle)
        return number +
               DegreesText(MeasureAngle(surface, mark.points[0], mark.points[1], mark.points[2]).inPlane) +
               u"°";
    const SDistance distance = MeasureDistance(surface, mark.points[0], mark.points[1]);
    const CStr length = number + width.GetText(distance.inPlane);
    return mark.kind == EMark::Profile ? length : length + u", Δz " + height.GetText(distance.dz);
}

std::vector<std::vector<CStr>> MakeMarkTable(const SSurface& surface, const std::vector<SMark>& marks,
                                             const SLengthFormat& width, const SLengthFormat& height)
{
    const CStr unit = u" / " + width.unit.GetText();
    const CStr degrees = u" / °";
    std::vector<std::vector<CStr>> rows{{u"", u"dx" + unit, u"dy" + unit, u"dz / " + height.unit.GetText(),
                                         Text(EText::LengthInPlane) + unit, Text(EText::LengthInSpace) + unit,
                                         Text(EText::Slope) + degrees, Text(EText::AngleInPlane) + degrees,
                                         Text(EText::AngleInSpace) + degrees}};
    for (const SMark& mark : marks) {
        std::vector<CStr> row(rows.front().size());
        row[0] = NameOf(mark.kind) + CStr::Format(u" %d", mark.number);
        if (mark.kind == EMark::Angle) {
            const SAngle angle = MeasureAngle(surface, mark.points[0], mark.points[1], mark.points[2]);
            row[7] = DegreesText(angle.inPlane);
            row[8] = DegreesText(angle.inSpace);
        } else {
            const SDistance distance = MeasureDistance(surface, mark.points[0], mark.points[1]);
            row[1] = width.GetNumber(distance.dx);
            row[2] = width.GetNumber(distance.dy);
            row[3] = height.GetNumber(distance.dz);
            row[4] = width.GetNumber(distance.inPlane);
            row[5] = width.GetNumber(distance.inSpace);
            row[6] = DegreesText(distance.slope);
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

} // namespace CommonUI::Measurement
