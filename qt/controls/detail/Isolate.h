#pragma once

#include <QGuiApplication>
#include <QString>
#include <QWidget>

namespace CommonUI
{

/// Keeps a text that runs from left to right, such as a number with its unit or a path, in its order among
/// others.
inline QString IsolateLeftToRight(const QString& text)
{
    return QChar(0x2066) + text + QChar(0x2069);
}

/// A number, with its unit perhaps, for a list or a label of its own: the application runs from left to right
/// for the most part, and needs no help with it then.
inline QString ShowNumber(const QString& text)
{
    return text.isEmpty() || QGuiApplication::isLeftToRight() ? text : IsolateLeftToRight(text);
}

/// Lets a text run as its first letter does, also in a window that runs from right to left.
inline QString IsolateIn(const QWidget& widget, const QString& text)
{
    return widget.layoutDirection() == Qt::RightToLeft ? QChar(0x2068) + text + QChar(0x2069) : text;
}

} // namespace CommonUI
