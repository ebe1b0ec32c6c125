#include "measurement/process/BackgroundSteps.h"

#include "analysis/surface/Decimate.h"
#include "measurement/process/PreviewSize.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <map>
#include <new>
#include <utility>

namespace CommonUI::Measurement
{

using CClock = std::chrono::steady_clock;

namespace
{

struct SRequested {
    std::shared_ptr<const SInput> original{};
    CProcessSteps steps{};
    std::size_t size = 0;
};

// A surface with fewer points, each made once: the largest preview from all points, the others from that.
class CSmaller
{
public:
    std::shared_ptr<const SInput> Get(const std::shared_ptr<const SInput>& original, std::size_t size)
    {
        if (original != m_original)
            m_made.clear();
        m_original = original;
        return size < CPreviewSize::c_largest ? Make(size, Make(CPreviewSize::c_largest, original))
                                              : Make(size, original);
    }

private:
    const std::shared_ptr<const SInput>& Make(std::size_t size, const std::shared_ptr<const SInput>& from)
    {
        auto& made = m_made[size];
        if (!made) {
            auto input = std::make_shared<SInput>();
            input->surface = Analysis::Decimate(from->surface, size);
            made = std::move(input);
        }
        return made;
    }

    std::shared_ptr<const SInput> m_original;
    std::map<std::size_t, std::shared_ptr<const SInput>> m_made; // by points along a side
};

double SecondsSince(CClock::time_point begin)
{
    return std::chrono::duration<double>(CClock::now() - begin).count();
}

double RatioOf(std::size_t side, std::size_t most)
{
    return static_cast<double>(std::max(side, most)) / static_cast<double>(most);
}

void MakeSmaller(SRequested& requested, CSmaller& smaller)
{
    const Analysis::SSurface& surface = requested.original->surface;
    if (requested.size == 0 || std::max(surface.points, surface.lines) <= requested.size)
        return;
    const double x = RatioOf(surface.points, requested.size);
    const SPointsPerPoint ratio{x, surface.IsProfile() ? x : RatioOf(surface.lines, requested.size)};
    for (SProcessStep& step : requested.steps)
        step.work = ScaleWork(std::move(step.work), ratio);
    requested.original = smaller.Get(requested.original, requested.size);
}

} // namespace

// What the thread and its owner have in common; the thread may be the last one to have it.
struct CBackgroundSteps::SShared {
    CBackgroundSteps* owner; // null when it has gone; for the user-interface thread
    FPrepare prepare;
    CStepProcessor processor{};
    CSmaller smaller{};

    static FShow Do(const std::shared_ptr<SShared>& self, SRequested requested,
                    const CBackgroundWork::FIsWanted& isWanted)
    {
        CStr reason;
        try {
            MakeSmaller(requested, self->smaller);
            const auto begin = CClock::now();
            const auto processed = self->processor.Run(requested.original, requested.steps, isWanted);
            if (!processed || !isWanted())
                return {};
            const FShow show = self->prepare(*processed);
            const double seconds = SecondsSince(begin);
            return [self, show, processed, seconds] {
                const auto beginOfShow = CClock::now();
                show();
                if (self->owner)
                    self->owner->m_answered(*processed, seconds + SecondsSince(beginOfShow));
            };
        } catch (const std::bad_alloc&) {
            reason = u"there is not enough memory";
        } catch (const std::exception& error) {
            reason = CStr::FromUtf8(error.what());
        }
        return [self, reason] { self->owner->m_failed(reason); };
    }
};

CBackgroundSteps::CBackgroundSteps(FPrepare prepare, FAnswered answered, FFailed failed)
    : m_answered(std::move(answered))
    , m_failed(std::move(failed))
    , m_shared(new SShared{.owner = this, .prepare = std::move(prepare)})
{
}

CBackgroundSteps::~CBackgroundSteps()
{
    m_shared->owner = nullptr;
}

void CBackgroundSteps::Request(std::shared_ptr<const SInput> original, CProcessSteps steps, std::size_t size)
{
    m_work.Request(
        [shared = m_shared, requested = SRequested{std::move(original), std::move(steps), size}](
            const CBackgroundWork::FIsWanted& isWanted) { return SShared::Do(shared, requested, isWanted); });
}

} // namespace CommonUI::Measurement
