#pragma once

#include "../../dialogs/FormatSpecifierDlg.h"
#include "../../dialogs/FormatSpecifierView.h"
#include "../../export/Export.h"

#include <memory>

struct HWND__;

namespace CommonUI
{

/// The window of the format dialog: the list, the edit field with its spin button, two examples, OK and
/// Cancel, in the font of the system's messages. It lies over the window that it is given, or over the one
/// that the user works in when it opens. While it is modal, the other windows of the thread take no input. If
/// the window goes first, the dialog is cancelled. User-interface thread only.
class COMMONUIWIN_API CWinFormatSpecifierWindow : public CFormatSpecifierView
{
public:
    /// Throws std::system_error where the system has no window left.
    /// @param parent see the class; null for the window in use
    explicit CWinFormatSpecifierWindow(HWND__* parent = nullptr);
    ~CWinFormatSpecifierWindow() override;

    /// Shows a dialog, which is not open, with its edit field. It is not owned; either may go first.
    void Attach(CFormatSpecifierDlg& dialog);

    void Show(bool visible) override;
    void SetModal(bool modal) override;
    void SetBusy(bool busy) override;
    void SetCaption(const CStr& caption) override;
    void SetText(int control, const CStr& text) override;
    void Enable(int control, bool enable) override;
    void SetItems(const std::vector<SFormatItem>& items) override;
    void SelectItem(std::optional<std::size_t> index) override;
    std::optional<std::size_t> GetSelectedItem() const override;

    /// Null when the system has destroyed it, with the window below.
    HWND__* GetWindow() const noexcept;

private:
    class CWindow;

    std::unique_ptr<CWindow> m_window;
};

/// The format dialog with its window.
class COMMONUIWIN_API CWinFormatSpecifierDlg : public CFormatSpecifierDlg
{
public:
    /// @param parent the window that the dialog lies over, or null for the one that the user works in
    explicit CWinFormatSpecifierDlg(const CParameter& parameter, HWND__* parent = nullptr);
    ~CWinFormatSpecifierDlg() override;

    CWinFormatSpecifierWindow& GetWindow() noexcept { return m_window; }

private:
    CWinFormatSpecifierWindow m_window;
};

} // namespace CommonUI
