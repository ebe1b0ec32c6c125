#pragma once

#include <QWidget>

#include <typeinfo>

namespace CommonUI
{

/// Knows whether the window of a widget is still whole while the widget loses the focus. Qt hides a window in
/// the destructor of a base class: it is another type then, and what it has added is gone, the callbacks
/// among it.
class CWindowWatch
{
public:
    /// To be told when the widget gets the focus.
    void Remember(const QWidget& widget) { m_type = &TypeOf(widget); }
    bool IsWhole(const QWidget& widget) const { return m_type && *m_type == TypeOf(widget); }

private:
    static const std::type_info& TypeOf(const QWidget& widget)
    {
        const QWidget& window = *widget.window();
        return typeid(window);
    }

    const std::type_info* m_type = nullptr;
};

} // namespace CommonUI
