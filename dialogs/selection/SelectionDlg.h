#pragma once

#include "../BaseDialog.h"
#include "SelectionTab.h"
#include "SelectionView.h"

#include <memory>
#include <optional>
#include <vector>

namespace CommonUI
{

/// The dialog in which the user chooses the parameters, curves, statistics and outputs of an analysis, how
/// they are shown, and what is done to the surface before.
///
/// It edits a copy, and hands that back on OK: the manager's listeners hear of what has really changed. What
/// another window changes while it is open is shown at once; see CAnalysisSelection.
class COMMONUI_API CSelectionDlg : public CBaseDialog, public CViewedControl<CSelectionView>
{
public:
    COMMONUI_CONSTANT int c_help = 3;       ///< the Help button
    COMMONUI_CONSTANT int c_search = 11012; ///< the search field of a tab
    COMMONUI_CONSTANT int c_add = 11013;    ///< the button that makes a parameter from a template
    COMMONUI_CONSTANT int c_change = 11014; ///< the button for the inputs, percentile or histograms of a row
    COMMONUI_CONSTANT int c_remove = 11015; ///< the button that removes what was made from templates
    COMMONUI_CONSTANT int c_format = 11016; ///< the button for the number format of the selected rows
    COMMONUI_CONSTANT int c_defaults = 11017; ///< the button that takes the tab to its defaults
    COMMONUI_CONSTANT int c_stored = 11018;   ///< the button that takes the tab to what is stored
    COMMONUI_CONSTANT int c_count = 11036;    ///< a line of text: how many are chosen
    COMMONUI_CONSTANT int c_remark =
        11038; ///< a line of text: what is wrong, or what another window has done

    /// One page of the dialog.
    struct STab {
        ESelectionTab kind{};                    ///< which page it is
        std::vector<ESelectionColumn> columns{}; ///< of the rows; none for a page of options only
        CSelectionRows rows{};                   ///< those that the search has not found, too
        std::vector<SDialogOption> options{};    ///< of the form; none where there is no form
    };

    /// The number of the dialog of an analysis, and of its help topic.
    static constexpr unsigned int GetIdentifier(EAnalysis analysis)
    {
        return 11151U + static_cast<unsigned int>(analysis);
    }

    /// @param manager must outlive the dialog
    /// @param units of the surface's axes, in which units are offered
    CSelectionDlg(CAnalysisPreferencesManager& manager, EAnalysis analysis, const SBase3D<CUnit>& units);
    /// For surfaces in metres.
    CSelectionDlg(CAnalysisPreferencesManager& manager, EAnalysis analysis);
    ~CSelectionDlg() override;

    /// Gives the dialog its window before it is opened; null takes it away. The view is not owned.
    void SetView(CSelectionView* view);
    /// Lets the user choose which points are grains as well; before the dialog is opened. Means nothing for
    /// other analyses than that of grains.
    void SetGrainSettings(const SGrainThresholdSettings& settings) { m_grains = settings; }
    /// What the user has chosen of them once OK has been pressed, otherwise what was set; empty if nothing
    /// was.
    const std::optional<SGrainThresholdSettings>& GetGrainSettings() const noexcept { return m_grains; }

    /// What is edited, or was last; null before the dialog is first opened.
    const CAnalysisSelection* GetSelection() const noexcept { return m_selection.get(); }
    /// The pages in their order; none before the dialog is first opened.
    const std::vector<STab>& GetTabs() const noexcept { return m_tabs; }
    /// The index of the page that the user sees, among those of GetTabs.
    std::size_t GetCurrentTab() const noexcept { return m_current; }
    /// The rows of the current tab that commands are for.
    const std::vector<int>& GetSelectedRows() const noexcept { return m_selected; }
    /// What a column of a row says; empty for groups in other columns than the first.
    CStr GetText(std::size_t tab, int row, ESelectionColumn column) const;
    /// What an entry means: see GetSelectionToolTip; of a group, its name. Throws for a row that is none.
    CStr GetToolTip(std::size_t tab, int row) const;
    /// Whether another window has changed the entry meanwhile; None for a group. Throws as GetToolTip does.
    ESelectionMark GetMark(std::size_t tab, int row) const;
    /// The units that are offered for a row; none where there is nothing to choose.
    std::vector<CParameter::CScaling> GetUnits(std::size_t tab, int row) const;

    /// Whether a command means anything in a tab.
    bool HasCommand(std::size_t tab, int command) const;

    /// The user has gone to another tab.
    void OnTab(std::size_t tab);
    /// The user has typed in the search field of the current tab.
    void OnSearch(const CStr& text);
    /// The user has selected rows of the current tab: commands are for them.
    void OnSelect(const std::vector<int>& rows);
    /// The user has ticked the check box of a row of the current tab, or taken the tick away.
    void OnCheck(int row, bool on);
    /// The user has chosen a unit for a row of the current tab; means nothing but for parameters.
    void OnUnit(int row, CUnit::EUnitFactor factor);
    /// The user has pressed a button other than OK, Cancel and help.
    void OnCommand(int command);
    /// The user has chosen an item of an option's list in the current tab, or 1 or 0 of its check box.
    void OnChoice(int option, int value);
    /// The user has typed in the field of an option of the current tab.
    void OnOptionText(int option, const CStr& text);
    void OnOK() override;

protected:
    bool OnInitDialog() override;
    void OnDestroy() override;
    CDialogView* GetDialogView() const override { return GetView(); }

private:
    STab& Tab() { return m_tabs[m_current]; }
    const CParameter* GetEntry(int row) const;
    SSelectionSubject GetSubject() const;
    void FillTabs();
    void FillRows(std::size_t tab);
    void FillOptions(std::size_t tab);
    void ShowAll();
    void ShowState();
    void RefreshEntries(const std::vector<int>& ids);
    void OnPreferencesChanged(const SPreferencesChange& change);
    void TakeOptionNumber(int option, double number);

    // Whether the user has answered a dialog over this one by OK.
    template<class TDialog>
    bool Ask(TDialog& dialog);
    void ShowEntry(int id);
    void Add();
    void Change();
    void ChangeInputs(const CParameter& instance);
    void ChangePercentile(const CParameter& statistic);
    void ChangeHistograms(int quantity);
    void Remove();
    void ChangeFormat();
    void Restore(bool defaults);
    bool CanChange(const CParameter& entry) const;
    std::vector<int> GetSelectedEntries() const;

    CAnalysisPreferencesManager& m_manager;
    EAnalysis m_analysis;
    SBase3D<CUnit> m_units;
    std::optional<SGrainThresholdSettings> m_grains;
    std::optional<SGrainThresholdSettings> m_ownGrains; // while the dialog is open
    std::shared_ptr<CAnalysisSelection> m_selection;
    std::vector<STab> m_tabs;
    std::size_t m_current = 0;
    std::vector<int> m_selected;
    SSelectionUpdate m_updates;
    CClosureConnection m_connection;
};

} // namespace CommonUI
