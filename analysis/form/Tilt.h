#pragma once

#include "../../export/Export.h"
#include "../surface/Surface.h"
#include "../surface/Value.h"

#include <string_view>

namespace CommonUI::Analysis
{

/// The least-squares plane of a surface, and what is left without it. Angles are in degrees.
struct STilt {
    double x = c_undefined;         ///< atan ∂z/∂x
    double y = c_undefined;         ///< atan ∂z/∂y; NaN of a profile
    double total = c_undefined;     ///< between the plane and the horizontal one
    double direction = c_undefined; ///< in which the plane rises, from x to y, above -180 and up to 180
    double residual = c_undefined;  ///< root mean square of the heights above the plane, m
    double slopeX = c_undefined;    ///< ∂z/∂x
    double slopeY = c_undefined;    ///< ∂z/∂y
    double range = c_undefined;     ///< of the heights as they are, m
    double largest = c_undefined;   ///< greatest distance from the plane along z, m
    std::string_view reason{};      ///< why there is none
};

/// Fits what Level subtracts. A profile has the tilt along x alone; a horizontal surface has no direction.
COMMONUIANALYSIS_API STilt MeasureTilt(const SSurface& surface);

} // namespace CommonUI::Analysis
