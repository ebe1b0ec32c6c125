#include "platform/memory/MemoryXmlDocument.h"

namespace CommonUI
{

void CMemoryXmlDocument::SetText(std::u16string_view expression, std::u16string_view value, const CStr& text)
{
    m_texts[{expression, value}] = text;
}

CStr CMemoryXmlDocument::QueryText(std::u16string_view expression, std::u16string_view value) const
{
    const auto found = m_texts.find({expression, value});
    return found == m_texts.end() ? CStr() : found->second;
}

bool CMemoryXmlDocument::Parse(std::string_view /*bytes*/, std::u16string_view /*root*/, CStr& reason)
{
    reason = u"documents in memory do not read others";
    return false;
}

void CMemoryXmlDocument::Clear()
{
    // What the application has set is no content of a file.
}

} // namespace CommonUI
