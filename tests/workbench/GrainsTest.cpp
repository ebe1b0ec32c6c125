#include "tests/workbench/WorkbenchTesting.h"

#include "qt/edits/QtEditField.h"
#include "qt/grid/ResultGridWidget.h"
#include "view/GrainPicture.h"
#include "workbench/analyze/LengthField.h"

namespace Workbench
{

namespace
{

// 12 x 6 points 1 µm apart at 0, with a grain of 150 nm and one of 200 nm.
std::string MakeGrains()
{
    std::string file =
        "aISO-1.0\nNumPoints = 12\nNumProfiles = 6\nXscale = 1e-6\nYscale = 1e-6\nZscale = 1e-9\n*\n";
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 12; ++x) {
            const bool isFirst = x >= 1 && x <= 3 && y >= 1 && y <= 2;
            const bool isSecond = x >= 7 && x <= 9 && y >= 3 && y <= 4;
            file += isFirst ? "150 " : isSecond ? "200 " : "0 ";
        }
    return file + "\n*\n";
}

} // namespace

class Grains : public CWorkbenchTest
{
protected:
    Grains()
    {
        Open(Write("grains.sdf", MakeGrains()));
        QComboBox& list = GetPane().GetForm().GetAnalyses();
        list.setCurrentIndex(list.findData(static_cast<int>(EAnalysis::Measure)));
        Settle();
    }
    CResultPane& GetPane() { return m_window->GetResults(); }
    CMapWidget& GetMap() { return m_window->GetPage()->GetMap(); }
    CGrainOverlay& GetOverlay() { return m_window->GetPage()->GetGrains(); }
    void Settle()
    {
        WaitForResults();
        QTest::qWait(0); // the form gives the map another size
    }
    // How many grains there are, said and marked.
    std::size_t Count()
    {
        Settle();
        const std::size_t count = GetOverlay().GetGrains() ? GetOverlay().GetGrains()->map.count : 0;
        EXPECT_TRUE(GetPane().GetState().contains(QStringLiteral("Grains: %1").arg(count)));
        EXPECT_EQ(GetPane().GetPanel().GetResults().rowNames.size(), count);
        return count;
    }
    QPoint At(double x, double y)
    {
        const SurfaceView::SPixel pixel = GetMap().GetPlace().ToPixel({.x = x * 1e-6, .y = y * 1e-6});
        return {qRound(pixel.x), qRound(pixel.y)};
    }
    QColor ColorAt(double x, double y) { return GetMap().grab().toImage().pixelColor(At(x, y)); }
    bool HasOutline(double x, double y)
    {
        const QImage picture = GetMap().grab().toImage();
        const QPoint at = At(x, y);
        for (int i = -2; i <= 2; ++i)
            if (picture.pixelColor(at + QPoint(i, 0)) == QColor(Qt::black))
                return true;
        return false;
    }
    void Type(const char* text)
    {
        CQtEditField& field = GetPane().GetGrains().GetThreshold().GetField();
        field.setFocus();
        field.selectAll();
        QTest::keyClicks(&field, QString::fromUtf8(text));
        QTest::keyClick(&field, Qt::Key_Return);
    }
    static void DoubleClick(QWidget& widget, QPoint at)
    {
        QTest::mouseClick(&widget, Qt::LeftButton, {}, at);
        QMouseEvent second(QEvent::MouseButtonDblClick, at, widget.mapToGlobal(at), Qt::LeftButton,
                           Qt::LeftButton, {});
        QApplication::sendEvent(&widget, &second);
        QTest::mouseRelease(&widget, Qt::LeftButton, {}, at);
    }
    std::size_t GetRow() { return GetPane().GetTable().GetPane().GetSelection().GetFocus().row; }
};

