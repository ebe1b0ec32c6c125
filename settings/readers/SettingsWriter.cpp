#include "settings/readers/detail/SettingsWriter.h"

#include "settings/readers/detail/ValueRules.h"

namespace CommonUI
{

CSettingsWriter::CSettingsWriter(CInifile& ini, std::u16string_view section)
    : m_ini(ini)
    , m_scope(ini, section)
{
    m_ini.ClearSection();
}

bool CSettingsWriter::Integer(std::u16string_view key, int value, int greatest)
{
    m_ini.WriteInt(key, value);
    return IsFromOne(value, greatest);
}

bool CSettingsWriter::OddInteger(std::u16string_view key, int value, int greatest)
{
    return Integer(key, value, greatest) && IsOdd(value);
}

bool CSettingsWriter::Positive(std::u16string_view key, double value, double greatest)
{
    m_ini.WriteDouble(key, value);
    return IsPositive(value, greatest);
}

bool CSettingsWriter::IntegerWithin(std::u16string_view key, int value, const CRange<int>& allowed)
{
    m_ini.WriteInt(key, value);
    return allowed.Contains(value);
}

bool CSettingsWriter::NumberWithin(std::u16string_view key, double value, const CRange<double>& allowed)
{
    m_ini.WriteDouble(key, value);
    return allowed.Contains(value);
}

bool CSettingsWriter::Numbers(std::u16string_view key, const std::vector<double>& values, int count)
{
    m_ini.WriteDoubles(key, values);
    return AreFinite(values, count);
}

bool CSettingsWriter::Flag(std::u16string_view key, bool value)
{
    m_ini.WriteBool(key, value);
    return true;
}

bool CSettingsWriter::Text(std::u16string_view key, const CStr& value)
{
    m_ini.WriteText(key, value);
    return true;
}

bool CSettingsWriter::OptionalColor(std::u16string_view key, const std::optional<SColor>& value)
{
    if (value)
        m_ini.WriteColor(key, *value);
    return true;
}

} // namespace CommonUI
