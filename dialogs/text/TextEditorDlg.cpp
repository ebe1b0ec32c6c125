#include "dialogs/text/TextEditorDlg.h"

#include "common/StringTable.h"
#include "dialogs/detail/DialogTexts.h"
#include "dialogs/detail/FrameworkTexts.h"
#include "platform/MessageBoxService.h"

namespace CommonUI
{

namespace
{

constexpr struct {
    int control;
    int text;
} c_labels[] = {
    {CTextEditorDlg::c_text, c_editorText},           {CTextEditorDlg::c_find, c_editorFind},
    {CTextEditorDlg::c_next, c_editorNext},           {CTextEditorDlg::c_previous, c_editorPrevious},
    {CTextEditorDlg::c_matchCase, c_editorMatchCase}, {CBaseDialog::c_ok, c_okText},
};

} // namespace

CTextEditorView::~CTextEditorView() = default;

CTextEditorDlg::CTextEditorDlg(EMode mode, const CStr& caption, const CStr& text)
    : CBaseDialog(c_identifier, nullptr)
    , m_mode(mode)
    , m_caption(caption)
    , m_text(text)
{
}

CTextEditorDlg::~CTextEditorDlg()
{
    EndDialog(c_cancel);
}

void CTextEditorDlg::SetView(CTextEditorView* view)
{
    Link(*this, view);
}

bool CTextEditorDlg::OnInitDialog()
{
    CTextEditorView* const view = GetView();
    if (!view)
        return true;
    view->SetCaption(m_caption);
    for (const auto& label : c_labels)
        view->SetText(label.control, GetString(label.text));
    view->SetText(c_cancel, GetString(m_mode == EMode::Edit ? c_cancelText : c_editorClose));
    view->SetText(c_status, {});
    view->SetReadOnly(m_mode == EMode::ReadOnly);
    view->SetEditText(m_text.GetPlain());
    return true;
}

bool CTextEditorDlg::IsModified() const
{
    return IsOpen() && m_mode == EMode::Edit && GetView() && GetView()->GetEditText() != m_text.GetPlain();
}

void CTextEditorDlg::OnFind(const CStr& what, const STextSearch& search)
{
    CTextEditorView* const view = GetView();
    if (!view || what.IsEmpty())
        return;
    const STextRange selection = view->GetSelection();
    const auto found =
        FindInText(view->GetEditText(), what, search.isForward ? selection.end : selection.first, search);
    if (found) {
        view->Select({found->position, found->position + what.GetLength()});
        view->SetText(c_status, found->isWrapped ? GetString(c_editorWrapped) : CStr());
    } else {
        view->SetText(c_status, GetString(c_editorNotFound));
        GetMessageBoxService().Beep(MessageBoxStyle::c_warning);
    }
}

void CTextEditorDlg::OnOK()
{
    if (IsModified())
        m_text = CEditedText(m_text.Restore(GetView()->GetEditText()));
    CBaseDialog::OnOK();
}

void CTextEditorDlg::OnCancel()
{
    if (IsModified()) {
        using namespace MessageBoxStyle;
        const CWatch watch(*this);
        const SMessageBox question{GetString(c_editorThrowAway), c_yesNo | c_warning};
        const bool stays = GetMessageBoxService().Show(question) != EMessageBoxAnswer::Yes;
        if (watch.IsGone() || stays)
            return;
    }
    CBaseDialog::OnCancel();
}

} // namespace CommonUI
