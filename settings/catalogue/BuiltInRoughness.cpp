#include "settings/catalogue/detail/BuiltInContents.h"
#include "settings/readers/RoughnessSettings.h"

#include <initializer_list>
#include <ranges>

namespace CommonUI
{

namespace
{

static_assert(HoldsEverySet(ESettingType::ImageRoughness, EBuiltInSetting::bisRoughnessImageVORNClassic));
static_assert(HoldsEverySet(ESettingType::ProfileRoughness, EBuiltInSetting::bisRoughnessProfileVORNClassic));

// The defaults of the analysis with other parameters on, all of them of the standard VORNLegacy, and the
// first of them in the chart.
void WriteClassic(EAnalysis analysis, std::initializer_list<ERoughnessParameters> on, CInifile& ini)
{
    CRoughnessAnalysisPreferencesData data(analysis);
    for (const int id : data.GetParameterIDs())
        data.SetParameterOn(id, false);
    for (const ERoughnessParameters parameter : on)
        data.SetParameterOn(static_cast<int>(parameter), true);
    auto chart = data.GetBarChartConfig();
    chart.parameter = *on.begin();
    data.SetBarChartConfig(chart);
    SaveRoughnessSettings(data, ini);
}

} // namespace

void WriteBuiltInImageRoughness(EBuiltInSetting, CInifile& ini)
{
    using enum ERoughnessParameters;
    WriteClassic(EAnalysis::Roughness, {Sa, Sq, Ssk, Sku, Sp, Sv, Sz, Smean}, ini);
}

void WriteBuiltInProfileRoughness(EBuiltInSetting, CInifile& ini)
{
    using enum ERoughnessParameters;
    WriteClassic(EAnalysis::RoughnessProfile,
                 {ProfileRa, ProfileRq, ProfileRsk, ProfileRku, ProfileRp, ProfileRv, ProfileRz, ProfileRt,
                  ProfileRmean},
                 ini);
}

} // namespace CommonUI
