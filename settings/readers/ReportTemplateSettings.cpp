#include "settings/readers/ReportTemplateSettings.h"

#include "settings/readers/detail/SettingsExchange.h"

namespace CommonUI
{

namespace
{

constexpr SEnumRow c_formats[] = {
    {.value = 0, .iniName = u"Doc", .textId = 10141},
    {.value = 1, .iniName = u"HTML", .textId = 10142},
};

constexpr SEnumRow c_orientations[] = {
    {.value = 0, .iniName = u"Portrait", .textId = 10143},
    {.value = 1, .iniName = u"Landscape", .textId = 10144},
};

constexpr SEnumRow c_scopes[] = {
    {.value = 0, .iniName = u"Single", .textId = 10145},
    {.value = 1, .iniName = u"Collection", .textId = 10146},
    {.value = 2, .iniName = u"Batch", .textId = 10147},
};

constexpr SEnumRow c_blocks[] = {
    {.value = 0, .iniName = u"Title", .textId = 10151},
    {.value = 1, .iniName = u"Information", .textId = 10152},
    {.value = 2, .iniName = u"Image", .textId = 10153},
    {.value = 3, .iniName = u"View3D", .textId = 10154},
    {.value = 4, .iniName = u"CrossSection", .textId = 10155},
    {.value = 5, .iniName = u"Profile", .textId = 10156},
    {.value = 6, .iniName = u"HeightHistogram", .textId = 10157},
    {.value = 7, .iniName = u"ForceCurve", .textId = 10158},
    {.value = 8, .iniName = u"ForceResults", .textId = 10159},
    {.value = 9, .iniName = u"GrainImage", .textId = 10160},
    {.value = 10, .iniName = u"GrainTable", .textId = 10161},
    {.value = 11, .iniName = u"GrainStatistics", .textId = 10162},
    {.value = 12, .iniName = u"GrainHistogram", .textId = 10163},
    {.value = 13, .iniName = u"RoughnessParameters", .textId = 10164},
    {.value = 14, .iniName = u"RoughnessStatistics", .textId = 10165},
    {.value = 15, .iniName = u"RoughnessChart", .textId = 10166},
    {.value = 16, .iniName = u"AbbottCurve", .textId = 10167},
    {.value = 17, .iniName = u"CalibrationResults", .textId = 10168},
    {.value = 18, .iniName = u"PitchChart", .textId = 10169},
    {.value = 19, .iniName = u"StepHistogram", .textId = 10170},
    {.value = 20, .iniName = u"Comment", .textId = 10171},
};

constexpr std::u16string_view c_section = u"ReportTemplate";

template<class TStore, class TSettings>
void Exchange(TStore& store, TSettings& settings)
{
    store.Choice(u"Format", GetReportFormatEnum(), settings.format);
    store.Choice(u"Orientation", GetReportOrientationEnum(), settings.orientation);
    store.Choice(u"Scope", GetReportScopeEnum(), settings.scope);
    store.IntegerWithin(u"Columns", settings.columns, {1, 4});
    store.NumberWithin(u"Margin", settings.margin, {0, 100});
    store.Text(u"Title", settings.title);
    store.Choices(u"GrainQuantities", GetMeasureParametersEnum(), settings.grainQuantities);
    if (store.Choices(u"Blocks", GetReportBlockEnum(), settings.blocks))
        store.Require(
            CRange(std::size_t{1}, SReportTemplateSettings::c_mostBlocks).Contains(settings.blocks.size()),
            u"Blocks", u"a list of 1 to 64 blocks");
}

} // namespace

const CEnum<EReportFormat>& GetReportFormatEnum()
{
    return GetEnumOfRows<EReportFormat, c_formats>();
}

const CEnum<EReportOrientation>& GetReportOrientationEnum()
{
    return GetEnumOfRows<EReportOrientation, c_orientations>();
}

const CEnum<EReportScope>& GetReportScopeEnum()
{
    return GetEnumOfRows<EReportScope, c_scopes>();
}

const CEnum<EReportBlock>& GetReportBlockEnum()
{
    return GetEnumOfRows<EReportBlock, c_blocks>();
}

bool SReportTemplateSettings::Load(CInifile& ini)
{
    CSettingsReader reader(ini, c_section);
    SReportTemplateSettings read{.blocks = {}};
    Exchange(reader, read);
    if (reader.IsUsable())
        *this = std::move(read);
    return reader.IsUsable();
}

void SReportTemplateSettings::Save(CInifile& ini) const
{
    CSettingsWriter writer(ini, c_section);
    Exchange(writer, *this);
}

} // namespace CommonUI
