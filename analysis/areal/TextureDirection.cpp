#include "analysis/areal/detail/TextureDirection.h"

#include "analysis/numeric/detail/Parallel.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

namespace CommonUI::Analysis
{

namespace
{

constexpr double c_degree = std::numbers::pi / 180;
constexpr double c_coarseStep = 0.5 * c_degree;
constexpr std::size_t c_coarseCount = 360; // of half a circle
constexpr double c_coarseBlur = 0.25 * c_degree;

void Turn(SRay& ray, double angle)
{
    ray.x = std::cos(angle);
    ray.y = std::sin(angle);
}

// The angular spectrum at angles from `first` on.
std::vector<double> ComputeAngular(const CPowerSpectrum& spectrum, const SRay& range, double first,
                                   double step, std::size_t count)
{
    std::vector<double> angular(count);
    ComputeInShares(count, [&](std::size_t begin, std::size_t end) {
        SRay ray = range;
        for (std::size_t i = begin; i < end; ++i) {
            const double angle = first + static_cast<double>(i) * step;
            Turn(ray, angle);
            angular[i] = spectrum.Integrate(ray);
        }
    });
    return angular;
}

} // namespace

STextureDirection ComputeTextureDirection(const CPowerSpectrum& spectrum)
{
    SRay ray{.x = 1, .y = 0, .width = spectrum.GetLowest(), .blur = c_coarseBlur};
    const std::vector<double> coarse =
        ComputeAngular(spectrum, ray, -std::numbers::pi / 2, c_coarseStep, c_coarseCount);
    const double greatest = *std::max_element(coarse.begin(), coarse.end());
    if (!(greatest > 0))
        return {};
    const double near = FindMaximum(coarse, true) * c_coarseStep - std::numbers::pi / 2;

    // Again without blur, in steps that see the narrowest maximum there can be.
    ray.blur = 0;
    const double fineStep = std::min(ray.width / spectrum.GetHighest() / 3, c_coarseStep / 2);
    const auto half = static_cast<std::size_t>(std::ceil(1.5 * c_coarseStep / fineStep));
    const double first = near - static_cast<double>(half) * fineStep;
    const std::vector<double> fine = ComputeAngular(spectrum, ray, first, fineStep, 2 * half + 1);
    const double angle = first + FindMaximum(fine, false) * fineStep;

    // The spectrum that the index is of has the blur, whose maximum may lie between the coarse steps.
    ray.blur = c_coarseBlur;
    Turn(ray, angle);
    const double mean = std::accumulate(coarse.begin(), coarse.end(), 0.0) / c_coarseCount;
    const double degrees = angle / c_degree;
    return {.degrees = degrees > 90    ? degrees - 180
                       : degrees > -90 ? degrees
                                       : degrees + 180,
            .index = mean / std::max(greatest, spectrum.Integrate(ray))};
}

} // namespace CommonUI::Analysis
