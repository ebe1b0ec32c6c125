#include "settings/readers/GrainThresholdSettings.h"

#include "settings/readers/detail/SettingsExchange.h"

#include <limits>

namespace CommonUI
{

using Analysis::EGrainKind;
using Analysis::EGrainThreshold;

namespace
{

constexpr SEnumRow c_kinds[] = {
    {.value = static_cast<int>(EGrainKind::Particle), .iniName = u"Particles", .textId = 10131},
    {.value = static_cast<int>(EGrainKind::Pore), .iniName = u"Pores", .textId = 10132},
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

template<class TStore, class TSettings>
void Exchange(TStore& store, TSettings& settings)
{
    store.Choice(u"Side", GetGrainKindEnum(), settings.kind);
    store.Choice(u"Threshold", GetGrainThresholdEnum(), settings.threshold);
    store.NumberWithin(u"Value", settings.value, AllowedValue(settings.threshold));
    store.NumberWithin(u"MinimumArea", settings.minimumArea, {0, c_greatest});
    store.IntegerWithin(u"MinimumPoints", settings.minimumPoints, {1, std::numeric_limits<int>::max()});
    store.Flag(u"IncludeEdgeGrains", settings.includeEdgeGrains);
}

} // namespace

const CEnum<EGrainKind>& GetGrainKindEnum()
{
    return GetEnumOfRows<EGrainKind, c_kinds>();
}

const CEnum<EGrainThreshold>& GetGrainThresholdEnum()
{
    return GetEnumOfRows<EGrainThreshold, c_thresholds>();
}

bool SGrainThresholdSettings::Load(CInifile& ini)
{
    CSettingsReader reader(ini, c_section);
    reader.Require(ini.HasSection(c_section), u"there is no such section");
    SGrainThresholdSettings read;
    Exchange(reader, read);
    if (reader.IsUsable())
        *this = read;
    return reader.IsUsable();
}

void SGrainThresholdSettings::Save(CInifile& ini) const
{
    CSettingsWriter writer(ini, c_section);
    Exchange(writer, *this);
}

} // namespace CommonUI
