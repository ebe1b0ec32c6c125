#include "workbench/FrameRate.h"

#include "common/NumberText.h"
#include "workbench/WorkbenchWindow.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <algorithm>
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

SFrameRate MeasureFrameRate(CWorkbenchWindow& window, int frames, double zoom)
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
    block.Fit();
    block.Zoom(zoom);
    for (int i = 0; i < c_firstFrames; ++i) {
        block.Turn(1, 0);
        DrawNow(block);
    }
    QElapsedTimer timer;
    timer.start();
    const std::clock_t clockBefore = std::clock();
    qint64 longest = 0;
    for (int i = 0; i < frames; ++i) {
        const qint64 before = timer.nsecsElapsed();
        block.Turn(360.0 / frames, 0);
        DrawNow(block);
        longest = std::max(longest, timer.nsecsElapsed() - before);
    }
    const auto clocks = static_cast<double>(std::clock() - clockBefore);
    const double seconds = static_cast<double>(timer.nsecsElapsed()) * 1e-9;
    const SFrame moving = block.GetFrame();
    while (block.GetFrame().isMoving)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return {.framesPerSecond = frames / seconds,
            .longestSeconds = static_cast<double>(longest) * 1e-9,
            .processorSeconds = clocks / CLOCKS_PER_SEC / frames,
            .vertices = moving.work.vertices,
            .triangles = moving.work.triangles,
            .bytesSent = moving.work.bytesSent,
            .stillSeconds = block.GetFrame().seconds,
            .stillVertices = block.GetFrame().work.vertices,
            .stillTriangles = block.GetFrame().work.triangles};
}

std::string Describe(const SFrameRate& rate)
{
    using CommonUI::CStr;
    const auto count = [](std::size_t number) { return static_cast<unsigned>(number); };
    return CStr::Format(
               u"%.1f frames a second at %d x %d, the slowest took %.0f ms; %.0f ms of the processor for "
               u"each; %u vertices, %u triangles, %u bytes sent; at rest %u vertices, %u triangles in "
               u"%.0f ms",
               rate.framesPerSecond, c_size.width(), c_size.height(), 1000 * rate.longestSeconds,
               1000 * rate.processorSeconds, count(rate.vertices), count(rate.triangles),
               count(rate.bytesSent), count(rate.stillVertices), count(rate.stillTriangles),
               1000 * rate.stillSeconds)
        .ToUtf8();
}

} // namespace Workbench
