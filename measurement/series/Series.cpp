#include "measurement/series/Series.h"

#include "analysis/numeric/SingleThread.h"
#include "common/PathText.h"
#include "common/StringTable.h"
#include "measurement/BackgroundWork.h"
#include "measurement/process/StepProcessor.h"
#include "measurement/Results.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <new>
#include <optional>
#include <thread>
#include <utility>

namespace CommonUI::Measurement
{

namespace
{

using CInput = std::shared_ptr<const SInput>;
using FIsWanted = SSeriesRequest::FIsWanted;

constexpr int c_noMemory = 12221;

// How many surfaces all series of the process work on. What was given up goes on for a while, and shall not
// get more and more by what is begun meanwhile. It stays until the end of the process.
struct SPlaces {
    std::mutex mutex{};
    std::condition_variable changed{};
    std::size_t taken = 0;

    static SPlaces& Get()
    {
        static auto& places = *new SPlaces;
        return places;
    }
    static std::size_t CountAll() noexcept { return std::max(1U, std::thread::hardware_concurrency()); }
};

// The place of one of these surfaces.
class CPlace
{
public:
    // Waits until one is free, or until nobody waits for the surface any more.
    explicit CPlace(const FIsWanted& isWanted)
    {
        constexpr std::chrono::milliseconds c_waitTime{20};
        SPlaces& places = SPlaces::Get();
        std::unique_lock lock(places.mutex);
        do
            m_isTaken =
                places.changed.wait_for(lock, c_waitTime, [&] { return places.taken < SPlaces::CountAll(); });
        while (!m_isTaken && isWanted());
        places.taken += m_isTaken ? 1 : 0;
    }
    ~CPlace()
    {
        if (!m_isTaken)
            return;
        SPlaces& places = SPlaces::Get();
        const std::lock_guard lock(places.mutex);
        --places.taken;
        places.changed.notify_all();
    }
    CPlace(const CPlace&) = delete;
    CPlace& operator=(const CPlace&) = delete;

    bool IsTaken() const noexcept { return m_isTaken; }

private:
    bool m_isTaken = false;
};

// The surface with its steps done. @return null where nobody waits any more
CInput DoSteps(CInput original, const CProcessSteps& steps, const FIsWanted& isWanted, CStr& remark)
{
    if (steps.empty())
        return original;
    CStepProcessor processor(1);
    auto processed = processor.Run(original, steps, isWanted);
    if (!processed)
        return nullptr;
    for (std::size_t i = 0; i < steps.size(); ++i)
        if (const CStr& refusal = processed->refusals[i]; !refusal.IsEmpty())
            remark += (remark.IsEmpty() ? CStr() : CStr(u"; ")) + steps[i].GetTitle() + u": " + refusal;
    return std::move(processed->input);
}

// Readers begin what they say with the path, of which the row has the folder already.
CStr WithoutFolder(const CStr& text, const CStr& path)
{
    if (path.IsEmpty() || text.Left(path.GetLength()) != path)
        return text;
    return CStr(GetFileName(path)) + text.Mid(path.GetLength(), text.GetLength());
}

void Analyse(const SSeriesRequest& request, SSeriesItem item, const FIsWanted& isWanted, SSeriesRow& row)
{
    if (!item.input)
        item.input = std::make_shared<SInput>(SInput{.surface = request.read(item.path, isWanted)});
    const CInput input = DoSteps(std::move(item.input), item.steps, isWanted, row.remark);
    if (!input || !isWanted())
        return;
    if (const CStr refusal = request.refuse(input->surface); !refusal.IsEmpty()) {
        row.remark = refusal;
        row.hasFailed = true;
        return;
    }
    const SResults results = ComputeResults(*input, request.choices);
    row.rowCount = results.rowCount;
    const bool hasMeans = request.HasMeans() && !results.isProfile;
    row.found = hasMeans ? TakeMeans(results, request.GetParameters())
                         : TakeSurfaceValues(results.surface, request.GetParameters());
}

SSeriesRow MakeRow(const SSeriesRequest& request, SSeriesItem item, const FIsWanted& isWanted)
{
    SSeriesRow row{.name = item.name, .path = item.path};
    const CStr path = item.path;
    try {
        Analyse(request, std::move(item), isWanted, row);
    } catch (const std::bad_alloc&) {
        row.hasFailed = true;
        row.remark = GetString(c_noMemory);
    } catch (const std::exception& error) {
        row.hasFailed = true;
        row.remark = WithoutFolder(CStr::FromUtf8(error.what()), path);
    }
    return row;
}

} // namespace

bool SSeriesRequest::HasMeans() const noexcept
{
    return analysis == EAnalysis::RoughnessProfile || analysis == EAnalysis::Measure;
}

const std::vector<CParameter>& SSeriesRequest::GetParameters() const noexcept
{
    return HasMeans() ? choices.rows : choices.surface;
}

// What the threads have. Each surface and its row belong to one of them.
struct CSeries::SRun {
    explicit SRun(SSeriesRequest asked)
        : request(std::move(asked))
        , rows(request.items.size())
    {
    }

    SSeriesRequest request;
    std::vector<SSeriesRow> rows;
    std::atomic<std::size_t> next = 0;
    std::atomic<std::size_t> done = 0;
    std::atomic<std::size_t> failed = 0;
    std::vector<std::unique_ptr<CBackgroundWork>> workers{}; // used by the owner alone
    std::size_t working = 0;                                 // likewise

    void Work(const FIsWanted& isWanted)
    {
        std::optional<Analysis::CSingleThread> single;
        if (request.items.size() > 1)
            single.emplace();
        for (std::size_t i = next++; i < rows.size() && isWanted(); i = next++) {
            const CPlace place(isWanted);
            if (!place.IsTaken())
                return;
            rows[i] = MakeRow(request, std::move(request.items[i]), isWanted);
            failed += rows[i].HasFailed() ? 1 : 0;
            ++done;
        }
    }
};

CSeries::CSeries(FDone done)
    : m_done(std::move(done))
{
}

CSeries::~CSeries()
{
    Cancel();
}

void CSeries::Start(SSeriesRequest request)
{
    Cancel();
    if (request.HasMeans())
        request.choices.surface.clear();
    else
        request.choices.rows.clear();
    const auto run = std::make_shared<SRun>(std::move(request));
    m_run = run;
    run->working = std::clamp<std::size_t>(run->rows.size(), 1, SPlaces::CountAll());
    for (std::size_t i = 0; i < run->working; ++i) {
        run->workers.push_back(std::make_unique<CBackgroundWork>());
        run->workers.back()->Request([this, run](const auto& isWanted) {
            run->Work(isWanted);
            return [this, run] { OnWorker(run); };
        });
    }
}

// The last one has all rows.
void CSeries::OnWorker(const std::shared_ptr<SRun>& run)
{
    if (run != m_run || --run->working > 0)
        return;
    run->workers.clear();
    m_run = nullptr;
    m_done(std::move(run->rows));
}

void CSeries::Cancel()
{
    if (m_run)
        m_run->workers.clear();
    m_run = nullptr;
}

bool CSeries::IsBusy() const noexcept
{
    return m_run != nullptr;
}

std::size_t CSeries::GetDone() const noexcept
{
    return m_run ? m_run->done.load() : 0;
}

std::size_t CSeries::GetFailed() const noexcept
{
    return m_run ? m_run->failed.load() : 0;
}

} // namespace CommonUI::Measurement
