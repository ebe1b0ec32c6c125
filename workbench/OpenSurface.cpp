#include "workbench/OpenSurface.h"

#include "common/PathText.h"
#include "formats/SurfaceReading.h"
#include "qt/dialogs/QtProgressDialog.h"
#include "workbench/Texts.h"

#include <chrono>

namespace Workbench
{

namespace
{

using CClock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr milliseconds c_waitTime{20};
constexpr milliseconds c_silentTime{500}; // a file that is read by then shows no window

class COpening
{
public:
    COpening(QWidget* parent, const std::filesystem::path& path,
             const CommonUI::Formats::CSurfaceReading::FRead& read)
        : m_path(path)
        , m_read(read)
        , m_dialog(parent, Text(EText::Reading),
                   CommonUI::CStr::Format(Text(EText::ReadingFile), NameOf(path)))
    {
        m_dialog.SetWork(*this, &COpening::Work);
    }

    std::shared_ptr<const SurfaceView::SViewedSurface> Run()
    {
        m_dialog.DoModal();
        return m_dialog.IsCanceled() ? nullptr : m_surface;
    }

private:
    static CommonUI::CStr NameOf(const std::filesystem::path& path)
    {
        CommonUI::CStr name;
        CommonUI::ToText(path.filename(), name);
        return name;
    }
    // On the worker: it only waits, as the thread that reads may be stuck in a drive.
    void Work()
    {
        CommonUI::Formats::CSurfaceReading reading(m_path, m_read);
        while (!reading.WaitFor(c_waitTime)) {
            if (IsCanceled(reading.GetFraction()))
                return;
        }
        m_surface = SurfaceView::MakeViewedSurface(m_path, reading.Take());
    }

    // One report for each percent, as reports have to be equal; one without progress shows the window.
    bool IsCanceled(double fraction)
    {
        const auto percent = static_cast<int>(100 * fraction);
        if (CClock::now() - m_begin < c_silentTime)
            return m_dialog.IsCanceled();
        for (; m_percent < percent; ++m_percent)
            if (m_dialog.PostThreadProgress(1, {}) != 0)
                return true;
        return m_dialog.IsCanceled();
    }

    std::filesystem::path m_path;
    CommonUI::Formats::CSurfaceReading::FRead m_read;
    CommonUI::CQtProgressThreadDialog m_dialog;
    CClock::time_point m_begin = CClock::now();
    int m_percent = 0;
    std::shared_ptr<const SurfaceView::SViewedSurface> m_surface;
};

} // namespace

std::shared_ptr<const SurfaceView::SViewedSurface>
OpenSurface(QWidget* parent, const std::filesystem::path& path,
            const CommonUI::Formats::CSurfaceReading::FRead& read)
{
    return COpening(parent, path, read).Run();
}

} // namespace Workbench
