#include "measurement/Steps.h"

#include "measurement/NamedSet.h"

namespace CommonUI::Measurement
{

namespace
{

SStep LoadStep(CSettingsFactory& factory, const CStr& userSpec)
{
    SNamedSet set = LoadNamedSet(factory, userSpec, {ESettingType::PlaneCorr, ESettingType::Filter},
                                 u"only plane corrections (PlaneCorr) and filters (Filter) can be applied");
    SStep step{.userSpec = userSpec, .name = set.name, .settings = {}};
    if (set.type == ESettingType::PlaneCorr)
        step.settings = ReadNamedSet<SPlaneCorrectionSettings>(set, userSpec);
    else
        step.settings = ReadNamedSet<SFilterSettings>(set, userSpec);
    return step;
}

} // namespace

std::vector<SStep> LoadSteps(CSettingsFactory& factory, const std::vector<CStr>& userSpecs)
{
    std::vector<SStep> steps;
    steps.reserve(userSpecs.size());
    for (const CStr& userSpec : userSpecs)
        steps.push_back(LoadStep(factory, userSpec));
    return steps;
}

} // namespace CommonUI::Measurement
