#include "settings/catalogue/detail/BuiltInContents.h"
#include "settings/readers/GrainThresholdSettings.h"

namespace CommonUI
{

namespace
{

// Half the height is where the lateral size of a step is measured; what has fewer than five points is more
// likely noise than a grain.
constexpr SGrainThresholdSettings AtHalfTheHeight(Analysis::EGrainKind kind)
{
    return {.kind = kind, .threshold = Analysis::EGrainThreshold::Relative, .value = 50, .minimumPoints = 5};
}

struct SRow {
    EBuiltInSetting setting;
    SGrainThresholdSettings set;
};

constexpr SRow c_rows[] = {
    {EBuiltInSetting::PnPQuickLaunchSimpleThresholdPores, AtHalfTheHeight(Analysis::EGrainKind::Pore)},
    {EBuiltInSetting::PnPQuickLaunchSimpleThresholdParticles,
     AtHalfTheHeight(Analysis::EGrainKind::Particle)},
};

static_assert(HoldsEverySet(ESettingType::PnP, c_rows));

} // namespace

void WriteBuiltInGrainThresholds(EBuiltInSetting setting, CInifile& ini)
{
    FindRow(c_rows, setting)->set.Save(ini);
}

} // namespace CommonUI
