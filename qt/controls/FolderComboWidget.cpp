#include "qt/controls/FolderComboWidget.h"

#include "qt/controls/detail/ControlTexts.h"
#include "qt/detail/EventGuard.h"
#include "qt/detail/WindowWatch.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QAction>
#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStringListModel>
#include <QToolTip>

namespace CommonUI
{

CFolderComboWidget::CFolderComboWidget(CFolderCombo& combo, QWidget* parent)
    : QComboBox(parent)
    , m_combo(combo)
    , m_window(std::make_unique<CWindowWatch>())
    , m_completions(new QStringListModel(this))
{
    setEditable(true);
    setInsertPolicy(NoInsert);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(20);
    setAccessibleName(GetQString(11488));
    auto* const completer = new QCompleter(m_completions, this);
    completer->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    setCompleter(completer);
    m_error = lineEdit()->addAction(style()->standardIcon(QStyle::SP_MessageBoxWarning),
                                    QLineEdit::TrailingPosition);
    m_error->setVisible(false);

    connect(lineEdit(), &QLineEdit::textEdited, this,
            [this](const QString& text) { Guarded([&] { m_combo.OnUserTyped(FromQString(text)); }); });
    connect(lineEdit(), &QLineEdit::returnPressed, this, &CFolderComboWidget::Enter);
    connect(this, &QComboBox::activated, this, [this](int index) {
        setEditText(itemData(index).toString());
        Enter();
    });
    m_combo.GetChanged().Subscribe(*this, &CFolderComboWidget::Update, m_changedConnection);
    m_combo.GetCompletionsChanged().Subscribe(*this, &CFolderComboWidget::OnCompletions,
                                              m_completionsConnection);
    FillList();
    Update();
}

CFolderComboWidget::~CFolderComboWidget() = default;

void CFolderComboWidget::FillList()
{
    const QString text = currentText();
    clear();
    bool wasRecent = false;
    for (const SFolderChoice& choice : m_combo.GetChoices()) {
        const bool isRecent = choice.kind == SFolderChoice::EKind::Recent;
        if (wasRecent && !isRecent)
            insertSeparator(count());
        wasRecent = isRecent;
        const auto icon =
            choice.kind == SFolderChoice::EKind::Root ? QStyle::SP_DriveHDIcon : QStyle::SP_DirIcon;
        const QString indent(qsizetype(2) * choice.depth, QLatin1Char(' '));
        addItem(style()->standardIcon(icon), indent + ToQString(choice.path), ToQString(choice.path));
    }
    setEditText(text);
}

void CFolderComboWidget::showPopup()
{
    FillList();
    setCurrentIndex(findData(ToQString(m_combo.GetPath())));
    QComboBox::showPopup();
}

void CFolderComboWidget::Enter()
{
    const CStr text = FromQString(currentText());
    if (text != m_combo.GetPath() || !m_combo.GetError().IsEmpty())
        Guarded([&] { m_combo.OnUserEntered(text); });
}

// Only while the user types: choosing from the list is an edit, too.
void CFolderComboWidget::OnCompletions()
{
    QStringList paths;
    for (const CStr& path : m_combo.GetCompletions())
        paths.append(ToQString(path));
    m_completions->setStringList(paths);
    if (paths.isEmpty())
        completer()->popup()->hide();
    else if (lineEdit()->hasFocus() && lineEdit()->isModified())
        completer()->complete();
}

void CFolderComboWidget::Update()
{
    const QString error = ToQString(m_combo.GetError());
    m_error->setVisible(!error.isEmpty());
    m_error->setToolTip(error);
    lineEdit()->setAccessibleDescription(error);
    if (!error.isEmpty()) {
        QToolTip::showText(mapToGlobal(rect().bottomLeft()), error, this);
        QAccessibleEvent alert(lineEdit(), QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    } else if (!m_combo.IsChecking()) {
        setEditText(ToQString(m_combo.GetPath()));
    }
}

void CFolderComboWidget::keyPressEvent(QKeyEvent* event)
{
    const QString path = ToQString(m_combo.GetPath());
    if (event->key() == Qt::Key_Escape && currentText() != path)
        Guarded([&] { m_combo.SetPath(m_combo.GetPath()); });
    else if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && currentText() != path)
        Enter(); // and not the default button of the dialog
    else
        QComboBox::keyPressEvent(event);
}

void CFolderComboWidget::focusInEvent(QFocusEvent* event)
{
    m_window->Remember(*this);
    QComboBox::focusInEvent(event);
}

void CFolderComboWidget::focusOutEvent(QFocusEvent* event)
{
    QComboBox::focusOutEvent(event);
    const bool isLeft =
        event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason;
    if (isLeft && m_window->IsWhole(*this) && m_changedConnection.IsConnected())
        Enter();
}

} // namespace CommonUI
