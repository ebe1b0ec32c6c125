#include "settings/readers/BatchSequenceSettings.h"

#include "settings/readers/detail/SettingsExchange.h"
#include "settings/SetReference.h"

namespace CommonUI
{

namespace
{

constexpr SEnumRow c_operations[] = {
    {.value = 0, .iniName = u"Apply", .textId = 10181},
    {.value = 1, .iniName = u"ShowProfiles", .textId = 10182},
    {.value = 2, .iniName = u"InterpolateVoids", .textId = 10183},
};

constexpr std::u16string_view c_section = u"Batch";

CStr StepKey(std::size_t index)
{
    return CStr::Format(u"Step%u", static_cast<unsigned>(index + 1));
}

bool IsSettingsOf(ESettingType type, std::u16string_view settings)
{
    return !GetReferredPath(settings).empty() || FindBuiltIn(settings, type);
}

template<class TStore, class TStep>
void Exchange(TStore& store, TStep& step, const CStr& key)
{
    if (!store.Choice(key, GetBatchOperationEnum(), step.operation))
        return;
    if (step.operation == EBatchOperation::ShowProfiles)
        store.IntegerWithin(key + u"_Profiles", step.profiles, {1, 16});
    if (step.operation != EBatchOperation::Apply)
        return;
    const bool isType = store.NeededChoice(key + u"_Type", GetSettingTypeEnum(), step.type) &&
                        store.Require(step.type != ESettingType::Unknown && step.type != ESettingType::Batch,
                                      key + u"_Type", u"a type that a step can apply");
    store.Text(key + u"_Settings", step.settings);
    if (isType)
        store.Require(IsSettingsOf(step.type, step.settings), key + u"_Settings", u"a set of this type");
}

} // namespace

const CEnum<EBatchOperation>& GetBatchOperationEnum()
{
    return GetEnumOfRows<EBatchOperation, c_operations>();
}

bool SBatchSequenceSettings::Load(CInifile& ini)
{
    CSettingsReader reader(ini, c_section);
    SBatchSequenceSettings read;
    for (CStr key = StepKey(0); ini.HasKey(key); key = StepKey(read.steps.size())) {
        if (!reader.Require(read.steps.size() < c_mostSteps, u"too many steps"))
            break;
        Exchange(reader, read.steps.emplace_back(), key);
    }
    reader.Require(!read.steps.empty(), u"no step");
    if (reader.IsUsable())
        *this = std::move(read);
    return reader.IsUsable();
}

void SBatchSequenceSettings::Save(CInifile& ini) const
{
    CSettingsWriter writer(ini, c_section);
    for (std::size_t i = 0; i < steps.size(); ++i)
        Exchange(writer, steps[i], StepKey(i));
}

} // namespace CommonUI
