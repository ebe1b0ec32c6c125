#include "tests/model/PreferencesTesting.h"
#include "tests/TestData.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace CommonUI;

namespace
{

// Whether what a switch is for is on: "file", "database", "parameter Sa", "output ResultGrid" ...
bool IsOn(const CAnalysisPreferencesData& data, const CStr& what)
{
    if (what == u"file")
        return data.GetWriteToFile();
    if (what == u"database")
        return data.GetWriteToDB();
    const bool isOutput = what.StartsWith(u"output ");
    const CStr key = what.Mid(what.Find(u' ') + 1);
    return std::ranges::any_of(
        isOutput ? data.GetOutputs() : data.GetParameters(),
        [&](const CParameter& entry) { return entry.GetIniName() == key && entry.IsOn(); });
}

} // namespace

// A line of the record names the old key, the analysis that has it, and what it switches.
TEST(OldPreferences, EverySwitchTurnsOnAndOff)
{
    for (const std::string& row : ReadTestLines("old-preferences.txt")) {
        const std::vector<std::string> cells = SplitText(row, '|');
        const EAnalysis analysis{std::stoi(cells[1])};
        for (const bool on : {false, true}) {
            SCOPED_TRACE(row);
            const std::string line = cells[0] + (on ? "=1\n" : "=0\n");
            const auto data = MakePreferences(analysis);
            CInifile ini = PreferencesIni("[A]\n" + line);
            EXPECT_TRUE(data->Load(ini));
            EXPECT_EQ(IsOn(*data, CStr::FromUtf8(cells[2])), on);
            EXPECT_TRUE(data->IsModified()) << "it has to be saved in today's layout";
            EXPECT_EQ(ini.GetBytes(), "[A]\n" + line);
            CInifile mixed = PreferencesIni("[A]\nWriteToFile=0\nWriteToDB=0\n" + line);
            const auto untouched = MakePreferences(analysis);
            untouched->Load(mixed);
            EXPECT_FALSE(untouched->IsModified()) << "with today's key the old ones mean nothing";
        }
    }
}

TEST(OldPreferences, UnitPreprocessingAndReport)
{
    const CDiagnosticsCapture warnings;
    const std::tuple<const char*, const char16_t*, int, int, int> rows[] = {
        {"OptionsHeightUnit=um", u"µm", 1, 0, 0}, {"OptionsHeightUnit=4", u"µm", 1, 0, 0},
        {"OptionsHeightUnit=13", u"nm", 1, 0, 1}, {"m_Preprocessing=2", u"nm", 2, 0, 0},
        {"m_Preprocessing=9", u"nm", 1, 0, 1},    {"ReportOptions=2", u"nm", 1, 2, 0},
        {"ReportOptions=-1", u"nm", 1, 0, 1},     {"ReportOptions=HTML", u"nm", 1, 0, 1},
    };
    int warned = 0;
    for (const auto& [line, unit, preprocessing, report, warnedNow] : rows) {
        SCOPED_TRACE(line);
        CRoughnessAnalysisPreferencesData data(EAnalysis::Roughness);
        CInifile ini = PreferencesIni("[A]\n" + std::string(line));
        EXPECT_TRUE(data.Load(ini));
        EXPECT_TRUE(data.IsModified());
        EXPECT_EQ(data.GetUnit().GetText(), unit);
        EXPECT_EQ(static_cast<int>(data.GetPreprocessingOption()), preprocessing);
        EXPECT_EQ(static_cast<int>(data.GetReportOption()), report);
        EXPECT_EQ(warnings.GetCount(), warned += warnedNow);
    }
}

TEST(OldPreferences, SharedSectionIsFoundFromTheAnalysisSection)
{
    const std::tuple<const char*, const char16_t*, bool> rows[] = {
        {"[A]\nOptionsTipDB=1\n", u"A_TipAnalysis", true},
        {"OptionsTipDB=1\n", u"_TipAnalysis", true},
        {"[A]\nOptionsTipDB=1\n[A_TipAnalysis]\nOptionsTipDB=0\n", u"A_TipAnalysis", false},
        {"[A]\nOptionsTipDB=1\n", u"A_Linearity", false},
        {"[A]\nOptionsCalDB=1\n", u"A_TipAnalysis", false},
        {"[A]\nOptionsTipDB=1\n[A_TipAnalysis]\nWriteToFile=0\n", u"A_TipAnalysis", false},
    };
    for (const auto& [bytes, section, found] : rows) {
        CAnalysisPreferencesData data(EAnalysis::Tip);
        CInifile ini = PreferencesIni(bytes, section);
        EXPECT_TRUE(data.Load(ini));
        EXPECT_EQ(data.GetWriteToDB(), found) << bytes;
        EXPECT_EQ(ini.GetSection(), section);
    }
}
