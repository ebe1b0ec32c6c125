#include "settings/detail/SettingFields.h"

#include "common/Diagnostics.h"

#include <limits>

namespace CommonUI::Detail
{

CSettingReader::CSettingReader(CInifile& ini, ESettingType type, const CStr& section)
    : m_ini(ini)
    , m_type(type)
    , m_previous(ini.GetSection())
    , m_section(section)
{
    if (!m_ini.HasSection(section))
        Refuse(u"there is no such section");
    m_ini.SelectSection(section);
}

void CSettingReader::Refuse(const CStr& reason)
{
    m_usable = false;
    const CStr category = GetSettingTypeEnum().GetIniName(static_cast<int>(m_type));
    GetDiagnostics().Write(category, EDiagnosticLevel::Warning, CStr::Format(u"[%s] %s", m_section, reason));
}

void CSettingReader::operator()(std::u16string_view key, bool& value)
{
    value = m_ini.ReadBool(key, value);
    if (m_ini.HasKey(key) && m_ini.ReadBool(key, !value) != value)
        Refuse(CStr::Format(u"%s: neither yes nor no", key));
}

void CSettingReader::operator()(std::u16string_view key, int& value, const CRange<int>& allowed)
{
    if (!m_ini.HasKey(key))
        return;
    const int read = m_ini.ReadInt(key, std::numeric_limits<int>::min());
    if (allowed.Contains(read))
        value = read;
    else
        Refuse(CStr::Format(u"%s: no integer from %d to %d", key, allowed.GetLower(), allowed.GetUpper()));
}

void CSettingReader::operator()(std::u16string_view key, double& value, const CRange<double>& allowed)
{
    if (!m_ini.HasKey(key))
        return;
    const double read = m_ini.ReadDouble(key, std::numeric_limits<double>::quiet_NaN());
    if (allowed.Contains(read))
        value = read;
    else
        Refuse(CStr::Format(u"%s: no number from %G to %G", key, allowed.GetLower(), allowed.GetUpper()));
}

void CSettingReader::operator()(std::u16string_view key, CStr& value)
{
    value = m_ini.ReadText(key, value);
}

void CSettingReader::operator()(std::u16string_view key, std::optional<SColor>& value)
{
    if (!m_ini.HasKey(key))
        return;
    constexpr SColor white{255, 255, 255};
    const SColor read = m_ini.ReadColor(key, SColor{});
    if (m_ini.ReadColor(key, white) == read)
        value = read;
    else
        Refuse(CStr::Format(u"%s: no colour", key));
}

CSettingWriter::CSettingWriter(CInifile& ini, const CStr& section)
    : m_ini(ini)
    , m_previous(ini.GetSection())
{
    m_ini.SelectSection(section);
    m_ini.ClearSection();
}

} // namespace CommonUI::Detail
