#include "platform/Clipboard.h"

#include "platform/memory/MemoryClipboard.h"

#include <gtest/gtest.h>

#include <cstdlib>

using namespace CommonUI;

namespace
{

// The number behind a key of the header, which has ten digits and ends its line.
std::size_t PlaceOf(const std::string& bytes, const std::string& key)
{
    const std::size_t at = bytes.find("\r\n" + key + ":");
    EXPECT_NE(at, std::string::npos) << key;
    const std::string digits = bytes.substr(at + key.size() + 3, 10);
    EXPECT_EQ(digits.find_first_not_of("0123456789"), std::string::npos) << digits;
    EXPECT_EQ(bytes.substr(at + key.size() + 13, 2), "\r\n");
    return static_cast<std::size_t>(std::strtoull(digits.c_str(), nullptr, 10));
}

} // namespace

TEST(Clipboard, HtmlHeaderCountsBytes)
{
    const struct {
        CStr html;
        std::string bytes;
    } cases[] = {
        {u"", ""},
        {u"<b>Ra</b>", "<b>Ra</b>"},
        {u"µm² Å λ €", "\xC2\xB5m\xC2\xB2 \xC3\x85 \xCE\xBB \xE2\x82\xAC"},
        {u"\U0001D11E!", "\xF0\x9D\x84\x9E!"},
        {std::u16string(u"\xD834!"), "\xEF\xBF\xBD!"},
        {u"<!--StartFragment-->\r\n", "<!--StartFragment-->\r\n"},
    };
    for (const auto& row : cases) {
        const std::string bytes = MakeClipboardHtml(row.html);
        EXPECT_EQ(bytes.rfind("Version:0.9\r\n", 0), 0u);
        const std::size_t start = PlaceOf(bytes, "StartFragment");
        const std::size_t end = PlaceOf(bytes, "EndFragment");
        EXPECT_EQ(bytes.substr(start, end - start), row.bytes);
        EXPECT_EQ(bytes.substr(start - 20, 20), "<!--StartFragment-->");
        EXPECT_EQ(bytes.substr(end, 18), "<!--EndFragment-->");
        EXPECT_EQ(bytes.substr(PlaceOf(bytes, "StartHTML"), 6), "<html>");
        EXPECT_EQ(PlaceOf(bytes, "EndHTML"), bytes.size());
    }
}

TEST(Clipboard, ScopesNestAndPutBackWhatWasThere)
{
    const CClipboard& before = GetClipboard();
    CMemoryClipboard outer;
    {
        const CServiceScope<CClipboard> scope(outer);
        {
            CMemoryClipboard inner;
            const CServiceScope<CClipboard> innerScope(inner);
            EXPECT_TRUE(GetClipboard().Put(u"<p>1</p>", u"1"));
            EXPECT_EQ(inner.GetHtml(), u"<p>1</p>");
            EXPECT_EQ(inner.GetText(), u"1");
        }
        EXPECT_EQ(&GetClipboard(), &outer);
    }
    EXPECT_EQ(&GetClipboard(), &before);
}
