#include "output/grid/GridValue.h"

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
        m_real = static_cast<double>(number);
    else if (type == EGridValueType::String)
        m_text = CStr::Format(u"%d", number);
    else if (type != EGridValueType::Empty)
        m_integer = std::clamp(number, GetLimits(type).lowest, GetLimits(type).highest);
}

long long CGridValue::GetInteger() const noexcept
{
    if (m_type != EGridValueType::R8)
        return m_integer;
    constexpr double c_beyond = 0x1p63;
    if (m_real >= c_beyond)
        return std::numeric_limits<long long>::max();
    if (m_real < -c_beyond)
        return std::numeric_limits<long long>::min();
    return std::isnan(m_real) ? 0 : static_cast<long long>(m_real);
}

double CGridValue::GetReal() const noexcept
{
    return m_type == EGridValueType::R8 ? m_real : static_cast<double>(m_integer);
}

CStr CGridValue::ToText() const
{
    if (m_type == EGridValueType::Bool)
        return CommonUI::GetString(m_integer != 0 ? c_trueText : c_falseText);
    if (IsInteger())
        return CStr::Format(u"%d", m_integer);
    return m_type == EGridValueType::R8 ? ShortestText(m_real) : m_text;
}

bool CGridValue::ReadText(std::u16string_view text)
{
    if (m_type == EGridValueType::Bool)
        return false;
    if (m_type == EGridValueType::R8) {
        double real = 0;
        if (!ParseDouble(text, real) || !std::isfinite(real))
            return false;
        m_real = real;
    } else if (IsInteger()) {
        long long number = 0;
        const SLimits limits = GetLimits(m_type);
        if (!ParseInteger(text, number) || number < limits.lowest || number > limits.highest)
            return false;
        m_integer = number;
    } else {
        *this = CGridValue(CStr(text));
    }
    return true;
}

} // namespace CommonUI
