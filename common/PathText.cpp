#include "common/PathText.h"

#include <exception>
#include <string>

namespace CommonUI
{

bool ToText(const std::filesystem::path& path, CStr& text)
{
    try {
        const std::u8string bytes = path.u8string();
        const std::string_view view(reinterpret_cast<const char*>(bytes.data()), bytes.size());
        text = CStr::FromUtf8(view);
        return text.ToUtf8() == view;
    } catch (const std::exception&) {
        return false;
    }
}

} // namespace CommonUI
