#include "settings/catalogue/detail/BuiltInContents.h"
#include "settings/readers/GrainThresholdSettings.h"

namespace CommonUI
{

void WriteBuiltInGrainThresholds(EBuiltInSetting setting, CInifile& ini)
{
    const bool pores = setting == EBuiltInSetting::PnPQuickLaunchSimpleThresholdPores;
    // Half the height is where the lateral size of a step is measured; what has fewer than five points is
    // more likely noise than a grain.
    SGrainThresholdSettings{.kind = pores ? Analysis::EGrainKind::Pore : Analysis::EGrainKind::Particle,
                            .threshold = EGrainThreshold::Relative,
                            .value = 50,
                            .minimumPoints = 5}
        .Save(ini);
}

} // namespace CommonUI
