#include "qt/selection/QtSelectionDlg.h"

namespace CommonUI
{

CQtSelectionDlg::CQtSelectionDlg(CAnalysisPreferencesManager& manager, EAnalysis analysis, QWidget* parent)
    : CSelectionDlg(manager, analysis)
    , m_window(new CSelectionWindow(parent))
{
    SetView(m_window);
}

CQtSelectionDlg::CQtSelectionDlg(CAnalysisPreferencesManager& manager, EAnalysis analysis,
                                 const SBase3D<CUnit>& units, QWidget* parent)
    : CSelectionDlg(manager, analysis, units)
    , m_window(new CSelectionWindow(parent))
{
    SetView(m_window);
}

CQtSelectionDlg::~CQtSelectionDlg()
{
    EndDialog(c_cancel);
    delete m_window;
}

} // namespace CommonUI
