#include "qt/framework/TextEditorWindow.h"

#include "platform/memory/MemoryMessageBoxService.h"
#include "tests/DiagnosticsCapture.h"
#include "tests/qt/WidgetTesting.h"

#include <memory>

using namespace CommonUI;
using namespace std::string_view_literals;

using CDlg = CTextEditorDlg;

TEST(TextEditorWindow, KeepsEveryUnitThatIsNotEdited)
{
    const CStr text = u"\uFEFF\t a\u00A0b\r\nc\u2028d\u2029e\xFDD0\xFDD1"
                      u"f\rg\0h\xD800i\xFFFE\U0001F600\n"sv;
    CQtTextEditorDlg dialog(nullptr, CDlg::EMode::Edit, u"Text", text);
    dialog.Create();
    Activate(*dialog.GetWindow());
    EXPECT_FALSE(dialog.IsModified());
    Type("Ctrl+End x Ctrl+Return");
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(dialog.GetText(), text + u"x");
}

TEST(TextEditorWindow, FindsUndoesAndAsksByKeyboard)
{
    const CDiagnosticsCapture capture;
    CMemoryMessageBoxService boxes;
    const CServiceScope<CMessageBoxService> scope(boxes);
    auto parent = std::make_unique<QWidget>();
    CQtTextEditorDlg dialog(parent.get(), CDlg::EMode::Edit, u"Text", u"Sa\nSq\nSa");
    dialog.Create();
    CTextEditorWindow& window = *dialog.GetWindow();
    Activate(window);
    EXPECT_EQ(Speak(Reader(window.GetEditor())), "Text (focused editable)");
    Type("x Ctrl+F s a Return");
    EXPECT_TRUE(dialog.IsOpen()) << "Enter finds";
    EXPECT_EQ(window.GetSelection(), (STextRange{1, 3}));
    Type("F3");
    EXPECT_EQ(window.GetSelection(), (STextRange{7, 9}));
    Type("Shift+F3");
    EXPECT_EQ(window.GetSelection(), (STextRange{1, 3}));
    Type("Esc");
    EXPECT_TRUE(dialog.IsOpen()) << "asked, and nobody has said yes";
    EXPECT_EQ(boxes.GetShown().size(), 1U);
    window.GetEditor().undo();
    EXPECT_FALSE(dialog.IsModified());
    Type("y");
    parent.reset();
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(boxes.GetShown().size(), 1U) << "nobody to ask";
}

TEST(TextEditorWindow, ALargeTextIsReadAndFound)
{
    CStr text;
    for (int i = 0; i < 100000; ++i)
        text += u"A line of a long report with a number of words\r\n";
    CQtTextEditorDlg dialog(nullptr, CDlg::EMode::ReadOnly, u"Report", text + u"The end");
    dialog.Create();
    Activate(*dialog.GetWindow());
    Type("x Ctrl+Return");
    EXPECT_TRUE(dialog.IsOpen());
    dialog.GetWindow()->GetFindField().setText(QStringLiteral("the end"));
    Type("F3");
    EXPECT_EQ(dialog.GetWindow()->GetSelection().first, 100000U * 47);
    EXPECT_EQ(dialog.GetText(), text + u"The end");
}
