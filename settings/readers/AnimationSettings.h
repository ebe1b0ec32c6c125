#pragma once

#include "../../common/ini/Inifile.h"
#include "../../export/Export.h"

#include <cstddef>
#include <vector>

namespace CommonUI
{

/// From where the camera of a 3D view looks at the middle of the surface.
struct SAnimationView {
    double azimuth = 0;    ///< in degrees, from the y axis towards the x axis; 360 is a full turn on from 0
    double elevation = 35; ///< in degrees above the horizon, -90 to 90
    double zoom = 1;       ///< 1 shows the whole surface, 2 half of its width; 0.01 to 100

    friend bool operator==(const SAnimationView&, const SAnimationView&) = default;
};

/// A view that the camera passes.
struct SAnimationKeyFrame {
    double position = 0;   ///< in the animation, 0 at its beginning to 1 at its end
    SAnimationView view{}; ///< where the camera is then

    friend bool operator==(const SAnimationKeyFrame&, const SAnimationKeyFrame&) = default;
};

/// A camera flight around a surface. The stored form is described in docs/animation-settings.md.
struct COMMONUI_API SAnimationSettings {
    /// The most key frames that a stored animation may have.
    COMMONUI_CONSTANT std::size_t c_mostKeyFrames = 256;

    double duration = 10;     ///< in s, 0.1 to 3600
    int framesPerSecond = 25; ///< 1 to 120
    bool loop = true;         ///< the end goes on as the beginning
    /// In ascending order of their positions. Between them the camera moves evenly; before the first and
    /// behind the last it stands still.
    std::vector<SAnimationKeyFrame> keyFrames = {{}};

    /// Reads the section "Animation" of a set, which replaces these settings.
    /// @return false, with the reason in the diagnostics and these settings unchanged, for an unusable set
    bool Load(CInifile& ini);
    /// Writes the section "Animation" in place of what is in it. Both leave the current section selected.
    void Save(CInifile& ini) const;

    /// The number of frames of one run, at least 1.
    int GetFrameCount() const;
    /// Where a frame stands in the animation. The last one of a loop stands one step before the end, which
    /// is the beginning again; that of another animation stands at the end.
    /// @param frame from 0 to GetFrameCount() - 1
    double GetPosition(int frame) const;
    /// The view at a position; that at 0 for NaN.
    SAnimationView GetView(double position) const;

    friend bool operator==(const SAnimationSettings&, const SAnimationSettings&) = default;
};

} // namespace CommonUI
