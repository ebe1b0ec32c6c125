#include "common/Exceptions.h"
#include "platform/xml/XmlDocument.h"
#include "tests/fuzz/FuzzBytes.h"
#include "tests/fuzz/Targets.h"

using namespace CommonUI;

// Any bytes as a document, asked for any text.
void Fuzz::RunXml(std::string_view bytes)
{
    CFuzzBytes input(bytes);
    const CStr value = CStr::FromUtf8(input.Piece());
    const std::unique_ptr<CXmlDocument> document = MakeXmlDocument();
    CStr reason;
    const bool isLoaded = document->Load(input.Rest(), u"a", reason);
    Expect(isLoaded == reason.IsEmpty(), "what is refused has a reason");
    for (const CStr expression : {u"/a", u"//b[@c=$value]", u"b[text()=$value]/@c", u"."}) {
        const CStr text = document->QueryText(expression, value);
        Expect(isLoaded || text.IsEmpty(), "an empty document has no texts");
    }
}
