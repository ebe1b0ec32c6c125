#pragma once

#include "../common/ini/Inifile.h"
#include "../controls/MultiClosure.h"
#include "../export/Export.h"
#include "Analysis.h"
#include "AnalysisPreferencesData.h"
#include "RoughnessAnalysisPreferencesData.h"

#include <array>
#include <memory>
#include <vector>

namespace CommonUI
{

/// What of an analysis's preferences has changed.
enum class EPreferencesChange { Parameters = 0, Statistics = 1, Outputs = 2 };

/// What listeners of the preferences manager are told.
struct SPreferencesChange {
    EAnalysis analysis;      ///< whose preferences have changed
    EPreferencesChange kind; ///< which part of them

    bool operator==(const SPreferencesChange& other) const = default;
};

/// Owns the preferences of all analyses, loads and saves them together and tells listeners of changes.
///
/// Listeners are called on the thread of whoever changes something, after the change and before the setter
/// returns. They may read and change preferences, but a change of what they are told of calls them again:
/// setters that find nothing to change call nobody, whereas a load always tells of all kinds. User-interface
/// thread only.
///
/// The manager must outlive the calls of its listeners.
///
/// Every function that takes an analysis throws EInternal for a number that is none: "Illegal Analysis value:
/// %d".
class COMMONUI_API CAnalysisPreferencesManager
{
public:
    /// What listeners subscribe to.
    using CChangeList = CMultiClosure1<void, const SPreferencesChange&>;

    /// All analyses with their defaults. An application needs only the one of GetAnalysisPreferencesManager.
    CAnalysisPreferencesManager();
    CAnalysisPreferencesManager(const CAnalysisPreferencesManager&) = delete;
    CAnalysisPreferencesManager& operator=(const CAnalysisPreferencesManager&) = delete;
    virtual ~CAnalysisPreferencesManager();

    /// Where to subscribe to changes.
    CChangeList& GetChangeList() noexcept { return m_changes; }

    /// The preferences of an analysis: a CRoughnessAnalysisPreferencesData for the two roughness analyses, a
    /// CGrainAnalysisPreferencesData for the grains. The object stays the same as long as the manager lives.
    const CAnalysisPreferencesData& GetData(EAnalysis analysis) const;
    /// Replaces the contents by those of `data`, which may be the base part alone of a roughness or grain
    /// object, and announces those kinds of change that there are; CAnalysisPreferencesData::SDifferences
    /// says which kind stands for what is in no list. Where nothing differs, nobody is told and the object is
    /// not modified.
    /// @return false, and nothing changes, when `data` belongs to another analysis
    bool SetData(EAnalysis analysis, const CAnalysisPreferencesData& data);

    /// Replaces the contents of all analyses by those of another manager, as SetData does for one. Listeners
    /// are told when all are replaced. Without memory nothing has changed, and std::bad_alloc is thrown.
    void Assign(const CAnalysisPreferencesManager& other);

    /// Replaces the parameters, unless they are the same by CParameter::IsEqual in whatever order, and
    /// announces it.
    /// @param list sorted by number, in place
    /// @return false when there was nothing to change
    bool SetDataParameters(EAnalysis analysis, std::vector<CParameter>& list);
    /// The same for statistics and for outputs, each of which replaces the one of its number. When one of
    /// them is unknown, the others are replaced, but nothing is announced.
    bool SetDataStatistics(EAnalysis analysis, std::vector<CParameter>& list);
    /// The same for outputs.
    bool SetDataOutputs(EAnalysis analysis, std::vector<CParameter>& list);
    /// Announced as a change of parameters when it is one.
    /// @return false when there is no such parameter
    bool SetDataParameterOn(EAnalysis analysis, int id, bool on);
    /// Announced as a change of parameters, whose values depend on it, when it is one.
    /// @return false when there is no such option
    bool SetDataPreprocessingNo(EAnalysis analysis, int number);
    /// Announced as a change of outputs when it is one.
    /// @return false when the analysis has no bar chart
    bool SetBarChartConfig(EAnalysis analysis,
                           const CRoughnessAnalysisPreferencesData::SBarChartConfig& config);

    /// Loads or saves one analysis in the current section of `ini`; a load announces all three kinds.
    bool LoadData(EAnalysis analysis, CInifile& ini);
    /// Saves one analysis in the current section; true, as CAnalysisPreferencesData::Save.
    bool SaveData(EAnalysis analysis, CInifile& ini);
    /// Loads or saves all analyses, each in the section named like the current one, "_" and the analysis's
    /// name: "Analysis_TipAnalysis". The current section is current again afterwards.
    /// A load without memory for one analysis leaves it and those behind it alone, tells of the others and
    /// throws std::bad_alloc.
    /// @return whether all of them succeeded; one that fails does not keep the others from being tried
    bool Load(CInifile& ini);
    /// Saves all analyses in the sections that Load reads, and answers as it does.
    bool Save(CInifile& ini) const;

protected:
    // The name is the one that its error message carries.
    /// GetData to be changed by derived classes, which announce nothing by it.
    CAnalysisPreferencesData& _GetData(EAnalysis analysis); // NOLINT(bugprone-reserved-identifier)

private:
    void Announce(EAnalysis analysis, EPreferencesChange kind) const;
    void Announce(EAnalysis analysis, const CAnalysisPreferencesData::SDifferences& differences) const;
    void AnnounceAll(EAnalysis analysis) const;

    std::array<std::unique_ptr<CAnalysisPreferencesData>, 10> m_data; // by number; none is null
    CChangeList m_changes;
};

/// The one manager of the process, made on the first call and never destroyed.
COMMONUI_API CAnalysisPreferencesManager& GetAnalysisPreferencesManager();

} // namespace CommonUI
