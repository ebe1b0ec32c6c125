#pragma once

#include <string>

namespace MakeSample
{

/// The text of a made-up file in the ASCII format of ISO 25178-71: a ground steel surface of 128 x 96
/// points, 0.5 µm apart, tilted, with grinding marks along y, two scratches and a few missing points. The
/// same bytes on every machine.
std::string MakeSampleSurface();

} // namespace MakeSample
