#pragma once

#include "common/NumberText.h"

#include <cstddef>
#include <string_view>

namespace CommonUI
{

/// One conversion of a format text, from its '%' to its letter.
struct SFormatDirective {
    SNumberFormat format;               ///< its conversion may also be 'c', 's' or '%'; "%i" is 'd'
    bool widthFromArgument = false;     ///< the width is "*"
    bool precisionFromArgument = false; ///< the precision is "*"
    std::size_t length = 0;             ///< in code units
};

/// Reads the conversion at the start of `text`, which begins with '%'. Width and precision are limited to
/// c_formatLimit.
/// @return false when it has an unknown letter or none
bool ReadFormatDirective(std::u16string_view text, SFormatDirective& directive);

} // namespace CommonUI
