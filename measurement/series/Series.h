#pragma once

#include "../../export/Export.h"
#include "../../model/Analysis.h"
#include "../ApplySteps.h"
#include "../Choices.h"
#include "../process/ProcessStep.h"
#include "SurfaceValues.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

namespace CommonUI::Measurement
{

/// One of the surfaces of a series.
struct SSeriesItem {
    CStr name{};                           ///< as the table has it
    CStr path{};                           ///< of its file
    std::shared_ptr<const SInput> input{}; ///< of a surface that is open; null: the file is read
    CProcessSteps steps{};                 ///< done to it first
};

/// What has come of a surface.
struct SSeriesRow {
    CStr name{};              ///< as the item has it
    CStr path{};              ///< as the item has it
    SSurfaceValues found{};   ///< without values where it failed
    std::size_t rowCount = 0; ///< of its profiles or grains
    /// Why it failed, in a sentence or clause, or which step was left out.
    CStr remark{};
    bool hasFailed = false; ///< a surface of which nothing is asked for has no values, too

    /// Whether the surface could not be read or analysed.
    bool HasFailed() const noexcept { return hasFailed; }
};

/// What a series is asked for. It holds all that the threads need: whatever is opened, changed or closed
/// meanwhile does not matter.
struct COMMONUIMEASUREMENT_API SSeriesRequest {
    /// Whether somebody still waits for the series; may be asked from any thread.
    using FIsWanted = std::function<bool()>;

    std::vector<SSeriesItem> items{};          ///< in the order of the rows
    EAnalysis analysis = EAnalysis::Roughness; ///< which one is done
    SChoices choices{};                        ///< of ChooseAnalysis for the analysis
    /// Reads a file, from any thread, or throws; it may give up, with any answer, when nobody waits any more.
    std::function<Analysis::SSurface(const CStr& path, const FIsWanted&)> read{};
    /// Why the analysis has no results of a surface, in a sentence, empty where it has; from any thread.
    std::function<CStr(const Analysis::SSurface&)> refuse{};

    /// Whether a row has the means over the profiles or the grains of its surface.
    bool HasMeans() const noexcept;
    /// Of which a row has values.
    const std::vector<CParameter>& GetParameters() const noexcept;
};

/// Analyses many surfaces in the background, as many at a time as there are processors, each on one thread
/// and kept no longer than that; those of several series, and what was given up, count together. A surface
/// that fails is a row with the reason. Whoever goes waits for
/// nothing, as with CBackgroundWork.
///
/// Used on the user-interface thread.
class COMMONUIMEASUREMENT_API CSeries
{
public:
    /// @param rows in the order of the surfaces
    using FDone = std::function<void(std::vector<SSeriesRow> rows)>;

    /// @param done called on the user-interface thread when all surfaces are done; not after Cancel
    explicit CSeries(FDone done);
    ~CSeries();
    CSeries(const CSeries&) = delete;
    CSeries& operator=(const CSeries&) = delete;

    /// Begins with the surfaces, in place of those before. Of no surface it is done later, too.
    void Start(SSeriesRequest request);
    /// Gives up at once; nobody hears of what was computed.
    void Cancel();
    /// Whether a series has begun and is not done.
    bool IsBusy() const noexcept;
    /// How many surfaces are done, of them failed.
    std::size_t GetDone() const noexcept;
    /// How many surfaces have failed so far; 0 when nothing runs.
    std::size_t GetFailed() const noexcept;

private:
    struct SRun;

    void OnWorker(const std::shared_ptr<SRun>& run);

    FDone m_done;
    std::shared_ptr<SRun> m_run;
};

} // namespace CommonUI::Measurement
