// The controls of the library, alive. gallery [--shots FOLDER]: without argument a window, with it pictures
// of all pages.

#include "examples/gallery/GalleryWindow.h"
#include "examples/gallery/Pages.h"
#include "examples/gallery/Shots.h"
#include "platform/HelpService.h"
#include "qt/services/QtServices.h"

#include <QApplication>

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
        m_window.Write(QStringLiteral("Help: topic %1").arg(topic));
        return true;
    }

private:
    Gallery::CGalleryWindow& m_window;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication::setStyle(QStringLiteral("Fusion"));
    const QApplication application(argc, argv);
    QApplication::setApplicationDisplayName(QStringLiteral("Gallery"));
    const CommonUI::CQtServices services;

    const QStringList arguments = QApplication::arguments();
    if (arguments.size() == 3 && arguments[1] == QLatin1String("--shots"))
        return Gallery::WriteShotsAtAllScales(arguments[2]) ? 0 : 1;
    if (arguments.size() == 3 && arguments[1] == QLatin1String("--shots-at-this-scale"))
        return Gallery::WriteShots(arguments[2]) ? 0 : 1;
    if (arguments.size() > 1) {
        qCritical("usage: gallery [--shots FOLDER]");
        return 2;
    }
    Gallery::KeepSelections();
    Gallery::CGalleryWindow window;
    CHelpInLog help(window);
    const CommonUI::CServiceScope<CommonUI::CHelpService> helpScope(help);
    window.show();
    return QApplication::exec();
}
