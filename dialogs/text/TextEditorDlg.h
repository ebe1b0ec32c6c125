#pragma once

#include "../BaseDialog.h"
#include "EditedText.h"
#include "TextEditorView.h"
#include "TextFind.h"

namespace CommonUI
{

/// A dialog that shows a plain text, or has the user edit it. Who closes it with changes that would be lost
/// is asked first.
class COMMONUI_API CTextEditorDlg : public CBaseDialog, public CViewedControl<CTextEditorView>
{
public:
    COMMONUI_CONSTANT unsigned int c_identifier = 7821; ///< the number of the dialog and of its help topic
    COMMONUI_CONSTANT int c_text = 8211;                ///< the field with the text
    COMMONUI_CONSTANT int c_find = 8212;                ///< the field for what to find
    COMMONUI_CONSTANT int c_next = 8213;                ///< the button that finds forward
    COMMONUI_CONSTANT int c_previous = 8214;            ///< the button that finds backward
    COMMONUI_CONSTANT int c_matchCase = 8215;           ///< the check box
    COMMONUI_CONSTANT int c_status = 8216;              ///< the text that tells what was found

    /// Whether the text can be edited, or only read and copied.
    enum class EMode { Edit, ReadOnly };

    /// Sets up the dialog with a text, whose line ends may be of any kind: see CEditedText.
    CTextEditorDlg(EMode mode, const CStr& caption, const CStr& text);
    ~CTextEditorDlg() override;

    /// Gives the dialog its window before it is opened; null takes it away. The view is not owned.
    void SetView(CTextEditorView* view);

    /// Whether the text can be edited; fixed for the dialog's life.
    EMode GetMode() const noexcept { return m_mode; }
    /// The text: what was given, until OK takes what the user has made of it. What was not edited is the
    /// same unit by unit: see CEditedText.
    const CStr& GetText() const noexcept { return m_text.GetText(); }
    /// Whether the window shows another text than GetText gives. Undone changes are none.
    bool IsModified() const;

    /// The user wants the next occurrence, from the selection on.
    void OnFind(const CStr& what, const STextSearch& search);
    void OnOK() override;
    /// Asks first when the text is modified, and stays open when that is denied.
    void OnCancel() override;

protected:
    bool OnInitDialog() override;
    CDialogView* GetDialogView() const override { return GetView(); }

private:
    EMode m_mode;
    CStr m_caption;
    CEditedText m_text;
};

} // namespace CommonUI
