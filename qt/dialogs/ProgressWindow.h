#pragma once

#include "../../dialogs/ProgressDialogBase.h"
#include "DialogWindow.h"

class QProgressBar;
class QPushButton;

namespace CommonUI
{

class CWrappedLabel;

/// The window of a progress dialog: a text, a bar and a Cancel button, laid out in dialog units of its font.
/// It is as large as its text needs. The icon that CProgressDialogBase::SetIcon takes is a QIcon.
///
/// A request to end the program, which asks all windows to close, cancels the work and asks no other window;
/// it is made again when the dialog has closed.
///
/// CQtProgressThreadDialog and CQtProgressDialog have one of their own. If the window goes first, the dialog
/// works on unseen.
class COMMONUIQT_API CProgressWindow : public CDialogViewWindow<CProgressView>
{
    Q_OBJECT

public:
    /// @param parent see CDialogWindow
    explicit CProgressWindow(QWidget* parent = nullptr);
    ~CProgressWindow() override;

    SSize MeasureText(const CStr& text, int width) const override;
    void Show(bool visible) override;
    void SetLayout(const SProgressLayout& layout) override;
    void SetIcon(const void* icon) override;
    void BringParentToTop() override;
    void SetBarRange(int minimum, int maximum) override;
    void SetBarPosition(int position) override;

    /// The bar; lives as long as the window.
    QProgressBar& GetBar() noexcept { return *m_bar; }
    /// The Cancel button; lives as long as the window.
    QPushButton& GetCancelButton() noexcept { return *m_cancel; }
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool IsDialogOpen() const { return GetControl() && GetControl()->IsOpen(); }
    void RepeatQuit();

    CWrappedLabel* m_text;
    QProgressBar* m_bar;
    QPushButton* m_cancel;
    bool m_quit = false; // the program is to end
};

} // namespace CommonUI
