#include "common/StringTable.h"
#include "settings/readers/RoughnessSettings.h"
#include "tests/settings/SettingsTesting.h"

#include <algorithm>

using namespace CommonUI;

namespace
{

// The rows of a page's tables that begin with a number, each behind the heading above it.
std::vector<std::string> ReadRows(const char* page)
{
    std::vector<std::string> rows;
    std::string heading;
    for (const std::string& line : SplitText(ReadPage(page), '\n')) {
        if (line.starts_with("## "))
            heading = line;
        else if (line.starts_with("| ") && line.find_first_of("-0123456789") == 2)
            rows.push_back(heading + '\n' + line);
    }
    return rows;
}

// Compares the beginning of each row.
void ExpectOnPage(const char* page, const std::vector<std::string>& expected)
{
    const std::vector<std::string> rows = ReadRows(page);
    ASSERT_EQ(rows.size(), expected.size());
    for (std::size_t i = 0; i < rows.size(); ++i)
        EXPECT_EQ(rows[i].substr(0, expected[i].size()), expected[i]);
}

template<class T>
void AddRows(const CEnum<T>& values, const std::string& heading, std::vector<std::string>& rows)
{
    for (const auto& value : values)
        rows.push_back(heading + "\n| " + std::to_string(value.GetValue()) + " | `" +
                       value.GetIniName().ToUtf8() + "` | " + value.GetFriendlyString().ToUtf8() + " |");
}

// What the preferences of the roughness analyses are by default, which the page of sets leaves out.
std::vector<std::string> DefaultRoughnessLines()
{
    CInifile ini;
    SaveRoughnessSettings(CRoughnessAnalysisPreferencesData(EAnalysis::Roughness), ini);
    SaveRoughnessSettings(CRoughnessAnalysisPreferencesData(EAnalysis::RoughnessProfile), ini);
    std::vector<std::string> lines = SplitText(ini.GetBytes(), '\n');
    std::erase_if(lines, [](const std::string& line) { return line.starts_with('['); });
    return lines;
}

std::string RowOf(EBuiltInSetting setting, const CStr& heading)
{
    static const std::vector<std::string> defaults = DefaultRoughnessLines();
    const int number = static_cast<int>(setting);
    const int type = static_cast<int>(GetSettingType(setting));
    std::string section, contents;
    for (const std::string& line : SplitText(GetBuiltInSettingText(setting).ToUtf8(), '\n')) {
        if (section.empty())
            section = line.substr(1, line.size() - 2);
        else if (std::ranges::find(defaults, line) == defaults.end())
            contents += (contents.empty() ? "" : "; ") + line;
    }
    return "## " + GetSettingTypeEnum().GetFriendlyString(type).ToUtf8() + ": `" +
           GetSettingTypeEnum().GetIniName(type).ToUtf8() + "`, section `" + section + "`\n| " +
           std::to_string(number) + " | `" + GetBuiltInSettingEnum().GetIniName(number).ToUtf8() + "` | " +
           (heading.IsEmpty() ? "" : heading.ToUtf8() + " / ") +
           GetBuiltInSettingEnum().GetFriendlyString(number).ToUtf8() + " | `" + contents + "` |";
}

} // namespace

// What files store, and what people see and get: a change here changes what their sequences do.
TEST(SettingsPages, ThatOfBuiltInSetsAgrees)
{
    std::vector<std::string> rows;
    for (const SBuiltInSettingGroup& group : GetBuiltInSettingGroups())
        for (int number = group.first; number <= group.last; ++number)
            rows.push_back(
                RowOf(EBuiltInSetting{number}, group.headingId != 0 ? GetString(group.headingId) : CStr()));
    ExpectOnPage("built-in-sets.md", rows);
}

TEST(SettingsPages, ThatOfTypesAndCategoriesAgrees)
{
    std::vector<std::string> expected;
    AddRows(GetSettingTypeEnum(), "## Types", expected);
    AddRows(GetSettingCategoryEnum(), "## Categories", expected);
    ExpectOnPage("settings.md", expected);
}

TEST(SettingEnumerations, UnknownNumbersAndKeys)
{
    for (const int number : {14, 15, 19, -1}) {
        EXPECT_EQ(GetSettingTypeEnum().GetFriendlyString(number), u"Unknown");
        EXPECT_EQ(GetSettingTypeEnum().GetIniName(number), u"Unknown");
    }
    EXPECT_EQ(GetSettingTypeEnum().GetValue(u"planecorr"), ESettingType::Unknown);
    EXPECT_EQ(GetSettingCategoryEnum().GetFriendlyString(4), u"All");
    EXPECT_EQ(GetSettingCategoryEnum().GetValue(u"Built-in Settings"), ESettingCategory::All);
    EXPECT_EQ(GetBuiltInSettingEnum().GetValue(u"CSQuickLaunchGray"), EBuiltInSetting{1});
    for (const int number : {0, 200}) {
        EXPECT_TRUE(GetBuiltInSettingEnum().Find(number) == GetBuiltInSettingEnum().end());
        EXPECT_EQ(GetSettingType(EBuiltInSetting{number}), ESettingType::Unknown);
    }
}
