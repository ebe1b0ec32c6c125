#pragma once

#include "analysis/surface/Surface.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace CommonUI::Analysis
{

/// A wave in a surface: periods per metre along x and along y.
struct SWave {
    double x = 0;
    double y = 0;
};

/// Finds the waves of gratings. The heights above their least-squares plane fade towards the edges by a
/// window sin⁴, whose side lobes are so low that overtones and other waves do not shift a peak; missing
/// points count as points of the plane.
class CGratingSpectrum
{
public:
    explicit CGratingSpectrum(const SSurface& surface);

    /// The wave with the greatest amplitude of those with at least three periods within the surface,
    /// refined between the frequencies of the transform to the maximum of the windowed Fourier integral.
    /// @param across only waves are looked for that cross this one at 30° to 150°, and that have at least
    ///     3 % of its amplitude
    /// @return nothing where no wave is higher than what noise makes in one of fifty surfaces
    std::optional<SWave> FindWave(std::optional<SWave> across = {}) const;

private:
    struct SPeak {
        double power = 0;
        SWave wave{}; // in periods per point
    };

    bool IsSought(SWave wave, const std::optional<SWave>& across) const;
    double GetPower(std::size_t x, std::size_t y) const; // of any frequency
    bool IsPeak(std::size_t x, std::size_t y) const;
    SPeak FindPeak(const std::optional<SWave>& across) const;
    SWave Refine(SWave wave) const;

    std::size_t m_points;
    std::size_t m_lines;
    double m_dx;
    double m_dy;
    std::vector<double> m_heights; // windowed
    double m_noise = 0;            // the power that each wave has of white noise of the same mean square
    std::size_t m_width = 1;       // of the transform
    std::size_t m_height = 1;
    std::vector<double> m_powers; // for each frequency in y from 0 up those in x
};

} // namespace CommonUI::Analysis
