#pragma once

#include "catalogue/BuiltInSetting.h"

#include <cstdint>

namespace CommonUI
{

/// What identifies a settings set and says where it comes from.
struct COMMONUI_API SSettingsEntry {
    /// The identifier of an entry that has none.
    COMMONUI_CONSTANT std::int32_t s_InvalidID = -1;

    SSettingsEntry() = default;
    /// A set in a file, still without an identifier. The name is the last part of the path, with its
    /// extension; the path is kept as it is.
    SSettingsEntry(const CStr& path, ESettingType type);
    /// A set of the catalogue: its number is the identifier, its display text the name.
    SSettingsEntry(EBuiltInSetting setting, ESettingType type);

    /// Compares the name, exactly.
    bool operator==(const CStr& name) const noexcept { return m_Name == name; }
    /// Compares the identifier.
    bool operator==(int id) const noexcept { return m_ID == id; }

    std::int32_t m_ID = s_InvalidID;             ///< within the factory that gave it; never stored
    CStr m_Name;                                 ///< shown to the user
    bool m_IsFile = false;                       ///< whether the set lives in a file
    ESettingType m_Type = ESettingType::Unknown; ///< the kind of tool that the set is for
    CStr m_File;                                 ///< full path; empty for a built-in set
    EBuiltInSetting m_BuiltIn{};                 ///< means nothing when the set lives in a file
};

} // namespace CommonUI
