#include "settings/factory/FolderScan.h"
#include "tests/common/FailingAllocation.h"
#include "tests/common/RecordingFileSystem.h"
#include "tests/settings/SettingsFactoryTesting.h"

#ifndef _WIN32
#include <sys/stat.h>
#endif
#include <algorithm>

using namespace CommonUI;
using enum ESettingType;
namespace fs = std::filesystem;

namespace
{

// What lies in a folder called "going" goes when it has been listed, as does the folder.
class CVanishingFolder : public CRecordingFileSystem
{
public:
    void List(const fs::path& folder, const std::function<void(const fs::path&)>& visit) override
    {
        std::vector<fs::path> names;
        CRecordingFileSystem::List(folder, [&](const fs::path& name) { names.push_back(name); });
        if (folder.parent_path().filename() == "going" || folder.filename() == "going")
            fs::remove_all(folder);
        std::ranges::for_each(names, visit);
    }
};

} // namespace

TEST_F(SettingsFactory, TreeOfAllCategories)
{
    EXPECT_EQ(Text(m_factory.GetTree(PnP, true)),
              u"Built-in Settings{Simple Threshold - Pores 197,Simple Threshold - Particles 198}");
    m_folder.Write("Custom Settings/mine.pnps", "");
    m_factory.GetSettings(198, true);
    const CStr others =
        u"Custom Settings{mine.pnps 200},Built-in Settings{Simple Threshold - Pores 197,Simple "
        u"Threshold - Particles 198}";
    EXPECT_EQ(Text(m_factory.GetTree(PnP, true)), u"Recent{Simple Threshold - Particles 198}," + others);
    EXPECT_EQ(m_factory.GetTree(PnP, ESettingCategory::All).size(), 3U);
    EXPECT_EQ(Text(m_factory.GetTree(PnP, false)), others);
    EXPECT_EQ(Text(m_factory.GetTree(PnP, ESettingCategory::Custom)), u"Custom Settings{mine.pnps 200}");
    EXPECT_EQ(m_factory.GetTree(PnP, ESettingCategory::QuickLaunch).size(), 1U);
    EXPECT_TRUE(m_factory.GetTree(PnP, ESettingCategory::Example).empty());
    EXPECT_TRUE(m_factory.GetTree(ZCalibration, true).empty());
    EXPECT_TRUE(m_factory.GetTree(Unknown, true).empty());
    EXPECT_EQ(m_warnings.GetCount(), 0);
}

TEST_F(SettingsFactory, BuiltInSetsStandBelowTheirGroups)
{
    const CStr text = Text(m_factory.GetTree(PlaneCorr, ESettingCategory::QuickLaunch));
    EXPECT_TRUE(text.StartsWith(u"Built-in Settings{Images{Linewise Step Wizard (1st Order) 1,Global Step "));
    EXPECT_NE(text.Find(u" 8,Global Step Wizard (1st Order) 9},Profiles{Level (1st Order) 10,"), CStr::npos);
    EXPECT_TRUE(text.EndsWith(u",Zero Background Offset  21}}"));
}

TEST_F(SettingsFactory, CustomFilesByMask)
{
    for (const char* extension :
         {"batch", "flt", "fflt", "fcs", "pln", "col", "pnps",      "htm", "html", "doc", "docx",
          "docm",  "cpl", "cpz",  "cpu", "crz", "cru", "animation", "irs", "prs",  "txt", "plnx"})
        m_folder.Write((std::string("Custom Settings/x.") + extension).c_str(), "");
    // In the order of the types. Twice: a menu that is built again has the same identifiers.
    for (int i = 0; i < 2; ++i) {
        std::vector<CSettingsFactory::CTree> trees;
        for (const auto& type : GetSettingTypeEnum())
            EXPECT_EQ(m_factory.AddCustomItems(ESettingType{type.GetValue()}, trees), type != 18);
        EXPECT_EQ(Text(trees).Replace(u"Custom Settings", u""),
                  u"{x.batch 200},{x.flt 201},{x.fflt 202},{x.fcs 203},{x.pln 204},{x.col 205},{x.pnps 206},"
                  u"{x.doc 207,x.docm 208,x.docx 209,x.htm 210,x.html 211},{x.cpl 212},{x.cpz 213},"
                  u"{x.cpu 214},{x.crz 215},{x.cru 216},{x.animation 217},{x.prs 218},{x.irs 219}");
    }
    std::vector<CSettingsFactory::CTree> trees;
    for (const ESettingType type : {ESettingType{14}, ESettingType{-1}})
        EXPECT_FALSE(m_factory.AddCustomItems(type, trees));
    EXPECT_TRUE(m_factory.AddExampleItems(PlaneCorr, trees));
    EXPECT_TRUE(m_factory.AddRecentItems(PlaneCorr, trees));
    EXPECT_TRUE(m_factory.AddQuickLaunchItems(ZCalibration, trees));
    EXPECT_TRUE(trees.empty());
}

