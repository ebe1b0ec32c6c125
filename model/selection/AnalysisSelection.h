#pragma once

#include "../../export/Export.h"
#include "../AnalysisPreferencesManager.h"
#include "../GrainAnalysisPreferencesData.h"
#include "SelectionOption.h"

#include <array>
#include <map>
#include <memory>
#include <set>
#include <span>
#include <utility>
#include <vector>

namespace CommonUI
{

/// The lists of an analysis.
enum class ESelectionList { Parameters, Statistics, Outputs };

/// What has come of somebody else's change while a selection was open.
enum class ESelectionMark {
    None,
    Taken, ///< it has been taken over
    Kept   ///< it has not, since the selection has changed the same
};

/// How many changes of somebody else have been taken over, and how many own ones have overruled.
struct SSelectionUpdate {
    int taken = 0; ///< changes of somebody else
    int kept = 0;  ///< own changes that have overruled one

    bool operator==(const SSelectionUpdate& other) const = default;
};

/// The choices of one analysis while a user, or a line of text, changes them: a copy of what the preferences
/// manager has, that knows what it has started from. Commit hands it back; without it nothing has happened.
///
/// What somebody else changes in the manager meanwhile is not lost: Update, and Commit before it hands back,
/// take over what the copy has not changed itself. Own changes stay where both have changed the same part of
/// an entry: whether it is on, its unit, its format, its inputs, its histograms.
///
/// Functions that change something answer false, and change nothing, where they cannot. User-interface thread
/// only; the manager must outlive the selection.
class COMMONUI_API CAnalysisSelection
{
public:
    /// @throws EInternal for a number that is no analysis: "Illegal Analysis value: %d"
    CAnalysisSelection(CAnalysisPreferencesManager& manager, EAnalysis analysis);
    CAnalysisSelection(const CAnalysisSelection&) = delete;
    CAnalysisSelection& operator=(const CAnalysisSelection&) = delete;
    ~CAnalysisSelection();

    /// The analysis of the constructor.
    EAnalysis GetAnalysis() const noexcept { return m_own->GetAnalysis(); }
    /// The copy.
    const CAnalysisPreferencesData& GetData() const noexcept { return *m_own; }
    /// What the manager had when it was last looked at.
    const CAnalysisPreferencesData& GetStored() const noexcept { return *m_stored; }
    /// The entries of one of the copy's lists, on or off, as copies.
    std::vector<CParameter> GetList(ESelectionList list) const;
    /// Whether the copy differs from what is stored.
    bool IsChanged() const;

    /// Switches an entry; a template stays off. @return whether the list has it
    bool SetOn(ESelectionList list, int id, bool on);
    /// @param factor one that CParameter's lists of scalings of lengths offer for the parameter's dimension
    bool SetUnitFactor(int id, CUnit::EUnitFactor factor);
    /// @param format with a count of 1 to 12
    bool SetFormat(int id, const CParameter::SFormatSpecifier& format);
    /// The number of a statistic that has one, which is the percentile. @param percent 0 to 100
    bool SetStatisticValue(int id, double percent);
    /// @param setup with a count of classes as CGrainAnalysisPreferencesData allows it
    bool SetHistogram(int quantity, EGrainHistograms histogram, const CParameter::SHistogramSetup& setup);
    /// Sets one of the analysis's options. @param number as the option has it; false for one that it cannot
    /// have
    bool SetOption(ESelectionOption option, double number);

    /// Makes a parameter from a template and switches it on; one that there is with these values is switched
    /// on instead.
    /// @param values as CheckInputs wants them
    /// @return its number, or CParameter::c_noParent if none can be made
    int AddInstance(int parent, std::span<const double> values);
    /// Gives a parameter that is made from a template other values. False also where another one has them.
    bool ChangeInstance(int id, std::span<const double> values);
    /// Whether it was made by a user, who may remove it: it has a parent, other than the plug-ins' entry.
    static bool IsRemovable(const CParameter& parameter);
    /// Removes a parameter that IsRemovable says may be removed; false for any other.
    bool Remove(int id);

    /// Gives entries the choices that the analysis starts with. What a user has made is switched off.
    void SetDefaults(ESelectionList list, std::span<const int> ids);
    /// Gives an option what the analysis starts with.
    void SetDefault(ESelectionOption option);
    /// Gives entries what is stored. What was made here is removed, and parameters that were removed here are
    /// there again.
    void Revert(ESelectionList list, std::span<const int> ids);
    /// Gives an option what is stored.
    void Revert(ESelectionOption option);

    /// Takes over what has changed in the manager since it was last looked at.
    SSelectionUpdate Update();
    /// What has become of somebody else's change of an entry or an option.
    ESelectionMark GetMark(ESelectionList list, int id) const;
    /// What has become of somebody else's change of an option.
    ESelectionMark GetMark(ESelectionOption option) const;

    /// Hands the copy back, by the manager's setters that compare: listeners hear of what differs, and of
    /// nothing else.
    void Commit();

private:
    using CPreferences = std::unique_ptr<CAnalysisPreferencesData>;

    const CParameter* Find(ESelectionList list, int id, std::vector<CParameter>& entries) const;
    void Put(ESelectionList list, const CParameter& entry);
    void Restore(ESelectionList list, const CParameter& entry, const CAnalysisPreferencesData& source);
    CPreferences MakeDefaults() const;
    int TakeNumber();
    void NoteNumbers(const CAnalysisPreferencesData& data);
    void MergeList(ESelectionList list, const CAnalysisPreferencesData& theirs,
                   CAnalysisPreferencesData& merged, SSelectionUpdate& update);
    void MergeOption(ESelectionOption option, const CAnalysisPreferencesData& theirs,
                     CAnalysisPreferencesData& merged, SSelectionUpdate& update);

    CAnalysisPreferencesManager& m_manager;
    CPreferences m_stored;
    CPreferences m_own;
    // Numbers of parameters that were ever seen. A new parameter under the number of one that was removed
    // would look like that one, changed.
    std::set<int> m_taken;
    std::map<std::pair<ESelectionList, int>, ESelectionMark> m_marks;
    std::map<ESelectionOption, ESelectionMark> m_optionMarks;
};

/// The units in which values of a dimension can be shown, metric ones first; empty where there is nothing to
/// choose.
COMMONUI_API std::vector<CParameter::CScaling> GetScalings(CParameter::EDimension dimension,
                                                           const SBase3D<CUnit>& units);

} // namespace CommonUI
