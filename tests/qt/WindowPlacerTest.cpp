#include "qt/framework/WindowPlacer.h"

#include "dialogs/placement/PlacementManager.h"
#include "platform/memory/MemoryScreenService.h"
#include "qt/dialogs/QtFormatSpecifierDlg.h"
#include "qt/framework/DockPane.h"
#include "qt/framework/FormView.h"
#include "tests/qt/WidgetTesting.h"

#include <memory>

using namespace CommonUI;

namespace
{

// Two monitors side by side, for windows that have forgotten where they were.
class WindowPlacer : public testing::Test
{
protected:
    WindowPlacer()
    {
        GetPlacementManager().Clear();
        m_screens.SetScreens({Screen(0), Screen(1200)});
    }
    ~WindowPlacer() override { GetPlacementManager().Clear(); }

    static SScreen Screen(int left) { return {{left, 0, left + 1200, 900}, {left, 0, left + 1200, 900}}; }

    CMemoryScreenService m_screens;
    CServiceScope<CScreenService> m_scope{m_screens};
};

// A main window with a pane.
struct SDesk {
    SDesk()
    {
        window.setCentralWidget(new QPlainTextEdit);
        window.resize(900, 600);
        auto* const list = new QListWidget;
        list->setMinimumSize(60, 60);
        pane->setWidget(list);
        pane->AddTo(window, Qt::LeftDockWidgetArea);
        Activate(window);
    }

    QMainWindow window;
    CDockPane* pane = new CDockPane(u"Pane", u"Pane");
};

} // namespace

TEST_F(WindowPlacer, DialogsComeBackWhereTheyWere)
{
    const CParameter parameter(1, u"Sa", u"Sa", u"Sa", 0, true);
    const auto reopen = [&](const FAct& act) {
        CQtFormatSpecifierDlg dialog(parameter);
        dialog.Create();
        const QRect place = dialog.GetWindow()->geometry();
        if (act)
            act();
        dialog.GetWindow()->setGeometry(1700, 100, 500, 400);
        dialog.EndDialog(CBaseDialog::c_cancel);
        return place;
    };
    EXPECT_NE(reopen({}), QRect(1700, 100, 500, 400));
    EXPECT_EQ(reopen({}), QRect(1700, 100, 500, 400));
    m_screens.SetScreens({Screen(0)});
    EXPECT_EQ(reopen([&] {
                  m_screens.SetScreens({Screen(0), Screen(1200)});
              }),
              QRect(700, 100, 500, 400))
        << "its monitor is gone";
    EXPECT_EQ(reopen({}), QRect(1700, 100, 500, 400));
    const SWindowPlacement hostile{{-99999, 99999}, {1, 99999999}};
    GetPlacementManager().Remember(u"FormatSpecifier", GetCurrentSetUpName(), hostile);
    const QRect place = reopen({});
    EXPECT_TRUE(QRect(0, 0, 1200, 900).contains(place));
    EXPECT_GE(place.width(), 100) << "no smaller than its controls";
}

TEST_F(WindowPlacer, MaximizedViewsComeBackMaximizedAndKnowTheirSizeBefore)
{
    const auto make = [] { return std::make_unique<CFormView>(u"View", new QLabel(QStringLiteral("Sa"))); };
    auto view = make();
    view->setGeometry(50, 60, 500, 400);
    view->showMaximized();
    view.reset();
    view = make();
    view->show();
    EXPECT_TRUE(view->isMaximized());
    const SWindowPlacement expected{{50, 60}, {500, 400}, true};
    EXPECT_EQ(GetPlacementManager().Find(u"View", GetCurrentSetUpName()), expected);
}

TEST_F(WindowPlacer, AShownWindowIsBroughtOntoAnotherMonitor)
{
    QWidget window;
    CWindowPlacer placer(window, u"Shown");
    window.setGeometry(1800, 100, 300, 200);
    window.show();
    m_screens.SetScreens({Screen(0)});
    placer.BringIntoView();
    EXPECT_EQ(window.geometry(), QRect(900, 100, 300, 200));
}

TEST_F(WindowPlacer, PanesComeBackDockedFloatingOrClosed)
{
    {
        SDesk desk;
        EXPECT_EQ(desk.window.dockWidgetArea(desk.pane), Qt::LeftDockWidgetArea);
        desk.window.addDockWidget(Qt::RightDockWidgetArea, desk.pane);
        desk.window.resizeDocks({desk.pane}, {333}, Qt::Horizontal);
        QCoreApplication::processEvents();
    }
    {
        SDesk desk;
        EXPECT_EQ(desk.window.dockWidgetArea(desk.pane), Qt::RightDockWidgetArea);
        EXPECT_EQ(desk.pane->width(), 333);
        desk.pane->close();
    }
    {
        SDesk desk;
        EXPECT_TRUE(desk.pane->isHidden());
        desk.pane->show();
        desk.pane->setFloating(true);
        desk.pane->setGeometry(1500, 200, 300, 250);
    }
    m_screens.SetScreens({Screen(0)});
    const SDesk desk;
    EXPECT_TRUE(desk.pane->isFloating() && desk.pane->isVisible());
    EXPECT_EQ(desk.pane->geometry(), QRect(900, 200, 300, 250));
}
