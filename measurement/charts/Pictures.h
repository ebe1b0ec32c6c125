#pragma once

#include "../../export/Export.h"
#include "../ApplySteps.h"
#include "../Request.h"
#include "../Results.h"

#include <string>
#include <vector>

namespace CommonUI::Measurement
{

/// The pictures of a report on results of an input as pieces of a page of HTML, UTF-8, in the order in which
/// they follow each other. They need nothing beside the page, suit a dark screen and a printer, and have
/// bounded sizes whatever the surface.
///
/// With roughness there are a map of the surface, the profile in its middle with the filter of the method,
/// histogram, material ratio curve and power spectrum, of a profile the latter four; with grains the map with
/// their outlines and the histogram with the threshold. In place of a picture that a surface does not allow a
/// sentence says why.
COMMONUIMEASUREMENT_API std::vector<std::string> MakePictures(const SInput& input, const SMethod& method,
                                                              const SResults& results);

} // namespace CommonUI::Measurement
