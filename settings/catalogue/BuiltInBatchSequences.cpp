#include "settings/catalogue/detail/BuiltInContents.h"
#include "settings/readers/BatchSequenceSettings.h"
#include "settings/SetReference.h"

namespace CommonUI
{

namespace
{

using enum EBuiltInSetting;

constexpr EBuiltInSetting c_none{0};

// A sequence, its steps in the order of the members; what has its default is no step of it.
struct SRow {
    EBuiltInSetting setting = c_none;
    EBuiltInSetting applied = c_none;
    EBuiltInSetting report = c_none;
    int profiles = 0;
    bool interpolateVoids = false;
};

constexpr SRow c_rows[] = {
    {bisBatchQuickLaunchBasicDoc, c_none, bisActiveReportQuickLaunchBasicDoc},
    {bisBatchQuickLaunchForceCurveDoc, c_none, bisActiveReportQuickLaunchForceCurveDoc},
    {bisBatchQuickLaunchParticleDoc, PnPQuickLaunchSimpleThresholdParticles,
     bisActiveReportQuickLaunchParticleDoc},
    {bisBatchQuickLaunchPoreDoc, PnPQuickLaunchSimpleThresholdPores, bisActiveReportQuickLaunchPoreDoc},
    {bisBatchQuickLaunchRoughnessParamDoc, c_none, bisActiveReportQuickLaunchRoughnessParamDoc},
    {bisBatchQuickLaunchRoughnessDoc, bisRoughnessImageVORNClassic, bisActiveReportQuickLaunchRoughnessDoc},
    {bisBatchQuickLaunchXYCalibrationDoc, c_none, bisActiveReportQuickLaunchXYCalibrationDoc},
    {bisBatchQuickLaunchZCalibrationDoc, c_none, bisActiveReportQuickLaunchZCalibrationDoc},
    {bisBatchQuickLaunchBasicHTML, c_none, bisActiveReportQuickLaunchBasicHTML},
    {bisBatchQuickLaunchForceCurveHTML, c_none, bisActiveReportQuickLaunchForceCurveHTML},
    {bisBatchQuickLaunchParticleHTML, PnPQuickLaunchSimpleThresholdParticles,
     bisActiveReportQuickLaunchParticleHTML},
    {bisBatchQuickLaunchPoreHTML, PnPQuickLaunchSimpleThresholdPores, bisActiveReportQuickLaunchPoreHTML},
    {bisBatchQuickLaunchRoughnessParamHTML, c_none, bisActiveReportQuickLaunchRoughnessParamHTML},
    {bisBatchQuickLaunchRoughnessHTML, bisRoughnessImageVORNClassic, bisActiveReportQuickLaunchRoughnessHTML},
    {bisBatchQuickLaunchXYCalibrationHTML, c_none, bisActiveReportQuickLaunchXYCalibrationHTML},
    {bisBatchQuickLaunchZCalibrationHTML, c_none, bisActiveReportQuickLaunchZCalibrationHTML},
    {.setting = BatchQuickLaunchImageLevelShowProfile,
     .applied = PlaneCorrQuickLaunchImageLeveling,
     .profiles = 1},
    {.setting = BatchQuickLaunchImageLevelShow3Profiles,
     .applied = PlaneCorrQuickLaunchImageLeveling,
     .profiles = 3},
    {.setting = BatchQuickLaunchImageLevelAndInterpolateVoids,
     .applied = PlaneCorrQuickLaunchImageLeveling,
     .interpolateVoids = true},
    {BatchQuickLaunchProfileRoughnessClassicDoc, bisRoughnessProfileVORNClassic,
     bisActiveReportQuickLaunchRoughnessProfileSingleDoc},
    {BatchQuickLaunchProfileRoughnessClassicHTML, bisRoughnessProfileVORNClassic,
     bisActiveReportQuickLaunchRoughnessProfileSingleHTML},
};

static_assert(HoldsEverySet(ESettingType::Batch, c_rows));

SBatchStep Apply(EBuiltInSetting setting)
{
    return {.operation = EBatchOperation::Apply,
            .type = GetSettingType(setting),
            .settings = MakeReference(setting)};
}

} // namespace

void WriteBuiltInBatchSequence(EBuiltInSetting setting, CInifile& ini)
{
    const SRow& row = *FindRow(c_rows, setting);
    SBatchSequenceSettings sequence;
    for (const EBuiltInSetting applied : {row.applied, row.report})
        if (applied != c_none)
            sequence.steps.push_back(Apply(applied));
    if (row.profiles != 0)
        sequence.steps.push_back({.operation = EBatchOperation::ShowProfiles, .profiles = row.profiles});
    if (row.interpolateVoids)
        sequence.steps.push_back({.operation = EBatchOperation::InterpolateVoids});
    sequence.Save(ini);
}

} // namespace CommonUI
