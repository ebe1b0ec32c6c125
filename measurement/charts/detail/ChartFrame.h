#pragma once

namespace CommonUI::Measurement
{

/// The size of charts with one frame, and where the frame lies but for its left side, which leaves room for
/// the marks.
inline constexpr double c_width = 640;
inline constexpr double c_height = 380;
inline constexpr double c_top = 30;
inline constexpr double c_bottom = c_height - 42;
inline constexpr double c_right = c_width - 16;
inline constexpr double c_markRoom = 10;

} // namespace CommonUI::Measurement