TEST_F(Grains, MapAndTableChooseEachOthers)
{
    EXPECT_EQ(Count(), 2u);
    EXPECT_TRUE(HasOutline(0.5, 1.5)); // half a point before the first one
    EXPECT_FALSE(HasOutline(2, 1.5));
    const QColor before = ColorAt(8, 3.5);
    QTest::mouseClick(&GetMap(), Qt::LeftButton, {}, At(8, 3.5));
    EXPECT_EQ(GetOverlay().GetChosen(), 2u);
    EXPECT_EQ(GetRow(), 2u);
    EXPECT_NE(ColorAt(8, 3.5), before);
    EXPECT_NEAR(GetMap().GetPlace().GetZoom(), 1, 1e-9);

    QTest::mouseClick(&GetMap(), Qt::LeftButton, {}, At(5, 2));
    EXPECT_EQ(GetOverlay().GetChosen(), 0u);
    EXPECT_EQ(ColorAt(8, 3.5), before);
    GetMap().Zoom(4);
    Drag(GetMap(), At(6, 3), QPoint(60, 0)); // moves the map and chooses nothing
    EXPECT_EQ(GetOverlay().GetChosen(), 0u);

    GetMap().Zoom(4);
    GetPane().GetTable().setFocus();
    QTest::keyClick(&GetPane().GetTable(), Qt::Key_Up);
    EXPECT_EQ(GetOverlay().GetChosen(), 1u);
    const SRect shown = GetMap().GetPlace().GetShown();
    const QPoint middle((shown.left + shown.right) / 2, (shown.top + shown.bottom) / 2);
    EXPECT_LT((At(2, 1.5) - middle).manhattanLength(), 5);

    GetPane().GetPanel().Transpose(true); // grains as columns
    GetMap().Fit();
    QTest::mouseClick(&GetMap(), Qt::LeftButton, {}, At(8, 3.5));
    EXPECT_EQ(GetPane().GetTable().GetPane().GetSelection().GetFocus().column, 2u);
    GetPane().GetTable().setFocus();
    QTest::keyClick(&GetPane().GetTable(), Qt::Key_Left);
    EXPECT_EQ(GetOverlay().GetChosen(), 1u);
}

TEST_F(Grains, BlockShowsAndPicksThem)
{
    ASSERT_EQ(Count(), 2u);
    CBlockWidget& block = *m_window->GetPage()->GetBlock();
    const auto pictureOf = [&] {
        QCoreApplication::processEvents();
        return block.grabFramebuffer();
    };
    const auto countOf = [](const QImage& picture, auto isMeant) {
        int count = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                count += isMeant(picture.pixelColor(x, y));
        return count;
    };
    const auto isBlack = [](const QColor& color) { return color.lightness() < 12; };
    const QColor highlight = block.palette().color(QPalette::Highlight);
    const auto isChosen = [&](const QColor& color) {
        return color.hslHue() == -1
                   ? false
                   : std::abs(color.hslHue() - highlight.hslHue()) < 12 && color.saturation() > 80;
    };
    // A pixel at which the block shows a place of the surface, in µm.
    const auto at = [&](double x, double y) {
        for (int row = 0; row < block.height(); row += 2)
            for (int column = 0; column < block.width(); column += 2)
                if (const auto place = block.FindPlace(QPointF(column, row)))
                    if (std::hypot(place->x - x * 1e-6, place->y - y * 1e-6) < 0.3e-6)
                        return QPoint(column, row);
        ADD_FAILURE() << x << ' ' << y << " is not seen";
        return QPoint();
    };
    m_window->GetPage()->SetColors({});
    const QImage unchosen = pictureOf();
    EXPECT_GT(countOf(unchosen, isBlack), 100);
    const int before = countOf(unchosen, isChosen);

    QTest::mouseClick(&block, Qt::LeftButton, {}, at(8, 3.5));
    EXPECT_EQ(GetOverlay().GetChosen(), 2u);
    EXPECT_EQ(GetRow(), 2u);
    EXPECT_GT(countOf(pictureOf(), isChosen), before + 500);
    Drag(block, at(2, 1.5), {30, 0}); // turns
    EXPECT_EQ(GetOverlay().GetChosen(), 2u);
    // What is turned there and back chooses nothing, and a double click shows all of it.
    const QPoint other = at(2, 1.5);
    QTest::mousePress(&block, Qt::LeftButton, {}, other);
    for (const QPoint& place : {other + QPoint(30, 0), other}) {
        QMouseEvent move(QEvent::MouseMove, place, block.mapToGlobal(place), Qt::NoButton, Qt::LeftButton,
                         {});
        QApplication::sendEvent(&block, &move);
    }
    QTest::mouseRelease(&block, Qt::LeftButton, {}, other);
    EXPECT_EQ(GetOverlay().GetChosen(), 2u);
    DoubleClick(block, other);
    EXPECT_EQ(GetOverlay().GetChosen(), 2u);
    DoubleClick(GetMap(), At(2, 1.5));
    EXPECT_EQ(GetOverlay().GetChosen(), 2u);
    EXPECT_EQ(GetRow(), 2u);
    QTest::mouseClick(&block, Qt::LeftButton, {}, {2, 2}); // beside the surface
    EXPECT_EQ(GetOverlay().GetChosen(), 0u);
    EXPECT_LT(countOf(pictureOf(), isChosen), before + 100);

    GetPane().GetTable().setFocus();
    QTest::keyClick(&GetPane().GetTable(), Qt::Key_Up);
    EXPECT_EQ(GetOverlay().GetChosen(), 1u);
    EXPECT_GT(countOf(pictureOf(), isChosen), before + 500);
    block.Turn(0, -80); // from below its bottom is seen
    pictureOf();
    EXPECT_FALSE(block.FindPlace(block.rect().center()));
    QComboBox& list = GetPane().GetForm().GetAnalyses();
    list.setCurrentIndex(0);
    Settle();
    EXPECT_LT(countOf(pictureOf(), isChosen), before + 100);
}

