// Selection dialogs beside maps of what is on: several are open on one manager, which somebody else changes,
// too; they end by OK, by Cancel and by being destroyed.

#include "dialogs/selection/MemorySelectionView.h"
#include "tests/faults/Faults.h"
#include "tests/faults/Histories.h"

#include <array>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

using namespace CommonUI;

namespace Faults
{

namespace
{

using CKey = std::pair<ESelectionList, int>;
using CChoices = std::map<CKey, bool>; // what can be switched, and whether it is on

constexpr EAnalysis c_analysis = EAnalysis::Roughness;

CChoices ChoicesOf(const CAnalysisPreferencesData& data)
{
    CChoices choices;
    for (const CParameter& parameter : data.GetParameters())
        if (!parameter.IsTemplate())
            choices[{ESelectionList::Parameters, parameter.GetValue()}] = parameter.IsOn();
    for (const CParameter& statistic : data.GetStatistics())
        choices[{ESelectionList::Statistics, statistic.GetValue()}] = statistic.IsOn();
    for (const CParameter& output : data.GetOutputs())
        choices[{ESelectionList::Outputs, output.GetValue()}] = output.IsOn();
    return choices;
}

struct SOpenDialog {
    SOpenDialog(CAnalysisPreferencesManager& manager, const CChoices& choices)
        : dialog(manager, c_analysis)
        , own(choices)
        , stored(choices)
    {
        dialog.SetView(&view);
        dialog.Create();
    }

    CMemorySelectionView view;
    CSelectionDlg dialog;
    CChoices own;
    CChoices stored; // when it was last looked at
};

class CDialogGame
{
public:
    explicit CDialogGame(unsigned seed)
        : m_random(seed)
        , m_choices(ChoicesOf(m_manager.GetData(c_analysis)))
    {
    }

    void Play(int steps)
    {
        for (int i = 0; i < steps; ++i) {
            Act(m_random() % 16);
            Check();
        }
    }

private:
    void Act(unsigned action)
    {
        if (action == 0 && m_open.size() < 3)
            m_open.push_back(std::make_unique<SOpenDialog>(m_manager, m_choices));
        else if (action == 1)
            ChangeElsewhere();
        else if (!m_open.empty())
            Use(m_random() % m_open.size(), action);
    }
    void Use(std::size_t index, unsigned action)
    {
        SOpenDialog& open = *m_open[index];
        if (action == 2) {
            Commit(open);
            End(index, &CSelectionDlg::OnOK);
        } else if (action == 3) {
            End(index, &CSelectionDlg::OnCancel);
        } else if (action == 4) {
            m_open.erase(m_open.begin() + static_cast<std::ptrdiff_t>(index));
        } else if (action < 7) {
            open.dialog.OnTab(m_random() % open.dialog.GetTabs().size());
        } else if (action == 7) {
            constexpr std::array c_searches{u"", u"height", u"4287 ra", u"s", u"nothing of it"};
            open.dialog.OnSearch(c_searches[m_random() % c_searches.size()]);
        } else {
            Tick(open);
        }
    }
    void End(std::size_t index, void (CSelectionDlg::*end)())
    {
        const std::unique_ptr<SOpenDialog> open = std::move(m_open[index]);
        m_open.erase(m_open.begin() + static_cast<std::ptrdiff_t>(index));
        (open->dialog.*end)();
        Expect(!open->dialog.IsOpen(), "a dialog stays open");
    }
    // A row that is shown, or a group, of which that counts which is shown.
    void Tick(SOpenDialog& open)
    {
        const CSelectionDlg::STab& tab = open.dialog.GetTabs()[open.dialog.GetCurrentTab()];
        if (tab.rows.GetCount() == 0)
            return;
        const int row = static_cast<int>(m_random() % tab.rows.GetCount());
        if (!tab.rows.Get(row).shown || tab.rows.GetCheck(row) == ESelectionCheck::None)
            return;
        const bool on = m_random() % 2 == 0;
        for (const int id : tab.rows.GetSwitched(row))
            if (const auto choice = open.own.find({GetSelectionList(tab.kind), id}); choice != open.own.end())
                choice->second = on;
        open.dialog.OnCheck(row, on);
    }
    void ChangeElsewhere()
    {
        auto choice = m_choices.begin();
        do {
            choice = m_choices.begin();
            std::advance(choice, static_cast<long>(m_random() % m_choices.size()));
        } while (choice->first.first != ESelectionList::Parameters);
        choice->second = m_random() % 2 == 0;
        m_manager.SetDataParameterOn(c_analysis, choice->first.second, choice->second);
        TellAll();
    }
    void Commit(const SOpenDialog& open)
    {
        m_choices = open.own;
        TellAll();
    }
    // What a dialog has not changed itself follows what is stored.
    void TellAll()
    {
        for (const auto& open : m_open)
            for (auto& [key, on] : open->own) {
                bool& stored = open->stored[key];
                if (on == stored)
                    on = m_choices[key];
                stored = m_choices[key];
            }
    }
    void Check() const
    {
        Expect(ChoicesOf(m_manager.GetData(c_analysis)) == m_choices,
               "what is stored is not what was chosen");
        for (const auto& open : m_open)
            Expect(ChoicesOf(open->dialog.GetSelection()->GetData()) == open->own,
                   "a dialog does not have what was chosen in it");
    }

    std::mt19937 m_random;
    CAnalysisPreferencesManager m_manager;
    CChoices m_choices;
    std::vector<std::unique_ptr<SOpenDialog>> m_open;
};

} // namespace

void PlayDialogs(unsigned seed, int steps)
{
    CDialogGame(seed).Play(steps);
}

} // namespace Faults
