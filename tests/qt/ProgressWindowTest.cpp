#include "qt/dialogs/ProgressWindow.h"

#include "platform/ManualTimerService.h"
#include "platform/MessageBoxService.h"
#include "platform/MessageLoop.h"
#include "qt/dialogs/QtFormatSpecifierDlg.h"
#include "qt/dialogs/QtProgressDialog.h"
#include "tests/qt/WidgetTesting.h"

#include <memory>

using namespace CommonUI;

namespace
{

void ShowMessageBox()
{
    (void)GetMessageBoxService().Show({u"A file is missing.", MessageBoxStyle::c_ok});
}

// A window of the application, and a dialog over it, on a clock that stands still.
class ProgressWindow : public testing::Test
{
public:
    ProgressWindow()
        : button(new QPushButton(main.get()))
    {
        QObject::connect(button, &QPushButton::clicked, main.get(), [this] { ++clicks; });
        main->resize(600, 400);
        main->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(main.get()));
        MakeDialog(main.get());
    }

    void MakeDialog(QWidget* parent)
    {
        dialog = std::make_unique<CQtProgressDialog>(parent, u"Batch", CStr());
        dialog->SetStepCallback(*this, &ProgressWindow::OnStep);
    }
    void Work() { work(); }
    void OnStep(CProgressDialogBase&, const CStr&)
    {
        if (onStep)
            std::exchange(onStep, nullptr)();
    }
    CProgressWindow& Window() { return *dialog->GetWindow(); }
    // As the user does it, so that modal windows are in the way.
    void ClickMainWindow()
    {
        QTest::mouseClick(main->windowHandle(), Qt::LeftButton, {}, button->geometry().center());
    }
    // Opens the dialog, does something, and closes it.
    int RunModal(const FAct& act)
    {
        GetMessageLoop().Post([&] {
            act();
            if (dialog)
                dialog->EndDialog(CBaseDialog::c_ok);
        });
        return dialog->DoModal();
    }

    std::unique_ptr<QWidget> main = std::make_unique<QWidget>();
    QPushButton* button;
    int clicks = 0;
    FAct work;
    FAct onStep; // once
    CManualTimerService timers;
    CServiceScope<CTimerService> timersScope{timers};
    std::unique_ptr<CQtProgressDialog> dialog;
};

} // namespace

TEST_F(ProgressWindow, KeepsInputFromTheOtherWindowsWhetherItIsSeenOrNot)
{
    for (const int place : {100, 500}) {
        main->move(place, place);
        RunModal([&] {
            ClickMainWindow();
            EXPECT_FALSE(Window().IsOnScreen() || Window().windowHandle()->isVisible());
            timers.Advance(CProgressDialogBase::c_showDelay);
            EXPECT_TRUE(Window().IsOnScreen() && Window().windowHandle()->isVisible());
            EXPECT_EQ(Window().windowHandle()->transientParent(), main->windowHandle());
            EXPECT_LE((Window().geometry().center() - main->geometry().center()).manhattanLength(), 50);
            ClickMainWindow();
        });
        EXPECT_FALSE(Window().isVisible());
    }
    EXPECT_EQ(clicks, 0);
    ClickMainWindow();
    EXPECT_EQ(clicks, 1);
}

TEST_F(ProgressWindow, PointerIsBusyOverWindowsThatAHiddenDialogBlocks)
{
    const auto isBusy = [] {
        const QCursor* const pointer = QGuiApplication::overrideCursor();
        return pointer && pointer->shape() == Qt::WaitCursor;
    };
    const FAct ends[] = {
        [&] { timers.Advance(CProgressDialogBase::c_showDelay); },
        [&] { dialog->EndDialog(1); },
        [&] { delete dialog->GetWindow(); },
    };
    for (const auto& end : ends) {
        MakeDialog(main.get());
        RunModal([&] {
            EXPECT_TRUE(isBusy());
            WhenShown<QMessageBox>([&](QMessageBox& box) {
                EXPECT_FALSE(isBusy()) << "it can be used";
                box.close();
            });
            ShowMessageBox();
            EXPECT_TRUE(isBusy());
            end();
            EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
        });
    }
}

