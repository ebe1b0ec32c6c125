#pragma once

#include "SettingsTesting.h"

#include <vector>

namespace CommonUI
{

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

/// A text that a reader is given, and why it refuses it; no reason where it takes it.
struct SReaderRow {
    std::string text;
    std::vector<std::string> reasons{};
};

/// Checks what a reader says of each text, and that it takes a refused text for nothing at all.
template<class TSettings>
void ExpectReads(const TSettings& before, const std::string& section, const std::vector<SReaderRow>& rows)
{
    CRefusals refusals;
    for (const SReaderRow& row : rows) {
        TSettings settings = before;
        CInifile ini = Document(CStr::FromUtf8(row.text));
        EXPECT_EQ(settings.Load(ini), row.reasons.empty()) << row.text;
        EXPECT_EQ(settings == before, !row.reasons.empty()) << row.text;
        EXPECT_TRUE(ini.GetSection().IsEmpty());
        std::vector<std::string> expected;
        for (const std::string& reason : row.reasons)
            expected.push_back("Settings: [" + section + "] " + reason);
        EXPECT_EQ(refusals.Take(), expected) << row.text;
    }
}

} // namespace CommonUI
