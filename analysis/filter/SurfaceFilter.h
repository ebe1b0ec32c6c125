#pragma once

#include "../../export/Export.h"
#include "../surface/Surface.h"
#include "IsoGaussianFilter.h"
#include "KernelFilter.h"
#include "MedianFilter.h"
#include "StreakFilter.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <variant>

namespace CommonUI::Analysis
{

/// Any filter of surfaces.
using CSurfaceFilter = std::variant<SMeanFilter, SGaussianSmoothing, SKernel, SMedianFilter, SLineSpikeFilter,
                                    SStreakFilter, SIsoGaussianFilter>;

/// The most columns and rows of a window, whose filter takes time in proportion to one of them.
inline constexpr std::size_t c_largestWindow = 255;
/// The most columns and rows of a kernel, whose filter takes time in proportion to both.
inline constexpr std::size_t c_largestKernel = 63;

/// Why a filter cannot be applied to a surface: a sentence in English without its full stop, such as "the
/// cut-off is longer than the surface"; empty if it can.
COMMONUIANALYSIS_API std::string_view FindRefusal(const SSurface& surface, const CSurfaceFilter& filter);

/// The filtered surface; none where FindRefusal gives a reason. Missing points have no weight and stay
/// missing. Runs in several threads.
COMMONUIANALYSIS_API std::optional<SSurface> Filter(const SSurface& surface, const CSurfaceFilter& filter);

} // namespace CommonUI::Analysis
