#pragma once

#include "settings/catalogue/BuiltInSetting.h"

#include <array>

namespace CommonUI
{

/// @file
/// Which built-in sets belong together and what they are for: known when the library is compiled, so that the
/// tables of their contents are held to it.

/// @param headingId 0 for a group without a heading
constexpr SBuiltInSettingGroup MakeGroup(ESettingType type, EBuiltInSetting first, EBuiltInSetting last,
                                         int headingId = 0)
{
    return {type, static_cast<int>(first), static_cast<int>(last), headingId};
}

inline constexpr auto c_builtInGroups = [] {
    using enum EBuiltInSetting;
    return std::to_array<SBuiltInSettingGroup>({
        MakeGroup(ESettingType::PlaneCorr, PlaneCorrQuickLaunchAutoLinewise,
                  PlaneCorrQuickLaunchAutoPlaneCorrection1, 10031),
        MakeGroup(ESettingType::PlaneCorr, PlaneCorrQuickLaunchProfileOrder1,
                  PlaneCorrQuickLaunchProfileZeroBackground, 10032),
        MakeGroup(ESettingType::ActiveReport, bisActiveReportQuickLaunchBasicDoc,
                  bisActiveReportQuickLaunchPnPStatHTML),
        MakeGroup(ESettingType::Batch, bisBatchQuickLaunchBasicDoc,
                  BatchQuickLaunchProfileRoughnessClassicHTML),
        MakeGroup(ESettingType::ImageRoughness, bisRoughnessImageVORNClassic, bisRoughnessImageVORNClassic),
        MakeGroup(ESettingType::ProfileRoughness, bisRoughnessProfileVORNClassic,
                  bisRoughnessProfileVORNClassic),
        MakeGroup(ESettingType::Filter, Filter_De_spiking_Spikes_large, Filter_De_spiking_Streaks_wide_dark,
                  10033),
        MakeGroup(ESettingType::Filter, Filter_Noise_reduction_Median_15x15_full,
                  Filter_Noise_reduction_Median_7x7_weak, 10034),
        MakeGroup(ESettingType::Filter, Filter_Smoothing_Gauss_1, Filter_Smoothing_Mean_9x9, 10035),
        MakeGroup(ESettingType::Filter, Filter_ISO_11562_lc_Filter_ISO_11562_lc_One5th,
                  Filter_ISO_11562_lc_Filter_ISO_11562_lc_25000_um, 10036),
        MakeGroup(ESettingType::Filter, Filter_ISO_11562_ls_Filter_ISO_11562_ls_0_025_um,
                  Filter_ISO_11562_ls_Filter_ISO_11562_ls_25_um, 10037),
        MakeGroup(ESettingType::Filter, Filter_ISO_16610_L_Filter_ISO16610_61_Default,
                  Filter_ISO_16610_L_Filter_ISO16610_61_L50000_um, 10038),
        MakeGroup(ESettingType::Filter, Filter_ISO_16610_S_Filter_ISO_16610_61_S0_025_um,
                  Filter_ISO_16610_S_Filter_ISO_16610_61_S250_um, 10039),
        MakeGroup(ESettingType::Filter, Filter_Curves_Smooth_5point, Filter_Curves_Spikefilter_7point_Strong,
                  10040),
        MakeGroup(ESettingType::ColorScale, CSQuickLaunchDefault2D, CSQuickLaunchStripes10),
        MakeGroup(ESettingType::PnP, PnPQuickLaunchSimpleThresholdPores,
                  PnPQuickLaunchSimpleThresholdParticles),
        MakeGroup(ESettingType::Animation, AnimationQuickLaunchDemo, AnimationQuickLaunchDemo),
    });
}();

/// The type of the group that a set stands in; Unknown for none.
constexpr ESettingType FindSettingType(EBuiltInSetting setting)
{
    const auto number = static_cast<int>(setting);
    for (const SBuiltInSettingGroup& group : c_builtInGroups)
        if (number >= group.first && number <= group.last)
            return group.type;
    return ESettingType::Unknown;
}

/// Whether the groups hold every set once, in the order of the numbers.
constexpr bool AreGroupsComplete()
{
    int next = 1;
    for (const SBuiltInSettingGroup& group : c_builtInGroups) {
        if (group.first != next || group.last < group.first)
            return false;
        next = group.last + 1;
    }
    return IsBuiltInSetting(next - 1) && !IsBuiltInSetting(next);
}

static_assert(AreGroupsComplete());

} // namespace CommonUI
