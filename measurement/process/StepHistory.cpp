#include "measurement/process/StepHistory.h"

#include <algorithm>
#include <utility>

namespace CommonUI::Measurement
{

CStepHistory::CStepHistory()
    : m_states(1)
{
}

std::size_t CStepHistory::IndexOf(unsigned id) const
{
    const CProcessSteps& steps = GetSteps();
    return static_cast<std::size_t>(std::ranges::find(steps, id, &SProcessStep::id) - steps.begin());
}

const SProcessStep* CStepHistory::Find(unsigned id) const
{
    const std::size_t index = IndexOf(id);
    return index < GetSteps().size() ? &GetSteps()[index] : nullptr;
}

void CStepHistory::Change(CProcessSteps steps, EStepChange kind, const CStr& title)
{
    m_edited = {};
    m_states.resize(m_current + 1);
    m_states.push_back({std::move(steps), {kind, title}});
    ++m_current;
}

void CStepHistory::Take(const CProcessSteps& steps, const CStr& title)
{
    CProcessSteps all = GetSteps();
    for (const SProcessStep& step : steps) {
        all.push_back(step);
        all.back().id = ++m_lastId;
    }
    Change(std::move(all), EStepChange::Sequence, title);
}

unsigned CStepHistory::Add(SProcessStep step, unsigned behind)
{
    step.id = ++m_lastId;
    const CStr title = step.GetTitle();
    CProcessSteps steps = GetSteps();
    const std::size_t place = behind == 0 ? steps.size() : std::min(steps.size(), IndexOf(behind) + 1);
    steps.insert(steps.begin() + static_cast<std::ptrdiff_t>(place), std::move(step));
    Change(std::move(steps), EStepChange::Add, title);
    return m_lastId;
}

void CStepHistory::Remove(unsigned id)
{
    const SProcessStep* const step = Find(id);
    if (!step)
        return;
    const CStr title = step->GetTitle();
    CProcessSteps steps = GetSteps();
    std::erase_if(steps, [id](const SProcessStep& other) { return other.id == id; });
    Change(std::move(steps), EStepChange::Remove, title);
}

void CStepHistory::Replace(unsigned id, const SProcessStep& step)
{
    const std::size_t index = IndexOf(id);
    CProcessSteps steps = GetSteps();
    if (index == steps.size())
        return;
    SProcessStep& place = steps[index];
    place = {.id = id,
             .name = step.name,
             .source = step.source,
             .work = step.work,
             .isOn = place.isOn,
             .isEdited = step.isEdited};
    Change(std::move(steps), EStepChange::Replace, step.GetTitle());
}

void CStepHistory::Move(unsigned id, int by)
{
    CProcessSteps steps = GetSteps();
    const std::size_t from = IndexOf(id);
    if (from == steps.size())
        return;
    const auto to = static_cast<std::size_t>(
        std::clamp(static_cast<std::ptrdiff_t>(from) + by, std::ptrdiff_t{0}, std::ssize(steps) - 1));
    if (to == from)
        return;
    const CStr title = steps[from].GetTitle();
    const auto place = [&steps](std::size_t index) {
        return steps.begin() + static_cast<std::ptrdiff_t>(index);
    };
    if (from < to)
        std::rotate(place(from), place(from + 1), place(to + 1));
    else
        std::rotate(place(to), place(from), place(from + 1));
    Change(std::move(steps), EStepChange::Move, title);
}

void CStepHistory::Switch(unsigned id, bool isOn)
{
    const std::size_t index = IndexOf(id);
    CProcessSteps steps = GetSteps();
    if (index == steps.size() || steps[index].isOn == isOn)
        return;
    steps[index].isOn = isOn;
    const CStr title = steps[index].GetTitle();
    Change(std::move(steps), isOn ? EStepChange::SwitchOn : EStepChange::SwitchOff, title);
}

bool CStepHistory::Edit(unsigned id, EStepNumber number, double value)
{
    const std::size_t index = IndexOf(id);
    if (index == GetSteps().size())
        return false;
    SProcessStep step = GetSteps()[index];
    const CStepWork before = step.work;
    if (!SetNumber(step.work, number, value))
        return false;
    if (step.work == before)
        return true;
    step.isEdited = true;
    const SEdited edited{id, number};
    if (edited != m_edited)
        Change(GetSteps(), EStepChange::Edit, step.GetTitle());
    m_edited = edited;
    m_states[m_current].steps[index] = std::move(step);
    return true;
}

const SStepChange* CStepHistory::GetUndo() const noexcept
{
    return m_current > 0 ? &m_states[m_current].by : nullptr;
}

const SStepChange* CStepHistory::GetRedo() const noexcept
{
    return m_current + 1 < m_states.size() ? &m_states[m_current + 1].by : nullptr;
}

void CStepHistory::Undo() noexcept
{
    EndEdit();
    if (m_current > 0)
        --m_current;
}

void CStepHistory::Redo() noexcept
{
    EndEdit();
    if (m_current + 1 < m_states.size())
        ++m_current;
}

} // namespace CommonUI::Measurement
