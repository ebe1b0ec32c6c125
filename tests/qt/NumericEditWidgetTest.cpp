#include "qt/edits/NumericEditWidget.h"

#include "platform/ManualTimerService.h"
#include "platform/MemoryMessageBoxService.h"
#include "platform/MessageBoxService.h"
#include "platform/MessageLoop.h"
#include "qt/edits/QtEditField.h"
#include "qt/edits/QtSpinButton.h"
#include "qt/edits/QtStepSizePopup.h"

#include <gtest/gtest.h>
#include <QTest>
#include <QtWidgets>

#include <functional>
#include <memory>
#include <stdexcept>

using namespace CommonUI;

namespace
{

// A dialog with two numbers and buttons, as people meet it.
class NumericEditWidget : public testing::Test
{
public:
    NumericEditWidget()
        : m_dialog(std::make_unique<QDialog>())
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
        Listen();
        m_dialog->show();
        m_dialog->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(m_dialog.get()));
        Field().setFocus();
        m_changes.clear();
    }

    QLineEdit& Field() const { return m_cutoff->GetField(); }
    void Enter(const QString& text) const
    {
        Field().selectAll();
        QTest::keyClicks(&Field(), text);
    }
    void Listen() { m_cutoff->GetEdit().SetChangeNotification(*this, &NumericEditWidget::OnCutoff); }
    void OnCutoff(float value)
    {
        m_changes.push_back(value);
        if (m_deletes)
            delete m_cutoff;
        if (m_throws)
            throw std::runtime_error("notification");
    }
    // @return whether the widget used the turn
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
    CServiceScope<CTimerService> m_timersScope{m_timers};
    CMemoryMessageBoxService m_boxes;
    CServiceScope<CMessageBoxService> m_boxesScope{m_boxes};
    std::unique_ptr<QDialog> m_dialog;
    QPointer<CFloatEditWidget> m_cutoff;
    QPointer<CIntEditWidget> m_count;
    std::vector<float> m_changes;
    bool m_deletes = false;
    bool m_throws = false;
};

class CAnnouncingField : public CQtEditField
{
public:
    using CQtEditField::CQtEditField;
    void Announce(QAccessibleEvent& event) override
    {
        EXPECT_EQ(event.type(), QAccessible::ValueChanged);
        heard.push_back(static_cast<QAccessibleValueChangeEvent&>(event).value().toDouble());
    }
    std::vector<double> heard;
};

} // namespace

TEST_F(NumericEditWidget, KeysAndWheelReachTheControl)
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
        const QShortcut shortcut(key, m_dialog.get(), [] { ADD_FAILURE() << "the field comes first"; });
        m_cutoff->GetEdit().SetValue(0.8F);
        m_changes.clear();
        Enter(QStringLiteral("2.5"));
        QTest::keyClick(&Field(), key);
        EXPECT_EQ(m_changes, std::vector<float>{2.5F});
        EXPECT_EQ(Field().selectedText(), QStringLiteral("2.50"));
    }
    EXPECT_TRUE(m_dialog->isVisible());
    QTest::keyClick(&Field(), Qt::Key_Up, Qt::ControlModifier);
    EXPECT_FALSE(Turn(Field(), 0, Qt::ControlModifier) || Turn(m_count->GetField(), -120, Qt::NoModifier));
    EXPECT_TRUE(Field().hasFocus());
    EXPECT_TRUE(Turn(Field(), -240, Qt::ControlModifier));
    EXPECT_EQ(m_changes, (std::vector<float>{2.5F, 2.6F, 2.4F}));
    Enter(QStringLiteral("99"));
    QFocusEvent menu(QEvent::FocusOut, Qt::PopupFocusReason);
    QApplication::sendEvent(&Field(), &menu);
    EXPECT_EQ(Field().text(), QStringLiteral("99")) << "the context menu leaves it alone";
    QTest::keyClick(&Field(), Qt::Key_Tab);
    EXPECT_TRUE(m_count->GetField().hasFocus());
    EXPECT_EQ(m_changes.back(), 8);
    QTest::keyClick(&m_count->GetField(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(Field().hasFocus());
    EXPECT_EQ(Field().selectedText(), QStringLiteral("8.00"));
}

TEST_F(NumericEditWidget, ReadOnlyTextCanOnlyBeCopied)
{
    const auto getGround = [&] { return Field().grab().toImage().pixelColor(Field().width() - 5, 5); };
    const QPalette palette = Field().palette();
    EXPECT_EQ(getGround(), palette.color(QPalette::Base));
    m_cutoff->GetEdit().SetReadOnly(true);
    EXPECT_EQ(getGround(), palette.color(QPalette::Window));
    QClipboard& clipboard = *QGuiApplication::clipboard();
    clipboard.setText(QStringLiteral("7"));
    Enter(QStringLiteral("5"));
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_V, Qt::Key_X, Qt::Key_C})
        QTest::keyClick(&Field(), key, Qt::ControlModifier);
    EXPECT_EQ(clipboard.text(), QStringLiteral("0.80"));
    EXPECT_FALSE(m_cutoff->GetSpinButton().GetUpButton().isEnabled());
    for (const QAction* const action : Field().actions())
        EXPECT_FALSE(action->isEnabled());
    QAccessibleInterface* const reader = QAccessible::queryAccessibleInterface(&Field());
    EXPECT_TRUE(reader->state().readOnly && !reader->state().editable);
    reader->valueInterface()->setCurrentValue(1);
    EXPECT_TRUE(m_changes.empty() && Field().text() == QStringLiteral("0.80"));
    QTest::keyClick(&Field(), Qt::Key_Return);
    EXPECT_FALSE(m_dialog->isVisible()) << "Enter is the dialog's";
}

