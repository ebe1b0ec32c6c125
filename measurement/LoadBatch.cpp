#include "measurement/Batch.h"
#include "measurement/detail/ReadSet.h"
#include "measurement/NamedSet.h"
#include "settings/readers/BatchSequenceSettings.h"
#include "settings/SetReference.h"

#include <algorithm>

namespace CommonUI::Measurement
{

namespace
{

using enum ESettingType;

// A step without a subject: what it is refused for is said behind its name.
SStep WithoutSubject(SStep step)
{
    step.userSpec = CStr();
    return step;
}

CStr WhyUseless(ESettingType type)
{
    switch (type) {
    case ColorScale:
        return u"a colour scale changes no result";
    case Animation:
        return u"an animation changes no result";
    case ActiveReport:
        return CStr(c_documentRefusal);
    default:
        return u"there is no analysis for settings of this type";
    }
}

SBatchWork LoadSet(CSettingsFactory& factory, const SBatchStep& step)
{
    const CStr& reference = step.settings;
    const bool isDocument = step.type == ActiveReport && IsDocumentTemplate(GetReferredPath(reference));
    if (isDocument)
        return {SSettingsEntry(CStr(GetReferredPath(reference)), step.type).m_Name,
                SBatchUseless{WhyUseless(step.type)}};
    SNamedSet set = LoadReferredSet(factory, step.type, reference);
    const CStr name = set.name;
    switch (step.type) {
    case PlaneCorr:
    case Filter:
        return {name, WithoutSubject(ReadStep(set, reference))};
    case PnP:
        return {name, SGrainSearch{name, ReadNamedSet<SGrainThresholdSettings>(set, reference)}};
    case ImageRoughness:
    case ProfileRoughness:
        return {name, ReadRoughness(set, reference)};
    case ActiveReport:
        return {name, ReadReportTemplate(set, reference)};
    default:
        return {name, SBatchUseless{WhyUseless(step.type)}};
    }
}

SBatchWork LoadWork(CSettingsFactory& factory, const SBatchStep& step)
{
    const CStr name = GetBatchOperationEnum().GetFriendlyString(static_cast<int>(step.operation));
    switch (step.operation) {
    case EBatchOperation::ShowProfiles:
        return {CStr::Format(u"%s (%d)", name, step.profiles), SBatchProfiles{step.profiles}};
    case EBatchOperation::InterpolateVoids:
        return {name, SBatchVoids()};
    default:
        return LoadSet(factory, step);
    }
}

} // namespace

bool SBatch::ChangesSurface() const
{
    return std::ranges::any_of(steps, [](const SBatchWork& step) {
        return std::holds_alternative<SStep>(step.work) || std::holds_alternative<SBatchVoids>(step.work);
    });
}

SBatch LoadBatch(CSettingsFactory& factory, const CStr& userSpec)
{
    SNamedSet set = LoadNamedSet(factory, userSpec, {Batch}, u"only a batch sequence (Batch) can be run");
    const auto sequence = ReadNamedSet<SBatchSequenceSettings>(set, userSpec);
    SBatch batch;
    for (const SBatchStep& step : sequence.steps) {
        batch.steps.push_back(LoadWork(factory, step));
        if (step.operation == EBatchOperation::Apply)
            batch.steps.back().file = CStr(GetReferredPath(step.settings));
    }
    return batch;
}

} // namespace CommonUI::Measurement
