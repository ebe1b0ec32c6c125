#include "common/ini/SectionScope.h"
#include "tests/common/FailingAllocation.h"
#include "tests/common/InifileTesting.h"
#include "tests/common/RecordingFileSystem.h"
#include "tests/FullDisk.h"
#include "tests/TemporaryFolder.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <vector>

using namespace CommonUI;
namespace fs = std::filesystem;

namespace
{

// A folder of its own for each test.
class InifileFile : public testing::Test
{
protected:
    fs::path PathOf(const std::string& name) const { return m_folder.GetPath() / name; }
    CStr NameOf(const std::string& name) const { return PathOf(name).u16string(); }
    std::size_t CountFiles() const
    {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(m_folder.GetPath()), {}));
    }

    CTemporaryFolder m_folder;
};

} // namespace

TEST_F(InifileFile, LoadsChangesAndSaves)
{
    m_folder.Write("a \xC3\xA4.ini", "[A]\r\nk=1\r\n");
    CInifile ini;
    ini.SelectSection(u"A");
    ASSERT_TRUE(ini.Load(NameOf("a \xC3\xA4.ini")));
    EXPECT_EQ(ini.ReadInt(u"k", 0), 1);
    ini.WriteInt(u"k", 2);
    EXPECT_TRUE(ini.Save() && ini.SaveCopy(NameOf("new.ini")));
    for (const char* name : {"a \xC3\xA4.ini", "new.ini"})
        EXPECT_EQ(m_folder.Read(name), "[A]\r\nk=2\r\n");
    EXPECT_EQ(CountFiles(), 2u);

    CInifile copy;
    ASSERT_TRUE(copy.LoadCopy(NameOf("new.ini")));
    EXPECT_TRUE(copy.GetFileName().IsEmpty());
    EXPECT_EQ(copy.GetBytes(), ini.GetBytes());
}

TEST_F(InifileFile, WhatCannotBeLoadedLeavesAnEmptyDocument)
{
    m_folder.Write("file", "k=1");
    std::vector<CStr> names{CStr(),
                            NameOf("missing"),
                            NameOf("file/below"),
                            NameOf(""),
                            CStr(u"/dev/null"),
                            CStr(u"\xD800"),
                            NameOf(std::string("file\0x", 6))};
#if defined(_WIN32)
    names.insert(names.end(), {CStr(u"CON"), NameOf("nul.ini"), NameOf("file."), NameOf("file ")});
#endif
    for (const CStr& name : names) {
        const CDiagnosticsCapture diagnostics;
        CInifile ini = IniOf("k=1");
        EXPECT_FALSE(ini.Load(name)) << name.ToUtf8();
        EXPECT_EQ(std::tuple(ini.GetBytes(), ini.GetFileName()), std::tuple("", name));
        EXPECT_EQ(diagnostics.GetCount(), 1);
    }
}

TEST_F(InifileFile, WhatCannotBeSavedIsToldAndLeavesNothing)
{
    m_folder.Write("file", "k=1");
    m_folder.Write("protected", "k=1");
    fs::permissions(PathOf("protected"), fs::perms::owner_read);
    std::vector<CStr> names{CStr(),
                            NameOf("missing/x.ini"),
                            NameOf("file/below"),
                            CStr(m_folder.GetPath().u16string()),
                            NameOf("protected"),
                            CStr(u"/dev/null"),
                            CStr(u"\xD800"),
                            NameOf(std::string("file\0x", 6))};
#if !defined(_WIN32) // where the library makes no links
    fs::create_symlink("loop", PathOf("loop"));
    names.push_back(NameOf("loop"));
#else
    for (const std::string& name :
         {std::string("x.ini:part"), std::string(300, 'x'), std::string("NUL"), std::string("Aux.ini"),
          std::string("com1 .txt"), std::string("file."), std::string("file  "), std::string("data./x"),
          std::string("data /x"), std::string("nul/x"), std::string("data:part/x")})
        names.push_back(NameOf(name));
    fs::create_directory(PathOf("data"));
    names.insert(names.end(),
                 {CStr(u"CON"), CStr(u"C:x.ini"), CStr(u"\\\\.\\C:\\x.ini"), CStr(u"\\\\?\\C:x.ini")});
#endif
    const std::size_t count = CountFiles();
    for (const CStr& name : names) {
        CDiagnosticsCapture diagnostics;
        EXPECT_FALSE(IniOf("k=2").SaveCopy(name)) << name.ToUtf8();
        ASSERT_EQ(diagnostics.GetCount(), 1) << name.ToUtf8();
        const CStr line = diagnostics.Take()[0];
        EXPECT_TRUE(name.IsEmpty() || line.Find(name) == line.ReverseFind(name)) << line.ToUtf8();
    }
    EXPECT_TRUE(m_folder.Read("file") == "k=1" && m_folder.Read("protected") == "k=1" &&
                CountFiles() == count);
}

