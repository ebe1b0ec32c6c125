#include "tests/settings/SettingsFactoryTesting.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <map>

using namespace CommonUI;
using enum ESettingType;

namespace
{

CSettings MakeSet(const CStr& path, ESettingType type, int value)
{
    CSettings set(SSettingsEntry(path, type), {});
    set.WriteInt(u"Value", value);
    return set;
}

} // namespace

TEST_F(SettingsFactory, RecentUses)
{
    const std::pair<std::vector<int>, std::u16string_view> c_cases[] = {
        {{}, u""},
        {{4}, u"Recent{Global Leveling 4}"},
        {{4, 6, 4}, u"Recent{Global Leveling 4,Linewise Offset 6}"},
        {{8, 3, 4, 5, 6},
         u"Recent{Linewise Offset 6,Linewise Bow Removal 5,Global Leveling 4,Global Bow Removal 3}"},
        {{8, 3, 4, 5, 6, 3},
         u"Recent{Global Bow Removal 3,Linewise Offset 6,Linewise Bow Removal 5,Global Leveling 4}"},
    };
    for (const auto& [uses, recent] : c_cases) {
        m_factory = {};
        for (const int id : uses)
            EXPECT_TRUE(m_factory.GetSettings(id, true).GetEntryInfo() == id);
        m_factory.GetSettings(10, false);
        EXPECT_EQ(Recent(PlaneCorr), recent);
    }
    // An index means nothing for a built-in set.
    m_factory.AddToRecentItems({EBuiltInSetting{175}, ColorScale}, 3);
    m_factory.AddToRecentItems({EBuiltInSetting{175}, ColorScale}, 4);
    EXPECT_EQ(Recent(ColorScale), u"Recent{Glow 175}");
    EXPECT_EQ(Recent(Filter), u"");
}

TEST_F(SettingsFactory, ABackslashAtTheEndMakesNoOtherSet)
{
    const CStr path = Path("x.flt");
    m_folder.Write("x.flt", "Value=7\n");
    const CStr ended = path + u"\\";
    const std::function<void()> doors[] = {
        [&] { m_factory.LoadSettings(Filter, ended, true); },
        [&] {
            CInifile ini;
            ini.SelectSection(CSettingsFactory::c_StorageSection);
            ini.WriteTexts(u"Filter", {u"FILE:" + ended, u"FILE:\\"});
            m_factory.Load(ini);
        },
        [&] {
            CSettingsFactory::SParseInfo info;
            EXPECT_FALSE(m_factory.ParseUserSpec(u"Filter[File(\\)]", info));
            EXPECT_TRUE(m_factory.ParseUserSpec(u"Filter[File(" + ended + u")]", info));
            EXPECT_EQ(Text(m_factory.GetTree(info)), u"x.flt 200");
        },
        [&] {
            SSettingsEntry entry(ended, Filter);
            m_factory.NewDynamicItem(entry, true);
        },
        [&] {
            CSettings set = MakeSet(ended, Filter, 7);
            EXPECT_TRUE(m_factory.SaveSettings(set, true));
            EXPECT_EQ(set.GetFileName(), path);
        },
    };
    for (const auto& door : doors) {
        m_factory = {};
        door();
        m_factory.LoadSettings(Filter, path, true);
        const CSettings set = m_factory.GetSettings(200, true);
        EXPECT_EQ(set.ReadInt(u"Value", 0), 7) << &door - doors;
        EXPECT_EQ(set.GetEntryInfo().m_File, path);
        EXPECT_EQ(Recent(Filter), u"Recent{x.flt 200}");
    }
}

