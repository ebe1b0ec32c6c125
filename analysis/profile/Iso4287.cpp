#include "analysis/profile/Iso4287.h"

#include "analysis/areal/HeightParameters.h"
#include "analysis/numeric/detail/Summation.h"
#include "analysis/profile/ProfileElements.h"

#include <array>
#include <cmath>
#include <string_view>

namespace CommonUI::Analysis
{

namespace
{

constexpr std::size_t c_count = 11;
constexpr std::size_t c_total = 8; // index of Rt, Wt, Pt
using CKeys = std::array<std::string_view, c_count>;
using CParameters = std::array<double, c_count>;

constexpr CKeys c_roughnessKeys = {"4287Ra", "4287Rq", "4287Rsk", "4287Rku", "4287Rp", "4287Rv",
                                   "4287Rz", "4287Rc", "4287Rt",  "4287RSm", "4287Rdq"};
constexpr CKeys c_wavinessKeys = {"4287Wa", "4287Wq", "4287Wsk", "4287Wku", "4287Wp", "4287Wv",
                                  "4287Wz", "4287Wc", "4287Wt",  "4287WSm", "4287Wdq"};
constexpr CKeys c_primaryKeys = {"4287Pa", "4287Pq", "4287Psk", "4287Pku", "4287Pp", "4287Pv",
                                 "4287Pz", "4287Pc", "4287Pt",  "4287PSm", "4287Pdq"};

CParameters ComputeLength(std::span<const double> profile, const SHeightParameters& h,
                          const CProfileSplitter& splitter)
{
    const double dx = splitter.GetSpacing();
    const SProfileElements elements = ComputeElements(GetUnbroken(profile, h.mean), splitter.GetLeastWidth());
    const double height = h.highest - h.lowest;
    return {h.average,
            h.rms,
            h.skewness,
            h.kurtosis,
            h.GetPeak(),
            h.GetPit(),
            height,
            elements.height,
            height,
            elements.spacing * dx,
            ComputeSlope(profile, dx)};
}

// The means over the sampling lengths.
CParameters ComputeRoughness(std::span<const double> profile, const CProfileSplitter& splitter)
{
    CParameters sums{};
    CParameters counts{};
    for (const auto length : splitter.GetSamplingLengths(profile)) {
        const CParameters values = ComputeLength(length, ComputeHeightParameters(length, 0), splitter);
        for (std::size_t i = 0; i < c_count; ++i) {
            sums[i] += std::isnan(values[i]) ? 0 : values[i];
            counts[i] += !std::isnan(values[i]);
        }
    }
    for (std::size_t i = 0; i < c_count; ++i)
        sums[i] /= counts[i]; // 0 / 0 where it is not defined
    const SRange range = FindRange(profile);
    sums[c_total] = range.highest - range.lowest;
    return sums;
}

CParameters ComputeParameters(ENeed need, std::span<const double> profile, const CProfileSplitter& splitter)
{
    if (need == ENeed::RoughnessProfile)
        return ComputeRoughness(profile, splitter);
    return ComputeLength(profile,
                         need == ENeed::WavinessProfile ? ComputeHeightParameters(profile, 0)
                                                        : ComputeHeightParameters(profile),
                         splitter);
}

const CKeys& GetKeys(ENeed need)
{
    return need == ENeed::RoughnessProfile  ? c_roughnessKeys
           : need == ENeed::WavinessProfile ? c_wavinessKeys
                                            : c_primaryKeys;
}

} // namespace

std::vector<SValue> ComputeIso4287(ENeed need, std::span<const double> profile,
                                   const CProfileSplitter& splitter)
{
    const CParameters parameters = ComputeParameters(need, profile, splitter);
    std::vector<SValue> values;
    for (std::size_t i = 0; i < c_count; ++i)
        values.push_back({GetKeys(need)[i], parameters[i]});
    return values;
}

std::vector<SQuantity> GetIso4287Quantities(ENeed need)
{
    std::vector<SQuantity> quantities;
    for (const std::string_view key : GetKeys(need))
        quantities.push_back({key, need});
    return quantities;
}

double ComputeSlope(std::span<const double> z, double dx)
{
    if (z.size() < 7)
        return c_undefined;
    const auto [squares, points] =
        PairwiseSum(3, z.size() - 3, [&](std::size_t i) {
            const double slope =
                (z[i + 3] - 9 * z[i + 2] + 45 * z[i + 1] - 45 * z[i - 1] + 9 * z[i - 2] - z[i - 3]) /
                (60 * dx);
            return std::isnan(slope + z[i]) ? SSums<2>{} : SSums<2>{slope * slope, 1};
        }).values;
    return std::sqrt(squares / points);
}

std::vector<double> GetUnbroken(std::span<const double> heights, double mean)
{
    std::vector<double> profile;
    profile.reserve(heights.size());
    for (const double z : heights) {
        if (std::isnan(z))
            return {};
        profile.push_back(z - mean);
    }
    return profile;
}

} // namespace CommonUI::Analysis