#if !defined(_WIN32) // which has no limit for the size of files
TEST_F(InifileFile, FullDiskKeepsTheOldFile)
{
    m_folder.Write("a.ini", "k=1");
    // Less and more than a stream holds back before it writes.
    for (const std::size_t size : {200u, 1000000u}) {
        CInifile ini;
        ini.SetFileName(NameOf("a.ini"));
        ini.WriteText(u"k", CStr(size, u'x'));
        const CDiagnosticsCapture diagnostics;
        {
            const CFullDisk disk(100);
            EXPECT_FALSE(ini.Save());
        }
        EXPECT_EQ(diagnostics.GetCount(), 1);
        EXPECT_EQ(m_folder.Read("a.ini"), "k=1");
        EXPECT_EQ(CountFiles(), 1u);
    }
}
#endif

#if !defined(_WIN32) // whose files have no permissions of this kind
TEST_F(InifileFile, LinksAndPermissionsStay)
{
    m_folder.Write("data/real.ini", "k=1");
    const fs::perms permissions = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read;
    fs::permissions(PathOf("data/real.ini"), permissions);
    fs::create_symlink("data/real.ini", PathOf("near.ini"));
    fs::create_symlink(PathOf("near.ini"), PathOf("link.ini"));
    fs::create_symlink("data/new.ini", PathOf("dangling.ini"));

    EXPECT_TRUE(IniOf("k=2").SaveCopy(NameOf("link.ini")));
    EXPECT_TRUE(fs::is_symlink(PathOf("link.ini")) && fs::is_symlink(PathOf("near.ini")));
    EXPECT_EQ(m_folder.Read("data/real.ini"), "k=2");
    EXPECT_EQ(fs::status(PathOf("data/real.ini")).permissions(), permissions);
    EXPECT_TRUE(IniOf("k=3").SaveCopy(NameOf("dangling.ini")) && fs::is_symlink(PathOf("dangling.ini")));
    EXPECT_EQ(m_folder.Read("data/new.ini"), "k=3");
}
#endif

TEST_F(InifileFile, WithoutMemoryNothingIsHalfDone)
{
    const std::string old = "[A]\na=1\n";
    const std::string fresh = "[B]\nb=2\n[A long name of a section]\n\"c\" =3\nd =4\n";
    m_folder.Write("fresh.ini", fresh);
    const CStr freshName = NameOf("fresh.ini");
    const CStr savedName = NameOf("saved.ini");
    const CDiagnosticsCapture diagnostics;
    for (CEachAllocation each; each.Next();) {
        SCOPED_TRACE(each.GetNumber());
        CInifile ini = IniOf(old, u"A long name of a section");
        bool saved = false;
        bool loaded = false;
        each.Try([&] { saved = ini.SaveCopy(savedName); });
        EXPECT_EQ(m_folder.Read("saved.ini"), saved ? old : "");
        each.Try([&] { loaded = ini.Load(freshName); });
        EXPECT_EQ(ini.GetBytes(), loaded ? fresh : "");
        EXPECT_EQ(ini.GetSection(), u"A long name of a section");
        EXPECT_EQ(CountFiles(), saved ? 2u : 1u);
        ini.WriteInt(u"d ", 5);
        EXPECT_EQ(Reloaded(ini).ReadInt(u"d ", 0), 5);
        fs::remove(PathOf("saved.ini"));
    }
}

