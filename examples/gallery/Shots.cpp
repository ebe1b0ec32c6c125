#include "examples/gallery/Shots.h"

#include "examples/gallery/GalleryWindow.h"
#include "examples/gallery/Pages.h"
#include "examples/gallery/Palettes.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QLabel>
#include <QPainter>
#include <QPixmap>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include <cstdio>
#include <typeindex>

namespace Gallery
{

namespace
{

QColor Mix(const QPalette& palette, int percentOfText)
{
    const QColor ground = palette.color(QPalette::Window);
    const QColor text = palette.color(QPalette::WindowText);
    const auto mix = [=](int from, int to) { return from + (to - from) * percentOfText / 100; };
    return {mix(ground.red(), text.red()), mix(ground.green(), text.green()),
            mix(ground.blue(), text.blue())};
}

// What window managers draw, which a display in memory has none of.
void DrawTitleBar(QPainter& painter, const QRect& place, const QWidget& dialog)
{
    const int height = dialog.fontMetrics().height() * 3 / 2;
    const QRect bar(place.x(), place.y() - height, place.width(), height);
    painter.fillRect(bar, Mix(dialog.palette(), 15));
    painter.setPen(Mix(dialog.palette(), 40));
    painter.drawRect(bar.united(place).adjusted(-1, -1, 0, 0));
    painter.setPen(dialog.palette().color(QPalette::WindowText));
    painter.drawText(bar, Qt::AlignCenter, dialog.windowTitle());
}

// Whether a label or a button has less room than its text needs; those that draw themselves know what they
// do.
bool IsCutOff(const QWidget& widget)
{
    const std::type_index type(typeid(widget));
    if (type != typeid(QLabel) && type != typeid(QPushButton) && type != typeid(QCheckBox) &&
        type != typeid(QRadioButton))
        return false;
    const auto* const label = qobject_cast<const QLabel*>(&widget);
    if (label && label->wordWrap())
        return label->heightForWidth(label->width()) > label->height();
    const QString text = widget.property("text").toString();
    const QSize needed = widget.fontMetrics().size(Qt::TextShowMnemonic, text);
    return !Qt::mightBeRichText(text) && needed.boundedTo(widget.contentsRect().size()) != needed;
}

// Tells which texts on the screen are cut off.
bool HaveTextsRoom()
{
    bool room = true;
    for (const QWidget* const widget : QApplication::allWidgets())
        if (widget->isVisible() && IsCutOff(*widget)) {
            std::fprintf(stderr, "cut off: %s\n", qPrintable(widget->property("text").toString()));
            room = false;
        }
    return room;
}

struct SShot {
    QPixmap picture;
    bool complete = false;
};

// The window with what lies over it: pop-ups and dialogs are windows of their own.
SShot Grab(QWidget& window)
{
    QPixmap picture = window.grab();
    QPainter painter(&picture);
    for (QWidget* const other : QApplication::topLevelWidgets())
        if (other != &window && other->isVisible()) {
            const QRect place(window.mapFromGlobal(other->pos()), other->size());
            painter.drawPixmap(place.topLeft(), other->grab());
            if (other->windowType() == Qt::Dialog)
                DrawTitleBar(painter, place, *other);
        }
    painter.end();
    return {picture, HaveTextsRoom()};
}

SShot GrabWhileOpen(QWidget& window, void (*open)())
{
    SShot shot;
    QTimer::singleShot(0, &window, [&] {
        shot = Grab(window);
        QApplication::activeModalWidget()->close();
    });
    open();
    return shot;
}

bool WritePage(const SPage& page, int index, const QString& folder, bool dark)
{
    SetDark(dark);
    CGalleryWindow window;
    window.SelectPage(index);
    window.show();
    window.activateWindow();
    QCoreApplication::processEvents();
    if (page.stage)
        page.stage(window.GetPage(index));
    QCoreApplication::processEvents();
    const auto [picture, complete] = page.open ? GrabWhileOpen(window, page.open) : Grab(window);
    const QString path =
        QStringLiteral("%1/%2-%3-%4.png")
            .arg(folder, QString::fromUtf8(page.key), dark ? QStringLiteral("dark") : QStringLiteral("light"))
            .arg(qRound(picture.devicePixelRatio() * 100));
    const bool written = picture.save(path);
    std::fprintf(written ? stdout : stderr, written ? "%s\n" : "cannot write %s\n", qPrintable(path));
    return written && complete;
}

} // namespace

bool WriteShots(const QString& folder)
{
    bool written = QDir().mkpath(folder);
    for (const bool dark : {false, true}) {
        int index = 0;
        for (const SPage& page : GetPages())
            written = WritePage(page, index++, folder, dark) && written;
    }
    return written;
}

bool WriteShotsAtAllScales()
{
    const QStringList arguments = QCoreApplication::arguments().mid(1)
                                  << QLatin1String("--") + QLatin1String(c_atThisScale);
    bool written = true;
    for (const char* const scale : {"1", "2"}) {
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QString::fromUtf8(scale));
        program.setProcessEnvironment(environment);
        program.setProcessChannelMode(QProcess::ForwardedChannels);
        program.start(QCoreApplication::applicationFilePath(), arguments);
        program.waitForFinished(-1);
        written = program.exitStatus() == QProcess::NormalExit && program.exitCode() == 0 && written;
    }
    return written;
}

} // namespace Gallery
