// What the start of the workbench is compared with: a window that reads a surface and shows a picture of its
// heights, with nothing else. It says what commonui-workbench --measure-start says: plain_viewer FILE.

#include "formats/SurfaceReader.h"
#include "workbench/ProcessFigures.h"

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QMainWindow>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace
{

QImage MakePicture(const CommonUI::Analysis::SSurface& surface)
{
    const auto isThere = [](double z) { return std::isfinite(z); };
    double lowest = HUGE_VAL;
    double highest = -HUGE_VAL;
    for (const double z : surface.heights) {
        if (!isThere(z))
            continue;
        lowest = std::min(lowest, z);
        highest = std::max(highest, z);
    }
    const double height = highest > lowest ? highest - lowest : 1;
    QImage picture(static_cast<int>(surface.points), static_cast<int>(surface.lines),
                   QImage::Format_Grayscale8);
    for (std::size_t y = 0; y < surface.lines; ++y) {
        uchar* const line = picture.scanLine(static_cast<int>(y));
        for (std::size_t x = 0; x < surface.points; ++x) {
            const double z = surface.heights[y * surface.points + x];
            line[x] = isThere(z) ? static_cast<uchar>(255 * (z - lowest) / height) : 0;
        }
    }
    return picture;
}

class CPicture : public QLabel
{
protected:
    void paintEvent(QPaintEvent* event) override
    {
        QLabel::paintEvent(event);
        std::printf("%.2f s to the surface, %d MB at the most\n", Workbench::GetSecondsSinceStart(),
                    Workbench::GetMemory("VmHWM"));
        QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    }
};

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2)
        return 2;
    const QApplication application(argc, argv);
    QMainWindow window;
    auto* const picture = new CPicture;
    picture->setPixmap(QPixmap::fromImage(MakePicture(CommonUI::Formats::ReadSurface(argv[1]))));
    window.setCentralWidget(picture);
    window.show();
    return QApplication::exec();
}
