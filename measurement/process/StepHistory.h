#pragma once

#include "../../export/Export.h"
#include "ProcessStep.h"

#include <cstddef>
#include <vector>

namespace CommonUI::Measurement
{

/// What a change has done to the steps.
enum class EStepChange { Add, Remove, Replace, Move, SwitchOn, SwitchOff, Edit, Sequence };

struct SStepChange {
    EStepChange kind;
    CStr title; ///< of the step that it was done to, or of the sequence
};

/// The steps of a surface with all that was done to them, which can be undone and redone. Of a step that
/// there is not nothing is changed.
class COMMONUIMEASUREMENT_API CStepHistory
{
public:
    CStepHistory();

    const CProcessSteps& GetSteps() const noexcept { return m_states[m_current].steps; }
    /// Null where there is none.
    const SProcessStep* Find(unsigned id) const;
    /// The steps of an earlier session or of a sequence. They are done together, and undone together.
    void Take(const CProcessSteps& steps, const CStr& title);

    /// @param behind the step behind which it comes; 0 for the end
    /// @return the number that the step now has
    unsigned Add(SProcessStep step, unsigned behind = 0);
    void Remove(unsigned id);
    /// Gives a step another set; it stays where it is, on or off.
    void Replace(unsigned id, const SProcessStep& step);
    /// @param by how many places later, or earlier where it is negative; as far as the list goes
    void Move(unsigned id, int by);
    void Switch(unsigned id, bool isOn);
    /// Edits of one number after each other are undone together, up to EndEdit.
    /// @return false where the step cannot have the number
    bool Edit(unsigned id, EStepNumber number, double value);
    void EndEdit() noexcept { m_edited = {}; }

    /// What would be undone or redone; null for nothing.
    const SStepChange* GetUndo() const noexcept;
    const SStepChange* GetRedo() const noexcept;
    void Undo() noexcept;
    void Redo() noexcept;

private:
    struct SState {
        CProcessSteps steps;
        SStepChange by; // what it came from; means nothing of the first
    };
    struct SEdited {
        unsigned id = 0;
        EStepNumber number{};
        friend bool operator==(const SEdited&, const SEdited&) = default;
    };

    std::size_t IndexOf(unsigned id) const;
    void Change(CProcessSteps steps, EStepChange kind, const CStr& title);

    std::vector<SState> m_states; // the first one, and one for each change
    std::size_t m_current = 0;
    unsigned m_lastId = 0;
    SEdited m_edited{}; // what the last change has edited
};

} // namespace CommonUI::Measurement
