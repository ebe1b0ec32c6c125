#include "dialogs/FormatSpecifierDlg.h"

#include "controls/MemoryEditView.h"
#include "dialogs/MemoryFormatSpecifierView.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

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

// The dialog with a window.
struct SShown {
    explicit SShown(const CParameter::SFormatSpecifier& format)
        : dialog(MakeParameter(format))
    {
        dialog.SetView(&view);
        dialog.GetCountEdit().SetView(&edit);
    }

    CMemoryFormatSpecifierView view;
    CMemoryEditView edit;
    CDlg dialog;
};

} // namespace

TEST(FormatSpecifierDlg, ShowsTheFormatOfItsParameter)
{
    using CRow = std::tuple<CParameter::SFormatSpecifier, std::optional<std::size_t>, CStr, CStr, CStr>;
    const CRow cases[] = {
        {{EFormat::FormatDecimals, 4}, 0, u"4", u"3.1416", u"0.0000"},
        {{EFormat::FormatDigits, 20}, 1, u"12", u"3.14159265359", u"3.14159265359E-06"},
        {{EFormat::FormatDecimals, -1}, 0, u"1", u"3.1", u"0.0"},
        {{EFormat::FormatInteger, 3}, std::nullopt, u"3", u"3", u"0"},
    };
    const std::vector<SFormatItem> items = {{u"Decimals", EFormat::FormatDecimals},
                                            {u"Digits", EFormat::FormatDigits}};
    for (const auto& [format, selected, count, large, tiny] : cases) {
        SShown shown(format);
        shown.dialog.Create();
        EXPECT_TRUE(shown.view.IsVisible());
        EXPECT_EQ(shown.view.GetCaption(), u"Specify Format");
        EXPECT_EQ(shown.view.GetText(CDlg::c_format), u"Format:");
        EXPECT_EQ(shown.view.GetText(CDlg::c_exampleCaption), u"Example:");
        EXPECT_EQ(shown.view.GetItems(), items);
        EXPECT_EQ(shown.view.GetSelectedItem(), selected);
        EXPECT_EQ(shown.edit.GetText(), count);
        EXPECT_EQ(shown.view.GetText(CDlg::c_largeExample), u"3.141592653590 -> " + large);
        EXPECT_EQ(shown.view.GetText(CDlg::c_smallExample), u"0.000003141593 -> " + tiny);
    }
}

TEST(FormatSpecifierDlg, OkTakesWhatWasChosenAndCancelDoesNot)
{
    const std::pair<int, CParameter::SFormatSpecifier> cases[] = {
        {CBaseDialog::c_ok, {EFormat::FormatDigits, 7}},
        {CBaseDialog::c_cancel, {EFormat::FormatInteger, 3}},
    };
    for (const auto& [button, format] : cases) {
        SShown shown({EFormat::FormatInteger, 3});
        shown.dialog.Create();
        EXPECT_TRUE(shown.view.Choose(1));
        EXPECT_EQ(shown.view.GetText(CDlg::c_largeExample), u"3.141592653590 -> 3.14");
        shown.dialog.GetCountEdit().OnSpinDeltaPos(1);
        EXPECT_EQ(shown.view.GetText(CDlg::c_largeExample), u"3.141592653590 -> 3.142");
        shown.edit.SelectAll();
        shown.edit.Type(u"7");
        EXPECT_TRUE(shown.view.Press(button));
        EXPECT_FALSE(shown.dialog.IsOpen());
        EXPECT_EQ(shown.dialog.GetParameter().GetFloatFormat(), format);
        EXPECT_EQ(shown.dialog.GetParameter().GetIniName(), u"Sa");
        shown.dialog.Create();
        shown.view.Choose(0);
        shown.view.Press(CBaseDialog::c_cancel);
        EXPECT_EQ(shown.dialog.GetParameter().GetFloatFormat(), format) << "as it was when opened again";
    }
}
