#include "qt/dialogs/ProgressWindow.h"

#include "platform/ManualTimerService.h"
#include "platform/MessageBoxService.h"
#include "platform/MessageLoop.h"
#include "qt/dialogs/FormatSpecifierWindow.h"
#include "qt/dialogs/QtProgressDialog.h"
#include "qt/QtText.h"
#include "tests/qt/WhenShown.h"

#include <gtest/gtest.h>
#include <QAccessible>
#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <functional>
#include <latch>
#include <memory>
#include <stdexcept>

using namespace CommonUI;

namespace
{

using Template = SProgressLayout;

// A window of the application, and a dialog over it whose work is any function, on a clock that stands
// still.
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
        dialog = std::make_unique<CQtProgressThreadDialog>(parent, u"Batch", CStr());
        dialog->SetWork(*this, &ProgressWindow::Work);
        dialog->SetStepCallback(*this, &ProgressWindow::OnStep);
    }
    void Work() { work(); }
    void OnStep(CProgressDialogBase&, const CStr&)
    {
        ++steps;
        if (onStep)
            onStep();
    }
    CProgressWindow& Window() { return *dialog->GetWindow(); }
    // As the user does it, so that modal windows are in the way.
    void ClickMainWindow()
    {
        QTest::mouseClick(main->windowHandle(), Qt::LeftButton, {}, button->geometry().center());
    }
    // Opens the dialog, does something on the user-interface thread while the work waits, and lets it go on.
    int RunWhileWorkWaits(const std::function<void()>& act, const std::function<void()>& rest)
    {
        std::latch done(1);
        work = [&] {
            done.wait();
            rest();
        };
        GetMessageLoop().Post([&] {
            act();
            done.count_down();
        });
        return dialog->DoModal();
    }

    std::unique_ptr<QWidget> main = std::make_unique<QWidget>();
    QPushButton* button;
    int clicks = 0;
    std::atomic<int> steps = 0;
    std::function<void()> work = [] {};
    std::function<void()> onStep;
    CManualTimerService timers;
    CServiceScope<CTimerService> timersScope{timers};
    std::unique_ptr<CQtProgressThreadDialog> dialog;
};

// A rectangle of the template in the font of a widget, to a pixel.
void ExpectPlace(const QRect& rect, const SRect& place, const QWidget& widget)
{
    const QFontMetricsF metrics(widget.font());
    const QString letters = QStringLiteral("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ");
    const double x = metrics.horizontalAdvance(letters) / 52 / 4;
    const double y = QFontMetrics(widget.font()).height() / 8.0;
    EXPECT_NEAR(rect.x(), place.left * x, 1);
    EXPECT_NEAR(rect.y(), place.top * y, 1);
    EXPECT_NEAR(rect.width(), place.GetWidth() * x, 1);
    EXPECT_NEAR(rect.height(), place.GetHeight() * y, 1);
}

} // namespace

TEST_F(ProgressWindow, ShortWorkShowsNothingAndKeepsTheOtherWindowsFromInput)
{
    bool appeared = true;
    const auto act = [&] {
        timers.Advance(CProgressDialogBase::c_showDelay - 1);
        ClickMainWindow();
        appeared = Window().IsOnScreen() || Window().windowHandle()->isVisible();
    };
    EXPECT_EQ(RunWhileWorkWaits(act, [] {}), CBaseDialog::c_ok);
    EXPECT_FALSE(appeared);
    EXPECT_EQ(clicks, 0);
    ClickMainWindow();
    EXPECT_EQ(clicks, 1);
}

TEST_F(ProgressWindow, AppearsWithTheFirstStepOrAfterTwoSeconds)
{
    for (const bool reports : {true, false}) {
        const auto expectShown = [&] {
            EXPECT_TRUE(Window().windowHandle()->isVisible());
            EXPECT_EQ(Window().windowHandle()->transientParent(), main->windowHandle());
            EXPECT_LE((Window().geometry().center() - main->geometry().center()).manhattanLength(), 50);
            ClickMainWindow();
        };
        onStep = expectShown;
        RunWhileWorkWaits(
            [&] {
                if (reports)
                    return;
                timers.Advance(CProgressDialogBase::c_showDelay);
                expectShown();
            },
            [&] {
                if (reports)
                    dialog->PostThreadProgress(1, u"One");
            });
        EXPECT_FALSE(Window().isVisible());
        EXPECT_EQ(clicks, 0);
    }
    EXPECT_EQ(steps, 1);
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
    const std::function<void()> cases[] = {
        [] {
            GetMessageBoxService().Show({u"A file is missing.", MessageBoxStyle::c_ok});
        },
        [&] { CQtFormatSpecifierDlg(CParameter(1, u"Sa", u"Sa", u"Sa", 0, true), main.get()).DoModal(); },
    };
    for (const auto& show : cases) {
        // With a parent, and over the window in use.
        for (QWidget* const parent : {main.get(), static_cast<QWidget*>(nullptr)}) {
            MakeDialog(parent);
            RunWhileWorkWaits([&] { WhenShown<QDialog>(press), show(); }, [] {});
        }
    }
}

