#include "platform/xml/detail/XmlNesting.h"

namespace CommonUI
{

namespace
{

constexpr std::size_t c_npos = std::string_view::npos;

// The position behind the next `end` at or after `from`.
std::size_t Behind(std::string_view markup, std::string_view end, std::size_t from)
{
    const std::size_t found = markup.find(end, from);
    return found == c_npos ? c_npos : found + end.size();
}

// The position behind the ">" that ends a tag; one within quotes does not.
std::size_t BehindTag(std::string_view markup, std::size_t from)
{
    for (std::size_t at = from;;) {
        at = markup.find_first_of("\"'>", at);
        if (at == c_npos)
            return c_npos;
        if (markup[at] == '>')
            return at + 1;
        at = Behind(markup, markup.substr(at, 1), at + 1);
        if (at == c_npos)
            return c_npos;
    }
}

} // namespace

EXmlEncoding FindXmlEncoding(std::string_view bytes)
{
    using namespace std::string_view_literals;
    const std::string_view start = bytes.substr(0, 4);
    const bool isWide = start.find("\0\0"sv) != c_npos;
    if (!isWide && (start.starts_with("\xFF\xFE") || start.starts_with("<\0"sv)))
        return EXmlEncoding::Utf16LittleEndian;
    if (!isWide && (start.starts_with("\xFE\xFF") || start.starts_with("\0<"sv)))
        return EXmlEncoding::Utf16BigEndian;
    return start.find('\0') == c_npos ? EXmlEncoding::Bytes : EXmlEncoding::Unknown;
}

std::string XmlMarkup(std::string_view bytes, EXmlEncoding encoding)
{
    if (encoding == EXmlEncoding::Bytes)
        return std::string(bytes);
    const std::size_t low = encoding == EXmlEncoding::Utf16BigEndian ? 1 : 0;
    std::string markup(bytes.size() / 2, 'x');
    for (std::size_t i = 0; i < markup.size(); ++i) {
        if (bytes[2 * i + 1 - low] == '\0')
            markup[i] = bytes[2 * i + low];
    }
    return markup;
}

bool HasDeclarations(std::string_view markup)
{
    const std::size_t type = markup.find("<!DOCTYPE");
    const std::size_t end = type == c_npos ? c_npos : markup.find_first_of("[>", type);
    return end != c_npos && markup[end] == '[';
}

bool IsNestedUpTo(std::size_t deepest, std::string_view markup)
{
    std::size_t depth = 0;
    for (std::size_t at = markup.find('<'); at != c_npos; at = markup.find('<', at)) {
        const std::string_view rest = markup.substr(at);
        if (rest.starts_with("<!--")) {
            at = Behind(markup, "-->", at + 4);
        } else if (rest.starts_with("<![CDATA[")) {
            at = Behind(markup, "]]>", at);
        } else if (rest.starts_with("<?")) {
            at = Behind(markup, "?>", at);
        } else if (rest.starts_with("<!")) {
            at = BehindTag(markup, at);
        } else if (rest.starts_with("</")) {
            depth -= depth == 0 ? 0 : 1;
            at = BehindTag(markup, at);
        } else {
            at = BehindTag(markup, at);
            if (at != c_npos && markup[at - 2] != '/' && ++depth > deepest)
                return false;
        }
        if (at == c_npos)
            break;
    }
    return true;
}

} // namespace CommonUI
