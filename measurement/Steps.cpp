#include "measurement/Steps.h"

#include "measurement/detail/ReadSet.h"
#include "measurement/NamedSet.h"
#include "settings/readers/RoughnessSettings.h"

namespace CommonUI::Measurement
{

namespace
{

void AddSet(CSettingsFactory& factory, const CStr& userSpec, SSets& sets)
{
    using enum ESettingType;
    SNamedSet set =
        LoadNamedSet(factory, userSpec, {PlaneCorr, Filter, ImageRoughness, ProfileRoughness},
                     u"only plane corrections (PlaneCorr), filters (Filter) and roughness settings "
                     u"(ImageRoughness, ProfileRoughness) can be applied");
    if (set.type == PlaneCorr || set.type == Filter)
        sets.steps.push_back(ReadStep(set, userSpec));
    else
        sets.roughness.push_back(ReadRoughness(set, userSpec));
}

} // namespace

SStep ReadStep(SNamedSet& set, const CStr& subject)
{
    SStep step{.userSpec = subject, .name = set.name, .settings = {}};
    if (set.type == ESettingType::PlaneCorr)
        step.settings = ReadNamedSet<SPlaneCorrectionSettings>(set, subject);
    else
        step.settings = ReadNamedSet<SFilterSettings>(set, subject);
    return step;
}

SRoughnessSet ReadRoughness(SNamedSet& set, const CStr& subject)
{
    const auto analysis =
        set.type == ESettingType::ImageRoughness ? EAnalysis::Roughness : EAnalysis::RoughnessProfile;
    const CFailureReason reason;
    CRoughnessAnalysisPreferencesData data(analysis);
    if (!LoadRoughnessSettings(set.settings, data))
        throw ERequest(subject, reason.GetText());
    return {subject, set.name, std::move(data)};
}

SSets LoadSets(CSettingsFactory& factory, const std::vector<CStr>& userSpecs)
{
    SSets sets;
    for (const CStr& userSpec : userSpecs)
        AddSet(factory, userSpec, sets);
    return sets;
}

} // namespace CommonUI::Measurement
