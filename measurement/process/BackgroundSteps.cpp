#include "measurement/process/BackgroundSteps.h"

#include "analysis/surface/Decimate.h"
#include "measurement/detail/LatestWorker.h"
#include "measurement/process/PreviewSize.h"
#include "platform/MessageLoop.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <exception>
#include <map>
#include <mutex>
#include <new>
#include <utility>

namespace CommonUI::Measurement
{

using CClock = std::chrono::steady_clock;

namespace
{

struct SRequested {
    unsigned number = 0;
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
    CMessageLoop& loop;
    FPrepare prepare;
    std::atomic<unsigned> wanted{0}; // the request that somebody waits for
    std::mutex mutex{};              // the loop is there while it is held and the thread has not been left
    bool isLeft = false;
    CStepProcessor processor{};
    CSmaller smaller{};

    static void Post(const std::shared_ptr<SShared>& self, unsigned request, FShow message)
    {
        const std::lock_guard lock(self->mutex);
        if (self->isLeft)
            return;
        self->loop.Post([self, request, message = std::move(message)] {
            if (self->owner)
                self->owner->Tell(request, message);
        });
    }
    static void Do(const std::shared_ptr<SShared>& self, SRequested requested)
    {
        CStr reason;
        try {
            MakeSmaller(requested, self->smaller);
            const auto begin = CClock::now();
            const auto isWanted = [&] { return self->wanted == requested.number; };
            const auto processed = self->processor.Run(requested.original, requested.steps, isWanted);
            if (!processed || !isWanted())
                return;
            const FShow show = self->prepare(*processed);
            const double seconds = SecondsSince(begin);
            return Post(self, requested.number, [self, show, processed, seconds] {
                const auto beginOfShow = CClock::now();
                show();
                if (self->owner)
                    self->owner->m_answered(*processed, seconds + SecondsSince(beginOfShow));
            });
        } catch (const std::bad_alloc&) {
            reason = u"there is not enough memory";
        } catch (const std::exception& error) {
            reason = CStr::FromUtf8(error.what());
        }
        Post(self, requested.number, [self, reason] { self->owner->m_failed(reason); });
    }
};

class CBackgroundSteps::CWorker : public CLatestWorker<SRequested>
{
public:
    using CLatestWorker::CLatestWorker;
};

CBackgroundSteps::CBackgroundSteps(FPrepare prepare, FAnswered answered, FFailed failed)
    : m_answered(std::move(answered))
    , m_failed(std::move(failed))
    , m_shared(new SShared{.owner = this, .loop = GetMessageLoop(), .prepare = std::move(prepare)})
    , m_worker(std::make_unique<CWorker>(
          [shared = m_shared](const SRequested& requested) { SShared::Do(shared, requested); }))
{
}

CBackgroundSteps::~CBackgroundSteps()
{
    m_shared->owner = nullptr;
    ++m_shared->wanted;
    {
        const std::lock_guard lock(m_shared->mutex);
        m_shared->isLeft = true;
    }
    m_worker->Abandon();
}

void CBackgroundSteps::Request(std::shared_ptr<const SInput> original, CProcessSteps steps, std::size_t size)
{
    m_isBusy = true;
    m_worker->Request(SRequested{++m_shared->wanted, std::move(original), std::move(steps), size});
}

void CBackgroundSteps::Cancel()
{
    ++m_shared->wanted;
    m_isBusy = false;
    m_worker->Request(std::nullopt);
}

void CBackgroundSteps::Tell(unsigned request, const FShow& message)
{
    if (request != m_shared->wanted)
        return;
    m_isBusy = false;
    message();
}

} // namespace CommonUI::Measurement
