#include "qt/edits/NumericEditWidget.h"

#include "platform/ManualTimerService.h"
#include "qt/edits/QtEditField.h"
#include "qt/edits/QtSpinButton.h"
#include "qt/edits/QtStepSizePopup.h"
#include "tests/qt/WidgetTesting.h"

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
    {
        auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        auto* const form = new QFormLayout(&m_dialog);
        form->addRow(QStringLiteral("&Cut-off:"), m_cutoff);
        form->addRow(QStringLiteral("Co&unt:"), m_count);
        form->addRow(buttons);
        QObject::connect(buttons, &QDialogButtonBox::accepted, &m_dialog, &QDialog::accept);
        Edit().SetFormatString(u"%.2f");
        Edit().Setup(0.8F, 0.0F, 8.0F, 0.1F);
        Listen();
        Activate(m_dialog);
        Field().setFocus();
    }

    CFloatEdit& Edit() const { return m_cutoff->GetEdit(); }
    QLineEdit& Field() const { return m_cutoff->GetField(); }
    QAbstractButton& StepButton(CStepSizeBtn::EType type)
    {
        return m_cutoff->GetStepSizePopup().GetButton(type);
    }
    void Listen() { Edit().SetChangeNotification(*this, &NumericEditWidget::OnCutoff); }
    void OnCutoff(float value)
    {
        m_changes.push_back(value);
        if (m_deletes)
            delete m_cutoff;
        if (m_throws)
            throw std::runtime_error("notification");
    }

    // Goes after the dialog, whose fields still announce what was typed when the focus leaves them.
    std::vector<float> m_changes;
    bool m_deletes = false;
    bool m_throws = false;
    CManualTimerService m_timers;
    CServiceScope<CTimerService> m_timersScope{m_timers};
    QDialog m_dialog;
    QPointer<CFloatEditWidget> m_cutoff = new CFloatEditWidget;
    CIntEditWidget* m_count = new CIntEditWidget;
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
    const QShortcut enter(Qt::Key_Return, &m_dialog, [] { ADD_FAILURE() << "the field comes first"; });
    const QShortcut escape(Qt::Key_Escape, &m_dialog, [] { ADD_FAILURE() << "the field comes first"; });
    const std::tuple<const char*, const char*, const char*> cases[] = {
        // keys, then the text and what of it is selected
        {"2.5 Return", "2.50", "2.50"},
        {"3 Enter", "3.00", "3.00"},
        {"4 Esc", "4.00", "4.00"},
        {"Ctrl+Up", "4.10", "4.10"},
        {"Ctrl+PgDown Ctrl+Up", "4.11", "4.11"},
        {"99 Tab", "8.00", ""},
        {"Shift+Backtab", "8.00", "8.00"},
    };
    for (const auto& [keys, text, selected] : cases) {
        Type(keys);
        EXPECT_EQ(Field().text().toStdString(), text) << keys;
        EXPECT_EQ(Field().selectedText().toStdString(), selected) << keys;
        EXPECT_EQ(Field().hasFocus(), selected[0] != 0);
    }
    EXPECT_TRUE(m_dialog.isVisible());
    EXPECT_TRUE(Turn(Field(), -240, Qt::ControlModifier));
    EXPECT_FALSE(Turn(Field(), 0, Qt::ControlModifier) || Turn(m_count->GetField(), -120));
    EXPECT_EQ(Field().text(), QStringLiteral("7.98"));
    EXPECT_TRUE(Field().hasFocus());
    Type("5");
    Send(Field(), QFocusEvent(QEvent::FocusOut, Qt::PopupFocusReason));
    EXPECT_EQ(Field().text(), QStringLiteral("5")) << "the context menu leaves it alone";
}

TEST_F(NumericEditWidget, ReadOnlyTextCanOnlyBeCopied)
{
    const auto getGround = [&] { return Field().grab().toImage().pixelColor(Field().width() - 5, 5); };
    EXPECT_EQ(getGround(), Field().palette().color(QPalette::Base));
    Edit().SetReadOnly(true);
    EXPECT_EQ(getGround(), Field().palette().color(QPalette::Window));
    m_changes.clear();
    QClipboard& clipboard = *QGuiApplication::clipboard();
    clipboard.setText(QStringLiteral("7"));
    Type("5 Ctrl+A Ctrl+V Ctrl+X Ctrl+C");
    EXPECT_EQ(clipboard.text(), QStringLiteral("0.80"));
    EXPECT_FALSE(m_cutoff->GetSpinButton().GetUpButton().isEnabled());
    for (const QAction* const action : Field().actions())
        EXPECT_FALSE(action->isEnabled());
    EXPECT_EQ(Speak(Reader(Field())), "Cut-off: (focused readOnly)");
    Reader(Field()).valueInterface()->setCurrentValue(1);
    EXPECT_TRUE(m_changes.empty());
    Type("Return");
    EXPECT_FALSE(m_dialog.isVisible()) << "Enter is the dialog's";
}