TEST_F(NumericEditWidget, SpinButtonStepsAndGivesTheFieldTheFocus)
{
    QTest::mouseClick(&m_count->GetSpinButton().GetUpButton(), Qt::LeftButton);
    EXPECT_EQ(m_count->GetEdit().GetValue(), 1);
    EXPECT_TRUE(m_count->GetField().hasFocus());
    QTest::mouseClick(&m_count->GetSpinButton().GetDownButton(), Qt::LeftButton);
    EXPECT_EQ(m_count->GetField().text(), QStringLiteral("0"));
    QToolButton& up = m_count->GetSpinButton().GetUpButton();
    QTest::mousePress(&up, Qt::LeftButton);
    EXPECT_TRUE(up.isDown());
    QDialog modal;
    modal.setModal(true);
    modal.show();
    EXPECT_FALSE(up.isDown()) << "it does not step behind a dialog";
    m_count->GetEdit().ShowSpinButton(1, false);
    EXPECT_FALSE(m_count->GetSpinButton().isVisible());
}

TEST_F(NumericEditWidget, PopUpComesWithThePointerAndChangesTheStep)
{
    CQtSpinButton& spin = m_cutoff->GetSpinButton();
    CQtStepSizePopup& popup = m_cutoff->GetStepSizePopup();
    QAbstractButton& smaller = popup.GetButton(CStepSizeBtn::EType::Smaller);
    QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QEvent leave(QEvent::Leave);
    QEvent deactivate(QEvent::WindowDeactivate);
    QApplication::sendEvent(&spin, &enter);
    QTest::mouseClick(&popup.GetButton(CStepSizeBtn::EType::Larger), Qt::LeftButton);
    EXPECT_FLOAT_EQ(m_cutoff->GetEdit().GetIncrement(), 1.0F);
    QTest::mouseClick(&smaller, Qt::LeftButton);
    QTest::keyClick(&Field(), Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_FLOAT_EQ(m_cutoff->GetEdit().GetIncrement(), 0.01F);
    EXPECT_TRUE(Field().hasFocus());

    const auto waitAfter = [&](QWidget& from, QEvent& event) {
        QApplication::sendEvent(&from, &event);
        m_timers.Advance(c_HideDelayTime + 9 * c_SlideStepTime);
        return popup.isVisible();
    };
    QApplication::sendEvent(&spin, &leave);
    EXPECT_TRUE(waitAfter(smaller, enter));
    EXPECT_FALSE(waitAfter(smaller, leave));
    const std::function<void()> ends[] = {
        [&] { m_dialog->resize(m_dialog->size() + QSize(20, 0)); },
        [&] { m_cutoff->hide(), m_cutoff->show(); },
        [&] { QApplication::sendEvent(m_dialog.get(), &deactivate); },
        [&] { m_cutoff->Attach(m_count->GetEdit()); },
    };
    for (const auto& end : ends) {
        EXPECT_TRUE(waitAfter(spin, enter));
        end();
        EXPECT_FALSE(popup.isVisible());
    }
    m_cutoff->setEnabled(false);
    EXPECT_FALSE(waitAfter(spin, enter));
}

TEST_F(NumericEditWidget, PopUpStaysOnTheScreen)
{
    CQtSpinButton& spin = m_cutoff->GetSpinButton();
    CQtStepSizePopup& popup = m_cutoff->GetStepSizePopup();
    const int end = m_dialog->screen()->geometry().right() + 1;
    const int beside = spin.mapTo(m_dialog.get(), QPoint(spin.width(), 0)).x() + spin.height();
    for (const int missing : {0, 1}) {
        m_dialog->setGeometry(QRect(QPoint(end - beside + missing, 50), m_dialog->size()));
        QCoreApplication::processEvents();
        m_cutoff->GetEdit().GetSpinButton().OnPointerEntered();
        m_timers.Advance(3 * c_SlideStepTime);
        const int edge = spin.mapToGlobal(QPoint(missing ? 0 : spin.width(), 0)).x();
        EXPECT_EQ(missing ? popup.geometry().right() + 1 : popup.geometry().left(), edge);
        const QWidget& half = popup.GetButton(CStepSizeBtn::EType::Larger);
        EXPECT_EQ(half.x(), missing ? popup.width() - spin.height() : 0) << "the picture does not move";
        m_timers.Advance(9 * c_SlideStepTime);
        const QPoint corner(missing ? edge - spin.height() : edge, spin.mapToGlobal(QPoint()).y());
        EXPECT_EQ(popup.geometry(), QRect(corner, QSize(spin.height(), spin.height())));
    }
}

TEST_F(NumericEditWidget, NumbersAndUnitsHaveRoom)
{
    CFloatEdit& edit = m_cutoff->GetEdit();
    edit.SetFormatString(u"%.4e Kilonewton pro Meter");
    m_dialog->resize(1, 1);
    QCoreApplication::processEvents();
    const auto isWhole = [&] { // the caret is at the start
        return Field().cursorPositionAt({Field().width() - 4, Field().height() / 2}) == Field().text().size();
    };
    EXPECT_TRUE(isWhole());
    EXPECT_EQ(Field().cursorPosition(), 0);
    const int width = Field().width();
    edit.SetFormatString(u"%.9000f");
    QCoreApplication::processEvents();
    EXPECT_LT(Field().minimumSizeHint().width(), 2 * width) << "but not any";
    for (QLabel* const label : m_dialog->findChildren<QLabel*>()) {
        label->setText(label->text() + label->text());
        QCoreApplication::processEvents();
        EXPECT_GE(label->width(), label->sizeHint().width());
    }
}

TEST_F(NumericEditWidget, ScreenReadersHearANumber)
{
    QAccessibleInterface* const field = QAccessible::queryAccessibleInterface(&Field());
    EXPECT_EQ(field->text(QAccessible::Name), QStringLiteral("Cut-off:"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&m_count->GetField())->text(QAccessible::Name),
              QStringLiteral("Count:"));
    EXPECT_EQ(field->text(QAccessible::Value), QStringLiteral("0.80"));
    EXPECT_EQ(field->role(), QAccessible::SpinBox);
    const QAccessible::State state = field->state();
    EXPECT_TRUE(state.editable && state.focusable && state.focused && !state.readOnly);
    const QAccessibleValueInterface& value = *field->valueInterface();
    m_cutoff->GetEdit().SetRange(8, -1, 0.01);
    EXPECT_EQ(value.currentValue().toDouble(), 0.8) << "as it is read";
    EXPECT_EQ(std::pair(value.minimumValue().toDouble(), value.maximumValue().toDouble()),
              std::pair(-1.0, 8.0));
    EXPECT_EQ(value.minimumStepSize().toDouble(), 0.01);
    CQtEditField plain(nullptr);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&plain)->valueInterface(), nullptr);
    const std::pair<QWidget&, const char*> buttons[] = {
        {m_cutoff->GetSpinButton().GetUpButton(), "Increase"},
        {m_cutoff->GetSpinButton().GetDownButton(), "Decrease"},
        {m_cutoff->GetStepSizePopup().GetButton(CStepSizeBtn::EType::Larger), "Ten Times Larger Steps"},
        {m_cutoff->GetStepSizePopup().GetButton(CStepSizeBtn::EType::Smaller), "Ten Times Smaller Steps"},
    };
    for (const auto& [widget, name] : buttons)
        EXPECT_EQ(QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name),
                  QString::fromUtf8(name));
}

