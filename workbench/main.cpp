// The workbench: commonui-workbench [--language TAG] [FILE...]. With --measure it turns the block of the
// file, or of a made-up surface of 4096 x 4096 points, and says how many frames a second that gives. With
// --measure-start it says how long the start took. With --shot it draws its window into a file.

#include "common/Language.h"
#include "dialogs/help/HelpTopics.h"
#include "gl/OpenGLError.h"
#include "measurement/BackgroundWork.h"
#include "platform/Folders.h"
#include "platform/memory/FixedFolders.h"
#include "qt/controls/InterfaceStyle.h"
#include "qt/QtText.h"
#include "qt/services/QtHelpService.h"
#include "qt/services/QtServices.h"
#include "settings/preferences/PreferencesManager.h"
#include "workbench/FrameRate.h"
#include "workbench/ProcessFigures.h"
#include "workbench/WorkbenchWindow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>
#include <QLibraryInfo>
#include <QSurfaceFormat>
#include <QTimer>
#include <QTranslator>

#include <cmath>
#include <cstdio>
#include <memory>
#include <optional>

namespace
{

using namespace CommonUI;

constexpr SHelpTopic c_topics[] = {{Workbench::CWorkbenchWindow::c_helpTopic, u"workbench.md", u""},
                                   {c_openGLHelpTopic, u"workbench.md", u"three-dimensions"}};

// The language that was asked for, else the one of the desktop that there is, else English.
void ChooseLanguage(const QString& wanted, QTranslator& qtTexts)
{
    const QStringList tags = wanted.isEmpty() ? QLocale::system().uiLanguages() : QStringList{wanted};
    for (const QString& tag : tags) {
        if (!UseLanguage(tag.toStdString()))
            continue;
        if (qtTexts.load(QLocale(tag), QStringLiteral("qtbase"), QStringLiteral("_"),
                         QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
            QCoreApplication::installTranslator(&qtTexts);
        return;
    }
}

// What the projections of the view need: OpenGL with its fixed functions, and a depth buffer.
void AskForOpenGL()
{
    QSurfaceFormat format;
    format.setRenderableType(QSurfaceFormat::OpenGL);
    format.setProfile(QSurfaceFormat::CompatibilityProfile);
    format.setDepthBufferSize(24);
    QSurfaceFormat::setDefaultFormat(format);
}

Analysis::SSurface MakeLargeSurface()
{
    constexpr std::size_t c_side = 4096;
    Analysis::SSurface surface{
        .points = c_side, .lines = c_side, .dx = 1e-7, .dy = 1e-7, .fileName = "4096 x 4096"};
    surface.heights.reserve(c_side * c_side);
    for (std::size_t i = 0; i < c_side * c_side; ++i) {
        const auto x = static_cast<double>(i % c_side);
        const std::size_t line = i / c_side;
        const auto y = static_cast<double>(line);
        surface.heights.push_back(1e-6 * std::sin(x / 150) * std::cos(y / 230) +
                                  2e-7 * std::sin(x / 11 + std::sin(y / 40)));
    }
    return surface;
}

int Measure(Workbench::CWorkbenchWindow& window)
{
    if (!window.GetPage())
        window.AddPage(SurfaceView::MakeViewedSurface("large", MakeLargeSurface()));
    constexpr int c_frames = 120;
    bool isMeasured = true;
    for (const double zoom : {1.0, 4.0, 30.0}) {
        const Workbench::SFrameRate rate = Workbench::MeasureFrameRate(window, c_frames, zoom);
        std::printf("zoom %.0f: %s\n", zoom, Workbench::Describe(rate).c_str());
        isMeasured = isMeasured && rate.framesPerSecond > 0;
    }
    return isMeasured ? 0 : 1;
}

bool IsPainted(Workbench::CWorkbenchWindow& window)
{
    Workbench::CSurfacePage* const page = window.GetPage();
    return page && page->GetBlock() && page->GetBlock()->GetFrame().work.triangles > 0;
}

// Until the surface is painted, and until its results are there.
void MeasureStart(Workbench::CWorkbenchWindow& window)
{
    auto* const timer = new QTimer(&window);
    QObject::connect(timer, &QTimer::timeout, &window, [&window, painted = 0.0]() mutable {
        if (painted == 0 && IsPainted(window))
            painted = Workbench::GetSecondsSinceStart();
        if (painted == 0 || window.GetResults().IsBusy())
            return;
        std::printf("%.2f s to the surface, %.2f s to its results, %d MB at the most\n", painted,
                    Workbench::GetSecondsSinceStart(), Workbench::GetMemory("VmHWM"));
        QCoreApplication::exit();
    });
    timer->start(1);
}

// The picture is that of the window when the results are there and nothing moves.
void WriteShot(Workbench::CWorkbenchWindow& window, const QString& path)
{
    auto* const timer = new QTimer(&window);
    QObject::connect(timer, &QTimer::timeout, &window, [&window, path, timer] {
        Workbench::CSurfacePage* const page = window.GetPage();
        if (window.GetResults().IsBusy() ||
            (page && page->GetBlock() && page->GetBlock()->GetFrame().isMoving))
            return;
        timer->stop();
        QCoreApplication::exit(window.grab().save(path) ? 0 : 1);
    });
    constexpr int c_interval = 300; // ms, longer than a view takes to come to rest
    timer->start(c_interval);
}

} // namespace

int main(int argc, char** argv)
{
    AskForOpenGL();
    const QApplication application(argc, argv);
    QGuiApplication::setDesktopFileName(QStringLiteral("commonui-workbench"));
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/commonui-workbench.svg")));

    const QCommandLineOption language(QStringLiteral("language"), QStringLiteral("texts in en or de"),
                                      QStringLiteral("tag"));
    const QCommandLineOption measure(QStringLiteral("measure"), QStringLiteral("how many frames a second"));
    const QCommandLineOption start(QStringLiteral("measure-start"),
                                   QStringLiteral("how long the start takes"));
    const QCommandLineOption shot(QStringLiteral("shot"), QStringLiteral("a picture of the window"),
                                  QStringLiteral("file"));
    const QCommandLineOption settings(QStringLiteral("settings"),
                                      QStringLiteral("where preferences are kept"), QStringLiteral("folder"));
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOptions({language, measure, start, shot, settings});
    parser.addPositionalArgument(QStringLiteral("files"), QStringLiteral("surfaces to open"),
                                 QStringLiteral("[FILE...]"));
    parser.process(application);

    QTranslator qtTexts;
    ChooseLanguage(parser.value(language), qtTexts);
    const CQtServices services;
    std::optional<CFixedFolders> folders;
    std::optional<CServiceScope<CFolders>> foldersScope;
    if (parser.isSet(settings)) {
        folders.emplace(GetFolders().GetApplicationFolder(), parser.value(settings).toStdString());
        foldersScope.emplace(*folders);
    }
    CQtHelpService help(FindDocumentation(GetFolders().GetApplicationFolder()));
    help.AddTopics(c_topics, FindDocumentation(GetFolders().GetApplicationFolder()));
    const CServiceScope<CHelpService> helpScope(help);
    CInterfaceColors colors;
    const CInterfaceStyle style(colors);

    // The window closes without waiting for what it computes, which the process must not end under.
    const std::unique_ptr<void, void (*)(void*)> atEnd(
        &help, [](void*) { Measurement::CBackgroundWork::WaitForAll(); });
    Workbench::CWorkbenchWindow window(colors);
    const bool isTried = parser.isSet(measure) || parser.isSet(start);
    if (isTried || parser.isSet(shot))
        window.EndSession(); // nobody works with it
    window.show();
    std::vector<CStr> files;
    for (const QString& file : parser.positionalArguments())
        files.push_back(FromQString(file));
    if (parser.isSet(measure)) {
        window.OpenFiles(files);
        return Measure(window);
    }
    QTimer::singleShot(0, &window, [&] {
        window.OpenFiles(files);
        if (parser.isSet(start))
            MeasureStart(window);
        else if (!parser.isSet(shot))
            window.OfferSessions();
        if (parser.isSet(shot))
            WriteShot(window, parser.value(shot));
    });
    return QApplication::exec();
}
