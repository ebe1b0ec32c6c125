#include "analysis/profile/Motifs.h"

#include "analysis/areal/HeightParameters.h"
#include "analysis/profile/detail/MotifSearch.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <string_view>

namespace CommonUI::Analysis
{

namespace
{

constexpr double c_noiseShare = 1e-9; // of the height of the profile
constexpr double c_outlier = 1.65;    // standard deviations above the mean: five of a hundred depths

constexpr std::string_view c_missingPoints = "motifs need a profile without missing points";
constexpr std::string_view c_shortLimit =
    "a limit of the motifs is not longer than two spacings of the points";
constexpr std::string_view c_noRoughness = "no motif of the profile is as narrow as the limit A";
constexpr std::string_view c_noWaviness = "no motif of the upper envelope is as narrow as the limit B";
constexpr std::string_view c_noEnvelope = "the profile has fewer than two peaks for an upper envelope";
constexpr std::string_view c_single = "there is a single motif";

struct SMoments {
    double mean = c_undefined;
    double deviation = c_undefined;
};

SMoments ComputeMoments(const std::vector<double>& values)
{
    const auto count = static_cast<double>(values.size());
    const double mean = std::accumulate(values.begin(), values.end(), 0.0) / count;
    double squares = 0;
    for (const double value : values)
        squares += (value - mean) * (value - mean);
    return {mean, std::sqrt(squares / (count - 1))}; // 0 / 0 for a single value
}

// What the parameters of one kind of motifs are read off.
struct SMeasures {
    SMoments widths{};
    SMoments depths{};
    double deepest = c_undefined;
    double limit = std::numeric_limits<double>::infinity(); // above which a depth is an outlier
    std::string_view reason{};                              // why there is none of all that
};

SMeasures Measure(const SMotifs& motifs, double widest, std::string_view none)
{
    std::vector<double> widths;
    std::vector<double> depths;
    for (std::size_t i = 0; i < motifs.valleys.size(); ++i) {
        if (motifs.GetWidth(i) > widest)
            continue;
        widths.push_back(motifs.GetWidth(i));
        depths.push_back(motifs.peaks[i].height - motifs.valleys[i]);
        depths.push_back(motifs.peaks[i + 1].height - motifs.valleys[i]);
    }
    if (widths.empty())
        return {.reason = none};
    SMeasures measures{.widths = ComputeMoments(widths), .depths = ComputeMoments(depths)};
    measures.deepest = *std::ranges::max_element(depths);
    measures.limit = measures.depths.mean + c_outlier * measures.depths.deviation;
    return measures;
}

// The same of depths that are the limit at most.
SMoments ComputeLimitedDepths(const SMotifs& motifs, double widest, double limit)
{
    std::vector<double> depths;
    for (std::size_t i = 0; i < motifs.valleys.size(); ++i)
        if (motifs.GetWidth(i) <= widest)
            for (const double peak : {motifs.peaks[i].height, motifs.peaks[i + 1].height})
                depths.push_back(std::min(peak - motifs.valleys[i], limit));
    return ComputeMoments(depths);
}

// The upper envelope line, without what isolated peaks and valleys of narrow motifs make of it.
std::vector<SLinePoint> MakeEnvelope(SMotifs motifs, double widest, double limit)
{
    constexpr double c_none = -std::numeric_limits<double>::infinity();
    std::vector<double> floors(motifs.peaks.size(), c_none); // the higher of the valleys beside a peak
    for (std::size_t i = 0; i < motifs.valleys.size(); ++i) {
        if (motifs.GetWidth(i) > widest)
            continue;
        const double lower = std::min(motifs.peaks[i].height, motifs.peaks[i + 1].height);
        const double valley = std::max(motifs.valleys[i], lower - limit);
        floors[i] = std::max(floors[i], valley);
        floors[i + 1] = std::max(floors[i + 1], valley);
    }
    for (std::size_t i = 0; i < floors.size(); ++i)
        if (floors[i] != c_none)
            motifs.peaks[i].height = std::min(motifs.peaks[i].height, floors[i] + limit);
    return std::move(motifs.peaks);
}

struct SStages {
    SMeasures roughness{};
    SMeasures waviness{};
    double envelopeHeight = c_undefined;
    std::string_view envelopeReason{};
};

struct SRow {
    std::string_view key;
    double (*get)(const SStages&);
    bool isDeviation = false;
};

constexpr SRow c_rows[] = {
    {"p12085_RAr", [](auto& s) { return s.roughness.widths.mean; }},
    {"p12085_Rr", [](auto& s) { return s.roughness.depths.mean; }},
    {"p12085_Rrx", [](auto& s) { return s.roughness.deepest; }},
    {"p12085_RSAr", [](auto& s) { return s.roughness.widths.deviation; }, true},
    {"p12085_RSr", [](auto& s) { return s.roughness.depths.deviation; }},
    {"p12085_WAr", [](auto& s) { return s.waviness.widths.mean; }},
    {"p12085_Wr", [](auto& s) { return s.waviness.depths.mean; }},
    {"p12085_WSAr", [](auto& s) { return s.waviness.widths.deviation; }, true},
    {"p12085_WSr", [](auto& s) { return s.waviness.depths.deviation; }},
    {"p12085_Wte", [](auto& s) { return s.envelopeHeight; }},
    {"p12085_Wrx", [](auto& s) { return s.waviness.deepest; }},
};

constexpr std::string_view c_envelopeKey = "p12085_Wte";

std::string_view GetReason(const SRow& row, const SStages& stages)
{
    if (!std::isnan(row.get(stages)))
        return {};
    if (row.key == c_envelopeKey)
        return stages.envelopeReason;
    const SMeasures& measures = row.key.starts_with("p12085_R") ? stages.roughness : stages.waviness;
    return row.isDeviation && measures.reason.empty() ? c_single : measures.reason;
}

SStages ComputeStages(std::span<const double> primary, double dx, const SMotifLimits& limits)
{
    const auto refuse = [](std::string_view reason) {
        return SStages{
            .roughness = {.reason = reason}, .waviness = {.reason = reason}, .envelopeReason = reason};
    };
    const SRange range = FindRange(primary);
    if (range.count == 0 || range.count < primary.size())
        return refuse(c_missingPoints);
    if (!(limits.roughness > 2 * dx && limits.waviness > 2 * dx))
        return refuse(c_shortLimit);
    std::vector<SLinePoint> line(primary.size());
    for (std::size_t i = 0; i < line.size(); ++i)
        line[i] = {static_cast<double>(i) * dx, primary[i]};
    const double noise = c_noiseShare * (range.highest - range.lowest);
    const double widest = limits.roughness * (1 + c_noiseShare);
    const SMotifs motifs = FindMotifs(line, limits.roughness, noise);

    SStages stages{.roughness = Measure(motifs, widest, c_noRoughness), .envelopeReason = c_noEnvelope};
    const double limit = stages.roughness.limit;
    if (stages.roughness.reason.empty())
        stages.roughness.depths = ComputeLimitedDepths(motifs, widest, limit);
    const std::vector<SLinePoint> envelope = MakeEnvelope(motifs, widest, limit);
    if (envelope.size() > 1) {
        const auto [lowest, highest] = std::ranges::minmax(envelope, {}, &SLinePoint::height);
        stages.envelopeHeight = highest.height - lowest.height;
    }
    stages.waviness = Measure(FindMotifs(envelope, limits.waviness, noise),
                              limits.waviness * (1 + c_noiseShare), c_noWaviness);
    return stages;
}

} // namespace

SMotifLimits DefaultMotifLimits(std::size_t points, double dx)
{
    const double length = static_cast<double>(points) * dx;
    const double fivefold = std::sqrt(5); // half the way to the next evaluation length
    if (length < 0.64e-3 * fivefold)
        return {.roughness = 0.02e-3, .waviness = 0.1e-3};
    if (length < 3.2e-3 * fivefold)
        return {.roughness = 0.1e-3, .waviness = 0.5e-3};
    return {};
}

std::vector<SValue> ComputeMotifs(std::span<const double> primary, double dx, const SMotifLimits& limits)
{
    const SStages stages = ComputeStages(primary, dx, limits);
    std::vector<SValue> values;
    for (const SRow& row : c_rows)
        values.push_back({row.key, row.get(stages), GetReason(row, stages)});
    return values;
}

std::vector<SQuantity> GetMotifQuantities()
{
    std::vector<SQuantity> quantities;
    for (const SRow& row : c_rows)
        quantities.push_back({row.key, ENeed::Motifs});
    return quantities;
}

} // namespace CommonUI::Analysis
