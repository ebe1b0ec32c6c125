#include "measurement/GrainLimit.h"

#include "analysis/grain/GrainThreshold.h"
#include "measurement/detail/DescribeLength.h"
#include "measurement/NamedSet.h"

#include <cmath>
#include <vector>

namespace CommonUI::Measurement
{

using Analysis::EGrainKind;
using Analysis::EGrainThreshold;

namespace
{

CStr RuleText(const SGrainThresholdSettings& settings)
{
    switch (settings.threshold) {
    case EGrainThreshold::Relative:
        return CStr::Format(u"%g %% of the way from the lowest point to the highest", settings.value);
    case EGrainThreshold::Percentile:
        return CStr::Format(u"the height below which %g %% of the points lie", settings.value);
    case EGrainThreshold::Otsu:
        return u"the height that parts the points into two classes by Otsu";
    default:
        return {};
    }
}

// An area in the square of the unit that suits its side.
CStr AreaText(double area)
{
    const CUnit unit(CUnit(CUnit::EUnitFactor::Unity).SuitableFactor(std::sqrt(area), 1));
    const double factor = unit.GetFactorValue();
    return CStr::Format(u"%g %s²", area / factor / factor, unit.GetText());
}

} // namespace

SGrainSearch LoadGrainSearch(CSettingsFactory& factory, const CStr& userSpec)
{
    SNamedSet set = LoadNamedSet(factory, userSpec, {ESettingType::PnP},
                                 u"only a threshold of particles or pores (PnP) says which grains there are");
    const CStr name = set.name;
    return {name, ReadNamedSet<SGrainThresholdSettings>(set, userSpec)};
}

SGrainLimit FindGrainLimit(const SMethod& method, const Analysis::SSurface& surface)
{
    if (method.grains)
        return *method.grains;
    const SGrainThresholdSettings& settings = method.grainSearch->settings;
    const double threshold = Analysis::FindThreshold(surface, settings.threshold, settings.value);
    if (std::isnan(threshold))
        throw Analysis::ENoPoints();
    return {.threshold = threshold,
            .kind = settings.kind,
            .selection = {.minimumArea = settings.minimumArea,
                          .minimumPoints = static_cast<std::size_t>(settings.minimumPoints),
                          .includesEdge = settings.includeEdgeGrains},
            .rule = RuleText(settings)};
}

CStr DescribeLimit(const SGrainLimit& limit)
{
    const CStr text = (limit.kind == EGrainKind::Pore ? u"pores below " : u"particles from ") +
                      DescribeLength(limit.threshold);
    return limit.rule.IsEmpty() ? text : text + u", " + limit.rule;
}

CStr DescribeLeftOut(std::size_t leftOut, const Analysis::SGrainSelection& selection)
{
    CStr text = CStr::Format(u"%d", leftOut);
    CStr separator = u" (";
    const auto add = [&](const CStr& reason) {
        text += separator + reason;
        separator = u", ";
    };
    if (selection.minimumPoints > 1)
        add(CStr::Format(u"of fewer than %d points", selection.minimumPoints));
    if (selection.minimumArea > 0)
        add(u"smaller than " + AreaText(selection.minimumArea));
    if (!selection.includesEdge)
        add(u"cut off by the border");
    return text + u")";
}

} // namespace CommonUI::Measurement
