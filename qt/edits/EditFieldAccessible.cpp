#include "qt/edits/detail/EditFieldAccessible.h"

#include <QLocale>

namespace CommonUI
{

CEditFieldAccessible::CEditFieldAccessible(CQtEditField& field)
    : QAccessibleWidget(&field)
    , m_field(field)
{
}

QAccessibleInterface* CEditFieldAccessible::Make(const QString& className, QObject* object)
{
    // Qt asks for the class of the object first, then for its bases.
    if (className != QLatin1String(CQtEditField::staticMetaObject.className()))
        return nullptr;
    return new CEditFieldAccessible(*static_cast<CQtEditField*>(object));
}

bool CEditFieldAccessible::HasNumber() const
{
    return m_field.GetControl() && m_field.GetControl()->GetNumber();
}

SEditNumber CEditFieldAccessible::GetNumber() const
{
    return HasNumber() ? *m_field.GetControl()->GetNumber() : SEditNumber();
}

QAccessible::Role CEditFieldAccessible::role() const
{
    return HasNumber() ? QAccessible::SpinBox : QAccessible::EditableText;
}

QAccessible::State CEditFieldAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.editable = !m_field.isReadOnly();
    state.readOnly = m_field.isReadOnly();
    state.selectableText = true;
    return state;
}

QString CEditFieldAccessible::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Value ? m_field.text() : QAccessibleWidget::text(kind);
}

void* CEditFieldAccessible::interface_cast(QAccessible::InterfaceType type)
{
    switch (type) {
    case QAccessible::ValueInterface:
        return HasNumber() ? static_cast<QAccessibleValueInterface*>(this) : nullptr;
    case QAccessible::TextInterface:
        return static_cast<QAccessibleTextInterface*>(this);
    case QAccessible::EditableTextInterface:
        return static_cast<QAccessibleEditableTextInterface*>(this);
    default:
        return QAccessibleWidget::interface_cast(type);
    }
}

void CEditFieldAccessible::setCurrentValue(const QVariant& value)
{
    // Without an exponent, which a field for integers would not read.
    if (IsWritable())
        m_field.EnterText(QString::number(value.toDouble(), 'f', QLocale::FloatingPointShortest));
}

void CEditFieldAccessible::selection(int selectionIndex, int* startOffset, int* endOffset) const
{
    const bool selected = selectionIndex == 0 && m_field.hasSelectedText();
    *startOffset = selected ? m_field.selectionStart() : 0;
    *endOffset = selected ? m_field.selectionEnd() : 0;
}

void CEditFieldAccessible::addSelection(int startOffset, int endOffset)
{
    setSelection(0, startOffset, endOffset);
}

void CEditFieldAccessible::setSelection(int, int startOffset, int endOffset)
{
    m_field.setSelection(startOffset, endOffset - startOffset);
}

QString CEditFieldAccessible::text(int startOffset, int endOffset) const
{
    return m_field.text().mid(startOffset, endOffset - startOffset);
}

QRect CEditFieldAccessible::characterRect(int offset) const
{
    const QString text = m_field.text();
    if (offset < 0 || offset >= text.size())
        return {};
    // Counted from the caret, as only the field knows how far it is scrolled.
    const QFontMetrics metrics = m_field.fontMetrics();
    const QRect caret = m_field.inputMethodQuery(Qt::ImCursorRectangle).toRect();
    const int before = metrics.horizontalAdvance(text.left(offset));
    const int shift = before - metrics.horizontalAdvance(text.left(m_field.cursorPosition()));
    const int width = metrics.horizontalAdvance(text.left(offset + 1)) - before;
    // Qt puts some pixels on both sides of the caret.
    const int left = caret.left() + caret.width() / 2 + shift;
    return {m_field.mapToGlobal(QPoint(left, caret.top())), QSize(width, caret.height())};
}

int CEditFieldAccessible::offsetAtPoint(const QPoint& point) const
{
    const QPoint local = m_field.mapFromGlobal(point);
    return m_field.rect().contains(local) ? m_field.cursorPositionAt(local) : -1;
}

void CEditFieldAccessible::scrollToSubstring(int startIndex, int endIndex)
{
    m_field.setCursorPosition(endIndex);
    m_field.setCursorPosition(startIndex);
}

QString CEditFieldAccessible::attributes(int offset, int* startOffset, int* endOffset) const
{
    *startOffset = offset;
    *endOffset = offset;
    return {};
}

void CEditFieldAccessible::replaceText(int startOffset, int endOffset, const QString& text)
{
    if (!IsWritable())
        return;
    // Unlike setText, this tells the control that the user has changed the text.
    m_field.setSelection(startOffset, endOffset - startOffset);
    m_field.insert(text);
}

} // namespace CommonUI
