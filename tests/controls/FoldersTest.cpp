#include "common/PathText.h"
#include "controls/folders/FolderCombo.h"
#include "controls/folders/MemoryFolderTreeView.h"
#include "platform/memory/MemoryFolderSource.h"
#include "platform/memory/MemoryMessageLoop.h"
#include "tests/CountedTimers.h"
#include "tests/Script.h"
#include "tests/TemporaryFolder.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <set>

using namespace CommonUI;

namespace
{

// Drives "/" and "X:/", a loop and a clock.
class CDrives
{
public:
    CDrives()
    {
        source->SetFolders(u"/", {u"home", u"Data", u"mnt", u".cache"});
        source->SetFolders(u"/Data", {u"scan 10", u"Scan 2", u".old"});
        source->SetFolders(u"/Data/Scan 2", {});
        source->SetFolders(u"/Data/scan 10", {u"raw"});
        source->SetFolders(u"/Data/scan 10/raw", {});
        source->SetFolders(u"X:/", {u"far"});
    }
    // What tree and combo have in common.
    bool Act(const SCommand& c)
    {
        const CStr path = CStr::FromUtf8(c.text);
        if (c.verb == "hang") {
            source->Hang(path);
            hanging.insert(path);
        } else if (c.verb == "release") {
            source->Release(path);
            hanging.erase(path);
        } else if (c.verb == "error") {
            source->SetError(path, path + u" is broken.");
        } else if (c.verb == "fill") {
            const std::vector<CStr> words = path.Split(u" ");
            source->SetFolders(words[0], {words.begin() + 1, words.end()});
        } else if (c.verb == "ms") {
            timers.Advance(c.Get<unsigned>());
        } else {
            return false;
        }
        return true;
    }

    CMemoryMessageLoop loop;
    CCountedTimers timers;
    std::shared_ptr<CMemoryFolderSource> source =
        std::make_shared<CMemoryFolderSource>(std::vector<CStr>{u"/", u"X:/"});
    std::set<CStr> hanging;

private:
    CServiceScope<CMessageLoop> m_loopScope{loop};
    CServiceScope<CTimerService> m_timersScope{timers};
};

class CFolderTreeStage : public CDrives
{
public:
    CFolderTreeStage()
    {
        m_tree.SetView(&m_view);
        m_tree.SetCallback(*this, &CFolderTreeStage::OnSelected);
    }
    ~CFolderTreeStage()
    {
        for (const CStr& path : hanging)
            source->Release(path);
    }
    void Act(const SCommand& c)
    {
        if (CDrives::Act(c))
            return;
        const CStr path = CStr::FromUtf8(c.text);
        if (c.verb == "goto")
            m_told += m_tree.GoTo(path) ? u"" : u"nowhere ";
        else if (c.verb == "hidden")
            m_tree.ShowHidden(c.IsYes());
        else if (c.verb == "expand")
            m_tree.Expand(*Find(m_tree.GetTop(), path));
        else if (c.verb == "collapse")
            m_tree.Collapse(*Find(m_tree.GetTop(), path));
        else if (c.verb == "refresh")
            m_tree.Refresh(*Find(m_tree.GetTop(), path));
        else if (c.verb == "select")
            m_tree.OnUserSelected(Find(m_tree.GetTop(), path));
        else
            loop.RunUntil([this] { return !IsReading(m_tree.GetTop()); });
    }
    // The tree in one line, and what it has called.
    std::string Tell()
    {
        const CStr told = std::exchange(m_told, {});
        return (m_view.GetText().Replace(u"\n", u"|") + told).ToUtf8() + (m_tree.IsGoing() ? "..." : ".");
    }

private:
    void OnSelected(const CStr& path) { m_told += u"! " + path + u' '; }
    static const CFolderNode* Find(const CFolderNode& node, const CStr& path)
    {
        if (node.GetPath() == path)
            return &node;
        const CFolderNode* found = nullptr;
        for (std::size_t i = 0; i < node.GetChildCount() && !found; ++i)
            found = Find(node.GetChild(i), path);
        return found;
    }
    // Whether a drive that does not hang is yet to answer.
    bool IsReading(const CFolderNode& node) const
    {
        using EState = CFolderNode::EState;
        const bool asked = node.GetState() == EState::Reading || node.GetState() == EState::Slow;
        bool reading = asked && !hanging.contains(node.GetPath());
        for (std::size_t i = 0; i < node.GetChildCount(); ++i)
            reading = reading || IsReading(node.GetChild(i));
        return reading;
    }

