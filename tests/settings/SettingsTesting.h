#pragma once

#include "common/Diagnostics.h"
#include "common/Inifile.h"
#include "settings/BuiltInSettingText.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace CommonUI
{

inline CInifile Document(std::u16string_view text)
{
    CInifile ini;
    ini.ParseLine(text);
    return ini;
}

inline std::string Bytes(const auto& set)
{
    CInifile ini;
    set.Save(ini);
    return ini.GetBytes();
}

/// The set of a built-in text; a default one, and a failed test, when its reader refuses the text.
template<class TSettings>
TSettings BuiltIn(int number)
{
    CInifile ini = Document(GetBuiltInSettingText(EBuiltInSetting{number}));
    TSettings set;
    EXPECT_TRUE(set.Load(ini)) << number;
    return set;
}

/// Collects the lines of the diagnostics while it lives, but for those of the INI store.
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
