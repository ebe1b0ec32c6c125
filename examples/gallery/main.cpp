// The controls of the library, alive. gallery [--language TAG] [--preferences FILE] [--shots FOLDER]: a
// window, or pictures of all pages, for which no preferences are kept. What the pages themselves say is
// English.

#include "common/Language.h"
#include "common/PathText.h"
#include "dialogs/help/HelpTopics.h"
#include "examples/gallery/GalleryWindow.h"
#include "examples/gallery/Palettes.h"
#include "examples/gallery/Preferences.h"
#include "examples/gallery/Shots.h"
#include "platform/HelpService.h"
#include "qt/controls/InterfaceStyle.h"
#include "qt/QtText.h"
#include "qt/services/QtServices.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QLibraryInfo>
#include <QTranslator>

namespace
{

// A help system that only tells what it is asked for.
class CHelpInLog : public CommonUI::CHelpService
{
public:
    explicit CHelpInLog(Gallery::CGalleryWindow& window)
        : m_window(window)
    {
    }

    bool Open(unsigned int topic) override
    {
        QString line = QStringLiteral("Help: topic %1").arg(topic);
        for (const CommonUI::SHelpTopic& known : CommonUI::GetHelpTopics())
            if (known.topic == topic)
                line += QStringLiteral(", %1#%2").arg(CommonUI::ToQString(known.page),
                                                      CommonUI::ToQString(known.chapter));
        m_window.Write(line);
        return true;
    }

private:
    Gallery::CGalleryWindow& m_window;
};

// The texts of the library, and Qt's own ones, such as those of message boxes, where they are installed.
bool UseLanguage(const QString& tag, QTranslator& qtTexts)
{
    if (!CommonUI::UseLanguage(tag.toStdString()))
        return false;
    if (qtTexts.load(QLocale(tag), QStringLiteral("qtbase"), QStringLiteral("_"),
                     QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&qtTexts);
    return true;
}

int ShowWindow(const QString& file)
{
    Gallery::CPreferences preferences(file.isEmpty() ? Gallery::CPreferences::GetUsualFile()
                                                     : CommonUI::ToPath(CommonUI::FromQString(file)));
    if (!preferences.IsLoaded()) {
        preferences.Tell([](const QString& line) { qCritical("gallery: %s", qPrintable(line)); });
        return 2;
    }
    Gallery::CGalleryWindow window;
    CHelpInLog help(window);
    const CommonUI::CServiceScope<CommonUI::CHelpService> helpScope(help);
    preferences.Tell([&window](const QString& line) { window.Write(line); });
    window.show();
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    QApplication::setStyle(QStringLiteral("Fusion"));
    const QApplication application(argc, argv);
    QApplication::setApplicationDisplayName(QStringLiteral("Gallery"));

    const QCommandLineOption language(QStringLiteral("language"), QStringLiteral("texts in en or de"),
                                      QStringLiteral("tag"), QStringLiteral("en"));
    const QCommandLineOption shots(QStringLiteral("shots"), QStringLiteral("pictures instead of a window"),
                                   QStringLiteral("folder"));
    const QCommandLineOption kept(
        QStringLiteral("preferences"),
        QStringLiteral("what is kept, in place of "
                       "CommonUIGallery/preferences.ini in the folder for settings"),
        QStringLiteral("file"));
    const QCommandLineOption atThisScale(QString::fromLatin1(Gallery::c_atThisScale));
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOptions({language, kept, shots, atThisScale});
    parser.process(application);

    QTranslator qtTexts;
    if (!UseLanguage(parser.value(language), qtTexts)) {
        qCritical("gallery: no texts in the language %s", qPrintable(parser.value(language)));
        return 2;
    }
    const CommonUI::CQtServices services;
    CommonUI::CInterfaceColors colors;
    const CommonUI::CInterfaceStyle style(colors);
    Gallery::UseColors(colors);
    if (!parser.isSet(shots))
        return ShowWindow(parser.value(kept));
    Gallery::CPreferences unkept{{}};
    const bool written = parser.isSet(atThisScale) ? Gallery::WriteShots(parser.value(shots))
                                                   : Gallery::WriteShotsAtAllScales();
    return written ? 0 : 1;
}
