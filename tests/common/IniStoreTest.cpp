#include "common/ini/IniStore.h"
#include "common/file/FileLock.h"
#include "common/file/KeptFile.h"
#include "tests/common/FailingAllocation.h"
#include "tests/common/InifileTesting.h"
#include "tests/common/PowerCuts.h"
#include "tests/common/RecordingFileSystem.h"
#include "tests/FullDisk.h"
#include "tests/TemporaryFolder.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <memory>

using namespace CommonUI;
namespace fs = std::filesystem;
using EFound = SStoreAccount::EFound;

namespace
{

const std::string c_whole = "[A]\na=1\n[B]\nb=2\n[FileFormat]\nVersion=1\n";
const std::string c_backup = "~file.ini.backup";

class IniStore : public testing::Test
{
protected:
    CStr Name() const { return (m_folder.GetPath() / "file.ini").u16string(); }
    std::string Read(const std::string& name = "file.ini") const { return m_folder.Read(name); }
    CPowerCuts::CFolder ReadAll() const
    {
        CPowerCuts::CFolder files;
        for (const auto& entry : fs::directory_iterator(m_folder.GetPath()))
            files[entry.path().filename().string()] = Read(entry.path().filename().string());
        return files;
    }
    void WriteAll(const CPowerCuts::CFolder& files) const
    {
        for (const auto& entry : fs::directory_iterator(m_folder.GetPath()))
            fs::remove(entry);
        for (const auto& [name, content] : files)
            m_folder.Write(name, content);
    }
    // What is kept of a damaged file; empty for nothing.
    std::string ReadAside() const
    {
        for (const auto& [name, content] : ReadAll()) {
            if (name.starts_with("file.ini.damaged-20"))
                return content;
        }
        return {};
    }

    CTemporaryFolder m_folder;
    CDiagnosticsCapture m_diagnostics;
};

} // namespace

