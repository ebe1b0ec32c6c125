#include "qt/detail/EventGuard.h"
#include "qt/grid/detail/GridEditor.h"
#include "qt/grid/detail/GridKeys.h"
#include "qt/grid/GridWidget.h"
#include "qt/QtText.h"

#include <QAction>
#include <QKeyEvent>
#include <QTimerEvent>

#include <algorithm>

namespace CommonUI
{

namespace
{

constexpr int c_repeatTime = 50; // milliseconds between two rows while the mouse is held outside

SPoint ToPoint(const QMouseEvent& event)
{
    const QPoint point = event.position().toPoint();
    return {point.x(), point.y()};
}

Qt::CursorShape ToShape(EGridCursor cursor)
{
    switch (cursor) {
    case EGridCursor::Hand:
        return Qt::PointingHandCursor;
    case EGridCursor::Text:
        return Qt::IBeamCursor;
    case EGridCursor::Resize:
        return Qt::SplitHCursor;
    default:
        return Qt::ArrowCursor;
    }
}

} // namespace

bool CGridWidget::event(QEvent* event)
{
    // A dialog that a callback shows gets the release of the button.
    if (event->type() == QEvent::WindowBlocked)
        AbandonPress();
    // Keys that grids use are no shortcuts of the window, but those that dialogs end with stay theirs.
    if (event->type() == QEvent::ShortcutOverride && GetControl()) {
        const auto key = ToGridKey(static_cast<QKeyEvent&>(*event));
        if (key && key->key != EGridKey::Enter && key->key != EGridKey::Escape) {
            event->accept();
            return true;
        }
        // Nor are those of its own commands: the window may have them as well, and then neither would act.
        if (FindColumnAction(static_cast<QKeyEvent&>(*event))) {
            event->accept();
            return true;
        }
    }
    return QAbstractScrollArea::event(event);
}

// Where plus is typed with Shift, that is no modifier.
QAction* CGridWidget::FindColumnAction(const QKeyEvent& event) const
{
    Qt::KeyboardModifiers ignored = Qt::KeypadModifier;
    ignored.setFlag(Qt::ShiftModifier, event.key() == Qt::Key_Plus);
    const auto isMeant = [&](const QAction* action) {
        const QKeyCombination keys = action->shortcut()[0];
        return event.key() == keys.key() && (event.modifiers() & ~ignored) == keys.keyboardModifiers();
    };
    const auto found = std::ranges::find_if(m_columnActions, isMeant);
    return hasFocus() && found != m_columnActions.end() ? *found : nullptr;
}

void CGridWidget::keyPressEvent(QKeyEvent* event)
{
    if (QAction* const action = FindColumnAction(*event)) {
        action->trigger();
        return;
    }
    const QPointer<CGridWidget> self(this);
    const auto key = ToGridKey(*event);
    const CStr text = FromQString(TypedText(*event));
    if (m_editor && !hasFocus()) {
        // Keys that the editor has no use for are not meant for the cells below it.
        event->setAccepted(key.has_value());
        return;
    }
    // A callback that throws has used the key.
    bool used = true;
    Guarded([&] {
        used = key && GetControl() && GetControl()->OnKey(*key);
        if (!used && self && !text.IsEmpty() && GetControl())
            used = GetControl()->OnText(text);
    });
    // Qt would offer a key that was not used to the parent of a widget that is gone.
    event->setAccepted(used || !self);
    if (self)
        UpdateSpokenText(false);
}

void CGridWidget::SendMouse(unsigned int message, SPoint point, Qt::KeyboardModifiers modifiers)
{
    const QPointer<CGridWidget> self(this);
    Guarded([&] {
        if (GetControl())
            GetControl()->OnMouse(message, point, ToGridModifiers(modifiers));
    });
    if (!self)
        return;
    UpdateSpokenText(false);
    UpdateCursor(point);
}

void CGridWidget::mousePressEvent(QMouseEvent* event)
{
    if (!CommitEditor())
        return;
    m_pressed = event->button() == Qt::LeftButton;
    if (m_pressed)
        SendMouse(GridMouse::c_leftDown, ToPoint(*event), event->modifiers());
    else if (event->button() == Qt::RightButton)
        SendMouse(GridMouse::c_rightDown, ToPoint(*event), event->modifiers());
    else
        event->ignore();
}

void CGridWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    m_pressed = event->button() == Qt::LeftButton;
    if (m_pressed)
        SendMouse(GridMouse::c_leftDoubleClick, ToPoint(*event), event->modifiers());
}

