#include "settings/catalogue/detail/BuiltInContents.h"
#include "settings/readers/ReportTemplateSettings.h"

#include <algorithm>
#include <iterator>
#include <span>

namespace CommonUI
{

namespace
{

using enum EReportBlock;
using enum EMeasureParameters;

constexpr EReportBlock c_basic[] = {Title,        Information,     Image,  View3D,
                                    CrossSection, HeightHistogram, Comment};
constexpr EReportBlock c_forceCurve[] = {Title, Information, ForceCurve, ForceResults, Comment};
constexpr EReportBlock c_grains[] = {Title,          Information,     Image,  GrainImage,
                                     GrainHistogram, GrainStatistics, Comment};
constexpr EReportBlock c_roughnessParameters[] = {Title, Information, RoughnessParameters};
constexpr EReportBlock c_roughness[] = {Title,       Information,         Image,  HeightHistogram,
                                        AbbottCurve, RoughnessParameters, Comment};
constexpr EReportBlock c_xyCalibration[] = {Title,      Information,        Image,
                                            PitchChart, CalibrationResults, Comment};
constexpr EReportBlock c_zCalibration[] = {Title,         Information,        Image,
                                           StepHistogram, CalibrationResults, Comment};
constexpr EReportBlock c_profileSingle[] = {Title, Information, Profile, AbbottCurve, RoughnessParameters};
constexpr EReportBlock c_profileCollection[] = {Title, Profile, RoughnessParameters, RoughnessStatistics};
constexpr EReportBlock c_profileBatch[] = {Title, RoughnessParameters, RoughnessStatistics, RoughnessChart};
constexpr EReportBlock c_imageSingle[] = {Title,  Information, Image,
                                          View3D, AbbottCurve, RoughnessParameters};
constexpr EReportBlock c_imageBatch[] = {Title, Image, RoughnessParameters, RoughnessStatistics,
                                         RoughnessChart};
constexpr EReportBlock c_grainTable[] = {Title, Information, GrainImage, GrainTable};
constexpr EReportBlock c_grainStatistics[] = {Title, Information, GrainImage, GrainHistogram,
                                              GrainStatistics};

constexpr EMeasureParameters c_particles[] = {HeywoodDiameter, AreaExHoles, MaxHeight, Volume};
constexpr EMeasureParameters c_pores[] = {HeywoodDiameter, AreaExHoles, MaxDepth, VoidVolume};

// A template of which there is a document for word processors and, under another number, a web page.
struct SRow {
    EBuiltInSetting doc;
    EBuiltInSetting html;
    int titleId;
    std::span<const EReportBlock> blocks;
    int columns = 1;
    EReportOrientation orientation = EReportOrientation::Portrait;
    EReportScope scope = EReportScope::Single;
    std::span<const EMeasureParameters> grainQuantities = {};
};

using enum EBuiltInSetting;
using enum EReportOrientation;
using enum EReportScope;

constexpr SRow c_rows[] = {
    {bisActiveReportQuickLaunchBasicDoc, bisActiveReportQuickLaunchBasicHTML, 10191, c_basic, 2},
    {bisActiveReportQuickLaunchForceCurveDoc, bisActiveReportQuickLaunchForceCurveHTML, 10192, c_forceCurve},
    {bisActiveReportQuickLaunchParticleDoc, bisActiveReportQuickLaunchParticleHTML, 10193, c_grains, 2,
     Portrait, Single, c_particles},
    {bisActiveReportQuickLaunchPoreDoc, bisActiveReportQuickLaunchPoreHTML, 10194, c_grains, 2, Portrait,
     Single, c_pores},
    {bisActiveReportQuickLaunchRoughnessParamDoc, bisActiveReportQuickLaunchRoughnessParamHTML, 10195,
     c_roughnessParameters},
    {bisActiveReportQuickLaunchRoughnessDoc, bisActiveReportQuickLaunchRoughnessHTML, 10196, c_roughness, 2},
    {bisActiveReportQuickLaunchXYCalibrationDoc, bisActiveReportQuickLaunchXYCalibrationHTML, 10197,
     c_xyCalibration},
    {bisActiveReportQuickLaunchZCalibrationDoc, bisActiveReportQuickLaunchZCalibrationHTML, 10198,
     c_zCalibration},
    {bisActiveReportQuickLaunchRoughnessProfileSingleDoc,
     bisActiveReportQuickLaunchRoughnessProfileSingleHTML, 10199, c_profileSingle},
    {bisActiveReportQuickLaunchRoughnessProfileMultiDoc, bisActiveReportQuickLaunchRoughnessProfileMultiHTML,
     10200, c_profileCollection, 2, Portrait, Collection},
    {bisActiveReportQuickLaunchRoughnessProfileBatchDoc, bisActiveReportQuickLaunchRoughnessProfileBatchHTML,
     10201, c_profileBatch, 1, Landscape, Batch},
    {bisActiveReportQuickLaunchRoughnessImageSingleDoc, bisActiveReportQuickLaunchRoughnessImageSingleHTML,
     10202, c_imageSingle, 2},
    {bisActiveReportQuickLaunchRoughnessImageBatchDoc, bisActiveReportQuickLaunchRoughnessImageBatchHTML,
     10203, c_imageBatch, 4, Landscape, Batch},
    {bisActiveReportQuickLaunchPnPTableDoc, bisActiveReportQuickLaunchPnPTableHTML, 10204, c_grainTable, 1,
     Landscape},
    {bisActiveReportQuickLaunchPnPStatDoc, bisActiveReportQuickLaunchPnPStatHTML, 10205, c_grainStatistics,
     2},
};

constexpr const SRow* FindTemplate(EBuiltInSetting setting)
{
    const auto* const found = std::ranges::find_if(
        c_rows, [&](const SRow& row) { return row.doc == setting || row.html == setting; });
    return found == std::end(c_rows) ? nullptr : found;
}

static_assert(HoldsEverySet(ESettingType::ActiveReport, FindTemplate));

} // namespace

void WriteBuiltInReportTemplate(EBuiltInSetting setting, CInifile& ini)
{
    const SRow* const row = FindTemplate(setting);
    SReportTemplateSettings{.format = row->doc == setting ? EReportFormat::Doc : EReportFormat::HTML,
                            .orientation = row->orientation,
                            .scope = row->scope,
                            .columns = row->columns,
                            .title = GetString(row->titleId),
                            .grainQuantities = {row->grainQuantities.begin(), row->grainQuantities.end()},
                            .blocks = {row->blocks.begin(), row->blocks.end()}}
        .Save(ini);
}

} // namespace CommonUI