TEST_F(NumericEditWidget, SpinButtonStepsAndGivesTheFieldTheFocus)
{
    CQtSpinButton& spin = m_count->GetSpinButton();
    QTest::mouseClick(&spin.GetUpButton(), Qt::LeftButton);
    EXPECT_EQ(m_count->GetField().text(), QStringLiteral("1"));
    EXPECT_TRUE(m_count->GetField().hasFocus());
    QTest::mouseClick(&spin.GetDownButton(), Qt::LeftButton);
    EXPECT_EQ(m_count->GetField().text(), QStringLiteral("0"));
    QTest::mousePress(&spin.GetUpButton(), Qt::LeftButton);
    EXPECT_TRUE(spin.GetUpButton().isDown());
    QDialog modal;
    modal.setModal(true);
    modal.show();
    EXPECT_FALSE(spin.GetUpButton().isDown()) << "it does not step behind a dialog";
    m_count->GetEdit().ShowSpinButton(1, false);
    EXPECT_FALSE(spin.isVisible());
}

TEST_F(NumericEditWidget, PopUpComesWithThePointerAndChangesTheStep)
{
    CQtSpinButton& spin = m_cutoff->GetSpinButton();
    QAbstractButton& smaller = StepButton(CStepSizeBtn::EType::Smaller);
    const auto isShownAfter = [&](QWidget& from, QEvent&& event) {
        Send(from, std::move(event));
        m_timers.Advance(c_HideDelayTime + 9 * c_SlideStepTime);
        return m_cutoff->GetStepSizePopup().isVisible();
    };
    const auto enters = [&](QWidget& from) {
        return isShownAfter(from, QEnterEvent({1, 1}, {1, 1}, {1, 1}));
    };
    EXPECT_TRUE(enters(spin));
    QTest::mouseClick(&StepButton(CStepSizeBtn::EType::Larger), Qt::LeftButton);
    EXPECT_FLOAT_EQ(Edit().GetIncrement(), 1.0F);
    QTest::mouseClick(&smaller, Qt::LeftButton);
    EXPECT_FLOAT_EQ(Edit().GetIncrement(), 0.1F);
    EXPECT_TRUE(Field().hasFocus());
    Send(spin, QEvent(QEvent::Leave));
    EXPECT_TRUE(enters(smaller));
    EXPECT_FALSE(isShownAfter(smaller, QEvent(QEvent::Leave)));
    const FAct ends[] = {
        [&] { m_dialog.resize(m_dialog.size() + QSize(20, 0)); },
        [&] { m_cutoff->hide(), m_cutoff->show(); },
        [&] { Send(m_dialog, QEvent(QEvent::WindowDeactivate)); },
        [&] { m_cutoff->Attach(m_count->GetEdit()); },
    };
    for (const auto& end : ends) {
        EXPECT_TRUE(enters(spin));
        end();
        EXPECT_FALSE(m_cutoff->GetStepSizePopup().isVisible());
    }
    m_cutoff->setEnabled(false);
    EXPECT_FALSE(enters(spin));
}

TEST_F(NumericEditWidget, PopUpStaysOnTheScreen)
{
    CQtSpinButton& spin = m_cutoff->GetSpinButton();
    CQtStepSizePopup& popup = m_cutoff->GetStepSizePopup();
    const int end = m_dialog.screen()->geometry().right() + 1;
    const int beside = spin.mapTo(&m_dialog, QPoint(spin.width(), 0)).x() + spin.height();
    for (const int missing : {0, 1}) {
        m_dialog.setGeometry(QRect(QPoint(end - beside + missing, 50), m_dialog.size()));
        QCoreApplication::processEvents();
        Edit().GetSpinButton().OnPointerEntered();
        m_timers.Advance(3 * c_SlideStepTime);
        const int edge = spin.mapToGlobal(QPoint(missing ? 0 : spin.width(), 0)).x();
        EXPECT_EQ(missing ? popup.geometry().right() + 1 : popup.geometry().left(), edge);
        EXPECT_EQ(StepButton(CStepSizeBtn::EType::Larger).x(), missing ? popup.width() - spin.height() : 0)
            << "the picture does not move";
        m_timers.Advance(9 * c_SlideStepTime);
        const QPoint corner(missing ? edge - spin.height() : edge, spin.mapToGlobal(QPoint()).y());
        EXPECT_EQ(popup.geometry(), QRect(corner, QSize(spin.height(), spin.height())));
    }
}

TEST_F(NumericEditWidget, NumbersAndUnitsHaveRoom)
{
    Edit().SetFormatString(u"%.4e Kilonewton pro Meter");
    m_dialog.resize(1, 1);
    // The display may still tell of sizes of before.
    EXPECT_TRUE(QTest::qWaitFor([this] {
        const QPoint end(Field().width() - 4, Field().height() / 2);
        return Field().cursorPositionAt(end) == Field().text().size();
    }));
    EXPECT_EQ(Field().cursorPosition(), 0);
    const int width = Field().width();
    Edit().SetFormatString(u"%.9000f");
    QCoreApplication::processEvents();
    EXPECT_LT(Field().minimumSizeHint().width(), 2 * width) << "but not any";
    for (QLabel* const label : m_dialog.findChildren<QLabel*>()) {
        label->setText(label->text() + label->text());
        EXPECT_TRUE(QTest::qWaitFor([&] { return label->width() >= label->sizeHint().width(); }));
    }
}

