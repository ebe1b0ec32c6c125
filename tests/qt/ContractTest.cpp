#include "qt/QtText.h"
#include "qt/services/QtServices.h"
#include "tests/contract/ClipboardContract.h"
#include "tests/contract/FileDialogContract.h"
#include "tests/contract/FileManagerContract.h"
#include "tests/contract/FoldersContract.h"
#include "tests/contract/LoopContract.h"
#include "tests/contract/MessageBoxContract.h"
#include "tests/qt/WidgetTesting.h"

#include <QClipboard>
#include <QMimeData>

using namespace CommonUI;

namespace
{

struct SQtLoop {
    void RunProgram() { QApplication::exec(); }
    void EndProgram() { QApplication::exit(); }

    CQtTimerService timers;
    CQtMessageLoop loop;
};

struct SQtClipboard {
    static CStr GetHtml() { return FromQString(QApplication::clipboard()->mimeData()->html()); }
    static CStr GetText() { return FromQString(QApplication::clipboard()->text()); }

    CQtClipboard clipboard;
};

void Press(QMessageBox& box, QMessageBox::StandardButton button)
{
    QTest::mouseClick(box.button(button), Qt::LeftButton);
}

struct SQtBoxes {
    static constexpr bool c_opensHelp = true;

    static void Expect(EBoxAct act)
    {
        WhenShown<QMessageBox>([act](QMessageBox& box) { Do(box, act); });
    }
    static void Do(QMessageBox& box, EBoxAct act)
    {
        switch (act) {
        case EBoxAct::PressOk:
            return Press(box, QMessageBox::Ok);
        case EBoxAct::PressCancel:
            return Press(box, QMessageBox::Cancel);
        case EBoxAct::PressNo:
            return Press(box, QMessageBox::No);
        case EBoxAct::Close:
            return QTest::keyClick(&box, Qt::Key_Escape);
        case EBoxAct::Enter:
            return QTest::keyClick(&box, Qt::Key_Return);
        case EBoxAct::HelpAndYes:
            Press(box, QMessageBox::Help);
            break;
        case EBoxAct::CheckAndYes:
            EXPECT_EQ(box.checkBox()->text(), QStringLiteral("&Do not ask again"));
            box.checkBox()->click();
            break;
        case EBoxAct::PressYes:
            break;
        }
        EXPECT_TRUE(box.isVisible());
        Press(box, QMessageBox::Yes);
    }

    CQtMessageBoxService service;
};

struct SQtFileDialogs {
    static void Expect(const CStr& path)
    {
        WhenShown<QFileDialog>([path](QFileDialog& dialog) {
            if (path.IsEmpty())
                return dialog.reject();
            dialog.selectFile(ToQString(path));
            QMetaObject::invokeMethod(&dialog, "accept");
        });
    }
    static void Accept()
    {
        WhenShown<QFileDialog>([](QFileDialog& dialog) { QMetaObject::invokeMethod(&dialog, "accept"); });
    }

    CQtFileDialogService service;
};

struct SQtFolders {
    CQtFolders folders;
};

// With a trash of the test's own instead of the user's.
struct SQtTrash {
    SQtTrash()
    {
        QStandardPaths::setTestModeEnabled(false);
        qputenv("XDG_DATA_HOME", folder.path().toUtf8());
    }
    ~SQtTrash()
    {
        qunsetenv("XDG_DATA_HOME");
        QStandardPaths::setTestModeEnabled(true);
        EXPECT_EQ(QDir(folder.filePath(QStringLiteral("Trash/files"))).entryList(QDir::Files).size(), 1);
    }

    QTemporaryDir folder;
    CQtFileManager manager;
};

} // namespace

namespace CommonUI
{

INSTANTIATE_TYPED_TEST_SUITE_P(Qt, LoopContract, SQtLoop);
INSTANTIATE_TYPED_TEST_SUITE_P(Qt, ClipboardContract, SQtClipboard);
INSTANTIATE_TYPED_TEST_SUITE_P(Qt, MessageBoxContract, SQtBoxes);
INSTANTIATE_TYPED_TEST_SUITE_P(Qt, FileDialogContract, SQtFileDialogs);
INSTANTIATE_TYPED_TEST_SUITE_P(Qt, FoldersContract, SQtFolders);
INSTANTIATE_TYPED_TEST_SUITE_P(Qt, FileManagerContract, SQtTrash);

} // namespace CommonUI
