#include "platform/xml/XmlDocument.h"

#include "common/Exceptions.h"
#include "platform/memory/MemoryXmlDocument.h"

#include <gtest/gtest.h>

#include <string>

using namespace CommonUI;
using namespace std::string_literals;

namespace
{

// Text of ASCII as UTF-16.
std::string Wide(const std::string& text, bool bigEndian)
{
    std::string bytes;
    for (const char character : text)
        bytes += bigEndian ? "\0"s + character : character + "\0"s;
    return bytes;
}

std::string Repeated(const std::string& piece, std::size_t count)
{
    std::string text;
    for (std::size_t i = 0; i < count; ++i)
        text += piece;
    return text;
}

std::string Nested(std::size_t depth)
{
    return "<r>" + Repeated("<a>", depth) + "x" + Repeated("</a>", depth) + "</r>";
}

} // namespace

TEST(XmlDocument, TextsOfDocumentsThatCanBeRead)
{
    const struct {
        const char* what;
        std::string bytes;
        const char16_t* text;
    } rows[] = {
        {"plain", "<r><a>x</a><a>y</a></r>", u"x"},
        {"pieces", "<r><a> p<b>q</b><![CDATA[<r>]]></a></r>", u" pq<r>"},
        {"mark", "\xEF\xBB\xBF<?xml version='1.0'?><!-- <r> --><r><a>\xC2\xB5m</a></r>", u"µm"},
        {"Latin-1", "<?xml version='1.0' encoding='ISO-8859-1'?><r><a>\xB5m</a></r>", u"µm"},
        {"UTF-16", Wide("<r><a>x</a></r>", false), u"x"},
        {"UTF-16 with a mark", "\xFE\xFF" + Wide("<r><a>x</a></r>", true), u"x"},
        {"a document type", "<!DOCTYPE r SYSTEM 'r.dtd'><r><a>&e;&amp;</a></r>", u"&e;&"},
        {"nothing", "<r/>", u""},
        {"many in a row", "<r>" + Repeated("<b><c/></b>", 1000) + "<a b='>'>x</a></r>", u"x"},
    };
    for (const auto& row : rows) {
        const auto xml = MakeXmlDocument();
        CStr reason;
        EXPECT_TRUE(xml->Load(row.bytes, u"r", reason)) << row.what << ": " << reason.ToUtf8();
        EXPECT_EQ(xml->QueryText(u"a", u""), row.text) << row.what;
    }
}

TEST(XmlDocument, HarmfulDocumentsAreRefused)
{
    std::string bomb = "<!DOCTYPE r [<!ENTITY l0 'lol'>";
    for (int i = 1; i < 40; ++i)
        bomb +=
            "<!ENTITY l" + std::to_string(i) + " '" + Repeated("&l" + std::to_string(i - 1) + ";", 10) + "'>";
    const struct {
        const char* what;
        std::string bytes;
    } rows[] = {
        {"empty", ""},
        {"blank", " \n"},
        {"other root", "<s><a>x</a></s>"},
        {"cut off", "<r><a>x"},
        {"crossed", "<r><a></r></a>"},
        {"no tag end", "<r><a"},
        {"open quote", "<r><a b='></a></r>"},
        {"open comment", "<r><!--</r>"},
        {"entity bomb", bomb + "]><r><a>&l39;</a></r>"},
        {"depth hidden by a declaration", "<!DOCTYPE r [<!-- \" -->]>" + Nested(100000)},
        {"one too deep", Nested(CXmlDocument::c_deepestNesting)},
        {"very deep", Repeated("<a>", 1000000)},
        {"deep in UTF-16", Wide(Nested(100000), true)},
        {"UTF-32", "<\0\0\0r\0\0\0/\0\0\0>\0\0\0"s},
        {"too large", "<r>" + std::string(CXmlDocument::c_largestSize, ' ') + "</r>"},
    };
    for (const auto& row : rows) {
        const auto xml = MakeXmlDocument();
        CStr reason;
        EXPECT_FALSE(xml->Load(row.bytes, u"r", reason)) << row.what;
        EXPECT_FALSE(reason.IsEmpty()) << row.what;
        EXPECT_TRUE(xml->QueryText(u"a", u"").IsEmpty()) << row.what;
    }
    const auto xml = MakeXmlDocument();
    CStr reason;
    EXPECT_TRUE(xml->Load(Nested(CXmlDocument::c_deepestNesting - 1), u"r", reason));
}

TEST(XmlDocument, ValuesAreNeverPartOfTheQuery)
{
    const std::string values[] = {
        "x",    "\"",        "'",   "\"'", "x\" or \"1\"=\"1", "x'] | //*['", "$value", "]",
        "%s%n", "\xC2\xB5m", "a b", "",    "concat('x')",
    };
    std::string bytes = "<r>";
    int number = 0;
    for (const std::string& value : values)
        bytes += "<f><id><![CDATA[" + value + "]]></id><n>" + std::to_string(number++) + "</n></f>";
    const auto xml = MakeXmlDocument();
    CStr reason;
    ASSERT_TRUE(xml->Load(bytes + "</r>", u"r", reason));
    number = 0;
    for (const std::string& value : values)
        EXPECT_EQ(xml->QueryText(u"f[id = $value]/n", CStr::FromUtf8(value)).ToUtf8(),
                  std::to_string(number++));
    EXPECT_TRUE(xml->QueryText(u"f[id = $value]/n", std::u16string_view(u"x\0y", 3)).IsEmpty());
    EXPECT_THROW((void)xml->QueryText(u"f[id = ", u""), EInternal);
}

TEST(XmlDocument, MemoryAnswersWhatItWasTold)
{
    CMemoryXmlDocument xml;
    xml.SetText(u"a[b = $value]", u"x", u"X");
    CStr reason;
    EXPECT_FALSE(xml.Load("<r/>", u"r", reason));
    EXPECT_EQ(xml.QueryText(u"a[b = $value]", u"x"), u"X");
    EXPECT_TRUE(xml.QueryText(u"a", u"x").IsEmpty());
}
