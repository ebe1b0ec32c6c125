#include "measurement/BackgroundResults.h"

#include "measurement/Results.h"

#include <exception>
#include <utility>

namespace CommonUI::Measurement
{

namespace
{

CBackgroundResults::SAnswer Compute(const std::shared_ptr<const SInput>& input, EAnalysis analysis,
                                    const SChoices& choices)
{
    CBackgroundResults::SAnswer answer{.input = input};
    try {
        const SResults results = ComputeResults(*input, choices);
        answer.set = std::make_shared<SResultSet>(MakeAnalysisSet(analysis, results));
        answer.grains = results.grains;
    } catch (const std::bad_alloc&) {
        answer.error = u"there is not enough memory";
    } catch (const std::exception& error) {
        answer.error = CStr::FromUtf8(error.what());
    }
    return answer;
}

} // namespace

CBackgroundResults::CBackgroundResults(FAnswered answered)
    : m_answered(std::move(answered))
{
}

CBackgroundResults::~CBackgroundResults() = default;

void CBackgroundResults::Request(std::shared_ptr<const SInput> input, EAnalysis analysis, SChoices choices)
{
    if (choices.method.further)
        choices.rows.clear();
    m_work.Request([this, input = std::move(input), analysis, choices = std::move(choices)](const auto&) {
        return [this, answer = Compute(input, analysis, choices)] { m_answered(answer); };
    });
}

void CBackgroundResults::Cancel()
{
    m_work.Cancel();
}

} // namespace CommonUI::Measurement
