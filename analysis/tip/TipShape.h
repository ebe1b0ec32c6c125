#pragma once

#include "../../export/Export.h"
#include "../surface/Surface.h"
#include "../surface/Value.h"

#include <optional>
#include <string_view>

namespace CommonUI::Analysis
{

/// What part of a tip is estimated: either a width or a depth is given.
struct STipExtent {
    std::optional<double> width{}; ///< of the tip, m
    double depth = 50e-9;          ///< below the apex, m; without a width
    /// Differences of heights up to which noise, or the sampling, may make a surface sharper than the tip, m.
    double noise = 0;
};

/// A tip that an image shows.
struct STip {
    /// See Dilate; but its spacings are those of the image or multiples of them. No tip that has made the
    /// image is wider. Empty where there is none.
    SSurface shape{};
    double height = c_undefined; ///< what is known of it, from the apex down, m: at most the depth
    double radius = c_undefined; ///< of the sphere that fits the upper half of that best, m
    double coneAngle =
        c_undefined;           ///< between opposite flanks, of the cone that fits the lower half, degrees
    double area = c_undefined; ///< of the cross section at the height, m²; NaN of a profile
    /// Of the cross section, m: the diameter of a circle of its area; of a profile its length.
    double width = c_undefined;
    std::string_view reason{}; ///< why there is none
};

/// Estimates the shape of the tip from an image that it has made, by blind reconstruction (Villarrubia 1997):
/// no bump of the image is sharper than the tip, so that of all bumps together an upper bound of the tip
/// remains. A surface with bumps sharper than the tip gives the tip itself.
///
/// The bumps are the 400 summits that rise most above what is around them. The tip is 21 points wide along
/// each axis at the most; a wider one is computed with points further apart. Without a width the tip is made
/// wider until it reaches the depth all around, at most a third as wide as the surface.
COMMONUIANALYSIS_API STip EstimateTip(const SSurface& image, const STipExtent& extent);

/// Measures a tip.
/// @param depth what of it counts; what its border does not reach is left out
COMMONUIANALYSIS_API STip MeasureTip(SSurface shape, double depth);

} // namespace CommonUI::Analysis
