#include "analysis/filter/VoidInterpolation.h"
#include "measurement/Batch.h"
#include "measurement/detail/DescribeLength.h"
#include "measurement/documents/OdtDocument.h"
#include "measurement/documents/ReportDocument.h"
#include "measurement/GrainLimit.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace CommonUI::Measurement
{

using Analysis::SSurface;

namespace
{

// Evenly spaced lines of a surface, from the first to the last without these two.
SInput CutProfiles(const SInput& input, std::size_t count)
{
    const SSurface& surface = input.surface;
    const double height = static_cast<double>(surface.lines) * surface.dy;
    SInput cut{.surface = {.points = surface.points,
                           .lines = count,
                           .dx = surface.dx,
                           .dy = height / static_cast<double>(count + 1),
                           .channel = surface.channel,
                           .fileName = surface.fileName,
                           .date = surface.date},
               .levelling = input.levelling,
               .steps = input.steps,
               .cutoffs = input.cutoffs,
               .sha256 = input.sha256};
    for (std::size_t i = 1; i <= count; ++i) {
        const std::size_t line = i * surface.lines / (count + 1);
        const auto heights = surface.GetLine(line);
        cut.surface.heights.insert(cut.surface.heights.end(), heights.begin(), heights.end());
        cut.notes.emplace_back(CStr::Format(u"Profile %d", i),
                               CStr::Format(u"line %d, at %s of %s", line + 1,
                                            DescribeLength(cut.surface.dy * static_cast<double>(i)),
                                            DescribeLength(height)));
    }
    cut.surface.missing = static_cast<std::size_t>(
        std::ranges::count_if(cut.surface.heights, [](double z) { return std::isnan(z); }));
    return cut;
}

// A run: the surface and the analyses as far as it has come.
class CRun
{
public:
    CRun(SInput& input, const SRequest& request, const CAnalysisPreferencesManager& manager,
         const FBatchReport& report)
        : m_input(input)
        , m_request(request)
        , m_manager(manager)
        , m_report(report)
        , m_showsGrains(request.method.MeasuresGrains())
        , m_grains(std::exchange(m_request.method.grains, {}))
        , m_search(std::exchange(m_request.method.grainSearch, {}))
    {
    }

    // Does a step. @return why it had no effect, or another one than it says; empty otherwise
    CStr Do(const SBatchWork& step, std::size_t number)
    {
        m_number = number;
        m_name = step.name;
        try {
            return std::visit([this](const auto& work) { return this->DoWork(work); }, step.work);
        } catch (const ERequest& error) {
            return CStr::FromUtf8(error.what());
        } catch (const Analysis::ENoPoints& error) {
            return CStr::FromUtf8(error.what());
        }
    }

    // The analysis in force.
    SChoices GetChoices() const { return Choose(m_showsGrains); }

private:
    static CStr DoWork(const SBatchUseless& set) { return set.reason; }
    CStr DoWork(const SStep& step)
    {
        const auto cutoff = FindCutoff(step, m_input.surface);
        Apply(step, m_input.surface);
        if (cutoff)
            m_input.cutoffs.push_back({m_number, *cutoff});
        return {};
    }
    CStr DoWork(const SGrainSearch& search)
    {
        FindGrainLimit({.grainSearch = search}, m_input.surface);
        m_grains = {};
        m_search = search;
        m_showsGrains = true;
        return {};
    }
    CStr DoWork(const SRoughnessSet& set)
    {
        if (m_input.surface.IsProfile() && set.data.GetAnalysis() == EAnalysis::Roughness)
            return u"it is for images, and this is a profile";
        m_request.roughness.push_back(set.data);
        m_showsGrains = false;
        return {};
    }
    CStr DoWork(const SReportTemplate& set)
    {
        const SReportTemplateSettings& layout = set.layout;
        const bool isAboutGrains = IsAboutGrains(layout) && (m_grains || m_search);
        const SChoices choices = Choose(isAboutGrains, &layout);
        CStr remark = ExplainEmptyBlocks(layout, m_input.surface, choices.method);
        if (!ShowsAnything(layout, m_input.surface, choices.method))
            return remark;
        SBatchReport made{m_number, set.name, &layout, m_input, choices, ComputeResults(m_input, choices)};
        if (isAboutGrains && IsAboutRoughness(layout))
            made.roughness = ComputeResults(m_input, Choose(false));
        m_report(std::move(made));
        if (layout.format == EReportFormat::Doc && !HasOdt())
            remark += (remark.IsEmpty() ? CStr() : CStr(u"; ")) + u"written as HTML, since " + CStr(c_noOdt);
        return remark;
    }
    CStr DoWork(const SBatchProfiles& profiles)
    {
        if (m_input.surface.IsProfile())
            return u"the measurement is a profile itself";
        const SInput cut = CutProfiles(m_input, static_cast<std::size_t>(profiles.count));
        SChoices choices = Choose(false);
        choices.surface.clear();
        m_report({m_number, m_name, nullptr, cut, choices, ComputeResults(cut, choices)});
        return {};
    }
    CStr DoWork(const SBatchVoids&)
    {
        if (m_input.surface.missing == 0)
            return u"no point is missing";
        InterpolateVoids(m_input.surface);
        return {};
    }

    // @param layout whose quantities are those of the grains; null for those of the analysis
    SChoices Choose(bool grains, const SReportTemplateSettings* layout = nullptr) const
    {
        SRequest request = m_request;
        if (grains) {
            request.method.grains = m_grains;
            request.method.grainSearch = m_search;
            if (layout)
                request = RequestGrains(std::move(request), *layout);
        }
        return MakeChoices(m_manager, request);
    }

    SInput& m_input;
    SRequest m_request; // without grains
    const CAnalysisPreferencesManager& m_manager;
    const FBatchReport& m_report;
    bool m_showsGrains; // whether they are the analysis in force
    std::optional<SGrainLimit> m_grains;
    std::optional<SGrainSearch> m_search;
    std::size_t m_number = 0;
    CStr m_name{};
};

} // namespace

SBatchOutcome RunBatch(const SBatch& batch, SInput& input, const SRequest& request,
                       const CAnalysisPreferencesManager& manager, const FBatchReport& report)
{
    CRun run(input, request, manager, report);
    std::vector<CStr> remarks;
    std::size_t number = 0;
    for (const SBatchWork& step : batch.steps) {
        const CStr remark = run.Do(step, ++number);
        input.steps.push_back(remark.IsEmpty() ? step.name : step.name + u": " + remark);
        if (!remark.IsEmpty())
            remarks.push_back(CStr::Format(u"step %d, %s", number, input.steps.back()));
    }
    return {run.GetChoices(), std::move(remarks)};
}

} // namespace CommonUI::Measurement
