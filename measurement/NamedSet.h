#pragma once

#include "../export/Export.h"
#include "../settings/factory/SettingsFactory.h"
#include "FailureReason.h"
#include "Request.h"

#include <initializer_list>
#include <string_view>

namespace CommonUI::Measurement
{

/// A settings set that a user specification names.
struct SNamedSet {
    ESettingType type = ESettingType::Unknown; ///< which says how the settings are read
    CStr name{};                               ///< where it stands in a menu: "Filter / Smoothing / Mean 3x3"
    CSettings settings{};                      ///< what the set holds
};

/// Loads the set of a user specification, which becomes the most recent one of its type. A path is relative
/// to the current folder.
/// @param types those of which it may be
/// @param refusal what is said of a set of another type, such as u"only filters (Filter) can be applied"
/// @throws EUnknownSet
/// @throws ERequest for what is no user specification or of another type, and for a set that cannot be loaded
COMMONUIMEASUREMENT_API SNamedSet LoadNamedSet(CSettingsFactory& factory, const CStr& userSpec,
                                               std::initializer_list<ESettingType> types,
                                               std::u16string_view refusal);

/// Loads the set of a type that a stored reference means, such as u"BUILT-IN:CSQuickLaunchGrey", without a
/// place among the recent ones.
/// @throws ERequest for a set that cannot be loaded
COMMONUIMEASUREMENT_API SNamedSet LoadReferredSet(CSettingsFactory& factory, ESettingType type,
                                                  const CStr& reference);

/// Reads the settings of type T that a set holds.
/// @throws ERequest, with the user specification and the reason, for an unusable set
template<class T>
T ReadNamedSet(SNamedSet& set, const CStr& userSpec)
{
    const CFailureReason reason;
    T settings;
    if (!settings.Load(set.settings))
        throw ERequest(userSpec, reason.GetText());
    return settings;
}

} // namespace CommonUI::Measurement
