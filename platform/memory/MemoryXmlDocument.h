#pragma once

#include "../xml/XmlDocument.h"

#include <map>
#include <utility>

namespace CommonUI
{

/// A document that the application writes itself, as answers to the questions that it will be asked. It
/// cannot load any; MakeXmlDocument gives one where the library was built without an XML library.
class COMMONUI_API CMemoryXmlDocument : public CXmlDocument
{
public:
    /// Sets the answer of QueryText to an expression and a value; all others are empty.
    void SetText(std::u16string_view expression, std::u16string_view value, const CStr& text);
    CStr QueryText(std::u16string_view expression, std::u16string_view value) const override;

protected:
    bool Parse(std::string_view bytes, std::u16string_view root, CStr& reason) override;
    void Clear() override;

private:
    std::map<std::pair<CStr, CStr>, CStr> m_texts;
};

} // namespace CommonUI
