#include "platform/Clipboard.h"

#include <string_view>

namespace CommonUI
{

namespace
{

constexpr std::string_view c_before = "<html><body>\r\n<!--StartFragment-->";
constexpr std::string_view c_after = "<!--EndFragment-->\r\n</body></html>";

CMemoryClipboard& GetMemoryClipboard()
{
    static CMemoryClipboard& clipboard = *new CMemoryClipboard;
    return clipboard;
}

CClipboard*& CurrentClipboard()
{
    static CClipboard* current = nullptr;
    return current;
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

CClipboard::~CClipboard() = default;

bool CMemoryClipboard::Put(const CStr& html, const CStr& text)
{
    m_html = html;
    m_text = text;
    return true;
}

CClipboard& GetClipboard()
{
    CClipboard* const current = CurrentClipboard();
    return current ? *current : GetMemoryClipboard();
}

CClipboard* SetClipboard(CClipboard* clipboard)
{
    CClipboard* const before = &GetClipboard();
    CurrentClipboard() = clipboard;
    return before;
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
