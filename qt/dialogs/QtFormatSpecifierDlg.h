#pragma once

#include "../../dialogs/FormatSpecifierDlg.h"
#include "FormatSpecifierWindow.h"

namespace CommonUI
{

/// The format dialog with its window.
class COMMONUIQT_API CQtFormatSpecifierDlg : public CFormatSpecifierDlg
{
public:
    /// @param parent the dialog lies over the window of this widget, or over the one that the user works in
    ///     when it is null
    explicit CQtFormatSpecifierDlg(const CParameter& parameter, QWidget* parent = nullptr);
    ~CQtFormatSpecifierDlg() override;

    /// Null once the parent has been destroyed, with which the window goes.
    CFormatSpecifierWindow* GetWindow() const { return m_window; }

private:
    QPointer<CFormatSpecifierWindow> m_window;
};

} // namespace CommonUI
