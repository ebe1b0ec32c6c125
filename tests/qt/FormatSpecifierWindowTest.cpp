#include "qt/dialogs/FormatSpecifierWindow.h"

#include "platform/HelpService.h"
#include "platform/memory/MemoryHelpService.h"
#include "platform/MessageLoop.h"
#include "qt/dialogs/QtFormatSpecifierDlg.h"
#include "qt/edits/NumericEditWidget.h"
#include "qt/edits/QtEditField.h"
#include "tests/qt/WidgetTesting.h"

#include <memory>

using namespace CommonUI;

namespace
{

using EFormat = CParameter::EFormatSpecifier;
using EButton = QDialogButtonBox::StandardButton;

// The dialog over a window of the application.
class FormatSpecifierWindow : public testing::Test
{
public:
    CFormatSpecifierWindow& Window() { return *m_dialog->GetWindow(); }
    QPushButton& Button(EButton button) { return *Window().findChild<QDialogButtonBox*>()->button(button); }
    // Opens the dialog for a format of three decimals, and does something with it when it is active.
    int Run(const FAct& act)
    {
        CParameter parameter(1, u"Sa", u"Sa", u"Sa", 0, true);
        parameter.SetFloatFormat({EFormat::FormatDecimals, 3});
        m_dialog = std::make_unique<CQtFormatSpecifierDlg>(parameter, m_parent.get());
        GetMessageLoop().Post([&] {
            Activate(Window());
            act();
        });
        return m_dialog->DoModal();
    }

    std::unique_ptr<QWidget> m_parent = std::make_unique<QWidget>();
    std::unique_ptr<CQtFormatSpecifierDlg> m_dialog;
};

// What screen readers call a widget: by its label, or by its own name.
QString GetSpokenName(QWidget& widget)
{
    const auto labels = Reader(widget).relations(QAccessible::Label);
    return (labels.isEmpty() ? &Reader(widget) : labels.front().first)->text(QAccessible::Name);
}

} // namespace

TEST_F(FormatSpecifierWindow, TakesWhatIsSelectedAndTypedWithOkOnly)
{
    const std::pair<FAct, bool> ends[] = {
        {[&] { Button(EButton::Ok).click(); }, true},
        {[] { Type("Alt+F Return"); }, true},
        {[] { Type("Return"); }, true},
        {[&] { Button(EButton::Cancel).click(); }, false},
        {[] { Type("Alt+F Esc"); }, false},
        {[] { Type("Esc"); }, false},
        {[&] { Window().close(); }, false},
    };
    for (const auto& [end, taken] : ends) {
        Run([&, &act = end] {
            Type("Alt+F End Alt+C 7");
            EXPECT_FALSE(Turn(Window().GetList(), 120)) << "without the focus";
            act();
        });
        EXPECT_FALSE(Window().isVisible());
        EXPECT_EQ(m_dialog->GetParameter().GetFloatFormat(),
                  taken ? CParameter::SFormatSpecifier(EFormat::FormatDigits, 7)
                        : CParameter::SFormatSpecifier(EFormat::FormatDecimals, 3));
    }
}

TEST_F(FormatSpecifierWindow, NamesItsControlsAndLeadsThroughThemByTab)
{
    Run([&] {
        std::string order;
        for (int i = 0; i < 4; ++i) {
            order += GetSpokenName(*Window().focusWidget()).toStdString() + ' ';
            Type("Tab");
        }
        EXPECT_EQ(order, "Format: Count: OK Cancel ");
        for (const QLabel* const label : Window().findChildren<QLabel*>())
            order += label->text().toStdString() + '|';
        EXPECT_NE(order.find("|3.141592653590 -> 3.142|"), std::string::npos) << order;
        Window().close();
    });
}

TEST_F(FormatSpecifierWindow, OpensHelpAndIsCancelledWithItsParent)
{
    CMemoryHelpService help;
    const CServiceScope<CHelpService> scope(help);
    m_parent->show();
    const auto act = [&] {
        Type("F1");
        Send(Window(), QEvent(QEvent::EnterWhatsThisMode));
        m_parent.reset();
    };
    EXPECT_EQ(Run(act), CBaseDialog::c_cancel);
    EXPECT_EQ(m_dialog->GetWindow(), nullptr);
    EXPECT_EQ(help.GetOpened(), (std::vector<unsigned int>{7804, 7804}));
}
