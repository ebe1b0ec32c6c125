#pragma once

#include "../../export/Export.h"
#include "ProcessStep.h"

#include <cstddef>
#include <vector>

namespace CommonUI::Measurement
{

/// What a change has done to the steps.
enum class EStepChange { Add, Remove, Replace, Move, SwitchOn, SwitchOff, Edit, Sequence };

/// A change, as a menu of what can be undone names it.
struct SStepChange {
    EStepChange kind; ///< what was done
    CStr title;       ///< of the step that it was done to, or of the sequence
};

/// The steps of a surface with all that was done to them, which can be undone and redone. Of a step that
/// there is not nothing is changed.
class COMMONUIMEASUREMENT_API CStepHistory
{
public:
    CStepHistory();

    /// The steps as they are now; valid until the next change.
    const CProcessSteps& GetSteps() const noexcept { return m_states[m_current].steps; }
    /// Null where there is none.
    const SProcessStep* Find(unsigned id) const;
    /// The steps of an earlier session or of a sequence. They are done together, and undone together.
    void Take(const CProcessSteps& steps, const CStr& title);

    /// @param behind the step behind which it comes; 0 for the end
    /// @return the number that the step now has
    unsigned Add(SProcessStep step, unsigned behind = 0);
    /// Removes a step; nothing happens where there is none of the number.
    void Remove(unsigned id);
    /// Gives a step another set; it stays where it is, on or off.
    void Replace(unsigned id, const SProcessStep& step);
    /// @param by how many places later, or earlier where it is negative; as far as the list goes
    void Move(unsigned id, int by);
    /// Switches a step; nothing happens where there is none of the number, or it is so already.
    void Switch(unsigned id, bool isOn);
    /// Edits of one number after each other are undone together, up to EndEdit.
    /// @return false where the step cannot have the number
    bool Edit(unsigned id, EStepNumber number, double value);
    /// Closes a run of edits: the next one is undone by itself.
    void EndEdit() noexcept { m_edited = {}; }

    /// What would be undone or redone; null for nothing.
    const SStepChange* GetUndo() const noexcept;
    /// What would be redone; null for nothing.
    const SStepChange* GetRedo() const noexcept;
    /// Takes back the last change; nothing happens where there is none.
    void Undo() noexcept;
    /// Does again what was taken back last; nothing happens where there is none.
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
