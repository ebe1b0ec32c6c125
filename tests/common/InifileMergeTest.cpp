#include "common/file/FileLock.h"
#include "tests/common/FailingAllocation.h"
#include "tests/common/InifileTesting.h"
#include "tests/common/InterruptedCalls.h"
#include "tests/common/RecordingFileSystem.h"
#include "tests/TemporaryFolder.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <iterator>
#include <thread>

using namespace CommonUI;
namespace fs = std::filesystem;

namespace
{

class InifileMerge : public testing::Test
{
protected:
    fs::path PathOf() const { return m_folder.GetPath() / "file.ini"; }
    CStr Name() const { return PathOf().u16string(); }
    std::string Read() const { return m_folder.Read("file.ini"); }
    std::size_t CountFiles() const
    {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(m_folder.GetPath()), {}));
    }
    // A document of the file, which becomes `ours` in this program and `theirs` in another one.
    CInifile Part(const std::string& base, const std::string& ours, const std::string& theirs) const
    {
        m_folder.Write("file.ini", base);
        CInifile ini;
        EXPECT_TRUE(ini.Load(Name()));
        ini.LoadBytes(ours);
        m_folder.Write("file.ini", theirs);
        return ini;
    }

    CTemporaryFolder m_folder;
};

bool IsList(std::u16string_view section)
{
    return section == u"List";
}

} // namespace

TEST_F(InifileMerge, OursWinsWhereBothHaveChanged)
{
    const struct {
        const char* base;
        const char* ours;
        const char* theirs;
        const char* merged;
        const char16_t* conflict; // part of its sentence
    } rows[] = {
        {"a=1\n", "a=1\n", "a=2\n", "a=2\n", u""},
        {"a=1\n", "a=2\n", "a=1\n", "a=2\n", u""},
        {"a=1\n", "a=2\n", "a=2\n", "a=2\n", u""},
        {"a=1\n", "a=2\n", "a=3\n", "a=2\n", u"section \"\", key \"a\""},
        {"a=1\nb=1\n", "a=2\nb=1\n", "; theirs\na=1\nb=2\n", "; theirs\na=2\nb=2\n", u""},
        {"a=1\n", "", "a=1\nb=1\n", "b=1\n", u""},
        {"a=1\n", "", "a=2\n", "", u"key \"a\""},
        {"a=1\n", "a=2\n", "", "a=2\n", u"key \"a\""},
        {"a=1\n", "a=1\n", "", "", u""},
        {"", "[A]\na=1\n", "[B]\nb=1\n", "[B]\nb=1\n[A]\na=1\n", u""},
        {"[A]\na=1\n", "[A]\na=1\n[B]\nb=1\n", "[A]\na=1\n[B]\nc=1\n", "[A]\na=1\n[B]\nc=1\nb=1\n", u""},
        {"[A]\na=1\n", "[A]\na=\xC3\xA4\n", "[A]\na=1\nb=\xE4\n", "[A]\na=\xE4\nb=\xE4\n", u""},
        {"[List]\nn=1\n1=x\n", "[List]\nn=2\n1=x\n2=y\n", "[List]\nn=1\n1=z\n", "[List]\nn=2\n1=x\n2=y\n",
         u"section \"List\": "},
        {"[List]\nn=1\n1=x\n", "[List]\nn=1\n1=x\n", "[List]\nn=0\n", "[List]\nn=0\n", u""},
        {"[List]\nn=0\n", "[List]\nn=1\n1=x\n", "[List]\nn=0\n[A]\na=1\n", "[List]\nn=1\n1=x\n[A]\na=1\n",
         u""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.base) + "|" + row.ours + "|" + row.theirs);
        CInifile ini = Part(row.base, row.ours, row.theirs);
        CDiagnosticsCapture diagnostics;
        EXPECT_TRUE(ini.SaveMerged(IsList));
        EXPECT_EQ(Read(), row.merged);
        EXPECT_EQ(ini.GetBytes(), Read());
        const std::vector<CStr> lines = diagnostics.Take();
        ASSERT_EQ(lines.size(), *row.conflict ? 1u : 0u);
        EXPECT_TRUE(lines.empty() || lines[0].Find(row.conflict) != CStr::npos) << lines[0].ToUtf8();
        // What was saved is what the next changes start from.
        ini.WriteInt(u"later", 1);
        EXPECT_TRUE(ini.SaveMerged(IsList));
        EXPECT_EQ(ini.GetBytes(), Read());
    }
}

