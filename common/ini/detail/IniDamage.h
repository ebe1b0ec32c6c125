#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace CommonUI
{

/// The section in which a store keeps the version of its file, and the key.
constexpr std::u16string_view c_versionSection = u"FileFormat";
constexpr std::u16string_view c_versionKey = u"Version";

/// What is wrong with the bytes of a store.
enum class EIniDamage { NoText, WrongEncoding, CutOff };

struct SIniDamage {
    EIniDamage kind;
    int line = 0; ///< that is cut off, or behind which something is missing; from 1
};

/// Looks at a file alone: whether it is text in the encoding that its mark tells of, and whether its last
/// line, without a line end, is none that could stand there.
std::optional<SIniDamage> FindIniDamage(const std::string& bytes);

/// Looks at a file beside a whole earlier version of it, too: what stood at its end may be gone.
std::optional<SIniDamage> FindIniDamage(const std::string& bytes, const std::string& earlier);

} // namespace CommonUI
