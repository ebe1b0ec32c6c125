#include "settings/catalogue/BuiltInSetting.h"

#include "settings/catalogue/detail/BuiltInGroups.h"

#include <iterator>
#include <string_view>

namespace CommonUI
{

namespace
{

// The string table has the texts in the order of the numbers.
constexpr SEnumRow MakeRow(EBuiltInSetting setting, std::u16string_view key)
{
    const auto number = static_cast<int>(setting);
    return {.value = number, .iniName = key, .textId = 9800 + number};
}

// The key of a set is the name of its enumerator.
#define COMMONUI_ROW(name) MakeRow(EBuiltInSetting::name, u"" #name)

constexpr SEnumRow c_builtInSettings[] = {
    COMMONUI_ROW(PlaneCorrQuickLaunchAutoLinewise),
    COMMONUI_ROW(PlaneCorrQuickLaunchAutoPlaneCorrection2),
    COMMONUI_ROW(PlaneCorrQuickLaunchImageBowCorrection),
    COMMONUI_ROW(PlaneCorrQuickLaunchImageLeveling),
    COMMONUI_ROW(PlaneCorrQuickLaunchLinewiseBowCorrection),
    COMMONUI_ROW(PlaneCorrQuickLaunchLinewiseFlattening),
    COMMONUI_ROW(PlaneCorrQuickLaunchLinewiseLeveling),
    COMMONUI_ROW(PlaneCorrQuickLaunchZeroBackgroundOffset),
    COMMONUI_ROW(PlaneCorrQuickLaunchAutoPlaneCorrection1),
    COMMONUI_ROW(PlaneCorrQuickLaunchProfileOrder1),
    COMMONUI_ROW(PlaneCorrQuickLaunchProfileOrder2),
    COMMONUI_ROW(PlaneCorrQuickLaunchProfileOrder3),
    COMMONUI_ROW(PlaneCorrQuickLaunchProfileOrder4),
    COMMONUI_ROW(PlaneCorrQuickLaunchProfileOrder5),
    COMMONUI_ROW(PlaneCorrQuickLaunchProfileOrder6),
    COMMONUI_ROW(PlaneCorrQuickLaunchProfileOrder7),
    COMMONUI_ROW(PlaneCorrQuickLaunchProfileOrder8),
    COMMONUI_ROW(PlaneCorrQuickLaunchProfileOrder9),
    COMMONUI_ROW(PlaneCorrQuickLaunchProfileWiz1),
    COMMONUI_ROW(PlaneCorrQuickLaunchProfileWiz2),
    COMMONUI_ROW(PlaneCorrQuickLaunchProfileZeroBackground),
    COMMONUI_ROW(bisActiveReportQuickLaunchBasicDoc),
    COMMONUI_ROW(bisActiveReportQuickLaunchForceCurveDoc),
    COMMONUI_ROW(bisActiveReportQuickLaunchParticleDoc),
    COMMONUI_ROW(bisActiveReportQuickLaunchPoreDoc),
    COMMONUI_ROW(bisActiveReportQuickLaunchRoughnessParamDoc),
    COMMONUI_ROW(bisActiveReportQuickLaunchRoughnessDoc),
    COMMONUI_ROW(bisActiveReportQuickLaunchXYCalibrationDoc),
    COMMONUI_ROW(bisActiveReportQuickLaunchZCalibrationDoc),
    COMMONUI_ROW(bisActiveReportQuickLaunchBasicHTML),
    COMMONUI_ROW(bisActiveReportQuickLaunchForceCurveHTML),
    COMMONUI_ROW(bisActiveReportQuickLaunchParticleHTML),
    COMMONUI_ROW(bisActiveReportQuickLaunchPoreHTML),
    COMMONUI_ROW(bisActiveReportQuickLaunchRoughnessParamHTML),
    COMMONUI_ROW(bisActiveReportQuickLaunchRoughnessHTML),
    COMMONUI_ROW(bisActiveReportQuickLaunchXYCalibrationHTML),
    COMMONUI_ROW(bisActiveReportQuickLaunchZCalibrationHTML),
    COMMONUI_ROW(bisActiveReportQuickLaunchRoughnessProfileSingleDoc),
    COMMONUI_ROW(bisActiveReportQuickLaunchRoughnessProfileMultiDoc),
    COMMONUI_ROW(bisActiveReportQuickLaunchRoughnessProfileBatchDoc),
    COMMONUI_ROW(bisActiveReportQuickLaunchRoughnessImageSingleDoc),
    COMMONUI_ROW(bisActiveReportQuickLaunchRoughnessImageBatchDoc),
    COMMONUI_ROW(bisActiveReportQuickLaunchPnPTableDoc),
    COMMONUI_ROW(bisActiveReportQuickLaunchPnPStatDoc),
    COMMONUI_ROW(bisActiveReportQuickLaunchRoughnessProfileSingleHTML),
    COMMONUI_ROW(bisActiveReportQuickLaunchRoughnessProfileMultiHTML),
    COMMONUI_ROW(bisActiveReportQuickLaunchRoughnessProfileBatchHTML),
    COMMONUI_ROW(bisActiveReportQuickLaunchRoughnessImageSingleHTML),
    COMMONUI_ROW(bisActiveReportQuickLaunchRoughnessImageBatchHTML),
    COMMONUI_ROW(bisActiveReportQuickLaunchPnPTableHTML),
    COMMONUI_ROW(bisActiveReportQuickLaunchPnPStatHTML),
    COMMONUI_ROW(bisBatchQuickLaunchBasicDoc),
    COMMONUI_ROW(bisBatchQuickLaunchForceCurveDoc),
    COMMONUI_ROW(bisBatchQuickLaunchParticleDoc),
    COMMONUI_ROW(bisBatchQuickLaunchPoreDoc),
    COMMONUI_ROW(bisBatchQuickLaunchRoughnessParamDoc),
    COMMONUI_ROW(bisBatchQuickLaunchRoughnessDoc),
    COMMONUI_ROW(bisBatchQuickLaunchXYCalibrationDoc),
    COMMONUI_ROW(bisBatchQuickLaunchZCalibrationDoc),
    COMMONUI_ROW(bisBatchQuickLaunchBasicHTML),
    COMMONUI_ROW(bisBatchQuickLaunchForceCurveHTML),
    COMMONUI_ROW(bisBatchQuickLaunchParticleHTML),
    COMMONUI_ROW(bisBatchQuickLaunchPoreHTML),
    COMMONUI_ROW(bisBatchQuickLaunchRoughnessParamHTML),
    COMMONUI_ROW(bisBatchQuickLaunchRoughnessHTML),
    COMMONUI_ROW(bisBatchQuickLaunchXYCalibrationHTML),
    COMMONUI_ROW(bisBatchQuickLaunchZCalibrationHTML),
    COMMONUI_ROW(BatchQuickLaunchImageLevelShowProfile),
    COMMONUI_ROW(BatchQuickLaunchImageLevelShow3Profiles),
    COMMONUI_ROW(BatchQuickLaunchImageLevelAndInterpolateVoids),
    COMMONUI_ROW(BatchQuickLaunchProfileRoughnessClassicDoc),
    COMMONUI_ROW(BatchQuickLaunchProfileRoughnessClassicHTML),
    COMMONUI_ROW(bisRoughnessImageVORNClassic),
    COMMONUI_ROW(bisRoughnessProfileVORNClassic),
    COMMONUI_ROW(Filter_De_spiking_Spikes_large),
    COMMONUI_ROW(Filter_De_spiking_Spikes_medium),
    COMMONUI_ROW(Filter_De_spiking_Spikes_small),
    COMMONUI_ROW(Filter_De_spiking_Streaks_thin_bright),
    COMMONUI_ROW(Filter_De_spiking_Streaks_thin_dark),
    COMMONUI_ROW(Filter_De_spiking_Streaks_wide_bright),
    COMMONUI_ROW(Filter_De_spiking_Streaks_wide_dark),
    COMMONUI_ROW(Filter_Noise_reduction_Median_15x15_full),
    COMMONUI_ROW(Filter_Noise_reduction_Median_15x15_weak),
    COMMONUI_ROW(Filter_Noise_reduction_Median_3x3_full),
    COMMONUI_ROW(Filter_Noise_reduction_Median_3x3_weak),
    COMMONUI_ROW(Filter_Noise_reduction_Median_7x7_full),
    COMMONUI_ROW(Filter_Noise_reduction_Median_7x7_weak),
    COMMONUI_ROW(Filter_Smoothing_Gauss_1),
    COMMONUI_ROW(Filter_Smoothing_Gauss_2),
    COMMONUI_ROW(Filter_Smoothing_Mean_3x3),
    COMMONUI_ROW(Filter_Smoothing_Mean_5x5),
    COMMONUI_ROW(Filter_Smoothing_Mean_9x9),
    COMMONUI_ROW(Filter_ISO_11562_lc_Filter_ISO_11562_lc_One5th),
    COMMONUI_ROW(Filter_ISO_11562_lc_Filter_ISO_11562_lc_One6th),
    COMMONUI_ROW(Filter_ISO_11562_lc_Filter_ISO_11562_lc_One7th),
    COMMONUI_ROW(Filter_ISO_11562_lc_Filter_ISO_11562_lc_0_8_um),
    COMMONUI_ROW(Filter_ISO_11562_lc_Filter_ISO_11562_lc_2_5_um),
    COMMONUI_ROW(Filter_ISO_11562_lc_Filter_ISO_11562_lc_8_um),
    COMMONUI_ROW(Filter_ISO_11562_lc_Filter_ISO_11562_lc_25_um),
    COMMONUI_ROW(Filter_ISO_11562_lc_Filter_ISO_11562_lc_80_um),
    COMMONUI_ROW(Filter_ISO_11562_lc_Filter_ISO_11562_lc_250_um),
    COMMONUI_ROW(Filter_ISO_11562_lc_Filter_ISO_11562_lc_800_um),
    COMMONUI_ROW(Filter_ISO_11562_lc_Filter_ISO_11562_lc_2500_um),
    COMMONUI_ROW(Filter_ISO_11562_lc_Filter_ISO_11562_lc_8000_um),
    COMMONUI_ROW(Filter_ISO_11562_lc_Filter_ISO_11562_lc_25000_um),
    COMMONUI_ROW(Filter_ISO_11562_ls_Filter_ISO_11562_ls_0_025_um),
    COMMONUI_ROW(Filter_ISO_11562_ls_Filter_ISO_11562_ls_0_080_um),
    COMMONUI_ROW(Filter_ISO_11562_ls_Filter_ISO_11562_ls_0_250_um),
    COMMONUI_ROW(Filter_ISO_11562_ls_Filter_ISO_11562_ls_0_800_um),
    COMMONUI_ROW(Filter_ISO_11562_ls_Filter_ISO_11562_ls_2_5_um),
    COMMONUI_ROW(Filter_ISO_11562_ls_Filter_ISO_11562_ls_8_0_um),
    COMMONUI_ROW(Filter_ISO_11562_ls_Filter_ISO_11562_ls_25_um),
    COMMONUI_ROW(Filter_ISO_16610_L_Filter_ISO16610_61_Default),
    COMMONUI_ROW(Filter_ISO_16610_L_Filter_ISO16610_61_One5th),
    COMMONUI_ROW(Filter_ISO_16610_L_Filter_ISO16610_61_One6th),
    COMMONUI_ROW(Filter_ISO_16610_L_Filter_ISO16610_61_One7th),
    COMMONUI_ROW(Filter_ISO_16610_L_Filter_ISO16610_61_L010_um),
    COMMONUI_ROW(Filter_ISO_16610_L_Filter_ISO16610_61_L020_um),
    COMMONUI_ROW(Filter_ISO_16610_L_Filter_ISO16610_61_L025_um),
    COMMONUI_ROW(Filter_ISO_16610_L_Filter_ISO16610_61_L05_um),
    COMMONUI_ROW(Filter_ISO_16610_L_Filter_ISO16610_61_L08_um),
    COMMONUI_ROW(Filter_ISO_16610_L_Filter_ISO16610_61_L10_um),
    COMMONUI_ROW(Filter_ISO_16610_L_Filter_ISO16610_61_L20_um),
    COMMONUI_ROW(Filter_ISO_16610_L_Filter_ISO16610_61_L25_um),
    COMMONUI_ROW(Filter_ISO_16610_L_Filter_ISO16610_61_L50_um),
    COMMONUI_ROW(Filter_ISO_16610_L_Filter_ISO16610_61_L80_um),
    COMMONUI_ROW(Filter_ISO_16610_L_Filter_ISO16610_61_L100_um),
    COMMONUI_ROW(Filter_ISO_16610_L_Filter_ISO16610_61_L200_um),
    COMMONUI_ROW(Filter_ISO_16610_L_Filter_ISO16610_61_L250_um),
    COMMONUI_ROW(Filter_ISO_16610_L_Filter_ISO16610_61_L500_um),
    COMMONUI_ROW(Filter_ISO_16610_L_Filter_ISO16610_61_L800_um),
    COMMONUI_ROW(Filter_ISO_16610_L_Filter_ISO16610_61_L1000_um),
    COMMONUI_ROW(Filter_ISO_16610_L_Filter_ISO16610_61_L2000_um),
    COMMONUI_ROW(Filter_ISO_16610_L_Filter_ISO16610_61_L2500_um),
    COMMONUI_ROW(Filter_ISO_16610_L_Filter_ISO16610_61_L5000_um),
    COMMONUI_ROW(Filter_ISO_16610_L_Filter_ISO16610_61_L8000_um),
    COMMONUI_ROW(Filter_ISO_16610_L_Filter_ISO16610_61_L10000_um),
    COMMONUI_ROW(Filter_ISO_16610_L_Filter_ISO16610_61_L20000_um),
    COMMONUI_ROW(Filter_ISO_16610_L_Filter_ISO16610_61_L25000_um),
    COMMONUI_ROW(Filter_ISO_16610_L_Filter_ISO16610_61_L50000_um),
    COMMONUI_ROW(Filter_ISO_16610_S_Filter_ISO_16610_61_S0_025_um),
    COMMONUI_ROW(Filter_ISO_16610_S_Filter_ISO_16610_61_S0_050_um),
    COMMONUI_ROW(Filter_ISO_16610_S_Filter_ISO_16610_61_S0_080_um),
    COMMONUI_ROW(Filter_ISO_16610_S_Filter_ISO_16610_61_S0_100_um),
    COMMONUI_ROW(Filter_ISO_16610_S_Filter_ISO_16610_61_S0_200_um),
    COMMONUI_ROW(Filter_ISO_16610_S_Filter_ISO_16610_61_S0_250_um),
    COMMONUI_ROW(Filter_ISO_16610_S_Filter_ISO_16610_61_S0_500_um),
    COMMONUI_ROW(Filter_ISO_16610_S_Filter_ISO_16610_61_S0_800_um),
    COMMONUI_ROW(Filter_ISO_16610_S_Filter_ISO_16610_61_S1_0_um),
    COMMONUI_ROW(Filter_ISO_16610_S_Filter_ISO_16610_61_S2_0_um),
    COMMONUI_ROW(Filter_ISO_16610_S_Filter_ISO_16610_61_S2_5_um),
    COMMONUI_ROW(Filter_ISO_16610_S_Filter_ISO_16610_61_S5_0_um),
    COMMONUI_ROW(Filter_ISO_16610_S_Filter_ISO_16610_61_S8_0_um),
    COMMONUI_ROW(Filter_ISO_16610_S_Filter_ISO_16610_61_S10_um),
    COMMONUI_ROW(Filter_ISO_16610_S_Filter_ISO_16610_61_S20_um),
    COMMONUI_ROW(Filter_ISO_16610_S_Filter_ISO_16610_61_S25_um),
    COMMONUI_ROW(Filter_ISO_16610_S_Filter_ISO_16610_61_S50_um),
    COMMONUI_ROW(Filter_ISO_16610_S_Filter_ISO_16610_61_S80_um),
    COMMONUI_ROW(Filter_ISO_16610_S_Filter_ISO_16610_61_S100_um),
    COMMONUI_ROW(Filter_ISO_16610_S_Filter_ISO_16610_61_S200_um),
    COMMONUI_ROW(Filter_ISO_16610_S_Filter_ISO_16610_61_S250_um),
    COMMONUI_ROW(Filter_Curves_Smooth_5point),
    COMMONUI_ROW(Filter_Curves_Smooth_9point),
    COMMONUI_ROW(Filter_Curves_Smooth_25point),
    COMMONUI_ROW(Filter_Curves_Smooth_49point),
    COMMONUI_ROW(Filter_Curves_Spikefilter_3point_Light),
    COMMONUI_ROW(Filter_Curves_Spikefilter_3point_Strong),
    COMMONUI_ROW(Filter_Curves_Spikefilter_7point_Light),
    COMMONUI_ROW(Filter_Curves_Spikefilter_7point_Strong),
    COMMONUI_ROW(CSQuickLaunchDefault2D),
    COMMONUI_ROW(CSQuickLaunchDefault3D),
    COMMONUI_ROW(CSQuickLaunchDefaultFFT),
    COMMONUI_ROW(CSQuickLaunchBrown),
    COMMONUI_ROW(CSQuickLaunchGoldBrown),
    COMMONUI_ROW(CSQuickLaunchGlow),
    COMMONUI_ROW(CSQuickLaunchHighContrast),
    COMMONUI_ROW(CSQuickLaunchGrey),
    COMMONUI_ROW(CSQuickLaunchInvGrey),
    COMMONUI_ROW(CSQuickLaunchGreen),
    COMMONUI_ROW(CSQuickLaunchGreenRose),
    COMMONUI_ROW(CSQuickLaunchGreenGold),
    COMMONUI_ROW(CSQuickLaunchLime),
    COMMONUI_ROW(CSQuickLaunchGreenYellow),
    COMMONUI_ROW(CSQuickLaunchGreenAqua),
    COMMONUI_ROW(CSQuickLaunchLightBlue),
    COMMONUI_ROW(CSQuickLaunchBluePink),
    COMMONUI_ROW(CSQuickLaunchViolet),
    COMMONUI_ROW(CSQuickLaunchVioletSalmon),
    COMMONUI_ROW(CSQuickLaunchRedFuchia),
    COMMONUI_ROW(CSQuickLaunchRed),
    COMMONUI_ROW(CSQuickLaunchRedAqua),
    COMMONUI_ROW(CSQuickLaunchYaleblueGold),
    COMMONUI_ROW(CSQuickLaunchMulticololor1),
    COMMONUI_ROW(CSQuickLaunchMulticololor2),
    COMMONUI_ROW(CSQuickLaunchStripes5),
    COMMONUI_ROW(CSQuickLaunchStripes10),
    COMMONUI_ROW(PnPQuickLaunchSimpleThresholdPores),
    COMMONUI_ROW(PnPQuickLaunchSimpleThresholdParticles),
    COMMONUI_ROW(AnimationQuickLaunchDemo),
};

#undef COMMONUI_ROW

constexpr bool AreNumbered()
{
    int number = 0;
    for (const SEnumRow& row : c_builtInSettings)
        if (row.value != ++number)
            return false;
    return IsBuiltInSetting(number) && !IsBuiltInSetting(number + 1);
}

static_assert(AreNumbered());

} // namespace

const CEnum<EBuiltInSetting>& GetBuiltInSettingEnum()
{
    return GetEnumOfRows<EBuiltInSetting, c_builtInSettings, EBuiltInSetting{1}>();
}

std::span<const SBuiltInSettingGroup> GetBuiltInSettingGroups()
{
    return c_builtInGroups;
}

ESettingType GetSettingType(EBuiltInSetting setting)
{
    return FindSettingType(setting);
}

} // namespace CommonUI
