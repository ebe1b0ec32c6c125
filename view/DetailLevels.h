#pragma once

#include "view/Mesh.h"

#include <cstddef>
#include <vector>

namespace SurfaceView
{

/// The meshes of a surface from the coarsest to the finest, each with about four times the triangles of the
/// one before: up to c_mostPoints along a side, or all points where these are fewer.
std::vector<SMesh> MakeDetailLevels(const CommonUI::Analysis::SSurface& surface, const SBox& box);

/// Chooses the level that a moving picture shows, by the times that the last pictures took. A picture that
/// stands still shows the finest.
class CDetailChoice
{
public:
    /// @param levels how many there are, at least one
    /// @param target the time in seconds that a picture should take
    CDetailChoice(std::size_t levels, double target);

    /// At first the coarsest.
    std::size_t GetMoving() const noexcept { return m_moving; }
    std::size_t GetFinest() const noexcept { return m_levels - 1; }
    void SetTarget(double seconds) noexcept { m_target = seconds; }
    /// A picture of the moving level took so long.
    void AddTime(double seconds);

private:
    std::size_t m_levels;
    double m_target;
    std::size_t m_moving = 0;
    std::size_t m_tooSlow; // the level that was; their count if none was
    int m_misses = 0;      // pictures in a row that took too long
    int m_pictures = 0;    // since a level was too slow
};

} // namespace SurfaceView
