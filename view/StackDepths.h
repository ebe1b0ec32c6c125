#pragma once

#include <string>

namespace SurfaceView
{

/// What a drawing that gives everything back leaves as it was.
struct SStackDepths {
    int attributes = 0;
    int modelView = 0;
    int projection = 0;
    int matrixMode = 0;

    friend bool operator==(const SStackDepths&, const SStackDepths&) = default;
};

/// Those of the current context.
SStackDepths ReadStackDepths();

/// All of it in words: "attribute stack 0, model-view stack 1, projection stack 1, matrix mode GL_MODELVIEW".
std::string Describe(const SStackDepths& depths);

/// @throws std::runtime_error that says what was before and what is now, when they differ
void CheckRestored(const SStackDepths& before, const SStackDepths& after);

} // namespace SurfaceView
