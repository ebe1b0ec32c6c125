#pragma once

#include "../../common/Str.h"

namespace CommonUI
{

/// What a result stands for.
enum class EValueState {
    Value,         ///< a value
    NotApplicable, ///< there is none for these data
    NotComputed,   ///< nobody has computed it
    Failed         ///< computing it did not succeed
};

/// What a result stands for, and why there is no value.
struct SValueState {
    EValueState state = EValueState::Value; ///< whether there is a value
    /// A clause without a full stop, such as "the profile has no whole element"; empty where nothing is to be
    /// said.
    CStr reason{};

    bool operator==(const SValueState& other) const = default;
};

} // namespace CommonUI
