#pragma once

#include "../../controls/MultiClosure.h"
#include "../../controls/Timer.h"
#include "../../export/Export.h"
#include "BackgroundSteps.h"
#include "PreviewSize.h"
#include "StepHistory.h"

#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace CommonUI::Measurement
{

/// The processing of an open surface: its steps with their history, and what they make of it, computed in the
/// background after each change. While a number is being edited, a preview of fewer points follows at once,
/// without steps that cannot be done on so few; the whole surface follows when the number has come to rest.
///
/// Used on the user-interface thread.
class COMMONUIMEASUREMENT_API CSurfaceProcessing
{
public:
    /// See CBackgroundSteps.
    /// @param isPreview whether a number is being edited; the surface may then have fewer points than it has
    using FPrepare = std::function<CBackgroundSteps::FShow(const SProcessed&, bool isPreview)>;

    /// How long a number has to stay what it is before the whole surface is computed, in ms.
    COMMONUI_CONSTANT unsigned c_restTime = 250;

    /// @param original as it was read; @param prepare called on the threads of whole surfaces and of previews
    CSurfaceProcessing(std::shared_ptr<const SInput> original, const FPrepare& prepare);
    ~CSurfaceProcessing();

    /// The steps with all that can be undone and redone.
    const CStepHistory& GetHistory() const noexcept { return m_history; }
    /// The steps as they are now, which the result may not have caught up with.
    const CProcessSteps& GetSteps() const noexcept { return m_history.GetSteps(); }
    /// The surface as it was read.
    const std::shared_ptr<const SInput>& GetOriginal() const noexcept { return m_original; }
    /// The file has been read again; the steps stay.
    void SetOriginal(std::shared_ptr<const SInput> original);
    /// The time in seconds that a preview should take.
    void SetTarget(double seconds) noexcept { m_previewSize.SetTarget(seconds); }
    /// How many points a preview has, which follows from the times of the last ones.
    const CPreviewSize& GetPreviewSize() const noexcept { return m_previewSize; }

    /// As those of CStepHistory.
    void Take(const CProcessSteps& steps, const CStr& title);
    /// See CStepHistory::Add.
    unsigned Add(SProcessStep step, unsigned behind = 0);
    /// See CStepHistory::Remove.
    void Remove(unsigned id);
    /// See CStepHistory::Replace.
    void Replace(unsigned id, const SProcessStep& step);
    /// See CStepHistory::Move.
    void Move(unsigned id, int by);
    /// See CStepHistory::Switch.
    void Switch(unsigned id, bool isOn);
    /// See CStepHistory::Edit; a preview follows at once, the whole surface when the number has come to rest.
    bool Edit(unsigned id, EStepNumber number, double value);
    /// See CStepHistory::Undo.
    void Undo();
    /// See CStepHistory::Redo.
    void Redo();

    /// Why a step was left out when the steps were done last, in a clause; empty if it was done.
    CStr GetRefusal(unsigned id) const;
    /// Why there is no result of all steps, in a clause; empty if there is.
    const CStr& GetFailure() const noexcept { return m_failure; }
    /// Whether the result for the whole surface is to come.
    bool IsBusy() const noexcept;

    /// Called when the steps are others. Not for edits that go on, only for that which comes to rest.
    CMultiClosure0<void>& GetApplied() noexcept { return m_applied; }
    /// Called when there is anything else to show of the steps: the list, a reason, whether they are done.
    CMultiClosure0<void>& GetChanged() noexcept { return m_changed; }

private:
    void OnChange();
    void RequestPreview();
    void RequestAll();
    void OnRest(CBaseTimer& timer);
    void OnAnswer(const SProcessed& processed);
    void OnFailure(const CStr& reason);
    void OnPreview(double seconds);

    CStepHistory m_history;
    std::shared_ptr<const SInput> m_original;
    CPreviewSize m_previewSize;
    std::map<unsigned, CStr> m_refusals; // by the numbers of the steps
    CStr m_failure{};
    CProcessSteps m_requested{};
    CWinTimer m_rest{c_restTime};
    bool m_isPreviewOld = false; // the number has changed since the one that is computed
    CMultiClosure0<void> m_applied;
    CMultiClosure0<void> m_changed;
    CBackgroundSteps m_whole;
    CBackgroundSteps m_preview;
};

} // namespace CommonUI::Measurement
