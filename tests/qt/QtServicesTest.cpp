#include "qt/services/QtServices.h"

#include "platform/Folders.h"
#include "qt/QtText.h"
#include "tests/DiagnosticsCapture.h"
#include "tests/qt/WidgetTesting.h"

#include <memory>
#include <stdexcept>

using namespace CommonUI;

TEST(QtText, KeepsEveryCodeUnit)
{
    const std::u16string units{u'\xFFFE', u'a', u'\0', u'\xD800', u'\x00B5'};
    EXPECT_EQ(FromQString(ToQString(units)), units);
    EXPECT_EQ(ToQString(u"\u00B1 0.1"), QStringLiteral("\u00B1 0.1"));
}

TEST(QtServices, AreInUseAsLongAsTheyLive)
{
    const auto inUse = [] {
        return std::tuple(&GetTimerService(), &GetMessageLoop(), &GetMessageBoxService(),
                          &GetFileDialogService(), &GetClipboard(), &GetFolders());
    };
    const auto before = inUse();
    {
        CQtServices inner;
        EXPECT_NE(&GetTimerService(), std::get<0>(before));
        EXPECT_EQ(&GetFileDialogService(), &inner.GetFileDialogs());
    }
    EXPECT_EQ(inUse(), before);
}

TEST(QtServices, AnExceptionThatNobodyWaitsForIsInTheDiagnostics)
{
    CDiagnosticsCapture lines;
    GetMessageLoop().Post([] { throw std::runtime_error("lost"); });
    QCoreApplication::processEvents();
    EXPECT_EQ(lines.Take(), std::vector<CStr>{u"Qt: an exception left a callback: lost"});
}

TEST(QtServices, MessageBoxesShowTheIconAndThePlainText)
{
    using namespace MessageBoxStyle;
    const std::pair<unsigned int, QMessageBox::Icon> rows[] = {{c_error, QMessageBox::Critical},
                                                               {c_warning, QMessageBox::Warning},
                                                               {c_question, QMessageBox::Question},
                                                               {0, QMessageBox::NoIcon}};
    for (const auto& [style, icon] : rows) {
        WhenShown<QMessageBox>([icon = icon](QMessageBox& box) {
            EXPECT_EQ(box.text(), QStringLiteral("Remove <b>all</b>?"));
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.icon(), icon);
            box.reject();
        });
        GetMessageBoxService().Show({u"Remove <b>all</b>?", style});
    }
}

TEST(QtServices, TheEndOfTheWindowBelowClosesAMessageBox)
{
    auto parent = std::make_unique<QWidget>();
    parent->show();
    WhenShown<QMessageBox>([&parent](QMessageBox&) { parent.reset(); });
    EXPECT_EQ(GetMessageBoxService().Show({u"Remove?", MessageBoxStyle::c_yesNo}), EMessageBoxAnswer::No);
}

TEST(QtServices, FileDialogsOfferFiltersAndRememberTheChoice)
{
    QTemporaryDir folder;
    const QString chosen = folder.filePath(QStringLiteral("mine.flt"));
    WhenShown<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.nameFilters(),
                  QStringList({QStringLiteral("Filters (*.flt *.filter)"), QStringLiteral("All files (*)")}));
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
        dialog.selectFile(folder.filePath(QStringLiteral("mine")));
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    const SFileDialog save{.forOpen = false,
                           .filter = u"Filters (*.flt)|*.flt;*.filter|All files (*.*)|*.*||",
                           .extension = u"flt",
                           .memoryKey = u"Filter"};
    CStr path;
    ASSERT_TRUE(GetFileDialogService().Choose(save, path));
    EXPECT_EQ(path, FromQString(QDir::toNativeSeparators(chosen)));

    QFile(chosen).open(QIODevice::WriteOnly);
    WhenShown<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory(), QDir(folder.path()));
        EXPECT_EQ(dialog.selectedFiles(), QStringList(chosen));
        EXPECT_EQ(dialog.defaultSuffix(), QString());
        dialog.reject();
    });
    EXPECT_FALSE(GetFileDialogService().Choose({.extension = u"flt", .memoryKey = u"Filter"}, path));
}
