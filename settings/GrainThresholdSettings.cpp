#include "settings/GrainThresholdSettings.h"

#include "settings/detail/SettingFields.h"

#include <limits>

namespace CommonUI
{

namespace
{

constexpr SEnumRow c_sides[] = {
    {.value = 0, .iniName = u"Particles", .textId = 10131},
    {.value = 1, .iniName = u"Pores", .textId = 10132},
};

constexpr SEnumRow c_thresholds[] = {
    {.value = 0, .iniName = u"Absolute", .textId = 10133},
    {.value = 1, .iniName = u"Relative", .textId = 10134},
    {.value = 2, .iniName = u"Percentile", .textId = 10135},
    {.value = 3, .iniName = u"Otsu", .textId = 10136},
};

constexpr std::u16string_view c_section = u"GrainThreshold";
constexpr double c_greatest = std::numeric_limits<double>::max();

constexpr CRange<double> AllowedValue(EGrainThreshold threshold)
{
    const bool isShare = threshold == EGrainThreshold::Relative || threshold == EGrainThreshold::Percentile;
    return isShare ? CRange(0.0, 100.0) : CRange(-c_greatest, c_greatest);
}

template<class TVisitor, class TSettings>
void VisitFields(TVisitor& visit, TSettings& settings)
{
    visit(u"Side", settings.side, GetGrainSideEnum());
    visit(u"Threshold", settings.threshold, GetGrainThresholdEnum());
    visit(u"Value", settings.value, AllowedValue(settings.threshold));
    visit(u"MinimumArea", settings.minimumArea, {0, c_greatest});
    visit(u"MinimumPoints", settings.minimumPoints, {1, std::numeric_limits<int>::max()});
    visit(u"IncludeEdgeGrains", settings.includeEdgeGrains);
}

} // namespace

const CEnum<EGrainSide>& GetGrainSideEnum()
{
    return GetEnumOfRows<EGrainSide, c_sides>();
}

const CEnum<EGrainThreshold>& GetGrainThresholdEnum()
{
    return GetEnumOfRows<EGrainThreshold, c_thresholds>();
}

bool SGrainThresholdSettings::Load(CInifile& ini)
{
    Detail::CSettingReader reader(ini, ESettingType::PnP, c_section);
    SGrainThresholdSettings read;
    VisitFields(reader, read);
    if (reader.IsUsable())
        *this = read;
    return reader.IsUsable();
}

void SGrainThresholdSettings::Save(CInifile& ini) const
{
    Detail::CSettingWriter writer(ini, c_section);
    VisitFields(writer, *this);
}

} // namespace CommonUI
