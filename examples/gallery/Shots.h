#pragma once

class QString;

namespace Gallery
{

/// Writes a picture of each page, light and dark, at the scale that the application runs with.
/// @return false, with a line on the standard error stream, if a picture cannot be written
bool WriteShots(const QString& folder);

/// Starts the program again, at 100 and at 200 percent, to write its pictures.
bool WriteShotsAtAllScales(const QString& folder);

} // namespace Gallery
