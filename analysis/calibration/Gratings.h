#pragma once

#include "../../export/Export.h"
#include "../surface/Surface.h"
#include "../surface/Value.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace CommonUI::Analysis
{

/// The pitches of a grating of parallel lines.
struct SGrating {
    double pitch = c_undefined;     ///< mean, across the lines, m; of the wave in the whole surface
    double direction = c_undefined; ///< across the lines, in degrees from x to y, above -90 and up to 90
    /// The single pitches of each section, m: between the centres of gravity of neighbouring lines of the
    /// grating, measured across them. Sections are the lines of the surface, or, where these cross fewer
    /// periods, its columns.
    std::vector<std::vector<double>> sections{};
    bool isAlongY = false; ///< whether the sections are columns
    /// The mean pitch by the centres of gravity: the slope of the straight line through their positions over
    /// their numbers, of all sections.
    double centroidPitch = c_undefined;
    std::string_view reason{}; ///< why there is no pitch

    /// Those of all sections.
    COMMONUIANALYSIS_API std::vector<double> GetPitches() const;
};

/// Measures a grating, which may lie in the surface in any direction, or that of a profile (ISO 11952). The
/// least-squares plane is subtracted first.
///
/// The mean pitch is that of the strongest wave (Fourier method), for which every point counts; the single
/// pitches are those of the centre-of-gravity method. A line of the grating is where the heights are above
/// the mean of the section: it begins where they rise above that by a quarter of what heights above it have
/// on average, and ends where they fall below likewise. Two lines further apart or closer than the mean pitch
/// by more than half of it have something between them that is no line: what they make is no pitch.
COMMONUIANALYSIS_API SGrating MeasureGrating(const SSurface& surface);

/// The pitches of a grating of two directions, such as a grid of pits.
struct SLattice {
    double pitchX = c_undefined; ///< distance of neighbours in the rows that lie nearer to x, m
    double pitchY = c_undefined; ///< in the others
    /// The angle from the rows of x to those of y less 90°, degrees.
    double orthogonality = c_undefined;
    double rotation = c_undefined; ///< from x to its rows, degrees, above -90 and up to 90
    std::string_view reason{};     ///< why pitches are not defined; empty where they are
};

/// Measures a grating of two directions by its two strongest waves that cross at 30° to 150° (ISO 11952).
/// Their frequencies are the reciprocal lattice; the pitches are those of the lattice itself: the distances
/// of neighbours, not of rows.
COMMONUIANALYSIS_API SLattice MeasureLattice(const SSurface& surface);

/// How far a grating of two directions is from the straight one that MeasureLattice finds: lengths of the
/// displacements, m, over as many as 32 squares along each axis. In each, which reaches to the middles of its
/// neighbours and fades towards them, the phases of both waves are compared with those of the whole surface.
/// @return without a point where there is no such grating
COMMONUIANALYSIS_API SSurface ComputeDistortion(const SSurface& surface);

} // namespace CommonUI::Analysis
