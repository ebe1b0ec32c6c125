#pragma once

#include "../analysis/surface/Surface.h"
#include "../export/Export.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <stdexcept>

namespace CommonUI::Formats
{

/// A file is no surface, or not the one it promises to be. The message is one line of UTF-8 that names the
/// file as the caller did and, where there is one, the place: `sample.sdf:17: 12 values promised, only 9
/// found`, `sample.x3p: main.xml: SizeX: a number of points from 1 to 4294967295 expected, not '-3'`.
class COMMONUIFORMATS_API EReadError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Receives the share of the work that is done, from 0 to 1 and never falling, in the thread that reads.
/// May be empty. An exception that it throws ends the reading and reaches the caller: that is how a user
/// cancels.
using FProgress = std::function<void(double fraction)>;

/// What a file is read with.
struct SReadOptions {
    FProgress progress{}; ///< receives the share that is done
    /// The spacing in m of a profile whose file has heights alone. Refused for files that have their own.
    std::optional<double> spacing{};
};

/// Reads a surface, or a profile, which is a surface of one line. The content of the file, not its name,
/// decides how:
///
/// - ASCII data file of ISO 25178-71, first line `aISO-1.0` or `aBCR-1.0`. The header needs NumPoints,
///   NumProfiles, Xscale, Yscale and Zscale; values are multiplied by Zscale. The `*` after the values is
///   required, as it is what tells a whole file from one cut off.
/// - Binary data file of ISO 25178-71, which begins with `bISO-1.0` or `bBCR-1.0`, of all data types.
/// - X3P, ISO 25178-72: an archive with surfaces (SUR) or profiles (PRF), as far as the library is built with
///   it, see HasX3p.
/// - Text matrix: lines `# Key: value`, of which Width, Height and Value units are needed and Channel is
///   known, then one row of numbers for each line. The points are pixels with an area, as of a scanning
///   microscope: Width is points * dx, not (points - 1) * dx. The header may be UTF-8 or Latin-1.
/// - Profile in columns of text: a first line that names the columns with their units, such as `x [mm] z
///   [um]`, then a position and a height, or a height alone, in each line.
///
/// In texts, `BAD` and `NaN` are missing points, a decimal comma stands for a point, lines end in LF or CR LF
/// and keys know no case. Memory grows with what the file holds, never with what it claims; of a file that is
/// no surface only the first bytes are read. A surface all of whose points are missing is read.
///
/// @throws EReadError for a file that cannot be read, malformed content, a value count, a row or a scale that
///     does not fit, an infinite number, a height beyond 1e9 m, heights that differ by less than 1e-100 m but
///     are not equal, a spacing outside 1e-18 m to 1e9 m, an archive that is meant to do harm, and when there
///     is not enough memory
COMMONUIFORMATS_API Analysis::SSurface ReadSurface(const std::filesystem::path& path,
                                                   const SReadOptions& options);
/// Likewise, with nothing but the progress asked for.
COMMONUIFORMATS_API Analysis::SSurface ReadSurface(const std::filesystem::path& path,
                                                   const FProgress& progress = {});

/// Whether the library is built with what reads and writes X3P.
COMMONUIFORMATS_API bool HasX3p();

} // namespace CommonUI::Formats
