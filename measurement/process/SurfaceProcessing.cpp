#include "measurement/process/SurfaceProcessing.h"

#include <algorithm>
#include <utility>

namespace CommonUI::Measurement
{

CSurfaceProcessing::CSurfaceProcessing(std::shared_ptr<const SInput> original, const FPrepare& prepare)
    : m_original(std::move(original))
    , m_whole([prepare](const SProcessed& processed) { return prepare(processed, false); },
              [this](const SProcessed& processed, double) { OnAnswer(processed); },
              [this](const CStr& reason) { OnFailure(reason); })
    // Fewer points may refuse what all points do: better without that step than no preview.
    , m_preview([prepare](const SProcessed& processed) { return prepare(processed, true); },
                [this](const SProcessed&, double seconds) { OnPreview(seconds); },
                [](const CStr&) {}) // the whole surface says it
{
    m_rest.SetCallback(*this, &CSurfaceProcessing::OnRest);
}

CSurfaceProcessing::~CSurfaceProcessing() = default;

void CSurfaceProcessing::SetOriginal(std::shared_ptr<const SInput> original)
{
    m_original = std::move(original);
    m_preview.Cancel();
    RequestAll();
    m_changed.Invoke();
}

// A refusal is that of a list of steps that there is no more.
void CSurfaceProcessing::OnChange()
{
    m_rest.SetRunning(false);
    m_preview.Cancel();
    RequestAll();
    m_applied.Invoke();
    m_changed.Invoke();
}

void CSurfaceProcessing::RequestAll()
{
    m_requested = GetSteps();
    m_whole.Request(m_original, m_requested);
}

// One after the other: somebody who turns a wheel sees what comes of it on the way.
void CSurfaceProcessing::RequestPreview()
{
    m_whole.Cancel();
    m_isPreviewOld = m_preview.IsBusy();
    if (!m_isPreviewOld)
        m_preview.Request(m_original, GetSteps(), m_previewSize.Get());
}

void CSurfaceProcessing::OnPreview(double seconds)
{
    m_previewSize.AddTime(seconds);
    if (std::exchange(m_isPreviewOld, false))
        RequestPreview();
}

void CSurfaceProcessing::OnRest(CBaseTimer&)
{
    m_history.EndEdit();
    OnChange();
}

void CSurfaceProcessing::OnAnswer(const SProcessed& processed)
{
    m_failure = CStr();
    m_refusals.clear();
    for (std::size_t i = 0; i < processed.refusals.size(); ++i)
        if (!processed.refusals[i].IsEmpty())
            m_refusals[m_requested[i].id] = processed.refusals[i];
    m_changed.Invoke();
}

void CSurfaceProcessing::OnFailure(const CStr& reason)
{
    m_failure = reason;
    m_changed.Invoke();
}

CStr CSurfaceProcessing::GetRefusal(unsigned id) const
{
    const auto found = m_refusals.find(id);
    return found == m_refusals.end() ? CStr() : found->second;
}

bool CSurfaceProcessing::IsBusy() const noexcept
{
    return m_whole.IsBusy() || m_rest.IsRunning();
}

void CSurfaceProcessing::Take(const CProcessSteps& steps, const CStr& title)
{
    m_history.Take(steps, title);
    OnChange();
}

unsigned CSurfaceProcessing::Add(SProcessStep step, unsigned behind)
{
    const unsigned id = m_history.Add(std::move(step), behind);
    OnChange();
    return id;
}

void CSurfaceProcessing::Remove(unsigned id)
{
    m_history.Remove(id);
    OnChange();
}

void CSurfaceProcessing::Replace(unsigned id, const SProcessStep& step)
{
    m_history.Replace(id, step);
    OnChange();
}

void CSurfaceProcessing::Move(unsigned id, int by)
{
    m_history.Move(id, by);
    OnChange();
}

void CSurfaceProcessing::Switch(unsigned id, bool isOn)
{
    m_history.Switch(id, isOn);
    OnChange();
}

bool CSurfaceProcessing::Edit(unsigned id, EStepNumber number, double value)
{
    const CProcessSteps before = GetSteps();
    if (!m_history.Edit(id, number, value))
        return false;
    if (GetSteps() == before)
        return true;
    m_rest.SetRunning(false);
    m_rest.SetRunning(true); // from now on
    RequestPreview();
    m_changed.Invoke();
    return true;
}

void CSurfaceProcessing::Undo()
{
    m_history.Undo();
    OnChange();
}

void CSurfaceProcessing::Redo()
{
    m_history.Redo();
    OnChange();
}

} // namespace CommonUI::Measurement
