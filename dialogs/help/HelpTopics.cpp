#include "dialogs/help/HelpTopics.h"

#include "dialogs/FormatSpecifierDlg.h"
#include "dialogs/lists/SelectionListDlg.h"
#include "dialogs/ProgressLayout.h"
#include "dialogs/results/ResultDialog.h"
#include "dialogs/selection/HistogramDlg.h"
#include "dialogs/selection/InputsDlg.h"
#include "dialogs/selection/SelectionDlg.h"
#include "dialogs/text/TextEditorDlg.h"

namespace CommonUI
{

namespace
{

constexpr SHelpTopic OfSelection(EAnalysis analysis)
{
    return {CSelectionDlg::GetIdentifier(analysis), u"parameter-selection.md", u"tabs"};
}

} // namespace

std::span<const SHelpTopic> GetHelpTopics()
{
    static constexpr SHelpTopic c_topics[] = {
        {ProgressTemplate::c_dialog, u"progress-dialogs.md", u""},
        {CFormatSpecifierDlg::c_identifier, u"qt.md", u"the-format-of-a-parameter"},
        {CSelectionListDlg::c_identifier, u"dialogs.md", u"lists-to-choose-from"},
        {CTextEditorDlg::c_identifier, u"dialogs.md", u"texts-to-edit"},
        {CInputsDlg::c_identifier, u"parameter-selection.md", u"tabs"},
        {CPercentileDlg::c_identifier, u"parameter-selection.md", u"tabs"},
        {CHistogramDlg::c_identifier, u"parameter-selection.md", u"tabs"},
        OfSelection(EAnalysis::Calibration1D),
        OfSelection(EAnalysis::CalibrationXY),
        OfSelection(EAnalysis::CalibrationZ),
        OfSelection(EAnalysis::CrossCorrelation),
        OfSelection(EAnalysis::Linearity),
        OfSelection(EAnalysis::PlaneCorrection),
        OfSelection(EAnalysis::Roughness),
        OfSelection(EAnalysis::RoughnessProfile),
        OfSelection(EAnalysis::Tip),
        OfSelection(EAnalysis::Measure),
        {HelpTopic::c_chooser, u"settings-menu.md", u"the-chooser"},
        {HelpTopic::c_manage, u"settings-menu.md", u"files"},
        {HelpTopic::c_compare, u"settings-menu.md", u"two-sets-compared"},
        {HelpTopic::c_import, u"settings-menu.md", u"importing-a-set"},
        {CResultDialog::c_identifier, u"result-dialog.md", u""},
    };
    return c_topics;
}

} // namespace CommonUI
