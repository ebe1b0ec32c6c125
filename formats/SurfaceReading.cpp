#include "formats/SurfaceReading.h"

#include "analysis/numeric/DetachedThread.h"

#include <atomic>
#include <future>
#include <utility>

namespace CommonUI::Formats
{

// What both threads have, as long as one of them lives.
struct CSurfaceReading::SShared {
    std::atomic<bool> isGivenUp = false;
    std::atomic<double> fraction = 0;
    std::promise<Analysis::SSurface> surface{};
    std::future<Analysis::SSurface> result = surface.get_future();
};

namespace
{

struct SGivenUp {
};

} // namespace

CSurfaceReading::CSurfaceReading(const std::filesystem::path& path)
    : CSurfaceReading(path,
                      [](const auto& file, const FProgress& progress) { return ReadSurface(file, progress); })
{
}

CSurfaceReading::CSurfaceReading(const std::filesystem::path& path, FRead read)
    : m_shared(std::make_shared<SShared>())
{
    Analysis::StartDetachedThread([path, read = std::move(read), shared = m_shared] {
        try {
            shared->surface.set_value(read(path, [&](double fraction) {
                if (shared->isGivenUp)
                    throw SGivenUp();
                shared->fraction = fraction;
            }));
        } catch (...) {
            shared->surface.set_exception(std::current_exception());
        }
    });
}

CSurfaceReading::~CSurfaceReading()
{
    m_shared->isGivenUp = true;
}

bool CSurfaceReading::WaitFor(std::chrono::milliseconds time) const
{
    return m_shared->result.wait_for(time) == std::future_status::ready;
}

double CSurfaceReading::GetFraction() const noexcept
{
    return m_shared->fraction;
}

Analysis::SSurface CSurfaceReading::Take()
{
    return m_shared->result.get();
}

} // namespace CommonUI::Formats
