#include "dialogs/selection/OptionsDlg.h"

#include "common/StringTable.h"
#include "dialogs/detail/DialogTexts.h"
#include "dialogs/selection/detail/SelectionTexts.h"

#include <algorithm>

namespace CommonUI
{

COptionsView::~COptionsView() = default;

COptionsDlg::COptionsDlg(unsigned int identifier, const CStr& caption)
    : CBaseDialog(identifier, nullptr)
    , m_caption(caption)
{
}

COptionsDlg::~COptionsDlg()
{
    EndDialog(c_cancel);
}

void COptionsDlg::SetView(COptionsView* view)
{
    Link(*this, view);
}

bool COptionsDlg::OnInitDialog()
{
    if (COptionsView* const view = GetView()) {
        view->SetCaption(m_caption);
        view->SetText(c_ok, GetString(SelectionText::c_ok));
        view->SetText(c_cancel, GetString(c_cancelText));
    }
    Show();
    return true;
}

void COptionsDlg::OnChoice(int id, int value)
{
    SDialogOption* const option = FindOption(m_options, id);
    if (!option || option->kind == SDialogOption::EKind::Number)
        return;
    option->value = value;
    OnOption(id, value);
    Show();
}

void COptionsDlg::OnText(int id, const CStr& text)
{
    SDialogOption* const option = FindOption(m_options, id);
    if (!option || option->kind != SDialogOption::EKind::Number)
        return;
    if (const auto number = TypeOption(*option, text))
        OnOption(id, *number);
    Show();
}

void COptionsDlg::Show()
{
    COptionsView* const view = GetView();
    if (!view)
        return;
    view->ShowOptions(m_options);
    const auto faulty = std::ranges::find_if(
        m_options, [](const SDialogOption& option) { return option.enabled && !option.fault.IsEmpty(); });
    const CStr fault = faulty != m_options.end()
                           ? CStr::Format(GetString(SelectionText::c_hasFault), faulty->label, faulty->fault)
                           : GetFault();
    view->SetText(c_remark, fault.IsEmpty() ? GetRemark() : fault);
}

void COptionsDlg::OnOK()
{
    const auto faulty = std::ranges::find_if(
        m_options, [](const SDialogOption& option) { return option.enabled && !option.fault.IsEmpty(); });
    if (faulty == m_options.end() && GetFault().IsEmpty())
        return CBaseDialog::OnOK();
    if (GetView() && faulty != m_options.end())
        GetView()->FocusOption(faulty->id);
}

} // namespace CommonUI
