#pragma once

#include <QStyledItemDelegate>

namespace CommonUI
{

/// Draws items whose boxes are seen: styles draw the edge of a box in a darker shade of the window, which is
/// lost on a dark ground.
class CBoxDelegate final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// The colour of a window of which a style makes an edge.
    static QColor MakeGroundOfEdge(const QColor& edge) { return edge.lighter(c_shade); }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->palette.setColor(QPalette::Window, MakeGroundOfEdge(option->palette.color(QPalette::Mid)));
    }

private:
    static constexpr int c_shade = 140; // of Qt's Fusion style, in percent
};

} // namespace CommonUI
