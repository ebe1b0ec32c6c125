#include "dialogs/selection/MemorySelectionView.h"

#include <algorithm>

namespace CommonUI
{

CMemorySelectionView::~CMemorySelectionView() = default;

void CMemorySelectionView::GoToRow(std::size_t tab, int row)
{
    GetControl()->OnTab(tab);
    GetControl()->OnSelect({row});
}

void CMemorySelectionView::GoToOption(std::size_t tab, int option)
{
    GetControl()->OnTab(tab);
    m_option = option;
}

int CMemorySelectionView::Run(CFormatSpecifierDlg& dialog)
{
    return CMemoryFormatSpecifierView::Run(dialog, onFormat);
}

int CMemorySelectionView::Run(COptionsDlg& dialog)
{
    CMemoryOptionsView window;
    dialog.SetView(&window);
    dialog.Create();
    if (onOptions)
        onOptions(window);
    const int result = dialog.IsOpen() ? CBaseDialog::c_cancel : CBaseDialog::c_ok;
    dialog.EndDialog(CBaseDialog::c_cancel);
    return result;
}

void CMemorySelectionView::DrawRow(int row, const CStr& indent, CStr& text) const
{
    constexpr std::u16string_view c_checks[] = {u"", u"[ ] ", u"[x] ", u"[-] "};
    const CSelectionDlg& dialog = *GetControl();
    const std::size_t tab = dialog.GetCurrentTab();
    const CSelectionRows& rows = dialog.GetTabs()[tab].rows;
    text += indent + c_checks[static_cast<std::size_t>(rows.GetCheck(row))];
    for (const ESelectionColumn column : dialog.GetTabs()[tab].columns) {
        const CStr cell = dialog.GetText(tab, row, column);
        if (!cell.IsEmpty())
            text += (column == ESelectionColumn::Name ? u"" : u" | ") + cell;
    }
    text += dialog.GetMark(tab, row) == ESelectionMark::None ? u"\n" : u" !\n";
    for (const int below : rows.GetShown(row))
        DrawRow(below, indent + u"  ", text);
}

CStr CMemorySelectionView::Draw() const
{
    CStr text;
    const CSelectionDlg::STab& tab = GetControl()->GetTabs()[GetControl()->GetCurrentTab()];
    for (const int row : tab.rows.GetShown(-1))
        DrawRow(row, {}, text);
    for (const SDialogOption& option : tab.options) {
        const bool isChoice = option.kind == SDialogOption::EKind::Choice;
        const CStr value =
            option.kind == SDialogOption::EKind::Check
                ? CStr(option.value ? u"[x]" : u"[ ]")
                : (isChoice ? option.choices.at(static_cast<std::size_t>(option.value)) : option.text);
        text += option.label + u": " + value + (option.enabled ? u"" : u" (off)") +
                (option.remark.IsEmpty() ? u"\n" : u" !\n");
    }
    return text;
}

int CMemorySelectionView::FindRow(const CStr& name) const
{
    if (!IsVisible() || !GetControl())
        return -1;
    const CSelectionRows& rows = GetControl()->GetTabs()[GetControl()->GetCurrentTab()].rows;
    for (int row = 0; row < static_cast<int>(rows.GetCount()); ++row)
        if (rows.Get(row).shown && rows.Get(row).name == name)
            return row;
    return -1;
}

bool CMemorySelectionView::GoToTab(ESelectionTab tab)
{
    if (!IsVisible() || !GetControl())
        return false;
    const auto& tabs = GetControl()->GetTabs();
    const auto found = std::ranges::find(tabs, tab, &CSelectionDlg::STab::kind);
    if (found != tabs.end())
        GetControl()->OnTab(static_cast<std::size_t>(found - tabs.begin()));
    return found != tabs.end();
}

bool CMemorySelectionView::Select(const CStr& name)
{
    const int row = FindRow(name);
    if (row >= 0)
        GetControl()->OnSelect({row});
    return row >= 0;
}

bool CMemorySelectionView::Check(const CStr& name, bool on)
{
    const int row = FindRow(name);
    const bool can = row >= 0 && GetControl()->GetTabs()[GetControl()->GetCurrentTab()].rows.GetCheck(row) !=
                                     ESelectionCheck::None;
    if (can)
        GetControl()->OnCheck(row, on);
    return can;
}

bool CMemorySelectionView::ChooseUnit(const CStr& name, const CStr& unit)
{
    const int row = FindRow(name);
    if (row < 0)
        return false;
    for (const auto& [factor, text] : GetControl()->GetUnits(GetControl()->GetCurrentTab(), row))
        if (text == unit) {
            GetControl()->OnUnit(row, factor);
            return true;
        }
    return false;
}

bool CMemorySelectionView::Search(const CStr& text)
{
    const bool can = IsVisible() && GetControl() &&
                     !GetControl()->GetTabs()[GetControl()->GetCurrentTab()].columns.empty();
    if (can)
        GetControl()->OnSearch(text);
    return can;
}

const SDialogOption* CMemorySelectionView::FindUsable(const CStr& label) const
{
    if (!IsVisible() || !GetControl())
        return nullptr;
    const auto& options = GetControl()->GetTabs()[GetControl()->GetCurrentTab()].options;
    const auto found = std::ranges::find(options, label, &SDialogOption::label);
    return found == options.end() || !found->enabled ? nullptr : &*found;
}

bool CMemorySelectionView::Choose(const CStr& option, const CStr& choice)
{
    const SDialogOption* const found = FindUsable(option);
    if (!found || found->kind == SDialogOption::EKind::Number)
        return false;
    if (found->kind == SDialogOption::EKind::Check) {
        GetControl()->OnChoice(found->id, choice == u"1" ? 1 : 0);
        return true;
    }
    const auto item = std::ranges::find(found->choices, choice);
    if (item == found->choices.end())
        return false;
    GetControl()->OnChoice(found->id, static_cast<int>(item - found->choices.begin()));
    return true;
}

bool CMemorySelectionView::Type(const CStr& option, const CStr& text)
{
    const SDialogOption* const found = FindUsable(option);
    if (!found || found->kind != SDialogOption::EKind::Number)
        return false;
    GetControl()->OnOptionText(found->id, text);
    return true;
}

bool CMemorySelectionView::Press(int button)
{
    if (!CanPress(button))
        return false;
    if (button == CBaseDialog::c_ok)
        GetControl()->OnOK();
    else if (button == CBaseDialog::c_cancel)
        GetControl()->OnCancel();
    else if (button == CSelectionDlg::c_help)
        GetControl()->OnHelpInfo();
    else
        GetControl()->OnCommand(button);
    return true;
}

} // namespace CommonUI
