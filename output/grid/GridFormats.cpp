#include "output/grid/GridFormats.h"

#include "common/NumberText.h"

#include <cmath>

namespace CommonUI
{

void CGridFormats::Set(int type, const CStr& format)
{
    if (!format.IsEmpty())
        m_formats[type] = format;
}

const CStr* CGridFormats::Find(EGridValueType type) const
{
    const auto found = m_formats.find(static_cast<int>(type));
    return found == m_formats.end() ? nullptr : &found->second;
}

CStr CGridFormats::Apply(const CGridValue& value, const CStr& text) const
{
    const CStr* const format = Find(value.GetType());
    if (!format)
        return text;
    if (value.GetType() == EGridValueType::R8)
        return CStr::Format(*format, value.GetReal());
    if (value.GetType() == EGridValueType::String)
        return CStr::Format(*format, value.GetString());
    return {};
}

CStr CGridFormats::ApplyToText(const CStr& text) const
{
    double number = 0;
    if (Find(EGridValueType::R8) && ParseDouble(text, number) && std::isfinite(number))
        return Apply(number, text);
    return Apply(text, text);
}

} // namespace CommonUI
