#include "workbench/see/RoughnessView.h"

#include "measurement/Choices.h"
#include "measurement/ResultSets.h"
#include "qt/selection/QtSelectionDlg.h"
#include "workbench/Texts.h"

#include <exception>

namespace Workbench
{

using namespace CommonUI;
using Measurement::CBackgroundResults;

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

} // namespace

CRoughnessView::CRoughnessView(const char16_t* setName)
    : CResultView(QText(EText::Parameters))
    , m_setName(setName)
    , m_results([this](const CBackgroundResults::SAnswer& answer) { ShowAnswer(answer); })
{
    connect(this, &CResultView::ChooseAsked, this, &CRoughnessView::Choose);
    GetAnalysisPreferencesManager().GetChangeList().Subscribe(*this, &CRoughnessView::OnPreferences,
                                                              m_connection);
    SetSurface(nullptr);
}

CRoughnessView::~CRoughnessView() = default;

EAnalysis CRoughnessView::GetAnalysis() const
{
    return m_input && m_input->surface.IsProfile() ? EAnalysis::RoughnessProfile : EAnalysis::Roughness;
}

void CRoughnessView::SetSurface(std::shared_ptr<const Measurement::SInput> input)
{
    const bool isOther = !IsSameFile(input.get(), m_input.get());
    m_input = std::move(input);
    if (isOther)
        ShowSet({.name = m_setName});
    Compute();
}

void CRoughnessView::Choose()
{
    CQtSelectionDlg dialog(GetAnalysisPreferencesManager(), GetAnalysis(), this);
    dialog.DoModal();
    Q_EMIT Chosen(); // whatever was chosen there, or elsewhere meanwhile
}

void CRoughnessView::OnPreferences(const SPreferencesChange& change)
{
    if (change.analysis == GetAnalysis() && change.kind == EPreferencesChange::Parameters)
        Compute();
}

// What is shown stays until there is something else to show.
void CRoughnessView::Compute()
{
    if (!m_input) {
        m_results.Cancel();
        SetState(QText(EText::NoSurface));
        return;
    }
    SetState(ToQString(Describe(*m_input)) + QLatin1Char('\n') + QText(EText::Computing));
    try {
        m_results.Request(
            m_input, Measurement::MakeChoices(GetAnalysisPreferencesManager(), {.usesPreferences = true}));
    } catch (const std::exception& error) {
        m_results.Cancel();
        ShowAnswer({.error = CStr::FromUtf8(error.what()), .input = m_input});
    }
}

void CRoughnessView::ShowAnswer(const CBackgroundResults::SAnswer& answer)
{
    QString state = ToQString(Describe(*answer.input));
    if (!answer.error.IsEmpty())
        state += QLatin1Char('\n') + ToQString(CStr::Format(Text(EText::NoResults), answer.error));
    SetState(state);
    ShowSet(answer.tables ? Measurement::MakeSurfaceSet(answer.tables->GetResults(), m_setName)
                          : SResultSet{.name = m_setName});
}

} // namespace Workbench