TEST_F(ProgressWindow, CancelsBeforeTheFirstReportAndStaysOpen)
{
    const struct {
        const char* name;
        std::function<void()> act;
    } cases[] = {
        {"button", [&] { QTest::mouseClick(&Window().GetCancelButton(), Qt::LeftButton); }},
        {"Space", [&] { QTest::keyClick(&Window().GetCancelButton(), Qt::Key_Space); }},
        {"Escape", [&] { QTest::keyClick(&Window(), Qt::Key_Escape); }},
        {"closing", [&] { EXPECT_FALSE(Window().close()); }},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        dialog->SetCanceled(false);
        int answer = 0;
        const auto act = [&] {
            timers.Advance(CProgressDialogBase::c_showDelay);
            QTest::keyClick(&Window().GetCancelButton(), Qt::Key_Return);
            EXPECT_FALSE(dialog->IsCanceled());
            row.act();
            EXPECT_TRUE(Window().IsOnScreen());
            for (const QWidget* const control : Window().findChildren<QWidget*>())
                EXPECT_FALSE(control->isEnabled());
        };
        EXPECT_EQ(RunWhileWorkWaits(act, [&] { answer = dialog->PostThreadProgress(1, {}); }),
                  CBaseDialog::c_ok);
        EXPECT_NE(answer, 0);
        EXPECT_TRUE(dialog->IsCanceled());
    }
    EXPECT_EQ(steps, 0);
}

TEST_F(ProgressWindow, HandlesInputWhileReportsKeepComing)
{
    onStep = [&] {
        if (steps != 1)
            return;
        // Dragged, made larger by a larger font, and cancelled, each by an event of its own.
        for (int i = 0; i < 20; ++i)
            QTimer::singleShot(0, &Window(), [this, i] {
                Window().move(10 * i, 5 * i);
                Window().resize(300 + i, 200 + i);
            });
        QTimer::singleShot(0, &Window(), [this] { Window().setFont(QFont(Window().font().family(), 20)); });
        QTimer::singleShot(0, &Window(), [this] { Window().GetCancelButton().click(); });
    };
    work = [this] {
        while (dialog->PostThreadProgress(1e-6F, u"Working") == 0) {
        }
    };
    dialog->DoModal();
    EXPECT_TRUE(dialog->IsCanceled());
    ExpectPlace(Window().GetBar().geometry(), Template().bar, Window());
}

TEST_F(ProgressWindow, AMillionReportsAreOneMessageAtATime)
{
    constexpr int c_count = 1'000'000;
    std::latch reported(1);
    int stepsBefore = c_count;
    work = [&] {
        for (int i = 0; i < c_count; ++i)
            dialog->PostThreadProgress(100.0F / c_count, u"Working");
        reported.count_down();
    };
    GetMessageLoop().Post([&] {
        reported.wait();
        GetMessageLoop().Post([&] { stepsBefore = steps; });
    });
    dialog->DoModal();
    EXPECT_LE(stepsBefore, static_cast<int>(CProgressThreadDialog::c_stepsPerMessage));
    EXPECT_EQ(steps, c_count);
}

TEST_F(ProgressWindow, AnExceptionReachesTheCallerWhenTheWindowIsClosed)
{
    work = [this] {
        dialog->PostThreadProgress(1, {});
        throw std::runtime_error("work");
    };
    EXPECT_THROW(dialog->DoModal(), std::runtime_error);
    EXPECT_FALSE(Window().isVisible());
}

