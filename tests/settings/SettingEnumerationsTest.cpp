#include "tests/settings/SettingsFactoryTesting.h"

using namespace CommonUI;

namespace
{

template<class E>
std::string Lines(const CEnum<E>& values)
{
    std::string lines;
    for (const auto& value : values)
        lines += std::to_string(value.GetValue()) + '|' + value.GetIniName().ToUtf8() + '|' +
                 value.GetFriendlyString().ToUtf8() + "|\n";
    return lines;
}

} // namespace

TEST(SettingEnumerations, RowsAreThoseOnRecord)
{
    EXPECT_EQ(Lines(GetSettingTypeEnum()), ReadTestData("setting-types.txt"));
    EXPECT_EQ(Lines(GetSettingCategoryEnum()), ReadTestData("setting-categories.txt"));
    EXPECT_EQ(Lines(GetBuiltInSettingEnum()), ReadTestData("built-in-settings.txt"));
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
    for (const int number : {0, 200})
        EXPECT_TRUE(GetBuiltInSettingEnum().Find(number) == GetBuiltInSettingEnum().end());
}

TEST(BuiltInSettingGroups, HoldEverySetOnceInOrder)
{
    int next = 1;
    for (const SBuiltInSettingGroup& group : GetBuiltInSettingGroups()) {
        EXPECT_EQ(group.first, next);
        next = group.last + 1;
        EXPECT_EQ(GetSettingType(EBuiltInSetting{group.first}), group.type);
        EXPECT_EQ(GetSettingType(EBuiltInSetting{group.last}), group.type);
    }
    EXPECT_EQ(next, 200);
    EXPECT_EQ(GetSettingType(EBuiltInSetting{0}), ESettingType::Unknown);
    EXPECT_EQ(GetSettingType(EBuiltInSetting{200}), ESettingType::Unknown);
}