TEST_F(ProgressWindow, AQuitDuringTheWorkComesAfterTheDialog)
{
    for (const bool byLastWindow : {false, true}) {
        main->show();
        MakeDialog(main.get());
        bool isClosed = false;
        GetMessageLoop().Post([&] {
            const auto quit = [&] {
                byLastWindow ? (void)main->close() : QCoreApplication::quit();
                QCoreApplication::sendPostedEvents(qApp);
                EXPECT_TRUE(dialog->IsOpen() && dialog->IsCanceled());
            };
            EXPECT_EQ(RunModal(quit), CBaseDialog::c_ok);
            EXPECT_EQ(main->isVisible(), !byLastWindow) << "nobody else is asked before";
            GetMessageLoop().Post([&] {
                isClosed = !main->isVisible();
                QCoreApplication::exit();
            });
        });
        QApplication::exec();
        EXPECT_TRUE(isClosed) << byLastWindow;
    }
}

TEST_F(ProgressWindow, LeavesWhatWasThereBeforeUsable)
{
    const auto press = [&](QDialog& there) {
        timers.Advance(CProgressDialogBase::c_showDelay);
        EXPECT_TRUE(Window().IsOnScreen());
        const QWidget& ok = *there.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
        QTest::mouseClick(there.windowHandle(), Qt::LeftButton, {}, ok.mapTo(&there, ok.rect().center()));
        EXPECT_FALSE(there.isVisible());
    };
    const FAct cases[] = {
        ShowMessageBox,
        [&] { CQtFormatSpecifierDlg(CParameter(1, u"Sa", u"Sa", u"Sa", 0, true), main.get()).DoModal(); }};
    for (const auto& show : cases) {
        // With a parent, and over the window in use.
        for (QWidget* const parent : {main.get(), static_cast<QWidget*>(nullptr)}) {
            MakeDialog(parent);
            RunModal([&] { WhenShown<QDialog>(press), show(); });
        }
    }
}

TEST_F(ProgressWindow, IsCancelledInEachWayAndStaysOpen)
{
    const std::pair<const char*, FAct> cases[] = {
        {"button", [&] { QTest::mouseClick(&Window().GetCancelButton(), Qt::LeftButton); }},
        {"Space", [&] { QTest::keyClick(&Window().GetCancelButton(), Qt::Key_Space); }},
        {"Escape", [&] { QTest::keyClick(&Window(), Qt::Key_Escape); }},
        {"closing", [&] { EXPECT_FALSE(Window().close()); }},
    };
    for (const auto& [how, cancel] : cases) {
        SCOPED_TRACE(how);
        MakeDialog(main.get());
        RunModal([&, &act = cancel] {
            dialog->Step(1);
            QTest::keyClick(&Window().GetCancelButton(), Qt::Key_Return);
            EXPECT_FALSE(dialog->IsCanceled());
            act();
            EXPECT_TRUE(dialog->IsCanceled() && Window().IsOnScreen());
            for (const QWidget* const control : Window().findChildren<QWidget*>())
                EXPECT_FALSE(control->isEnabled());
        });
    }
}

TEST_F(ProgressWindow, HandlesInputWhileReportsKeepComing)
{
    CQtProgressThreadDialog batch(main.get(), {}, {});
    batch.SetWork(*this, &ProgressWindow::Work);
    batch.SetStepCallback(*this, &ProgressWindow::OnStep);
    work = [&] {
        while (batch.PostThreadProgress(1e-6F, u"Working") == 0) {
        }
    };
    onStep = [&] { QTimer::singleShot(0, &batch.GetWindow()->GetCancelButton(), &QPushButton::click); };
    EXPECT_EQ(batch.DoModal(), CBaseDialog::c_ok);
    EXPECT_TRUE(batch.IsCanceled());
}

