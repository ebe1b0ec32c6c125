#pragma once

#include "../common/ini/Inifile.h"
#include "../common/Str.h"
#include "../export/Export.h"
#include "Service.h"

#include <map>
#include <vector>

namespace CommonUI
{

/// What a dialog for choosing a file or a folder offers.
struct SFileDialog {
    bool forOpen = true; ///< an existing file to be read; else a file to be written, old or new
    /// Pairs of a text and its masks, as "Filter files (*.flt)|*.flt|All files (*.*)|*.*||"; several masks
    /// are joined by semicolons.
    CStr filter{};
    CStr extension{}; ///< what a name without an extension gets when saved, without the dot; may be empty
    CStr memoryKey{}; ///< what the last folder and file are remembered under; empty remembers nothing
    CStr folder{};    ///< where the dialog starts; the remembered folder comes before it
    CStr file{};      ///< the name or path proposed; the remembered file only when this is empty
    /// An existing folder is chosen, and nothing in it is changed by the dialog; filter, extension and file
    /// do not count.
    bool isFolder = false;

    friend bool operator==(const SFileDialog&, const SFileDialog&) = default;
};

/// A kind of files that a dialog offers.
struct SFileFilter {
    CStr text{};               ///< without masks at its end
    std::vector<CStr> masks{}; ///< such as "*.flt"; never empty

    friend bool operator==(const SFileFilter&, const SFileFilter&) = default;
};

/// The pairs of SFileDialog::filter, for a service that offers them one by one. The text loses the part in
/// brackets at its end, which repeats the masks; a pair without masks is left out.
COMMONUI_API std::vector<SFileFilter> ParseFileFilters(const CStr& filter);

/// Folder and file that were chosen last, by the memory key of the dialog.
class COMMONUI_API CFileDialogMemory
{
public:
    /// What was chosen last.
    struct SPlace {
        CStr folder; ///< with the separator at its end
        CStr file;   ///< its name alone

        friend bool operator==(const SPlace&, const SPlace&) = default;
    };

    /// The section that Load and Save use.
    COMMONUI_CONSTANT std::u16string_view c_section = u"FileDialogs";

    /// Null when nothing is remembered under the key.
    const SPlace* Find(const CStr& key) const;
    /// @param path in full; of a folder without a separator at its end
    void Remember(const CStr& key, const CStr& path);
    /// Forgets all places.
    void Clear() noexcept { m_places.clear(); }

    /// Replaces what is remembered by what the section c_section holds: the full path under each key.
    /// @return true always
    bool Load(CInifile& ini);
    /// Writes the section anew. @return true always
    bool Save(CInifile& ini) const;

private:
    std::map<CStr, SPlace> m_places;
};

/// What an application lends the library to let its user choose a file or a folder. Used on the
/// user-interface thread.
class COMMONUI_API CFileDialogService
{
public:
    CFileDialogService() = default;
    virtual ~CFileDialogService();
    CFileDialogService(const CFileDialogService&) = delete;
    CFileDialogService& operator=(const CFileDialogService&) = delete;

    /// Shows the dialog over the application's main window, if it has one, where its memory says, and
    /// remembers the choice.
    /// @param path receives the path chosen, a folder without a separator at its end; left alone when the
    ///     user cancels
    /// @return false when the user cancels
    bool Choose(const SFileDialog& dialog, CStr& path);

    /// What dialogs remember, for the program to load and save.
    CFileDialogMemory& GetMemory() noexcept { return m_memory; }

    /// Which one the process uses: see CServiceScope.
    static CCurrentService<CFileDialogService> s_current;

protected:
    /// Shows the dialog, its folder and file already those of the memory.
    virtual bool Show(const SFileDialog& dialog, CStr& path) = 0;

private:
    CFileDialogMemory m_memory;
};

/// A CMemoryFileDialogService for programs without a display: its dialogs are cancelled at once. It lives
/// until the process ends.
COMMONUI_API CFileDialogService& GetSilentFileDialogService();

/// The service that the library shows its file dialogs with: GetSilentFileDialogService() unless another one
/// was set.
COMMONUI_API CFileDialogService& GetFileDialogService();

} // namespace CommonUI