// Uses of both programs are kept, the latest first.
TEST_F(InifileMerge, UnitesRecentLists)
{
    using CTexts = std::vector<CStr>;
    const struct {
        const char* base;
        CTexts ours;
        const char* theirs;
        CTexts united;
    } rows[] = {
        {"a,b", {u"c", u"a", u"b"}, "d,a,b", {u"c", u"a", u"b", u"d"}},
        {"a,b,c,d", {u"x", u"a", u"b", u"c"}, "y,a,b,c", {u"x", u"a", u"b", u"c"}},
        {"a,b", {u"b"}, "d,a,b", {u"b", u"d"}}, // taken out here
        {"a,b", {u"a", u"b"}, "d,a,b", {u"d", u"a", u"b"}},
        {"a,b", {u"c", u"a", u"b"}, "a,b", {u"c", u"a", u"b"}},
        {"", {u"c"}, "d,e", {u"c", u"d", u"e"}},
        {"a", {u"x,y", u"a"}, "\"x,y\",z,a", {u"x,y", u"a", u"z"}},
    };
    for (const auto& [base, ours, theirs, united] : rows) {
        SCOPED_TRACE(theirs);
        const auto contentOf = [](const char* list) { return "[Recent]\nlist=" + std::string(list) + "\n"; };
        CInifile ini = Part(contentOf(base), contentOf(base), contentOf(theirs) + "other=1\n");
        ini.SelectSection(u"Recent");
        ini.WriteRecentTexts(u"list", ours, 4);
        CDiagnosticsCapture diagnostics;
        EXPECT_TRUE(ini.SaveMerged());
        EXPECT_EQ(ini.ReadTexts(u"list"), united);
        EXPECT_EQ(ini.ReadInt(u"other", 0), 1);
        EXPECT_EQ(ini.GetBytes(), Read());
        EXPECT_EQ(diagnostics.GetCount(), 0);
    }
}

TEST_F(InifileMerge, KeepsTheBytesWhereNobodyElseHasSaved)
{
    CInifile ini = Part("a = 1\r\n\r\n# ours", "a = 2\r\n\r\n# ours", "a = 1\r\n\r\n# ours");
    EXPECT_TRUE(ini.SaveMerged());
    EXPECT_EQ(Read(), "a = 2\r\n\r\n# ours");
    fs::remove(PathOf());
    EXPECT_TRUE(ini.SaveMerged());
    EXPECT_EQ(Read(), "a = 2\r\n\r\n# ours");
    m_folder.Write("file.ini", std::string("a\0b", 3));
    CDiagnosticsCapture diagnostics;
    EXPECT_FALSE(ini.SaveMerged());
    EXPECT_EQ(Read(), std::string("a\0b", 3));
}

TEST_F(InifileMerge, LosesNothingBetweenManyWhoSave)
{
    constexpr int c_programs = 4;
    constexpr int c_saves = 25;
    std::vector<std::thread> programs;
    for (int i = 0; i < c_programs; ++i)
        programs.emplace_back([this, key = CStr::Format(u"key%d", i)] {
            CInifile ini;
            ini.SetFileName(Name());
            for (int k = 0; k < c_saves; ++k) {
                ini.WriteInt(key, ini.ReadInt(key, 0) + 1);
                ASSERT_TRUE(ini.SaveMerged());
            }
        });
    for (std::thread& program : programs)
        program.join();
    CInifile ini;
    ASSERT_TRUE(ini.Load(Name()));
    for (int i = 0; i < c_programs; ++i)
        EXPECT_EQ(ini.ReadInt(CStr::Format(u"key%d", i), 0), c_saves);
    EXPECT_EQ(CountFiles(), 1u);
}

TEST_F(InifileMerge, LocksOneAfterTheOther)
{
    {
        const CFileLock first(Name());
        EXPECT_TRUE(first.IsHeld());
        const CFileLock second(Name(), std::chrono::milliseconds(5));
        EXPECT_FALSE(second.IsHeld());
        EXPECT_TRUE(second.IsTaken());
        EXPECT_EQ(second.GetReason(), GetLockHolder(Name()) + u" holds its lock");
        EXPECT_EQ(GetLockHolder(Name()), CStr::Format(u"process %u", GetFileSystem().GetProcess()));
    }
    EXPECT_TRUE(GetLockHolder(Name()).IsEmpty());
    m_folder.Write("~file.ini.lock", "process 1");
    EXPECT_TRUE(GetLockHolder(Name()).IsEmpty()) << "a process that was killed";
    EXPECT_TRUE(CFileLock(Name()).IsHeld());
    EXPECT_EQ(CountFiles(), 0u);
    const CFileLock nowhere((m_folder.GetPath() / "none" / "file").u16string());
    EXPECT_FALSE(nowhere.IsHeld() || nowhere.IsTaken());
}

