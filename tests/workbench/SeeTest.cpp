#include "tests/workbench/WorkbenchTesting.h"

#include "formats/SurfaceReader.h"
#include "platform/memory/MemoryClipboard.h"
#include "workbench/see/SeeTexts.h"

namespace Workbench
{

using Measurement::EMark;
using Measurement::SMark;

namespace
{

// 11 x 6 points 1 µm apart that rise by 100 nm from one to the next along x.
std::string MakeRamp()
{
    std::string file =
        "aISO-1.0\nNumPoints = 11\nNumProfiles = 6\nXscale = 1e-6\nYscale = 1e-6\nZscale = 1e-9\n*\n";
    for (int i = 0; i < 66; ++i)
        file += std::to_string(100 * (i % 11)) + (i % 11 == 10 ? "\n" : " ");
    return file + "*\n";
}

} // namespace

class See : public CWorkbenchTest
{
protected:
    See()
    {
        Open(Write("ramp.sdf", MakeRamp()));
        m_map = &m_window->GetPage()->GetMap();
        m_marks = &m_window->GetPage()->GetMarks();
        m_tools = &m_window->GetSeeTools();
    }
    // Micrometres.
    QPoint At(double x, double y) const
    {
        const SurfaceView::SPixel pixel = m_map->GetPlace().ToPixel({.x = x * 1e-6, .y = y * 1e-6});
        return {qRound(pixel.x), qRound(pixel.y)};
    }
    void DragMap(QPoint from, QPoint to) { Drag(*m_map, from, to - from); }
    void Use(EMapTool tool)
    {
        m_tools->GetAction(tool).trigger();
        QTest::qWait(0); // docks that are shown give the map another size
    }
    // The places of a mark in tenths of micrometres.
    std::vector<QPoint> PlacesOf(std::size_t mark) const
    {
        std::vector<QPoint> places;
        for (const auto& point : m_marks->GetMarks().at(mark).points)
            places.emplace_back(qRound(point.x * 1e7), qRound(point.y * 1e7));
        return places;
    }
    static bool IsNear(QPoint a, QPoint b) { return (a - b).manhattanLength() <= 2; }
    static void ExpectNear(const std::vector<QPoint>& got, const std::vector<QPoint>& wanted)
    {
        ASSERT_EQ(got.size(), wanted.size());
        for (std::size_t i = 0; i < got.size(); ++i)
            EXPECT_TRUE(IsNear(got[i], wanted[i])) << i << ": " << got[i].x() << ", " << got[i].y();
    }

