#pragma once

#include "../../analysis/areal/MaterialRatio.h"
#include "../../export/Export.h"

#include <optional>
#include <string>

namespace CommonUI::Measurement
{

/// Draws how often heights are, in percent of the points for each of up to 128 classes, and where their mean
/// lies.
/// @param threshold a height that is marked, that of grains
COMMONUIMEASUREMENT_API std::string DrawHistogram(const Analysis::CMaterialRatio& curve,
                                                  std::optional<double> threshold = {});

/// Draws the material ratio curve with the equivalent straight line of its core, the triangles of peaks and
/// dales and the values of Sk, Spk, Svk, Smr1 and Smr2, where the curve has them.
/// @param isAreal whether it is that of a surface: these are no parameters of a profile
COMMONUIMEASUREMENT_API std::string DrawMaterialRatio(const Analysis::CMaterialRatio& curve,
                                                      bool isAreal = true);

} // namespace CommonUI::Measurement
