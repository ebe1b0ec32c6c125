#include "programs/surface_view/Axis.h"

#include "common/NumberText.h"
#include "common/Unit.h"

#include <algorithm>
#include <cmath>

namespace SurfaceView
{

using CommonUI::CStr;
using CommonUI::CUnit;

namespace
{

// Room for the rounding of quotients, which shall not lose a mark at the end of an axis.
constexpr double c_tolerance = 1e-9;

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
        if (value * value < step * next * power * power)
            return step * power;
    }
    return 10 * power;
}

CUnit SuitableLength(double metres)
{
    const CUnit metre(CUnit::EUnitFactor::Unity);
    return metre.WithFactor(metre.SuitableFactor(metres, 1));
}

CStr General(double value)
{
    const CommonUI::CNumberText text(value, {.conversion = 'g', .precision = 3});
    return CStr::FromAscii(text.View());
}

} // namespace

SAxis MakeAxis(CommonUI::CRange<double> range, int intervals)
{
    const CUnit unit = SuitableLength(std::max(std::abs(range.GetLower()), std::abs(range.GetUpper())));
    SAxis axis{.unit = unit.GetText()};
    if (!(range.GetLength() > 0))
        return axis;
    const double factor = unit.GetFactorValue();
    const double step = NearestStep(range.GetLength() / factor / intervals);
    const int decimals = std::max(0, -static_cast<int>(std::floor(std::log10(step) + c_tolerance)));
    const auto first = static_cast<long long>(std::ceil(range.GetLower() / factor / step - c_tolerance));
    const auto last = static_cast<long long>(std::floor(range.GetUpper() / factor / step + c_tolerance));
    for (long long count = first; count <= last; ++count) {
        const double value = static_cast<double>(count) * step;
        const CommonUI::CNumberText text(value, {.conversion = 'f', .precision = decimals});
        axis.ticks.push_back(
            {.value = value * factor, .text = CStr::FromAscii(text.View()).Replace(u"-", u"−")});
    }
    return axis;
}

CStr FactorText(double factor)
{
    return factor >= 999.5 ? CStr::FromAscii(CommonUI::CNumberText(factor, {.precision = 0}).View())
                           : General(factor);
}

double RoundedFactor(double factor)
{
    const double digit = PowerOfTen(factor) / 10;
    return std::round(factor / digit) * digit;
}

CStr LengthText(double metres)
{
    const CUnit unit = SuitableLength(metres);
    return General(metres / unit.GetFactorValue()) + u" " + unit.GetText();
}

} // namespace SurfaceView
