#include "output/GridValue.h"

#include "common/NumberText.h"
#include "common/StringTable.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace CommonUI
{

namespace
{

constexpr int c_trueText = 10241;
constexpr int c_falseText = 10242;

struct SLimits {
    long long lowest;
    long long highest;
};

template<class T>
constexpr SLimits LimitsOf()
{
    return {std::numeric_limits<T>::min(), std::numeric_limits<T>::max()};
}

SLimits GetLimits(EGridValueType type)
{
    switch (type) {
    case EGridValueType::I1:
        return LimitsOf<std::int8_t>();
    case EGridValueType::UI1:
        return LimitsOf<std::uint8_t>();
    case EGridValueType::I2:
    case EGridValueType::Bool:
        return LimitsOf<std::int16_t>();
    case EGridValueType::UI2:
        return LimitsOf<std::uint16_t>();
    case EGridValueType::UI4:
    case EGridValueType::UInt:
        return LimitsOf<std::uint32_t>();
    default:
        return LimitsOf<std::int32_t>();
    }
}

} // namespace

CGridValue::CGridValue(EGridValueType type, long long number)
    : m_type(type)
{
    if (type == EGridValueType::R8)
        m_content = static_cast<double>(number);
    else if (type == EGridValueType::String)
        m_content = CStr::Format(u"%d", number);
    else if (type != EGridValueType::Empty)
        m_content = std::clamp(number, GetLimits(type).lowest, GetLimits(type).highest);
}

long long CGridValue::GetInteger() const noexcept
{
    if (const auto* number = std::get_if<long long>(&m_content))
        return *number;
    const double real = GetReal();
    constexpr double beyond = 0x1p63;
    if (real >= beyond)
        return std::numeric_limits<long long>::max();
    if (real < -beyond)
        return std::numeric_limits<long long>::min();
    return std::isnan(real) ? 0 : static_cast<long long>(real);
}

double CGridValue::GetReal() const noexcept
{
    if (const auto* number = std::get_if<long long>(&m_content))
        return static_cast<double>(*number);
    const auto* real = std::get_if<double>(&m_content);
    return real ? *real : 0;
}

CStr CGridValue::GetString() const
{
    const auto* text = std::get_if<CStr>(&m_content);
    return text ? *text : CStr();
}

CStr CGridValue::ToText() const
{
    if (m_type == EGridValueType::Bool)
        return CommonUI::GetString(GetInteger() != 0 ? c_trueText : c_falseText);
    if (IsInteger())
        return CStr::Format(u"%d", GetInteger());
    return m_type == EGridValueType::R8 ? ShortestText(GetReal()) : GetString();
}

bool CGridValue::ReadText(std::u16string_view text)
{
    if (m_type == EGridValueType::Bool)
        return false;
    if (m_type == EGridValueType::R8) {
        double real = 0;
        if (!ParseDouble(text, real) || !std::isfinite(real))
            return false;
        m_content = real;
    } else if (IsInteger()) {
        long long number = 0;
        const SLimits limits = GetLimits(m_type);
        if (!ParseInteger(text, number) || number < limits.lowest || number > limits.highest)
            return false;
        m_content = number;
    } else {
        *this = CGridValue(CStr(text));
    }
    return true;
}

} // namespace CommonUI
