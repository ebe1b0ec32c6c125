#include "qt/grid/ResultGridWidget.h"

#include "tests/qt/GridHarness.h"

using namespace CommonUI;
using CGrid = CGridBaseOutputCtrl;
using ECommand = CResultGridWidget::ECommand;

namespace
{

// Three columns, two of them below a group.
struct SShownResults : SShownGrid<CResultGridWidget> {
    explicit SShownResults(int rows)
        : SShownGrid(CGrid::SCellInfo::Results)
    {
        CGrid& table = grid->GetTable();
        table.AddColumn({u"Ra", u"Height"});
        table.AddColumn({u"Rq", u"Height"});
        table.AddColumn({u"RSm\r\nmean", {}});
        for (int row = 0; row < rows; ++row)
            table.AddRow({.name = CStr::Format(u"%d", row), .cells = {u"1.5", u"<2>", u"3"}});
        grid->Update();
    }
    QPoint Center(std::size_t row, std::size_t column)
    {
        const SRect rect = grid->GetPane().GetCellRect({row, column});
        return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
    }
};

std::string Copied()
{
    const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
    EXPECT_TRUE(data->hasHtml() && data->html().contains(QStringLiteral("<table>")));
    return data->text().toStdString();
}

} // namespace

TEST(ResultGridWidget, CommandsCopyTextAndHtml)
{
    SShownResults shown(3);
    CGrid& table = shown.grid->GetTable();
    const auto trigger = [&](ECommand command) {
        return [&shown, command] { shown.grid->GetAction(command).trigger(); };
    };
    const std::pair<FAct, std::string> commands[] = {
        {[] { Type("Ctrl+C"); }, "Ra\tRq\n1.5\t<2>\n1.5\t<2>"},
        {trigger(ECommand::CopyWithoutHeaders), "1.5\t<2>\n1.5\t<2>"},
        {trigger(ECommand::Copy), "Ra\tRq\n1.5\t<2>\n1.5\t<2>"},
        {trigger(ECommand::CopyTransposed), "Ra\t1.5\t1.5\nRq\t<2>\t<2>"},
        {trigger(ECommand::CopyWhole), CGrid::GenerateText(nullptr, &table, nullptr, false).ToUtf8()},
        {trigger(ECommand::CopyWholeTransposed),
         CGrid::GenerateText(nullptr, &table, nullptr, true).ToUtf8()},
    };
    shown.Drag(shown.Center(0, 1), shown.Center(1, 2));
    for (const auto& [copy, text] : commands) {
        copy();
        EXPECT_EQ(Copied(), text);
    }
    trigger(ECommand::SelectAll)();
    EXPECT_EQ(shown.grid->GetPane().GetSelection().GetRange(), (SGridRange{0, 2, 0, 3}));
}

TEST(ResultGridWidget, TheContextMenuIsAboutTheCellBelowIt)
{
    SShownResults shown(3);
    shown.grid->GetPane().SelectCell({0, 1});
    for (const auto reason : {QContextMenuEvent::Mouse, QContextMenuEvent::Keyboard}) {
        const QPoint point = shown.Center(2, 2);
        Send(shown.View(), QContextMenuEvent(reason, point, shown.View().mapToGlobal(point)));
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_TRUE(menu);
        EXPECT_EQ(menu->actions().front(), &shown.grid->GetAction(ECommand::Copy));
        menu->close();
        EXPECT_EQ(shown.grid->GetPane().GetSelection().GetFocus(), (SGridCell{2, 2}));
    }
}

TEST(ResultGridWidget, AMillionRowsAskForExposedCellsOnly)
{
    struct SCountingPane : CResultGridPane {
        using CResultGridPane::CResultGridPane;
        void DrawCell(CGridPainter& painter, SGridCell cell, const SRect& rect) const override
        {
            ++drawn;
            CResultGridPane::DrawCell(painter, cell, rect);
        }
        mutable std::size_t drawn = 0;
    };
    SShownResults shown(1000000);
    SCountingPane pane(shown.grid->GetTable());
    shown.grid->Attach(pane);
    QPixmap picture(400, 240);
    QScrollBar& bar = *shown.grid->verticalScrollBar();
    bar.setValue(bar.maximum());
    EXPECT_EQ(pane.GetVisibleRange().lastRow, 999999U);
    shown.View().render(&picture, {}, QRect(0, 100, 50, 1));
    EXPECT_TRUE(pane.drawn == 1 || pane.drawn == 2) << "only what is exposed";
    Type("Ctrl+Home");
    EXPECT_EQ(bar.value(), 0);
    EXPECT_TRUE(Turn(shown.View(), -120) && pane.GetScrollTop() == 3 * pane.GetRowHeight());
    EXPECT_TRUE(Turn(shown.View(), -120, Qt::ControlModifier)) << "by pages";
    EXPECT_FALSE(Turn(SShownResults(2).View(), -120)) << "left to the page";
}

TEST(ResultGridWidget, MoreRowsThanAScrollBarCounts)
{
    struct STallPane : CResultGridPane {
        using CResultGridPane::CResultGridPane, CResultGridPane::SetRowCount;
    };
    SShownResults shown(1);
    STallPane pane(shown.grid->GetTable());
    pane.SetRowCount(1000000000);
    shown.grid->Attach(pane);
    QScrollBar& bar = *shown.grid->verticalScrollBar();
    bar.setValue(bar.maximum());
    EXPECT_EQ(pane.GetVisibleRange().lastRow, 999999999U);
    bar.setValue(bar.maximum() / 2);
    EXPECT_NEAR(static_cast<double>(pane.GetVisibleRange().firstRow), 5e8, 1e3);
    pane.ScrollTo(0, pane.GetRowHeight() * 1000LL);
    EXPECT_EQ(pane.GetVisibleRange().firstRow, 1000U) << "the bar, which is coarser, does not pull it";
}

TEST(ResultGridWidget, AMouseHeldOutsideScrolls)
{
    SShownResults shown(1000);
    shown.Press(shown.Center(1, 1));
    shown.Move({shown.Center(1, 2).x(), shown.View().height() + 10});
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown.grid->GetPane().GetScrollTop() > 60; }));
    QTest::mouseRelease(&shown.View(), Qt::LeftButton, {}, {5, 500});
    shown.grid->GetPane().ScrollTo(0, 400);
    shown.Drag({shown.Center(0, 1).x(), 30}, {shown.Center(0, 3).x(), 30});
    EXPECT_EQ(shown.grid->GetPane().GetScrollTop(), 400) << "columns are selected where the user is";
    EXPECT_EQ(shown.grid->GetPane().GetSelection().GetRange(), (SGridRange{0, 999, 1, 3}));
}

TEST(ResultGridWidget, ToolTipsSayWhyCellsAreEmpty)
{
    SShownResults shown(2);
    shown.grid->GetTable().AddRow({.name = u"2",
                                   .cells = {u"1", u"", u""},
                                   .states = {{2, {EValueState::NotApplicable, u"the profile is flat"}}}});
    shown.grid->Update();
    for (const auto& [column, text] : {std::pair(1, ""), {3, ""}, {2, "the profile is flat"}}) {
        const QPoint place = shown.Center(2, static_cast<std::size_t>(column));
        Send(shown.View(), QHelpEvent(QEvent::ToolTip, place, shown.View().mapToGlobal(place)));
        EXPECT_EQ(QToolTip::text().toStdString(), text) << column;
    }
}
