#include "settings/readers/detail/SettingsExchange.h"

#include "common/Diagnostics.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace CommonUI
{

namespace
{

bool IsFromOne(int value, int greatest)
{
    return value >= 1 && value <= greatest;
}

bool IsOdd(int value)
{
    return value % 2 != 0;
}

bool IsPositive(double value, double greatest)
{
    return value > 0 && value <= greatest;
}

bool AreFinite(const std::vector<double>& values, int count)
{
    return std::cmp_equal(values.size(), count) &&
           std::ranges::all_of(values, [](double value) { return std::isfinite(value); });
}

} // namespace

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
    constexpr SColor white{255, 255, 255};
    value = m_ini.ReadColor(key, SColor{});
    return m_ini.ReadColor(key, white) == *value || Refuse(key, u"a colour");
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
