#pragma once

#include "../analysis/form/Levelling.h"
#include "../analysis/grain/Grains.h"
#include "../analysis/profile/ProfileParameters.h"
#include "../common/Exceptions.h"
#include "../common/Str.h"
#include "../common/Unit.h"
#include "../export/Export.h"
#include "../model/RoughnessAnalysisPreferencesData.h"
#include "../settings/readers/GrainThresholdSettings.h"
#include "FurtherAnalysis.h"

#include <optional>
#include <vector>

namespace CommonUI::Measurement
{

/// Which grains are measured.
struct SGrainLimit {
    double threshold;                      ///< height in m on the surface as it is analysed
    Analysis::EGrainKind kind;             ///< whether they rise above the threshold or lie below it
    Analysis::SGrainSelection selection{}; ///< which of them count
    CStr rule{};                           ///< how the threshold was found; empty where it was given
};

/// How grains are found on each surface.
struct SGrainSearch {
    CStr name;                        ///< of the set, where it stands in a menu
    SGrainThresholdSettings settings; ///< how grains are found and which of them count
};

/// How a surface is analysed.
struct SMethod {
    Analysis::ELevelling levelling =
        Analysis::ELevelling::None;      ///< what is done to the surface before all else
    std::optional<double> cutoff{};      ///< of the profile filter, m; a fifth of the profile without it
    std::optional<SGrainLimit> grains{}; ///< measured instead of the roughness
    /// Likewise, where no limit is given: it is found on the surface.
    std::optional<SGrainSearch> grainSearch{};
    std::optional<Analysis::SMotifLimits> motifLimits{}; ///< those for the length of the profiles without it
    Analysis::SValleyMethod valleys{};                   ///< MakeChoices takes it from the preferences
    std::optional<SFurtherAnalysis> further{};           ///< done instead of the roughness and of grains

    /// What the parameters of profiles need of it.
    Analysis::SProfileMethod OfProfiles() const { return {cutoff, motifLimits, valleys}; }
    /// Whether grains are measured, within a limit or by a search.
    bool MeasuresGrains() const { return grains || grainSearch; }
};

/// What somebody asks for beyond the preferences.
struct SRequest {
    SMethod method{}; ///< how the surface is analysed
    /// Parameters, units and formats are those of the preferences; without it all parameters of surfaces and
    /// profiles and the usual ones of grains, each in the unit that suits it.
    bool usesPreferences = false;
    /// What counts instead of the preferences of these roughness analyses; of two of one analysis the later
    /// one.
    std::vector<CRoughnessAnalysisPreferencesData> roughness{};
    /// The parameters by key; empty for those of above. A template has the values of its variables behind its
    /// key, in m or percent, and means the parameter that is made from it, such as "Sdc(10,50)".
    std::vector<CStr> keys{};
    std::optional<CUnit::EUnitFactor> unit{}; ///< the unit factor of all lengths, areas and volumes
};

/// What was asked for cannot be done. The message is one line: what is at fault, as it was given, and why.
class COMMONUIMEASUREMENT_API ERequest : public EInput
{
public:
    /// @param subject what is at fault, such as a user specification; empty where the reason says it
    ERequest(const CStr& subject, const CStr& reason);
    ~ERequest() override;

    /// Empty where the message starts with the reason.
    const CStr& GetSubject() const noexcept { return m_subject; }

private:
    CStr m_subject;
};

/// A settings set was asked for that does not exist.
class COMMONUIMEASUREMENT_API EUnknownSet : public ERequest
{
public:
    /// @param userSpec by which the set was asked for; the subject of the message
    explicit EUnknownSet(const CStr& userSpec);
    ~EUnknownSet() override;
};

} // namespace CommonUI::Measurement
