#pragma once

#include "measurement/charts/Axis.h"

namespace SurfaceView
{

using CommonUI::Measurement::LengthLabel;
using CommonUI::Measurement::MakeAxis;
using CommonUI::Measurement::SAxis;
using CommonUI::Measurement::STick;

/// A factor with up to three significant digits and no more than it needs: "2.5", "12", "250".
CommonUI::CStr FactorText(double factor);

/// A positive number with two significant digits.
double RoundedFactor(double factor);

} // namespace SurfaceView
