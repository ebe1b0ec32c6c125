#include "python/Lengths.h"

#include "common/NumberText.h"
#include "common/Unit.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <string>

namespace Python
{

using CommonUI::CStr;
using CommonUI::CUnit;

namespace
{

// A number with a unit of length behind it.
double ParseLength(const char* name, const CStr& text)
{
    const std::size_t last = text.View().find_last_of(u"0123456789.");
    const std::size_t unitBegin = last == CStr::npos ? 0 : last + 1;
    CUnit unit;
    double value = 0;
    if (!CommonUI::ParseDouble(text.Left(unitBegin), value) || !CUnit::ParseLength(text.Mid(unitBegin), unit))
        throw std::invalid_argument(std::string(name) + ": \"" + text.ToUtf8() +
                                    "\" is no length such as 50nm");
    return value * CUnit::GetFactorValue(unit.GetFactor());
}

} // namespace

double LengthOf(const char* name, const CLength& given)
{
    const auto* const number = std::get_if<double>(&given);
    const double length = number ? *number : ParseLength(name, std::get<CStr>(given));
    if (!std::isfinite(length))
        throw std::invalid_argument(std::string(name) + ": a finite length expected");
    return length;
}

double PositiveOf(const char* name, const CLength& given)
{
    const double length = LengthOf(name, given);
    if (!(length > 0))
        throw std::invalid_argument(std::string(name) + ": a length above 0 expected");
    return length;
}

std::pair<double, std::optional<double>> PositivesOf(const char* name, const CLengths& given)
{
    if (const auto* const one = std::get_if<CLength>(&given))
        return {PositiveOf(name, *one), std::nullopt};
    const auto& [first, second] = std::get<std::pair<CLength, CLength>>(given);
    return {PositiveOf(name, first), PositiveOf(name, second)};
}

} // namespace Python
