#pragma once

#include "dialogs/settings/SettingsMenu.h"
#include "platform/files/FileManager.h"
#include "platform/memory/FixedFolders.h"
#include "platform/memory/MemoryFileDialogService.h"
#include "platform/memory/MemoryFileManager.h"
#include "platform/memory/MemoryMessageBoxService.h"
#include "platform/memory/MemoryMessageLoop.h"
#include "tests/DiagnosticsCapture.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <vector>

namespace CommonUI
{

/// The factory of the process on a settings folder, message boxes, file dialogs and a trash of the test's
/// own.
class CSettingsMenuServices : public testing::Test
{
protected:
    CSettingsMenuServices() { std::filesystem::create_directory(m_folder.GetPath() / "trash"); }
    ~CSettingsMenuServices() override { CloseSettingsFactory(); }

    CStr Path(const std::string& name) const
    {
        return (m_folder.GetPath() / name).make_preferred().u16string();
    }
    CStr Custom(const std::string& name) const { return Path("Custom Settings/" + name); }
    void WriteCustom(const std::string& name, const std::string& bytes) const
    {
        m_folder.Write("Custom Settings/" + name, bytes);
    }
    static CStr Recent(ESettingType type)
    {
        CStr names;
        for (const auto& heading : GetSettingsFactory().GetTree(type, ESettingCategory::Recent))
            for (const auto& leaf : heading.GetChildren())
                names += leaf.GetValue().first + u"|";
        return names;
    }
    /// The texts of the message boxes since the last call, with the test's folder as "~" and one separator.
    std::vector<CStr> TakeBoxes()
    {
        std::vector<CStr> texts;
        for (; m_boxesSeen < m_boxes.GetShown().size(); ++m_boxesSeen)
            texts.push_back(
                m_boxes.GetShown()[m_boxesSeen].text.Replace(Path(""), u"~/").Replace(u"\\", u"/"));
        return texts;
    }
    static void WaitFor(const CCustomSettingsScan& scan)
    {
        GetMessageLoop().RunUntil([&] { return !scan.IsRunning(); });
    }

    CTemporaryFolder m_folder;
    CFixedFolders m_folders{m_folder.GetPath(), m_folder.GetPath()};
    CServiceScope<CFolders> m_foldersScope{m_folders};
    CMemoryMessageBoxService m_boxes;
    CServiceScope<CMessageBoxService> m_boxesScope{m_boxes};
    CMemoryFileDialogService m_dialogs;
    CServiceScope<CFileDialogService> m_dialogsScope{m_dialogs};
    CMemoryFileManager m_manager{m_folder.GetPath() / "trash"};
    CServiceScope<CFileManager> m_managerScope{m_manager};
    CDiagnosticsCapture m_warnings;

private:
    std::size_t m_boxesSeen = 0;
};

/// With a message loop of the test's own.
class CSettingsMenuTest : public CSettingsMenuServices
{
protected:
    CMemoryMessageLoop m_loop;
    CServiceScope<CMessageLoop> m_loopScope{m_loop};
};

/// A folder on a drive that answers when the test lets it.
class CSlowDrive
{
public:
    CSlowDrive() = default;

    /// Lives on in a thread that waits.
    CCustomSettingsScan::FFind MakeFind() const
    {
        return [state = m_state](const CSettingsFactory::SPlace& place, const FFolderFound& found) {
            ++state->searches;
            for (const std::vector<CStr>& names : {std::vector<CStr>{u"a"}, std::vector<CStr>{}}) {
                state->answers.Acquire();
                if (!found({names, {place.folder + (names.empty() ? u"2.flt" : u"1.flt")}}))
                    break;
            }
            state->ended.Release();
        };
    }
    void Answer(int count) { m_state->answers.Release(count); }
    /// Until so many searches have ended.
    void WaitForEnds(int count)
    {
        for (int i = 0; i < count; ++i)
            m_state->ended.Acquire();
    }
    int GetSearches() const { return m_state->searches; }

private:
    // Those of some standard libraries lose calls to wake up.
    class CSemaphore
    {
    public:
        void Release(int count = 1)
        {
            const std::lock_guard lock(m_mutex);
            m_count += count;
            m_changed.notify_all();
        }
        void Acquire()
        {
            std::unique_lock lock(m_mutex);
            m_changed.wait(lock, [this] { return m_count > 0; });
            --m_count;
        }

    private:
        std::mutex m_mutex;
        std::condition_variable m_changed;
        int m_count = 0;
    };

    struct SState {
        CSemaphore answers;
        CSemaphore ended;
        std::atomic<int> searches = 0;
    };
    std::shared_ptr<SState> m_state = std::make_shared<SState>();
};

} // namespace CommonUI
