#pragma once

#include "model/RoughnessCatalogue.h"
#include "windows/dialogs/WinDarkTitle.h"
#include "windows/edits/WinNumericEdit.h"
#include "windows/grid/WinGridCtrl.h"
#include "windows/grid/WinResultGrid.h"

#include <windows.h>

#include <string>
#include <vector>

namespace WinGallery
{

/// The numbers of win_gallery.rc.
constexpr int c_dialog = 100;
constexpr int c_cutoff = 101;
constexpr int c_profiles = 102;
constexpr int c_traverse = 103;
constexpr int c_table = 104;
constexpr int c_format = 105;
constexpr int c_progress = 106;
constexpr int c_copy = 107;
constexpr int c_choices = 108;

/// What is in the dialog: edits, of which one follows from another, a table, a grid that chooses what it
/// shows, and the library's dialogs.
class CGallery
{
public:
    explicit CGallery(HWND dialog);

    /// A button has been pressed.
    void OnButton(int button);
    /// Writes pictures of the window and of the dialogs into a folder. @return whether all could be written
    bool WriteShots(const std::wstring& folder);

private:
    // A column of the table.
    struct SChoice {
        CommonUI::CStr name;
        CommonUI::CStr unit;
        double factor;
        double perMicrometre;
        double limit; // in micrometres
    };

    void OnCutoff(float cutoff);
    void OnProfiles(int count);
    void OnChoice(CommonUI::CGridItem& item, int row);
    void AddChoices();
    std::vector<SChoice> ReadChoices();
    void Update();
    void ChooseFormat();
    void ShowProgress();

    HWND m_dialog;
    CommonUI::CWinDarkTitle m_title;
    CommonUI::CParameter m_parameter;
    CommonUI::CGridBaseOutputCtrl m_results{CommonUI::CGridBaseOutputCtrl::SCellInfo::Results};
    CommonUI::CWinFloatEdit m_cutoff;
    CommonUI::CWinIntEdit m_profiles;
    CommonUI::CWinFloatEdit m_traverse;
    CommonUI::CWinResultGrid m_table;
    CommonUI::CWinGridCtrl m_choices;
};

} // namespace WinGallery
