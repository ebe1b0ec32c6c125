#include "dialogs/text/MemoryTextEditorView.h"

#include "platform/memory/MemoryMessageBoxService.h"
#include "tests/DiagnosticsCapture.h"

#include <gtest/gtest.h>

#include <tuple>

using namespace CommonUI;
using namespace std::string_view_literals;

namespace
{

using CDlg = CTextEditorDlg;
using EAnswer = EMessageBoxAnswer;

// An editor in a window, and somebody who answers.
struct SStage {
    SStage(CDlg::EMode mode, const CStr& text)
        : dialog(mode, u"Remarks", text)
    {
        dialog.SetView(&view);
        dialog.Create();
    }

    CDiagnosticsCapture capture;
    CMemoryMessageBoxService boxes;
    CServiceScope<CMessageBoxService> scope{boxes};
    CMemoryTextEditorView view;
    CDlg dialog;
};

} // namespace

TEST(EditedText, WhatIsNotEditedComesBackUnitByUnit)
{
    const std::tuple<std::u16string_view, std::u16string_view, std::u16string_view, std::u16string_view>
        cases[] = {
            {u"a\r\nb\r\n", u"a\nb\n", u"a\nb\nc\n", u"a\r\nb\r\nc\r\n"},
            {u"a\rb", u"a\nb", u"a\n\nb", u"a\r\rb"},
            {u"a\nb", u"a\nb", u"\na\nb", u"\na\nb"},
            {u"a\r\nb\nc\rd", u"a\nb\nc\nd", u"a\nb\nX\nd", u"a\r\nb\nX\rd"},
            {u"\r\n\n\r", u"\n\n\n", u"\n\n", u"\r\n\n"},
            {u"a\u2029b\xFDD0\xFDD1\u2028c\u00A0\0\xD800"sv, u"a\nb\n\n\u2028c\u00A0\0\xD800"sv,
             u"ab\n\n\u2028c\u00A0\0\xD800"sv, u"ab\xFDD0\xFDD1\u2028c\u00A0\0\xD800"sv},
            {u"aa\r\naa", u"aa\naa", u"aa\naa\naa", u"aa\r\naa\r\naa"},
            {u"", u"", u"x\ny", u"x\ny"},
            {u"x\r\n", u"x\n", u"", u""},
        };
    for (const auto& [text, plain, edited, expected] : cases) {
        const CEditedText kept{CStr(text)};
        EXPECT_EQ(kept.GetPlain(), plain);
        EXPECT_EQ(kept.Restore(plain), text);
        EXPECT_EQ(kept.Restore(edited), expected) << CStr(text).ToUtf8();
    }
}

TEST(TextFind, GoesRoundInBothDirections)
{
    using CFound = std::optional<STextMatch>;
    const std::tuple<const char16_t*, std::size_t, STextSearch, CFound> cases[] = {
        {u"ab", 0, {}, STextMatch{0}},
        {u"ab", 1, {}, STextMatch{3}},
        {u"ab", 1, {true, true}, STextMatch{6}},
        {u"ab", 7, {}, STextMatch{0, true}},
        {u"ab", 99, {}, STextMatch{0, true}},
        {u"ab", 6, {false, false}, STextMatch{3}},
        {u"AB", 3, {false, true}, STextMatch{3, true}},
        {u"ab", 0, {false, false}, STextMatch{6, true}},
        {u"\u00E4", 0, {}, STextMatch{8}},
        {u"\u00E4", 0, {true, true}, {}},
        {u"", 0, {}, {}},
        {u"ab AB ab\u00C4.", 0, {}, {}},
    };
    for (const auto& [what, from, search, found] : cases)
        EXPECT_EQ(FindInText(u"ab AB ab\u00C4", what, from, search), found) << CStr(what).ToUtf8() << from;
}

TEST(TextEditorDlg, AsksBeforeChangesAreLostAndOnlyThen)
{
    {
        SStage stage(CDlg::EMode::Edit, u"one\r\ntwo");
        stage.view.Select({3, 3});
        stage.view.Type(u"\n");
        stage.dialog.OnCancel();
        EXPECT_TRUE(stage.dialog.IsOpen()) << "nobody has said yes";
        stage.boxes.Prepare(EAnswer::Yes);
        stage.dialog.OnCancel();
        EXPECT_FALSE(stage.dialog.IsOpen());
        EXPECT_EQ(stage.boxes.GetShown().size(), 2U);
        EXPECT_EQ(stage.dialog.GetText(), u"one\r\ntwo");
    }
    SStage stage(CDlg::EMode::Edit, u"one\r\ntwo");
    stage.view.Type(u"x");
    stage.view.Select({0, 1});
    stage.view.Type(u""); // as it was
    stage.dialog.OnCancel();
    stage.dialog.Create();
    stage.view.Type(u"zero\n");
    stage.dialog.OnOK();
    EXPECT_TRUE(stage.boxes.GetShown().empty());
    EXPECT_EQ(stage.dialog.GetText(), u"zero\r\none\r\ntwo");
    EXPECT_EQ(stage.view.GetText(CDlg::c_cancel), u"Cancel");
}

TEST(TextEditorDlg, FindsFromTheSelectionOn)
{
    SStage stage(CDlg::EMode::ReadOnly, u"Sa, Sq, sa");
    EXPECT_FALSE(stage.view.Type(u"x"));
    EXPECT_EQ(stage.view.GetText(CDlg::c_cancel), u"Close");
    const std::tuple<const char16_t*, bool, STextRange, const char16_t*> steps[] = {
        {u"sa", true, {0, 2}, u""},
        {u"sa", true, {8, 10}, u""},
        {u"sa", true, {0, 2}, u"Went on from the other end."},
        {u"sa", false, {8, 10}, u"Went on from the other end."},
        {u"sa", false, {0, 2}, u""},
        {u"Sz", true, {0, 2}, u"Not found."},
        {u"", true, {0, 2}, u"Not found."},
    };
    for (const auto& [what, forward, selected, status] : steps) {
        stage.dialog.OnFind(what, {forward, false});
        EXPECT_EQ(stage.view.GetSelection(), selected);
        EXPECT_EQ(stage.view.GetText(CDlg::c_status), status);
    }
    EXPECT_EQ(stage.boxes.GetBeeps().size(), 1U);
    stage.dialog.OnCancel();
    EXPECT_FALSE(stage.dialog.IsOpen());
}
