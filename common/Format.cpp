#include "common/Format.h"

#include "common/Str.h"

namespace CommonUI
{

CStr FormatText(std::u16string_view format, const SFormatArg*, std::size_t)
{
    return format;
}

} // namespace CommonUI
