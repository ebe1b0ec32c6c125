#include "platform/xml/XmlDocument.h"

#if defined(COMMONUI_WITH_PUGIXML)

#include "common/Exceptions.h"
#include "platform/xml/detail/XmlNesting.h"

#include <pugixml.hpp>

#include <string>

namespace CommonUI
{

namespace
{

pugi::xml_encoding EncodingOf(std::string_view bytes)
{
    switch (FindXmlEncoding(bytes)) {
    case EXmlEncoding::Utf16LittleEndian:
        return pugi::encoding_utf16_le;
    case EXmlEncoding::Utf16BigEndian:
        return pugi::encoding_utf16_be;
    default:
        return pugi::encoding_auto;
    }
}

class CPugiXmlDocument : public CXmlDocument
{
public:
    CStr QueryText(std::u16string_view expression, std::u16string_view value) const override
    {
        // The library takes the value as a text with a zero at its end.
        if (!m_root || value.find(u'\0') != value.npos)
            return {};
        pugi::xpath_variable_set variables;
        variables.set("value", ToUtf8(value).c_str());
        try {
            const std::string query = "string(" + ToUtf8(expression) + ")";
            return CStr::FromUtf8(pugi::xpath_query(query.c_str(), &variables).evaluate_string(m_root));
        } catch (const pugi::xpath_exception& error) {
            throw EInternal(u"PugiXmlDocument", __LINE__, u"CPugiXmlDocument::QueryText",
                            CStr::FromUtf8(error.what()));
        }
    }

protected:
    bool Parse(std::string_view bytes, std::u16string_view root, CStr& reason) override
    {
        const pugi::xml_parse_result result =
            m_document.load_buffer(bytes.data(), bytes.size(), pugi::parse_default, EncodingOf(bytes));
        if (!result) {
            reason = CStr::Format(u"%s at byte %d", CStr::FromUtf8(result.description()),
                                  static_cast<long long>(result.offset));
            return false;
        }
        m_root = m_document.child(ToUtf8(root).c_str());
        if (!m_root)
            reason = CStr::Format(u"there is no element \"%s\"", root);
        return !m_root.empty();
    }

    void Clear() override
    {
        m_root = pugi::xml_node();
        m_document.reset();
    }

private:
    pugi::xml_document m_document;
    pugi::xml_node m_root;
};

} // namespace

std::unique_ptr<CXmlDocument> MakeXmlDocument()
{
    return std::make_unique<CPugiXmlDocument>();
}

} // namespace CommonUI

#else

#include "platform/memory/MemoryXmlDocument.h"

namespace CommonUI
{

std::unique_ptr<CXmlDocument> MakeXmlDocument()
{
    return std::make_unique<CMemoryXmlDocument>();
}

} // namespace CommonUI

#endif
