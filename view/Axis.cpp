#include "view/Axis.h"

#include "common/NumberText.h"

#include <cmath>

namespace SurfaceView
{

using CommonUI::CStr;

CStr FactorText(double factor)
{
    const CommonUI::CNumberText text(
        factor, factor >= 999.5 ? CommonUI::SNumberFormat{.precision = 0}
                                : CommonUI::SNumberFormat{.conversion = 'g', .precision = 3});
    return CStr::FromAscii(text.View());
}

double RoundedFactor(double factor)
{
    const double digit = std::pow(10.0, std::floor(std::log10(factor))) / 10;
    return std::round(factor / digit) * digit;
}

} // namespace SurfaceView
