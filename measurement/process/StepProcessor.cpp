#include "measurement/process/StepProcessor.h"

#include "analysis/filter/VoidInterpolation.h"

#include <algorithm>
#include <exception>
#include <new>
#include <utility>

namespace CommonUI::Measurement
{

namespace
{

using Analysis::SSurface;

bool ChangesSurface(const SProcessStep& step)
{
    return step.isOn && !std::holds_alternative<SNoChange>(step.work);
}

bool IsStartOf(const std::vector<CStepWork>& start, const std::vector<CStepWork>& works)
{
    return start.size() <= works.size() && std::equal(start.begin(), start.end(), works.begin());
}

// Each answers why it cannot be done; empty if it was. Too little memory is no answer, as there may be enough
// the next time.
CStr DoWork(const auto& settings, SSurface& surface)
{
    try {
        Apply({.userSpec = {}, .name = {}, .settings = settings}, surface);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        return CStr::FromUtf8(error.what());
    }
    return {};
}

CStr DoWork(const SInterpolation&, SSurface& surface)
{
    if (surface.missing == 0)
        return u"no point is missing";
    if (surface.missing == surface.heights.size())
        return u"all points are missing";
    Analysis::InterpolateVoids(surface);
    return {};
}

CStr DoWork(const SNoChange&, SSurface&)
{
    return {};
}

std::vector<CStepWork> WorksOf(const CProcessSteps& steps)
{
    std::vector<CStepWork> works;
    for (const SProcessStep& step : steps)
        if (ChangesSurface(step))
            works.push_back(step.work);
    return works;
}

std::optional<double> CutoffOf(const SProcessStep& step, const SSurface& surface)
{
    const auto* const filter = std::get_if<SFilterSettings>(&step.work);
    return filter ? FindCutoff({.userSpec = {}, .name = {}, .settings = *filter}, surface) : std::nullopt;
}

void AddStep(const SProcessStep& step, const CStr& refusal, SInput& input)
{
    input.steps.push_back(refusal.IsEmpty() ? step.Describe()
                                            : CStr::Format(u"%s: left out, %s", step.Describe(), refusal));
    const auto cutoff = CutoffOf(step, input.surface);
    if (cutoff && refusal.IsEmpty())
        input.cutoffs.push_back({input.steps.size(), *cutoff});
}

} // namespace

// What there is of the works, as far as possible.
CStepProcessor::SKept CStepProcessor::FindStart(const std::vector<CStepWork>& works)
{
    auto longest = m_kept.end();
    for (auto kept = m_kept.begin(); kept != m_kept.end(); ++kept)
        if (IsStartOf(kept->works, works) &&
            (longest == m_kept.end() || kept->works.size() > longest->works.size()))
            longest = kept;
    if (longest == m_kept.end())
        return {.works = {}, .surface = CSurface(m_original, &m_original->surface), .refusals = {}};
    std::rotate(longest, longest + 1, m_kept.end());
    return m_kept.back();
}

// What is in front of the step that is being changed stays longest.
void CStepProcessor::MakeRoom()
{
    while (m_kept.size() >= m_mostKept) {
        const auto oldest =
            std::ranges::find_if(m_kept, [this](const SKept& kept) { return kept.works != m_unchanged; });
        m_kept.erase(oldest);
    }
}

void CStepProcessor::Do(const CStepWork& work, SKept& state)
{
    MakeRoom();
    ++m_done;
    auto after = std::make_shared<SSurface>(*state.surface);
    CStr refusal = std::visit([&](const auto& settings) { return DoWork(settings, *after); }, work);
    if (refusal.IsEmpty())
        state.surface = std::move(after);
    state.works.push_back(work);
    state.refusals.push_back(std::move(refusal));
    m_kept.push_back(state);
}

std::optional<SProcessed> CStepProcessor::Run(const std::shared_ptr<const SInput>& original,
                                              const CProcessSteps& steps, const FIsWanted& isWanted)
{
    if (original != m_original) {
        m_kept.clear();
        m_original = original;
    }
    const std::vector<CStepWork> all = WorksOf(steps);
    const auto common = std::ranges::mismatch(all, m_last);
    if (!(all == m_last))
        m_unchanged.assign(all.begin(), common.in1);
    m_last = all;
    m_done = 0;
    SKept state = FindStart(all);
    while (state.works.size() < all.size()) {
        if (!isWanted())
            return std::nullopt;
        Do(all[state.works.size()], state);
    }
    return Describe(steps, state);
}

SProcessed CStepProcessor::Describe(const CProcessSteps& steps, const SKept& state)
{
    SProcessed processed{.input = m_original, .refusals = std::vector<CStr>(steps.size())};
    if (state.works.empty())
        return processed;
    auto input = std::make_shared<SInput>(
        SInput{.surface = *state.surface, .levelling = m_original->levelling, .sha256 = m_original->sha256});
    std::size_t work = 0;
    for (std::size_t i = 0; i < steps.size(); ++i) {
        if (!ChangesSurface(steps[i]))
            continue;
        processed.refusals[i] = state.refusals[work++];
        AddStep(steps[i], processed.refusals[i], *input);
    }
    // Whoever shows the last result and who keeps it have one surface.
    m_kept.back().surface = CSurface(input, &input->surface);
    processed.input = std::move(input);
    return processed;
}

} // namespace CommonUI::Measurement
