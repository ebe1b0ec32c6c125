#pragma once

namespace Gallery
{

/// Gives the application the colours of Qt's Fusion style, or a dark form of them.
void SetDark(bool dark);

} // namespace Gallery
