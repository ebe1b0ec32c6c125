#pragma once

#include "../../analysis/surface/Surface.h"
#include "../../export/Export.h"
#include "../ApplySteps.h"
#include "ProcessStep.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace CommonUI::Measurement
{

/// What the steps have made of a surface.
struct SProcessed {
    std::shared_ptr<const SInput> input{}; ///< the surface, with the names of the steps that were done
    /// For each step why it was left out, in a clause; empty where it was done, or is off.
    std::vector<CStr> refusals{};
};

/// Does the steps of a surface, and keeps what has come of them: when a step changes, those before it are not
/// done again. On one thread at a time.
class COMMONUIMEASUREMENT_API CStepProcessor
{
public:
    /// How many results are kept, so that their memory is that of so many surfaces.
    COMMONUI_CONSTANT std::size_t c_mostKept = 4;
    /// Whether somebody still waits for the result.
    using FIsWanted = std::function<bool()>;

    CStepProcessor() = default;
    /// @param mostKept how many results are kept instead, 1 at least: the last one is
    explicit CStepProcessor(std::size_t mostKept)
        : m_mostKept(mostKept)
    {
    }

    /// @param original as it was read
    /// @param isWanted asked before each step whether somebody still waits for the result
    /// @return nothing where nobody does
    /// @throws std::bad_alloc
    std::optional<SProcessed> Run(const std::shared_ptr<const SInput>& original, const CProcessSteps& steps,
                                  const FIsWanted& isWanted);
    /// How many steps the last run had to do.
    std::size_t GetDone() const noexcept { return m_done; }
    /// How many results are kept now.
    std::size_t GetKept() const noexcept { return m_kept.size(); }

private:
    using CSurface = std::shared_ptr<const Analysis::SSurface>;
    // What a number of works, one after the other, have made of the surface.
    struct SKept {
        std::vector<CStepWork> works;
        CSurface surface;
        std::vector<CStr> refusals; // of the works
    };

    SKept FindStart(const std::vector<CStepWork>& works);
    void Do(const CStepWork& work, SKept& state);
    SProcessed Describe(const CProcessSteps& steps, const SKept& state);
    void MakeRoom();

    std::size_t m_mostKept = c_mostKept;
    std::shared_ptr<const SInput> m_original;
    std::vector<SKept> m_kept;          // the one used last stands last
    std::vector<CStepWork> m_last;      // of the last run
    std::vector<CStepWork> m_unchanged; // what the last two runs have in common
    std::size_t m_done = 0;
};

} // namespace CommonUI::Measurement