TEST_F(SettingsFactory, DynamicItems)
{
    constexpr std::tuple<std::u16string_view, ESettingType, bool, int> c_cases[] = {
        {u"/a/x.pln", PlaneCorr, true, 200}, {u"/b/x.pln", PlaneCorr, true, 201},
        {u"/a/x.pln", PlaneCorr, true, 200}, {u"/A/x.pln", PlaneCorr, true, 202},
        {u"/a/x.pln", Filter, true, 203},    {u"/a/x.pln", Unknown, false, 204},
        {u"/b/x.pln", PlaneCorr, true, 201}, {u"C:\\a\\x.pln", PlaneCorr, true, 205},
        {u"/u", Unknown, false, 206},        {u"/u", Unknown, true, 206},
    };
    for (const auto& [path, type, result, id] : c_cases) {
        SSettingsEntry entry(path, type);
        EXPECT_EQ(m_factory.NewDynamicItem(entry, type != Filter), result);
        EXPECT_EQ(entry.m_ID, id);
    }
    EXPECT_EQ(Recent(PlaneCorr), u"Recent{x.pln 205,x.pln 201,x.pln 202,x.pln 200}");
    EXPECT_EQ(Recent(Filter), u"");
    EXPECT_EQ(Recent(Unknown), u"Recent{u 206}"); // what a new one does not get
    SSettingsEntry named(u"/b/x.pln", PlaneCorr);
    named.m_Name = u"Mine";
    EXPECT_TRUE(m_factory.NewDynamicItem(named, false));
    EXPECT_EQ(named.m_ID, 207);
    EXPECT_EQ(m_factory.GetNewID(), 208U);
}

TEST_F(SettingsFactory, IdentifiersOfNoSet)
{
    for (const int id : {-1, 0, 200, 1 << 30})
        EXPECT_TRUE(m_factory.GetSettings(id, true).GetEntryInfo() == SSettingsEntry::s_InvalidID);
    EXPECT_EQ(m_warnings.GetCount(), 4);
    EXPECT_TRUE(m_boxes.GetShown().empty());
}

TEST_F(SettingsFactory, StoredKeysAreThoseOnRecord)
{
    const std::string stored = ReadTestData("settings-factory.ini");
    CInifile ini;
    ini.LoadBytes(stored);
    ini.SelectSection(u"Callers");
    EXPECT_TRUE(m_factory.Load(ini));
    EXPECT_EQ(ini.GetSection(), u"Callers");
    EXPECT_EQ(Recent(PlaneCorr), u"Recent{first.pln 201,Global Leveling 4,second.pln 200}");
    EXPECT_EQ(Recent(ColorScale), u"Recent{Multicolor 1 193}");
    CInifile written;
    EXPECT_TRUE(m_factory.Save(written));
    EXPECT_EQ(written.GetBytes(), stored);
    EXPECT_EQ(written.GetSection(), u"");
    EXPECT_EQ(m_warnings.GetCount(), 0);
}

TEST_F(SettingsFactory, TwoProgramsKeepTheRecentSetsOfBoth)
{
    const auto use = [](CInifile& ini, EBuiltInSetting setting) {
        CTestFactory factory;
        EXPECT_TRUE(factory.Load(ini));
        factory.GetSettings(static_cast<int>(setting), true);
        EXPECT_TRUE(factory.Save(ini));
    };
    CInifile ours;
    CInifile theirs;
    ours.SetFileName(Path("store.ini"));
    theirs.SetFileName(Path("store.ini"));
    use(theirs, EBuiltInSetting{4});
    EXPECT_TRUE(theirs.SaveMerged());
    EXPECT_TRUE(ours.Load());
    use(theirs, EBuiltInSetting{5});
    use(ours, EBuiltInSetting{6});
    EXPECT_TRUE(theirs.SaveMerged());
    EXPECT_TRUE(ours.SaveMerged());
    m_factory.Load(ours);
    const CStr recent = Recent(PlaneCorr);
    for (const char16_t* id : {u" 4", u" 5", u" 6"})
        EXPECT_NE(recent.Find(id), CStr::npos) << recent.ToUtf8();
}

