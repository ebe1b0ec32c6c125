#pragma once

#include "output/grid/GridPane.h"
#include "qt/grid/ResultGridWidget.h"

#include <functional>
#include <optional>

class QMenu;
class QMimeData;

namespace CommonUI
{

// A table of a result panel: its context menu is the panel's, and what is selected can be dragged into other
// programs.
class CResultTable : public CResultGridWidget
{
public:
    // Fills a menu about a cell; that of a header is in no row.
    using FFillMenu = std::function<void(QMenu&, SGridCell)>;
    // What is dragged; null where there is nothing.
    using FMakeData = std::function<QMimeData*()>;

    CResultTable(CGridBaseOutputCtrl& table, FFillMenu fillMenu, FMakeData makeData);
    ~CResultTable() override;

    // Few rows: the others are scrolled to.
    QSize sizeHint() const override;

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void ShowMenu(SGridCell cell, QPoint place);
    bool CanDrag(const QMouseEvent& event);

    FFillMenu m_fillMenu;
    FMakeData m_makeData;
    std::optional<QPoint> m_pressed; // in what is selected, which may be dragged
};

} // namespace CommonUI
