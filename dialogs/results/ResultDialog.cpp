#include "dialogs/results/ResultDialog.h"

#include "dialogs/results/ResultTexts.h"

#include <utility>

namespace CommonUI
{

CResultDialogView::~CResultDialogView() = default;

CResultDialog::CResultDialog(CResultLayoutManager& layouts)
    : CBaseDialog(c_identifier, nullptr)
    , m_panel(layouts)
{
}

CResultDialog::~CResultDialog()
{
    EndDialog(c_cancel);
}

void CResultDialog::SetView(CResultDialogView* view)
{
    Link(*this, view);
}

void CResultDialog::SetResults(std::shared_ptr<const SResultSet> results)
{
    m_panel.SetResults(std::move(results));
    ShowCaption();
}

bool CResultDialog::OnInitDialog()
{
    if (GetView())
        GetView()->SetText(c_cancel, GetResultText(EResultText::Close));
    ShowCaption();
    return true;
}

void CResultDialog::ShowCaption()
{
    if (!GetView())
        return;
    const CStr& title = m_panel.GetResults().title;
    GetView()->SetCaption(title.IsEmpty() ? GetResultText(EResultText::Caption) : title);
}

} // namespace CommonUI
