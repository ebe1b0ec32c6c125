#include "tests/workbench/WorkbenchTesting.h"

#include "platform/memory/MemoryClipboard.h"
#include "qt/grid/ResultGridWidget.h"
#include "qt/selection/QtSelectionDlg.h"
#include "workbench/StepForm.h"

#include <cstdlib>
#include <fstream>
#include <QComboBox>
#include <QListWidget>

namespace Workbench
{

/// A measurement from file to spreadsheet, as docs/tour.md tells of it. With COMMONUI_TOUR it leaves its
/// pictures in that folder, see scripts/tour.
class Tour : public CWorkbenchTest
{
protected:
    Tour()
    {
        m_window->resize(1280, 800);
        QTest::qWait(0);
    }

    void Settle()
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return !GetPage().GetProcessing().IsBusy(); }, 20'000));
        WaitForResults();
        QTest::qWait(0);
        if (CBlockWidget* const block = GetPage().GetBlock(); block && block->isVisible()) {
            block->repaint();
            EXPECT_TRUE(GetMessageLoop().RunUntil([&] { return !block->GetFrame().isMoving; }));
        }
    }
    void Show(const char* name)
    {
        Settle();
        Show(name, *m_window);
    }
    static void Show(const char* name, QWidget& widget)
    {
        const QImage picture = widget.grab().toImage();
        EXPECT_FALSE(picture.isNull());
        const std::optional<std::string> path = Find(std::string("tour-") + name + ".png");
        EXPECT_TRUE(!path || picture.save(QString::fromStdString(*path)));
    }
    // Where a file of the tour goes; nothing where nobody asked for it.
    static std::optional<std::string> Find(const std::string& name)
    {
        const char* const folder = std::getenv("COMMONUI_TOUR");
        return folder ? std::optional(std::string(folder) + "/" + name) : std::nullopt;
    }
    CSurfacePage& GetPage() { return *m_window->GetPage(); }
    void Choose(CSettingsButton& button, EBuiltInSetting set)
    {
        EXPECT_TRUE(button.GetMenu().Choose({set, button.GetMenu().GetType()}));
        Settle();
    }
    void ChooseAnalysis(EAnalysis analysis)
    {
        QComboBox& list = m_window->GetResults().GetForm().GetAnalyses();
        list.setCurrentIndex(list.findData(static_cast<int>(analysis)));
        Settle();
    }
    // A place of the surface in the map, as a share of its width and height.
    QPoint At(double x, double y)
    {
        const auto& surface = GetPage().GetSurface().GetSurface();
        const SurfaceView::SPixel pixel =
            GetPage().GetMap().GetPlace().ToPixel({.x = x * surface.dx * static_cast<double>(surface.points),
                                                   .y = y * surface.dy * static_cast<double>(surface.lines)});
        return {qRound(pixel.x), qRound(pixel.y)};
    }

    CMemoryClipboard m_clipboard;
    CServiceScope<CClipboard> m_clipboardScope{m_clipboard};
};

TEST_F(Tour, LeadsFromAFileToASpreadsheet)
{
    OpenSample();
    Show("1-open");

    CProcessingPane& processing = m_window->GetProcessing();
    processing.raise();
    Choose(processing.GetCorrections(), EBuiltInSetting::PlaneCorrQuickLaunchImageLeveling);
    Show("2-level");
    Choose(processing.GetFilters(), EBuiltInSetting::Filter_Smoothing_Mean_3x3);
    EXPECT_EQ(processing.GetList().count(), 2);
    Show("3-filter");
    const QListWidget& list = processing.GetList();
    EXPECT_LT(list.visualItemRect(list.item(0)).bottom(), list.visualItemRect(list.item(1)).top());

    CBlockWidget& block = *GetPage().GetBlock();
    FindAction(EText::ShowMap)->trigger();
    QTest::qWait(0);
    Drag(block, block.rect().center(), {-60, 20});
    Show("4-block");
    FindAction(EText::ShowMap)->trigger();
    QTest::qWait(0);

    CSeeTools& tools = m_window->GetSeeTools();
    FindAction(EText::ShowBlock)->trigger();
    tools.GetAction(EMapTool::Profile).trigger();
    QTest::qWait(0);
    Drag(GetPage().GetMap(), At(0.1, 0.3), At(0.9, 0.6) - At(0.1, 0.3));
    CChartWidget& chart = tools.GetProfiles().GetChart();
    QTest::qWait(0);
    ASSERT_EQ(chart.GetChart().lines.size(), 1u);
    for (const double share : {0.3, 0.6})
        QTest::mouseClick(
            &chart, Qt::LeftButton, {},
            chart.ToPoint(share * chart.GetChart().x.range.GetUpper(), chart.GetChart().y.range.GetUpper())
                    .toPoint() +
                QPoint(0, 10));
    EXPECT_TRUE(GetMessageLoop().RunUntil([&] { return !tools.GetProfiles().GetRoughness().IsBusy(); }));
    Show("5-profile");

    tools.GetCurves().show();
    tools.GetCurves().raise();
    tools.GetCurves().GetChoice().setCurrentIndex(1);
    QTest::qWait(0);
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return !tools.GetCurves().GetChart().GetChart().lines.empty(); }, 20'000));
    Show("6-curves");
    tools.GetCurves().hide();
    tools.GetProfiles().hide();
    tools.GetAction(EMapTool::Move).trigger();
    FindAction(EText::ShowBlock)->trigger();

    WhenShown<CSelectionWindow>([&](CSelectionWindow& dialog) {
        Show("7-parameters", dialog);
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    QTest::keySequence(m_window.get(), QKeySequence(Qt::CTRL | Qt::Key_R));
    m_window->GetResults().raise();
    Show("8-results");

    QWidget& table = m_window->GetResults().GetTable();
    table.setFocus();
    QTest::keySequence(&table, QKeySequence::SelectAll);
    QTest::keySequence(&table, QKeySequence::Copy);
    EXPECT_TRUE(m_clipboard.GetText().Contains(u"Sq")) << m_clipboard.GetText().ToUtf8();
    EXPECT_TRUE(m_clipboard.GetHtml().Contains(u"<table")) << m_clipboard.GetHtml().ToUtf8();
    if (const std::optional<std::string> path = Find("tour-copied.html"))
        std::ofstream(*path) << m_clipboard.GetHtml().ToUtf8();

    ChooseAnalysis(EAnalysis::Measure);
    QComboBox& kinds = m_window->GetResults().GetGrains().GetKinds();
    kinds.setCurrentIndex(kinds.count() - 1);
    Settle();
    ASSERT_TRUE(GetPage().GetGrains().GetGrains());
    QTest::mouseClick(&m_window->GetResults().GetTable(), Qt::LeftButton, {}, QPoint(60, 90));
    Show("9-grains");
}

} // namespace Workbench
