#include "settings/Settings.h"

#include <gtest/gtest.h>

using namespace CommonUI;

TEST(SettingsEntry, OfAFileOrOfTheCatalogue)
{
    const SSettingsEntry file(u"C:\\data\\sets\\my.pln", ESettingType::PlaneCorr);
    EXPECT_TRUE(file == CStr(u"my.pln") && file == SSettingsEntry::s_InvalidID && file.m_IsFile);
    EXPECT_EQ(file.m_File, u"C:\\data\\sets\\my.pln");
    EXPECT_EQ(file.m_Type, ESettingType::PlaneCorr);
    const SSettingsEntry builtIn(EBuiltInSetting::PlaneCorrQuickLaunchImageLeveling, ESettingType::PlaneCorr);
    EXPECT_TRUE(builtIn == 4 && builtIn == CStr(u"Global Leveling") && !builtIn.m_IsFile);
    EXPECT_FALSE(builtIn == CStr(u"global leveling"));
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

TEST(Settings, OfAFileHaveItsNameOnly)
{
    CSettings set(SSettingsEntry(u"/nowhere/x.flt", ESettingType::Filter), u"[A]\nKey=1");
    EXPECT_TRUE(set.GetBytes().empty());
    set.SetEntryInfo(SSettingsEntry(u"/y.flt", ESettingType::Filter));
    EXPECT_TRUE(set.GetEntryInfo() == CStr(u"y.flt"));
    EXPECT_EQ(set.GetFileName(), u"/nowhere/x.flt");
}
