#include "settings/readers/detail/SettingsReader.h"

#include "common/Diagnostics.h"
#include "settings/readers/detail/ValueRules.h"

#include <limits>

namespace CommonUI
{

CSettingsReader::CSettingsReader(CInifile& ini, std::u16string_view section)
    : m_ini(ini)
    , m_scope(ini, section)
{
}

bool CSettingsReader::Integer(std::u16string_view key, int& value, int greatest)
{
    if (m_ini.HasKey(key))
        value = m_ini.ReadInt(key, 0);
    return IsFromOne(value, greatest) || Refuse(key, CStr::Format(u"a whole number from 1 to %d", greatest));
}

bool CSettingsReader::OddInteger(std::u16string_view key, int& value, int greatest)
{
    return Integer(key, value, greatest) && (IsOdd(value) || Refuse(key, u"odd"));
}

bool CSettingsReader::Positive(std::u16string_view key, double& value, double greatest)
{
    if (m_ini.HasKey(key))
        value = m_ini.ReadDouble(key, 0);
    return IsPositive(value, greatest) ||
           Refuse(key, CStr::Format(u"a number above 0, at most %G", greatest));
}

bool CSettingsReader::IntegerWithin(std::u16string_view key, int& value, const CRange<int>& allowed)
{
    if (m_ini.HasKey(key))
        value = m_ini.ReadInt(key, std::numeric_limits<int>::min());
    return allowed.Contains(value) ||
           Refuse(key, CStr::Format(u"a whole number from %d to %d", allowed.GetLower(), allowed.GetUpper()));
}

bool CSettingsReader::NumberWithin(std::u16string_view key, double& value, const CRange<double>& allowed)
{
    if (m_ini.HasKey(key))
        value = m_ini.ReadDouble(key, std::numeric_limits<double>::quiet_NaN());
    return allowed.Contains(value) ||
           Refuse(key, CStr::Format(u"a number from %G to %G", allowed.GetLower(), allowed.GetUpper()));
}

bool CSettingsReader::Numbers(std::u16string_view key, std::vector<double>& values, int count)
{
    values = m_ini.ReadDoubles(key);
    return AreFinite(values, count) || Refuse(key, CStr::Format(u"%d finite numbers", count));
}

bool CSettingsReader::Flag(std::u16string_view key, bool& value)
{
    value = m_ini.ReadBool(key, value);
    return !m_ini.HasKey(key) || m_ini.ReadBool(key, !value) == value || Refuse(key, u"1 or 0");
}

bool CSettingsReader::Text(std::u16string_view key, CStr& value)
{
    value = m_ini.ReadText(key, value);
    return true;
}

bool CSettingsReader::OptionalColor(std::u16string_view key, std::optional<SColor>& value)
{
    if (!m_ini.HasKey(key))
        return true;
    constexpr SColor c_white{255, 255, 255};
    value = m_ini.ReadColor(key, SColor{});
    return m_ini.ReadColor(key, c_white) == *value || Refuse(key, u"a colour");
}

bool CSettingsReader::Require(bool condition, std::u16string_view reason)
{
    if (!condition)
        GetDiagnostics().Write(u"Settings", EDiagnosticLevel::Warning,
                               CStr::Format(u"[%s] %s", m_ini.GetSection(), reason));
    m_usable = m_usable && condition;
    return condition;
}

bool CSettingsReader::Refuse(std::u16string_view key, std::u16string_view expected)
{
    GetDiagnostics().Write(
        u"Settings", EDiagnosticLevel::Warning,
        CStr::Format(u"[%s] %s=%s is not %s", m_ini.GetSection(), key, m_ini.ReadText(key), expected));
    m_usable = false;
    return false;
}

} // namespace CommonUI
