#include "dialogs/lists/SelectionListDlg.h"

#include "common/StringTable.h"
#include "dialogs/detail/DialogTexts.h"
#include "dialogs/detail/FrameworkTexts.h"

#include <algorithm>
#include <utility>

namespace CommonUI
{

namespace
{

constexpr struct {
    int control;
    int text;
} c_labels[] = {
    {CSelectionListDlg::c_filter, c_listFilter}, {CSelectionListDlg::c_all, c_listAll},
    {CSelectionListDlg::c_none, c_listNone},     {CBaseDialog::c_ok, c_okText},
    {CBaseDialog::c_cancel, c_cancelText},
};

} // namespace

CSelectionListView::~CSelectionListView() = default;

CSelectionListDlg::CSelectionListDlg(EMode mode, const CStr& caption, const CStr& prompt,
                                     std::vector<CStr> entries)
    : CBaseDialog(c_identifier, nullptr)
    , m_mode(mode)
    , m_caption(caption)
    , m_prompt(prompt)
    , m_entries(std::move(entries))
    , m_chosen(m_entries.size(), false)
    , m_original(m_chosen)
{
    m_filter.SetEntries(m_entries);
}

CSelectionListDlg::~CSelectionListDlg()
{
    EndDialog(c_cancel);
}

void CSelectionListDlg::SetView(CSelectionListView* view)
{
    Link(*this, view);
}

void CSelectionListDlg::SetChosen(const std::vector<std::size_t>& entries)
{
    m_chosen.assign(m_entries.size(), false);
    m_chosenCount = 0;
    for (const std::size_t entry : entries) {
        if (entry >= m_chosen.size() || m_chosen[entry] || (m_mode == EMode::Single && HasChoice()))
            continue;
        m_chosen[entry] = true;
        ++m_chosenCount;
    }
}

std::vector<std::size_t> CSelectionListDlg::GetChosen() const
{
    std::vector<std::size_t> chosen;
    for (std::size_t i = 0; i < m_chosen.size(); ++i)
        if (m_chosen[i])
            chosen.push_back(i);
    return chosen;
}

bool CSelectionListDlg::HasChoice() const
{
    return m_chosenCount > 0;
}

bool CSelectionListDlg::OnInitDialog()
{
    m_original = m_chosen;
    m_filter.SetText({});
    if (CSelectionListView* const view = GetView()) {
        view->SetCaption(m_caption);
        for (const auto& label : c_labels)
            view->SetText(label.control, GetString(label.text));
        view->SetText(c_list, m_prompt);
        view->SetFilterText({});
        view->UpdateRows();
    }
    KeepChoiceInSight();
    return true;
}

void CSelectionListDlg::OnFilterChanged(const CStr& text)
{
    if (!m_filter.SetText(text))
        return;
    if (GetView())
        GetView()->UpdateRows();
    KeepChoiceInSight();
}

// The row of the entry chosen, where there is one only.
std::optional<std::size_t> CSelectionListDlg::GetChosenRow() const
{
    const auto& rows = GetRows();
    const auto found =
        std::find_if(rows.begin(), rows.end(), [&](std::size_t entry) { return m_chosen[entry]; });
    if (found == rows.end())
        return {};
    return static_cast<std::size_t>(found - rows.begin());
}

// Typing and Enter choose the first entry that fits.
void CSelectionListDlg::KeepChoiceInSight()
{
    std::optional<std::size_t> row = GetChosenRow();
    const bool filtered = !m_filter.GetText().IsEmpty();
    if (m_mode == EMode::Single && !row && (filtered || HasChoice())) {
        row = GetRows().empty() ? std::nullopt : std::optional<std::size_t>(0);
        SetChosen(row ? std::vector{GetRows()[*row]} : std::vector<std::size_t>{});
    }
    if (GetView())
        GetView()->SelectRow(row);
    UpdateView();
}

void CSelectionListDlg::OnRowSelected(std::optional<std::size_t> row)
{
    if (m_mode != EMode::Single)
        return;
    const bool isRow = row && *row < GetRows().size();
    SetChosen(isRow ? std::vector{GetRows()[*row]} : std::vector<std::size_t>{});
    UpdateView();
}

void CSelectionListDlg::OnRowChecked(std::size_t row, bool checked)
{
    if (m_mode == EMode::Single || row >= GetRows().size() || m_chosen[GetRows()[row]] == checked)
        return;
    m_chosen[GetRows()[row]] = checked;
    m_chosenCount += checked ? 1 : std::size_t(-1);
    UpdateView();
}

void CSelectionListDlg::OnCheckRows(bool checked)
{
    if (m_mode == EMode::Single)
        return;
    for (const std::size_t entry : GetRows())
        m_chosen[entry] = checked;
    m_chosenCount = static_cast<std::size_t>(std::count(m_chosen.begin(), m_chosen.end(), true));
    UpdateView();
}

void CSelectionListDlg::OnRowActivated()
{
    if (m_mode == EMode::Single)
        OnOK();
}

void CSelectionListDlg::OnOK()
{
    if (m_mode == EMode::Several || HasChoice())
        CBaseDialog::OnOK();
}

void CSelectionListDlg::UpdateView()
{
    CSelectionListView* const view = GetView();
    if (!view)
        return;
    const bool isSingle = m_mode == EMode::Single;
    view->SetText(c_count, isSingle ? CStr::Format(GetString(c_listCount), GetRows().size(), m_entries.size())
                                    : CStr::Format(GetString(c_listChosenCount), GetRows().size(),
                                                   m_entries.size(), m_chosenCount));
    view->Enable(c_ok, !isSingle || HasChoice());
    view->UpdateChoice();
}

void CSelectionListDlg::OnDestroy()
{
    if (GetResult() == c_ok)
        return;
    m_chosen = m_original;
    m_chosenCount = static_cast<std::size_t>(std::count(m_chosen.begin(), m_chosen.end(), true));
}

} // namespace CommonUI
