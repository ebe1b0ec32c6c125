#include "settings/BatchSequenceSettings.h"

#include "settings/BuiltInSetting.h"
#include "settings/detail/SettingFields.h"

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
constexpr std::u16string_view c_builtIn = u"BUILT-IN:";
constexpr std::u16string_view c_file = u"FILE:";

CStr StepKey(std::size_t index)
{
    return CStr::Format(u"Step%u", static_cast<unsigned>(index + 1));
}

template<class TVisitor, class TStep>
void VisitFields(TVisitor& visit, TStep& step, const CStr& key)
{
    visit(key, step.operation, GetBatchOperationEnum());
    if (step.operation == EBatchOperation::Apply) {
        visit(key + u"_Type", step.type, GetSettingTypeEnum());
        visit(key + u"_Settings", step.settings);
    } else if (step.operation == EBatchOperation::ShowProfiles) {
        visit(key + u"_Profiles", step.profiles, {1, 16});
    }
}

bool IsSettingsOf(ESettingType type, std::u16string_view settings)
{
    if (settings.starts_with(c_file))
        return settings.size() > c_file.size();
    if (!settings.starts_with(c_builtIn))
        return false;
    const auto& builtIns = GetBuiltInSettingEnum();
    const auto found = builtIns.FindIniName(settings.substr(c_builtIn.size()));
    return found != builtIns.end() && GetSettingType(EBuiltInSetting{found->GetValue()}) == type;
}

void ReadStep(Detail::CSettingReader& reader, SBatchStep& step, const CStr& key)
{
    VisitFields(reader, step, key);
    if (!reader.IsUsable() || step.operation != EBatchOperation::Apply)
        return;
    if (step.type == ESettingType::Unknown || step.type == ESettingType::Batch)
        reader.Refuse(key + u"_Type: no type that a step can apply");
    else if (!IsSettingsOf(step.type, step.settings))
        reader.Refuse(CStr::Format(u"%s_Settings: \"%s\" is no set of this type", key, step.settings));
}

} // namespace

const CEnum<EBatchOperation>& GetBatchOperationEnum()
{
    return GetEnumOfRows<EBatchOperation, c_operations>();
}

bool SBatchSequenceSettings::Load(CInifile& ini)
{
    Detail::CSettingReader reader(ini, ESettingType::Batch, c_section);
    SBatchSequenceSettings read;
    for (CStr key = StepKey(0); reader.IsUsable() && ini.HasKey(key); key = StepKey(read.steps.size())) {
        if (read.steps.size() == c_mostSteps)
            reader.Refuse(key + u": too many steps");
        else
            ReadStep(reader, read.steps.emplace_back(), key);
    }
    if (reader.IsUsable() && read.steps.empty())
        reader.Refuse(u"no step");
    if (reader.IsUsable())
        *this = std::move(read);
    return reader.IsUsable();
}

void SBatchSequenceSettings::Save(CInifile& ini) const
{
    Detail::CSettingWriter writer(ini, c_section);
    for (std::size_t i = 0; i < steps.size(); ++i)
        VisitFields(writer, steps[i], StepKey(i));
}

} // namespace CommonUI
