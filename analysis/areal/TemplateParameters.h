#pragma once

#include "../../export/Export.h"
#include "../surface/Quantity.h"
#include "../surface/Surface.h"

#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace CommonUI::Analysis
{

/// A parameter whose inputs the caller chooses, from the material ratio curve of a surface as it is (see
/// CMaterialRatio). Lengths are in m, material ratios and percentiles in percent, 0 to 100. Heights count
/// upward from the mean of the valid points.
///
/// - Smr(c): material ratio at the height c, percent (ISO 25178-2)
/// - Smc(p): height at the material ratio p (ISO 25178-2)
/// - Sdc(p,q) = Smc(p) - Smc(q) (ISO 25178-2:2021)
/// - Vm(p), Vv(p): material above and void below the height Smc(p), volume per area (ISO 25178-2)
/// - Sch(p): height below which a share p of the points lies, Smc(100 % - p) (not of the standard)
///
/// @param key such as "Smr"
/// @param values of the inputs in the order above
/// @return NaN for another key, another number of values, a percent value out of range, a value that is NaN,
///     and without a valid point
COMMONUIANALYSIS_API double ComputeTemplate(const SSurface& surface, std::string_view key,
                                            std::span<const double> values);

/// Likewise for every line of a surface, from the heights of its evaluation length, the whole line (ISO
/// 4287):
///
/// - mr(c): material ratio at the height c, percent
/// - dc(p,q): height at the material ratio p less height at the material ratio q
/// - mr2(c0,dc): material ratio at the depth dc below the height at the material ratio c0, percent
///
/// The key is R before the name for the profile as it is, and 4287R, 4287W or 4287P for the roughness, the
/// waviness and the primary profile, such as "4287Rmr2". Heights count from the mean line, see
/// ComputeIso4287.
/// @param cutoff as of ComputeProfile
/// @return one value for each line, NaN as above and without a cut-off that is usable
COMMONUIANALYSIS_API std::vector<double> ComputeLineTemplates(const SSurface& surface, std::string_view key,
                                                              std::span<const double> values,
                                                              std::optional<double> cutoff = std::nullopt);

/// Why a parameter of either kind has no value whatever the surface: a clause such as "a material ratio lies
/// outside 0 to 100 %"; empty where the inputs are not at fault. @return a string literal
COMMONUIANALYSIS_API std::string_view ExplainTemplate(std::string_view key, std::span<const double> values);

/// The keys that ComputeTemplate knows.
COMMONUIANALYSIS_API std::vector<SQuantity> GetTemplates();
/// Those that ComputeLineTemplates knows.
COMMONUIANALYSIS_API std::vector<SQuantity> GetLineTemplates();

} // namespace CommonUI::Analysis
