#pragma once

namespace CommonUI
{

/// The text of the string table on the button that ends a dialog without what was asked.
constexpr int c_cancelText = 10262;

} // namespace CommonUI
