#include "settings/catalogue/detail/BuiltInContents.h"
#include "settings/readers/AnimationSettings.h"

namespace CommonUI
{

static_assert(HoldsEverySet(ESettingType::Animation, EBuiltInSetting::AnimationQuickLaunchDemo));

void WriteBuiltInAnimation(EBuiltInSetting, CInifile& ini)
{
    // A full turn that goes down towards the surface, up again for a look from above, and back to its start.
    SAnimationSettings{.duration = 12,
                       .framesPerSecond = 25,
                       .loop = true,
                       .keyFrames = {{0, {0, 35, 1}},
                                     {0.25, {90, 20, 1.3}},
                                     {0.5, {180, 35, 1}},
                                     {0.75, {270, 60, 0.9}},
                                     {1, {360, 35, 1}}}}
        .Save(ini);
}

} // namespace CommonUI
