#include "analysis/profile/UndefinedProfile.h"

#include "analysis/areal/HeightParameters.h"
#include "analysis/filter/SurfaceFilter.h"
#include "analysis/profile/SplitProfile.h"

#include <algorithm>
#include <vector>

namespace CommonUI::Analysis
{

namespace
{

// The parameters that are not defined for every profile that has a point, by what their keys end in.
struct SRow {
    std::string_view end;
    bool needsUnbroken;
    std::string_view reason; // where none of the others is it
};

constexpr SRow c_rows[] = {
    {"sk", false, "the profile is flat"},
    {"ku", false, "the profile is flat"},
    {"Rz", true, "the profile has fewer than five peaks or five valleys"},
    {"Sm", true, "the profile has no whole element"},
    {"c", true, "the profile has no whole element"},
    {"dq", false, "nowhere are seven neighbouring points valid"},
};

std::string_view Explain(std::string_view key, const SRange& range, bool isUnbroken)
{
    const bool isKnown = key.starts_with("4287") || (key.starts_with("R") && key.size() <= 3);
    const auto row = std::ranges::find_if(c_rows, [key](const SRow& r) { return key.ends_with(r.end); });
    if (!isKnown || row == std::end(c_rows))
        return {};
    if (row->needsUnbroken && !isUnbroken)
        return "points are missing";
    return row->needsUnbroken && range.highest == range.lowest ? "the profile is flat" : row->reason;
}

} // namespace

std::string_view ExplainProfile(std::string_view key, std::span<const double> heights, double dx,
                                const SProfileMethod& method)
{
    const SRange range = FindRange(heights);
    if (range.count == 0)
        return "the profile has no valid point";
    const double used = method.cutoff.value_or(DefaultCutoff(heights.size(), dx));
    if (key.starts_with("4287R") || key.starts_with("4287W")) {
        const SSurface line{.points = heights.size(), .lines = 1, .dx = dx, .dy = dx};
        const SIsoGaussianFilter filter{.extent = EGaussianExtent::Profile, .cutoff = used};
        if (const std::string_view refusal = FindRefusal(line, filter); !refusal.empty())
            return refusal;
    }
    if (const std::string_view reason = Explain(key, range, range.count == heights.size()); !reason.empty())
        return reason;
    // What its family says of itself.
    return ComputeProfileValue(heights, dx, key, method).reason;
}

} // namespace CommonUI::Analysis
