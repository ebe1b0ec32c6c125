#pragma once

#include "../lists/RecentList.h"
#include "../MultiClosure.h"
#include "../Window.h"
#include "FolderLister.h"

#include <vector>

namespace CommonUI
{

/// A line of the list of a folder combo.
struct SFolderChoice {
    /// Why a folder is in the list.
    enum class EKind { Recent, Parent, Root };

    CStr path{}; ///< in full
    /// Recent ones come first, then the way down to the folder that is set, then the other roots.
    EKind kind = EKind::Recent;
    int depth = 0; ///< how many folders are above it; 0 for recent ones and roots

    friend bool operator==(const SFolderChoice&, const SFolderChoice&) = default;
};

/// The logic of a field for a folder with a list of recent ones, the way from the root, and the other roots.
/// While the user types, the folders that the text may become are offered; what is entered is asked for
/// before it counts. Drives are asked on other threads; of several questions the last counts.
class COMMONUI_API CFolderCombo : public CWnd
{
public:
    /// How many recent folders are kept.
    COMMONUI_CONSTANT std::size_t c_recentLimit = 10;
    /// Full paths, the latest first.
    using CRecent = CRecentList<CStr>;

    /// @param source whose folders are offered; not null
    explicit CFolderCombo(std::shared_ptr<const CFolderSource> source = GetSystemFolders());
    ~CFolderCombo();

    /// The folder that was set last, or that the drive has confirmed; empty at first.
    const CStr& GetPath() const noexcept { return m_path; }
    /// Sets the folder for the program, without asking the drive. The callback is not called.
    void SetPath(const CStr& path);
    /// The folders that were used last, for the program to load and save.
    CRecent& GetRecent() noexcept { return m_recent; }
    /// What the list shows.
    std::vector<SFolderChoice> GetChoices() const;

    /// The user is typing. The answer comes as completions.
    void OnUserTyped(const CStr& text);
    /// Whole paths that the text typed last may become, in the order of people.
    const std::vector<CStr>& GetCompletions() const noexcept { return m_completions; }
    /// The user has entered a text, or chosen it in the list: it becomes the folder when the drive says that
    /// it is one.
    void OnUserEntered(const CStr& text);
    /// Whether a drive has yet to answer what was entered.
    bool IsChecking() const noexcept { return m_check != 0; }
    /// Whether a drive has yet to answer what was entered or typed.
    bool IsWaiting() const noexcept { return m_check != 0 || m_list != 0; }
    /// Why what was entered last is no folder, one sentence; empty when it is one.
    const CStr& GetError() const noexcept { return m_error; }

    /// Sets the member function that is called when the user has changed the folder. The object is not owned;
    /// the function may destroy the combo.
    template<class TObject>
    void SetCallback(std::type_identity_t<TObject>& object, void (TObject::*method)(const CStr& path))
    {
        m_slot.Set(MakeClosure(object, method));
    }
    /// For views: there are other completions.
    CMultiClosure0<void>& GetCompletionsChanged() noexcept { return m_completionsChanged; }
    /// For views: the folder has changed, or the answer to what was entered has come, or is awaited.
    CMultiClosure0<void>& GetChanged() noexcept { return m_changed; }

private:
    CStr Normalise(const CStr& text) const;
    void Complete();
    void OnListed(const SFolderListing& listing);
    void OnChecked(const CStr& path, const CStr& error);
    void StopChecking();

    CStr m_path;
    CRecent m_recent{c_recentLimit};
    CStr m_typed;              // the beginning of a name
    CStr m_listedFolder;       // the folder in which it is, whose names are in m_names
    std::vector<CStr> m_names; // in the order of people
    std::vector<CStr> m_completions;
    CFolderLister::TRequest m_list = 0;  // of the folder typed; 0 for none
    CFolderLister::TRequest m_check = 0; // of the folder entered; 0 for none
    CStr m_error;
    CCallbackSlot m_slot;
    CMultiClosure0<void> m_completionsChanged;
    CMultiClosure0<void> m_changed;
    CFolderLister m_lister; // goes first: its answers come here
};

} // namespace CommonUI
