#pragma once

#include "../../dialogs/selection/SelectionDlg.h"
#include "SelectionWindow.h"

namespace CommonUI
{

/// The selection dialog of an analysis with its window.
class COMMONUIQT_API CQtSelectionDlg : public CSelectionDlg
{
public:
    /// For surfaces in metres.
    /// @param parent the dialog lies over the window of this widget, or over the one that the user works in
    ///     when it is null
    CQtSelectionDlg(CAnalysisPreferencesManager& manager, EAnalysis analysis, QWidget* parent = nullptr);
    /// For surfaces in other units. @param parent see above
    CQtSelectionDlg(CAnalysisPreferencesManager& manager, EAnalysis analysis, const SBase3D<CUnit>& units,
                    QWidget* parent = nullptr);
    ~CQtSelectionDlg() override;

    /// Null once the parent has been destroyed, with which the window goes.
    CSelectionWindow* GetWindow() const { return m_window; }

private:
    QPointer<CSelectionWindow> m_window;
};

} // namespace CommonUI