TEST_F(NumericEditWidget, ScreenReadersHearANumber)
{
    CQtSpinButton& spin = m_cutoff->GetSpinButton();
    const std::pair<QWidget&, const char*> names[] = {
        {Field(), "Cut-off: (focused editable)"},
        {m_count->GetField(), "Count: (editable)"},
        {spin.GetUpButton(), "Increase"},
        {spin.GetDownButton(), "Decrease"},
        {StepButton(CStepSizeBtn::EType::Larger), "Ten Times Larger Steps"},
        {StepButton(CStepSizeBtn::EType::Smaller), "Ten Times Smaller Steps"},
    };
    for (const auto& [widget, name] : names)
        EXPECT_EQ(Speak(Reader(widget)), name);
    QAccessibleInterface& field = Reader(Field());
    EXPECT_EQ(field.text(QAccessible::Value), QStringLiteral("0.80"));
    EXPECT_EQ(field.role(), QAccessible::SpinBox);
    EXPECT_TRUE(field.state().focusable);
    const QAccessibleValueInterface& value = *field.valueInterface();
    Edit().SetRange(8, -1, 0.01);
    EXPECT_EQ((std::vector<QVariant>{value.currentValue(), value.minimumValue(), value.maximumValue(),
                                     value.minimumStepSize()}),
              (std::vector<QVariant>{0.8, -1.0, 8.0, 0.01}))
        << "as it is read";
    CQtEditField plain(nullptr);
    EXPECT_EQ(Reader(plain).valueInterface(), nullptr);
}

TEST_F(NumericEditWidget, ScreenReadersHearOfChangesAndMakeThem)
{
    CFloatEdit edit;
    CAnnouncingField field(nullptr);
    edit.SetView(&field);
    edit.Setup(1, 0, 2e6F, 0.5F);
    edit.SetValue(1);
    QAccessibleValueInterface& value = *Reader(field).valueInterface();
    value.setCurrentValue(1e6);
    edit.OnSpinDeltaPos(1);
    edit.OnStepSizeChanged(1);
    value.setCurrentValue(9e9);
    Reader(field).editableTextInterface()->replaceText(0, 1, QStringLiteral("1"));
    EXPECT_EQ(Reader(field).textInterface()->text(0, 3), QStringLiteral("100"));
    EXPECT_TRUE(edit.IsModified());
    edit.Validate();
    field.setEnabled(false);
    value.setCurrentValue(1);
    EXPECT_EQ(field.heard, (std::vector<double>{0, 1, 1e6, 1000000.5, 2e6, 1e6}));

    Reader(m_count->GetField()).valueInterface()->setCurrentValue(1e6);
    EXPECT_EQ(m_count->GetEdit().GetValue(), 1000000);
}

TEST_F(NumericEditWidget, ScreenReadersReadTheText)
{
    QAccessibleTextInterface& text = *Reader(Field()).textInterface();
    EXPECT_EQ(text.characterCount(), 4);
    text.setSelection(0, 1, 3);
    EXPECT_EQ(Field().selectedText(), QStringLiteral(".8"));
    for (const int caret : {0, 3}) {
        text.setCursorPosition(caret);
        for (int i = 0; i < 4; ++i) {
            const QRect character = text.characterRect(i);
            EXPECT_TRUE(Reader(Field()).rect().contains(character)) << i;
            EXPECT_EQ(text.offsetAtPoint(character.center() - QPoint(1, 0)), i);
        }
    }
}

TEST_F(NumericEditWidget, ACallbackMayDeleteTheWidget)
{
    const FAct ways[] = {
        [] { Type("Return"); },
        [] { Type("Tab"); },
        [&] { Turn(Field(), 120, Qt::ControlModifier); },
        [&] { m_count->GetField().setFocus(); },
        [&] { QTest::mouseClick(&m_cutoff->GetSpinButton().GetUpButton(), Qt::LeftButton); },
        [&] { m_cutoff->GetField().EnterText(QStringLiteral("4")); },
    };
    for (const bool throws : {false, true}) {
        for (const auto& act : ways) {
            delete m_cutoff;
            m_cutoff = new CFloatEditWidget;
            m_dialog.layout()->addWidget(m_cutoff);
            Listen();
            m_cutoff->show();
            Field().setFocus();
            Type("3");
            m_changes.clear();
            m_deletes = true;
            m_throws = throws;
            act();
            m_deletes = m_throws = false;
            EXPECT_EQ(m_cutoff, nullptr);
            EXPECT_EQ(m_changes.size(), 1U);
            EXPECT_TRUE(m_dialog.isVisible());
        }
    }
}
