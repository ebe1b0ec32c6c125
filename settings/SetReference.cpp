#include "settings/SetReference.h"

namespace CommonUI
{

CStr MakeReference(EBuiltInSetting setting)
{
    return c_builtInPrefix + GetBuiltInSettingEnum().GetIniName(static_cast<int>(setting));
}

std::optional<EBuiltInSetting> FindBuiltIn(std::u16string_view reference, ESettingType type)
{
    if (!reference.starts_with(c_builtInPrefix))
        return {};
    const auto& settings = GetBuiltInSettingEnum();
    const auto found = settings.FindIniName(reference.substr(c_builtInPrefix.size()));
    if (found == settings.end() || GetSettingType(EBuiltInSetting{found->GetValue()}) != type)
        return {};
    return EBuiltInSetting{found->GetValue()};
}

std::u16string_view GetReferredPath(std::u16string_view reference)
{
    return reference.starts_with(c_filePrefix) ? reference.substr(c_filePrefix.size())
                                               : std::u16string_view();
}

} // namespace CommonUI