void CGridWidget::mouseMoveEvent(QMouseEvent* event)
{
    m_pointer = ToPoint(*event);
    m_modifiers = event->modifiers();
    // A callback may have run a dialog that has seen the button released.
    m_pressed = m_pressed && event->buttons().testFlag(Qt::LeftButton);
    if (!m_pressed || !GetControl()) {
        m_repeat.stop();
        UpdateCursor(m_pointer);
        return;
    }
    const SRect cells{0, GetControl()->GetBodyTop(), viewport()->width(), viewport()->height()};
    if (cells.Contains(m_pointer))
        m_repeat.stop();
    else if (!m_repeat.isActive())
        m_repeat.start(c_repeatTime, this);
    SendMouse(GridMouse::c_move, m_pointer, m_modifiers);
}

void CGridWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    ForgetPress();
    const QPointer<CGridWidget> self(this);
    SendMouse(GridMouse::c_leftUp, ToPoint(*event), event->modifiers());
    if (self && m_editor)
        m_editor->DropDown();
}

void CGridWidget::ForgetPress()
{
    m_repeat.stop();
    m_pressed = false;
}

void CGridWidget::AbandonPress()
{
    if (!m_pressed)
        return;
    ForgetPress();
    // The window may be on its way out, and with it whom the grid would call.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (!m_pressed)
                SendMouse(GridMouse::c_leftUp, m_pointer, m_modifiers);
        },
        Qt::QueuedConnection);
}

void CGridWidget::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_repeat.timerId())
        SendMouse(GridMouse::c_move, m_pointer, m_modifiers);
    else
        QAbstractScrollArea::timerEvent(event);
}

void CGridWidget::UpdateCursor(SPoint point)
{
    const CGridPane* const grid = GetControl();
    const EGridCursor cursor = grid ? grid->OnSetCursor(point) : EGridCursor::Arrow;
    if (viewport()->cursor().shape() != ToShape(cursor))
        viewport()->setCursor(ToShape(cursor));
}

void CGridWidget::UpdateFocus()
{
    const bool focus = hasFocus() || m_editor;
    if (GetControl() && GetControl()->HasFocus() != focus)
        GetControl()->OnFocus(focus);
}

void CGridWidget::focusInEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusInEvent(event);
    UpdateFocus();
    UpdateSpokenText(true);
}

void CGridWidget::focusOutEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusOutEvent(event);
    UpdateFocus();
}

void CGridWidget::hideEvent(QHideEvent* event)
{
    AbandonPress();
    QAbstractScrollArea::hideEvent(event);
}

void CGridWidget::TakeFocus()
{
    setFocus(Qt::OtherFocusReason);
}

void CGridWidget::OpenEditor(const SGridEdit& edit)
{
    CloseEditor();
    m_editor = CGridEditor::Make(edit, *viewport(), [this](EGridEditEnd end) { EndEdit(end); });
    if (GetControl())
        m_editor->GetWidget().setAccessibleName(
            ToQString(GetControl()->SpeakHeader(GetControl()->GetSelection().GetFocus().column)));
    // Whoever loses the focus may call back.
    const QPointer<CGridWidget> self(this);
    m_editor->Show(edit.rect);
    if (!self || !m_editor)
        return;
    UpdateFocus();
    if (!m_pressed)
        m_editor->DropDown();
}

void CGridWidget::MoveEditor(const SRect& rect)
{
    if (m_editor)
        m_editor->Place(rect);
}

void CGridWidget::CloseEditor()
{
    if (!m_editor)
        return;
    CGridEditor* const editor = m_editor;
    m_editor = nullptr;
    editor->Disarm();
    if (editor->GetWidget().hasFocus())
        TakeFocus();
    editor->Close();
    UpdateFocus();
}

void CGridWidget::EndEdit(EGridEditEnd end)
{
    const QPointer<CGridWidget> self(this);
    const QPointer<CGridEditor> editor = m_editor;
    Guarded([&] { EndGridEdit(end, m_editor->GetText(), [&] { return self ? GetControl() : nullptr; }); });
    if (!self)
        return;
    // The grid may be another one than when the editor was opened.
    if (editor && m_editor == editor)
        CloseEditor();
    UpdateFocus();
    UpdateSpokenText(false);
}

bool CGridWidget::CommitEditor()
{
    const QPointer<CGridWidget> self(this);
    if (m_editor) {
        m_editor->Disarm();
        EndEdit(EGridEditEnd::Taken);
    }
    return self;
}

} // namespace CommonUI
