#pragma once

#include "../../export/Export.h"
#include "../Results.h"

#include <optional>
#include <string>

namespace CommonUI::Measurement
{

/// A picture of a report. Those of this header are for surfaces with a valid point.
struct SPicture {
    CStr caption{};    ///< says why where there is no picture
    std::string svg{}; ///< an SVG element, UTF-8; empty where there is none
};

/// The surface from above.
COMMONUIMEASUREMENT_API SPicture PictureSurface(const Analysis::SSurface& surface);
/// The surface from above with the outlines of its grains.
COMMONUIMEASUREMENT_API SPicture PictureGrains(const Analysis::SSurface& surface, const SFoundGrains& grains);
/// The surface in perspective.
COMMONUIMEASUREMENT_API SPicture PicturePerspective(const Analysis::SSurface& surface);
/// The line in the middle, or the nearest that has two points, as it was measured.
COMMONUIMEASUREMENT_API SPicture PictureCrossSection(const Analysis::SSurface& surface);
/// The same line with its roughness and waviness.
/// @param cutoff m; the default one without it
COMMONUIMEASUREMENT_API SPicture PictureProfile(const Analysis::SSurface& surface,
                                                std::optional<double> cutoff);
/// The mean power spectrum of the lines.
COMMONUIMEASUREMENT_API SPicture PictureSpectrum(const Analysis::SSurface& surface);

} // namespace CommonUI::Measurement