TEST_F(IniStore, WhatIsDamagedIsPutAsideAndTheBackupTaken)
{
    const std::string unversioned = "[A]\na=1\n[B]\nb=2\n";
    const struct {
        std::string bytes;
        std::string backup;
        const char16_t* reason; // empty for what is not damaged
        bool isRefusedAlone;    // also where there is no backup
    } rows[] = {
        {std::string("a=1\0\0\0", 6), c_whole, u"it is no text", true},
        {std::string("\xFF\xFE\0\0a\0", 6), c_whole, u"it is no text", true},
        {"\x7F"
         "ELF\x02\x01\xFF",
         c_whole, u"it is no text", true},
        {"\xEF\xBB\xBF[A]\na=\xE4\n", c_whole, u"it is not in the encoding", true},
        {std::string("\xFF\xFE[\0A\0]\0\n\0a", 11), c_whole, u"it is cut off in line 1", true},
        {"[A]\na=1\n[B", c_whole, u"it is cut off in line 3", true},
        {"[A]\na=1\n[B]\nb", c_whole, u"it is cut off in line 4", true},
        {"[A]\na=1\n[B]\nb=", c_whole, u"it is cut off in line 4", false},
        {"[A]\na=other", c_whole, u"it is cut off in line 2", false},
        {"[A]\na=2\n", c_whole, u"it is cut off in line 2", false},
        {"[A]\na=1\n[B]\nb=2\n[FileFormat]\nVersion=", c_whole, u"it is cut off in line 6", false},
        {"", c_whole, u"it is cut off in line 0", false},
        {"[A]\na=1\n[B]\nb=2\nc=3", c_whole, u"it is cut off in line 5", false},
        // Something was saved behind the backup's age, and a part of it lost.
        {"[A]\na=1\n[B]\nb=2\n[C]\nc=3\n", c_whole, u"it is cut off in line 6", false},
        {"[A]\n[B]\nb=3\n[FileFormat]\nVersion=", c_whole, u"it is cut off in line 5", false},
        {"[B]\nb=3\n[A]\na=", "[B]\nb=2\n[A]\na=12\n", u"it is cut off in line 4", false},
        // What people and other programs do.
        {unversioned, c_whole, u"", false},
        {"[A]\n[B]\nb=2\n", c_whole, u"", false},
        {"[C]\nc=1", c_whole, u"", false},
        {"[A]\na=1\n[B]\nb=2\n[FileFormat]\nVersion=1", c_whole, u"", false},
        {c_whole + "[D]\n", c_whole + "[D]\nd=1\n", u"", false},
        {c_whole + "[C]\nc=3", c_whole, u"", false},
        {"[A]\na=1\n[B]\n", unversioned, u"", false},
        {"[A]\n[B]\nb=2", c_whole, u"", false},
        {"a=1", "a=1\nb=2", u"", false},
        {"x=\xE4\n" + c_whole, c_whole, u"", false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.bytes);
        const bool isDamaged = *row.reason;
        WriteAll({{"file.ini", row.bytes}, {c_backup, row.backup}});
        CIniStore store(Name());
        EXPECT_TRUE(store.Load());
        EXPECT_EQ(store.GetInifile().GetBytes(), isDamaged ? row.backup : row.bytes);
        EXPECT_EQ(Read(), isDamaged ? row.backup : row.bytes);
        EXPECT_EQ(Read(c_backup), Read());
        EXPECT_EQ(ReadAside(), isDamaged ? row.bytes : "");
        EXPECT_EQ(ReadAll().size(), isDamaged ? 3u : 2u);
        const SStoreAccount& account = store.GetAccount();
        EXPECT_EQ(account.found, isDamaged ? EFound::Damaged : EFound::Whole);
        EXPECT_TRUE(account.reason.StartsWith(row.reason)) << account.reason.ToUtf8();
        EXPECT_EQ(account.GetSentences().size(), isDamaged ? 1u : 0u);
        EXPECT_EQ(m_diagnostics.Take().size(), isDamaged ? 1u : 0u);

        WriteAll({{"file.ini", row.bytes}});
        EXPECT_EQ(store.Load(), !row.isRefusedAlone);
        store.GetInifile().WriteInt(u"k", 1);
        EXPECT_EQ(store.Save(), !row.isRefusedAlone);
        EXPECT_EQ(Read() == row.bytes, row.isRefusedAlone);
        EXPECT_EQ(ReadAside(), "");
        m_diagnostics.Take();
    }
}

TEST_F(IniStore, TellsInASentence)
{
    WriteAll({{"file.ini", "[A"}, {c_backup, c_whole}});
    CIniStore store(Name());
    EXPECT_TRUE(store.Load());
    EXPECT_EQ(store.GetAccount().GetSentences().front(),
              u"\"" + Name() +
                  u"\" is damaged: it is cut off in line 1. Its last whole version has taken its "
                  u"place; the damaged file is now \"" +
                  store.GetAccount().keptAs + u"\".");
    EXPECT_EQ(CStr(fs::path(store.GetAccount().keptAs.ToUtf8()).parent_path().u16string()),
              CStr(m_folder.GetPath().u16string()));
    // Nothing of what was put aside is overwritten.
    m_folder.Write("file.ini", "[B");
    EXPECT_TRUE(store.Load());
    EXPECT_TRUE(store.GetAccount().keptAs.EndsWith(u"-2"));
    m_folder.Write("file.ini", "[A");
    EXPECT_TRUE(store.Load());
    EXPECT_FALSE(store.GetAccount().keptAs.EndsWith(u"-2"));
    EXPECT_EQ(ReadAll().size(), 4u);

    WriteAll({{"file.ini", "[A"}, {c_backup, "[B"}});
    EXPECT_FALSE(store.Load());
    EXPECT_TRUE(store.GetAccount().GetSentences().front().Find(u"There is no whole version") != CStr::npos);
    fs::remove(m_folder.GetPath() / "file.ini");
    fs::create_directory(m_folder.GetPath() / "file.ini");
    EXPECT_FALSE(store.Load());
    EXPECT_EQ(store.GetAccount().found, EFound::Unreadable);
    EXPECT_TRUE(store.GetAccount().GetSentences().front().Find(u"cannot be loaded: ") != CStr::npos);
    EXPECT_FALSE(store.Save());
    fs::remove(m_folder.GetPath() / "file.ini");
    EXPECT_TRUE(store.Load()) << "no file is no fault";
    EXPECT_TRUE(store.GetAccount().GetSentences().empty());
}

