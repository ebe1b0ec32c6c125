#include "settings/Settings.h"

#include <gtest/gtest.h>

using namespace CommonUI;

TEST(SettingsEntry, OfAFileOrOfTheCatalogue)
{
    const std::pair<std::u16string_view, std::u16string_view> rows[] = {
        {u"C:\\data\\sets\\my.pln", u"my.pln"}, {u"C:\\data\\", u""}, {u"/sets/a.b.flt", u"a.b.flt"}};
    for (const auto& [path, name] : rows) {
        const SSettingsEntry entry(path, ESettingType::PlaneCorr);
        EXPECT_TRUE(entry == CStr(name));
        EXPECT_EQ(entry.m_File, path);
        EXPECT_TRUE(entry == SSettingsEntry::s_InvalidID);
        EXPECT_EQ(entry.m_Type, ESettingType::PlaneCorr);
        EXPECT_TRUE(entry.m_IsFile);
    }
    const SSettingsEntry builtIn(EBuiltInSetting::PlaneCorrQuickLaunchImageLeveling, ESettingType::PlaneCorr);
    EXPECT_TRUE(builtIn == 4);
    EXPECT_TRUE(builtIn == CStr(u"Global Leveling"));
    EXPECT_FALSE(builtIn == CStr(u"global leveling"));
    EXPECT_FALSE(builtIn.m_IsFile);
    EXPECT_TRUE(builtIn.m_File.IsEmpty());
}

TEST(Settings, BuiltInTextReadsAsAFileWould)
{
    const CStr text = u"Top=1\r\n[A]\nKey=5\n\n; of B\n[B]\rKey=a b\n[A]\nLast=x";
    const SSettingsEntry entry(EBuiltInSetting::CSQuickLaunchGlow, ESettingType::ColorScale);
    const CSettings set(entry, text);
    EXPECT_EQ(set.GetFileName(), u"BuiltInSetting_CSQuickLaunchGlow");
    EXPECT_EQ(set.GetSection(), u"");
    EXPECT_TRUE(set.GetEntryInfo() == 175);
    CInifile expected;
    expected.LoadBytes(text.ToUtf8());
    CInifile read = set;
    EXPECT_EQ(read.GetSections(), expected.GetSections());
    for (const CStr& section : expected.GetSections()) {
        read.SelectSection(section);
        expected.SelectSection(section);
        ASSERT_EQ(read.GetKeys(), expected.GetKeys());
        for (const CStr& key : expected.GetKeys())
            EXPECT_EQ(read.ReadText(key), expected.ReadText(key));
    }

    EXPECT_TRUE(CSettings(entry, {}).GetBytes().empty());
    EXPECT_TRUE(CSettings(entry, {}).GetFileName().IsEmpty());
}

TEST(Settings, CopiesHaveContentAndEntryOfTheirOwn)
{
    CSettings set(SSettingsEntry(u"/nowhere/x.flt", ESettingType::Filter), u"[A]\nKey=1");
    EXPECT_EQ(set.GetFileName(), u"/nowhere/x.flt");
    EXPECT_TRUE(set.GetBytes().empty());
    set.WriteInt(u"Key", 5);
    CSettings copy;
    copy = set;
    set.WriteInt(u"Key", 6);
    set.SetEntryInfo(SSettingsEntry(u"/y.flt", ESettingType::Filter));
    EXPECT_EQ(copy.ReadInt(u"Key", 0), 5);
    EXPECT_TRUE(CSettings(copy).GetEntryInfo() == CStr(u"x.flt"));
    EXPECT_TRUE(set.GetEntryInfo() == CStr(u"y.flt"));
    EXPECT_EQ(set.GetFileName(), u"/nowhere/x.flt");
}