TEST_F(InifileFile, ASectionScopeEndsWithoutMemory)
{
    const CStr before = u"A long n\u00E4me of a section";
    for (CEachAllocation each; each.Next();) {
        CInifile ini = IniOf("[B]\nb=2\n", before);
        const CStr selected = u"Another l\u00F6ng name of a section";
        each.Try([&] { const CSectionScope scope(ini, selected); });
        EXPECT_EQ(ini.GetSection(), before) << each.GetNumber();
    }
    CInifile ini = IniOf("[B]\nb=2\n", before);
    {
        const CSectionScope scope(ini, u"C");
        const CFailingAllocation failing(1); // of those at the end
    }
    EXPECT_EQ(ini.GetSection(), before);
    {
        const CSectionScope scope(ini, u"C");
        ini = IniOf("[D]\n[E]\n", u"E");
    }
    EXPECT_EQ(ini.GetSection(), before) << "in another document, too";
}

TEST_F(InifileFile, WhatCouldNotBeReadIsNotReplaced)
{
    const std::pair<const char*, std::string> rows[] = {
        {"zeros.ini", std::string("k=1\n\0\n", 6)},
        {"utf16.ini", std::string("k\0=\0001\0", 6)}, // without a mark
        {"noise.ini", "\x80\x01\x9F\xFF"},
    };
    for (const auto& [name, bytes] : rows) {
        m_folder.Write(name, bytes);
        const CDiagnosticsCapture diagnostics;
        CInifile ini;
        EXPECT_FALSE(ini.Load(NameOf(name))) << name;
        ini.WriteInt(u"k", 2);
        EXPECT_FALSE(ini.Save()) << name;
        EXPECT_EQ(m_folder.Read(name), bytes);
        EXPECT_EQ(diagnostics.GetCount(), 2) << name;
        EXPECT_TRUE(ini.SaveCopy(NameOf("other.ini")));
        fs::remove(PathOf(name));
        EXPECT_TRUE(ini.Save()) << "nothing is there any more";
    }
}

TEST_F(InifileFile, RestsOfKilledSavesGo)
{
    // A long name is shortened to what a temporary's may have, but not within a character.
    const std::string longest(232, 'x');
    std::string longName = longest;
    longName += "\u00E4yy";
    const struct SRow {
        std::string name;
        std::string part;

        std::string Rest(const char* digits) const { return "~" + part + "." + digits + ".tmp"; }
        std::string Old() const { return Rest("0123456789abcdef"); }
        std::string Young() const { return Rest("0123456789abcdee"); }
        std::string Ahead() const { return Rest("0123456789abcded"); } // by a clock that is an hour ahead
        std::string Later() const { return Rest("0123456789abcdec"); } // before the clock was set back
        std::vector<std::string> Others() const
        {
            return {"~b" + Old().substr(2), Rest("0123456789abcde"), Rest("0123456789abcdeX")};
        }
    } rows[] = {{"a.ini", "a.ini"}, {longName, longest}};
    const auto now = fs::file_time_type::clock::now();
    const auto age = now - std::chrono::hours(1);
    for (const SRow& row : rows) {
        for (const auto& [file, time] :
             {std::pair(row.Old(), age), std::pair(row.Ahead(), now + std::chrono::hours(1)),
              std::pair(row.Later(), now + std::chrono::hours(1000))}) {
            m_folder.Write(file, "x");
            fs::last_write_time(PathOf(file), time);
        }
        for (const std::string& file : row.Others()) {
            m_folder.Write(file, "x");
            fs::last_write_time(PathOf(file), age);
        }
        m_folder.Write(row.Young(), "x");
    }
    CRecordingFileSystem system;
    const CFileSystemScope scope(system);
    for (const SRow& row : rows) {
        EXPECT_TRUE(IniOf("k=1").SaveCopy(NameOf(row.name)));
        EXPECT_FALSE(fs::exists(PathOf(row.Old()))) << row.name;
        EXPECT_FALSE(fs::exists(PathOf(row.Later()))) << row.name;
        EXPECT_TRUE(fs::exists(PathOf(row.Young()))) << row.name;
        EXPECT_TRUE(fs::exists(PathOf(row.Ahead()))) << row.name;
        for (const std::string& file : row.Others())
            EXPECT_TRUE(fs::exists(PathOf(file))) << file;
    }
    EXPECT_EQ(system.lists, 1) << "folders may be large";
}