TEST_F(SettingsFactory, FilesOfAFolderByName)
{
    for (const char8_t* name :
         {u8"Set 10.flt", u8"set 9.FLT", u8"Set 009.flt", u8"b/1.flt", u8"B2/c/x.flt", u8"a.flt.txt",
          u8"empty/none", u8"\u00C9t\u00E9.flt", u8"\u65E5\u672C.flt", u8"x.flt/y.Flt"})
        m_folder.Write(name, "not to be read");
    const CStr folder = Path();
    const CStr expected = u"b{1.flt 200},B2{c{x.flt 201}},x.flt{y.Flt 202},Set 009.flt 203,set 9.FLT 204,"
                          u"Set 10.flt 205,\u00C9t\u00E9.flt 206,\u65E5\u672C.flt 207";
    EXPECT_EQ(Text(m_factory.GetTree(Filter, folder, u"*.flt")), expected);
    EXPECT_EQ(Text(m_factory.GetTree(Filter, folder.Left(folder.GetLength() - 1), u"*.flt")), expected);
    EXPECT_EQ(m_factory.GetSettings(201, false).GetFileName(), Path("B2/c/x.flt"));

    constexpr std::pair<std::u16string_view, std::u16string_view> c_cases[] = {
        {u"*.txt|NONE", u"empty{none 0},a.flt.txt 0"},
        {u"?t?.flt", u"\u00C9t\u00E9.flt 0"},
        {u"\u00E9*", u"\u00C9t\u00E9.flt 0"},
        {u"s*1*.flt", u"Set 10.flt 0"},
        {u"n*.*", u""},
        {u"", u""},
    };
    for (const auto& [masks, found] : c_cases) {
        CStr names = Text(m_factory.GetTree(Filter, folder, masks));
        for (int id = 200; id < 220; ++id)
            names = names.Replace(CStr::Format(u" %d", id), u" 0");
        EXPECT_EQ(names, found);
    }
    EXPECT_EQ(m_factory.GetTree(Filter, Path("empty"), u"*.*").size(), 1U);
    for (const CStr& none : {Path("nobody"), Path("a.flt.txt"), CStr(), CStr(1, 0xDC00)})
        EXPECT_TRUE(m_factory.GetTree(Filter, none, u"*.*").empty());
}

#if defined(_WIN32)
TEST_F(SettingsFactory, FoldersOfEveryRootAreLookedInto)
{
    m_folder.Write("b/1.flt", "");
    const CStr folder = Path();
    // Of the local computer, by the name of the network, too, where it is on offer.
    std::vector<CStr> roots{u"\\\\?\\" + folder};
    const CStr share = u"\\\\localhost\\" + folder.Replace(u":", u"$");
    if (fs::exists(fs::path(share.begin(), share.end())))
        roots.push_back(share);
    for (const CStr& root : roots)
        EXPECT_EQ(m_factory.GetTree(Filter, root, u"*.flt").size(), 1U) << root.ToUtf8();
    EXPECT_EQ(m_warnings.GetCount(), 0);
}
#endif

#if !defined(_WIN32) // its standard library makes no links
TEST_F(SettingsFactory, LinksAreFollowedOnce)
{
    m_folder.Write("a/x.flt", "");
    m_folder.Write("elsewhere.txt", "");
    fs::create_directory_symlink(m_folder.GetPath(), m_folder.GetPath() / "a/up");
    fs::create_directory_symlink("a", m_folder.GetPath() / "b");
    fs::create_directory_symlink("loop", m_folder.GetPath() / "loop");
    fs::create_symlink("../elsewhere.txt", m_folder.GetPath() / "a/link.flt");
    fs::create_symlink("nowhere", m_folder.GetPath() / "a/broken.flt");
    EXPECT_EQ(Text(m_factory.GetTree(Filter, Path(), u"*.flt")), u"a{link.flt 200,x.flt 201}");
}
#endif

