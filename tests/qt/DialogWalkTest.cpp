// What the other dialogs hand back is what they showed, and what they show when they open with it anew.
#include "common/ini/Inifile.h"
#include "dialogs/messages/RememberedMessageBox.h"
#include "qt/dialogs/QtFormatSpecifierDlg.h"
#include "qt/edits/NumericEditWidget.h"
#include "qt/edits/QtEditField.h"
#include "qt/framework/SelectionListWindow.h"
#include "qt/framework/TextEditorWindow.h"
#include "qt/services/QtMessageBoxService.h"
#include "tests/qt/WidgetTesting.h"
#include "tests/TemporaryFolder.h"

using namespace CommonUI;

namespace
{

// What a dialog shows before the keys, after them, and when it opens again with what it has handed back.
struct SShown {
    QString before;
    QString after;
    QString again;
};

// Types into the open window of a dialog, the last key of which is OK.
template<class TDialog, class FRead>
SShown Walk(TDialog& dialog, const char* keys, FRead read)
{
    SShown shown;
    dialog.Create();
    Activate(*dialog.GetWindow());
    shown.before = read(*dialog.GetWindow());
    Type(keys);
    shown.after = read(*dialog.GetWindow());
    const QPointer<QWidget> window = dialog.GetWindow();
    QTest::keyClick(window->focusWidget(), Qt::Key_Return, Qt::ControlModifier); // in a text
    if (dialog.IsOpen())
        QTest::keyClick(window->focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(dialog.IsOpen());
    return shown;
}

QString ReadFormat(CFormatSpecifierWindow& window)
{
    return window.GetList().currentText() + u' ' + window.GetCountWidget().GetField().text();
}

QString ReadList(CSelectionListWindow& window)
{
    QString text;
    const QAbstractItemModel& model = *window.GetList().model();
    for (int row = 0; row < model.rowCount(); ++row)
        text += model.index(row, 0).data(Qt::CheckStateRole).toString();
    return text;
}

QString ReadText(CTextEditorWindow& window)
{
    return window.GetEditor().toPlainText();
}

void ExpectTaken(const SShown& shown)
{
    EXPECT_NE(shown.after, shown.before);
    EXPECT_EQ(shown.again, shown.after);
}

} // namespace

TEST(DialogWalk, TheNumberFormatIsTheOneShown)
{
    for (const char* const keys : {"Alt+F Down", "Alt+F End Alt+C 7", "Alt+C 1 2 Tab Shift+Tab"}) {
        CParameter parameter(1, u"Sa", u"Sa", u"Sa", 0, true);
        parameter.SetFloatFormat({CParameter::EFormatSpecifier::FormatDecimals, 3});
        CQtFormatSpecifierDlg dialog(parameter);
        SShown shown = Walk(dialog, keys, ReadFormat);
        EXPECT_NE(dialog.GetParameter().GetFloatFormat(), parameter.GetFloatFormat());
        CQtFormatSpecifierDlg another(dialog.GetParameter());
        another.Create();
        shown.again = ReadFormat(*another.GetWindow());
        ExpectTaken(shown);
    }
}

TEST(DialogWalk, TheListIsTheOneShown)
{
    const std::vector<CStr> names{u"One", u"Two", u"Three"};
    const auto make = [&] {
        return std::make_unique<CQtSelectionListDlg>(nullptr, CSelectionListDlg::EMode::Several, u"Profiles",
                                                     u"&Profiles:", names);
    };
    const auto dialog = make();
    dialog->SetChosen({0});
    SShown shown = Walk(*dialog, "Alt+P Down Space Down Space", ReadList);
    const auto another = make();
    another->SetChosen(dialog->GetChosen());
    another->Create();
    shown.again = ReadList(*another->GetWindow());
    ExpectTaken(shown);
}

TEST(DialogWalk, TheTextIsTheOneShown)
{
    CQtTextEditorDlg dialog(nullptr, CTextEditorDlg::EMode::Edit, u"Remarks", u"One\r\nTwo");
    SShown shown = Walk(dialog, "more Return lines Backspace", ReadText);
    CQtTextEditorDlg another(nullptr, CTextEditorDlg::EMode::Edit, u"Remarks", dialog.GetText());
    another.Create();
    shown.again = ReadText(*another.GetWindow());
    ExpectTaken(shown);
}

TEST(DialogWalk, AnAnswerIsTheOneGivenAlsoFromAFile)
{
    CQtMessageBoxService service;
    const CServiceScope<CMessageBoxService> scope(service);
    const SMessageBox box{u"Close the window?", MessageBoxStyle::c_yesNo};
    CPreferencesData preferences;
    WhenShown<QMessageBox>([](QMessageBox& window) {
        Activate(window);
        window.checkBox()->setFocus();
        Type("Space");
        window.button(QMessageBox::No)->setFocus();
        Type("Space");
    });
    EXPECT_EQ(ShowRememberedMessageBox(u"Close", box, preferences), EMessageBoxAnswer::No);
    const CTemporaryFolder folder;
    CInifile file;
    file.Load((folder.GetPath() / "preferences.ini").u16string());
    preferences.Save(file);
    ASSERT_TRUE(file.Save());
    CInifile loaded;
    ASSERT_TRUE(loaded.Load((folder.GetPath() / "preferences.ini").u16string()));
    CPreferencesData other;
    other.Load(loaded);
    EXPECT_EQ(ShowRememberedMessageBox(u"Close", box, other), EMessageBoxAnswer::No) << "not asked";
}
