#pragma once

namespace CommonUI
{

/// The text of the string table on the button that ends a dialog without what was asked.
constexpr int c_cancelText = 10262;
/// The text on the button that ends a dialog with it.
constexpr int c_okText = 10261;

} // namespace CommonUI
