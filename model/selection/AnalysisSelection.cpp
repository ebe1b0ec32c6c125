#include "model/selection/AnalysisSelection.h"

#include "model/RoughnessAnalysisPreferencesData.h"
#include "model/selection/detail/MergeEntries.h"
#include "model/selection/TemplateInputs.h"

#include <algorithm>
#include <limits>

namespace CommonUI
{

namespace
{

using EList = ESelectionList;
using CData = CAnalysisPreferencesData;
using CList = std::vector<CParameter>;

constexpr EList c_lists[] = {EList::Parameters, EList::Statistics, EList::Outputs};

CList ListOf(const CData& data, EList list)
{
    if (list == EList::Parameters)
        return data.GetParameters();
    return list == EList::Statistics ? data.GetStatistics() : data.GetOutputs();
}

const CParameter* FindIn(const CList& entries, int id)
{
    const auto found = std::find(entries.begin(), entries.end(), id);
    return found == entries.end() ? nullptr : &*found;
}

// The entry with what the user chooses of another one; its own identity stays.
CParameter WithChoices(CParameter entry, const CParameter& choices)
{
    entry.SetOn(choices.IsOn() && !entry.IsTemplate());
    entry.SetUnitFactor(choices.GetUnitFactor());
    entry.SetFloatFormat(choices.GetFloatFormat());
    return entry;
}

bool IsFormat(const CParameter::SFormatSpecifier& format)
{
    const auto& kinds = GetFormatSpecifierEnum();
    return format.count >= 1 && format.count <= 12 &&
           kinds.Find(static_cast<int>(format.type)) != kinds.end();
}

} // namespace

CAnalysisSelection::CAnalysisSelection(CAnalysisPreferencesManager& manager, EAnalysis analysis)
    : m_manager(manager)
    , m_stored(manager.GetData(analysis).Clone())
    , m_own(m_stored->Clone())
{
    NoteNumbers(*m_stored);
}

CAnalysisSelection::~CAnalysisSelection() = default;

CList CAnalysisSelection::GetList(EList list) const
{
    return ListOf(*m_own, list);
}

bool CAnalysisSelection::IsChanged() const
{
    return m_own->Compare(*m_stored) != CData::SDifferences();
}

const CParameter* CAnalysisSelection::Find(EList list, int id, CList& entries) const
{
    entries = GetList(list);
    return FindIn(entries, id);
}

void CAnalysisSelection::Put(EList list, const CParameter& entry)
{
    if (list == EList::Parameters)
        m_own->SetParameter(entry.GetValue(), entry);
    else if (list == EList::Statistics)
        m_own->SetStatistic(entry.GetValue(), entry);
    else
        m_own->SetOutput(entry.GetValue(), entry);
}

bool CAnalysisSelection::SetOn(EList list, int id, bool on)
{
    if (list == EList::Parameters)
        return m_own->SetParameterOn(id, on);
    return list == EList::Statistics ? m_own->SetStatsOn(id, on) : m_own->SetOutputOn(id, on);
}

bool CAnalysisSelection::SetUnitFactor(int id, CUnit::EUnitFactor factor)
{
    CList entries;
    const CParameter* const found = Find(EList::Parameters, id, entries);
    if (!found)
        return false;
    const CUnit metre(CUnit::EUnitFactor::Unity);
    const auto offered = GetScalings(found->GetDimension(), {metre, metre, metre});
    if (std::ranges::find(offered, factor, &CParameter::CScaling::first) == offered.end())
        return false;
    CParameter entry = *found;
    entry.SetUnitFactor(factor);
    Put(EList::Parameters, entry);
    return true;
}

bool CAnalysisSelection::SetFormat(int id, const CParameter::SFormatSpecifier& format)
{
    CList entries;
    const CParameter* const found = Find(EList::Parameters, id, entries);
    if (!found || !IsFormat(format))
        return false;
    CParameter entry = *found;
    entry.SetFloatFormat(format);
    Put(EList::Parameters, entry);
    return true;
}

bool CAnalysisSelection::SetStatisticValue(int id, double percent)
{
    CList entries;
    const CParameter* const found = Find(EList::Statistics, id, entries);
    if (!found || id != static_cast<int>(EStatistics::Fractile) || !(percent >= 0 && percent <= 100))
        return false;
    CParameter entry = *found;
    entry.SetVariableValue(percent);
    Put(EList::Statistics, entry);
    return true;
}

bool CAnalysisSelection::SetHistogram(int quantity, EGrainHistograms histogram,
                                      const CParameter::SHistogramSetup& setup)
{
    auto* const grains = dynamic_cast<CGrainAnalysisPreferencesData*>(m_own.get());
    return grains && grains->SetHistogramSetup(static_cast<EMeasureParameters>(quantity), histogram, setup);
}

bool CAnalysisSelection::SetOption(ESelectionOption option, double number)
{
    return SetSelectionOption(*m_own, option, number);
}

void CAnalysisSelection::NoteNumbers(const CData& data)
{
    const std::vector<int> ids = data.GetParameterIDs();
    m_taken.insert(ids.begin(), ids.end());
}

int CAnalysisSelection::TakeNumber()
{
    int number = m_own->FindParameterMaxValue();
    while (m_taken.contains(number))
        number = number == std::numeric_limits<int>::max() ? 1 : number + 1;
    m_taken.insert(number);
    return number;
}

int CAnalysisSelection::AddInstance(int parent, std::span<const double> values)
{
    CList entries;
    const CParameter* const found = Find(EList::Parameters, parent, entries);
    if (!found || !found->IsTemplate() || CheckInputs(*found, values))
        return CParameter::c_noParent;
    if (const CParameter* const same = FindInstance(entries, parent, values)) {
        SetOn(EList::Parameters, same->GetValue(), true);
        return same->GetValue();
    }
    CParameter made = MakeInstance(TakeNumber(), *found, values);
    made.SetOn(true);
    Put(EList::Parameters, made);
    return made.GetValue();
}

bool CAnalysisSelection::ChangeInstance(int id, std::span<const double> values)
{
    CList entries;
    const CParameter* const old = Find(EList::Parameters, id, entries);
    const CParameter* const parent = old ? FindIn(entries, old->GetParentValue()) : nullptr;
    if (!parent || !parent->IsTemplate() || CheckInputs(*parent, values))
        return false;
    const CParameter* const same = FindInstance(entries, parent->GetValue(), values);
    if (same && same != old)
        return false;
    Put(EList::Parameters, WithChoices(MakeInstance(id, *parent, values), *old));
    return true;
}

bool CAnalysisSelection::IsRemovable(const CParameter& parameter)
{
    return parameter.HasParent() &&
           parameter.GetParentValue() != static_cast<int>(ERoughnessParameters::PlugIn);
}

bool CAnalysisSelection::Remove(int id)
{
    CList entries;
    const CParameter* const found = Find(EList::Parameters, id, entries);
    if (!found || !IsRemovable(*found))
        return false;
    entries.erase(std::find(entries.begin(), entries.end(), id));
    return m_own->SetParameters(entries);
}

CAnalysisSelection::CPreferences CAnalysisSelection::MakeDefaults() const
{
    CPreferences defaults = m_own->Clone();
    defaults->Init();
    return defaults;
}

// An entry with the choices of `source`. The histograms of a grain quantity go with its output, not with the
// parameter that holds them.
void CAnalysisSelection::Restore(EList list, const CParameter& entry, const CData& source)
{
    const auto* const grains = dynamic_cast<const CGrainAnalysisPreferencesData*>(&source);
    CParameter restored = entry;
    CList own;
    const CParameter* const before = Find(list, entry.GetValue(), own);
    const std::vector<int> quantities = source.GetParameterIDs();
    const bool hasQuantity = std::ranges::find(quantities, entry.GetValue()) != quantities.end();
    for (std::size_t i = 0; i < CParameter::c_histogramCount; ++i) {
        const auto histogram = static_cast<EGrainHistograms>(i);
        const auto quantity = static_cast<EMeasureParameters>(entry.GetValue());
        if (before)
            restored.SetHistogramSetup(i, before->GetHistogramSetup(i));
        if (grains && list == EList::Outputs && hasQuantity)
            SetHistogram(entry.GetValue(), histogram, grains->GetHistogramSetup(quantity, histogram));
    }
    Put(list, restored);
}

void CAnalysisSelection::SetDefaults(EList list, std::span<const int> ids)
{
    const CPreferences source = MakeDefaults();
    const CList defaults = ListOf(*source, list);
    for (const int id : ids) {
        if (const CParameter* const entry = FindIn(defaults, id))
            Restore(list, *entry, *source);
        else
            SetOn(list, id, false);
    }
}

void CAnalysisSelection::SetDefault(ESelectionOption option)
{
    SetOption(option, GetSelectionOption(*MakeDefaults(), option));
}

void CAnalysisSelection::Revert(EList list, std::span<const int> ids)
{
    const CList stored = ListOf(*m_stored, list);
    for (const int id : ids) {
        if (const CParameter* const entry = FindIn(stored, id))
            Restore(list, *entry, *m_stored);
        else
            Remove(id);
    }
    if (list != EList::Parameters)
        return;
    CList entries = GetList(list);
    for (const CParameter& entry : stored)
        if (!FindIn(entries, entry.GetValue()))
            entries.push_back(entry);
    m_own->SetParameters(entries);
}

void CAnalysisSelection::Revert(ESelectionOption option)
{
    SetOption(option, GetSelectionOption(*m_stored, option));
}

void CAnalysisSelection::MergeList(EList list, const CData& theirs, CData& merged, SSelectionUpdate& update)
{
    SMergedEntries result = MergeEntries(ListOf(*m_stored, list), ListOf(theirs, list), GetList(list),
                                         [this] { return TakeNumber(); });
    for (const auto& [id, mark] : result.marks)
        m_marks[{list, id}] = mark;
    update.taken += result.taken;
    update.kept += result.kept;
    if (list == EList::Parameters)
        merged.SetParameters(result.list);
    else if (list == EList::Statistics)
        merged.SetStatistics(result.list);
    else
        merged.SetOutputs(result.list);
}

void CAnalysisSelection::MergeOption(ESelectionOption option, const CData& theirs, CData& merged,
                                     SSelectionUpdate& update)
{
    const double before = GetSelectionOption(*m_stored, option);
    const double own = GetSelectionOption(*m_own, option);
    const double other = GetSelectionOption(theirs, option);
    if (own != before)
        SetSelectionOption(merged, option, own);
    if (other == before || other == own)
        return;
    m_optionMarks[option] = own == before ? ESelectionMark::Taken : ESelectionMark::Kept;
    ++(own == before ? update.taken : update.kept);
}

SSelectionUpdate CAnalysisSelection::Update()
{
    SSelectionUpdate update;
    const CData& theirs = m_manager.GetData(GetAnalysis());
    if (theirs.Compare(*m_stored) == CData::SDifferences())
        return update;
    NoteNumbers(theirs);
    CPreferences merged = theirs.Clone();
    for (const EList list : c_lists)
        MergeList(list, theirs, *merged, update);
    for (const ESelectionOption option : GetSelectionOptions())
        MergeOption(option, theirs, *merged, update);
    m_stored = theirs.Clone();
    m_own = std::move(merged);
    return update;
}

ESelectionMark CAnalysisSelection::GetMark(EList list, int id) const
{
    const auto found = m_marks.find({list, id});
    return found == m_marks.end() ? ESelectionMark::None : found->second;
}

ESelectionMark CAnalysisSelection::GetMark(ESelectionOption option) const
{
    const auto found = m_optionMarks.find(option);
    return found == m_optionMarks.end() ? ESelectionMark::None : found->second;
}

void CAnalysisSelection::Commit()
{
    using FSet = bool (CAnalysisPreferencesManager::*)(EAnalysis, CList&);
    constexpr std::pair<EList, FSet> c_setters[] = {
        {EList::Parameters, &CAnalysisPreferencesManager::SetDataParameters},
        {EList::Statistics, &CAnalysisPreferencesManager::SetDataStatistics},
        {EList::Outputs, &CAnalysisPreferencesManager::SetDataOutputs}};
    for (const auto& [list, set] : c_setters) {
        Update(); // a listener may have changed the rest
        CList entries = GetList(list);
        (m_manager.*set)(GetAnalysis(), entries);
    }
    Update();
    m_manager.SetData(GetAnalysis(), *m_own);
    Update();
}

std::vector<CParameter::CScaling> GetScalings(CParameter::EDimension dimension, const SBase3D<CUnit>& units)
{
    auto scalings = CParameter::GetScalingsList(dimension, units);
    for (CParameter::CScaling& scaling : CParameter::GetUSMetricScalingsList(dimension, units))
        scalings.push_back(std::move(scaling));
    return scalings;
}

} // namespace CommonUI
