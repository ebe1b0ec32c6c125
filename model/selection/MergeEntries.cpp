#include "model/selection/detail/MergeEntries.h"

#include "model/selection/TemplateInputs.h"

#include <algorithm>

namespace CommonUI
{

namespace
{

using CList = std::vector<CParameter>;

// The same thing in another list: numbers of parameters that were removed are given to new ones.
const CParameter* FindSame(const CList& list, const CParameter& entry)
{
    const auto found = std::ranges::find_if(list, [&](const CParameter& other) {
        return other.GetValue() == entry.GetValue() && other.GetParentValue() == entry.GetParentValue();
    });
    return found == list.end() ? nullptr : &*found;
}

bool HasNumber(const CList& list, int number)
{
    return std::ranges::find(list, number, &CParameter::GetValue) != list.end();
}

void TakeInputs(CParameter& to, const CParameter& from)
{
    for (std::size_t i = 0; i < std::min(to.GetVariableCount(), from.GetVariableCount()); ++i)
        to.GetVariable(i).SetVariableValue(from.GetVariable(i).GetVariableValue());
    to.SetFriendlyString(from.GetFriendlyString());
    to.SetShortFriendlyString(from.GetShortFriendlyString());
}

// What of an entry the user can change, part by part.
class CEntryMerge
{
public:
    CEntryMerge(const CParameter& base, const CParameter& theirs, const CParameter& own)
        : m_base(base)
        , m_theirs(theirs)
        , m_own(own)
        , m_merged(theirs)
    {
        Part([](const CParameter& p) { return p.IsOn(); },
             [](CParameter& to, const CParameter& from) { to.SetOn(from.IsOn()); });
        Part([](const CParameter& p) { return p.GetUnitFactor(); },
             [](CParameter& to, const CParameter& from) { to.SetUnitFactor(from.GetUnitFactor()); });
        Part([](const CParameter& p) { return p.GetFloatFormat(); },
             [](CParameter& to, const CParameter& from) { to.SetFloatFormat(from.GetFloatFormat()); });
        Part([](const CParameter& p) { return p.GetVariableValue(); },
             [](CParameter& to, const CParameter& from) { to.SetVariableValue(from.GetVariableValue()); });
        Part([](const CParameter& p) { return GetInputs(p); }, TakeInputs);
        for (std::size_t i = 0; i < CParameter::c_histogramCount; ++i)
            Part([i](const CParameter& p) { return p.GetHistogramSetup(i); },
                 [i](CParameter& to, const CParameter& from) {
                     to.SetHistogramSetup(i, from.GetHistogramSetup(i));
                 });
    }

    const CParameter& GetMerged() const { return m_merged; }
    ESelectionMark GetMark() const { return m_mark; }

private:
    template<class FGet, class FTake>
    void Part(FGet get, FTake take)
    {
        const auto same = [&](const CParameter& a, const CParameter& b) { return get(a) == get(b); };
        const bool theirsChanged = !same(m_theirs, m_base);
        if (same(m_own, m_base)) {
            if (theirsChanged)
                m_mark = std::max(m_mark, ESelectionMark::Taken);
            return;
        }
        if (theirsChanged && !same(m_theirs, m_own))
            m_mark = ESelectionMark::Kept;
        take(m_merged, m_own);
    }

    const CParameter& m_base;
    const CParameter& m_theirs;
    const CParameter& m_own;
    CParameter m_merged;
    ESelectionMark m_mark = ESelectionMark::None;
};

class CListMerge
{
public:
    CListMerge(const CList& base, const CList& theirs, const CList& own)
        : m_base(base)
        , m_theirs(theirs)
        , m_own(own)
    {
    }

    SMergedEntries Run(const std::function<int()>& nextNumber)
    {
        for (const CParameter& entry : m_theirs)
            AddTheirs(entry);
        for (const CParameter& entry : m_own)
            AddOwn(entry, nextNumber);
        return std::move(m_result);
    }

private:
    void Add(const CParameter& entry, ESelectionMark mark)
    {
        m_result.list.push_back(entry);
        if (mark == ESelectionMark::None)
            return;
        m_result.marks[entry.GetValue()] = mark;
        ++(mark == ESelectionMark::Taken ? m_result.taken : m_result.kept);
    }
    void AddTheirs(const CParameter& entry)
    {
        const CParameter* const base = FindSame(m_base, entry);
        const CParameter* const own = FindSame(m_own, entry);
        if (base && own) {
            const CEntryMerge merge(*base, entry, *own);
            Add(merge.GetMerged(), merge.GetMark());
        } else if (!base) {
            Add(entry, ESelectionMark::Taken);
        } else if (!CParameter::IsEqual(*base, entry)) {
            ++m_result.kept; // removed here, changed there
        }
    }
    void AddOwn(const CParameter& entry, const std::function<int()>& nextNumber)
    {
        const CParameter* const base = FindSame(m_base, entry);
        if (FindSame(m_theirs, entry) && base)
            return;
        if (base && CParameter::IsEqual(*base, entry)) {
            ++m_result.taken; // removed there
            return;
        }
        if (!base && FindInstance(m_theirs, entry.GetParentValue(), GetInputs(entry)) &&
            entry.GetVariableCount() > 0)
            return; // made there as well
        CParameter kept = entry;
        if (HasNumber(m_result.list, entry.GetValue())) {
            kept = CParameter(nextNumber(), entry);
            kept.SetParentValue(entry.GetParentValue());
        }
        Add(kept, base ? ESelectionMark::Kept : ESelectionMark::None);
    }

    const CList& m_base;
    const CList& m_theirs;
    const CList& m_own;
    SMergedEntries m_result{};
};

} // namespace

SMergedEntries MergeEntries(const CList& base, const CList& theirs, const CList& own,
                            const std::function<int()>& nextNumber)
{
    return CListMerge(base, theirs, own).Run(nextNumber);
}

} // namespace CommonUI
