#include "qt/framework/TextEditorWindow.h"

#include "qt/detail/EventGuard.h"
#include "qt/QtText.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTextBlock>
#include <QVBoxLayout>

namespace CommonUI
{

using CDlg = CTextEditorDlg;

CTextEditorWindow::CTextEditorWindow(QWidget* parent)
    : CDialogViewWindow(parent)
    , m_editor(new QPlainTextEdit)
    , m_find(new QLineEdit)
    , m_matchCase(new QCheckBox)
    , m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel))
{
    LayOut();
    AddKeys();
    RememberPlacement(u"TextEditor");
}

CTextEditorWindow::~CTextEditorWindow()
{
    if (GetControl() && GetControl()->IsOpen())
        GetControl()->EndDialog(CDlg::c_cancel);
}

void CTextEditorWindow::LayOut()
{
    m_editor->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_editor, 1);
    layout->addLayout(MakeFindRow());
    auto* const status = new QLabel;
    status->setTextFormat(Qt::PlainText);
    m_ok = m_buttons->button(QDialogButtonBox::Ok);
    AddControl(CDlg::c_status, *status);
    AddControl(CDlg::c_ok, *m_ok);
    AddControl(CDlg::c_cancel, *m_buttons->button(QDialogButtonBox::Cancel));
    auto* const end = new QHBoxLayout;
    end->addWidget(status, 1);
    end->addWidget(m_buttons);
    layout->addLayout(end);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    resize(80 * m_editor->fontMetrics().averageCharWidth(), 30 * m_editor->fontMetrics().lineSpacing());
}

QLayout* CTextEditorWindow::MakeFindRow()
{
    auto* const row = new QHBoxLayout;
    auto* const label = new QLabel;
    label->setBuddy(m_find);
    row->addWidget(label);
    row->addWidget(m_find, 1);
    AddControl(CDlg::c_find, *m_find, label);
    m_find->installEventFilter(this);
    for (const bool forward : {true, false}) {
        auto* const button = new QPushButton;
        button->setAutoDefault(false);
        row->addWidget(button);
        AddControl(forward ? CDlg::c_next : CDlg::c_previous, *button);
        connect(button, &QPushButton::clicked, this, [this, forward] { Find(forward); });
    }
    row->addWidget(m_matchCase);
    AddControl(CDlg::c_matchCase, *m_matchCase);
    return row;
}

void CTextEditorWindow::AddKeys()
{
    const auto add = [this](const QKeySequence& keys, auto action) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
    };
    add(QKeySequence::Find, [this] { GoToFindField(); });
    add(Qt::Key_F3, [this] { Find(true); });
    add(Qt::SHIFT | Qt::Key_F3, [this] { Find(false); });
    for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter})
        add(Qt::CTRL | enter, [this] {
            if (!m_editor->isReadOnly())
                accept();
        });
}

void CTextEditorWindow::Attach(CTextEditorDlg& dialog)
{
    dialog.SetView(this);
}

// What is selected in a line is likely to be looked for.
void CTextEditorWindow::GoToFindField()
{
    const QString selected = m_editor->textCursor().selectedText();
    if (!selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator))
        m_find->setText(selected);
    m_find->setFocus();
    m_find->selectAll();
}

void CTextEditorWindow::Find(bool forward)
{
    CDlg* const dialog = GetControl();
    if (!dialog)
        return;
    if (m_find->text().isEmpty())
        m_find->setFocus();
    Guarded([&] { dialog->OnFind(FromQString(m_find->text()), {forward, m_matchCase->isChecked()}); });
}

bool CTextEditorWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_find && event->type() == QEvent::KeyPress) {
        const auto* const keys = static_cast<QKeyEvent*>(event);
        const bool isEnter = keys->key() == Qt::Key_Return || keys->key() == Qt::Key_Enter;
        if (isEnter && !keys->modifiers().testFlag(Qt::ControlModifier)) {
            Find(!keys->modifiers().testFlag(Qt::ShiftModifier));
            return true;
        }
    }
    return CDialogViewWindow::eventFilter(watched, event);
}

void CTextEditorWindow::SetText(int control, const CStr& text)
{
    // The field fills the window and needs no label.
    if (control == CDlg::c_text)
        m_editor->setAccessibleName(ToQString(text));
    else
        CDialogViewWindow::SetText(control, text);
}

void CTextEditorWindow::SetEditText(const CStr& text)
{
    m_editor->setPlainText(ToQString(text));
    m_editor->setFocus();
}

// Not toPlainText, which makes blanks of hard ones.
CStr CTextEditorWindow::GetEditText() const
{
    QString text = m_editor->document()->toRawText();
    text.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
    return FromQString(text);
}

void CTextEditorWindow::SetReadOnly(bool readOnly)
{
    m_editor->setReadOnly(readOnly);
    m_editor->setTabChangesFocus(readOnly);
    // Reading is scrolling: the cursor keys move it, too.
    if (readOnly)
        m_editor->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    // Not only hidden: the box would show it again, with another style.
    if (readOnly) {
        m_buttons->removeButton(m_ok);
        m_ok->setParent(this);
        m_ok->hide();
        // Tab would lead to the button that has gone.
        m_buttons->setFocusProxy(m_buttons->button(QDialogButtonBox::Cancel));
    } else {
        m_buttons->addButton(m_ok, QDialogButtonBox::AcceptRole);
        m_ok->show();
    }
}

STextRange CTextEditorWindow::GetSelection() const
{
    const QTextCursor cursor = m_editor->textCursor();
    return {static_cast<std::size_t>(cursor.selectionStart()),
            static_cast<std::size_t>(cursor.selectionEnd())};
}

void CTextEditorWindow::Select(const STextRange& range)
{
    QTextCursor cursor = m_editor->textCursor();
    cursor.setPosition(static_cast<int>(range.first));
    cursor.setPosition(static_cast<int>(range.end), QTextCursor::KeepAnchor);
    m_editor->setTextCursor(cursor);
    m_editor->ensureCursorVisible();
}

CQtTextEditorDlg::CQtTextEditorDlg(QWidget* parent, EMode mode, const CStr& caption, const CStr& text)
    : CTextEditorDlg(mode, caption, text)
    , m_window(new CTextEditorWindow(parent))
{
    m_window->Attach(*this);
}

CQtTextEditorDlg::~CQtTextEditorDlg()
{
    EndDialog(c_cancel);
    delete m_window;
}

} // namespace CommonUI
