#pragma once

#include "../common/ini/Inifile.h"
#include "../export/Export.h"

#include <vector>

namespace CommonUI
{

/// A key of two sets.
struct SSettingsDifference {
    /// Which of the sets has the key, and with what value.
    enum class EKind {
        Same,      ///< both have it with the same meaning
        Different, ///< both have it, with other values
        OnlyLeft,
        OnlyRight,
    };

    CStr section{};           ///< that the key is in
    CStr key{};               ///< its name in the section
    CStr left{};              ///< as it is written; empty where the set does not have the key
    CStr right{};             ///< likewise, of the right set
    EKind kind = EKind::Same; ///< what comparing the values has told

    friend bool operator==(const SSettingsDifference&, const SSettingsDifference&) = default;
};

/// All keys of two sets: those of the left one in its order, section by section, each section followed by the
/// keys that only the right one has in it; then the other sections of the right one. Values are the same if
/// their texts are, or if they are numbers, or lists with numbers, of the same values: 1E-6 is 0.000001. So
/// are lengths behind whose number a unit stands: 2.5 µm is 2500 nm.
COMMONUI_API std::vector<SSettingsDifference> CompareSettings(const CInifile& left, const CInifile& right);

/// How many keys are not the same in both.
COMMONUI_API std::size_t CountDifferences(const std::vector<SSettingsDifference>& keys);

} // namespace CommonUI
