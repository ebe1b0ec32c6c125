#pragma once

#include "common/Diagnostics.h"
#include "common/Inifile.h"
#include "settings/BuiltInSettingText.h"

#include <gtest/gtest.h>

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

/// A text that a reader is given, and why it refuses it; no reason where it takes it.
struct SReaderRow {
    std::string text;
    std::vector<std::string> reasons{};
};

/// Checks what a reader says of each text, and that it takes a refused text for nothing at all.
/// @param prefix of all lines in the diagnostics: the settings type and the section
template<class TSettings>
void ExpectReads(const TSettings& before, const std::string& prefix, const std::vector<SReaderRow>& rows)
{
    CRefusals refusals;
    for (const SReaderRow& row : rows) {
        TSettings settings = before;
        CInifile ini = IniOfText(row.text);
        EXPECT_EQ(settings.Load(ini), row.reasons.empty()) << row.text;
        EXPECT_EQ(settings == before, !row.reasons.empty()) << row.text;
        EXPECT_TRUE(ini.GetSection().IsEmpty());
        std::vector<std::string> expected;
        for (const std::string& reason : row.reasons)
            expected.push_back(prefix + reason);
        EXPECT_EQ(refusals.Take(), expected) << row.text;
    }
}

} // namespace CommonUI
