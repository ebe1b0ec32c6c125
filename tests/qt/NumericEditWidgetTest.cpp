#include "qt/NumericEditWidget.h"

#include "platform/ManualTimerService.h"
#include "platform/MessageBoxService.h"
#include "platform/MessageLoop.h"
#include "qt/QtEditField.h"
#include "qt/QtSpinButton.h"
#include "qt/QtStepSizePopup.h"

#include <gtest/gtest.h>
#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>
#include <QWheelEvent>

#include <memory>
#include <stdexcept>

using namespace CommonUI;

namespace
{

/// A dialog with two numbers and buttons, as people meet it.
class NumericEditWidget : public testing::Test
{
protected:
    NumericEditWidget()
        : m_oldTimers(SetTimerService(&m_timers))
        , m_oldBoxes(SetMessageBoxService(&m_boxes))
        , m_dialog(std::make_unique<QDialog>())
        , m_cutoff(new CFloatEditWidget)
        , m_count(new CIntEditWidget)
    {
        auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        auto* const form = new QFormLayout(m_dialog.get());
        form->addRow(QStringLiteral("&Cut-off:"), m_cutoff);
        form->addRow(QStringLiteral("Co&unt:"), m_count);
        form->addRow(buttons);
        QObject::connect(buttons, &QDialogButtonBox::accepted, m_dialog.get(), &QDialog::accept);
        m_cutoff->GetEdit().SetFormatString(u"%.2f");
        m_cutoff->GetEdit().Setup(0.8F, 0.0F, 8.0F, 0.1F);
        m_cutoff->GetEdit().SetChangeNotification(*this, &NumericEditWidget::OnCutoff);
        m_dialog->show();
        m_dialog->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(m_dialog.get()));
        Field().setFocus();
        m_changes.clear();
    }
    ~NumericEditWidget() override
    {
        m_dialog.reset();
        SetMessageBoxService(m_oldBoxes);
        SetTimerService(m_oldTimers);
    }

    QLineEdit& Field() { return m_cutoff->GetField(); }
    void Enter(const QString& text)
    {
        Field().selectAll();
        QTest::keyClicks(&Field(), text);
    }
    void OnCutoff(float value)
    {
        m_changes.push_back(value);
        if (m_deletes)
            delete m_cutoff;
        if (m_throws)
            throw std::runtime_error("notification");
    }
    /// @return whether the widget used the turn
    static bool Turn(QWidget& widget, int delta, Qt::KeyboardModifiers modifiers)
    {
        const QPointF middle = QRectF(widget.rect()).center();
        QWheelEvent event(middle, widget.mapToGlobal(middle), QPoint(), QPoint(0, delta), Qt::NoButton,
                          modifiers, Qt::NoScrollPhase, false);
        // As from the window system: Qt offers only such turns to the widgets around.
        QSpontaneKeyEvent::setSpontaneous(&event);
        qApp->notify(&widget, &event);
        return event.isAccepted();
    }

    CManualTimerService m_timers;
    CMemoryMessageBoxService m_boxes;
    CTimerService* m_oldTimers;
    CMessageBoxService* m_oldBoxes;
    std::unique_ptr<QDialog> m_dialog;
    QPointer<CFloatEditWidget> m_cutoff;
    QPointer<CIntEditWidget> m_count;
    std::vector<float> m_changes;
    bool m_deletes = false;
    bool m_throws = false;
};

/// Its numbers are called back after the dialog's own members are gone, if they are called at all.
class CTypedDialog : public QDialog
{
public:
    explicit CTypedDialog(int& calls)
        : edit(new CFloatEditWidget(this))
        , m_calls(calls)
    {
        edit->GetEdit().SetChangeNotification(*this, &CTypedDialog::OnChanged);
    }

    CFloatEditWidget* edit;

private:
    void OnChanged(float) { ++m_calls; }

    int& m_calls;
};

} // namespace

TEST_F(NumericEditWidget, EnterAndEscapeTakeWhatWasTypedAndKeepTheDialogOpen)
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
        m_cutoff->GetEdit().SetValue(0.8F);
        m_changes.clear();
        Enter(QStringLiteral("2.5"));
        EXPECT_TRUE(m_cutoff->GetEdit().IsModified());
        EXPECT_TRUE(m_changes.empty());
        QTest::keyClick(&Field(), key);
        EXPECT_EQ(m_changes, std::vector<float>{2.5F});
        EXPECT_EQ(Field().selectedText(), QStringLiteral("2.50"));
        EXPECT_TRUE(m_dialog->isVisible());
    }
    Enter(QStringLiteral("abc"));
    QTest::keyClick(&Field(), Qt::Key_Return);
    EXPECT_EQ(Field().text(), QStringLiteral("2.50"));
    EXPECT_EQ(m_boxes.GetBeeps(), std::vector<unsigned int>{MessageBoxStyle::c_warning});
}

