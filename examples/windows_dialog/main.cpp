#include <CommonUI/windows/edits/WinNumericEdit.h>
#include <CommonUI/windows/grid/WinResultGrid.h>
#include <CommonUI/windows/services/WinServices.h>

#include <windows.h>

using namespace CommonUI;

// The numbers of windows_dialog.rc.
constexpr int c_dialog = 100;
constexpr int c_cutoffField = 101;
constexpr int c_resultPlace = 102;

// Asks for a cut-off, and shows what follows from it.
class CCutoffDialog
{
public:
    explicit CCutoffDialog(HWND dialog)
        : m_cutoff(dialog, c_cutoffField)
        , m_results(dialog, c_resultPlace, m_table)
    {
        CFloatEdit& edit = m_cutoff.GetEdit();
        edit.SetFormatString(u"%.2f mm");
        edit.SetScanning(EScanning::Whole); // "0,8" is understood, and "800 µm"
        edit.SetChangeNotification(*this, &CCutoffDialog::OnCutoff);
        edit.Setup(0.8F, 0.08F, 8.0F, 0.1F); // value, minimum, maximum, step: calls OnCutoff
    }

    float GetCutoff() { return m_cutoff.GetEdit().GetValue(); }

private:
    void OnCutoff(float cutoff)
    {
        constexpr struct {
            const char16_t* name;
            float count;
        } c_lengths[] = {{u"Sampling", 1}, {u"Evaluation", 5}, {u"Traverse, with run-up and run-out", 6}};
        m_table.Clear();
        m_table.SetNameHeader(u"Length");
        m_table.AddColumn({u"Sampling lengths", {}});
        m_table.AddColumn({u"mm", {}});
        for (const auto& [name, count] : c_lengths)
            m_table.AddRow({.name = name,
                            .cells = {CStr::Format(u"%.0f", count), CStr::Format(u"%.2f", count * cutoff)}});
        m_results.Update(); // after rows or columns have changed
    }

    CGridBaseOutputCtrl m_table{CGridBaseOutputCtrl::SCellInfo::Results};
    CWinFloatEdit m_cutoff;
    CWinResultGrid m_results;
};

INT_PTR CALLBACK OnDialog(HWND window, UINT message, WPARAM wide, LPARAM)
{
    static CCutoffDialog* s_dialog = nullptr;
    if (message == WM_INITDIALOG)
        s_dialog = new CCutoffDialog(window);
    if (message == WM_COMMAND && (LOWORD(wide) == IDOK || LOWORD(wide) == IDCANCEL))
        EndDialog(window, LOWORD(wide) == IDOK && s_dialog->GetCutoff() > 0 ? IDOK : IDCANCEL);
    if (message == WM_DESTROY)
        delete s_dialog;
    return message == WM_INITDIALOG;
}

int WINAPI wWinMain(HINSTANCE program, HINSTANCE, wchar_t*, int)
{
    const CWinServices services(u"Cut-off"); // timers, message loop, message boxes, clipboard and others
    return DialogBoxW(program, MAKEINTRESOURCEW(c_dialog), nullptr, OnDialog) == IDOK ? 0 : 1;
}