TEST_F(SettingsFactory, RecentListsOfDamagedFiles)
{
    const CStr level = u"BUILT-IN:PlaneCorrQuickLaunchImageLeveling";
    const std::tuple<std::vector<CStr>, std::vector<CStr>, int> c_cases[] = {
        {{u"FILE:/1", level, u"FILE:/2", u"FILE:/3", u"FILE:/4"},
         {u"FILE:/1", level, u"FILE:/2", u"FILE:/3"},
         0},
        {{u"FILE:/1", level, u"FILE:/1", level}, {u"FILE:/1", level}, 0},
        {{u"HTTP:/1", level, u"", u"/1", u"file:/1", u"FILE:"}, {level}, 5},
        {{u"BUILT-IN:", u"BUILT-IN:Nobody", u"BUILT-IN:CSQuickLaunchGlow", u"BUILT-IN:4"}, {}, 4},
        {{u"FILE:%s\\\u00E9\u65E5", u"FILE:a,\"b\""}, {u"FILE:%s\\\u00E9\u65E5", u"FILE:a,\"b\""}, 0},
    };
    for (const auto& [given, kept, warnings] : c_cases) {
        m_factory = {};
        m_warnings.Take();
        CInifile ini;
        ini.SelectSection(CSettingsFactory::c_StorageSection);
        ini.WriteText(u"Foreign", u"stays");
        ini.WriteTexts(u"PlaneCorr", given);
        m_factory.Load(ini);
        m_factory.Save(ini);
        EXPECT_EQ(ini.ReadTexts(u"PlaneCorr"), kept);
        EXPECT_EQ(ini.ReadText(u"Foreign"), u"stays");
        EXPECT_EQ(m_warnings.GetCount(), warnings);
    }
}

TEST_F(SettingsFactory, AVanishedFileIsForgottenWhenTheUserAgrees)
{
    constexpr std::tuple<bool, EMessageBoxAnswer, std::u16string_view, std::u16string_view> c_cases[] = {
        {true, EMessageBoxAnswer::No, u"Do you want the file to be removed from the list?",
         u"Recent{x%s.pln 200}"},
        {true, EMessageBoxAnswer::Yes, u"Do you want the file to be removed from the list?", u""},
        {false, EMessageBoxAnswer::Yes, u"Do you want to refresh the list?", u""},
    };
    for (const auto& [isRecent, answer, question, recent] : c_cases) {
        m_factory = {};
        CSettings set = MakeSet(Path("x%s.pln"), PlaneCorr, 1);
        EXPECT_TRUE(m_factory.SaveSettings(set, isRecent));
        std::filesystem::remove(m_folder.GetPath() / "x%s.pln");
        m_boxes.Prepare(answer);
        EXPECT_TRUE(m_factory.GetSettings(200, true).GetEntryInfo() == SSettingsEntry::s_InvalidID);
        const CStr text =
            u"Unable to load the file \"" + Path("x%s.pln") +
            u"\"\n\nPlease verify that the path and file name are correct, and that you have Read "
            u"access to the file.\n\n" +
            question;
        EXPECT_EQ(m_boxes.GetShown().back(),
                  (SMessageBox{text, MessageBoxStyle::c_yesNo | MessageBoxStyle::c_warning}));
        EXPECT_EQ(Recent(PlaneCorr), recent);
    }
}

