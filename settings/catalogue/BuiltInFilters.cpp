#include "settings/catalogue/detail/BuiltInContents.h"
#include "settings/readers/FilterSettings.h"

namespace CommonUI
{

using Analysis::EPass;

namespace
{

using enum EBuiltInSetting;
using enum EFilterApplication;
using enum EFilterPolarity;
using enum EFilterStrength;

constexpr SFilterSettings Median(int size, EFilterStrength strength)
{
    return {.kind = EFilterKind::Median, .rows = size, .columns = size, .strength = strength};
}

constexpr SFilterSettings Mean(EFilterApplication application, int rows, int columns)
{
    return {.kind = EFilterKind::Mean, .application = application, .rows = rows, .columns = columns};
}

// The kernel reaches three standard deviations to either side.
constexpr SFilterSettings Gauss(int standardDeviation)
{
    const int size = 2 * 3 * standardDeviation + 1;
    return {.kind = EFilterKind::Gauss,
            .rows = size,
            .columns = size,
            .standardDeviation = static_cast<double>(standardDeviation)};
}

// A spike less than half as wide as the window leaves the spread of the heights in it as it is.
constexpr SFilterSettings Spikes(EFilterApplication application, int rows, int columns, double threshold)
{
    return {.kind = EFilterKind::Spikes,
            .application = application,
            .rows = rows,
            .columns = columns,
            .threshold = threshold};
}

constexpr SFilterSettings Streaks(int maximumWidth, EFilterPolarity polarity)
{
    return {.kind = EFilterKind::Streaks, .polarity = polarity, .maximumWidth = maximumWidth};
}

constexpr SFilterCutoff Metres(double length)
{
    return {.length = length};
}

constexpr SFilterCutoff Part(double divisor)
{
    return {.rule = ECutoffRule::Fraction, .fraction = 1 / divisor};
}

constexpr SFilterSettings Gaussian(EFilterKind kind, ENestingIndex nestingIndex, EPass pass,
                                   SFilterCutoff cutoff)
{
    cutoff.nestingIndex = nestingIndex;
    cutoff.pass = pass;
    return {.kind = kind, .cutoff = cutoff};
}

constexpr SFilterSettings LambdaC(const SFilterCutoff& cutoff)
{
    return Gaussian(EFilterKind::ProfileGaussian, ENestingIndex::LambdaC, EPass::High, cutoff);
}

constexpr SFilterSettings LambdaS(const SFilterCutoff& cutoff)
{
    return Gaussian(EFilterKind::ProfileGaussian, ENestingIndex::LambdaS, EPass::Low, cutoff);
}

constexpr SFilterSettings L(const SFilterCutoff& cutoff)
{
    return Gaussian(EFilterKind::ArealGaussian, ENestingIndex::L, EPass::High, cutoff);
}

constexpr SFilterSettings S(const SFilterCutoff& cutoff)
{
    return Gaussian(EFilterKind::ArealGaussian, ENestingIndex::S, EPass::Low, cutoff);
}

struct SRow {
    EBuiltInSetting setting;
    SFilterSettings set;
};

constexpr SRow c_rows[] = {
    {Filter_De_spiking_Spikes_large, Spikes(Image, 9, 9, 5)},
    {Filter_De_spiking_Spikes_medium, Spikes(Image, 5, 5, 5)},
    {Filter_De_spiking_Spikes_small, Spikes(Image, 3, 3, 5)},
    {Filter_De_spiking_Streaks_thin_bright, Streaks(1, Bright)},
    {Filter_De_spiking_Streaks_thin_dark, Streaks(1, Dark)},
    {Filter_De_spiking_Streaks_wide_bright, Streaks(4, Bright)},
    {Filter_De_spiking_Streaks_wide_dark, Streaks(4, Dark)},
    {Filter_Noise_reduction_Median_15x15_full, Median(15, Full)},
    {Filter_Noise_reduction_Median_15x15_weak, Median(15, Weak)},
    {Filter_Noise_reduction_Median_3x3_full, Median(3, Full)},
    {Filter_Noise_reduction_Median_3x3_weak, Median(3, Weak)},
    {Filter_Noise_reduction_Median_7x7_full, Median(7, Full)},
    {Filter_Noise_reduction_Median_7x7_weak, Median(7, Weak)},
    {Filter_Smoothing_Gauss_1, Gauss(1)},
    {Filter_Smoothing_Gauss_2, Gauss(2)},
    {Filter_Smoothing_Mean_3x3, Mean(Image, 3, 3)},
    {Filter_Smoothing_Mean_5x5, Mean(Image, 5, 5)},
    {Filter_Smoothing_Mean_9x9, Mean(Image, 9, 9)},
    {Filter_ISO_11562_lc_Filter_ISO_11562_lc_One5th, LambdaC(Part(5))},
    {Filter_ISO_11562_lc_Filter_ISO_11562_lc_One6th, LambdaC(Part(6))},
    {Filter_ISO_11562_lc_Filter_ISO_11562_lc_One7th, LambdaC(Part(7))},
    {Filter_ISO_11562_lc_Filter_ISO_11562_lc_0_8_um, LambdaC(Metres(0.8e-6))},
    {Filter_ISO_11562_lc_Filter_ISO_11562_lc_2_5_um, LambdaC(Metres(2.5e-6))},
    {Filter_ISO_11562_lc_Filter_ISO_11562_lc_8_um, LambdaC(Metres(8e-6))},
    {Filter_ISO_11562_lc_Filter_ISO_11562_lc_25_um, LambdaC(Metres(25e-6))},
    {Filter_ISO_11562_lc_Filter_ISO_11562_lc_80_um, LambdaC(Metres(80e-6))},
    {Filter_ISO_11562_lc_Filter_ISO_11562_lc_250_um, LambdaC(Metres(250e-6))},
    {Filter_ISO_11562_lc_Filter_ISO_11562_lc_800_um, LambdaC(Metres(800e-6))},
    {Filter_ISO_11562_lc_Filter_ISO_11562_lc_2500_um, LambdaC(Metres(2.5e-3))},
    {Filter_ISO_11562_lc_Filter_ISO_11562_lc_8000_um, LambdaC(Metres(8e-3))},
    {Filter_ISO_11562_lc_Filter_ISO_11562_lc_25000_um, LambdaC(Metres(25e-3))},
    {Filter_ISO_11562_ls_Filter_ISO_11562_ls_0_025_um, LambdaS(Metres(0.025e-6))},
    {Filter_ISO_11562_ls_Filter_ISO_11562_ls_0_080_um, LambdaS(Metres(0.08e-6))},
    {Filter_ISO_11562_ls_Filter_ISO_11562_ls_0_250_um, LambdaS(Metres(0.25e-6))},
    {Filter_ISO_11562_ls_Filter_ISO_11562_ls_0_800_um, LambdaS(Metres(0.8e-6))},
    {Filter_ISO_11562_ls_Filter_ISO_11562_ls_2_5_um, LambdaS(Metres(2.5e-6))},
    {Filter_ISO_11562_ls_Filter_ISO_11562_ls_8_0_um, LambdaS(Metres(8e-6))},
    {Filter_ISO_11562_ls_Filter_ISO_11562_ls_25_um, LambdaS(Metres(25e-6))},
    {Filter_ISO_16610_L_Filter_ISO16610_61_Default, L({.rule = ECutoffRule::Automatic})},
    {Filter_ISO_16610_L_Filter_ISO16610_61_One5th, L(Part(5))},
    {Filter_ISO_16610_L_Filter_ISO16610_61_One6th, L(Part(6))},
    {Filter_ISO_16610_L_Filter_ISO16610_61_One7th, L(Part(7))},
    {Filter_ISO_16610_L_Filter_ISO16610_61_L010_um, L(Metres(1e-6))},
    {Filter_ISO_16610_L_Filter_ISO16610_61_L020_um, L(Metres(2e-6))},
    {Filter_ISO_16610_L_Filter_ISO16610_61_L025_um, L(Metres(2.5e-6))},
    {Filter_ISO_16610_L_Filter_ISO16610_61_L05_um, L(Metres(5e-6))},
    {Filter_ISO_16610_L_Filter_ISO16610_61_L08_um, L(Metres(8e-6))},
    {Filter_ISO_16610_L_Filter_ISO16610_61_L10_um, L(Metres(10e-6))},
    {Filter_ISO_16610_L_Filter_ISO16610_61_L20_um, L(Metres(20e-6))},
    {Filter_ISO_16610_L_Filter_ISO16610_61_L25_um, L(Metres(25e-6))},
    {Filter_ISO_16610_L_Filter_ISO16610_61_L50_um, L(Metres(50e-6))},
    {Filter_ISO_16610_L_Filter_ISO16610_61_L80_um, L(Metres(80e-6))},
    {Filter_ISO_16610_L_Filter_ISO16610_61_L100_um, L(Metres(100e-6))},
    {Filter_ISO_16610_L_Filter_ISO16610_61_L200_um, L(Metres(200e-6))},
    {Filter_ISO_16610_L_Filter_ISO16610_61_L250_um, L(Metres(250e-6))},
    {Filter_ISO_16610_L_Filter_ISO16610_61_L500_um, L(Metres(500e-6))},
    {Filter_ISO_16610_L_Filter_ISO16610_61_L800_um, L(Metres(800e-6))},
    {Filter_ISO_16610_L_Filter_ISO16610_61_L1000_um, L(Metres(1e-3))},
    {Filter_ISO_16610_L_Filter_ISO16610_61_L2000_um, L(Metres(2e-3))},
    {Filter_ISO_16610_L_Filter_ISO16610_61_L2500_um, L(Metres(2.5e-3))},
    {Filter_ISO_16610_L_Filter_ISO16610_61_L5000_um, L(Metres(5e-3))},
    {Filter_ISO_16610_L_Filter_ISO16610_61_L8000_um, L(Metres(8e-3))},
    {Filter_ISO_16610_L_Filter_ISO16610_61_L10000_um, L(Metres(10e-3))},
    {Filter_ISO_16610_L_Filter_ISO16610_61_L20000_um, L(Metres(20e-3))},
    {Filter_ISO_16610_L_Filter_ISO16610_61_L25000_um, L(Metres(25e-3))},
    {Filter_ISO_16610_L_Filter_ISO16610_61_L50000_um, L(Metres(50e-3))},
    {Filter_ISO_16610_S_Filter_ISO_16610_61_S0_025_um, S(Metres(0.025e-6))},
    {Filter_ISO_16610_S_Filter_ISO_16610_61_S0_050_um, S(Metres(0.05e-6))},
    {Filter_ISO_16610_S_Filter_ISO_16610_61_S0_080_um, S(Metres(0.08e-6))},
    {Filter_ISO_16610_S_Filter_ISO_16610_61_S0_100_um, S(Metres(0.1e-6))},
    {Filter_ISO_16610_S_Filter_ISO_16610_61_S0_200_um, S(Metres(0.2e-6))},
    {Filter_ISO_16610_S_Filter_ISO_16610_61_S0_250_um, S(Metres(0.25e-6))},
    {Filter_ISO_16610_S_Filter_ISO_16610_61_S0_500_um, S(Metres(0.5e-6))},
    {Filter_ISO_16610_S_Filter_ISO_16610_61_S0_800_um, S(Metres(0.8e-6))},
    {Filter_ISO_16610_S_Filter_ISO_16610_61_S1_0_um, S(Metres(1e-6))},
    {Filter_ISO_16610_S_Filter_ISO_16610_61_S2_0_um, S(Metres(2e-6))},
    {Filter_ISO_16610_S_Filter_ISO_16610_61_S2_5_um, S(Metres(2.5e-6))},
    {Filter_ISO_16610_S_Filter_ISO_16610_61_S5_0_um, S(Metres(5e-6))},
    {Filter_ISO_16610_S_Filter_ISO_16610_61_S8_0_um, S(Metres(8e-6))},
    {Filter_ISO_16610_S_Filter_ISO_16610_61_S10_um, S(Metres(10e-6))},
    {Filter_ISO_16610_S_Filter_ISO_16610_61_S20_um, S(Metres(20e-6))},
    {Filter_ISO_16610_S_Filter_ISO_16610_61_S25_um, S(Metres(25e-6))},
    {Filter_ISO_16610_S_Filter_ISO_16610_61_S50_um, S(Metres(50e-6))},
    {Filter_ISO_16610_S_Filter_ISO_16610_61_S80_um, S(Metres(80e-6))},
    {Filter_ISO_16610_S_Filter_ISO_16610_61_S100_um, S(Metres(100e-6))},
    {Filter_ISO_16610_S_Filter_ISO_16610_61_S200_um, S(Metres(200e-6))},
    {Filter_ISO_16610_S_Filter_ISO_16610_61_S250_um, S(Metres(250e-6))},
    {Filter_Curves_Smooth_5point, Mean(Curve, 1, 5)},
    {Filter_Curves_Smooth_9point, Mean(Curve, 1, 9)},
    {Filter_Curves_Smooth_25point, Mean(Curve, 1, 25)},
    {Filter_Curves_Smooth_49point, Mean(Curve, 1, 49)},
    {Filter_Curves_Spikefilter_3point_Light, Spikes(Curve, 1, 3, 5)},
    {Filter_Curves_Spikefilter_3point_Strong, Spikes(Curve, 1, 3, 2.5)},
    {Filter_Curves_Spikefilter_7point_Light, Spikes(Curve, 1, 7, 5)},
    {Filter_Curves_Spikefilter_7point_Strong, Spikes(Curve, 1, 7, 2.5)},
};

static_assert(HoldsEverySet(ESettingType::Filter, c_rows));

} // namespace

void WriteBuiltInFilter(EBuiltInSetting setting, CInifile& ini)
{
    FindRow(c_rows, setting)->set.Save(ini);
}

} // namespace CommonUI