TEST_F(InifileMerge, SavesWithoutLocksAndSaysSo)
{
    CInifile ini = Part("a=1\n", "a=2\n", "a=1\nb=1\n");
    CRecordingFileSystem system;
    system.hasLocks = false;
    const CFileSystemScope scope(system);
    CDiagnosticsCapture diagnostics;
    EXPECT_TRUE(ini.SaveMerged());
    EXPECT_EQ(Read(), "a=2\nb=1\n");
    const std::vector<CStr> lines = diagnostics.Take();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_NE(lines[0].Find(u"There was no lock for"), CStr::npos);
}

// A file has the old content or the new one, also after a power cut, and the document what belongs to it.
TEST_F(InifileMerge, EachCallCanFail)
{
    for (int call = 1;; ++call) {
        SCOPED_TRACE(call);
        CInifile ini = Part("a=1\n", "a=2\n", "a=1\nb=1\n");
        CRecordingFileSystem system(call);
        const CFileSystemScope scope(system);
        const CDiagnosticsCapture diagnostics;
        const bool isSaved = ini.SaveMerged();
        EXPECT_EQ(isSaved, Read() == "a=2\nb=1\n");
        EXPECT_EQ(isSaved, ini.GetBytes() == "a=2\nb=1\n");
        EXPECT_EQ(Read(), isSaved ? "a=2\nb=1\n" : "a=1\nb=1\n");
        EXPECT_EQ(diagnostics.GetCount(), system.HasFailed() ? 1 : 0);
        EXPECT_EQ(CountFiles(), 1u);
        for (const auto& [file, content] : system.GetReplaced())
            EXPECT_EQ(content, Read());
        if (!system.HasFailed())
            break;
    }
}

TEST_F(InifileMerge, WhatOthersWriteIsUnknownNoMore)
{
    CInifile ini = Part("a=x\n", "a=x\n", "a=y\n");
    ini.KeepUnknown(u"a", u"instead");
    ini.WriteText(u"a", u"instead");
    EXPECT_TRUE(ini.SaveMerged());
    EXPECT_EQ(Read(), "a=y\n");
    ini.WriteText(u"a", u"instead");
    EXPECT_EQ(ini.GetBytes(), "a=instead\n");
}

#if !defined(_WIN32) // the calls of POSIX
TEST_F(InifileMerge, LocksAfterSomebodyElsesWent)
{
    FailToOpen({EACCES, ENOENT});
    EXPECT_TRUE(CFileLock(Name()).IsHeld());
    EXPECT_EQ(CountFiles(), 0u);
}

TEST_F(InifileMerge, SignalsDoNotMatter)
{
#if defined(_LIBCPP_VERSION)
    GTEST_SKIP() << "streams of this library open files by functions within the C library";
#endif
    CInifile ini = Part("a=1\n", "a=2\n", "a=1\nb=1\n");
    const CDiagnosticsCapture diagnostics;
    bool isSaved = false;
    std::map<std::string, int> interrupted;
    {
        const CInterruptedCalls signals;
        isSaved = ini.SaveMerged() && ini.Load();
        interrupted = signals.GetCounts();
    }
    EXPECT_TRUE(isSaved);
    EXPECT_EQ(Read(), "a=2\nb=1\n");
    EXPECT_EQ(diagnostics.GetCount(), 0);
    EXPECT_EQ(CountFiles(), 1u);
    for (const auto& [call, count] : interrupted)
        EXPECT_GT(count, 0) << call;
}
#endif

TEST_F(InifileMerge, WithoutMemoryNothingIsHalfDone)
{
    CDiagnosticsCapture diagnostics;
    for (CEachAllocation each; each.Next();) {
        SCOPED_TRACE(each.GetNumber());
        CInifile ini = Part("a=1\n", "a=2\n", "a=1\nb=1\n");
        bool isSaved = false;
        each.Try([&] { isSaved = ini.SaveMerged(IsList); });
        EXPECT_EQ(Read(), isSaved ? "a=2\nb=1\n" : "a=1\nb=1\n");
        EXPECT_EQ(ini.GetBytes(), isSaved ? "a=2\nb=1\n" : "a=2\n");
        EXPECT_EQ(CountFiles(), 1u);
    }
}
