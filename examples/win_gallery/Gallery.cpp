#include "examples/win_gallery/Gallery.h"

#include "examples/win_gallery/Shots.h"
#include "output/results/NumberFormat.h"
#include "windows/dialogs/WinFormatSpecifierWindow.h"
#include "windows/dialogs/WinProgressWindow.h"

#include <cmath>

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
{
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
    for (const auto& column : c_columns)
        m_results.AddColumn({column.name, u"\u00B5m"});
    for (int row = 1; row <= m_profiles.GetEdit().GetValue(); ++row) {
        std::vector<CStr> cells;
        for (const auto& column : c_columns) {
            const double value = Evaluate(column.factor, row) * m_cutoff.GetEdit().GetValue();
            cells.push_back(FormatParameterValue(value, m_parameter.GetFloatFormat()));
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
    CWinFormatSpecifierDlg format(m_parameter, m_dialog);
    format.Create();
    CWinProgressThreadDialog progress(m_dialog, u"Evaluation", u"Profile 93 of 250");
    progress.GetWindow().SetBarRange(0, c_steps);
    progress.GetWindow().SetBarPosition(93);
    progress.GetWindow().SetText(ProgressTemplate::c_cancel, u"Cancel");
    progress.GetWindow().SetText(ProgressTemplate::c_text, u"Profile 93 of 250");
    progress.GetWindow().SetCaption(u"Evaluation");
    progress.GetWindow().Show(true);
    return WriteShot(m_dialog, folder + L"/window.png") &&
           WriteShot(format.GetWindow().GetWindow(), folder + L"/format.png") &&
           WriteShot(progress.GetWindow().GetWindow(), folder + L"/progress.png");
}

} // namespace WinGallery
