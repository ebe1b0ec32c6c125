#pragma once

#include "../../analysis/areal/MaterialRatio.h"
#include "../../analysis/profile/PowerSpectrum.h"
#include "../../common/Range.h"
#include "../../common/Unit.h"
#include "../../export/Export.h"
#include "Plot.h"

#include <optional>
#include <vector>

namespace CommonUI::Measurement
{

/// How often heights are.
struct SHistogram {
    CRange<double> heights{};     ///< of the points, m
    CRange<double> range{};       ///< of all classes, which have one width, m; it has a length
    std::vector<double> shares{}; ///< of the points in each class, from the lowest, percent
    double mean = 0;              ///< of the heights, m

    /// How wide each class is, m. There must be classes.
    double GetClassWidth() const { return range.GetLength() / static_cast<double>(shares.size()); }
};

/// Of 7 to 128 classes, by the number of points.
COMMONUIMEASUREMENT_API SHistogram ComputeHistogram(const Analysis::CMaterialRatio& curve);

/// A material ratio curve with the construction of its core.
struct SMaterialRatioFigure {
    /// Core, peaks and dales, and the heights at which the straight line of the core begins, at 0 %, and
    /// ends, at 100 %.
    struct SConstruction {
        Analysis::SCore core{}; ///< the parameters of core, peaks and dales, m and percent
        double top = 0;         ///< where the straight line begins, at 0 %, m
        double bottom = 0;      ///< where the straight line ends, at 100 %, m
    };

    std::vector<SCurvePoint> points{}; ///< material ratio in percent, height in m
    std::optional<SConstruction>
        construction{};     ///< of a surface whose core can be computed; nothing of others
    CRange<double> range{}; ///< of heights, with all of the construction and a length
};

/// @param isAreal whether the curve is that of a surface: a profile has no such parameters
COMMONUIMEASUREMENT_API SMaterialRatioFigure MakeMaterialRatioFigure(const Analysis::CMaterialRatio& curve,
                                                                     bool isAreal = true);

/// A power spectrum for logarithmic axes.
struct SSpectrumFigure {
    CUnit unit{};                      ///< of length, in whose inverse the frequencies are
    CRange<double> frequencies{};      ///< in that
    CRange<double> powers{};           ///< m³, down to a trillionth of the greatest: below is rounding
    std::vector<SCurvePoint> points{}; ///< NaN beyond the range
};

/// @param spectrum of two frequencies at least
COMMONUIMEASUREMENT_API SSpectrumFigure
MakeSpectrumFigure(const std::vector<Analysis::SSpectrumPoint>& spectrum);

} // namespace CommonUI::Measurement
