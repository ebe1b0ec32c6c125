#include "dialogs/help/HelpTopics.h"

#include "dialogs/FormatSpecifierDlg.h"
#include "dialogs/lists/SelectionListDlg.h"
#include "dialogs/ProgressLayout.h"
#include "dialogs/results/ResultDialog.h"
#include "dialogs/text/TextEditorDlg.h"

namespace CommonUI
{

std::span<const SHelpTopic> GetHelpTopics()
{
    static constexpr SHelpTopic c_topics[] = {
        {ProgressTemplate::c_dialog, u"progress-dialogs.md", u""},
        {CFormatSpecifierDlg::c_identifier, u"qt.md", u"the-format-of-a-parameter"},
        {CSelectionListDlg::c_identifier, u"dialogs.md", u"lists-to-choose-from"},
        {CTextEditorDlg::c_identifier, u"dialogs.md", u"texts-to-edit"},
        {CResultDialog::c_identifier, u"result-dialog.md", u""},
    };
    return c_topics;
}

} // namespace CommonUI
