#include "measurement/charts/Axis.h"

#include "common/NumberText.h"
#include "common/Unit.h"

#include <algorithm>
#include <cmath>

namespace CommonUI::Measurement
{

namespace
{

// Room for the rounding of quotients, which shall not lose a mark at the end of an axis.
constexpr double c_tolerance = 1e-9;
// Beyond so many digits in a unit's numbers a power of ten is read better.
constexpr double c_greatest = 1e6;
constexpr double c_least = 1e-4;
constexpr double c_mostTicks = 100;

int DecadeOf(double value)
{
    return static_cast<int>(std::floor(std::log10(value) + c_tolerance));
}

double PowerOfTen(double value)
{
    return std::pow(10.0, std::floor(std::log10(value)));
}

// The number of the form 1, 2 or 5 times a power of ten that is nearest to a positive number, by their
// ratio.
double NearestStep(double value)
{
    const double power = PowerOfTen(value);
    for (const double step : {1.0, 2.0, 5.0}) {
        const double next = step == 2 ? 5 : 2 * step;
        if (value / power * (value / power) < step * next)
            return step * power;
    }
    return 10 * power;
}

CStr NumberText(double value, const SNumberFormat& format)
{
    return CStr::FromAscii(CNumberText(value, format).View()).Replace(u"-", u"−");
}

// 10⁻⁹
CStr PowerText(int exponent)
{
    constexpr std::u16string_view c_digits = u"⁰¹²³⁴⁵⁶⁷⁸⁹";
    CStr text = exponent < 0 ? u"10⁻" : u"10";
    const CNumberText digits(std::abs(exponent), {.conversion = 'd'});
    for (const char digit : digits.View())
        text += c_digits.substr(static_cast<std::size_t>(digit - '0'), 1);
    return text;
}

// A unit by its name and its value.
struct SScaleUnit {
    CStr text{};
    double factor = 1;
};

SScaleUnit SuitableUnit(double metres)
{
    const CUnit metre(CUnit::EUnitFactor::Unity);
    const CUnit unit = metre.WithFactor(metre.SuitableFactor(metres, 1));
    const double shown = metres / unit.GetFactorValue();
    if (!(shown > 0) || (shown >= c_least && shown < c_greatest))
        return {unit.GetText(), unit.GetFactorValue()};
    const int decade = DecadeOf(metres);
    return {PowerText(decade) + u" m", std::pow(10.0, decade)};
}

void AddTicks(SAxis& axis, CRange<double> range, int intervals, double factor)
{
    const double step = NearestStep(range.GetLength() / factor / intervals);
    const double first = std::ceil(range.GetLower() / factor / step - c_tolerance);
    const double last = std::floor(range.GetUpper() / factor / step + c_tolerance);
    // Nor are there marks where these would be nearer than the numbers.
    if (!std::isfinite(step) || !(last - first < c_mostTicks) || first + 1 == first)
        return;
    const int decimals = std::max(0, -DecadeOf(step));
    const auto count = static_cast<int>(last - first);
    for (int i = 0; i <= count; ++i) {
        const double value = (first + i) * step + 0.0; // no negative zero
        axis.ticks.push_back(
            {.value = value * factor, .text = NumberText(value, {.conversion = 'f', .precision = decimals})});
    }
}

} // namespace

SAxis MakeAxis(CRange<double> range, int intervals)
{
    const SScaleUnit unit = SuitableUnit(std::max(std::abs(range.GetLower()), std::abs(range.GetUpper())));
    SAxis axis{.unit = unit.text};
    if (range.GetLength() > 0)
        AddTicks(axis, range, intervals, unit.factor);
    return axis;
}

SAxis MakeNumberAxis(CRange<double> range, int intervals)
{
    SAxis axis;
    if (range.GetLength() > 0)
        AddTicks(axis, range, intervals, 1);
    return axis;
}

SAxis MakeLogarithmicAxis(CRange<double> range, int most)
{
    SAxis axis;
    const double decades = std::log10(range.GetUpper()) - std::log10(range.GetLower());
    if (!std::isfinite(decades))
        return axis;
    const int every = std::max(1, static_cast<int>(std::ceil(decades / most)));
    const int last = static_cast<int>(std::ceil(std::log10(range.GetUpper())));
    for (int decade = static_cast<int>(std::floor(std::log10(range.GetLower()))); decade <= last; ++decade) {
        for (const int digit : {1, 2, 5}) {
            const bool isWanted = digit == 1 ? decade % every == 0 : 3 * decades <= most;
            const double value = digit * std::pow(10.0, decade);
            const double share = std::log10(value) - std::log10(range.GetLower());
            if (!isWanted || share < -c_tolerance || share > decades + c_tolerance)
                continue;
            const bool isShort = decade > -4 && decade < 4;
            axis.ticks.push_back({.value = value,
                                  .text = isShort ? NumberText(value, {.conversion = 'g', .precision = 3})
                                          : digit == 1 ? PowerText(decade)
                                                       : CStr::Format(u"%d·", digit) + PowerText(decade)});
        }
    }
    return axis;
}

CStr LengthText(double metres)
{
    const SScaleUnit unit = SuitableUnit(std::abs(metres));
    const CStr separator = unit.text.View().starts_with(u'1') ? u"·" : u" ";
    return NumberText(metres / unit.factor, {.conversion = 'g', .precision = 3}) + separator + unit.text;
}

} // namespace CommonUI::Measurement
