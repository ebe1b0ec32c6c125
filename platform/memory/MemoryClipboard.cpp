#include "platform/memory/MemoryClipboard.h"

namespace CommonUI
{

bool CMemoryClipboard::Put(const CStr& html, const CStr& text)
{
    m_html = html;
    m_text = text;
    return true;
}

} // namespace CommonUI