TEST_F(IniStore, WhatIsDamagedLaterIsPutAsideByTheSave)
{
    WriteAll({{"file.ini", c_whole}});
    CIniStore store(Name());
    ASSERT_TRUE(store.Load());
    store.GetInifile().WriteInt(u"k", 1);
    EXPECT_TRUE(store.Save());
    EXPECT_FALSE(store.GetAccount().hasOthers);
    store.GetInifile().WriteInt(u"l", 2);
    m_folder.Write("file.ini", "k=1\nl");
    EXPECT_TRUE(store.Save());
    EXPECT_EQ(Read(), "k=1\nl=2\n" + c_whole) << "the first save is not lost with the backup's age";
    EXPECT_EQ(ReadAside(), "k=1\nl");
    EXPECT_EQ(store.GetAccount().found, EFound::Damaged);
}

TEST_F(IniStore, WhatIsDamagedLaterLosesNothingThatOthersHaveSaved)
{
    WriteAll({{"file.ini", c_whole}});
    CIniStore store(Name());
    CIniStore other(Name());
    ASSERT_TRUE(store.Load() && other.Load());
    other.GetInifile().WriteInt(u"k", 1);
    ASSERT_TRUE(other.Save() && other.Load());
    m_folder.Write("file.ini", "k=1\nl");
    store.GetInifile().WriteInt(u"l", 2);
    EXPECT_TRUE(store.Save());
    EXPECT_EQ(Read(), "k=1\nl=2\n" + c_whole);
}

TEST_F(IniStore, NothingOlderTakesTheBackupsPlace)
{
    struct CSlowLoad : CRecordingFileSystem {
        std::function<void()> meanwhile;
        std::optional<CFile> TryLock(const fs::path& path, std::string_view holder) override
        {
            meanwhile();
            return CRecordingFileSystem::TryLock(path, holder);
        }
    } system;
    const CFileSystemScope scope(system);
    for (const bool isTaken : {false, true}) {
        WriteAll({{"file.ini", "k=1\n"}, {c_backup, "k=0\n"}});
        system.meanwhile = [] {};
        const auto lock = isTaken ? std::make_unique<CFileLock>(Name()) : nullptr;
        system.meanwhile = [&] {
            m_folder.Write("file.ini", "k=2\n");
            m_folder.Write(c_backup, "k=2\n");
        };
        CIniStore store(Name());
        EXPECT_TRUE(store.Load() && store.GetAccount().GetSentences().empty());
        EXPECT_EQ(store.GetInifile().ReadInt(u"k", 0), 1);
        EXPECT_EQ(Read(c_backup), "k=2\n");
    }
}

