#include "dialogs/selection/SelectionDlg.h"

#include "common/StringTable.h"
#include "dialogs/detail/DialogTexts.h"
#include "dialogs/selection/detail/SelectionTexts.h"
#include "dialogs/selection/HistogramDlg.h"
#include "dialogs/selection/InputsDlg.h"
#include "dialogs/selection/TabOptions.h"

#include <algorithm>
#include <utility>

namespace CommonUI
{

namespace
{

constexpr std::pair<int, int> c_labels[] = {
    {CSelectionDlg::c_search, SelectionText::c_search},
    {CSelectionDlg::c_add, SelectionText::c_add},
    {CSelectionDlg::c_change, SelectionText::c_change},
    {CSelectionDlg::c_remove, SelectionText::c_remove},
    {CSelectionDlg::c_format, SelectionText::c_format},
    {CSelectionDlg::c_stored, SelectionText::c_stored},
    {CSelectionDlg::c_defaults, SelectionText::c_defaults},
    {CSelectionDlg::c_help, SelectionText::c_help},
    {CBaseDialog::c_ok, SelectionText::c_ok},
    {CBaseDialog::c_cancel, c_cancelText},
};

SBase3D<CUnit> Metres()
{
    const CUnit metre(CUnit::EUnitFactor::Unity);
    return {metre, metre, metre};
}

bool IsFaulty(const SDialogOption& option)
{
    return option.enabled && !option.fault.IsEmpty();
}

// What is typed and wrong stays, and why.
void KeepFaults(const std::vector<SDialogOption>& from, std::vector<SDialogOption>& to)
{
    for (const SDialogOption& option : from) {
        SDialogOption* const same = option.fault.IsEmpty() ? nullptr : FindOption(to, option.id);
        if (same && same->unit == option.unit) {
            same->text = option.text;
            same->fault = option.fault;
        }
    }
}

const SDialogOption* FindFault(const std::vector<SDialogOption>& options)
{
    const auto found = std::ranges::find_if(options, IsFaulty);
    return found == options.end() ? nullptr : &*found;
}

} // namespace

CSelectionView::~CSelectionView() = default;

CSelectionDlg::CSelectionDlg(CAnalysisPreferencesManager& manager, EAnalysis analysis,
                             const SBase3D<CUnit>& units)
    : CBaseDialog(GetIdentifier(analysis), nullptr)
    , m_manager(manager)
    , m_analysis(analysis)
    , m_units(units)
{
}

CSelectionDlg::CSelectionDlg(CAnalysisPreferencesManager& manager, EAnalysis analysis)
    : CSelectionDlg(manager, analysis, Metres())
{
}

CSelectionDlg::~CSelectionDlg()
{
    EndDialog(c_cancel);
}

void CSelectionDlg::SetView(CSelectionView* view)
{
    Link(*this, view);
}

SSelectionSubject CSelectionDlg::GetSubject() const
{
    return {*m_selection, m_units, m_ownGrains ? &*m_ownGrains : nullptr};
}

bool CSelectionDlg::OnInitDialog()
{
    m_selection = std::make_shared<CAnalysisSelection>(m_manager, m_analysis);
    m_ownGrains = m_grains;
    m_updates = {};
    m_current = 0;
    m_selected.clear();
    FillTabs();
    m_manager.GetChangeList().Subscribe(*this, &CSelectionDlg::OnPreferencesChanged, m_connection);
    if (CSelectionView* const view = GetView()) {
        view->SetCaption(CStr::Format(GetString(SelectionText::c_caption),
                                      CAnalysisPreferencesData::GetFriendlyName(m_analysis)));
        view->MakeTabs();
        for (const auto& [control, text] : c_labels)
            view->SetText(control, GetString(text));
    }
    ShowState();
    return true;
}

void CSelectionDlg::OnDestroy()
{
    m_connection.Disconnect();
}

void CSelectionDlg::FillTabs()
{
    m_tabs.clear();
    for (const ESelectionTab kind : GetSelectionTabs(GetSubject())) {
        m_tabs.push_back({.kind = kind, .columns = GetSelectionColumns(kind, m_analysis)});
        FillRows(m_tabs.size() - 1);
        FillOptions(m_tabs.size() - 1);
    }
}

void CSelectionDlg::FillRows(std::size_t tab)
{
    m_tabs[tab].rows.Fill(GetSelectionGroups(m_tabs[tab].kind, m_selection->GetData()));
}

void CSelectionDlg::FillOptions(std::size_t tab)
{
    std::vector<SDialogOption> options = MakeTabOptions(m_tabs[tab].kind, GetSubject());
    KeepFaults(m_tabs[tab].options, options);
    m_tabs[tab].options = std::move(options);
}

void CSelectionDlg::ShowAll()
{
    std::vector<int> selected;
    for (const int row : m_selected)
        if (const CParameter* const entry = GetEntry(row))
            selected.push_back(entry->GetValue());
    m_selected.clear();
    for (std::size_t tab = 0; tab < m_tabs.size(); ++tab) {
        FillRows(tab);
        FillOptions(tab);
    }
    for (const int id : selected)
        if (const int row = Tab().rows.FindEntry(id); row >= 0 && Tab().rows.Get(row).shown)
            m_selected.push_back(row);
    for (std::size_t tab = 0; tab < m_tabs.size() && GetView(); ++tab) {
        GetView()->ResetRows(tab);
        GetView()->UpdateOptions(tab);
    }
    ShowState();
}

const CParameter* CSelectionDlg::GetEntry(int row) const
{
    const CSelectionRows& rows = m_tabs[m_current].rows;
    const bool exists = row >= 0 && static_cast<std::size_t>(row) < rows.GetCount();
    return exists && rows.Get(row).entry ? &*rows.Get(row).entry : nullptr;
}

CStr CSelectionDlg::GetText(std::size_t tab, int row, ESelectionColumn column) const
{
    const SSelectionRow& shown = m_tabs.at(tab).rows.Get(row);
    if (column == ESelectionColumn::Name)
        return shown.name;
    return shown.entry ? GetSelectionText(*shown.entry, column, m_tabs[tab].kind, GetSubject()) : CStr();
}

CStr CSelectionDlg::GetToolTip(std::size_t tab, int row) const
{
    const SSelectionRow& shown = m_tabs.at(tab).rows.Get(row);
    return shown.entry ? GetSelectionToolTip(*shown.entry, GetMark(tab, row), m_units) : shown.name;
}

ESelectionMark CSelectionDlg::GetMark(std::size_t tab, int row) const
{
    const SSelectionRow& shown = m_tabs.at(tab).rows.Get(row);
    return shown.entry ? m_selection->GetMark(GetSelectionList(m_tabs[tab].kind), shown.entry->GetValue())
                       : ESelectionMark::None;
}

std::vector<CParameter::CScaling> CSelectionDlg::GetUnits(std::size_t tab, int row) const
{
    const SSelectionRow& shown = m_tabs.at(tab).rows.Get(row);
    if (m_tabs[tab].kind != ESelectionTab::Parameters || !shown.entry)
        return {};
    return GetScalings(shown.entry->GetDimension(), m_units);
}

bool CSelectionDlg::HasCommand(std::size_t tab, int command) const
{
    const ESelectionTab kind = m_tabs.at(tab).kind;
    const bool isParameters = kind == ESelectionTab::Parameters;
    const auto isTemplate = [](const CParameter& parameter) { return parameter.IsTemplate(); };
    switch (command) {
    case c_add:
    case c_remove:
        return isParameters &&
               std::ranges::any_of(m_selection->GetList(ESelectionList::Parameters), isTemplate);
    case c_change:
        return kind == ESelectionTab::Statistics || HasCommand(tab, c_add) ||
               (kind == ESelectionTab::Outputs && m_analysis == EAnalysis::Measure);
    case c_format:
        return isParameters;
    default:
        return true;
    }
}

bool CSelectionDlg::CanChange(const CParameter& entry) const
{
    switch (m_tabs[m_current].kind) {
    case ESelectionTab::Parameters:
        return CAnalysisSelection::IsRemovable(entry) && entry.GetVariableCount() > 0;
    case ESelectionTab::Statistics:
        return entry == static_cast<int>(EStatistics::Fractile);
    default:
        return m_analysis == EAnalysis::Measure;
    }
}

// The entries of the rows that are selected; of a group, those that are shown.
std::vector<int> CSelectionDlg::GetSelectedEntries() const
{
    std::vector<int> ids;
    const auto add = [&ids](int id) {
        if (std::ranges::find(ids, id) == ids.end())
            ids.push_back(id);
    };
    for (const int row : m_selected) {
        if (const CParameter* const entry = GetEntry(row))
            add(entry->GetValue());
        else
            std::ranges::for_each(m_tabs[m_current].rows.GetSwitched(row), add);
    }
    return ids;
}

void CSelectionDlg::ShowState()
{
    CSelectionView* const view = GetView();
    if (!view)
        return;
    const STab& tab = Tab();
    const CParameter* const single = m_selected.size() == 1 ? GetEntry(m_selected[0]) : nullptr;
    const auto isRemovable = [this](int row) {
        const CParameter* const entry = GetEntry(row);
        return entry && CAnalysisSelection::IsRemovable(*entry);
    };
    view->Enable(c_add, HasCommand(m_current, c_add));
    view->Enable(c_change, HasCommand(m_current, c_change) && single && CanChange(*single));
    view->Enable(c_remove, std::ranges::any_of(m_selected, isRemovable));
    view->Enable(c_format, HasCommand(m_current, c_format) && !GetSelectedEntries().empty());

    CStr count;
    if (!tab.columns.empty() && tab.rows.GetSearch().Trim().IsEmpty())
        count = CStr::Format(GetString(SelectionText::c_count), tab.rows.CountOn());
    else if (!tab.columns.empty())
        count = CStr::Format(GetString(SelectionText::c_found), tab.rows.CountOn(), tab.rows.CountShown());
    view->SetText(c_count, count);

    CStr remark;
    if (const SDialogOption* const fault = FindFault(tab.options))
        remark = CStr::Format(GetString(SelectionText::c_hasFault), fault->label, fault->fault);
    else if (m_updates != SSelectionUpdate())
        remark = CStr::Format(GetString(SelectionText::c_updated), m_updates.taken, m_updates.kept);
    view->SetText(c_remark, remark);
}

void CSelectionDlg::OnTab(std::size_t tab)
{
    if (tab >= m_tabs.size() || tab == m_current)
        return;
    m_current = tab;
    m_selected.clear();
    ShowState();
}

void CSelectionDlg::OnSearch(const CStr& text)
{
    Tab().rows.Search(text);
    std::erase_if(m_selected, [this](int row) { return !Tab().rows.Get(row).shown; });
    if (GetView())
        GetView()->ResetRows(m_current);
    ShowState();
}

void CSelectionDlg::OnSelect(const std::vector<int>& rows)
{
    m_selected = rows;
    std::erase_if(m_selected, [this](int row) {
        return row < 0 || static_cast<std::size_t>(row) >= Tab().rows.GetCount();
    });
    ShowState();
}

void CSelectionDlg::RefreshEntries(const std::vector<int>& ids)
{
    for (const CParameter& entry : m_selection->GetList(GetSelectionList(Tab().kind)))
        if (std::ranges::find(ids, entry.GetValue()) != ids.end())
            Tab().rows.Refresh(entry);
    if (GetView())
        GetView()->UpdateRows(m_current);
    ShowState();
}

void CSelectionDlg::OnCheck(int row, bool on)
{
    const std::vector<int> ids = Tab().rows.GetSwitched(row);
    for (const int id : ids)
        m_selection->SetOn(GetSelectionList(Tab().kind), id, on);
    RefreshEntries(ids);
}

void CSelectionDlg::OnUnit(int row, CUnit::EUnitFactor factor)
{
    const CParameter* const entry = GetEntry(row);
    if (!entry || Tab().kind != ESelectionTab::Parameters)
        return;
    const int id = entry->GetValue();
    m_selection->SetUnitFactor(id, factor);
    RefreshEntries({id});
}

void CSelectionDlg::OnCommand(int command)
{
    switch (command) {
    case c_add:
        return Add();
    case c_change:
        return Change();
    case c_remove:
        return Remove();
    case c_format:
        return ChangeFormat();
    case c_defaults:
    case c_stored:
        return Restore(command == c_defaults);
    default:
        break;
    }
}

template<class TDialog>
bool CSelectionDlg::Ask(TDialog& dialog)
{
    const CWatch watch(*this);
    const bool taken = GetView() && GetView()->Run(dialog) == c_ok;
    // The window that the question lay over may have been closed.
    return taken && !watch.IsGone() && IsOpen();
}

void CSelectionDlg::ShowEntry(int id)
{
    ShowAll();
    int row = Tab().rows.FindEntry(id);
    if (row >= 0 && !Tab().rows.Get(row).shown) {
        OnSearch({});
        row = Tab().rows.FindEntry(id);
    }
    if (row >= 0 && GetView())
        GetView()->GoToRow(m_current, row);
}

void CSelectionDlg::Add()
{
    if (!HasCommand(m_current, c_add))
        return;
    // The template that is selected, or that of a parameter made from one, is what is meant.
    const CParameter* const entry = m_selected.empty() ? nullptr : GetEntry(m_selected[0]);
    CInputsDlg dialog(m_selection->GetList(ESelectionList::Parameters),
                      entry ? entry->GetBaseValue() : CParameter::c_noParent);
    if (Ask(dialog))
        ShowEntry(m_selection->AddInstance(dialog.GetTemplate(), dialog.GetValues()));
}

void CSelectionDlg::Change()
{
    const CParameter* const entry = m_selected.size() == 1 ? GetEntry(m_selected[0]) : nullptr;
    if (!entry || !CanChange(*entry))
        return;
    const int id = entry->GetValue();
    if (Tab().kind == ESelectionTab::Parameters)
        ChangeInputs(CParameter(*entry));
    else if (Tab().kind == ESelectionTab::Statistics)
        ChangePercentile(CParameter(*entry));
    else
        ChangeHistograms(id);
}

void CSelectionDlg::ChangeInputs(const CParameter& instance)
{
    CInputsDlg dialog = CInputsDlg::ForInstance(m_selection->GetList(ESelectionList::Parameters), instance);
    if (!Ask(dialog))
        return;
    m_selection->ChangeInstance(instance.GetValue(), dialog.GetValues());
    ShowEntry(instance.GetValue());
}

void CSelectionDlg::ChangePercentile(const CParameter& statistic)
{
    CPercentileDlg dialog(statistic.GetVariableValue());
    if (!Ask(dialog))
        return;
    m_selection->SetStatisticValue(statistic.GetValue(), dialog.GetPercent());
    RefreshEntries({statistic.GetValue()});
}

void CSelectionDlg::ChangeHistograms(int quantity)
{
    const std::vector<int> ids = m_selection->GetData().GetParameterIDs();
    if (std::ranges::find(ids, quantity) == ids.end())
        return;
    CHistogramDlg dialog(m_selection->GetData().GetParameter(quantity), m_units);
    if (!Ask(dialog))
        return;
    for (const auto histogram : {EGrainHistograms::Number, EGrainHistograms::Area, EGrainHistograms::Volume})
        m_selection->SetHistogram(quantity, histogram, dialog.GetSetup(histogram));
    RefreshEntries({quantity});
}

void CSelectionDlg::Remove()
{
    bool removed = false;
    for (const int id : GetSelectedEntries())
        removed |= Tab().kind == ESelectionTab::Parameters && m_selection->Remove(id);
    if (!removed)
        return;
    m_selected.clear();
    ShowAll();
}

void CSelectionDlg::ChangeFormat()
{
    const std::vector<int> ids = GetSelectedEntries();
    if (!HasCommand(m_current, c_format) || ids.empty())
        return;
    CFormatSpecifierDlg dialog(m_selection->GetData().GetParameter(ids[0]));
    if (!Ask(dialog))
        return;
    for (const int id : ids) {
        const bool isInteger = m_selection->GetData().GetParameter(id).GetFloatFormat().type ==
                               CParameter::EFormatSpecifier::FormatInteger;
        // Among others numbers of grains and counts stay whole.
        if (ids.size() == 1 || !isInteger)
            m_selection->SetFormat(id, dialog.GetParameter().GetFloatFormat());
    }
    RefreshEntries(ids);
}

void CSelectionDlg::Restore(bool defaults)
{
    const ESelectionList list = GetSelectionList(Tab().kind);
    const std::vector<int> ids = Tab().rows.GetEntries();
    if (!Tab().columns.empty() && defaults)
        m_selection->SetDefaults(list, ids);
    else if (!Tab().columns.empty())
        m_selection->Revert(list, ids);
    for (const ESelectionOption option : GetTabOptions(Tab().kind, m_selection->GetData())) {
        if (defaults)
            m_selection->SetDefault(option);
        else
            m_selection->Revert(option);
    }
    if (Tab().kind == ESelectionTab::Grains)
        m_ownGrains = defaults ? SGrainThresholdSettings() : m_grains;
    Tab().options.clear(); // with what is typed and wrong
    ShowAll();
}

void CSelectionDlg::TakeOptionNumber(int option, double number)
{
    if (Tab().kind == ESelectionTab::Grains && m_ownGrains)
        SetGrainOption(*m_ownGrains, static_cast<EGrainOption>(option), number);
    else
        m_selection->SetOption(static_cast<ESelectionOption>(option), number);
}

void CSelectionDlg::OnChoice(int option, int value)
{
    SDialogOption* const found = FindOption(Tab().options, option);
    if (!found || found->kind == SDialogOption::EKind::Number)
        return;
    TakeOptionNumber(option, GetOptionNumber(*found, value));
    FillOptions(m_current); // a choice may decide what others mean
    if (GetView())
        GetView()->UpdateOptions(m_current);
    ShowState();
}

void CSelectionDlg::OnOptionText(int option, const CStr& text)
{
    SDialogOption* const found = FindOption(Tab().options, option);
    if (!found || found->kind != SDialogOption::EKind::Number)
        return;
    if (const auto number = TypeOption(*found, text))
        TakeOptionNumber(option, *number);
    if (GetView())
        GetView()->UpdateOptions(m_current);
    ShowState();
}

void CSelectionDlg::OnPreferencesChanged(const SPreferencesChange& change)
{
    if (change.analysis != m_analysis)
        return;
    const SSelectionUpdate update = m_selection->Update();
    m_updates.taken += update.taken;
    m_updates.kept += update.kept;
    if (update != SSelectionUpdate())
        ShowAll();
}

void CSelectionDlg::OnOK()
{
    for (std::size_t tab = 0; tab < m_tabs.size(); ++tab) {
        const SDialogOption* const fault = FindFault(m_tabs[tab].options);
        if (!fault)
            continue;
        if (GetView())
            GetView()->GoToOption(tab, fault->id);
        return;
    }
    m_connection.Disconnect();
    m_grains = m_ownGrains;
    const CWatch watch(*this);
    const auto selection = m_selection; // a listener may destroy the dialog
    selection->Commit();
    if (!watch.IsGone())
        CBaseDialog::OnOK();
}

} // namespace CommonUI
