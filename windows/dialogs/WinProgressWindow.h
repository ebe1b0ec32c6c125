#pragma once

#include "../../dialogs/ProgressDialog.h"
#include "../../dialogs/ProgressThreadDialog.h"
#include "../../dialogs/ProgressView.h"
#include "../../export/Export.h"

#include <memory>

struct HICON__;
struct HWND__;

namespace CommonUI
{

/// The window of a progress dialog: a text, a bar and a Cancel button, in the font of the system's messages.
/// It lies over the window that it is given, or over the one that the user works in when it opens. While it
/// is modal, the other windows of the thread take no input. Escape, and closing the window, cancel; F1 asks
/// for help. User-interface thread only.
class COMMONUIWIN_API CWinProgressWindow : public CProgressView
{
public:
    /// Throws std::system_error where the system has no window left.
    /// @param parent see the class; null for the window in use
    explicit CWinProgressWindow(HWND__* parent = nullptr);
    ~CWinProgressWindow() override;

    void Show(bool visible) override;
    void SetModal(bool modal) override;
    void SetBusy(bool busy) override;
    void SetCaption(const CStr& caption) override;
    void SetText(int control, const CStr& text) override;
    void Enable(int control, bool enable) override;
    void SetBarRange(int minimum, int maximum) override;
    void SetBarPosition(int position) override;
    SSize MeasureText(const CStr& text, int width) const override;
    void SetLayout(const SProgressLayout& layout) override;
    void SetIcon(const void* icon) override;
    void BringParentToTop() override;

    /// Null when the system has destroyed it, with the window below.
    HWND__* GetWindow() const noexcept;

private:
    class CWindow;

    std::unique_ptr<CWindow> m_window;
};

/// A progress dialog with its window. @tparam TDialog CProgressThreadDialog or CProgressDialog
template<class TDialog>
class CWinProgress : public TDialog
{
public:
    /// @param parent the window that the dialog lies over, or null for the one that the user works in
    /// @param caption, text see CProgressDialogBase
    CWinProgress(HWND__* parent, const CStr& caption, const CStr& text)
        : TDialog(nullptr, caption, text)
        , m_window(parent)
    {
        this->SetView(&m_window);
    }
    ~CWinProgress() override { this->EndDialog(TDialog::c_cancel); }

    /// The large icon of the window, for the next opening. It is not owned.
    void SetIcon(HICON__* icon) { TDialog::SetIcon(icon); }
    CWinProgressWindow& GetWindow() noexcept { return m_window; }

private:
    CWinProgressWindow m_window;
};

/// Shows the progress of work on a thread of its own.
using CWinProgressThreadDialog = CWinProgress<CProgressThreadDialog>;
/// Shows the progress of work on the user-interface thread.
using CWinProgressDialog = CWinProgress<CProgressDialog>;

} // namespace CommonUI