    CMemoryFolderTreeView m_view;
    CFolderTree m_tree{source};
    CStr m_told;
};

class CFolderComboStage : public CDrives
{
public:
    CFolderComboStage() { m_combo.SetCallback(*this, &CFolderComboStage::OnPath); }
    void Act(const SCommand& c)
    {
        if (CDrives::Act(c))
            return;
        const CStr text = CStr::FromUtf8(c.text);
        if (c.verb == "type")
            m_combo.OnUserTyped(text);
        else if (c.verb == "enter")
            m_combo.OnUserEntered(text);
        else if (c.verb == "set")
            m_combo.SetPath(text);
        else if (c.verb == "list")
            for (const SFolderChoice& choice : m_combo.GetChoices())
                m_told += CStr(static_cast<std::size_t>(choice.depth), u'>') + choice.path + u"; ";
        else
            loop.RunUntil([this] { return !m_combo.IsWaiting(); });
    }
    std::string Tell()
    {
        CStr told = m_combo.GetPath() + u": ";
        for (const CStr& completion : m_combo.GetCompletions())
            told += completion + u", ";
        told += m_combo.GetError() + (m_combo.IsWaiting() ? u"..." : u".") + std::exchange(m_told, {});
        return told.ToUtf8();
    }

private:
    void OnPath(const CStr& path) { m_told += u"! " + path; }

    CFolderCombo m_combo{source};
    CStr m_told;
};

} // namespace

TEST(FolderTree, ReadsAsTheScriptSays)
{
    ExpectScriptOf<CFolderTreeStage>("folder-tree.txt");
}

TEST(FolderCombo, ChoosesAsTheScriptSays)
{
    ExpectScriptOf<CFolderComboStage>("folder-combo.txt");
}

TEST(FolderLister, GivesUpDrivesThatHang)
{
    CDrives drives;
    std::size_t answers = 0;
    const auto count = [&](const SFolderListing&) { ++answers; };
    drives.source->Hang(u"X:/");
    for (int opened = 0; opened < 10; ++opened) {
        CFolderLister lister(drives.source);
        lister.List(u"X:/", count);
    }
    CFolderLister lister(drives.source);
    for (int asked = 0; asked < 10; ++asked)
        lister.List(u"X:/", count);
    drives.source->WaitForCalls(CFolderLister::c_threadsPerDrive);
    lister.List(u"/", count);
    drives.loop.RunUntil([&] { return answers == 1; });
    EXPECT_LE(drives.source->GetCallCount(), CFolderLister::c_threadsPerDrive + 1U)
        << "ten dialogs do not cost more threads than one";
    drives.source->Release(u"X:/");
    drives.loop.RunUntil([&] { return lister.GetPending() == 0; });
    EXPECT_EQ(answers, 11U) << "nothing for listers that are gone";
}

TEST(SystemFolders, AreThoseOfTheMachine)
{
    const CTemporaryFolder folder;
    std::filesystem::create_directories(folder.GetPath() / ".hidden");
    std::filesystem::create_directories(folder.GetPath() / u8"\u00E4 b");
    std::ofstream(folder.GetPath() / "file") << "no folder";
    const auto source = GetSystemFolders();
    CStr path;
    ASSERT_TRUE(CommonUI::ToText(folder.GetPath(), path));
    SFolderListing listing = source->List(path);
    std::ranges::sort(listing.folders, {}, &SFolder::name);
    EXPECT_EQ(listing.folders, (std::vector<SFolder>{{u".hidden", true}, {u"\u00E4 b", false}}));
    EXPECT_EQ(listing.error, u"");
    CStr joined;
    for (const CStr& part : source->SplitPath(path + u"//\u00E4 b/"))
        joined = source->JoinPath(joined, part);
    EXPECT_EQ(joined.Replace(u"\\", u"/"), path.Replace(u"\\", u"/") + u"/\u00E4 b");
    for (const char16_t* const name : {u"/file", u"/none", u"/\xD800"})
        EXPECT_TRUE(source->List(path + name).error.Contains(u"cannot be read")) << CStr(name).ToUtf8();
}
