#pragma once

#include "common/Diagnostics.h"
#include "common/Inifile.h"
#include "settings/BuiltInSettingText.h"

#include <string>
#include <utility>
#include <vector>

namespace CommonUI
{

inline CInifile IniOfText(const std::string& text)
{
    CInifile ini;
    ini.LoadBytes(text);
    return ini;
}

inline CInifile BuiltInIni(EBuiltInSetting setting)
{
    return IniOfText(GetBuiltInSettingText(setting).ToUtf8());
}

/// The bytes of a document that holds nothing but the set.
template<class TSettings>
std::string SavedText(const TSettings& settings)
{
    CInifile ini;
    settings.Save(ini);
    return ini.GetBytes();
}

/// Collects the lines that the readers of settings write to the diagnostics while it lives; those of the INI
/// store itself are kept from the test's output.
class CRefusals
{
public:
    CRefusals()
        : m_before(GetDiagnostics().SetSink([this](const SDiagnosticLine& line) {
            if (line.category != u"Inifile")
                m_lines.push_back(CStr::Format(u"%s: %s", line.category, line.text).ToUtf8());
        }))
    {
    }
    ~CRefusals() { GetDiagnostics().SetSink(std::move(m_before)); }
    CRefusals(const CRefusals&) = delete;
    CRefusals& operator=(const CRefusals&) = delete;

    std::vector<std::string> Take() { return std::exchange(m_lines, {}); }

private:
    std::vector<std::string> m_lines;
    CDiagnostics::CSink m_before;
};

} // namespace CommonUI
