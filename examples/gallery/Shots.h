#pragma once

class QString;

namespace Gallery
{

/// The option with which WriteShotsAtAllScales starts the program again.
inline constexpr char c_atThisScale[] = "at-this-scale";

/// Writes a picture of each page, light and dark, at the scale that the application runs with.
/// @return false, with a line on the standard error stream, if a picture cannot be written, or a label or a
///     button in it is too small for its text
bool WriteShots(const QString& folder);

/// Starts the program again with the same arguments, at 100 and at 200 percent, to write its pictures.
bool WriteShotsAtAllScales();

} // namespace Gallery
