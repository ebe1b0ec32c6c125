#include "workbench/analyze/AnalysisView.h"

#include "qt/selection/QtSelectionDlg.h"
#include "workbench/analyze/AnalysisChoice.h"
#include "workbench/analyze/AnalyzeTexts.h"
#include "workbench/Texts.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <utility>

namespace Workbench
{

using namespace CommonUI;

namespace
{

// A name stands for the file, which is the same before and after a step.
bool IsSameFile(const Measurement::SInput* one, const Measurement::SInput* other)
{
    return one && other && one->surface.fileName == other->surface.fileName;
}

// What the results are of: the surface, and what was done to it.
CStr Describe(const Measurement::SInput& input)
{
    const Analysis::SSurface& surface = input.surface;
    CStr text = CStr::Format(Text(EText::Size), CStr::FromUtf8(surface.fileName),
                             static_cast<int>(surface.points), static_cast<int>(surface.lines));
    for (std::size_t i = 0; i < input.steps.size(); ++i)
        text += CStr::Format(u"\n%zu. %s", i + 1, input.steps[i]);
    return text;
}

// Why there is no value at all, as the first quantity has it; empty where there is one.
CStr ReasonOf(const SResultSet& set)
{
    const auto isEmpty = [](const SResultQuantity& quantity) {
        return std::ranges::all_of(quantity.values, [](double value) { return std::isnan(value); });
    };
    if (set.quantities.empty() || set.quantities.front().states.empty() ||
        !std::ranges::all_of(set.quantities, isEmpty))
        return {};
    return set.quantities.front().states.front().state.reason;
}

} // namespace

CAnalysisView::CAnalysisView(const char16_t* setName)
    : CResultView(QText(EText::Parameters))
    , m_setName(setName)
    , m_results([this](const CAnswer& answer) { ShowAnswer(answer); })
{
    connect(this, &CResultView::ChooseAsked, this, &CAnalysisView::Choose);
    GetAnalysisPreferencesManager().GetChangeList().Subscribe(*this, &CAnalysisView::OnPreferences,
                                                              m_connection);
    SetSurface(nullptr);
}

CAnalysisView::~CAnalysisView() = default;

// Of a profile the roughness is that of profiles.
EAnalysis CAnalysisView::GetAnalysis() const
{
    return IsRoughness(m_analysis) && m_input && m_input->surface.IsProfile() ? EAnalysis::RoughnessProfile
                                                                              : m_analysis;
}

CStr CAnalysisView::GetSetName() const
{
    const bool isFirst = m_analysis == EAnalysis::Roughness;
    return isFirst ? CStr(m_setName) : CStr(m_setName) + CAnalysisPreferencesData::GetININame(m_analysis);
}

void CAnalysisView::Clear()
{
    ShowSet({.name = GetSetName()});
}

void CAnalysisView::SetSurface(std::shared_ptr<const Measurement::SInput> input)
{
    const bool isOther = !IsSameFile(input.get(), m_input.get());
    m_input = std::move(input);
    if (isOther)
        Clear();
    Compute();
}

void CAnalysisView::SetAnalysis(EAnalysis analysis, Measurement::SFurtherOptions options,
                                Measurement::SMethod method)
{
    const bool isOther = analysis != m_analysis;
    m_analysis = analysis;
    m_options = std::move(options);
    m_method = std::move(method);
    if (isOther)
        Clear();
    Compute();
}

void CAnalysisView::Choose()
{
    CQtSelectionDlg dialog(GetAnalysisPreferencesManager(), GetAnalysis(), this);
    dialog.DoModal();
    Q_EMIT Chosen(); // whatever was chosen there, or elsewhere meanwhile
}

void CAnalysisView::OnPreferences(const SPreferencesChange& change)
{
    if (change.analysis == GetAnalysis() && change.kind != EPreferencesChange::Outputs)
        Compute();
}

// What is shown stays until there is something else to show.
void CAnalysisView::Compute()
{
    if (!m_input) {
        m_results.Cancel();
        SetState(QText(EText::NoSurface));
        return;
    }
    if (const CStr refusal = ExplainRefusal(m_analysis, m_input->surface, m_options.second.get());
        !refusal.IsEmpty()) {
        m_results.Cancel();
        Clear();
        SetState(ToQString(Describe(*m_input) + u"\n" + refusal));
        Q_EMIT Answered({.input = m_input});
        return;
    }
    SetState(ToQString(Describe(*m_input)) + QLatin1Char('\n') + QText(EText::Computing));
    try {
        m_results.Request(
            m_input, GetAnalysis(),
            Measurement::ChooseAnalysis(GetAnalysis(), GetAnalysisPreferencesManager(), m_options, m_method));
    } catch (const std::exception& error) {
        m_results.Cancel();
        ShowAnswer({.error = CStr::FromUtf8(error.what()), .input = m_input});
    }
}

void CAnalysisView::ShowAnswer(const CAnswer& answer)
{
    QString state = ToQString(Describe(*answer.input));
    const CStr reason = answer.set ? ReasonOf(*answer.set) : answer.error;
    if (!reason.IsEmpty())
        state += QLatin1Char('\n') + ToQString(CStr::Format(Text(EText::NoResults), reason));
    if (answer.grains)
        state += QLatin1Char('\n') + ToQString(CStr::Format(Text(EAnalyzeText::GrainCount),
                                                            static_cast<int>(answer.grains->map.count)));
    SetState(state);
    SResultSet set = answer.set ? std::move(*answer.set) : SResultSet();
    set.name = GetSetName();
    ShowSet(std::move(set));
    Q_EMIT Answered(answer);
}

} // namespace Workbench