TEST_F(ProgressWindow, WhoeverGoesFirstTheOthersStayAlive)
{
    const struct {
        const char* name;
        std::function<void()> destroy;
    } cases[] = {
        {"dialog, by its callback", [&] { dialog.reset(); }},
        {"dialog, by an event", [&] { QTimer::singleShot(0, qApp, [&] { dialog.reset(); }); }},
        {"parent, which ends the work",
         [&] {
             main.reset();
             EXPECT_EQ(dialog->GetWindow(), nullptr);
             dialog->OnCancel();
         }},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        MakeDialog(main.get());
        bool ended = false;
        work = [&, worked = dialog.get()] {
            while (worked->PostThreadProgress(1, u"Working") == 0) {
            }
            ended = true;
        };
        onStep = [&] { std::exchange(onStep, nullptr), row.destroy(); };
        dialog->DoModal();
        EXPECT_TRUE(ended);
    }
}

TEST_F(ProgressWindow, ShowsWorkOnTheUserInterfaceThread)
{
    CQtProgressDialog loading(nullptr, u"Loading", {});
    int loaded = 0;
    loading.SetRange(5);
    loading.Create();
    EXPECT_FALSE(loading.GetWindow()->isVisible());
    for (; loaded < 5 && !loading.IsCanceled(); ++loaded) {
        loading.Step(1);
        EXPECT_TRUE(loading.GetWindow()->IsOnScreen());
        EXPECT_EQ(loading.GetWindow()->GetBar().value(), loaded + 1);
        if (loaded == 2)
            QTimer::singleShot(0, &loading.GetWindow()->GetCancelButton(), &QPushButton::click);
        GetMessageLoop().Pump();
    }
    loading.EndDialog(CBaseDialog::c_ok);
    EXPECT_EQ(loaded, 3);
    EXPECT_FALSE(loading.GetWindow()->isVisible());
}

TEST_F(ProgressWindow, LiesAsInItsTemplateInEachFont)
{
    dialog->SetText(u"One line");
    dialog->Create();
    for (const int size : {7, 10, 24}) {
        Window().setFont(QFont(Window().font().family(), size));
        ExpectPlace(Window().rect(), {0, 0, Template().dialog.cx, Template().dialog.cy}, Window());
        ExpectPlace(Window().findChild<QLabel*>()->geometry(), Template().text, Window());
        ExpectPlace(Window().GetBar().geometry(), Template().bar, Window());
        ExpectPlace(Window().GetCancelButton().geometry(), Template().cancel, Window());
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
    for (const CStr& text : texts) {
        dialog->SetText(text);
        Window().SetText(ProgressTemplate::c_cancel, u"Auswertung der Oberfl\u00E4chen jetzt abbrechen");
        Window().SetLayout(GetProgressLayout(Window().MeasureText(text, GetProgressTextWidth())));
        const QLabel& label = *Window().findChild<QLabel*>();
        const QRect needed =
            label.fontMetrics().boundingRect(0, 0, label.width(), 10000, Qt::TextWrapAnywhere, label.text());
        EXPECT_LE(needed.height(), label.height());
        EXPECT_LE(needed.width(), label.width());
        const QPushButton& cancel = Window().GetCancelButton();
        EXPECT_GE(cancel.width(), cancel.fontMetrics().horizontalAdvance(cancel.text()));
        EXPECT_GE(cancel.height(), cancel.sizeHint().height());
        EXPECT_LT(label.geometry().bottom(), Window().GetBar().y());
        EXPECT_LT(Window().GetBar().geometry().bottom(), cancel.y());
        EXPECT_TRUE(Window().rect().contains(cancel.geometry()));
    }
}

TEST_F(ProgressWindow, TellsScreenReadersTextAndProgress)
{
    QIcon icon(QPixmap(8, 8));
    dialog->SetIcon(icon);
    dialog->SetText(u"Reading");
    dialog->Create();
    dialog->Step(42);
    QAccessibleInterface* const bar = QAccessible::queryAccessibleInterface(&Window().GetBar());
    EXPECT_EQ(bar->role(), QAccessible::ProgressBar);
    EXPECT_EQ(bar->text(QAccessible::Name), QStringLiteral("Progress"));
    EXPECT_EQ(bar->valueInterface()->currentValue().toInt(), 42);
    QAccessibleInterface* const label = QAccessible::queryAccessibleInterface(Window().findChild<QLabel*>());
    EXPECT_EQ(label->text(QAccessible::Name), QStringLiteral("Reading"));
    EXPECT_EQ(Window().windowIcon().cacheKey(), icon.cacheKey());
    EXPECT_EQ(Window().windowTitle(), QStringLiteral("Batch"));
}
