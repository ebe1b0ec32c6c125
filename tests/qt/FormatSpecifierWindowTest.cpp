#include "qt/dialogs/FormatSpecifierWindow.h"

#include "platform/HelpService.h"
#include "platform/MemoryHelpService.h"
#include "platform/MessageLoop.h"
#include "qt/dialogs/QtFormatSpecifierDlg.h"
#include "qt/edits/NumericEditWidget.h"
#include "qt/edits/QtEditField.h"
#include "qt/QtText.h"

#include <gtest/gtest.h>
#include <QTest>
#include <QtWidgets>

#include <algorithm>
#include <functional>
#include <memory>

using namespace CommonUI;

namespace
{

using CDlg = CFormatSpecifierDlg;
using EFormat = CParameter::EFormatSpecifier;

CParameter MakeParameter(const CParameter::SFormatSpecifier& format)
{
    CParameter parameter(1, u"Sa", u"Sa", u"Sa", 0, true);
    parameter.SetFloatFormat(format);
    return parameter;
}

QPushButton& GetButton(CFormatSpecifierWindow& window, QDialogButtonBox::StandardButton button)
{
    return *window.findChild<QDialogButtonBox*>()->button(button);
}

// Opens the dialog, does something with it when it is active, and returns the format that it leaves.
CParameter::SFormatSpecifier RunDialog(const CParameter::SFormatSpecifier& format,
                                       const std::function<void(CFormatSpecifierWindow&)>& act)
{
    CQtFormatSpecifierDlg dialog(MakeParameter(format));
    GetMessageLoop().Post([&] {
        dialog.GetWindow()->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(dialog.GetWindow()));
        act(*dialog.GetWindow());
    });
    dialog.DoModal();
    EXPECT_FALSE(dialog.GetWindow()->isVisible());
    return dialog.GetParameter().GetFloatFormat();
}

// What screen readers call a widget: by its label, or by its own name.
QString GetSpokenName(QWidget& widget)
{
    const QAccessibleInterface& spoken = *QAccessible::queryAccessibleInterface(&widget);
    const auto labels = spoken.relations(QAccessible::Label);
    return labels.isEmpty() ? spoken.text(QAccessible::Name) : labels.front().first->text(QAccessible::Name);
}

} // namespace

TEST(FormatSpecifierWindow, TakesWhatIsSelectedAndTypedWithOkOnly)
{
    const std::pair<std::function<void(CFormatSpecifierWindow&)>, bool> cases[] = {
        {[](auto& window) { GetButton(window, QDialogButtonBox::Ok).click(); }, true},
        {[](auto& window) { QTest::keyClick(&window.GetList(), Qt::Key_Return); }, true},
        {[](auto& window) { GetButton(window, QDialogButtonBox::Cancel).click(); }, false},
        {[](auto& window) { QTest::keyClick(&window.GetList(), Qt::Key_Escape); }, false},
        {[](auto& window) { window.close(); }, false},
    };
    const CParameter::SFormatSpecifier before{EFormat::FormatInteger, 3};
    const CParameter::SFormatSpecifier chosen{EFormat::FormatDigits, 7};
    for (const auto& row : cases) {
        const auto left = RunDialog(before, [&](CFormatSpecifierWindow& window) {
            EXPECT_EQ(window.GetList().currentIndex(), -1);
            // By the mnemonics of the labels.
            QTest::keyClick(&window, Qt::Key_F, Qt::AltModifier);
            EXPECT_TRUE(window.GetList().hasFocus());
            QTest::keyClick(&window.GetList(), Qt::Key_End);
            EXPECT_EQ(window.GetList().currentText(), QStringLiteral("Digits"));
            const auto labels = window.findChildren<QLabel*>();
            EXPECT_TRUE(std::any_of(labels.begin(), labels.end(), [](const QLabel* label) {
                return label->text() == QStringLiteral("3.141592653590 -> 3.14");
            }));
            QTest::keyClick(&window, Qt::Key_C, Qt::AltModifier);
            QLineEdit& field = window.GetCountWidget().GetField();
            EXPECT_TRUE(field.hasFocus());
            QWheelEvent turn({5, 5}, {}, {}, {0, 120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(&window.GetList(), &turn);
            EXPECT_EQ(window.GetList().currentText(), QStringLiteral("Digits"));
            field.selectAll(), QTest::keyClicks(&field, QStringLiteral("7"));
            row.first(window);
        });
        EXPECT_EQ(left, row.second ? chosen : before) << &row - cases;
    }
}

TEST(FormatSpecifierWindow, NamesItsControlsAndLeadsThroughThemByTab)
{
    RunDialog({EFormat::FormatDecimals, 4}, [](CFormatSpecifierWindow& window) {
        const std::pair<QWidget&, const char*> order[] = {
            {window.GetList(), "Format:"},
            {window.GetCountWidget().GetField(), "Count:"},
            {GetButton(window, QDialogButtonBox::Ok), "OK"},
            {GetButton(window, QDialogButtonBox::Cancel), "Cancel"},
        };
        for (const auto& [widget, name] : order) {
            EXPECT_EQ(window.focusWidget(), &widget) << name;
            EXPECT_EQ(GetSpokenName(widget), QLatin1String(name));
            QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
        }
        window.close();
    });
}

TEST(FormatSpecifierWindow, OpensHelpAndIsCancelledWithItsParent)
{
    CMemoryHelpService help;
    const CServiceScope<CHelpService> scope(help);
    auto parent = std::make_unique<QWidget>();
    parent->show();
    CQtFormatSpecifierDlg dialog(MakeParameter({EFormat::FormatDigits, 5}), parent.get());
    GetMessageLoop().Post([&] {
        dialog.GetWindow()->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(dialog.GetWindow()));
        QTest::keyClick(&dialog.GetWindow()->GetList(), Qt::Key_F1);
        QEvent question(QEvent::EnterWhatsThisMode);
        QCoreApplication::sendEvent(dialog.GetWindow(), &question);
        parent.reset();
    });
    EXPECT_EQ(dialog.DoModal(), CBaseDialog::c_cancel);
    EXPECT_EQ(dialog.GetWindow(), nullptr);
    EXPECT_EQ(help.GetOpened(), (std::vector<unsigned int>{7804, 7804}));
}
