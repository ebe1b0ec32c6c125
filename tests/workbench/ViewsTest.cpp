#include "tests/workbench/WorkbenchTesting.h"

#include "gl/OpenGLWrapper.h"
#include "qt/edits/QtEditField.h"
#include "tests/DiagnosticsCapture.h"

namespace Workbench
{

namespace
{

// How many pixels of two pictures of one size differ.
int CountDifferent(const QImage& one, const QImage& other)
{
    int count = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            count += one.pixel(x, y) != other.pixel(x, y);
    return count;
}

} // namespace

class Views : public CWorkbenchTest
{
protected:
    // The picture at rest, at full detail.
    QImage PictureOf(CBlockWidget& block)
    {
        QCoreApplication::processEvents();
        block.repaint();
        EXPECT_TRUE(GetMessageLoop().RunUntil([&] { return !block.GetFrame().isMoving; }));
        return block.grabFramebuffer();
    }
};

TEST_F(Views, MapReadsZoomsAndMoves)
{
    Open(Write("small.sdf", c_small));
    CMapWidget& map = m_window->GetPage()->GetMap();
    const auto at = [&](double x, double y) {
        const SurfaceView::SPixel pixel = map.GetPlace().ToPixel({.x = x, .y = y});
        return QPoint(qRound(pixel.x), qRound(pixel.y));
    };
    Hover(map, at(2e-6, 0));
    EXPECT_EQ(GetStatus(), "x = 2.000 µm, y = 0.000 µm, z = 200.0 nm");
    Hover(map, at(2e-6, 1e-6));
    EXPECT_EQ(GetStatus(), "x = 2.000 µm, y = 1.000 µm, z = –");
    Hover(map, {1, 1});
    EXPECT_EQ(GetStatus(), "");

    // Colours from black to white, the missing point hatched.
    SColorScale scale;
    scale.missing = SColor{255, 0, 0};
    m_window->GetPage()->SetColors(scale);
    const QImage picture = map.grab().toImage();
    EXPECT_EQ(picture.pixelColor(at(0.2e-6, 0.2e-6)), QColor(0, 0, 0));
    EXPECT_EQ(picture.pixelColor(at(1.2e-6, 1.2e-6)), QColor(255, 255, 255));
    EXPECT_EQ(picture.pixelColor(at(2.2e-6, 1.2e-6)), QColor(255, 0, 0));

    const QPoint corner = at(0, 0);
    EXPECT_TRUE(Turn(map, 240));
    EXPECT_GT(map.GetPlace().GetZoom(), 1.5);
    EXPECT_NE(at(0, 0), corner);
    const QPoint before = at(1e-6, 0.5e-6);
    Drag(map, before, {30, 0});
    EXPECT_EQ(at(1e-6, 0.5e-6), before + QPoint(30, 0));
    map.setFocus();
    Type("Right");
    EXPECT_NE(GetStatus(), "");
    Type("Shift+Left Home");
    EXPECT_EQ(map.GetPlace().GetZoom(), 1);
    EXPECT_EQ(at(0, 0), corner);
    QTest::keySequence(m_window.get(), QKeySequence::ZoomIn);
    EXPECT_GT(map.GetPlace().GetZoom(), 1);
    QTest::keySequence(m_window.get(), QKeySequence(Qt::CTRL | Qt::Key_0));
    EXPECT_EQ(map.GetPlace().GetZoom(), 1);
}

TEST_F(Views, BlockTurnsMovesZoomsAndIsLit)
{
    CBlockWidget& block = *OpenSample().GetBlock();
    block.setFocus();
    QImage last = PictureOf(block);
    const auto hasChanged = [&](const char* what) {
        const QImage picture = PictureOf(block);
        EXPECT_GT(CountDifferent(picture, last), 500) << what;
        last = picture;
    };
    const QPoint middle = block.rect().center();
    const double azimuth = block.GetDirection().azimuth;
    Drag(block, middle, {100, 0});
    EXPECT_LT(block.GetDirection().azimuth, azimuth);
    hasChanged("turned");
    Drag(block, middle, {40, 0}, Qt::RightButton);
    EXPECT_GT(block.GetFraming().pan.x, 0);
    hasChanged("moved");
    Drag(block, middle, {200, 0}, Qt::LeftButton, Qt::ControlModifier);
    hasChanged("light");
    const double zoom = block.GetFraming().zoom;
    Turn(block, 120);
    EXPECT_GT(block.GetFraming().zoom, zoom);
    hasChanged("zoomed");
    Type("Left Up Shift+Left Ctrl+Up +");
    hasChanged("keys");
    // The light that was moved in the view is what the pane shows.
    EXPECT_EQ(m_window->GetStore().look.lightAround, block.GetLook().lightAround);

    CFloatEdit& exaggeration = m_window->GetViewPane().GetExaggeration().GetEdit();
    EXPECT_NEAR(exaggeration.GetValue(), m_window->GetPage()->GetSurface().box->exaggeration, 1e-3);
    m_window->GetViewPane().GetExaggeration().GetField().setFocus();
    Type("Ctrl+A 20 Return");
    EXPECT_EQ(block.GetLook().exaggeration, 20);
    hasChanged("exaggerated");
    FindAction(EText::Parallel)->trigger();
    hasChanged("parallel");
    m_window->GetColorScales().GetMenu().Choose(
        {EBuiltInSetting::CSQuickLaunchGlow, ESettingType::ColorScale});
    hasChanged("colours");
    m_colors.SetChoice(EInterfaceScheme::Dark);
    hasChanged("dark");
    EXPECT_LT(last.pixelColor(3, 3).lightness(), 100);
    block.setFocus();
    Type("Home");
    EXPECT_EQ(block.GetDirection().azimuth, azimuth);
}

TEST_F(Views, FramesGiveTheStateBackAndSendLittle)
{
    CBlockWidget& block = *OpenSample().GetBlock();
    PictureOf(block);
    const auto report = [&] {
        CDiagnosticsCapture lines;
        block.makeCurrent();
        COpenGLWrapper::DiagnoseOutputStacks();
        return lines.Take();
    };
    const auto before = report();
    ASSERT_FALSE(before.empty());
    for (int i = 0; i < 5; ++i) {
        block.Turn(5, 1);
        block.grabFramebuffer(); // is a frame at once, which repaint is not always
    }
    EXPECT_EQ(report(), before);
    block.doneCurrent();
    // Labels alone: the mesh stays where it is.
    const SFrame& frame = block.GetFrame();
    EXPECT_TRUE(frame.isMoving);
    EXPECT_GT(frame.work.triangles, 10'000u);
    EXPECT_LT(frame.work.bytesSent, 28 * frame.work.vertices / 2);
}

TEST_F(Views, BlockHasAllPointsOfWhatIsSeen)
{
    // A narrow ridge on every eighth line of 1600: from far they are one plane.
    Analysis::SSurface surface{.points = 1600, .lines = 1200, .dx = 1e-6, .dy = 1e-6};
    for (std::size_t i = 0; i < 1600 * 1200; ++i)
        surface.heights.push_back(i / 1600 % 8 == 0 ? 1e-6 : 0);
    CBlockWidget& block = *m_window->AddPage(SurfaceView::MakeViewedSurface("ridges", surface)).GetBlock();
    PictureOf(block);
    EXPECT_FALSE(block.GetFrame().isCloseUp);
    block.Zoom(30);
    const QImage still = PictureOf(block);
    EXPECT_TRUE(block.GetFrame().isCloseUp);
    EXPECT_LT(block.GetFrame().work.vertices, 768u * 768); // of 1.9 million
    const auto report = [&] {
        CDiagnosticsCapture lines;
        block.makeCurrent();
        COpenGLWrapper::DiagnoseOutputStacks();
        return lines.Take();
    };
    const auto before = report();
    for (int i = 0; i < 10; ++i) {
        block.Turn(3, 1);
        block.grabFramebuffer();
        EXPECT_TRUE(block.GetFrame().isCloseUp);
        EXPECT_LE(block.GetFrame().work.vertices, 768u * 768);
    }
    EXPECT_EQ(report(), before);
    block.doneCurrent();
    block.Turn(-30, -10);
    EXPECT_LT(CountDifferent(PictureOf(block), still), still.width() * still.height() / 50);
    block.Fit();
    PictureOf(block);
    EXPECT_FALSE(block.GetFrame().isCloseUp);
}

TEST_F(Views, WhereTheBlockCannotBeDrawnASentenceSaysWhyAndTheMapWorks)
{
    GetPreferencesManager().GetData().Set3DAccelerationMode(E3DAccelerationMode::Hardware);
    CSurfacePage& page = OpenSample();
    ASSERT_TRUE(GetMessageLoop().RunUntil([&] { return !page.GetBlock(); }));
    EXPECT_TRUE(page.GetBlockText().contains("graphics card")) << qPrintable(page.GetBlockText());
    page.SetLook({});
    page.Zoom(2);
    EXPECT_GT(page.GetMap().GetPlace().GetZoom(), 1);
    EXPECT_EQ(TakeBoxes().size(), 0u);
    EXPECT_TRUE(m_window->GetAboutText().contains("not in use"));

    Open(Write("profile.txt", "x [mm] z [um]\n0 1\n0.1 2\n0.2 1\n0.3 4\n"));
    EXPECT_FALSE(m_window->GetPage()->GetBlock());
    EXPECT_TRUE(m_window->GetPage()->GetBlockText().contains("two lines"));
}

TEST_F(Views, ContextThatIsLostIsMadeAnew)
{
    CSurfacePage& page = OpenSample();
    CBlockWidget& block = *page.GetBlock();
    const QImage before = PictureOf(block);
    // Another window has another context.
    page.setParent(nullptr);
    page.resize(block.size() * 2);
    page.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&page));
    block.Turn(0, 0);
    const QImage after = PictureOf(block);
    EXPECT_TRUE(block.isValid());
    EXPECT_GT(after.width(), 100);
    EXPECT_TRUE(page.GetBlock());
    delete &page;
}

TEST_F(Views, OneOfBothIsAlwaysShown)
{
    CSurfacePage& page = OpenSample();
    FindAction(EText::ShowMap)->setChecked(false);
    EXPECT_FALSE(page.GetMap().isVisible());
    EXPECT_TRUE(page.GetBlock()->isVisible());
    FindAction(EText::ShowBlock)->setChecked(false);
    EXPECT_TRUE(page.GetMap().isVisible());
    EXPECT_FALSE(page.GetBlock()->isVisible());
}

} // namespace Workbench
