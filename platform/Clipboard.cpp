#include "platform/Clipboard.h"

#include "platform/memory/MemoryClipboard.h"

#include <string_view>

namespace CommonUI
{

namespace
{

constexpr std::string_view c_before = "<html><body>\r\n<!--StartFragment-->";
constexpr std::string_view c_after = "<!--EndFragment-->\r\n</body></html>";

CClipboard& GetMemoryClipboard()
{
    static CClipboard& clipboard = *new CMemoryClipboard;
    return clipboard;
}

// The header has the same length whatever the places in it.
CStr MakeHeader(std::size_t startHtml, std::size_t startFragment, std::size_t endFragment,
                std::size_t endHtml)
{
    return CStr::Format(u"Version:0.9\r\nStartHTML:%010d\r\nEndHTML:%010d\r\n"
                        u"StartFragment:%010d\r\nEndFragment:%010d\r\n",
                        startHtml, endHtml, startFragment, endFragment);
}

} // namespace

constinit CCurrentService<CClipboard> CClipboard::s_current(GetMemoryClipboard);

CClipboard::~CClipboard() = default;

CClipboard& GetClipboard()
{
    return CClipboard::s_current.Get();
}

std::string MakeClipboardHtml(const CStr& html)
{
    const std::string part = html.ToUtf8();
    const std::size_t start = MakeHeader(0, 0, 0, 0).GetLength();
    const std::size_t partStart = start + c_before.size();
    const std::size_t partEnd = partStart + part.size();
    std::string bytes;
    bytes.reserve(partEnd + c_after.size());
    bytes += MakeHeader(start, partStart, partEnd, partEnd + c_after.size()).ToUtf8();
    bytes += c_before;
    bytes += part;
    bytes += c_after;
    return bytes;
}

} // namespace CommonUI
