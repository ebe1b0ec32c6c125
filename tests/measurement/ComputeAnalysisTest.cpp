#include "measurement/ComputeAnalysis.h"

#include "measurement/EditPreferences.h"
#include "tests/analysis/TestSurfaces.h"

#include <gtest/gtest.h>

using namespace CommonUI;
using namespace CommonUI::Measurement;
using Analysis::MakeSurface;
using Analysis::SSurface;

namespace
{

SSurface MakeStep(std::size_t lines)
{
    return MakeSurface(
        120, lines, [](double x, double y) { return 1e-9 * (x + y) - (x > 49.5 && x < 70.5 ? 50e-9 : 0); });
}

SSurface MakeWaves(double shift)
{
    return MakeSurface(128, 96, [&](double x, double y) {
        return 1e-7 * (std::sin((x - shift) / 3) + std::cos(y / 2.5) + std::sin((x - shift + y) / 7));
    });
}

SSurface MakeBumps()
{
    return MakeSurface(96, 96, [](double x, double y) {
        return -1e-9 * (std::pow(std::fmod(x, 16) - 8, 2) + std::pow(std::fmod(y, 16) - 8, 2));
    });
}

std::string FindReason(const SResultQuantity& quantity)
{
    return quantity.states.empty() ? "" : quantity.states.front().state.reason.ToUtf8();
}

} // namespace

// Each parameter that an analysis offers has a value, or says why there is none.
TEST(ComputeAnalysis, EveryParameterOfEveryAnalysis)
{
    const auto second = std::make_shared<const SSurface>(MakeWaves(2.5));
    struct SCase {
        EAnalysis analysis;
        SSurface surface;
        SFurtherOptions options;
        std::vector<const char*> without; // those without a value
        const char* reason;
    };
    using enum EAnalysis;
    const SSurface profile = MakeStep(1);
    const std::vector<SCase> cases = {
        {Calibration1D, MakeWaves(0), {.reference = 20e-6}, {}, ""},
        {Calibration1D,
         MakeWaves(0),
         {.pitchMethod = EPitchMethod::Centroid},
         {"ScaleFactor", "Deviation"},
         "no reference is given to compare with"},
        {Calibration1D,
         MakeSurface(4, 4, [](double, double) { return 0.0; }),
         {.reference = 1e-6},
         {"Pitch", "PitchSd", "ScaleFactor", "Deviation"},
         "there is no grating of three periods or more"},
        {CalibrationXY, MakeWaves(0), {.reference = 20e-6}, {}, ""},
        {CalibrationXY,
         profile,
         {.reference = 20e-6},
         {"PitchX", "PitchY", "ScaleFactorX", "ScaleFactorY", "DeviationX", "DeviationY", "Orthogonality",
          "Rotation"},
         "a profile has no second direction"},
        {CalibrationZ, MakeStep(5), {.reference = 49e-9}, {}, ""},
        {CalibrationZ, profile, {.reference = 49e-9}, {"StepHeightSd"}, "there is one step only"},
        {CrossCorrelation, MakeWaves(0), {.second = second}, {}, ""},
        {CrossCorrelation,
         MakeWaves(0),
         {},
         {"Coefficient", "ShiftX", "ShiftY", "Shift", "Rotation"},
         "it needs a second surface to compare with"},
        {Linearity, MakeWaves(0), {.second = second}, {}, ""},
        {Linearity, MakeWaves(0), {}, {"Amplification"}, "it needs the reference as a second surface"},
        {PlaneCorrection, MakeStep(5), {}, {}, ""},
        {PlaneCorrection, profile, {}, {"TiltY", "TiltDirection"}, "a profile has one direction only"},
        {Tip, MakeBumps(), {}, {}, ""},
        {Tip, MakeBumps(), {.tipArea = ETipEstimationArea::Width, .tipWidth = 9e-6}, {}, ""},
        {Tip,
         MakeBumps(),
         {.tipArea = ETipEstimationArea::Width, .tipWidth = 1},
         {"TipRadius", "ConeAngle", "TipHeight", "TipWidth", "TipArea"},
         "the tip is wider than a third of the surface"},
    };
    for (const SCase& row : cases) {
        CAnalysisPreferencesManager preferences;
        for (const int id : preferences.GetData(row.analysis).GetParameterIDs())
            preferences.SetDataParameterOn(row.analysis, id, true);
        SInput input{.surface = row.surface};
        const SResultSet set = ComputeAnalysis(row.analysis, input, preferences, row.options);
        SCOPED_TRACE(CAnalysisPreferencesData::GetININame(row.analysis).ToUtf8() + " " + row.reason);
        EXPECT_EQ(set.quantities.size(), preferences.GetData(row.analysis).GetParameters().size());
        std::size_t missing = 0;
        for (const SResultQuantity& quantity : set.quantities) {
            const bool isMissing = std::ranges::find(row.without, quantity.key.ToUtf8()) != row.without.end();
            EXPECT_EQ(std::isnan(quantity.values.at(0)), isMissing) << quantity.key.ToUtf8();
            EXPECT_EQ(FindReason(quantity), isMissing ? row.reason : "") << quantity.key.ToUtf8();
            missing += isMissing ? 1 : 0;
        }
        EXPECT_EQ(missing, row.without.size());
    }
}

