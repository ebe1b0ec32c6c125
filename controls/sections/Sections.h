#pragma once

#include "../../common/ini/Inifile.h"
#include "../MultiClosure.h"

#include <map>

namespace CommonUI
{

/// Which of the collapsible sections of a page are open, by their names, so that the page comes up as the
/// user left it.
class COMMONUI_API CSections
{
public:
    CSections();
    ~CSections();
    CSections(const CSections&) = delete;
    CSections& operator=(const CSections&) = delete;

    /// Makes a section known, unless it is. @param name a key that files store
    /// @param expanded whether it is open as long as nothing else was loaded or chosen
    void Add(const CStr& name, bool expanded);
    /// A section that is not known is closed.
    bool IsExpanded(const CStr& name) const;
    /// Opens or closes a section, and tells it. Nothing happens when it is so already, or is not known.
    void SetExpanded(const CStr& name, bool expanded);
    /// Opens a closed section, and closes an open one.
    void Toggle(const CStr& name) { SetExpanded(name, !IsExpanded(name)); }
    /// Opens or closes all sections that have been added.
    void SetAllExpanded(bool expanded);

    /// Takes what was saved, from the current section of the file, for sections that are added already or
    /// later. What is neither true nor false there changes nothing, with a warning in the diagnostics.
    void Load(const CInifile& file);
    /// Writes what has been added or loaded, so that sections of pages that were not opened keep their state.
    void Save(CInifile& file) const;

    /// Called after a section was opened or closed, with its name.
    CMultiClosure1<void, const CStr&>& GetChanged() noexcept { return m_changed; }

private:
    struct SState {
        bool expanded = false;
        bool added = false; // otherwise it was only loaded
    };

    std::map<CStr, SState> m_sections;
    CMultiClosure1<void, const CStr&> m_changed;
};

} // namespace CommonUI