TEST_F(NumericEditWidget, ScreenReadersHearOfChangesAndMakeThem)
{
    CFloatEdit edit;
    CAnnouncingField field(nullptr);
    edit.SetView(&field);
    edit.Setup(1, 0, 2e6F, 0.5F);
    edit.SetValue(1);
    QAccessibleInterface* const reader = QAccessible::queryAccessibleInterface(&field);
    reader->valueInterface()->setCurrentValue(1e6);
    edit.OnSpinDeltaPos(1);
    edit.OnStepSizeChanged(1);
    reader->valueInterface()->setCurrentValue(9e9);
    reader->editableTextInterface()->replaceText(0, 1, QStringLiteral("1"));
    EXPECT_EQ(reader->textInterface()->text(0, 3), QStringLiteral("100"));
    EXPECT_TRUE(edit.IsModified());
    edit.Validate();
    field.setEnabled(false);
    reader->valueInterface()->setCurrentValue(1);
    EXPECT_EQ(field.heard, (std::vector<double>{0, 1, 1e6, 1000000.5, 2e6, 1e6}));

    QAccessible::queryAccessibleInterface(&m_count->GetField())->valueInterface()->setCurrentValue(1e6);
    EXPECT_EQ(m_count->GetEdit().GetValue(), 1000000);
}

