#include "analysis/areal/SpatialParameters.h"

#include "analysis/areal/Autocorrelation.h"
#include "analysis/areal/detail/TextureDirection.h"

namespace CommonUI::Analysis
{

std::vector<SValue> ComputeSpatial(const SSurface& surface, double mean)
{
    const CAutocorrelation autocorrelation(surface, mean);
    const SDecay to20 = autocorrelation.ComputeDecay(0.20);
    const SDecay to37 = autocorrelation.ComputeDecay(0.37);
    return {
        {"Sal", to20.shortest},
        {"Str", to20.shortest / to20.longest},
        {"Std", ComputeTextureDirection(surface)},
        {"Scl20", to20.shortest},
        {"Scl37", to37.shortest},
        {"Str20", to20.shortest / to20.longest},
        {"Str37", to37.shortest / to37.longest},
    };
}

} // namespace CommonUI::Analysis
