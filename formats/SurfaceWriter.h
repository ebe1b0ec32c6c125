#pragma once

#include "../analysis/surface/Surface.h"
#include "../export/Export.h"

#include <chrono>
#include <stdexcept>
#include <string>

namespace CommonUI::Formats
{

/// The formats that surfaces are written in. Each is read by ReadSurface, which gives the same heights to the
/// bit, missing points included.
enum class EFormat {
    Sdf,       ///< ASCII data file of ISO 25178-71
    BinarySdf, ///< binary data file of ISO 25178-71: up to 65535 points and lines, data type 7
    X3p,       ///< ISO 25178-72; a surface of one line is a profile. Only where HasX3p
    Matrix,    ///< text matrix with Width, Height, Value units and Channel in its header
    Profile    ///< columns of text, x and z in m; of a surface of one line and two points or more
};

/// A surface cannot be what it shall become. The message is a clause, such as "a profile has one line".
class COMMONUIFORMATS_API EWriteError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// The bytes of a file of the surface.
///
/// Heights are written in m. Spacings come back to the bit except from Matrix and Profile, which hold lengths
/// of which they are a part.
/// @param surface of one point at the least
/// @param time when the file is written, for formats that say so
/// @throws EWriteError
COMMONUIFORMATS_API std::string WriteSurface(const Analysis::SSurface& surface, EFormat format,
                                             std::chrono::sys_seconds time);

} // namespace CommonUI::Formats
