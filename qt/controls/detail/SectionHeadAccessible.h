#pragma once

#include "qt/controls/SectionWidget.h"

#include <QAccessibleWidget>

namespace CommonUI
{

/// The head of a section as a button that tells whether its section is open.
class CSectionHeadAccessible final : public QAccessibleWidget
{
public:
    explicit CSectionHeadAccessible(CSectionHead& head)
        : QAccessibleWidget(&head, QAccessible::Button)
        , m_head(head)
    {
    }
    /// What Qt asks for the interface of an object; null for other classes.
    static QAccessibleInterface* Make(const QString& className, QObject* object)
    {
        if (className != QLatin1String(CSectionHead::staticMetaObject.className()))
            return nullptr;
        return new CSectionHeadAccessible(*static_cast<CSectionHead*>(object));
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.expanded = m_head.IsExpanded();
        state.collapsed = !m_head.IsExpanded();
        return state;
    }
    QString text(QAccessible::Text kind) const override
    {
        const QString own = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && own.isEmpty() ? m_head.text().remove(QLatin1Char('&')) : own;
    }
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& name) override
    {
        if (name == pressAction())
            m_head.click();
    }

private:
    CSectionHead& m_head;
};

} // namespace CommonUI