TEST_F(IniStore, VersionsGoUpAndNeverDown)
{
    SStoreSchema schema{.version = 3, .steps = {}};
    schema.steps = {[](CInifile& ini) { ini.WriteInt(u"b", ini.ReadInt(u"a", 0)); },
                    {},
                    [](CInifile& ini) { ini.WriteInt(u"b", 10 * ini.ReadInt(u"b", 0)); }};
    const struct {
        const char* before;
        const char* after;
        const char* kept; // the name's end; empty for nothing
        int sentences;
    } rows[] = {
        {"a=1\n", "a=1\nb=10\nk=1\n[FileFormat]\nVersion=3\n", "version-0", 1},
        {"b=2\n[FileFormat]\nVersion=1\n", "b=20\nk=1\n[FileFormat]\nVersion=3\n", "version-1", 1},
        {"", "b=0\nk=1\n[FileFormat]\nVersion=3\n", "", 0},
        {"b=2\n[FileFormat]\nVersion=3\n", "b=2\nk=1\n[FileFormat]\nVersion=3\n", "", 0},
        {"b=2\n[FileFormat]\nVersion=4\nnew=5\n", "b=2\nk=1\n[FileFormat]\nVersion=4\nnew=5\n", "", 1},
        {"a=1\n[FileFormat]\nVersion=x\n", "a=1\nb=10\nk=1\n[FileFormat]\nVersion=3\n", "version-0", 1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.before);
        WriteAll({{"file.ini", row.before}});
        CIniStore store(Name(), schema);
        EXPECT_TRUE(store.Load());
        EXPECT_EQ(Read(), row.before);
        store.GetInifile().WriteInt(u"k", 1);
        EXPECT_TRUE(store.Save());
        EXPECT_EQ(Read(), row.after);
        EXPECT_EQ(Read(c_backup), row.before);
        EXPECT_EQ(ReadAll().size(), *row.kept ? 3u : 2u);
        if (*row.kept) {
            EXPECT_EQ(Read(std::string("file.ini.") + row.kept), row.before);
        }
        EXPECT_EQ(store.GetAccount().GetSentences().size(), static_cast<std::size_t>(row.sentences));
        EXPECT_TRUE(store.Load());
        EXPECT_EQ(store.GetInifile().GetBytes(), row.after) << "nothing is done twice";
    }
}

// Or else who cuts off what stands behind it would not be noticed.
TEST_F(IniStore, TheVersionIsTheLastThing)
{
    const std::string version = "[FileFormat]\n# which\nVersion=1\n";
    for (const bool isMerged : {false, true}) {
        WriteAll({{"file.ini", "a=1\n" + version + "# of B\n[B]\nb=2"}});
        CIniStore store(Name());
        ASSERT_TRUE(store.Load());
        store.GetInifile().SelectSection(u"C");
        store.GetInifile().WriteInt(u"c", 3);
        if (isMerged)
            m_folder.Write("file.ini", "a=2\n" + version + "# of B\n[B]\nb=2\n");
        EXPECT_TRUE(store.Save());
        const std::string whole =
            std::string(isMerged ? "a=2" : "a=1") + "\n# of B\n[B]\nb=2\n[C]\nc=3\n" + version;
        EXPECT_EQ(Read(), whole);
        store.GetInifile().WriteInt(u"d", 4);
        EXPECT_TRUE(store.Save() && store.Load() && store.GetInifile().ReadInt(u"d", 0) == 4);
        m_folder.Write("file.ini", Read().substr(0, Read().find("d=4")));
        EXPECT_TRUE(store.Load());
        EXPECT_EQ(store.GetAccount().found, EFound::Damaged);
    }
}

