#include "qt/dialogs/QtFormatSpecifierDlg.h"

namespace CommonUI
{

CQtFormatSpecifierDlg::CQtFormatSpecifierDlg(const CParameter& parameter, QWidget* parent)
    : CFormatSpecifierDlg(parameter)
    , m_window(new CFormatSpecifierWindow(parent))
{
    m_window->Attach(*this);
}

CQtFormatSpecifierDlg::~CQtFormatSpecifierDlg()
{
    EndDialog(c_cancel);
    delete m_window;
}

} // namespace CommonUI
