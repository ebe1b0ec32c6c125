#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace CommonUI
{

/// How the characters of an XML document are stored, as far as its first bytes tell.
enum class EXmlEncoding { Bytes, Utf16LittleEndian, Utf16BigEndian, Unknown };

EXmlEncoding FindXmlEncoding(std::string_view bytes);

/// The document with one byte for each code unit: itself, or for UTF-16 its ASCII characters with an "x" in
/// place of every other one, by which markup is told from text just as well.
std::string XmlMarkup(std::string_view bytes, EXmlEncoding encoding);

/// Whether the document type declares anything itself, such as entities. Such declarations follow other rules
/// than the document, by which it could be made to look less deep.
bool HasDeclarations(std::string_view markup);

/// Whether elements lie at most `deepest` deep in each other; one pass without recursion. Of a malformed
/// document it need not be true.
bool IsNestedUpTo(std::size_t deepest, std::string_view markup);

} // namespace CommonUI