TEST_F(NumericEditWidget, ScreenReadersReadTheText)
{
    QAccessibleInterface* const field = QAccessible::queryAccessibleInterface(&Field());
    QAccessibleTextInterface& text = *field->textInterface();
    EXPECT_EQ(text.characterCount(), 4);
    int start = -1;
    int end = -1;
    text.setSelection(0, 1, 3);
    text.selection(0, &start, &end);
    EXPECT_EQ(std::pair(start, end), std::pair(1, 3));
    for (const int caret : {0, 3}) {
        text.setCursorPosition(caret);
        for (int i = 0; i < 4; ++i) {
            const QRect character = text.characterRect(i);
            EXPECT_TRUE(field->rect().contains(character)) << i;
            EXPECT_EQ(text.offsetAtPoint(character.center() - QPoint(1, 0)), i);
        }
    }
}

TEST_F(NumericEditWidget, ACallbackMayDeleteTheWidget)
{
    const std::function<void()> ways[] = {
        [&] { QTest::keyClick(&Field(), Qt::Key_Return); },
        [&] { QTest::keyClick(&Field(), Qt::Key_Tab); },
        [&] { Turn(Field(), 120, Qt::ControlModifier); },
        [&] { m_count->GetField().setFocus(); },
        [&] { QTest::mouseClick(&m_cutoff->GetSpinButton().GetUpButton(), Qt::LeftButton); },
        [&] { m_cutoff->GetField().EnterText(QStringLiteral("4")); },
    };
    for (const bool throws : {false, true}) {
        for (const auto& act : ways) {
            delete m_cutoff;
            m_cutoff = new CFloatEditWidget;
            m_dialog->layout()->addWidget(m_cutoff);
            Listen();
            m_cutoff->show();
            Field().setFocus();
            m_changes.clear();
            Enter(QStringLiteral("3"));
            m_deletes = true;
            m_throws = throws;
            act();
            m_deletes = m_throws = false;
            EXPECT_EQ(m_cutoff, nullptr);
            EXPECT_EQ(m_changes.size(), 1U);
            EXPECT_TRUE(m_dialog->isVisible());
        }
    }
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
    EXPECT_TRUE(m_dialog->isVisible()) << "Enter goes no further";
}

TEST_F(NumericEditWidget, ADialogThatIsDestroyedWhileTheUserTypesIsNotCalled)
{
    // Its members are gone when Qt takes the focus away.
    struct SDialog : QDialog {
        void OnChanged(float) { ++*calls; }
        CFloatEditWidget* edit = new CFloatEditWidget(this);
        int* calls = nullptr;
    };
    int calls = 0;
    auto dialog = std::make_unique<SDialog>();
    dialog->calls = &calls;
    dialog->edit->GetEdit().SetChangeNotification(*dialog, &SDialog::OnChanged);
    dialog->show();
    dialog->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    dialog->edit->setFocus();
    QTest::keyClicks(&dialog->edit->GetField(), QStringLiteral("7"));
    dialog.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(calls, 0);
}