TEST_F(SettingsFactory, SavedSetsAreLoadedAgain)
{
    CSettings set = MakeSet(Path("x.flt"), Filter, 5);
    EXPECT_TRUE(m_factory.SaveSettings(set, false));
    EXPECT_TRUE(set.GetEntryInfo() == 200);
    EXPECT_EQ(m_factory.GetSettings(200, false).ReadInt(u"Value", 0), 5);
    EXPECT_EQ(Recent(Filter), u"");
    const CSettings read = m_factory.LoadSettings(Filter, Path("x.flt") + u"\\", true);
    EXPECT_EQ(read.ReadInt(u"Value", 0), 5);
    EXPECT_EQ(read.GetFileName(), Path("x.flt"));
    EXPECT_TRUE(read.GetEntryInfo() == 200);
    EXPECT_EQ(Recent(Filter), u"Recent{x.flt 200}");

    m_folder.Write("x.flt", "; mine\nValue=6\n");
    CSettings again = m_factory.GetSettings(200, false);
    EXPECT_EQ(again.ReadInt(u"Value", 0), 6);
    EXPECT_TRUE(m_factory.SaveSettings(again, false));
    EXPECT_EQ(m_folder.Read("x.flt"), "; mine\nValue=6\n");
}

TEST_F(SettingsFactory, WhatOthersHaveMadeOfAFileIsKept)
{
    const auto listFiles = [this] {
        std::map<std::string, std::string> files;
        for (const auto& file : std::filesystem::directory_iterator(m_folder.GetPath())) {
            std::string name = file.path().filename().string();
            name.resize(name.find("-20") == std::string::npos ? name.size() : name.find("-20")); // the day
            files[name] = m_folder.Read(file.path().filename().string());
        }
        return files;
    };
    using CFiles = std::map<std::string, std::string>;
    m_folder.Write("x.flt", "Value=1\n");
    CSettings set = m_factory.LoadSettings(Filter, Path("x.flt"), false);
    set.WriteInt(u"Value", 2);
    m_folder.Write("x.flt", "Value=3\nOther=1\n");
    EXPECT_TRUE(m_factory.SaveSettings(set, false));
    const CFiles kept{{"x.flt", "Value=2\n"}, {"x.flt.changed", "Value=3\nOther=1\n"}};
    EXPECT_EQ(listFiles(), kept);
    EXPECT_EQ(m_warnings.GetCount(), 1);
    EXPECT_TRUE(m_factory.SaveSettings(set, false));
    EXPECT_EQ(listFiles(), kept) << "nobody has changed it since";

    // One that never was a set, and under another name, which the user has chosen.
    m_folder.Write("y.flt", std::string("\0\1", 2));
    CSettings other = MakeSet(Path("y.flt"), Filter, 4);
    EXPECT_TRUE(m_factory.SaveSettings(other, false));
    EXPECT_EQ(listFiles()["y.flt.damaged"], std::string("\0\1", 2));
    set.SetEntryInfo({Path("y.flt"), Filter});
    EXPECT_TRUE(m_factory.SaveSettings(set, false));
    EXPECT_EQ(listFiles()["y.flt"], "Value=2\n");
    EXPECT_EQ(listFiles().size(), 4U);
}

TEST_F(SettingsFactory, WhatCannotBeSaved)
{
    m_folder.Write("folder/inside", "");
    CSettings builtIn = m_factory.GetSettings(4, false);
    CSettings nowhere = MakeSet({}, Filter, 1);
    CSettings folder = MakeSet(Path("folder"), Filter, 1);
    CSettings noFolder = MakeSet(Path("none/x.flt"), Filter, 1);
    for (CSettings* set : {&builtIn, &nowhere, &folder, &noFolder})
        EXPECT_FALSE(m_factory.SaveSettings(*set, true));
    EXPECT_EQ(m_warnings.GetCount(), 4);
    EXPECT_EQ(Recent(Filter), u"");
    EXPECT_EQ(m_factory.GetNewID(), 200U);
}