    CMemoryClipboard m_clipboard;
    CServiceScope<CClipboard> m_clipboardScope{m_clipboard};
    CMapWidget* m_map;
    CMarkEditor* m_marks;
    CSeeTools* m_tools;
};

TEST_F(See, LinesAreDrawnMovedAndDeleted)
{
    DragMap(At(2, 2), At(4, 4)); // moves the map
    EXPECT_TRUE(m_marks->GetMarks().empty());
    Use(EMapTool::Profile);
    DragMap(At(2, 2), At(8, 2));
    ASSERT_EQ(m_marks->GetMarks().size(), 1u);
    EXPECT_EQ(m_marks->GetMarks()[0].kind, EMark::Profile);
    ExpectNear(PlacesOf(0), {{20, 20}, {80, 20}});
    DragMap(At(8, 2), At(8, 4)); // an end
    ExpectNear(PlacesOf(0), {{20, 20}, {80, 40}});
    DragMap(At(5, 3), At(5, 2)); // all of it
    ExpectNear(PlacesOf(0), {{20, 10}, {80, 30}});
    QTest::mouseClick(m_map, Qt::LeftButton, {}, At(1, 4.5)); // draws nothing
    EXPECT_EQ(m_marks->GetMarks().size(), 1u);

    Use(EMapTool::Angle);
    DragMap(At(1, 4), At(3, 4));
    Hover(*m_map, At(3, 2));
    QTest::mouseClick(m_map, Qt::LeftButton, {}, At(3, 2));
    ExpectNear(PlacesOf(1), {{10, 40}, {30, 40}, {30, 20}});
    EXPECT_EQ(GetStatus().substr(0, 4), "1: 9") << GetStatus(); // about 90 degrees

    // Where the mouse only moves things, a line still takes it.
    Use(EMapTool::Move);
    DragMap(At(8, 3), At(9, 3));
    ExpectNear(PlacesOf(0), {{20, 10}, {90, 30}});
    m_map->setFocus();
    Type("Del");
    ASSERT_EQ(m_marks->GetMarks().size(), 1u);
    EXPECT_EQ(m_marks->GetMarks()[0].kind, EMark::Angle);
}

TEST_F(See, LinesAreDrawnAndMovedByKeys)
{
    Use(EMapTool::Distance);
    ASSERT_TRUE(m_map->hasFocus());
    Type("Return");
    ASSERT_EQ(m_marks->GetMarks().size(), 1u);
    const auto before = m_marks->GetMarks()[0].points;
    Type("Right Ctrl+Down");
    const auto& points = m_marks->GetMarks()[0].points;
    EXPECT_EQ(points[0], before[0]);
    EXPECT_GT(points[1].x, before[1].x);
    EXPECT_LT(points[1].y, before[1].y);
    EXPECT_NE(m_map->accessibleDescription(), QString());
    Type("Space Up"); // all of it
    EXPECT_GT(m_marks->GetMarks()[0].points[0].y, before[0].y);
    Type("Space Left"); // the first place
    EXPECT_LT(m_marks->GetMarks()[0].points[0].x, before[0].x);
    Type("Esc");
    EXPECT_FALSE(m_marks->GetChosen());
    Type("Right"); // reads the map again
    EXPECT_EQ(GetStatus().substr(0, 3), "x =");

    // The table tells, chooses and copies.
    CMarkPane& pane = m_tools->GetMarks();
    ASSERT_TRUE(pane.isVisible());
    ASSERT_EQ(pane.GetTable().GetTable().GetRows().size(), 1u);
    pane.GetTable().GetPane().SelectCell({0, 1});
    EXPECT_TRUE(m_marks->GetChosen());
    FindButton(pane, ESeeText::Copy)->click();
    const std::string text = m_clipboard.GetText().ToUtf8();
    EXPECT_NE(text.find("\tdx / µm\t"), std::string::npos) << text;
    EXPECT_NE(text.find("\r\nDistance 1\t"), std::string::npos) << text;
    m_map->setFocus();
    Type("Backspace");
    EXPECT_TRUE(pane.GetTable().GetTable().GetRows().empty());
}

TEST_F(See, ProfilesAreShownMeasuredAndSaved)
{
    CProfilePane& pane = m_tools->GetProfiles();
    Use(EMapTool::Profile);
    ASSERT_TRUE(pane.isVisible());
    Type("Return Return");
    ASSERT_EQ(pane.GetChart().GetChart().lines.size(), 2u);
    EXPECT_NE(pane.GetChart().GetChart().lines[0].color, pane.GetChart().GetChart().lines[1].color);
    EXPECT_EQ(pane.GetProfiles().currentIndex(), 1);
    pane.GetProfiles().setCurrentIndex(0);
    EXPECT_EQ(m_marks->GetChosen()->mark, 0u);

    // Two cursors: 100 nm for each µm between them.
    CChartWidget& chart = pane.GetChart();
    chart.setFocus();
    QTest::qWait(0); // until the chart has its place
    const double length = chart.GetChart().x.range.GetUpper();
    const CRange<double> heights = chart.GetChart().y.range;
    for (const double share : {0.25, 0.75})
        QTest::mouseClick(&chart, Qt::LeftButton, {},
                          chart.ToPoint(share * length, heights.GetUpper()).toPoint() + QPoint(0, 10));
    const auto cursors = chart.GetCursors();
    ASSERT_TRUE(cursors[0] && cursors[1]);
    EXPECT_NEAR(*cursors[1] - *cursors[0], length / 2, length / 50);
    const QString read = chart.GetReadOut();
    EXPECT_TRUE(read.contains("Δx = ") && read.contains("Δz = ")) << qPrintable(read);
    const auto& line = chart.GetChart().lines[0];
    EXPECT_NEAR(GetValueAt(line, *cursors[1]) - GetValueAt(line, *cursors[0]),
                (*cursors[1] - *cursors[0]) / 10, 1e-12);
    const double before = *cursors[1];
    Type("Right");
    EXPECT_GT(*chart.GetCursors()[1], before);
    Type("1 Left");
    EXPECT_LT(*chart.GetCursors()[0], *cursors[0]);

    EXPECT_TRUE(GetMessageLoop().RunUntil([&] { return !pane.GetRoughness().IsBusy(); }));
    EXPECT_TRUE(pane.GetRoughness().GetState().contains("Profile 1"));
    EXPECT_FALSE(pane.GetRoughness().GetPanel().GetResults().quantities.empty());

    const auto path = m_folder.GetPath() / "saved.txt";
    m_dialogs.Prepare(CStr::FromUtf8(path.string()));
    FindButton(pane, ESeeText::Save)->click();
    const auto saved = Formats::ReadSurface(path);
    EXPECT_EQ(saved.points, pane.GetChosen()->surface.points);
    EXPECT_NEAR(saved.heights.back(), pane.GetChosen()->surface.heights.back(), 1e-15);
    m_dialogs.Prepare(CStr::FromUtf8((m_folder.GetPath() / "none/saved.txt").string()));
    FindButton(pane, ESeeText::Save)->click();
    EXPECT_EQ(TakeBoxes().size(), 1u);
    FindButton(pane, ESeeText::Copy)->click();
    EXPECT_EQ(m_clipboard.GetText().ToUtf8().substr(0, 5), "x / m");

    // What goes with the tab is not shown any more.
    m_window->GetTabs().Close(0);
    EXPECT_TRUE(chart.GetChart().lines.empty());
    EXPECT_EQ(pane.GetProfiles().count(), 0);
}

TEST_F(See, ChartsZoomAndMove)
{
    m_tools->GetCurves().show();
    CCurvePane& pane = m_tools->GetCurves();
    EXPECT_TRUE(GetMessageLoop().RunUntil([&] { return !pane.IsBusy(); }));
    CChartWidget& chart = pane.GetChart();
    for (int i = 0; i < 3; ++i) {
        pane.GetChoice().setCurrentIndex(i);
        const CRange<double> all = chart.GetSeenX();
        chart.setFocus();
        Type("+ +");
        const CRange<double> some = chart.GetSeenX();
        EXPECT_TRUE(all.Contains(some.GetLower()) && all.Contains(some.GetUpper()) && some != all);
        Drag(chart, chart.rect().center(), {-40, 0});
        EXPECT_GT(chart.GetSeenX().GetLower(), some.GetLower());
        Type("Shift+Left");
        EXPECT_NEAR(chart.GetSeenX().GetLower(), some.GetLower(), some.GetLength() / 10);
        const CRange<double> heights = chart.GetSeenY();
        EXPECT_TRUE(Turn(chart, 120, Qt::ControlModifier));
        EXPECT_LT(chart.GetSeenY().GetLength(), heights.GetLength());
        Type("Home");
        EXPECT_EQ(chart.GetSeenX(), all);
        EXPECT_NEAR(chart.GetSeenY().GetLength(), heights.GetLength(), 1e-9 * heights.GetLength());
    }
}

TEST_F(See, TheWheelKeepsEveryRangeAndNewHeightsAreShown)
{
    CChartWidget chart;
    chart.resize(300, 200);
    const auto show = [&chart](double bottom, double top) {
        Measurement::SChart shown;
        shown.x.range = CRange<double>(0, 1);
        shown.y.range = CRange<double>(bottom, top);
        chart.SetChart(shown, true);
    };
    for (int i = 1; i < 200; ++i) {
        show(-0.1 * i, 1e-7 * i * i); // many of these have no exact sum of the lower end and the length
        Turn(chart, 120);
        EXPECT_EQ(chart.GetSeenY().GetLower(), -0.1 * i);
        EXPECT_NEAR(chart.GetSeenY().GetUpper(), 1e-7 * i * i, 1e-12);
    }
}

TEST_F(See, CurvesFollowTheSurfaceAndAreSaved)
{
    CCurvePane& pane = m_tools->GetCurves();
    EXPECT_FALSE(pane.IsBusy()); // nobody looks
    pane.show();
    const auto wait = [&] { return GetMessageLoop().RunUntil([&] { return !pane.IsBusy(); }); };
    EXPECT_TRUE(wait());
    const auto range = pane.GetChart().GetChart().x.range;
    EXPECT_NEAR(range.GetUpper(), 1e-6, 1e-12);
    pane.GetChoice().setCurrentIndex(1);
    OpenSample();
    EXPECT_TRUE(wait());
    EXPECT_EQ(pane.GetChart().GetChart().marks.size(), 4u); // the construction of Sk
    const auto save = [&](const char* name) {
        m_dialogs.Prepare(CStr::FromUtf8((m_folder.GetPath() / name).string()));
        FindButton(pane, ESeeText::Save)->click();
        return m_folder.Read(name);
    };
    const std::string svg = save("a.svg");
    EXPECT_EQ(svg.substr(0, 5), "<?xml");
    EXPECT_NE(svg.find("<style>"), std::string::npos);
    EXPECT_EQ(save("a.png").substr(1, 3), "PNG");
    FindButton(pane, ESeeText::Copy)->click();
    EXPECT_NE(m_clipboard.GetHtml().ToUtf8().find("<td>material ratio / %</td>"), std::string::npos);

    Open(Write("none.sdf", "aISO-1.0\nNumPoints = 2\nNumProfiles = 2\nXscale = 1e-6\nYscale = 1e-6\n"
                           "Zscale = 1e-9\n*\nBAD BAD\nBAD BAD\n*\n"));
    EXPECT_TRUE(wait());
    EXPECT_FALSE(pane.GetChart().isVisible());
    Use(EMapTool::Profile); // nothing to draw over
    Type("Return");
    EXPECT_TRUE(m_window->GetPage()->GetMarks().GetMarks().empty());
}

} // namespace Workbench
