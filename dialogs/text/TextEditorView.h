#pragma once

#include "../../controls/View.h"
#include "../DialogView.h"

#include <cstddef>

namespace CommonUI
{

class CTextEditorDlg;

/// A part of a text by its code units: the cursor where it is empty.
struct STextRange {
    std::size_t first = 0; ///< the first unit of the part
    std::size_t end = 0;   ///< the unit behind the part; equal to the first one for a cursor

    friend bool operator==(const STextRange&, const STextRange&) = default;
};

/// The window of the text editor: a field of many lines that undoes by itself, a field for what to find with
/// its buttons, OK, Cancel and help. Lines end in a line feed; every other unit is kept.
class COMMONUI_API CTextEditorView : public CDialogView, public CControlView<CTextEditorDlg>
{
public:
    ~CTextEditorView() override;

    /// Replaces the text; there is nothing to undo then, and the cursor is at its beginning.
    virtual void SetEditText(const CStr& text) = 0;
    /// The text as the user has left it, also while the dialog is open.
    virtual CStr GetEditText() const = 0;
    /// While true, the text can be read and copied only, and there is no OK.
    virtual void SetReadOnly(bool readOnly) = 0;
    /// What is selected in the text that GetEditText gives; the place of the cursor where nothing is.
    virtual STextRange GetSelection() const = 0;
    /// Selects a part of the text and brings it into view.
    virtual void Select(const STextRange& range) = 0;
};

} // namespace CommonUI