TEST_F(Grains, ThresholdIsFoundOrEntered)
{
    CGrainForm& form = GetPane().GetGrains();
    EXPECT_NEAR(form.GetThreshold().GetLength(), 100e-9, 1e-12);
    EXPECT_EQ(form.GetSlider().value(), 500);
    Type("180");
    EXPECT_EQ(Count(), 1u);
    EXPECT_EQ(form.GetSlider().value(), 900);
    form.GetSlider().setFocus();
    QTest::keyClick(&form.GetSlider(), Qt::Key_Home);
    EXPECT_NEAR(form.GetThreshold().GetLength(), 0, 1e-12);
    EXPECT_EQ(Count(), 1u); // all of the surface
    form.GetKinds().setCurrentIndex(1);
    EXPECT_EQ(Count(), 0u);

    // What was entered is that of one surface; the side is kept.
    Open(Write("other.sdf", MakeGrains()));
    EXPECT_EQ(Count(), 1u);
    EXPECT_NEAR(form.GetThreshold().GetLength(), 100e-9, 1e-12);
    Start();
    Open((m_folder.GetPath() / "grains.sdf").string());
    EXPECT_EQ(GetPane().GetGrains().GetKinds().currentIndex(), 1);
    EXPECT_EQ(Count(), 1u);

    // A profile has none, and another analysis marks none.
    QComboBox& list = GetPane().GetForm().GetAnalyses();
    list.setCurrentIndex(0);
    Settle();
    EXPECT_EQ(GetOverlay().GetGrains(), nullptr);
    EXPECT_FALSE(GetPane().GetGrains().isVisible());
}

TEST(GrainPicture, ShowsWhatIsVisible)
{
    const Analysis::SSurface surface{.points = 4, .lines = 2, .dx = 1e-6, .dy = 1e-6};
    Analysis::SGrainMap map{.points = 4, .lines = 2, .count = 2, .labels = {1, 0, 0, 2, 0, 0, 0, 2}};
    SurfaceView::CMapPlace place(surface);
    place.SetRoom({0, 0, 400, 200});
    const auto count = [&](std::uint32_t color, std::uint32_t chosen) {
        const auto pixels = SurfaceView::DrawGrains(map, {.inside = 1, .outside = 2, .dense = 4, .chosen = 3},
                                                    chosen, place, 1);
        return std::ranges::count(pixels, color);
    };
    EXPECT_EQ(count(1, 0), 199 + 200); // two sides each, or one: none along the border of the surface
    EXPECT_EQ(count(2, 0), 200 + 200);
    EXPECT_EQ(count(3, 2), 100 * 200 - 200);
    EXPECT_EQ(SurfaceView::FindGrain(map, place, {.x = 3e-6, .y = 0.4e-6}), 2u);
    EXPECT_EQ(SurfaceView::FindGrain(map, place, {.x = -0.6e-6, .y = 0}), 0u);
    // What is finer than pixels is told from large grains, of which the outlines are left.
    place.SetRoom({0, 0, 20, 10});
    Analysis::SGrainMap fine{.points = 400, .lines = 200, .count = 1};
    for (std::size_t i = 0; i < 400 * 200; ++i)
        fine.labels.push_back(i % 400 < 150 ? 1 : i % 400 > 250 && i % 5 < 2 && i / 400 % 5 < 2 ? 2 : 0);
    std::swap(map, fine);
    EXPECT_GE(count(4, 0), 50);
    EXPECT_EQ(count(1, 0), 10);
    EXPECT_LE(count(2, 0), 40);
    std::swap(map, fine);
    place.SetRoom({0, 0, 400, 200});
    const auto middle = SurfaceView::FindMiddle(map, place, 2);
    ASSERT_TRUE(middle);
    EXPECT_NEAR(middle->x, 3e-6, 1e-12);
    EXPECT_NEAR(middle->y, 0.5e-6, 1e-12);
    EXPECT_FALSE(SurfaceView::FindMiddle(map, place, 3));
}

} // namespace Workbench