TEST_F(SettingsFactory, FilesThatCannotBeLoaded)
{
    m_folder.Write("folder.flt/inside", "");
    m_folder.Write("large.flt", "");
    std::filesystem::resize_file(m_folder.GetPath() / "large.flt", CSettingsFactory::c_maximumFileSize + 1);
    const CStr paths[] = {u"",
                          u"\\",
                          Path("none.flt"),
                          Path("folder.flt"),
                          Path("large.flt"),
                          Path("folder.flt") + u'\0',
                          CStr(1, 0xD800)};
    for (const CStr& path : paths) {
        for (const ESettingType type : {Filter, ColorScale}) {
            m_warnings.Take();
            const CSettings set = m_factory.LoadSettings(type, path, true);
            EXPECT_TRUE(set.GetEntryInfo() == SSettingsEntry::s_InvalidID);
            EXPECT_TRUE(set.GetFileName().IsEmpty());
            EXPECT_EQ(Recent(type), u"");
            EXPECT_EQ(m_warnings.GetCount(), 1);
        }
    }
    EXPECT_EQ(m_factory.GetNewID(), 200U);
    const std::string binary("\xFF\xD8\0\x80\nValue=3\0\n[", 15);
    m_folder.Write("binary.flt", binary);
    CSettings set = m_factory.LoadSettings(Filter, Path("binary.flt"), false);
    EXPECT_TRUE(set.GetEntryInfo() == 201);
    EXPECT_EQ(set.GetBytes(), binary);
}

TEST_F(SettingsFactory, AColorScaleIsReadAgainWhenItsFileHasChanged)
{
    namespace fs = std::filesystem;
    const fs::path file = m_folder.GetPath() / "x.col";
    const auto longAgo = fs::file_time_type::clock::now() - std::chrono::hours(1);
    constexpr std::tuple<const char*, int, int> c_steps[] = {
        {"Value=1", 0, 1},  {"Value=2", 0, 1},  {"Value=3 ", 0, 3}, {"Value=4 ", 1, 4},
        {"Value=5", 90, 5}, {"Value=6", 90, 6}, {"Value=7", 2, 7},  {"Value=8", 2, 7},
    };
    for (const auto& [bytes, minutesLater, value] : c_steps) {
        m_folder.Write("x.col", bytes);
        fs::last_write_time(file, longAgo + std::chrono::minutes(minutesLater));
        CSettings set = m_factory.LoadSettings(ColorScale, Path("x.col"), false);
        EXPECT_EQ(set.ReadInt(u"Value", 0), value);
        EXPECT_EQ(set.GetFileName(), Path("x.col"));
        set.WriteInt(u"Value", 0);
    }
    // Other types are read each time.
    EXPECT_EQ(m_factory.LoadSettings(Filter, Path("x.col"), false).ReadInt(u"Value", 0), 8);
    fs::remove(file);
    EXPECT_TRUE(m_factory.LoadSettings(ColorScale, Path("x.col"), false).GetEntryInfo() == -1);
}

// The time of a file has steps of up to two seconds: a later change may not show in it.
TEST_F(SettingsFactory, AColorScaleThatHasJustChangedIsReadAgainWhateverItsTime)
{
    using CClock = std::filesystem::file_time_type::clock;
    const auto load = [&](const char* bytes, CClock::time_point changed) {
        m_folder.Write("x.col", bytes);
        std::filesystem::last_write_time(m_folder.GetPath() / "x.col", changed);
        return m_factory.LoadSettings(ColorScale, Path("x.col"), false).ReadInt(u"Value", 0);
    };
    CClock::time_point changed;
    do { // again where the machine took so long that the change was no recent one
        changed = CClock::now() - std::chrono::seconds(2);
        EXPECT_EQ(load("Value=1", changed), 1);
    } while (CClock::now() - changed > std::chrono::seconds(3));
    EXPECT_EQ(load("Value=2", changed), 2);
}

TEST_F(SettingsFactory, TheSingletonStartsAnew)
{
    GetSettingsFactory().GetSettings(4, true);
    const auto recent = [] {
        return Text(GetSettingsFactory().GetTree(PlaneCorr, ESettingCategory::Recent));
    };
    EXPECT_EQ(recent(), u"Recent{Global Leveling 4}");
    CloseSettingsFactory();
    EXPECT_EQ(recent(), u"");
    CloseSettingsFactory();
}
