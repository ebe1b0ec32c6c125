#include "analysis/areal/detail/SpectralParameters.h"

#include "analysis/areal/detail/PowerSpectrum.h"
#include "analysis/areal/detail/RadialSpectrum.h"
#include "analysis/areal/detail/TextureDirection.h"
#include "analysis/areal/HeightParameters.h"

#include <cmath>
#include <optional>

namespace CommonUI::Analysis
{

std::vector<SValue> ComputeSpectralParameters(const SSurface& surface)
{
    STextureDirection direction;
    SRadialParameters radial;
    double dimension = c_undefined;
    std::string_view reason;
    std::string_view dimensionReason;
    const SRange range = FindRange(surface.heights);
    if (range.lowest == range.highest) {
        dimensionReason = reason = "the surface is flat";
    } else if (const CPowerSpectrum spectrum(surface); spectrum.IsEmpty()) {
        dimensionReason = reason = "the surface is no wider than two spacings";
    } else {
        direction = ComputeTextureDirection(spectrum);
        radial = ComputeRadialParameters(spectrum);
        dimension = ComputeFractalDimension(spectrum);
        if (std::isnan(dimension))
            dimensionReason = "the surface is narrower than 32 spacings";
    }
    return {{"Std", direction.degrees, reason},
            {"Stdi", direction.index, reason},
            {"Srw", radial.wavelength, reason},
            {"Srwi", radial.index, reason},
            {"Sfd", dimension, dimensionReason}};
}

} // namespace CommonUI::Analysis
