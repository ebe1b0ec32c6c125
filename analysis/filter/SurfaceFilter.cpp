#include "analysis/filter/SurfaceFilter.h"

#include <algorithm>
#include <cmath>

namespace CommonUI::Analysis
{

namespace
{

constexpr std::string_view c_badWindow = "the sizes of the filter's window are not odd numbers from 1 to 255";
constexpr std::string_view c_badThreshold = "the filter's threshold is not a number of 0 or more";

constexpr bool IsWindow(std::size_t size, std::size_t largest = c_largestWindow)
{
    return size % 2 == 1 && size <= largest;
}

bool IsThreshold(double threshold)
{
    return threshold >= 0 && std::isfinite(threshold);
}

std::string_view Check(const SSurface&, const SMeanFilter& filter)
{
    return IsWindow(filter.columns) && IsWindow(filter.rows) ? "" : c_badWindow;
}

std::string_view Check(const SSurface&, const SGaussianSmoothing& smoothing)
{
    if (!IsWindow(smoothing.columns) || !IsWindow(smoothing.rows))
        return c_badWindow;
    return smoothing.sd > 0 && std::isfinite(smoothing.sd)
               ? ""
               : "the filter's standard deviation is not a number above 0";
}

std::string_view Check(const SSurface&, const SKernel& kernel)
{
    if (!IsWindow(kernel.columns, c_largestKernel) || !IsWindow(kernel.rows, c_largestKernel))
        return "the sizes of the filter's kernel are not odd numbers from 1 to 63";
    if (kernel.weights.size() != kernel.columns * kernel.rows)
        return "the filter has not one weight for each point of its window";
    if (!std::all_of(kernel.weights.begin(), kernel.weights.end(), [](double w) { return std::isfinite(w); }))
        return "a weight of the filter is not a number";
    if (std::all_of(kernel.weights.begin(), kernel.weights.end(), [](double w) { return w == 0; }))
        return "all weights of the filter are 0";
    return "";
}

std::string_view Check(const SSurface&, const SMedianFilter& filter)
{
    if (!IsWindow(filter.columns) || !IsWindow(filter.rows))
        return c_badWindow;
    if (!IsThreshold(filter.threshold))
        return c_badThreshold;
    return filter.threshold > 0 && filter.columns * filter.rows < 5
               ? "a median with a threshold needs a window of at least 5 points"
               : "";
}

std::string_view Check(const SSurface&, const SLineSpikeFilter& filter)
{
    if (!IsWindow(filter.points))
        return c_badWindow;
    return IsThreshold(filter.threshold) ? "" : c_badThreshold;
}

std::string_view Check(const SSurface&, const SStreakFilter& filter)
{
    if (filter.width < 1 || filter.width > c_largestWindow || filter.length < 1)
        return "the size of the streaks is not 1 or more points and 1 to 255 lines";
    return IsThreshold(filter.threshold) ? "" : c_badThreshold;
}

std::string_view Check(const SSurface& surface, const SIsoGaussianFilter& filter)
{
    switch (CheckCutoff(surface, filter)) {
    case ECutoff::Usable:
        return "";
    case ECutoff::TooShort:
        return "the cut-off is not longer than two spacings of the surface's points";
    case ECutoff::TooLong:
        return "the cut-off is longer than the surface";
    case ECutoff::Undefined:
        break;
    }
    return "the cut-off or the spacing of the surface's points is not a length above 0";
}

// Calls one of several functions, by the type of the argument.
template<class... FCalled>
struct SByType : FCalled... {
    using FCalled::operator()...;
};

template<class... FCalled>
SByType(FCalled...) -> SByType<FCalled...>;

} // namespace

std::string_view FindRefusal(const SSurface& surface, const CSurfaceFilter& filter)
{
    return std::visit([&](const auto& f) { return Check(surface, f); }, filter);
}

std::optional<SSurface> Filter(const SSurface& surface, const CSurfaceFilter& filter)
{
    if (!FindRefusal(surface, filter).empty())
        return std::nullopt;
    return std::visit(SByType{
                          [&](const SMeanFilter& f) { return FilterMean(surface, f); },
                          [&](const SGaussianSmoothing& f) { return SmoothGaussian(surface, f); },
                          [&](const SKernel& f) { return ApplyKernel(surface, f); },
                          [&](const SMedianFilter& f) { return FilterMedian(surface, f); },
                          [&](const SLineSpikeFilter& f) { return RemoveLineSpikes(surface, f); },
                          [&](const SStreakFilter& f) { return RemoveStreaks(surface, f); },
                          [&](const SIsoGaussianFilter& f) { return FilterIsoGaussian(surface, f); },
                      },
                      filter);
}

} // namespace CommonUI::Analysis
