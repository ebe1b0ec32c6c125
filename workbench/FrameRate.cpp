#include "workbench/FrameRate.h"

#include "common/NumberText.h"
#include "workbench/WorkbenchWindow.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <ctime>

namespace Workbench
{

namespace
{

constexpr QSize c_size(1280, 800);
constexpr int c_firstFrames = 20; // until the level of detail is found

void DrawNow(CBlockWidget& block)
{
    block.repaint();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

} // namespace

SFrameRate MeasureFrameRate(CWorkbenchWindow& window, int frames)
{
    CSurfacePage* const page = window.GetPage();
    if (!page || !page->GetBlock())
        return {};
    window.GetResults().hide();
    window.GetViewPane().hide();
    page->ShowViews(false, true);
    CBlockWidget& block = *page->GetBlock();
    block.setFixedSize(c_size);
    window.show();
    for (int i = 0; i < c_firstFrames; ++i) {
        block.Turn(1, 0);
        DrawNow(block);
    }
    QElapsedTimer timer;
    timer.start();
    const std::clock_t clockBefore = std::clock();
    for (int i = 0; i < frames; ++i) {
        block.Turn(360.0 / frames, 0);
        DrawNow(block);
    }
    const auto clocks = static_cast<double>(std::clock() - clockBefore);
    const double seconds = static_cast<double>(timer.nsecsElapsed()) * 1e-9;
    const SFrame moving = block.GetFrame();
    while (block.GetFrame().isMoving)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return {.framesPerSecond = frames / seconds,
            .processorSeconds = clocks / CLOCKS_PER_SEC / frames,
            .vertices = moving.work.vertices,
            .triangles = moving.work.triangles,
            .bytesSent = moving.work.bytesSent,
            .stillSeconds = block.GetFrame().seconds,
            .stillTriangles = block.GetFrame().work.triangles};
}

std::string Describe(const SFrameRate& rate)
{
    using CommonUI::CStr;
    return CStr::Format(u"%.1f frames a second at %d x %d, %.0f ms of the processor for each; %u vertices, "
                        u"%u triangles, %u bytes sent; at rest %u "
                        u"triangles in %.0f ms",
                        rate.framesPerSecond, c_size.width(), c_size.height(), 1000 * rate.processorSeconds,
                        static_cast<unsigned>(rate.vertices), static_cast<unsigned>(rate.triangles),
                        static_cast<unsigned>(rate.bytesSent), static_cast<unsigned>(rate.stillTriangles),
                        1000 * rate.stillSeconds)
        .ToUtf8();
}

} // namespace Workbench