TEST(ComputeAnalysis, FollowsThePreferences)
{
    CAnalysisPreferencesManager preferences;
    for (const CStr change : {u"ScaleFactorZ=off", u"StepHeight.unit=um", u"StepHeight.format=Decimals:4"})
        EditPreferences(preferences, change);
    const SInput input{.surface = MakeStep(5)};
    const SResultSet set = ComputeAnalysis(EAnalysis::CalibrationZ, input, preferences, {.reference = 40e-9});
    ASSERT_EQ(set.quantities.size(), 3u);
    EXPECT_EQ(set.name, u"ZCalibration");
    EXPECT_EQ(set.quantities[0].parameter.GetUnitFactor(), CUnit::EUnitFactor::Micro);
    EXPECT_NEAR(set.quantities[0].values[0], 50e-9, 1e-15);
    EXPECT_EQ(set.quantities[2].key, u"DeviationZ");
    EXPECT_NEAR(set.quantities[2].values[0], 25, 1e-6);
    // The plane is taken away first only where the preferences say so.
    const auto getTilt = [&] {
        return ComputeAnalysis(EAnalysis::PlaneCorrection, input, preferences).quantities.at(1).values.at(0);
    };
    EXPECT_NEAR(getTilt(), std::atan(1e-3) * 180 / Analysis::c_pi, 1e-9);
    preferences.SetDataPreprocessingNo(EAnalysis::PlaneCorrection,
                                       static_cast<int>(ERoughnessPreprocessingOptions::Plane));
    EXPECT_NEAR(getTilt(), 0, 1e-9);
    // All ten in one call.
    EXPECT_FALSE(ComputeAnalysis(EAnalysis::Roughness, input, preferences).quantities.empty());
    EXPECT_EQ(ComputeAnalysis(EAnalysis::RoughnessProfile, input, preferences).rowNames.size(), 5u);
    EXPECT_THROW(ComputeAnalysis(EAnalysis::Measure, input, preferences), ERequest);
    EXPECT_EQ(ComputeAnalysis(EAnalysis::Measure, input, preferences, {},
                              {.grains = SGrainLimit{25e-9, Analysis::EGrainKind::Particle}})
                  .rowNames.size(),
              2u);
}

TEST(ComputeAnalysis, WhatIsComparedIsPreprocessedAlike)
{
    using enum ERoughnessPreprocessingOptions;
    const SSurface reference = MakeSurface(
        64, 48, [](double x, double y) { return 2e-8 * x + 1e-8 * y + 1e-7 * std::sin(x / 3 + y / 5); });
    SSurface response = reference;
    for (double& height : response.heights)
        height *= 1.02;
    const SFurtherOptions options{.second = std::make_shared<const SSurface>(reference)};
    for (const auto option : {None, Plane, Paraboloid, Lines}) {
        SCOPED_TRACE(static_cast<int>(option));
        CAnalysisPreferencesManager preferences;
        preferences.SetDataPreprocessingNo(EAnalysis::Linearity, static_cast<int>(option));
        const SResultSet set =
            ComputeAnalysis(EAnalysis::Linearity, {.surface = response}, preferences, options);
        for (const auto& [key, value] :
             {std::pair{u"DeviationPercent", 0.0}, std::pair{u"Amplification", 1.02}}) {
            const auto found = std::ranges::find(set.quantities, CStr(key), &SResultQuantity::key);
            ASSERT_NE(found, set.quantities.end());
            EXPECT_NEAR(found->values.at(0), value, 1e-9);
        }
    }
}

TEST(ComputeAnalysis, OutputsAndRows)
{
    CAnalysisPreferencesManager preferences;
    const SInput input{.surface = MakeStep(5), .raw = MakeWaves(0)};
    const SResults steps =
        ComputeResults(input, ChooseAnalysis(EAnalysis::CalibrationZ, preferences, {.reference = 50e-9}));
    EXPECT_EQ(steps.rowCount, 5u);
    EXPECT_EQ(steps.columns.size(), 4u);
    EXPECT_EQ(steps.GetState(1, 2, steps.columns[1].values[2]).reason, u"there is one step only");
    EXPECT_NEAR(Analysis::Get(steps.columns[0].statistics, "Mean"), 50e-9, 1e-15);
    EXPECT_EQ(steps.surface[0].exceptions.at(0).state.reason,
              u"the heights do not lie at two levels"); // the raw one
    ASSERT_EQ(steps.outputs->curves.size(), 1u);
    double sum = 0;
    for (const auto& [height, count] : steps.outputs->curves[0].points)
        sum += count;
    EXPECT_EQ(sum, 5);

    struct SCase {
        EAnalysis analysis;
        std::vector<const char*> outputs;
    };
    SFurtherOptions options{.second = std::make_shared<const SSurface>(MakeWaves(2.5))};
    const SInput waves{.surface = MakeWaves(0)};
    using enum EAnalysis;
    for (const SCase& row : std::initializer_list<SCase>{{Calibration1D, {"PitchChart"}},
                                                         {CalibrationXY, {"DistortionImage"}},
                                                         {CalibrationZ, {"HeightHistogram"}},
                                                         {CrossCorrelation, {"CorrelationImage"}},
                                                         {Linearity, {"DeviationCurve"}},
                                                         {PlaneCorrection, {"CorrectedImage"}},
                                                         {Tip, {"TipImage", "TipProfile"}}}) {
        for (const int id : preferences.GetData(row.analysis).GetOutputIDs()) {
            CAnalysisPreferencesData data = preferences.GetData(row.analysis);
            data.SetOutputOn(id, true);
            preferences.SetData(row.analysis, data);
        }
        const SResults results = ComputeResults(waves, ChooseAnalysis(row.analysis, preferences, options));
        std::vector<std::string> keys;
        for (const SOutputImage& image : results.outputs->images) {
            keys.push_back(image.key.ToUtf8());
            EXPECT_EQ(image.surface.heights.size(), image.surface.points * image.surface.lines);
        }
        for (const SOutputCurve& curve : results.outputs->curves)
            keys.push_back(curve.key.ToUtf8());
        std::ranges::sort(keys);
        EXPECT_EQ(keys, std::vector<std::string>(row.outputs.begin(), row.outputs.end()));
    }
}
