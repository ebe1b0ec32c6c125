#include "qt/dialogs/ProgressWindow.h"

#include "platform/ManualTimerService.h"
#include "platform/MessageBoxService.h"
#include "platform/MessageLoop.h"
#include "qt/dialogs/QtFormatSpecifierDlg.h"
#include "qt/dialogs/QtProgressDialog.h"
#include "qt/QtText.h"
#include "tests/qt/WhenShown.h"

#include <gtest/gtest.h>
#include <QTest>
#include <QtWidgets>

#include <functional>
#include <memory>
#include <utility>

using namespace CommonUI;

namespace
{

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
    void RunModal(const std::function<void()>& act)
    {
        GetMessageLoop().Post([&] {
            act();
            dialog->EndDialog(CBaseDialog::c_ok);
        });
        dialog->DoModal();
        EXPECT_FALSE(Window().isVisible());
    }

    std::unique_ptr<QWidget> main = std::make_unique<QWidget>();
    QPushButton* button;
    int clicks = 0;
    std::function<void()> work;
    std::function<void()> onStep; // once
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
    const std::function<void()> ends[] = {
        [&] { timers.Advance(CProgressDialogBase::c_showDelay); },
        [&] { dialog->EndDialog(1); },
        [&] { delete dialog->GetWindow(); },
    };
    for (const auto& end : ends) {
        MakeDialog(main.get());
        GetMessageLoop().Post([&] {
            EXPECT_TRUE(isBusy());
            WhenShown<QMessageBox>([&](QMessageBox& box) {
                EXPECT_FALSE(isBusy()) << "it can be used";
                box.close();
            });
            (void)GetMessageBoxService().Show({u"A file is missing.", MessageBoxStyle::c_ok});
            EXPECT_TRUE(isBusy());
            end();
            EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
            dialog->EndDialog(1);
        });
        dialog->DoModal();
    }
}

TEST_F(ProgressWindow, AQuitDuringTheWorkComesAfterTheDialog)
{
    const std::function<void()> ways[] = {
        [] { QCoreApplication::quit(); }, [&] { main->close(); }, // the last window
    };
    for (const auto& quit : ways) {
        main->show();
        MakeDialog(main.get());
        bool isClosed = false;
        GetMessageLoop().Post([&] {
            GetMessageLoop().Post([&] {
                quit();
                QCoreApplication::sendPostedEvents(qApp);
                EXPECT_TRUE(dialog->IsOpen() && dialog->IsCanceled());
                dialog->EndDialog(7);
            });
            EXPECT_EQ(dialog->DoModal(), 7);
            EXPECT_EQ(main->isVisible(), &quit != &ways[1]) << "nobody else is asked before";
            GetMessageLoop().Post([&] {
                isClosed = !main->isVisible();
                QCoreApplication::exit();
            });
        });
        QApplication::exec();
        EXPECT_TRUE(isClosed) << &quit - ways;
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
    const std::function<void()> cases[] = {
        [] {
            (void)GetMessageBoxService().Show({u"A file is missing.", MessageBoxStyle::c_ok});
        },
        [&] { CQtFormatSpecifierDlg(CParameter(1, u"Sa", u"Sa", u"Sa", 0, true), main.get()).DoModal(); },
    };
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
    const std::pair<const char*, std::function<void()>> cases[] = {
        {"button", [&] { QTest::mouseClick(&Window().GetCancelButton(), Qt::LeftButton); }},
        {"Space", [&] { QTest::keyClick(&Window().GetCancelButton(), Qt::Key_Space); }},
        {"Escape", [&] { QTest::keyClick(&Window(), Qt::Key_Escape); }},
        {"closing", [&] { EXPECT_FALSE(Window().close()); }},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.first);
        dialog->SetCanceled(false);
        RunModal([&] {
            dialog->Step(1);
            QTest::keyClick(&Window().GetCancelButton(), Qt::Key_Return);
            EXPECT_FALSE(dialog->IsCanceled());
            row.second();
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
    const std::tuple<const char*, std::function<void()>, int> cases[] = {
        {"dialog, by its callback", [&] { dialog.reset(); }, CBaseDialog::c_cancel},
        {"dialog, by an event", [&] { QTimer::singleShot(0, qApp, [&] { dialog.reset(); }); },
         CBaseDialog::c_cancel},
        {"parent, and the work goes on",
         [&] {
             main.reset();
             EXPECT_EQ(dialog->GetWindow(), nullptr);
             dialog->Step(1);
             dialog->EndDialog(7);
         },
         7},
    };
    for (const auto& [name, destroy, result] : cases) {
        MakeDialog(main.get());
        onStep = destroy;
        GetMessageLoop().Post([&] { dialog->Step(1); });
        EXPECT_EQ(dialog->DoModal(), result) << name;
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
    for (const int size : {7, 24}) { // the bar is 42 letters wide and 7/4 of a line high
        Window().setFont(QFont(Window().font().family(), size));
        const QFontMetrics metrics(Window().font());
        EXPECT_NEAR(Window().GetBar().width(), 42 * metrics.averageCharWidth(),
                    15 * metrics.averageCharWidth());
        EXPECT_NEAR(Window().GetBar().height(), metrics.height() * 7 / 4.0, 1);
    }
}

TEST_F(ProgressWindow, ShowsTextAndProgressToScreenReadersToo)
{
    QIcon icon(QPixmap(8, 8));
    dialog->SetIcon(icon);
    dialog->SetText(u"Reading");
    dialog->Create();
    dialog->Step(42);
    const QProgressBar& shown = Window().GetBar();
    QAccessibleInterface* const bar = QAccessible::queryAccessibleInterface(&Window().GetBar());
    EXPECT_EQ(bar->role(), QAccessible::ProgressBar);
    EXPECT_EQ(bar->text(QAccessible::Name), QStringLiteral("Progress"));
    EXPECT_EQ(bar->valueInterface()->currentValue().toInt(), 42);
    EXPECT_EQ(shown.maximum(), 100);
    QAccessibleInterface* const label = QAccessible::queryAccessibleInterface(Window().findChild<QLabel*>());
    EXPECT_EQ(label->text(QAccessible::Name), QStringLiteral("Reading"));
    EXPECT_EQ(Window().windowIcon().cacheKey(), icon.cacheKey());
    EXPECT_EQ(Window().windowTitle(), QStringLiteral("Batch"));

    dialog->SetRange(0);
    EXPECT_LT(shown.minimum(), shown.maximum()) << "a bar without a range is a busy one";
    EXPECT_EQ(shown.value(), shown.minimum());
}