TEST_F(IniStore, AnotherProgramBringsItToAVersionMeanwhile)
{
    const struct {
        const char* theirs;
        const char* after; // what the file holds then
    } rows[] = {
        {"a=1\nb=5\n", "a=2\nb=5\n[FileFormat]\nVersion=1\n"},
        {"a=1\n[FileFormat]\nVersion=1\n", "a=2\n[FileFormat]\nVersion=1\n"},
        {"a=1\n[FileFormat]\nVersion=2\n", "a=1\n[FileFormat]\nVersion=2\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.theirs);
        WriteAll({{"file.ini", "a=1\n"}});
        CIniStore store(Name());
        ASSERT_TRUE(store.Load());
        m_folder.Write("file.ini", row.theirs);
        store.GetInifile().WriteInt(u"a", 2);
        const bool isSaved = store.Save();
        EXPECT_EQ(isSaved, Read() != row.theirs);
        EXPECT_EQ(store.GetAccount().hasOthers, isSaved);
        EXPECT_EQ(Read(), row.after);
        m_folder.Write("file.ini", "a=1\n[FileFormat]\nVersion=9\n");
        EXPECT_FALSE(store.Save() || store.GetAccount().hasOthers);
    }
}

// At every moment the file is whole or what it was, what was damaged is kept, and the next start finds it.
TEST_F(IniStore, PowerCutsLeaveTheOldOrTheNew)
{
    const std::string changed = "k=1\n" + c_whole;
    const struct {
        std::string before;
        bool isSaved;
        std::string after;
    } rows[] = {
        {c_whole, false, c_whole},
        {c_whole, true, changed},
        {"[A]\na=1\n[B]\nb=2\n", true, "k=1\n" + c_whole},
        {"[A]\na=1\n[", false, c_whole},
        {"[A]\na=1\n[", true, changed},
    };
    for (const bool hasLinks : {true, false}) {
        for (const auto& row : rows) {
            SCOPED_TRACE(row.before);
            WriteAll({{"file.ini", row.before}, {c_backup, c_whole}});
            CPowerCuts cuts(ReadAll());
            cuts.hasLinks = hasLinks;
            {
                const CFileSystemScope scope(cuts);
                CIniStore store(Name());
                ASSERT_TRUE(store.Load());
                store.GetInifile().WriteInt(u"k", 1);
                EXPECT_TRUE(!row.isSaved || store.Save());
            }
            EXPECT_EQ(Read(), row.after);
            for (std::size_t step = 0; step <= cuts.CountSteps(); ++step) {
                for (std::size_t quarters = 0; quarters <= 4; quarters += 2) {
                    SCOPED_TRACE(testing::Message() << step << " " << quarters);
                    WriteAll(cuts.CutBehind(step, quarters));
                    const std::string found = Read();
                    EXPECT_TRUE(found == row.before || found == c_whole || found == row.after) << found;
                    EXPECT_TRUE(row.before != "[A]\na=1\n[" || found == row.before ||
                                ReadAside() == row.before);
                    CIniStore next(Name());
                    EXPECT_TRUE(next.Load());
                    EXPECT_EQ(next.GetInifile().ReadInt(u"k", 0), found == changed ? 1 : 0);
                }
            }
        }
    }
}

TEST_F(IniStore, EachCallCanFail)
{
    for (const bool hasLinks : {true, false}) {
        for (int call = 1;; ++call) {
            SCOPED_TRACE(call);
            WriteAll({{"file.ini", "[A]\na=1\n["}, {c_backup, "[A]\na=1\n"}});
            CRecordingFileSystem system(call);
            system.hasLinks = hasLinks;
            const CFileSystemScope scope(system);
            CIniStore store(Name());
            const bool isLoaded = store.Load();
            store.GetInifile().WriteInt(u"k", 1);
            const bool isSaved = store.Save();
            EXPECT_TRUE(isLoaded || !isSaved);
            EXPECT_EQ(Read(), isSaved    ? "k=1\n[A]\na=1\n[FileFormat]\nVersion=1\n"
                              : isLoaded ? "[A]\na=1\n"
                                         : "[A]\na=1\n[");
            EXPECT_TRUE(ReadAside() == "[A]\na=1\n[" || (!isLoaded && ReadAside().empty()))
                << "no part of it";
            EXPECT_EQ(Read(c_backup), "[A]\na=1\n");
            for (const auto& [name, content] : ReadAll())
                EXPECT_TRUE(!name.ends_with(".tmp") && !name.ends_with(".lock")) << name;
            EXPECT_TRUE(isSaved || !m_diagnostics.Take().empty());
            if (!system.HasFailed())
                break;
        }
    }
}

TEST_F(IniStore, WithoutMemoryNothingIsLost)
{
    for (CEachAllocation each; each.Next();) {
        SCOPED_TRACE(each.GetNumber());
        WriteAll({{"file.ini", "[A]\na=1\n["}, {c_backup, c_whole}});
        CIniStore store(Name());
        bool isLoaded = false;
        each.Try([&] { isLoaded = store.Load(); });
        EXPECT_TRUE(Read() == c_whole || Read() == "[A]\na=1\n[");
        EXPECT_TRUE(Read() != c_whole || ReadAside() == "[A]\na=1\n[");
        EXPECT_EQ(store.GetInifile().GetBytes(), isLoaded ? c_whole : "");
        m_diagnostics.Take();
    }
}

#if !defined(_WIN32) // whose files have no permissions of this kind
TEST_F(IniStore, WhoMayNotReadTheFileMayNotReadWhatIsKept)
{
    const auto permissionsOf = [&](const std::string& name) {
        return fs::status(m_folder.GetPath() / name).permissions();
    };
    const fs::perms mine = fs::perms::owner_read | fs::perms::owner_write;
    for (const bool hasLinks : {true, false}) {
        WriteAll({{"file.ini", "a=1\n"}});
        fs::permissions(m_folder.GetPath() / "file.ini", mine);
        CRecordingFileSystem system;
        system.hasLinks = hasLinks;
        const CFileSystemScope scope(system);
        CIniStore store(Name());
        EXPECT_TRUE(store.Load() && store.Save());
        EXPECT_EQ(permissionsOf(c_backup), mine);
        EXPECT_EQ(permissionsOf("file.ini.version-0"), mine);
    }
}
#endif

#if !defined(_WIN32) // where the C++ library makes no links
TEST_F(IniStore, LinksLeadToTheFile)
{
    fs::create_directory(m_folder.GetPath() / "elsewhere");
    fs::create_symlink("elsewhere/real.ini", m_folder.GetPath() / "file.ini");
    CIniStore store(Name());
    EXPECT_TRUE(store.Load()) << "there is nothing yet";
    store.GetInifile().WriteInt(u"k", 1);
    EXPECT_TRUE(store.Save() && store.Load());
    EXPECT_EQ(Read("elsewhere/~real.ini.backup"), "k=1\n[FileFormat]\nVersion=1\n");
    m_folder.Write("elsewhere/real.ini", "k");
    EXPECT_TRUE(store.Load());
    EXPECT_EQ(Read("elsewhere/real.ini"), "k=1\n[FileFormat]\nVersion=1\n");
    EXPECT_TRUE(fs::is_symlink(m_folder.GetPath() / "file.ini"));
    EXPECT_TRUE(store.GetAccount().keptAs.Find(u"elsewhere") != CStr::npos);
}
#endif

TEST_F(IniStore, LongNamesHaveBackupsOfTheirOwn)
{
    const std::string name(255, 'n');
    std::string other = name;
    other.back() = 'o';
    m_folder.Write(name, c_whole);
    m_folder.Write(other, "[O]\no=1\n");
    const auto nameOf = [&](const std::string& file) {
        return CStr((m_folder.GetPath() / file).u16string());
    };
    CIniStore store(nameOf(name));
    CIniStore second(nameOf(other));
    EXPECT_TRUE(store.Load() && second.Load());
    EXPECT_EQ(ReadAll().size(), 4u) << "each has a backup of its own";
    m_folder.Write(name, "[A");
    EXPECT_TRUE(store.Load());
    EXPECT_EQ(Read(name), c_whole);
    EXPECT_EQ(ReadAll().size(), 5u);
}

#if !defined(_WIN32) // which has no limit for the size of files
TEST_F(IniStore, FullDiskKeepsFileAndBackup)
{
    WriteAll({{"file.ini", c_whole}, {c_backup, "[B]\n"}});
    {
        const CFullDisk disk(4);
        CIniStore full(Name());
        EXPECT_TRUE(full.Load());
        EXPECT_FALSE(full.GetAccount().noBackup.IsEmpty());
        full.GetInifile().WriteInt(u"k", 1);
        EXPECT_FALSE(full.Save());
    }
    EXPECT_EQ(Read(), c_whole);
    EXPECT_EQ(Read(c_backup), "[B]\n");
    EXPECT_EQ(ReadAll().size(), 2u);
}
#endif
