#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"

#include <cstddef>
#include <memory>
#include <string_view>

namespace CommonUI
{

/// A document of XML that is asked for texts by XPath.
///
/// Documents may come from anywhere: one that is malformed, too large or nested too deeply is refused with a
/// reason. Entities that a document defines are not expanded, and nothing outside it is read.
class COMMONUI_API CXmlDocument
{
public:
    COMMONUI_CONSTANT std::size_t c_largestSize = std::size_t{4} << 20; ///< in bytes
    COMMONUI_CONSTANT std::size_t c_deepestNesting = 200;               ///< of elements

    CXmlDocument() = default;
    CXmlDocument(const CXmlDocument&) = delete;
    CXmlDocument& operator=(const CXmlDocument&) = delete;
    virtual ~CXmlDocument();

    /// Replaces the content by a document in UTF-8, UTF-16 or, if it says so, Latin-1.
    /// @param root the name that its outermost element must have
    /// @return false with a reason, and the content empty, when it cannot be taken
    bool Load(std::string_view bytes, std::u16string_view root, CStr& reason);
    /// The text of the first element, in the order of the document, that an expression of XPath 1.0 finds
    /// from the outermost element; empty when it finds none.
    /// @param expression may use the variable $value
    /// @param value what the variable stands for; any text, as it is never a part of the expression
    /// @throws EInternal when the expression is none
    virtual CStr QueryText(std::u16string_view expression, std::u16string_view value) const = 0;

protected:
    /// Load, once size and nesting are known to be harmless.
    virtual bool Parse(std::string_view bytes, std::u16string_view root, CStr& reason) = 0;
    /// Makes the content empty.
    virtual void Clear() = 0;
};

/// An empty document that can load others, by pugixml; a CMemoryXmlDocument where the library was built
/// without it.
COMMONUI_API std::unique_ptr<CXmlDocument> MakeXmlDocument();

} // namespace CommonUI
