#pragma once

#include "../../common/Str.h"
#include "../MultiClosure.h"
#include "../Window.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace CommonUI
{

/// A tab of a tab window.
struct STab {
    CStr key{};           ///< by which the program knows it; unique in the window
    CStr title{};         ///< that is shown
    bool closable = true; ///< whether the user can close it

    friend bool operator==(const STab&, const STab&) = default;
};

/// The logic of a tab window: the order of the tabs, which the user changes by dragging, the one in front,
/// closing, and going through the tabs in the order of their last use with Ctrl+Tab.
class COMMONUI_API CTabs : public CWnd
{
public:
    CTabs();
    ~CTabs();

    /// From left to right.
    const std::vector<STab>& GetTabs() const noexcept { return m_tabs; }
    /// The index of the tab of a key; empty where there is none.
    std::optional<std::size_t> Find(std::u16string_view key) const;
    /// Adds a tab at the end and brings it to the front if it is the first one. One whose key is there
    /// already takes that one's place in the order, with its new title.
    void Add(const STab& tab);
    /// Renames a tab. A key that is not there changes nothing.
    void SetTitle(std::u16string_view key, const CStr& title);

    /// The index of the tab in front; empty when there are no tabs.
    std::optional<std::size_t> GetCurrent() const;
    /// Brings a tab to the front. An index beyond the tabs changes nothing.
    void SetCurrent(std::size_t index);

    /// Moves a tab to another place. Indices beyond the tabs are clamped.
    void Move(std::size_t from, std::size_t to);
    /// Moves the current tab by one place, as far as there is one.
    void MoveCurrent(bool right);
    /// The keys in their order, to be kept for the next start.
    std::vector<CStr> GetOrder() const;
    /// Puts tabs in an order of keys. Tabs without a place there come behind, in the order they have.
    void SetOrder(const std::vector<CStr>& keys);

    /// Sets the member function that is asked before the user closes a tab; false keeps it. The object is not
    /// owned; the function may destroy the tabs.
    template<class TObject>
    void SetCloseQuestion(std::type_identity_t<TObject>& object, bool (TObject::*method)(const CStr& key))
    {
        m_mayClose.Set(MakeClosure(object, method));
    }
    /// The user wants to close a tab. When the current one is closed, the one used before comes to the front.
    /// @return whether it is closed
    bool Close(std::size_t index);
    /// Closes all others that can be closed, asking about each. @return how many are closed
    std::size_t CloseOthers(std::size_t index);
    /// Removes a tab for the program, without asking.
    void Remove(std::u16string_view key);

    /// Ctrl+Tab is pressed, once more with each call until EndSwitching: goes through the tabs in the order
    /// of their last use, as long as Ctrl is held. @param backward with Shift as well
    void SwitchToNext(bool backward);
    /// Ctrl is released: the tab in front counts as the one used last.
    void EndSwitching();

    /// Called after tabs were added, closed, moved or renamed.
    CMultiClosure0<void>& GetTabsChanged() noexcept { return m_tabsChanged; }
    /// Called after another tab came to the front.
    CMultiClosure0<void>& GetCurrentChanged() noexcept { return m_currentChanged; }

private:
    bool MayClose(const STab& tab) const;
    void Use(const CStr& key);
    void BringToFront(const CStr& key);
    void Tell(const CStr& currentBefore);

    std::vector<STab> m_tabs;
    CStr m_current;           // the key of the tab in front; empty without tabs
    std::vector<CStr> m_used; // the keys of all tabs, the one used last in front
    std::size_t m_switch = 0; // how far Ctrl+Tab has come in them
    CCallbackSlot m_mayClose;
    CMultiClosure0<void> m_tabsChanged;
    CMultiClosure0<void> m_currentChanged;
};

} // namespace CommonUI
