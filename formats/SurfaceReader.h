#pragma once

#include "../analysis/surface/Surface.h"
#include "../export/Export.h"

#include <filesystem>
#include <functional>
#include <stdexcept>

namespace CommonUI::Formats
{

/// A file is no surface, or not the one it promises to be. The message is one line of UTF-8 that names the
/// file as the caller did and, where there is one, the line: `sample.sdf:17: 12 values promised, only 9
/// found`.
class COMMONUIFORMATS_API EReadError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Receives the share of the work that is done, from 0 to 1 and never falling, in the thread that reads.
/// May be empty. An exception that it throws ends the reading and reaches the caller: that is how a user
/// cancels.
using FProgress = std::function<void(double fraction)>;

/// Reads a surface. The content of the file, not its name, decides how:
///
/// - ASCII data file of ISO 25178-71, first line `aISO-1.0`. The header needs NumPoints, NumProfiles,
///   Xscale, Yscale and Zscale; values are multiplied by Zscale. The `*` after the values is required, as
///   it is what tells a whole file from one cut off.
/// - Text matrix: lines `# Key: value`, of which Width, Height and Value units are needed and Channel is
///   known, then one row of numbers for each line. The points are pixels with an area, as of a scanning
///   microscope: Width is points * dx, not (points - 1) * dx. The header may be UTF-8 or Latin-1.
///
/// In both, `BAD` and `NaN` are missing points, a decimal comma stands for a point, lines end in LF or CR
/// LF and keys know no case. Memory grows with what the file holds, never with what it claims; of a file that
/// is no surface only the first bytes are read. A surface all of whose points are missing is read.
///
/// @throws EReadError for a file that cannot be read, malformed text, a value count, a row or a scale that
///     does not fit, an infinite number, a height beyond 1e9 m, heights that differ by less than 1e-100 m but
///     are not equal, a spacing outside 1e-18 m to 1e9 m, and when there is not enough memory
COMMONUIFORMATS_API Analysis::SSurface ReadSurface(const std::filesystem::path& path,
                                                   const FProgress& progress = {});

} // namespace CommonUI::Formats
