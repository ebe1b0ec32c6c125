#pragma once

#include "../../dialogs/text/TextEditorDlg.h"
#include "../dialogs/DialogWindow.h"

class QCheckBox;
class QDialogButtonBox;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace CommonUI
{

/// The window of the text editor. CQtTextEditorDlg has one of its own. If the window goes first, the dialog
/// is cancelled without a question.
///
/// Ctrl+F leads to what to find, Enter there finds it and Shift+Enter backward, F3 and Shift+F3 do so from
/// anywhere. Ctrl+Enter is OK, as Enter begins a line.
class COMMONUIQT_API CTextEditorWindow : public CDialogViewWindow<CTextEditorView>
{
    Q_OBJECT

public:
    /// @param parent see CDialogWindow
    explicit CTextEditorWindow(QWidget* parent = nullptr);
    ~CTextEditorWindow() override;

    /// Shows a dialog, which is not open. It is not owned; either may go first.
    void Attach(CTextEditorDlg& dialog);

    void SetText(int control, const CStr& text) override;
    void SetEditText(const CStr& text) override;
    CStr GetEditText() const override;
    void SetReadOnly(bool readOnly) override;
    STextRange GetSelection() const override;
    void Select(const STextRange& range) override;

    /// The field with the text; lives as long as the window.
    QPlainTextEdit& GetEditor() noexcept { return *m_editor; }
    /// The field for what to find; lives as long as the window.
    QLineEdit& GetFindField() noexcept { return *m_find; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QLayout* MakeFindRow();
    void LayOut();
    void AddKeys();
    void Find(bool forward);
    void GoToFindField();

    QPlainTextEdit* m_editor;
    QLineEdit* m_find;
    QCheckBox* m_matchCase;
    QDialogButtonBox* m_buttons;
    QPushButton* m_ok = nullptr;
};

/// The text editor with its window.
class COMMONUIQT_API CQtTextEditorDlg : public CTextEditorDlg
{
public:
    /// @param parent the dialog lies over the window of this widget, or over the one that the user works in
    ///     when it is null
    /// @param mode, caption, text see CTextEditorDlg
    CQtTextEditorDlg(QWidget* parent, EMode mode, const CStr& caption, const CStr& text);
    ~CQtTextEditorDlg() override;

    /// Null once the parent has been destroyed, with which the window goes.
    CTextEditorWindow* GetWindow() const { return m_window; }

private:
    QPointer<CTextEditorWindow> m_window;
};

} // namespace CommonUI