TEST_F(ProgressWindow, WhoeverGoesFirstTheOthersStayAlive)
{
    const auto destroy = [&] { dialog.reset(); };
    const auto destroyParent = [&] {
        main.reset();
        EXPECT_EQ(dialog->GetWindow(), nullptr);
        dialog->Step(1);
        dialog->EndDialog(7);
    };
    const std::pair<FAct, int> cases[] = {
        {destroy, CBaseDialog::c_cancel},
        {[&] { QTimer::singleShot(0, qApp, destroy); }, CBaseDialog::c_cancel},
        {destroyParent, 7},
    };
    for (const auto& [act, result] : cases) {
        MakeDialog(main.get());
        onStep = act;
        GetMessageLoop().Post([&] { dialog->Step(1); });
        EXPECT_EQ(dialog->DoModal(), result) << &result - &cases[0].second;
    }
}

TEST_F(ProgressWindow, CutsNoText)
{
    const CStr texts[] = {
        u"Processing, please wait...",
        u"Die Auswertung der Oberfl\u00E4chen wird ausgef\u00FChrt, bitte haben Sie noch etwas Geduld...",
        u"One\nTwo\n\nFour",
        CStr(std::u16string(200, u'm')),
        {},
    };
    dialog->Create();
    const QLabel& label = *Window().findChild<QLabel*>();
    const QProgressBar& bar = Window().GetBar();
    const QPushButton& cancel = Window().GetCancelButton();
    for (const CStr& text : texts) {
        dialog->SetText(text);
        Window().SetText(ProgressTemplate::c_cancel, u"Auswertung der Oberfl\u00E4chen jetzt abbrechen");
        Window().SetLayout(GetProgressLayout(Window().MeasureText(text, GetProgressTextWidth())));
        const QRect needed =
            label.fontMetrics().boundingRect(0, 0, label.width(), 10000, Qt::TextWrapAnywhere, label.text());
        EXPECT_TRUE(label.rect().contains(QRect(QPoint(), needed.size())));
        EXPECT_GE(cancel.width(), cancel.fontMetrics().horizontalAdvance(cancel.text()));
        EXPECT_GE(cancel.height(), cancel.sizeHint().height());
        EXPECT_TRUE(label.geometry().bottom() < bar.y() && bar.geometry().bottom() < cancel.y());
        EXPECT_TRUE(Window().rect().contains(cancel.geometry()));
    }
    for (const int size : {7, 24}) { // the bar is 42 letters wide and 7/4 of a line high
        Window().setFont(QFont(Window().font().family(), size));
        const QFontMetrics metrics(Window().font());
        EXPECT_NEAR(bar.width() / metrics.averageCharWidth(), 42, 15);
        EXPECT_NEAR(bar.height(), metrics.height() * 7 / 4.0, 1);
    }
}

TEST_F(ProgressWindow, ShowsTextAndProgressToScreenReadersToo)
{
    const QIcon icon(QPixmap(8, 8));
    dialog->SetIcon(icon);
    dialog->SetText(u"Reading");
    dialog->Create();
    dialog->Step(42);
    QProgressBar& shown = Window().GetBar();
    QAccessibleInterface& bar = Reader(shown);
    EXPECT_EQ(bar.role(), QAccessible::ProgressBar);
    EXPECT_EQ(bar.valueInterface()->currentValue().toInt(), 42);
    EXPECT_EQ(Speak(Reader(Window())) + ", " + Speak(Reader(*Window().findChild<QLabel*>())) + ", " +
                  Speak(bar),
              "Batch, Reading (readOnly), Progress (readOnly)");
    EXPECT_EQ(shown.maximum(), 100);
    EXPECT_EQ(Window().windowIcon().cacheKey(), icon.cacheKey());
    dialog->SetRange(0);
    EXPECT_LT(shown.minimum(), shown.maximum()) << "a bar without a range is a busy one";
    EXPECT_EQ(shown.value(), shown.minimum());
}
