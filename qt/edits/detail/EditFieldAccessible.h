#pragma once

#include "qt/edits/QtEditField.h"

#include <QAccessibleWidget>

namespace CommonUI
{

/// What a screen reader gets of a CQtEditField: a text to edit, and the number that it stands for, if it has
/// a control for numbers. What the reader enters counts as typed.
class CEditFieldAccessible final : public QAccessibleWidget,
                                   public QAccessibleValueInterface,
                                   public QAccessibleTextInterface,
                                   public QAccessibleEditableTextInterface
{
public:
    explicit CEditFieldAccessible(CQtEditField& field);

    /// For QAccessible::installFactory. Null for other classes.
    static QAccessibleInterface* Make(const QString& className, QObject* object);

    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    QString text(QAccessible::Text kind) const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QVariant currentValue() const override { return GetNumber().value; }
    void setCurrentValue(const QVariant& value) override;
    QVariant maximumValue() const override { return GetNumber().maximum; }
    QVariant minimumValue() const override { return GetNumber().minimum; }
    QVariant minimumStepSize() const override { return GetNumber().step; }

    void selection(int selectionIndex, int* startOffset, int* endOffset) const override;
    int selectionCount() const override { return m_field.hasSelectedText() ? 1 : 0; }
    void addSelection(int startOffset, int endOffset) override;
    void removeSelection(int) override { m_field.deselect(); }
    void setSelection(int selectionIndex, int startOffset, int endOffset) override;
    int cursorPosition() const override { return m_field.cursorPosition(); }
    void setCursorPosition(int position) override { m_field.setCursorPosition(position); }
    QString text(int startOffset, int endOffset) const override;
    int characterCount() const override { return static_cast<int>(m_field.text().size()); }
    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint& point) const override;
    void scrollToSubstring(int startIndex, int endIndex) override;
    QString attributes(int offset, int* startOffset, int* endOffset) const override;

    void deleteText(int startOffset, int endOffset) override { replaceText(startOffset, endOffset, {}); }
    void insertText(int offset, const QString& text) override { replaceText(offset, offset, text); }
    void replaceText(int startOffset, int endOffset, const QString& text) override;

private:
    SEditNumber GetNumber() const;
    bool HasNumber() const;
    bool IsWritable() const { return m_field.isEnabled() && !m_field.isReadOnly(); }

    CQtEditField& m_field;
};

} // namespace CommonUI
