#pragma once

#include "programs/surface_view/Picture.h"
#include "settings/readers/AnimationSettings.h"
#include "view/View.h"

#include <filesystem>
#include <functional>

namespace SurfaceView
{

/// Draws the picture from a direction at a zoom.
using FDrawFrame = std::function<SPicture(const SDirection& direction, double zoom)>;
/// Is told how much is done, 0 to 1.
using FFrameProgress = std::function<void(double fraction)>;

/// Loads the animation that a user specification names.
/// @throws CommandLine::EUsage
CommonUI::SAnimationSettings LoadAnimation(const std::string& userSpec);

/// Writes an animation, frame after frame as they are drawn: to FILE.gif as one file, in place of what was
/// there, or for any other name as FILE-0001.png and on, with as many digits as the last one needs but at
/// least four.
///
/// A GIF file tells the time in hundredths of a second, and many programs show no frame for less than two of
/// them: of more than 50 frames a second as many are left out as it takes.
/// @return how many frames were written
/// @throws std::runtime_error when a file cannot be written; the frames before it are there, of a GIF file
///     nothing
int WriteAnimation(const CommonUI::SAnimationSettings& animation, const std::filesystem::path& path,
                   const FDrawFrame& draw, const FFrameProgress& progress);

} // namespace SurfaceView