TEST_F(NumericEditWidget, TabGoesToTheNextFieldAndTakesWhatWasTyped)
{
    Enter(QStringLiteral("99"));
    QTest::keyClick(&Field(), Qt::Key_Tab);
    EXPECT_TRUE(m_count->GetField().hasFocus());
    EXPECT_EQ(m_changes, std::vector<float>{8.0F});
    QTest::keyClick(&m_count->GetField(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(Field().hasFocus());
    EXPECT_EQ(Field().selectedText(), QStringLiteral("8.00"));
}

TEST_F(NumericEditWidget, ArrowKeysStepOnlyWithCtrl)
{
    QTest::keyClick(&Field(), Qt::Key_Up);
    EXPECT_TRUE(m_changes.empty());
    QTest::keyClick(&Field(), Qt::Key_Up, Qt::ControlModifier);
    Enter(QStringLiteral("1.23"));
    QTest::keyClick(&Field(), Qt::Key_Down, Qt::ControlModifier);
    ASSERT_EQ(m_changes.size(), 3U);
    EXPECT_FLOAT_EQ(m_changes[0], 0.9F);
    EXPECT_FLOAT_EQ(m_changes[2], 1.2F);
}

TEST_F(NumericEditWidget, WheelStepsOnlyWithCtrlAndFocus)
{
    EXPECT_FALSE(Turn(Field(), 120, Qt::NoModifier));
    EXPECT_FALSE(Turn(Field(), 0, Qt::ControlModifier));
    EXPECT_FALSE(Turn(m_count->GetField(), 120, Qt::ControlModifier));
    EXPECT_TRUE(m_changes.empty());
    EXPECT_EQ(m_count->GetEdit().GetValue(), 0);
    EXPECT_TRUE(Turn(Field(), 240, Qt::ControlModifier));
    ASSERT_EQ(m_changes.size(), 1U);
    EXPECT_FLOAT_EQ(m_changes[0], 1.0F);
}

TEST_F(NumericEditWidget, WheelOverAnUnfocusedFieldScrollsThePage)
{
    QScrollArea area;
    auto* const page = new QWidget;
    auto* const edit = new CIntEditWidget(page);
    page->setFixedSize(200, 2000);
    area.setWidget(page);
    area.resize(220, 200);
    area.show();
    Turn(edit->GetField(), -120, Qt::NoModifier);
    EXPECT_GT(area.verticalScrollBar()->value(), 0);
    EXPECT_EQ(edit->GetEdit().GetValue(), 0);
}

TEST_F(NumericEditWidget, SpinButtonStepsAndGivesTheFieldTheFocus)
{
    QTest::mouseClick(&m_count->GetSpinButton().GetUpButton(), Qt::LeftButton);
    EXPECT_EQ(m_count->GetEdit().GetValue(), 1);
    EXPECT_TRUE(m_count->GetField().hasFocus());
    QTest::mouseClick(&m_count->GetSpinButton().GetDownButton(), Qt::LeftButton);
    EXPECT_EQ(m_count->GetField().text(), QStringLiteral("0"));
    m_count->GetEdit().ShowSpinButton(1, false);
    EXPECT_FALSE(m_count->GetSpinButton().isVisible());
}

TEST_F(NumericEditWidget, PopUpSlidesOutAndBackAndChangesTheStep)
{
    CQtSpinButton& spin = m_cutoff->GetSpinButton();
    CQtStepSizePopup& popup = m_cutoff->GetStepSizePopup();
    QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QApplication::sendEvent(&spin, &enter);
    EXPECT_TRUE(popup.isVisible());
    const int height = spin.height();
    EXPECT_EQ(popup.geometry(), QRect(spin.mapToGlobal(QPoint(spin.width(), 0)), QSize(height / 9, height)));
    m_timers.Advance(8 * c_SlideStepTime);
    EXPECT_EQ(popup.size(), QSize(height, height));
    EXPECT_TRUE(Field().hasFocus());

    QTest::mouseClick(&popup.GetButton(CStepSizeBtn::EType::Larger), Qt::LeftButton);
    EXPECT_FLOAT_EQ(m_cutoff->GetEdit().GetIncrement(), 1.0F);
    QTest::mouseClick(&popup.GetButton(CStepSizeBtn::EType::Smaller), Qt::LeftButton);
    QTest::keyClick(&Field(), Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_FLOAT_EQ(m_cutoff->GetEdit().GetIncrement(), 0.01F);

    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&spin, &leave);
    m_timers.Advance(c_HideDelayTime + 9 * c_SlideStepTime);
    EXPECT_FALSE(popup.isVisible());

    QApplication::sendEvent(&spin, &enter);
    m_dialog->resize(m_dialog->size() + QSize(20, 0));
    EXPECT_FALSE(popup.isVisible());
}

TEST_F(NumericEditWidget, ScreenReadersHearTheLabel)
{
    const auto nameOf = [](QWidget& widget) {
        return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name);
    };
    EXPECT_EQ(nameOf(Field()), QStringLiteral("Cut-off:"));
    EXPECT_EQ(nameOf(m_count->GetSpinButton().GetUpButton()), QStringLiteral("Increase"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&Field())->role(), QAccessible::EditableText);
}

TEST_F(NumericEditWidget, ACallbackMayDeleteTheWidget)
{
    m_deletes = true;
    Enter(QStringLiteral("3"));
    QTest::keyClick(&Field(), Qt::Key_Return);
    EXPECT_EQ(m_cutoff, nullptr);
    EXPECT_EQ(m_changes.size(), 1U);
}

TEST_F(NumericEditWidget, AnExceptionOfACallbackReachesTheLoop)
{
    m_throws = true;
    GetMessageLoop().Post([this] {
        Enter(QStringLiteral("3"));
        QTest::keyClick(&Field(), Qt::Key_Return);
    });
    EXPECT_THROW(GetMessageLoop().RunUntil([] { return false; }), std::runtime_error);
    m_throws = false;
    EXPECT_EQ(Field().text(), QStringLiteral("3.00"));
}

TEST_F(NumericEditWidget, ADialogThatIsDestroyedWhileTheUserTypesIsNotCalled)
{
    int calls = 0;
    auto dialog = std::make_unique<CTypedDialog>(calls);
    dialog->show();
    dialog->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    dialog->edit->setFocus();
    QTest::keyClicks(&dialog->edit->GetField(), QStringLiteral("7"));
    dialog.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(calls, 0);
}
