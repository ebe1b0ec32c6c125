#include "platform/xml/XmlDocument.h"

#include "platform/xml/detail/XmlNesting.h"

namespace CommonUI
{

CXmlDocument::~CXmlDocument() = default;

bool CXmlDocument::Load(std::string_view bytes, std::u16string_view root, CStr& reason)
{
    Clear();
    const EXmlEncoding encoding = FindXmlEncoding(bytes);
    if (bytes.size() > c_largestSize)
        reason = CStr::Format(u"more than %d bytes", c_largestSize);
    else if (encoding == EXmlEncoding::Unknown)
        reason = u"neither UTF-8 nor UTF-16";
    else if (const std::string markup = XmlMarkup(bytes, encoding); HasDeclarations(markup))
        reason = u"the document type has declarations of its own";
    else if (!IsNestedUpTo(c_deepestNesting, markup))
        reason = CStr::Format(u"elements are nested more than %d deep", c_deepestNesting);
    else if (Parse(bytes, root, reason))
        return true;
    Clear();
    return false;
}

} // namespace CommonUI
