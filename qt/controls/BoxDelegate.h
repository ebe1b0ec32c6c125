#pragma once

#include <QListView>
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

    /// A list that wraps words asks for the height of an item in one width to place it and in another one to
    /// draw it.
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QStyleOptionViewItem placed = option;
        if (const auto* const list = qobject_cast<const QListView*>(option.widget); list && list->wordWrap())
            placed.rect.setSize(list->viewport()->size());
        return QStyledItemDelegate::sizeHint(placed, index);
    }

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