TEST_F(SettingsFactory, FoldersNestedWithoutEndAreLeftOutWithAWarning)
{
    std::string name = "x.flt";
    for (int depth = 0; depth < 100; ++depth)
        name = "d/" + name;
    m_folder.Write(name.c_str(), "");
    EXPECT_EQ(m_factory.GetTree(Filter, Path(), u"*.flt").size(), 1U);
    EXPECT_EQ(m_warnings.GetCount(), 0);
    m_folder.Write(("e/" + name).c_str(), "");
    EXPECT_EQ(m_factory.GetTree(Filter, Path("e"), u"*.flt").size(), 1U);
    EXPECT_EQ(m_factory.GetTree(Filter, Path(), u"*.flt").size(), 1U);
    EXPECT_EQ(m_warnings.GetCount(), 1);
}

#if defined(__linux__)
TEST_F(SettingsFactory, NamesThatAreNoTextAreLeftOutWithAWarning)
{
    m_folder.Write("good.flt", "");
    for (const char* name : {"bad\xFF.flt", "bad\xED\xA0\x80.flt", "\xC3/x.flt", "bad\xFF.txt"})
        m_folder.Write(name, "");
    EXPECT_EQ(Text(m_factory.GetTree(Filter, Path(), u"*.flt")), u"good.flt 200");
    EXPECT_EQ(m_warnings.GetCount(), 3);
}
#endif

TEST_F(SettingsFactory, RecentSetsFollowTheirFiles)
{
    for (const char* const name : {"a.flt", "b.flt", "c.flt"})
        m_factory.OnFileMoved(Filter, Path(name), {});
    m_factory.OnFileMoved(Filter, Path("a.flt"), Path("b.flt"));
    EXPECT_EQ(Recent(Filter), u"") << "what is in no list enters none";
    for (const char* const name : {"c.flt", "b.flt", "a.flt"}) {
        m_folder.Write(name, "");
        m_factory.LoadSettings(Filter, Path(name), true);
    }
    m_factory.OnFileMoved(Filter, Path("b.flt"), Path("B.flt"));
    EXPECT_EQ(Recent(Filter), u"Recent{a.flt 200,B.flt 203,c.flt 202}");
    m_factory.OnFileMoved(Filter, Path("a.flt"), Path("c.flt"));
    EXPECT_EQ(Recent(Filter), u"Recent{c.flt 202,B.flt 203}");
    m_factory.OnFileMoved(Filter, Path("c.flt"), Path("c.flt"));
    m_factory.OnFileMoved(Filter, Path("B.flt"), {});
    EXPECT_EQ(Recent(Filter), u"Recent{c.flt 202}");
    EXPECT_EQ(m_factory.GetFileID(Filter, Path("c.flt")), 202);
}

TEST_F(SettingsFactory, FoldersThatVanishWhileTheyAreListed)
{
    for (const char* name : {"a.flt", "going/b.flt", "going/below/c.flt", "other/d.flt"})
        m_folder.Write(std::string("Custom Settings/") + name, "");
    CVanishingFolder system;
    const CFileSystemScope scope(system);
    EXPECT_EQ(Text(m_factory.GetTree(Filter, ESettingCategory::Custom)),
              u"Custom Settings{other{d.flt 200},a.flt 201}");
    EXPECT_EQ(system.lists, 3);
}

TEST_F(SettingsFactory, FoldersAreListedWithoutMemory)
{
    for (const char* name : {"a.flt", "folder with a long name/b.flt"})
        m_folder.Write(std::string("Custom Settings/") + name, "");
    std::size_t found = 0;
    for (CEachAllocation each; each.Next();) {
        found = 0;
        each.Try([&] {
            FindFilesBelow(Path("Custom Settings"), u"*.flt", [&](const SFoundFolder& folder) {
                found += folder.files.size();
                return true;
            });
        });
    }
    EXPECT_EQ(found, 2U);
}

#ifndef _WIN32
// Nobody writes to it: who opened it would wait for ever.
TEST_F(SettingsFactory, APipeAmongTheFilesIsNoSet)
{
    m_folder.Write("Custom Settings/a.flt", "[A]\na=1");
    ASSERT_EQ(::mkfifo((m_folder.GetPath() / "Custom Settings/pipe.flt").c_str(), 0600), 0);
    EXPECT_EQ(Text(m_factory.GetTree(Filter, ESettingCategory::Custom)), u"Custom Settings{a.flt 200}");
    const CSettings set = m_factory.LoadSettings(Filter, Path("Custom Settings/pipe.flt"), true);
    EXPECT_TRUE(set.GetEntryInfo() == SSettingsEntry::s_InvalidID);
}
#endif
