#pragma once

namespace Faults
{

/// Each plays so many random steps beside a simple model.
void PlayGrid(unsigned seed, int steps);
void PlayFactory(unsigned seed, int steps);
void PlayClosures(unsigned seed, int steps);
void PlayDialogs(unsigned seed, int steps);

} // namespace Faults
