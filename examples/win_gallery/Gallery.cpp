#include "examples/win_gallery/Gallery.h"

#include "examples/win_gallery/Shots.h"
#include "output/grid/GridCheckItem.h"
#include "output/grid/GridDblSpinItem.h"
#include "output/grid/GridListItem.h"
#include "output/results/NumberFormat.h"
#include "windows/dialogs/WinFormatSpecifierWindow.h"
#include "windows/dialogs/WinProgressWindow.h"

#include <cmath>
#include <iterator>

namespace WinGallery
{

using namespace CommonUI;

namespace
{

constexpr struct {
    const char16_t* name;
    double factor;
} c_columns[] = {{u"Ra", 0.21}, {u"Rq", 0.27}, {u"Rz", 1.43}, {u"Rt", 1.92}, {u"Rp", 0.71}, {u"Rv", 0.72}};

constexpr int c_steps = 250;

// On a thread of its own.
struct SWork {
    CProgressThreadDialog& dialog;

    void Do()
    {
        for (int i = 1; i <= c_steps; ++i) {
            Sleep(20);
            if (dialog.PostThreadProgress(1, CStr::Format(u"Profile %d of %d", i, c_steps)) != 0)
                return; // the user has cancelled
        }
    }
};

double Evaluate(double factor, int profile)
{
    return factor * (1 + 0.1 * std::sin(9 * factor * profile));
}

} // namespace

CGallery::CGallery(HWND dialog)
    : m_dialog(dialog)
    , m_title(dialog)
    , m_parameter(MakeRoughnessParameter(ERoughnessParameters::Sq))
    , m_cutoff(dialog, c_cutoff)
    , m_profiles(dialog, c_profiles)
    , m_traverse(dialog, c_traverse)
    , m_table(dialog, c_table, m_results)
    , m_choices(dialog, c_choices)
{
    AddChoices();
    for (CWinFloatEdit* const edit : {&m_cutoff, &m_traverse}) {
        edit->GetEdit().SetFormatString(u"%.2f mm");
        edit->GetEdit().SetScanning(EScanning::Whole);
    }
    m_traverse.GetEdit().Setup(0.0F, 0.0F, 100.0F, 0.1F);
    m_traverse.GetEdit().SetReadOnly(true);
    m_traverse.GetEdit().ShowSpinButton(0, false);
    m_profiles.GetEdit().Setup(12, 1, 200, 1);
    m_profiles.GetEdit().SetChangeNotification(*this, &CGallery::OnProfiles);
    m_cutoff.GetEdit().SetChangeNotification(*this, &CGallery::OnCutoff);
    m_cutoff.GetEdit().Setup(0.8F, 0.08F, 8.0F, 0.1F); // calls OnCutoff
}

void CGallery::AddChoices()
{
    CGridCtrl& grid = m_choices.GetGrid();
    grid.AddColumn({u"Parameter", 130});
    grid.AddColumn({u"Shown", 70});
    grid.AddColumn({u"Unit", 110});
    grid.AddColumn({u"Limit in \u00B5m", 110});
    for (const auto& column : c_columns) {
        CGridRow& row = grid.AddRow();
        row.Emplace<CGridItem>(column.name).SetFlag(CGridItem::ReadOnly);
        row.Emplace<CGridCheckItem>(1, 0);
        CGridListItem& unit = row.Emplace<CGridListItem>();
        unit.SetOptions({u"nm", u"\u00B5m", u"mm"});
        unit.SetValue(CGridValue(u"\u00B5m"));
        row.Emplace<CGridDblSpinItem>(2.5).EnableSpinControl(true, 0, 100);
    }
    grid.FitColumns();
    grid.SetChangeCallback(*this, &CGallery::OnChoice);
}

// What is ticked.
std::vector<CGallery::SChoice> CGallery::ReadChoices()
{
    std::vector<SChoice> choices;
    for (std::size_t row = 0; row < std::size(c_columns); ++row) {
        const auto item = [&](std::size_t column) { return m_choices.GetGrid().GetItem({row, column}); };
        const CStr unit = item(2)->FormatItem();
        const double perMicrometre = unit == u"nm" ? 1000 : unit == u"mm" ? 0.001 : 1;
        if (item(1)->GetValue().GetInteger() != 0)
            choices.push_back({c_columns[row].name, unit, c_columns[row].factor, perMicrometre,
                               item(3)->GetValue().GetReal()});
    }
    return choices;
}

void CGallery::OnChoice(CGridItem&, int)
{
    Update();
}

void CGallery::OnCutoff(float cutoff)
{
    m_traverse.GetEdit().SetValue(6 * cutoff);
    Update();
}

void CGallery::OnProfiles(int)
{
    Update();
}

void CGallery::Update()
{
    m_results.Clear();
    m_results.SetNameHeader(u"Profile");
    const std::vector<SChoice> choices = ReadChoices();
    for (const SChoice& choice : choices)
        m_results.AddColumn({choice.name, choice.unit});
    for (int row = 1; row <= m_profiles.GetEdit().GetValue(); ++row) {
        std::vector<CStr> cells;
        for (const SChoice& choice : choices) {
            const double value = Evaluate(choice.factor, row) * m_cutoff.GetEdit().GetValue();
            const CStr text =
                FormatParameterValue(value * choice.perMicrometre, m_parameter.GetFloatFormat());
            cells.push_back(value > choice.limit ? text + u" !" : text);
        }
        m_results.AddRow({.name = CStr::Format(u"%d", row), .cells = cells});
    }
    m_table.Update();
}

void CGallery::ChooseFormat()
{
    CWinFormatSpecifierDlg dialog(m_parameter, m_dialog);
    if (dialog.DoModal() != CBaseDialog::c_ok)
        return;
    m_parameter = dialog.GetParameter();
    Update();
}

void CGallery::ShowProgress()
{
    CWinProgressThreadDialog dialog(m_dialog, u"Evaluation", u"Reading the profiles");
    dialog.SetRange(c_steps);
    SWork work{dialog};
    dialog.SetWork(work, &SWork::Do);
    dialog.DoModal();
}

void CGallery::OnButton(int button)
{
    if (button == c_format)
        ChooseFormat();
    else if (button == c_progress)
        ShowProgress();
    else if (button == c_copy)
        m_table.Run(CWinResultGrid::ECommand::CopyWhole);
}

bool CGallery::WriteShots(const std::wstring& folder)
{
    m_table.GetPane().SelectCell({2, 3});
    m_choices.GetGrid().SelectCell({1, 3});
    m_choices.GetGrid().BeginEdit();
    // While its editor is open, which closes when another window gets the keyboard.
    if (!WriteShot(m_dialog, folder + L"/window.png"))
        return false;
    CWinFormatSpecifierDlg format(m_parameter, m_dialog);
    format.Create();
    CWinProgressThreadDialog progress(m_dialog, u"Evaluation", u"Profile 93 of 250");
    progress.GetWindow().SetBarRange(0, c_steps);
    progress.GetWindow().SetBarPosition(93);
    progress.GetWindow().SetText(ProgressTemplate::c_cancel, u"Cancel");
    progress.GetWindow().SetText(ProgressTemplate::c_text, u"Profile 93 of 250");
    progress.GetWindow().SetCaption(u"Evaluation");
    progress.GetWindow().Show(true);
    return WriteShot(format.GetWindow().GetWindow(), folder + L"/format.png") &&
           WriteShot(progress.GetWindow().GetWindow(), folder + L"/progress.png");
}

} // namespace WinGallery
