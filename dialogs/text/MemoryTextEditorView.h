#pragma once

#include "../MemoryDialogView.h"
#include "TextEditorDlg.h"

namespace CommonUI
{

/// The window of the text editor, without a display.
class COMMONUI_API CMemoryTextEditorView : public CMemoryDialogView<CTextEditorView>
{
public:
    ~CMemoryTextEditorView() override;

    void SetEditText(const CStr& text) override;
    CStr GetEditText() const override { return m_text; }
    void SetReadOnly(bool readOnly) override { m_readOnly = readOnly; }
    STextRange GetSelection() const override { return m_selection; }
    void Select(const STextRange& range) override { m_selection = range; }

    /// Whether the text can only be read.
    bool IsReadOnly() const noexcept { return m_readOnly; }
    /// Types a text in place of the selection, behind which the cursor is then.
    /// @return false, and nothing happens, if the text can only be read
    bool Type(const CStr& text);

private:
    CStr m_text;
    STextRange m_selection;
    bool m_readOnly = false;
};

} // namespace CommonUI
